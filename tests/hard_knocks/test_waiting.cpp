#include "desk.h"
#include "shell/login_dialog.h"
#include "support/test_main.h"

#include <QApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvora::test_waiting {

/// Another program holds the data file while the program starts, and while an operation is saved at the main window.
class TestWaiting : public QObject {
    Q_OBJECT

    static QPushButton* cancelOfBox() {
        const QWidget* box = QApplication::activeModalWidget();
        return qobject_cast<const QProgressDialog*>(box) == nullptr ? nullptr : box->findChild<QPushButton*>();
    }

private Q_SLOTS:
    void starts() {
        test::TemporaryStore store;
        store.execute("begin exclusive");
        test::Boxes sampler;
        sampler.patient = true;
        QTimer::singleShot(900, this, [] { cancelOfBox()->click(); });
        LoginDialog login({store.path(), store.session, sampler});
        QCOMPARE(sampler.said, QStringList());
        QVERIFY(login.findChild<QLabel*>()->text().contains(u"another program is using"));
        store.execute("rollback");
        store.session = {};
        test::ScreenDriver(&login).enter(u"PASSWORD = kelvora; Log in"_s);
        QCOMPARE(store.session.login, u"Administrator"_s);
    }

    void saves() {
        for (const bool givenUp : {false, true}) {
            test::TemporaryStore store;
            store.addSmallYear();
            test::Desk desk(store.path());
            desk.dialogs.patient = true;
            const test::ScreenDriver hand = desk.open(test::Operations);
            hand.enter(QLatin1String(test::kOperation));
            store.execute("begin immediate");
            QTimer::singleShot(900, &desk.window, [&] {
                // A screen reader gets at buttons behind a box, the desktop at windows.
                hand.press(u"SAVE"_s);
                desk.window.close();
                desk.front()->close();
                givenUp ? cancelOfBox()->click() : store.execute("rollback");
            });
            hand.press(u"SAVE"_s);
            QVERIFY(desk.front() != nullptr && desk.window.isVisible());
            if (givenUp) {
                QVERIFY(std::exchange(desk.dialogs.said, {}).join(u'\n').contains(u"another program is using"));
                store.execute("rollback");
                hand.press(u"SAVE"_s);
            }
            QCOMPARE(desk.dialogs.said, QStringList{u"Kelvora: Insert Complete"_s});
            QCOMPARE(store.rows("select count(*) from fishoperation"), QStringList{u"4"_s});
        }
    }
};

KELVORA_TEST(TestWaiting, "waiting");

}  // namespace kelvora::test_waiting

#include "test_waiting.moc"
