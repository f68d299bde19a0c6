#include "controls/captioned_grid.h"
#include "search_window.h"

#include <algorithm>

namespace kelvora::test_corrections {

const QString kLengths = u"Length Frequency"_qs;
const QString kGonads = u"Gonad Matuarity"_qs;
const QString kClasses = u"Length classes"_qs;
const QString kFish = u"Measured fish"_qs;
const QString kWeight = u"Sample weight (kg.)"_qs;

struct Samples : test::SearchWindow {
    explicit Samples(const QString& tab = u"Species Composition"_qs) { openTab(tab); }

    [[nodiscard]] QStringList rows(const QString& grid) const { return hand->rows(grid); }
    /// The captions of a grid's columns.
    [[nodiscard]] QString headers(const QString& grid) const { return hand->grid(grid)->headers().join(u'|'); }

    void typeFish(const QString& tl, const QString& bw) const {
        for (const auto& [field, text] : {std::pair{u"TL(mm)"_qs, tl},
                                          {u"BL(mm)"_qs, u"190"_qs},
                                          {u"FL(mm)"_qs, u"190"_qs},
                                          {u"SL(mm)"_qs, u"190"_qs},
                                          {u"BW"_qs, bw},
                                          {u"GW"_qs, u"10"_qs}}) {
            hand->type(field, text);
        }
    }
    void addFish(bool yes = true, const QString& problem = {}) {
        store.dialogs.expectConfirm(u"GONAD"_qs, u"Are you sure to add this sampling"_qs, yes);
        if (!problem.isEmpty()) {
            store.dialogs.expectMessageContaining(problem);
        }
        hand->press(u"ADD"_qs);
    }
};

class TestCorrections : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void composition() {
        Samples samples;
        QCOMPARE(samples.headers(u"Composition"_qs), u"Species|Composition|%Composition"_qs);
        QCOMPARE(samples.rows(u"Composition"_qs),
                 (QStringList{u"Nemipterus virgatus|60.00|60.00"_qs, u"Rastrelliger kanagurta|30.00|30.00"_qs,
                              u"Upeneus vittatus|10.00|10.00"_qs}));
        QCOMPARE(samples.caption(u"Group record"_qs), u"Record 1/2 Single species [Total weight 40 kg.]"_qs);
        QCOMPARE(samples.headers(u"Group"_qs), u"Species|Total weight(kg.)|Estimate total catch(kg.)"_qs);
        QCOMPARE(samples.rows(u"Group"_qs),
                 (QStringList{u"Rastrelliger kanagurta|30.00|30.00"_qs, u"Upeneus vittatus|10.00|10.00"_qs}));
        samples.hand->move(u"Group record"_qs, u"Last"_qs);
        QCOMPARE(samples.caption(u"Group record"_qs), u"Record 2/2 Trash [Total weight 200 kg.]"_qs);
        QCOMPARE(samples.rows(u"Group"_qs), QStringList{u"Nemipterus virgatus|4.00|60.00"_qs});

        for (const QStringList& left :
             {QStringList{u"Rastrelliger kanagurta|30.00|75.00"_qs, u"Upeneus vittatus|10.00|25.00"_qs},
              QStringList{u"||"_qs}}) {
            samples.store.dialogs.expectConfirm(u"Kelvora"_qs, u"Are you sure to delete this group?"_qs, true);
            samples.hand->press(u"Delete group"_qs);
            QCOMPARE(samples.rows(u"Composition"_qs), left);
        }
        QCOMPARE(samples.caption(u"Group record"_qs), u"No data"_qs);
        QCOMPARE(samples.headers(u"Group"_qs), u"Species|Sampling weight(kg.)|Estimate total catch(kg.)"_qs);
        QVERIFY(!samples.hand->enabled(u"Delete group"_qs));
    }

