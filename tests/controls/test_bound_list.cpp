#include "controls/bound_list.h"
#include "controls/screen.h"
#include "data/result_set.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
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
    QString m_said;  // c: a row was chosen, e: Enter on a finished text

    /// Ports as a query gives them, without the last so many; two of them have the same name.
    static std::unique_ptr<ResultModel> ports(std::size_t without = 0) {
        ResultSet all{{u"portid"_s, u"portname"_s},
                      {{qlonglong{10}, u"Abo"_s},
                       {qlonglong{11}, u"Bex"_s},
                       {qlonglong{12}, u"Bex"_s},
                       {QVariant(), u"No key"_s},
                       {qlonglong{13}, u"Älv"_s}}};
        all.rows.resize(all.rows.size() - without);
        return std::make_unique<ResultModel>(all);
    }
    /// What the list shows, the key of that, and what it has said since.
    QString shown() { return m_list->text() + u'|' + m_list->key().toString() + u'|' + std::exchange(m_said, {}); }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<Screen>(u"Test"_s, m_store.context());
        auto* form = new QVBoxLayout(m_window.get());
        m_list = new BoundList;
        m_next = new FixedList({u"Day"_s, u"Night"_s});
        form->addWidget(m_list);
        form->addWidget(m_next);
        m_list->setSource(ports(), u"portname"_s, u"PORTID"_s);
        connect(m_list, &BoundList::chosen, this, [this] { m_said += u'c'; });
        connect(m_list, &BoundList::entered, this, [this] { m_said += u'e'; });
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    /// A text or key that is shown, and the keys; the text, key and signals then, and the number of rows offered.
    void keys() {
        const std::map<QChar, Qt::Key> named = {{u'$', Qt::Key_Return}, {u'>', Qt::Key_Tab},
                                                {u'_', Qt::Key_Down},   {u'^', Qt::Key_Up},
                                                {u'!', Qt::Key_Escape}, {u'<', Qt::Key_Backspace}};
        for (const QString& row :
             {u"|ÄLV>|Älv|13|c|0"_s, u"|bex$$>|Bex|11|cee|0"_s, u"|no key>|No key||c|0"_s, u"|Abo >|Abo |||0"_s,
              u"|B*>|B*|||0"_s, u"|ex|ex|||2"_s, u"|ex$|ex||e|0"_s, u"|be!|be|||0"_s, u"|bx<|b|||3"_s,
              u"|be__$$|Bex|12|ce|0"_s, u"|be__>|Bex|12|c|0"_s, u"12|$>|Bex|12|e|0"_s, u"12|^|Bex|11|c|0"_s,
              u"12|<<<>||||0"_s, u"abo|$>|abo|10|e|0"_s, u"99|>||||0"_s}) {
            const QString before = row.section(u'|', 0, 0);
            const QString keys = row.section(u'|', 1, 1);
            m_list->setText({});
            before.toInt() > 0 ? m_list->setKey(before) : m_list->setText(before);
            m_list->setFocus();
            for (const QChar letter : keys) {
                const auto key = named.find(letter);
                QTest::sendKeyEvent(QTest::Click, m_list, key == named.end() ? Qt::Key_unknown : key->second,
                                    key == named.end() ? QString(letter) : QString(), Qt::NoModifier);
            }
            const QAbstractItemView* offers = m_list->completer()->popup();
            const int offered = offers->isVisible() ? offers->model()->rowCount() : 0;
            QCOMPARE(u"%1|%2|%3|%4"_s.arg(before, keys, shown()).arg(offered), row);
            QCOMPARE(m_next->hasFocus(), keys.endsWith(u'>'));
            m_next->setFocus();
            QVERIFY(!offers->isVisible());
            m_said.clear();
        }
    }

    /// What another window or program has done to the ports meanwhile changes nothing that is shown, and announces
    /// nothing; the keyboard stays in its place in a text that is being typed.
    void newSources() {
        m_list->setKey(13);
        m_list->refill(ports(1), u"portname"_s, u"portid"_s);
        QCOMPARE(shown() + QString::number(m_list->count()), u"Älv|13|4"_s);
        m_list->setKey(12);
        m_list->setSource(ports(), u"portname"_s, u"portid"_s);
        QCOMPARE(shown(), u"Bex|12|"_s);
        m_list->setText(u"axo"_s);
        m_list->setFocus();
        QTest::keyClick(m_list, Qt::Key_Left);
        m_list->setSource(ports(1), u"portname"_s, u"portid"_s);
        QTest::keyClick(m_list, Qt::Key_Backspace);
        QTest::keyClicks(m_list, u"b\t"_s);
        QCOMPARE(shown(), u"Abo|10|c"_s);
    }

    void wheelNeedsTheFocus() {
        for (const bool focus : {false, true}) {
            m_list->setKey(10);
            focus ? m_list->setFocus() : m_next->setFocus();
            QWheelEvent down({5, 5}, m_list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, {}, false);
            QApplication::sendEvent(m_list, &down);
            QCOMPARE(m_list->row(), focus ? 1 : 0);
        }
    }
};

KELVORA_TEST(TestBoundList, "bound_list");

}  // namespace kelvora::test_bound_list

#include "test_bound_list.moc"
