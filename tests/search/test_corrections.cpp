#include "controls/captioned_grid.h"
#include "search/search_window.h"
#include "support/test_main.h"

#include <QTest>

#include <algorithm>

namespace kelvora::test_corrections {

/// Operation 1 with two single species and a raised group; species 1 with two length classes and species 2 with a
/// sample without any; four measured fish of species 1. Operation 2 has no samples.
struct Samples : test::SearchWindow {
    Samples() {
        store.execute("insert into group_main values (1, 1, 'Single species', 40), (2, 1, 'Trash', 200)");
        store.execute("insert into group_composition values (1, 1, 1, 30, 30), (1, 2, 1, 10, 10), (1, 3, 2, 4, 60)");
        store.execute("update fish set classinterval = 2 where fishno in (1, 2)");
        store.execute("insert into length values (1, 1, 2.5), (1, 2, 1)");
        store.execute("insert into length_detail values (1, 1, 12, 14, 13, 7), (1, 1, 10, 12, 11, 3)");
        store.execute("insert into gonad values (1, 1, 0.4), (1, 3, 0.2)");
        store.execute(
            "insert into gonad_detail values (1, 1, 1, 210, 200, 205, 190, 200, 'Male', 2, 12, 6),"
            " (1, 1, 2, 210, 200, 205, 190, 200, 'Female', 3, 12, 6),"
            " (1, 1, 3, 210, 200, 205, 190, 200, 'None', 0, 12, null),"
            " (1, 1, 4, 210.5, 200, 205, 190, 300.125, 'Male', 2, 10, 3.33333333333333)");
    }

    void openTab(const QString& tab) const {
        findAlpha();
        driver->openTab(tab);
    }
    void openComposition() const { openTab(QStringLiteral("Species Composition")); }
    void openLength() const { openTab(QStringLiteral("Length Frequency")); }
    void openGonad() const { openTab(QStringLiteral("Gonad Matuarity")); }

    [[nodiscard]] QString captionOf(const char* navigator) const {
        return driver->navigator(QString::fromLatin1(navigator))->caption();
    }
    [[nodiscard]] QStringList rows(const char* grid) const { return driver->rows(QString::fromLatin1(grid)); }
    [[nodiscard]] QStringList headers(const char* grid) const {
        return driver->grid(QString::fromLatin1(grid))->headers();
    }
    [[nodiscard]] QString text(const char* field) const { return driver->text(QString::fromLatin1(field)); }
    void type(const char* field, const char* text) const {
        driver->type(QString::fromLatin1(field), QString::fromLatin1(text));
    }
    void press(const char* button) const { driver->press(QString::fromLatin1(button)); }
    [[nodiscard]] bool shown(const char* widget) const {
        return driver->button(QString::fromLatin1(widget))->isVisibleTo(screen.get());
    }
    void typeFish(const char* tl, const char* bw, const char* gw) const {
        type("TL(mm)", tl);
        for (const char* length : {"BL(mm)", "FL(mm)", "SL(mm)"}) {
            type(length, "190");
        }
        type("BW", bw);
        type("GW", gw);
    }
    void add(bool yes) {
        store.dialogs.expectConfirm(QStringLiteral("GONAD"), QStringLiteral("Are you sure to add this sampling"), yes);
        press("ADD");
    }
};

QStringList lines(std::initializer_list<const char*> texts) {
    QStringList all;
    for (const char* text : texts) {
        all.append(QString::fromUtf8(text));
    }
    return all;
}

class TestCorrections : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void composition() {
        const Samples samples;
        samples.openComposition();
        QCOMPARE(samples.headers("Composition"), lines({"Species", "Composition", "%Composition"}));
        QCOMPARE(samples.rows("Composition"),
                 lines({"Nemipterus virgatus|60.00|60.00", "Rastrelliger kanagurta|30.00|30.00",
                        "Upeneus vittatus|10.00|10.00"}));
        QCOMPARE(samples.captionOf("Group record"), QStringLiteral("Record 1/2 Single species [Total weight 40 kg.]"));
        QCOMPARE(samples.headers("Group"), lines({"Species", "Total weight(kg.)", "Estimate total catch(kg.)"}));
        QCOMPARE(samples.rows("Group"), lines({"Rastrelliger kanagurta|30.00|30.00", "Upeneus vittatus|10.00|10.00"}));
        samples.driver->move(QStringLiteral("Group record"), QStringLiteral("Last"));
        QCOMPARE(samples.captionOf("Group record"), QStringLiteral("Record 2/2 Trash [Total weight 200 kg.]"));
        QCOMPARE(samples.rows("Group"), lines({"Nemipterus virgatus|4.00|60.00"}));
    }

