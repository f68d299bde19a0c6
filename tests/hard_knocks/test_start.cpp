#include "data/transaction.h"
#include "desk.h"
#include "shell/login_dialog.h"
#include "shell/program.h"
#include "shell/single_instance.h"
#include "support/obstacles.h"
#include "support/test_main.h"

#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <future>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvora::test_start {

constexpr qsizetype kPage = 4096;

/// The program is started on a data file that something has happened to: it is refused in plain words and stays as it
/// is, byte for byte, or it opens and the program works on what is left. What a refusal says of each fault stands in
/// the tests of the store. Or it is started while it runs already: with the program itself, and with its parts in one
/// process.
class TestStart : public QObject {
    Q_OBJECT

    /// Starts the program on a file with this content; says whether it was refused. A damaged table of one that opens
    /// may show a message on the screens, and no more.
    bool isRefused(const QByteArray& content, bool withScreens = false) {
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush()) {
            qFatal("the file cannot be written");
        }
        test::PlannedDialogs dialogs(test::PlannedDialogs::Noted);
        const bool refused = !Program(m_path, dialogs).start();
        const QString said = dialogs.said.join(u'\n');
        if (refused && !(dialogs.said.size() == 1 && said.startsWith(u"Kelvora: The data file can") &&
                         said.contains(m_path) && !said.contains(u"select"))) {
            qFatal("not a clear message: %s", qPrintable(said));
        }
        if (!refused && withScreens) {
            test::Desk desk(m_path);
            for (QAction* screen : desk.window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
                screen->trigger();
            }
        }
        // A header that says that another tool's log is kept is turned back.
        if (test::bytesOf(m_path) != content && content.mid(18, 2) == m_whole.mid(18, 2)) {
            qFatal("the file was written to");
        }
        return refused;
    }

    /// The program, started by a user whose data folder is a folder of the test's.
    struct Started : QProcess {
        Started(const test::TemporaryStore& store, const QString& folder)
            : dataFile(store.file(folder + u"/.local/share/Kelvora/kelvora_db.sqlite"_s)) {
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(u"HOME"_s, store.file(folder));
            // Ignored, as it is not absolute.
            environment.insert(u"XDG_DATA_HOME"_s, u"here"_s);
            environment.insert(u"TMPDIR"_s, store.file({}));
            setProcessEnvironment(environment);
            start(u"" KELVORA_PROGRAM ""_s, folder == u"sampler" ? QStringList{u"an unknown word"_s} : QStringList());
        }
        ~Started() override { end(); }
        void end() {
            kill();
            waitForFinished();
        }
        /// Whether it left, satisfied, without having opened a window that waits for somebody.
        bool left() { return waitForFinished() && exitStatus() == NormalExit && exitCode() == 0; }
        bool stays() {
            return QTest::qWaitFor([this] { return QFile::exists(dataFile); }) && state() == Running;
        }

        QString dataFile;
    };

    template <typename Window>
    static Window* shown() {
        QWidgetList all = QApplication::topLevelWidgets();
        all.removeIf([](const QWidget* one) { return !one->isVisible() || !qobject_cast<const Window*>(one); });
        return qobject_cast<Window*>(all.value(0));
    }

    test::TemporaryStore m_store;
    QString m_path = m_store.file(u"damaged.sqlite"_s);
    QByteArray m_whole;

