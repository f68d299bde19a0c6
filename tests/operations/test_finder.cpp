#include "controls/bound_list.h"
#include "controls/record_navigator.h"
#include "operations/finder_panel.h"
#include "operations/operation_line.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_finder {

const QString kCriterion = u"Criterion"_s;
const QString kValue = u"Value"_s;
const QString kResult = u"Result"_s;
const QString kVessel = u"Vessel"_s;
const QString kState = u"State/Province"_s;

/// The panel over three operations: 1 and 2 in state Alpha, 3 in state Beta.
struct Finder {
    explicit Finder(bool firstCriterion = false, int lastSaved = 0) {
        store.addReferenceRows();
        store.addOperation(1, 1, u"2004-03-09"_s, 1, 120.5, u"Sea Star"_s, u"A1"_s);
        store.addOperation(2, 2, u"2004-04-01"_s, 3, 80, u"Blue Fin"_s, u"A2"_s);
        store.addOperation(3, 3, u"2004-05-01"_s, 2, 60, u"Sea Star"_s, u"A1"_s);
        store.session.lastSavedOperation = lastSaved;
        open(firstCriterion);
    }
    void open(bool firstCriterion) {
        panel = std::make_unique<FinderPanel>(u"Fishing operation no."_s, store.db(), store.context());
        line = std::make_unique<OperationLine>(*panel);
        panel->open(firstCriterion);
    }
    [[nodiscard]] test::ScreenDriver hand() const { return test::ScreenDriver(panel.get()); }
    void search(const QString& criterion, const QString& value) const {
        hand().choose(kCriterion, criterion);
        hand().choose(kValue, value);
        hand().press(u"Search"_s);
    }
    void searchTyped(const QString& value) const {
        hand().type(kValue, value);
        hand().press(u"Search"_s);
    }
    [[nodiscard]] QString current() const { return hand().text(u"Fishing operation no."_s); }
    [[nodiscard]] QString caption() const { return hand().navigator(kResult)->caption(); }
    /// The numbers of all operations of the result, in its order.
    [[nodiscard]] QString found() const {
        QStringList numbers{current()};
        while (numbers.size() < hand().navigator(kResult)->rowCount()) {
            hand().move(kResult, u"Next"_s);
            numbers.append(current());
        }
        return numbers.join(u' ');
    }

    test::TemporaryStore store;
    std::unique_ptr<FinderPanel> panel;
    std::unique_ptr<OperationLine> line;
};

