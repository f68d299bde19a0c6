#include "data/transaction.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_transaction {

/// Saving: all or nothing, and nothing left open.
class TestTransaction : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TemporaryStore> m_store;
    std::unique_ptr<Connection> m_other;  ///< another program's

    static Sql insert(int key) { return Sql("insert into state(stateid) values(") << key << ")"; }
    QStringList stored() { return m_store->rows("select stateid from state order by stateid"); }
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
        QCOMPARE(failure([this] { m_store->execute("insert into state(stateid) values (99)"); }), QString());
        QCOMPARE(failure([this] { m_other->execute(Sql("delete from state")); }), QString());
        m_other.reset();
        m_store.reset();
    }

    void allOrNothing() {
        for (const bool commit : {false, true}) {
            Transaction transaction(m_store->db());
            m_store->db().execute(insert(1));
            m_store->db().execute(insert(2));
            QCOMPARE(m_other->query(Sql("select * from state")).rowCount(), 0);
            if (commit) {
                transaction.commit();
            }
        }
        QCOMPARE(m_other->query(Sql("select * from state")).rowCount(), 2);
    }

    void executeThenAskFollowsTheAnswer() {
        const auto answer = [](bool yes) { return [yes] { return yes; }; };
        const auto neverAsked = []() -> bool { throw std::runtime_error("asked"); };
        QVERIFY(!executeThenAsk(m_store->db(), insert(1), answer(false)));
        QCOMPARE(stored(), QStringList());
        QVERIFY(executeThenAsk(m_store->db(), insert(1), answer(true)));
        QCOMPARE(stored(), QStringList{u"1"_s});
        const QString message = failure([&] { executeThenAsk(m_store->db(), insert(1), neverAsked); });
        QCOMPARE(message, u"Nothing was stored or deleted: this key is already stored."_s);
        QVERIFY_EXCEPTION_THROWN(executeThenAsk(m_store->db(), insert(2), neverAsked), std::runtime_error);
        QCOMPARE(stored(), QStringList{u"1"_s});
    }

    void fileReadByAnotherProgramAtTheCommit() {
        m_other->execute(Sql("begin"));
        QCOMPARE(m_other->query(Sql("select * from state")).rowCount(), 0);
        const QString message = failure([this] {
            Transaction transaction(m_store->db());
            m_store->db().execute(insert(1));
            transaction.commit();
        });
        QVERIFY2(message.contains(u"another program is using the data file"), qPrintable(message));
        m_other->execute(Sql("commit"));
        QCOMPARE(stored(), QStringList());
    }

    void failedStatements() {
        const QString other = u"the tables of the data file are not as they should be (no such table: nowhere)."_s;
        QCOMPARE(failure([this] { m_store->rows("select * from nowhere"); }),
                 u"The data could not be read: "_s + other);
        QCOMPARE(failure([this] { m_store->execute("insert into nowhere values('some text')"); }),
                 u"Nothing was stored or deleted: "_s + other);
        m_store->execute("create table strict_one(id integer not null check(id > 0)) strict");
        struct Refused {
            Literal statement;
            const char* reason;
        };
        const Refused all[] = {
            {"insert into strict_one values(null)", "a value that the data file asks for is missing"},
            {"insert into strict_one values('x')", "a value is not of the kind that the data file takes"},
            {"insert into strict_one values(0)", "a rule that was laid into the data file does not allow it"}};
        for (const auto& [statement, reason] : all) {
            const QString said = failure([&, row = statement] { m_store->execute(row); });
            QVERIFY2(said.contains(QLatin1String(reason)), qPrintable(said));
        }
        QVERIFY(failure([this] {
                    const Connection nowhere(m_store->file(u"nowhere/data.sqlite"_s));
                }).contains(u"nowhere/data.sqlite"));
    }

    void fileReplacedWhileOpen() {
        m_other.reset();
        QVERIFY(QFile::rename(m_store->path(), m_store->file(u"moved"_s)));
        QVERIFY(QFile::copy(m_store->file(u"moved"_s), m_store->path()));
        const QString message = failure([this] { m_store->db().execute(insert(1)); });
        QVERIFY2(message.contains(u"was moved, deleted or replaced while it was open"), qPrintable(message));
        m_store = std::make_unique<test::TemporaryStore>();
        m_other = std::make_unique<Connection>(m_store->path());
    }

    void valuesOfAResult() {
        const ResultSet result = m_store->db().query(Sql(
            "select null as n, 7 as Whole, 10.5 as part, ' 12 ' as t, 'x' as word, '2004-02-29' as day, 3e9 as big"));
        QCOMPARE(result.text(0, u"N") + result.text(0, u"WHOLE") + result.text(0, u"part"), u"710.5"_s);
        QCOMPARE(result.integer(0, u"whole"), std::optional(7));
        QCOMPARE(result.integer(0, u"t"), std::optional(12));
        QCOMPARE(result.number(0, u"part"), std::optional(10.5));
        for (const QStringView none : {u"n", u"word", u"big"}) {
            QVERIFY(!result.integer(0, none).has_value());
        }
        QCOMPARE(result.date(0, u"day"), QDate(2004, 2, 29));
        QVERIFY(!result.date(0, u"t").isValid());
        QVERIFY_EXCEPTION_THROWN((void)result.text(0, u"other"), std::out_of_range);
    }
};

KELVORA_TEST(TestTransaction, "transaction");

}  // namespace kelvora::test_transaction

#include "test_transaction.moc"
