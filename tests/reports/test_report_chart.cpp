#include "controls/captioned_grid.h"
#include "reports/catch_summary_screen.h"
#include "reports/gonad_maturity_report_screen.h"
#include "reports/length_frequency_report_screen.h"
#include "reports/report_chart.h"
#include "reports/species_composition_report_screen.h"
#include "species_report.h"
#include "support/test_main.h"

#include <QAbstractBarSeries>
#include <QBarSet>
#include <QChart>
#include <QClipboard>
#include <QGuiApplication>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTest>

namespace kelvora::test_report_chart {

using test::ScreenDriver;
using test::texts;

/// A table as a grid shows it, its rows given as "cell|cell".
std::unique_ptr<QStandardItemModel> table(const QStringList& headers, const QStringList& rows) {
    auto model = std::make_unique<QStandardItemModel>();
    model->setHorizontalHeaderLabels(headers);
    for (const QString& row : rows) {
        QList<QStandardItem*> items;
        for (const QString& cell : row.split(u'|')) {
            items << new QStandardItem(cell);
        }
        model->appendRow(items);
    }
    return model;
}

/// What is drawn, read from the bars themselves: "name: value value …" for each series, from the first group on.
QStringList drawn(const QWidget& screen) {
    const auto* chart = screen.findChild<ReportChart*>();
    QStringList lines;
    for (QAbstractSeries* series : chart->chart()->series()) {
        for (const QBarSet* set : qobject_cast<QAbstractBarSeries*>(series)->barSets()) {
            QStringList values;
            for (int i = 0; i < set->count(); ++i) {
                values << QString::number(set->at(chart->picture().standing ? i : set->count() - 1 - i));
            }
            lines << set->label() + QStringLiteral(": ") + values.join(u' ');
        }
    }
    return lines;
}

QStringList groups(const QWidget& screen) {
    return screen.findChild<ReportChart*>()->picture().groups;
}

/// The pictures beside the tables: they show the shown rows, and can be taken along.
class TestReportChart : public QObject {
    Q_OBJECT

    static void searchYear(const ScreenDriver& ui) {
        ui.choose(QStringLiteral("Year"), QStringLiteral("2004"));
        ui.press(QStringLiteral("Search"));
    }

private Q_SLOTS:
    void catchByGroup() {
        test::TemporaryStore store;
        test::addWorkedYear(store);
        CatchSummaryScreen screen(store.context());
        const ScreenDriver ui(&screen);
        QCOMPARE(drawn(screen), QStringList());
        searchYear(ui);
        ui.press(QStringLiteral("By Month"));
        QCOMPARE(groups(screen), texts("January;March;December"));
        QCOMPARE(drawn(screen), texts("Total Catch(kg.): 100 299.5 0.5"));
        store.execute("delete from fishoperation where optid < 5");
        store.dialogs.expectMessage(QStringLiteral("RESULT"), QStringLiteral("No data in this year!"));
        ui.press(QStringLiteral("Search"));
        QCOMPARE(drawn(screen), QStringList());
    }

    void largestSpecies() {
        test::TemporaryStore store;
        test::addWorkedYear(store);
        for (int species = 10; species < 27; ++species) {
            store.db().execute(Sql("insert into fish(fishno, genus, fishname) values (")
                               << species << ",'S'," << species << ")");
            store.db().execute(Sql("insert into group_composition(optid, spid, groupid, estotal) values (1,")
                               << species << ",1," << species << ")");
        }
        SpeciesCompositionReportScreen screen(store.context());
        const ScreenDriver ui(&screen);
        searchYear(ui);
        ui.press(QStringLiteral("By state"));
        ui.choose(QStringLiteral("By state"), QStringLiteral("Alpha"));
        QCOMPARE(drawn(screen), texts("Composition(Kg.): 26 25 24 23 22 21 20 19 18 17 16 15 14 13 12 21"));
        QCOMPARE(groups(screen).first(), QStringLiteral("S 26"));
        QCOMPARE(groups(screen).last(), QStringLiteral("others"));
        ui.press(QStringLiteral("By Month"));
        QCOMPARE(drawn(screen), QStringList());
    }

    void lengthsInCalendarOrder() {
        test::TemporaryStore store;
        test::addWorkedYear(store);
        store.execute("insert into length values (1,1,5)");
        store.execute("insert into length_detail values (1,1,10,11,10.5,3), (2,1,10,11,10.5,4), (4,1,9.5,10,9.75,2)");
        test::SpeciesReport<LengthFrequencyReportScreen> report(store);
        report.search(QStringLiteral("2004"), QStringLiteral("Rastrelliger kanagurta"));
        QCOMPARE(report.ui().grid(QStringLiteral("Result"))->headers().mid(3), texts("March;January;December"));
        QCOMPARE(groups(report.screen()), texts("9.5;10"));
        QCOMPARE(drawn(report.screen()), texts("January: 0 3;March: 0 4;December: 2 0"));
    }

