#include "hard_knocks/system_calls.h"
#include "stage.h"
#include "support/test_main.h"

#include <QDirIterator>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_steps {

/// The cases of the .steps files beside this one; docs/steps.md says how they are written.
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