    void deletions_data() {
        QTest::addColumn<QString>("tab");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("question");
        QTest::addColumn<QStringList>("rows");   // how the deleted rows begin
        QTest::addColumn<QString>("navigator");  // and where it stands afterwards
        QTest::addColumn<QString>("caption");
        QTest::newRow("group") << u"Species Composition"_qs << u"Delete group"_qs << u"Kelvora"_qs
                               << u"Are you sure to delete this group?"_qs
                               << QStringList{u"group_main|1|1|"_qs, u"group_composition|1|1|1|"_qs,
                                              u"group_composition|1|2|1|"_qs}
                               << u"Group record"_qs << u"Record 1/1 Trash [Total weight 200 kg.]"_qs;
        QTest::newRow("lengths") << kLengths << u"Delete length sample"_qs << u"Kelvora"_qs
                                 << u"Are you sure to delete?"_qs
                                 << QStringList{u"length|1|1|"_qs, u"length_detail|1|1|10|"_qs,
                                                u"length_detail|1|1|12|"_qs}
                                 << u"Length record"_qs << u"Species 1 / 1 Upeneus vittatus"_qs;
        QTest::newRow("fish") << kGonads << u"Delete gonad sample"_qs << u"CONFIRM"_qs << u"Are you sure to delete?"_qs
                              << QStringList{u"gonad|1|1|"_qs, u"gonad_detail|1|1|1|"_qs, u"gonad_detail|1|1|2|"_qs,
                                             u"gonad_detail|1|1|3|"_qs, u"gonad_detail|1|1|4|"_qs}
                              << u"Gonad record"_qs << u"Species1/1 Nemipterus virgatus"_qs;
    }
    void deletions() {
        QFETCH(QString, tab);
        QFETCH(QString, button);
        QFETCH(QString, title);
        QFETCH(QString, question);
        QFETCH(QStringList, rows);
        QFETCH(QString, navigator);
        Samples samples(tab);
        const QStringList all = samples.store.wholeFile();
        samples.store.dialogs.expectConfirm(title, question, false);
        samples.hand->press(button);
        QCOMPARE(samples.store.wholeFile(), all);

        // Either all rows go or none, and no transaction is left open: another connection can write.
        samples.store.execute("create trigger g before delete on group_composition begin select raise(abort, ''); end");
        samples.store.execute("create trigger l before delete on length_detail begin select raise(abort, ''); end");
        samples.store.execute("create trigger f before delete on gonad_detail begin select raise(abort, ''); end");
        samples.store.dialogs.expectConfirm(title, question, true);
        samples.store.dialogs.expectMessageContaining(u"delete from"_qs);
        samples.hand->press(button);
        QCOMPARE(samples.store.wholeFile(), all);
        samples.store.execute("drop trigger g");
        samples.store.execute("drop trigger l");
        samples.store.execute("drop trigger f");

        samples.store.dialogs.expectConfirm(title, question, true);
        samples.hand->press(button);
        QStringList expected = all;
        expected.removeIf([&](const QString& line) {
            return std::ranges::any_of(rows, [&](const QString& row) { return line.startsWith(row); });
        });
        QCOMPARE(expected.size(), all.size() - rows.size());
        QCOMPARE(samples.store.wholeFile(), expected);
        QTEST(samples.caption(navigator), "caption");
    }

    void lengthSample() {
        const Samples samples(kLengths);
        QCOMPARE(samples.caption(u"Length record"_qs), u"Species 1 / 2 Rastrelliger kanagurta"_qs);
        QCOMPARE(samples.hand->text(kWeight), u"2.5"_qs);
        QCOMPARE(samples.hand->text(u"Class Interval"_qs), u"2"_qs);
        QCOMPARE(samples.headers(kClasses), u"Lower(cm.)|Upper(cm.)|Mid-length(cm.)|Frequency"_qs);
        QCOMPARE(samples.rows(kClasses), (QStringList{u"10|12|11|3"_qs, u"12|14|13|7"_qs}));
        QCOMPARE(samples.hand->text(u"Next class"_qs), u"14-16"_qs);

        // A sample without classes has no class to go on from, whatever the species before it had.
        samples.hand->move(u"Length record"_qs, u"Next"_qs);
        QCOMPARE(samples.caption(u"Length record"_qs), u"Species 2 / 2 Upeneus vittatus"_qs);
        QCOMPARE(samples.rows(kClasses), QStringList{u"|||"_qs});
        QVERIFY(samples.hand->text(u"Next class"_qs).startsWith(u"none"));
        QVERIFY(!samples.hand->enabled(u"ADD"_qs) && !samples.hand->enabled(u"Frequency"_qs));
    }

