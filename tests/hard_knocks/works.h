#pragma once

#include "desk.h"

#include <array>

namespace kelvora::test {

inline constexpr int kMost = 40;

/// Something a sampler does. {column} in what is entered and changed is a cell of the row that it begins with, {n} a
/// number that no name has yet.
struct Work {
    const char* name;
    int share;  ///< how often it comes, at most kMost
    int place;
    const char* tab;
    const char* frame;
    /// Gives the rows to begin with, of which one is chosen. Some columns are for the sampler: "at", the operation to
    /// be found before; "list" and "row", a navigator and what it is moved to; "said", the boxes; "refused", the boxes
    /// of what is not stored; "grid" and "shows", what a grid must show in the end.
    const char* begin;
    const char* steps;
    /// What becomes of the model; parts that are stored for good one by one are parted by ";;", and with {each} this is
    /// done for each row of the table "chosen".
    const char* change;
};

/// Some species, and amounts of all kinds, chosen anew for everything that is done.
inline const char* const kChosen = R"(
    drop table if exists chosen;
    create temp table chosen as select fishno, genus || ' ' || fishname as name, 1 + below(20) as kg, below(50) as n,
        0.25 * (1 + below(400)) as weight, date('2004-01-01', below(730) || ' days') as day, 50 + 4 * below(80) as tl,
        50 << below(3) as bw, below(20) as gw, 1 + below(5) as stage, below(4) as kind,
        case below(3) when 0 then 'Male' when 1 then 'Female' else 'Juvenile' end as sex
    from fish order by below(1000000) limit 1 + below(4);)";

/// What an operation is found and summed up by, and the operation that the composition screen stands on.
inline const char* const kViews = R"(
    create temp table stands as select * from fishoperation where 0;
    create temp view known as
    select optid, 'State/Province' as criterion, statename as value, 'By State' as option
        from fishoperation join samplingport on samplingid = portid join state using (stateid)
    union all select optid, 'Sampling Port', samplingname, 'By Sampling Port'
        from fishoperation join samplingport on samplingid = portid
    union all select optid, 'Vessel', vesselid, 'By Vessel' from fishoperation
    union all select optid, 'Fishing Gear', guname, 'By Fishing Gear'
        from fishoperation join Fishing_method on methodid = fishing_method join Fishing_gear using (gearid)
    union all select optid, 'Fishing Area', describ, null from fishoperation join fishing_area on aname = areaid;
    create temp view typed as select chosen.rowid as number, chosen.*, printf('TL(mm) = %d; BL(mm) = %d; FL(mm) = %d; '
        || 'SL(mm) = %d; BW = %d; GW = %d; SEX = %s; Stage = %d-%s', tl, tl - 1, tl - 2, tl - 3, bw, gw, sex, stage,
        stagename) as steps, 100.0 * gw / bw as gsi from chosen join gonad_stage on stageid = stage;
    create temp view samples as
    select optid as at, spid, 'Length record' as list, genus || ' ' || fishname as row
        from length join fish on fishno = spid
    union all select optid, spid, 'Gonad record', genus || ' ' || fishname from gonad join fish on fishno = spid;)";

/// What the lists of screens that may have been open for long offer; by a criterion, those of the values in Search and
/// in the finders of other screens.
struct Offer {
    int place;
    const char *list, *rows;
};
inline constexpr std::array kOffers = {
    Offer{General, "State/Province", "statename from state"},
    Offer{General, "Fishing gear", "guname from Fishing_gear"},
    Offer{General, "Type of Gear", "guname from Fishing_gear"},
    Offer{Operations, "Landing State/Province", "statename from state"},
    Offer{Operations, "Vessel Name", "vesselname from vessel"},
    Offer{Operations, "Vessel Register id", "vesselid from vessel"},
    Offer{Operations, "Fishing Area", "aname from fishing_area"},
    Offer{Operations, "Fishing Gear", "guname from Fishing_gear where gearid in (select gearid from Fishing_method)"},
    Offer{Composition, "Species", "genus || ' ' || fishname from fish"},
    Offer{Search, "State/Province", "statename from state"},
    Offer{Search, "Sampling Port", "samplingname from samplingport"},
    Offer{Search, "Fishing Area", "describ from fishing_area"},
    Offer{Search, "Vessel", "vesselname from vessel"},
    Offer{Search, "Fishing Gear", "guname from Fishing_gear"}};