    void deletions_data() {
        QTest::addColumn<QString>("tab");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("question");
        QTest::addColumn<QStringList>("rows");   // how the deleted rows begin
        QTest::addColumn<QString>("navigator");  // and where it stands afterwards
        QTest::addColumn<QString>("caption");
        const auto row = [](const char* tab, const char* button, const char* title, const char* question,
                            const QStringList& rows, const char* navigator, const char* caption) {
            QTest::newRow(button) << QString::fromLatin1(tab) << QString::fromLatin1(button)
                                  << QString::fromLatin1(title) << QString::fromLatin1(question) << rows
                                  << QString::fromLatin1(navigator) << QString::fromLatin1(caption);
        };
        row("Species Composition", "Delete group", "Kelvora", "Are you sure to delete this group?",
            lines({"group_main|1|1|", "group_composition|1|1|1|", "group_composition|1|2|1|"}), "Group record",
            "Record 1/1 Trash [Total weight 200 kg.]");
        row("Length Frequency", "Delete length sample", "Kelvora", "Are you sure to delete?",
            lines({"length|1|1|", "length_detail|1|1|10|", "length_detail|1|1|12|"}), "Length record",
            "Species 1 / 1 Upeneus vittatus");
        row("Gonad Matuarity", "Delete gonad sample", "CONFIRM", "Are you sure to delete?",
            lines({"gonad|1|1|", "gonad_detail|1|1|1|", "gonad_detail|1|1|2|", "gonad_detail|1|1|3|",
                   "gonad_detail|1|1|4|"}),
            "Gonad record", "Species1/1 Nemipterus virgatus");
    }
    void deletions() {
        QFETCH(QString, tab);
        QFETCH(QString, button);
        QFETCH(QString, title);
        QFETCH(QString, question);
        QFETCH(QStringList, rows);
        QFETCH(QString, navigator);
        QFETCH(QString, caption);
        Samples samples;
        samples.openTab(tab);
        const QStringList all = samples.store.wholeFile();
        samples.store.dialogs.expectConfirm(title, question, false);
        samples.driver->press(button);
        QCOMPARE(samples.store.wholeFile(), all);

        // Either all rows go or none, and no transaction is left open: another connection can write.
        samples.store.execute("create trigger g before delete on group_composition begin select raise(abort, ''); end");
        samples.store.execute("create trigger l before delete on length_detail begin select raise(abort, ''); end");
        samples.store.execute("create trigger f before delete on gonad_detail begin select raise(abort, ''); end");
        samples.store.dialogs.expectConfirm(title, question, true);
        samples.store.dialogs.expectMessageContaining(QStringLiteral("delete from"));
        samples.driver->press(button);
        QCOMPARE(samples.store.wholeFile(), all);
        samples.store.execute("drop trigger g");
        samples.store.execute("drop trigger l");
        samples.store.execute("drop trigger f");

        samples.store.dialogs.expectConfirm(title, question, true);
        samples.driver->press(button);
        QStringList expected = all;
        expected.removeIf([&](const QString& line) {
            return std::ranges::any_of(rows, [&](const QString& row) { return line.startsWith(row); });
        });
        QCOMPARE(expected.size(), all.size() - rows.size());
        QCOMPARE(samples.store.wholeFile(), expected);
        QCOMPARE(samples.driver->navigator(navigator)->caption(), caption);
    }

