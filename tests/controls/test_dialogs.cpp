#include "controls/dialogs.h"
#include "controls/progress.h"
#include "support/test_main.h"

#include <QApplication>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvora::test_dialogs {

/// The boxes themselves, as keys find them.
class TestDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void enterAddsAndDeletesNothing() {
        using enum Dialogs::Question;
        for (const auto& [key, question, yes] : {std::tuple{Qt::Key_Return, Adding, true},
                                                 {Qt::Key_Escape, Adding, false},
                                                 {Qt::Key_Return, Deleting, false}}) {
            QTimer::singleShot(50, this, [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
            QCOMPARE(ModalDialogs().confirm(u"GONAD"_s, u"Are you sure?"_s, question), yes);
        }
    }

    void widerThanTheTitle() {
        const QString title(20, u'M');
        QTimer::singleShot(50, this, [title] {
            QWidget* box = QApplication::activeModalWidget();
            QVERIFY(box->width() > box->fontMetrics().horizontalAdvance(title) + 100);  // and its window's buttons
            QTest::keyClick(box, Qt::Key_Return);
        });
        ModalDialogs().message(title, u"Complete"_s);
    }

    void progress() {
        constexpr int steps = 4;
        Progress progress(u"Storing…"_s, steps);
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
