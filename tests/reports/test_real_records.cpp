#include "data/csv_reader.h"
#include "data/numbers.h"
#include "data/transaction.h"
#include "demo/demo_year.h"
#include "records/gonad_store.h"
#include "reports/catch_summary.h"
#include "reports/gonad_maturity_report.h"
#include "reports/length_frequency_report.h"
#include "reports/species_composition_report.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <ranges>

using namespace Qt::StringLiterals;

namespace kelvora::test_real_records {

QStringList rowsBehind(const QString& front, const ResultSet& table) {
    return test::rows(table).replaceInStrings(QRegularExpression(u"^"_s), front);
}

/// The cells of a crosstab that are not empty, each behind what its row and its column are called.
QStringList cellsOf(const ResultSet& table, qsizetype rowColumns, const QString& front) {
    QStringList all;
    for (const QString& row : rowsBehind(front, table)) {
        for (qsizetype i = rowColumns; i < table.columnCount(); ++i) {
            const QString cell = row.section(u'|', i - table.columnCount(), i - table.columnCount());
            if (cell != u"null") {
                const QString name = row.section(u'|', 0, rowColumns - 1 + front.count(u'|'));
                all.append(name + u'|' + table.columns[static_cast<std::size_t>(i)] + u'|' + cell);
            }
        }
    }
    return all;
}

auto linesOf(const QString& name) {
    return readCsv(CsvReader(u"" KELVORA_TEST_FILES "/"_s + name)) | std::views::drop(1);
}

/// Landings, lengths and fish as port offices would have stored them, all in one file, and what becomes of them against
/// results computed elsewhere.
class TestRealRecords : public QObject {
    Q_OBJECT

    test::TemporaryStore m_store;

    void compare(QStringList shown, Literal expected) {
        QStringList lines = m_store.rows(expected);
        shown.sort();
        lines.sort();
        QVERIFY(!shown.isEmpty());
        QCOMPARE(shown, lines);
    }

private Q_SLOTS:
    void initTestCase() {
        Transaction transaction(m_store.db());
        m_store.execute(
            "create table csv(file, a numeric, b numeric, c numeric, d numeric, e numeric, f, g, h numeric)");
        const QDir folder(u"" KELVORA_TEST_FILES ""_s);
        for (const QString& name : folder.entryList({u"landings_*"_s, u"european_hake_tally.csv"_s, u"simulated_*"_s,
                                                     u"gonad_*d_fish.csv"_s, u"gonad_*_by_month.csv"_s})) {
            for (const CsvRecord& line : linesOf(name)) {
                Sql sql = Sql("insert into csv values (") << name;
                for (int i = 0; i < 8; ++i) {
                    sql = sql << "," << line.fields.value(i);
                }
                m_store.db().execute(sql << ")");
            }
        }
        m_store.execute(
            {"insert into state values (1, 'United Kingdom')",
             "insert into samplingport values (1, 'Kilkeel', 1), (2, 'Milford Haven', 1)",
             "insert into fish(genus, fishname) select distinct f, 'sp.' from csv where file like 'landings_2017%'"
             " union all select distinct file, 'sp.' from csv where file like '%tally.csv'"
             " union all select distinct a, 'sp.' from csv where file like 'gonad_dated%'",
             // What a port landed in a month is an operation, and what was measured or examined on a day.
             "insert into fishoperation(optid, portid, optdate, estotal) select samplingid * 100 + a, samplingid,"
             " format('2017-%02d-01', a), sum(h) * 1000 from csv join samplingport on samplingname = b group by 1",
             "insert into group_composition select samplingid * 100 + a, fishno, csv.rowid, h, h * 1000"
             " from csv join samplingport on samplingname = b join fish on genus = f",
             "update csv set a = a || '-15' where file = 'european_hake_tally.csv'",
             "insert or ignore into fishoperation(optid, optdate) select replace(a, '-', ''), a from csv"
             " where file like '%tally.csv' union all select replace(b, '-', ''), b from csv"
             " where file like 'gonad_dated%'",
             "insert into length_detail select replace(a, '-', ''), fishno, b, c, d, e from csv"
             " join fish on genus = file",
             "insert or replace into gonad_stage select d, 's' from csv where file like 'gonad_dated%'",
             "insert into gonad_detail(optid, spid, samplingno, sex, stage) select replace(b, '-', ''), fishno,"
             " csv.rowid, case lower(substr(c, 1, 1)) when 'f' then 'Female' when 'm' then 'Male' else 'None' end, d"
             " from csv join fish on genus = a"});
        transaction.commit();
    }

