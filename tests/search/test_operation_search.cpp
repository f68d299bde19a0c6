#include "controls/bound_list.h"
#include "search_window.h"

#include <QRegularExpression>

namespace kelvora::test_operation_search {

class TestOperationSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void criteria() {
        struct Case {
            QString criterion, value;
            QStringList operations;
        };
        // Areas are listed by their descriptions and matched by their names; operations store no gear, but a method.
        for (const auto& [criterion, value, operations] : {Case{u"State/Province"_qs, u"Alpha"_qs, {u"1"_qs, u"2"_qs}},
                                                           {u"Sampling Port"_qs, u"Cay"_qs, {u"3"_qs}},
                                                           {u"Fishing Area"_qs, u"north bank"_qs, {u"1"_qs, u"3"_qs}},
                                                           {u"Vessel"_qs, u"Sea Star"_qs, {u"1"_qs, u"3"_qs}},
                                                           {u"Fishing Gear"_qs, u"Trawl"_qs, {u"1"_qs, u"3"_qs}}}) {
            const test::SearchWindow search;
            search.find(criterion, value);
            QCOMPARE(search.number(), operations.first());
            if (operations.size() > 1) {
                search.move(u"Last"_qs);
            }
            QCOMPARE(search.number(), operations.last());
            QCOMPARE(search.caption(), u"RESULT: [%1 / %1]"_qs.arg(operations.size()));
            QVERIFY(search.shows(u"DELETE"_qs));
        }
    }

    void details() {
        test::SearchWindow search;
        search.store.execute("update fishoperation set lon_min = 7.5, note = 'calm\nsea' where optid = 2");
        search.find(u"Vessel"_qs, u"Blue Fin"_qs);
        for (const auto& [caption, text] : {std::pair{u"No."_qs, u"2"_qs},
                                            {u"Vessel Name"_qs, u"Blue Fin"_qs},
                                            {u"Vessel Register id"_qs, u"R-2"_qs},
                                            {u"Fishing Gear"_qs, u"Gill net"_qs},
                                            {u"Fishing Method"_qs, u"Drift"_qs},
                                            {u"Fishing Area"_qs, u"A2"_qs},
                                            {u"State/Province"_qs, u"Alpha"_qs},
                                            {u"Sampling Port"_qs, u"Bex"_qs},
                                            {u"Date"_qs, u"01/04/2004"_qs},
                                            {u"Fishing Ground Latitude"_qs, u"12"_qs},
                                            {u"Latitude Dec"_qs, u"12"_qs},
                                            {u"Latitude Min"_qs, u"30"_qs},
                                            {u"Longtitude Dec"_qs, u"100"_qs},
                                            {u"Longtitude Min"_qs, u"7.5"_qs},
                                            {u"Bottom Depth(Meter)"_qs, u"40"_qs},
                                            {u"Fishing Depth(Meter)"_qs, u"35"_qs},
                                            {u"No of haul per Trip(haul)"_qs, u"3"_qs},
                                            {u"Duration of Trip(days)"_qs, u"2"_qs},
                                            {u"Estimate Total Catch(kg/trip)"_qs, u"80"_qs},
                                            {u"Recorder"_qs, u"Port Sampler"_qs},
                                            {u"Note"_qs, u"calm\nsea"_qs}}) {
            QCOMPARE(search.hand->text(caption), text);
        }
    }

    void fishingTime() {
        test::SearchWindow search;
        const QString day = u"Day"_qs, night = u"Night"_qs, both = u"Day and Night"_qs;
        for (const auto& [stored, selected] : {std::pair{day, day}, {night, night}, {both, both}, {u"dawn"_qs, both}}) {
            search.store.db().execute(Sql("update fishoperation set fishingtime = ") << stored);
            search.openTab();
            for (const QString& time : {day, night, both}) {
                QCOMPARE(search.hand->button(time)->isChecked(), time == selected);
                QVERIFY(!search.hand->enabled(time));
            }
        }
    }

