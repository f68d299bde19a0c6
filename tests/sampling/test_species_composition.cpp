#include "sampling/species_composition_screen.h"
#include "sampling_screen.h"

#include <QLineEdit>

namespace kelvora::test_species_composition {

using test::kBream;
using test::kGoatfish;
using test::kMackerel;

const QStringList kBlank{u"||"_qs};
const QString kSaveQuestion = u"Are you sure to 'SAVE' this group"_qs;

/// Nothing is in the catches yet.
struct Sampler : test::SamplingScreen<SpeciesCompositionScreen> {
    explicit Sampler(int lastSaved = 1) : SamplingScreen(u"Species Composition"_qs, lastSaved) {}

    [[nodiscard]] test::ScreenDriver single() const { return hand->within(u"Single species"_qs); }
    [[nodiscard]] test::ScreenDriver group() const { return hand->within(u"Sampling group"_qs); }

    void addSingle(const QString& species, const QString& weight) const {
        single().list(u"Species"_qs)->setText(species);
        single().type(u"Weight"_qs, weight);
        single().press(u"Add"_qs);
    }
    void nameGroup(const QString& name, const QString& total) const {
        group().edit(u"Group"_qs)->setText(name);
        group().type(u"Total weight"_qs, total);
    }
    void list(const QString& species, const QString& weight) const {
        group().list(u"Species"_qs)->setText(species);
        group().type(u"Weight"_qs, weight);
        group().press(u"ADD"_qs);
    }
    void save(bool yes = true) {
        store.dialogs.expectConfirm(u"CONFIRM"_qs, kSaveQuestion, yes);
        group().press(u"SAVE"_qs);
    }
    /// A group of 4 kg of mackerel and 6 kg of bream.
    void saveGroup(const QString& name) {
        nameGroup(name, u"200"_qs);
        list(kMackerel, u"4"_qs);
        list(kBream, u"6"_qs);
        save();
    }
    void deleteGroup(bool yes = true) {
        store.dialogs.expectConfirm(u"Kelvora"_qs, u"Are you sure to delete this group?"_qs, yes);
        group().press(u"X"_qs);
    }

    QStringList groups() { return store.rows("select optid, groupid, groupname, totalsampling from group_main"); }
    QStringList weights() {
        return store.rows("select optid, spid, groupid, totalweight, estotal from group_composition");
    }
    [[nodiscard]] QStringList summary() const { return hand->rows(u"Composition"_qs); }
    [[nodiscard]] QStringList pending() const { return group().rows(u"Pending group"_qs); }
    [[nodiscard]] QString record() const { return group().navigator(u"Group record"_qs)->caption(); }
    [[nodiscard]] QStringList singles() const { return single().rows(u"Total catch in weight of single species"_qs); }
};

class TestSpeciesComposition : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void singleSpecies() {
        Sampler sampler;
        sampler.addSingle(kMackerel, u"12.5"_qs);
        QVERIFY(sampler.single().focused(u"Weight"_qs));
        QCOMPARE(sampler.single().text(u"Weight"_qs), QString());
        QCOMPARE(sampler.single().text(u"Species"_qs), kMackerel);
        sampler.addSingle(kBream, u" 7.5 "_qs);
        QCOMPARE(sampler.groups(), QStringList{u"1|1|Single species|20"_qs});
        QCOMPARE(sampler.weights(), (QStringList{u"1|1|1|12.5|12.5"_qs, u"1|3|1|7.5|7.5"_qs}));
        QCOMPARE(sampler.singles(), (QStringList{kBream + u"|7.5"_qs, kMackerel + u"|12.5"_qs}));
        QCOMPARE(sampler.summary(), (QStringList{kBream + u"|7.50|37.50"_qs, kMackerel + u"|12.50|62.50"_qs}));

        sampler.store.dialogs.expectMessage(u"This species is in database already! please try again"_qs);
        sampler.addSingle(kMackerel, u"2"_qs);
        QCOMPARE(sampler.single().text(u"Weight"_qs), u"2"_qs);
        QCOMPARE(sampler.weights().size(), 2);

