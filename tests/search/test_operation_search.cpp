#include "controls/bound_list.h"
#include "search/search_window.h"
#include "support/test_main.h"

#include <QTest>

namespace kelvora::test_operation_search {
class TestOperationSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void criteria_data() {
        QTest::addColumn<QString>("criterion");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QStringList>("operations");
        const auto row = [](const char* criterion, const char* value, const QStringList& operations) {
            QTest::newRow(criterion) << QString::fromLatin1(criterion) << QString::fromLatin1(value) << operations;
        };
        const auto one = QStringLiteral("1"), two = QStringLiteral("2"), three = QStringLiteral("3");
        row("State/Province", "Alpha", {one, two});
        row("Sampling Port", "Cay", {three});
        // Listed by their descriptions, matched by their names.
        row("Fishing Area", "north bank", {one, three});
        row("Vessel", "Sea Star", {one, three});
        // Through the gear of the method: operations store no gear.
        row("Fishing Gear", "Trawl", {one, three});
    }
    void criteria() {
        QFETCH(QString, criterion);
        QFETCH(QString, value);
        QFETCH(QStringList, operations);
        const test::SearchWindow search;
        search.find(criterion, value);
        for (int i = 0; i < operations.size(); ++i) {
            QCOMPARE(search.caption(), QStringLiteral("RESULT: [%1 / %2]").arg(i + 1).arg(operations.size()));
            QCOMPARE(search.number(), operations[i]);
            if (i + 1 < operations.size()) {
                search.move(QStringLiteral("Next"));
            }
        }
        QVERIFY(search.offersDelete());
    }

    void details() {
        test::SearchWindow search;
        search.store.execute(
            "update fishoperation set fishingtime = 'Day and Night', lon_min = 7.5, note = 'calm\nsea'"
            " where optid = 2");
        search.find(QStringLiteral("Vessel"), QStringLiteral("Blue Fin"));
        const QList<std::pair<QString, QString>> expected = {
            {QStringLiteral("No."), QStringLiteral("2")},
            {QStringLiteral("Vessel Name"), QStringLiteral("Blue Fin")},
            {QStringLiteral("Vessel Register id"), QStringLiteral("R-2")},
            {QStringLiteral("Fishing Gear"), QStringLiteral("Gill net")},
            {QStringLiteral("Fishing Method"), QStringLiteral("Drift")},
            {QStringLiteral("Fishing Area"), QStringLiteral("A2")},
            {QStringLiteral("State/Province"), QStringLiteral("Alpha")},
            {QStringLiteral("Sampling Port"), QStringLiteral("Bex")},
            {QStringLiteral("Date"), QStringLiteral("01/04/2004")},
            {QStringLiteral("Fishing Ground Latitude"), QStringLiteral("12")},
            {QStringLiteral("Latitude Dec"), QStringLiteral("12")},
            {QStringLiteral("Latitude Min"), QStringLiteral("30")},
            {QStringLiteral("Longtitude Dec"), QStringLiteral("100")},
            {QStringLiteral("Longtitude Min"), QStringLiteral("7.5")},
            {QStringLiteral("Bottom Depth(Meter)"), QStringLiteral("40")},
            {QStringLiteral("Fishing Depth(Meter)"), QStringLiteral("35")},
            {QStringLiteral("No of haul per Trip(haul)"), QStringLiteral("3")},
            {QStringLiteral("Duration of Trip(days)"), QStringLiteral("2")},
            {QStringLiteral("Estimate Total Catch(kg/trip)"), QStringLiteral("80")},
            {QStringLiteral("Recorder"), QStringLiteral("Port Sampler")},
            {QStringLiteral("Note"), QStringLiteral("calm\nsea")},
        };
        for (const auto& [caption, text] : expected) {
            QCOMPARE(search.driver->text(caption), text);
        }
    }

    void fishingTime() {
        test::SearchWindow search;
        const auto day = QStringLiteral("Day"), night = QStringLiteral("Night"), both = QStringLiteral("Day and Night");
        for (const auto& [stored, selected] :
             {std::pair{day, day}, {night, night}, {both, both}, {QStringLiteral("dawn"), both}}) {
            search.store.db().execute(Sql("update fishoperation set fishingtime = ") << stored);
            search.findAlpha();
            for (const auto& time : {day, night, both}) {
                QCOMPARE(search.driver->button(time)->isChecked(), time == selected);
                QVERIFY(!search.driver->enabled(time));
            }
        }
    }