    void nextClass() {
        Samples samples(kLengths);
        for (const QString& wrong : {u""_qs, u"abc"_qs, u"1,5"_qs, u"-1"_qs}) {
            samples.hand->type(u"Frequency"_qs, wrong);
            samples.store.dialogs.expectMessage(u"ERROR"_qs, u"Numeric Only"_qs);
            samples.hand->press(u"ADD"_qs);
            QCOMPARE(samples.hand->text(u"Frequency"_qs), QString());
        }
        samples.hand->type(u"Frequency"_qs, u"5"_qs);
        samples.hand->press(u"ADD"_qs);
        QCOMPARE(samples.rows(kClasses).last(), u"14|16|15|5"_qs);
        QCOMPARE(samples.hand->text(u"Next class"_qs), u"16-18"_qs);
        QCOMPARE(samples.hand->text(u"Frequency"_qs), QString());
        // A count of 0 is a count; Enter adds as the button does.
        samples.hand->type(u"Frequency"_qs, u"0"_qs);
        samples.hand->key(u"Frequency"_qs, Qt::Key_Return);
        QCOMPARE(samples.store.rows("select * from length_detail where lower1 > 12"),
                 (QStringList{u"1|1|14|16|15|5"_qs, u"1|1|16|18|17|0"_qs}));
        QCOMPARE(samples.hand->text(u"Next class"_qs), u"18-20"_qs);

        samples.store.execute("update fish set classinterval = null");
        for (int interval = 0; interval < 2; ++interval) {
            samples.openTab(kLengths);
            QVERIFY(samples.hand->text(u"Next class"_qs).contains(u"interval"_qs));
            QVERIFY(!samples.hand->enabled(u"ADD"_qs));
            samples.store.execute("update fish set classinterval = 0");
        }
    }

    void lengthWeight() {
        Samples samples(kLengths);
        const auto stored = [&] { return samples.store.rows("select weight from length order by spid").join(u' '); };
        for (const QString& wrong : {u"-1"_qs, u"1e999"_qs}) {
            samples.hand->type(kWeight, wrong);
            samples.store.dialogs.expectMessageContaining(u"not below 0"_qs);
            samples.hand->press(u"Update"_qs);
            QCOMPARE(samples.hand->text(kWeight), wrong);
        }
        QCOMPARE(stored(), u"2.5 1"_qs);
        for (const auto& [typed, weight] :
             {std::pair{u"3.25"_qs, u"3.25"_qs}, {u"4 kg"_qs, u"4"_qs}, {u"O'Hara"_qs, u"0"_qs}}) {
            samples.hand->type(kWeight, typed);
            samples.store.dialogs.expectMessage(u"RESULT"_qs, u"Update complete!"_qs);
            samples.hand->press(u"Update"_qs);
            QCOMPARE(stored(), weight + u" 1"_qs);
            QCOMPARE(samples.hand->text(kWeight), weight);
        }
    }

    void gonadSample() {
        const Samples samples(kGonads);
        QCOMPARE(samples.caption(u"Gonad record"_qs), u"Species1/2 Rastrelliger kanagurta"_qs);
        QCOMPARE(samples.hand->text(u"Sampling weight"_qs), u"0.4"_qs);
        QCOMPARE(samples.headers(kFish), u"No.|TL(cm)|BL(cm)|FL(cm)|SL(cm)|BW(g)|SEX|STAGE|GW(g)|GSI"_qs);
        QCOMPARE(
            samples.rows(kFish),
            (QStringList{u"1|210|200|205|190|200.00|Male|2|12|6.00"_qs, u"2|210|200|205|190|200.00|Female|3|12|6.00"_qs,
                         u"3|210|200|205|190|200.00|None|0|12|"_qs, u"4|210.5|200|205|190|300.13|Male|2|10|3.33"_qs}));
        samples.hand->move(u"Gonad record"_qs, u"Next"_qs);
        QCOMPARE(samples.caption(u"Gonad record"_qs), u"Species2/2 Nemipterus virgatus"_qs);
        QCOMPARE(samples.rows(kFish), QStringList{u"|||||||||"_qs});
        QVERIFY(samples.hand->enabled(u"TL(mm)"_qs));
    }

