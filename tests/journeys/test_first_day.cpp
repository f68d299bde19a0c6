#include "data/dates.h"
#include "data/store.h"
#include "opened_screen.h"
#include "shell/login_dialog.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAction>
#include <QFile>
#include <QMdiSubWindow>
#include <QTest>

namespace kelvora::test_first_day {

/// A sampler's first day on a new data file, through the real screens: from signing in to the year's exported summary.
class TestFirstDay : public QObject {
    Q_OBJECT

private:
    test::ScreenDriver open(const QString& action, const QString& title) const {
        return test::openedScreen(*m_window, action, title);
    }

    test::TemporaryStore m_store;
    std::unique_ptr<MainWindow> m_window;

private Q_SLOTS:
    void signIn() {
        m_store.session = {};
        LoginDialog login(m_store.context());
        login.show();
        test::ScreenDriver(&login).type(u"PASSWORD"_qs, u"kelvora"_qs);
        test::ScreenDriver(&login).press(u"Log in"_qs);
        QCOMPARE(m_store.session.userName, u"Administrator"_qs);
        m_window = std::make_unique<MainWindow>(m_store.context());
        m_window->resize(1366, 768);
        m_window->show();
    }

    void keepReferenceLists() {
        const auto hand = open(u"General Information"_qs, u"General Information"_qs);
        const auto ports = hand.within(u"New sampling port"_qs);
        ports.type(u"State/Province"_qs, u"Trang"_qs);
        ports.type(u"Sampling port"_qs, u"Kan'tang"_qs);
        m_store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert sampling port 'Kan'tang'"_qs, true);
        ports.press(u"ADD"_qs);

        const auto methods = hand.within(u"New fishing method"_qs);
        methods.type(u"Fishing gear"_qs, u"Trawl"_qs);
        methods.type(u"Fishing Method"_qs, u"Otter board"_qs);
        m_store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert fishing gear 'Trawl'?"_qs, true);
        methods.press(u"Add"_qs);

        const auto areas = hand.within(u"New fishing area"_qs);
        areas.type(u"Area Name"_qs, u"AN-1"_qs);
        areas.type(u"Description"_qs, u"Andaman Sea, north"_qs);
        m_store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert this fishing area? "_qs, true);
        m_store.dialogs.expectMessage(u"RESULT"_qs, u"Insert fishing area Complete"_qs);
        areas.press(u"Add"_qs);

        hand.openTab(u"Target Species"_qs);
        const auto species = hand.within(u"New species"_qs);
        for (const QStringList& one : {QStringList{u"Scombridae"_qs, u"Rastrelliger"_qs, u"kanagurta"_qs},
                                       QStringList{u"Mullidae"_qs, u"Upeneus"_qs, u"vittatus"_qs},
                                       QStringList{u"Nemipteridae"_qs, u"Nemipterus"_qs, u"virgatus"_qs}}) {
            species.type(u"Family"_qs, one[0]);
            species.type(u"Genus"_qs, one[1]);
            species.type(u"Species"_qs, one[2]);
            species.press(u"Add"_qs);
        }
        QCOMPARE(hand.rows(u"Target Species"_qs).size(), 3);

        hand.openTab(u"Fishing Vessel"_qs);
        hand.type(u"Vessel name"_qs, u"Chok Dee"_qs);
        hand.type(u"Vessel register id"_qs, u"TR-77"_qs);
        hand.type(u"Engine Power (hp)"_qs, u"180"_qs);
        hand.type(u"Size(GRT)"_qs, u"24.5"_qs);
        hand.type(u"Vessel Length(m)"_qs, u"16"_qs);
        hand.choose(u"Type of Gear"_qs, u"Trawl"_qs);
        hand.choose(u"Engine type"_qs, u"In Board"_qs);
        m_store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert this fishing vessel? "_qs, true);
        hand.press(u"Add"_qs);
        QVERIFY(m_store.dialogs.done());
        QCOMPARE(m_store.rows("select vesselname, vesselid, gear from vessel"), QStringList{u"Chok Dee|TR-77|1"_qs});
    }