    void groupDeletionChangesTheSummary() {
        Samples samples;
        samples.openComposition();
        samples.driver->move(QStringLiteral("Group record"), QStringLiteral("Next"));
        for (const auto& summary :
             {lines({"Rastrelliger kanagurta|30.00|75.00", "Upeneus vittatus|10.00|25.00"}), lines({"||"})}) {
            samples.store.dialogs.expectConfirm(kApplicationTitle.toString(),
                                                QStringLiteral("Are you sure to delete this group?"), true);
            samples.press("Delete group");
            QCOMPARE(samples.rows("Composition"), summary);
        }
        QCOMPARE(samples.captionOf("Group record"), QStringLiteral("No data"));
        QCOMPARE(samples.headers("Group"), lines({"Species", "Sampling weight(kg.)", "Estimate total catch(kg.)"}));
        QVERIFY(!samples.driver->enabled(QStringLiteral("Delete group")));
    }

    void lengthSample() {
        const Samples samples;
        samples.openLength();
        QCOMPARE(samples.captionOf("Length record"), QStringLiteral("Species 1 / 2 Rastrelliger kanagurta"));
        QCOMPARE(samples.text("Sample weight (kg.)"), QStringLiteral("2.5"));
        QCOMPARE(samples.text("Class Interval"), QStringLiteral("2"));
        QCOMPARE(samples.headers("Length classes"),
                 lines({"Lower(cm.)", "Upper(cm.)", "Mid-length(cm.)", "Frequency"}));
        QCOMPARE(samples.rows("Length classes"), lines({"10|12|11|3", "12|14|13|7"}));
        QCOMPARE(samples.text("Next class"), QStringLiteral("14-16"));

        // A sample without classes has no class to go on from, whatever the species before it had.
        samples.driver->move(QStringLiteral("Length record"), QStringLiteral("Next"));
        QCOMPARE(samples.captionOf("Length record"), QStringLiteral("Species 2 / 2 Upeneus vittatus"));
        QCOMPARE(samples.rows("Length classes"), lines({"|||"}));
        QVERIFY(samples.text("Next class").startsWith(u"none"));
        QVERIFY(!samples.driver->enabled(QStringLiteral("ADD")));
        QVERIFY(!samples.driver->enabled(QStringLiteral("Frequency")));
    }

    void nextClass() {
        Samples samples;
        samples.openLength();
        for (const char* wrong : {"", "abc", "1,5", "-1"}) {
            samples.type("Frequency", wrong);
            samples.store.dialogs.expectMessage(QStringLiteral("ERROR"), QStringLiteral("Numeric Only"));
            samples.press("ADD");
            QCOMPARE(samples.text("Frequency"), QString());
        }
        QCOMPARE(samples.rows("Length classes").size(), 2);
        samples.type("Frequency", "5");
        samples.press("ADD");
        QCOMPARE(samples.store.rows("select * from length_detail where lower1 = 14"), lines({"1|1|14|16|15|5"}));
        QCOMPARE(samples.rows("Length classes").last(), QStringLiteral("14|16|15|5"));
        QCOMPARE(samples.text("Next class"), QStringLiteral("16-18"));
        QCOMPARE(samples.text("Frequency"), QString());
        // A count of 0 is a count; Enter adds as the button does.
        samples.type("Frequency", "0");
        samples.driver->key(QStringLiteral("Frequency"), Qt::Key_Return);
        QCOMPARE(samples.store.rows("select * from length_detail where lower1 = 16"), lines({"1|1|16|18|17|0"}));
        QCOMPARE(samples.text("Next class"), QStringLiteral("18-20"));
    }

    void noInterval_data() {
        QTest::addColumn<QString>("interval");
        QTest::newRow("null") << QStringLiteral("null");
        QTest::newRow("0") << QStringLiteral("0");
    }
    void noInterval() {
        QFETCH(QString, interval);
        Samples samples;
        samples.store.execute("update fish set classinterval = null");
        if (interval == u"0") {
            samples.store.execute("update fish set classinterval = 0");
        }
        samples.openLength();
        QVERIFY(samples.text("Next class").contains(QStringLiteral("interval")));
        QVERIFY(!samples.driver->enabled(QStringLiteral("ADD")));
    }

