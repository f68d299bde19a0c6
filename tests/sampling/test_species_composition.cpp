#include "controls/bound_list.h"
#include "controls/captioned_grid.h"
#include "controls/record_navigator.h"
#include "sampling/species_composition_screen.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QLineEdit>
#include <QTest>

namespace kelvora::test_species_composition {

const QString kMackerel = QStringLiteral("Rastrelliger kanagurta");
const QString kGoatfish = QStringLiteral("Upeneus vittatus");
const QString kBream = QStringLiteral("Nemipterus virgatus");

/// The screen over the operations 1 and 2 (state Alpha), standing on operation 1 unless none was saved last.
class Sampler {
public:
    explicit Sampler(int lastSaved = 1) {
        store.addReferenceRows();
        store.addOperation(1, 1, QStringLiteral("2004-03-09"), 1, 120, QStringLiteral("Sea Star"),
                           QStringLiteral("A1"));
        store.addOperation(2, 2, QStringLiteral("2004-04-01"), 3, 80, QStringLiteral("Blue Fin"), QStringLiteral("A2"));
        store.session.lastSavedOperation = lastSaved;
        reopen();
    }

    void reopen() {
        m_screen = std::make_unique<SpeciesCompositionScreen>(store.context());
        m_screen->show();
        screen = std::make_unique<test::ScreenDriver>(m_screen.get());
        screen->openTab(QStringLiteral("Species Composition"));
        single = std::make_unique<test::ScreenDriver>(screen->within(QStringLiteral("Single species")));
        group = std::make_unique<test::ScreenDriver>(screen->within(QStringLiteral("Sampling group")));
    }

    void addSingle(const QString& species, const QString& weight) const {
        single->choose(QStringLiteral("Species"), species);
        single->type(QStringLiteral("Weight"), weight);
        single->press(QStringLiteral("Add"));
    }

    void nameGroup(const QString& name, const QString& total) const {
        group->edit(QStringLiteral("Group"))->setText(name);
        group->type(QStringLiteral("Total weight"), total);
    }

    void list(const QString& species, const QString& weight) const {
        group->choose(QStringLiteral("Species"), species);
        group->type(QStringLiteral("Weight"), weight);
        group->press(QStringLiteral("ADD"));
    }

    void save() {
        store.dialogs.expectConfirm(QStringLiteral("CONFIRM"), QStringLiteral("Are you sure to 'SAVE' this group"),
                                    true);
        group->press(QStringLiteral("SAVE"));
    }

    void saveGroup(const QString& name) {
        nameGroup(name, QStringLiteral("200"));
        list(kMackerel, QStringLiteral("4"));
        list(kBream, QStringLiteral("6"));
        save();
    }

    void deleteGroup(bool yes) {
        store.dialogs.expectConfirm(QStringLiteral("Kelvora"), QStringLiteral("Are you sure to delete this group?"),
                                    yes);
        group->press(QStringLiteral("X"));
    }

    QStringList groups() { return store.rows("select optid, groupid, groupname, totalsampling from group_main"); }
    QStringList weights() {
        return store.rows("select optid, spid, groupid, totalweight, estotal from group_composition");
    }
    [[nodiscard]] QStringList summary() const { return screen->rows(QStringLiteral("Composition")); }
    [[nodiscard]] QStringList pending() const { return group->rows(QStringLiteral("Pending group")); }
    [[nodiscard]] QString record() const { return group->navigator(QStringLiteral("Group record"))->caption(); }
    [[nodiscard]] QStringList singles() const {
        return single->rows(QStringLiteral("Total catch in weight of single species"));
    }

    test::TemporaryStore store;
    std::unique_ptr<test::ScreenDriver> screen, single, group;

private:
    std::unique_ptr<SpeciesCompositionScreen> m_screen;
};

const QStringList kBlank{QStringLiteral("||")};

class TestSpeciesComposition : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void singleSpecies() {
        Sampler sampler;
        sampler.addSingle(kMackerel, QStringLiteral("12.5"));
        QVERIFY(sampler.single->focused(QStringLiteral("Weight")));
        QCOMPARE(sampler.single->text(QStringLiteral("Weight")), QString());
        QCOMPARE(sampler.single->text(QStringLiteral("Species")), kMackerel);
        sampler.addSingle(kBream, QStringLiteral(" 7.5 "));
        QCOMPARE(sampler.groups(), QStringList{QStringLiteral("1|1|Single species|20")});
        QCOMPARE(sampler.weights(), (QStringList{QStringLiteral("1|1|1|12.5|12.5"), QStringLiteral("1|3|1|7.5|7.5")}));
        QCOMPARE(sampler.singles(),
                 (QStringList{kBream + QStringLiteral("|7.5"), kMackerel + QStringLiteral("|12.5")}));
        QCOMPARE(sampler.summary(),
                 (QStringList{kBream + QStringLiteral("|7.50|37.50"), kMackerel + QStringLiteral("|12.50|62.50")}));