    void newFish() {
        Samples samples(kGonads);
        const QStringList all = samples.store.wholeFile();
        samples.typeFish(u"215"_qs, u"200"_qs);
        samples.hand->choose(u"SEX"_qs, u"Juvenile"_qs);
        samples.hand->choose(u"Stage"_qs, u"3-Ripe"_qs);
        samples.addFish(false);
        QCOMPARE(samples.store.wholeFile(), all);
        samples.addFish();
        QStringList added = samples.store.wholeFile();
        QCOMPARE(added.removeAll(u"gonad_detail|1|1|5|215|190|190|190|200|Juvenile|3|10|5"_qs), 1);
        QCOMPARE(added, all);
        QCOMPARE(samples.rows(kFish).last(), u"5|215|190|190|190|200.00|Juvenile|3|10|5.00"_qs);
        QCOMPARE(samples.hand->text(u"TL(mm)"_qs), QString());

        // A fish without a stage has stage 0; the first one of a sample is number 1.
        samples.hand->move(u"Gonad record"_qs, u"Next"_qs);
        samples.typeFish(u"1.5"_qs, u"300"_qs);
        samples.hand->type(u"Stage"_qs, QString());
        samples.addFish();
        QCOMPARE(samples.store.rows("select * from gonad_detail where spid = 3"),
                 QStringList{u"1|3|1|1.5|190|190|190|300|Male|0|10|3.33333333333333"_qs});
    }

    /// A wrong measurement leaves its field; a fish that could not be stored stays in all of them.
    void refusedFish() {
        Samples samples(kGonads);
        const QStringList all = samples.store.wholeFile();
        for (const auto& [field, message] : {std::pair{u"BW"_qs, u"BW must be greater than 0"_qs},
                                             {u"FL(mm)"_qs, u"Please input FL in numeric"_qs},
                                             {u"TL(mm)"_qs, u"Please input TL in numeric"_qs}}) {
            samples.typeFish(u"215"_qs, u"200"_qs);
            samples.hand->type(field, field == u"BW" ? u"0"_qs : u"', '"_qs);
            samples.store.dialogs.expectConfirm(u"GONAD"_qs, u"Are you sure to add this sampling"_qs, true);
            samples.store.dialogs.expectMessage(u"GONAD"_qs, message);
            samples.hand->press(u"ADD"_qs);
            QCOMPARE(samples.hand->text(field), QString());
            QVERIFY(samples.hand->focused(field));
        }
        samples.hand->type(u"TL(mm)"_qs, u"215"_qs);
        samples.store.execute(
            "create trigger refuse before insert on gonad_detail begin select raise(abort, 'no'); end");
        samples.addFish(true, u"gonad_detail"_qs);
        QCOMPARE(samples.hand->text(u"TL(mm)"_qs), u"215"_qs);
        samples.store.execute("drop trigger refuse");
        QCOMPARE(samples.store.wholeFile(), all);
        samples.addFish();
        QCOMPARE(samples.rows(kFish).size(), 5);
    }

    /// An operation without samples, and none at all: nothing of the one before stays, and nothing can be pressed.
    void emptyTabs() {
        const Samples samples;
        samples.move(u"Next"_qs);
        for (const bool found : {true, false}) {
            QCOMPARE(samples.rows(u"Composition"_qs) + samples.rows(u"Group"_qs), (QStringList{u"||"_qs, u"||"_qs}));
            QCOMPARE(samples.rows(kClasses) + samples.rows(kFish), (QStringList{u"|||"_qs, u"|||||||||"_qs}));
            QCOMPARE(samples.caption(u"Group record"_qs), found ? u"No data"_qs : QString());
            QCOMPARE(samples.caption(u"Length record"_qs) + samples.caption(u"Gonad record"_qs), QString());
            for (const QString& field : {kWeight, u"Class Interval"_qs, u"Sampling weight"_qs, u"TL(mm)"_qs}) {
                QCOMPARE(samples.hand->text(field), QString());
            }
            for (const QString& control : {u"Delete group"_qs, u"Update"_qs, kWeight, u"Delete gonad sample"_qs,
                                           u"TL(mm)"_qs, u"SEX"_qs, u"Stage"_qs, u"GW"_qs}) {
                QVERIFY2(!samples.hand->enabled(control), qPrintable(control));
            }
            QVERIFY(!samples.shows(u"Delete length sample"_qs));
            samples.hand->openTab(kGonads);
            QVERIFY(!samples.hand->enabled(u"ADD"_qs));
            samples.openTab();
            samples.hand->type(u"Value"_qs, u"nowhere"_qs);
            samples.hand->press(u"SEARCH"_qs);
        }
    }

