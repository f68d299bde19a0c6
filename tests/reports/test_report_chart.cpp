#include "report_desk.h"
#include "reports/catch_summary_screen.h"
#include "reports/gonad_maturity_report_screen.h"
#include "reports/length_frequency_report_screen.h"
#include "reports/report_chart.h"
#include "reports/species_composition_report_screen.h"
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

using namespace test;

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
QString drawn(const QWidget& screen) {
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
    return lines.join(u';');
}

QString groups(const QWidget& screen) {
    return screen.findChild<ReportChart*>()->picture().groups.join(u';');
}

/// The pictures beside the tables: they show the shown rows, and can be taken along.
class TestReportChart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void catchByGroup() {
        Report<CatchSummaryScreen> report;
        QCOMPARE(drawn(*report.screen), QString());
        report.search(u"2004"_qs);
        report.ui().press(u"By Month"_qs);
        QCOMPARE(groups(*report.screen), u"January;March;December"_qs);
        QCOMPARE(drawn(*report.screen), u"Total Catch(kg.): 100 299.5 0.5"_qs);
        report.store.execute("delete from fishoperation where optid < 5");
        report.store.dialogs.expectMessage(u"RESULT"_qs, u"No data in this year!"_qs);
        report.ui().press(kSearch);
        QCOMPARE(drawn(*report.screen), QString());
    }

    void largestSpecies() {
        const Report<SpeciesCompositionReportScreen> report(
            {"with recursive n(i) as (select 10 union all select i + 1 from n where i < 26)"
             " insert into fish(fishno, genus, fishname) select i, 'S', i from n",
             "insert into group_composition(optid, spid, groupid, estotal)"
             " select 1, fishno, 1, fishno from fish where genus = 'S'"});
        report.search(u"2004"_qs);
        report.ui().press(u"By state"_qs);
        report.ui().choose(u"By state"_qs, u"Alpha"_qs);
        QCOMPARE(drawn(*report.screen), u"Composition(Kg.): 26 25 24 23 22 21 20 19 18 17 16 15 14 13 12 21"_qs);
        QVERIFY(groups(*report.screen).startsWith(u"S 26;S 25;"));
        QVERIFY(groups(*report.screen).endsWith(u";S 12;others"));
        report.ui().press(u"By Month"_qs);
        QCOMPARE(drawn(*report.screen), QString());
    }

    void lengthsInCalendarOrder() {
        const Report<LengthFrequencyReportScreen> report(
            {"insert into length values (1,1,5)",
             "insert into length_detail values (1,1,10,11,10.5,3), (2,1,10,11,10.5,4), (4,1,9.5,10,9.75,2)"});
        report.search(u"2004"_qs, kMackerel);
        QVERIFY(report.headers().endsWith(u";March;January;December"));
        QCOMPARE(groups(*report.screen), u"9.5;10"_qs);
        QCOMPARE(drawn(*report.screen), u"January: 0 3;March: 0 4;December: 2 0"_qs);
    }

    void theTableInFront() {
        const Report<GonadMaturityReportScreen> report(
            {"insert into gonad_stage values (10, 'Resting')",
             "insert into gonad_detail(optid, spid, samplingno, sex, stage) values (2,1,1,'Female',10),"
             " (3,1,1,'Female',2), (2,1,2,'Male',2), (1,1,1,'Female',2), (4,1,1,'Female',2)"});
        report.search(u"2004"_qs, kMackerel);
        QCOMPARE(groups(*report.screen), u"Jan;Mar;Dec"_qs);
        QCOMPARE(drawn(*report.screen), u"Female: 1 2 1;Male: 0 1 0"_qs);
        auto* tables = report.screen->findChild<QTabWidget*>();
        tables->setCurrentIndex(1);
        QCOMPARE(drawn(*report.screen), u"2-Maturing: 1 1 1;10-Resting: 0 1 0"_qs);
        QCOMPARE(report.screen->findChild<ReportChart*>()->chart()->axes().size(), 2);
        tables->setCurrentIndex(3);
        QCOMPARE(drawn(*report.screen), QString());
    }

    void scales() {
        const std::vector<std::pair<QStringList, QString>> scales = {
            {{u"x|0"_qs, u"x|0"_qs}, u"0 1 1"_qs},      {{u"x|1"_qs, u"x|2"_qs}, u"0 2 1"_qs},
            {{u"x|17"_qs, u"x|3"_qs}, u"0 20 5"_qs},    {{u"x|0.5"_qs, u"x|0.21"_qs}, u"0 0.5 0.1"_qs},
            {{u"x|6146636.9"_qs}, u"0 8e+06 2e+06"_qs}, {{u"x|-7"_qs, u"x|12"_qs}, u"-10 15 5"_qs},
        };
        for (const auto& [rows, scale] : scales) {
            const PictureScale found = scaleOf(barsOf(*table(texts("a;b"), rows), 1));
            QCOMPARE(u"%1 %2 %3"_qs.arg(found.from).arg(found.to).arg(found.step), scale);
        }
    }

    void copiedAndSaved() {
        TemporaryStore store;
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
            return contents(path);
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
