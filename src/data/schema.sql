-- What a new data file holds. Numbers are REAL, so that a division leaves nothing out; dates are ISO text, whose order
-- is the order of the days. Names compare without regard to the case of A to Z.

CREATE TABLE kelvora_user (  -- Who may sign in.
    login TEXT COLLATE NOCASE PRIMARY KEY,  -- name to sign in with
    passwd TEXT COLLATE NOCASE,             -- password, as it is typed
    uname TEXT COLLATE NOCASE               -- shown name: the recorder that a new operation proposes
);

CREATE TABLE state (  -- States and provinces of the coast.
    stateid INTEGER PRIMARY KEY,   -- number
    statename TEXT COLLATE NOCASE  -- name
);

CREATE TABLE samplingport (  -- Ports where catches are sampled.
    samplingid INTEGER PRIMARY KEY,    -- number
    samplingname TEXT COLLATE NOCASE,  -- name
    stateid INTEGER                    -- the state it lies in
);

CREATE TABLE vessel (  -- The vessel register. No column is a key: a vessel may come twice, or by its id alone.
    vesselname TEXT COLLATE NOCASE,  -- name, by which an operation knows its vessel
    vesselid TEXT COLLATE NOCASE,    -- register id, as painted on the hull
    flagstate TEXT COLLATE NOCASE,   -- state or province of registration, as typed
    enginetype TEXT COLLATE NOCASE,  -- "In Board" or "Out Board"
    enginepower REAL,                -- hp
    vesselsize REAL,                 -- gross tonnage, GRT
    vessellength REAL,               -- m
    gear INTEGER,                    -- its usual fishing gear
    meshsize TEXT COLLATE NOCASE,    -- mesh of its net, cm, as typed
    netlength TEXT COLLATE NOCASE,   -- length of its net, m, as typed
    netwidth TEXT COLLATE NOCASE     -- width of its net, m, as typed
);

CREATE TABLE Fishing_gear (  -- Fishing gears: trawl, gill net, …
    gearid INTEGER PRIMARY KEY,  -- number
    guname TEXT COLLATE NOCASE   -- name
);

CREATE TABLE Fishing_method (  -- Ways to fish with a gear: otter board and pair trawl, …
    methodid INTEGER PRIMARY KEY,    -- number
    methodname TEXT COLLATE NOCASE,  -- name, one of its kind within the gear
    gearid INTEGER                   -- the gear it belongs to
);

CREATE TABLE fishing_area (  -- Fishing areas.
    aname TEXT COLLATE NOCASE PRIMARY KEY,  -- name, by which an operation knows its area
    describ TEXT COLLATE NOCASE             -- description
);

CREATE TABLE fish (  -- The species catalogue.
    fishno INTEGER PRIMARY KEY,       -- number; 0 is never shown
    family TEXT COLLATE NOCASE,       -- family
    genus TEXT COLLATE NOCASE,        -- genus
    fishname TEXT COLLATE NOCASE,     -- epithet; the shown name is genus, blank, epithet
    common_name TEXT COLLATE NOCASE,  -- name at the market
    classinterval REAL                -- width of its length classes, cm; 0 or nothing until a first sample set it
);

CREATE TABLE fishoperation (  -- Fishing operations. The state is that of the port, the gear that of the method.
    optid INTEGER PRIMARY KEY,        -- number
    portid INTEGER,                   -- port where it landed
    interviewer TEXT COLLATE NOCASE,  -- recorder
    optdate TEXT,                     -- day of sampling
    fishing_method INTEGER,           -- method
    lat_dec REAL,                     -- latitude, whole degrees
    lat_min REAL,                     -- and minutes
    lon_dec REAL,                     -- longitude, whole degrees; 0 where it was not given
    lon_min REAL,                     -- and minutes
    bdepth REAL,                      -- depth of the bottom, m
    fdepth REAL,                      -- depth of the gear, m
    fishingtime TEXT COLLATE NOCASE,  -- "Day", "Night" or "Day and Night"
    nohaul REAL,                      -- hauls of the trip
    dulation REAL,                    -- duration of the trip, days
    estotal REAL,                     -- estimated catch of the trip, all species, kg; never 0
    note TEXT COLLATE NOCASE,         -- free note
    vesselid TEXT COLLATE NOCASE,     -- the NAME of the vessel, not its register id
    areaid TEXT COLLATE NOCASE        -- the name of the area
);

