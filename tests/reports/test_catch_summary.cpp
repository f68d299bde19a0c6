#include "reports/catch_summary.h"
#include "support/test_main.h"
#include "worked_year.h"

#include <QLocale>
#include <QTest>

#include <algorithm>

namespace kelvora::test_catch_summary {

const CatchGrouping& grouping(const QString& option) {
    return *std::ranges::find(catchGroupings(), option, &CatchGrouping::option);
}

QStringList lines(const ResultSet& result) {
    QStringList texts;
    for (const auto& row : result.rows) {
        QStringList values;
        std::ranges::transform(row, std::back_inserter(values), displayText);
        texts.append(values.join(u'|'));
    }
    return texts;
}

const QDate kToday(2026, 11, 16);

/// The figures of a year by each grouping, and their export.
class TestCatchSummary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void groupings_data() {
        QTest::addColumn<QString>("exportWord");
        QTest::addColumn<QStringList>("rows");
        const auto row = [](const char* option, const char* word, const char* rows) {
            QTest::newRow(option) << QString::fromLatin1(word) << QString::fromLatin1(rows).split(u';');
        };
        row("By State", "State", "Alpha|2|102|25.50;Beta|1|297.5|74.38");
        row("By Sampling Port", "Sampling Port", "Abo|1|100|25.00;Bex|1|2|0.50;Cay|1|297.5|74.38");
        row("By Vessel", "Vessel name", "Blue Fin|1|297.5|74.38;Sea Star|2|102|25.50");
        row("By Fishing Method", "Fishing Method",
            "Gill net[Drift]|1|297.5|74.38;Trawl[Otter board]|1|100|25.00;Trawl[Pair]|1|2|0.50");
        row("By Fishing Gear", "Fishing Gear", "Gill net|1|297.5|74.38;Trawl|2|102|25.50");
        row("By Month", "Month", "January|1|100|25.00;March|2|299.5|74.88;December|1|0.5|0.13");
        row("By Fishing Area", "Fishing Area", "A1|2|102|25.50;A2|1|297.5|74.38");
    }
    void groupings() {
        QFETCH(QString, exportWord);
        QFETCH(QStringList, rows);
        test::TemporaryStore store;
        test::addWorkedYear(store);
        const CatchGrouping& by = grouping(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(lines(catchByGroup(store.db(), by, 2004, 400)), rows);

        QString file = QStringLiteral("Fishing Operation data In 2004 By %1\r\n").arg(exportWord) +
                       QStringLiteral("Total catch of this year is 400kg.\r\nEXPORT Date : 16/11/2026\r\n\r\n") +
                       exportWord + QStringLiteral(",Number(Record),Total Catch(kg.),%total catch\r\n");
        for (QString& line : rows) {
            file += line.replace(u'|', u',') + QStringLiteral(",\r\n");
        }
        QCOMPARE(catchSummaryCsv(store.db(), by, 2004, QStringLiteral("400"), kToday).text(), file);
    }

    void totalsAndYears() {
        test::TemporaryStore store;
        QVERIFY(store.db().query(catchYears()).isEmpty());
        test::addWorkedYear(store);
        QCOMPARE(lines(store.db().query(catchYears())), (QStringList{QStringLiteral("2004"), QStringLiteral("2005")}));
        QCOMPARE(lines(catchTotals(store.db(), 2004)), QStringList{QStringLiteral("4|400")});
        QCOMPARE(lines(catchTotals(store.db(), 2006)), QStringList{QStringLiteral("0|")});
    }

    void theTotalKeepsItsFraction() {
        test::TemporaryStore store;
        test::addWorkedYear(store);
        const CatchGrouping& state = grouping(QStringLiteral("By State"));
        QCOMPARE(lines(catchByGroup(store.db(), state, 2004, 1.02)).first(), QStringLiteral("Alpha|2|102|10000.00"));
        QCOMPARE(lines(catchByGroup(store.db(), state, 2004, 0)).first(), QStringLiteral("Alpha|2|102|"));
    }

    void namesAreExportedAsTheyAre() {
        test::TemporaryStore store;
        test::addWorkedYear(store);
        store.execute("update state set statename = null where stateid = 1");
        store.db().execute(Sql("update state set statename = ")
                           << QStringLiteral("'; drop table state; -- & [x], \"Ålesund\" %1") << " where stateid = 2");
        const QString text =
            catchSummaryCsv(store.db(), grouping(QStringLiteral("By State")), 2004, QString(), kToday).text();
        QCOMPARE(text.section(QStringLiteral("\r\n"), 1, 1), QStringLiteral("Total catch of this year is kg."));
        QCOMPARE(text.section(QStringLiteral("\r\n"), 5),
                 QStringLiteral(",2,102,,\r\n'; drop table state; -- & [x], \"Ålesund\" %1,1,297.5,,\r\n"));
    }

    void noGroupsNoLines() {
        test::TemporaryStore store;
        test::addWorkedYear(store);
        store.execute("delete from vessel");
        const CatchGrouping& vessel = grouping(QStringLiteral("By Vessel"));
        QCOMPARE(catchSummaryCsv(store.db(), vessel, 2004, QStringLiteral("400"), kToday).text(), QString());
    }

    void monthsAndDatesFollowTheSystem() {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        test::TemporaryStore store;
        test::addWorkedYear(store);
        const QString text =
            catchSummaryCsv(store.db(), grouping(QStringLiteral("By Month")), 2004, QStringLiteral("400"), kToday)
                .text();
        QLocale::setDefault(before);
        QCOMPARE(text.section(QStringLiteral("\r\n"), 2, 2), QStringLiteral("EXPORT Date : 16.11.26"));
        QCOMPARE(text.section(QStringLiteral("\r\n"), 5, 6),
                 QStringLiteral("Januar,1,100,25.00,\r\nMärz,2,299.5,74.88,"));
    }
};

KELVORA_TEST(TestCatchSummary, "catch_summary");

}  // namespace kelvora::test_catch_summary

#include "test_catch_summary.moc"
