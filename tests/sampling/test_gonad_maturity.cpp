#include "data/csv_reader.h"
#include "data/numbers.h"
#include "sampling/sampling_screens.h"
#include "sampling_screen.h"

#include <QAbstractButton>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kelvora::test_gonad_maturity {

using test::kGoatfish;
using test::kMackerel;

const QString kGrid = u"Measured fish"_s;
const QString kBlank = u"||||||||"_s;
const QString kFieldsOfAFish = u"TL(mm),BL(mm),FL(mm),SL(mm),BW,SEX,Stage,GW"_s;

/// The row of a fish that was typed by addFish.
QString fishRow(int number, int bodyWeight) {
    return u"%1|152|130|141|128|%2|Female|3|12"_s.arg(number).arg(bodyWeight);
}

struct Entry : test::SamplingScreen<GonadMaturityScreen> {
    explicit Entry(int lastSaved = 1) : SamplingScreen(u"Gonad Maturity Detail"_s, lastSaved) { addCatch(); }

    void start(const QString& species = kMackerel) const {
        hand->choose(u"Species"_s, species);
        hand->press(u"ADD SAMPLING >>"_s);
    }
    /// Keys on the keyboard, wherever it is; "\n" is Enter.
    void keys(const QString& text) const {
        for (const QChar key : text) {
            QWidget* at = screen->focusWidget();
            key == u'\n' ? QTest::keyClick(at, Qt::Key_Return) : QTest::keyClick(at, key.toLatin1());
        }
    }
    void expectNext(bool yes = true) {
        store.dialogs.expectConfirm(u"GONAD"_s, u"Are you sure to add this sampling"_s, yes);
    }
    void addFish(std::initializer_list<int> bodyWeights) {
        for (const int weight : bodyWeights) {
            expectNext();
            keys(u"152\n130\n141\n128\n%1\nf\n3\n12\n"_s.arg(weight));
        }
    }
    void save(bool yes = true, const QString& problem = {}) {
        store.dialogs.expectConfirm(u"Confirm"_s, u"Are you sure to add this data to database"_s, yes);
        if (!problem.isEmpty()) {
            store.dialogs.expectMessageContaining(problem);
        }
        hand->press(u"SAVE"_s);
    }
    void expectDelete(int number, bool yes = true) {
        store.dialogs.expectConfirm(u"Confirm"_s, u"Are you sure for delete sampling '%1'"_s.arg(number), yes);
    }
    void deleteRow(int row) {
        hand->grid(kGrid)->setCurrentRow(row);
        expectDelete(row + 1);
        hand->key(kGrid, Qt::Key_Delete);
    }
    void importFile(const std::optional<QString>& path, const QString& refusal = {}) {
        store.dialogs.expectOpenFile(path);
        if (!refusal.isEmpty()) {
            store.dialogs.expectMessageContaining(refusal);
        }
        hand->press(u"IMPORT"_s);
    }
    void importBytes(const QByteArray& bytes, const QString& title = {}, const QString& refusal = {}) {
        store.dialogs.expectOpenFile(written(bytes));
        if (!refusal.isEmpty()) {
            store.dialogs.expectMessage(title, refusal);
        }
        hand->press(u"IMPORT"_s);
    }

    [[nodiscard]] QStringList rows() const { return hand->rows(kGrid); }
    [[nodiscard]] QString weight() const { return hand->text(u"Sampling weight"_s); }
    QStringList samples() { return store.rows("select optid, spid, samplingw from gonad order by optid, spid"); }
    QStringList storedFish() {
        return store.rows("select spid, samplingno, bw from gonad_detail order by spid, samplingno");
    }
    /// Which buttons can be pressed, as their initials.
    [[nodiscard]] QString pressable() const {
        QString initials;
        for (const QString& button : {u"ADD SAMPLING >>"_s, u"NEXT>>"_s, u"SAVE"_s, u"CLEAR"_s, u"IMPORT"_s}) {
            initials += hand->enabled(button) ? button.first(1) : QString();
        }
        return initials;
    }
    /// Whether the screen waits for a sample: nothing typed, nothing listed.
    [[nodiscard]] bool isBlank() const {
        return rows() == QStringList{kBlank} && hand->text(u"Species"_s) + hand->text(u"TL(mm)"_s) == QString() &&
               weight() == u"0" && !hand->enabled(u"TL(mm)"_s);
    }
};

