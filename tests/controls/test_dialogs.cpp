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
        const QString text = u"<b>"_s + QString(10'000, u'W');
        QString shown;
        const auto look = [&](QWidget* box) {
            for (const QLabel* label : box->findChildren<QLabel*>()) {
                shown += label->text();
            }
            QTest::keyClick(box, Qt::Key_Return);
        };
        inBox(look);
        QCOMPARE(ModalDialogs().input(u"GONAD"_s, text, u"proposed"_s), u"proposed"_s);
        inBox(look);
        ModalDialogs().message(u"GONAD"_s, text);
        QCOMPARE(shown, (text.first(900) + u"…"_s).repeated(2));
    }

    /// The ending of a picture is that of the chosen kind, and no file is replaced unasked but by an export.
    void files() {
        QVERIFY(QFile(m_store.file(u"there.csv"_s)).open(QIODevice::WriteOnly));
        ModalDialogs dialogs;
        for (const auto& [picture, typed, kinds, name] :
             {std::tuple{true, u"catch"_s, QList{Qt::Key_Down}, u"catch.svg"_s},
              {true, u"catch"_s, {Qt::Key_Down, Qt::Key_Up}, u"catch.png"_s},
              {true, u"catch.svg"_s, {}, u"catch.svg"_s},
              {true, u"there.csv"_s, {}, u""_s},
              {false, u"catch"_s, {}, u"catch"_s},
              {false, u"there.csv"_s, {}, u"there.csv"_s}}) {
            inBox([&, typed = typed, kinds = kinds](QWidget* box) {
                for (const Qt::Key kind : kinds) {
                    QTest::keyClick(box->findChild<QComboBox*>(u"fileTypeCombo"_s), kind);
                }
                auto* line = box->findChild<QLineEdit*>(u"fileNameEdit"_s);
                line->setText(m_store.file(typed));
                // A question whether the file is to be replaced is a no, which leaves the box.
                QTimer::singleShot(50, box, [box] {
                    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
                    QTest::keyClick(box, Qt::Key_Escape);
                });
                QTest::keyClick(line, Qt::Key_Return);
            });
            const auto path = picture ? dialogs.savePictureFile() : dialogs.saveCsvFile();
            QCOMPARE(QFileInfo(path.value_or(QString())).fileName(), name);
        }
    }

    /// A press while an import goes on begins no second one, and an error of the program is said.
    void progress() {
        int begun = 0;
        std::function<void()> store;
        store = guarded(m_store.dialogs, [&] {
            ++begun;
            Progress progress(u"Storing…"_s, 3);
            progress.step();
            QVERIFY(QApplication::activeModalWidget() == nullptr);
            QTest::qSleep(600);
            QTimer::singleShot(0, this, store);
            progress.step();
            auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            QTest::keyClick(box, Qt::Key_Escape);
            box->close();
            QVERIFY(box->isVisible());
            QCOMPARE(box->value(), 2);
            throw std::out_of_range("no column x");
        });
        for (const int times : {1, 2}) {
            m_store.dialogs.expect(u"! Kelvora: This could not be done: the program made a mistake."_s);
            store();
            QVERIFY(m_store.dialogs.missing().isEmpty());
            QCOMPARE(begun, times);
        }
    }
};

KELVORA_TEST(TestDialogs, "dialogs");

}  // namespace kelvora::test_dialogs

#include "test_dialogs.moc"