    void landings() {
        Connection& db = m_store.db();
        const ResultSet totals = catchTotals(db, 2017);
        const double kg = *totals.number(0, u"totals");
        QStringList shown = rowsBehind(u"2017|"_s + compositionTotal(db, 2017) + u'|', totals);
        shown += test::rows(catchByGroup(db, catchGroupings()[1], 2017, kg));
        shown += test::rows(catchByGroup(db, catchGroupings()[5], 2017, kg));
        shown += rowsBehind(u"Kilkeel|"_s, compositionOf(db, compositionSubsets()[1], 2017, 1, kg));
        shown += rowsBehind(u"Milford Haven|"_s, compositionOf(db, compositionSubsets()[1], 2017, 2, kg));
        compare(shown,
                "with landed as (select a, b, c from csv where file = 'landings_by_port_month.csv'),"
                " y as (select sum(c) as kg from landed)"
                " select 2017, format('%.2f', kg), 24, kg from y union all"
                " select a, 12, sum(c), format('%.2f', sum(c) * 100 / kg) from landed, y group by 1 union all"
                " select month_name(format('2017-%02d-01', b)), 2, sum(c), format('%.2f', sum(c) * 100 / kg)"
                " from landed, y group by 1 union all"
                " select a, b || ' sp.', format('%.2f', c), format('%.2f', c * 100 / kg) from csv, y"
                " where file = 'landings_by_port_species.csv'");
    }

    void lengthsAndFish() {
        QStringList shown;
        const QStringList kinds{u"All|"_s, u"Female|"_s, u"Male|"_s, u"None|"_s};
        for (const QString& fish : m_store.rows("select fishno from fish where fishno not in (select spid from"
                                                " group_composition)")) {
            for (int year = 1992; year <= 2016; ++year) {
                const QString front = u"%1|%2|"_s.arg(fish).arg(year);
                shown += cellsOf(lengthsByMonth(m_store.db(), year, fish.toInt()), 3, front);
                const auto tables = gonadTables(m_store.db(), year, fish.toInt());
                for (std::size_t i = 0; i < tables.size(); ++i) {
                    shown += cellsOf(tables.at(i), 1, front + kinds.at(static_cast<qsizetype>(i)));
                }
            }
        }
        compare(
            shown,
            "select fishno, substr(a, 1, 4), b, c, d, month_name(a) || '|' || e from csv join fish on genus = file"
            " union all select fishno, substr(b, 1, 4), case when e = '' then 'All' else c end,"
            " month_name(b || '-15'), case when e = '' then c else d || '-s' end, case when e = '' then d else e end"
            " from csv join fish on instr(a, genus) where file like 'gonad_s%' and b <> ''");
    }

    void fish() {
        test::TemporaryStore store;
        store.addSmallYear();
        store.execute({"delete from gonad", "delete from gonad_detail"});
        const StoredOperation operation = storedOperation(store.db(), 2).value();
        for (const CsvRecord& record : linesOf(u"gonad_summary.csv"_s)) {
            const QStringList& summary = record.fields;
            CsvReader csv(u"" KELVORA_TEST_FILES "/"_s + summary[0]);
            FishReader reader(csv);
            QVERIFY(reader.readHeader());
            GonadSample sample{operation, {3, u"Nemipterus virgatus"_s}, 0, {}};
            while (const auto fish = reader.next()) {
                sample.fish.push_back(*fish);
            }
            sample.samplingWeight = samplingWeightText(bodyWeightSum(sample.fish)).toDouble();
            StoredPart part;
            storeGonadSample(store.db(), sample, part, [] {});
            const double kg = std::round(summary[14].toDouble() / 10) / 100;
            const QStringList counted = summary.mid(1, 4) + summary.mid(7, 1) + summary.mid(13, 1);
            QCOMPARE(
                store.rows("select count(*), sum(sex = 'Female'), sum(sex = 'Male'), sum(sex = 'None'), count(gsi),"
                           " (select group_concat(each, ' ') from (select stage || ':' || count(*) as each"
                           " from gonad_detail group by stage)), gonad.* from gonad_detail join gonad"),
                QStringList{counted.join(u'|') + u"|2|3|"_s + QString::number(kg)});
            QStringList everyFish;
            for (const CsvRecord& fish : linesOf(u"gonad_gsi_every_fish.csv"_s)) {
                everyFish += fish.fields[0] == summary[0] ? QStringList{fish.fields.mid(1).join(u'|')} : QStringList();
            }
            // Two of the files hold no gonad weights, and so no index.
            QVERIFY(everyFish == store.rows("select samplingno, sex, stage, bw, gw, gsi from gonad_detail") ||
                    (everyFish.isEmpty() && summary[9] == u"0"));
            deleteGonadSample(store.db(), operation, sample.species);
        }
    }

    /// The demonstration year has several of everything.
    void demonstration() {
        makeDemoYear(m_store.file(u"demo"_s), u"" KELVORA_SOURCE_FOLDER ""_s);
        Connection year(m_store.file(u"demo"_s));
        for (const CatchGrouping& grouping : catchGroupings()) {
            QVERIFY2(catchByGroup(year, grouping, 2017, 1).rowCount() > 1, qPrintable(grouping.option));
        }
    }
};

KELVORA_TEST(TestRealRecords, "real_records");

}  // namespace kelvora::test_real_records

#include "test_real_records.moc"