        const QString record = QStringLiteral("Single species record");
        QCOMPARE(sampler.single->navigator(record)->caption(), kBream);
        sampler.single->move(record, QStringLiteral("Next"));
        QCOMPARE(sampler.single->navigator(record)->caption(), kMackerel);
        sampler.single->press(QStringLiteral("X"));
        QCOMPARE(sampler.groups(), QStringList{QStringLiteral("1|1|Single species|7.5")});
        QCOMPARE(sampler.summary(), QStringList{kBream + QStringLiteral("|7.50|100.00")});
        sampler.single->press(QStringLiteral("X"));
        QCOMPARE(sampler.groups(), QStringList());
        QCOMPARE(sampler.weights(), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
        QCOMPARE(sampler.single->navigator(record)->caption(), QString());
        QVERIFY(!sampler.single->enabled(QStringLiteral("X")));
    }

    void singleSpeciesWeighingNothing() {
        Sampler sampler;
        sampler.addSingle(kMackerel, QStringLiteral("0"));
        QCOMPARE(sampler.summary(), QStringList{kMackerel + QStringLiteral("|0.00|")});
        sampler.addSingle(kBream, QStringLiteral("5"));
        sampler.single->press(QStringLiteral("X"));
        QCOMPARE(sampler.groups(), QStringList{QStringLiteral("1|1|Single species|0")});
    }

    void sameSpeciesTwice() {
        Sampler sampler;
        sampler.addSingle(kMackerel, QStringLiteral("1"));
        sampler.store.dialogs.expectMessage(QStringLiteral("This species is in database already! please try again"));
        sampler.addSingle(kMackerel, QStringLiteral("2"));
        QVERIFY(sampler.store.dialogs.done());
        QCOMPARE(sampler.single->text(QStringLiteral("Weight")), QStringLiteral("2"));
        QCOMPARE(sampler.groups(), QStringList{QStringLiteral("1|1|Single species|1")});
        // In another operation it is another fish.
        sampler.store.session.lastSavedOperation = 2;
        sampler.reopen();
        sampler.addSingle(kMackerel, QStringLiteral("2"));
        QCOMPARE(sampler.groups().size(), 2);
    }

    void raisedGroup() {
        Sampler sampler;
        sampler.addSingle(kMackerel, QStringLiteral("12.5"));
        sampler.nameGroup(QStringLiteral("Trash"), QStringLiteral("200"));
        QVERIFY(!sampler.group->enabled(QStringLiteral("SAVE")));
        QVERIFY(!sampler.group->enabled(QStringLiteral("CLEAR")));
        sampler.list(kMackerel, QStringLiteral("4.0"));
        sampler.list(kBream, QStringLiteral("6"));
        QCOMPARE(sampler.pending(), (QStringList{kMackerel + QStringLiteral("|4.0|1"), kBream + QStringLiteral("|6|3"),
                                                 QStringLiteral("||")}));
        QCOMPARE(sampler.group->text(QStringLiteral("Total Sampling weight")), QStringLiteral("10"));
        sampler.save();
        QCOMPARE(sampler.groups(),
                 (QStringList{QStringLiteral("1|1|Single species|12.5"), QStringLiteral("1|2|Trash|200")}));
        QCOMPARE(sampler.weights(), (QStringList{QStringLiteral("1|1|1|12.5|12.5"), QStringLiteral("1|1|2|4|80"),
                                                 QStringLiteral("1|3|2|6|120")}));
        QCOMPARE(sampler.summary(),
                 (QStringList{kBream + QStringLiteral("|120.00|56.47"), kMackerel + QStringLiteral("|92.50|43.53")}));
        QCOMPARE(sampler.record(), QStringLiteral("Record 1/1 Trash [Total weight 200 kg.]"));
        QCOMPARE(sampler.group->rows(QStringLiteral("Total catch in weight of Trash (kg.)")),
                 (QStringList{kBream + QStringLiteral("|6|120"), kMackerel + QStringLiteral("|4|80")}));
        QCOMPARE(sampler.pending(), kBlank);
        for (const char* field : {"Group", "Total weight", "Total Sampling weight", "Species", "Weight"}) {
            QCOMPARE(sampler.group->text(QString::fromLatin1(field)), QString());
        }
        QVERIFY(!sampler.group->enabled(QStringLiteral("SAVE")));

        // 100 / 3 is 33.33, and the raised weight is not rounded again.
        sampler.nameGroup(QStringLiteral("Small"), QStringLiteral("100"));
        sampler.list(kGoatfish, QStringLiteral("1.005"));
        sampler.list(kBream, QStringLiteral("1.995"));
        sampler.save();
        QVERIFY(sampler.weights().contains(QStringLiteral("1|2|3|1.005|33.49665")));
    }