    void navigation() {
        test::SearchWindow search;
        for (int optid = 4; optid <= 6; ++optid) {
            search.store.addOperation(optid, 1, QStringLiteral("2004-06-01"), 1, 10, QStringLiteral("Sea Star"),
                                      QStringLiteral("A1"));
        }
        search.findAlpha();
        search.move(QStringLiteral("Last"));
        QCOMPARE(search.caption(), QStringLiteral("RESULT: [5 / 5]"));
        QCOMPARE(search.number(), QStringLiteral("6"));
        auto* navigator = search.driver->navigator(QStringLiteral("Result"));
        navigator->moveTo(5);
        QCOMPARE(search.number(), QStringLiteral("6"));
        search.move(QStringLiteral("First"));
        navigator->moveTo(-1);
        QCOMPARE(search.caption(), QStringLiteral("RESULT: [1 / 5]"));
        QCOMPARE(search.number(), QStringLiteral("1"));

        // Another criterion leaves the result as it is until the next search.
        search.driver->choose(QStringLiteral("Criterion"), QStringLiteral("Vessel"));
        QCOMPARE(search.driver->text(QStringLiteral("Value")), QString());
        search.driver->press(QStringLiteral("SEARCH"));
        QCOMPARE(search.number(), QStringLiteral("1"));
    }

    void opening() {
        const test::SearchWindow search;
        QCOMPARE(search.driver->text(QStringLiteral("Criterion")), QStringLiteral("State/Province"));
        QCOMPARE(search.driver->list(QStringLiteral("Value"))->count(), 2);
        QCOMPARE(search.caption(), QString());
        QVERIFY(!search.offersDelete());
        search.driver->press(QStringLiteral("SEARCH"));
        QCOMPARE(search.caption(), QString());
    }

    void noMatch() {
        test::SearchWindow search;
        search.findAlpha();
        search.driver->type(QStringLiteral("Value"), QStringLiteral("1 or 1=1"));
        search.driver->press(QStringLiteral("SEARCH"));
        QCOMPARE(search.caption(), QStringLiteral("[No Record]"));
        QCOMPARE(search.number(), QString());
        QCOMPARE(search.driver->text(QStringLiteral("Latitude Dec")), QString());
        QVERIFY(!search.driver->button(QStringLiteral("Day"))->isChecked());
        QVERIFY(!search.offersDelete());
    }

    void deletion() {
        test::SearchWindow search;
        search.findAlpha();
        test::addSamples(search.store, 3);
        const QStringList kept = search.store.wholeFile();
        test::addSamples(search.store, 1);
        const QStringList all = search.store.wholeFile();
        const auto answer = [&](bool yes) {
            search.store.dialogs.expectConfirm(
                QStringLiteral("CONFIRM"), QStringLiteral("Are you sure to delete all data in this operation?"), yes);
            search.driver->press(QStringLiteral("DELETE"));
        };
        answer(false);
        QCOMPARE(search.store.wholeFile(), all);

        // The search is the one that found the operation, whatever has been chosen since.
        search.driver->choose(QStringLiteral("Criterion"), QStringLiteral("Vessel"));
        answer(true);
        QStringList expected = kept;
        expected.removeIf([](const QString& row) { return row.startsWith(u"operation|1|"); });
        QCOMPARE(expected.size(), kept.size() - 1);
        QCOMPARE(search.store.wholeFile(), expected);
        QCOMPARE(search.caption(), QStringLiteral("RESULT: [1 / 1]"));
        QCOMPARE(search.number(), QStringLiteral("2"));

        answer(true);
        QCOMPARE(search.caption(), QStringLiteral("[No Record]"));
        QVERIFY(!search.offersDelete());
    }

    /// A deletion that fails in the last table deletes nothing.
    void failedDeletion() {
        test::SearchWindow search;
        test::addSamples(search.store, 1);
        search.findAlpha();
        search.store.execute(
            "create trigger refuse before delete on length_detail begin"
            " select raise(abort, 'refused'); end");
        const QStringList all = search.store.wholeFile();
        search.store.dialogs.expectConfirm(QStringLiteral("CONFIRM"),
                                           QStringLiteral("Are you sure to delete all data in this operation?"), true);
        search.store.dialogs.expectMessageContaining(QStringLiteral("length_detail"));
        search.driver->press(QStringLiteral("DELETE"));
        QCOMPARE(search.store.wholeFile(), all);
        QCOMPARE(search.number(), QStringLiteral("1"));
        // No transaction was left open: the file can be written to by another connection.
        search.store.execute("drop trigger refuse");
    }

    void goneElsewhere() {
        test::SearchWindow search;
        search.findAlpha();
        search.store.execute("delete from fishoperation where optid = 2");
        search.store.dialogs.expectMessageContaining(QStringLiteral("Operation No. 2 is not found any more"));
        search.move(QStringLiteral("Next"));
        QCOMPARE(search.caption(), QStringLiteral("RESULT: [1 / 1]"));
        QCOMPARE(search.number(), QStringLiteral("1"));

        search.store.execute("delete from fishoperation where optid = 1");
        search.store.dialogs.expectConfirm(QStringLiteral("CONFIRM"),
                                           QStringLiteral("Are you sure to delete all data in this operation?"), true);
        search.store.dialogs.expectMessageContaining(QStringLiteral("Operation No. 1 is not found any more"));
        search.driver->press(QStringLiteral("DELETE"));
        QCOMPARE(search.caption(), QStringLiteral("[No Record]"));
        QVERIFY(search.store.dialogs.done());
    }
};

KELVORA_TEST(TestOperationSearch, "operation_search");

}  // namespace kelvora::test_operation_search

#include "test_operation_search.moc"