        const auto* record = sampler.single().navigator(u"Single species record"_qs);
        QCOMPARE(record->caption(), kBream);
        sampler.single().move(u"Single species record"_qs, u"Next"_qs);
        QCOMPARE(record->caption(), kMackerel);
        sampler.single().press(u"X"_qs);
        QCOMPARE(sampler.groups(), QStringList{u"1|1|Single species|7.5"_qs});
        QCOMPARE(sampler.summary(), QStringList{kBream + u"|7.50|100.00"_qs});
        sampler.single().press(u"X"_qs);
        QCOMPARE(sampler.groups() + sampler.weights(), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
        QCOMPARE(record->caption(), QString());
        QVERIFY(!sampler.single().enabled(u"X"_qs));

        // A species that weighs nothing has no share, and keeps the group.
        sampler.addSingle(kMackerel, u"0"_qs);
        QCOMPARE(sampler.summary(), QStringList{kMackerel + u"|0.00|"_qs});
        sampler.addSingle(kBream, u"5"_qs);
        sampler.single().press(u"X"_qs);
        QCOMPARE(sampler.groups(), QStringList{u"1|1|Single species|0"_qs});
    }

    void raisedGroup() {
        Sampler sampler;
        sampler.addSingle(kMackerel, u"12.5"_qs);
        sampler.nameGroup(u"Trash"_qs, u"200"_qs);
        QVERIFY(!sampler.group().enabled(u"SAVE"_qs) && !sampler.group().enabled(u"CLEAR"_qs));
        sampler.list(kMackerel, u"4.0"_qs);
        sampler.list(kBream, u"6"_qs);
        QCOMPARE(sampler.pending(), (QStringList{kMackerel + u"|4.0|1"_qs, kBream + u"|6|3"_qs, u"||"_qs}));
        QCOMPARE(sampler.group().text(u"Total Sampling weight"_qs), u"10"_qs);
        sampler.save();
        QCOMPARE(sampler.groups(), (QStringList{u"1|1|Single species|12.5"_qs, u"1|2|Trash|200"_qs}));
        QCOMPARE(sampler.weights(), (QStringList{u"1|1|1|12.5|12.5"_qs, u"1|1|2|4|80"_qs, u"1|3|2|6|120"_qs}));
        QCOMPARE(sampler.summary(), (QStringList{kBream + u"|120.00|56.47"_qs, kMackerel + u"|92.50|43.53"_qs}));
        QCOMPARE(sampler.record(), u"Record 1/1 Trash [Total weight 200 kg.]"_qs);
        QCOMPARE(sampler.group().rows(u"Total catch in weight of Trash (kg.)"_qs),
                 (QStringList{kBream + u"|6|120"_qs, kMackerel + u"|4|80"_qs}));
        QCOMPARE(sampler.pending(), kBlank);
        for (const QString& field :
             {u"Group"_qs, u"Total weight"_qs, u"Total Sampling weight"_qs, u"Species"_qs, u"Weight"_qs}) {
            QCOMPARE(sampler.group().text(field), QString());
        }
        QVERIFY(!sampler.group().enabled(u"SAVE"_qs));

        // 100 / 3 is 33.33, and the raised weight is not rounded again.
        sampler.nameGroup(u"Small"_qs, u"100"_qs);
        sampler.list(kGoatfish, u"1.005"_qs);
        sampler.list(kBream, u"1.995"_qs);
        sampler.save();
        QVERIFY(sampler.weights().contains(u"1|2|3|1.005|33.49665"_qs));
    }

