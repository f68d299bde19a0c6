#include "controls/bound_list.h"
#include "controls/screen.h"
#include "data/result_set.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace kelvora::test_bound_list {

/// The typeable list of ports, with another list behind it.
class TestBoundList : public QObject {
    Q_OBJECT

    test::TemporaryStore m_store;
    std::unique_ptr<QWidget> m_window;
    BoundList* m_list = nullptr;
    FixedList* m_next = nullptr;

    /// Ports as a query gives them, without the last so many; two of them have the same name.
    static std::unique_ptr<ResultModel> ports(int without = 0) {
        ResultSet all{{u"portid"_s, u"portname"_s},
                      {{qlonglong{10}, u"Abo"_s},
                       {qlonglong{11}, u"Bex"_s},
                       {qlonglong{12}, u"Bex"_s},
                       {QVariant(), u"No key"_s},
                       {qlonglong{13}, u"Älv"_s}}};
        all.rows.resize(all.rows.size() - static_cast<std::size_t>(without));
        return std::make_unique<ResultModel>(all);
    }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<Screen>(u"Test"_s, m_store.context());
        auto* form = new QVBoxLayout(m_window.get());
        m_list = new BoundList;
        m_next = new FixedList({u"Day"_s, u"Night"_s});
        form->addWidget(m_list);
        form->addWidget(m_next);
        m_list->setSource(ports(), u"portname"_s, u"PORTID"_s);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void keys_data() {
        QTest::addColumn<QString>("shown");  // a text, or the key of a port in digits
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("said");  // c: a row was chosen, e: Enter on a finished text
        QTest::addColumn<int>("offered");
        const auto row = [](const QString& shown, const QString& keys, const QString& text, int key,
                            const QString& said, int offered = 0) {
            QTest::addRow("%s %s", qPrintable(shown), qPrintable(QString(keys).replace(u'\n', u'$')))
                << shown << keys << text << key << said << offered;
        };
        row({}, u"aBO\t"_s, u"Abo"_s, 10, u"c"_s);
        row({}, u"ÄLV\t"_s, u"Älv"_s, 13, u"c"_s);
        row({}, u"bex\t"_s, u"Bex"_s, 11, u"c"_s);
        row({}, u"bex\n"_s, u"Bex"_s, 11, u"ce"_s);
        row({}, u"bex\n\n\t"_s, u"Bex"_s, 11, u"cee"_s);
        row({}, u"no key\t"_s, u"No key"_s, 0, u"c"_s);
        row({}, u"Abo \t"_s, u"Abo "_s, 0, {});
        row({}, u"B*\t"_s, u"B*"_s, 0, {});
        row({}, u"ex"_s, u"ex"_s, 0, {}, 2);
        row({}, u"ex\t"_s, u"ex"_s, 0, {});
        row({}, u"ex\n"_s, u"ex"_s, 0, u"e"_s);
        row({}, u"be!"_s, u"be"_s, 0, {});
        row({}, u"bx<"_s, u"b"_s, 0, {}, 3);
        row({}, u"be__\n"_s, u"Bex"_s, 12, u"c"_s);
        row({}, u"be__\n\n"_s, u"Bex"_s, 12, u"ce"_s);
        row({}, u"be__\t"_s, u"Bex"_s, 12, u"c"_s);
        row(u"12"_s, u"\n\t"_s, u"Bex"_s, 12, u"e"_s);
        row(u"12"_s, u"^"_s, u"Bex"_s, 11, u"c"_s);
        row(u"12"_s, u"<<<\t"_s, {}, 0, {});
        row(u"abo"_s, u"\n\t"_s, u"abo"_s, 10, u"e"_s);
        row(u"99"_s, u"\t"_s, {}, 0, {});
    }
    void keys() {
        QFETCH(QString, shown);
        QFETCH(QString, keys);
        QFETCH(int, key);
        const int number = shown.toInt();
        number > 0 ? m_list->setKey(shown) : m_list->setText(shown);
        QString said;
        const QObject here;
        connect(m_list, &BoundList::chosen, &here, [&] { said += u'c'; });
        connect(m_list, &BoundList::entered, &here, [&] { said += u'e'; });
        m_list->setFocus();
        static const QMap<QChar, Qt::Key> named = {{u'\n', Qt::Key_Return}, {u'\t', Qt::Key_Tab},
                                                   {u'_', Qt::Key_Down},    {u'^', Qt::Key_Up},
                                                   {u'!', Qt::Key_Escape},  {u'<', Qt::Key_Backspace}};
        for (const QChar letter : keys) {
            if (named.contains(letter)) {
                QTest::keyClick(m_list, named[letter]);
            } else {
                QTest::sendKeyEvent(QTest::Click, m_list, Qt::Key_unknown, letter, Qt::NoModifier);
            }
        }
        QTEST(m_list->text(), "text");
        QCOMPARE(m_list->key().toInt(), key);
        QCOMPARE(m_list->key().isValid(), key != 0);
        QTEST(said, "said");
        const QAbstractItemView* offers = m_list->completer()->popup();
        QTEST(offers->isVisible() ? offers->model()->rowCount() : 0, "offered");
        QCOMPARE(m_next->hasFocus(), keys.endsWith(u'\t'));
        m_next->setFocus();
        QVERIFY(!offers->isVisible());
    }

    /// What another window or program has done to the ports meanwhile changes nothing that is shown, and announces
    /// nothing.
    void newSources() {
        const QSignalSpy chosen(m_list, &BoundList::chosen);
        const auto shown = [&] {
            return u"%1 %2 %3"_s.arg(m_list->text()).arg(m_list->row()).arg(m_list->key().toInt());
        };
        m_list->setKey(13);
        m_list->refill(ports(1), u"portname"_s, u"portid"_s);
        QCOMPARE(shown(), u"Älv -1 13"_s);
        QCOMPARE(m_list->count(), 4);
        m_list->refill(ports(), u"portname"_s, u"portid"_s);
        QCOMPARE(shown(), u"Älv 4 13"_s);
        m_list->setKey(12);
        m_list->setSource(ports(1), u"portname"_s, u"portid"_s);
        QCOMPARE(shown(), u"Bex 2 12"_s);

        // The keyboard stays in its place in a text that is being typed, of which nothing is offered twice.
        m_list->setText({});
        m_list->setFocus();
        QTest::keyClicks(m_list, u"axo"_s);
        QTest::keyClick(m_list, Qt::Key_Left);
        m_list->setSource(ports(), u"portname"_s, u"portid"_s);
        QTest::keyClick(m_list, Qt::Key_Backspace);
        QTest::keyClick(m_list, Qt::Key_B);
        m_list->setSource(ports(1), u"portname"_s, u"portid"_s);
        QCOMPARE(m_list->findChildren<QCompleter*>().size(), 1);
        QCOMPARE(chosen.size(), 0);
        QTest::keyClick(m_list, Qt::Key_Tab);
        QCOMPARE(shown(), u"Abo 0 10"_s);
        QCOMPARE(chosen.size(), 1);

        m_list->clearSource();
        QCOMPARE(shown(), u" -1 0"_s);
    }

    void wheelNeedsTheFocus() {
        for (QComboBox* list : {static_cast<QComboBox*>(m_list), static_cast<QComboBox*>(m_next)}) {
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
};

KELVORA_TEST(TestBoundList, "bound_list");

}  // namespace kelvora::test_bound_list

#include "test_bound_list.moc"
