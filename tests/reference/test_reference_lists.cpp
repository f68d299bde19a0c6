#include "controls/bound_list.h"
#include "reference/vessel_tab.h"
#include "reference_screen.h"

#include <QLineEdit>

namespace kelvora::test_reference_lists {

using test::ReferenceScreen;

const QString kPorts = u"State/Province and Sampling Port"_qs;
const QString kState = u"State/Province"_qs;
const QString kPort = u"Sampling port"_qs;
const QString kMethods = u"Fishing Gear and Method"_qs;
const QString kGear = u"Fishing gear"_qs;
const QString kMethod = u"Fishing Method"_qs;
const QString kAreas = u"Fishing Area"_qs;
const QString kArea = u"Area Name"_qs;
const QString kDescription = u"Description"_qs;
const QString kSpecies = u"Target Species"_qs;
const QString kConfirm = u"Confirm"_qs;
const QString kDeletePort = u"Do you want to remove this sampling port"_qs;
const QString kDeleteArea = u"Do you want to delete this area?"_qs;

/// Something new for the lists; what is asked about it is planned before.
void addPort(ReferenceScreen& screen, const QString& state, const QString& port, std::optional<bool> answer = {}) {
    if (answer) {
        screen.store.dialogs.expectConfirm(kConfirm, u"Are you sure to insert sampling port '"_qs + port + u"'"_qs,
                                           *answer);
    }
    screen.add(u"New sampling port"_qs, {{kState, state}, {kPort, port}}, u"ADD"_qs);
}
void addMethod(ReferenceScreen& screen, const QString& gear, const QString& method, std::optional<bool> answer = {}) {
    if (answer) {
        screen.store.dialogs.expectConfirm(kConfirm, u"Are you sure to insert fishing gear '"_qs + gear + u"'?"_qs,
                                           *answer);
    }
    screen.add(u"New fishing method"_qs, {{kGear, gear}, {kMethod, method}});
}
void addArea(const ReferenceScreen& screen, const QString& name, const QString& description) {
    screen.hand().edit(kArea)->setText(name);
    screen.add(u"New fishing area"_qs, {{kDescription, description}});
}
void addSpecies(const ReferenceScreen& screen, const QStringList& texts) {
    screen.add(
        u"New species"_qs,
        {{u"Family"_qs, texts[0]}, {u"Genus"_qs, texts[1]}, {u"Species"_qs, texts[2]}, {u"Common name"_qs, texts[3]}});
}

/// States with their ports, gears with their methods, areas and species.
class TestReferenceLists : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newPorts() {
        struct Case {
            QString state, port;
            bool yes;
            QStringList newStates, newPorts;
        };
        // A new state stays, though its port is declined.
        for (const Case& added : {Case{u"beta"_qs, u"Dor"_qs, true, {}, {u"4|Dor|2"_qs}},
                                  {u"Beta"_qs, u"Abo"_qs, true, {}, {u"4|Abo|2"_qs}},
                                  {u"Beta"_qs, u"Dor"_qs, false, {}, {}},
                                  {u"Gamma"_qs, u"Dor"_qs, false, {u"3|Gamma"_qs}, {}},
                                  {u"Cote d'Ivoire; --"_qs,
                                   u"L'Anse %1 \\ 'x'"_qs,
                                   true,
                                   {u"3|Cote d'Ivoire; --"_qs},
                                   {u"4|L'Anse %1 \\ 'x'|3"_qs}}}) {
            ReferenceScreen screen;
            addPort(screen, added.state, added.port, added.yes);
            QCOMPARE(screen.store.rows("select * from state where stateid > 2"), added.newStates);
            QCOMPARE(screen.store.rows("select * from samplingport where samplingid > 3"), added.newPorts);
            QCOMPARE(screen.rows(kPorts).size(), added.yes ? 4 : 3);
            QCOMPARE(screen.text(kPort), QString());
            QCOMPARE(screen.text(kState), added.state);
            QVERIFY(screen.hand().list(kState)->key().isValid());
        }
    }