    void groupNumbers() {
        Sampler sampler;
        sampler.saveGroup(u"First"_qs);
        sampler.saveGroup(u"Second"_qs);
        sampler.group().move(u"Group record"_qs, u"Last"_qs);
        QCOMPARE(sampler.record(), u"Record 2/2 Second [Total weight 200 kg.]"_qs);
        sampler.deleteGroup(false);
        QCOMPARE(sampler.groups().size(), 2);
        sampler.deleteGroup();
        QCOMPARE(sampler.groups(), QStringList{u"1|2|First|200"_qs});
        QCOMPARE(sampler.weights().size(), 2);
        sampler.saveGroup(u"Third"_qs);
        QCOMPARE(sampler.groups(), (QStringList{u"1|2|First|200"_qs, u"1|3|Third|200"_qs}));
        sampler.deleteGroup();
        sampler.deleteGroup();
        QCOMPARE(sampler.record(), u"No Group Data"_qs);
        QVERIFY(!sampler.group().enabled(u"X"_qs));
        QCOMPARE(sampler.group().rows(u"Total catch in weight of sampling group"_qs), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
    }

    void groupAskedFor() {
        Sampler sampler;
        test::ScriptedDialogs& dialogs = sampler.store.dialogs;
        dialogs.expectInput(u"Please input groupname"_qs, std::nullopt);
        dialogs.expectMessage(u"ERROR"_qs, u"Please input groupname"_qs);
        sampler.list(kBream, u"5"_qs);
        for (const auto& answer : {std::optional<QString>(), std::optional(u"10 kg"_qs)}) {
            sampler.group().edit(u"Group"_qs)->setText(u"Trash"_qs);
            dialogs.expectInput(u"Please input total sampling weight!"_qs, answer);
            dialogs.expectMessage(u"ERROR"_qs, u"Please input total weight in numeric only"_qs);
            sampler.group().press(u"ADD"_qs);
            QVERIFY(sampler.group().enabled(u"Group"_qs) && sampler.group().enabled(u"Total weight"_qs));
            QCOMPARE(sampler.group().text(u"Weight"_qs), u"5"_qs);
        }
        sampler.group().edit(u"Group"_qs)->clear();
        dialogs.expectInput(u"Please input groupname"_qs, u"Trash"_qs);
        dialogs.expectInput(u"Please input total sampling weight!"_qs, u"0.30"_qs);
        sampler.list(kMackerel, u"0.1"_qs);
        QCOMPARE(sampler.group().text(u"Group"_qs) + sampler.group().text(u"Total weight"_qs), u"Trash0.3"_qs);
        QVERIFY(!sampler.group().enabled(u"Group"_qs) && !sampler.group().enabled(u"Total weight"_qs));

        dialogs.expectMessage(u"ERROR"_qs, u"Over weight! not over '0.2' kg."_qs);
        sampler.list(kBream, u"0.21"_qs);
        QCOMPARE(sampler.group().text(u"Weight"_qs), QString());
        QVERIFY(sampler.group().focused(u"Weight"_qs));
        sampler.list(kBream, u"0.2"_qs);
        QCOMPARE(sampler.group().text(u"Total Sampling weight"_qs), u"0.3"_qs);
        dialogs.expectMessage(u"ERROR"_qs, u"Species Repeat please try again"_qs);
        sampler.list(kBream, u"0"_qs);
        QCOMPARE(sampler.pending().size(), 3);

        sampler.group().press(u"CLEAR"_qs);
        QCOMPARE(sampler.pending(), kBlank);
        QVERIFY(sampler.group().enabled(u"Group"_qs) && sampler.group().enabled(u"Total weight"_qs));
        QCOMPARE(sampler.groups(), QStringList());
    }

    void repeatedGroupName() {
        Sampler sampler;
        sampler.saveGroup(u"Trash"_qs);
        sampler.store.dialogs.expectInput(u"Please input groupname"_qs, u"TRASH"_qs);
        sampler.group().type(u"Total weight"_qs, u"50"_qs);
        sampler.list(kGoatfish, u"5"_qs);
        sampler.save(false);
        sampler.store.dialogs.expectConfirm(u"CONFIRM"_qs, kSaveQuestion, true);
        sampler.store.dialogs.expectMessage(u"ERROR!"_qs, u"Group repeat please change new group"_qs);
        sampler.group().press(u"SAVE"_qs);
        QVERIFY(sampler.group().focused(u"Group"_qs));
        QCOMPARE(sampler.group().text(u"Group"_qs) + sampler.group().text(u"Total weight"_qs), u"50"_qs);
        QCOMPARE(sampler.pending().size(), 2);
        sampler.group().type(u"Group"_qs, u"Other"_qs);
        sampler.save();
        QCOMPARE(sampler.groups(), (QStringList{u"1|2|Trash|200"_qs, u"1|3|Other|50"_qs}));
    }

    void refusedSingles() {
        const QString noSpecies = u"Please select species!"_qs;
        const QString noNumber = u"Please input weight in numeric only"_qs;
        for (const auto& [species, weight, message] : {std::tuple{u""_qs, u""_qs, u"Please input weight"_qs},
                                                       {u""_qs, u"1e999"_qs, noNumber},
                                                       {kBream, u"-5"_qs, u"A weight cannot be negative"_qs},
                                                       {u""_qs, u"5"_qs, noSpecies},
                                                       {u"0 or 1=1"_qs, u"5"_qs, noSpecies}}) {
            Sampler sampler;
            sampler.store.dialogs.expectMessage(u"ERROR!"_qs, message);
            sampler.addSingle(species, weight);
            QCOMPARE(sampler.single().text(u"Weight"_qs), weight);
            QCOMPARE(sampler.groups() + sampler.weights(), QStringList());
        }
    }

    void refusedForGroup() {
        const QString name = u"Trash"_qs;
        struct Case {
            QString name, total, species, weight, message;
        };
        for (const Case& wrong : {Case{u" single SPECIES"_qs, u"10"_qs, kBream, u"1"_qs,
                                       u"'Single species' is the group of the species weighed whole"_qs},
                                  {name, u"ten"_qs, kBream, u"1"_qs, u"Please input total weight in numeric only"_qs},
                                  {name, u"0"_qs, kBream, u"1"_qs, u"must be greater than 0"_qs},
                                  {name, u"-5"_qs, kBream, u"1"_qs, u"must be greater than 0"_qs},
                                  {name, u"10"_qs, {}, u""_qs, u"Please select species!"_qs},
                                  {name, u"10"_qs, kBream, u""_qs, u"Please input weight!"_qs},
                                  {name, u"10"_qs, kBream, u"1,5"_qs, u"Please input weight in numeric only"_qs},
                                  {name, u"10"_qs, kBream, u"-1"_qs, u"cannot be negative"_qs}}) {
            Sampler sampler;
            sampler.nameGroup(wrong.name, wrong.total);
            sampler.store.dialogs.expectMessageContaining(wrong.message);
            sampler.list(wrong.species, wrong.weight);
            QCOMPARE(sampler.pending(), kBlank);
            QCOMPARE(sampler.group().text(u"Weight"_qs), wrong.weight);
            QCOMPARE(sampler.group().text(u"Group"_qs), wrong.name);
            QVERIFY(!sampler.group().enabled(u"SAVE"_qs));
        }
    }

    /// Nothing that cannot be raised or belongs nowhere is stored, and nothing of it is lost.
    void refusedSave() {
        Sampler sampler(0);
        const auto refuse = [&](const QString& message) {
            sampler.store.dialogs.expectMessageContaining(message);
            sampler.group().press(u"SAVE"_qs);
        };
        QCOMPARE(sampler.summary(), kBlank);
        sampler.addSingle(kMackerel, u"5"_qs);
        sampler.list(kMackerel, u"5"_qs);
        QCOMPARE(sampler.pending(), kBlank);

        sampler.findOperations();
        sampler.nameGroup(u"Trash"_qs, u"10"_qs);
        sampler.list(kMackerel, u"0"_qs);
        refuse(u"The weights of the sample sum to 0"_qs);
        sampler.list(kBream, u"8"_qs);
        sampler.group().type(u"Total weight"_qs, u"7"_qs);
        refuse(u"The sample weighs '8' kg., more than the '7' kg."_qs);
        sampler.hand->choose(u"Value"_qs, u"Beta"_qs);
        sampler.store.dialogs.expectMessage(u"ERROR"_qs, u"Please choose a fishing operation for this group"_qs);
        sampler.group().press(u"SAVE"_qs);
        QCOMPARE(sampler.pending().size(), 3);
        QCOMPARE(sampler.groups() + sampler.weights(), QStringList());

        // The pending group goes to the operation that is current in the end.
        sampler.findOperations();
        sampler.hand->move(u"Result"_qs, u"Next"_qs);
        sampler.group().type(u"Total weight"_qs, u"8"_qs);
        sampler.save();
        QCOMPARE(sampler.groups(), QStringList{u"2|2|Trash|8"_qs});
        QCOMPARE(sampler.weights(), (QStringList{u"2|1|2|0|0"_qs, u"2|3|2|8|8"_qs}));
    }

    void anotherOperation() {
        Sampler sampler(0);
        sampler.findOperations();
        sampler.addSingle(kMackerel, u"5"_qs);
        sampler.saveGroup(u"Trash"_qs);
        sampler.hand->move(u"Result"_qs, u"Next"_qs);
        QCOMPARE(sampler.record(), u"No Group Data"_qs);
        QCOMPARE(sampler.summary(), kBlank);
        sampler.addSingle(kMackerel, u"2"_qs);  // in another operation it is another fish
        QCOMPARE(sampler.singles(), QStringList{kMackerel + u"|2"_qs});
        sampler.hand->move(u"Result"_qs, u"Previous"_qs);
        QCOMPARE(sampler.singles(), QStringList{kMackerel + u"|5"_qs});
        QCOMPARE(sampler.record(), u"Record 1/1 Trash [Total weight 200 kg.]"_qs);
        QCOMPARE(sampler.summary().size(), 2);
        sampler.hand->choose(u"Criterion"_qs, u"Vessel"_qs);
        QCOMPARE(sampler.singles(), QStringList());
        QCOMPARE(sampler.summary(), kBlank);
        QVERIFY(!sampler.single().enabled(u"X"_qs) && !sampler.group().enabled(u"X"_qs));
    }

    void hostileNames() {
        const QString hostile = u"O'Hara's '); drop table group_main; -- 100 %1 & \\ \"x\" [y] ปลาทู <b>Å</b>"_qs;
        for (const QString& name : {hostile, QString(10'000, u'W')}) {
            Sampler sampler;
            sampler.store.db().execute(Sql("update fish set fishname = ") << name << " where fishno = 1");
            sampler.open();
            const QString species = u"Rastrelliger "_qs + name;
            sampler.addSingle(species, u"5"_qs);
            sampler.nameGroup(name, u"10"_qs);
            sampler.list(species, u"5"_qs);
            sampler.save();
            QCOMPARE(sampler.groups().last(), u"1|2|"_qs + name + u"|10"_qs);
            QCOMPARE(sampler.record(), u"Record 1/1 "_qs + name + u" [Total weight 10 kg.]"_qs);
            QCOMPARE(sampler.summary(), QStringList{species + u"|15.00|100.00"_qs});
            const QSize least = sampler.screen->minimumSizeHint();
            QVERIFY2(least.width() <= 1340 && least.height() <= 590, "the screen outgrows the main window");
            sampler.single().press(u"X"_qs);
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
        sampler.store.dialogs.expectConfirm(u"CONFIRM"_qs, kSaveQuestion, true);
        sampler.store.dialogs.expectMessageContaining(u"Nothing was stored"_qs);
        sampler.nameGroup(u"Trash"_qs, u"200"_qs);
        sampler.list(kMackerel, u"4"_qs);
        sampler.list(kBream, u"6"_qs);
        sampler.group().press(u"SAVE"_qs);
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
