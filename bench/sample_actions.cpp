#include "answers.h"
#include "office.h"

#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvora::bench {
namespace {

/// A sampling screen on the desk's operation, with its entry tab in front.
test::ScreenDriver atDesk(Office& office, const QString& caption, const QString& title, const QString& tab) {
    const test::ScreenDriver hand = office.open(caption, title, true);
    hand.openTab(u"Fishing Operation"_s);
    hand.choose(u"Criterion"_s, u"Vessel"_s);
    hand.choose(u"Value"_s, u"Desk vessel"_s);
    hand.press(u"Search"_s);
    hand.openTab(tab);
    return hand;
}
test::ScreenDriver composition(Office& office) {
    return office.open(u"Species Composition"_s, u"Species Composition"_s, true);
}
test::ScreenDriver lengths(Office& office) {
    return office.open(u"Length Frequency"_s, u"Length Frequency"_s, true);
}
test::ScreenDriver gonads(Office& office) {
    return office.open(u"Gonad Maturity"_s, u"Gonad Matuarity Detail"_s, true);
}

QString written(const Office& office, const QString& name, const QByteArray& bytes) {
    QFile file(office.file(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("a file to import cannot be written");
    }
    return file.fileName();
}

QByteArray fishFile(int count) {
    QByteArray bytes = "TL,BL,FL,SL,BW,SEX,Stage,GW\n";
    for (int i = 0; i < count; ++i) {
        bytes += "152,130,141,128," + QByteArray::number(30 + i % 40) + ",F,3,1.5\n";
    }
    return bytes;
}

Action saveOperation(const Office& office) {
    const auto screen = [](Office& at) { return at.open(u"Fishing Operation"_s, u"Fishing Information"_s, true); };
    const std::string number = std::to_string(office.deskOperation() + 1);
    return {.name = u"save an operation"_s,
            .before =
                [=](Office& at) {
                    const test::ScreenDriver hand = screen(at);
                    hand.press(u"CLEAR"_s);
                    for (const auto& [field, row] : {std::pair{u"Vessel Name"_s, u"Vessel 0001"_s},
                                                     {u"Fishing Gear"_s, u"Gear 01"_s},
                                                     {u"Fishing Method"_s, u"Method 01"_s},
                                                     {u"Fishing Area"_s, u"Area 01"_s},
                                                     {u"Landing State/Province"_s, u"State 01"_s},
                                                     {u"Landing Port"_s, u"Port 001"_s}}) {
                        hand.choose(field, row);
                    }
                    hand.type(u"Total Catch (kg/trip)"_s, u"80.5"_s);
                    at.dialogs.expect(u"! Kelvora: Insert Complete"_s);
                },
            .run = [=](Office& at) { screen(at).press(u"SAVE"_s); },
            .direct = {"INSERT INTO fishoperation VALUES (" + number +
                       ", 1, 'Port Sampler', '2025-12-31', 1, 7, 0, 99, "
                       "0, 0, 0, 'Day', 0, 0, 80.5, '', 'Vessel 0001', 'Area 01')"},
            .undo = {"DELETE FROM fishoperation WHERE optid = " + number},
            .after = [](Office& at) { at.session.lastSavedOperation = 0; }};
}

Action saveSingleSpecies(const std::string& desk) {
    return {.name = u"save a single species"_s,
            .before =
                [](Office& at) {
                    const auto hand =
                        atDesk(at, u"Species Composition"_s, u"Species Composition"_s, u"Species Composition"_s);
                    hand.within(u"Single species"_s).choose(u"Species"_s, speciesName(11));
                    hand.within(u"Single species"_s).type(u"Weight"_s, u"12.5"_s);
                },
            .run = [](Office& at) { composition(at).within(u"Single species"_s).press(u"Add"_s); },
            .direct = saved(
                {"INSERT INTO group_composition VALUES (" + desk + ", 11, 1, 12.5, 12.5)",
                 "UPDATE group_main SET totalsampling = totalsampling + 12.5 WHERE groupid = 1 AND optid = " + desk}),
            .undo = {"DELETE FROM group_composition WHERE spid = 11 AND optid = " + desk,
                     "UPDATE group_main SET totalsampling = 10 WHERE groupid = 1 AND optid = " + desk}};
}

Action saveGroup(const std::string& desk) {
    Statements inserts = {"INSERT INTO group_main VALUES (2, " + desk + ", 'Trash', 200)"};
    for (int species = 21; species <= 26; ++species) {
        inserts.push_back("INSERT INTO group_composition VALUES (" + desk + "," + std::to_string(species) + ",2,4,33)");
    }
    return {.name = u"save a group of 6 species"_s,
            .before =
                [](Office& at) {
                    const auto hand =
                        atDesk(at, u"Species Composition"_s, u"Species Composition"_s, u"Species Composition"_s);
                    const auto group = hand.within(u"Sampling group"_s);
                    group.type(u"Group"_s, u"Trash"_s);
                    group.type(u"Total weight"_s, u"200"_s);
                    for (int species = 21; species <= 26; ++species) {
                        group.choose(u"Species"_s, speciesName(species));
                        group.type(u"Weight"_s, u"4"_s);
                        group.press(u"ADD"_s);
                    }
                    at.dialogs.expect(u"? CONFIRM: Are you sure to 'SAVE' this group -> Yes"_s);
                },
            .run = [](Office& at) { composition(at).within(u"Sampling group"_s).press(u"SAVE"_s); },
            .direct = saved(inserts),
            .undo = {"DELETE FROM group_main WHERE groupid > 1 AND optid = " + desk,
                     "DELETE FROM group_composition WHERE groupid > 1 AND optid = " + desk}};
}

Action saveLengths(const std::string& desk) {
    Statements inserts = {"INSERT INTO length VALUES (" + desk + ", 2, 2.5)"};
    for (int i = 0; i < 20; ++i) {
        inserts.push_back("INSERT INTO length_detail VALUES (" + desk + ", 2, 11, 11.5, 11.25, 3)");
    }
    return {.name = u"save a length sample of 20 classes"_s,
            .before =
                [](Office& at) {
                    const auto hand = atDesk(at, u"Length Frequency"_s, u"Length Frequency"_s, u"Length Frequency"_s);
                    hand.choose(u"Species"_s, speciesName(2));
                    hand.type(u"Sampling weight"_s, u"2.5"_s);
                    hand.type(u"Lower limit(cm)"_s, u"11"_s);
                    hand.press(u"START INPUT>>"_s);
                    for (int i = 0; i < 20; ++i) {
                        hand.enter(u"Frequency = 3\n"_s);
                    }
                    hand.press(u"FINISH"_s);
                    at.dialogs.expect(u"? Confirm: Are you sure to insert this data -> Yes"_s);
                },
            .run = [](Office& at) { lengths(at).press(u"SAVE"_s); },
            .direct = saved(inserts),
            .undo = {"DELETE FROM length WHERE optid = " + desk, "DELETE FROM length_detail WHERE optid = " + desk}};
}

/// The gonad screen with a species of the desk's catch chosen.
test::ScreenDriver measuring(Office& at) {
    const auto hand = atDesk(at, u"Gonad Maturity"_s, u"Gonad Matuarity Detail"_s, u"Gonad Maturity Detail"_s);
    hand.press(u"CLEAR"_s);
    hand.choose(u"Species"_s, speciesName(3));
    hand.press(u"ADD SAMPLING >>"_s);
    return hand;
}

void expectFish(Office& at, int count) {
    at.dialogs.expect(u"? open file -> "_s + written(at, u"fish.csv"_s, fishFile(count)));
}

Action saveFish(const std::string& desk) {
    Statements inserts = {"INSERT INTO gonad VALUES (" + desk + ", 3, 1)"};
    for (int i = 1; i <= 30; ++i) {
        inserts.push_back("INSERT INTO gonad_detail VALUES (" + desk + ", 3, " + std::to_string(i) +
                          ", 152, 130, 141, 128, 30, 'Female', 3, 1.5, 5)");
    }
    return {.name = u"save 30 fish, each for good on its own"_s,
            .before =
                [](Office& at) {
                    const auto hand = measuring(at);
                    expectFish(at, 30);
                    hand.press(u"IMPORT"_s);
                    at.dialogs.expect(u"? Confirm: Are you sure to add this data to database -> Yes"_s);
                },
            .run = [](Office& at) { gonads(at).press(u"SAVE"_s); },
            .direct = inserts,
            .undo = {"DELETE FROM gonad WHERE optid = " + desk, "DELETE FROM gonad_detail WHERE optid = " + desk}};
}

/// An import of the "General Information" screen: reading a file of 5,000 rows, and storing them.
struct Import {
    QString tab, frame, save, clear, name;
    QByteArray header, record;  ///< "#" stands for the number of the row
    std::string direct, undo;
};

void addImport(std::vector<Action>& actions, const Import& import) {
    const auto frame = [import](Office& at) {
        const auto hand = at.open(u"General Information"_s, u"General Information"_s, true);
        hand.openTab(import.tab);
        return hand.within(import.frame);
    };
    const auto expect = [import](Office& at) {
        QByteArray bytes = import.header;
        for (int i = 1; i <= 5000; ++i) {
            bytes += QByteArray(import.record).replace('#', QByteArray::number(i));
        }
        at.dialogs.expect(u"? open file -> "_s + written(at, import.name + u".csv"_s, bytes));
    };
    actions.push_back({.name = u"read a file of 5,000 "_s + import.name,
                       .before =
                           [=](Office& at) {
                               if (frame(at).enabled(import.clear)) {
                                   frame(at).press(import.clear);
                               }
                               expect(at);
                           },
                       .run = [=](Office& at) { frame(at).press(u"Import"_s); }});
    actions.push_back({.name = u"store 5,000 imported "_s + import.name,
                       .before =
                           [=](Office& at) {
                               expect(at);
                               frame(at).press(u"Import"_s);
                               at.dialogs.expect(u"? CONFIRM: Are you sure to insert '5000' data -> Yes"_s);
                           },
                       .run = [=](Office& at) { frame(at).press(import.save); },
                       .direct = {import.direct},
                       .undo = {import.undo},
                       .times = 5});
}

}  // namespace

std::vector<Action> sampleActions(const Office& office) {
    const std::string desk = std::to_string(office.deskOperation());
    std::vector<Action> actions = {saveOperation(office), saveSingleSpecies(desk), saveGroup(desk), saveLengths(desk),
                                   saveFish(desk)};
    actions.push_back({.name = u"read a file of 5,000 measured fish"_s,
                       .before =
                           [](Office& at) {
                               measuring(at);
                               expectFish(at, 5000);
                           },
                       .run = [](Office& at) { gonads(at).press(u"IMPORT"_s); },
                       .after = [](Office& at) { gonads(at).press(u"CLEAR"_s); }});
    const std::string rows = "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 5000) ";
    addImport(actions,
              {u"Fishing Vessel"_s, u"Vessel import"_s, u"Save"_s, u"Clear"_s, u"vessels"_s,
               "vessel name,vessel register id,engine type,engine power,length(m),state/province,size(GRT),type "
               "of gear,net length(m),net width(m),mesh size(cm)\n",
               "New #,N-#,In Board,80,7.5,State 01,2,Gear 01,1,2,3\n",
               rows + "INSERT INTO vessel SELECT 'New ' || i, 'N-' || i, 'State 01', 'In Board', 80, 2, 7.5, 1, "
                      "'3', '1', '2' FROM n WHERE NOT EXISTS (SELECT 1 FROM vessel WHERE vesselname = 'New ' || i)",
               "DELETE FROM vessel WHERE vesselname LIKE 'New %'"});
    addImport(actions,
              {u"Target Species"_s, u"IMPORT"_s, u"SAVE"_s, u"CLEAR"_s, u"species"_s,
               "Family,Genus,Species,Common name\n", "Newidae,Newia,nova#,Newcomer #\n",
               rows + "INSERT INTO fish SELECT 600 + i, 'Newidae', 'Newia', 'nova' || i, 'Newcomer ' || i, NULL "
                      "FROM n",
               "DELETE FROM fish WHERE fishno > 600"});
    return actions;
}

}  // namespace kelvora::bench
