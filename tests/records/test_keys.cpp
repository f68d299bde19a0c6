#include "data/numbers.h"
#include "records/keys.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_keys {

/// The keys of new rows, from the first to the last.
class TestKeys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void largestAndOne() {
        struct Key {
            const char* name;
            int (*next)(Connection&);
            Literal insert;
            int first = 1;
        };
        const std::vector<Key> keys = {
            {"state", nextState, "insert into state(stateid) values("},
            {"port", nextSamplingPort, "insert into samplingport(samplingid) values("},
            {"gear", nextGear, "insert into Fishing_gear(gearid) values("},
            {"method", nextMethod, "insert into Fishing_method(methodid) values("},
            {"species", nextSpecies, "insert into fish(fishno) values("},
            {"operation", nextOperation, "insert into fishoperation(optid) values("},
            {"group of an operation", [](Connection& db) { return nextGroup(db, 7); },
             "insert into group_main(optid, groupid) values(7,", 2},
        };
        test::TemporaryStore store;
        store.execute("insert into group_main(optid, groupid) values(8, 32767)");
        for (const Key& key : keys) {
            const auto refused = [&] {
                try {
                    key.next(store.db());
                } catch (const DataError& e) {
                    return QString::fromUtf8(e.what()).contains(u"it holds at most 32767 ");
                }
                return false;
            };
            const auto insert = [&](int number) { store.db().execute(Sql(key.insert) << number << ")"); };
            QVERIFY2(key.next(store.db()) == key.first, key.name);
            insert(kLargestKey - 1);
            QVERIFY2(key.next(store.db()) == kLargestKey, key.name);
            insert(kLargestKey);
            QVERIFY2(refused(), key.name);
            insert(2'147'483'647);
            QVERIFY2(refused(), key.name);
        }
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
