#include "operations/entry_desk.h"
#include "support/test_main.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;

namespace kelvora::test_operation_entry {

using namespace test;

/// A wrong text, and what comes of it when everything before it is right.
struct Wrong {
    QString field, text, title, message, after;
    bool focused;
};

const std::vector<Wrong>& wrongs() {
    const QString error = u"ERROR"_s;
    const QString plain = u"Kelvora"_s;
    const QString longitude = u"Longtitude Dec"_s;
    const QString range = u"Dec of Longtitude between 92-125"_s;
    static const std::vector<Wrong> all = {
        {kState, {}, error, u"please select state  first!"_s, {}, true},
        {kPort, {}, error, u"please select sammpling port!"_s, {}, true},
        {u"Fishing Area"_s, u"A9"_s, error, u"please select fishing area"_s, u"A9"_s, true},
        {kRegisterId, {}, error, u"please select vessel"_s, {}, true},
        {u"Latitude Min"_s, u"x"_s, plain, u"Please input latitude in number"_s, u"x"_s, false},
        {u"Latitude Dec"_s, u"26"_s, error, u"Dec of Latitude between 0-25"_s, {}, true},
        {u"Latitude Min"_s, u"61"_s, error, u"Min of Latitude between 0-60"_s, {}, true},
        {longitude, u"91"_s, error, range, {}, true},
        {longitude, u"126"_s, error, range, {}, true},
        {u"Longtitude Min"_s, u"-1"_s, error, u"Min of Longtitude between 0-60"_s, {}, true},
        {longitude, u"abc"_s, plain, u"Please input longtitude in number"_s, u"abc"_s, false},
        {u"Bottom Depth(Meter)"_s, u"deep"_s, plain, u"Please input bottom depth (Meter) in number"_s, u"0"_s, false},
        {u"Fishing Depth(Meter)"_s, {}, plain, u"Please input depth of water (Meter) in number"_s, u"0"_s, false},
        {u"No of haul per Trip(haul)"_s, u"two"_s, plain, u"Please input number of haul/trip  in number"_s, u"0"_s,
         false},
        {u"Duration of Trip(days)"_s, u"1 2"_s, plain, u"Please input dulation of trip  in number"_s, u"0"_s, false},
        {u"Total Catch (kg/trip)"_s, u"0"_s, plain, u"Please input Estimate Total Catch(kg/trip)"_s, {}, true},
        {u"Fishing Method"_s, u"Purse"_s, plain, u"Please select fushing method"_s, u"Purse"_s, true},
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
            desk.at().button(u"SAVE"_s)->setFocus();
            desk.store.dialogs.expectMessage(wrong.title, wrong.message);
            desk.save();
            QVERIFY2(desk.store.dialogs.done(), qPrintable(wrong.message));
            shown[wrong.field] = wrong.after;
            for (auto text = shown.cbegin(); text != shown.cend(); ++text) {
                QCOMPARE(desk.at().text(text.key()), text.value());
            }
            QVERIFY2(desk.at().focused(wrong.field) == wrong.focused, qPrintable(wrong.message));
            QCOMPARE(desk.operationCount(), u"0"_s);
            QVERIFY(desk.at().enabled(u"SAVE"_s));
            QCOMPARE(desk.store.session.lastSavedOperation, 0);
        }
    }

    void savedAndCleared() {
        Desk desk;
        desk.fill();
        const std::vector<std::pair<QString, QString>> numbers = {{u"Latitude Dec"_s, u"25"_s},
                                                                  {u"Latitude Min"_s, u"60"_s},
                                                                  {u"Longtitude Dec"_s, u"101"_s},
                                                                  {u"Longtitude Min"_s, u" 7.250"_s},
                                                                  {u"Bottom Depth(Meter)"_s, u"40"_s},
                                                                  {u"Fishing Depth(Meter)"_s, u"35"_s},
                                                                  {u"No of haul per Trip(haul)"_s, u"4"_s},
                                                                  {u"Duration of Trip(days)"_s, u"2.5"_s},
                                                                  {u"Total Catch (kg/trip)"_s, u"1e3"_s}};
        for (const auto& [caption, number] : numbers) {
            desk.at().type(caption, number);
        }
        desk.at().press(u"Night"_s);
        desk.at().type(u"Recorder"_s, u"Someone"_s);
        desk.at().type(u"Note"_s, u"calm sea"_s);
        desk.at().type(u"Sampling Date"_s, u"31/12/99"_s);
        QCOMPARE(desk.at().text(u"Sampling Date"_s), u"31/12/1999"_s);
        desk.saveWell();
        QCOMPARE(desk.store.rows("select * from fishoperation"),
                 QStringList{u"1|2|Someone|1999-12-31|2|25|60|101|7.25|40|35|Night|4|2.5|1000|calm sea|Sea Star|A2"_s});
        QCOMPARE(desk.store.session.lastSavedOperation, 1);
        QVERIFY(!desk.at().enabled(u"SAVE"_s));
        QCOMPARE(desk.at().text(kPort), u"Bex"_s);

        desk.at().press(u"CLEAR"_s);
        QCOMPARE(desk.store.session.lastSavedOperation, 0);
        QVERIFY(desk.at().enabled(u"SAVE"_s));
        QVERIFY(desk.at().focused(kVesselName));
        QCOMPARE(desk.at().text(u"No."_s), u"2"_s);
        QCOMPARE(desk.at().text(u"Recorder"_s), u"Port Sampler"_s);
        QVERIFY(desk.at().button(u"Day"_s)->isChecked());
        QCOMPARE(desk.at().text(u"Sampling Date"_s), QLocale().toString(QDate::currentDate(), u"dd/MM/yyyy"_s));
        for (const QString& empty : {kState, kPort, kRegisterId, kVesselName, u"Fishing Gear"_s, u"Fishing Method"_s,
                                     u"Fishing Area"_s, u"Note"_s}) {
            QCOMPARE(desk.at().text(empty), QString());
        }
        for (const auto& [caption, number] : numbers) {
            QCOMPARE(desk.at().text(caption), u"0"_s);
        }
        desk.fill();
        desk.saveWell();
        QCOMPARE(desk.store.session.lastSavedOperation, 2);
        desk.screen.reset();
        QCOMPARE(desk.store.session.lastSavedOperation, 0);
    }

