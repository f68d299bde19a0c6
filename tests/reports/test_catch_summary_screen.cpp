#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "data/dates.h"
#include "reports/catch_summary_screen.h"
#include "reports/report_chart.h"
#include "support/screen_driver.h"
#include "support/test_main.h"
#include "worked_year.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QTest>

namespace kelvora::test_catch_summary_screen {

using test::ScreenDriver;

const QString kYear = QStringLiteral("Year");
const QString kRecords = QStringLiteral("Total Record");
const QString kTotal = QStringLiteral("Total catch of this year (kg.)");
const QString kWord = QStringLiteral("Number of Record and estimate Total catch by");
const QString kOptions = QStringLiteral("Number of Record and estimate Total catch");
const QString kGrid = QStringLiteral("Result");
const QString kSearch = QStringLiteral("Search");
const QString kExport = QStringLiteral("EXPORT");
const QString kByVessel = QStringLiteral("By Vessel");
const QString kByMonth = QStringLiteral("By Month");

/// The screen over the worked year.
struct Opened {
    Opened() {
        test::addWorkedYear(store);
        screen = std::make_unique<CatchSummaryScreen>(store.context());
    }
    void search(const QString& year) const {
        ui().choose(kYear, year);
        ui().press(kSearch);
    }
    [[nodiscard]] ScreenDriver ui() const { return ScreenDriver(screen.get()); }

    test::TemporaryStore store;
    std::unique_ptr<CatchSummaryScreen> screen;
};

QStringList texts(const char* joined) {
    return QString::fromLatin1(joined).split(u';');
}

/// The yearly catch report as a sampler uses it.
class TestCatchSummaryScreen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensEmpty() {
        const Opened open;
        QCOMPARE(open.screen->windowTitle(), QStringLiteral("Number of record and estimate total catch"));
        QCOMPARE(open.ui().rows(kGrid), QStringList());
        QCOMPARE(open.ui().text(kTotal), QString());
        QVERIFY(!open.ui().enabled(kExport));
        QVERIFY(!open.ui().enabled(kByMonth));
        open.ui().press(kSearch);
        open.ui().type(kYear, QStringLiteral("2003"));
        open.ui().press(kSearch);
        QCOMPARE(open.ui().text(kRecords), QString());
    }

    void searchShowsTheStates() {
        const Opened open;
        open.search(QStringLiteral("2004"));
        QCOMPARE(open.ui().text(kRecords), QStringLiteral("4"));
        QCOMPARE(open.ui().text(kTotal), QStringLiteral("400"));
        QCOMPARE(open.ui().text(kWord), QStringLiteral("State"));
        QVERIFY(open.ui().button(QStringLiteral("By State"))->isChecked());
        QCOMPARE(open.ui().grid(kGrid)->headers(), texts("State;Number(Record);Total catch(kg.);%total catch"));
        QCOMPARE(open.ui().rows(kGrid), texts("Alpha|2|102|25.50;Beta|1|297.5|74.38"));
        QVERIFY(open.ui().within(kOptions).enabled(kByMonth));
        open.ui().press(kByVessel);
        QCOMPARE(open.ui().text(kWord), QStringLiteral("Vessel Name"));
        QCOMPARE(open.ui().grid(kGrid)->headers(), texts("Vessel name;Number(Record);Total Catch(kg.);%total catch"));
        QCOMPARE(open.ui().rows(kGrid), texts("Blue Fin|1|297.5|74.38;Sea Star|2|102|25.50"));
        open.search(QStringLiteral("2005"));
        QVERIFY(open.ui().button(QStringLiteral("By State"))->isChecked());
        QCOMPARE(open.ui().rows(kGrid), texts("Alpha|1|999|100.00"));
    }

