#include "controls/guard.h"
#include "controls/screen.h"
#include "data/transaction.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QPushButton>
#include <QTest>

namespace kelvora::test_guard {

/// A screen whose button runs a handler.
class OneButton : public Screen {
public:
    OneButton(const Context& context, const std::function<void()>& handler) : Screen(QStringLiteral("Test"), context) {
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
    void failures_data() {
        QTest::addColumn<std::function<void()>>("fail");
        QTest::addColumn<QString>("message");
        QTest::newRow("data") << std::function<void()>([] { throw DataError(QStringLiteral("Älv: zu voll")); })
                              << QStringLiteral("Älv: zu voll");
        QTest::newRow("other") << std::function<void()>([] { throw std::out_of_range("no column x"); })
                               << QStringLiteral("no column x");
    }
    void failures() {
        QFETCH(std::function<void()>, fail);
        QFETCH(QString, message);
        test::TemporaryStore store;
        int ended = 0;
        OneButton screen(store.context(), [&] {
            fail();
            ++ended;
        });
        store.dialogs.expectMessage(message);
        screen.press();
        QVERIFY(store.dialogs.done());
        QCOMPARE(ended, 0);
        fail = [] {};
        screen.press();
        QCOMPARE(ended, 1);
    }

    void nothingHalfDoneStays() {
        test::TemporaryStore store;
        const auto save = [&] {
            Transaction transaction(store.db());
            store.execute("insert into state values (1, 'Alpha')");
            store.execute("insert into state values (1, 'Beta')");
            transaction.commit();
        };
        store.dialogs.expectMessageContaining(QStringLiteral("this key is already stored"));
        QVERIFY(!runGuarded(store.dialogs, save));
        QCOMPARE(store.rows("select * from state"), QStringList());
        store.execute("insert into state values (1, 'Gamma')");
        QVERIFY(runGuarded(store.dialogs, [&] { QCOMPARE(store.rows("select statename from state").size(), 1); }));
    }
};

KELVORA_TEST(TestGuard, "guard");

}  // namespace kelvora::test_guard

#include "test_guard.moc"
