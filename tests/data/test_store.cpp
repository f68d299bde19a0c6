#include "data/store.h"
#include "data/store_files.h"
#include "data/transaction.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTest>

#include <filesystem>

using namespace Qt::StringLiterals;

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
            return prepareStore(path).line;
        } catch (const DataError& e) {
            return QString::fromUtf8(e.what());
        }
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
            write(file + u"-journal"_s, bytes(store.path() + u"-journal"_s));
        }
        QVERIFY(bytes(file) != bytes(store.path()));
    }

    static QStringList namesIn(const test::TemporaryStore& store) {
        return QDir(store.file({})).entryList(QDir::Files);
    }
    static QString today() { return QDate::currentDate().toString(Qt::ISODate); }

private Q_SLOTS:
    void firstStart() {
        test::TemporaryStore store;
        const QString path = store.file(u"new folder/älv & co/data.sqlite"_s);
        QCOMPARE(prepareStore(path).line, u"A new data file was made:\n"_s + path);
        QCOMPARE(prepareStore(path).line, QString());
        Connection db(path);
        QCOMPARE(db.query(Sql("select * from kelvora_user where login = 'administrator'")).text(0, u"passwd"),
                 u"kelvora"_s);
        QCOMPARE(db.query(Sql("select * from gonad_stage order by stageid")).text(4, u"stagename"), u"Spent"_s);
        QCOMPARE(db.query(Sql("select * from fish")).rowCount(), 0);
        QCOMPARE(db.query(Sql("select name from sqlite_master where type = 'table'")).rowCount(), 16);
        QCOMPARE(QDir(store.file(u"new folder/älv & co"_s)).entryList(QDir::Files), QStringList{u"data.sqlite"_s});
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
        const auto cut = [](const std::function<qint64(qint64)>& size) {
            return [size](test::TemporaryStore& store) {
                QVERIFY(QFile::resize(store.path(), size(QFile(store.path()).size())));
            };
        };
        const auto changed = [](Literal statement) {
            return [statement](test::TemporaryStore& store) { store.execute(statement); };
        };
        const char* foreign = "it belongs to another program";
        row("empty", content({}), "it is empty");
        row("a text file", content(QByteArray("vessel,gear\r\n").repeated(200)), "it is not a database");
        row("cut in its header", cut([](qint64) { return 99; }), "it is not a database");
        row("header only", cut([](qint64) { return 100; }), "its end is missing");
        row("last byte missing", cut([](qint64 size) { return size - 1; }), "its end is missing");
        row("another program's", changed("PRAGMA application_id = 7"), foreign);
        row("no program's", changed("PRAGMA application_id = 0"), foreign);
        row("newer", changed("PRAGMA user_version = 2"), "it was made by a newer version of this program");
        row("a table missing", changed("drop table gonad_stage"), "its table gonad_stage is not as it should be");
        row("a column too many", changed("alter table state add column capital"),
            "its table state is not as it should be");
        row("a column renamed", changed("alter table fishoperation rename column dulation to duration"),
            "its table fishoperation is not as it should be");
        const auto damage = [](test::TemporaryStore& store) {
            write(store.path(), bytes(store.path()).replace(100, 400, QByteArray(400, '\x5a')));
        };
        row("damaged", damage, "the data file is damaged");
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
        QCOMPARE(QDir(store.file({})).entryList(QDir::Files), QStringList{u"kelvora_db.sqlite"_s});
    }

    void noFile() {
        test::TemporaryStore store;
        QVERIFY(refusal(store.file({})).contains(u"it is not a file"));
        const QString link = store.file(u"link"_s);
        QVERIFY(QFile::link(store.file(u"nowhere"_s), link));
        QVERIFY(refusal(link).contains(u"it is not a file"));
        QVERIFY(refusal(store.path() + u"/below/a.file"_s).contains(u"its folder cannot be made"));
        store.execute("begin exclusive");
        QVERIFY(refusal(store.path()).contains(u"another program is using the data file"));
    }

    /// As the first version made it, with a table that another program added: opened, and left as it is.
    void aFileOfVersion1() {
        test::TemporaryStore store;
        const QString path = store.file(u"first.sqlite"_s);
        QVERIFY(QFile::copy(u"" KELVORA_TEST_FILES "/kelvora_1_0.sqlite"_s, path));
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        Connection(path).execute(Sql("create table port_weather (day text)"));
        const QByteArray before = bytes(path);
        QCOMPARE(prepareStore(path).line, QString());
        QCOMPARE(bytes(path), before);
        Connection first(path);
        for (const Literal question :
             {Literal("select m.name, c.* from sqlite_master m, pragma_table_info(m.name) c where m.type = 'table' and"
                      " m.name <> 'port_weather' order by m.name, c.cid"),
              Literal("select m.name, m.tbl_name, c.* from sqlite_master m, pragma_index_xinfo(m.name) c where m.type ="
                      " 'index' order by m.name, c.seqno"),
              Literal("select * from kelvora_user, gonad_stage order by stageid"), Literal("pragma application_id"),
              Literal("pragma user_version")}) {
            QCOMPARE(test::rows(first, Sql(question)), store.rows(question));
        }
    }

    void leftoversOfAFirstStart() {
        test::TemporaryStore store;
        const QString path = store.file(u"data.sqlite"_s);
        write(path + u".new"_s, "half a file");
        prepareStore(path);
        QVERIFY(!QFile::exists(path + u".new"_s));
        QCOMPARE(Connection(path).query(Sql("select * from gonad_stage")).rowCount(), 5);
    }

    void interruptedSave() {
        test::TemporaryStore store;
        const QString path = store.file(u"cut.sqlite"_s);
        interruptASave(store, path);
        prepareStore(path);
        {
            Connection db(path);
            QCOMPARE(db.query(Sql("select * from kelvora_user")).rowCount(), 1);
            QCOMPARE(db.query(Sql("select * from state")).rowCount(), 0);
        }
        QCOMPARE(namesIn(store), (QStringList{u"cut.sqlite"_s, u"kelvora_db.sqlite"_s}));
        // The journal of a file that was taken away is not played back into the new one, and is kept.
        store.execute("update kelvora_user set uname = 'Old'");
        interruptASave(store, path);
        QVERIFY(QFile::remove(path));
        prepareStore(path);
        QCOMPARE(Connection(path).query(Sql("select uname from kelvora_user")).text(0, u"uname"), u"Administrator"_s);
        QVERIFY(namesIn(store).contains(u"cut.sqlite-journal-"_s + today()));
    }

    /// A backup was copied over the file, beside which the interrupted save had left its journal: played into the
    /// backup, it would mix the two.
    void aBackupBesideAJournal() {
        test::TemporaryStore store;
        const QString path = store.file(u"cut.sqlite"_s);
        const QByteArray backup = bytes(store.path());
        store.execute("update kelvora_user set uname = 'Monday'");
        store.execute("update kelvora_user set uname = 'Tuesday'");
        interruptASave(store, path);
        write(path, backup);
        const QByteArray journal = bytes(path + u"-journal"_s);
        for (int start = 0; start < 2; ++start) {
            const QString message = refusal(path);
            const QString copy = path + u"-copy-"_s + today();
            QVERIFY2(message.contains(u"the journal beside it belongs to another data file"), qPrintable(message));
            QVERIFY(message.endsWith(copy));
            QCOMPARE(bytes(path) + bytes(path + u"-journal"_s), backup + journal);
            QCOMPARE(bytes(copy) + bytes(copy + u"-journal"_s), backup + journal);
        }
    }

    /// Another tool had switched the file to a log beside it: the data are one file again.
    void aFileWithALog() {
        test::TemporaryStore store;
        const QString path = store.file(u"logged.sqlite"_s);
        const QByteArray old = bytes(store.path());
        store.db().query(Sql("pragma journal_mode=wal"));
        store.execute("insert into state values (1, 'Alpha')");
        write(path, bytes(store.path()));
        write(path + u"-wal"_s, bytes(store.path() + u"-wal"_s));
        const auto states = [&] {
            prepareStore(path);
            return Connection(path).query(Sql("select * from state")).rowCount();
        };
        QCOMPARE(states(), 1);
        QVERIFY(!QFile::exists(path + u"-wal"_s));
        QCOMPARE(Connection(path).query(Sql("pragma journal_mode")).text(0, u"journal_mode"), u"delete"_s);
        // A log that was left beside another file is not taken in, and is kept: twice on the same day, too.
        for (const QString& kept : {u"-wal-"_s + today(), u"-wal-"_s + today() + u"-2"_s}) {
            write(path, old);
            write(path + u"-wal"_s, bytes(store.path() + u"-wal"_s));
            QCOMPARE(states(), 0);
            QCOMPARE(bytes(path + kept), bytes(store.path() + u"-wal"_s));
        }
        QVERIFY(!QFile::exists(path + u"-wal"_s));
        QVERIFY(refusal(store.path()).contains(u"another program is using the data file"));
    }

    /// By whatever name or link: an export would take the place of the data, of a journal, or of a copy.
    void whatBelongsToTheDataFile() {
        const test::TemporaryStore store;
        const QString folder = store.file(u"folder"_s);
        const QString copy = store.file(u"copy.csv"_s);
        QVERIFY(QDir().mkdir(folder) && QFile::copy(store.path(), copy));
        write(store.path() + u".lock"_s, "held");
        const auto link = [&](const QString& target, const QString& name) {
            const QString path = folder + name;
            return QFile::link(target, path) ? path : QString();
        };
        const QString hardLink = folder + u"/hard.csv"_s;
        std::filesystem::create_hard_link(store.path().toStdString(), hardLink.toStdString());
        for (const QString& path :
             {store.path(), store.path() + u"-journal"_s, store.file(u"./folder/../kelvora_db.sqlite-WAL"_s),
              store.path() + u".lock"_s, store.path() + u".new"_s, copy, hardLink, link(store.path(), u"/soft.csv"_s),
              link(store.path() + u"-journal"_s, u"/dangling.csv"_s),
              link(store.file({}), u"/up"_s) + u"/kelvora_db.sqlite"_s}) {
            QVERIFY2(belongsToDataFile(path, store.path()), qPrintable(path));
            QVERIFY2(belongsToDataFile(path, folder + u"/soft.csv"_s), qPrintable(path));
        }
        QVERIFY(!belongsToDataFile(folder + u"/kelvora_db.sqlite"_s, store.path()));
        QVERIFY(!belongsToDataFile(store.file(u"catch.csv"_s), store.path()));
    }
};

KELVORA_TEST(TestStore, "store");

}  // namespace kelvora::test_store

#include "test_store.moc"