/// The rows of a reference table that belong to a file.
std::vector<QStringList> expectedOf(const QString& table, const QString& file) {
    std::vector<QStringList> found;
    const QString path = u"" KELVORA_TEST_FILES "/"_s + table;
    for (const CsvRecord& record : readCsv(CsvReader(path))) {
        if (record.fields.first() == file) {
            found.push_back(record.fields);
        }
    }
    return found;
}

class TestGonadMaturity : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// One hand on the measuring board: fish after fish with digits, Enter and one letter.
    void keyboard() {
        Entry entry;
        QCOMPARE(entry.pressable(), u"AC"_s);
        QVERIFY(entry.isBlank() && !entry.hand->enabled(u"Stage"_s));
        entry.start();
        QCOMPARE(entry.pressable(), u"NCI"_s);
        for (const QString& caption : kFieldsOfAFish.split(u',').first(5)) {
            QVERIFY2(entry.hand->focused(caption), qPrintable(caption));
            entry.keys(u"15\n"_s);
        }
        QVERIFY(entry.hand->focused(u"SEX"_s));
        entry.keys(u"j"_s);
        QCOMPARE(entry.hand->text(u"SEX"_s), u"Juvenile"_s);
        entry.keys(u"mf\n4"_s);
        QCOMPARE(entry.hand->text(u"Stage"_s), u"4-Spawning"_s);
        entry.expectNext(false);
        entry.keys(u"3\n1.5\n"_s);
        QCOMPARE(entry.rows(), QStringList{kBlank});

        entry.expectNext();
        entry.keys(u"\n"_s);
        QCOMPARE(entry.rows(), (QStringList{u"1|15|15|15|15|15|Female|3|1.5"_s, kBlank}));
        QCOMPARE(entry.weight(), u"0.02"_s);
        QCOMPARE(entry.pressable(), u"NSCI"_s);
        QVERIFY(entry.hand->focused(u"TL(mm)"_s));
        QCOMPARE(entry.hand->text(u"BW"_s) + entry.hand->text(u"GW"_s), QString());
        QCOMPARE(entry.hand->text(u"SEX"_s), u"Male"_s);

        // The stage stays; the same digit again stays the same stage; Enter takes both lists as they stand.
        entry.expectNext();
        entry.keys(u"1\n2\n3\n4\n5\n\n3\n6\n"_s);
        entry.expectNext();
        entry.keys(u"1\n2\n3\n4\n5\n\n\n6\n"_s);
        QCOMPARE(entry.rows().mid(1), (QStringList{u"2|1|2|3|4|5|Male|3|6"_s, u"3|1|2|3|4|5|Male|3|6"_s, kBlank}));

        for (const QString& caption : kFieldsOfAFish.split(u',')) {
            QVERIFY2(entry.hand->focused(caption), qPrintable(caption));
            QTest::keyClick(entry.screen->focusWidget(), Qt::Key_Tab);
        }
        QVERIFY(entry.screen->focusWidget() == entry.hand->button(u"NEXT>>"_s));
    }

    void longStageNumbers() {
        Entry entry;
        entry.store.execute("insert into gonad_stage values (0, 'Not judged'), (10, 'Resting')");
        entry.open();
        entry.start();
        const auto stage = [&](const QString& keys) {
            entry.hand->field(u"TL(mm)"_s)->setFocus();
            entry.hand->field(u"Stage"_s)->setFocus(Qt::TabFocusReason);
            entry.keys(keys);
            return entry.hand->text(u"Stage"_s);
        };
        QCOMPARE(stage(u"1"_s), u"1"_s);  // 10 may still be meant
        QCOMPARE(stage(u"1\n"_s), u"1-Immature"_s);
        QCOMPARE(stage(u"10"_s), u"10-Resting"_s);
        QCOMPARE(stage(u"0"_s), u"0-Not judged"_s);
        QCOMPARE(stage(u"9\n"_s), QString());
    }

    void refusals() {
        Entry entry;
        entry.store.dialogs.expectMessage(u"select species"_s);
        entry.hand->press(u"ADD SAMPLING >>"_s);

        entry.start();
        entry.expectNext();
        entry.store.dialogs.expectMessage(u"GONAD"_s, u"BW must be greater than 0"_s);
        entry.keys(u"152\n130\n141\n128\n0\nf\n3\n12\n"_s);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QVERIFY(entry.hand->focused(u"BW"_s));
        QCOMPARE(entry.hand->text(u"BW"_s) + entry.hand->text(u"GW"_s), u"12"_s);
        QVERIFY(!entry.hand->enabled(u"SAVE"_s));

        entry.expectNext();
        entry.keys(u"400\n\n\n\n"_s);
        entry.hand->type(u"Sampling weight"_s, u"1,5"_s);
        entry.store.dialogs.expectMessage(u"GONAD"_s,
                                          u"Please input Sampling weight in numeric (decimal point, no comma)"_s);
        entry.hand->press(u"SAVE"_s);
        QCOMPARE(entry.weight(), u"0.40"_s);
        entry.save(false);
        QCOMPARE(entry.samples(), QStringList());
        QCOMPARE(entry.rows().size(), 2);

        entry.hand->type(u"Species"_s, u"no such fish"_s);
        entry.store.dialogs.expectMessage(u"select species"_s);
        entry.hand->press(u"SAVE"_s);
    }

    void deleting() {
        Entry entry;
        entry.start();
        entry.addFish({100, 200, 300});
        Grid* grid = entry.hand->grid(kGrid);
        const auto doubleClick = [grid](int row) { Q_EMIT grid->doubleClicked(grid->model()->index(row, 3)); };
        doubleClick(3);  // the blank row
        entry.expectDelete(2, false);
        doubleClick(1);
        QCOMPARE(entry.rows().size(), 4);
        entry.expectDelete(2);
        doubleClick(1);
        QCOMPARE(entry.rows(), (QStringList{fishRow(1, 100), fishRow(2, 300), kBlank}));
        QCOMPARE(entry.weight(), u"0.40"_s);

        entry.deleteRow(1);
        entry.deleteRow(0);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QVERIFY(!grid->isEnabled());
        QCOMPARE(entry.weight(), u"0.00"_s);
        entry.store.dialogs.expectMessage(u"There is no fish in the grid. Nothing was stored."_s);
        entry.hand->press(u"SAVE"_s);
        QCOMPARE(entry.samples(), QStringList());
        entry.addFish({50});
        QVERIFY(grid->isEnabled());
    }

    void saving() {
        Entry entry;
        entry.store.execute("insert into gonad values (1, 1, 2), (2, 1, 7)");
        entry.store.execute(
            "insert into gonad_detail(optid, spid, samplingno) values (1, 1, 1), (1, 1, 2), (1, 3, 1), (2, 1, 1)");
        entry.start();
        entry.addFish({400, 300});
        entry.save();
        QCOMPARE(entry.samples(), (QStringList{u"1|1|2.7"_s, u"2|1|7"_s}));
        QCOMPARE(
            entry.store.rows("select * from gonad_detail where bw > 0"),
            (QStringList{u"1|1|3|152|130|141|128|400|Female|3|12|3"_s, u"1|1|4|152|130|141|128|300|Female|3|12|4"_s}));
        QCOMPARE(entry.pressable(), u"C"_s);
        QVERIFY(entry.isBlank() && entry.hand->focused(u"Species"_s));

        // The sampler's own weight, of a species without a stored sample; no stage chosen.
        entry.start(kGoatfish);
        entry.hand->list(u"Stage"_s)->setText({});
        entry.expectNext();
        entry.keys(u"1\n2\n3\n4\n5\n\n\n6\n"_s);
        entry.hand->type(u"Sampling weight"_s, u" 3.25 "_s);
        entry.save();
        QCOMPARE(entry.samples(), (QStringList{u"1|1|2.7"_s, u"1|2|3.25"_s, u"2|1|7"_s}));
        QCOMPARE(entry.store.rows("select * from gonad_detail where spid = 2"),
                 QStringList{u"1|2|1|1|2|3|4|5|Male|0|6|120"_s});

        entry.start();
        entry.addFish({400});
        entry.keys(u"15"_s);
        entry.hand->press(u"CLEAR"_s);
        QVERIFY(entry.isBlank());
        QCOMPARE(entry.pressable(), u"AC"_s);
    }

    /// The data file refuses the third fish: what is stored leaves the grid, and the rest is stored once.
    void interruptedSave() {
        Entry entry;
        entry.store.execute("insert into gonad values (1, 1, 2)");
        entry.start();
        entry.addFish({100, 200, 300, 400});
        entry.store.execute(
            "create trigger refuse before insert on gonad_detail when new.samplingno = 3 "
            "begin select raise(abort, 'no'); end");
        for (int attempt = 0; attempt < 2; ++attempt) {
            entry.save(true, u"2 of 4 fish are stored"_s);
            QCOMPARE(entry.samples(), QStringList{u"1|1|2.3"_s});
            QCOMPARE(entry.storedFish(), (QStringList{u"1|1|100"_s, u"1|2|200"_s}));
            QCOMPARE(entry.rows(), (QStringList{fishRow(1, 300), fishRow(2, 400), kBlank}));
            QCOMPARE(entry.weight(), u"1.00"_s);
            QVERIFY(!entry.hand->enabled(u"Species"_s));  // the rest is of the same species
        }
        // A fish more and a fish less before it works again.
        entry.addFish({500});
        entry.deleteRow(0);
        QCOMPARE(entry.weight(), u"1.20"_s);
        entry.store.execute("drop trigger refuse");
        entry.save();
        QCOMPARE(entry.samples(), QStringList{u"1|1|3.2"_s});
        QCOMPARE(entry.storedFish(), (QStringList{u"1|1|100"_s, u"1|2|200"_s, u"1|3|400"_s, u"1|4|500"_s}));
        QVERIFY(entry.hand->enabled(u"Species"_s));

        // Nothing of it is left over for the next sample.
        entry.start(kGoatfish);
        entry.addFish({250});
        entry.save();
        QCOMPARE(entry.samples(), (QStringList{u"1|1|3.2"_s, u"1|2|0.25"_s}));
    }

    void saveThatNeverBegan() {
        Entry entry;
        entry.start();
        entry.addFish({100});
        entry.store.execute("create trigger refuse before insert on gonad begin select raise(abort, 'no'); end");
        entry.save(true, u"0 of 1 fish are stored: "_s);
        entry.store.execute("drop trigger refuse");
        QCOMPARE(entry.samples(), QStringList());
        // Nothing is stored of it, so it may still turn out to be another species.
        entry.hand->choose(u"Species"_s, kGoatfish);
        entry.save();
        QCOMPARE(entry.samples(), QStringList{u"1|2|0.1"_s});
        QCOMPARE(entry.storedFish(), QStringList{u"2|1|100"_s});

        // An operation that is deleted on another screen gets no fish: the next operation would inherit them.
        entry.start();
        entry.addFish({100});
        entry.store.execute("delete from fishoperation where optid = 1");
        entry.save(true, u"fishing operation no. 1 was deleted or replaced by another one"_s);
        QCOMPARE(entry.storedFish(), QStringList{u"2|1|100"_s});
        QCOMPARE(entry.rows().size(), 2);
    }

    /// Fish belong to the catch they were measured from, however the operation is left.
    void changedOperation() {
        Entry entry(0);
        entry.findOperations();
        QCOMPARE(entry.hand->list(u"Species"_s)->count(), 2);
        entry.start();
        entry.addFish({100});
        entry.store.execute("create trigger refuse before insert on gonad_detail begin select raise(abort, 'no'); end");
        entry.save(true, u"0 of 1 fish are stored: "_s);
        entry.store.execute("drop trigger refuse");

        entry.hand->move(u"Result"_s, u"Next"_s);
        QVERIFY(entry.isBlank());
        QCOMPARE(entry.hand->list(u"Species"_s)->count(), 1);
        QCOMPARE(entry.pressable(), u"AC"_s);
        entry.start();
        entry.addFish({300});
        entry.save();
        QCOMPARE(entry.samples(), QStringList{u"2|1|0.3"_s});

        entry.start();
        entry.addFish({300});
        entry.hand->choose(u"Criterion"_s, u"Vessel"_s);
        QVERIFY(entry.isBlank());
        QCOMPARE(entry.hand->list(u"Species"_s)->count(), 0);
        QCOMPARE(entry.pressable(), u"AC"_s);
    }

    void importing() {
        Entry entry;
        entry.start();
        entry.addFish({100});
        entry.importFile(std::nullopt);
        entry.importBytes({}, u"Kelvora"_s, u"No data in this file"_s);
        entry.importBytes("TL,BL,FL,SL,BW,SEX,Stage,GW\n1,2,3\n", u"ERROR"_s, u"Error File Format"_s);
        for (const QString& path : {entry.store.file(u"missing.csv"_s), QFileInfo(entry.store.path()).path()}) {
            entry.importFile(path, u"The file cannot be read"_s);
        }
        QCOMPARE(entry.rows(), (QStringList{fishRow(1, 100), kBlank}));
        QCOMPARE(entry.weight(), u"0.10"_s);
        entry.importBytes("a,b,c,d,e,f,g,h\n1,2,3,4,5,6,7,8\n", u"ERROR"_s, u"Error File Format"_s);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QCOMPARE(entry.weight(), u"0.00"_s);

        entry.importBytes("TL,BL,FL,SL,BW,Sex,Stage,GW\n1,2,3,4,250,F,3-Ripe,8\n,,,,x,J,,\n");
        QCOMPARE(entry.rows(), (QStringList{u"1|1|2|3|4|250|Female|3-Ripe|8"_s, u"2|||||x|None||"_s, kBlank}));
        QCOMPARE(entry.weight(), u"0.25"_s);
        QCOMPARE(entry.pressable(), u"NSCI"_s);
        entry.addFish({50});
        QCOMPARE(entry.rows()[2], fishRow(3, 50));
        entry.save();
        QCOMPARE(entry.store.rows("select samplingno,tl,bl,fl,sl,bw,sex,stage,gw,gsi from gonad_detail"),
                 (QStringList{u"1|1|2|3|4|250|Female|3|8|3.2"_s, u"2|0|0|0|0|0|None|0|0|null"_s,
                              u"3|152|130|141|128|50|Female|3|12|24"_s}));

        // A header alone: a sample of no fish yet.
        entry.start();
        entry.importBytes("TL,BL,FL,SL,BW,SEX,Stage,GW\n");
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QCOMPARE(entry.pressable(), u"NSCI"_s);
    }

    void measuredCatches_data() {
        QTest::addColumn<QString>("file");
        for (const char* file :
             {"gonad_import_mountain_whitefish.csv", "gonad_import_ruffe_1992.csv", "gonad_import_lake_trout.csv"}) {
            QTest::newRow(file) << QString::fromLatin1(file);
        }
    }
    void measuredCatches() {
        QFETCH(QString, file);
        Entry entry;
        entry.start();
        entry.importFile(u"" KELVORA_TEST_FILES "/"_s + file);
        entry.save();

        const QStringList summary = expectedOf(u"gonad_summary.csv"_s, file).at(0);
        QCOMPARE(entry.store.rows("select count(*), sum(sex = 'Female'), sum(sex = 'Male'), sum(sex = 'None'),"
                                  " sum(gsi is null), count(gsi) from gonad_detail"),
                 QStringList{(summary.mid(1, 5) + summary.mid(7, 1)).join(u'|')});
        const QStringList stages = entry.store.rows("select stage, count(*) from gonad_detail group by stage");
        QCOMPARE(stages.join(u' ').replace(u'|', u':'), summary.at(13));
        QCOMPARE(entry.store.rows("select printf('%.10g|%.10g', min(gsi), max(gsi)) from gonad_detail"),
                 QStringList{QString::asprintf("%.10g|%.10g", summary.at(11).toDouble(), summary.at(12).toDouble())});
        QCOMPARE(entry.samples(),
                 QStringList{u"1|1|"_s + plainText(twoDecimals(summary.at(14).toDouble() / 1000).toDouble())});

        QStringList everyFish;
        for (const QStringList& fish : expectedOf(u"gonad_gsi_every_fish.csv"_s, file)) {
            everyFish.append(fish.mid(1).join(u'|'));
        }
        const QStringList stored = entry.store.rows("select samplingno, sex, stage, bw, gw, gsi from gonad_detail");
        QVERIFY(everyFish.isEmpty() || everyFish == stored);
        // The two other files hold no gonad weights.
        QCOMPARE(everyFish.isEmpty(), entry.store.rows("select max(gw) from gonad_detail") == QStringList{u"0"_s});
    }
};

KELVORA_TEST(TestGonadMaturity, "gonad_maturity");

}  // namespace kelvora::test_gonad_maturity

#include "test_gonad_maturity.moc"
