#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"
#include "controls/text_table.h"
#include "support/screen_driver.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_captioned_grid {

/// A grid of vessels with its navigator.
class TestCaptionedGrid : public QObject {
    Q_OBJECT

    std::unique_ptr<CaptionedGrid> m_frame;
    Grid* m_grid = nullptr;
    RecordNavigator* m_navigator = nullptr;
    const GridColumns m_columns{
        {u" Register ID"_s, 100, Qt::AlignLeft, true}, {u"Vessel name"_s, 200}, {u"GRT"_s, 100, Qt::AlignHCenter}};
    QString m_arrived;

    void show(const std::vector<QStringList>& vessels) {
        auto table = std::make_unique<TextTable>(3);
        table->setRows(vessels);
        m_grid->show(std::move(table), m_columns);
        m_navigator->setRowCount(static_cast<int>(vessels.size()));
    }
    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPoint inRow = m_grid->visualRect(m_grid->model()->index(row, 1)).center();
        QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, inRow);
    }
    /// The buttons that can be pressed, the row of the navigator and of the grid, the rows arrived at since.
    QString state() {
        QString all;
        for (const QString& name : {u"First"_s, u"Previous"_s, u"Next"_s, u"Last"_s}) {
            all += test::ScreenDriver(m_navigator).enabled(name) ? name.front() : QChar(u'-');
        }
        return all + u" %1 %2 "_s.arg(m_navigator->row()).arg(m_grid->currentRow()) + std::exchange(m_arrived, {});
    }

private Q_SLOTS:
    void init() {
        m_frame = std::make_unique<CaptionedGrid>(u"FISHING VESSEL"_s);
        m_grid = m_frame->grid();
        m_navigator = m_frame->addNavigator(u"Vessels"_s);
        connect(m_navigator, &RecordNavigator::arrived, this, [this](int row) { m_arrived += QString::number(row); });
        m_frame->resize(600, 300);
        m_frame->setVisible(true);
        m_arrived.clear();
    }

    /// Where there is little room the names give way, and the numbers stay whole.
    void copiesRowsInTheirOrder() {
        m_frame->resize(240, 300);
        show({{u"R-1"_s, u"Sea Star"_s, u"7"_s},
              {u"R-2"_s, u"Blue Fin"_s, u"123456789012.25"_s},
              {u"R-3"_s, u"two\r\nlines\ta tab"_s}});
        QVERIFY(m_grid->columnWidth(2) >= m_grid->fontMetrics().horizontalAdvance(u"123456789012.25"_s));
        m_grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
        clickRow(2);
        clickRow(0, Qt::ControlModifier);
        QTest::keyClick(m_grid, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Sea Star\t7\ntwo lines a tab\t"_s);
    }

    void navigatorAndGridStandOnTheSameRow() {
        const std::vector<QStringList> vessels = {{u"R-1"_s}, {u"R-2"_s}, {u"R-3"_s}, {u"R-4"_s}};
        show(vessels);
        QString states = state();
        for (const QString& button : {u"Next"_s, u"Last"_s, u"Previous"_s, u"First"_s}) {
            test::ScreenDriver(m_navigator).press(button);
            states += u" | "_s + state();
        }
        QCOMPARE(states, u"--NL 0 0 0 | FPNL 1 1 1 | FP-- 3 3 3 | FPNL 2 2 2 | --NL 0 0 0"_s);
        // A button takes the navigator's row: no other looks chosen.
        clickRow(2);
        clickRow(3, Qt::ControlModifier);
        QTest::keyClick(m_grid, Qt::Key_Up);
        QCOMPARE(state() + u' ' + QString::number(m_grid->selectionModel()->selectedRows().size()),
                 u"FPNL 2 2 232 1"_s);
        // On the row that is marked already, a click goes there again, and nowhere while there is no result.
        m_navigator->leave();
        QCOMPARE(state(), u"F-NL -1 2 "_s);
        clickRow(2);
        QCOMPARE(state(), u"FPNL 2 2 2"_s);
        m_grid->showBlank(m_columns);
        m_navigator->setRowCount(0);
        clickRow(0);
        QCOMPARE(m_navigator->row(), -1);
    }
};

KELVORA_TEST(TestCaptionedGrid, "captioned_grid");

}  // namespace kelvora::test_captioned_grid

#include "test_captioned_grid.moc"
