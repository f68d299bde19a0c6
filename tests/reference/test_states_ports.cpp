#include "controls/bound_list.h"
#include "reference_screen.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_states_ports {

const QString kGrid = u"State/Province and Sampling Port"_qs;
const QString kState = u"State/Province"_qs;
const QString kPort = u"Sampling port"_qs;

void add(const test::ReferenceScreen& screen, const QString& state, const QString& port) {
    screen.driver().type(kState, state);
    screen.driver().type(kPort, port);
    screen.driver().press(u"ADD"_qs);
}

class TestStatesPorts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void addsAfterTheQuestion_data() {
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("port");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QStringList>("newStates");
        QTest::addColumn<QStringList>("newPorts");
        const QStringList none;
        QTest::newRow("known state") << u"Beta"_qs << u"Dor"_qs << true << none << QStringList{u"4|Dor|2"_qs};
        QTest::newRow("known state, other case")
            << u"beta"_qs << u"Dor"_qs << true << none << QStringList{u"4|Dor|2"_qs};
        QTest::newRow("port of another state") << u"Beta"_qs << u"Abo"_qs << true << none << QStringList{u"4|Abo|2"_qs};
        QTest::newRow("declined") << u"Beta"_qs << u"Dor"_qs << false << none << none;
        QTest::newRow("new state") << u"Gamma"_qs << u"Dor"_qs << true << QStringList{u"3|Gamma"_qs}
                                   << QStringList{u"4|Dor|3"_qs};
        QTest::newRow("new state stays, port declined")
            << u"Gamma"_qs << u"Dor"_qs << false << QStringList{u"3|Gamma"_qs} << none;
        QTest::newRow("hostile names") << u"Cote d'Ivoire; --"_qs << u"L'Anse %1 \\ 'x'"_qs << true
                                       << QStringList{u"3|Cote d'Ivoire; --"_qs}
                                       << QStringList{u"4|L'Anse %1 \\ 'x'|3"_qs};
    }
    void addsAfterTheQuestion() {
        QFETCH(QString, state);
        QFETCH(QString, port);
        QFETCH(bool, yes);
        test::ReferenceScreen screen;
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert sampling port '"_qs + port + u"'"_qs,
                                           yes);
        add(screen, state, port);
        QVERIFY(screen.done());
        QTEST(screen.store.rows("select * from state where stateid > 2"), "newStates");
        QTEST(screen.store.rows("select * from samplingport where samplingid > 3"), "newPorts");
        QCOMPARE(screen.driver().grid(kGrid)->rowCount(), yes ? 4 : 3);
        QCOMPARE(screen.driver().text(kPort), QString());
        QCOMPARE(screen.driver().text(kState), state);
        QVERIFY(screen.driver().list(kState)->key().isValid());
    }

    void refusesASecondPortOfTheSameName() {
        test::ReferenceScreen screen;
        add(screen, {}, u"Abo"_qs);
        add(screen, u"Alpha"_qs, {});
        screen.store.dialogs.expectMessage(u"ERROR"_qs, u"sampling port repeat please try again"_qs);
        add(screen, u"Alpha"_qs, u"abo"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.driver().text(kPort), QString());
        QVERIFY(screen.driver().focused(kPort));
        QCOMPARE(screen.driver().grid(kGrid)->rowCount(), 3);
    }

    void addsUnderAStateThatCameFromElsewhere() {
        test::ReferenceScreen screen;
        screen.store.execute("insert into state values (3, 'Gamma')");
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert sampling port 'Dor'"_qs, true);
        add(screen, u"Gamma"_qs, u"Dor"_qs);
        QCOMPARE(screen.store.rows("select * from samplingport where samplingid = 4"), QStringList{u"4|Dor|3"_qs});
    }

    void keepsWhatWasTypedWhenTheFileIsLocked() {
        test::ReferenceScreen screen;
        screen.store.execute("BEGIN IMMEDIATE");
        screen.store.dialogs.expectMessageContaining(u"insert into state"_qs);
        add(screen, u"Gamma"_qs, u"Dor"_qs);
        screen.store.execute("ROLLBACK");
        QVERIFY(screen.done());
        QCOMPARE(screen.driver().text(kState) + screen.driver().text(kPort), u"GammaDor"_qs);
        QCOMPARE(screen.store.rows("select count(*) from state"), QStringList{u"2"_qs});
    }

    void deletesThePortItStandsOn() {
        test::ReferenceScreen screen;
        screen.store.addOperation(1, 1, u"2004-03-01"_qs, 1, 10, u"Sea Star"_qs, u"A1"_qs);
        const auto grid = screen.in(kGrid);
        QCOMPARE(screen.caption(kGrid), u"Abo"_qs);
        screen.store.dialogs.expectMessage(u"ERROR"_qs,
                                           u"Can not remove because sampling port used in Fishing Operation"_qs);
        grid.press(u"Delete"_qs);
        screen.driver().move(kGrid, u"Next"_qs);
        for (const bool yes : {false, true}) {
            screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Do you want to remove this sampling port"_qs, yes);
            grid.press(u"Delete"_qs);
            QVERIFY(screen.done());
            QCOMPARE(screen.caption(kGrid), yes ? u"Abo"_qs : u"Bex"_qs);
        }
        QCOMPARE(screen.driver().rows(kGrid), (QStringList{u"Alpha|Abo"_qs, u"Beta|Cay"_qs}));
        QCOMPARE(screen.store.rows("select count(*) from state"), QStringList{u"2"_qs});
    }

    void purgesStatesWithoutPorts() {
        test::ReferenceScreen screen;
        screen.store.execute("insert into state values (3, 'Never a port')");
        screen.driver().move(kGrid, u"Last"_qs);
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Do you want to remove this sampling port"_qs, true);
        for (const int stateid : {2, 3}) {
            screen.store.dialogs.expectMessage(u"'delete from state where stateid = %1'"_qs.arg(stateid));
            screen.store.dialogs.expectMessage(u"Del state"_qs);
        }
        screen.in(kGrid).press(u"Delete"_qs);
        QVERIFY(screen.done());
        QCOMPARE(screen.store.rows("select * from state"), QStringList{u"1|Alpha"_qs});
        QCOMPARE(screen.driver().list(kState)->count(), 1);
    }

    void startsAndEndsWithEmptyTables() {
        test::ReferenceScreen screen(true);
        QVERIFY(!screen.in(kGrid).enabled(u"Delete"_qs));
        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert sampling port 'Dor'"_qs, true);
        add(screen, u"Gamma"_qs, u"Dor"_qs);
        QCOMPARE(screen.store.rows("select * from state, samplingport"), QStringList{u"1|Gamma|1|Dor|1"_qs});

        screen.store.dialogs.expectConfirm(u"Confirm"_qs, u"Do you want to remove this sampling port"_qs, true);
        screen.store.dialogs.expectMessage(u"'delete from state where stateid = 1'"_qs);
        screen.store.dialogs.expectMessage(u"Del state"_qs);
        screen.in(kGrid).press(u"Delete"_qs);
        QCOMPARE(screen.caption(kGrid), QString());
        screen.in(kGrid).press(u"Delete"_qs);
        QVERIFY(screen.done());
    }

    void findsPortsByName() {
        test::ReferenceScreen screen;
        QCOMPARE(screen.screen->getsamplingid(u"Beta"_qs, u"Cay"_qs), 3);
        screen.store.dialogs.expectMessage(u"No Record"_qs);
        QVERIFY(!screen.screen->getsamplingid(u"Alpha"_qs, u"Cay"_qs));
        QVERIFY(screen.done());
    }
};

KELVORA_TEST(TestStatesPorts, "states_ports");

}  // namespace kelvora::test_states_ports

#include "test_states_ports.moc"
