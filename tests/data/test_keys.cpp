#include "data/keys.h"
#include "data/numbers.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_keys {

using Next = std::function<int(Connection&)>;
using Insert = std::function<void(Connection&, int)>;

/// The keys of new rows, from the first to the last.
class TestKeys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void largestAndOne_data() {
        QTest::addColumn<Next>("next");
        QTest::addColumn<Insert>("insert");
        QTest::addColumn<int>("first");
        const auto row = [](const char* name, const Next& next, const Insert& insert, int first = 1) {
            QTest::newRow(name) << next << insert << first;
        };
        row("state", nextState,
            [](Connection& db, int key) { db.execute(Sql("insert into state(stateid) values(") << key << ")"); });
        row("port", nextSamplingPort, [](Connection& db, int key) {
            db.execute(Sql("insert into samplingport(samplingid) values(") << key << ")");
        });
        row("gear", nextGear,
            [](Connection& db, int key) { db.execute(Sql("insert into Fishing_gear(gearid) values(") << key << ")"); });
        row("method", nextMethod, [](Connection& db, int key) {
            db.execute(Sql("insert into Fishing_method(methodid) values(") << key << ")");
        });
        row("species", nextSpecies,
            [](Connection& db, int key) { db.execute(Sql("insert into fish(fishno) values(") << key << ")"); });
        row("operation", nextOperation,
            [](Connection& db, int key) { db.execute(Sql("insert into fishoperation(optid) values(") << key << ")"); });
        row(
            "group", [](Connection& db) { return nextGroup(db, 7); },
            [](Connection& db, int key) {
                db.execute(Sql("insert into group_main(optid, groupid) values(7,")
                           << key << "),(8," << key << " + 1000)");
            },
            2);
    }
    void largestAndOne() {
        QFETCH(Next, next);
        QFETCH(Insert, insert);
        test::TemporaryStore store;
        QTEST(next(store.db()), "first");
        insert(store.db(), kLargestKey - 1);
        QCOMPARE(next(store.db()), kLargestKey);
        insert(store.db(), kLargestKey);
        try {
            next(store.db());
            QFAIL("a key beyond the last one");
        } catch (const DataError& e) {
            QVERIFY(QString::fromUtf8(e.what()).contains(u"it holds at most 32767 "));
        }
        insert(store.db(), 2'147'483'647);
        QVERIFY_EXCEPTION_THROWN(next(store.db()), DataError);
    }

    void countAndOne() {
        test::TemporaryStore store;
        QCOMPARE(nextGearByCount(store.db()), 1);
        QCOMPARE(nextFish(store.db(), 7, 1), 1);
        store.execute("insert into Fishing_gear values (5, 'a'), (9, 'b')");
        store.execute(
            "insert into gonad_detail(optid, spid, samplingno) values (7, 1, 1), (7, 1, 2), (7, 2, 1), (8, 1, 1)");
        QCOMPARE(nextGearByCount(store.db()), 3);
        QCOMPARE(nextFish(store.db(), 7, 1), 3);
        store.execute(
            "with recursive n(i) as (select 3 union all select i + 1 from n where i < 32767)"
            " insert into gonad_detail(optid, spid, samplingno) select 7, 1, i from n");
        QVERIFY_EXCEPTION_THROWN(nextFish(store.db(), 7, 1), DataError);
    }
};

KELVORA_TEST(TestKeys, "keys");

}  // namespace kelvora::test_keys

#include "test_keys.moc"
