#include "data/store.h"
#include "data/transaction.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace kelvora::test_store {

/// The data file at the start of the program.
class TestStore : public QObject {
    Q_OBJECT

    using Change = std::function<void(test::TemporaryStore&)>;

    static QByteArray bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(const QString& path, const QByteArray& content) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    static QString refusal(const QString& path) {
        try {
            prepareStore(path);
        } catch (const DataError& e) {
            return QString::fromUtf8(e.what());
        }
        return QStringLiteral("none");
    }
    /// What a power cut in the middle of a long save leaves: the file half changed, its journal beside it.
    static void interruptASave(test::TemporaryStore& store, const QString& file) {
        store.execute("PRAGMA cache_size=10");
        {
            const Transaction transaction(store.db());
            store.execute("delete from kelvora_user");
            store.execute(
                "with recursive n(i) as (select 1 union all select i + 1 from n where i < 5000)"
                " insert into state select i, 'A name that fills the pages' from n");
            write(file, bytes(store.path()));
            write(file + u"-journal"_qs, bytes(store.path() + u"-journal"_qs));
        }
        QVERIFY(bytes(file) != bytes(store.path()));
    }

private Q_SLOTS:
    void firstStart() {
        test::TemporaryStore store;
        const QString path = store.file(u"new folder/älv & co/data.sqlite"_qs);
        prepareStore(path);
        Connection db(path);
        QCOMPARE(db.query(Sql("select * from kelvora_user where login = 'administrator'")).text(0, u"passwd"),
                 QStringLiteral("kelvora"));
        QCOMPARE(db.query(Sql("select * from gonad_stage order by stageid")).text(4, u"stagename"),
                 QStringLiteral("Spent"));
        QCOMPARE(db.query(Sql("select * from fish")).rowCount(), 0);
        QCOMPARE(db.query(Sql("select name from sqlite_master where type = 'table'")).rowCount(), 16);
        QCOMPARE(QDir(store.file(u"new folder/älv & co"_qs)).entryList(QDir::Files), QStringList{u"data.sqlite"_qs});
    }

    void secondStartChangesNothing() {
        test::TemporaryStore store;
        store.addReferenceRows();
        const QByteArray before = bytes(store.path());
        prepareStore(store.path());
        QCOMPARE(bytes(store.path()), before);
        QCOMPARE(store.rows("select statename from state"), QStringList({u"Alpha"_qs, u"Beta"_qs}));
    }

    void refused_data() {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const Change& change, const char* reason) {
            QTest::newRow(name) << change << QString::fromLatin1(reason);
        };
        const auto content = [](const QByteArray& text) {
            return [text](test::TemporaryStore& store) { write(store.path(), text); };
        };
        const auto cut = [](qint64 size) {
            return [size](test::TemporaryStore& store) {
                QVERIFY(QFile::resize(store.path(), size > 0 ? size : QFile(store.path()).size() + size));
            };
        };
        row("empty", content({}), "it is empty");
        row("a text file", content(QByteArray("vessel,gear\r\n").repeated(200)), "it is not a database");
        row("a short text file", content("SQLite format 3"), "it is not a database");
        row("cut in its header", cut(99), "it is not a database");
        row("header only", cut(100), "its end is missing");
        row("first page only", cut(4096), "its end is missing");
        row("cut within a page", cut(10'000), "its end is missing");
        row("last byte missing", cut(-1), "its end is missing");
        row(
            "another program's", [](auto& store) { store.execute("PRAGMA application_id = 7"); },
            "it belongs to another program");
        row(
            "no program's", [](auto& store) { store.execute("PRAGMA application_id = 0"); },
            "it belongs to another program");
        row(
            "newer", [](auto& store) { store.execute("PRAGMA user_version = 2"); },
            "it was made by a newer version of this program");
        row(
            "a table missing", [](auto& store) { store.execute("drop table gonad_stage"); },
            "its table gonad_stage is not as it should be");
        row(
            "a column too many", [](auto& store) { store.execute("alter table state add column capital"); },
            "its table state is not as it should be");
        row(
            "a column renamed",
            [](auto& store) { store.execute("alter table fishoperation rename column dulation to duration"); },
            "its table fishoperation is not as it should be");
        row(
            "damaged",
            [](auto& store) {
                QByteArray damaged = bytes(store.path());
                damaged.replace(100, 400, QByteArray(400, '\x5a'));
                write(store.path(), damaged);
            },
            "the data file is damaged");
    }
    void refused() {
        QFETCH(Change, change);
        QFETCH(QString, reason);
        test::TemporaryStore store;
        change(store);
        const QByteArray before = bytes(store.path());
        const QString message = refusal(store.path());
        QVERIFY2(message.contains(reason), qPrintable(message));
        QVERIFY(message.contains(store.path()));
        QCOMPARE(bytes(store.path()), before);
        QCOMPARE(QDir(store.file({})).entryList(QDir::Files), QStringList{u"kelvora_db.sqlite"_qs});
    }

    void notAFile() {
        test::TemporaryStore store;
        const QString folder = store.file(u"folder"_qs);
        QVERIFY(QDir().mkdir(folder));
        QVERIFY(refusal(folder).contains(u"it is not a file"));
        const QString link = store.file(u"link"_qs);
        QVERIFY(QFile::link(store.file(u"nowhere"_qs), link));
        QVERIFY(refusal(link).contains(u"it is not a file"));
        QVERIFY(refusal(store.path() + u"/below/a.file"_qs).contains(u"its folder cannot be made"));
    }

    void usedByAnotherProgram() {
        test::TemporaryStore store;
        store.execute("begin exclusive");
        QVERIFY(refusal(store.path()).contains(u"another program is using the data file"));
        store.execute("rollback");
        prepareStore(store.path());
    }

    void leftoversOfAFirstStart() {
        test::TemporaryStore store;
        const QString path = store.file(u"data.sqlite"_qs);
        write(path + u".new"_qs, "half a file");
        prepareStore(path);
        QVERIFY(!QFile::exists(path + u".new"_qs));
        QCOMPARE(Connection(path).query(Sql("select * from gonad_stage")).rowCount(), 5);
    }

    void interruptedSaveIsMended() {
        test::TemporaryStore store;
        const QString path = store.file(u"cut.sqlite"_qs);
        interruptASave(store, path);
        prepareStore(path);
        Connection db(path);
        QCOMPARE(db.query(Sql("select * from kelvora_user")).rowCount(), 1);
        QCOMPARE(db.query(Sql("select * from state")).rowCount(), 0);
        QCOMPARE(db.query(Sql("pragma integrity_check")).text(0, u"integrity_check"), QStringLiteral("ok"));
    }

    void journalOfAnotherFileIsNotPlayedBack() {
        test::TemporaryStore store;
        const QString path = store.file(u"cut.sqlite"_qs);
        store.execute("update kelvora_user set uname = 'Old'");
        interruptASave(store, path);
        QVERIFY(QFile::remove(path));
        prepareStore(path);
        QCOMPARE(Connection(path).query(Sql("select uname from kelvora_user")).text(0, u"uname"),
                 QStringLiteral("Administrator"));
    }
};

KELVORA_TEST(TestStore, "store");

}  // namespace kelvora::test_store

#include "test_store.moc"
