#include "controls/captioned_grid.h"
#include "search_window.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora::test_corrections {

const QString kLengths = u"Length Frequency"_s;
const QString kGonads = u"Gonad Matuarity"_s;
const QString kClasses = u"Length classes"_s;
const QString kFish = u"Measured fish"_s;
const QString kWeight = u"Sample weight (kg.)"_s;

struct Samples : test::SearchWindow {
    explicit Samples(const QString& tab = u"Species Composition"_s) { openTab(tab); }

    [[nodiscard]] QStringList rows(const QString& grid) const { return hand->rows(grid); }
    /// The captions of a grid's columns.
    [[nodiscard]] QString headers(const QString& grid) const { return hand->grid(grid)->headers().join(u'|'); }

    void typeFish(const QString& tl, const QString& bw) const {
        for (const auto& [field, text] : {std::pair{u"TL(mm)"_s, tl},
                                          {u"BL(mm)"_s, u"190"_s},
                                          {u"FL(mm)"_s, u"190"_s},
                                          {u"SL(mm)"_s, u"190"_s},
                                          {u"BW"_s, bw},
                                          {u"GW"_s, u"10"_s}}) {
            hand->type(field, text);
        }
    }
    void addFish(bool yes = true, const QString& problem = {}) {
        store.dialogs.expectConfirm(u"GONAD"_s, u"Are you sure to add this sampling"_s, yes);
        if (!problem.isEmpty()) {
            store.dialogs.expectMessageContaining(problem);
        }
        hand->press(u"ADD"_s);
    }
};

class TestCorrections : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void composition() {
        Samples samples;
        QCOMPARE(samples.headers(u"Composition"_s), u"Species|Composition|%Composition"_s);
        QCOMPARE(samples.rows(u"Composition"_s),
                 (QStringList{u"Nemipterus virgatus|60.00|60.00"_s, u"Rastrelliger kanagurta|30.00|30.00"_s,
                              u"Upeneus vittatus|10.00|10.00"_s}));
        QCOMPARE(samples.caption(u"Group record"_s), u"Record 1/2 Single species [Total weight 40 kg.]"_s);
        QCOMPARE(samples.headers(u"Group"_s), u"Species|Total weight(kg.)|Estimate total catch(kg.)"_s);
        QCOMPARE(samples.rows(u"Group"_s),
                 (QStringList{u"Rastrelliger kanagurta|30.00|30.00"_s, u"Upeneus vittatus|10.00|10.00"_s}));
        samples.hand->move(u"Group record"_s, u"Last"_s);
        QCOMPARE(samples.caption(u"Group record"_s), u"Record 2/2 Trash [Total weight 200 kg.]"_s);
        QCOMPARE(samples.rows(u"Group"_s), QStringList{u"Nemipterus virgatus|4.00|60.00"_s});