private Q_SLOTS:
    void initTestCase() {
        m_store.addSmallYear();
        m_whole = test::bytesOf(m_store.path());
        QVERIFY(!isRefused(m_whole, true));
    }

    void everyPage() {
        for (qsizetype at = 0; at < m_whole.size(); at += kPage) {
            QVERIFY(isRefused(m_whole.first(at)));
            for (const char filling : {'\0', '\xff'}) {
                QByteArray damaged = m_whole;
                damaged.replace(at, kPage, QByteArray(kPage, filling));
                const bool refused = isRefused(damaged, test::times(at / kPage % 3 == 0 ? 1 : 0, 1) == 1);
                QVERIFY(at > 0 || refused);
            }
        }
    }

    void someBytes() {
        constexpr qsizetype header = 100;
        QRandomGenerator random(test::seed());
        int refused = 0;
        for (int i = 0; i < test::times(300, 5'400); ++i) {
            QByteArray damaged = m_whole;
            const bool inHeader = i < test::times(200, 400);
            const auto at = inHeader ? i % header : random.bounded(m_whole.size());
            damaged[at] = static_cast<char>(damaged[at] ^ (1 + random.bounded(255)));
            refused += isRefused(damaged, i % 30 == 0) && inHeader ? 1 : 0;
        }
        QVERIFY(refused > test::times(50, 100));
    }

    /// A save was cut off, and a page that it had not touched is damaged: what undoing it leaves is looked at page by
    /// page, and what it undoes is kept.
    void aDamagedPageBesideAJournal() {
        m_store.execute("pragma cache_size=10");
        const Transaction interrupted(m_store.db());
        m_store.execute(
            "with recursive n(i) as (select 10 union all select i + 1 from n where i < 5000)"
            " insert into state select i, 'A name that fills the pages' from n");
        QByteArray content = test::bytesOf(m_store.path());
        QVERIFY(QFile::copy(m_store.path() + u"-journal"_s, m_path + u"-journal"_s));
        QVERIFY(isRefused(content.replace(m_whole.size() - kPage, kPage, QByteArray(kPage, '\0'))));
        QVERIFY(QFile::remove(m_path + u"-journal"_s));
    }

    /// A place that cannot be written to is no fault of the file: the login dialog says it in a line.
    void aPlaceThatMayNotBeWrittenTo() {
        test::PlannedDialogs dialogs(test::PlannedDialogs::Noted);
        Session session;
        const auto lineOf = [](const LoginDialog& login) { return login.findChild<QLabel*>()->text(); };
        const QString missing = m_store.file(u"missing.sqlite"_s);
        std::optional<LoginDialog> login;
        {
            const test::Obstacle folder = test::readOnlyFolder(m_store.file({}));
            login.emplace(Context{missing, session, dialogs});
            const LoginDialog reading({m_store.path(), session, dialogs});
            QCOMPARE(lineOf(reading),
                     u"Nothing can be stored: the data file or its folder may not be written to.\n"_s + m_store.path());
        }
        QCOMPARE(dialogs.said, QStringList());
        QVERIFY(lineOf(*login).startsWith(u"The data file cannot be created: ") && lineOf(*login).endsWith(missing));
        // Once the disk is in its place, signing in goes on.
        test::ScreenDriver(&*login).enter(u"PASSWORD = kelvora; Log in"_s);
        QCOMPARE(session.login, u"Administrator"_s);
        QCOMPARE(lineOf(*login), u"A new data file was made:\n"_s + missing);
    }

    void theProgramItself() {
        const test::TemporaryStore store;
        Started first(store, u"sampler"_s);
        QVERIFY(first.stays());
        QVERIFY(Started(store, u"sampler"_s).left());
        // Another sampler's data folder is another program.
        QVERIFY(Started(store, u"colleague"_s).stays());
        QVERIFY(first.stays());

        first.end();
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
        connect(&first, &SingleInstance::startedAgain, &program, &Program::raiseWindow);
        QVERIFY(program.start());

        // The same data file, written another way.
        const auto startAgain = [again = QSignalSpy(&first, &SingleInstance::startedAgain),
                                 path = store.file(u"./kelvora_db.sqlite"_s)] {
            const auto before = again.count();
            auto second = std::async(std::launch::async, [&path] { return SingleInstance(path).claim(); });
            return QTest::qWaitFor([&] { return again.count() == before + 1; }) && !second.get();
        };
        auto* login = shown<LoginDialog>();
        login->setWindowState(Qt::WindowMinimized);
        QVERIFY(startAgain());
        QVERIFY(login->isVisible() && !login->isMinimized());

        test::ScreenDriver(login).enter(u"PASSWORD = kelvora; Log in"_s);
        auto* window = shown<MainWindow>();
        window->setWindowState(window->windowState() | Qt::WindowMinimized);
        QVERIFY(startAgain());
        QVERIFY(window->isVisible() && !window->isMinimized() && window->isMaximized());
        QVERIFY(!login->isVisible());

        // It ends with its window, or with the login that nobody answered.
        QApplication::setQuitOnLastWindowClosed(false);
        for (QWidget* last : {static_cast<QWidget*>(window), static_cast<QWidget*>(login)}) {
            QTimer::singleShot(0, last, &QWidget::close);
            QTimer::singleShot(5'000, last, [] { QApplication::exit(1); });
            QCOMPARE(QApplication::exec(), 0);
        }
    }
};

KELVORA_TEST(TestStart, "start");

}  // namespace kelvora::test_start

#include "test_start.moc"
