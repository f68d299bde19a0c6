#include "controls/bound_list.h"
#include "controls/fields.h"
#include "controls/screen.h"
#include "data/result_set.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QGridLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace kelvora::test_bound_list {

/// Ports as a query gives them; two of them have the same name.
std::unique_ptr<ResultModel> ports() {
    const QVariant none;
    return std::make_unique<ResultModel>(ResultSet{{u"portid"_s, u"portname"_s},
                                                   {{qlonglong{10}, u"Abo"_s},
                                                    {qlonglong{11}, u"Bex"_s},
                                                    {qlonglong{12}, u"Bex"_s},
                                                    {qlonglong{13}, u"Älv"_s},
                                                    {none, u"No key"_s}}});
}

/// The typeable list of ports between two other fields.
class TestBoundList : public QObject {
    Q_OBJECT

    test::TemporaryStore m_store;
    std::unique_ptr<QWidget> m_window;
    BoundList* m_list = nullptr;
    std::unique_ptr<QSignalSpy> m_chosen;

    void fill() { m_list->setSource(ports(), u"portname"_s, u"PORTID"_s); }
    void type(const QString& text) { test::ScreenDriver(m_window.get()).type(u"Port"_s, text); }
    void press(Qt::Key key) { test::ScreenDriver(m_window.get()).key(u"Port"_s, key); }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<Screen>(u"Test"_s, m_store.context());
        auto* form = new QGridLayout(m_window.get());
        m_list = new BoundList;
        addField(form, 0, 0, u" Port"_s, m_list);
        addField(form, 1, 0, u" Next"_s, new QLineEdit);
        fill();
        m_chosen = std::make_unique<QSignalSpy>(m_list, &BoundList::chosen);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    void cleanup() { m_window.reset(); }

    void typed_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("announced");
        const auto row = [](const char* name, const QString& typed, const QString& text, int key, int announced) {
            QTest::newRow(name) << typed << text << key << announced;
        };
        row("other letter case", u"aBO"_s, u"Abo"_s, 10, 1);
        row("equal texts: the first", u"bex"_s, u"Bex"_s, 11, 1);
        row("case in every alphabet", u"älv"_s, u"Älv"_s, 13, 1);
        row("a part that is offered", u"ex"_s, u"ex"_s, 0, 0);
        row("a blank behind", u"Abo "_s, u"Abo "_s, 0, 0);
        row("a pattern", u"B*"_s, u"B*"_s, 0, 0);
        row("a row without key", u"no key"_s, u"No key"_s, 0, 1);
        row("nothing", {}, {}, 0, 0);
    }
    void typed() {
        QFETCH(QString, typed);
        QFETCH(int, key);
        type(typed);
        QTEST(m_list->text(), "text");
        QCOMPARE(m_list->key().isValid(), key != 0);
        QCOMPARE(m_list->key().toInt(), key);
        QTEST(static_cast<int>(m_chosen->size()), "announced");
        QVERIFY(test::ScreenDriver(m_window.get()).focused(u"Next"_s));
        QVERIFY(QApplication::activePopupWidget() == nullptr);
    }

    void offeredRows() {
        m_list->setFocus();
        QTest::keyClicks(m_list, u"be"_s);
        QVERIFY(m_list->completer()->popup()->isVisible());
        press(Qt::Key_Return);
        QCOMPARE(m_list->text(), u"be"_s);
        QCOMPARE(m_chosen->size(), 0);
        QTest::keyClicks(m_list, u"x"_s);
        m_list->setFocus();
        QTest::keyClick(m_list, Qt::Key_Backspace);
        QVERIFY(m_list->completer()->popup()->isVisible());
        m_list->clearFocus();
        QVERIFY(!m_list->completer()->popup()->isVisible());
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
            m_list->setText({});
            m_list->setFocus();
            QTest::keyClicks(m_list, u"be"_s);
            press(Qt::Key_Down);
            press(Qt::Key_Down);
            press(key);
            QCOMPARE(m_list->text(), u"Bex"_s);
            QCOMPARE(m_list->key().toInt(), 12);
            QCOMPARE(m_chosen->size(), key == Qt::Key_Return ? 1 : 2);
        }
    }

    void chosenRowWinsOverEqualText() {
        m_list->setFocus();
        m_list->setKey(12);
        QCOMPARE(m_list->text(), u"Bex"_s);
        press(Qt::Key_Return);
        press(Qt::Key_Tab);
        QCOMPARE(m_list->key().toInt(), 12);
        QCOMPARE(m_chosen->size(), 0);
        m_list->setFocus();
        press(Qt::Key_Up);
        QCOMPARE(m_list->key().toInt(), 11);
        QCOMPARE(m_chosen->size(), 1);
    }

    void passingAShownTextAnnouncesNothing() {
        m_list->setText(u"abo"_s);
        m_list->setFocus();
        press(Qt::Key_Return);
        press(Qt::Key_Tab);
        QCOMPARE(m_list->text(), u"abo"_s);
        QCOMPARE(m_list->key().toInt(), 10);
        QCOMPARE(m_chosen->size(), 0);
    }

    void keysAndSources() {
        QVERIFY(!m_list->key().isValid());
        m_list->setKey(99);
        m_list->setKey(QVariant());
        QCOMPARE(m_list->row(), -1);
        m_list->setKey(u"11"_s);
        QCOMPARE(m_list->row(), 1);
        m_list->setText({});
        QVERIFY(!m_list->key().isValid());

        // A source that comes anew keeps what is shown.
        m_list->setKey(12);
        fill();
        QCOMPARE(m_list->key().toInt(), 12);
        m_list->setText(u"Cay"_s);
        fill();
        QCOMPARE(m_list->text(), u"Cay"_s);
        QCOMPARE(m_list->row(), -1);
        QCOMPARE(m_chosen->size(), 0);
        QCOMPARE(m_list->findChildren<QCompleter*>().size(), 1);

        m_list->clearSource();
        QCOMPARE(m_list->count(), 0);
        QCOMPARE(m_list->text(), QString());
        type(u"Abo"_s);
        QCOMPARE(m_list->row(), -1);
        fill();
        QCOMPARE(m_list->key().toInt(), 10);
    }

    void wheelNeedsTheFocus() {
        FixedList fixed({u"Day"_s, u"Night"_s}, m_window.get());
        fixed.show();
        for (QComboBox* list : {static_cast<QComboBox*>(m_list), static_cast<QComboBox*>(&fixed)}) {
            for (const bool focus : {false, true}) {
                list->setCurrentIndex(0);
                focus ? list->setFocus() : list->clearFocus();
                QWheelEvent down({5, 5}, list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                                 Qt::NoScrollPhase, false);
                QApplication::sendEvent(list, &down);
                QCOMPARE(list->currentIndex(), focus ? 1 : 0);
                QCOMPARE(down.isAccepted(), focus);
            }
        }
    }

    void longTextsDoNotWiden() {
        const int width = m_list->sizeHint().width();
        const ResultSet rows{{u"name"_s}, {{QString(10'000, u'W')}}};
        m_list->setSource(std::make_unique<ResultModel>(rows), u"name"_s, u"name"_s);
        QCOMPARE(m_list->sizeHint().width(), width);
    }
};

KELVORA_TEST(TestBoundList, "bound_list");

}  // namespace kelvora::test_bound_list

#include "test_bound_list.moc"
