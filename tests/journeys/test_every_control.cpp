#include "opened_screen.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_every_control {

/// What a sampler who works without the mouse, or without seeing the screen, needs of every control: a name, a mnemonic
/// of its own, and its place in the round of the Tab key.
class TestEveryControl : public QObject {
    Q_OBJECT

private:
    /// What a sampler types into, presses or looks through, as it is shown now.
    static QList<QWidget*> controls(const QWidget& screen) {
        QList<QWidget*> all;
        for (QWidget* widget : screen.findChildren<QWidget*>()) {
            const auto isOne = [](const QWidget* of, const std::vector<const char*>& kinds) {
                return std::ranges::any_of(kinds, [of](const char* kind) { return of->inherits(kind); });
            };
            const bool part = isOne(widget->parentWidget(), {"QComboBox", "QAbstractSpinBox", "QAbstractItemView"});
            const bool used = isOne(widget, {"QLineEdit", "QComboBox", "QAbstractButton", "QAbstractItemView",
                                             "QAbstractSpinBox", "QPlainTextEdit"});
            if (used && !part && widget->isVisible()) {
                all.append(widget);
            }
        }
        return all;
    }

    /// What a screen reader calls a control: the caption beside it, or a name or text of its own. The row that a list
    /// shows is not its name.
    static QString name(QWidget* widget) {
        const auto labels = widget->window()->findChildren<QLabel*>();
        const auto label = std::ranges::find(labels, widget, [](const QLabel* one) { return one->buddy(); });
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        return label != labels.end()                                     ? (*label)->text().trimmed()
               : button != nullptr && widget->accessibleName().isEmpty() ? button->text().trimmed()
                                                                         : widget->accessibleName().trimmed();
    }

    static QString described(QWidget* widget) {
        return u"%1 \"%2\""_s.arg(QString::fromLatin1(widget->metaObject()->className()), name(widget));
    }

    /// The key that goes to a control with Alt.
    static QList<QChar> mnemonics(const QWidget& screen, const QMenuBar& menu) {
        QStringList texts;
        for (const QAction* action : menu.actions()) {
            texts += action->text();
        }
        for (const QWidget* widget : screen.findChildren<QWidget*>()) {
            if (!widget->isVisible()) {
                continue;
            }
            if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
                texts += button->text();
            } else if (const auto* label = qobject_cast<const QLabel*>(widget); label != nullptr && label->buddy()) {
                texts += label->text();
            } else if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) {
                texts += frame->title();
            } else if (const auto* tabs = qobject_cast<const QTabWidget*>(widget)) {
                for (int i = 0; i < tabs->count(); ++i) {
                    texts += tabs->tabText(i);
                }
            }
        }
        QList<QChar> keys;
        for (const QString& text : texts) {
            const QKeySequence key = QKeySequence::mnemonic(text);
            if (!key.isEmpty()) {
                keys += QChar(key[0].key()).toUpper();
            }
        }
        return keys;
    }

    /// One round of the Tab key, from its first stop on.
    static QList<QWidget*> round(const QWidget& screen) {
        QList<QWidget*> stops;
        for (QWidget* at = QApplication::focusWidget(); at != nullptr && !stops.contains(at);
             at = QApplication::focusWidget()) {
            if (screen.isAncestorOf(at)) {
                stops += at;
            }
            QTest::keyClick(at, Qt::Key_Tab);
        }
        const auto corner = [&](QWidget* stop) { return place(screen, stop).manhattanLength(); };
        std::rotate(stops.begin(), std::ranges::min_element(stops, {}, corner), stops.end());
        return stops;
    }

    static QPoint place(const QWidget& screen, const QWidget* widget) {
        return widget->mapTo(&screen, widget->rect().center());
    }

    void look(const QWidget& screen) const {
        const QList<QWidget*> shown = controls(screen);
        QVERIFY(!shown.isEmpty());
        for (QWidget* control : shown) {
            QVERIFY2(!name(control).isEmpty(), qPrintable(described(control) + u" has no name"_s));
        }
        const QList<QChar> keys = mnemonics(screen, *m_window->menuBar());
        for (const QChar key : keys) {
            QVERIFY2(keys.count(key) == 1, qPrintable(u"Alt+%1 is taken twice"_s.arg(key)));
        }
        const QList<QWidget*> stops = round(screen);
        QVERIFY(!stops.isEmpty());
        for (qsizetype i = 1; i < stops.size(); ++i) {
            const QPoint way = place(screen, stops[i]) - place(screen, stops[i - 1]);
            QVERIFY2(way.x() > 0 || way.y() > 0,
                     qPrintable(u"%1 comes behind %2"_s.arg(described(stops[i]), described(stops[i - 1]))));
        }
        for (QWidget* control : shown) {
            const auto* option = qobject_cast<QRadioButton*>(control);
            const bool reached = stops.contains(control) || !control->isEnabled() ||
                                 (control->focusPolicy() & Qt::TabFocus) == 0 ||
                                 (option != nullptr && !option->isChecked());
            QVERIFY2(reached, qPrintable(described(control) + u" is not reached with Tab"_s));
        }
    }

    test::TemporaryStore m_store;
    std::unique_ptr<MainWindow> m_window;

