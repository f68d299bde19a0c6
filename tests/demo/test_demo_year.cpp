#include "demo/demo_year.h"
#include "reports/catch_summary.h"
#include "reports/species_composition_report.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_demo_year {

class TestDemoYear : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void comesOutTheSameEveryTime() {
        const test::TemporaryStore folder;
        QList<QByteArray> years;
        for (const QString& name : {u"first"_s, u"again"_s}) {
            makeDemoYear(folder.file(name), u"" KELVORA_SOURCE_FOLDER ""_s);
            QFile file(folder.file(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            years.append(file.readAll());
        }
        QVERIFY(years[0] == years[1]);
        Connection year(folder.file(u"again"_s));
        holdsItsSources(year);
        hasRowsForEveryReport(year);
    }

private:
    static void holdsItsSources(Connection& year) {
        // An operation is shown once, if its port, area, vessel, gear and method are registered once.
        QCOMPARE(test::rows(year, Sql("select count(*) = count(distinct optid) and count(*) > 100 and count(*) ="
                                      " (select count(*) from fishoperation) from fishoperation o"
                                      " join samplingport p on p.samplingid = portid join state using (stateid)"
                                      " join fishing_area on aname = areaid join vessel v on vesselname = o.vesselid"
                                      " join Fishing_method m on methodid = fishing_method"
                                      " join Fishing_gear g on g.gearid = m.gearid")),
                 QStringList{u"1"_s});
        // Raising rounds its factor, which costs at most a hundredth of a group.
        QCOMPARE(test::rows(year, Sql("select o.optid from fishoperation o left join group_composition c using (optid)"
                                      " group by o.optid"
                                      " having ifnull(abs(sum(c.estotal) - o.estotal), 1e9) > 0.01 * o.estotal")),
                 QStringList());
        // Every fish of the sources is counted once.
        QCOMPARE(test::rows(year, Sql("select genus, sum(frequency1) from length_detail join fish on fishno = spid"
                                      " where genus in ('Merluccius', 'Prosopium', 'Upeneus') group by genus")),
                 (QStringList{u"Merluccius|%1"_s.arg(677 + 1378 + 2408 + 2127 + 310), u"Prosopium|221"_s,
                              u"Upeneus|3816"_s}));
        QCOMPARE(
            test::rows(year, Sql("select genus, count(*) from gonad_detail join fish on fishno = spid group by 1")),
            QStringList{u"Prosopium|221"_s});
    }

    static void hasRowsForEveryReport(Connection& year) {
        for (const CatchGrouping& grouping : catchGroupings()) {
            QVERIFY2(catchByGroup(year, grouping, 2017, 1).rowCount() > 1, qPrintable(grouping.option));
        }
        for (const CompositionSubset& subset : compositionSubsets()) {
            QVERIFY2(year.query(compositionChoices(subset, 2017)).rowCount() > 1, qPrintable(subset.option));
        }
    }
};

KELVORA_TEST(TestDemoYear, "demo_year");

}  // namespace kelvora::test_demo_year

#include "test_demo_year.moc"