    void refusedPorts() {
        ReferenceScreen screen;
        addPort(screen, {}, u"Abo"_qs);
        addPort(screen, u"Alpha"_qs, {});
        screen.store.dialogs.expectMessage(u"ERROR"_qs, u"sampling port repeat please try again"_qs);
        addPort(screen, u"Alpha"_qs, u"abo"_qs);
        QCOMPARE(screen.text(kPort), QString());
        QVERIFY(screen.hand().focused(kPort));
        QCOMPARE(screen.rows(kPorts).size(), 3);
        // A state that came from elsewhere is not stored again.
        screen.store.execute("insert into state values (3, 'Gamma')");
        addPort(screen, u"Gamma"_qs, u"Dor"_qs, true);
        QCOMPARE(screen.store.rows("select * from samplingport where samplingid = 4"), QStringList{u"4|Dor|3"_qs});
        QCOMPARE(screen.store.rows("select count(*) from state"), QStringList{u"3"_qs});
    }

    void deletedPorts() {
        ReferenceScreen screen;
        screen.store.addOperation(1, 1, u"2004-03-01"_qs, 1, 10, u"Sea Star"_qs, u"A1"_qs);
        screen.refuseToRemove(kPorts, u"ERROR"_qs,
                              u"Can not remove because sampling port used in Fishing Operation"_qs);
        screen.hand().move(kPorts, u"Next"_qs);
        screen.remove(kPorts, kConfirm, kDeletePort, false);
        QCOMPARE(screen.caption(kPorts), u"Bex"_qs);
        screen.remove(kPorts, kConfirm, kDeletePort);
        QCOMPARE(screen.caption(kPorts), u"Abo"_qs);
        QCOMPARE(screen.rows(kPorts), (QStringList{u"Alpha|Abo"_qs, u"Beta|Cay"_qs}));
        QCOMPARE(screen.store.rows("select count(*) from state"), QStringList{u"2"_qs});

        // With the last port of a state every state without ports goes, and says so.
        screen.store.execute("insert into state values (3, 'Never a port')");
        screen.hand().move(kPorts, u"Last"_qs);
        screen.store.dialogs.expectConfirm(kConfirm, kDeletePort, true);
        for (const int stateid : {2, 3}) {
            screen.store.dialogs.expectMessage(u"'delete from state where stateid = %1'"_qs.arg(stateid));
            screen.store.dialogs.expectMessage(u"Del state"_qs);
        }
        screen.in(kPorts).press(u"Delete"_qs);
        QCOMPARE(screen.store.rows("select * from state"), QStringList{u"1|Alpha"_qs});
        QCOMPARE(screen.hand().list(kState)->count(), 1);
    }

    void portsByName() {
        ReferenceScreen screen;
        QCOMPARE(screen.screen->getsamplingid(u"Beta"_qs, u"Cay"_qs), 3);
        screen.store.dialogs.expectMessage(u"No Record"_qs);
        QVERIFY(!screen.screen->getsamplingid(u"Alpha"_qs, u"Cay"_qs));
    }

