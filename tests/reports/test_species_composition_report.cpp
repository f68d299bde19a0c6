#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "reports/species_composition_report_screen.h"
#include "species_report.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

#include <algorithm>

namespace kelvora::test_species_composition_report {

using test::ScreenDriver;
using test::texts;

const QString kYear = QStringLiteral("Year");
const QString kTotal = QStringLiteral("Total catch of this year(kg.)");
const QString kGrid = QStringLiteral("Result");
const QString kSearch = QStringLiteral("Search");
const QString kExport = QStringLiteral("EXPORT");
const QString kByState = QStringLiteral("By state");
const QString kByVessel = QStringLiteral("By Fishing Vessel");
const QString kByMonth = QStringLiteral("By Month");
const QString kByArea = QStringLiteral("By Fishing Area");

/// The screen over 200 kg of 2004 and 10 kg of 2005.
struct Opened {
    Opened() {
        test::addWorkedYear(store);
        store.execute(
            "insert into group_composition(optid, spid, groupid, estotal) values (1,1,1,30), (1,2,1,30), (3,1,1,15),"
            " (3,1,2,5), (2,1,1,100), (4,3,1,20), (5,2,1,10)");
        screen = std::make_unique<SpeciesCompositionReportScreen>(store.context());
    }
    void search(const QString& year) const {
        ui().choose(kYear, year);
        ui().press(kSearch);
    }
    void show(const QString& option, const QString& choice) const {
        ui().press(option);
        ui().choose(option, choice);
    }
    [[nodiscard]] ScreenDriver ui() const { return ScreenDriver(screen.get()); }
    [[nodiscard]] bool says(const QString& message) const {
        const auto labels = screen->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) { return label->text() == message; });
    }
    [[nodiscard]] QStringList choices(const QString& option) const {
        QStringList texts;
        for (int i = 0; i < ui().list(option)->count(); ++i) {
            texts.append(ui().list(option)->itemText(i));
        }
        return texts;
    }
    [[nodiscard]] QByteArray exported() {
        const QString path = store.file(QStringLiteral("species.csv"));
        store.dialogs.expectSaveFile(path);
        ui().press(kExport);
        return test::contents(path);
    }

    test::TemporaryStore store;
    std::unique_ptr<SpeciesCompositionReportScreen> screen;
};

