#include "controls/bound_list.h"
#include "reference_screen.h"

#include <QLineEdit>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace kelvora::test_reference_lists {

using test::ReferenceScreen;

const QString kPorts = u"State/Province and Sampling Port"_s;
const QString kState = u"State/Province"_s;
const QString kPort = u"Sampling port"_s;
const QString kMethods = u"Fishing Gear and Method"_s;
const QString kGear = u"Fishing gear"_s;
const QString kMethod = u"Fishing Method"_s;
const QString kAreas = u"Fishing Area"_s;
const QString kArea = u"Area Name"_s;
const QString kDescription = u"Description"_s;
const QString kSpecies = u"Target Species"_s;
const QString kConfirm = u"Confirm"_s;
const QString kDeletePort = u"Do you want to remove this sampling port"_s;
const QString kDeleteArea = u"Do you want to delete this area?"_s;

/// Something new for the lists; what is asked about it is planned before.
void addPort(ReferenceScreen& screen, const QString& state, const QString& port, std::optional<bool> answer = {}) {
    if (answer) {
        screen.store.dialogs.expectConfirm(kConfirm, u"Are you sure to insert sampling port '"_s + port + u"'"_s,
                                           *answer);
    }
    screen.add(u"New sampling port"_s, {{kState, state}, {kPort, port}}, u"ADD"_s);
}
void addMethod(ReferenceScreen& screen, const QString& gear, const QString& method, std::optional<bool> answer = {}) {
    if (answer) {
        screen.store.dialogs.expectConfirm(kConfirm, u"Are you sure to insert fishing gear '"_s + gear + u"'?"_s,
                                           *answer);
    }
    screen.add(u"New fishing method"_s, {{kGear, gear}, {kMethod, method}});
}
void addArea(const ReferenceScreen& screen, const QString& name, const QString& description) {
    screen.hand().edit(kArea)->setText(name);
    screen.add(u"New fishing area"_s, {{kDescription, description}});
}
void addSpecies(const ReferenceScreen& screen, const QStringList& texts) {
    screen.add(
        u"New species"_s,
        {{u"Family"_s, texts[0]}, {u"Genus"_s, texts[1]}, {u"Species"_s, texts[2]}, {u"Common name"_s, texts[3]}});
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
        for (const Case& added : {Case{u"beta"_s, u"Dor"_s, true, {}, {u"4|Dor|2"_s}},
                                  {u"Beta"_s, u"Abo"_s, true, {}, {u"4|Abo|2"_s}},
                                  {u"Beta"_s, u"Dor"_s, false, {}, {}},
                                  {u"Gamma"_s, u"Dor"_s, false, {u"3|Gamma"_s}, {}},
                                  {u"Cote d'Ivoire; --"_s,
                                   u"L'Anse %1 \\ 'x'"_s,
                                   true,
                                   {u"3|Cote d'Ivoire; --"_s},
                                   {u"4|L'Anse %1 \\ 'x'|3"_s}}}) {
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
        addPort(screen, {}, u"Abo"_s);
        addPort(screen, u"Alpha"_s, {});
        screen.store.dialogs.expectMessage(u"ERROR"_s, u"sampling port repeat please try again"_s);
        addPort(screen, u"Alpha"_s, u"abo"_s);
        QCOMPARE(screen.text(kPort), QString());
        QVERIFY(screen.hand().focused(kPort));
        QCOMPARE(screen.rows(kPorts).size(), 3);
        // A state that came from elsewhere is not stored again.
        screen.store.execute("insert into state values (3, 'Gamma')");
        addPort(screen, u"Gamma"_s, u"Dor"_s, true);
        QCOMPARE(screen.store.rows("select * from samplingport where samplingid = 4"), QStringList{u"4|Dor|3"_s});
        QCOMPARE(screen.store.rows("select count(*) from state"), QStringList{u"3"_s});
    }

    void deletedPorts() {
        ReferenceScreen screen;
        screen.store.addOperation(1, 1, u"2004-03-01"_s, 1, 10, u"Sea Star"_s, u"A1"_s);
        screen.refuseToRemove(kPorts, u"ERROR"_s, u"Can not remove because sampling port used in Fishing Operation"_s);
        screen.hand().move(kPorts, u"Next"_s);
        screen.remove(kPorts, kConfirm, kDeletePort, false);
        QCOMPARE(screen.caption(kPorts), u"Bex"_s);
        screen.remove(kPorts, kConfirm, kDeletePort);
        QCOMPARE(screen.caption(kPorts), QString());
        QCOMPARE(screen.rows(kPorts), (QStringList{u"Alpha|Abo"_s, u"Beta|Cay"_s}));
        QCOMPARE(screen.store.rows("select count(*) from state"), QStringList{u"2"_s});

        // With the last port of a state every state without ports goes, and says so.
        screen.store.execute("insert into state values (3, 'Never a port')");
        screen.hand().move(kPorts, u"Last"_s);
        screen.store.dialogs.expectConfirm(kConfirm, kDeletePort, true);
        for (const int stateid : {2, 3}) {
            screen.store.dialogs.expectMessage(u"'delete from state where stateid = %1'"_s.arg(stateid));
            screen.store.dialogs.expectMessage(u"Del state"_s);
        }
        screen.in(kPorts).press(u"Delete"_s);
        QCOMPARE(screen.store.rows("select * from state"), QStringList{u"1|Alpha"_s});
        QCOMPARE(screen.hand().list(kState)->count(), 1);
    }

    void portsByName() {
        ReferenceScreen screen;
        QCOMPARE(screen.screen->getsamplingid(u"Beta"_s, u"Cay"_s), 3);
        screen.store.dialogs.expectMessage(u"No Record"_s);
        QVERIFY(!screen.screen->getsamplingid(u"Alpha"_s, u"Cay"_s));
    }

    void newMethods() {
        struct Case {
            QString gear, method;
            std::optional<bool> answer;  // to the question about a new gear, if it is asked
            QStringList newGears, newMethods;
        };
        for (const Case& added :
             {Case{u"trawl"_s, u"Beam"_s, {}, {}, {u"4|Beam|1"_s}},
              {u"Gill net"_s, u"Pair"_s, {}, {}, {u"4|Pair|2"_s}},
              {u"Fisher's '%1'"_s, u"o'clock\\"_s, true, {u"3|Fisher's '%1'"_s}, {u"4|o'clock\\|3"_s}},
              {u"Trap"_s, u"Pot"_s, false, {}, {}},
              {u"Trap"_s, u""_s, {}, {}, {}},
              {u""_s, u"Pot"_s, {}, {}, {}}}) {
            ReferenceScreen screen;
            if (added.answer == false) {
                screen.store.dialogs.expectConfirm(kConfirm, u"Are you sure to insert fishing gear 'Trap'?"_s, false);
                screen.store.dialogs.expectMessage(u"RESULT"_s, u"Insert fishing gear not Complete"_s);
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
        screen.store.dialogs.expectMessage(u"Error!"_s, u"fishing method repeat please try again!"_s);
        addMethod(screen, u"Trawl"_s, u"PAIR"_s);
        QCOMPARE(screen.text(kMethod), u"PAIR"_s);
        QCOMPARE(screen.rows(kMethods).size(), 3);
    }

    /// Method 3 is used by an operation, and the number of method 2 is also that of a vessel's gear.
    void deletedMethods() {
        ReferenceScreen screen;
        screen.store.execute("insert into Fishing_gear values (3, 'Trap')");
        screen.store.execute("insert into Fishing_method values (4, 'Pot', 3)");
        screen.store.addOperation(1, 1, u"2004-03-01"_s, 3, 10, u"Sea Star"_s, u"A1"_s);
        screen.reopen();
        for (int method = 2; method < 4; ++method) {
            screen.hand().move(kMethods, u"Next"_s);
            screen.refuseToRemove(kMethods, u"Kelvora"_s,
                                  u"Can not delete fishing gear because this gear used in another table"_s);
        }
        screen.hand().move(kMethods, u"Last"_s);
        auto* button = screen.in(kMethods).button(u"Delete"_s);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                                QEvent::MouseButtonRelease, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent click(type, {4, 4}, button->mapToGlobal(QPointF(4, 4)), Qt::LeftButton, Qt::LeftButton, {});
            click.setTimestamp(1'000);
            QCoreApplication::sendEvent(button, &click);  // nothing asks before the next method goes
        }
        QCOMPARE(screen.store.rows("select methodid from Fishing_method").join(u' '), u"1 2 3"_s);
        QCOMPARE(screen.rows(kMethods).size(), 3);
        QCOMPARE(screen.store.rows("select count(*) from Fishing_gear"), QStringList{u"3"_s});
    }

    void gearsAreOfferedOnBothTabs() {
        ReferenceScreen screen;
        addMethod(screen, u"Trap"_s, u"Pot"_s, true);
        for (const QString& list : {kGear, QString(u"Type of Gear"_s)}) {
            QCOMPARE(screen.hand().list(list)->count(), 3);
        }
        QCOMPARE(screen.store.rows("select * from Fishing_gear where gearid > 2"), QStringList{u"3|Trap"_s});
    }

    void newAreas() {
        for (const auto& [name, yes] :
             {std::pair{u"A0"_s, false}, {u"Fisher's 'A%1'; --"_s, true}, {QString(10'000, u'x'), true}}) {
            ReferenceScreen screen;
            screen.store.dialogs.expectConfirm(kConfirm, u"Are you sure to insert this fishing area? "_s, yes);
            screen.store.dialogs.expectMessage(
                u"RESULT"_s, yes ? u"Insert fishing area Complete"_s : u"Insert fishing area not Complete"_s);
            addArea(screen, name, u"o'er there"_s);
            QCOMPARE(screen.rows(kAreas).contains(name + u"|o'er there"_s), yes);
            QCOMPARE(screen.text(kArea) + screen.text(kDescription), QString());
        }
    }

    void refusedAreas() {
        ReferenceScreen screen;
        screen.store.dialogs.expectMessage(u"Please insert fishing area"_s);
        addArea(screen, {}, {});
        QVERIFY(screen.hand().focused(kArea));
        screen.store.dialogs.expectMessage(u"Please insert description"_s);
        addArea(screen, u"A3"_s, {});
        QVERIFY(screen.hand().focused(kDescription));
        QCOMPARE(screen.text(kArea), u"A3"_s);
        screen.store.dialogs.expectMessage(u"ERROR"_s, u"Fishing area repeat please try again"_s);
        addArea(screen, u"a1"_s, u"elsewhere"_s);
        QCOMPARE(screen.rows(kAreas), (QStringList{u"A1|north bank"_s, u"A2|south bank"_s}));
    }

    void deletedAreas() {
        ReferenceScreen screen;
        screen.store.addOperation(1, 1, u"2004-03-01"_s, 1, 10, u"Sea Star"_s, u"A1"_s);
        screen.refuseToRemove(kAreas, u"ERROR"_s, u"Can not delete because this area used in Fishing Operation"_s);
        screen.hand().move(kAreas, u"Last"_s);
        screen.remove(kAreas, kConfirm, kDeleteArea, false);
        QCOMPARE(screen.caption(kAreas), u"A2"_s);
        screen.remove(kAreas, kConfirm, kDeleteArea);
        QCOMPARE(screen.store.rows("select aname from fishing_area"), QStringList{u"A1"_s});
        QCOMPARE(screen.caption(kAreas), QString());
        screen.hand().move(kAreas, u"First"_s);

        screen.store.execute("delete from fishoperation");
        screen.store.execute("delete from fishing_area");
        screen.hand().type(kArea, u"A3"_s);
        screen.refuseToRemove(kAreas, u"ERROR"_s, u"It's doesn't have this area"_s);
        QCOMPARE(screen.text(kArea), QString());
    }

    void newSpecies() {
        struct Case {
            QString family, genus, species, commonName, title, refusal;
        };
        const QString needed = u"Please in put Family ,Genus And speices"_s;
        const QString title = u"Kelvora"_s;
        for (const Case& added :
             {Case{u"Mullidae"_s, u"Upeneus"_s, u"moluccensis"_s, u""_s, {}, {}},
              {u"Mulloidae"_s, u"Upeneus"_s, u"vittatus"_s, u"another family"_s, {}, {}},
              {u"O'Hara"_s, u"d'Or"_s, u"l'eau \\ %1"_s, u"'; --"_s, {}, {}},
              {u""_s, u"Upeneus"_s, u"moluccensis"_s, u""_s, title, needed},
              {u"Mullidae"_s, u""_s, u"moluccensis"_s, u""_s, title, needed},
              {u"Mullidae"_s, u"Upeneus"_s, u""_s, u""_s, title, needed},
              {u"Mullidae"_s, u"upeneus"_s, u"vittatus"_s, u"x"_s, u"ERROR"_s, u"Species repeat please try again"_s}}) {
            const QStringList texts = {added.family, added.genus, added.species, added.commonName};
            ReferenceScreen screen(kSpecies);
            if (!added.refusal.isEmpty()) {
                screen.store.dialogs.expectMessage(added.title, added.refusal);
            }
            addSpecies(screen, texts);
            const QString typed = screen.text(u"Family"_s) + screen.text(u"Genus"_s) + screen.text(u"Species"_s) +
                                  screen.text(u"Common name"_s);
            QCOMPARE(typed, added.refusal.isEmpty() ? QString() : texts.join(QString()));
            const QString row = u"4|"_s + texts.join(u'|');
            QCOMPARE(screen.rows(kSpecies).mid(3), added.refusal.isEmpty() ? QStringList{row} : QStringList());
            QCOMPARE(screen.store.rows("select classinterval from fish").join(QString()).remove(u"null"_s), QString());
        }
    }

    void deletedSpecies() {
        ReferenceScreen screen(kSpecies);
        for (const Literal& sample :
             {Literal("insert into group_composition values (1, 1, 1, 2, 2)"),
              Literal("insert into length values (1, 1, 2)"), Literal("insert into gonad values (1, 1, 2)")}) {
            screen.store.execute(sample);
            screen.refuseToRemove(kSpecies, u"Kelvora"_s,
                                  u"can't delete this species because this species used another table!"_s);
            screen.store.execute("delete from group_composition");
            screen.store.execute("delete from length");
        }
        screen.hand().move(kSpecies, u"Next"_s);
        for (const bool yes : {false, true}) {
            QCOMPARE(screen.caption(kSpecies), u"Upeneus vittatus"_s);
            screen.remove(kSpecies, u"CONFIRM"_s, u"Are you sure to delete this species"_s, yes);
        }
        QCOMPARE(screen.store.rows("select fishno from fish"), (QStringList{u"1"_s, u"3"_s}));
        QCOMPARE(screen.caption(kSpecies), QString());
    }

    /// The first row of each list, and its last. The row that is reserved for no species is none.
    void firstAndLast() {
        ReferenceScreen screen(kSpecies, true);
        screen.store.execute("insert into fish(fishno, genus) values (0, 'none')");
        screen.reopen();
        for (const QString& list : {kPorts, kMethods, kAreas, kSpecies}) {
            QVERIFY2(screen.rows(list).isEmpty() && !screen.in(list).enabled(u"Delete"_s), qPrintable(list));
        }
        addPort(screen, u"Gamma"_s, u"Dor"_s, true);
        QCOMPARE(screen.store.rows("select * from state, samplingport"), QStringList{u"1|Gamma|1|Dor|1"_s});
        addMethod(screen, u"Trap"_s, u"Pot"_s, true);
        QCOMPARE(screen.rows(kMethods), QStringList{u"1|Trap|Pot"_s});
        addSpecies(screen, {u"Mullidae"_s, u"Upeneus"_s, u"vittatus"_s, u""_s});
        QCOMPARE(screen.rows(kSpecies), QStringList{u"1|Mullidae|Upeneus|vittatus|"_s});
        screen.store.execute("insert into fishing_area values ('A1', 'north bank')");
        screen.reopen();
        QCOMPARE(screen.caption(kMethods) + screen.caption(kSpecies), u"PotUpeneus vittatus"_s);

        screen.in(kMethods).press(u"Delete"_s);
        screen.remove(kAreas, kConfirm, kDeleteArea);
        screen.store.dialogs.expectConfirm(kConfirm, kDeletePort, true);
        screen.store.dialogs.expectMessage(u"'delete from state where stateid = 1'"_s);
        screen.store.dialogs.expectMessage(u"Del state"_s);
        screen.in(kPorts).press(u"Delete"_s);
        screen.in(kPorts).press(u"Delete"_s);  // nothing left to delete
        QCOMPARE(screen.caption(kPorts) + screen.caption(kMethods) + screen.caption(kAreas), QString());
        QVERIFY(!screen.in(kMethods).enabled(u"Delete"_s) && !screen.in(kAreas).enabled(u"Delete"_s));
        QCOMPARE(screen.store.rows("select * from Fishing_gear"), QStringList{u"1|Trap"_s});
    }
};

KELVORA_TEST(TestReferenceLists, "reference_lists");

}  // namespace kelvora::test_reference_lists

#include "test_reference_lists.moc"