    /// A sample, or the whole operation, that another program deleted is not added to: its rows would be nobody's.
    void deletedElsewhere() {
        Samples samples(kLengths);
        samples.store.execute("delete from length where spid = 1");
        samples.store.execute("delete from length_detail");
        samples.hand->type(u"Frequency"_qs, u"5"_qs);
        samples.store.dialogs.expectMessageContaining(u"This sample is not stored any more"_qs);
        samples.hand->press(u"ADD"_qs);
        QCOMPARE(samples.store.rows("select * from length_detail"), QStringList());
        QCOMPARE(samples.caption(u"Length record"_qs), u"Species 1 / 1 Upeneus vittatus"_qs);

        samples.hand->openTab(kGonads);
        samples.store.execute("delete from fishoperation where optid = 1");
        samples.typeFish(u"215"_qs, u"200"_qs);
        samples.addFish(true, u"Operation No. 1 is not found any more"_qs);
        QCOMPARE(samples.store.rows("select count(*) from gonad_detail"), QStringList{u"4"_qs});
        QCOMPARE(samples.number(), u"2"_qs);
    }

    /// Samples that cannot be read are not shown under another operation's.
    void failedLoad() {
        Samples samples;
        samples.store.execute("alter table gonad rename to elsewhere");
        samples.store.dialogs.expectMessageContaining(u"gonad"_qs);
        samples.move(u"Next"_qs);
        QCOMPARE(samples.number() + samples.caption(u"Gonad record"_qs), QString());
        QCOMPARE(samples.rows(u"Composition"_qs), QStringList{u"||"_qs});
        QVERIFY(!samples.shows(u"DELETE"_qs));
        samples.store.execute("alter table elsewhere rename to gonad");
        samples.move(u"Previous"_qs);
        QCOMPARE(samples.number(), u"1"_qs);
    }

    void hostileNames() {
        const QString hostile = u"O'Hara's '); drop table fish; -- 100 % %1 %2 \\ \"x\" [y] &z ปลาทู 鯖 <b>Å</b>"_qs;
        for (const QString& name : {hostile, QString(10'000, u'W')}) {
            Samples samples;
            Connection& db = samples.store.db();
            db.execute(Sql("update fish set fishname = ") << name << " where fishno = 1");
            db.execute(Sql("update group_main set groupname = ") << name << " where groupid = 2");
            db.execute(Sql("update vessel set vesselname = ") << name << " where vesselname = 'Sea Star'");
            db.execute(Sql("update fishing_area set aname = ") << name << " where aname = 'A1'");
            db.execute(Sql("update fishoperation set vesselid = ")
                       << name << ", areaid = " << name << ", note = " << name << " where optid = 1");
            samples.find(u"Fishing Area"_qs, u"north bank"_qs);
            QCOMPARE(samples.hand->text(u"Note"_qs), name);
            samples.find(u"Vessel"_qs, name);
            QCOMPARE(samples.hand->text(u"Vessel Name"_qs), name);
            samples.hand->move(u"Group record"_qs, u"Last"_qs);
            QCOMPARE(samples.caption(u"Group record"_qs), u"Record 2/2 "_qs + name + u" [Total weight 200 kg.]"_qs);
            QCOMPARE(samples.caption(u"Length record"_qs), u"Species 1 / 2 Rastrelliger "_qs + name);
            QCOMPARE(samples.caption(u"Gonad record"_qs), u"Species1/2 Rastrelliger "_qs + name);
            const QSize least = samples.screen->minimumSizeHint();
            QVERIFY2(least.width() <= 1340 && least.height() <= 590, "the screen outgrows the main window");
        }
    }
};

KELVORA_TEST(TestCorrections, "corrections");

}  // namespace kelvora::test_corrections

#include "test_corrections.moc"
