#include "data/dates.h"
#include "report_desk.h"
#include "reports/report_chart.h"
#include "support/test_main.h"

#include <QBarSet>
#include <QClipboard>
#include <QGuiApplication>
#include <QStandardItemModel>
#include <QTest>

using namespace Qt::StringLiterals;

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

/// The pictures beside the tables, as they are scaled and taken along.
class TestReportChart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void scales() {
        const std::vector<std::pair<QStringList, QString>> scales = {
            {{u"x|0"_s, u"x|0"_s}, u"0 1 1"_s},       {{u"x|1"_s, u"x|2"_s}, u"0 2 1"_s},
            {{u"x|17"_s, u"x|3"_s}, u"0 20 5"_s},     {{u"x|0.5"_s, u"x|0.21"_s}, u"0 0.5 0.1"_s},
            {{u"x|6146636.9"_s}, u"0 8e+06 2e+06"_s}, {{u"x|-7"_s, u"x|12"_s}, u"-10 15 5"_s},
        };
        for (const auto& [rows, scale] : scales) {
            const PictureScale found = scaleOf(barsOf(*table(texts("a;b"), rows), 1));
            QCOMPARE(u"%1 %2 %3"_s.arg(found.from).arg(found.to).arg(found.step), scale);
        }
    }

    /// A month, a stage and a sex keep their colours whichever others are drawn beside them.
    void colours() {
        TemporaryStore store;
        ReportChart chart(store.context());
        const auto coloursOf = [&](const ReportPicture& picture) {
            chart.draw(picture);
            QList<QColor> colours;
            for (QBarSet* set : qobject_cast<QAbstractBarSeries*>(chart.chart()->series().first())->barSets()) {
                colours << set->color();
            }
            return colours;
        };
        QStringList months{u"Lower"_s, u"Upper"_s, u"Mid Length"_s};
        for (int month = 1; month <= 12; ++month) {
            months << monthName(month);
        }
        const QStringList oneClass{u"10|11|10.5|1|1|1|1|1|1|1|1|1|1|1|1"_s};
        const QList<QColor> ofMonths = coloursOf(histogramOf(*table(months, oneClass)));
        for (qsizetype month = 0; month < 12; ++month) {
            QVERIFY(std::abs(qGray(ofMonths[month].rgb()) - qGray(ofMonths[(month + 1) % 12].rgb())) > 40);
        }
        QCOMPARE(coloursOf(histogramOf(*table(months.first(3) << months[7], {u"10|11|10.5|1"_s}))).first(),
                 ofMonths[4]);
        const QStringList one{u"May|1|1"_s};
        QCOMPARE(coloursOf(monthsOf(*table(texts("Month;1-Immature;3-Ripe"), one)))[1],
                 coloursOf(monthsOf(*table(texts("Month;3-Ripe;5-Spent"), one)))[0]);
        QCOMPARE(coloursOf(monthsOf(*table(texts("Month;Female;Male"), one)))[1],
                 coloursOf(monthsOf(*table(texts("Month;Male;None"), one)))[0]);
    }

    void copiedAndSaved() {
        TemporaryStore store;
        ReportChart chart(store.context());
        chart.resize(500, 300);
        QVERIFY(!chart.actions().at(0)->isEnabled() && !chart.actions().at(1)->isEnabled());
        ReportPicture picture =
            barsOf(*table(texts("a;b"), {u"<b>&|3"_s, u"<b>&|4"_s, QString(10'000, u'x') + u"|1"_s}), 1);
        picture.title = u"Catch"_s;
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
        store.dialogs.expectSavePicture(store.file(u"no such folder/catch.png"_s));
        store.dialogs.expectMessageContaining(u"no such folder"_s);
        chart.actions().at(1)->trigger();
        QVERIFY(store.dialogs.done());
    }
};

KELVORA_TEST(TestReportChart, "report_chart");

}  // namespace kelvora::test_report_chart

#include "test_report_chart.moc"
