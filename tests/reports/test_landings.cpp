#include "data/numbers.h"
#include "data/transaction.h"
#include "report_desk.h"
#include "reports/catch_summary.h"
#include "reports/species_composition_report.h"
#include "support/test_main.h"

#include <QTest>

#include <map>

using namespace Qt::StringLiterals;

namespace kelvora::test_landings {

using test::linesOf;

/// The number of a name, given in the order in which names come.
int numbered(std::map<QString, int>& names, const QString& name) {
    return names.try_emplace(name, static_cast<int>(names.size()) + 1).first->second;
}

/// A year of landings as a port office would record it: what a port landed in a month as one operation, its species as
/// weighed single species.
void loadLandings(Connection& db) {
    std::map<QString, int> ports;
    std::map<QString, int> species;
    std::map<std::pair<int, int>, std::map<int, double>> landed;
    for (const QStringList& line : linesOf(u"landings_2017_two_ports.csv"_s)) {
        const int port = numbered(ports, line[1]);
        landed[{port, line[0].toInt()}][numbered(species, line[5])] += line[7].toDouble() * 1'000;
    }
    Transaction transaction(db);
    for (const auto& [name, number] : ports) {
        db.execute(Sql("insert into samplingport values (") << number << "," << name << ",1)");
    }
    for (const auto& [name, number] : species) {
        db.execute(Sql("insert into fish(fishno, genus, fishname) values (") << number << "," << name << ",'sp.')");
    }
    int operation = 0;
    for (const auto& [key, weights] : landed) {
        double total = 0;
        ++operation;
        for (const auto& [fish, kg] : weights) {
            total += kg;
            db.execute(Sql("insert into group_composition values (")
                       << operation << "," << fish << ",1," << kg << "," << kg << ")");
        }
        db.execute(Sql("insert into fishoperation(optid, portid, optdate, estotal) values (")
                   << operation << "," << key.first << "," << QDate(2017, key.second, 1) << "," << total << ")");
    }
    db.execute(Sql("insert into state values (1,'United Kingdom')"));
    transaction.commit();
}

/// The expected weights, summed by one field of a file.
std::map<QString, double> expected(const QString& name, int field) {
    std::map<QString, double> sums;
    for (const QStringList& line : linesOf(name)) {
        sums[line[field]] += line[2].toDouble();
    }
    return sums;
}

QString fourDecimals(double value) {
    return QString::number(value, 'f', 4);
}

/// A year of real landings through the report, against sums made elsewhere.
class TestLandings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadLandings(m_store.db()); }

    void byPortAndByMonth_data() {
        QTest::addColumn<std::map<QString, double>>("kgByGroup");
        QTest::addColumn<int>("operations");
        QTest::newRow("By Sampling Port") << expected(u"landings_by_port_species.csv"_s, 0) << 12;
        std::map<QString, double> months;
        for (const auto& [month, kg] : expected(u"landings_by_port_month.csv"_s, 1)) {
            months[QLocale().standaloneMonthName(month.toInt())] = kg;
        }
        QTest::newRow("By Month") << months << 2;
    }
    void byPortAndByMonth() {
        using Sums = std::map<QString, double>;
        QFETCH(Sums, kgByGroup);
        QFETCH(int, operations);
        double year = 0;
        for (const auto& [name, kg] : kgByGroup) {
            year += kg;
        }
        const ResultSet totals = catchTotals(m_store.db(), 2017);
        const double total = totals.number(0, u"totals").value_or(0);
        QCOMPARE(fourDecimals(total), fourDecimals(year));
        QCOMPARE(totals.integer(0, u"totalc"), std::optional(24));

        const auto by =
            std::ranges::find(catchGroupings(), QString::fromLatin1(QTest::currentDataTag()), &CatchGrouping::option);
        const ResultSet groups = catchByGroup(m_store.db(), *by, 2017, total);
        QCOMPARE(groups.rows.size(), kgByGroup.size());
        for (const auto& row : groups.rows) {
            const double kg = kgByGroup[row[0].toString()];
            QCOMPARE(row[1].toInt(), operations);
            QCOMPARE(fourDecimals(row[2].toDouble()), fourDecimals(kg));
            QCOMPARE(row[3].toString(), QString::number(kg * 100 / year, 'f', 2));
        }
    }

    void speciesOfAPort() {
        const std::vector<QStringList> sums = linesOf(u"landings_by_port_species.csv"_s);
        double year = 0;
        for (const QStringList& line : sums) {
            year += line[2].toDouble();
        }
        const QString total = compositionTotal(m_store.db(), 2017);
        QCOMPARE(total, twoDecimals(year));
        const CompositionSubset& byPort = compositionSubsets()[1];
        const ResultSet ports = m_store.db().query(compositionChoices(byPort, 2017));
        auto line = sums.begin();
        for (int port = 0; port < ports.rowCount(); ++port) {
            const QVariant& key = ports.value(port, u"key");
            for (const auto& row : compositionOf(m_store.db(), byPort, 2017, key, total.toDouble()).rows) {
                const double kg = (*line)[2].toDouble();
                QCOMPARE(ports.text(port, u"name"), (*line)[0]);
                QCOMPARE(row[0].toString(), (*line)[1] + u" sp."_s);
                QCOMPARE(row[1].toString(), twoDecimals(kg));
                QCOMPARE(row[2].toString(), QString::number(kg * 100 / year, 'f', 2));
                ++line;
            }
        }
        QCOMPARE(line, sums.end());
    }

private:
    test::TemporaryStore m_store;
};

KELVORA_TEST(TestLandings, "landings");

}  // namespace kelvora::test_landings

#include "test_landings.moc"
