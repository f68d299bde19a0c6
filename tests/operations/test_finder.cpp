#include "controls/bound_list.h"
#include "controls/record_navigator.h"
#include "operations/finder_panel.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QSignalSpy>
#include <QTest>

namespace kelvora::test_finder {

/// The panel over three operations: 1 and 2 in state Alpha, 3 in state Beta.
struct Finder {
    explicit Finder(bool firstCriterion = false, int lastSaved = 0) {
        store.addReferenceRows();
        store.addOperation(1, 1, QStringLiteral("2004-03-09"), 1, 120.5, QStringLiteral("Sea Star"),
                           QStringLiteral("A1"));
        store.addOperation(2, 2, QStringLiteral("2004-04-01"), 3, 80, QStringLiteral("Blue Fin"), QStringLiteral("A2"));
        store.addOperation(3, 3, QStringLiteral("2004-05-01"), 2, 60, QStringLiteral("Sea Star"), QStringLiteral("A1"));
        store.session.lastSavedOperation = lastSaved;
        open(firstCriterion);
    }

    void open(bool firstCriterion) {
        panel = std::make_unique<FinderPanel>(QStringLiteral("Fishing operation no."), store.db(), store.context());
        driver = std::make_unique<test::ScreenDriver>(panel.get());
        panel->open(firstCriterion);
    }

    void search(const QString& criterion, const QString& value) const {
        driver->choose(QStringLiteral("Criterion"), criterion);
        driver->choose(QStringLiteral("Value"), value);
        driver->press(QStringLiteral("Search"));
    }

    [[nodiscard]] QString caption() const { return driver->navigator(QStringLiteral("Result"))->caption(); }

    /// The numbers of all operations of the result, in its order.
    [[nodiscard]] QStringList found() const {
        QStringList numbers;
        const int count = driver->navigator(QStringLiteral("Result"))->rowCount();
        for (int i = 0; i < count; ++i) {
            if (i > 0) {
                driver->move(QStringLiteral("Result"), QStringLiteral("Next"));
            }
            numbers.append(panel->currentOperation());
        }
        return numbers;
    }

    test::TemporaryStore store;
    std::unique_ptr<FinderPanel> panel;
    std::unique_ptr<test::ScreenDriver> driver;
};

class TestFinder : public QObject {
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
        row("Fishing Area", "north bank", {one, three});
        row("Vessel", "Sea Star", {one, three});
        row("Fishing Gear", "Trawl", {one, three});
    }
    void criteria() {
        QFETCH(QString, criterion);
        QFETCH(QString, value);
        QFETCH(QStringList, operations);
        const Finder finder;
        finder.search(criterion, value);
        QCOMPARE(finder.caption(), QStringLiteral("Result 1 Of %1").arg(operations.size()));
        QCOMPARE(finder.found(), operations);
        QCOMPARE(finder.caption(), QStringLiteral("Result %1 Of %1").arg(operations.size()));
    }