    void hostileTexts() {
        for (const QString& text :
             {u"O'Hara'); drop table state; -- 50 %1 \\ \"x\" & [y] <b> ปลาทู 鯖 مرسى 🐟"_s, QString(10'000, u'鯖')}) {
            Desk desk;
            desk.store.db().execute(Sql("insert into fishing_area values(") << text << ",'')");
            desk.store.db().execute(Sql("insert into Fishing_method values(8,") << text << ",1)");
            desk.open();
            const int width = desk.screen->minimumSizeHint().width();
            desk.fill();
            for (const QString& field : {kState, kPort, kRegisterId, kVesselName, u"Fishing Method"_s,
                                         u"Fishing Area"_s, u"Recorder"_s, u"Note"_s}) {
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
                     QStringList{u"%1|%1|8|%1|%1|4"_s.arg(text)});
            QCOMPARE(desk.screen->minimumSizeHint().width(), width);
        }
    }

    void noNumberLeft() {
        Desk desk;
        desk.store.addOperation(32'767, 1, u"2026-01-01"_s, 1, 1, u"Sea Star"_s, u"A1"_s);
        desk.store.dialogs.expectMessageContaining(u"at most 32767 fishing operations"_s);
        desk.open();
        QCOMPARE(desk.at().text(u"No."_s), QString());
        desk.fill();
        desk.at().type(kState, u"Gamma"_s);
        desk.at().type(kPort, u"Gao"_s);
        desk.store.dialogs.expectMessageContaining(u"at most 32767 fishing operations"_s);
        desk.save();
        QVERIFY(desk.store.dialogs.done());
        QCOMPARE(desk.operationCount(), u"1"_s);
        QCOMPARE(desk.at().text(kState), u"Gamma"_s);
    }

    void numberGivenElsewhere() {
        Desk desk;
        desk.fill();
        desk.store.addOperation(1, 1, u"2026-01-01"_s, 1, 1, u"Sea Star"_s, u"A1"_s);
        desk.store.dialogs.expectMessageContaining(u"this operation now has No. 2"_s);
        desk.save();
        QCOMPARE(desk.operationCount(), u"1"_s);
        QCOMPARE(desk.store.session.lastSavedOperation, 0);
        desk.saveWell();
        QCOMPARE(desk.storedPorts(), (QStringList{u"1"_s, u"2"_s}));
    }

    void tabOrder() {
        const Desk desk;
        QVERIFY(desk.at().focused(kVesselName));
        for (const QString& next :
             {kRegisterId, u"Fishing Gear"_s, u"Fishing Method"_s, u"Fishing Area"_s, kState, kPort, u"Sampling Date"_s,
              u"Latitude Dec"_s, u"Latitude Min"_s, u"Longtitude Dec"_s, u"Longtitude Min"_s, u"Fishing time"_s,
              u"Bottom Depth(Meter)"_s, u"Fishing Depth(Meter)"_s, u"No of haul per Trip(haul)"_s,
              u"Duration of Trip(days)"_s, u"Total Catch (kg/trip)"_s, u"Recorder"_s, u"Note"_s}) {
            QTest::keyClick(desk.screen->focusWidget(), Qt::Key_Tab);
            QVERIFY2(desk.at().focused(next), qPrintable(next));
        }
        QTest::keyClick(desk.screen->focusWidget(), Qt::Key_Tab);
        QCOMPARE(desk.screen->focusWidget(), static_cast<QWidget*>(desk.at().button(u"SAVE"_s)));
    }
};

KELVORA_TEST(TestOperationEntry, "operation_entry");

}  // namespace kelvora::test_operation_entry

#include "test_operation_entry.moc"
