#include "sampling/sampling_screens.h"
#include "sampling_screen.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace kelvora::test_species_composition {

using test::kBream;
using test::kGoatfish;
using test::kMackerel;

const QStringList kBlank{u"||"_s};
const QString kSaveQuestion = u"Are you sure to 'SAVE' this group"_s;

/// Nothing is in the catches yet.
struct Sampler : test::SamplingScreen<SpeciesCompositionScreen> {
    explicit Sampler(int lastSaved = 1) : SamplingScreen(u"Species Composition"_s, lastSaved) {}

    [[nodiscard]] test::ScreenDriver single() const { return hand->within(u"Single species"_s); }
    [[nodiscard]] test::ScreenDriver group() const { return hand->within(u"Sampling group"_s); }

    void addSingle(const QString& species, const QString& weight) const {
        single().list(u"Species"_s)->setText(species);
        single().type(u"Weight"_s, weight);
        single().press(u"Add"_s);
    }
    void nameGroup(const QString& name, const QString& total) const {
        group().edit(u"Group"_s)->setText(name);
        group().type(u"Total weight"_s, total);
    }
    void list(const QString& species, const QString& weight) const {
        group().list(u"Species"_s)->setText(species);
        group().type(u"Weight"_s, weight);
        group().press(u"ADD"_s);
    }
    void save(bool yes = true) {
        store.dialogs.expectConfirm(u"CONFIRM"_s, kSaveQuestion, yes);
        group().press(u"SAVE"_s);
    }
    /// A group of 4 kg of mackerel and 6 kg of bream.
    void saveGroup(const QString& name) {
        nameGroup(name, u"200"_s);
        list(kMackerel, u"4"_s);
        list(kBream, u"6"_s);
        save();
    }
    void deleteGroup(bool yes = true) {
        store.dialogs.expectConfirm(u"Kelvora"_s, u"Are you sure to delete this group?"_s, yes);
        group().press(u"X"_s);
    }

    QStringList groups() { return store.rows("select optid, groupid, groupname, totalsampling from group_main"); }
    QStringList weights() {
        return store.rows("select optid, spid, groupid, totalweight, estotal from group_composition");
    }
    [[nodiscard]] QStringList summary() const { return hand->rows(u"Composition"_s); }
    [[nodiscard]] QStringList pending() const { return group().rows(u"Pending group"_s); }
    [[nodiscard]] QString record() const { return group().navigator(u"Group record"_s)->caption(); }
    [[nodiscard]] QStringList singles() const { return single().rows(u"Total catch in weight of single species"_s); }
};

class TestSpeciesComposition : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void singleSpecies() {
        Sampler sampler;
        sampler.addSingle(kMackerel, u"12.5"_s);
        QVERIFY(sampler.single().focused(u"Weight"_s));
        QCOMPARE(sampler.single().text(u"Weight"_s), QString());
        QCOMPARE(sampler.single().text(u"Species"_s), kMackerel);
        sampler.addSingle(kBream, u" 7.5 "_s);
        QCOMPARE(sampler.groups(), QStringList{u"1|1|Single species|20"_s});
        QCOMPARE(sampler.weights(), (QStringList{u"1|1|1|12.5|12.5"_s, u"1|3|1|7.5|7.5"_s}));
        QCOMPARE(sampler.singles(), (QStringList{kBream + u"|7.5"_s, kMackerel + u"|12.5"_s}));
        QCOMPARE(sampler.summary(), (QStringList{kBream + u"|7.50|37.50"_s, kMackerel + u"|12.50|62.50"_s}));

        sampler.store.dialogs.expectMessage(u"This species is in database already! please try again"_s);
        sampler.addSingle(kMackerel, u"2"_s);
        QCOMPARE(sampler.single().text(u"Weight"_s), u"2"_s);
        QCOMPARE(sampler.weights().size(), 2);

