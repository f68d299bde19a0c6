#include "data/transaction.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_transaction {

/// Statements and saving: all or nothing, and nothing left open.
class TestTransaction : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TemporaryStore> m_store;
    std::unique_ptr<Connection> m_other;  ///< another program's

    static Sql insert(int key) { return Sql("insert into state(stateid) values(") << key << ")"; }
    QStringList stored() { return test::rows(*m_other, Sql("select stateid from state order by stateid")); }
    /// Why something failed; empty if it did not.
    static QString failure(const std::function<void()>& action) {
        try {
            action();
        } catch (const DataError& e) {
            return QString::fromUtf8(e.what());
        }
        return {};
    }

private Q_SLOTS:
    void init() {
        m_store = std::make_unique<test::TemporaryStore>();
        m_other = std::make_unique<Connection>(m_store->path());
    }
    void cleanup() {
        // Whatever happened: nobody holds the file.
        QCOMPARE(failure([this] { m_store->db().execute(insert(99)); }), QString());
        QCOMPARE(failure([this] { m_other->execute(Sql("delete from state")); }), QString());
    }

    void allOrNothing() {
        for (const bool commit : {false, true}) {
            Transaction transaction(m_store->db());
            m_store->db().execute(insert(1));
            m_store->db().execute(insert(2));
            QCOMPARE(stored(), QStringList());
            if (commit) {
                transaction.commit();
            }
        }
        QCOMPARE(stored(), (QStringList{u"1"_s, u"2"_s}));
        // A save outlives a power cut, the deletion of its journal included.
        QCOMPARE(m_store->rows("pragma synchronous"), QStringList{u"3"_s});
    }

    void executeThenAskFollowsTheAnswer() {
        const auto ask = [this](int key, const std::function<bool()>& answer) {
            return executeThenAsk(m_store->db(), insert(key), answer);
        };
        const auto fails = []() -> bool { throw std::runtime_error("asked"); };
        QVERIFY(!ask(1, [] { return false; }));
        QCOMPARE(stored(), QStringList());
        QVERIFY(ask(1, [] { return true; }));
        QCOMPARE(failure([&] { ask(1, fails); }), u"Nothing was stored or deleted: this key is already stored."_s);
        QVERIFY_EXCEPTION_THROWN(ask(2, fails), std::runtime_error);
        QCOMPARE(stored(), QStringList{u"1"_s});
    }

    void fileReadByAnotherProgramAtTheCommit() {
        m_other->execute(Sql("begin"));
        QCOMPARE(stored(), QStringList());
        const QString message = failure([this] { m_store->db().execute(insert(1)); });
        QVERIFY2(message.contains(u"another program is using the data file"), qPrintable(message));
        m_other->execute(Sql("commit"));
        QCOMPARE(stored(), QStringList());
    }

    void failedStatements() {
        const QString other = u"the tables of the data file are not as they should be (no such table: nowhere)."_s;
        QCOMPARE(failure([this] { m_store->rows("select * from nowhere"); }),
                 u"The data could not be read: "_s + other);
        m_store->execute("create table strict_one(id integer not null check(id > 0)) strict");
        struct Refused {
            Literal statement;
            QString reason;
        };
        const Refused all[] = {
            {"insert into nowhere values('some text')", other},
            {"insert into strict_one values(null)", u"a value that the data file asks for is missing."_s},
            {"insert into strict_one values('x')", u"a value is not of the kind that the data file takes."_s},
            {"insert into strict_one values(0)", u"a rule that was laid into the data file does not allow it."_s}};
        for (const auto& [statement, reason] : all) {
            QCOMPARE(failure([&, row = statement] { m_store->execute(row); }),
                     u"Nothing was stored or deleted: "_s + reason);
        }
        const QString nowhere = m_store->file(u"nowhere/data.sqlite"_s);
        QVERIFY(failure([&] { const Connection none(nowhere); }).contains(nowhere));
    }

    void fileReplacedWhileOpen() {
        QVERIFY(QFile::rename(m_store->path(), m_store->file(u"moved"_s)));
        QVERIFY(QFile::copy(m_store->file(u"moved"_s), m_store->path()));
        const QString message = failure([this] { m_store->db().execute(insert(1)); });
        QVERIFY2(message.contains(u"was moved, deleted or replaced while it was open"), qPrintable(message));
        init();
    }

    /// A statement that comes again with other values is not prepared again: nothing of the former ones may stay.
    void theSameStatementAgain() {
        const auto insertFish = [&](int number, const QString& name, double interval) {
            m_store->db().execute(Sql("insert into fish(fishno, genus, fishname, classinterval) values (")
                                  << number << ", 'G', " << name << "," << interval << ")");
        };
        insertFish(1, u"o'year ? \"[x]%;"_s, 3);
        QVERIFY_EXCEPTION_THROWN(insertFish(1, u"again"_s, 4), DataError);
        insertFish(2, u"a"_s + QChar(u'\0') + u'b', 0.1);  // no other program expects the character in the middle
        insertFish(3, QString(), -1e15);
        QCOMPARE(m_store->rows("select fishno, fishname, classinterval / 2 from fish order by fishno"),
                 (QStringList{u"1|o'year ? \"[x]%;|1.5"_s, u"2|ab|0.05"_s, u"3||-500000000000000"_s}));
        const auto found = [&](const Sql& condition) {
            return m_store->rows(Sql("select fishno from fish where ") << condition).join(u' ');
        };
        QCOMPARE(found(Sql("fishname = ") << u"O'YEAR ? \"[x]%;"_s), u"1"_s);
        QCOMPARE(found(Sql("fishname = ") << u"again"_s), QString());
        QCOMPARE(found(Sql("classinterval = ") << 0.1 << " and " << (Sql("fishno = ") << 2)), u"2"_s);
        QCOMPARE(m_store->rows(Sql("select ") << 7.0 << " / 2, " << 7.5 << " / 2, " << QDate(2026, 11, 22)),
                 QStringList{u"3|3.75|2026-11-22"_s});
        QVERIFY_EXCEPTION_THROWN(Sql("select ") << std::numeric_limits<double>::infinity(), std::invalid_argument);
    }
};

KELVORA_TEST(TestTransaction, "transaction");

}  // namespace kelvora::test_transaction

#include "test_transaction.moc"
