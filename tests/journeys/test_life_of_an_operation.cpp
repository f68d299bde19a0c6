#include "opened_screen.h"
#include "support/recording_dialogs.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QDate>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_life_of_an_operation {

/// A tab of a screen, with the action that opens it.
struct Place {
    QString action, title, tab;
};

const QString kToday = QDate::currentDate().toString(Qt::ISODate);
const QString kSearch = u"Criterion = Vessel; Value = Blue Fin; SEARCH; "_s;
const Place kComposition = {u"Species Composition"_s, u"Species Composition"_s, u"Species Composition"_s};
const Place kFoundComposition = {u"Search"_s, u"Search"_s, u"Species Composition"_s};
const Place kFoundLengths = {u"Search"_s, u"Search"_s, u"Length Frequency"_s};

/// An operation from its record to its end, through the real screens: sampled three ways, found again, each sample
/// mended, deleted. At each step the boxes come that are to come, and afterwards the file differs by the rows of that
/// step and by nothing else.
class TestLifeOfAnOperation : public QObject {
    Q_OBJECT

    void step(const Place& place, const QString& frame, const QString& steps, const QStringList& boxes,
              const QStringList& changes) {
        const QStringList before = m_store.wholeFile();
        m_dialogs.asked.clear();
        m_dialogs.said.clear();
        const test::ScreenDriver hand = test::openedScreen(*m_window, place.action, place.title);
        if (!place.tab.isEmpty()) {
            hand.openTab(place.tab);
        }
        (frame.isEmpty() ? hand : hand.within(frame)).enter(steps);
        QCOMPARE(m_dialogs.asked + m_dialogs.said, boxes);
        QCOMPARE(test::changes(before, m_store.wholeFile()), changes);
    }

    test::TemporaryStore m_store;
    test::RecordingDialogs m_dialogs;
    std::unique_ptr<MainWindow> m_window;

private Q_SLOTS:
    void initTestCase() {
        m_store.addReferenceRows();
        m_store.execute("update fish set classinterval = 2 where fishno = 1");
        // What another day recorded stays as it is.
        m_store.addOperation(1, 3, u"2004-03-09"_s, 1, 120, u"Sea Star"_s, u"A1"_s);
        m_store.addSamples(1);
        m_window = std::make_unique<MainWindow>(Context{m_store.path(), m_store.session, m_dialogs});
        m_window->show();
    }

    void record() {
        step({u"Fishing Operation"_s, u"Fishing Information"_s, {}}, {},
             u"Vessel Name = Blue Fin; Fishing Gear = Gill net; Fishing Method = Drift; Fishing Area = A2; "
             "Landing State/Province = Alpha; Landing Port = Bex; Latitude Dec = 7; Longtitude Dec = 99; "
             "Total Catch (kg/trip) = 80.5; SAVE"_s,
             {u"Kelvora: Insert Complete"_s},
             {u"+ operation|2|2|Port Sampler|%1|3|7|0|99|0|0|0|Day|0|0|80.5||Blue Fin|A2"_s.arg(kToday)});
    }
    void weighASingleSpecies() {
        step(kComposition, u"Single species"_s, u"Species = Rastrelliger kanagurta; Weight = 12.5; Add"_s, {},
             {u"+ group_composition|2|1|1|12.5|12.5"_s, u"+ group_main|1|2|Single species|12.5"_s});
    }
    void weighAGroup() {
        step(kComposition, u"Sampling group"_s,
             u"Group = Trash; Total weight = 60; Species = Nemipterus virgatus; Weight = 4; ADD; SAVE"_s,
             {u"CONFIRM: Are you sure to 'SAVE' this group"_s},
             {u"+ group_composition|2|3|2|4|60"_s, u"+ group_main|2|2|Trash|60"_s});
    }
    void measureLengths() {
        step({u"Length Frequency"_s, u"Length Frequency"_s, u"Length Frequency"_s}, {},
             u"Species = Rastrelliger kanagurta; Sampling weight = 2.5; Lower limit(cm) = 11; START INPUT>>; "
             "Frequency = 3\n; Frequency = 0\n; FINISH; SAVE"_s,
             {u"Confirm: Are you sure to insert this data"_s},
             {u"+ length|2|1|2.5"_s, u"+ length_detail|2|1|10|12|11|3"_s, u"+ length_detail|2|1|12|14|13|0"_s});
    }
    void measureFish() {
        step({u"Gonad Maturity"_s, u"Gonad Matuarity Detail"_s, u"Gonad Maturity Detail"_s}, {},
             u"Species = Nemipterus virgatus; ADD SAMPLING >>; TL(mm) = 152; BL(mm) = 130; FL(mm) = 141; "
             "SL(mm) = 128; BW = 30; GW = 1; SEX = Female; Stage = 3-Ripe; NEXT>>; SAVE"_s,
             {u"GONAD: Are you sure to add this sampling"_s, u"Confirm: Are you sure to add this data to database"_s},
             {u"+ gonad|2|3|0.03"_s, u"+ gonad_detail|2|3|1|152|130|141|128|30|Female|3|1|3.33333333333333"_s});
    }
    void deleteAGroup() {
        step(kFoundComposition, {}, kSearch + u"Delete group"_s, {u"Kelvora: Are you sure to delete this group?"_s},
             {u"- group_composition|2|1|1|12.5|12.5"_s, u"- group_main|1|2|Single species|12.5"_s});
    }
    void correctTheWeight() {
        step(kFoundLengths, {}, kSearch + u"Sample weight (kg.) = 2.75; Update"_s, {u"RESULT: Update complete!"_s},
             {u"- length|2|1|2.5"_s, u"+ length|2|1|2.75"_s});
    }
    void addAClass() {
        step(kFoundLengths, {}, kSearch + u"Frequency = 7\n"_s, {}, {u"+ length_detail|2|1|14|16|15|7"_s});
    }
    void addAFish() {
        step({u"Search"_s, u"Search"_s, u"Gonad Matuarity"_s}, {},
             kSearch +
                 u"TL(mm) = 100; BL(mm) = 101; FL(mm) = 102; SL(mm) = 103; BW = 100; GW = 2.5; SEX = Male; "
                 "Stage = 2-Maturing; ADD"_s,
             {u"GONAD: Are you sure to add this sampling"_s},
             {u"+ gonad_detail|2|3|2|100|101|102|103|100|Male|2|2.5|2.5"_s});
    }
    void deleteIt() {
        step(kFoundComposition, {}, kSearch + u"DELETE"_s,
             {u"CONFIRM: Are you sure to delete all data in this operation?"_s},
             {u"- operation|2|2|Port Sampler|%1|3|7|0|99|0|0|0|Day|0|0|80.5||Blue Fin|A2"_s.arg(kToday),
              u"- gonad|2|3|0.03"_s, u"- gonad_detail|2|3|1|152|130|141|128|30|Female|3|1|3.33333333333333"_s,
              u"- gonad_detail|2|3|2|100|101|102|103|100|Male|2|2.5|2.5"_s, u"- group_composition|2|3|2|4|60"_s,
              u"- group_main|2|2|Trash|60"_s, u"- length|2|1|2.75"_s, u"- length_detail|2|1|10|12|11|3"_s,
              u"- length_detail|2|1|12|14|13|0"_s, u"- length_detail|2|1|14|16|15|7"_s});
    }
};

KELVORA_TEST(TestLifeOfAnOperation, "life_of_an_operation");

}  // namespace kelvora::test_life_of_an_operation

#include "test_life_of_an_operation.moc"