    void details() {
        Finder finder;
        finder.store.execute("update fishoperation set estotal = 0.1, note = null where optid = 1");
        const QSignalSpy loaded(finder.panel.get(), &FinderPanel::loaded);
        finder.search(QStringLiteral("Sampling Port"), QStringLiteral("Abo"));
        QCOMPARE(loaded.count(), 1);
        const QList<std::pair<QString, QString>> expected = {
            {QStringLiteral("Fishing operation no."), QStringLiteral("1")},
            {QStringLiteral("Landing State/Province"), QStringLiteral("Alpha")},
            {QStringLiteral("Sampling Port"), QStringLiteral("Abo")},
            {QStringLiteral("Date"), QStringLiteral("09/03/2004")},
            {QStringLiteral("Vessel"), QStringLiteral("Sea Star")},
            {QStringLiteral("Fishing Gear"), QStringLiteral("Trawl")},
            {QStringLiteral("Fishing Method"), QStringLiteral("Otter board")},
            {QStringLiteral("Fishing area"), QStringLiteral("A1")},
            {QStringLiteral("Latitude"), QStringLiteral("Dec 12 Min 30")},
            {QStringLiteral("Longtitude"), QStringLiteral("Dec 100 Min 15")},
            {QStringLiteral("Fishing time"), QStringLiteral("Day")},
            {QStringLiteral("Bottom Depth(Meter)"), QStringLiteral("40")},
            {QStringLiteral("Fishing Depth(Meter)"), QStringLiteral("35")},
            {QStringLiteral("No of haul/Trip"), QStringLiteral("3")},
            {QStringLiteral("Duration of Trip(days)"), QStringLiteral("2")},
            {QStringLiteral("Estimate Total Catch(kg)"), QStringLiteral("0.1")},
            {QStringLiteral("Recorder"), QStringLiteral("Port Sampler")},
            {QStringLiteral("Note"), QString()},
        };
        for (const auto& [caption, text] : expected) {
            QCOMPARE(finder.driver->text(caption), text);
        }

        // Another criterion blanks all of it before anything is searched.
        const QSignalSpy cleared(finder.panel.get(), &FinderPanel::cleared);
        finder.driver->choose(QStringLiteral("Criterion"), QStringLiteral("Vessel"));
        QCOMPARE(cleared.count(), 1);
        for (const auto& [caption, text] : expected) {
            QCOMPARE(finder.driver->text(caption), QString());
        }
        QCOMPARE(finder.caption(), QString());
        QCOMPARE(finder.driver->text(QStringLiteral("Value")), QString());
        QVERIFY(!finder.panel->operation());
    }

    /// After the criterion was chosen again, moving in the former result loads operations again.
    void formerResultStaysUsable() {
        const Finder finder;
        finder.search(QStringLiteral("State/Province"), QStringLiteral("Alpha"));
        finder.driver->choose(QStringLiteral("Value"), QStringLiteral("Beta"));
        QCOMPARE(finder.panel->currentOperation(), QString());
        finder.driver->move(QStringLiteral("Result"), QStringLiteral("Next"));
        QCOMPARE(finder.panel->currentOperation(), QStringLiteral("2"));
        QCOMPARE(finder.caption(), QStringLiteral("Result 2 Of 2"));
    }

    void nothingFound() {
        Finder finder;
        finder.store.execute("insert into vessel(vesselname, vesselid) values('Idle', 'R-3')");
        finder.search(QStringLiteral("Vessel"), QStringLiteral("Idle"));
        QCOMPARE(finder.caption(), QStringLiteral("[No Record]"));
        QCOMPARE(finder.panel->currentOperation(), QString());

        // Another value typed after a search that found something: neither its details nor its number stay behind.
        finder.search(QStringLiteral("State/Province"), QStringLiteral("Beta"));
        QCOMPARE(finder.panel->currentOperation(), QStringLiteral("3"));
        finder.driver->type(QStringLiteral("Value"), QStringLiteral("1 or 1=1"));
        finder.driver->press(QStringLiteral("Search"));
        QCOMPARE(finder.caption(), QStringLiteral("[No Record]"));
        QCOMPARE(finder.panel->currentOperation(), QString());
        QCOMPARE(finder.driver->text(QStringLiteral("Vessel")), QString());

        // No value: no search.
        finder.driver->type(QStringLiteral("Value"), QString());
        finder.driver->press(QStringLiteral("Search"));
        QCOMPARE(finder.caption(), QString());
    }

    void typedValue() {
        const Finder finder;
        finder.driver->choose(QStringLiteral("Criterion"), QStringLiteral("Fishing Area"));
        finder.driver->type(QStringLiteral("Value"), QStringLiteral("SOUTH bank"));
        finder.driver->press(QStringLiteral("Search"));
        QCOMPARE(finder.found(), QStringList{QStringLiteral("2")});
    }

