#include "controls/dialogs.h"
#include "controls/style.h"
#include "office.h"
#include "shell/program.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTextStream>

#include <algorithm>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace kelvora::bench {
namespace {

const QString kFolder = u"" KELVORA_BENCH_FILES ""_s;

double milliseconds(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Milliseconds of each of so many rounds, sorted, behind two that warm up.
template <typename Round>
std::vector<double> measured(int rounds, const Round& round) {
    std::vector<double> all;
    for (int i = 0; i < rounds + 2; ++i) {
        const double waited = round();
        if (i >= 2) {
            all.push_back(waited);
        }
    }
    std::ranges::sort(all);
    return all;
}

void count(benchmark::State& state, const std::vector<double>& screen, const std::vector<double>& direct) {
    state.counters["median"] = screen[screen.size() / 2];
    state.counters["worst"] = screen.back();
    if (!direct.empty()) {
        state.counters["direct"] = direct[direct.size() / 2];
        state.counters["ratio"] = screen[screen.size() / 2] / direct[direct.size() / 2];
    }
}

void measure(benchmark::State& state, Office& office, const Action& action) {
    const auto call = [&](const std::function<void(Office&)>& step) {
        if (step) {
            step(office);
        }
    };
    int painted = 0;
    for ([[maybe_unused]] auto round : state) {
        // In turn, so that what else the machine does meets both alike.
        std::vector<double> direct;
        const auto screen = measured(action.times, [&] {
            call(action.before);
            office.settle();
            const double waited = milliseconds([&] {
                action.run(office);
                painted += action.paints ? office.settle() : 1;
            });
            office.ask(action.undo);
            call(action.after);
            if (!action.direct.empty()) {
                direct.push_back(milliseconds([&] { office.ask(action.direct); }));
                office.ask(action.undo);
            }
            return waited;
        });
        std::ranges::sort(direct);
        state.SetIterationTime(screen[screen.size() / 2] / 1e3);
        count(state, screen, direct);
    }
    if (painted == 0) {
        state.SkipWithError("nothing was painted: that is not what a sampler waits for");
    }
}

/// One line of a table for each action, as docs/performance.md has it.
class Table : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& /*context*/) override {
        m_out << "| action | median ms | worst ms | direct ms | ratio |\n|---|--:|--:|--:|--:|\n";
        return true;
    }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            m_out << "| " << QString::fromStdString(run.run_name.function_name);
            for (const auto& [name, decimals] : {std::pair{"median", 1}, {"worst", 1}, {"direct", 2}, {"ratio", 1}}) {
                const auto found = run.counters.find(name);
                m_out << " | "
                      << (found == run.counters.end() ? QString() : QString::number(found->second, 'f', decimals));
            }
            m_out << (run.error_occurred ? QString::fromStdString(run.error_message) : QString()) << " |\n";
            m_out.flush();
        }
    }

private:
    QTextStream m_out{stdout};
};

/// What main() of the program does, up to the painted login dialog; the parent process waits for the line.
int startOnly(const QString& path) {
    applyStyle(*qApp);
    ModalDialogs dialogs;
    Program program(path, dialogs);
    if (!program.start()) {
        return 1;
    }
    QCoreApplication::processEvents();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        window->grab();
    }
    QTextStream(stdout) << "shown" << Qt::endl;
    return 0;
}

/// From the start of a process to its painted login dialog.
void measureStart(benchmark::State& state, const QString& path) {
    for ([[maybe_unused]] auto round : state) {
        const auto waited = measured(15, [&] {
            QProcess program;
            const double shown = milliseconds([&] {
                program.start(QCoreApplication::applicationFilePath(), {u"--start"_s, path});
                program.waitForReadyRead();
            });
            program.waitForFinished();
            if (program.exitCode() != 0) {
                state.SkipWithError("the program did not start");
            }
            return shown;
        });
        state.SetIterationTime(waited[waited.size() / 2] / 1e3);
        count(state, waited, {});
    }
}

/// From "Log in" to the painted main window.
void measureLogin(benchmark::State& state, const QString& path) {
    for ([[maybe_unused]] auto round : state) {
        const auto waited = measured(15, [&] {
            test::PlannedDialogs dialogs;
            Program program(path, dialogs);
            program.start();
            QCoreApplication::processEvents();
            const auto windows = QApplication::topLevelWidgets();
            const auto login = std::ranges::find_if(
                windows, [](const QWidget* w) { return w->isVisible() && w->inherits("kelvora::LoginDialog"); });
            const test::ScreenDriver hand(*login);
            hand.type(u"PASSWORD"_s, u"kelvora"_s);
            return milliseconds([&] {
                hand.press(u"Log in"_s);
                QCoreApplication::processEvents();
                for (QWidget* window : QApplication::topLevelWidgets()) {
                    if (window->inherits("kelvora::MainWindow") && window->isVisible()) {
                        window->grab();
                    }
                }
            });
        });
        state.SetIterationTime(waited[waited.size() / 2] / 1e3);
        count(state, waited, {});
    }
}

void add(const QString& name, const std::function<void(benchmark::State&)>& body) {
    benchmark::RegisterBenchmark(name.toStdString().c_str(), body)->UseManualTime()->Iterations(1);
}

int run(const QString& size, const QString& preparation) {
    const QString path = databaseOf(sizeCalled(size), kFolder);
    add(u"program start to login dialog"_s, [&](auto& state) { measureStart(state, path); });
    add(u"login to main window"_s, [&](auto& state) { measureLogin(state, path); });

    Office office(sizeCalled(size), kFolder, preparation);
    const double signedIn = residentMegabytes();
    openAll(office);
    const double opened = residentMegabytes();
    std::vector<Action> actions = screenActions();
    std::ranges::move(sampleActions(office), std::back_inserter(actions));
    std::ranges::move(reportActions(), std::back_inserter(actions));
    for (const Action& action : actions) {
        add(action.name, [&](auto& state) { measure(state, office, action); });
    }
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
    QTextStream(stdout) << "\nResident memory, MB: main window " << qRound(signedIn) << ", all screens opened "
                        << qRound(opened) << ", after all actions with all screens open " << qRound(residentMegabytes())
                        << "\n";
    return 0;
}

}  // namespace
}  // namespace kelvora::bench

/// kelvora_bench SIZE [STATEMENTS] [--benchmark_filter=…]; "--make SIZE" only makes the data file. STATEMENTS are run
/// on the copy of the data file first, for instance ANALYZE.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "default.warning=false");  // what a platform without a display cannot do
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    const QStringList arguments = QApplication::arguments();
    try {
        if (arguments.value(1) == u"--make") {
            kelvora::bench::databaseOf(kelvora::bench::sizeCalled(arguments.value(2)), kelvora::bench::kFolder);
            return 0;
        }
        if (arguments.value(1) == u"--start") {
            return kelvora::bench::startOnly(arguments.value(2));
        }
        kelvora::applyStyle(*qApp);
        return kelvora::bench::run(arguments.value(1), arguments.value(2));
    } catch (const std::exception& failure) {
        QTextStream(stderr) << failure.what() << "\n";
        return 1;
    }
}
