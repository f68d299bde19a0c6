#include "shell/change_password_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

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
        const QString different = u"Password not match please retry again"_s;
        row("empty", {u"Port Sampler"_s, {}, {}}, {});
        row("different", {u"Port Sampler"_s, u"a"_s, u"b"_s}, different);
        row("letter case", {u"Port Sampler"_s, u"Cod"_s, u"cod"_s}, different);
        row("unchanged", {u"Port Sampler"_s, u"kelvora"_s, u"kelvora"_s}, u"Complete"_s);
        row("quotes", {u"Siân O'Hara"_s, u"'; --"_s, u"'; --"_s}, u"Complete"_s);
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
        QVERIFY(hand.edit(u"Login name"_s)->isReadOnly());
        const QSignalSpy finished(&screen, &Screen::finished);
        hand.type(u"Username"_s, name);
        hand.type(u"Password"_s, password);
        hand.type(u"Re-password"_s, repeated);
        const bool done = message == u"Complete";
        if (!message.isEmpty()) {
            store.dialogs.expectMessage(done ? u"Kelvora"_s : u"ERROR"_s, message);
        }
        hand.press(u"CHANGE PASSWORD"_s);
        QVERIFY(store.dialogs.done());
        const QString stored =
            done ? u"Administrator|"_s + password + u'|' + name : u"Administrator|kelvora|Administrator"_s;
        QCOMPARE(store.rows("select * from kelvora_user"), QStringList{stored});
        QCOMPARE(finished.size(), done ? 1 : 0);
        QCOMPARE(store.session.userName, done ? name : u"Port Sampler"_s);
        QCOMPARE(store.session.password, done ? password : u"kelvora"_s);
        QCOMPARE(hand.text(u"Re-password"_s), repeated);
    }
};

KELVORA_TEST(TestChangePassword, "change_password");

}  // namespace kelvora::test_change_password

#include "test_change_password.moc"
