#include "demo/demo_year.h"
#include "reports/catch_summary.h"
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
                                      " group by 1 having ifnull(abs(sum(c.estotal) / o.estotal - 1), 1) > 0.01")),
                 QStringList());
        // Every fish of the sources is counted once.
        QCOMPARE(test::rows(year, Sql("select genus, sum(frequency1), (select count(*) from gonad_detail where spid ="
                                      " fishno) from length_detail join fish on fishno = spid"
                                      " where genus in ('Merluccius', 'Prosopium', 'Upeneus') group by 1")),
                 (QStringList{u"Merluccius|6900|0"_s, u"Prosopium|221|221"_s, u"Upeneus|3816|0"_s}));
        for (const CatchGrouping& grouping : catchGroupings()) {
            QVERIFY2(catchByGroup(year, grouping, 2017, 1).rowCount() > 1, qPrintable(grouping.option));
        }
    }
};

KELVORA_TEST(TestDemoYear, "demo_year");

}  // namespace kelvora::test_demo_year

#include "test_demo_year.moc"
