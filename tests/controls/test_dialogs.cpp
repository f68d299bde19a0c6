#include "controls/dialogs.h"
#include "controls/progress.h"
#include "controls/screen.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvora::test_dialogs {

/// The boxes themselves, as keys find them, and the guard that says what failed.
class TestDialogs : public QObject {
    Q_OBJECT

    test::TemporaryStore m_store;

    /// Does something in the box that is about to come.
    static void inBox(const std::function<void(QWidget* box)>& hand) {
        QTimer::singleShot(50, qApp, [hand] { hand(QApplication::activeModalWidget()); });
    }

private Q_SLOTS:
    void enterAddsAndDeletesNothing() {
        using enum Dialogs::Question;
        for (const auto& [key, question, yes] : {std::tuple{Qt::Key_Return, Adding, true},
                                                 {Qt::Key_Escape, Adding, false},
                                                 {Qt::Key_Return, Deleting, false}}) {
            inBox([key = key](QWidget* box) { QTest::keyClick(box, key); });
            QCOMPARE(ModalDialogs().confirm(u"GONAD"_s, u"Are you sure?"_s, question), yes);
        }
    }

    void longTexts() {
        const QString title(20, u'M');
        const QString text = u"<b>"_s + QString(10'000, u'W');
        QString shown;
        int width = 0;
        const auto look = [&](QWidget* box) {
            for (const QLabel* label : box->findChildren<QLabel*>()) {
                shown += label->text();
            }
            width = box->width();
            QTest::keyClick(box, Qt::Key_Return);
        };
        inBox(look);
        QCOMPARE(ModalDialogs().input(title, text, u"proposed"_s), u"proposed"_s);
        inBox(look);
        ModalDialogs().message(title, text);
        QCOMPARE(shown, (text.first(900) + u"…"_s).repeated(2));
        // Nor is the title cut by the buttons of the window.
        inBox(look);
        ModalDialogs().message(title, u"Complete"_s);
        QVERIFY(width > QFontMetrics(QApplication::font()).horizontalAdvance(title) + 100);
    }

    void files() {
        const QString there = m_store.file(u"there.csv"_s);
        QVERIFY(QFile(there).open(QIODevice::WriteOnly));
        const auto answer = [&](const auto& ask, const QString& typed, const QList<Qt::Key>& kind = {}) {
            inBox([&](QWidget* box) {
                for (const Qt::Key key : kind) {
                    QTest::keyClick(box->findChild<QComboBox*>(u"fileTypeCombo"_s), key);
                }
                auto* name = box->findChild<QLineEdit*>(u"fileNameEdit"_s);
                name->setText(m_store.file(typed));
                // A question whether the file is to be replaced is a no, which leaves the box.
                QTimer::singleShot(50, box, [box] {
                    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
                    QTest::keyClick(box, Qt::Key_Escape);
                });
                QTest::keyClick(name, Qt::Key_Return);
            });
            return ask().value_or(QString());
        };
        const auto picture = [] { return ModalDialogs().savePictureFile(); };
        const auto csv = [] { return ModalDialogs().saveCsvFile(); };
        QCOMPARE(answer(picture, u"catch"_s), m_store.file(u"catch.png"_s));
        QCOMPARE(answer(picture, u"catch"_s, {Qt::Key_Down}), m_store.file(u"catch.svg"_s));
        QCOMPARE(answer(picture, u"catch"_s, {Qt::Key_Down, Qt::Key_Up}), m_store.file(u"catch.png"_s));
        QCOMPARE(answer(picture, u"catch.svg"_s), m_store.file(u"catch.svg"_s));
        QCOMPARE(answer(picture, u"there.csv"_s), QString());
        QCOMPARE(answer(csv, u"catch"_s), m_store.file(u"catch"_s));
        QCOMPARE(answer(csv, u"there.csv"_s), there);
    }

    void progress() {
        QPushButton button;
        int begun = 0;
        const auto handler = guarded(m_store.dialogs, [&] {
            ++begun;
            Progress progress(u"Storing…"_s, 4);
            progress.step();
            QVERIFY(QApplication::activeModalWidget() == nullptr);
            QTest::qSleep(600);
            QTimer::singleShot(0, &button, [&] { button.click(); });
            progress.step();
            auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            QTest::keyClick(box, Qt::Key_Escape);
            box->close();
            QVERIFY(box->isVisible());
            QTest::qSleep(60);
            progress.step();
            QCOMPARE(box->value(), 3);
            throw std::out_of_range("no column x");
        });
        connect(&button, &QPushButton::clicked, this, handler);
        for (const int times : {1, 2}) {
            m_store.dialogs.expect(u"! Kelvora: This could not be done: the program made a mistake."_s);
            button.click();
            QCOMPARE(begun, times);
            QVERIFY(m_store.dialogs.done());
        }
    }
};

KELVORA_TEST(TestDialogs, "dialogs");

}  // namespace kelvora::test_dialogs

#include "test_dialogs.moc"
