#include "controls/bound_list.h"
#include "controls/fields.h"
#include "data/result_set.h"
#include "support/screen_driver.h"
#include "support/test_main.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QGridLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace kelvora::test_bound_list {

/// Ports as a query gives them; two of them have the same name.
std::unique_ptr<ResultModel> ports() {
    ResultSet rows;
    rows.columns = {QStringLiteral("portid"), QStringLiteral("portname")};
    const QStringList names{QStringLiteral("Abo"), QStringLiteral("Bex"), QStringLiteral("Bex"), QStringLiteral("Älv")};
    for (int i = 0; i < names.size(); ++i) {
        rows.rows.push_back({QVariant(qlonglong{10 + i}), QVariant(names[i])});
    }
    rows.rows.push_back({QVariant(), QVariant(QStringLiteral("No key"))});
    return std::make_unique<ResultModel>(std::move(rows));
}

/// The typeable list of ports between two other fields.
class TestBoundList : public QObject {
    Q_OBJECT

    std::unique_ptr<QWidget> m_window;
    BoundList* m_list = nullptr;
    std::unique_ptr<QSignalSpy> m_chosen;

    void fill() { m_list->setSource(ports(), QStringLiteral("portname"), QStringLiteral("PORTID")); }
    void type(const QString& text) { test::ScreenDriver(m_window.get()).type(QStringLiteral("Port"), text); }
    void press(Qt::Key key) { test::ScreenDriver(m_window.get()).key(QStringLiteral("Port"), key); }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<QWidget>();
        auto* form = new QGridLayout(m_window.get());
        m_list = new BoundList;
        addField(form, 0, 0, QStringLiteral(" Port"), m_list);
        addField(form, 1, 0, QStringLiteral(" Next"), new QLineEdit);
        fill();
        m_chosen = std::make_unique<QSignalSpy>(m_list, &BoundList::chosen);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    void cleanup() { m_window.reset(); }

    void startsEmpty() {
        QCOMPARE(m_list->text(), QString());
        QCOMPARE(m_list->row(), -1);
        QVERIFY(!m_list->key().isValid());
    }

