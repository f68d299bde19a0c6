#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "shell/program.h"
#include "shell/single_instance.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <future>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvora::test_second_start {

/// The program is started while it runs already: with the program itself, and with its parts in one process.
class TestSecondStart : public QObject {
    Q_OBJECT

    template <typename Window>
    static Window* shownWindow() {
        QWidgetList all = QApplication::topLevelWidgets();
        all.removeIf([](const QWidget* one) { return !one->isVisible() || !qobject_cast<const Window*>(one); });
        return qobject_cast<Window*>(all.value(0));
    }

    /// The program, started by a user whose data folder is a folder of the test's.
    struct Started {
        Started(const test::TemporaryStore& store, const QString& folder)
            : dataFile(store.file(folder + u"/.local/share/Kelvora/kelvora_db.sqlite"_s)) {
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(u"HOME"_s, store.file(folder));
            // Ignored, as it is not absolute.
            environment.insert(u"XDG_DATA_HOME"_s, u"here"_s);
            environment.insert(u"TMPDIR"_s, store.file({}));
            environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
            process.setProcessEnvironment(environment);
            process.start(u"" KELVORA_PROGRAM ""_s, QStringList());
        }
        ~Started() {
            process.kill();
            process.waitForFinished();
        }
        /// Whether it left, satisfied, without having opened a window that waits for somebody.
        bool left() {
            return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        }
        bool stays() {
            return QTest::qWaitFor([this] { return QFile::exists(dataFile); }) && process.state() == QProcess::Running;
        }

        QString dataFile;
        QProcess process;
    };

private Q_SLOTS:
    void theProgramItself() {
        const test::TemporaryStore store;
        Started first(store, u"sampler"_s);
        QVERIFY(first.stays());
        QVERIFY(Started(store, u"sampler"_s).left());
        // Another sampler's data folder is another program.
        QVERIFY(Started(store, u"colleague"_s).stays());
        QVERIFY(first.stays());

        first.process.kill();
        QVERIFY(first.process.waitForFinished());
        QVERIFY(QFile::exists(first.dataFile + u".lock"_s));
        QVERIFY(QFile::remove(first.dataFile));
        QVERIFY(Started(store, u"sampler"_s).stays());
    }

    /// The lock decides, not who can be called: a program that hangs, or of another session, has the file open.
    void aFirstThatDoesNotAnswer() {
        const test::TemporaryStore store;
        const QString link = store.file(u"link.sqlite"_s);
        QVERIFY(QFile::link(store.path(), link));
        {
            SingleInstance first(store.path());
            QVERIFY(first.claim());
            // Nobody sees to the calls in this thread.
            QVERIFY_EXCEPTION_THROWN(SingleInstance(link).claim(), std::runtime_error);
            QLockFile held(store.file(u"other.sqlite.lock"_s));
            QVERIFY(held.tryLock());
            QVERIFY_EXCEPTION_THROWN(SingleInstance(store.file(u"other.sqlite"_s)).claim(), std::runtime_error);
        }
        // Left on another computer, and held by nobody.
        QFile left(store.path() + u".lock"_s);
        QVERIFY(left.open(QIODevice::WriteOnly) && left.write("1\nkelvora\nanother-computer\n\n\n") > 0);
        left.close();
        QVERIFY(SingleInstance(link).claim());
    }

    void theWindowComesToTheFront() {
        test::TemporaryStore store;
        SingleInstance first(store.path());
        QVERIFY(first.claim());
        Program program(store.path(), store.dialogs);
        const QSignalSpy ended(&program, &Program::ended);
        connect(&first, &SingleInstance::startedAgain, &program, &Program::raiseWindow);
        QVERIFY(program.start());

        // The same data file, written another way.
        const auto startAgain = [again = QSignalSpy(&first, &SingleInstance::startedAgain),
                                 path = store.file(u"./kelvora_db.sqlite"_s)] {
            const auto before = again.count();
            auto second = std::async(std::launch::async, [&path] { return SingleInstance(path).claim(); });
            return QTest::qWaitFor([&] { return again.count() == before + 1; }) && !second.get();
        };
        auto* login = shownWindow<LoginDialog>();
        login->setWindowState(Qt::WindowMinimized);
        QVERIFY(startAgain());
        QVERIFY(login->isVisible() && !login->isMinimized());

        test::ScreenDriver(login).enter(u"PASSWORD = kelvora; Log in"_s);
        auto* window = shownWindow<MainWindow>();
        window->setWindowState(window->windowState() | Qt::WindowMinimized);
        QVERIFY(startAgain());
        QVERIFY(window->isVisible() && !window->isMinimized() && window->isMaximized());
        QVERIFY(!login->isVisible());

        // It ends with its window, or with the login that nobody answered.
        window->close();
        QCOMPARE(ended.count(), 1);
        login->close();
        QCOMPARE(ended.count(), 2);
    }
};

KELVORA_TEST(TestSecondStart, "second_start");

}  // namespace kelvora::test_second_start

#include "test_second_start.moc"
