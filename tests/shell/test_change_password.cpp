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
        const auto row = [](const char* name, const QStringList& typed, const QString& message) {
            QTest::newRow(name) << typed[0] << typed[1] << typed[2] << message;
        };
        const QString different = u"Password not match please retry again"_qs;
        row("empty", {u"Port Sampler"_qs, {}, {}}, {});
        row("different", {u"Port Sampler"_qs, u"a"_qs, u"b"_qs}, different);
        row("letter case", {u"Port Sampler"_qs, u"Cod"_qs, u"cod"_qs}, different);
        row("unchanged", {u"Port Sampler"_qs, u"kelvora"_qs, u"kelvora"_qs}, u"Complete"_qs);
        row("quotes", {u"Siân O'Hara"_qs, u"'; --"_qs, u"'; --"_qs}, u"Complete"_qs);
    }
    void change() {
        QFETCH(QString, name);
        QFETCH(QString, password);
        QFETCH(QString, repeated);
        QFETCH(QString, message);
        test::TemporaryStore store;
        ChangePasswordScreen screen(store.context());
        screen.show();
        const test::ScreenDriver hand(&screen);
        QVERIFY(!hand.enabled(u"Login name"_qs));
        hand.type(u"Username"_qs, name);
        hand.type(u"Password"_qs, password);
        hand.type(u"Re-password"_qs, repeated);
        const bool done = message == u"Complete";
        if (!message.isEmpty()) {
            store.dialogs.expectMessage(done ? u"Kelvora"_qs : u"ERROR"_qs, message);
        }
        hand.press(u"CHANGE PASSWORD"_qs);
        QVERIFY(store.dialogs.done());
        const QString stored =
            done ? u"Administrator|"_qs + password + u'|' + name : u"Administrator|kelvora|Administrator"_qs;
        QCOMPARE(store.rows("select * from kelvora_user"), QStringList{stored});
        QCOMPARE(screen.isVisible(), !done);
        QCOMPARE(store.session.userName, done ? name : u"Port Sampler"_qs);
        QCOMPARE(store.session.password, done ? password : u"kelvora"_qs);
        QCOMPARE(hand.text(u"Re-password"_qs), repeated);
    }
};

KELVORA_TEST(TestChangePassword, "change_password");

}  // namespace kelvora::test_change_password

#include "test_change_password.moc"