        for (const QStringList& left :
             {QStringList{u"Rastrelliger kanagurta|30.00|75.00"_s, u"Upeneus vittatus|10.00|25.00"_s},
              QStringList{u"||"_s}}) {
            samples.store.dialogs.expectConfirm(u"Kelvora"_s, u"Are you sure to delete this group?"_s, true);
            samples.hand->press(u"Delete group"_s);
            QCOMPARE(samples.rows(u"Composition"_s), left);
        }
        QCOMPARE(samples.caption(u"Group record"_s), u"No data"_s);
        QCOMPARE(samples.headers(u"Group"_s), u"Species|Sampling weight(kg.)|Estimate total catch(kg.)"_s);
        QVERIFY(!samples.hand->enabled(u"Delete group"_s));
    }

    void deletions_data() {
        QTest::addColumn<QString>("tab");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("question");
        QTest::addColumn<QStringList>("rows");   // how the deleted rows begin
        QTest::addColumn<QString>("navigator");  // and where it stands afterwards
        QTest::addColumn<QString>("caption");
        QTest::newRow("group") << u"Species Composition"_s << u"Delete group"_s << u"Kelvora"_s
                               << u"Are you sure to delete this group?"_s
                               << QStringList{u"group_main|1|1|"_s, u"group_composition|1|1|1|"_s,
                                              u"group_composition|1|2|1|"_s}
                               << u"Group record"_s << u"Record 1/1 Trash [Total weight 200 kg.]"_s;
        QTest::newRow("lengths") << kLengths << u"Delete length sample"_s << u"Kelvora"_s
                                 << u"Are you sure to delete?"_s
                                 << QStringList{u"length|1|1|"_s, u"length_detail|1|1|10|"_s,
                                                u"length_detail|1|1|12|"_s}
                                 << u"Length record"_s << u"Species 1 / 1 Upeneus vittatus"_s;
        QTest::newRow("fish") << kGonads << u"Delete gonad sample"_s << u"CONFIRM"_s << u"Are you sure to delete?"_s
                              << QStringList{u"gonad|1|1|"_s, u"gonad_detail|1|1|1|"_s, u"gonad_detail|1|1|2|"_s,
                                             u"gonad_detail|1|1|3|"_s, u"gonad_detail|1|1|4|"_s}
                              << u"Gonad record"_s << u"Species1/1 Nemipterus virgatus"_s;
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
        samples.store.dialogs.expectMessageContaining(u"Nothing was stored or deleted"_s);
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
        QCOMPARE(samples.caption(u"Length record"_s), u"Species 1 / 2 Rastrelliger kanagurta"_s);
        QCOMPARE(samples.hand->text(kWeight), u"2.5"_s);
        QCOMPARE(samples.hand->text(u"Class Interval"_s), u"2"_s);
        QCOMPARE(samples.headers(kClasses), u"Lower(cm.)|Upper(cm.)|Mid-length(cm.)|Frequency"_s);
        QCOMPARE(samples.rows(kClasses), (QStringList{u"10|12|11|3"_s, u"12|14|13|7"_s}));
        QCOMPARE(samples.hand->text(u"Next class"_s), u"14-16"_s);

        // A sample without classes has no class to go on from, whatever the species before it had.
        samples.hand->move(u"Length record"_s, u"Next"_s);
        QCOMPARE(samples.caption(u"Length record"_s), u"Species 2 / 2 Upeneus vittatus"_s);
        QCOMPARE(samples.rows(kClasses), QStringList{u"|||"_s});
        QVERIFY(samples.hand->text(u"Next class"_s).startsWith(u"none"));
        QVERIFY(!samples.hand->enabled(u"ADD"_s) && !samples.hand->enabled(u"Frequency"_s));
    }

    void nextClass() {
        Samples samples(kLengths);
        for (const QString& wrong : {u""_s, u"abc"_s, u"1,5"_s, u"-1"_s}) {
            samples.hand->type(u"Frequency"_s, wrong);
            samples.store.dialogs.expectMessage(u"ERROR"_s, u"Numeric Only"_s);
            samples.hand->press(u"ADD"_s);
            QCOMPARE(samples.hand->text(u"Frequency"_s), QString());
        }
        samples.hand->type(u"Frequency"_s, u"5"_s);
        samples.hand->press(u"ADD"_s);
        QCOMPARE(samples.rows(kClasses).last(), u"14|16|15|5"_s);
        QCOMPARE(samples.hand->text(u"Next class"_s), u"16-18"_s);
        QCOMPARE(samples.hand->text(u"Frequency"_s), QString());
        // A count of 0 is a count; Enter adds as the button does.
        samples.hand->type(u"Frequency"_s, u"0"_s);
        samples.hand->key(u"Frequency"_s, Qt::Key_Return);
        QCOMPARE(samples.store.rows("select * from length_detail where lower1 > 12"),
                 (QStringList{u"1|1|14|16|15|5"_s, u"1|1|16|18|17|0"_s}));
        QCOMPARE(samples.hand->text(u"Next class"_s), u"18-20"_s);

        samples.store.execute("update fish set classinterval = null");
        for (int interval = 0; interval < 2; ++interval) {
            samples.openTab(kLengths);
            QVERIFY(samples.hand->text(u"Next class"_s).contains(u"interval"_s));
            QVERIFY(!samples.hand->enabled(u"ADD"_s));
            samples.store.execute("update fish set classinterval = 0");
        }
    }

    void lengthWeight() {
        Samples samples(kLengths);
        const auto stored = [&] { return samples.store.rows("select weight from length order by spid").join(u' '); };
        for (const QString& wrong : {u"-1"_s, u"1e999"_s, u"4,75"_s, u"4 kg"_s, QString()}) {
            samples.hand->type(kWeight, wrong);
            samples.store.dialogs.expectMessageContaining(u"not below 0 (decimal point, no comma)"_s);
            samples.hand->press(u"Update"_s);
            QCOMPARE(samples.hand->text(kWeight), wrong);
        }
        QCOMPARE(stored(), u"2.5 1"_s);
        for (const auto& [typed, weight] : {std::pair{u"3.25"_s, u"3.25"_s}, {u" 4.0"_s, u"4"_s}, {u"0"_s, u"0"_s}}) {
            samples.hand->type(kWeight, typed);
            samples.store.dialogs.expectMessage(u"RESULT"_s, u"Update complete!"_s);
            samples.hand->press(u"Update"_s);
            QCOMPARE(stored(), weight + u" 1"_s);
            QCOMPARE(samples.hand->text(kWeight), weight);
        }
    }

    void gonadSample() {
        const Samples samples(kGonads);
        QCOMPARE(samples.caption(u"Gonad record"_s), u"Species1/2 Rastrelliger kanagurta"_s);
        QCOMPARE(samples.hand->text(u"Sampling weight"_s), u"0.4"_s);
        QCOMPARE(samples.headers(kFish), u"No.|TL(cm)|BL(cm)|FL(cm)|SL(cm)|BW(g)|SEX|STAGE|GW(g)|GSI"_s);
        QCOMPARE(
            samples.rows(kFish),
            (QStringList{u"1|210|200|205|190|200.00|Male|2|12|6.00"_s, u"2|210|200|205|190|200.00|Female|3|12|6.00"_s,
                         u"3|210|200|205|190|200.00|None|0|12|"_s, u"4|210.5|200|205|190|300.13|Male|2|10|3.33"_s}));
        samples.hand->move(u"Gonad record"_s, u"Next"_s);
        QCOMPARE(samples.caption(u"Gonad record"_s), u"Species2/2 Nemipterus virgatus"_s);
        QCOMPARE(samples.rows(kFish), QStringList{u"|||||||||"_s});
        QVERIFY(samples.hand->enabled(u"TL(mm)"_s));
    }

    void newFish() {
        Samples samples(kGonads);
        const QStringList all = samples.store.wholeFile();
        samples.typeFish(u"215"_s, u"200"_s);
        samples.hand->choose(u"SEX"_s, u"Juvenile"_s);
        samples.hand->choose(u"Stage"_s, u"3-Ripe"_s);
        samples.addFish(false);
        QCOMPARE(samples.store.wholeFile(), all);
        samples.addFish();
        QStringList added = samples.store.wholeFile();
        QCOMPARE(added.removeAll(u"gonad_detail|1|1|5|215|190|190|190|200|Juvenile|3|10|5"_s), 1);
        QCOMPARE(added, all);
        QCOMPARE(samples.rows(kFish).last(), u"5|215|190|190|190|200.00|Juvenile|3|10|5.00"_s);
        QCOMPARE(samples.hand->text(u"TL(mm)"_s), QString());

        // A fish without a stage has stage 0; the first one of a sample is number 1.
        samples.hand->move(u"Gonad record"_s, u"Next"_s);
        samples.typeFish(u"1.5"_s, u"300"_s);
        samples.hand->type(u"Stage"_s, QString());
        samples.addFish();
        QCOMPARE(samples.store.rows("select * from gonad_detail where spid = 3"),
                 QStringList{u"1|3|1|1.5|190|190|190|300|Male|0|10|3.33333333333333"_s});
    }

    /// A wrong measurement leaves its field; a fish that could not be stored stays in all of them.
    void refusedFish() {
        Samples samples(kGonads);
        const QStringList all = samples.store.wholeFile();
        for (const auto& [field, message] : {std::pair{u"BW"_s, u"BW must be greater than 0"_s},
                                             {u"FL(mm)"_s, u"Please input FL in numeric"_s},
                                             {u"TL(mm)"_s, u"Please input TL in numeric"_s}}) {
            samples.typeFish(u"215"_s, u"200"_s);
            samples.hand->type(field, field == u"BW" ? u"0"_s : u"', '"_s);
            samples.store.dialogs.expectConfirm(u"GONAD"_s, u"Are you sure to add this sampling"_s, true);
            samples.store.dialogs.expectMessage(u"GONAD"_s, message);
            samples.hand->press(u"ADD"_s);
            QCOMPARE(samples.hand->text(field), QString());
            QVERIFY(samples.hand->focused(field));
        }
        samples.hand->type(u"TL(mm)"_s, u"215"_s);
        samples.store.execute(
            "create trigger refuse before insert on gonad_detail begin select raise(abort, 'no'); end");
        samples.addFish(true, u"Nothing was stored or deleted"_s);
        QCOMPARE(samples.hand->text(u"TL(mm)"_s), u"215"_s);
        samples.store.execute("drop trigger refuse");
        QCOMPARE(samples.store.wholeFile(), all);
        samples.addFish();
        QCOMPARE(samples.rows(kFish).size(), 5);
    }

    /// An operation without samples, and none at all: nothing of the one before stays, and nothing can be pressed.
    void emptyTabs() {
        const Samples samples;
        samples.move(u"Next"_s);
        for (const bool found : {true, false}) {
            QCOMPARE(samples.rows(u"Composition"_s) + samples.rows(u"Group"_s), (QStringList{u"||"_s, u"||"_s}));
            QCOMPARE(samples.rows(kClasses) + samples.rows(kFish), (QStringList{u"|||"_s, u"|||||||||"_s}));
            QCOMPARE(samples.caption(u"Group record"_s), found ? u"No data"_s : QString());
            QCOMPARE(samples.caption(u"Length record"_s) + samples.caption(u"Gonad record"_s), QString());
            for (const QString& field : {kWeight, u"Class Interval"_s, u"Sampling weight"_s, u"TL(mm)"_s}) {
                QCOMPARE(samples.hand->text(field), QString());
            }
            for (const QString& control : {u"Delete group"_s, u"Update"_s, kWeight, u"Delete gonad sample"_s,
                                           u"TL(mm)"_s, u"SEX"_s, u"Stage"_s, u"GW"_s}) {
                QVERIFY2(!samples.hand->enabled(control), qPrintable(control));
            }
            QVERIFY(!samples.shows(u"Delete length sample"_s));
            samples.hand->openTab(kGonads);
            QVERIFY(!samples.hand->enabled(u"ADD"_s));
            samples.openTab();
            samples.hand->type(u"Value"_s, u"nowhere"_s);
            samples.hand->press(u"SEARCH"_s);
        }
    }

    /// A sample, or the whole operation, that another program deleted is not added to: its rows would be nobody's.
    void deletedElsewhere() {
        Samples samples(kLengths);
        samples.store.execute("delete from length where spid = 1");
        samples.store.execute("delete from length_detail");
        samples.hand->type(u"Frequency"_s, u"5"_s);
        samples.store.dialogs.expectMessageContaining(u"This sample is not stored any more"_s);
        samples.hand->press(u"ADD"_s);
        QCOMPARE(samples.store.rows("select * from length_detail"), QStringList());
        QCOMPARE(samples.caption(u"Length record"_s), u"Species 1 / 1 Upeneus vittatus"_s);

        samples.hand->openTab(kGonads);
        samples.store.execute("delete from fishoperation where optid = 1");
        samples.typeFish(u"215"_s, u"200"_s);
        samples.addFish(true, u"Operation No. 1 is not found any more"_s);
        QCOMPARE(samples.store.rows("select count(*) from gonad_detail"), QStringList{u"4"_s});
        QCOMPARE(samples.number(), u"2"_s);
    }

    /// Samples that cannot be read are not shown under another operation's.
    void failedLoad() {
        Samples samples;
        samples.store.execute("alter table gonad rename to elsewhere");
        samples.store.dialogs.expectMessageContaining(u"gonad"_s);
        samples.move(u"Next"_s);
        QCOMPARE(samples.number() + samples.caption(u"Gonad record"_s), QString());
        QCOMPARE(samples.rows(u"Composition"_s), QStringList{u"||"_s});
        QVERIFY(!samples.shows(u"DELETE"_s));
        samples.store.execute("alter table elsewhere rename to gonad");
        samples.move(u"Previous"_s);
        QCOMPARE(samples.number(), u"1"_s);
    }

    void hostileNames() {
        const QString hostile = u"O'Hara's '); drop table fish; -- 100 % %1 %2 \\ \"x\" [y] &z ปลาทู 鯖 <b>Å</b>"_s;
        for (const QString& name : {hostile, QString(10'000, u'W')}) {
            Samples samples;
            Connection& db = samples.store.db();
            db.execute(Sql("update fish set fishname = ") << name << " where fishno = 1");
            db.execute(Sql("update group_main set groupname = ") << name << " where groupid = 2");
            db.execute(Sql("update vessel set vesselname = ") << name << " where vesselname = 'Sea Star'");
            db.execute(Sql("update fishing_area set aname = ") << name << " where aname = 'A1'");
            db.execute(Sql("update fishoperation set vesselid = ")
                       << name << ", areaid = " << name << ", note = " << name << " where optid = 1");
            samples.find(u"Fishing Area"_s, u"north bank"_s);
            QCOMPARE(samples.hand->text(u"Note"_s), name);
            samples.find(u"Vessel"_s, name);
            QCOMPARE(samples.hand->text(u"Vessel Name"_s), name);
            samples.hand->move(u"Group record"_s, u"Last"_s);
            QCOMPARE(samples.caption(u"Group record"_s), u"Record 2/2 "_s + name + u" [Total weight 200 kg.]"_s);
            QCOMPARE(samples.caption(u"Length record"_s), u"Species 1 / 2 Rastrelliger "_s + name);
            QCOMPARE(samples.caption(u"Gonad record"_s), u"Species1/2 Rastrelliger "_s + name);
            const QSize least = samples.screen->minimumSizeHint();
            QVERIFY2(least.width() <= 1340 && least.height() <= 590, "the screen outgrows the main window");
        }
    }
};

KELVORA_TEST(TestCorrections, "corrections");

}  // namespace kelvora::test_corrections

#include "test_corrections.moc"
