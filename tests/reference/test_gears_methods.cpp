#include "controls/bound_list.h"
#include "reference/vessel_tab.h"
#include "reference_screen.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_gears_methods {

const QString kGrid = u"Fishing Gear and Method"_qs;
const QString kGear = u"Fishing gear"_qs;
const QString kMethod = u"Fishing Method"_qs;

void add(const test::ReferenceScreen& screen, const QString& gear, const QString& method) {
    screen.driver().type(kGear, gear);
    screen.driver().type(kMethod, method);
    screen.in(u"New fishing method"_qs).press(u"Add"_qs);
}

class TestGearsMethods : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void adds_data() {
        QTest::addColumn<QString>("gear");
        QTest::addColumn<QString>("method");
        QTest::addColumn<int>("answer");  // to the question about a new gear; -1 if it is not asked
        QTest::addColumn<QStringList>("newGears");
        QTest::addColumn<QStringList>("newMethods");
        const QStringList none;
        QTest::newRow("known gear") << u"trawl"_qs << u"Beam"_qs << -1 << none << QStringList{u"4|Beam|1"_qs};
        QTest::newRow("method of another gear")
            << u"Gill net"_qs << u"Pair"_qs << -1 << none << QStringList{u"4|Pair|2"_qs};
        QTest::newRow("new gear") << u"Trap"_qs << u"Pot"_qs << 1 << QStringList{u"3|Trap"_qs}
                                  << QStringList{u"4|Pot|3"_qs};
        QTest::newRow("new gear declined") << u"Trap"_qs << u"Pot"_qs << 0 << none << none;
        QTest::newRow("hostile names") << u"Fisher's '%1'"_qs << u"o'clock\\"_qs << 1
                                       << QStringList{u"3|Fisher's '%1'"_qs} << QStringList{u"4|o'clock\\|3"_qs};
        QTest::newRow("no method") << u"Trap"_qs << u""_qs << -1 << none << none;
        QTest::newRow("no gear") << u""_qs << u"Pot"_qs << -1 << none << none;
    }
    void adds() {
        QFETCH(QString, gear);
        QFETCH(QString, method);
        QFETCH(int, answer);
        QFETCH(QStringList, newMethods);
        test::ReferenceScreen screen;
        if (answer >= 0) {
            screen.store.dialogs.expectConfirm(
                u"Confirm"_qs, u"Are you sure to insert fishing gear '"_qs + gear + u"'?"_qs, answer == 1);
        }
        if (answer == 0) {
            screen.store.dialogs.expectMessage(u"RESULT"_qs, u"Insert fishing gear not Complete"_qs);
        }
        add(screen, gear, method);
        QVERIFY(screen.done());
        QTEST(screen.store.rows("select * from Fishing_gear where gearid > 2"), "newGears");
        QCOMPARE(screen.store.rows("select * from Fishing_method where methodid > 3"), newMethods);
        QCOMPARE(screen.driver().rows(kGrid).size(), 3 + newMethods.size());
        // A method that was stored leaves both fields empty; a gear that was declined can be tried again.
        QCOMPARE(screen.driver().text(kGear), newMethods.isEmpty() ? gear : QString());
        QCOMPARE(screen.driver().text(kMethod), newMethods.isEmpty() && answer < 0 ? method : QString());
    }

    void refusesASecondMethodOfTheSameName() {
        test::ReferenceScreen screen;
        screen.store.dialogs.expectMessage(u"Error!"_qs, u"fishing method repeat please try again!"_qs);
        add(screen, u"Trawl"_qs, u"PAIR"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.driver().text(kMethod), u"PAIR"_qs);
        QCOMPARE(screen.store.rows("select count(*) from Fishing_method"), QStringList{u"3"_qs});
    }

    void deletes_data() {
        QTest::addColumn<int>("method");
        QTest::addColumn<bool>("refused");
        QTest::newRow("used by an operation") << 3 << true;
        QTest::newRow("its number is a gear of a vessel") << 2 << true;
        QTest::newRow("free") << 4 << false;
    }
    void deletes() {
        QFETCH(int, method);
        QFETCH(bool, refused);
        test::ReferenceScreen screen;
        screen.store.execute("insert into Fishing_gear values (3, 'Trap')");
        screen.store.execute("insert into Fishing_method values (4, 'Pot', 3)");
        screen.store.addOperation(1, 1, u"2004-03-01"_qs, 3, 10, u"Sea Star"_qs, u"A1"_qs);
        screen.reopen();
        for (int row = 1; row < method; ++row) {
            screen.driver().move(kGrid, u"Next"_qs);
        }
        if (refused) {
            screen.store.dialogs.expectMessage(
                u"Can not delete fishing gear because this gear used in another table"_qs);
        }
        screen.in(kGrid).press(u"Delete"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.driver().rows(kGrid).size(), refused ? 4 : 3);
        QCOMPARE(screen.store.rows("select count(*) from Fishing_method"), QStringList{refused ? u"4"_qs : u"3"_qs});
        QCOMPARE(screen.store.rows("select count(*) from Fishing_gear"), QStringList{u"3"_qs});
    }

    void theFirstMethodAndTheLast() {
        test::ReferenceScreen screen(true);
        QVERIFY(!screen.in(kGrid).enabled(u"Delete"_qs));
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert fishing gear 'Trap'?"_qs, true);
        add(screen, u"Trap"_qs, u"Pot"_qs);
        QCOMPARE(screen.driver().rows(kGrid), QStringList{u"1|Trap|Pot"_qs});
        QCOMPARE(screen.caption(kGrid), u"Pot"_qs);
        screen.in(kGrid).press(u"Delete"_qs);
        QCOMPARE(screen.caption(kGrid), QString());
        QVERIFY(!screen.in(kGrid).enabled(u"Delete"_qs));
        QCOMPARE(screen.store.rows("select * from Fishing_gear"), QStringList{u"1|Trap"_qs});
    }

    void gearsAreOfferedOnBothTabs() {
        test::ReferenceScreen screen;
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert fishing gear 'Trap'?"_qs, true);
        add(screen, u"Trap"_qs, u"Pot"_qs);
        screen.store.dialogs.expectMessage(u"Insert Complete!"_qs);
        screen.screen->findChild<VesselTab*>()->AddGearCounted(u"Hook"_qs);
        for (const QString& list : {kGear, QString(u"Type of Gear"_qs)}) {
            QCOMPARE(screen.driver().list(list)->count(), 4);
        }
        QCOMPARE(screen.store.rows("select * from Fishing_gear where gearid > 2"),
                 (QStringList{u"3|Trap"_qs, u"4|Hook"_qs}));
    }
};

KELVORA_TEST(TestGearsMethods, "gears_methods");

}  // namespace kelvora::test_gears_methods

#include "test_gears_methods.moc"