    void newMethods() {
        struct Case {
            QString gear, method;
            std::optional<bool> answer;  // to the question about a new gear, if it is asked
            QStringList newGears, newMethods;
        };
        for (const Case& added :
             {Case{u"trawl"_qs, u"Beam"_qs, {}, {}, {u"4|Beam|1"_qs}},
              {u"Gill net"_qs, u"Pair"_qs, {}, {}, {u"4|Pair|2"_qs}},
              {u"Fisher's '%1'"_qs, u"o'clock\\"_qs, true, {u"3|Fisher's '%1'"_qs}, {u"4|o'clock\\|3"_qs}},
              {u"Trap"_qs, u"Pot"_qs, false, {}, {}},
              {u"Trap"_qs, u""_qs, {}, {}, {}},
              {u""_qs, u"Pot"_qs, {}, {}, {}}}) {
            ReferenceScreen screen;
            if (added.answer == false) {
                screen.store.dialogs.expectConfirm(kConfirm, u"Are you sure to insert fishing gear 'Trap'?"_qs, false);
                screen.store.dialogs.expectMessage(u"RESULT"_qs, u"Insert fishing gear not Complete"_qs);
            }
            addMethod(screen, added.gear, added.method, added.answer == true ? added.answer : std::nullopt);
            QCOMPARE(screen.store.rows("select * from Fishing_gear where gearid > 2"), added.newGears);
            QCOMPARE(screen.store.rows("select * from Fishing_method where methodid > 3"), added.newMethods);
            QCOMPARE(screen.rows(kMethods).size(), 3 + added.newMethods.size());
            // A method that was stored leaves both fields empty; a gear that was declined can be tried again.
            const bool stored = !added.newMethods.isEmpty();
            QCOMPARE(screen.text(kGear), stored ? QString() : added.gear);
            QCOMPARE(screen.text(kMethod), stored || added.answer ? QString() : added.method);
        }
    }

    void secondMethodOfAName() {
        ReferenceScreen screen;
        screen.store.dialogs.expectMessage(u"Error!"_qs, u"fishing method repeat please try again!"_qs);
        addMethod(screen, u"Trawl"_qs, u"PAIR"_qs);
        QCOMPARE(screen.text(kMethod), u"PAIR"_qs);
        QCOMPARE(screen.rows(kMethods).size(), 3);
    }

    /// Method 3 is used by an operation, and the number of method 2 is also that of a vessel's gear.
    void deletedMethods() {
        ReferenceScreen screen;
        screen.store.execute("insert into Fishing_gear values (3, 'Trap')");
        screen.store.execute("insert into Fishing_method values (4, 'Pot', 3)");
        screen.store.addOperation(1, 1, u"2004-03-01"_qs, 3, 10, u"Sea Star"_qs, u"A1"_qs);
        screen.reopen();
        for (int method = 2; method < 4; ++method) {
            screen.hand().move(kMethods, u"Next"_qs);
            screen.refuseToRemove(kMethods, u"Kelvora"_qs,
                                  u"Can not delete fishing gear because this gear used in another table"_qs);
        }
        screen.hand().move(kMethods, u"Last"_qs);
        screen.in(kMethods).press(u"Delete"_qs);
        QCOMPARE(screen.store.rows("select methodid from Fishing_method").join(u' '), u"1 2 3"_qs);
        QCOMPARE(screen.rows(kMethods).size(), 3);
        QCOMPARE(screen.store.rows("select count(*) from Fishing_gear"), QStringList{u"3"_qs});
    }

    void gearsAreOfferedOnBothTabs() {
        ReferenceScreen screen;
        addMethod(screen, u"Trap"_qs, u"Pot"_qs, true);
        screen.store.dialogs.expectMessage(u"Insert Complete!"_qs);
        screen.screen->findChild<VesselTab*>()->AddGearCounted(u"Hook"_qs);
        for (const QString& list : {kGear, QString(u"Type of Gear"_qs)}) {
            QCOMPARE(screen.hand().list(list)->count(), 4);
        }
        QCOMPARE(screen.store.rows("select * from Fishing_gear where gearid > 2"),
                 (QStringList{u"3|Trap"_qs, u"4|Hook"_qs}));
    }