    void groupNumbers() {
        Sampler sampler;
        for (const char* name : {"First", "Second"}) {
            sampler.saveGroup(QString::fromLatin1(name));
        }
        sampler.group->move(QStringLiteral("Group record"), QStringLiteral("Last"));
        QCOMPARE(sampler.record(), QStringLiteral("Record 2/2 Second [Total weight 200 kg.]"));
        sampler.deleteGroup(false);
        QCOMPARE(sampler.groups().size(), 2);
        sampler.deleteGroup(true);
        QCOMPARE(sampler.groups(), QStringList{QStringLiteral("1|2|First|200")});
        QCOMPARE(sampler.weights().size(), 2);
        sampler.saveGroup(QStringLiteral("Third"));
        QCOMPARE(sampler.groups(), (QStringList{QStringLiteral("1|2|First|200"), QStringLiteral("1|3|Third|200")}));
        sampler.deleteGroup(true);
        sampler.deleteGroup(true);
        QCOMPARE(sampler.record(), QStringLiteral("No Group Data"));
        QVERIFY(!sampler.group->enabled(QStringLiteral("X")));
        QCOMPARE(sampler.group->rows(QStringLiteral("Total catch in weight of sampling group")), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
    }

    void groupAskedFor() {
        Sampler sampler;
        sampler.store.dialogs.expectInput(QStringLiteral("Please input groupname"), QStringLiteral("Trash"));
        sampler.store.dialogs.expectInput(QStringLiteral("Please input total sampling weight!"),
                                          QStringLiteral("0.30"));
        sampler.list(kMackerel, QStringLiteral("0.1"));
        QCOMPARE(sampler.group->text(QStringLiteral("Group")), QStringLiteral("Trash"));
        QCOMPARE(sampler.group->text(QStringLiteral("Total weight")), QStringLiteral("0.3"));
        QVERIFY(!sampler.group->enabled(QStringLiteral("Group")));
        QVERIFY(!sampler.group->enabled(QStringLiteral("Total weight")));

        sampler.store.dialogs.expectMessage(QStringLiteral("ERROR"), QStringLiteral("Over weight! not over '0.2' kg."));
        sampler.list(kBream, QStringLiteral("0.21"));
        QCOMPARE(sampler.group->text(QStringLiteral("Weight")), QString());
        QVERIFY(sampler.group->focused(QStringLiteral("Weight")));
        sampler.list(kBream, QStringLiteral("0.2"));
        QCOMPARE(sampler.group->text(QStringLiteral("Total Sampling weight")), QStringLiteral("0.3"));
        sampler.store.dialogs.expectMessage(QStringLiteral("ERROR"), QStringLiteral("Species Repeat please try again"));
        sampler.list(kBream, QStringLiteral("0"));
        QVERIFY(sampler.store.dialogs.done());
        QCOMPARE(sampler.pending().size(), 3);

        sampler.group->press(QStringLiteral("CLEAR"));
        QCOMPARE(sampler.pending(), kBlank);
        QVERIFY(sampler.group->enabled(QStringLiteral("Group")));
        QVERIFY(sampler.group->enabled(QStringLiteral("Total weight")));
        QCOMPARE(sampler.groups(), QStringList());
    }

    void repeatedGroupName() {
        Sampler sampler;
        sampler.saveGroup(QStringLiteral("Trash"));
        sampler.store.dialogs.expectInput(QStringLiteral("Please input groupname"), QStringLiteral("TRASH"));
        sampler.group->type(QStringLiteral("Total weight"), QStringLiteral("50"));
        sampler.list(kGoatfish, QStringLiteral("5"));
        sampler.store.dialogs.expectConfirm(QStringLiteral("CONFIRM"),
                                            QStringLiteral("Are you sure to 'SAVE' this group"), false);
        sampler.group->press(QStringLiteral("SAVE"));
        sampler.store.dialogs.expectConfirm(QStringLiteral("CONFIRM"),
                                            QStringLiteral("Are you sure to 'SAVE' this group"), true);
        sampler.store.dialogs.expectMessage(QStringLiteral("ERROR!"),
                                            QStringLiteral("Group repeat please change new group"));
        sampler.group->press(QStringLiteral("SAVE"));
        QVERIFY(sampler.store.dialogs.done());
        QCOMPARE(sampler.groups().size(), 1);
        QVERIFY(sampler.group->focused(QStringLiteral("Group")));
        QCOMPARE(sampler.group->text(QStringLiteral("Group")), QString());
        QCOMPARE(sampler.group->text(QStringLiteral("Total weight")), QStringLiteral("50"));
        QCOMPARE(sampler.pending().size(), 2);
        sampler.group->type(QStringLiteral("Group"), QStringLiteral("Other"));
        sampler.save();
        QCOMPARE(sampler.groups().last(), QStringLiteral("1|3|Other|50"));
    }

    void refusedSingles_data() {
        QTest::addColumn<QString>("species");
        QTest::addColumn<QString>("weight");
        QTest::addColumn<QString>("message");
        const QString noSpecies = QStringLiteral("Please select species!");
        const QString noNumber = QStringLiteral("Please input weight in numeric only");
        QTest::newRow("weight first") << QString() << QString() << QStringLiteral("Please input weight");
        QTest::newRow("word") << QString() << QStringLiteral("five") << noNumber;
        QTest::newRow("negative") << kBream << QStringLiteral("-5") << QStringLiteral("A weight cannot be negative");
        QTest::newRow("no species") << QString() << QStringLiteral("5") << noSpecies;
        QTest::newRow("unknown species") << QStringLiteral("0 or 1=1") << QStringLiteral("5") << noSpecies;
    }
    void refusedSingles() {
        QFETCH(QString, species);
        QFETCH(QString, weight);
        QFETCH(QString, message);
        Sampler sampler;
        sampler.single->list(QStringLiteral("Species"))->setText(species);
        sampler.single->type(QStringLiteral("Weight"), weight);
        sampler.store.dialogs.expectMessage(QStringLiteral("ERROR!"), message);
        sampler.single->press(QStringLiteral("Add"));
        QVERIFY(sampler.store.dialogs.done());
        QCOMPARE(sampler.single->text(QStringLiteral("Weight")), weight);
        QCOMPARE(sampler.groups(), QStringList());
        QCOMPARE(sampler.weights(), QStringList());
    }

    void refusedForGroup_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("total");
        QTest::addColumn<QString>("species");
        QTest::addColumn<QString>("weight");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* what, const QString& name, const char* total, const QString& species,
                            const char* weight, const char* message) {
            QTest::newRow(what) << name << QString::fromLatin1(total) << species << QString::fromLatin1(weight)
                                << QString::fromLatin1(message);
        };
        const auto name = QStringLiteral("Trash");
        row("reserved name", QStringLiteral("Single Species"), "10", kBream, "1", "is the group of the species");
        row("total word", name, "ten", kBream, "1", "Please input total weight in numeric only");
        row("total 0", name, "0", kBream, "1", "must be greater than 0");
        row("no species", name, "10", {}, "", "Please select species!");
        row("no weight", name, "10", kBream, "", "Please input weight!");
        row("weight word", name, "10", kBream, "1kg", "Please input weight in numeric only");
        row("weight negative", name, "10", kBream, "-1", "cannot be negative");
    }
    void refusedForGroup() {
        QFETCH(QString, name);
        QFETCH(QString, total);
        QFETCH(QString, species);
        QFETCH(QString, weight);
        QFETCH(QString, message);
        Sampler sampler;
        sampler.nameGroup(name, total);
        sampler.group->list(QStringLiteral("Species"))->setText(species);
        sampler.group->type(QStringLiteral("Weight"), weight);
        sampler.store.dialogs.expectMessageContaining(message);
        sampler.group->press(QStringLiteral("ADD"));
        QVERIFY(sampler.store.dialogs.done());
        QCOMPARE(sampler.pending(), kBlank);
        QCOMPARE(sampler.group->text(QStringLiteral("Weight")), weight);
        QCOMPARE(sampler.group->text(QStringLiteral("Group")), name);
        QVERIFY(!sampler.group->enabled(QStringLiteral("SAVE")));
    }