inline constexpr std::array kWorks = {
    Work{"add a port", 2, General, "General", "New sampling port", "select stateid, statename from state",
         "State/Province = {statename}; Sampling port = Port {n}; ADD",
         "insert into samplingport select max(samplingid) + 1, 'Port {n}', {stateid} from samplingport"},
    Work{"add a port of a new state", 1, General, "General", "New sampling port",
         "select max(stateid) + 1 as stateid from state", "State/Province = State {n}; Sampling port = Port {n}; ADD",
         R"(insert into state values ({stateid}, 'State {n}');;
            insert into samplingport select max(samplingid) + 1, 'Port {n}', {stateid} from samplingport)"},
    Work{"add a method", 1, General, "General", "New fishing method",
         "select max(gearid) + 1 as gearid from Fishing_gear", "Fishing gear = Gear {n}; Fishing Method = Way {n}; Add",
         R"(insert into Fishing_gear values ({gearid}, 'Gear {n}');;
            insert into Fishing_method select max(methodid) + 1, 'Way {n}', {gearid} from Fishing_method)"},
    Work{"add an area", 1, General, "General", "New fishing area",
         "select 'RESULT: Insert fishing area Complete' as said", "Area Name = Area {n}; Description = Bank {n}; Add",
         "insert into fishing_area values ('Area {n}', 'Bank {n}')"},
    Work{"add a species", 1, General, "Target Species", "New species", "select max(fishno) + 1 as fishno from fish",
         "Family = Familia {n}; Genus = Genus; Species = species-{n}; Add",
         "insert into fish values ({fishno}, 'Familia {n}', 'Genus', 'species-{n}', '', null)"},
    Work{"add a vessel", 1, General, "Fishing Vessel", "FISHING VESSEL", "select * from Fishing_gear",
         "Vessel name = Boat {n}; Vessel register id = R {n}; Engine Power (hp) = 75; Size(GRT) = 12; "
         "Vessel Length(m) = 9; Type of Gear = {guname}; Engine type = In Board; Add",
         "insert into vessel values ('Boat {n}', 'R {n}', '', 'In Board', 75, 12, 9, {gearid}, '', '', '')"},
    Work{"delete a port", 2, General, "General", "State/Province and Sampling Port",
         R"(select samplingid, 'State/Province and Sampling Port' as list, samplingname as row,
                case when samplingid in (select portid from fishoperation)
                then 'ERROR: Can not remove because sampling port used in Fishing Operation' end as refused,
                case when (select count(*) from samplingport where stateid = one.stateid) = 1
                then 'Kelvora: ''delete from state where stateid = ' || stateid || '''' || char(10)
                || 'Kelvora: Del state' end as said
            from samplingport as one where (select count(*) from samplingport) > 2)",
         "Delete",
         R"(delete from samplingport where samplingid = {samplingid};;
            delete from state where stateid not in (select stateid from samplingport))"},
    Work{"delete an area", 1, General, "General", "Fishing Area",
         R"(select 'Fishing Area' as list, aname as row, case when aname in (select areaid from fishoperation)
                then 'ERROR: Can not delete because this area used in Fishing Operation' end as refused
            from fishing_area where (select count(*) from fishing_area) > 2)",
         "Delete", "delete from fishing_area where aname = '{row}'"},
    Work{"delete a species", 1, General, "Target Species", "Target Species",
         R"(select fishno, 'Target Species' as list, genus || ' ' || fishname as row, case when fishno in
                (select spid from group_composition union select spid from length union select spid from gonad)
                then 'Kelvora: can''t delete this species because this species used another table!' end as refused
            from fish where (select count(*) from fish) > 2)",
         "Delete", "delete from fish where fishno = {fishno}"},
    Work{"delete a vessel", 1, General, "Fishing Vessel", "FISHING VESSEL",
         R"(select 'FISHING VESSEL' as list, vesselname as row, case when vesselname in
                (select vesselid from fishoperation)
                then 'ERROR!: Can not delete because vessel used in another table' end as refused
            from vessel where (select count(*) from vessel) > 2)",
         "Delete", "delete from vessel where vesselname = '{row}'"},
    Work{"record an operation", 6, Operations, "", "",
         R"(select portid, samplingname, statename, methodid, methodname, guname, vesselname, aname, day, weight,
                strftime('%d/%m/%Y', day) as shown, 'Kelvora: Insert Complete' as said
            from (select samplingid as portid, * from samplingport natural join state order by below(999) limit 1),
                (select * from Fishing_method natural join Fishing_gear order by below(999) limit 1),
                (select * from vessel order by below(999) limit 1),
                (select * from fishing_area order by below(999) limit 1), chosen)",
         "CLEAR; Vessel Name = {vesselname}; Fishing Gear = {guname}; Fishing Method = {methodname}; "
         "Fishing Area = {aname}; Landing State/Province = {statename}; Landing Port = {samplingname}; "
         "Sampling Date = {shown}; Total Catch (kg/trip) = {weight}; SAVE; CLEAR",
         R"(insert into fishoperation select coalesce(max(optid), 0) + 1, {portid}, 'Port Sampler', '{day}', {methodid},
                0, 0, 0, 0, 0, 0, 'Day', 0, 0, {weight}, '', '{vesselname}', '{aname}' from fishoperation)"},
    Work{"delete an operation", 3, Search, "Species Composition", "", "select optid as at from fishoperation", "DELETE",
         R"(delete from fishoperation where optid = {at}; delete from group_main where optid = {at};
            delete from group_composition where optid = {at}; delete from length where optid = {at};
            delete from length_detail where optid = {at}; delete from gonad where optid = {at};
            delete from gonad_detail where optid = {at})"},
    Work{"weigh for what the screen stands on", 40, Composition, "Species Composition", "Single species",
         R"(select name, case when fishno in
                (select spid from group_composition where optid = stands.optid and groupid = 1)
                then 'Kelvora: This species is in database already! please try again'
                else printf('Kelvora: Nothing was stored or deleted: fishing operation no. %d was deleted or replaced '
                || 'by another one since it was chosen here. What was entered is still on the screen.', optid) end
                as refused
            from (select * from stands except select * from fishoperation) as stands, chosen)",
         "Species = {name}; Weight = 2.5; Add", ""},
    Work{"weigh a single species", 6, Composition, "Species Composition", "Single species",
         R"(select optid as at, fishno, name, weight, case when fishno in
                (select spid from group_composition where optid = fishoperation.optid and groupid = 1)
                then 'Kelvora: This species is in database already! please try again' end as refused
            from fishoperation, chosen)",
         "Species = {name}; Weight = {weight}; Add",
         R"(insert or ignore into group_main values (1, {at}, 'Single species', 0);
            update group_main set totalsampling = totalsampling + {weight} where groupid = 1 and optid = {at};
            insert into group_composition values ({at}, {fishno}, 1, {weight}, {weight}))"},
    Work{"delete a single species", 2, Composition, "Species Composition", "Single species",
         R"(select optid as at, fishno, totalweight, 'Single species record' as list, genus || ' ' || fishname as row
            from group_composition join fish on fishno = spid where groupid = 1)",
         "X",
         R"(delete from group_composition where optid = {at} and groupid = 1 and spid = {fishno};
            update group_main set totalsampling = totalsampling - {totalweight} where optid = {at} and groupid = 1;
            delete from group_main where optid = {at} and groupid = 1 and not exists
                (select * from group_composition where optid = {at} and groupid = 1))"},
    Work{"weigh a group", 6, Composition, "Species Composition", "Sampling group",
         R"(select optid as at, name, total, round(100 * total / sample) as factor, steps,
                case when taken then 'ERROR!: Group repeat please change new group' end as refused,
                case when taken then 'CLEAR' else '' end as after
            from (select *, exists (select * from group_main where optid = fishoperation.optid and groupname = name)
                as taken from fishoperation,
                (select column1 as name from (values ('Trash'), ('Small fish'), ('Squid & co'), ('O''Neill''s'))),
                (select sum(kg) as sample, sum(kg) + 0.5 * max(n) * max(gw) as total,
                    group_concat('Species = ' || name || '; Weight = ' || kg, '; ADD; ') as steps from chosen)))",
         "Group = {name}; Total weight = {total}; {steps}; ADD; SAVE; {after}",
         R"(insert into group_main select coalesce(max(max(groupid), 1), 1) + 1, {at}, '{name}', {total}
                from group_main where optid = {at};
            insert into group_composition select {at}, fishno, groupid, kg, kg * {factor} / 100
                from chosen, group_main where optid = {at} and groupname = '{name}')"},
    Work{"delete a group", 2, Search, "Species Composition", "",
         "select optid as at, groupid, 'Group record' as list, groupname as row from group_main", "Delete group",
         R"(delete from group_main where optid = {at} and groupid = {groupid};
            delete from group_composition where optid = {at} and groupid = {groupid})"},
    Work{"measure lengths", 6, Lengths, "Length Frequency", "",
         R"(select optid as at, spid, genus || ' ' || fishname as name, coalesce(classinterval, below) as interval,
                coalesce(classinterval, below) * below2 as lower, weight, steps,
                case when classinterval is null then '; Class Interval = ' || below else '' end as new
            from group_composition join fish on fishno = spid,
                (select 1 + kind as below, 1 + gw as below2, weight from chosen where rowid = 1),
                (select group_concat('Frequency = ' || n || char(10), '; ') as steps from chosen))",
         "Species = {name}{new}; Sampling weight = {weight}; Lower limit(cm) = {lower}; START INPUT>>; {steps}; "
         "FINISH; SAVE",
         R"(delete from length where optid = {at} and spid = {spid};
            delete from length_detail where optid = {at} and spid = {spid};;
            update fish set classinterval = {interval} where fishno = {spid};
            insert into length values ({at}, {spid}, {weight});
            insert into length_detail select {at}, {spid}, low, low + {interval}, low + {interval} / 2.0, n
                from (select *, {lower} + (chosen.rowid - 1) * {interval} as low from chosen))"},
    Work{"add a class", 3, Search, "Length Frequency", "",
         R"(select samples.*, classinterval as interval, steps from samples join fish on fishno = spid,
                (select group_concat('Frequency = ' || n || '; ADD', '; ') as steps from chosen) where list like 'L%')",
         "{steps}",
         R"(insert into length_detail select {at}, {spid}, high, high + {interval}, high + {interval} / 2.0, n
                from (select max(upper1) as high from length_detail where optid = {at} and spid = {spid}), chosen
                where chosen.rowid = {each})"},
    Work{"measure fish", 6, Gonads, "Gonad Maturity Detail", "",
         R"(select optid as at, spid, genus || ' ' || fishname as name, steps
            from group_composition join fish on fishno = spid,
                (select group_concat(steps || '; NEXT>>', '; ') as steps from typed))",
         "Species = {name}; ADD SAMPLING >>; {steps}; SAVE",
         R"(insert or ignore into gonad values ({at}, {spid}, 0);
            update gonad set samplingw = round(samplingw + bw / 1000.0, 2) from typed
                where number = {each} and optid = {at} and spid = {spid};
            insert into gonad_detail select {at}, {spid}, fish, tl, tl - 1, tl - 2, tl - 3, bw, sex, stage, gw, gsi
                from typed, (select 1 + count(*) as fish from gonad_detail where optid = {at} and spid = {spid})
                where number = {each})"},
    Work{"add a fish", 3, Search, "Gonad Matuarity", "",
         R"(select * from samples, (select group_concat(steps || '; ADD', '; ') as steps from typed)
            where list like 'G%')",
         "{steps}",
         R"(insert into gonad_detail select {at}, {spid}, fish, tl, tl - 1, tl - 2, tl - 3, bw, sex, stage, gw, gsi
                from typed, (select 1 + count(*) as fish from gonad_detail where optid = {at} and spid = {spid})
                where number = {each})"},
    Work{"delete lengths", 2, Search, "Length Frequency", "", "select * from samples where list like 'L%'",
         "Delete length sample",
         R"(delete from length where optid = {at} and spid = {spid};
            delete from length_detail where optid = {at} and spid = {spid})"},
    Work{"look at a year", 3, CatchReport, "", "",
         // A part in per cent is rounded half up, of whole hundredths, so that nothing rounds before.
         R"(select year, option, 'Result' as grid, (select group_concat(printf('%s|%d|%.15g|%d.%02d', value, trips, kg,
                    (20000 * part + whole) / (2 * whole) / 100, (20000 * part + whole) / (2 * whole) % 100), char(10))
                from (select value, count(*) as trips, sum(estotal) as kg,
                    cast(round(100 * sum(estotal)) as int) as part from known join fishoperation using (optid)
                    where criterion = asked.criterion and substr(optdate, 1, 4) = year
                    group by value order by value)) as shows
            from (select substr(optdate, 1, 4) as year, criterion, option,
                cast(round(100 * sum(estotal)) as int) as whole
                from known join fishoperation using (optid) where option not null group by 1, 3) as asked)",
         "Year = {year}; Search; {option}", ""},
};

}  // namespace kelvora::test
