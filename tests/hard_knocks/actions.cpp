#include "actions.h"

#include "operations/operation_entry_screen.h"
#include "reference/general_information_screen.h"
#include "sampling/gonad_maturity_screen.h"
#include "sampling/length_frequency_screen.h"
#include "sampling/species_composition_screen.h"
#include "search/search_screen.h"
#include "shell/change_password_screen.h"

namespace kelvora::test {
namespace {

using Hand = const ScreenDriver&;
using Prepare = std::function<void(Hand, RecordingDialogs&)>;
using Texts = std::initializer_list<std::pair<QString, QString>>;

template <typename ScreenClass>
std::unique_ptr<Screen> make(const Context& context) {
    return std::make_unique<ScreenClass>(context);
}

void typeAll(Hand hand, Texts texts) {
    for (const auto& [field, text] : texts) {
        hand.type(field, text);
    }
}

auto pressIn(const QString& frame, const QString& button) {
    return [=](Hand hand) { hand.within(frame).press(button); };
}
auto press(const QString& button) {
    return [=](Hand hand) { hand.press(button); };
}

/// Something new for a reference list.
Action added(const char* name, const QString& tab, const QString& frame, const QString& button,
             const std::vector<std::pair<QString, QString>>& texts, bool inSteps = false) {
    const auto prepare = [=](Hand hand, RecordingDialogs&) {
        hand.openTab(tab);
        for (const auto& [field, text] : texts) {
            hand.within(frame).type(field, text);
        }
    };
    return {name, make<GeneralInformationScreen>, prepare, pressIn(frame, button), inSteps};
}

/// The last row of a reference list, which nothing uses.
Action deleted(const char* name, const QString& tab, const QString& list) {
    const auto prepare = [=](Hand hand, RecordingDialogs&) {
        hand.openTab(tab);
        hand.move(list, u"Last"_qs);
    };
    return {name, make<GeneralInformationScreen>, prepare, pressIn(list, u"Delete"_qs)};
}

Action imported(const char* name, const QString& tab, const QString& frame, const QString& file,
                const QString& button) {
    const auto prepare = [=](Hand hand, RecordingDialogs& dialogs) {
        hand.openTab(tab);
        dialogs.path = QStringLiteral(KELVORA_TEST_FILES "/") + file;
        hand.within(frame).press(u"Import"_qs);
    };
    return {name, make<GeneralInformationScreen>, prepare, pressIn(frame, button)};
}

void appendReference(std::vector<Action>& all) {
    const QString general = u"General"_qs;
    const QString state = u"State/Province"_qs;
    const QString port = u"Sampling port"_qs;
    const QString gear = u"Fishing gear"_qs;
    const QString method = u"Fishing Method"_qs;
    const QString newMethod = u"New fishing method"_qs;
    const QString species = u"Target Species"_qs;
    const QString vessels = u"Fishing Vessel"_qs;
    const QString vesselFrame = u"FISHING VESSEL"_qs;
    all.push_back(
        added("a port", general, u"New sampling port"_qs, u"ADD"_qs, {{state, u"Beta"_qs}, {port, u"New"_qs}}));
    all.push_back(added("a port of a new state", general, u"New sampling port"_qs, u"ADD"_qs,
                        {{state, u"Gamma"_qs}, {port, u"New"_qs}}, true));
    all.push_back(added("a method", general, newMethod, u"Add"_qs, {{gear, u"Trawl"_qs}, {method, u"Beam"_qs}}));
    all.push_back(added("a method of a new gear", general, newMethod, u"Add"_qs,
                        {{gear, u"Trap"_qs}, {method, u"Pot"_qs}}, true));
    all.push_back(added("an area", general, u"New fishing area"_qs, u"Add"_qs,
                        {{u"Area Name"_qs, u"A9"_qs}, {u"Description"_qs, u"deep"_qs}}));
    all.push_back(added("a species", species, u"New species"_qs, u"Add"_qs,
                        {{u"Family"_qs, u"Gadidae"_qs}, {u"Genus"_qs, u"Gadus"_qs}, {u"Species"_qs, u"morhua"_qs}}));
    all.push_back({"a vessel", make<GeneralInformationScreen>,
                   [=](Hand hand, RecordingDialogs&) {
                       hand.openTab(vessels);
                       typeAll(hand, {{u"Vessel name"_qs, u"New"_qs},
                                      {u"Engine Power (hp)"_qs, u"75"_qs},
                                      {u"Size(GRT)"_qs, u"12.5"_qs},
                                      {u"Vessel Length(m)"_qs, u"9"_qs}});
                       hand.choose(u"Type of Gear"_qs, u"Trawl"_qs);
                       hand.choose(u"Engine type"_qs, u"In Board"_qs);
                   },
                   pressIn(vesselFrame, u"Add"_qs)});
    all.push_back(deleted("delete a port", general, u"State/Province and Sampling Port"_qs));
    all.push_back(deleted("delete a method", general, u"Fishing Gear and Method"_qs));
    all.push_back(deleted("delete an area", general, u"Fishing Area"_qs));
    all.push_back(deleted("delete a species", species, species));
    all.push_back(deleted("delete a vessel", vessels, vesselFrame));
    all.push_back(
        imported("import vessels", vessels, u"Vessel import"_qs, u"vessel_import_uk_10m_and_under.csv"_qs, u"Save"_qs));
    all.push_back(imported("import species", species, u"IMPORT"_qs, u"species_import_world_fishes.csv"_qs, u"SAVE"_qs));
}

void prepareOperation(Hand hand, const QString& state, const QString& port) {
    hand.choose(u"Vessel Register id"_qs, u"R-1"_qs);
    hand.choose(u"Fishing Gear"_qs, u"Trawl"_qs);
    hand.choose(u"Fishing Method"_qs, u"Pair"_qs);
    hand.choose(u"Fishing Area"_qs, u"A2"_qs);
    typeAll(hand, {{u"Landing State/Province"_qs, state}, {u"Landing Port"_qs, port}});
    typeAll(hand, {{u"Total Catch (kg/trip)"_qs, u"120.5"_qs}, {u"Note"_qs, u"rain"_qs}});
}

void prepareLengths(Hand hand, const QString& species) {
    hand.openTab(u"Length Frequency"_qs);
    hand.choose(u"Species"_qs, species);
    if (hand.enabled(u"Class Interval"_qs)) {
        hand.type(u"Class Interval"_qs, u"2"_qs);
    }
    typeAll(hand, {{u"Sampling weight"_qs, u"1.5"_qs}, {u"Lower limit(cm)"_qs, u"11"_qs}});
}

void prepareFish(Hand hand) {
    for (const QString& field : {u"TL(mm)"_qs, u"BL(mm)"_qs, u"FL(mm)"_qs, u"SL(mm)"_qs, u"BW"_qs}) {
        hand.type(field, u"100"_qs);
    }
    hand.type(u"GW"_qs, u"2.5"_qs);
    hand.choose(u"Stage"_qs, u"2-Maturing"_qs);
}

Prepare onTab(const QString& tab, const std::function<void(Hand)>& fill) {
    return [=](Hand hand, RecordingDialogs&) {
        hand.openTab(tab);
        fill(hand);
    };
}

void appendComposition(std::vector<Action>& all) {
    const QString bream = u"Nemipterus virgatus"_qs;
    const QString composition = u"Species Composition"_qs;
    const QString single = u"Single species"_qs;
    const QString group = u"Sampling group"_qs;
    all.push_back({"a single species", make<SpeciesCompositionScreen>,
                   onTab(composition,
                         [=](Hand hand) {
                             hand.within(single).choose(u"Species"_qs, bream);
                             hand.within(single).type(u"Weight"_qs, u"4"_qs);
                         }),
                   pressIn(single, u"Add"_qs)});
    all.push_back({"delete a single species", make<SpeciesCompositionScreen>, onTab(composition, [](Hand) {}),
                   pressIn(single, u"X"_qs)});
    all.push_back({"a group", make<SpeciesCompositionScreen>,
                   onTab(composition,
                         [=](Hand hand) {
                             const ScreenDriver frame = hand.within(group);
                             typeAll(frame, {{u"Group"_qs, u"Mixed"_qs}, {u"Total weight"_qs, u"60"_qs}});
                             frame.choose(u"Species"_qs, bream);
                             frame.type(u"Weight"_qs, u"4"_qs);
                             frame.press(u"ADD"_qs);
                         }),
                   pressIn(group, u"SAVE"_qs)});
    all.push_back(
        {"delete a group", make<SpeciesCompositionScreen>, onTab(composition, [](Hand) {}), pressIn(group, u"X"_qs)});
}

void appendEntry(std::vector<Action>& all) {
    const QString bream = u"Nemipterus virgatus"_qs;
    all.push_back({"an operation", make<OperationEntryScreen>,
                   [](Hand hand, RecordingDialogs&) { prepareOperation(hand, u"Alpha"_qs, u"Bex"_qs); },
                   press(u"SAVE"_qs)});
    all.push_back({"an operation at a new port", make<OperationEntryScreen>,
                   [](Hand hand, RecordingDialogs&) { prepareOperation(hand, u"Gamma"_qs, u"New"_qs); },
                   press(u"SAVE"_qs), true});
    all.push_back({"lengths", make<LengthFrequencyScreen>,
                   onTab(u"Length Frequency"_qs,
                         [=](Hand hand) {
                             prepareLengths(hand, bream);
                             hand.press(u"START INPUT>>"_qs);
                             hand.type(u"Frequency"_qs, u"3"_qs);
                             hand.key(u"Frequency"_qs, Qt::Key_Return);
                             hand.press(u"FINISH"_qs);
                         }),
                   press(u"SAVE"_qs)});
    all.push_back({"lengths again", make<LengthFrequencyScreen>,
                   onTab(u"Length Frequency"_qs, [](Hand hand) { prepareLengths(hand, u"Rastrelliger kanagurta"_qs); }),
                   press(u"START INPUT>>"_qs)});
    all.push_back({"fish", make<GonadMaturityScreen>,
                   onTab(u"Gonad Maturity Detail"_qs,
                         [=](Hand hand) {
                             hand.choose(u"Species"_qs, bream);
                             hand.press(u"ADD SAMPLING >>"_qs);
                             for (int i = 0; i < 3; ++i) {
                                 prepareFish(hand);
                                 hand.press(u"NEXT>>"_qs);
                             }
                         }),
                   press(u"SAVE"_qs), true});
}

/// On the search screen, operation 1 on it.
Action corrected(const char* name, const QString& tab, const std::function<void(Hand)>& fill, const QString& button) {
    const auto prepare = [=](Hand hand, RecordingDialogs&) {
        hand.choose(u"Criterion"_qs, u"State/Province"_qs);
        hand.choose(u"Value"_qs, u"Alpha"_qs);
        hand.press(u"SEARCH"_qs);
        hand.openTab(tab);
        fill(hand);
    };
    return {name, make<SearchScreen>, prepare, press(button)};
}

void appendCorrections(std::vector<Action>& all) {
    const QString composition = u"Species Composition"_qs;
    const QString lengths = u"Length Frequency"_qs;
    const QString gonads = u"Gonad Matuarity"_qs;
    const auto nothing = [](Hand) {};
    all.push_back(corrected("delete an operation", composition, nothing, u"DELETE"_qs));
    all.push_back(corrected("delete a stored group", composition, nothing, u"Delete group"_qs));
    all.push_back(corrected("delete lengths", lengths, nothing, u"Delete length sample"_qs));
    all.push_back(corrected("delete fish", gonads, nothing, u"Delete gonad sample"_qs));
    all.push_back(corrected(
        "correct a weight", lengths, [](Hand hand) { hand.type(u"Sample weight (kg.)"_qs, u"3"_qs); }, u"Update"_qs));
    all.push_back(corrected(
        "a further class", lengths, [](Hand hand) { hand.type(u"Frequency"_qs, u"7"_qs); }, u"ADD"_qs));
    all.push_back(corrected("a further fish", gonads, &prepareFish, u"ADD"_qs));
    all.push_back(
        {"the password", make<ChangePasswordScreen>,
         [](Hand hand, RecordingDialogs&) {
             typeAll(hand,
                     {{u"Username"_qs, u"Somebody"_qs}, {u"Password"_qs, u"new"_qs}, {u"Re-password"_qs, u"new"_qs}});
         },
         press(u"CHANGE PASSWORD"_qs)});
}

}  // namespace

const std::vector<Action>& actions() {
    static const std::vector<Action> all = [] {
        std::vector<Action> made;
        appendReference(made);
        appendEntry(made);
        appendComposition(made);
        appendCorrections(made);
        return made;
    }();
    return all;
}

}  // namespace kelvora::test
