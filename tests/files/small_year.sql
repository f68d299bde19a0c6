-- Three operations of a year, over reference_rows.sql: of the first two a sample of every kind, of the third none.
-- The last rows of the lists are used by no operation.
insert into samplingport values (4, 'Dun', 2);
insert into Fishing_method values (4, 'Longline', 2);
insert into fishing_area values ('A3', 'nowhere');
insert into vessel(vesselname, vesselid, gear) values ('Idle', 'R-9', 2);
insert into fish(fishno, family, genus, fishname) values (4, 'Zeidae', 'Zeus', 'faber');
update fish set classinterval = 2 where fishno = 1;
insert into fishoperation values
    (1, 1, 'Port Sampler', '2004-03-09', 1, 12, 30, 100, 15, 40, 35, 'Day', 3, 2, 120.5, '', 'Sea Star', 'A1'),
    (2, 2, 'Port Sampler', '2004-04-01', 3, 12, 30, 100, 15, 40, 35, 'Day', 3, 2, 80, '', 'Blue Fin', 'A2'),
    (3, 3, 'Port Sampler', '2004-05-01', 2, 12, 30, 100, 15, 40, 35, 'Day', 3, 2, 60, '', 'Sea Star', 'A1');
insert into group_main values
    (1, 1, 'Single species', 30), (2, 1, 'Trash', 50), (1, 2, 'Single species', 30), (2, 2, 'Trash', 50);
insert into group_composition values (1, 1, 1, 30, 30), (1, 3, 2, 5, 50), (2, 1, 1, 30, 30), (2, 3, 2, 5, 50);
insert into length values (1, 1, 2.5), (2, 1, 2.5);
insert into length_detail values (1, 1, 10, 12, 11, 4), (2, 1, 10, 12, 11, 4);
insert into gonad values (1, 1, 0.4), (2, 1, 0.4);
insert into gonad_detail values
    (1, 1, 1, 100, 90, 95, 85, 200, 'Male', 2, 10, 5), (2, 1, 1, 100, 90, 95, 85, 200, 'Male', 2, 10, 5);
