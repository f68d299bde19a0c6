#include "data/store.h"
#include "data/store_files.h"
#include "data/transaction.h"
#include "support/obstacles.h"
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
    static QString today() { return QDate::currentDate().toString(Qt::ISODate); }
    static QString one(const QString& path, Literal question) {
        Connection db(path);
        return test::rows(db, Sql(question)).join(u' ');
    }

private Q_SLOTS:
    void refused() {
        const qint64 size = test::bytesOf(test::TemporaryStore().path()).size();
        struct Changed {
            QString reason;
            qint64 kept;
            Literal statement;
        };
        const Changed all[] = {
            {u"it is empty"_s, 0, "begin"},
            {u"it is not a database"_s, 99, "begin"},
            {u"its end is missing"_s, size - 1, "begin"},
            {u"it belongs to another program"_s, size, "pragma application_id = 0"},
            {u"it was made by a newer version of this program"_s, size, "pragma user_version = 2"},
            {u"its table gonad_stage is not as it should be"_s, size, "drop table gonad_stage"},
            {u"its table state is not as it should be"_s, size, "alter table state add column capital"},
        };
        for (const auto& [reason, kept, statement] : all) {
            test::TemporaryStore store;
            store.execute(statement);
            QVERIFY(QFile::resize(store.path(), kept));
            const QByteArray before = test::bytesOf(store.path());
            const QString message = refusal(store.path());
            QVERIFY2(message.contains(reason) && message.contains(store.path()), qPrintable(reason + message));
            QCOMPARE(test::bytesOf(store.path()), before);
        }
        const test::TemporaryStore another;
        QVERIFY(QFile::setPermissions(another.path(), {}));
        const test::Obstacle user = test::readOnlyFolder(another.file({}));
        QVERIFY(refusal(another.path()).contains(u"it cannot be read (Permission denied)"_s));
    }

    /// No file, and what the start that was cut off has left beside it; then what is there already.
    void newFile() {
        const test::TemporaryStore store;
        const QString folder = store.file(u"new folder/älv & co"_s);
        const QString path = folder + u"/data.sqlite"_s;
        QVERIFY(QDir().mkpath(folder));
        write(path + u".new"_s, "half a file");
        QCOMPARE(prepareStore(path).line, u"A new data file was made:\n"_s + path);
        QCOMPARE(prepareStore(path).line, QString());
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{u"data.sqlite"_s});
        QVERIFY(QFile::link(store.file(u"nowhere"_s), store.file(u"link"_s)));
        for (const QString& none : {folder, store.file(u"link"_s)}) {
            QVERIFY(refusal(none).contains(u"it is not a file"));
        }
        // Below a file, beside a folder in the way, and beside a journal that has no room for a date in its name.
        const QString longName = store.file(QString(240, u'n'));
        QVERIFY(QDir().mkdir(store.file(u"taken.new"_s)));
        write(longName + u"-journal"_s, "kept");
        for (const auto& [place, reason] :
             {std::pair(path + u"/below"_s, u"its folder cannot be made"_s),
              {store.file(u"taken"_s), u"the data file, or a file beside it, cannot be opened"_s},
              {longName, u"its folder may not be written to"_s}}) {
            QCOMPARE(refusal(place), u"The data file cannot be created: "_s + reason + u".\n"_s + place);
            QVERIFY(!QFile::exists(place) && !QFileInfo(place + u".new"_s).isFile());
        }
    }

    /// As the first version made it, with a table that another program added: opened, and left as it is.
    void aFileOfVersion1() {
        const test::TemporaryStore store;
        const QString path = store.file(u"first.sqlite"_s);
        QVERIFY(QFile::copy(u"" KELVORA_TEST_FILES "/kelvora_1_0.sqlite"_s, path));
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        Connection(path).execute(Sql("create table port_weather (day text)"));
        const QByteArray before = test::bytesOf(path);
        QCOMPARE(prepareStore(path).line, QString());
        QCOMPARE(test::bytesOf(path), before);
        for (const Literal question :
             {Literal("select m.name, c.* from sqlite_master m, pragma_table_info(m.name) c where m.type = 'table' and"
                      " m.name <> 'port_weather' order by m.name, c.cid"),
              Literal("select m.name, m.tbl_name, c.* from sqlite_master m, pragma_index_xinfo(m.name) c where m.type ="
                      " 'index' order by m.name, c.seqno"),
              Literal("select * from kelvora_user, gonad_stage, pragma_application_id, pragma_user_version"
                      " order by stageid")}) {
            QCOMPARE(one(path, question), one(store.path(), question));
        }
    }

    /// A backup is copied over the file of an interrupted save, whose journal would mix what was there into it.
    void aJournalOfAnotherFile() {
        test::TemporaryStore store;
        const QString path = store.file(u"cut.sqlite"_s);
        const QByteArray backup = test::bytesOf(store.path());
        store.execute("update kelvora_user set uname = 'Monday'");
        store.execute("pragma cache_size=10");
        store.execute("begin");
        store.execute("delete from kelvora_user");
        store.execute(
            "with recursive n(i) as (select 1 union all select i + 1 from n where i < 5000)"
            " insert into state select i, 'A name that fills the pages' from n");
        const QByteArray journal = test::bytesOf(store.path() + u"-journal"_s);
        write(path, backup);
        write(path + u"-journal"_s, journal);
        const QString copy = path + u"-copy-"_s + today();
        {
            const test::Obstacle full = test::fullDisk(100);
            QVERIFY(refusal(path).contains(u"cannot be copied before it is mended"));
        }
        for (const QString& kept : {path, copy, path, copy}) {
            const QString message = refusal(path);
            QVERIFY2(message.contains(u"the journal beside it belongs to another data file"), qPrintable(message));
            QVERIFY(message.endsWith(copy));
            QCOMPARE(test::bytesOf(kept) + test::bytesOf(kept + u"-journal"_s), backup + journal);
        }
        QVERIFY(QFile::remove(path));
        prepareStore(path);
        QCOMPARE(one(path, "select uname from kelvora_user"), u"Administrator"_s);
        QCOMPARE(test::bytesOf(path + u"-journal-"_s + today()), journal);
    }

    /// Another tool had switched the file to a log beside it: the data are one file again.
    void aFileWithALog() {
        test::TemporaryStore store;
        const QString path = store.file(u"logged.sqlite"_s);
        const QByteArray old = test::bytesOf(store.path());
        store.db().query(Sql("pragma journal_mode=wal"));
        store.execute("insert into state values (1, 'Alpha')");
        const QByteArray log = test::bytesOf(store.path() + u"-wal"_s);
        write(path, test::bytesOf(store.path()));
        write(path + u"-wal"_s, log);
        QCOMPARE(refusal(path), QString());
        QCOMPARE(one(path, "select * from state") + one(path, "pragma journal_mode"), u"1|Alphadelete"_s);
        QVERIFY(!QFile::exists(path + u"-wal"_s));
        // A log that was left beside another file is not taken in, and is kept: twice on the same day, too.
        for (const QString& kept : {u"-wal-"_s + today(), u"-wal-"_s + today() + u"-2"_s}) {
            write(path, old);
            write(path + u"-wal"_s, log);
            QCOMPARE(refusal(path), QString());
            QCOMPARE(one(path, "select * from state"), QString());
            QCOMPARE(test::bytesOf(path + kept), log);
        }
    }

    /// By whatever name or link: an export would take the place of the data, of a journal, or of a copy.
    void whatBelongsToTheDataFile() {
        const test::TemporaryStore store;
        const QString folder = store.file(u"folder/"_s);
        const QString data = store.path();
        QVERIFY(QDir().mkdir(folder) && QFile::copy(data, store.file(u"copy.csv"_s)));
        QVERIFY(QFile::link(data, folder + u"soft.csv"_s) && QFile::link(store.file({}), folder + u"up"_s));
        QVERIFY(QFile::link(data + u"-journal"_s, folder + u"dangling.csv"_s));
        write(data + u".lock"_s, "held");
        std::filesystem::create_hard_link((data + u".lock"_s).toStdString(), (folder + u"hard.csv"_s).toStdString());
        for (const QString& path :
             {data + u".new"_s, store.file(u"./folder/../KELVORA_DB.sqlite-wal"_s), store.file(u"copy.csv"_s),
              folder + u"hard.csv"_s, folder + u"dangling.csv"_s, folder + u"up/kelvora_db.sqlite-journal"_s}) {
            QVERIFY2(belongsToDataFile(path, folder + u"soft.csv"_s), qPrintable(path));
        }
        QVERIFY(!belongsToDataFile(folder + u"kelvora_db.sqlite"_s, data));
        QVERIFY(!belongsToDataFile(store.file(u"catch.csv"_s), data));
    }
};

KELVORA_TEST(TestStore, "store");

}  // namespace kelvora::test_store

#include "test_store.moc"
