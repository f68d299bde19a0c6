#include "data/sql.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_sql {

/// Typed values in statements: whatever was typed is stored and found as it is.
class TestSql : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void statementText() {
        const Sql sql = Sql("insert into t values(")
                        << 7 << "," << 10.25 << "," << u"O'Hara"_s << "," << QDate(2026, 11, 22) << ")";
        QCOMPARE(sql.prepared(), std::string("insert into t values(?,?,?,?)"));
        QCOMPARE(sql.values(), (std::vector<Sql::Value>{std::int64_t{7}, 10.25, "O'Hara", "2026-11-22"}));
        QVERIFY_EXCEPTION_THROWN(Sql("select ") << std::numeric_limits<double>::infinity(), std::invalid_argument);
    }

    /// A null character is left out: no other program expects one.
    void hostileTextsRoundTrip() {
        for (const QString& text :
             {u"'; drop table state; --"_s, u"a & b ? year(optdate) = 2004 group by y ' [x] \" \\ %;("_s,
              u"ปลาทู 鯖 Ålesund مرسى"_s, QString(10'000, u'\''), u"a"_s + QChar(u'\0') + u"b' or '1' = '1"_s}) {
            test::TemporaryStore store;
            store.db().execute(Sql("insert into state values(1,") << text << ")");
            const QStringList whole{QString(text).remove(QChar(u'\0'))};
            QCOMPARE(store.rows(Sql("select statename from state where (statename = ") << text << ")"), whole);
            QCOMPARE(store.rows(Sql("select ") << text << " || '' from state where " << text << " = statename"), whole);
        }
    }

    /// A statement that comes again with other values is not prepared again: nothing of the former ones may stay.
    void theSameStatementAgain() {
        test::TemporaryStore store;
        const auto insert = [&](int number, const QString& name, double interval) {
            store.db().execute(Sql("insert into fish(fishno, genus, fishname, classinterval) values (")
                               << number << ", 'G', " << name << "," << interval << ")");
        };
        insert(1, u"year"_s, 3);
        QVERIFY_EXCEPTION_THROWN(insert(1, u"again"_s, 4), DataError);
        insert(2, u"?"_s, 0.1);
        insert(3, QString(), -1e15);
        const auto found = [&](const Sql& condition) {
            return store.rows(Sql("select fishno, classinterval / 2, genus || ' ' || fishname as n from fish where ")
                              << condition);
        };
        QCOMPARE(found(Sql("fishname = ") << u"YEAR"_s), QStringList{u"1|1.5|G year"_s});
        QCOMPARE(found(Sql("fishname = ") << u"?"_s), QStringList{u"2|0.05|G ?"_s});
        QCOMPARE(found(Sql("fishname = ") << u"again"_s), QStringList());
        QCOMPARE(found(Sql("classinterval = ") << -1e15 << " and " << (Sql("fishno = ") << 3)),
                 QStringList{u"3|-500000000000000|G "_s});
        QCOMPARE(store.rows(Sql("select fishno from fish where classinterval = ") << 0.1), QStringList{u"2"_s});
        QCOMPARE(store.rows(Sql("select ") << 7.0 << " / 2, " << 7.5 << " / 2, " << 7 << " / 2"),
                 QStringList{u"3|3.75|3"_s});
        // A statement left half-way by its failure does not keep the file locked.
        Connection other(store.path());
        other.execute(Sql("insert into state values (") << 9 << ",'Nine')");
    }
};

KELVORA_TEST(TestSql, "sql");

}  // namespace kelvora::test_sql

#include "test_sql.moc"