    void tabFollowsTheReading() {
        const Opened open;
        open.search(QStringLiteral("2004"));
        open.screen->show();
        open.screen->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(open.screen.get()));
        open.ui().list(kYear)->setFocus();
        for (const QString& next :
             {kSearch, QStringLiteral("By State"), kExport, kGrid, QStringLiteral("Picture"), kYear}) {
            QTest::keyClick(open.screen->focusWidget(), Qt::Key_Tab);
            const bool isButton = next == kExport || next.startsWith(u"By");
            QCOMPARE(open.screen->focusWidget(), isButton ? open.ui().button(next) : open.ui().field(next));
        }
    }

    void enterSearches_data() {
        QTest::addColumn<QString>("field");
        QTest::newRow("year") << kYear;
        QTest::newRow("option") << QStringLiteral("By Fishing Area");
        QTest::newRow("grid") << kGrid;
        QTest::newRow("search button") << kSearch;
    }
    void enterSearches() {
        QFETCH(QString, field);
        const Opened open;
        open.search(QStringLiteral("2005"));
        open.screen->show();
        open.ui().choose(kYear, QStringLiteral("2004"));
        QWidget* target = field.startsWith(u"By") ? open.ui().button(field) : open.ui().field(field);
        target->setFocus();
        QTest::keyClick(target, Qt::Key_Return);
        QCOMPARE(open.ui().text(kTotal), QStringLiteral("400"));
    }

    void enterWhileYearsAreOffered() {
        Opened open;
        open.screen->show();
        open.ui().list(kYear)->setFocus();
        QTest::keyClicks(open.ui().list(kYear), QStringLiteral("2005"));
        open.store.execute("delete from fishoperation where optid = 5");
        open.store.dialogs.expectMessage(QStringLiteral("RESULT"), QStringLiteral("No data in this year!"));
        QWidget* offered = open.ui().list(kYear)->completer()->popup();
        QVERIFY(offered->isVisible());
        QTest::keyClick(offered, Qt::Key_Return);
        QVERIFY(open.store.dialogs.done());
    }

    void aYearThatLostItsOperations() {
        Opened open;
        open.search(QStringLiteral("2004"));
        open.ui().press(kByMonth);
        open.store.execute("delete from fishoperation where optid = 5");
        open.store.dialogs.expectMessage(QStringLiteral("RESULT"), QStringLiteral("No data in this year!"));
        open.search(QStringLiteral("2005"));
        QVERIFY(open.store.dialogs.done());
        QCOMPARE(open.ui().text(kRecords) + open.ui().text(kTotal) + open.ui().text(kWord), QString());
        QCOMPARE(open.ui().grid(kGrid)->headers(), texts("State;Number(Record);Total catch(kg.);%total catch"));
        QCOMPARE(open.ui().rows(kGrid), texts("|||"));
        QVERIFY(!open.ui().enabled(kExport));
        QVERIFY(open.ui().enabled(kByMonth));
        open.ui().choose(kYear, QStringLiteral("2004"));
        open.ui().press(kByMonth);
        QCOMPARE(open.ui().rows(kGrid), texts("January|1|100|;March|2|299.5|;December|1|0.5|"));
        QVERIFY(!open.ui().enabled(kExport));
    }

    void anotherYearWithoutASearchKeepsTheTotal() {
        Opened open;
        open.search(QStringLiteral("2004"));
        open.ui().choose(kYear, QStringLiteral("2005"));
        open.ui().press(kByMonth);
        QCOMPARE(open.ui().rows(kGrid), texts("January|1|999|249.75"));
        QCOMPARE(open.ui().text(kTotal), QStringLiteral("400"));
        const QString path = open.store.file(QStringLiteral("catch"));
        open.store.dialogs.expectSaveFile(path);
        open.ui().press(kExport);
        QCOMPARE(test::contents(path + QStringLiteral(".csv")),
                 "Fishing Operation data In 2005 By Month\r\nTotal catch of this year is 400kg.\r\nEXPORT Date : " +
                     shortDate(QDate::currentDate()).toLocal8Bit() +
                     "\r\n\r\nMonth,Number(Record),Total Catch(kg.),%total catch\r\nJanuary,1,999,249.75,\r\n");
    }

    void aGroupingWithoutRowsLeavesTheGrid() {
        Opened open;
        open.search(QStringLiteral("2004"));
        open.store.execute("delete from vessel");
        open.ui().press(kByVessel);
        QCOMPARE(open.ui().rows(kGrid), texts("Alpha|2|102|25.50;Beta|1|297.5|74.38"));
        QCOMPARE(open.ui().grid(kGrid)->headers().first(), QStringLiteral("Vessel name"));
        QCOMPARE(open.screen->findChild<ReportChart*>()->picture().title,
                 QStringLiteral("Estimated catch 2004 by State"));
        const QString path = open.store.file(QStringLiteral("empty.csv"));
        open.store.dialogs.expectSaveFile(path);
        open.ui().press(kExport);
        QCOMPARE(test::contents(path), QByteArray());
    }

    void whatFailsLeavesTheScreen() {
        Opened open;
        open.search(QStringLiteral("2004"));
        open.store.execute("drop table vessel");
        open.store.dialogs.expectMessageContaining(QStringLiteral("vessel"));
        open.ui().press(kByVessel);
        QVERIFY(open.ui().button(QStringLiteral("By State"))->isChecked());
        QCOMPARE(open.ui().text(kWord), QStringLiteral("State"));

        open.store.dialogs.expectSaveFile(std::nullopt);
        open.ui().press(kExport);
        const QStringList before = QDir(open.store.file({})).entryList(QDir::Files);
        open.store.dialogs.expectSaveFile(open.store.file(QStringLiteral("no such folder/catch.csv")));
        open.store.dialogs.expectMessageContaining(QStringLiteral("no such folder/catch.csv"));
        open.ui().press(kExport);
        QCOMPARE(QDir(open.store.file({})).entryList(QDir::Files), before);

        open.ui().type(kYear, QString());
        open.store.dialogs.expectMessage(QStringLiteral("Please choose a year from the list"));
        open.ui().press(kByMonth);
        QVERIFY(open.ui().button(QStringLiteral("By State"))->isChecked());
        open.store.dialogs.expectMessage(QStringLiteral("Please choose a year from the list"));
        open.ui().press(kExport);
        QVERIFY(open.store.dialogs.done());
    }
};

KELVORA_TEST(TestCatchSummaryScreen, "catch_summary_screen");

}  // namespace kelvora::test_catch_summary_screen

#include "test_catch_summary_screen.moc"
