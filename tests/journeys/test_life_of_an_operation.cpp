#include "opened_screen.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QDate>
#include <QTest>

#include <functional>

namespace kelvora::test_life_of_an_operation {

const QString kToday = QDate::currentDate().toString(Qt::ISODate);

/// An operation from its record to its end, through the real screens: sampled three ways, found again, each sample
/// mended, deleted. After each step the file differs by the rows of that step and by nothing else.
class TestLifeOfAnOperation : public QObject {
    Q_OBJECT

private:
    test::ScreenDriver open(const QString& action, const QString& title) const {
        return test::openedScreen(*m_window, action, title);
    }

    /// The rows that a step took from the file ("- …") and those it added ("+ …").
    QStringList changes(const std::function<void()>& step) {
        const QStringList before = m_store.wholeFile();
        step();
        const QStringList after = m_store.wholeFile();
        QStringList changed;
        for (const QString& row : before) {
            changed += after.contains(row) ? QStringList() : QStringList(u"- "_qs + row);
        }
        for (const QString& row : after) {
            changed += before.contains(row) ? QStringList() : QStringList(u"+ "_qs + row);
        }
        return changed;
    }

    void confirm(const QString& title, const QString& text) { m_store.dialogs.expectConfirm(title, text, true); }

    test::ScreenDriver found(const QString& tab) const {
        const test::ScreenDriver hand = open(u"Search"_qs, u"Search"_qs);
        hand.choose(u"Criterion"_qs, u"Vessel"_qs);
        hand.choose(u"Value"_qs, u"Blue Fin"_qs);
        hand.press(u"SEARCH"_qs);
        hand.openTab(tab);
        return hand;
    }

    test::TemporaryStore m_store;
    std::unique_ptr<MainWindow> m_window;

private Q_SLOTS:
    void initTestCase() {
        m_store.addReferenceRows();
        m_store.execute("update fish set classinterval = 2 where fishno = 1");
        // What another day recorded stays as it is.
        m_store.addOperation(1, 3, u"2004-03-09"_qs, 1, 120, u"Sea Star"_qs, u"A1"_qs);
        m_store.execute("insert into group_main values (1, 1, 'Single species', 30)");
        m_store.execute("insert into group_composition values (1, 1, 1, 30, 30)");
        m_store.execute("insert into length values (1, 1, 2.5)");
        m_store.execute("insert into length_detail values (1, 1, 10, 12, 11, 4)");
        m_store.execute("insert into gonad values (1, 1, 0.4)");
        m_store.execute("insert into gonad_detail values (1, 1, 1, 100, 90, 95, 85, 200, 'Male', 2, 10, 5)");
        m_window = std::make_unique<MainWindow>(m_store.context());
        m_window->show();
    }

    void record() {
        const auto hand = open(u"Fishing Operation"_qs, u"Fishing Information"_qs);
        const QStringList changed = changes([&] {
            for (const QStringList& chosen :
                 {QStringList{u"Vessel Name"_qs, u"Blue Fin"_qs}, QStringList{u"Fishing Gear"_qs, u"Gill net"_qs},
                  QStringList{u"Fishing Method"_qs, u"Drift"_qs}, QStringList{u"Fishing Area"_qs, u"A2"_qs},
                  QStringList{u"Landing State/Province"_qs, u"Alpha"_qs}, QStringList{u"Landing Port"_qs, u"Bex"_qs}}) {
                hand.choose(chosen[0], chosen[1]);
            }
            hand.type(u"Latitude Dec"_qs, u"7"_qs);
            hand.type(u"Longtitude Dec"_qs, u"99"_qs);
            hand.type(u"Total Catch (kg/trip)"_qs, u"80.5"_qs);
            m_store.dialogs.expectMessage(u"Insert Complete"_qs);
            hand.press(u"SAVE"_qs);
        });
        QCOMPARE(
            changed,
            QStringList{u"+ operation|2|2|Port Sampler|%1|3|7|0|99|0|0|0|Day|0|0|80.5||Blue Fin|A2"_qs.arg(kToday)});
    }

    void weigh() {
        const auto hand = open(u"Species Composition"_qs, u"Species Composition"_qs);
        const QStringList single = changes([&] {
            const auto frame = hand.within(u"Single species"_qs);
            frame.choose(u"Species"_qs, u"Rastrelliger kanagurta"_qs);
            frame.type(u"Weight"_qs, u"12.5"_qs);
            frame.press(u"Add"_qs);
        });
        QCOMPARE(single,
                 QStringList({u"+ group_composition|2|1|1|12.5|12.5"_qs, u"+ group_main|1|2|Single species|12.5"_qs}));
        const QStringList raised = changes([&] {
            const auto frame = hand.within(u"Sampling group"_qs);
            frame.type(u"Group"_qs, u"Trash"_qs);
            frame.type(u"Total weight"_qs, u"60"_qs);
            frame.choose(u"Species"_qs, u"Nemipterus virgatus"_qs);
            frame.type(u"Weight"_qs, u"4"_qs);
            frame.press(u"ADD"_qs);
            confirm(u"CONFIRM"_qs, u"Are you sure to 'SAVE' this group"_qs);
            frame.press(u"SAVE"_qs);
        });
        QCOMPARE(raised, QStringList({u"+ group_composition|2|3|2|4|60"_qs, u"+ group_main|2|2|Trash|60"_qs}));
    }

