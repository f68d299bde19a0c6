#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/dialogs.h"
#include "controls/progress.h"
#include "controls/record_navigator.h"
#include "controls/screen.h"
#include "controls/text_table.h"
#include "data/result_set.h"
#include "reports/report_chart.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace kelvora::test_controls {

/// What screens are made of: the typeable list of ports, with another list behind it, a grid of vessels with its
/// navigator, boxes as keys find them, and the guard that says what failed.
class TestControls : public QObject {
    Q_OBJECT

    test::TemporaryStore m_store;
    std::unique_ptr<QWidget> m_window;
    BoundList* m_list = nullptr;
    FixedList* m_next = nullptr;
    QString m_said;  // c: a row was chosen, e: Enter on a finished text; the rows that the navigator arrived at
    Grid* m_grid = nullptr;
    RecordNavigator* m_navigator = nullptr;
    const GridColumns m_columns{
        {u" Register ID"_s, 100, Qt::AlignLeft, true}, {u"Vessel name"_s, 200}, {u"GRT"_s, 100, Qt::AlignHCenter}};

    /// Ports as a query gives them, without the last so many; two of them have the same name. Another program may have
    /// numbered them anew.
    static std::unique_ptr<ResultModel> ports(std::size_t without = 0, qlonglong first = 10) {
        ResultSet all{{u"portid"_s, u"portname"_s},
                      {{first, u"Abo"_s},
                       {first + 1, u"Bex"_s},
                       {first + 2, u"Bex"_s},
                       {QVariant(), u"No key"_s},
                       {first + 3, u"Älv"_s}}};
        all.rows.resize(all.rows.size() - without);
        return std::make_unique<ResultModel>(all);
    }
    /// What the list shows, the key of that, and what it has said since.
    QString shown() { return m_list->text() + u'|' + m_list->key().toString() + u'|' + std::exchange(m_said, {}); }

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
        return all + u" %1 %2 "_s.arg(m_navigator->row()).arg(m_grid->currentRow()) + std::exchange(m_said, {});
    }

    /// Does something in the box that is about to come.
    static void inBox(const std::function<void(QWidget* box)>& hand) {
        QTimer::singleShot(50, qApp, [hand] { hand(QApplication::activeModalWidget()); });
    }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<QWidget>();
        auto* form = new QVBoxLayout(m_window.get());
        m_list = new BoundList;
        m_next = new FixedList({u"Day"_s, u"Night"_s});
        auto* frame = new CaptionedGrid(u"FISHING VESSEL"_s);
        m_grid = frame->grid();
        m_navigator = frame->addNavigator(u"Vessels"_s);
        for (QWidget* part : std::initializer_list<QWidget*>{m_list, m_next, frame}) {
            form->addWidget(part);
        }
        m_list->setSource(ports(), u"portname"_s, u"PORTID"_s);
        connect(m_list, &BoundList::chosen, this, [this] { m_said += u'c'; });
        connect(m_list, &BoundList::entered, this, [this] { m_said += u'e'; });
        connect(m_navigator, &RecordNavigator::arrived, this, [this](int row) { m_said += QString::number(row); });
        m_window->resize(600, 500);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_said.clear();
    }

    /// A text or key that is shown, and the keys; the text, key and signals then, and the number of rows offered.
    void keys() {
        const std::map<QChar, Qt::Key> named = {{u'$', Qt::Key_Return}, {u'>', Qt::Key_Tab},
                                                {u'_', Qt::Key_Down},   {u'^', Qt::Key_Up},
                                                {u'!', Qt::Key_Escape}, {u'<', Qt::Key_Backspace}};
        for (const QString& row :
             {u"|ÄLV>|Älv|13|c|0"_s, u"|bex$$>|Bex|11|cee|0"_s, u"|no key>|No key||c|0"_s, u"|Abo >|Abo |||0"_s,
              u"|B*>|B*|||0"_s, u"|ex|ex|||2"_s, u"|ex$|ex||e|0"_s, u"|be!|be|||0"_s, u"|bx<|b|||3"_s,
              u"|be__$$|Bex|12|ce|0"_s, u"|be__>|Bex|12|c|0"_s, u"12|$>|Bex|12|e|0"_s, u"12|^|Bex|11|c|0"_s,
              u"12|<<<>||||0"_s, u"abo|$>|abo|10|e|0"_s, u"99|>||||0"_s}) {
            const QString before = row.section(u'|', 0, 0);
            const QString keys = row.section(u'|', 1, 1);
            m_list->setText({});
            before.toInt() > 0 ? m_list->setKey(before) : m_list->setText(before);
            m_list->setFocus();
            for (const QChar letter : keys) {
                const Qt::Key key = named.contains(letter) ? named.at(letter) : Qt::Key_unknown;
                const QString typed = named.contains(letter) ? QString() : QString(letter);
                QTest::sendKeyEvent(QTest::Click, m_list, key, typed, Qt::NoModifier);
            }
            const QAbstractItemView* offers = m_list->completer()->popup();
            const int offered = offers->isVisible() ? offers->model()->rowCount() : 0;
            QCOMPARE(u"%1|%2|%3|%4"_s.arg(before, keys, shown()).arg(offered), row);
            QCOMPARE(m_next->hasFocus(), keys.endsWith(u'>'));
            m_next->setFocus();
            QVERIFY(!offers->isVisible());
            m_said.clear();
        }
    }

    /// What another window or program has done to the ports meanwhile changes nothing that is shown, and announces
    /// nothing; the keyboard stays in its place in a text that is being typed. The wheel needs the keyboard.
    void newSources() {
        m_list->setKey(13);
        m_list->refill(ports(1), u"portname"_s, u"portid"_s);
        QCOMPARE(shown() + QString::number(m_list->count()), u"Älv|13|4"_s);
        m_list->setKey(12);
        m_list->setSource(ports(), u"portname"_s, u"portid"_s);
        QCOMPARE(shown(), u"Bex|12|"_s);
        m_list->setText(u"axo"_s);
        m_list->setFocus();
        QTest::keyClick(m_list, Qt::Key_Left);
        m_list->setSource(ports(2), u"portname"_s, u"portid"_s);
        QTest::keyClick(m_list, Qt::Key_Backspace);
        QTest::keyClicks(m_list, u"b\t"_s);
        QCOMPARE(shown(), u"Abo|10|c"_s);
        m_list->setSource(ports(2, 20), u"portname"_s, u"portid"_s);
        QCOMPARE(shown(), u"Abo|20|"_s);
        for (const int row : {0, 1}) {
            QWheelEvent down({5, 5}, m_list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, {}, false);
            QApplication::sendEvent(m_list, &down);
            QCOMPARE(m_list->row(), row);
            m_list->setFocus();
        }
    }

    /// The navigator and the grid stand on the same row. Where there is little room the names give way, and the numbers
    /// stay whole. Rows are copied in their order.
    void grids() {
        m_window->resize(260, 500);
        auto vessels = std::make_unique<TextTable>(3);
        vessels->setRows({{u"R-1"_s, u"Sea Star"_s, u"7"_s},
                          {u"R-2"_s, u"Blue Fin"_s, u"123456789012.25"_s},
                          {u"R-3"_s, u"two\r\nlines\ta tab"_s},
                          {u"R-4"_s}});
        m_grid->show(std::move(vessels), m_columns);
        QVERIFY(m_grid->columnWidth(2) >= m_grid->fontMetrics().horizontalAdvance(u"123456789012.25"_s));
        m_navigator->setRowCount(4);
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
        m_grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
        clickRow(0, Qt::ControlModifier);
        QTest::keyClick(m_grid, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Sea Star\t7\ntwo lines a tab\t"_s);
        m_grid->showBlank(m_columns);
        m_navigator->setRowCount(0);
        clickRow(0);
        QCOMPARE(m_navigator->row(), -1);
    }

    /// Enter adds, and deletes nothing; a long text is cut, and no button comes unasked.
    void boxes() {
        using enum Dialogs::Question;
        for (const auto& [key, question, yes] : {std::tuple{Qt::Key_Return, Adding, true},
                                                 {Qt::Key_Escape, Adding, false},
                                                 {Qt::Key_Return, Deleting, false}}) {
            inBox([key = key](QWidget* box) {
                QTest::keyClick(box, key);
                QVERIFY(box->sizeHint().width() < 1'000);
            });
            QCOMPARE(ModalDialogs().confirm(u"GONAD"_s, u"Are you sure?"_s, question), yes);
        }
        const QString text = u"<b>"_s + QString(10'000, u'W');
        QString shown;
        const auto look = [&](QWidget* box) {
            for (const QLabel* label : box->findChildren<QLabel*>()) {
                shown += label->text();
            }
            shown += QString::number(box->findChildren<QPushButton*>().size());
            QTest::keyClick(box, Qt::Key_Return);
        };
        inBox(look);
        QCOMPARE(ModalDialogs().input(u"GONAD"_s, text, u"proposed"_s), u"proposed"_s);
        inBox(look);
        ModalDialogs().message(u"GONAD"_s, text);
        QCOMPARE(shown, text.first(900) + u"…2"_s + text.first(900) + u"…1"_s);
    }

    /// The ending of a picture is that of the chosen kind, and no file is replaced unasked but by an export.
    void files() {
        QVERIFY(QFile(m_store.file(u"there.csv"_s)).open(QIODevice::WriteOnly));
        ModalDialogs dialogs;
        for (const auto& [picture, typed, kinds, name] :
             {std::tuple{true, u"catch"_s, QList{Qt::Key_Down}, u"catch.svg"_s},
              {true, u"catch"_s, {Qt::Key_Down, Qt::Key_Up}, u"catch.png"_s},
              {true, u"catch.svg"_s, {}, u"catch.svg"_s},
              {true, u"there.csv"_s, {}, u""_s},
              {false, u"catch"_s, {}, u"catch"_s},
              {false, u"there.csv"_s, {}, u"there.csv"_s}}) {
            inBox([&, typed = typed, kinds = kinds](QWidget* box) {
                for (const Qt::Key kind : kinds) {
                    QTest::keyClick(box->findChild<QComboBox*>(u"fileTypeCombo"_s), kind);
                }
                auto* line = box->findChild<QLineEdit*>(u"fileNameEdit"_s);
                line->setText(m_store.file(typed));
                // A question whether the file is to be replaced is a no, which leaves the box.
                QTimer::singleShot(50, box, [box] {
                    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
                    QTest::keyClick(box, Qt::Key_Escape);
                });
                QTest::keyClick(line, Qt::Key_Return);
            });
            const auto path = picture ? dialogs.savePictureFile() : dialogs.saveCsvFile();
            QCOMPARE(QFileInfo(path.value_or(QString())).fileName(), name);
        }
    }

    /// A picture as it is taken along: on white paper, whatever the colours of the desktop.
    void pictures() {
        ReportChart chart(m_store.context());
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
        QVERIFY(copied.pixelColor(3, 3) == QColor(Qt::white) && !copied.allGray());
        const auto saved = [&](const QString& name) {
            m_store.dialogs.expect(u"? save picture -> "_s + m_store.file(name));
            chart.actions()[1]->trigger();
            return test::bytesOf(m_store.file(name));
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

    /// A press while an import goes on begins no second one, and an error of the program is said.
    void progress() {
        int begun = 0;
        std::function<void()> store;
        store = guarded(m_store.dialogs, [&] {
            ++begun;
            Progress progress(u"Storing…"_s, 3);
            progress.step();
            QVERIFY(QApplication::activeModalWidget() == nullptr);
            QTest::qSleep(600);
            QTimer::singleShot(0, this, store);
            QVERIFY(progress.reached(2));
            auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            QTest::keyClick(box, Qt::Key_Escape);
            box->close();
            QVERIFY(box->isVisible());
            QCOMPARE(box->value(), 2);
            throw std::out_of_range("no column x");
        });
        for (const int times : {1, 2}) {
            m_store.dialogs.expect(u"! Kelvora: This could not be done: the program made a mistake."_s);
            store();
            QVERIFY(m_store.dialogs.missing().isEmpty());
            QCOMPARE(begun, times);
        }
    }
};

KELVORA_TEST(TestControls, "controls");

}  // namespace kelvora::test_controls

#include "test_controls.moc"
