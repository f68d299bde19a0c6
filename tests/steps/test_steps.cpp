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
///     show Search                                    an open screen, by the menu "Windows"
///     close                                          the screen in front
///     tab Species Composition                        a tab of the screen in front
///     in Sampling group                              what follows is inside this frame, until the next tab or screen
///     > Group = Trash; Total weight = 60             fields (rows of lists are chosen, else typed) and buttons
///     > SAVE
///       ? CONFIRM: Are you sure … -> Yes             a question: Yes, No, a typed text, or cancel
///       ! ERROR: …deleted…                           a message; "…" at an end of a text stands for anything
///       ? open file -> fish.csv                      a file dialog (also: save file, save picture)
///       + group_main|2|1|Trash|60                    a row that came into the file, or (-) went
///       once                                         not to be tried against an obstacle first
///     go Result Next                                 First, Previous, Next, Last of a navigator
///     to Weight                                      the keyboard goes to a field
///     keys 12.5<Alt+A><Return>                       real keys, wherever the keyboard is
///     file fish.csv                                  writes a file of the lines below
///       | TL,BL,FL,SL,BW,SEX,Stage,GW
///     text Weight = 12.5      focus Weight      selected Weight      enabled SAVE, CLEAR      disabled SAVE
///     options Species = A a|B b      line …is not registered…      noline …      front Search      fronttab Species
///     windows = Search|Length Frequency                what the menu "Windows" lists, enabled if it lists something
///     rows Composition, written summary.csv          followed by their rows as lines with |
///     picture                                        likewise: a name and its bars, from the left or the top
///
/// Every box that comes must be named and every named box must come; every change of the whole file must be listed
/// behind the step that makes it. Each saving step is replayed with each of its tables refusing, on a full disk, and
/// with the file held by another program: nothing may be stored then, it must be said, and the step must work
/// afterwards.
namespace kelvora::test_steps {

class TestSteps : public QObject {
    Q_OBJECT

    static inline QString s_case;
    static inline QtMessageHandler s_report = nullptr;
    QList<test::StepCase> m_cases;

    void addRows(bool savingOnly) {
        QTest::addColumn<int>("index");
        const auto saves = [](const test::StepLine& line) {
            return line.text.startsWith(u"+ "_s) || line.text.startsWith(u"- "_s);
        };
        for (int i = 0; i < m_cases.size(); ++i) {
            if (savingOnly && std::ranges::none_of(m_cases[i].lines, saves)) {
                continue;
            }
            QTest::newRow(qPrintable(m_cases[i].file + u": "_s + m_cases[i].title)) << i;
        }
    }

    void play(test::Obstacle obstacle) {
        QFETCH(int, index);
        s_case = m_cases[index].file + u": "_s + m_cases[index].title;
        test::Stage stage(obstacle);
        const QString wrong = stage.play(m_cases[index]);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

private Q_SLOTS:
    void initTestCase() {
        for (QDirIterator files(u"" KELVORA_STEPS ""_s, {u"*.steps"_s}); files.hasNext();) {
            m_cases += test::casesOf(files.next());
        }
        QVERIFY(!m_cases.isEmpty());
        // What the driver cannot find ends the test at once: then the case is named.
        s_report = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& at, const QString& text) {
            s_report(type, at, type == QtFatalMsg ? s_case + u": "_s + text : text);
        });
    }

    void steps_data() { addRows(false); }
    void steps() { play(test::Obstacle::None); }

    void againstRefusingTables_data() { addRows(true); }
    void againstRefusingTables() { play(test::Obstacle::RefusingTable); }

    void onAFullDisk_data() { addRows(true); }
    void onAFullDisk() { play(test::Obstacle::FullDisk); }

    void onALockedFile_data() { addRows(true); }
    void onALockedFile() { play(test::Obstacle::LockedFile); }
};

KELVORA_TEST(TestSteps, "steps");

}  // namespace kelvora::test_steps

#include "test_steps.moc"
