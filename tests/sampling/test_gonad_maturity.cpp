#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "data/csv_reader.h"
#include "data/numbers.h"
#include "sampling/gonad_maturity_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAbstractButton>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QTest>

namespace kelvora::test_gonad_maturity {

const QString kMackerel = u"Rastrelliger kanagurta"_qs;
const QString kGoatfish = u"Upeneus vittatus"_qs;
const QString kGrid = u"Measured fish"_qs;
const QString kBlank = u"||||||||"_qs;

/// The screen in front of a sampler. Both species lie in the catch of operation 1, only the mackerel in that of 2.
struct Entry {
    explicit Entry(int lastSaved = 1) {
        store.addReferenceRows();
        store.addOperation(1, 1, u"2004-03-09"_qs, 1, 120, u"Sea Star"_qs, u"A1"_qs);
        store.addOperation(2, 1, u"2004-04-01"_qs, 3, 80, u"Blue Fin"_qs, u"A2"_qs);
        store.execute("insert into group_main values (1, 1, 'Single species', 30), (1, 2, 'Single species', 10)");
        store.execute("insert into group_composition values (1, 1, 1, 10, 10), (1, 2, 1, 20, 20), (2, 1, 1, 10, 10)");
        store.session.lastSavedOperation = lastSaved;
        openScreen();
    }

    void openScreen() {
        screen = std::make_unique<GonadMaturityScreen>(store.context(), Connection::Patience::Short);
        screen->resize(1340, 590);
        driver = std::make_unique<test::ScreenDriver>(screen.get());
        driver->openTab(u"Gonad Maturity Detail"_qs);
        screen->show();
        screen->activateWindow();
        (void)QTest::qWaitForWindowActive(screen.get());
    }

    void start(const QString& species = kMackerel) const {
        driver->choose(u"Species"_qs, species);
        driver->press(u"ADD SAMPLING >>"_qs);
    }

    /// Keys on the keyboard, wherever it is; "\n" is Enter.
    void keys(const QString& text) const {
        for (const QChar key : text) {
            QWidget* at = screen->focusWidget();
            key == u'\n' ? QTest::keyClick(at, Qt::Key_Return) : QTest::keyClick(at, key.toLatin1());
        }
    }

    void expectNext(bool yes = true) {
        store.dialogs.expectConfirm(u"GONAD"_qs, u"Are you sure to add this sampling"_qs, yes);
    }
    void addFish(const QString& bodyWeight, const QString& gonadWeight = u"12"_qs) {
        expectNext();
        keys(u"152\n130\n141\n128\n"_qs + bodyWeight + u"\nf\n3\n"_qs + gonadWeight + u"\n"_qs);
    }
    void expectSave(bool yes = true) {
        store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure to add this data to database"_qs, yes);
    }
    void save() {
        expectSave();
        driver->press(u"SAVE"_qs);
    }
    void expectDelete(int number, bool yes = true) {
        store.dialogs.expectConfirm(u"Confirm"_qs, u"Are you sure for delete sampling '%1'"_qs.arg(number), yes);
    }
    void import(const QString& path) {
        store.dialogs.expectOpenFile(path);
        driver->press(u"IMPORT"_qs);
    }
    [[nodiscard]] QString file(const QByteArray& bytes) const {
        const QString path = store.file(u"fish.csv"_qs);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write a test's file");
        }
        return path;
    }

    [[nodiscard]] QStringList rows() const { return driver->rows(kGrid); }
    [[nodiscard]] QString weight() const { return driver->text(u"Sampling weight"_qs); }
    QStringList samples() { return store.rows("select optid, spid, samplingw from gonad order by optid, spid"); }
    QStringList storedFish() {
        return store.rows("select spid, samplingno, bw from gonad_detail order by spid, samplingno");
    }
    /// Which buttons can be pressed, as their initials.
    [[nodiscard]] QString open() const {
        QString initials;
        for (const QString& button : {u"ADD SAMPLING >>"_qs, u"NEXT>>"_qs, u"SAVE"_qs, u"CLEAR"_qs, u"IMPORT"_qs}) {
            initials += driver->enabled(button) ? button.first(1) : QString();
        }
        return initials;
    }

