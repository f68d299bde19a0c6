#include "data/csv_reader.h"
#include "sampling/length_frequency_screen.h"
#include "sampling_screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>

namespace kelvora::test_length_frequency {

using test::kGoatfish;
using test::kMackerel;

const QString kReplace = u"This species have lenght frequency data in database. Do you want to update?"_qs;
const QString kClasses = u"Length classes"_qs;
const QString kCurrent = u"Lower-Upper Length"_qs;

struct Entry : test::SamplingScreen<LengthFrequencyScreen> {
    explicit Entry(int lastSaved = 1) : SamplingScreen(u"Length Frequency"_qs, lastSaved) { addCatch(); }

    void fill(const QString& species, const QString& interval, const QString& limit) const {
        hand->choose(u"Species"_qs, species);
        if (hand->enabled(u"Class Interval"_qs)) {
            hand->type(u"Class Interval"_qs, interval);
        }
        hand->type(u"Sampling weight"_qs, u"12.5"_qs);
        hand->type(u"Lower limit(cm)"_qs, limit);
    }
    void start(const QString& species = kGoatfish, const QString& interval = u"2"_qs,
               const QString& limit = u"10"_qs) const {
        fill(species, interval, limit);
        hand->press(u"START INPUT>>"_qs);
    }
    void count(const QString& frequency) const {
        QTest::keyClicks(hand->edit(u"Frequency"_qs), frequency);
        hand->key(u"Frequency"_qs, Qt::Key_Return);
    }
    void expectSave(bool yes) {
        store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to insert this data"_qs, yes);
    }
    void save() {
        hand->press(u"FINISH"_qs);
        expectSave(true);
        hand->press(u"SAVE"_qs);
    }
    void refuse(const QString& button, const QString& message) {
        store.dialogs.expectMessage(u"ERROR"_qs, message);
        hand->press(button);
    }