class TestFinder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void criteria_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("operations");
        QTest::newRow("State/Province") << u"Alpha"_s << u"1 2"_s;
        QTest::newRow("Sampling Port") << u"Cay"_s << u"3"_s;
        QTest::newRow("Fishing Area") << u"north bank"_s << u"1 3"_s;
        QTest::newRow("Vessel") << u"Sea Star"_s << u"1 3"_s;
        QTest::newRow("Fishing Gear") << u"Trawl"_s << u"1 3"_s;
    }
    void criteria() {
        QFETCH(QString, value);
        QFETCH(QString, operations);
        const Finder finder;
        finder.search(QString::fromLatin1(QTest::currentDataTag()), value);
        const qsizetype count = operations.split(u' ').size();
        QCOMPARE(finder.caption(), u"Result 1 Of %1"_s.arg(count));
        QCOMPARE(finder.found(), operations);
        QCOMPARE(finder.caption(), u"Result %1 Of %1"_s.arg(count));
    }

    void details() {
        const QLocale own;
        QLocale::setDefault(
            QLocale(QLocale::English, QLocale::UnitedStates));  // its short dates have years of two digits
        const auto back = qScopeGuard([&] { QLocale::setDefault(own); });
        Finder finder;
        finder.store.execute("update fishoperation set estotal = 0.1, note = null where optid = 1");
        const QSignalSpy loaded(finder.panel.get(), &FinderPanel::loaded);
        finder.search(u"Sampling Port"_s, u"Abo"_s);
        QCOMPARE(loaded.count(), 1);
        const std::vector<std::pair<QString, QString>> expected = {{u"Fishing operation no."_s, u"1"_s},
                                                                   {u"Landing State/Province"_s, u"Alpha"_s},
                                                                   {u"Sampling Port"_s, u"Abo"_s},
                                                                   {u"Date"_s, u"3/9/2004"_s},
                                                                   {kVessel, u"Sea Star"_s},
                                                                   {u"Fishing Gear"_s, u"Trawl"_s},
                                                                   {u"Fishing Method"_s, u"Otter board"_s},
                                                                   {u"Fishing area"_s, u"A1"_s},
                                                                   {u"Latitude"_s, u"Dec 12 Min 30"_s},
                                                                   {u"Longtitude"_s, u"Dec 100 Min 15"_s},
                                                                   {u"Fishing time"_s, u"Day"_s},
                                                                   {u"Bottom Depth(Meter)"_s, u"40"_s},
                                                                   {u"Fishing Depth(Meter)"_s, u"35"_s},
                                                                   {u"No of haul/Trip"_s, u"3"_s},
                                                                   {u"Duration of Trip(days)"_s, u"2"_s},
                                                                   {u"Estimate Total Catch(kg)"_s, u"0.1"_s},
                                                                   {u"Recorder"_s, u"Port Sampler"_s},
                                                                   {u"Note"_s, QString()}};
        for (const auto& [caption, text] : expected) {
            QCOMPARE(finder.hand().text(caption), text);
        }

        // Another criterion blanks all of it before anything is searched.
        const QSignalSpy cleared(finder.panel.get(), &FinderPanel::cleared);
        finder.hand().choose(kCriterion, kVessel);
        QCOMPARE(cleared.count(), 1);
        for (const auto& [caption, text] : expected) {
            QCOMPARE(finder.hand().text(caption), QString());
        }
        QCOMPARE(finder.caption() + finder.hand().text(kValue), QString());
        QVERIFY(!finder.panel->operation());
    }

    /// After the criterion was chosen again, moving in the former result loads operations again.
    void formerResultStaysUsable() {
        const Finder finder;
        finder.search(kState, u"Alpha"_s);
        finder.hand().choose(kValue, u"Beta"_s);
        QCOMPARE(finder.current(), QString());
        finder.hand().move(kResult, u"Next"_s);
        QCOMPARE(finder.current(), u"2"_s);
        QCOMPARE(finder.caption(), u"Result 2 Of 2"_s);
    }

    void typedValues() {
        const Finder finder;
        finder.hand().choose(kCriterion, u"Fishing Area"_s);
        finder.searchTyped(u"SOUTH bank"_s);
        QCOMPARE(finder.found(), u"2"_s);
        // Neither the details nor the number of what was found before stay behind.
        finder.searchTyped(u"1 or 1=1"_s);
        QCOMPARE(finder.caption(), u"[No Record]"_s);
        QCOMPARE(finder.current() + finder.hand().text(kVessel), QString());
        finder.searchTyped(QString());
        QCOMPARE(finder.caption(), QString());
    }

    void missingReferences() {
        for (const Literal& loss :
             {Literal("delete from samplingport"), Literal("delete from state"), Literal("delete from vessel"),
              Literal("delete from fishing_area"), Literal("delete from Fishing_method")}) {
            Finder finder;
            finder.hand().choose(kCriterion, u"Fishing Gear"_s);
            finder.hand().choose(kValue, u"Gill net"_s);
            finder.store.execute(loss);
            finder.hand().press(u"Search"_s);
            QCOMPARE(finder.caption(), u"[No Record]"_s);
        }
    }

    void hostileNames() {
        for (const QString& name :
             {u"O'Hara's '; drop table fishoperation; -- 100 % \\ \"tuna\" [x] & y"_s, QString(10'000, u'\'')}) {
            Finder finder;
            Connection& db = finder.store.db();
            db.execute(Sql("update vessel set vesselname = ") << name << " where vesselname = 'Sea Star'");
            db.execute(Sql("update fishing_area set aname = ") << name << " where aname = 'A1'");
            db.execute(Sql("update fishoperation set vesselid = ")
                       << name << ", areaid = " << name << " where optid = 1");
            finder.search(kVessel, name);
            QCOMPARE(finder.found(), u"1"_s);
            QCOMPARE(finder.hand().text(kVessel), name);
            finder.search(u"Fishing Area"_s, u"north bank"_s);
            QCOMPARE(finder.found(), u"1"_s);
            QVERIFY(finder.panel->sizeHint().width() < 1300);
        }
    }

    void opening() {
        const Finder plain;
        QCOMPARE(plain.hand().text(kCriterion), QString());
        QVERIFY(plain.hand().enabled(kValue));
        plain.hand().press(u"Search"_s);

        const Finder first(true);
        QCOMPARE(first.hand().text(kCriterion), kState);
        QCOMPARE(first.hand().list(kValue)->count(), 2);

        Finder saved(true, 2);
        QCOMPARE(saved.current(), u"2"_s);
        QCOMPARE(saved.hand().text(kVessel), u"Blue Fin"_s);
        QVERIFY(!saved.hand().enabled(kCriterion) && !saved.hand().enabled(kValue));

        // An operation whose vessel is not registered yet stays current, but has no details.
        saved.store.execute("delete from vessel where vesselname = 'Blue Fin'");
        saved.open(true);
        QCOMPARE(saved.current(), u"2"_s);
        QCOMPARE(saved.line->text(),
                 u"Fishing operation no. 2 (in no search and report until registered: vessel \"Blue Fin\")"_s);
        QCOMPARE(saved.hand().text(u"Date"_s), QString());
    }

    /// A table that cannot be read gives a message, and no operation is current under details that are not its own.
    void failedLoad() {
        Finder finder;
        finder.search(kState, u"Alpha"_s);
        finder.store.execute("drop table state");
        finder.store.dialogs.expectMessageContaining(u"state"_s);
        finder.hand().move(kResult, u"Next"_s);
        QVERIFY(finder.store.dialogs.done());
        QVERIFY(!finder.panel->operation());
        QVERIFY(finder.line->text().startsWith(u"No fishing operation"));
        QCOMPARE(finder.hand().text(kVessel), QString());
    }
};

KELVORA_TEST(TestFinder, "finder");

}  // namespace kelvora::test_finder

#include "test_finder.moc"
