#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"
#include "controls/text_table.h"
#include "support/test_main.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvora::test_captioned_grid {

/// A grid of vessels with its navigator.
class TestCaptionedGrid : public QObject {
    Q_OBJECT

    std::unique_ptr<CaptionedGrid> m_frame;
    Grid* m_grid = nullptr;
    RecordNavigator* m_navigator = nullptr;
    GridColumns m_columns;

    static std::unique_ptr<TextTable> vessels(int rows) {
        auto table = std::make_unique<TextTable>(3);
        for (int i = 0; i < rows; ++i) {
            table->appendRow({u"R-%1"_s.arg(i), u"Vessel %1"_s.arg(i), QString::number(i)});
        }
        return table;
    }
    void show(int rows) {
        m_grid->show(vessels(rows), m_columns);
        m_navigator->setRowCount(rows);
    }
    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPoint inRow = m_grid->visualRect(m_grid->model()->index(row, 1)).center();
        QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, inRow);
    }

private Q_SLOTS:
    void init() {
        m_columns = {{u" Register ID"_s, 100}, {u"Vessel name"_s, 200}, {u"GRT"_s, 100, Qt::AlignHCenter}};
        m_frame = std::make_unique<CaptionedGrid>(u"FISHING VESSEL"_s);
        m_grid = m_frame->grid();
        m_navigator = m_frame->addNavigator(u"Vessels"_s);
        m_frame->resize(600, 300);
        static_cast<QWidget*>(m_frame.get())->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    }
    void cleanup() { m_frame.reset(); }

    void captions() {
        show(2);
        QCOMPARE(m_grid->headers(), QStringList({u"Register ID"_s, u"Vessel name"_s, u"GRT"_s}));
        QCOMPARE(m_grid->text(1, 1), u"Vessel 1"_s);
        m_frame->setCaption(u"VESSEL"_s);
        QCOMPARE(m_grid->accessibleName(), u"VESSEL"_s);
    }

    /// As wide as the window in the proportion of the given widths; where there is less room the names give way and the
    /// numbers stay whole, and where there is hardly any the given widths are scrolled.
    void widths() {
        auto table = vessels(1);
        table->appendRow({u"R-2"_s, u"Vessel 2"_s, u"123456789012.25"_s});
        m_grid->show(std::move(table), m_columns);
        const int given = 3000 / 15 * m_grid->logicalDpiX() / 96;
        for (const int window : {160, 340, 900}) {
            m_frame->resize(window, 300);
            QCoreApplication::processEvents();
            const int room = m_grid->viewport()->width();
            const int names = m_grid->columnWidth(1);
            QVERIFY(window == 160 ? names == given : window == 340 ? names < given : names > given);
            QCOMPARE(m_grid->horizontalHeader()->length() == room, window > 160);
            QVERIFY(m_grid->columnWidth(2) >= m_grid->fontMetrics().horizontalAdvance(u"123456789012.25"_s));
        }
        Grid shownLater(u"Result"_s);
        shownLater.show(vessels(1), m_columns);
        shownLater.resize(900, 200);
        shownLater.setVisible(true);
        QVERIFY(QTest::qWaitForWindowExposed(&shownLater));
        QCOMPARE(shownLater.horizontalHeader()->length(), shownLater.viewport()->width());
    }

    void copiesRowsInTheirOrder() {
        auto table = vessels(4);
        table->setRow(2, {u"R-2"_s, u"two\r\nlines\tand a tab"_s});
        m_columns[0].hidden = true;
        m_grid->show(std::move(table), m_columns);
        QCOMPARE(m_grid->selectionMode(), QAbstractItemView::SingleSelection);  // a button takes the navigator's row
        m_grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
        clickRow(3);
        clickRow(2, Qt::ControlModifier);
        clickRow(0, Qt::ControlModifier);
        QTest::keyClick(m_grid, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Vessel 0\t0\ntwo lines and a tab\t\nVessel 3\t3"_s);
    }

    void neverEditsInPlace() {
        auto editable = std::make_unique<QStandardItemModel>(1, 3);
        m_grid->show(std::move(editable), m_columns);
        clickRow(0);
        QTest::keyClick(m_grid, Qt::Key_F2);
        QTest::keyClicks(m_grid, u"x"_s);
        QTest::mouseDClick(m_grid->viewport(), Qt::LeftButton, {}, m_grid->visualRect(m_grid->currentIndex()).center());
        QVERIFY(m_grid->findChild<QLineEdit*>() == nullptr);
    }

    void blank() {
        show(3);
        m_grid->showBlank(m_columns);
        m_navigator->setRowCount(0);
        QCOMPARE(m_grid->rowCount(), 1);
        QCOMPARE(m_grid->text(0, 0) + m_grid->text(0, 1) + m_grid->text(0, 2), QString());
        QCOMPARE(m_grid->headers().size(), 3);
        clickRow(0);
        QCOMPARE(m_navigator->row(), -1);
    }

    void navigatorAndGridStandOnTheSameRow() {
        show(3);
        QCOMPARE(m_grid->currentRow(), 0);
        const QSignalSpy arrived(m_navigator, &RecordNavigator::arrived);
        const QSignalSpy chosen(m_grid, &Grid::rowChosen);
        m_navigator->moveTo(2);
        QCOMPARE(m_grid->currentRow(), 2);
        clickRow(1);
        QCOMPARE(m_navigator->row(), 1);
        QTest::keyClick(m_grid, Qt::Key_Up);
        QCOMPARE(m_navigator->row(), 0);
        QCOMPARE(arrived.size(), 3);
        QCOMPARE(chosen.size(), 3);
        QCOMPARE(m_grid->selectionModel()->selectedRows().size(), 1);

        m_columns[0].hidden = true;
        show(3);
        QTest::keyClick(m_grid, Qt::Key_Down);
        QCOMPARE(m_navigator->row(), 1);
        m_columns[0].hidden = false;
        show(3);
        QVERIFY(!m_grid->isColumnHidden(0));
    }

    void refreshGoesToTheFirstRow() {
        for (const int rows : {5, 3, 1, 0}) {
            show(3);
            m_navigator->moveTo(2);
            const QSignalSpy arrived(m_navigator, &RecordNavigator::arrived);
            const QSignalSpy chosen(m_grid, &Grid::rowChosen);
            show(rows);
            QCOMPARE(m_grid->currentRow(), rows > 0 ? 0 : -1);
            QCOMPARE(m_navigator->row(), m_grid->currentRow());
            QCOMPARE(arrived.size(), 1);
            QCOMPARE(chosen.size(), rows > 0 ? 1 : 0);
        }
    }

    void sourcesOfAScreenAndOwnOnes() {
        {
            TextTable kept(2);
            kept.setRows({{u"a"_s, u"b"_s, u"too much"_s}, {u"c"_s}});
            m_grid->show(&kept, {{u"One"_s}, {u"Two"_s}});
            QCOMPARE(m_grid->headers(), QStringList({u"One"_s, u"Two"_s}));
            m_grid->setCurrentRow(1);
            kept.removeRow(0);
            QCOMPARE(m_grid->currentRow(), 0);
            QCOMPARE(m_grid->text(0, 0) + m_grid->text(0, 1), u"c"_s);
            show(2);
            m_grid->show(&kept, {{u"One"_s}, {u"Two"_s}});
        }
        // The screen's own table goes before the grid, as members go before child widgets.
        QCOMPARE(m_grid->rowCount(), 0);
        show(2);
        QCOMPARE(m_grid->text(1, 0), u"R-1"_s);
    }
};

KELVORA_TEST(TestCaptionedGrid, "captioned_grid");

}  // namespace kelvora::test_captioned_grid

#include "test_captioned_grid.moc"