CREATE TABLE group_main (  -- Sampling groups of a catch. 1 is "Single species": those that were weighed whole.
    groupid INTEGER,                -- number within the operation
    optid INTEGER,                  -- operation
    groupname TEXT COLLATE NOCASE,  -- name, one of its kind within the operation
    totalsampling REAL,             -- kg: the whole group in the catch; of group 1 the sum of its species
    PRIMARY KEY (optid, groupid)
);

CREATE TABLE group_composition (  -- The species of a group.
    optid INTEGER,     -- operation
    spid INTEGER,      -- species
    groupid INTEGER,   -- group
    totalweight REAL,  -- weight in the sample, kg; of group 1 as estotal
    estotal REAL,      -- weight in the whole catch, kg: of this species alone, unlike an operation's estotal
    PRIMARY KEY (optid, groupid, spid)
);

CREATE TABLE length (  -- Length-frequency samples.
    optid INTEGER,  -- operation
    spid INTEGER,   -- species
    weight REAL,    -- of the sample, kg
    PRIMARY KEY (optid, spid)
);

CREATE TABLE length_detail (  -- Their length classes. Rows may repeat.
    optid INTEGER,    -- operation
    spid INTEGER,     -- species
    lower1 REAL,      -- lower limit of the class, cm
    upper1 REAL,      -- upper limit, cm
    midlength1 REAL,  -- middle, cm
    frequency1 REAL   -- number of fish
);

CREATE TABLE gonad (  -- Gonad samples.
    optid INTEGER,   -- operation
    spid INTEGER,    -- species
    samplingw REAL,  -- weight of its fish, kg
    PRIMARY KEY (optid, spid)
);

CREATE TABLE gonad_detail (  -- Their measured fish; 0 is not measured.
    optid INTEGER,            -- operation
    spid INTEGER,             -- species
    samplingno INTEGER,       -- number of the fish within the sample
    tl REAL,                  -- total length, mm
    bl REAL,                  -- body length, mm
    fl REAL,                  -- fork length, mm
    sl REAL,                  -- standard length, mm
    bw REAL,                  -- body weight, g
    sex TEXT COLLATE NOCASE,  -- "Male", "Female", "Juvenile", or "None" from an import file
    stage INTEGER,            -- maturity stage
    gw REAL,                  -- gonad weight, g
    gsi REAL,                 -- gonado-somatic index, gonad weight as a percentage of body weight
    PRIMARY KEY (optid, spid, samplingno)
);

CREATE TABLE gonad_stage (  -- Stages of maturity.
    stageid INTEGER PRIMARY KEY,   -- number, by which the lists are ordered
    stagename TEXT COLLATE NOCASE  -- name
);

-- The date index answers the yearly reports from the index alone; the others serve the finder and the deletes.
CREATE INDEX operation_by_date ON fishoperation(optdate, portid, fishing_method, areaid, vesselid, estotal);
CREATE INDEX operation_by_port ON fishoperation(portid);
CREATE INDEX operation_by_method ON fishoperation(fishing_method);
CREATE INDEX operation_by_area ON fishoperation(areaid);
CREATE INDEX operation_by_vessel ON fishoperation(vesselid);
-- A report of one port, method or area in a year. Those above stay: by them a finder's operations come in the order of
-- their numbers.
CREATE INDEX operation_by_port_and_date ON fishoperation(portid, optdate);
CREATE INDEX operation_by_method_and_date ON fishoperation(fishing_method, optdate);
CREATE INDEX operation_by_area_and_date ON fishoperation(areaid, optdate);
CREATE INDEX vessel_by_name ON vessel(vesselname, vesselid);
-- An import looks for every species of its file.
CREATE INDEX species_by_epithet ON fish(fishname);
CREATE INDEX composition_by_species ON group_composition(optid, spid, estotal);
CREATE INDEX length_class_by_sample ON length_detail(optid, spid);

INSERT INTO gonad_stage VALUES (1, 'Immature'), (2, 'Maturing'), (3, 'Ripe'), (4, 'Spawning'), (5, 'Spent');
INSERT INTO kelvora_user VALUES ('Administrator', 'kelvora', 'Administrator');
