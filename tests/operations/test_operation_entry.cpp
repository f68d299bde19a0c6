#include "operations/entry_desk.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QDateEdit>

namespace kelvora::test_operation_entry {

using namespace test;

/// A wrong text, and what comes of it when everything before it is right.
struct Wrong {
    QString field, text, title, message, after;
    bool focused;
};

const std::vector<Wrong>& wrongs() {
    const QString error = u"ERROR"_qs;
    const QString plain = u"Kelvora"_qs;
    const QString longitude = u"Longtitude Dec"_qs;
    const QString range = u"Dec of Longtitude between 92-125"_qs;
    static const std::vector<Wrong> all = {
        {kState, {}, error, u"please select state  first!"_qs, {}, true},
        {kPort, {}, error, u"please select sammpling port!"_qs, {}, true},
        {u"Fishing Area"_qs, u"A9"_qs, error, u"please select fishing area"_qs, u"A9"_qs, true},
        {kRegisterId, {}, error, u"please select vessel"_qs, {}, true},
        {u"Latitude Min"_qs, u"x"_qs, plain, u"Please input latitude in number"_qs, u"x"_qs, false},
        {u"Latitude Dec"_qs, u"26"_qs, error, u"Dec of Latitude between 0-25"_qs, {}, true},
        {u"Latitude Min"_qs, u"61"_qs, error, u"Min of Latitude between 0-60"_qs, {}, true},
        {longitude, u"91"_qs, error, range, {}, true},
        {longitude, u"126"_qs, error, range, {}, true},
        {u"Longtitude Min"_qs, u"-1"_qs, error, u"Min of Longtitude between 0-60"_qs, {}, true},
        {longitude, u"abc"_qs, plain, u"Please input longtitude in number"_qs, u"abc"_qs, false},
        {u"Bottom Depth(Meter)"_qs, u"deep"_qs, plain, u"Please input bottom depth (Meter) in number"_qs, u"0"_qs,
         false},
        {u"Fishing Depth(Meter)"_qs, {}, plain, u"Please input depth of water (Meter) in number"_qs, u"0"_qs, false},
        {u"No of haul per Trip(haul)"_qs, u"two"_qs, plain, u"Please input number of haul/trip  in number"_qs, u"0"_qs,
         false},
        {u"Duration of Trip(days)"_qs, u"1 2"_qs, plain, u"Please input dulation of trip  in number"_qs, u"0"_qs,
         false},
        {u"Total Catch (kg/trip)"_qs, u"0"_qs, plain, u"Please input Estimate Total Catch(kg/trip)"_qs, {}, true},
        {u"Fishing Method"_qs, u"Purse"_qs, plain, u"Please select fushing method"_qs, u"Purse"_qs, true},
    };
    return all;
}

/// The entry screen as a sampler uses it.
class TestOperationEntry : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Everything from one wrong text on is wrong: only the first is said, and only its field changes.
    void checksInOrder() {
        for (std::size_t first = 0; first < wrongs().size(); ++first) {
            Desk desk;
            desk.fill();
            for (std::size_t i = wrongs().size(); i-- > first;) {
                desk.at().type(wrongs()[i].field, wrongs()[i].text);
            }
            const Wrong& wrong = wrongs()[first];
            QHash<QString, QString> shown;
            for (const Wrong& other : wrongs()) {
                shown[other.field] = desk.at().text(other.field);
            }
            desk.at().button(u"SAVE"_qs)->setFocus();
            desk.store.dialogs.expectMessage(wrong.title, wrong.message);
            desk.save();
            QVERIFY2(desk.store.dialogs.done(), qPrintable(wrong.message));
            shown[wrong.field] = wrong.after;
            for (auto text = shown.cbegin(); text != shown.cend(); ++text) {
                QCOMPARE(desk.at().text(text.key()), text.value());
            }
            QVERIFY2(desk.at().focused(wrong.field) == wrong.focused, qPrintable(wrong.message));
            QCOMPARE(desk.operationCount(), u"0"_qs);
            QVERIFY(desk.at().enabled(u"SAVE"_qs));
            QCOMPARE(desk.store.session.lastSavedOperation, 0);
        }
    }

