#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"
#include "data/csv_reader.h"
#include "data/transaction.h"
#include "sampling/length_frequency_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace kelvora::test_length_frequency {

const QString kGoatfish = QStringLiteral("Upeneus vittatus");
const QString kMackerel = QStringLiteral("Rastrelliger kanagurta");
const QString kReplace = QStringLiteral("This species have lenght frequency data in database. Do you want to update?");
const QString kSure = QStringLiteral("Are you sure to insert this data");

/// The screen in front of a sampler. Both species lie in the catch of operation 1, only the mackerel in that of 2.
struct Entry {
    explicit Entry(int lastSaved = 1) {
        store.addReferenceRows();
        store.addOperation(1, 1, u"2004-03-09"_qs, 1, 120, u"Sea Star"_qs, u"A1"_qs);
        store.addOperation(2, 1, u"2004-04-01"_qs, 3, 80, u"Blue Fin"_qs, u"A2"_qs);
        store.execute("insert into group_main values (1, 1, 'Single species', 30), (2, 1, 'Single species', 10)");
        store.execute("insert into group_composition values (1, 1, 1, 10, 10), (1, 2, 1, 20, 20), (2, 1, 1, 10, 10)");
        store.session.lastSavedOperation = lastSaved;
        open();
    }

    void open() {
        screen = std::make_unique<LengthFrequencyScreen>(store.context());
        screen->resize(1340, 590);
        driver = std::make_unique<test::ScreenDriver>(screen.get());
        driver->openTab(u"Length Frequency"_qs);
        screen->show();
        screen->activateWindow();
        (void)QTest::qWaitForWindowActive(screen.get());
    }

    void fill(const QString& species, const QString& interval, const QString& limit) const {
        driver->choose(u"Species"_qs, species);
        if (driver->enabled(u"Class Interval"_qs)) {
            driver->type(u"Class Interval"_qs, interval);
        }
        driver->type(u"Sampling weight"_qs, u"12.5"_qs);
        driver->type(u"Lower limit(cm)"_qs, limit);
    }

    void start(const QString& species = kGoatfish, const QString& interval = u"2"_qs,
               const QString& limit = u"10"_qs) const {
        fill(species, interval, limit);
        driver->press(u"START INPUT>>"_qs);
    }

    void count(const QString& frequency) const {
        QTest::keyClicks(driver->edit(u"Frequency"_qs), frequency);
        driver->key(u"Frequency"_qs, Qt::Key_Return);
    }

    void save() {
        driver->press(u"FINISH"_qs);
        store.dialogs.expectConfirm(u"Confirm"_qs, kSure, true);
        driver->press(u"SAVE"_qs);
    }

    /// A whole sample: 3 fish of 10 - 12 cm and 5 of 12 - 14 cm.
    void sample(const QString& species = kGoatfish) {
        start(species);
        count(u"3"_qs);
        count(u"5"_qs);
        save();
    }

    [[nodiscard]] bool shown(const QString& button) const { return driver->button(button)->isVisible(); }
    QStringList samples() { return store.rows("select * from length order by optid, spid"); }
    QStringList classes() { return store.rows("select * from length_detail"); }

    test::TemporaryStore store;
    std::unique_ptr<LengthFrequencyScreen> screen;
    std::unique_ptr<test::ScreenDriver> driver;
};

/// The length-frequency screen as a sampler uses it.
class TestLengthFrequency : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void classByClass() {
        Entry entry;
        const test::ScreenDriver& screen = *entry.driver;
        entry.fill(kGoatfish, u"2"_qs, u"11.3"_qs);
        const QStringList table = screen.rows(u"Length classes"_qs);
        QCOMPARE(table.size(), 50);
        QCOMPARE(table[1], u"2|4|3|"_qs);
        QCOMPARE(table[48], u"|||"_qs);
        QCOMPARE(table[49], u"TOTAL|||"_qs);
        QVERIFY(!entry.shown(u"FINISH"_qs));

        screen.press(u"START INPUT>>"_qs);
        QCOMPARE(screen.text(u"Lower-Upper Length"_qs), u"10 - 12"_qs);
        QCOMPARE(screen.rows(u"Length classes"_qs), QStringList({u"10|12|11|"_qs}));
        QVERIFY(screen.focused(u"Frequency"_qs));
        QVERIFY(!screen.enabled(u"FINISH"_qs));
        for (const QString& field : {u"START INPUT>>"_qs, u"Sampling weight"_qs, u"Lower limit(cm)"_qs}) {
            QVERIFY2(!screen.enabled(field), qPrintable(field));
        }

