#include "controls/bound_list.h"
#include "report_desk.h"
#include "reports/species_composition_report_screen.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_species_composition_report {

using namespace test;

const QString kTotal = u"Total catch of this year(kg.)"_s;
const QString kByState = u"By state"_s;
const QString kByVessel = u"By Fishing Vessel"_s;
const QString kByMonth = u"By Month"_s;
const QString kByArea = u"By Fishing Area"_s;

/// The report over 200 kg of 2004 and 10 kg of 2005.
struct Composition : Report<SpeciesCompositionReportScreen> {
    Composition()
        : Report({"insert into group_composition(optid, spid, groupid, estotal) values (1,1,1,30), (1,2,1,30),"
                  " (3,1,1,15), (3,1,2,5), (2,1,1,100), (4,3,1,20), (5,2,1,10)"}) {}

    void show(const QString& option, const QString& choice) const {
        ui().press(option);
        ui().choose(option, choice);
    }
    [[nodiscard]] bool says(const QString& message) const {
        const auto labels = screen->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) { return label->text() == message; });
    }
    [[nodiscard]] QString choices(const QString& option) const {
        QStringList choices;
        for (int i = 0; i < ui().list(option)->count(); ++i) {
            choices.append(ui().list(option)->itemText(i));
        }
        return choices.join(u';');
    }
};

