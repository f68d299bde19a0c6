#include "controls/bound_list.h"
#include "data/transaction.h"
#include "report_desk.h"
#include "reports/gonad_maturity_report.h"
#include "reports/species_report_screen.h"
#include "support/test_main.h"

#include <QTabWidget>
#include <QTest>

#include <map>

using namespace Qt::StringLiterals;

namespace kelvora::test_gonad_maturity_report {

using namespace test;

const QString kSexes = u"Month by sex"_s;
const QString kFemale = u"FEMALE"_s;
const QString kMale = u"MALE"_s;
const QString kNone = u"NONE IDENTIFY"_s;

/// The report over two females and a male of March, a female of January.
struct Gonads : Report<GonadMaturityReportScreen> {
    Gonads()
        : Report({"insert into gonad_detail(optid, spid, samplingno, sex, stage) values (2,1,1,'Female',1),"
                  " (3,1,1,'Female',3), (2,1,2,'Male',2), (1,1,1,'Female',1), (5,1,1,'Juvenile',1)"}) {}

    [[nodiscard]] QTabWidget* front() const { return screen->findChild<QTabWidget*>(); }
};

/// The dated fish of a species as the port office would have counted them: an operation a day, species 7, stages 0 to
/// 10 by their numbers.
void addDatedFish(TemporaryStore& store, const QString& species) {
    const std::map<QChar, QString> sexes{{u'f', u"Female"_s}, {u'm', u"Male"_s}, {u'u', u"None"_s}};
    Transaction transaction(store.db());
    store.execute("insert into fish(fishno, genus, fishname) values (7, 'Examined', 'fish')");
    store.execute("delete from gonad_stage");
    for (int stage = 0; stage <= 10; ++stage) {
        store.db().execute(Sql("insert into gonad_stage values (") << stage << ",'s')");
    }
    std::map<QString, int> days;
    int number = 0;
    for (const QStringList& fish : linesOf(u"gonad_dated_fish.csv"_s)) {
        if (fish[0] != species) {
            continue;
        }
        const auto [day, isNew] = days.try_emplace(fish[1], static_cast<int>(days.size()) + 1);
        if (isNew) {
            store.addOperation(day->second, 1, fish[1], 1, 1, QString(), QString());
        }
        store.db().execute(Sql("insert into gonad_detail(optid, spid, samplingno, sex, stage) values (")
                           << day->second << ",7," << ++number << "," << sexes.at(fish[2].at(0).toLower()) << ","
                           << fish[3].toInt() << ")");
    }
    transaction.commit();
}

/// The cells of a table that are not empty: "2010 September|column|fish".
QStringList cells(const ResultSet& table, int year, const QString& prefix = {}) {
    QStringList shown;
    for (const auto& row : table.rows) {
        for (std::size_t column = 1; column < row.size(); ++column) {
            if (row[column].isValid()) {
                shown << u"%1 %2|%3|%4"_s.arg(year).arg(row[0].toString(), prefix + table.columns[column],
                                                        displayText(row[column]));
            }
        }
    }
    return shown;
}

/// The cells of a reference result, of which the second field is the month as "2010-09".
QStringList expectedCells(const QString& result, const QString& file) {
    QStringList expected;
    for (const QStringList& line : linesOf(result)) {
        if (line[0] == file) {
            const QString month = line[1].first(4) + u' ' + monthName(line[1].mid(5).toInt());
            expected << month + u'|' +
                            (line.size() == 5 ? u"%1|%2-s|%3"_s.arg(line[2], line[3], line[4])
                                              : line.mid(2).join(u'|'));
        }
    }
    expected.sort();
    return expected;
}

/// Sexes and maturity stages by month.
class TestGonadMaturityReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tables() {
        Gonads report;
        QCOMPARE(report.screen->windowTitle(), u"Gonad Matuarity Report"_s);
        QVERIFY(!report.canExport());
        report.search(u"2004"_s, kMackerel);
        QCOMPARE(report.headers(kSexes), u"Month/SEX;Female;Male"_s);
        QCOMPARE(report.rows(kSexes), u"January|1|;March|2|1"_s);
        QCOMPARE(report.headers(kFemale), u"Month/Stage;1-Immature;3-Ripe"_s);
        QCOMPARE(report.rows(kFemale), u"March|1|1;January|1|"_s);
        QCOMPARE(report.headers(kMale), u"Month/Stage;2-Maturing"_s);
        QCOMPARE(report.rows(kMale), u"March|1"_s);
        QCOMPARE(report.rows(kNone), u"|"_s);
        report.front()->setCurrentIndex(3);
        QCOMPARE(report.drawn(), QString());
        QCOMPARE(report.exported(), "Gonad Maturity data In 2004\r\nSpecies Rastrelliger kanagurta\r\n" + exportDay() +
                                        "Month/SEX,Female,Male,\r\nJanuary,1,,\r\nMarch,2,1,\r\n");
        report.search(u"2005"_s, kMackerel);
        QCOMPARE(report.headers(kSexes), u"Month/SEX;Juvenile"_s);
        QCOMPARE(report.rows(kFemale), u"|"_s);
        QVERIFY(report.canExport());