        entry.count(QString());  // Enter in the empty box
        QCOMPARE(screen.rows(u"Length classes"_qs).size(), 1);
        entry.count(u"3"_qs);
        QCOMPARE(screen.text(u"Lower-Upper Length"_qs), u"12-14"_qs);
        QCOMPARE(screen.rows(u"Length classes"_qs), QStringList({u"10|12|11|3"_qs, u"12|14|13|"_qs}));
        const QAbstractItemModel* grid = screen.grid(u"Length classes"_qs)->model();
        QCOMPARE(grid->index(0, 3).data(Qt::BackgroundRole).value<QColor>(), QColor(176, 213, 230));
        QVERIFY(!grid->index(1, 3).data(Qt::BackgroundRole).isValid());

        screen.press(u"FINISH"_qs);
        QVERIFY(entry.shown(u"SAVE"_qs) && entry.shown(u"CLEAR"_qs) && !screen.enabled(u"FINISH"_qs));
        entry.count(u"5"_qs);
        QVERIFY(screen.enabled(u"FINISH"_qs));
        entry.store.dialogs.expectConfirm(u"Confirm"_qs, kSure, false);
        screen.press(u"SAVE"_qs);
        QCOMPARE(entry.samples(), QStringList());
        entry.save();
        QCOMPARE(entry.samples(), QStringList({u"1|2|12.5"_qs}));
        QCOMPARE(entry.classes(), QStringList({u"1|2|10|12|11|3"_qs, u"1|2|12|14|13|5"_qs}));
        for (const QString& field :
             {u"Species"_qs, u"Class Interval"_qs, u"Sampling weight"_qs, u"Lower limit(cm)"_qs}) {
            QCOMPARE(screen.text(field), QString());
            QVERIFY2(screen.enabled(field), qPrintable(field));
        }
        QVERIFY(screen.focused(u"Species"_qs));
        QVERIFY(!entry.shown(u"FINISH"_qs) && !entry.shown(u"SAVE"_qs) && !entry.shown(u"CLEAR"_qs));
    }

    void realSampleByKeyboard_data() {
        QTest::addColumn<QString>("tally");
        QTest::addColumn<QString>("interval");
        QTest::addColumn<int>("fish");
        QTest::newRow("goatfish") << u"yellowstriped_goatfish_manila_bay_tally.csv"_qs << u"1"_qs << 3816;
        QTest::newRow("hake") << u"european_hake_2008_07_tally.csv"_qs << u"2"_qs << 2408;
    }
    void realSampleByKeyboard() {
        QFETCH(QString, tally);
        QFETCH(QString, interval);
        QFETCH(int, fish);
        Entry entry;
        const auto keys = [&](const QString& text, Qt::Key leave) {
            // The rows offered below a typed text hold the keyboard.
            const auto target = [&] {
                QWidget* offered = QApplication::activePopupWidget();
                return offered != nullptr ? offered : entry.screen->focusWidget();
            };
            for (const QChar letter : text) {
                QTest::keyClicks(target(), letter);
            }
            QTest::keyClick(target(), leave);
        };
        std::vector<CsvRecord> records =
            parseCsv(decodedText(readImportFile(QStringLiteral(KELVORA_TEST_FILES "/") + tally)));
        records.erase(records.begin());

        entry.driver->list(u"Species"_qs)->setFocus();
        keys(kGoatfish, Qt::Key_Tab);
        keys(interval, Qt::Key_Tab);
        keys(u"7.25"_qs, Qt::Key_Tab);
        keys(records.front().fields[1], Qt::Key_Tab);
        keys({}, Qt::Key_Return);  // START INPUT>>
        QStringList expected;
        for (const CsvRecord& record : records) {
            expected.append(u"1|2|"_qs + record.fields.mid(1).join(u'|'));
            keys(record.fields.back(), Qt::Key_Return);
        }
        const Grid* grid = entry.driver->grid(u"Length classes"_qs);
        QVERIFY(grid->viewport()->rect().contains(grid->visualRect(grid->model()->index(grid->rowCount() - 1, 0))));
        keys({}, Qt::Key_Tab);
        keys({}, Qt::Key_Space);  // FINISH
        entry.store.dialogs.expectConfirm(u"Confirm"_qs, kSure, true);
        keys({}, Qt::Key_Return);  // SAVE
        QCOMPARE(entry.classes(), expected);
        QCOMPARE(entry.store.rows("select sum(frequency1) from length_detail"), QStringList(QString::number(fish)));
        QCOMPARE(entry.store.rows("select classinterval from fish where fishno = 2"), QStringList(interval));
    }

    void tenthsAreStoredAsRead() {
        Entry entry;
        entry.start(kGoatfish, u"0.1"_qs, u"0.3"_qs);
        QCOMPARE(entry.driver->text(u"Lower-Upper Length"_qs), u"0.3 - 0.4"_qs);
        for (int i = 0; i < 6; ++i) {
            entry.count(u"1"_qs);
        }
        QCOMPARE(entry.driver->text(u"Lower-Upper Length"_qs), u"0.9-1"_qs);
        entry.save();
        QCOMPARE(entry.store.rows("select count(*) from length_detail where (lower1, upper1, midlength1) in"
                                  " (values (0.3, 0.4, 0.35), (0.7, 0.8, 0.75), (0.8, 0.9, 0.85))"),
                 QStringList(u"3"_qs));
    }

    void replacing() {
        Entry entry;
        entry.sample();
        entry.store.dialogs.expectConfirm(u"CONFORM"_qs, kReplace, false);
        entry.start();
        QCOMPARE(entry.samples(), QStringList({u"1|2|12.5"_qs}));
        QCOMPARE(entry.classes().size(), 2);
        QCOMPARE(entry.driver->text(u"Species"_qs), QString());

        // What cannot be entered is refused before anything is asked or deleted.
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please input lower limit: a number from 0 to below 96"_qs);
        entry.start(kGoatfish, {}, u"96"_qs);
        QVERIFY(entry.driver->focused(u"Lower limit(cm)"_qs));
        QCOMPARE(entry.samples(), QStringList({u"1|2|12.5"_qs}));

        entry.store.execute("insert into length values (2, 2, 1)");
        entry.store.execute("insert into length_detail values (2, 2, 10, 12, 11, 1)");
        entry.store.dialogs.expectConfirm(u"CONFORM"_qs, kReplace, true);
        entry.start();
        QCOMPARE(entry.samples(), QStringList({u"2|2|1"_qs}));
        QCOMPARE(entry.classes(), QStringList({u"2|2|10|12|11|1"_qs}));
    }

    void storedInterval() {
        Entry entry;
        const test::ScreenDriver& screen = *entry.driver;
        entry.sample();
        entry.store.execute("update fish set classinterval = 0.5 where fishno = 1");
        screen.choose(u"Species"_qs, kMackerel);
        QCOMPARE(screen.text(u"Class Interval"_qs), u"0.5"_qs);
        QVERIFY(!screen.enabled(u"Class Interval"_qs));
        screen.choose(u"Species"_qs, kGoatfish);
        QCOMPARE(screen.text(u"Class Interval"_qs), u"2"_qs);
        entry.start(kMackerel, {}, u"7.2"_qs);
        QCOMPARE(screen.text(u"Lower-Upper Length"_qs), u"7 - 7.5"_qs);
        entry.count(u"1"_qs);
        entry.save();
        QCOMPARE(entry.store.rows("select classinterval from fish order by fishno"),
                 QStringList({u"0.5"_qs, u"2"_qs, u"null"_qs}));
    }

    void frequencies_data() {
        QTest::addColumn<QString>("typed");
        for (const char* text : {"abc", "-1", "1,5", " ", "3 fish"}) {
            QTest::newRow(text) << QString::fromLatin1(text);
        }
    }
    void frequencies() {
        QFETCH(QString, typed);
        Entry entry;
        entry.start();
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Numeric Only"_qs);
        entry.count(typed);
        QCOMPARE(entry.driver->text(u"Frequency"_qs), QString());
        QVERIFY(entry.driver->focused(u"Frequency"_qs));
        QCOMPARE(entry.driver->text(u"Lower-Upper Length"_qs), u"10 - 12"_qs);
        QVERIFY(!entry.driver->enabled(u"FINISH"_qs));
    }

    void failingSaveKeepsEverything() {
        Entry entry;
        entry.start();
        entry.count(u"3"_qs);
        entry.count(u"5"_qs);
        const QStringList typed = entry.driver->rows(u"Length classes"_qs);
        {
            Connection other(entry.store.path());
            const Transaction lock(other);
            entry.driver->press(u"FINISH"_qs);
            entry.store.dialogs.expectConfirm(u"Confirm"_qs, kSure, true);
            entry.store.dialogs.expectMessageContaining(u"another program is using the data file"_qs);
            entry.driver->press(u"SAVE"_qs);
        }
        QCOMPARE(entry.driver->rows(u"Length classes"_qs), typed);
        QCOMPARE(entry.driver->text(u"Species"_qs), kGoatfish);
        QCOMPARE(entry.driver->text(u"Sampling weight"_qs), u"12.5"_qs);

        // Refused half way: neither the interval nor the classes before it stay behind.
        entry.store.execute(
            "create trigger full before insert on length_detail when new.lower1 = 12"
            " begin select raise(abort, 'the disk is full'); end");
        entry.store.dialogs.expectConfirm(u"Confirm"_qs, kSure, true);
        entry.store.dialogs.expectMessageContaining(u"Nothing was stored"_qs);
        entry.driver->press(u"SAVE"_qs);
        QVERIFY(entry.samples().isEmpty() && entry.classes().isEmpty());
        QCOMPARE(entry.store.rows("select classinterval from fish where fishno = 2"), QStringList(u"null"_qs));
        entry.store.execute("drop trigger full");

        entry.store.dialogs.expectConfirm(u"Confirm"_qs, kSure, true);
        entry.driver->press(u"SAVE"_qs);
        QCOMPARE(entry.classes().size(), 2);
    }

    void anotherIntervalWhileEntering() {
        Entry entry;
        entry.start();
        entry.count(u"3"_qs);
        entry.driver->type(u"Class Interval"_qs, u"3"_qs);
        QCOMPARE(entry.driver->rows(u"Length classes"_qs).size(), 50);
        entry.count(u"5"_qs);
        QCOMPARE(entry.driver->rows(u"Length classes"_qs).mid(48),
                 QStringList({u"|||"_qs, u"12|14|13|5"_qs, u"14|17|15.5|"_qs}));
        entry.driver->type(u"Class Interval"_qs, QString());
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please input class interval: a number greater than 0"_qs);
        entry.count(u"6"_qs);
        QCOMPARE(entry.driver->text(u"Frequency"_qs), u"6"_qs);
        entry.driver->type(u"Class Interval"_qs, u"3"_qs);
        entry.driver->edit(u"Frequency"_qs)->clear();
        entry.driver->press(u"FINISH"_qs);
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"There is no length class with a frequency to save"_qs);
        entry.driver->press(u"SAVE"_qs);
        entry.count(u"6"_qs);
        entry.save();
        QCOMPARE(entry.classes(), QStringList({u"1|2|14|17|15.5|6"_qs}));
    }

    void operations() {
        Entry entry(0);
        const test::ScreenDriver& screen = *entry.driver;
        screen.openTab(u"Fishing Operation"_qs);
        screen.choose(u"Criterion"_qs, u"State/Province"_qs);
        screen.choose(u"Value"_qs, u"Alpha"_qs);
        screen.press(u"Search"_qs);
        QCOMPARE(screen.list(u"Species"_qs)->count(), 2);
        entry.start();
        entry.count(u"3"_qs);
        screen.press(u"FINISH"_qs);

        // The sample stays that of the operation in which it was started, whichever is looked at meanwhile.
        screen.move(u"Result"_qs, u"Next"_qs);
        QCOMPARE(screen.list(u"Species"_qs)->count(), 1);
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please select species"_qs);
        screen.press(u"SAVE"_qs);
        screen.choose(u"Species"_qs, kMackerel);
        screen.type(u"Class Interval"_qs, u"2"_qs);
        entry.store.dialogs.expectMessageContaining(u"belongs to fishing operation no. 1"_qs);
        screen.press(u"SAVE"_qs);

        screen.choose(u"Value"_qs, u"Beta"_qs);
        QCOMPARE(screen.rows(u"Length classes"_qs), QStringList({u"|||"_qs}));
        QCOMPARE(screen.text(u"Lower-Upper Length"_qs), QString());
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please select fishing operation"_qs);
        screen.press(u"SAVE"_qs);
        screen.press(u"CLEAR"_qs);
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please select species"_qs);
        screen.press(u"START INPUT>>"_qs);
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please select fishing operation"_qs);
        entry.start(kMackerel);
        QVERIFY(entry.samples().isEmpty());
    }
};

KELVORA_TEST(TestLengthFrequency, "length_frequency");

}  // namespace kelvora::test_length_frequency

#include "test_length_frequency.moc"
