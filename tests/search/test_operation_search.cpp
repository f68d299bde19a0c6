#include "controls/bound_list.h"
#include "search_window.h"

#include <QAccessible>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

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
        for (const auto& [criterion, value, operations] : {Case{u"State/Province"_s, u"Alpha"_s, {u"1"_s, u"2"_s}},
                                                           {u"Sampling Port"_s, u"Cay"_s, {u"3"_s}},
                                                           {u"Fishing Area"_s, u"north bank"_s, {u"1"_s, u"3"_s}},
                                                           {u"Vessel"_s, u"Sea Star"_s, {u"1"_s, u"3"_s}},
                                                           {u"Fishing Gear"_s, u"Trawl"_s, {u"1"_s, u"3"_s}}}) {
            const test::SearchWindow search;
            search.find(criterion, value);
            QCOMPARE(search.number(), operations.first());
            if (operations.size() > 1) {
                search.move(u"Last"_s);
            }
            QCOMPARE(search.number(), operations.last());
            QCOMPARE(search.caption(), u"RESULT: [%1 / %1]"_s.arg(operations.size()));
            QVERIFY(search.shows(u"DELETE"_s));
        }
    }

    void details() {
        test::SearchWindow search;
        search.store.execute("update fishoperation set lon_min = 7.5, note = 'calm\nsea' where optid = 2");
        search.find(u"Vessel"_s, u"Blue Fin"_s);
        for (const auto& [caption, text] : {std::pair{u"No."_s, u"2"_s},
                                            {u"Vessel Name"_s, u"Blue Fin"_s},
                                            {u"Vessel Register id"_s, u"R-2"_s},
                                            {u"Fishing Gear"_s, u"Gill net"_s},
                                            {u"Fishing Method"_s, u"Drift"_s},
                                            {u"Fishing Area"_s, u"A2"_s},
                                            {u"State/Province"_s, u"Alpha"_s},
                                            {u"Sampling Port"_s, u"Bex"_s},
                                            {u"Date"_s, u"01/04/2004"_s},
                                            {u"Fishing Ground Latitude"_s, u"12"_s},
                                            {u"Latitude Dec"_s, u"12"_s},
                                            {u"Latitude Min"_s, u"30"_s},
                                            {u"Longtitude Dec"_s, u"100"_s},
                                            {u"Longtitude Min"_s, u"7.5"_s},
                                            {u"Bottom Depth(Meter)"_s, u"40"_s},
                                            {u"Fishing Depth(Meter)"_s, u"35"_s},
                                            {u"No of haul per Trip(haul)"_s, u"3"_s},
                                            {u"Duration of Trip(days)"_s, u"2"_s},
                                            {u"Estimate Total Catch(kg/trip)"_s, u"80"_s},
                                            {u"Recorder"_s, u"Port Sampler"_s},
                                            {u"Note"_s, u"calm\nsea"_s}}) {
            QCOMPARE(search.hand->text(caption), text);
        }
    }

    void fishingTime() {
        test::SearchWindow search;
        const QString day = u"Day"_s, night = u"Night"_s, both = u"Day and Night"_s;
        for (const auto& [stored, selected] : {std::pair{day, day}, {night, night}, {both, both}, {u"dawn"_s, both}}) {
            search.store.db().execute(Sql("update fishoperation set fishingtime = ") << stored);
            search.openTab();
            for (const QString& time : {day, night, both}) {
                QCOMPARE(search.hand->button(time)->isChecked(), time == selected);
                QVERIFY(!search.hand->enabled(time));
                QCOMPARE(QAccessible::queryAccessibleInterface(search.hand->button(time))->role(),
                         QAccessible::RadioButton);
            }
        }
    }

    void openingAndNoMatch() {
        const test::SearchWindow search;
        QCOMPARE(search.hand->text(u"Criterion"_s), u"State/Province"_s);
        QCOMPARE(search.hand->list(u"Value"_s)->count(), 2);
        search.hand->press(u"SEARCH"_s);
        QCOMPARE(search.caption(), QString());
        QVERIFY(!search.shows(u"DELETE"_s));

        // Another criterion leaves the result as it is until the next search.
        search.openTab();
        search.hand->choose(u"Criterion"_s, u"Vessel"_s);
        QCOMPARE(search.hand->text(u"Value"_s), QString());
        search.hand->press(u"SEARCH"_s);
        QCOMPARE(search.caption() + search.number(), u"RESULT: [1 / 2]1"_s);

        search.hand->type(u"Value"_s, u"1 or 1=1"_s);
        search.hand->press(u"SEARCH"_s);
        QCOMPARE(search.caption(), u"[No Record]"_s);
        QCOMPARE(search.number() + search.hand->text(u"Latitude Dec"_s), QString());
        QVERIFY(!search.hand->button(u"Day"_s)->isChecked());
        QVERIFY(!search.shows(u"DELETE"_s));
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
        search.deleteOperation(true, u"Nothing was stored or deleted"_s);
        QCOMPARE(search.store.wholeFile(), all);
        QCOMPARE(search.number(), u"1"_s);
        // No transaction was left open: the file can be written to by another connection.
        search.store.execute("drop trigger refuse");

        // The search is the one that found the operation, whatever has been chosen since.
        search.hand->choose(u"Criterion"_s, u"Vessel"_s);
        search.deleteOperation(true);
        QStringList expected = all;
        const QRegularExpression ofTheOperation(
            u"^((operation|gonad|length)(_detail)?|group_composition|group_main\\|[12])\\|1\\|"_s);
        expected.removeIf([&](const QString& row) { return row.contains(ofTheOperation); });
        QCOMPARE(all.size() - expected.size(), 16);
        QCOMPARE(search.store.wholeFile(), expected);
        QCOMPARE(search.caption() + search.number(), u"RESULT: [1 / 1]2"_s);
        search.deleteOperation(true);
        QCOMPARE(search.caption(), u"[No Record]"_s);
        QVERIFY(!search.shows(u"DELETE"_s));
    }

    void goneElsewhere() {
        test::SearchWindow search;
        search.openTab();
        search.store.execute("delete from fishoperation where optid = 2");
        search.store.dialogs.expectMessageContaining(u"Operation No. 2 is not found any more"_s);
        search.move(u"Next"_s);
        QCOMPARE(search.caption() + search.number(), u"RESULT: [1 / 1]1"_s);

        search.store.execute("delete from fishoperation where optid = 1");
        search.deleteOperation(true, u"Operation No. 1 is not found any more"_s);
        QCOMPARE(search.caption(), u"[No Record]"_s);
    }
};

KELVORA_TEST(TestOperationSearch, "operation_search");

}  // namespace kelvora::test_operation_search

#include "test_operation_search.moc"
