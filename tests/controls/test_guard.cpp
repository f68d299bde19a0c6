#include "controls/progress.h"
#include "controls/screen.h"
#include "data/errors.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvora::test_guard {

/// A screen whose button runs a handler.
class OneButton : public Screen {
public:
    OneButton(const Context& context, const std::function<void()>& handler) : Screen(u"Test"_s, context) {
        onClick(&m_button, handler);
    }
    void press() { m_button.click(); }

private:
    QPushButton m_button;
};

/// Failures of handlers: a message, and the program goes on.
class TestGuard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failures() {
        test::TemporaryStore store;
        std::function<void()> fail = [] { throw DataError(u"Älv: zu voll"_s); };
        int ended = 0;
        OneButton screen(store.context(), [&] {
            fail();
            ++ended;
        });
        store.dialogs.expectMessage(u"Älv: zu voll"_s);
        screen.press();
        fail = [] { throw std::out_of_range("no column x"); };
        store.dialogs.expectMessage(u"This could not be done: the program made a mistake."_s);
        screen.press();
        fail = [] { throw std::bad_alloc(); };
        store.dialogs.expectMessage(u"This could not be done: there is not enough memory."_s);
        screen.press();
        QVERIFY(store.dialogs.done());
        QCOMPARE(ended, 0);
        fail = [] {};
        screen.press();
        QCOMPARE(ended, 1);
    }

    /// A screen reader presses buttons also behind a box.
    void pressedOnceMoreMeanwhile() {
        test::TemporaryStore store;
        int begun = 0;
        std::unique_ptr<OneButton> screen;
        screen = std::make_unique<OneButton>(store.context(), [&] {
            ++begun;
            // What a handler calls itself belongs to it.
            QVERIFY(runGuarded(store.dialogs, [] {}));
            Progress progress(u"Storing…"_s, 2);
            QTest::qSleep(600);
            QTimer::singleShot(0, screen.get(), [&] { screen->press(); });
            progress.step();
            QVERIFY(QApplication::activeModalWidget() != nullptr);
        });
        screen->press();
        QCOMPARE(begun, 1);
        screen->press();
        QCOMPARE(begun, 2);
    }
};

KELVORA_TEST(TestGuard, "guard");

}  // namespace kelvora::test_guard

#include "test_guard.moc"