    void openingAndNoMatch() {
        const test::SearchWindow search;
        QCOMPARE(search.hand->text(u"Criterion"_qs), u"State/Province"_qs);
        QCOMPARE(search.hand->list(u"Value"_qs)->count(), 2);
        search.hand->press(u"SEARCH"_qs);
        QCOMPARE(search.caption(), QString());
        QVERIFY(!search.shows(u"DELETE"_qs));

        // Another criterion leaves the result as it is until the next search.
        search.openTab();
        search.hand->choose(u"Criterion"_qs, u"Vessel"_qs);
        QCOMPARE(search.hand->text(u"Value"_qs), QString());
        search.hand->press(u"SEARCH"_qs);
        QCOMPARE(search.caption() + search.number(), u"RESULT: [1 / 2]1"_qs);

        search.hand->type(u"Value"_qs, u"1 or 1=1"_qs);
        search.hand->press(u"SEARCH"_qs);
        QCOMPARE(search.caption(), u"[No Record]"_qs);
        QCOMPARE(search.number() + search.hand->text(u"Latitude Dec"_qs), QString());
        QVERIFY(!search.hand->button(u"Day"_qs)->isChecked());
        QVERIFY(!search.shows(u"DELETE"_qs));
    }

    /// All goes with the operation, or nothing if the last table refuses.
    void deletion() {
        test::SearchWindow search;
        search.store.execute("insert into group_main values (1, 3, 'Single species', 30)");
        search.store.execute("insert into group_composition values (3, 1, 1, 30, 30)");
        search.store.execute("insert into length values (3, 1, 2)");
        search.store.execute("insert into length_detail values (3, 1, 10, 12, 11, 3)");
        search.store.execute("insert into gonad values (3, 1, 0.2)");
        search.store.execute("insert into gonad_detail(optid, spid, samplingno) values (3, 1, 1)");
        search.openTab();
        const QStringList all = search.store.wholeFile();
        search.deleteOperation(false);
        QCOMPARE(search.store.wholeFile(), all);
        search.store.execute(
            "create trigger refuse before delete on length_detail begin select raise(abort, 'refused'); end");
        search.deleteOperation(true, u"length_detail"_qs);
        QCOMPARE(search.store.wholeFile(), all);
        QCOMPARE(search.number(), u"1"_qs);
        // No transaction was left open: the file can be written to by another connection.
        search.store.execute("drop trigger refuse");

        // The search is the one that found the operation, whatever has been chosen since.
        search.hand->choose(u"Criterion"_qs, u"Vessel"_qs);
        search.deleteOperation(true);
        QStringList expected = all;
        const QRegularExpression ofTheOperation(
            u"^((operation|gonad|length)(_detail)?|group_composition|group_main\\|[12])\\|1\\|"_qs);
        expected.removeIf([&](const QString& row) { return row.contains(ofTheOperation); });
        QCOMPARE(all.size() - expected.size(), 16);
        QCOMPARE(search.store.wholeFile(), expected);
        QCOMPARE(search.caption() + search.number(), u"RESULT: [1 / 1]2"_qs);
        search.deleteOperation(true);
        QCOMPARE(search.caption(), u"[No Record]"_qs);
        QVERIFY(!search.shows(u"DELETE"_qs));
    }

    void goneElsewhere() {
        test::SearchWindow search;
        search.openTab();
        search.store.execute("delete from fishoperation where optid = 2");
        search.store.dialogs.expectMessageContaining(u"Operation No. 2 is not found any more"_qs);
        search.move(u"Next"_qs);
        QCOMPARE(search.caption() + search.number(), u"RESULT: [1 / 1]1"_qs);

        search.store.execute("delete from fishoperation where optid = 1");
        search.deleteOperation(true, u"Operation No. 1 is not found any more"_qs);
        QCOMPARE(search.caption(), u"[No Record]"_qs);
    }
};

KELVORA_TEST(TestOperationSearch, "operation_search");

}  // namespace kelvora::test_operation_search

#include "test_operation_search.moc"