    void savedAndCleared() {
        Desk desk;
        desk.fill();
        const std::vector<std::pair<QString, QString>> numbers = {{u"Latitude Dec"_qs, u"25"_qs},
                                                                  {u"Latitude Min"_qs, u"60"_qs},
                                                                  {u"Longtitude Dec"_qs, u"101"_qs},
                                                                  {u"Longtitude Min"_qs, u" 7.250"_qs},
                                                                  {u"Bottom Depth(Meter)"_qs, u"40"_qs},
                                                                  {u"Fishing Depth(Meter)"_qs, u"35"_qs},
                                                                  {u"No of haul per Trip(haul)"_qs, u"4"_qs},
                                                                  {u"Duration of Trip(days)"_qs, u"2.5"_qs},
                                                                  {u"Total Catch (kg/trip)"_qs, u"1e3"_qs}};
        for (const auto& [caption, number] : numbers) {
            desk.at().type(caption, number);
        }
        desk.at().press(u"Night"_qs);
        desk.at().type(u"Recorder"_qs, u"Someone"_qs);
        desk.at().type(u"Note"_qs, u"calm sea"_qs);
        qobject_cast<QDateEdit*>(desk.at().field(u"Sampling Date"_qs))->setDate(QDate(1999, 12, 31));
        QCOMPARE(desk.at().text(u"Sampling Date"_qs), u"31/12/1999"_qs);
        desk.saveWell();
        QCOMPARE(
            desk.store.rows("select * from fishoperation"),
            QStringList{u"1|2|Someone|1999-12-31|2|25|60|101|7.25|40|35|Night|4|2.5|1000|calm sea|Sea Star|A2"_qs});
        QCOMPARE(desk.store.session.lastSavedOperation, 1);
        QVERIFY(!desk.at().enabled(u"SAVE"_qs));
        QCOMPARE(desk.at().text(kPort), u"Bex"_qs);

        desk.at().press(u"CLEAR"_qs);
        QCOMPARE(desk.store.session.lastSavedOperation, 0);
        QVERIFY(desk.at().enabled(u"SAVE"_qs));
        QVERIFY(desk.at().focused(kVesselName));
        QCOMPARE(desk.at().text(u"No."_qs), u"2"_qs);
        QCOMPARE(desk.at().text(u"Recorder"_qs), u"Port Sampler"_qs);
        QVERIFY(desk.at().button(u"Day"_qs)->isChecked());
        QCOMPARE(qobject_cast<QDateEdit*>(desk.at().field(u"Sampling Date"_qs))->date(), QDate::currentDate());
        for (const QString& empty : {kState, kPort, kRegisterId, kVesselName, u"Fishing Gear"_qs, u"Fishing Method"_qs,
                                     u"Fishing Area"_qs, u"Note"_qs}) {
            QCOMPARE(desk.at().text(empty), QString());
        }
        for (const auto& [caption, number] : numbers) {
            QCOMPARE(desk.at().text(caption), u"0"_qs);
        }
        desk.fill();
        desk.saveWell();
        QCOMPARE(desk.store.session.lastSavedOperation, 2);
        desk.screen.reset();
        QCOMPARE(desk.store.session.lastSavedOperation, 0);
    }

