#include "reports/report_chart.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_report_chart {

/// A picture as it is taken along: on white paper, whatever the colours of the desktop.
class TestReportChart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copiedAndSaved() {
        test::TemporaryStore store;
        ReportChart chart(store.context());
        chart.resize(500, 300);
        QVERIFY(!chart.actions()[0]->isEnabled() && !chart.actions()[1]->isEnabled());
        chart.draw({u"Catch"_s, {}, {}, {u"<b>&"_s, u"<b>&"_s, QString(10'000, u'x')}, {{u"kg"_s, {3, 4, 1}}}});
        chart.setPalette(QPalette(Qt::black));
        chart.show();
        QCoreApplication::processEvents();
        const QImage before = chart.grab().toImage();
        QVERIFY(before.pixelColor(3, 3) != QColor(Qt::white));
        chart.actions()[0]->trigger();
        const QImage copied = QGuiApplication::clipboard()->image();
        QCOMPARE(copied.size(), chart.viewport()->size() * 2);
        QCOMPARE(copied.pixelColor(3, 3), QColor(Qt::white));
        const auto saved = [&](const QString& name) {
            store.dialogs.expect(u"? save picture -> "_s + store.file(name));
            chart.actions()[1]->trigger();
            QFile file(store.file(name));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        QImage fromFile = QImage::fromData(saved(u"catch.png"_s));
        fromFile.setDevicePixelRatio(copied.devicePixelRatio());
        QCOMPARE(fromFile, copied);
        // Markup in a name is shown as it is written, and two groups of one name stay two.
        const QByteArray drawing = saved(u"catch.SVG"_s);
        QVERIFY(drawing.contains("<title>Catch<") && drawing.contains(">Catch</text>"));
        QCOMPARE(drawing.count("&lt;b&gt;"), 2);
        QCOMPARE(chart.grab().toImage(), before);
    }
};

KELVORA_TEST(TestReportChart, "report_chart");

}  // namespace kelvora::test_report_chart

#include "test_report_chart.moc"