/// The species of a part of a year, as a sampler asks for them.
class TestSpeciesCompositionReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensEmpty() {
        const Opened open;
        QCOMPARE(open.screen->windowTitle(), QStringLiteral("Species Composition Report"));
        QCOMPARE(open.ui().grid(kGrid)->headers(), texts("Species;Composition(Kg.);%Composition"));
        QVERIFY(!open.ui().enabled(kByState) && !open.ui().enabled(kExport));
        open.ui().press(kSearch);
        QCOMPARE(open.ui().text(kTotal), QString());
        open.search(QStringLiteral("2004"));
        QCOMPARE(open.ui().text(kTotal), QStringLiteral("200.00"));
        QVERIFY(open.says(QStringLiteral("click option button to see data")));
        QVERIFY(open.ui().button(kByState)->isEnabled() && !open.ui().enabled(kExport));
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
        row("By Fishing Vessel", "Sea Star;Blue Fin", "Sea Star", alpha);
        row("By Fishing Method", "Gill net[Drift];Trawl[Otter board];Trawl[Pair]", "Trawl[Otter board]",
            "Rastrelliger kanagurta|30.00|15.00;Upeneus vittatus|30.00|15.00");
        row("By Fishing Gear", "Gill net;Trawl", "Trawl", alpha);
        row("By Month", "January;December;March", "March", "Rastrelliger kanagurta|120.00|60.00");
        row("By Fishing Area", "A1;A2;A9", "A1", alpha);
    }
    void subsets() {
        QFETCH(QString, choices);
        QFETCH(QString, chosen);
        QFETCH(QString, rows);
        Opened open;
        open.search(QStringLiteral("2004"));
        const QString option = QString::fromLatin1(QTest::currentDataTag());
        open.ui().press(option);
        QCOMPARE(open.choices(option), choices.split(u';'));
        open.ui().choose(option, chosen);
        QCOMPARE(open.ui().rows(kGrid), rows.split(u';'));

        QByteArray file = "Species composition data In 2004\r\n" + test::exportDay() +
                          QStringLiteral("%1:%2\r\n").arg(option, chosen).toLocal8Bit() +
                          "Species,Composition(Kg.),%Composition,\r\n";
        for (QString& line : rows.split(u';')) {
            file += line.replace(u'|', u',').toLocal8Bit() + ",\r\n";
        }
        QCOMPARE(open.exported(), file);
    }

    void anotherOptionEmptiesTheOneBefore() {
        const Opened open;
        open.search(QStringLiteral("2004"));
        open.show(kByState, QStringLiteral("Alpha"));
        QVERIFY(open.ui().enabled(kExport));
        open.ui().press(kByMonth);
        QCOMPARE(open.ui().text(kByState), QString());
        QCOMPARE(open.choices(kByState), QStringList());
        QCOMPARE(open.ui().rows(kGrid), texts("||"));
        QVERIFY(!open.ui().enabled(kExport));
    }

    void anotherYearWithoutASearchKeepsTheTotal() {
        const Opened open;
        open.search(QStringLiteral("2004"));
        open.ui().choose(kYear, QStringLiteral("2005"));
        open.show(kByMonth, QStringLiteral("January"));
        QCOMPARE(open.ui().rows(kGrid), texts("Upeneus vittatus|10.00|5.00"));
        open.ui().type(kYear, QStringLiteral("19"));
        open.ui().press(kByState);
        QVERIFY(open.ui().button(kByMonth)->isChecked());
    }

    void whatHasNoSpecies() {
        Opened open;
        open.store.execute("delete from vessel");
        open.search(QStringLiteral("2004"));
        open.ui().press(kByVessel);
        QCOMPARE(open.ui().text(kByVessel), QStringLiteral("No data"));
        QVERIFY(!open.ui().list(kByVessel)->isEnabled());
        open.show(kByArea, QStringLiteral("A1"));
        open.store.dialogs.expectMessage(QStringLiteral("No data"));
        open.ui().choose(kByArea, QStringLiteral("A9"));
        QCOMPARE(open.ui().rows(kGrid), texts("||"));
        QVERIFY(!open.ui().enabled(kExport));
    }

    void aYearThatLostItsSpecies() {
        Opened open;
        open.search(QStringLiteral("2004"));
        open.show(kByState, QStringLiteral("Alpha"));
        open.store.execute("delete from group_composition where optid = 5");
        open.search(QStringLiteral("2005"));
        QVERIFY(open.says(QStringLiteral("No data in 2005")));
        QCOMPARE(open.ui().rows(kGrid), texts("||"));
        QCOMPARE(open.ui().text(kByState) + open.ui().text(kTotal), QString());
        QVERIFY(!open.ui().button(kByState)->isChecked() && !open.ui().button(kByState)->isEnabled());
        QVERIFY(!open.ui().list(kByState)->isEnabled() && !open.ui().enabled(kExport));
        open.search(QStringLiteral("2004"));
        open.show(kByState, QStringLiteral("Beta"));
        QCOMPARE(open.ui().rows(kGrid), texts("Rastrelliger kanagurta|100.00|50.00"));
    }

    void weightsAndNamesThatAreMissing() {
        Opened open;
        open.store.execute("update group_composition set estotal = 0 where optid = 1");
        open.store.execute("update group_composition set estotal = null where optid <> 1");
        open.store.execute("update fish set genus = null, fishname = null where fishno = 2");
        open.store.execute("update vessel set vesselname = 'O''Hara & Son' where vesselname = 'Sea Star'");
        open.store.execute("update fishoperation set vesselid = 'o''hara & son' where vesselid = 'Sea Star'");
        open.search(QStringLiteral("2004"));
        QCOMPARE(open.ui().text(kTotal), QStringLiteral("0.00"));
        open.show(kByVessel, QStringLiteral("O'Hara & Son"));
        QCOMPARE(open.ui().rows(kGrid), texts(" |0.00|;Rastrelliger kanagurta|0.00|"));
    }
};

KELVORA_TEST(TestSpeciesCompositionReport, "species_composition_report");

}  // namespace kelvora::test_species_composition_report

#include "test_species_composition_report.moc"