/// The species of a part of a year, as a sampler asks for them.
class TestSpeciesCompositionReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensEmpty() {
        const Composition report;
        QCOMPARE(report.screen->windowTitle(), u"Species Composition Report"_s);
        QCOMPARE(report.headers(), u"Species;Composition(Kg.);%Composition"_s);
        QVERIFY(!report.ui().enabled(kByState) && !report.canExport());
        report.ui().press(kSearch);
        QCOMPARE(report.ui().text(kTotal), QString());
        report.search(u"2004"_s);
        QCOMPARE(report.ui().text(kTotal), u"200.00"_s);
        QVERIFY(report.says(u"click option button to see data"_s));
        QVERIFY(report.ui().button(kByState)->isEnabled() && !report.canExport());
    }

    void subsets_data() {
        QTest::addColumn<QString>("choices");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("rows");
        const auto row = [](const char* option, const char* choices, const char* chosen, const char* rows) {
            QTest::newRow(option) << QString::fromLatin1(choices) << QString::fromLatin1(chosen)
                                  << QString::fromLatin1(rows);
        };
        const char* alpha = "Rastrelliger kanagurta|50.00|25.00;Upeneus vittatus|30.00|15.00";
        row("By state", "Alpha;Beta", "Alpha", alpha);
        row("By sampling Port", "Abo;Bex;Cay", "Bex", "Rastrelliger kanagurta|20.00|10.00");
        row("By Fishing Vessel", "Blue Fin;Sea Star", "Sea Star", alpha);
        row("By Fishing Method", "Gill net[Drift];Trawl[Otter board];Trawl[Pair]", "Trawl[Otter board]",
            "Rastrelliger kanagurta|30.00|15.00;Upeneus vittatus|30.00|15.00");
        row("By Fishing Gear", "Gill net;Trawl", "Trawl", alpha);
        row("By Month", "January;December;March", "March", "Rastrelliger kanagurta|120.00|60.00");
        row("By Fishing Area", "A1;A2;A9", "A1", alpha);
    }
    void subsets() {
        QFETCH(QString, chosen);
        QFETCH(QString, rows);
        const QString option = QString::fromLatin1(QTest::currentDataTag());
        Composition report;
        report.search(u"2004"_s);
        report.ui().press(option);
        QTEST(report.choices(option), "choices");
        report.ui().choose(option, chosen);
        QCOMPARE(report.rows(), rows);
        QCOMPARE(report.drawnGroups(), column(rows, 0).join(u';'));
        const QString weights = column(rows, 1).join(u' ').remove(u".00"_s);
        QCOMPARE(report.drawn(), u"Composition(Kg.): "_s + weights);
        const QString file = u"%1:%2\r\nSpecies,Composition(Kg.),%Composition,\r\n%3,\r\n"_s;
        QCOMPARE(report.exported(),
                 "Species composition data In 2004\r\n" + exportDay() +
                     file.arg(option, chosen, rows.replace(u'|', u',').replace(u";"_s, u",\r\n"_s)).toLocal8Bit());
        // Another option empties this one.
        const QString other = option == kByState ? kByMonth : kByState;
        report.ui().press(other);
        QCOMPARE(report.ui().text(option) + report.choices(option), QString());
        QCOMPARE(report.rows() + report.drawn(), u"||"_s);
        QVERIFY(!report.canExport());
    }

    void theLargestSpeciesAreDrawn() {
        Composition report;
        Connection& db = report.store.db();
        db.execute(
            Sql("with recursive n(i) as (select 10 union all select i + 1 from n where i < 26)"
                " insert into fish(fishno, genus, fishname) select i, 'S', i from n"));
        db.execute(Sql("delete from group_composition where optid <> 5"));
        db.execute(
            Sql("insert into group_composition(optid, spid, groupid, estotal)"
                " select 1, fishno, 1, fishno from fish where genus = 'S'"));
        report.search(u"2004"_s);
        report.show(kByState, u"Alpha"_s);
        QCOMPARE(report.drawn(), u"Composition(Kg.): 26 25 24 23 22 21 20 19 18 17 16 15 14 13 12 21"_s);
        QVERIFY(report.drawnGroups().startsWith(u"S 26;S 25;"));
        QVERIFY(report.drawnGroups().endsWith(u";S 12;others"));
    }

    void anotherYearWithoutASearchKeepsTheTotal() {
        const Composition report;
        report.search(u"2004"_s);
        report.ui().choose(kYear, u"2005"_s);
        report.show(kByMonth, u"January"_s);
        QCOMPARE(report.rows(), u"Upeneus vittatus|10.00|5.00"_s);
        report.ui().type(kYear, u"19"_s);
        report.ui().press(kByState);
        QVERIFY(report.ui().button(kByMonth)->isChecked());
    }

    void whatHasNoSpecies() {
        Composition report;
        report.store.execute("delete from vessel");
        report.search(u"2004"_s);
        report.ui().press(kByVessel);
        QCOMPARE(report.ui().text(kByVessel), u"No data"_s);
        QVERIFY(!report.ui().list(kByVessel)->isEnabled());
        report.show(kByArea, u"A1"_s);
        report.store.dialogs.expectMessage(u"No data"_s);
        report.ui().choose(kByArea, u"A9"_s);
        QCOMPARE(report.rows(), u"||"_s);
        QVERIFY(!report.canExport());
    }

    void aYearThatLostItsSpecies() {
        Composition report;
        report.search(u"2004"_s);
        report.show(kByState, u"Alpha"_s);
        report.store.execute("delete from group_composition where optid = 5");
        report.search(u"2005"_s);
        QVERIFY(report.says(u"No data in 2005"_s));
        QCOMPARE(report.rows(), u"||"_s);
        QCOMPARE(report.ui().text(kByState) + report.ui().text(kTotal), QString());
        QVERIFY(!report.ui().button(kByState)->isChecked() && !report.ui().button(kByState)->isEnabled());
        QVERIFY(!report.ui().list(kByState)->isEnabled() && !report.canExport());
        report.search(u"2004"_s);
        report.show(kByState, u"Beta"_s);
        QCOMPARE(report.rows(), u"Rastrelliger kanagurta|100.00|50.00"_s);
    }

    void weightsAndNamesThatAreMissing() {
        Composition report;
        report.store.execute("update group_composition set estotal = 0 where optid = 1");
        report.store.execute("update group_composition set estotal = null where optid <> 1");
        report.store.execute("update fish set genus = null, fishname = null where fishno = 2");
        report.store.execute("update vessel set vesselname = 'O''Hara & Son' where vesselname = 'Sea Star'");
        report.store.execute("update fishoperation set vesselid = 'o''hara & son' where vesselid = 'Sea Star'");
        report.search(u"2004"_s);
        QCOMPARE(report.ui().text(kTotal), u"0.00"_s);
        report.show(kByVessel, u"O'Hara & Son"_s);
        QCOMPARE(report.rows(), u" |0.00|;Rastrelliger kanagurta|0.00|"_s);
    }
};

KELVORA_TEST(TestSpeciesCompositionReport, "species_composition_report");

}  // namespace kelvora::test_species_composition_report

#include "test_species_composition_report.moc"