    test::TemporaryStore store;
    std::unique_ptr<GonadMaturityScreen> screen;
    std::unique_ptr<test::ScreenDriver> driver;
};

/// The rows of a reference table that belong to a file.
std::vector<QStringList> expectedOf(const QString& table, const QString& file) {
    std::vector<QStringList> found;
    const QString path = QStringLiteral(KELVORA_TEST_FILES "/") + table;
    for (const CsvRecord& record : parseCsv(decodedText(readImportFile(path)))) {
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
        QCOMPARE(entry.open(), u"AC"_qs);
        QVERIFY(!entry.driver->enabled(u"TL(mm)"_qs) && !entry.driver->enabled(u"Stage"_qs));
        entry.start();
        QCOMPARE(entry.open(), u"NCI"_qs);
        for (const QString& caption : {u"TL(mm)"_qs, u"BL(mm)"_qs, u"FL(mm)"_qs, u"SL(mm)"_qs, u"BW"_qs}) {
            QVERIFY2(entry.driver->focused(caption), qPrintable(caption));
            entry.keys(u"15\n"_qs);
        }
        QVERIFY(entry.driver->focused(u"SEX"_qs));
        entry.keys(u"j"_qs);
        QCOMPARE(entry.driver->text(u"SEX"_qs), u"Juvenile"_qs);
        entry.keys(u"mf\n"_qs);
        QVERIFY(entry.driver->focused(u"Stage"_qs));
        entry.keys(u"4"_qs);
        QCOMPARE(entry.driver->text(u"Stage"_qs), u"4-Spawning"_qs);
        entry.keys(u"3\n"_qs);
        QVERIFY(entry.driver->focused(u"GW"_qs));
        entry.expectNext(false);
        entry.keys(u"1.5\n"_qs);
        QCOMPARE(entry.rows(), QStringList{kBlank});

        entry.expectNext();
        entry.keys(u"\n"_qs);
        QCOMPARE(entry.rows(), (QStringList{u"1|15|15|15|15|15|Female|3|1.5"_qs, kBlank}));
        QCOMPARE(entry.weight(), u"0.02"_qs);
        QCOMPARE(entry.open(), u"NSCI"_qs);
        QVERIFY(entry.driver->focused(u"TL(mm)"_qs));
        QCOMPARE(entry.driver->text(u"BW"_qs) + entry.driver->text(u"GW"_qs), QString());
        QCOMPARE(entry.driver->text(u"SEX"_qs), u"Male"_qs);

        // The stage stays; the same digit again stays the same stage; Enter takes both lists as they stand.
        entry.expectNext();
        entry.keys(u"1\n2\n3\n4\n5\n\n3\n6\n"_qs);
        entry.expectNext();
        entry.keys(u"1\n2\n3\n4\n5\n\n\n6\n"_qs);
        QCOMPARE(entry.rows().mid(1), (QStringList{u"2|1|2|3|4|5|Male|3|6"_qs, u"3|1|2|3|4|5|Male|3|6"_qs, kBlank}));
    }

    void longStageNumbers() {
        Entry entry;
        entry.store.execute("insert into gonad_stage values (0, 'Not judged'), (10, 'Resting')");
        entry.openScreen();
        entry.start();
        const auto stage = [&](const QString& keys) {
            entry.driver->field(u"TL(mm)"_qs)->setFocus();
            entry.driver->field(u"Stage"_qs)->setFocus(Qt::TabFocusReason);
            entry.keys(keys);
            return entry.driver->text(u"Stage"_qs);
        };
        QCOMPARE(stage(u"1"_qs), u"1"_qs);  // 10 may still be meant
        QCOMPARE(stage(u"1\n"_qs), u"1-Immature"_qs);
        QCOMPARE(stage(u"10"_qs), u"10-Resting"_qs);
        QCOMPARE(stage(u"0"_qs), u"0-Not judged"_qs);
        QCOMPARE(stage(u"9\n"_qs), QString());
    }

    void tabOrder() {
        const Entry entry;
        entry.start();
        for (const QString& caption :
             {u"TL(mm)"_qs, u"BL(mm)"_qs, u"FL(mm)"_qs, u"SL(mm)"_qs, u"BW"_qs, u"SEX"_qs, u"Stage"_qs, u"GW"_qs}) {
            QVERIFY2(entry.driver->focused(caption), qPrintable(caption));
            QTest::keyClick(entry.screen->focusWidget(), Qt::Key_Tab);
        }
        QVERIFY(entry.screen->focusWidget() == entry.driver->button(u"NEXT>>"_qs));
    }

    void refusals() {
        Entry entry;
        entry.store.dialogs.expectMessage(u"select species"_qs);
        entry.driver->press(u"ADD SAMPLING >>"_qs);
        entry.driver->type(u"Species"_qs, u"no such fish"_qs);
        entry.store.dialogs.expectMessage(u"select species"_qs);
        entry.driver->press(u"ADD SAMPLING >>"_qs);

        entry.start();
        entry.expectNext();
        entry.store.dialogs.expectMessage(u"GONAD"_qs, u"BW must be greater than 0"_qs);
        entry.keys(u"152\n130\n141\n128\n0\nf\n3\n12\n"_qs);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QVERIFY(entry.driver->focused(u"BW"_qs));
        QCOMPARE(entry.driver->text(u"BW"_qs) + entry.driver->text(u"GW"_qs), u"12"_qs);
        QVERIFY(!entry.driver->enabled(u"SAVE"_qs));

        entry.expectNext();
        entry.keys(u"400\n\n\n\n"_qs);
        entry.driver->type(u"Sampling weight"_qs, u"1,5"_qs);
        entry.store.dialogs.expectMessage(u"GONAD"_qs, u"Please input Sampling weight in numeric"_qs);
        entry.driver->press(u"SAVE"_qs);
        QCOMPARE(entry.weight(), u"0.40"_qs);
        entry.expectSave(false);
        entry.driver->press(u"SAVE"_qs);
        QCOMPARE(entry.samples(), QStringList());
        QCOMPARE(entry.rows().size(), 2);

        entry.driver->type(u"Species"_qs, u"no such fish"_qs);
        entry.store.dialogs.expectMessage(u"select species"_qs);
        entry.driver->press(u"SAVE"_qs);
    }

    void deleting() {
        Entry entry;
        entry.start();
        for (const auto* weight : {u"100", u"200", u"300"}) {
            entry.addFish(QString::fromUtf16(weight));
        }
        Grid* grid = entry.driver->grid(kGrid);
        const auto doubleClick = [grid](int row) { Q_EMIT grid->doubleClicked(grid->model()->index(row, 3)); };
        doubleClick(3);  // the blank row
        entry.expectDelete(2, false);
        doubleClick(1);
        QCOMPARE(entry.rows().size(), 4);
        entry.expectDelete(2);
        doubleClick(1);
        QCOMPARE(entry.rows(), (QStringList{u"1|152|130|141|128|100|Female|3|12"_qs,
                                            u"2|152|130|141|128|300|Female|3|12"_qs, kBlank}));
        QCOMPARE(entry.weight(), u"0.40"_qs);

        // The selected row with the Delete key, down to the last fish.
        grid->setCurrentRow(1);
        entry.expectDelete(2);
        entry.driver->key(kGrid, Qt::Key_Delete);
        entry.expectDelete(1);
        entry.driver->key(kGrid, Qt::Key_Delete);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QVERIFY(!grid->isEnabled());
        QCOMPARE(entry.weight(), u"0.00"_qs);
        entry.store.dialogs.expectMessage(u"There is no fish in the grid. Nothing was stored."_qs);
        entry.driver->press(u"SAVE"_qs);
        QCOMPARE(entry.samples(), QStringList());
        entry.addFish(u"50"_qs);
        QVERIFY(grid->isEnabled());
    }

    void saving() {
        Entry entry;
        entry.store.execute("insert into gonad values (1, 1, 2), (1, 2, 5), (2, 1, 7)");
        entry.store.execute(
            "insert into gonad_detail(optid, spid, samplingno) values (1, 1, 1), (1, 1, 2), (1, 2, 1), (2, 1, 1)");
        entry.start();
        entry.addFish(u"400"_qs, u"12"_qs);
        entry.addFish(u"300"_qs, u"10"_qs);
        entry.save();
        QCOMPARE(entry.samples(), (QStringList{u"1|1|2.7"_qs, u"1|2|5"_qs, u"2|1|7"_qs}));
        QCOMPARE(entry.store.rows("select * from gonad_detail where bw > 0"),
                 (QStringList{u"1|1|3|152|130|141|128|400|Female|3|12|3"_qs,
                              u"1|1|4|152|130|141|128|300|Female|3|10|3.33333333333333"_qs}));
        QCOMPARE(entry.open(), u"C"_qs);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QCOMPARE(entry.driver->text(u"Species"_qs) + entry.weight(), u"0"_qs);
        QVERIFY(entry.driver->focused(u"Species"_qs) && !entry.driver->enabled(u"TL(mm)"_qs));

        // The sampler's own weight, of a species without a stored sample; no stage chosen.
        entry.store.execute("delete from gonad where spid = 2");
        entry.store.execute("delete from gonad_detail where spid = 2");
        entry.start(kGoatfish);
        entry.driver->list(u"Stage"_qs)->setText({});
        entry.expectNext();
        entry.keys(u"1\n2\n3\n4\n5\n\n\n6\n"_qs);
        entry.driver->type(u"Sampling weight"_qs, u" 3.25 "_qs);
        entry.save();
        QCOMPARE(entry.samples(), (QStringList{u"1|1|2.7"_qs, u"1|2|3.25"_qs, u"2|1|7"_qs}));
        QCOMPARE(entry.store.rows("select * from gonad_detail where spid = 2"),
                 QStringList{u"1|2|1|1|2|3|4|5|Male|0|6|120"_qs});
    }

    void clearing() {
        Entry entry;
        entry.start();
        entry.addFish(u"400"_qs);
        entry.keys(u"15"_qs);
        entry.driver->press(u"CLEAR"_qs);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QCOMPARE(entry.driver->text(u"Species"_qs) + entry.driver->text(u"TL(mm)"_qs) + entry.weight(), u"0"_qs);
        QCOMPARE(entry.open(), u"AC"_qs);
        QVERIFY(!entry.driver->enabled(u"TL(mm)"_qs));
    }

    /// The data file refuses the third fish: what is stored leaves the grid, and the rest is stored once.
    void interruptedSave() {
        Entry entry;
        entry.store.execute("insert into gonad values (1, 1, 2)");
        entry.start();
        for (const auto* weight : {u"100", u"200", u"300", u"400"}) {
            entry.addFish(QString::fromUtf16(weight));
        }
        entry.store.execute(
            "create trigger refuse before insert on gonad_detail when new.samplingno = 3 "
            "begin select raise(abort, 'no'); end");
        entry.expectSave();
        entry.store.dialogs.expectMessageContaining(u"2 of 4 fish are stored"_qs);
        entry.driver->press(u"SAVE"_qs);
        QCOMPARE(entry.samples(), QStringList{u"1|1|3"_qs});
        QCOMPARE(entry.storedFish(), (QStringList{u"1|1|100"_qs, u"1|2|200"_qs}));
        QCOMPARE(entry.rows(), (QStringList{u"1|152|130|141|128|300|Female|3|12"_qs,
                                            u"2|152|130|141|128|400|Female|3|12"_qs, kBlank}));
        QCOMPARE(entry.weight(), u"1.00"_qs);
        QVERIFY(!entry.driver->enabled(u"Species"_qs));  // the rest is of the same species

        entry.expectSave();
        entry.store.dialogs.expectMessageContaining(u"2 of 4 fish are stored"_qs);
        entry.driver->press(u"SAVE"_qs);
        QCOMPARE(entry.samples(), QStringList{u"1|1|3"_qs});

        // A fish more and a fish less before it works again.
        entry.addFish(u"500"_qs);
        entry.expectDelete(1);
        entry.driver->grid(kGrid)->setCurrentRow(0);
        entry.driver->key(kGrid, Qt::Key_Delete);
        QCOMPARE(entry.weight(), u"1.20"_qs);
        entry.store.execute("drop trigger refuse");
        entry.save();
        QCOMPARE(entry.samples(), QStringList{u"1|1|3.2"_qs});
        QCOMPARE(entry.storedFish(), (QStringList{u"1|1|100"_qs, u"1|2|200"_qs, u"1|3|400"_qs, u"1|4|500"_qs}));
        QVERIFY(entry.driver->enabled(u"Species"_qs));

        // Nothing of it is left over for the next sample.
        entry.start(kGoatfish);
        entry.addFish(u"250"_qs);
        entry.save();
        QCOMPARE(entry.samples(), (QStringList{u"1|1|3.2"_qs, u"1|2|0.25"_qs}));
    }

    void saveThatNeverBegan_data() {
        QTest::addColumn<bool>("locked");
        QTest::newRow("locked by another program") << true;
        QTest::newRow("weight refused") << false;
    }
    void saveThatNeverBegan() {
        QFETCH(bool, locked);
        Entry entry;
        entry.start();
        entry.addFish(u"100"_qs);
        if (locked) {
            entry.store.execute("begin immediate");
        } else {
            entry.store.execute("create trigger refuse before insert on gonad begin select raise(abort, 'no'); end");
        }
        entry.expectSave();
        entry.store.dialogs.expectMessageContaining(u"0 of 1 fish are stored: "_qs);
        entry.driver->press(u"SAVE"_qs);
        if (locked) {
            entry.store.execute("rollback");
        } else {
            entry.store.execute("drop trigger refuse");
        }
        QCOMPARE(entry.rows().size(), 2);
        QCOMPARE(entry.samples(), QStringList());
        // Nothing is stored of it, so it may still turn out to be another species.
        entry.driver->choose(u"Species"_qs, kGoatfish);
        entry.save();
        QCOMPARE(entry.samples(), QStringList{u"1|2|0.1"_qs});
        QCOMPARE(entry.storedFish(), QStringList{u"2|1|100"_qs});
    }

    /// An operation that is deleted on another screen gets no fish: the next operation would inherit them.
    void deletedOperation() {
        Entry entry;
        entry.start();
        entry.addFish(u"100"_qs);
        entry.store.execute("delete from fishoperation where optid = 1");
        entry.expectSave();
        entry.store.dialogs.expectMessageContaining(u"fishing operation no. 1 has been deleted"_qs);
        entry.driver->press(u"SAVE"_qs);
        QCOMPARE(entry.samples() + entry.storedFish(), QStringList());
        QCOMPARE(entry.rows().size(), 2);
    }

    /// Fish belong to the catch they were measured from, however the operation is left.
    void changedOperation() {
        Entry entry(0);
        const auto find = [&] {
            entry.driver->choose(u"Criterion"_qs, u"Sampling Port"_qs);
            entry.driver->choose(u"Value"_qs, u"Abo"_qs);
            entry.driver->press(u"Search"_qs);
        };
        find();
        QCOMPARE(entry.driver->list(u"Species"_qs)->count(), 2);
        entry.start();
        entry.addFish(u"100"_qs);
        entry.store.execute("create trigger refuse before insert on gonad_detail begin select raise(abort, 'no'); end");
        entry.expectSave();
        entry.store.dialogs.expectMessageContaining(u"0 of 1 fish are stored: "_qs);
        entry.driver->press(u"SAVE"_qs);
        entry.store.execute("drop trigger refuse");

        entry.driver->move(u"Result"_qs, u"Next"_qs);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QCOMPARE(entry.driver->list(u"Species"_qs)->count(), 1);
        QCOMPARE(entry.open(), u"AC"_qs);
        entry.start();
        entry.addFish(u"300"_qs);
        entry.save();
        QCOMPARE(entry.samples(), (QStringList{u"1|1|0.1"_qs, u"2|1|0.3"_qs}));

        entry.start();
        entry.addFish(u"300"_qs);
        entry.driver->choose(u"Criterion"_qs, u"Vessel"_qs);
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QCOMPARE(entry.driver->list(u"Species"_qs)->count(), 0);
        QCOMPARE(entry.open(), u"AC"_qs);
    }

    void importing() {
        Entry entry;
        entry.start();
        entry.addFish(u"100"_qs);
        const QStringList before = entry.rows();
        entry.store.dialogs.expectOpenFile(std::nullopt);
        entry.driver->press(u"IMPORT"_qs);
        QCOMPARE(entry.rows(), before);
        const auto importOf = [&](const QByteArray& bytes, const QString& title, const QString& text) {
            const QString path = entry.file(bytes);
            entry.store.dialogs.expectOpenFile(path);
            entry.store.dialogs.expectMessage(title, text);
            entry.driver->press(u"IMPORT"_qs);
            QCOMPARE(entry.rows(), before);
            QCOMPARE(entry.weight(), u"0.10"_qs);
        };
        importOf({}, u"Kelvora"_qs, u"No data in this file"_qs);
        importOf("a,b,c,d,e,f,g,h\n1,2,3,4,5,6,7,8\n", u"ERROR"_qs, u"Error File Format"_qs);
        importOf("TL,BL,FL,SL,BW,SEX,Stage,GW\n1,2,3,4,5,F,1,8\n1,2\n", u"ERROR"_qs, u"Error File Format"_qs);
        for (const QString& path : {entry.store.file(u"missing.csv"_qs), QFileInfo(entry.store.path()).path()}) {
            entry.store.dialogs.expectOpenFile(path);
            entry.store.dialogs.expectMessageContaining(u"The file cannot be read"_qs);
            entry.driver->press(u"IMPORT"_qs);
            QCOMPARE(entry.rows(), before);
        }

        entry.import(entry.file("TL,BL,FL,SL,BW,Sex,Stage,GW\n1,2,3,4,250,F,3-Ripe,8\n,,,,x,J,,\n"));
        QCOMPARE(entry.rows(), (QStringList{u"1|1|2|3|4|250|Female|3-Ripe|8"_qs, u"2|||||x|None||"_qs, kBlank}));
        QCOMPARE(entry.weight(), u"0.25"_qs);
        QCOMPARE(entry.open(), u"NSCI"_qs);
        entry.addFish(u"50"_qs);
        QCOMPARE(entry.rows()[2], u"3|152|130|141|128|50|Female|3|12"_qs);
        entry.save();
        QCOMPARE(entry.store.rows("select samplingno,tl,bl,fl,sl,bw,sex,stage,gw,gsi from gonad_detail"),
                 (QStringList{u"1|1|2|3|4|250|Female|3|8|3.2"_qs, u"2|0|0|0|0|0|None|0|0|null"_qs,
                              u"3|152|130|141|128|50|Female|3|12|24"_qs}));

        // A header alone: a sample of no fish yet.
        entry.start();
        entry.import(entry.file("TL,BL,FL,SL,BW,SEX,Stage,GW\n"));
        QCOMPARE(entry.rows(), QStringList{kBlank});
        QCOMPARE(entry.open(), u"NSCI"_qs);
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
        entry.import(QStringLiteral(KELVORA_TEST_FILES "/") + file);
        entry.save();

        const QStringList summary = expectedOf(u"gonad_summary.csv"_qs, file).at(0);
        QCOMPARE(entry.store.rows("select count(*), sum(sex = 'Female'), sum(sex = 'Male'), sum(sex = 'None'),"
                                  " sum(gsi is null), count(gsi) from gonad_detail"),
                 QStringList{(summary.mid(1, 5) + summary.mid(7, 1)).join(u'|')});
        const QStringList stages = entry.store.rows("select stage, count(*) from gonad_detail group by stage");
        QCOMPARE(stages.join(u' ').replace(u'|', u':'), summary.at(13));
        QCOMPARE(entry.store.rows("select printf('%.10g|%.10g', min(gsi), max(gsi)) from gonad_detail"),
                 QStringList{QString::asprintf("%.10g|%.10g", summary.at(11).toDouble(), summary.at(12).toDouble())});
        QCOMPARE(entry.samples(),
                 QStringList{u"1|1|"_qs + plainText(twoDecimals(summary.at(14).toDouble() / 1000).toDouble())});

        QStringList everyFish;
        for (const QStringList& fish : expectedOf(u"gonad_gsi_every_fish.csv"_qs, file)) {
            everyFish.append(fish.mid(1).join(u'|'));
        }
        const QStringList stored = entry.store.rows("select samplingno, sex, stage, bw, gw, gsi from gonad_detail");
        QVERIFY(everyFish.isEmpty() || everyFish == stored);
        // The two other files hold no gonad weights.
        QCOMPARE(everyFish.isEmpty(), entry.store.rows("select max(gw) from gonad_detail") == QStringList{u"0"_qs});
    }
};

KELVORA_TEST(TestGonadMaturity, "gonad_maturity");

}  // namespace kelvora::test_gonad_maturity

#include "test_gonad_maturity.moc"
