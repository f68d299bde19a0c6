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

using namespace Qt::StringLiterals;

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
        test::ScreenDriver(&login).enter(u"PASSWORD = kelvora; Log in"_s);
        QCOMPARE(m_store.session.userName, u"Administrator"_s);
        m_window = std::make_unique<MainWindow>(m_store.context());
        m_window->resize(1366, 768);
        m_window->show();
    }

    void keepReferenceLists() {
        const auto hand = open(u"General Information"_s, u"General Information"_s);
        m_store.dialogs.expectConfirm(u"Confirm"_s, u"Are you sure to insert sampling port 'Kan'tang'"_s, true);
        hand.within(u"New sampling port"_s).enter(u"State/Province = Trang; Sampling port = Kan'tang; ADD"_s);

        m_store.dialogs.expectConfirm(u"Confirm"_s, u"Are you sure to insert fishing gear 'Trawl'?"_s, true);
        hand.within(u"New fishing method"_s).enter(u"Fishing gear = Trawl; Fishing Method = Otter board; Add"_s);

        m_store.dialogs.expectConfirm(u"Confirm"_s, u"Are you sure to insert this fishing area? "_s, true);
        m_store.dialogs.expectMessage(u"RESULT"_s, u"Insert fishing area Complete"_s);
        hand.within(u"New fishing area"_s).enter(u"Area Name = AN-1; Description = Andaman Sea, north; Add"_s);

        hand.openTab(u"Target Species"_s);
        hand.within(u"New species"_s)
            .enter(
                u"Family = Scombridae; Genus = Rastrelliger; Species = kanagurta; Add; "
                "Family = Mullidae; Genus = Upeneus; Species = vittatus; Add; "
                "Family = Nemipteridae; Genus = Nemipterus; Species = virgatus; Add"_s);
        QCOMPARE(hand.rows(u"Target Species"_s).size(), 3);

        hand.openTab(u"Fishing Vessel"_s);
        m_store.dialogs.expectConfirm(u"Confirm"_s, u"Are you sure to insert this fishing vessel? "_s, true);
        hand.enter(
            u"Vessel name = Chok Dee; Vessel register id = TR-77; Engine Power (hp) = 180; Size(GRT) = 24.5; "
            "Vessel Length(m) = 16; Type of Gear = Trawl; Engine type = In Board; Add"_s);
        QVERIFY(m_store.dialogs.done());
        QCOMPARE(m_store.rows("select vesselname, vesselid, gear from vessel"), QStringList{u"Chok Dee|TR-77|1"_s});
    }

    void recordAnOperation() {
        const auto hand = open(u"Fishing Operation"_s, u"Fishing Information"_s);
        hand.choose(u"Vessel Name"_s, u"Chok Dee"_s);
        QCOMPARE(hand.text(u"Vessel Register id"_s), u"TR-77"_s);
        hand.enter(
            u"Fishing Gear = Trawl; Fishing Method = Otter board; Fishing Area = AN-1; "
            "Landing State/Province = Trang; Landing Port = Kan'tang; Latitude Dec = 7; Latitude Min = 24; "
            "Longtitude Dec = 99; Longtitude Min = 30.5; Total Catch (kg/trip) = 212.5"_s);
        QCOMPARE(hand.text(u"Recorder"_s), u"Administrator"_s);
        m_store.dialogs.expectMessage(u"Insert Complete"_s);
        hand.press(u"SAVE"_s);
        QVERIFY(m_store.dialogs.done());
        QVERIFY(!hand.enabled(u"SAVE"_s));
    }

    void weighTheCatch() {
        const auto hand = open(u"Species Composition"_s, u"Species Composition"_s);
        hand.within(u"Single species"_s).enter(u"Species = Rastrelliger kanagurta; Weight = 12.5; Add"_s);
        m_store.dialogs.expectConfirm(u"CONFIRM"_s, u"Are you sure to 'SAVE' this group"_s, true);
        hand.within(u"Sampling group"_s)
            .enter(
                u"Group = Trash; Total weight = 200; Species = Upeneus vittatus; Weight = 4; ADD; "
                "Species = Nemipterus virgatus; Weight = 6; ADD; SAVE"_s);
        QVERIFY(m_store.dialogs.done());
        QCOMPARE(hand.rows(u"Composition"_s),
                 QStringList({u"Nemipterus virgatus|120.00|56.47"_s, u"Rastrelliger kanagurta|12.50|5.88"_s,
                              u"Upeneus vittatus|80.00|37.65"_s}));
    }

    void exportTheYear() {
        const auto hand = open(u"Fishing Information"_s, u"Number of record and estimate total catch"_s);
        const QString year = QString::number(QDate::currentDate().year());
        hand.enter(u"Year = %1; Search; By Fishing Method"_s.arg(year));
        const QString path = m_store.file(u"summary"_s);
        m_store.dialogs.expectSaveFile(path);
        hand.press(u"EXPORT"_s);
        QVERIFY(m_store.dialogs.done());

        QFile file(path + u".csv"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString expected =
            u"Fishing Operation data In %1 By Fishing Method\r\n"
            "Total catch of this year is 212.5kg.\r\n"
            "EXPORT Date : %2\r\n"
            "\r\n"
            "Fishing Method,Number(Record),Total Catch(kg.),%total catch\r\n"
            "Trawl[Otter board],1,212.5,100.00,\r\n"_s;
        QCOMPARE(QString::fromUtf8(file.readAll()), expected.arg(year, shortDate(QDate::currentDate())));
    }

    void whatTheFileHolds() {
        m_window->close();
        QCOMPARE(m_store.rows("select optid, portid, fishing_method, lat_dec, lon_min, estotal, vesselid, areaid"
                              " from fishoperation"),
                 QStringList{u"1|1|1|7|30.5|212.5|Chok Dee|AN-1"_s});
        QCOMPARE(m_store.rows("select groupid, groupname, totalsampling from group_main order by groupid"),
                 QStringList({u"1|Single species|12.5"_s, u"2|Trash|200"_s}));
        prepareStore(m_store.path());
    }
};

KELVORA_TEST(TestFirstDay, "first_day");

}  // namespace kelvora::test_first_day

#include "test_first_day.moc"