    void hostileTexts() {
        for (const QString& text :
             {u"O'Hara'); drop table state; -- 50 %1 \\ \"x\" & [y] <b> ปลาทู 鯖 مرسى 🐟"_qs, QString(10'000, u'鯖')}) {
            Desk desk;
            desk.store.db().execute(Sql("insert into fishing_area values(") << text << ",'')");
            desk.store.db().execute(Sql("insert into Fishing_method values(8,") << text << ",1)");
            desk.open();
            const int width = desk.screen->minimumSizeHint().width();
            desk.fill();
            for (const QString& field : {kState, kPort, kRegisterId, kVesselName, u"Fishing Method"_qs,
                                         u"Fishing Area"_qs, u"Recorder"_qs, u"Note"_qs}) {
                desk.at().type(field, text);
            }
            desk.store.dialogs.expectConfirm(kConfirm, stateQuestion(text), true);
            desk.store.dialogs.expectConfirm(kConfirm, portQuestion(text), true);
            desk.store.dialogs.expectConfirm(kConfirm, kVesselQuestion, true);
            desk.saveWell();
            QCOMPARE(desk.store.rows("select statename from state where stateid = 3"), QStringList{text});
            QCOMPARE(desk.store.rows("select samplingname from samplingport where samplingid = 4"), QStringList{text});
            QCOMPARE(desk.store.rows("select vesselid from vessel where vesselname is null"), QStringList{text});
            QCOMPARE(desk.store.rows("select vesselid, areaid, fishing_method, interviewer, note, portid"
                                     " from fishoperation"),
                     QStringList{u"%1|%1|8|%1|%1|4"_qs.arg(text)});
            QCOMPARE(desk.screen->minimumSizeHint().width(), width);
        }
    }

    void noNumberLeft() {
        Desk desk;
        desk.store.addOperation(32'767, 1, u"2026-01-01"_qs, 1, 1, u"Sea Star"_qs, u"A1"_qs);
        desk.store.dialogs.expectMessageContaining(u"at most 32767 fishing operations"_qs);
        desk.open();
        QCOMPARE(desk.at().text(u"No."_qs), QString());
        desk.fill();
        desk.at().type(kState, u"Gamma"_qs);
        desk.store.dialogs.expectMessageContaining(u"at most 32767 fishing operations"_qs);
        desk.save();
        QVERIFY(desk.store.dialogs.done());
        QCOMPARE(desk.operationCount(), u"1"_qs);
        QCOMPARE(desk.at().text(kState), u"Gamma"_qs);
    }

    void numberGivenElsewhere() {
        Desk desk;
        desk.fill();
        desk.store.addOperation(1, 1, u"2026-01-01"_qs, 1, 1, u"Sea Star"_qs, u"A1"_qs);
        desk.store.dialogs.expectMessageContaining(u"this operation now has No. 2"_qs);
        desk.save();
        QCOMPARE(desk.operationCount(), u"1"_qs);
        QCOMPARE(desk.store.session.lastSavedOperation, 0);
        desk.saveWell();
        QCOMPARE(desk.storedPorts(), (QStringList{u"1"_qs, u"2"_qs}));
    }

    void tabOrder() {
        const Desk desk;
        QVERIFY(desk.at().focused(kVesselName));
        for (const QString& next :
             {kRegisterId, u"Fishing Gear"_qs, u"Fishing Method"_qs, u"Fishing Area"_qs, kState, kPort,
              u"Sampling Date"_qs, u"Latitude Dec"_qs, u"Latitude Min"_qs, u"Longtitude Dec"_qs, u"Longtitude Min"_qs,
              u"Fishing time"_qs, u"Bottom Depth(Meter)"_qs, u"Fishing Depth(Meter)"_qs,
              u"No of haul per Trip(haul)"_qs, u"Duration of Trip(days)"_qs, u"Total Catch (kg/trip)"_qs,
              u"Recorder"_qs, u"Note"_qs}) {
            QTest::keyClick(desk.screen->focusWidget(), Qt::Key_Tab);
            QVERIFY2(desk.at().focused(next), qPrintable(next));
        }
        QTest::keyClick(desk.screen->focusWidget(), Qt::Key_Tab);
        QCOMPARE(desk.screen->focusWidget(), static_cast<QWidget*>(desk.at().button(u"SAVE"_qs)));
    }
};

KELVORA_TEST(TestOperationEntry, "operation_entry");

}  // namespace kelvora::test_operation_entry

#include "test_operation_entry.moc"