    void lengthWeight_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::newRow("number") << QStringLiteral("3.25") << QStringLiteral("3.25");
        QTest::newRow("leading number") << QStringLiteral("4 kg") << QStringLiteral("4");
        QTest::newRow("no number") << QStringLiteral("O'Hara") << QStringLiteral("0");
    }
    void lengthWeight() {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        Samples samples;
        samples.openLength();
        samples.driver->type(QStringLiteral("Sample weight (kg.)"), typed);
        samples.store.dialogs.expectMessage(QStringLiteral("RESULT"), QStringLiteral("Update complete!"));
        samples.press("Update");
        QCOMPARE(samples.store.rows("select * from length order by spid"),
                 (QStringList{QStringLiteral("1|1|") + stored, QStringLiteral("1|2|1")}));
        QCOMPARE(samples.text("Sample weight (kg.)"), stored);
    }

    void refusedWeight() {
        Samples samples;
        samples.openLength();
        for (const char* wrong : {"-1", "1e999"}) {
            samples.type("Sample weight (kg.)", wrong);
            samples.store.dialogs.expectMessageContaining(QStringLiteral("not below 0"));
            samples.press("Update");
            QCOMPARE(samples.text("Sample weight (kg.)"), QString::fromLatin1(wrong));
        }
        QCOMPARE(samples.store.rows("select weight from length where spid = 1"), lines({"2.5"}));
    }

    void gonadSample() {
        const Samples samples;
        samples.openGonad();
        QCOMPARE(samples.captionOf("Gonad record"), QStringLiteral("Species1/2 Rastrelliger kanagurta"));
        QCOMPARE(samples.text("Sampling weight"), QStringLiteral("0.4"));
        QCOMPARE(samples.headers("Measured fish"),
                 lines({"No.", "TL(cm)", "BL(cm)", "FL(cm)", "SL(cm)", "BW(g)", "SEX", "STAGE", "GW(g)", "GSI"}));
        QCOMPARE(samples.rows("Measured fish"),
                 lines({"1|210|200|205|190|200.00|Male|2|12|6.00", "2|210|200|205|190|200.00|Female|3|12|6.00",
                        "3|210|200|205|190|200.00|None|0|12|", "4|210.5|200|205|190|300.13|Male|2|10|3.33"}));
        samples.driver->move(QStringLiteral("Gonad record"), QStringLiteral("Next"));
        QCOMPARE(samples.captionOf("Gonad record"), QStringLiteral("Species2/2 Nemipterus virgatus"));
        QCOMPARE(samples.rows("Measured fish"), lines({"|||||||||"}));
        QVERIFY(samples.driver->enabled(QStringLiteral("TL(mm)")));
    }

    void newFish() {
        Samples samples;
        samples.openGonad();
        const QStringList all = samples.store.wholeFile();
        samples.typeFish("215", "200", "10");
        samples.driver->choose(QStringLiteral("SEX"), QStringLiteral("Juvenile"));
        samples.driver->choose(QStringLiteral("Stage"), QStringLiteral("3-Ripe"));
        samples.add(false);
        QCOMPARE(samples.store.wholeFile(), all);
        samples.add(true);
        const QString fifth = QStringLiteral("gonad_detail|1|1|5|215|190|190|190|200|Juvenile|3|10|5");
        QStringList added = samples.store.wholeFile();
        QCOMPARE(added.removeAll(fifth), 1);
        QCOMPARE(added, all);
        QCOMPARE(samples.rows("Measured fish").last(), QStringLiteral("5|215|190|190|190|200.00|Juvenile|3|10|5.00"));
        QCOMPARE(samples.text("TL(mm)"), QString());

        // A fish without a stage has stage 0; the first one of a sample is number 1.
        samples.driver->move(QStringLiteral("Gonad record"), QStringLiteral("Next"));
        samples.typeFish("1.5", "300", "10");
        samples.driver->type(QStringLiteral("Stage"), QString());
        samples.add(true);
        QCOMPARE(samples.store.rows("select * from gonad_detail where spid = 3"),
                 lines({"1|3|1|1.5|190|190|190|300|Male|0|10|3.33333333333333"}));
    }

    void refusedFish_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* field, const char* typed, const char* message) {
            QTest::addRow("%s %s", field, typed)
                << QString::fromLatin1(field) << QString::fromLatin1(typed) << QString::fromLatin1(message);
        };
        row("TL(mm)", "x", "Please input TL in numeric");
        row("BL(mm)", "", "Please input BL in numeric");
        row("FL(mm)", "-1", "Please input FL in numeric");
        row("SL(mm)", "1,5", "Please input SL in numeric");
        row("BW", "', '", "Please input BW in numeric");
        row("BW", "0", "BW must be greater than 0");
        row("GW", "-0.5", "Please input GW in numeric");
    }
    void refusedFish() {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        Samples samples;
        samples.openGonad();
        const QStringList all = samples.store.wholeFile();
        samples.typeFish("210", "200", "10");
        samples.driver->type(field, typed);
        samples.store.dialogs.expectConfirm(QStringLiteral("GONAD"),
                                            QStringLiteral("Are you sure to add this sampling"), true);
        samples.store.dialogs.expectMessage(QStringLiteral("GONAD"), message);
        samples.press("ADD");
        QVERIFY(samples.store.dialogs.done());
        QCOMPARE(samples.driver->text(field), QString());
        QVERIFY(samples.driver->focused(field));
        QCOMPARE(samples.store.wholeFile(), all);
    }

    /// An operation without samples, and none at all: nothing of the one before stays, and nothing can be pressed.
    void emptyTabs_data() {
        QTest::addColumn<bool>("found");
        QTest::newRow("operation without samples") << true;
        QTest::newRow("no match") << false;
    }
    void emptyTabs() {
        QFETCH(bool, found);
        const Samples samples;
        samples.findAlpha();
        if (found) {
            samples.move(QStringLiteral("Next"));
        } else {
            samples.type("Value", "nowhere");
            samples.press("SEARCH");
        }
        QCOMPARE(samples.rows("Composition"), lines({"||"}));
        QCOMPARE(samples.rows("Group"), lines({"||"}));
        QCOMPARE(samples.rows("Length classes"), lines({"|||"}));
        QCOMPARE(samples.rows("Measured fish"), lines({"|||||||||"}));
        QCOMPARE(samples.captionOf("Group record"), found ? QStringLiteral("No data") : QString());
        QCOMPARE(samples.captionOf("Length record"), QString());
        QCOMPARE(samples.captionOf("Gonad record"), QString());
        for (const char* field : {"Sample weight (kg.)", "Class Interval", "Sampling weight", "TL(mm)"}) {
            QCOMPARE(samples.text(field), QString());
        }
        for (const char* control :
             {"Delete group", "Update", "Sample weight (kg.)", "Delete gonad sample", "TL(mm)", "SEX", "Stage", "GW"}) {
            QVERIFY2(!samples.driver->enabled(QString::fromLatin1(control)), control);
        }
        QVERIFY(!samples.shown("Delete length sample"));
        samples.driver->openTab(QStringLiteral("Gonad Matuarity"));
        QVERIFY(!samples.driver->enabled(QStringLiteral("ADD")));
    }

    /// A fish that could not be stored stays in its fields.
    void failedFish() {
        Samples samples;
        samples.openGonad();
        samples.store.execute(
            "create trigger refuse before insert on gonad_detail begin select raise(abort, 'no'); end");
        samples.typeFish("215", "200", "10");
        samples.store.dialogs.expectConfirm(QStringLiteral("GONAD"),
                                            QStringLiteral("Are you sure to add this sampling"), true);
        samples.store.dialogs.expectMessageContaining(QStringLiteral("gonad_detail"));
        samples.press("ADD");
        QCOMPARE(samples.text("TL(mm)"), QStringLiteral("215"));
        samples.store.execute("drop trigger refuse");
        samples.add(true);
        QCOMPARE(samples.rows("Measured fish").size(), 5);
    }

    /// A sample, or the whole operation, that another program deleted is not added to: its rows would be nobody's.
    void deletedElsewhere() {
        Samples samples;
        samples.openLength();
        samples.store.execute("delete from length where spid = 1");
        samples.store.execute("delete from length_detail");
        samples.type("Frequency", "5");
        samples.store.dialogs.expectMessageContaining(QStringLiteral("This sample is not stored any more"));
        samples.press("ADD");
        QCOMPARE(samples.store.rows("select * from length_detail"), QStringList());
        QCOMPARE(samples.captionOf("Length record"), QStringLiteral("Species 1 / 1 Upeneus vittatus"));

        samples.driver->openTab(QStringLiteral("Gonad Matuarity"));
        samples.store.execute("delete from fishoperation where optid = 1");
        samples.typeFish("215", "200", "10");
        samples.store.dialogs.expectConfirm(QStringLiteral("GONAD"),
                                            QStringLiteral("Are you sure to add this sampling"), true);
        samples.store.dialogs.expectMessageContaining(QStringLiteral("Operation No. 1 is not found any more"));
        samples.press("ADD");
        QCOMPARE(samples.store.rows("select count(*) from gonad_detail"), lines({"4"}));
        QCOMPARE(samples.number(), QStringLiteral("2"));
        QVERIFY(samples.store.dialogs.done());
    }

    /// Samples that cannot be read are not shown under another operation's.
    void failedLoad() {
        Samples samples;
        samples.findAlpha();
        samples.store.execute("alter table gonad rename to elsewhere");
        samples.store.dialogs.expectMessageContaining(QStringLiteral("gonad"));
        samples.move(QStringLiteral("Next"));
        QCOMPARE(samples.number(), QString());
        QCOMPARE(samples.rows("Composition"), lines({"||"}));
        QCOMPARE(samples.captionOf("Gonad record"), QString());
        QVERIFY(!samples.offersDelete());
        samples.store.execute("alter table elsewhere rename to gonad");
        samples.move(QStringLiteral("Previous"));
        QCOMPARE(samples.number(), QStringLiteral("1"));
    }

    void hostileNames_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("apostrophe") << QStringLiteral("O'Hara's '; drop table fish; --");
        QTest::newRow("percent") << QStringLiteral("100 % %1 %2 \\ \"x\" [y] &z");
        QTest::newRow("scripts") << QStringLiteral("ปลาทู 鯖 <b>Å</b>");
        QTest::newRow("long") << QString(10'000, u'W');
    }
    void hostileNames() {
        QFETCH(QString, name);
        Samples samples;
        Connection& db = samples.store.db();
        db.execute(Sql("update fish set fishname = ") << name << " where fishno = 1");
        db.execute(Sql("update group_main set groupname = ") << name << " where groupid = 2");
        db.execute(Sql("update vessel set vesselname = ") << name << " where vesselname = 'Sea Star'");
        db.execute(Sql("update fishing_area set aname = ") << name << " where aname = 'A1'");
        db.execute(Sql("update fishoperation set vesselid = ")
                   << name << ", areaid = " << name << ", note = " << name << " where optid = 1");
        samples.find(QStringLiteral("Fishing Area"), QStringLiteral("north bank"));
        QCOMPARE(samples.text("Note"), name);
        samples.find(QStringLiteral("Vessel"), name);
        QCOMPARE(samples.text("Vessel Name"), name);
        samples.driver->move(QStringLiteral("Group record"), QStringLiteral("Last"));
        QCOMPARE(samples.captionOf("Group record"),
                 QStringLiteral("Record 2/2 ") + name + QStringLiteral(" [Total weight 200 kg.]"));
        QCOMPARE(samples.captionOf("Length record"), QStringLiteral("Species 1 / 2 Rastrelliger ") + name);
        QCOMPARE(samples.captionOf("Gonad record"), QStringLiteral("Species1/2 Rastrelliger ") + name);
        QVERIFY(samples.screen->minimumSizeHint().width() <= 1340);
        QVERIFY(samples.screen->minimumSizeHint().height() <= 590);
    }
};

KELVORA_TEST(TestCorrections, "corrections");

}  // namespace kelvora::test_corrections

#include "test_corrections.moc"
