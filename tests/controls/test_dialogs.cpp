#include "controls/dialogs.h"
#include "controls/progress.h"
#include "support/test_main.h"

#include <QApplication>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

namespace kelvora::test_dialogs {

/// The boxes themselves, as keys find them.
class TestDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void confirmByKey_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<bool>("yes");
        QTest::newRow("Enter goes on") << Qt::Key_Return << true;
        QTest::newRow("Escape does not") << Qt::Key_Escape << false;
    }
    void confirmByKey() {
        QFETCH(Qt::Key, key);
        QTimer::singleShot(50, this, [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
        QTEST(ModalDialogs().confirm(QStringLiteral("GONAD"), QStringLiteral("Are you sure?"), Dialogs::Icon::None),
              "yes");
    }

    void progress() {
        constexpr int steps = 4;
        Progress progress(QStringLiteral("Storing…"), steps);
        progress.step();
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QTest::qSleep(600);
        progress.step();
        auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        QVERIFY(box != nullptr);
        QCOMPARE(box->value(), 2);
        QTest::keyClick(box, Qt::Key_Escape);
        box->close();
        QVERIFY(box->isVisible());
        QTest::qSleep(60);
        progress.step();
        progress.step();
        QCOMPARE(box->value(), 3);  // not brought up to date more often than an eye can follow
        QVERIFY(box->isVisible());
    }
};

KELVORA_TEST(TestDialogs, "dialogs");

}  // namespace kelvora::test_dialogs

#include "test_dialogs.moc"
