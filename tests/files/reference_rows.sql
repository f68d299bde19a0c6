-- Ports, gears, areas, vessels and species.
insert into state values (1, 'Alpha'), (2, 'Beta');
insert into samplingport values (1, 'Abo', 1), (2, 'Bex', 1), (3, 'Cay', 2);
insert into Fishing_gear values (1, 'Trawl'), (2, 'Gill net');
insert into Fishing_method values (1, 'Otter board', 1), (2, 'Pair', 1), (3, 'Drift', 2);
insert into fishing_area values ('A1', 'north bank'), ('A2', 'south bank');
insert into vessel values
    ('Sea Star', 'R-1', 'Alpha', 'In Board', 120, 30, 15, 1, '4', '20', '8'),
    ('Blue Fin', 'R-2', 'Beta', 'Out Board', 40, 5, 8, 2, '5', '100', '3');
insert into fish(fishno, family, genus, fishname, common_name) values
    (1, 'Scombridae', 'Rastrelliger', 'kanagurta', 'Indian mackerel'),
    (2, 'Mullidae', 'Upeneus', 'vittatus', 'Yellowstriped goatfish'),
    (3, 'Nemipteridae', 'Nemipterus', 'virgatus', 'Golden threadfin bream');
