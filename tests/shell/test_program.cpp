#include "controls/screen.h"
#include "shell/login_dialog.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_program {

class TestProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Signing in; both buttons of the dialog, and Enter and Esc. Letter case does not count.
    void signIn() {
        const QString empty = u"Please input Login and password"_s;
        const QString wrong = u"Your Password not correct please Try again "_s;
        test::TemporaryStore store;
        store.execute("insert into kelvora_user values ('Élise', 'Möwe', 'E. Dupont'), ('Jo', 'Cod', 'Jo Hansen')");
        LoginDialog dialog(store.context());
        dialog.show();
        // Drawn icons need a package of their own on some systems.
        const auto labels = dialog.findChildren<QLabel*>();
        QVERIFY(std::ranges::any_of(labels, [](const QLabel* label) { return !label->pixmap().isNull(); }));
        const QSignalSpy signedIn(&dialog, &LoginDialog::signedIn);
        const test::ScreenDriver hand(&dialog);
        QCOMPARE(hand.text(u"LOGIN"_s), u"Administrator"_s);
        QVERIFY(QTest::qWaitForWindowActive(&dialog) && dialog.focusWidget() == hand.field(u"PASSWORD"_s));
        for (const auto& [login, password, message, recorder] : {std::array{u"Jo"_s, u""_s, empty, u""_s},
                                                                 {u""_s, u"kelvora"_s, empty, u""_s},
                                                                 {u"Jo"_s, u"Möwe"_s, wrong, u""_s},
                                                                 {u"' or '1' = '1"_s, u"' or '1' = '1"_s, wrong, u""_s},
                                                                 {u"JO"_s, u"cod"_s, u""_s, u"Jo Hansen"_s},
                                                                 {u"éLISE"_s, u"MÖWE"_s, u""_s, u"E. Dupont"_s}}) {
            for (const bool key : {false, true}) {
                store.session = {};
                hand.enter(u"LOGIN = "_s + login + u"; PASSWORD = anything"_s);
                key ? QTest::keyClick(hand.field(u"PASSWORD"_s), Qt::Key_Escape) : hand.press(u"Cancel"_s);
                QCOMPARE(hand.text(u"PASSWORD"_s), QString());
                QVERIFY(dialog.isVisible() && dialog.focusWidget() == hand.field(u"PASSWORD"_s));
                hand.type(u"PASSWORD"_s, password);
                if (!message.isEmpty()) {
                    store.dialogs.expect(u"! Kelvora: "_s + message);
                }
                const qsizetype before = signedIn.count();
                key ? QTest::keyClick(hand.field(u"PASSWORD"_s), Qt::Key_Return) : hand.press(u"Log in"_s);
                QVERIFY(store.dialogs.missing().isEmpty() && signedIn.count() - before == (message.isEmpty() ? 1 : 0));
                QCOMPARE(store.session.userName, recorder);
                QCOMPARE(hand.text(u"PASSWORD"_s), message == wrong ? QString() : password);
            }
        }
        // As they are stored, not as they were typed: a changed password is stored under this login.
        QCOMPARE(store.session.login + u'|' + store.session.password, u"Élise|Möwe"_s);
    }
};

KELVORA_TEST(TestProgram, "program");

}  // namespace kelvora::test_program

#include "test_program.moc"
