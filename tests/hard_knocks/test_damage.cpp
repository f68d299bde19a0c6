#include "data/store.h"
#include "data/transaction.h"
#include "length_of_run.h"
#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "shell/program.h"
#include "support/read_only_folder.h"
#include "support/recording_dialogs.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_damage {

/// A data file that something has happened to: it is refused in plain words and stays as it is, byte for byte, or it
/// opens and the program works on what is left. What a refusal says of each fault stands in the tests of the store.
class TestDamage : public QObject {
    Q_OBJECT

    static QByteArray bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Opens every screen of the program; a damaged table may show a message, and no more.
    static void openAllScreens(const Context& context) {
        MainWindow window(context);
        window.show();
        for (QAction* entry : window.findChildren<QAction*>()) {
            if (qobject_cast<QMenu*>(entry->parent()) == nullptr && entry->text() != u"Exit") {
                entry->trigger();
            }
        }
        window.close();
    }

    /// Starts the program on a file with this content; says whether it was refused.
    bool isRefused(const QByteArray& content, bool withScreens = false) {
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush()) {
            qFatal("the file cannot be written");
        }
        test::RecordingDialogs dialogs;
        dialogs.yes = false;
        const bool refused = !Program(m_path, dialogs).start();
        if (refused) {
            checkRefusal(dialogs.said);
        } else {
            readAllTables();
        }
        if (!refused && withScreens) {
            Session session;
            openAllScreens({m_path, session, dialogs});
        }
        // A header that says that another tool's log is kept is turned back.
        if (bytes(m_path) != content && content.mid(18, 2) == m_whole.mid(18, 2)) {
            qFatal("the file was written to");
        }
        return refused;
    }

    void checkRefusal(const QStringList& said) const {
        const QString all = said.join(u'\n');
        if (said.size() != 1 || !all.startsWith(u"Kelvora: The data file can") || !all.contains(m_path) ||
            all.contains(u"select")) {
            qFatal("not a clear message: %s", qPrintable(all));
        }
    }

    void readAllTables() const {
        try {
            Connection db(m_path);
            db.query(Sql("select * from fishoperation, vessel, state, samplingport, fish"));
            db.query(Sql("select * from group_main, group_composition, length, length_detail, gonad, gonad_detail"));
        } catch (const DataError&) {
            return;
        }
    }

    test::TemporaryStore m_store;
    QString m_path = m_store.file(u"damaged.sqlite"_s);
    QByteArray m_whole;

private Q_SLOTS:
    void initTestCase() {
        m_store.addSmallYear();
        m_whole = bytes(m_store.path());
        QVERIFY(!isRefused(m_whole, true));
    }

    void everyPage() {
        constexpr qsizetype page = 4096;
        for (qsizetype at = 0; at < m_whole.size(); at += page) {
            QVERIFY(isRefused(m_whole.first(at)));
            for (const char filling : {'\0', '\xff'}) {
                QByteArray damaged = m_whole;
                damaged.replace(at, page, QByteArray(page, filling));
                const bool refused = isRefused(damaged, test::times(at / page % 3 == 0 ? 1 : 0, 1) == 1);
                QVERIFY(at > 0 || refused);
            }
        }
    }

    void someBytes_data() {
        QTest::addColumn<qsizetype>("end");
        QTest::addColumn<int>("files");
        QTest::newRow("in the header") << qsizetype{100} << test::times(200, 400);
        QTest::newRow("anywhere") << m_whole.size() << test::times(100, 5'000);
    }
    void someBytes() {
        QFETCH(qsizetype, end);
        QFETCH(int, files);
        QRandomGenerator random(test::seed());
        int refused = 0;
        for (int i = 0; i < files; ++i) {
            QByteArray damaged = m_whole;
            const auto at = end < files ? i % end : random.bounded(end);
            damaged[at] = static_cast<char>(damaged[at] ^ (1 + random.bounded(255)));
            refused += isRefused(damaged, i % 30 == 0) ? 1 : 0;
        }
        qInfo("%d of %d files are refused, the others open", refused, files);
        QVERIFY(end == m_whole.size() || refused > files / 4);
    }

    /// A save was cut off, and a page that it had not touched is damaged: what undoing it leaves is looked at page by
    /// page, and what it undoes is kept.
    void aDamagedPageBesideAJournal() {
        m_store.execute("pragma cache_size=10");
        const Transaction interrupted(m_store.db());
        m_store.execute(
            "with recursive n(i) as (select 10 union all select i + 1 from n where i < 5000)"
            " insert into state select i, 'A name that fills the pages' from n");
        constexpr qsizetype page = 4096;
        QByteArray content = bytes(m_store.path());
        QVERIFY(QFile::copy(m_store.path() + u"-journal"_s, m_path + u"-journal"_s));
        QVERIFY(isRefused(content.replace(m_whole.size() - page, page, QByteArray(page, '\0'))));
        QVERIFY(QFile::remove(m_path + u"-journal"_s));
    }

    /// A place that cannot be written to is no fault of the file: the login dialog says it in a line.
    void aPlaceThatMayNotBeWrittenTo() {
        test::RecordingDialogs dialogs;
        Session session;
        const auto lineOf = [](const LoginDialog& login) { return login.findChild<QLabel*>()->text(); };
        const QString missing = m_store.file(u"missing.sqlite"_s);
        std::optional<LoginDialog> login;
        {
            const test::ReadOnlyFolder folder(m_store.file({}));
            login.emplace(Context{missing, session, dialogs});
            const LoginDialog reading({m_store.path(), session, dialogs});
            QCOMPARE(lineOf(reading),
                     u"Nothing can be stored: the data file or its folder may not be written to.\n"_s + m_store.path());
        }
        QCOMPARE(dialogs.said, QStringList());
        QVERIFY(lineOf(*login).startsWith(u"The data file cannot be created: "));
        QVERIFY(lineOf(*login).endsWith(missing));
        // Once the disk is in its place, signing in goes on.
        const test::ScreenDriver hand(&*login);
        hand.enter(u"PASSWORD = kelvora; Log in"_s);
        QCOMPARE(session.login, u"Administrator"_s);
        QCOMPARE(lineOf(*login), u"A new data file was made:\n"_s + missing);
    }

    void aFileThatMayNotBeRead() {
        QVERIFY(!isRefused(m_whole));
        QVERIFY(QFile::setPermissions(m_path, {}));
        test::RecordingDialogs dialogs;
        {
            const test::ReadOnlyFolder folder(m_store.file({}));
            QVERIFY(!Program(m_path, dialogs).start());
        }
        checkRefusal(dialogs.said);
        QVERIFY(QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(bytes(m_path), m_whole);
    }
};

KELVORA_TEST(TestDamage, "damage");

}  // namespace kelvora::test_damage

#include "test_damage.moc"
