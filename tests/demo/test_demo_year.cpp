#include "data/connection.h"
#include "data/store.h"
#include "demo/demo_year.h"
#include "records/operation_store.h"
#include "reports/catch_summary.h"
#include "reports/gonad_maturity_report.h"
#include "reports/length_frequency_report.h"
#include "reports/species_composition_report.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvora::test_demo_year {

constexpr int kYear = 2017;

/// The sum of a table's cells from a column on.
double sumFrom(const ResultSet& table, int firstColumn) {
    double sum = 0;
    for (const auto& row : table.rows) {
        for (auto column = static_cast<std::size_t>(firstColumn); column < row.size(); ++column) {
            sum += row[column].toDouble();
        }
    }
    return sum;
}

class TestDemoYear : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        makeDemoYear(path(), u"" KELVORA_SOURCE_FOLDER ""_s);
        prepareStore(path());
        m_db = std::make_unique<Connection>(path());
    }

    void comesOutTheSameEveryTime() {
        const QString again = m_store.file(u"again.sqlite"_s);
        makeDemoYear(again, u"" KELVORA_SOURCE_FOLDER ""_s);
        QFile first(path());
        QFile second(again);
        QVERIFY(first.open(QIODevice::ReadOnly) && second.open(QIODevice::ReadOnly));
        QVERIFY(first.readAll() == second.readAll());
    }

    /// An operation is shown only if its port, area, vessel, gear and method are all registered.
    void everyOperationIsShownOnce() {
        const ResultSet operations = m_db->query(Sql("select optid from fishoperation"));
        QVERIFY(operations.rowCount() > 100);
        for (int row = 0; row < operations.rowCount(); ++row) {
            const int operation = operations.integer(row, u"optid").value();
            QCOMPARE(operationDetails(*m_db, operation).rowCount(), 1);
        }
    }

    /// Raising rounds its factor, which costs at most a hundredth of a group.
    void compositionsAddUpToTheirCatches() {
        const ResultSet sums = m_db->query(
            Sql("select fishoperation.optid, fishoperation.estotal as caught, sum(group_composition.estotal) as weighed"
                " from fishoperation inner join group_composition on fishoperation.optid = group_composition.optid"
                " group by fishoperation.optid, fishoperation.estotal"));
        QCOMPARE(sums.rowCount(), m_db->query(Sql("select optid from fishoperation")).rowCount());
        for (int row = 0; row < sums.rowCount(); ++row) {
            const double caught = sums.number(row, u"caught").value();
            const double weighed = sums.number(row, u"weighed").value();
            QVERIFY2(std::abs(caught - weighed) <= 0.01 * caught, qPrintable(sums.text(row, u"optid")));
        }
    }

    void everyReportHasRows() {
        for (const CatchGrouping& grouping : catchGroupings()) {
            QVERIFY2(catchByGroup(*m_db, grouping, kYear, 1).rowCount() > 1, qPrintable(grouping.option));
        }
        for (const CompositionSubset& subset : compositionSubsets()) {
            const ResultSet choices = m_db->query(compositionChoices(subset, kYear));
            QVERIFY2(choices.rowCount() > 1, qPrintable(subset.option));
            const QVariant& choice = choices.value(0, u"key");
            QVERIFY2(!compositionOf(*m_db, subset, kYear, choice, 1).isEmpty(), qPrintable(subset.option));
        }
    }

    /// Every fish of the sources is counted once.
    void surveyFishAreAllThere_data() {
        QTest::addColumn<QString>("genus");
        QTest::addColumn<int>("measured");
        QTest::addColumn<int>("examined");
        QTest::newRow("hake") << "Merluccius" << 677 + 1378 + 2408 + 2127 + 310 << 0;
        QTest::newRow("goatfish") << "Upeneus" << 3816 << 0;
        QTest::newRow("whitefish") << "Prosopium" << 221 << 221;
    }
    void surveyFishAreAllThere() {
        QFETCH(const QString, genus);
        QFETCH(const int, measured);
        QFETCH(const int, examined);
        const int species =
            m_db->query(Sql("select max(length.spid) as spid from length inner join fish on length.spid = fish.fishno"
                            " where genus = ")
                        << genus)
                .integer(0, u"spid")
                .value();
        QCOMPARE(sumFrom(lengthsByMonth(*m_db, kYear, species), kClassColumns), measured);
        const std::vector<ResultSet> tables = gonadTables(*m_db, kYear, species);
        QCOMPARE(sumFrom(tables[0], 1), examined);
        QVERIFY(tables[1].isEmpty() == (examined == 0) && tables[2].isEmpty() == (examined == 0));
    }

private:
    [[nodiscard]] QString path() const { return m_store.file(u"demo.sqlite"_s); }

    test::TemporaryStore m_store;
    std::unique_ptr<Connection> m_db;
};

KELVORA_TEST(TestDemoYear, "demo_year");

}  // namespace kelvora::test_demo_year

#include "test_demo_year.moc"