    void theTableInFront() {
        test::TemporaryStore store;
        test::addWorkedYear(store);
        store.execute("insert into gonad_stage values (10, 'Resting')");
        store.execute(
            "insert into gonad_detail(optid, spid, samplingno, sex, stage) values (2,1,1,'Female',10),"
            " (3,1,1,'Female',2), (2,1,2,'Male',2), (1,1,1,'Female',2), (4,1,1,'Female',2)");
        test::SpeciesReport<GonadMaturityReportScreen> report(store);
        report.search(QStringLiteral("2004"), QStringLiteral("Rastrelliger kanagurta"));
        QCOMPARE(groups(report.screen()), texts("Jan;Mar;Dec"));
        QCOMPARE(drawn(report.screen()), texts("Female: 1 2 1;Male: 0 1 0"));
        auto* tables = report.screen().findChild<QTabWidget*>();
        tables->setCurrentIndex(1);
        QCOMPARE(drawn(report.screen()), texts("2-Maturing: 1 1 1;10-Resting: 0 1 0"));
        QCOMPARE(report.screen().findChild<ReportChart*>()->chart()->axes().size(), 2);
        tables->setCurrentIndex(3);
        QCOMPARE(drawn(report.screen()), QStringList());
    }

    void scales_data() {
        QTest::addColumn<QString>("values");
        QTest::addColumn<QString>("scale");
        QTest::newRow("none") << "0;0"
                              << "0 1 1";
        QTest::newRow("few fish") << "1;2"
                                  << "0 2 1";
        QTest::newRow("fish") << "17;3"
                              << "0 20 5";
        QTest::newRow("weights") << "0.5;0.21"
                                 << "0 0.5 0.1";
        QTest::newRow("tonnes") << "6146636.9;5"
                                << "0 8e+06 2e+06";
        QTest::newRow("wrong sign") << "-7;12"
                                    << "-10 15 5";
    }
    void scales() {
        QFETCH(QString, values);
        QStringList rows;
        for (const QString& value : values.split(u';')) {
            rows << QStringLiteral("x|") + value;
        }
        const PictureScale scale = scaleOf(barsOf(*table(texts("a;b"), rows), 1));
        QTEST(QStringLiteral("%1 %2 %3").arg(scale.from).arg(scale.to).arg(scale.step), "scale");
    }

    void copiedAndSaved() {
        test::TemporaryStore store;
        ReportChart chart(store.dialogs);
        chart.resize(500, 300);
        QVERIFY(!chart.actions().at(0)->isEnabled() && !chart.actions().at(1)->isEnabled());
        ReportPicture picture = barsOf(*table(texts("a;b"), {QStringLiteral("<b>&|3"), QStringLiteral("<b>&|4"),
                                                             QString(10'000, u'x') + u"|1"_qs}),
                                       1);
        picture.title = QStringLiteral("Catch");
        chart.draw(picture);
        chart.show();
        QCoreApplication::processEvents();
        chart.actions().at(0)->trigger();
        const QImage copied = QGuiApplication::clipboard()->image();
        QCOMPARE(copied.size(), chart.viewport()->size() * 2);
        QCOMPARE(copied.pixelColor(1, 1), QColor(Qt::white));
        const auto saved = [&](const char* name) {
            const QString path = store.file(QString::fromLatin1(name));
            store.dialogs.expectSavePicture(path);
            chart.actions().at(1)->trigger();
            return test::contents(path);
        };
        QImage fromFile = QImage::fromData(saved("catch.png"));
        fromFile.setDevicePixelRatio(copied.devicePixelRatio());
        QCOMPARE(fromFile, copied);
        const QByteArray drawing = saved("catch.SVG");
        QVERIFY(drawing.contains("<svg") && drawing.contains(">Catch<"));
        // Markup in a name is shown as it is written, and two groups of one name stay two.
        QCOMPARE(drawing.count("&lt;b&gt;"), 2);
        store.dialogs.expectSavePicture(std::nullopt);
        chart.actions().at(1)->trigger();
        store.dialogs.expectSavePicture(store.file(QStringLiteral("no such folder/catch.png")));
        store.dialogs.expectMessageContaining(QStringLiteral("no such folder"));
        chart.actions().at(1)->trigger();
        QVERIFY(store.dialogs.done());
    }
};

KELVORA_TEST(TestReportChart, "report_chart");

}  // namespace kelvora::test_report_chart

#include "test_report_chart.moc"
