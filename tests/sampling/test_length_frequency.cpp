#include "data/csv_reader.h"
#include "sampling/sampling_screens.h"
#include "sampling_screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace kelvora::test_length_frequency {

using test::kGoatfish;
using test::kMackerel;

const QString kReplace = u"This species have lenght frequency data in database. Do you want to update?"_s;
const QString kClasses = u"Length classes"_s;
const QString kCurrent = u"Lower-Upper Length"_s;

struct Entry : test::SamplingScreen<LengthFrequencyScreen> {
    explicit Entry(int lastSaved = 1) : SamplingScreen(u"Length Frequency"_s, lastSaved) { addCatch(); }

    void fill(const QString& species, const QString& interval, const QString& limit) const {
        hand->choose(u"Species"_s, species);
        if (hand->enabled(u"Class Interval"_s)) {
            hand->type(u"Class Interval"_s, interval);
        }
        hand->type(u"Sampling weight"_s, u"12.5"_s);
        hand->type(u"Lower limit(cm)"_s, limit);
    }
    void start(const QString& species = kGoatfish, const QString& interval = u"2"_s,
               const QString& limit = u"10"_s) const {
        fill(species, interval, limit);
        hand->press(u"START INPUT>>"_s);
    }
    void count(const QString& frequency) const {
        QTest::keyClicks(hand->edit(u"Frequency"_s), frequency);
        hand->key(u"Frequency"_s, Qt::Key_Return);
    }
    void expectSave(bool yes) { store.dialogs.expectConfirm(u"Confirm"_s, u"Are you sure to insert this data"_s, yes); }
    void save() {
        hand->press(u"FINISH"_s);
        expectSave(true);
        hand->press(u"SAVE"_s);
    }
    void refuse(const QString& button, const QString& message) {
        store.dialogs.expectMessage(u"ERROR"_s, message);
        hand->press(button);
    }

    /// Which buttons are shown and can be pressed, as their first two letters.
    [[nodiscard]] QString offered() const {
        QString letters;
        for (const QString& caption : {u"START INPUT>>"_s, u"FINISH"_s, u"SAVE"_s, u"CLEAR"_s}) {
            const auto* button = hand->button(caption);
            letters += button->isVisible() && button->isEnabled() ? caption.first(2) : QString();
        }
        return letters;
    }
    QStringList samples() { return store.rows("select * from length order by optid, spid"); }
    QStringList classes() { return store.rows("select * from length_detail"); }
};

class TestLengthFrequency : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void classByClass() {
        Entry entry;
        const test::ScreenDriver& hand = *entry.hand;
        entry.fill(kGoatfish, u"2"_s, u"11.3"_s);
        const QStringList table = hand.rows(kClasses);
        QCOMPARE(table.size(), 50);
        QCOMPARE(table[1], u"2|4|3|"_s);
        QCOMPARE(table.mid(48), (QStringList{u"|||"_s, u"TOTAL|||"_s}));
        QCOMPARE(entry.offered(), u"ST"_s);

        hand.press(u"START INPUT>>"_s);
        QCOMPARE(hand.text(kCurrent), u"10 - 12"_s);
        QCOMPARE(hand.rows(kClasses), QStringList{u"10|12|11|"_s});
        QVERIFY(hand.focused(u"Frequency"_s));
        QCOMPARE(entry.offered(), QString());
        QVERIFY(!hand.enabled(u"Sampling weight"_s) && !hand.enabled(u"Lower limit(cm)"_s));

        entry.count(QString());  // Enter in the empty box
        QCOMPARE(hand.rows(kClasses).size(), 1);
        for (const QString& wrong : {u"abc"_s, u"-1"_s, u"1,5"_s, u" "_s, u"3 fish"_s}) {
            entry.store.dialogs.expectMessage(u"ERROR"_s, u"Numeric Only"_s);
            entry.count(wrong);
            QCOMPARE(hand.text(u"Frequency"_s), QString());
            QVERIFY(hand.focused(u"Frequency"_s));
        }
        QCOMPARE(hand.text(kCurrent), u"10 - 12"_s);
        QCOMPARE(entry.offered(), QString());

        entry.count(u"3"_s);
        QCOMPARE(hand.text(kCurrent), u"12-14"_s);
        QCOMPARE(hand.rows(kClasses), (QStringList{u"10|12|11|3"_s, u"12|14|13|"_s}));
        const QAbstractItemModel* grid = hand.grid(kClasses)->model();
        QCOMPARE(grid->index(0, 3).data(Qt::BackgroundRole).value<QColor>(), QColor(176, 213, 230));
        QVERIFY(!grid->index(1, 3).data(Qt::BackgroundRole).isValid());
        hand.press(u"FINISH"_s);
        QCOMPARE(entry.offered(), u"SACL"_s);
        entry.count(u"5"_s);
        QCOMPARE(entry.offered(), u"FISACL"_s);

