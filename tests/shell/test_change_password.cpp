#include "shell/change_password_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_change_password {

class TestChangePassword : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void change_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("repeated");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("stored");
        const QString before = QStringLiteral("Administrator|kelvora|Administrator");
        QTest::newRow("empty") << "Port Sampler"
                               << ""
                               << ""
                               << "" << before;
        QTest::newRow("different") << "Port Sampler"
                                   << "a"
                                   << "b"
                                   << "Password not match please retry again" << before;
        QTest::newRow("letter case") << "Port Sampler"
                                     << "Cod"
                                     << "cod"
                                     << "Password not match please retry again" << before;
        QTest::newRow("unchanged") << "Port Sampler"
                                   << "kelvora"
                                   << "kelvora"
                                   << "Complete"
                                   << "Administrator|kelvora|Port Sampler";
        QTest::newRow("quotes") << "Siân O'Hara"
                                << "'; --"
                                << "'; --"
                                << "Complete"
                                << "Administrator|'; --|Siân O'Hara";
    }
    void change() {
        QFETCH(QString, name);
        QFETCH(QString, password);
        QFETCH(QString, repeated);
        QFETCH(QString, message);
        QFETCH(QString, stored);
        test::TemporaryStore store;
        ChangePasswordScreen screen(store.context());
        screen.show();
        const test::ScreenDriver hand(&screen);
        QVERIFY(!hand.enabled(u"Login name"_qs));
        hand.type(u"Username"_qs, name);
        hand.type(u"Password"_qs, password);
        hand.type(u"Re-password"_qs, repeated);
        if (!message.isEmpty()) {
            store.dialogs.expectMessage(message == u"Complete" ? u"Kelvora"_qs : u"ERROR"_qs, message);
        }
        hand.press(u"CHANGE PASSWORD"_qs);
        QVERIFY(store.dialogs.done());
        QCOMPARE(store.rows("select * from kelvora_user"), QStringList{stored});
        const bool done = message == u"Complete";
        QCOMPARE(screen.isVisible(), !done);
        QCOMPARE(store.session.userName, done ? name : u"Port Sampler"_qs);
        QCOMPARE(store.session.password, done ? password : u"kelvora"_qs);
        QCOMPARE(hand.text(u"Re-password"_qs), repeated);
    }
};

KELVORA_TEST(TestChangePassword, "change_password");

}  // namespace kelvora::test_change_password

#include "test_change_password.moc"