    void recordAnOperation() {
        const auto hand = open(u"Fishing Operation"_qs, u"Fishing Information"_qs);
        hand.choose(u"Vessel Name"_qs, u"Chok Dee"_qs);
        QCOMPARE(hand.text(u"Vessel Register id"_qs), u"TR-77"_qs);
        hand.choose(u"Fishing Gear"_qs, u"Trawl"_qs);
        hand.choose(u"Fishing Method"_qs, u"Otter board"_qs);
        hand.choose(u"Fishing Area"_qs, u"AN-1"_qs);
        hand.choose(u"Landing State/Province"_qs, u"Trang"_qs);
        hand.choose(u"Landing Port"_qs, u"Kan'tang"_qs);
        hand.type(u"Latitude Dec"_qs, u"7"_qs);
        hand.type(u"Latitude Min"_qs, u"24"_qs);
        hand.type(u"Longtitude Dec"_qs, u"99"_qs);
        hand.type(u"Longtitude Min"_qs, u"30.5"_qs);
        hand.type(u"Total Catch (kg/trip)"_qs, u"212.5"_qs);
        QCOMPARE(hand.text(u"Recorder"_qs), u"Administrator"_qs);
        m_store.dialogs.expectMessage(u"Insert Complete"_qs);
        hand.press(u"SAVE"_qs);
        QVERIFY(m_store.dialogs.done());
        QVERIFY(!hand.enabled(u"SAVE"_qs));
    }

    void weighTheCatch() {
        const auto hand = open(u"Species Composition"_qs, u"Species Composition"_qs);
        const auto single = hand.within(u"Single species"_qs);
        single.choose(u"Species"_qs, u"Rastrelliger kanagurta"_qs);
        single.type(u"Weight"_qs, u"12.5"_qs);
        single.press(u"Add"_qs);

        const auto group = hand.within(u"Sampling group"_qs);
        group.type(u"Group"_qs, u"Trash"_qs);
        group.type(u"Total weight"_qs, u"200"_qs);
        for (const auto& [species, weight] :
             {std::pair{u"Upeneus vittatus"_qs, u"4"_qs}, std::pair{u"Nemipterus virgatus"_qs, u"6"_qs}}) {
            group.choose(u"Species"_qs, species);
            group.type(u"Weight"_qs, weight);
            group.press(u"ADD"_qs);
        }
        m_store.dialogs.expectConfirm(u"CONFIRM"_qs, u"Are you sure to 'SAVE' this group"_qs, true);
        group.press(u"SAVE"_qs);
        QVERIFY(m_store.dialogs.done());
        QCOMPARE(hand.rows(u"Composition"_qs),
                 QStringList({u"Nemipterus virgatus|120.00|56.47"_qs, u"Rastrelliger kanagurta|12.50|5.88"_qs,
                              u"Upeneus vittatus|80.00|37.65"_qs}));
    }

    void exportTheYear() {
        const auto hand = open(u"Fishing Information"_qs, u"Number of record and estimate total catch"_qs);
        const QString year = QString::number(QDate::currentDate().year());
        hand.choose(u"Year"_qs, year);
        hand.press(u"Search"_qs);
        hand.press(u"By Fishing Method"_qs);
        const QString path = m_store.file(u"summary"_qs);
        m_store.dialogs.expectSaveFile(path);
        hand.press(u"EXPORT"_qs);
        QVERIFY(m_store.dialogs.done());

        QFile file(path + u".csv"_qs);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString expected =
            u"Fishing Operation data In %1 By Fishing Method\r\n"
            "Total catch of this year is 212.5kg.\r\n"
            "EXPORT Date : %2\r\n"
            "\r\n"
            "Fishing Method,Number(Record),Total Catch(kg.),%total catch\r\n"
            "Trawl[Otter board],1,212.5,100.00,\r\n"_qs;
        QCOMPARE(QString::fromUtf8(file.readAll()), expected.arg(year, shortDate(QDate::currentDate())));
    }

    void whatTheFileHolds() {
        m_window->close();
        QCOMPARE(m_store.rows("select optid, portid, fishing_method, lat_dec, lon_min, estotal, vesselid, areaid"
                              " from fishoperation"),
                 QStringList{u"1|1|1|7|30.5|212.5|Chok Dee|AN-1"_qs});
        QCOMPARE(m_store.rows("select groupid, groupname, totalsampling from group_main order by groupid"),
                 QStringList({u"1|Single species|12.5"_qs, u"2|Trash|200"_qs}));
        prepareStore(m_store.path());
    }
};

KELVORA_TEST(TestFirstDay, "first_day");

}  // namespace kelvora::test_first_day

#include "test_first_day.moc"