        const auto* record = sampler.single().navigator(u"Single species record"_s);
        QCOMPARE(record->caption(), kBream);
        sampler.single().move(u"Single species record"_s, u"Next"_s);
        QCOMPARE(record->caption(), kMackerel);
        sampler.single().press(u"X"_s);
        QCOMPARE(sampler.groups(), QStringList{u"1|1|Single species|7.5"_s});
        QCOMPARE(sampler.summary(), QStringList{kBream + u"|7.50|100.00"_s});
        sampler.single().press(u"X"_s);
        QCOMPARE(sampler.groups() + sampler.weights(), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
        QCOMPARE(record->caption(), QString());
        QVERIFY(!sampler.single().enabled(u"X"_s));

        // A species that weighs nothing has no share, and keeps the group.
        sampler.addSingle(kMackerel, u"0"_s);
        QCOMPARE(sampler.summary(), QStringList{kMackerel + u"|0.00|"_s});
        sampler.addSingle(kBream, u"5"_s);
        sampler.single().press(u"X"_s);
        QCOMPARE(sampler.groups(), QStringList{u"1|1|Single species|0"_s});
    }

    void raisedGroup() {
        Sampler sampler;
        sampler.addSingle(kMackerel, u"12.5"_s);
        sampler.nameGroup(u"Trash"_s, u"200"_s);
        QVERIFY(!sampler.group().enabled(u"SAVE"_s) && !sampler.group().enabled(u"CLEAR"_s));
        sampler.list(kMackerel, u"4.0"_s);
        sampler.list(kBream, u"6"_s);
        QCOMPARE(sampler.pending(), (QStringList{kMackerel + u"|4.0"_s, kBream + u"|6"_s, u"|"_s}));
        QCOMPARE(sampler.group().text(u"Total Sampling weight"_s), u"10"_s);
        sampler.save();
        QCOMPARE(sampler.groups(), (QStringList{u"1|1|Single species|12.5"_s, u"1|2|Trash|200"_s}));
        QCOMPARE(sampler.weights(), (QStringList{u"1|1|1|12.5|12.5"_s, u"1|1|2|4|80"_s, u"1|3|2|6|120"_s}));
        QCOMPARE(sampler.summary(), (QStringList{kBream + u"|120.00|56.47"_s, kMackerel + u"|92.50|43.53"_s}));
        QCOMPARE(sampler.record(), u"Record 1/1 Trash [Total weight 200 kg.]"_s);
        QCOMPARE(sampler.group().rows(u"Total catch in weight of Trash (kg.)"_s),
                 (QStringList{kBream + u"|6|120"_s, kMackerel + u"|4|80"_s}));
        QCOMPARE(sampler.pending(), QStringList{u"|"_s});
        for (const QString& field :
             {u"Group"_s, u"Total weight"_s, u"Total Sampling weight"_s, u"Species"_s, u"Weight"_s}) {
            QCOMPARE(sampler.group().text(field), QString());
        }
        QVERIFY(!sampler.group().enabled(u"SAVE"_s));

        // 100 / 3 is 33.33, and the raised weight is not rounded again.
        sampler.nameGroup(u"Small"_s, u"100"_s);
        sampler.list(kGoatfish, u"1.005"_s);
        sampler.list(kBream, u"1.995"_s);
        sampler.save();
        QVERIFY(sampler.weights().contains(u"1|2|3|1.005|33.49665"_s));
    }