    void cancelledInputs() {
        Sampler sampler;
        sampler.store.dialogs.expectInput(QStringLiteral("Please input groupname"), std::nullopt);
        sampler.store.dialogs.expectMessage(QStringLiteral("ERROR"), QStringLiteral("Please input groupname"));
        sampler.list(kBream, QStringLiteral("5"));
        QVERIFY(sampler.group->enabled(QStringLiteral("Group")));
        sampler.group->type(QStringLiteral("Group"), QStringLiteral("Trash"));
        for (const auto& answer : {std::optional<QString>(), std::optional(QStringLiteral("10 kg"))}) {
            sampler.store.dialogs.expectInput(QStringLiteral("Please input total sampling weight!"), answer);
            sampler.store.dialogs.expectMessage(QStringLiteral("ERROR"),
                                                QStringLiteral("Please input total weight in numeric only"));
            sampler.group->press(QStringLiteral("ADD"));
            QVERIFY(sampler.store.dialogs.done());
            QVERIFY(sampler.group->enabled(QStringLiteral("Total weight")));
            QCOMPARE(sampler.group->text(QStringLiteral("Weight")), QStringLiteral("5"));
        }
        QCOMPARE(sampler.pending(), kBlank);
    }

    /// Nothing that cannot be raised or belongs nowhere is stored, and nothing of it is lost.
    void refusedSave() {
        Sampler sampler(0);
        QCOMPARE(sampler.summary(), kBlank);
        sampler.addSingle(kMackerel, QStringLiteral("5"));
        sampler.list(kMackerel, QStringLiteral("5"));
        QCOMPARE(sampler.pending(), kBlank);

        sampler.screen->openTab(QStringLiteral("Fishing Operation"));
        sampler.screen->choose(QStringLiteral("Value"), QStringLiteral("Alpha"));
        sampler.screen->press(QStringLiteral("Search"));
        sampler.nameGroup(QStringLiteral("Trash"), QStringLiteral("10"));
        sampler.list(kMackerel, QStringLiteral("0"));
        sampler.store.dialogs.expectMessageContaining(QStringLiteral("sum to 0"));
        sampler.group->press(QStringLiteral("SAVE"));

        sampler.list(kBream, QStringLiteral("8"));
        sampler.group->type(QStringLiteral("Total weight"), QStringLiteral("7"));
        sampler.store.dialogs.expectMessageContaining(QStringLiteral("more than the '7' kg."));
        sampler.group->press(QStringLiteral("SAVE"));

        sampler.screen->choose(QStringLiteral("Value"), QStringLiteral("Beta"));
        sampler.store.dialogs.expectMessage(QStringLiteral("ERROR"),
                                            QStringLiteral("Please choose a fishing operation for this group"));
        sampler.group->press(QStringLiteral("SAVE"));
        QVERIFY(sampler.store.dialogs.done());
        QCOMPARE(sampler.pending().size(), 3);
        QCOMPARE(sampler.groups(), QStringList());

        // The pending group goes to the operation that is current in the end.
        sampler.screen->choose(QStringLiteral("Value"), QStringLiteral("Alpha"));
        sampler.screen->press(QStringLiteral("Search"));
        sampler.screen->move(QStringLiteral("Result"), QStringLiteral("Next"));
        sampler.group->type(QStringLiteral("Total weight"), QStringLiteral("8"));
        sampler.save();
        QCOMPARE(sampler.groups(), QStringList{QStringLiteral("2|2|Trash|8")});
        QCOMPARE(sampler.weights(), (QStringList{QStringLiteral("2|1|2|0|0"), QStringLiteral("2|3|2|8|8")}));
    }