    void newAreas() {
        for (const auto& [name, yes] :
             {std::pair{u"A0"_qs, false}, {u"Fisher's 'A%1'; --"_qs, true}, {QString(10'000, u'x'), true}}) {
            ReferenceScreen screen;
            screen.store.dialogs.expectConfirm(kConfirm, u"Are you sure to insert this fishing area? "_qs, yes);
            screen.store.dialogs.expectMessage(
                u"RESULT"_qs, yes ? u"Insert fishing area Complete"_qs : u"Insert fishing area not Complete"_qs);
            addArea(screen, name, u"o'er there"_qs);
            QCOMPARE(screen.rows(kAreas).contains(name + u"|o'er there"_qs), yes);
            QCOMPARE(screen.text(kArea) + screen.text(kDescription), QString());
        }
    }

    void refusedAreas() {
        ReferenceScreen screen;
        screen.store.dialogs.expectMessage(u"Please insert fishing area"_qs);
        addArea(screen, {}, {});
        QVERIFY(screen.hand().focused(kArea));
        screen.store.dialogs.expectMessage(u"Please insert description"_qs);
        addArea(screen, u"A3"_qs, {});
        QVERIFY(screen.hand().focused(kDescription));
        QCOMPARE(screen.text(kArea), u"A3"_qs);
        screen.store.dialogs.expectMessage(u"ERROR"_qs, u"Fishing area repeat please try again"_qs);
        addArea(screen, u"a1"_qs, u"elsewhere"_qs);
        QCOMPARE(screen.rows(kAreas), (QStringList{u"A1|north bank"_qs, u"A2|south bank"_qs}));
    }

    void deletedAreas() {
        ReferenceScreen screen;
        screen.store.addOperation(1, 1, u"2004-03-01"_qs, 1, 10, u"Sea Star"_qs, u"A1"_qs);
        screen.refuseToRemove(kAreas, u"ERROR"_qs, u"Can not delete because this area used in Fishing Operation"_qs);
        screen.hand().move(kAreas, u"Last"_qs);
        screen.remove(kAreas, kConfirm, kDeleteArea, false);
        QCOMPARE(screen.caption(kAreas), u"A2"_qs);
        screen.remove(kAreas, kConfirm, kDeleteArea);
        QCOMPARE(screen.store.rows("select aname from fishing_area"), QStringList{u"A1"_qs});
        QCOMPARE(screen.caption(kAreas), u"A1"_qs);

        screen.store.execute("delete from fishoperation");
        screen.store.execute("delete from fishing_area");
        screen.hand().type(kArea, u"A3"_qs);
        screen.refuseToRemove(kAreas, u"ERROR"_qs, u"It's doesn't have this area"_qs);
        QCOMPARE(screen.text(kArea), QString());
    }

    void newSpecies() {
        struct Case {
            QString family, genus, species, commonName, title, refusal;
        };
        const QString needed = u"Please in put Family ,Genus And speices"_qs;
        const QString title = u"Kelvora"_qs;
        for (const Case& added : {Case{u"Mullidae"_qs, u"Upeneus"_qs, u"moluccensis"_qs, u""_qs, {}, {}},
                                  {u"Mulloidae"_qs, u"Upeneus"_qs, u"vittatus"_qs, u"another family"_qs, {}, {}},
                                  {u"O'Hara"_qs, u"d'Or"_qs, u"l'eau \\ %1"_qs, u"'; --"_qs, {}, {}},
                                  {u""_qs, u"Upeneus"_qs, u"moluccensis"_qs, u""_qs, title, needed},
                                  {u"Mullidae"_qs, u""_qs, u"moluccensis"_qs, u""_qs, title, needed},
                                  {u"Mullidae"_qs, u"Upeneus"_qs, u""_qs, u""_qs, title, needed},
                                  {u"Mullidae"_qs, u"upeneus"_qs, u"vittatus"_qs, u"x"_qs, u"ERROR"_qs,
                                   u"Species repeat please try again"_qs}}) {
            const QStringList texts = {added.family, added.genus, added.species, added.commonName};
            ReferenceScreen screen(kSpecies);
            if (!added.refusal.isEmpty()) {
                screen.store.dialogs.expectMessage(added.title, added.refusal);
            }
            addSpecies(screen, texts);
            const QString typed = screen.text(u"Family"_qs) + screen.text(u"Genus"_qs) + screen.text(u"Species"_qs) +
                                  screen.text(u"Common name"_qs);
            QCOMPARE(typed, added.refusal.isEmpty() ? QString() : texts.join(QString()));
            const QString row = u"4|"_qs + texts.join(u'|');
            QCOMPARE(screen.rows(kSpecies).mid(3), added.refusal.isEmpty() ? QStringList{row} : QStringList());
            QCOMPARE(screen.store.rows("select classinterval from fish").join(QString()).remove(u"null"_qs), QString());
        }
    }

    void deletedSpecies() {
        ReferenceScreen screen(kSpecies);
        for (const Literal& sample :
             {Literal("insert into group_composition values (1, 1, 1, 2, 2)"),
              Literal("insert into length values (1, 1, 2)"), Literal("insert into gonad values (1, 1, 2)")}) {
            screen.store.execute(sample);
            screen.refuseToRemove(kSpecies, u"Kelvora"_qs,
                                  u"can't delete this species because this species used another table!"_qs);
            screen.store.execute("delete from group_composition");
            screen.store.execute("delete from length");
        }
        screen.hand().move(kSpecies, u"Next"_qs);
        for (const bool yes : {false, true}) {
            QCOMPARE(screen.caption(kSpecies), u"Upeneus vittatus"_qs);
            screen.remove(kSpecies, u"CONFIRM"_qs, u"Are you sure to delete this species"_qs, yes);
        }
        QCOMPARE(screen.store.rows("select fishno from fish"), (QStringList{u"1"_qs, u"3"_qs}));
        QCOMPARE(screen.caption(kSpecies), u"Rastrelliger kanagurta"_qs);
    }

    /// The first row of each list, and its last. The row that is reserved for no species is none.
    void firstAndLast() {
        ReferenceScreen screen(kSpecies, true);
        screen.store.execute("insert into fish(fishno, genus) values (0, 'none')");
        screen.reopen();
        for (const QString& list : {kPorts, kMethods, kAreas, kSpecies}) {
            QVERIFY2(screen.rows(list).isEmpty() && !screen.in(list).enabled(u"Delete"_qs), qPrintable(list));
        }
        addPort(screen, u"Gamma"_qs, u"Dor"_qs, true);
        QCOMPARE(screen.store.rows("select * from state, samplingport"), QStringList{u"1|Gamma|1|Dor|1"_qs});
        addMethod(screen, u"Trap"_qs, u"Pot"_qs, true);
        QCOMPARE(screen.rows(kMethods), QStringList{u"1|Trap|Pot"_qs});
        addSpecies(screen, {u"Mullidae"_qs, u"Upeneus"_qs, u"vittatus"_qs, u""_qs});
        QCOMPARE(screen.rows(kSpecies), QStringList{u"1|Mullidae|Upeneus|vittatus|"_qs});
        screen.store.execute("insert into fishing_area values ('A1', 'north bank')");
        screen.reopen();
        QCOMPARE(screen.caption(kMethods) + screen.caption(kSpecies), u"PotUpeneus vittatus"_qs);

        screen.in(kMethods).press(u"Delete"_qs);
        screen.remove(kAreas, kConfirm, kDeleteArea);
        screen.store.dialogs.expectConfirm(kConfirm, kDeletePort, true);
        screen.store.dialogs.expectMessage(u"'delete from state where stateid = 1'"_qs);
        screen.store.dialogs.expectMessage(u"Del state"_qs);
        screen.in(kPorts).press(u"Delete"_qs);
        screen.in(kPorts).press(u"Delete"_qs);  // nothing left to delete
        QCOMPARE(screen.caption(kPorts) + screen.caption(kMethods) + screen.caption(kAreas), QString());
        QVERIFY(!screen.in(kMethods).enabled(u"Delete"_qs) && !screen.in(kAreas).enabled(u"Delete"_qs));
        QCOMPARE(screen.store.rows("select * from Fishing_gear"), QStringList{u"1|Trap"_qs});
    }
};

KELVORA_TEST(TestReferenceLists, "reference_lists");

}  // namespace kelvora::test_reference_lists

#include "test_reference_lists.moc"