private Q_SLOTS:
    void initTestCase() {
        m_store.addReferenceRows();
        m_store.addOperation(1, 3, u"2004-03-09"_s, 1, 120, u"Sea Star"_s, u"A1"_s);
        m_store.execute("update fish set classinterval = 2 where fishno = 1");
        m_store.addSamples(1);
        m_window = std::make_unique<MainWindow>(m_store.context());
        m_window->resize(1366, 768);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void everyScreen_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("operation");
        for (const QStringList& screen : {QStringList{u"General Information"_s, u"General Information"_s},
                                          {u"Fishing Operation"_s, u"Fishing Information"_s},
                                          {u"Species Composition"_s, u"Species Composition"_s},
                                          {u"Length Frequency"_s, u"Length Frequency"_s},
                                          {u"Gonad Maturity"_s, u"Gonad Matuarity Detail"_s},
                                          {u"Search"_s, u"Search"_s},
                                          {u"Change password"_s, u"CHANGE PASSWORD"_s},
                                          {u"Fishing Information"_s, u"Number of record and estimate total catch"_s},
                                          {u"Species composition"_s, u"Species Composition Report"_s},
                                          {u"Length Frequency"_s, u"Length Frequency Report"_s},
                                          {u"Gonad Maturity"_s, u"Gonad Matuarity Report"_s}}) {
            for (const int operation : {0, 1}) {
                QTest::addRow("%s, operation %d", qPrintable(screen[1]), operation)
                    << screen[0] << screen[1] << operation;
            }
        }
    }
    void everyScreen() {
        QFETCH(QString, action);
        QFETCH(QString, title);
        QFETCH(int, operation);
        m_store.session.lastSavedOperation = operation;
        const test::ScreenDriver hand = test::openedScreen(*m_window, action, title);
        QWidget* screen = hand.root();
        // Two screens have one caption: the report may be in front.
        for (QMdiSubWindow* open : m_window->findChildren<QMdiSubWindow*>()) {
            if (open->isAncestorOf(screen)) {
                m_window->findChild<QMdiArea*>()->setActiveSubWindow(open);
            }
        }
        // With an operation to sample from, there is nothing to find on the first tab.
        const bool onTabs = operation != 0 && qobject_cast<QTabBar*>(QApplication::focusWidget()) != nullptr;
        QVERIFY2(onTabs || controls(*screen).contains(QApplication::focusWidget()), "the keyboard is not in a field");
        if (title == u"Search" && operation != 0) {
            hand.enter(u"Criterion = Vessel; Value = Sea Star; SEARCH"_s);
        }
        const auto tabs = screen->findChildren<QTabWidget*>();
        look(*screen);
        for (QTabWidget* folder : tabs) {
            for (int i = 1; i < folder->count() && !QTest::currentTestFailed(); ++i) {
                folder->setCurrentIndex(i);
                look(*screen);
            }
        }
    }
    void keys() {
        m_store.session.lastSavedOperation = 0;
        const auto front = [this] { return m_window->findChild<QMdiArea*>()->activeSubWindow()->windowTitle(); };
        for (const QStringList& screen : {QStringList{u"1"_s, u"General Information"_s},
                                          {u"2"_s, u"Fishing Information"_s},
                                          {u"3"_s, u"Species Composition"_s},
                                          {u"4"_s, u"Length Frequency"_s},
                                          {u"5"_s, u"Gonad Matuarity Detail"_s},
                                          {u"F"_s, u"Search"_s},
                                          {u"2"_s, u"Fishing Information"_s}}) {
            QTest::keySequence(m_window.get(), QKeySequence(u"Ctrl+"_s + screen[0]));
            QCOMPARE(front(), screen[1]);
        }
        QTest::keySequence(m_window.get(), QKeySequence(u"Ctrl+4"_s));
        for (const QStringList& turn : {QStringList{u"Ctrl+PgDown"_s, u"Species"_s},
                                        {u"Ctrl+PgDown"_s, u"Species"_s},
                                        {u"Ctrl+PgUp"_s, u"Criterion"_s}}) {
            QTest::keySequence(m_window.get(), QKeySequence(turn[0]));
            QCOMPARE(name(QApplication::focusWidget()), turn[1]);
        }
        // With the entry screen goes what it saved last: the next sampling screen starts with a search.
        QTest::keySequence(m_window.get(), QKeySequence(u"Ctrl+2"_s));
        m_store.session.lastSavedOperation = 1;
        QTest::keySequence(m_window.get(), QKeySequence(u"Ctrl+F4"_s));
        QVERIFY(QTest::qWaitFor([&] { return m_window->findChildren<QMdiSubWindow*>().size() == 5; }));
        QCOMPARE(m_store.session.lastSavedOperation, 0);
    }

    void cleanup() {
        for (QMdiSubWindow* open : m_window->findChildren<QMdiSubWindow*>()) {
            delete open;
        }
    }
};

KELVORA_TEST(TestEveryControl, "every_control");

}  // namespace kelvora::test_every_control

#include "test_every_control.moc"