    void anotherOperation() {
        Sampler sampler;
        sampler.addSingle(kMackerel, QStringLiteral("5"));
        sampler.saveGroup(QStringLiteral("Trash"));
        sampler.store.session.lastSavedOperation = 0;
        sampler.reopen();
        sampler.screen->choose(QStringLiteral("Value"), QStringLiteral("Alpha"));
        sampler.screen->press(QStringLiteral("Search"));
        QCOMPARE(sampler.singles(), QStringList{kMackerel + QStringLiteral("|5")});
        QCOMPARE(sampler.record(), QStringLiteral("Record 1/1 Trash [Total weight 200 kg.]"));
        QCOMPARE(sampler.summary().size(), 2);
        sampler.screen->move(QStringLiteral("Result"), QStringLiteral("Next"));
        QCOMPARE(sampler.record(), QStringLiteral("No Group Data"));
        QCOMPARE(sampler.summary(), kBlank);
        sampler.screen->move(QStringLiteral("Result"), QStringLiteral("Previous"));
        sampler.screen->choose(QStringLiteral("Criterion"), QStringLiteral("Vessel"));
        QCOMPARE(sampler.singles(), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
        QVERIFY(!sampler.single->enabled(QStringLiteral("X")));
        QVERIFY(!sampler.group->enabled(QStringLiteral("X")));
    }

    void hostileNames_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("apostrophe") << QStringLiteral("O'Hara's '); drop table group_main; --");
        QTest::newRow("percent") << QStringLiteral("100 %1 & \\ \"tuna\" [x]");
        QTest::newRow("scripts") << QStringLiteral("ปลาทู 鯖 <b>Ålesund</b>");
        QTest::newRow("long") << QString(10'000, u'W');
    }
    void hostileNames() {
        QFETCH(QString, name);
        Sampler sampler;
        sampler.store.db().execute(Sql("update fish set fishname = ") << name << " where fishno = 1");
        sampler.reopen();
        const QString species = QStringLiteral("Rastrelliger ") + name;
        sampler.addSingle(species, QStringLiteral("5"));
        sampler.nameGroup(name, QStringLiteral("10"));
        sampler.list(species, QStringLiteral("5"));
        sampler.save();
        QCOMPARE(sampler.groups().last(), QStringLiteral("1|2|") + name + QStringLiteral("|10"));
        QCOMPARE(sampler.record(), QStringLiteral("Record 1/1 ") + name + QStringLiteral(" [Total weight 10 kg.]"));
        QCOMPARE(sampler.summary(), QStringList{species + QStringLiteral("|15.00|100.00")});
        const QSize least = sampler.group->grid(QStringLiteral("Pending group"))->window()->minimumSizeHint();
        QVERIFY2(least.width() <= 1340 && least.height() <= 590, "the screen outgrows the main window");
        sampler.single->press(QStringLiteral("X"));
        sampler.deleteGroup(true);
        QCOMPARE(sampler.groups(), QStringList());
        QCOMPARE(sampler.weights(), QStringList());
    }

    /// A group whose second species cannot be stored leaves nothing behind, and stays pending.
    void neverHalfAGroup() {
        Sampler sampler;
        sampler.store.execute(
            "create trigger refuse before insert on group_composition when new.spid = 3"
            " begin select raise(abort, 'no bream today'); end");
        sampler.nameGroup(QStringLiteral("Trash"), QStringLiteral("200"));
        sampler.list(kMackerel, QStringLiteral("4"));
        sampler.list(kBream, QStringLiteral("6"));
        sampler.store.dialogs.expectConfirm(QStringLiteral("CONFIRM"),
                                            QStringLiteral("Are you sure to 'SAVE' this group"), true);
        sampler.store.dialogs.expectMessageContaining(QStringLiteral("Nothing was stored"));
        sampler.group->press(QStringLiteral("SAVE"));
        QVERIFY(sampler.store.dialogs.done());
        QCOMPARE(sampler.groups(), QStringList());
        QCOMPARE(sampler.weights(), QStringList());
        QCOMPARE(sampler.pending().size(), 3);
        sampler.store.execute("drop trigger refuse");
        sampler.save();
        QCOMPARE(sampler.weights().size(), 2);
    }
};

KELVORA_TEST(TestSpeciesComposition, "species_composition");

}  // namespace kelvora::test_species_composition

#include "test_species_composition.moc"
