#include "controls/bound_list.h"
#include "report_desk.h"
#include "reports/catch_summary.h"
#include "reports/catch_summary_screen.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_catch_summary {

using namespace test;
using Summary = Report<CatchSummaryScreen>;

const QString kRecords = u"Total Record"_s;
const QString kTotal = u"Total catch of this year (kg.)"_s;
const QString kWord = u"Number of Record and estimate Total catch by"_s;
const QString kByState = u"By State"_s;
const QString kByVessel = u"By Vessel"_s;
const QString kByMonth = u"By Month"_s;
const QString kStateHeaders = u"State;Number(Record);Total catch(kg.);%total catch"_s;

/// The operations of a year by each grouping, and their export, as a sampler asks for them.
class TestCatchSummary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensEmpty() {
        const Summary report;
        QCOMPARE(report.screen->windowTitle(), u"Number of record and estimate total catch"_s);
        QCOMPARE(report.rows() + report.ui().text(kTotal), QString());
        QVERIFY(!report.canExport() && !report.ui().enabled(kByMonth));
        QCOMPARE(report.ui().list(kYear)->itemText(0) + u' ' + report.ui().list(kYear)->itemText(1), u"2004 2005"_s);
        report.ui().press(kSearch);
        report.ui().type(kYear, u"2003"_s);
        report.ui().press(kSearch);
        QCOMPARE(report.ui().text(kRecords), QString());
    }

    void groupings_data() {
        QTest::addColumn<QStringList>("words");  // on the screen, above the first column, in the export
        QTest::addColumn<QString>("rows");
        const auto row = [](const char* option, const char* words, const char* rows) {
            QTest::newRow(option) << texts(words) << QString::fromLatin1(rows);
        };
        row("By Sampling Port", "Sampling Port;Sampling Port;Sampling Port",
            "Abo|1|100|25.00;Bex|1|2|0.50;Cay|1|297.5|74.38");
        row("By Vessel", "Vessel Name;Vessel name;Vessel name", "Blue Fin|1|297.5|74.38;Sea Star|2|102|25.50");
        row("By Fishing Method", "Fishing Method;Fishing gear and method;Fishing Method",
            "Gill net[Drift]|1|297.5|74.38;Trawl[Otter board]|1|100|25.00;Trawl[Pair]|1|2|0.50");
        row("By Fishing Gear", "Fishing Gear;Fishing Gear;Fishing Gear", "Gill net|1|297.5|74.38;Trawl|2|102|25.50");
        row("By Month", "Month;Month;Month", "January|1|100|25.00;March|2|299.5|74.88;December|1|0.5|0.13");
        row("By Fishing Area", "Fishing Area;Area;Fishing Area", "A1|2|102|25.50;A2|1|297.5|74.38");
        row("By State", "State;State;State", "Alpha|2|102|25.50;Beta|1|297.5|74.38");
    }
    void groupings() {
        QFETCH(QStringList, words);
        QFETCH(QString, rows);
        const QString option = QString::fromLatin1(QTest::currentDataTag());
        Summary report;
        report.search(u"2004"_s);
        QVERIFY(report.ui().button(kByState)->isChecked());
        QCOMPARE(report.ui().text(kRecords) + u' ' + report.ui().text(kTotal), u"4 400"_s);
        if (option != kByState) {
            report.ui().press(option);
        }
        QCOMPARE(report.ui().text(kWord), words[0]);
        const QString headers = words[1] + u";Number(Record);Total Catch(kg.);%total catch"_s;
        QCOMPARE(report.headers(), option == kByState ? kStateHeaders : headers);
        QCOMPARE(report.rows(), rows);
        const QString file =
            u"Fishing Operation data In 2004 By %1\r\nTotal catch of this year is 400kg.\r\n%2\r\n%1"
            ",Number(Record),Total Catch(kg.),%total catch\r\n%3,\r\n"_s;
        QCOMPARE(report.exported(), file.arg(words[2], QString::fromLocal8Bit(exportDay()),
                                             QString(rows).replace(u'|', u',').replace(u";"_s, u",\r\n"_s))
                                        .toLocal8Bit());
        report.search(u"2005"_s);
        QVERIFY(report.ui().button(kByState)->isChecked());
        QCOMPARE(report.rows(), u"Alpha|1|999|100.00"_s);
    }

    void tabFollowsTheReading() {
        const Summary report;
        report.search(u"2004"_s);
        report.screen->show();
        report.screen->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(report.screen.get()));
        report.ui().list(kYear)->setFocus();
        for (const QString& next : {kSearch, kByState, kExport, kResult, u"Picture"_s, kYear}) {
            QTest::keyClick(report.screen->focusWidget(), Qt::Key_Tab);
            const bool isButton = next == kExport || next == kByState;
            QCOMPARE(report.screen->focusWidget(), isButton ? report.ui().button(next) : report.ui().field(next));
        }
    }

    void enterSearches() {
        const Summary report;
        report.screen->show();
        report.search(u"2005"_s);
        for (QWidget* field : {report.ui().field(kYear), static_cast<QWidget*>(report.ui().button(kByState)),
                               report.ui().field(kResult), report.ui().field(kSearch)}) {
            const QString year = report.ui().text(kTotal) == u"400" ? u"2005"_s : u"2004"_s;
            report.ui().choose(kYear, year);
            field->setFocus();
            QTest::keyClick(field, Qt::Key_Return);
            QCOMPARE(report.ui().text(kTotal), year == u"2004" ? u"400"_s : u"999"_s);
        }
    }

    /// Searched for with Enter, while the years are offered below what was typed.
    void aYearThatLostItsOperations() {
        Summary report;
        report.screen->show();
        report.screen->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(report.screen.get()));
        report.search(u"2004"_s);
        report.ui().press(kByMonth);
        report.store.execute("delete from fishoperation where optid = 5");
        report.store.dialogs.expectMessage(u"RESULT"_s, u"No data in this year!"_s);
        report.ui().list(kYear)->setFocus();
        report.ui().list(kYear)->clearEditText();
        QTest::keyClicks(report.ui().list(kYear), u"2005"_s);
        QWidget* offered = report.ui().list(kYear)->completer()->popup();
        QVERIFY(offered->isVisible());
        QTest::keyClick(offered, Qt::Key_Return);
        QVERIFY(report.store.dialogs.done());
        QCOMPARE(report.ui().text(kRecords) + report.ui().text(kTotal) + report.ui().text(kWord), QString());
        QCOMPARE(report.headers(), kStateHeaders);
        QCOMPARE(report.rows() + report.drawn(), u"|||"_s);
        QVERIFY(!report.canExport() && report.ui().enabled(kByMonth));
        report.ui().choose(kYear, u"2004"_s);
        report.ui().press(kByMonth);
        QCOMPARE(report.rows(), u"January|1|100|;March|2|299.5|;December|1|0.5|"_s);
        QVERIFY(!report.canExport());
    }

    void anotherYearWithoutASearchKeepsTheTotal() {
        Summary report;
        report.search(u"2004"_s);
        report.ui().choose(kYear, u"2005"_s);
        report.ui().press(kByMonth);
        QCOMPARE(report.rows(), u"January|1|999|249.75"_s);
        QCOMPARE(report.ui().text(kTotal), u"400"_s);
        const QByteArray file = report.exported();
        QVERIFY(file.startsWith("Fishing Operation data In 2005 By Month\r\nTotal catch of this year is 400kg.\r\n"));
        QVERIFY(file.endsWith("\r\nJanuary,1,999,249.75,\r\n"));
    }

    void aGroupingWithoutRowsLeavesTheGrid() {
        Summary report;
        report.search(u"2004"_s);
        report.store.execute("delete from vessel");
        report.ui().press(kByVessel);
        QCOMPARE(report.rows(), u"Alpha|2|102|25.50;Beta|1|297.5|74.38"_s);
        QVERIFY(report.headers().startsWith(u"Vessel name;"));
        QCOMPARE(report.chart().picture().title, u"Estimated catch 2004 by State"_s);
        QCOMPARE(report.exported(), QByteArray());
    }

    void whatFailsLeavesTheScreen() {
        Summary report;
        auto& dialogs = report.store.dialogs;
        report.search(u"2004"_s);
        report.store.execute("drop table vessel");
        dialogs.expectMessageContaining(u"vessel"_s);
        report.ui().press(kByVessel);
        QVERIFY(report.ui().button(kByState)->isChecked());
        QCOMPARE(report.ui().text(kWord), u"State"_s);

        const QStringList before = QDir(report.store.file({})).entryList(QDir::Files);
        dialogs.expectSaveFile(std::nullopt);
        report.ui().press(kExport);
        dialogs.expectSaveFile(report.store.file(u"no such folder/catch.csv"_s));
        dialogs.expectMessageContaining(u"no such folder/catch.csv"_s);
        report.ui().press(kExport);
        QCOMPARE(QDir(report.store.file({})).entryList(QDir::Files), before);

        report.ui().type(kYear, QString());
        for (const QString& button : {kByMonth, kExport}) {
            dialogs.expectMessage(u"Please choose a year from the list"_s);
            report.ui().press(button);
            QVERIFY(report.ui().button(kByState)->isChecked());
        }
        QVERIFY(dialogs.done());
    }

    void namesAndTotalsAreExportedAsTheyAre() {
        Summary report;
        report.store.execute("update state set statename = null where stateid = 1");
        const QString name = u"'; drop table state; -- & [x], \"Ålesund\" %1"_s;
        report.store.db().execute(Sql("update state set statename = ") << name << " where stateid = 2");
        const auto lines = [&](const QString& total) {
            return catchSummaryCsv(report.store.db(), catchGroupings()[0], 2004, total, QDate());
        };
        QCOMPARE(lines({})[1], u"Total catch of this year is kg."_s);
        QCOMPARE(lines({}).mid(5), (QStringList{u",2,102,,"_s, name + u",1,297.5,,"_s}));
        QCOMPARE(lines(u"1.02"_s)[5], u",2,102,10000.00,"_s);
    }

    void monthsAndDatesFollowTheSystem() {
        Summary report;
        const auto export2004 = [&] {
            const CatchGrouping& byMonth = catchGroupings()[5];
            return catchSummaryCsv(report.store.db(), byMonth, 2004, u"400"_s, QDate(2026, 11, 16));
        };
        QCOMPARE(export2004()[2], u"EXPORT Date : 16/11/2026"_s);
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const QStringList german = export2004();
        QLocale::setDefault(before);
        QCOMPARE(german[2], u"EXPORT Date : 16.11.26"_s);
        QCOMPARE(german.mid(5, 2), (QStringList{u"Januar,1,100,25.00,"_s, u"März,2,299.5,74.88,"_s}));
    }
};

KELVORA_TEST(TestCatchSummary, "catch_summary");

}  // namespace kelvora::test_catch_summary

#include "test_catch_summary.moc"