        report.store.dialogs.expectMessage(u"RESULT"_s, u"No data in this year"_s);
        report.search(u"2004"_s, u"Upeneus vittatus"_s);
        QCOMPARE(report.rows(kSexes) + u' ' + report.headers(kSexes), u"||| ;;;"_s);
        for (const QString& table : {kFemale, kMale, kNone}) {
            QCOMPARE(report.rows(table), u"|"_s);
        }
        QVERIFY(!report.canExport());
    }

    void textsAreOrderedAsTexts() {
        Gonads report;
        report.store.execute("update fishoperation set optdate = '2004-04-30' where optid = 4");
        report.store.execute("insert into gonad_stage values (10, 'Resting')");
        report.store.execute(
            "insert into gonad_detail(optid, spid, samplingno, sex, stage) values (1,1,2,'Male',10), (4,1,1,'male',1),"
            " (4,1,2,'None',2), (1,1,3,'None',2), (4,1,3,'Juvenile',1), (4,1,4,'Female',2)");
        report.search(u"2004"_s, kMackerel);
        QCOMPARE(report.headers(kSexes), u"Month/SEX;Female;Juvenile;Male;None"_s);
        QCOMPARE(report.rows(kSexes), u"April|1|1|1|1;January|1||1|1;March|2||1|"_s);
        QCOMPARE(report.headers(kMale), u"Month/Stage;1-Immature;10-Resting;2-Maturing"_s);
        QCOMPARE(report.rows(kMale), u"April|1||;January||1|;March|||1"_s);
        QCOMPARE(report.rows(kNone), u"April|1;January|1"_s);
        QCOMPARE(report.rows(kFemale), u"March|1||1;January|1||;April||1|"_s);

        // The pictures go by the calendar and by the numbers of the stages.
        QCOMPARE(report.drawnGroups(), u"Jan;Feb;Mar;Apr;May;Jun;Jul;Aug;Sept;Oct;Nov;Dec"_s);
        const QString rest = u" 0 0 0 0 0 0 0 0"_s;
        QCOMPARE(report.drawn(), u"Female: 1 0 2 1%1;Juvenile: 0 0 0 1%1;Male: 1 0 1 1%1;None: 1 0 0 1%1"_s.arg(rest));
        report.front()->setCurrentIndex(2);
        QCOMPARE(report.drawn(), u"1-Immature: 0 0 0 1%1;2-Maturing: 0 0 1 0%1;10-Resting: 1 0 0 0%1"_s.arg(rest));
        QCOMPARE(report.chart().chart()->axes().size(), 2);
    }

    void stagesAndSexesThatAreMissing() {
        Gonads report;
        report.store.execute("update gonad_detail set stage = 0 where optid = 1");
        report.store.execute("update gonad_detail set sex = null, stage = null where optid = 3");
        report.store.execute("delete from gonad_stage where stageid = 2");
        report.search(u"2004"_s, kMackerel);
        QCOMPARE(report.rows(kSexes), u"January||1|;March||1|1"_s);
        QCOMPARE(report.rows(kFemale), u"March|1"_s);
        QCOMPARE(report.rows(kMale), u"|"_s);
    }

    void realFish_data() {
        QTest::addColumn<QString>("file");
        QTest::newRow("whitefish") << "gonad_import_mountain_whitefish.csv";
        QTest::newRow("ruffe") << "gonad_import_ruffe_1992.csv";
    }
    void realFish() {
        QFETCH(QString, file);
        TemporaryStore store;
        addDatedFish(store, QString::fromLatin1(QTest::currentDataTag()));
        const ResultSet years = store.db().query(gonadYears());
        QStringList sexes;
        QStringList stages;
        for (int i = 0; i < years.rowCount(); ++i) {
            const int year = *years.integer(i, u"gyear");
            const std::vector<ResultSet> tables = gonadTables(store.db(), year, 7);
            sexes << cells(tables[0], year);
            stages << cells(tables[1], year, u"Female|"_s) << cells(tables[2], year, u"Male|"_s)
                   << cells(tables[3], year, u"None|"_s);
        }
        sexes.sort();
        stages.sort();
        QVERIFY(!sexes.isEmpty() && !stages.isEmpty());
        QCOMPARE(sexes, expectedCells(u"gonad_sex_by_month.csv"_s, file));
        QCOMPARE(stages, expectedCells(u"gonad_stage_by_month.csv"_s, file));
    }
};

KELVORA_TEST(TestGonadMaturityReport, "gonad_maturity_report");

}  // namespace kelvora::test_gonad_maturity_report

#include "test_gonad_maturity_report.moc"