    void typed_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("key");
        QTest::addColumn<int>("announced");
        QTest::newRow("a row's text") << "Abo"
                                      << "Abo" << QVariant(10) << 1;
        QTest::newRow("other letter case") << "aBO"
                                           << "Abo" << QVariant(10) << 1;
        QTest::newRow("equal texts: the first") << "bex"
                                                << "Bex" << QVariant(11) << 1;
        QTest::newRow("only A to Z are folded") << QStringLiteral("älv") << QStringLiteral("älv") << QVariant() << 0;
        QTest::newRow("the start of a text") << "Ab"
                                             << "Ab" << QVariant() << 0;
        QTest::newRow("a part that is offered") << "ex"
                                                << "ex" << QVariant() << 0;
        QTest::newRow("a blank behind") << "Abo "
                                        << "Abo " << QVariant() << 0;
        QTest::newRow("a pattern") << "B*"
                                   << "B*" << QVariant() << 0;
        QTest::newRow("a row without key") << "no key"
                                           << "No key" << QVariant() << 1;
        QTest::newRow("nothing") << ""
                                 << "" << QVariant() << 0;
    }
    void typed() {
        QFETCH(QString, typed);
        QFETCH(QVariant, key);
        type(typed);
        QTEST(m_list->text(), "text");
        QCOMPARE(m_list->key().isValid(), key.isValid());
        QCOMPARE(m_list->key().toInt(), key.toInt());
        QTEST(static_cast<int>(m_chosen->size()), "announced");
        QVERIFY(test::ScreenDriver(m_window.get()).focused(QStringLiteral("Next")));
        QVERIFY(QApplication::activePopupWidget() == nullptr);
    }

    void typedTextStaysOnEnter() {
        m_list->setFocus();
        QTest::keyClicks(m_list, QStringLiteral("be"));
        QVERIFY(m_list->completer()->popup()->isVisible());
        press(Qt::Key_Return);
        QCOMPARE(m_list->text(), QStringLiteral("be"));
        QCOMPARE(m_chosen->size(), 0);
    }

    void offeredRow_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Enter") << Qt::Key_Return;
        QTest::newRow("Tab") << Qt::Key_Tab;
    }
    void offeredRow() {
        QFETCH(Qt::Key, key);
        m_list->setFocus();
        QTest::keyClicks(m_list, QStringLiteral("be"));
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(key);
        QCOMPARE(m_list->text(), QStringLiteral("Bex"));
        QCOMPARE(m_list->key().toInt(), 12);
        QCOMPARE(m_chosen->size(), 1);
    }

    void chosenRowWinsOverEqualText() {
        m_list->setFocus();
        m_list->setKey(12);
        QCOMPARE(m_list->text(), QStringLiteral("Bex"));
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
        m_list->setText(QStringLiteral("abo"));
        m_list->setFocus();
        press(Qt::Key_Return);
        press(Qt::Key_Tab);
        QCOMPARE(m_list->text(), QStringLiteral("abo"));
        QCOMPARE(m_list->key().toInt(), 10);
        QCOMPARE(m_chosen->size(), 0);
    }

    void keys() {
        m_list->setKey(99);
        m_list->setKey(QVariant());
        QCOMPARE(m_list->row(), -1);
        m_list->setKey(QStringLiteral("11"));
        QCOMPARE(m_list->row(), 1);
        m_list->setText({});
        QVERIFY(!m_list->key().isValid());
    }

    void newSourceKeepsWhatIsShown() {
        m_list->setKey(12);
        fill();
        QCOMPARE(m_list->key().toInt(), 12);
        m_list->setText(QStringLiteral("Cay"));
        fill();
        QCOMPARE(m_list->text(), QStringLiteral("Cay"));
        QCOMPARE(m_list->row(), -1);
        QCOMPARE(m_chosen->size(), 0);
        QCOMPARE(m_list->findChildren<QCompleter*>().size(), 1);
    }

    void clearedSourceHasNoRows() {
        m_list->setKey(11);
        m_list->clearSource();
        QCOMPARE(m_list->count(), 0);
        QCOMPARE(m_list->text(), QString());
        type(QStringLiteral("Abo"));
        QCOMPARE(m_list->row(), -1);
        fill();
        QCOMPARE(m_list->key().toInt(), 10);
    }

    void openCheck() {
        bool mayOpen = false;
        m_list->setOpenCheck([&] { return mayOpen; });
        m_list->showPopup();
        QVERIFY(!m_list->view()->isVisible());
        mayOpen = true;
        m_list->showPopup();
        QVERIFY(m_list->view()->isVisible());
        m_list->hidePopup();
    }

    void wheelNeedsTheFocus_data() {
        QTest::addColumn<bool>("focus");
        QTest::newRow("without focus") << false;
        QTest::newRow("with focus") << true;
    }
    void wheelNeedsTheFocus() {
        QFETCH(bool, focus);
        auto* fixed = new FixedList({QStringLiteral("Day"), QStringLiteral("Night")}, m_window.get());
        fixed->show();
        for (QComboBox* list : {static_cast<QComboBox*>(m_list), static_cast<QComboBox*>(fixed)}) {
            list->setCurrentIndex(0);
            focus ? list->setFocus() : list->clearFocus();
            QWheelEvent down({5, 5}, list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                             Qt::NoScrollPhase, false);
            QApplication::sendEvent(list, &down);
            QCOMPARE(list->currentIndex(), focus ? 1 : 0);
            QCOMPARE(down.isAccepted(), focus);
        }
    }

    void longTextsDoNotWiden() {
        const int width = m_list->sizeHint().width();
        ResultSet rows;
        rows.columns = {QStringLiteral("name")};
        rows.rows.push_back({QString(10'000, u'W')});
        m_list->setSource(std::make_unique<ResultModel>(rows), QStringLiteral("name"), QStringLiteral("name"));
        m_list->setKey(QString(10'000, u'w'));
        QCOMPARE(m_list->text().size(), 10'000);
        QCOMPARE(m_list->sizeHint().width(), width);
    }
};

KELVORA_TEST(TestBoundList, "bound_list");

}  // namespace kelvora::test_bound_list

#include "test_bound_list.moc"
