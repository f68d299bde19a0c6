#include "controls/dialogs.h"
#include "controls/progress.h"
#include "support/test_main.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QProgressDialog>
#include <QTemporaryDir>
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

    void widerThanTheTitleAndNoLongerThanTheScreen() {
        const QString title(20, u'M');
        for (const QString& text : {u"Complete"_s, u"name "_s.repeated(2'000)}) {
            QSize size;
            QTimer::singleShot(50, this, [&size] {
                size = QApplication::activeModalWidget()->size();
                QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
            });
            ModalDialogs().message(title, text);
            QVERIFY(size.width() > QFontMetrics(QApplication::font()).horizontalAdvance(title) + 100);  // buttons
            QVERIFY(size.height() < 500);
        }
    }

    void aPictureGetsTheEndingOfItsKind() {
        const QTemporaryDir folder;
        for (const QString& ending : {u".png"_s, u".svg"_s}) {
            QTimer::singleShot(50, this, [&] {
                QWidget* box = QApplication::activeModalWidget();
                if (ending == u".svg") {
                    QTest::keyClick(box->findChild<QComboBox*>(u"fileTypeCombo"_s), Qt::Key_Down);
                }
                auto* name = box->findChild<QLineEdit*>(u"fileNameEdit"_s);
                name->setText(folder.filePath(u"catch"_s));
                QTest::keyClick(name, Qt::Key_Return);
            });
            QCOMPARE(ModalDialogs().savePictureFile(), folder.filePath(u"catch"_s + ending));
        }
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
