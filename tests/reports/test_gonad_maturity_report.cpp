#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "reports/gonad_maturity_report.h"
#include "reports/gonad_maturity_report_screen.h"
#include "species_report.h"
#include "support/test_main.h"

#include <QTest>

#include <map>

namespace kelvora::test_gonad_maturity_report {

using test::texts;
using Report = test::SpeciesReport<GonadMaturityReportScreen>;

const QString kSexes = QStringLiteral("Month by sex");
const QString kFemale = QStringLiteral("FEMALE");
const QString kMale = QStringLiteral("MALE");
const QString kNone = QStringLiteral("NONE IDENTIFY");
const QString kMackerel = QStringLiteral("Rastrelliger kanagurta");

/// Two females and a male in March, a female in January.
void addFish(test::TemporaryStore& store) {
    test::addWorkedYear(store);
    store.execute(
        "insert into gonad_detail(optid, spid, samplingno, sex, stage) values (2,1,1,'Female',1), (3,1,1,'Female',3),"
        " (2,1,2,'Male',2), (1,1,1,'Female',1), (5,1,1,'Juvenile',1)");
}

/// The dated fish of a species as the port office would have counted them: an operation a day, species 7, stages 0 to
/// 10 by their numbers.
void addDatedFish(test::TemporaryStore& store, const QString& species) {
    const std::map<QChar, QString> sexes{
        {u'f', QStringLiteral("Female")}, {u'm', QStringLiteral("Male")}, {u'u', QStringLiteral("None")}};
    Transaction transaction(store.db());
    store.execute("insert into fish(fishno, genus, fishname) values (7, 'Examined', 'fish')");
    store.execute("delete from gonad_stage");
    for (int stage = 0; stage <= 10; ++stage) {
        store.db().execute(Sql("insert into gonad_stage values (") << stage << ",'s')");
    }
    std::map<QString, int> days;
    int number = 0;
    for (const QStringList& fish : test::linesOf("gonad_dated_fish.csv")) {
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

/// The cells of a table that are not empty: "2010-09|column|fish".
QStringList cells(const ResultSet& table, int year, const QString& prefix = {}) {
    QStringList shown;
    for (const auto& row : table.rows) {
        int month = 1;
        while (monthName(month) != row[0].toString() && month < 12) {
            ++month;
        }
        for (std::size_t column = 1; column < row.size(); ++column) {
            if (row[column].isValid()) {
                shown << QStringLiteral("%1-%2|%3|%4")
                             .arg(year)
                             .arg(month, 2, 10, QChar(u'0'))
                             .arg(prefix + table.columns[column], displayText(row[column]));
            }
        }
    }
    return shown;
}

/// Sexes and maturity stages by month.
class TestGonadMaturityReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tables() {
        test::TemporaryStore store;
        addFish(store);
        Report report(store);
        QCOMPARE(report.screen().windowTitle(), QStringLiteral("Gonad Matuarity Report"));
        QVERIFY(!report.canExport());
        report.search(QStringLiteral("2004"), kMackerel);
        QCOMPARE(report.ui().grid(kSexes)->headers(), texts("Month/SEX;Female;Male"));
        QCOMPARE(report.ui().rows(kSexes), texts("January|1|;March|2|1"));
        QCOMPARE(report.ui().grid(kFemale)->headers(), texts("Month/Stage;1-Immature;3-Ripe"));
        QCOMPARE(report.ui().rows(kFemale), texts("March|1|1;January|1|"));
        QCOMPARE(report.ui().grid(kMale)->headers(), texts("Month/Stage;2-Maturing"));
        QCOMPARE(report.ui().rows(kMale), texts("March|1"));
        QCOMPARE(report.ui().rows(kNone), texts("|"));
        QCOMPARE(report.exported(), "Gonad Maturity data In 2004\r\nSpecies Rastrelliger kanagurta\r\n" +
                                        test::exportDay() + "Month/SEX,Female,Male,\r\nJanuary,1,,\r\nMarch,2,1,\r\n");
        report.search(QStringLiteral("2005"), kMackerel);
        QCOMPARE(report.ui().grid(kSexes)->headers(), texts("Month/SEX;Juvenile"));
        QCOMPARE(report.ui().rows(kFemale), texts("|"));
        QVERIFY(report.canExport());
    }

    void textsAreOrderedAsTexts() {
        test::TemporaryStore store;
        addFish(store);
        store.execute("update fishoperation set optdate = '2004-04-30' where optid = 4");
        store.execute("insert into gonad_stage values (10, 'Resting')");
        store.execute(
            "insert into gonad_detail(optid, spid, samplingno, sex, stage) values (1,1,2,'Male',10), (4,1,1,'Male',1),"
            " (4,1,2,'None',2), (1,1,3,'None',2), (4,1,3,'Juvenile',1), (4,1,4,'Female',2)");
        const auto first = [](const ResultSet& table) {
            QStringList months;
            for (const auto& row : table.rows) {
                months << row[0].toString();
            }
            return months;
        };
        const ResultSet sexes = sexesByMonth(store.db(), 2004, 1);
        QCOMPARE(QStringList(sexes.columns.begin() + 1, sexes.columns.end()), texts("Female;Juvenile;Male;None"));
        QCOMPARE(first(sexes), texts("April;January;March"));
        const ResultSet males = stagesByMonth(store.db(), 2004, 1, Sex::Male);
        QCOMPARE(QStringList(males.columns.begin() + 1, males.columns.end()),
                 texts("1-Immature;10-Resting;2-Maturing"));
        QCOMPARE(first(males), texts("April;January;March"));
        QCOMPARE(first(stagesByMonth(store.db(), 2004, 1, Sex::None)), texts("April;January"));
        QCOMPARE(first(stagesByMonth(store.db(), 2004, 1, Sex::Female)), texts("March;January;April"));
    }

    void stagesAndSexesThatAreMissing() {
        test::TemporaryStore store;
        addFish(store);
        store.execute("update gonad_detail set stage = 0 where optid = 1");
        store.execute("update gonad_detail set sex = null, stage = null where optid = 3");
        store.execute("delete from gonad_stage where stageid = 2");
        Report report(store);
        report.search(QStringLiteral("2004"), kMackerel);
        QCOMPARE(report.ui().rows(kSexes), texts("January||1|;March||1|1"));
        QCOMPARE(report.ui().rows(kFemale), texts("March|1"));
        QCOMPARE(report.ui().rows(kMale), texts("|"));
    }

    void aSearchThatFindsNothing() {
        test::TemporaryStore store;
        addFish(store);
        Report report(store);
        report.search(QStringLiteral("2004"), kMackerel);
        store.dialogs.expectMessage(QStringLiteral("RESULT"), QStringLiteral("No data in this year"));
        report.search(QStringLiteral("2004"), QStringLiteral("Upeneus vittatus"));
        QCOMPARE(report.ui().rows(kSexes), texts("|||"));
        QCOMPARE(report.ui().grid(kSexes)->headers(), texts(";;;"));
        for (const QString& table : {kFemale, kMale, kNone}) {
            QCOMPARE(report.ui().rows(table), texts("|"));
        }
        QVERIFY(!report.canExport());
    }

    void realFish_data() {
        QTest::addColumn<QString>("file");
        QTest::newRow("whitefish") << "gonad_import_mountain_whitefish.csv";
        QTest::newRow("ruffe") << "gonad_import_ruffe_1992.csv";
    }
    void realFish() {
        QFETCH(QString, file);
        test::TemporaryStore store;
        addDatedFish(store, QString::fromLatin1(QTest::currentDataTag()));
        const ResultSet years = store.db().query(gonadYears());
        QStringList sexes;
        QStringList stages;
        for (int i = 0; i < years.rowCount(); ++i) {
            const int year = *years.integer(i, u"gyear");
            sexes << cells(sexesByMonth(store.db(), year, 7), year);
            stages << cells(stagesByMonth(store.db(), year, 7, Sex::Female), year, QStringLiteral("Female|"))
                   << cells(stagesByMonth(store.db(), year, 7, Sex::Male), year, QStringLiteral("Male|"))
                   << cells(stagesByMonth(store.db(), year, 7, Sex::None), year, QStringLiteral("None|"));
        }
        QStringList expectedSexes;
        for (const QStringList& line : test::linesOf("gonad_sex_by_month.csv")) {
            if (line[0] == file) {
                expectedSexes << line.mid(1).join(u'|');
            }
        }
        QStringList expectedStages;
        for (const QStringList& line : test::linesOf("gonad_stage_by_month.csv")) {
            if (line[0] == file) {
                expectedStages << QStringLiteral("%1|%2|%3-s|%4").arg(line[1], line[2], line[3], line[4]);
            }
        }
        for (QStringList* list : {&sexes, &stages, &expectedSexes, &expectedStages}) {
            list->sort();
        }
        QCOMPARE(sexes, expectedSexes);
        QCOMPARE(stages, expectedStages);
    }
};

KELVORA_TEST(TestGonadMaturityReport, "gonad_maturity_report");

}  // namespace kelvora::test_gonad_maturity_report

#include "test_gonad_maturity_report.moc"