        entry.expectSave(false);
        hand.press(u"SAVE"_s);
        QCOMPARE(entry.samples(), QStringList());
        entry.save();
        QCOMPARE(entry.samples(), QStringList{u"1|2|12.5"_s});
        QCOMPARE(entry.classes(), (QStringList{u"1|2|10|12|11|3"_s, u"1|2|12|14|13|5"_s}));
        for (const QString& field : {u"Species"_s, u"Class Interval"_s, u"Sampling weight"_s, u"Lower limit(cm)"_s}) {
            QCOMPARE(hand.text(field), QString());
            QVERIFY2(hand.enabled(field), qPrintable(field));
        }
        QVERIFY(hand.focused(u"Species"_s));
        QCOMPARE(entry.offered(), u"ST"_s);
    }

    void realSampleByKeyboard_data() {
        QTest::addColumn<QString>("tally");
        QTest::addColumn<QString>("interval");
        QTest::addColumn<int>("fish");
        QTest::newRow("goatfish") << u"yellowstriped_goatfish_manila_bay_tally.csv"_s << u"1"_s << 3816;
        QTest::newRow("hake") << u"european_hake_2008_07_tally.csv"_s << u"2"_s << 2408;
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
        std::vector<CsvRecord> records = readCsv(CsvReader(u"" KELVORA_TEST_FILES "/"_s + tally));
        records.erase(records.begin());

        entry.hand->list(u"Species"_s)->setFocus();
        for (const QString& text : {kGoatfish, interval, u"7.25"_s, records.front().fields[1]}) {
            keys(text, Qt::Key_Tab);
        }
        keys({}, Qt::Key_Return);  // START INPUT>>
        QStringList expected;
        for (const CsvRecord& record : records) {
            expected.append(u"1|2|"_s + record.fields.mid(1).join(u'|'));
            keys(record.fields.back(), Qt::Key_Return);
        }
        const Grid* grid = entry.hand->grid(kClasses);
        QVERIFY(grid->viewport()->rect().contains(grid->visualRect(grid->model()->index(grid->rowCount() - 1, 0))));
        keys({}, Qt::Key_Tab);
        keys({}, Qt::Key_Space);  // FINISH
        entry.expectSave(true);
        keys({}, Qt::Key_Return);  // SAVE
        QCOMPARE(entry.classes(), expected);
        QCOMPARE(entry.store.rows("select sum(frequency1) from length_detail"), QStringList(QString::number(fish)));
        QCOMPARE(entry.store.rows("select classinterval from fish where fishno = 2"), QStringList(interval));
    }

    void tenthsAreStoredAsRead() {
        Entry entry;
        entry.start(kGoatfish, u"0.1"_s, u"0.3"_s);
        for (int i = 0; i < 6; ++i) {
            entry.count(u"1"_s);
        }
        QCOMPARE(entry.hand->text(kCurrent), u"0.9-1"_s);
        entry.save();
        QCOMPARE(entry.store.rows("select count(*) from length_detail where (lower1, upper1, midlength1) in"
                                  " (values (0.3, 0.4, 0.35), (0.7, 0.8, 0.75), (0.8, 0.9, 0.85))"),
                 QStringList(u"3"_s));
    }

    void replacing() {
        Entry entry;
        entry.store.execute("insert into length values (1, 2, 12.5), (2, 2, 1)");
        entry.store.execute("insert into length_detail values (1, 2, 10, 12, 11, 3), (2, 2, 10, 12, 11, 1)");
        entry.store.dialogs.expectConfirm(u"CONFORM"_s, kReplace, false);
        entry.start();
        QCOMPARE(entry.samples().size() + entry.classes().size(), 4);
        QCOMPARE(entry.hand->text(u"Species"_s), QString());

        // What cannot be entered is refused before anything is asked or deleted.
        entry.store.dialogs.expectMessage(
            u"ERROR"_s, u"Please input lower limit: a number from 0 to below 96 (decimal point, no comma)"_s);
        entry.start(kGoatfish, u"2"_s, u"96"_s);
        QVERIFY(entry.hand->focused(u"Lower limit(cm)"_s));
        QCOMPARE(entry.samples().size(), 2);

        entry.store.dialogs.expectConfirm(u"CONFORM"_s, kReplace, true);
        entry.start();
        QCOMPARE(entry.samples(), QStringList{u"2|2|1"_s});
        QCOMPARE(entry.classes(), QStringList{u"2|2|10|12|11|1"_s});
    }

    void storedInterval() {
        Entry entry;
        const test::ScreenDriver& hand = *entry.hand;
        entry.store.execute("update fish set classinterval = 2 where fishno = 2");
        entry.store.execute("update fish set classinterval = 0.5 where fishno = 1");
        hand.choose(u"Species"_s, kGoatfish);
        QCOMPARE(hand.text(u"Class Interval"_s), u"2"_s);
        hand.choose(u"Species"_s, kMackerel);
        QCOMPARE(hand.text(u"Class Interval"_s), u"0.5"_s);
        QVERIFY(!hand.enabled(u"Class Interval"_s));
        entry.start(kMackerel, {}, u"7.2"_s);
        QCOMPARE(hand.text(kCurrent), u"7 - 7.5"_s);
        entry.count(u"1"_s);
        entry.save();
        QCOMPARE(entry.store.rows("select classinterval from fish order by fishno"),
                 (QStringList{u"0.5"_s, u"2"_s, u"null"_s}));
    }

    /// Refused half way: neither the interval nor the classes before it stay behind, and nothing typed is lost.
    void failingSave() {
        Entry entry;
        entry.start();
        entry.count(u"3"_s);
        entry.count(u"5"_s);
        const QStringList typed = entry.hand->rows(kClasses);
        const QStringList before = entry.store.wholeFile();
        entry.store.execute(
            "create trigger full before insert on length_detail when new.lower1 = 12"
            " begin select raise(abort, 'the disk is full'); end");
        entry.expectSave(true);
        entry.store.dialogs.expectMessageContaining(u"Nothing was stored"_s);
        entry.hand->press(u"FINISH"_s);
        entry.hand->press(u"SAVE"_s);
        QCOMPARE(entry.store.wholeFile(), before);
        QCOMPARE(entry.hand->rows(kClasses), typed);
        QCOMPARE(entry.hand->text(u"Species"_s) + entry.hand->text(u"Sampling weight"_s), kGoatfish + u"12.5"_s);
        entry.store.execute("drop trigger full");
        entry.expectSave(true);
        entry.hand->press(u"SAVE"_s);
        QCOMPARE(entry.classes().size(), 2);
    }

    void anotherIntervalWhileEntering() {
        Entry entry;
        entry.start();
        entry.count(u"3"_s);
        entry.hand->type(u"Class Interval"_s, u"3"_s);
        entry.count(u"5"_s);
        QCOMPARE(entry.hand->rows(kClasses).mid(48), (QStringList{u"|||"_s, u"12|14|13|5"_s, u"14|17|15.5|"_s}));
        entry.hand->type(u"Class Interval"_s, QString());
        entry.store.dialogs.expectMessage(
            u"ERROR"_s, u"Please input class interval: a number greater than 0 (decimal point, no comma)"_s);
        entry.count(u"6"_s);
        QCOMPARE(entry.hand->text(u"Frequency"_s), u"6"_s);
        entry.hand->type(u"Class Interval"_s, u"3"_s);
        entry.hand->edit(u"Frequency"_s)->clear();
        entry.hand->press(u"FINISH"_s);
        entry.refuse(u"SAVE"_s, u"There is no length class with a frequency to save"_s);
        entry.count(u"6"_s);
        entry.save();
        QCOMPARE(entry.classes(), QStringList{u"1|2|14|17|15.5|6"_s});
    }

    /// The sample stays that of the operation in which it was started, whichever is looked at meanwhile.
    void operations() {
        Entry entry(0);
        const test::ScreenDriver& hand = *entry.hand;
        entry.findOperations();
        QCOMPARE(hand.list(u"Species"_s)->count(), 2);
        entry.start();
        entry.count(u"3"_s);
        hand.press(u"FINISH"_s);

        hand.move(u"Result"_s, u"Next"_s);
        QCOMPARE(hand.list(u"Species"_s)->count(), 1);
        // The species is not caught there, but that is not what is wrong.
        entry.refuse(u"SAVE"_s, u"This sample belongs to fishing operation no. 1: go back to it to save"_s);

        hand.choose(u"Value"_s, u"Beta"_s);
        QCOMPARE(hand.rows(kClasses), QStringList{u"|||"_s});
        QCOMPARE(hand.text(kCurrent), QString());
        entry.refuse(u"START INPUT>>"_s, u"Please select species"_s);
        entry.store.dialogs.expectMessage(u"ERROR"_s, u"Please select fishing operation"_s);
        entry.start(kMackerel);
        QVERIFY(entry.samples().isEmpty());
    }
};

KELVORA_TEST(TestLengthFrequency, "length_frequency");

}  // namespace kelvora::test_length_frequency

#include "test_length_frequency.moc"
