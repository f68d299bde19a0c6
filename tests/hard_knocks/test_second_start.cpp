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

template <typename Window>
Window* shownWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<Window*>(widget);
        if (window != nullptr && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

/// The program is started while it runs already: with the program itself, and with its parts in one process.
class TestSecondStart : public QObject {
    Q_OBJECT

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
            process.setProcessChannelMode(QProcess::ForwardedChannels);
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

        QString dataFile;
        QProcess process;
    };

private Q_SLOTS:
    void theProgramItself() {
        const test::TemporaryStore store;
        Started first(store, u"sampler"_s);
        QVERIFY(QTest::qWaitFor([&] { return QFile::exists(first.dataFile); }));
        QVERIFY(Started(store, u"sampler"_s).left());
        QVERIFY(Started(store, u"sampler"_s).left());
        QCOMPARE(first.process.state(), QProcess::Running);

        // Another sampler's data folder is another program.
        Started other(store, u"colleague"_s);
        QVERIFY(QTest::qWaitFor([&] { return QFile::exists(other.dataFile); }));
        QCOMPARE(other.process.state(), QProcess::Running);

        first.process.kill();
        QVERIFY(first.process.waitForFinished());
        QVERIFY(QFile::exists(first.dataFile + u".lock"_s));
        QVERIFY(QFile::remove(first.dataFile));
        Started next(store, u"sampler"_s);
        QVERIFY(QTest::qWaitFor([&] { return QFile::exists(next.dataFile); }));
        QVERIFY(Started(store, u"sampler"_s).left());
        QCOMPARE(next.process.state(), QProcess::Running);
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
        const QSignalSpy again(&first, &SingleInstance::startedAgain);
        QVERIFY(program.start());

        const auto startAgain = [&](const QString& path) {
            const int before = static_cast<int>(again.count());
            auto second = std::async(std::launch::async, [&path] { return SingleInstance(path).claim(); });
            QVERIFY(QTest::qWaitFor([&] { return again.count() == before + 1; }));
            QVERIFY(!second.get());
        };
        auto* login = shownWindow<LoginDialog>();
        QVERIFY(login != nullptr);
        login->setWindowState(Qt::WindowMinimized);
        startAgain(store.path());
        QVERIFY(login->isVisible() && !login->isMinimized());

        const test::ScreenDriver hand(login);
        hand.enter(u"PASSWORD = kelvora; Log in"_s);
        auto* window = shownWindow<MainWindow>();
        QVERIFY(window != nullptr);
        window->setWindowState(window->windowState() | Qt::WindowMinimized);
        // The same data file, written another way.
        startAgain(store.file(u"./kelvora_db.sqlite"_s));
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
