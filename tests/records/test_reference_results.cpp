#include "data/numbers.h"
#include "records/gonad_store.h"
#include "records/length_store.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_reference_results {

/// Fish that were really measured, stored, beside results that were computed outside of the program.
class TestReferenceResults : public QObject {
    Q_OBJECT

    test::TemporaryStore m_store;
    StoredOperation m_operation;
    const ChosenSpecies m_species{2, u"Upeneus vittatus"_s};

    static QString path(const QString& name) { return u"" KELVORA_TEST_FILES "/"_s + name; }
    /// The records of a table behind its header; those of one file, without its name, where one is given.
    static std::vector<QStringList> table(const QString& name, const QString& file = {}) {
        std::vector<QStringList> found;
        for (const CsvRecord& record : readCsv(CsvReader(path(name)))) {
            if (file.isEmpty() ? record.line > 1 : record.fields.first() == file) {
                found.push_back(record.fields.mid(1));
            }
        }
        return found;
    }

private Q_SLOTS:
    void initTestCase() {
        m_store.addReferenceRows();
        m_store.addOperation(1, 2, u"2008-07-15"_s, 3, 80, u"Sea Star"_s, u"A1"_s);
        m_operation = storedOperation(m_store.db(), 1).value();
    }

    void lengthClasses() {
        for (const auto& [tally, interval, sum] :
             {std::tuple{u"yellowstriped_goatfish_manila_bay_tally.csv"_s, 1.0, u"3816"_s},
              {u"european_hake_2008_07_tally.csv"_s, 2.0, u"2408"_s}}) {
            LengthSample sample{m_operation, m_species, 7.25, interval, {}};
            QStringList expected;
            for (const QStringList& record : table(tally)) {
                const auto limits = sample.classes.empty() ? classHolding(record[2].toDouble(), interval).value()
                                                           : nextClass(sample.classes.back().limits.upper, interval);
                sample.classes.push_back({limits, record[3].toDouble()});
                expected.append(u"1|2|"_s + record.join(u'|'));
            }
            storeLengthSample(m_store.db(), sample);
            QCOMPARE(m_store.rows("select * from length_detail order by lower1"), expected);
            QCOMPARE(m_store.rows("select length.*, sum(frequency1) from length, length_detail"),
                     QStringList{u"1|2|7.25|"_s + sum});
            deleteLengthSample(m_store.db(), m_operation, m_species);
        }
    }

    void fish_data() {
        QTest::addColumn<QString>("file");
        for (const QString& name : {u"mountain_whitefish"_s, u"ruffe_1992"_s, u"lake_trout"_s}) {
            QTest::newRow(qPrintable(name)) << u"gonad_import_%1.csv"_s.arg(name);
        }
    }
    void fish() {
        QFETCH(QString, file);
        CsvReader csv(path(file));
        FishReader reader(csv);
        QVERIFY(reader.readHeader());
        GonadSample sample{m_operation, m_species, 0, {}};
        while (const auto fish = reader.next()) {
            sample.fish.push_back(*fish);
        }
        sample.samplingWeight = samplingWeightText(bodyWeightSum(sample.fish)).toDouble();
        StoredPart part;
        storeGonadSample(m_store.db(), sample, part, [] {});

        const QStringList summary = table(u"gonad_summary.csv"_s, file).at(0);
        QCOMPARE(m_store.rows("select count(*), sum(sex = 'Female'), sum(sex = 'Male'), sum(sex = 'None'),"
                              " sum(gsi is null), count(gsi) from gonad_detail"),
                 QStringList{(summary.first(5) + summary.mid(6, 1)).join(u'|')});
        const QStringList stages = m_store.rows("select stage, count(*) from gonad_detail group by stage");
        QCOMPARE(stages.join(u' ').replace(u'|', u':'), summary.at(12));
        QCOMPARE(m_store.rows("select * from gonad"),
                 QStringList{u"1|2|"_s + plainText(twoDecimals(summary.at(13).toDouble() / 1000).toDouble())});

        QStringList everyFish;
        for (const QStringList& fish : table(u"gonad_gsi_every_fish.csv"_s, file)) {
            everyFish.append(fish.join(u'|'));
        }
        const QStringList stored = m_store.rows("select samplingno, sex, stage, bw, gw, gsi from gonad_detail");
        // Two of the files hold no gonad weights, and so no index.
        QVERIFY(everyFish == stored || (everyFish.isEmpty() && summary.at(8) == u"0"));
        deleteGonadSample(m_store.db(), m_operation, m_species);
    }
};

KELVORA_TEST(TestReferenceResults, "reference_results");

}  // namespace kelvora::test_reference_results

#include "test_reference_results.moc"
