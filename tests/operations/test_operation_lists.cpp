#include "operations/entry_desk.h"
#include "support/test_main.h"

#include <QAbstractItemView>

using namespace Qt::StringLiterals;

namespace kelvora::test_operation_lists {

using namespace test;

/// The lists of the entry screen: how they fill each other, and what becomes of a text that is in none of them.
class TestOperationLists : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void quickAdds_data() {
        QTest::addColumn<QString>("confirmed");
        QTest::addColumn<QString>("storedPort");
        QTest::newRow("all") << u"state port vessel"_s << u"4"_s;
        QTest::newRow("not the vessel") << u"state port"_s << u"4"_s;
        QTest::newRow("not the port") << u"state vessel"_s << u"0"_s;
        QTest::newRow("neither state nor port") << u"vessel"_s << u"0"_s;
        QTest::newRow("not the state") << u"port vessel"_s << u"0"_s;
    }
    void quickAdds() {
        QFETCH(QString, confirmed);
        QFETCH(QString, storedPort);
        const bool state = confirmed.contains(u"state");
        const bool port = confirmed.contains(u"port");
        const bool vessel = confirmed.contains(u"vessel");
        Desk desk;
        desk.fill();
        desk.at().type(kState, u"Gamma"_s);
        desk.at().type(kPort, u"Gao"_s);
        desk.at().type(kRegisterId, u"R-"_s);
        desk.at().type(kVesselName, u"Sea"_s);
        QCOMPARE(desk.at().text(kRegisterId), u"R-"_s);
        auto& dialogs = desk.store.dialogs;
        dialogs.expectConfirm(kConfirm, stateQuestion(u"Gamma"_s), state);
        if (!state) {
            dialogs.expectMessage(u"No Record"_s);
        }
        dialogs.expectConfirm(kConfirm, portQuestion(u"Gao"_s), port);
        if (!state || !port) {
            dialogs.expectMessage(u"No Record"_s);
        }
        dialogs.expectConfirm(kConfirm, kVesselQuestion, vessel);
        desk.saveWell();

        QCOMPARE(desk.storedPorts(), QStringList{storedPort});
        QCOMPARE(desk.store.rows("select stateid from state where statename = 'Gamma'"),
                 state ? QStringList{u"3"_s} : QStringList());
        QCOMPARE(desk.store.rows("select samplingid, stateid from samplingport where samplingname = 'Gao'"),
                 port ? QStringList{state ? u"4|3"_s : u"4|0"_s} : QStringList());
        QCOMPARE(desk.store.rows("select vesselname from vessel where vesselid = 'R-'"),
                 vessel ? QStringList{u"null"_s} : QStringList());
        QCOMPARE(desk.store.rows("select vesselid from fishoperation"), QStringList{u"Sea"_s});
        QCOMPARE(desk.at().text(kState) + u' ' + desk.at().text(kPort), u"Gamma Gao"_s);
        QCOMPARE(desk.at().list(kState)->key().isValid(), state);
        QCOMPARE(desk.at().list(kRegisterId)->row() >= 0, vessel);
    }

    /// Rows that other screens stored or changed since the lists were filled count as they are in the file.
    void staleLists() {
        Desk desk;
        desk.fill();
        desk.store.execute("insert into state values (9, 'Gamma')");
        desk.store.execute("insert into samplingport values (12, 'Bex', 9)");
        desk.store.execute("insert into fishing_area values ('A3', '')");
        desk.store.execute("insert into vessel(vesselid) values ('R-3')");
        desk.at().type(kState, u"gamma"_s);
        QCOMPARE(desk.at().text(kPort), QString());
        desk.at().type(kPort, u"Bex"_s);
        desk.at().type(u"Fishing Area"_s, u"a3"_s);
        desk.at().type(kRegisterId, u"R-3"_s);
        desk.saveWell();
        QCOMPARE(desk.store.rows("select portid, areaid from fishoperation"), QStringList{u"12|A3"_s});

        desk.at().press(u"CLEAR"_s);
        desk.fill();
        desk.store.execute("delete from fishing_area where aname = 'A2'");
        desk.store.dialogs.expectMessage(u"ERROR"_s, u"please select fishing area"_s);
        desk.save();
        desk.at().choose(u"Fishing Area"_s, u"A1"_s);
        desk.store.execute("update samplingport set stateid = 2 where samplingname = 'Bex'");
        desk.store.dialogs.expectConfirm(kConfirm, portQuestion(u"Bex"_s), true);
        desk.saveWell();
        QCOMPARE(desk.storedPorts(), (QStringList{u"12"_s, u"13"_s}));
        QCOMPARE(desk.store.rows("select stateid from samplingport where samplingid = 13"), QStringList{u"1"_s});
    }

    void twoStatesOfOneName() {
        Desk desk;
        desk.store.execute("insert into state values (9, 'Gamma'), (10, 'Gamma')");
        desk.store.execute("insert into samplingport values (12, 'Gao', 9)");
        desk.open();
        desk.fill();
        desk.at().choose(kState, u"Gamma"_s);
        desk.at().key(kState, Qt::Key_Down);
        desk.at().type(kPort, u"Gao"_s);
        desk.store.dialogs.expectConfirm(kConfirm, portQuestion(u"Gao"_s), true);
        desk.saveWell();
        QCOMPARE(desk.store.rows("select stateid from samplingport where samplingid = 13"), QStringList{u"10"_s});
        QCOMPARE(desk.storedPorts(), QStringList{u"13"_s});
    }

    void portsNeedAState() {
        Desk desk;
        desk.store.dialogs.expectMessage(u"ERROR"_s, u" Please input state first"_s);
        desk.at().list(kPort)->showPopup();
        QVERIFY(desk.store.dialogs.done() && !desk.at().list(kPort)->view()->isVisible());
        desk.at().choose(kState, u"Beta"_s);
        QCOMPARE(desk.at().list(kPort)->count(), 1);
        desk.at().list(kPort)->showPopup();
        QVERIFY(desk.at().list(kPort)->view()->isVisible());
        desk.at().list(kPort)->hidePopup();
        desk.at().type(kState, u"Betaville"_s);
        QCOMPARE(desk.at().list(kPort)->count(), 0);
    }

    void vesselListsFillEachOther() {
        Desk desk;
        desk.store.execute("insert into vessel(vesselid) values ('R-77')");
        desk.open();
        desk.at().choose(kVesselName, u"Blue Fin"_s);
        QCOMPARE(desk.at().text(kRegisterId), u"R-2"_s);
        desk.at().type(kRegisterId, u"r-1"_s);
        QCOMPARE(desk.at().text(kVesselName), u"Sea Star"_s);
        desk.at().choose(kRegisterId, u"R-77"_s);
        // The name of another boat does not stay beside it, one that is not registered yet does.
        QCOMPARE(desk.at().text(kVesselName), QString());
        desk.at().type(kVesselName, u"Sea"_s);
        desk.at().choose(kRegisterId, u"R-77"_s);
        QCOMPARE(desk.at().text(kVesselName) + desk.at().text(kRegisterId), u"SeaR-77"_s);
        // Of two rows with one id the one with a name counts.
        desk.store.execute("insert into vessel(vesselid, vesselname) values ('r-77', 'Chok Dee')");
        desk.open();
        desk.at().type(kRegisterId, u"R-77"_s);
        QCOMPARE(desk.at().text(kVesselName), u"Chok Dee"_s);
    }
};

KELVORA_TEST(TestOperationLists, "operation_lists");

}  // namespace kelvora::test_operation_lists

#include "test_operation_lists.moc"