    /// Which buttons are shown and can be pressed, as their first two letters.
    [[nodiscard]] QString offered() const {
        QString letters;
        for (const QString& caption : {u"START INPUT>>"_qs, u"FINISH"_qs, u"SAVE"_qs, u"CLEAR"_qs}) {
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
        entry.fill(kGoatfish, u"2"_qs, u"11.3"_qs);
        const QStringList table = hand.rows(kClasses);
        QCOMPARE(table.size(), 50);
        QCOMPARE(table[1], u"2|4|3|"_qs);
        QCOMPARE(table.mid(48), (QStringList{u"|||"_qs, u"TOTAL|||"_qs}));
        QCOMPARE(entry.offered(), u"ST"_qs);

        hand.press(u"START INPUT>>"_qs);
        QCOMPARE(hand.text(kCurrent), u"10 - 12"_qs);
        QCOMPARE(hand.rows(kClasses), QStringList{u"10|12|11|"_qs});
        QVERIFY(hand.focused(u"Frequency"_qs));
        QCOMPARE(entry.offered(), QString());
        QVERIFY(!hand.enabled(u"Sampling weight"_qs) && !hand.enabled(u"Lower limit(cm)"_qs));

        entry.count(QString());  // Enter in the empty box
        QCOMPARE(hand.rows(kClasses).size(), 1);
        for (const QString& wrong : {u"abc"_qs, u"-1"_qs, u"1,5"_qs, u" "_qs, u"3 fish"_qs}) {
            entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Numeric Only"_qs);
            entry.count(wrong);
            QCOMPARE(hand.text(u"Frequency"_qs), QString());
            QVERIFY(hand.focused(u"Frequency"_qs));
        }
        QCOMPARE(hand.text(kCurrent), u"10 - 12"_qs);
        QCOMPARE(entry.offered(), QString());

        entry.count(u"3"_qs);
        QCOMPARE(hand.text(kCurrent), u"12-14"_qs);
        QCOMPARE(hand.rows(kClasses), (QStringList{u"10|12|11|3"_qs, u"12|14|13|"_qs}));
        const QAbstractItemModel* grid = hand.grid(kClasses)->model();
        QCOMPARE(grid->index(0, 3).data(Qt::BackgroundRole).value<QColor>(), QColor(176, 213, 230));
        QVERIFY(!grid->index(1, 3).data(Qt::BackgroundRole).isValid());
        hand.press(u"FINISH"_qs);
        QCOMPARE(entry.offered(), u"SACL"_qs);
        entry.count(u"5"_qs);
        QCOMPARE(entry.offered(), u"FISACL"_qs);

        entry.expectSave(false);
        hand.press(u"SAVE"_qs);
        QCOMPARE(entry.samples(), QStringList());
        entry.save();
        QCOMPARE(entry.samples(), QStringList{u"1|2|12.5"_qs});
        QCOMPARE(entry.classes(), (QStringList{u"1|2|10|12|11|3"_qs, u"1|2|12|14|13|5"_qs}));
        for (const QString& field :
             {u"Species"_qs, u"Class Interval"_qs, u"Sampling weight"_qs, u"Lower limit(cm)"_qs}) {
            QCOMPARE(hand.text(field), QString());
            QVERIFY2(hand.enabled(field), qPrintable(field));
        }
        QVERIFY(hand.focused(u"Species"_qs));
        QCOMPARE(entry.offered(), u"ST"_qs);
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

        entry.hand->list(u"Species"_qs)->setFocus();
        for (const QString& text : {kGoatfish, interval, u"7.25"_qs, records.front().fields[1]}) {
            keys(text, Qt::Key_Tab);
        }
        keys({}, Qt::Key_Return);  // START INPUT>>
        QStringList expected;
        for (const CsvRecord& record : records) {
            expected.append(u"1|2|"_qs + record.fields.mid(1).join(u'|'));
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
        entry.start(kGoatfish, u"0.1"_qs, u"0.3"_qs);
        for (int i = 0; i < 6; ++i) {
            entry.count(u"1"_qs);
        }
        QCOMPARE(entry.hand->text(kCurrent), u"0.9-1"_qs);
        entry.save();
        QCOMPARE(entry.store.rows("select count(*) from length_detail where (lower1, upper1, midlength1) in"
                                  " (values (0.3, 0.4, 0.35), (0.7, 0.8, 0.75), (0.8, 0.9, 0.85))"),
                 QStringList(u"3"_qs));
    }

    void replacing() {
        Entry entry;
        entry.store.execute("insert into length values (1, 2, 12.5), (2, 2, 1)");
        entry.store.execute("insert into length_detail values (1, 2, 10, 12, 11, 3), (2, 2, 10, 12, 11, 1)");
        entry.store.dialogs.expectConfirm(u"CONFORM"_qs, kReplace, false);
        entry.start();
        QCOMPARE(entry.samples().size() + entry.classes().size(), 4);
        QCOMPARE(entry.hand->text(u"Species"_qs), QString());

        // What cannot be entered is refused before anything is asked or deleted.
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please input lower limit: a number from 0 to below 96"_qs);
        entry.start(kGoatfish, u"2"_qs, u"96"_qs);
        QVERIFY(entry.hand->focused(u"Lower limit(cm)"_qs));
        QCOMPARE(entry.samples().size(), 2);

        entry.store.dialogs.expectConfirm(u"CONFORM"_qs, kReplace, true);
        entry.start();
        QCOMPARE(entry.samples(), QStringList{u"2|2|1"_qs});
        QCOMPARE(entry.classes(), QStringList{u"2|2|10|12|11|1"_qs});
    }

    void storedInterval() {
        Entry entry;
        const test::ScreenDriver& hand = *entry.hand;
        entry.store.execute("update fish set classinterval = 2 where fishno = 2");
        entry.store.execute("update fish set classinterval = 0.5 where fishno = 1");
        hand.choose(u"Species"_qs, kGoatfish);
        QCOMPARE(hand.text(u"Class Interval"_qs), u"2"_qs);
        hand.choose(u"Species"_qs, kMackerel);
        QCOMPARE(hand.text(u"Class Interval"_qs), u"0.5"_qs);
        QVERIFY(!hand.enabled(u"Class Interval"_qs));
        entry.start(kMackerel, {}, u"7.2"_qs);
        QCOMPARE(hand.text(kCurrent), u"7 - 7.5"_qs);
        entry.count(u"1"_qs);
        entry.save();
        QCOMPARE(entry.store.rows("select classinterval from fish order by fishno"),
                 (QStringList{u"0.5"_qs, u"2"_qs, u"null"_qs}));
    }

    /// Refused half way: neither the interval nor the classes before it stay behind, and nothing typed is lost.
    void failingSave() {
        Entry entry;
        entry.start();
        entry.count(u"3"_qs);
        entry.count(u"5"_qs);
        const QStringList typed = entry.hand->rows(kClasses);
        const QStringList before = entry.store.wholeFile();
        entry.store.execute(
            "create trigger full before insert on length_detail when new.lower1 = 12"
            " begin select raise(abort, 'the disk is full'); end");
        entry.expectSave(true);
        entry.store.dialogs.expectMessageContaining(u"Nothing was stored"_qs);
        entry.hand->press(u"FINISH"_qs);
        entry.hand->press(u"SAVE"_qs);
        QCOMPARE(entry.store.wholeFile(), before);
        QCOMPARE(entry.hand->rows(kClasses), typed);
        QCOMPARE(entry.hand->text(u"Species"_qs) + entry.hand->text(u"Sampling weight"_qs), kGoatfish + u"12.5"_qs);
        entry.store.execute("drop trigger full");
        entry.expectSave(true);
        entry.hand->press(u"SAVE"_qs);
        QCOMPARE(entry.classes().size(), 2);
    }

    void anotherIntervalWhileEntering() {
        Entry entry;
        entry.start();
        entry.count(u"3"_qs);
        entry.hand->type(u"Class Interval"_qs, u"3"_qs);
        entry.count(u"5"_qs);
        QCOMPARE(entry.hand->rows(kClasses).mid(48), (QStringList{u"|||"_qs, u"12|14|13|5"_qs, u"14|17|15.5|"_qs}));
        entry.hand->type(u"Class Interval"_qs, QString());
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please input class interval: a number greater than 0"_qs);
        entry.count(u"6"_qs);
        QCOMPARE(entry.hand->text(u"Frequency"_qs), u"6"_qs);
        entry.hand->type(u"Class Interval"_qs, u"3"_qs);
        entry.hand->edit(u"Frequency"_qs)->clear();
        entry.hand->press(u"FINISH"_qs);
        entry.refuse(u"SAVE"_qs, u"There is no length class with a frequency to save"_qs);
        entry.count(u"6"_qs);
        entry.save();
        QCOMPARE(entry.classes(), QStringList{u"1|2|14|17|15.5|6"_qs});
    }

    /// The sample stays that of the operation in which it was started, whichever is looked at meanwhile.
    void operations() {
        Entry entry(0);
        const test::ScreenDriver& hand = *entry.hand;
        entry.findOperations();
        QCOMPARE(hand.list(u"Species"_qs)->count(), 2);
        entry.start();
        entry.count(u"3"_qs);
        hand.press(u"FINISH"_qs);

        hand.move(u"Result"_qs, u"Next"_qs);
        QCOMPARE(hand.list(u"Species"_qs)->count(), 1);
        entry.refuse(u"SAVE"_qs, u"Please select species"_qs);
        hand.choose(u"Species"_qs, kMackerel);
        hand.type(u"Class Interval"_qs, u"2"_qs);
        entry.refuse(u"SAVE"_qs, u"This sample belongs to fishing operation no. 1: go back to it to save"_qs);

        hand.choose(u"Value"_qs, u"Beta"_qs);
        QCOMPARE(hand.rows(kClasses), QStringList{u"|||"_qs});
        QCOMPARE(hand.text(kCurrent), QString());
        entry.refuse(u"SAVE"_qs, u"Please select fishing operation"_qs);
        hand.press(u"CLEAR"_qs);
        entry.refuse(u"START INPUT>>"_qs, u"Please select species"_qs);
        entry.store.dialogs.expectMessage(u"ERROR"_qs, u"Please select fishing operation"_qs);
        entry.start(kMackerel);
        QVERIFY(entry.samples().isEmpty());
    }
};

KELVORA_TEST(TestLengthFrequency, "length_frequency");

}  // namespace kelvora::test_length_frequency

#include "test_length_frequency.moc"