    void missingReferences_data() {
        QTest::addColumn<QString>("table");
        for (const char* table : {"samplingport", "state", "vessel", "fishing_area", "Fishing_method"}) {
            QTest::newRow(table) << QString::fromLatin1(table);
        }
    }
    void missingReferences() {
        QFETCH(QString, table);
        Finder finder;
        finder.driver->choose(QStringLiteral("Criterion"), QStringLiteral("Fishing Gear"));
        finder.driver->choose(QStringLiteral("Value"), QStringLiteral("Gill net"));
        if (table == QStringLiteral("samplingport")) {
            finder.store.execute("delete from samplingport");
        } else if (table == QStringLiteral("state")) {
            finder.store.execute("delete from state");
        } else if (table == QStringLiteral("vessel")) {
            finder.store.execute("delete from vessel");
        } else if (table == QStringLiteral("fishing_area")) {
            finder.store.execute("delete from fishing_area");
        } else {
            finder.store.execute("delete from Fishing_method");
        }
        finder.driver->press(QStringLiteral("Search"));
        QCOMPARE(finder.caption(), QStringLiteral("[No Record]"));
    }

    void hostileNames_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("apostrophe") << QStringLiteral("O'Hara's '; drop table fishoperation; --");
        QTest::newRow("percent") << QStringLiteral("100 % \\ \"tuna\" [x] & y");
        QTest::newRow("scripts") << QStringLiteral("ปลาทู 鯖 <b>Ålesund</b>");
        QTest::newRow("long") << QString(10'000, u'\'');
    }
    void hostileNames() {
        QFETCH(QString, name);
        Finder finder;
        finder.store.db().execute(Sql("update vessel set vesselname = ") << name << " where vesselname = 'Sea Star'");
        finder.store.db().execute(Sql("update fishing_area set aname = ") << name << " where aname = 'A1'");
        finder.store.db().execute(Sql("update fishoperation set vesselid = ")
                                  << name << ", areaid = " << name << " where optid = 1");
        finder.search(QStringLiteral("Vessel"), name);
        QCOMPARE(finder.found(), QStringList{QStringLiteral("1")});
        QCOMPARE(finder.driver->text(QStringLiteral("Vessel")), name);
        finder.search(QStringLiteral("Fishing Area"), QStringLiteral("north bank"));
        QCOMPARE(finder.found(), QStringList{QStringLiteral("1")});
        QVERIFY(finder.panel->sizeHint().width() < 1300);
    }

    void opening() {
        const Finder plain;
        QCOMPARE(plain.driver->text(QStringLiteral("Criterion")), QString());
        QVERIFY(plain.driver->enabled(QStringLiteral("Value")));
        plain.driver->press(QStringLiteral("Search"));

        const Finder first(true);
        QCOMPARE(first.driver->text(QStringLiteral("Criterion")), QStringLiteral("State/Province"));
        QCOMPARE(first.driver->list(QStringLiteral("Value"))->count(), 2);

        Finder saved(true, 2);
        QCOMPARE(saved.panel->operation(), std::optional(2));
        QCOMPARE(saved.driver->text(QStringLiteral("Vessel")), QStringLiteral("Blue Fin"));
        QVERIFY(!saved.driver->enabled(QStringLiteral("Criterion")));
        QVERIFY(!saved.driver->enabled(QStringLiteral("Value")));

        // An operation whose vessel is not registered yet stays current, but has no details.
        saved.store.execute("delete from vessel where vesselname = 'Blue Fin'");
        saved.open(true);
        QCOMPARE(saved.panel->operation(), std::optional(2));
        QCOMPARE(saved.driver->text(QStringLiteral("Date")), QString());
    }

    /// A table that cannot be read gives a message, and no operation is current under details that are not its own.
    void failedLoad() {
        Finder finder;
        finder.search(QStringLiteral("State/Province"), QStringLiteral("Alpha"));
        finder.store.execute("drop table state");
        finder.store.dialogs.expectMessageContaining(QStringLiteral("state"));
        finder.driver->move(QStringLiteral("Result"), QStringLiteral("Next"));
        QVERIFY(finder.store.dialogs.done());
        QVERIFY(!finder.panel->operation());
        QCOMPARE(finder.driver->text(QStringLiteral("Vessel")), QString());
    }
};

KELVORA_TEST(TestFinder, "finder");

}  // namespace kelvora::test_finder

#include "test_finder.moc"
