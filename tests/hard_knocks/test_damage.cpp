#include "data/store.h"
#include "length_of_run.h"
#include "read_only_folder.h"
#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "shell/program.h"
#include "support/recording_dialogs.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QRandomGenerator>
#include <QTest>

namespace kelvora::test_damage {

/// A data file that something has happened to: it is refused in plain words and stays as it is, byte for byte, or it
/// opens and the program works on what is left. What a refusal says of each fault stands in the tests of the store.
class TestDamage : public QObject {
    Q_OBJECT

    static QByteArray bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(const QString& path, const QByteArray& content) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
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

    enum class Fate { Refused, Opened };

    /// Starts the program on the file as it is now.
    Fate start(bool withScreens) {
        const QByteArray before = bytes(m_path);
        test::RecordingDialogs dialogs;
        dialogs.yes = false;
        Fate fate = Fate::Opened;
        {
            Program program(m_path, dialogs);
            if (!program.start()) {
                fate = Fate::Refused;
                checkRefusal(dialogs.said);
            }
        }
        if (fate == Fate::Opened) {
            readAllTables();
        }
        if (fate == Fate::Opened && withScreens) {
            Session session;
            openAllScreens({m_path, session, dialogs});
        }
        if (bytes(m_path) != before) {
            qFatal("the file was written to");
        }
        return fate;
    }

    void checkRefusal(const QStringList& said) const {
        const bool clear = said.size() == 1 && said.first().startsWith(u"Kelvora: The data file can") &&
                           said.first().contains(m_path) && !said.first().contains(u"select");
        if (!clear) {
            qFatal("not a clear message: %s", qPrintable(said.join(u'\n')));
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
    QString m_path = m_store.file(u"damaged.sqlite"_qs);
    QByteArray m_whole;

private Q_SLOTS:
    void initTestCase() {
        m_store.addSmallYear();
        m_whole = bytes(m_store.path());
        write(m_path, m_whole);
        QCOMPARE(start(true), Fate::Opened);
    }

    void cutAtEveryPage() {
        constexpr qsizetype page = 4096;
        for (qsizetype end = 0; end < m_whole.size(); end += page) {
            write(m_path, m_whole.first(end));
            QCOMPARE(start(false), Fate::Refused);
        }
    }

    void everyByteOfTheHeader() {
        constexpr int header = 100;
        int files = 0;
        int refused = 0;
        for (int at = 0; at < header; ++at) {
            const char was = m_whole[at];
            for (const int value : QList<int>{was ^ 1, 2, was ^ 0x80, 0xff}.first(test::times(2, 4))) {
                QByteArray damaged = m_whole;
                damaged[at] = static_cast<char>(value);
                write(m_path, damaged);
                ++files;
                refused += start(at % 10 == 0 && value == 2) == Fate::Refused ? 1 : 0;
            }
        }
        qInfo("%d of %d files with a changed byte in the header are refused, the others open", refused, files);
        QVERIFY(refused > files / 4);
    }

    void flippedBytes() {
        QRandomGenerator random(test::seed());
        const int files = test::times(100, 5'000);
        int refused = 0;
        for (int i = 0; i < files; ++i) {
            QByteArray damaged = m_whole;
            const int at = random.bounded(static_cast<int>(m_whole.size()));
            damaged[at] = static_cast<char>(damaged[at] ^ (1 + random.bounded(255)));
            write(m_path, damaged);
            refused += start(i % 30 == 0) == Fate::Refused ? 1 : 0;
        }
        qInfo("%d of %d files with a changed byte are refused, the others open", refused, files);
    }

    void pagesOfNothing() {
        constexpr qsizetype page = 4096;
        for (qsizetype at = 0; at < m_whole.size(); at += page) {
            for (const char filling : {'\0', '\xff'}) {
                QByteArray damaged = m_whole;
                damaged.replace(at, page, QByteArray(page, filling));
                write(m_path, damaged);
                const Fate fate = start(test::times(at / page % 3 == 0 ? 1 : 0, 1) == 1);
                QVERIFY(at > 0 || fate == Fate::Refused);
            }
        }
    }

    void aFileThatMayNotBeRead() {
        write(m_path, m_whole);
        QVERIFY(QFile::setPermissions(m_path, {}));
        test::RecordingDialogs dialogs;
        {
            const test::ReadOnlyFolder folder(m_store.file({}));
            Program program(m_path, dialogs);
            QVERIFY(!program.start());
        }
        checkRefusal(dialogs.said);
        QVERIFY(QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(bytes(m_path), m_whole);
    }
};

KELVORA_TEST(TestDamage, "damage");

}  // namespace kelvora::test_damage

#include "test_damage.moc"