    void groupNumbers() {
        Sampler sampler;
        sampler.saveGroup(u"First"_s);
        sampler.saveGroup(u"Second"_s);
        sampler.group().move(u"Group record"_s, u"Last"_s);
        QCOMPARE(sampler.record(), u"Record 2/2 Second [Total weight 200 kg.]"_s);
        sampler.deleteGroup(false);
        QCOMPARE(sampler.groups().size(), 2);
        sampler.deleteGroup();
        QCOMPARE(sampler.groups(), QStringList{u"1|2|First|200"_s});
        QCOMPARE(sampler.weights().size(), 2);
        sampler.saveGroup(u"Third"_s);
        QCOMPARE(sampler.groups(), (QStringList{u"1|2|First|200"_s, u"1|3|Third|200"_s}));
        sampler.deleteGroup();
        sampler.deleteGroup();
        QCOMPARE(sampler.record(), u"No Group Data"_s);
        QVERIFY(!sampler.group().enabled(u"X"_s));
        QCOMPARE(sampler.group().rows(u"Total catch in weight of sampling group"_s), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
    }

    void groupAskedFor() {
        Sampler sampler;
        test::ScriptedDialogs& dialogs = sampler.store.dialogs;
        dialogs.expectInput(u"Please input groupname"_s, std::nullopt);
        dialogs.expectMessage(u"ERROR"_s, u"Please input groupname"_s);
        sampler.list(kBream, u"5"_s);
        for (const auto& answer : {std::optional<QString>(), std::optional(u"10 kg"_s)}) {
            sampler.group().edit(u"Group"_s)->setText(u"Trash"_s);
            dialogs.expectInput(u"Please input total sampling weight!"_s, answer);
            dialogs.expectMessage(u"ERROR"_s, u"Please input total weight in numeric only (decimal point, no comma)"_s);
            sampler.group().press(u"ADD"_s);
            QVERIFY(sampler.group().enabled(u"Group"_s) && sampler.group().enabled(u"Total weight"_s));
            QCOMPARE(sampler.group().text(u"Weight"_s), u"5"_s);
        }
        sampler.group().edit(u"Group"_s)->clear();
        dialogs.expectInput(u"Please input groupname"_s, u"Trash"_s);
        dialogs.expectInput(u"Please input total sampling weight!"_s, u"0.30"_s);
        sampler.list(kMackerel, u"0.1"_s);
        QCOMPARE(sampler.group().text(u"Group"_s) + sampler.group().text(u"Total weight"_s), u"Trash0.3"_s);
        QVERIFY(!sampler.group().enabled(u"Group"_s) && !sampler.group().enabled(u"Total weight"_s));

        dialogs.expectMessage(u"ERROR"_s, u"Over weight! not over '0.2' kg."_s);
        sampler.list(kBream, u"0.21"_s);
        QCOMPARE(sampler.group().text(u"Weight"_s), QString());
        QVERIFY(sampler.group().focused(u"Weight"_s));
        sampler.list(kBream, u"0.2"_s);
        QCOMPARE(sampler.group().text(u"Total Sampling weight"_s), u"0.3"_s);
        dialogs.expectMessage(u"ERROR"_s, u"Species Repeat please try again"_s);
        sampler.list(kBream, u"0"_s);
        QCOMPARE(sampler.pending().size(), 3);

        sampler.group().press(u"CLEAR"_s);
        QCOMPARE(sampler.pending(), QStringList{u"|"_s});
        QVERIFY(sampler.group().enabled(u"Group"_s) && sampler.group().enabled(u"Total weight"_s));
        QCOMPARE(sampler.groups(), QStringList());
    }

    void repeatedGroupName() {
        Sampler sampler;
        sampler.saveGroup(u"Trash"_s);
        sampler.store.dialogs.expectInput(u"Please input groupname"_s, u"TRASH"_s);
        sampler.group().type(u"Total weight"_s, u"50"_s);
        sampler.list(kGoatfish, u"5"_s);
        sampler.save(false);
        sampler.store.dialogs.expectConfirm(u"CONFIRM"_s, kSaveQuestion, true);
        sampler.store.dialogs.expectMessage(u"ERROR!"_s, u"Group repeat please change new group"_s);
        sampler.group().press(u"SAVE"_s);
        QVERIFY(sampler.group().focused(u"Group"_s));
        QCOMPARE(sampler.group().text(u"Group"_s) + sampler.group().text(u"Total weight"_s), u"50"_s);
        QCOMPARE(sampler.pending().size(), 2);
        sampler.group().type(u"Group"_s, u"Other"_s);
        sampler.save();
        QCOMPARE(sampler.groups(), (QStringList{u"1|2|Trash|200"_s, u"1|3|Other|50"_s}));
    }

    void refusedSingles() {
        const QString noSpecies = u"Please select species!"_s;
        const QString noNumber = u"Please input weight in numeric only"_s;
        for (const auto& [species, weight, message] : {std::tuple{u""_s, u""_s, u"Please input weight"_s},
                                                       {u""_s, u"1e999"_s, noNumber},
                                                       {kBream, u"-5"_s, u"A weight cannot be negative"_s},
                                                       {u""_s, u"5"_s, noSpecies},
                                                       {u"0 or 1=1"_s, u"5"_s, noSpecies}}) {
            Sampler sampler;
            sampler.store.dialogs.expectMessage(u"ERROR!"_s, message);
            sampler.addSingle(species, weight);
            QCOMPARE(sampler.single().text(u"Weight"_s), weight);
            QCOMPARE(sampler.groups() + sampler.weights(), QStringList());
        }
    }

    void refusedForGroup() {
        const QString name = u"Trash"_s;
        struct Case {
            QString name, total, species, weight, message;
        };
        for (const Case& wrong : {Case{u" single SPECIES"_s, u"10"_s, kBream, u"1"_s,
                                       u"'Single species' is the group of the species weighed whole"_s},
                                  {name, u"ten"_s, kBream, u"1"_s,
                                   u"Please input total weight in numeric only (decimal point, no comma)"_s},
                                  {name, u"0"_s, kBream, u"1"_s, u"must be greater than 0"_s},
                                  {name, u"-5"_s, kBream, u"1"_s, u"must be greater than 0"_s},
                                  {name, u"10"_s, {}, u""_s, u"Please select species!"_s},
                                  {name, u"10"_s, kBream, u""_s, u"Please input weight!"_s},
                                  {name, u"10"_s, kBream, u"1,5"_s, u"Please input weight in numeric only"_s},
                                  {name, u"10"_s, kBream, u"-1"_s, u"cannot be negative"_s}}) {
            Sampler sampler;
            sampler.nameGroup(wrong.name, wrong.total);
            sampler.store.dialogs.expectMessageContaining(wrong.message);
            sampler.list(wrong.species, wrong.weight);
            QCOMPARE(sampler.pending(), QStringList{u"|"_s});
            QCOMPARE(sampler.group().text(u"Weight"_s), wrong.weight);
            QCOMPARE(sampler.group().text(u"Group"_s), wrong.name);
            QVERIFY(!sampler.group().enabled(u"SAVE"_s));
        }
    }

    /// Nothing that cannot be raised or belongs nowhere is stored, and nothing of it is lost.
    void refusedSave() {
        Sampler sampler(0);
        const auto refuse = [&](const QString& message) {
            sampler.store.dialogs.expectMessageContaining(message);
            sampler.group().press(u"SAVE"_s);
        };
        QCOMPARE(sampler.summary(), kBlank);
        sampler.addSingle(kMackerel, u"5"_s);
        sampler.list(kMackerel, u"5"_s);
        QCOMPARE(sampler.pending(), QStringList{u"|"_s});

        sampler.findOperations();
        sampler.nameGroup(u"Trash"_s, u"10"_s);
        sampler.list(kMackerel, u"0"_s);
        refuse(u"The weights of the sample sum to 0"_s);
        sampler.list(kBream, u"8"_s);
        sampler.group().type(u"Total weight"_s, u"7"_s);
        refuse(u"The sample weighs '8' kg., more than the '7' kg."_s);
        sampler.hand->choose(u"Value"_s, u"Beta"_s);
        sampler.store.dialogs.expectMessage(u"ERROR"_s, u"Please choose a fishing operation for this group"_s);
        sampler.group().press(u"SAVE"_s);
        QCOMPARE(sampler.pending().size(), 3);
        QCOMPARE(sampler.groups() + sampler.weights(), QStringList());

        // The pending group goes to the operation that is current in the end.
        sampler.findOperations();
        sampler.hand->move(u"Result"_s, u"Next"_s);
        sampler.group().type(u"Total weight"_s, u"8"_s);
        sampler.save();
        QCOMPARE(sampler.groups(), QStringList{u"2|2|Trash|8"_s});
        QCOMPARE(sampler.weights(), (QStringList{u"2|1|2|0|0"_s, u"2|3|2|8|8"_s}));
    }

    void anotherOperation() {
        Sampler sampler(0);
        sampler.findOperations();
        sampler.addSingle(kMackerel, u"5"_s);
        sampler.saveGroup(u"Trash"_s);
        sampler.hand->move(u"Result"_s, u"Next"_s);
        QCOMPARE(sampler.record(), u"No Group Data"_s);
        QCOMPARE(sampler.summary(), kBlank);
        sampler.addSingle(kMackerel, u"2"_s);  // in another operation it is another fish
        QCOMPARE(sampler.singles(), QStringList{kMackerel + u"|2"_s});
        sampler.hand->move(u"Result"_s, u"Previous"_s);
        QCOMPARE(sampler.singles(), QStringList{kMackerel + u"|5"_s});
        QCOMPARE(sampler.record(), u"Record 1/1 Trash [Total weight 200 kg.]"_s);
        QCOMPARE(sampler.summary().size(), 2);
        sampler.hand->choose(u"Criterion"_s, u"Vessel"_s);
        QCOMPARE(sampler.singles(), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
        QVERIFY(!sampler.single().enabled(u"X"_s) && !sampler.group().enabled(u"X"_s));
    }

    void hostileNames() {
        const QString hostile = u"O'Hara's '); drop table group_main; -- 100 %1 & \\ \"x\" [y] ปลาทู <b>Å</b>"_s;
        for (const QString& name : {hostile, QString(10'000, u'W')}) {
            Sampler sampler;
            sampler.store.db().execute(Sql("update fish set fishname = ") << name << " where fishno = 1");
            sampler.open();
            const QString species = u"Rastrelliger "_s + name;
            sampler.addSingle(species, u"5"_s);
            sampler.nameGroup(name, u"10"_s);
            sampler.list(species, u"5"_s);
            sampler.save();
            QCOMPARE(sampler.groups().last(), u"1|2|"_s + name + u"|10"_s);
            QCOMPARE(sampler.record(), u"Record 1/1 "_s + name + u" [Total weight 10 kg.]"_s);
            QCOMPARE(sampler.summary(), QStringList{species + u"|15.00|100.00"_s});
            const QSize least = sampler.screen->minimumSizeHint();
            QVERIFY2(least.width() <= 1340 && least.height() <= 590, "the screen outgrows the main window");
            sampler.single().press(u"X"_s);
            sampler.deleteGroup();
            QCOMPARE(sampler.groups() + sampler.weights(), QStringList());
        }
    }

    /// A group whose second species cannot be stored leaves nothing behind, and stays pending.
    void neverHalfAGroup() {
        Sampler sampler;
        sampler.store.execute(
            "create trigger refuse before insert on group_composition when new.spid = 3"
            " begin select raise(abort, 'no bream today'); end");
        sampler.store.dialogs.expectConfirm(u"CONFIRM"_s, kSaveQuestion, true);
        sampler.store.dialogs.expectMessageContaining(u"Nothing was stored"_s);
        sampler.nameGroup(u"Trash"_s, u"200"_s);
        sampler.list(kMackerel, u"4"_s);
        sampler.list(kBream, u"6"_s);
        sampler.group().press(u"SAVE"_s);
        QCOMPARE(sampler.groups() + sampler.weights(), QStringList());
        QCOMPARE(sampler.pending().size(), 3);
        sampler.store.execute("drop trigger refuse");
        sampler.save();
        QCOMPARE(sampler.weights().size(), 2);
    }
};

KELVORA_TEST(TestSpeciesComposition, "species_composition");

}  // namespace kelvora::test_species_composition

#include "test_species_composition.moc"