    void measureLengths() {
        const auto hand = open(u"Length Frequency"_qs, u"Length Frequency"_qs);
        const QStringList changed = changes([&] {
            hand.openTab(u"Length Frequency"_qs);
            hand.choose(u"Species"_qs, u"Rastrelliger kanagurta"_qs);
            hand.type(u"Sampling weight"_qs, u"2.5"_qs);
            hand.type(u"Lower limit(cm)"_qs, u"11"_qs);
            hand.press(u"START INPUT>>"_qs);
            for (const QString& count : {u"3"_qs, u"0"_qs}) {
                hand.type(u"Frequency"_qs, count);
                hand.key(u"Frequency"_qs, Qt::Key_Return);
            }
            hand.press(u"FINISH"_qs);
            confirm(u"Confirm"_qs, u"Are you sure to insert this data"_qs);
            hand.press(u"SAVE"_qs);
        });
        QCOMPARE(changed, QStringList({u"+ length|2|1|2.5"_qs, u"+ length_detail|2|1|10|12|11|3"_qs,
                                       u"+ length_detail|2|1|12|14|13|0"_qs}));
    }

    void measureFish() {
        const auto hand = open(u"Gonad Maturity"_qs, u"Gonad Matuarity Detail"_qs);
        const QStringList changed = changes([&] {
            hand.openTab(u"Gonad Maturity Detail"_qs);
            hand.choose(u"Species"_qs, u"Nemipterus virgatus"_qs);
            hand.press(u"ADD SAMPLING >>"_qs);
            for (const QStringList& typed : {QStringList{u"TL(mm)"_qs, u"152"_qs}, QStringList{u"BL(mm)"_qs, u"130"_qs},
                                             QStringList{u"FL(mm)"_qs, u"141"_qs}, QStringList{u"SL(mm)"_qs, u"128"_qs},
                                             QStringList{u"BW"_qs, u"30"_qs}, QStringList{u"GW"_qs, u"1"_qs}}) {
                hand.type(typed[0], typed[1]);
            }
            hand.choose(u"SEX"_qs, u"Female"_qs);
            hand.choose(u"Stage"_qs, u"3-Ripe"_qs);
            confirm(u"GONAD"_qs, u"Are you sure to add this sampling"_qs);
            hand.press(u"NEXT>>"_qs);
            confirm(u"Confirm"_qs, u"Are you sure to add this data to database"_qs);
            hand.press(u"SAVE"_qs);
        });
        QCOMPARE(changed, QStringList({u"+ gonad|2|3|0.03"_qs,
                                       u"+ gonad_detail|2|3|1|152|130|141|128|30|Female|3|1|3.33333333333333"_qs}));
    }

    void mendTheGroups() {
        const auto hand = found(u"Species Composition"_qs);
        const QStringList changed = changes([&] {
            hand.move(u"Group record"_qs, u"Last"_qs);
            confirm(kApplicationTitle.toString(), u"Are you sure to delete this group?"_qs);
            hand.press(u"Delete group"_qs);
        });
        QCOMPARE(changed, QStringList({u"- group_composition|2|3|2|4|60"_qs, u"- group_main|2|2|Trash|60"_qs}));
        QCOMPARE(hand.rows(u"Composition"_qs), QStringList{u"Rastrelliger kanagurta|12.50|100.00"_qs});
    }

    void mendTheLengths() {
        const auto hand = found(u"Length Frequency"_qs);
        QCOMPARE(changes([&] {
                     hand.type(u"Sample weight (kg.)"_qs, u"2.75"_qs);
                     m_store.dialogs.expectMessage(u"RESULT"_qs, u"Update complete!"_qs);
                     hand.press(u"Update"_qs);
                 }),
                 QStringList({u"- length|2|1|2.5"_qs, u"+ length|2|1|2.75"_qs}));
        QCOMPARE(changes([&] {
                     hand.type(u"Frequency"_qs, u"7"_qs);
                     hand.key(u"Frequency"_qs, Qt::Key_Return);
                 }),
                 QStringList{u"+ length_detail|2|1|14|16|15|7"_qs});
    }

    void mendTheFish() {
        const auto hand = found(u"Gonad Matuarity"_qs);
        const QStringList changed = changes([&] {
            for (const QString& field : {u"TL(mm)"_qs, u"BL(mm)"_qs, u"FL(mm)"_qs, u"SL(mm)"_qs, u"BW"_qs}) {
                hand.type(field, u"100"_qs);
            }
            hand.type(u"GW"_qs, u"2.5"_qs);
            hand.choose(u"SEX"_qs, u"Male"_qs);
            hand.choose(u"Stage"_qs, u"2-Maturing"_qs);
            confirm(u"GONAD"_qs, u"Are you sure to add this sampling"_qs);
            hand.press(u"ADD"_qs);
        });
        QCOMPARE(changed, QStringList{u"+ gonad_detail|2|3|2|100|100|100|100|100|Male|2|2.5|2.5"_qs});
    }

    void deleteIt() {
        const auto hand = found(u"Species Composition"_qs);
        const QStringList changed = changes([&] {
            confirm(u"CONFIRM"_qs, u"Are you sure to delete all data in this operation?"_qs);
            hand.press(u"DELETE"_qs);
        });
        QCOMPARE(changed.size(), 10);
        for (const QString& row : changed) {
            QVERIFY2(
                row.startsWith(u'-') && row.section(u'|', row.contains(u"group_main"_qs) ? 2 : 1).startsWith(u"2|"),
                qPrintable(row));
        }
        QCOMPARE(m_store.rows("select optid from fishoperation"), QStringList{u"1"_qs});
        QVERIFY(m_store.dialogs.done());
        m_window->close();
    }
};

KELVORA_TEST(TestLifeOfAnOperation, "life_of_an_operation");

}  // namespace kelvora::test_life_of_an_operation

#include "test_life_of_an_operation.moc"
