#include "hard_knocks/system_calls.h"
#include "stage.h"
#include "support/test_main.h"

#include <QDirIterator>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

/// Cases written as steps in the .steps files beside this one: a sampler at the main window, on a file of its own with
/// TemporaryStore::addSmallYear(), several screens open.
///
///     # a comment
///     * What the case is about
///     sql delete from fish where fishno = 2          another program changes the file
///     open Species Composition                       a button of the toolbar; of a menu: open Report/Gonad Maturity
///     sample Length Frequency of Sea Star            the entry of a sampling screen, at a vessel's first operation
///     show Search                                    an open screen, by the menu "Windows"
///     close, minimize                                the screen in front
///     tab Species Composition                        a tab of the screen in front
///     in Sampling group                              what follows is inside this frame, until the next tab or screen
///     > Group = Trash; Total weight = 60             fields (rows of lists are chosen, else typed) and buttons
///     > SAVE
///       ? CONFIRM: Are you sure … -> Yes             a question: Yes, No, a typed text, or cancel; boxes also
///                                                    stand behind their press, parted by three blanks
///       ! ERROR: …deleted…                           a message; "…" at an end of a text stands for anything
///       ? open file -> fish.csv                      a file dialog (also: save file, save picture); a data file of
///                                                    the tests, or one of this case
///       + group_main|2|1|Trash|60 // - area|A9|bank  rows that came into the file, or went
///       + 221 rows of vessel
///       once                                         not to be tried against obstacles first
///     go Result Next                                 First, Previous, Next, Last of a navigator
///     to Weight, clicks Delete                       the keyboard goes to a field; three fast clicks on a button
///     keys 12.5<Alt+A><Return>                       real keys, wherever the keyboard is
///     walk <Tab> Weight, ADD, SAVE                   a key, and where the keyboard is after each press
///     row Measured fish 2, doubleclick …             a row of a grid
///     language de_DE                                 of the screens opened from now on, in this case
///     file fish.csv                                  writes a file of the lines below
///       | TL,BL,FL,SL,BW,SEX,Stage,GW
///     text Weight = 12.5; Species =                  fields, captions of navigators
///     focus Weight      selected Weight      enabled SAVE, CLEAR      disabled SAVE      shown …      hidden …
///     checked Day, Night      unchecked …            options that are chosen or not
///     line …is not registered…      noline …      front Search      fronttab Species
///     options Species = A a|B b      count Vessel import = 221
///     headers Group = A|B                            or of all grids that are seen: headers = A|B // C|D
///     windows = Search|Length Frequency              what the menu "Windows" lists, and what can be pressed in the
///     toolbar = Fishing Operation|Exit               toolbar
///     rows Composition = A|1 // B|2                  also: written summary.csv, stored select …, and
///     picture                                        a name and its bars, from the left or the top; behind "=", or as
///       | Alpha|2                                    lines below
///     drawn = Title|Species|Weight (kg)|0 5 1 %.0f|Male #0072b2    what stands around its bars, and their colours
///     each -1 | ten                                  what follows until "end" once for each value, {1}; or for each
///     each                                           row of values {1}, {2} …, in which "¦" stands for "|"
///       | -1 | A weight cannot be negative
///     > Weight = {1}; Add
///       ! ERROR!: {2}
///     end
///
/// "\n" is a line break, {today} the date, {today/} as screens show it, {W*10000} as many of a text. Every box that
/// comes must be named and every named box must come; every change of the whole file must be listed behind the step
/// that makes it. Each saving step is tried again with each of its tables refusing, on a full disk, in a folder that
/// may not be written to, and with the file held by another program: it must be said why, nothing may be stored,
/// nothing on the screen may change, and the step must work afterwards.
namespace kelvora::test_steps {

class TestSteps : public QObject {
    Q_OBJECT

    static inline QString s_case;
    static inline QtMessageHandler s_report = nullptr;
    QList<test::StepCase> m_cases;

private Q_SLOTS:
    void initTestCase() {
        const QString file = qEnvironmentVariable("KELVORA_STEPS", u"*.steps"_s);
        for (QDirIterator files(u"" KELVORA_STEPS_FOLDER ""_s, {file}); files.hasNext();) {
            m_cases += test::casesOf(files.next());
        }
        QVERIFY(!m_cases.isEmpty());
        test::doNotSleep();  // not a second for each held file
        // What the driver cannot find ends the test at once: then the case is named.
        s_report = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& at, const QString& text) {
            s_report(type, at, type == QtFatalMsg ? s_case + u": "_s + text : text);
        });
    }

    void steps_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("obstacles");
        const auto saves = [](const test::Step& step) { return !step.changes.isEmpty() && !step.once; };
        for (int i = 0; i < m_cases.size(); ++i) {
            const QString name = m_cases[i].file + u": "_s + m_cases[i].title;
            QTest::newRow(qPrintable(name)) << i << false;
            if (std::ranges::any_of(m_cases[i].steps, saves)) {
                QTest::newRow(qPrintable(name + u" (against obstacles)"_s)) << i << true;
            }
        }
    }
    void steps() {
        QFETCH(int, index);
        QFETCH(bool, obstacles);
        s_case = QString::fromUtf8(QTest::currentDataTag());
        const QString wrong = test::Stage(obstacles).play(m_cases[index]);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
};

KELVORA_TEST(TestSteps, "steps");

}  // namespace kelvora::test_steps

#include "test_steps.moc"
