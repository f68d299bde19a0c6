#include "actions.h"

#include "operations/operation_entry_screen.h"
#include "reference/general_information_screen.h"
#include "sampling/gonad_maturity_screen.h"
#include "sampling/length_frequency_screen.h"
#include "sampling/species_composition_screen.h"
#include "search/search_screen.h"
#include "shell/change_password_screen.h"

#include <algorithm>
#include <cstring>

namespace kelvora::test {
namespace {

constexpr auto kReference = &make<GeneralInformationScreen>;
constexpr auto kComposition = &make<SpeciesCompositionScreen>;
const QString kBream = u"Nemipterus virgatus"_qs;

void appendReference(std::vector<Action>& all) {
    const QString general = u"General"_qs;
    const QString species = u"Target Species"_qs;
    const QString vessels = u"Fishing Vessel"_qs;
    const auto port = [&](const char* name, const QString& state, bool inSteps) {
        const Steps typed = {{u"State/Province"_qs, state}, {u"Sampling port"_qs, u"New"_qs}};
        all.push_back({name, kReference, general, u"New sampling port"_qs, typed, u"ADD"_qs, {}, inSteps});
    };
    const auto method = [&](const char* name, const QString& gear, bool inSteps) {
        const Steps typed = {{u"Fishing gear"_qs, gear}, {u"Fishing Method"_qs, u"Beam"_qs}};
        all.push_back({name, kReference, general, u"New fishing method"_qs, typed, u"Add"_qs, {}, inSteps});
    };
    // The last row of a list, which nothing uses.
    const auto deleted = [&](const char* name, const QString& tab, const QString& list) {
        all.push_back({name, kReference, tab, list, {{u"Last"_qs, {}}}, u"Delete"_qs});
    };
    port("a port", u"Beta"_qs, false);
    port("a port of a new state", u"Gamma"_qs, true);
    method("a method", u"Trawl"_qs, false);
    method("a method of a new gear", u"Trap"_qs, true);
    const Steps area = {{u"Area Name"_qs, u"A9"_qs}, {u"Description"_qs, u"deep"_qs}};
    all.push_back({"an area", kReference, general, u"New fishing area"_qs, area, u"Add"_qs});
    const Steps cod = {{u"Family"_qs, u"Gadidae"_qs}, {u"Genus"_qs, u"Gadus"_qs}, {u"Species"_qs, u"morhua"_qs}};
    all.push_back({"a species", kReference, species, u"New species"_qs, cod, u"Add"_qs});
    const Steps vessel = {{u"Vessel name"_qs, u"New"_qs},    {u"Engine Power (hp)"_qs, u"75"_qs},
                          {u"Size(GRT)"_qs, u"12.5"_qs},     {u"Vessel Length(m)"_qs, u"9"_qs},
                          {u"Type of Gear"_qs, u"Trawl"_qs}, {u"Engine type"_qs, u"In Board"_qs}};
    all.push_back({"a vessel", kReference, vessels, u"FISHING VESSEL"_qs, vessel, u"Add"_qs});
    deleted("delete a port", general, u"State/Province and Sampling Port"_qs);
    deleted("delete a method", general, u"Fishing Gear and Method"_qs);
    deleted("delete an area", general, u"Fishing Area"_qs);
    deleted("delete a species", species, species);
    deleted("delete a vessel", vessels, u"FISHING VESSEL"_qs);
    const Steps import = {{u"Import"_qs, {}}};
    all.push_back({"import vessels", kReference, vessels, u"Vessel import"_qs, import, u"Save"_qs,
                   u"vessel_import_uk_10m_and_under.csv"_qs});
    all.push_back({"import species", kReference, species, u"IMPORT"_qs, import, u"SAVE"_qs,
                   u"species_import_world_fishes.csv"_qs});
}

void appendOperations(std::vector<Action>& all) {
    const auto operation = [&](const char* name, const QString& state, const QString& port, bool inSteps) {
        const Steps typed = {{u"Vessel Register id"_qs, u"R-1"_qs},      {u"Fishing Gear"_qs, u"Trawl"_qs},
                             {u"Fishing Method"_qs, u"Pair"_qs},         {u"Fishing Area"_qs, u"A2"_qs},
                             {u"Landing State/Province"_qs, state},      {u"Landing Port"_qs, port},
                             {u"Total Catch (kg/trip)"_qs, u"120.5"_qs}, {u"Note"_qs, u"rain"_qs}};
        all.push_back({name, &make<OperationEntryScreen>, {}, {}, typed, u"SAVE"_qs, {}, inSteps});
    };
    operation("an operation", u"Alpha"_qs, u"Bex"_qs, false);
    operation("an operation at a new port", u"Gamma"_qs, u"New"_qs, true);
    all.push_back({"the password",
                   &make<ChangePasswordScreen>,
                   {},
                   {},
                   {{u"Username"_qs, u"Somebody"_qs}, {u"Password"_qs, u"new"_qs}, {u"Re-password"_qs, u"new"_qs}},
                   u"CHANGE PASSWORD"_qs});
}

void appendSamples(std::vector<Action>& all, const Steps& fish) {
    const QString composition = u"Species Composition"_qs;
    const QString single = u"Single species"_qs;
    const QString group = u"Sampling group"_qs;
    const Steps weighed = {{u"Species"_qs, kBream}, {u"Weight"_qs, u"4"_qs}};
    all.push_back({"a single species", kComposition, composition, single, weighed, u"Add"_qs});
    all.push_back({"a group", kComposition, composition, group,
                   Steps{{u"Group"_qs, u"Mixed"_qs}, {u"Total weight"_qs, u"60"_qs}} + weighed + Steps{{u"ADD"_qs, {}}},
                   u"SAVE"_qs});
    all.push_back({"delete a single species", kComposition, composition, single, {}, u"X"_qs});
    all.push_back({"delete a group", kComposition, composition, group, {}, u"X"_qs});

    const QString lengths = u"Length Frequency"_qs;
    const QString start = u"START INPUT>>"_qs;
    const Steps limits = {{u"Sampling weight"_qs, u"1.5"_qs}, {u"Lower limit(cm)"_qs, u"11"_qs}};
    all.push_back({"lengths",
                   &make<LengthFrequencyScreen>,
                   lengths,
                   {},
                   Steps{{u"Species"_qs, kBream}, {u"Class Interval"_qs, u"2"_qs}} + limits +
                       Steps{{start, {}}, {u"Frequency"_qs, u"3\n"_qs}, {u"FINISH"_qs, {}}},
                   u"SAVE"_qs});
    all.push_back({"lengths again",
                   &make<LengthFrequencyScreen>,
                   lengths,
                   {},
                   Steps{{u"Species"_qs, u"Rastrelliger kanagurta"_qs}} + limits,
                   start});
    all.push_back({"fish",
                   &make<GonadMaturityScreen>,
                   u"Gonad Maturity Detail"_qs,
                   {},
                   Steps{{u"Species"_qs, kBream}, {u"ADD SAMPLING >>"_qs, {}}} + fish + fish + fish,
                   u"SAVE"_qs,
                   {},
                   true});
}

void appendCorrections(std::vector<Action>& all, const Steps& fish) {
    const QString composition = u"Species Composition"_qs;
    const QString lengths = u"Length Frequency"_qs;
    const QString gonads = u"Gonad Matuarity"_qs;
    // On the search screen, operation 1 on it.
    const auto corrected = [&](const char* name, const QString& tab, const Steps& typed, const QString& button) {
        const Steps search = {{u"Criterion"_qs, u"State/Province"_qs}, {u"Value"_qs, u"Alpha"_qs}, {u"SEARCH"_qs, {}}};
        all.push_back({name, &make<SearchScreen>, tab, {}, search + typed, button});
    };
    corrected("delete an operation", composition, {}, u"DELETE"_qs);
    corrected("delete a stored group", composition, {}, u"Delete group"_qs);
    corrected("delete lengths", lengths, {}, u"Delete length sample"_qs);
    corrected("delete fish", gonads, {}, u"Delete gonad sample"_qs);
    corrected("correct a weight", lengths, {{u"Sample weight (kg.)"_qs, u"3"_qs}}, u"Update"_qs);
    corrected("a further class", lengths, {{u"Frequency"_qs, u"7"_qs}}, u"ADD"_qs);
    corrected("a further fish", gonads, fish, u"ADD"_qs);
}

}  // namespace

const std::vector<Action>& actions() {
    static const std::vector<Action> all = [] {
        const Steps fish = {{u"TL(mm)"_qs, u"100"_qs},      {u"BL(mm)"_qs, u"100"_qs}, {u"FL(mm)"_qs, u"100"_qs},
                            {u"SL(mm)"_qs, u"100"_qs},      {u"BW"_qs, u"100"_qs},     {u"GW"_qs, u"2.5"_qs},
                            {u"Stage"_qs, u"2-Maturing"_qs}};
        std::vector<Action> made;
        appendReference(made);
        appendOperations(made);
        appendSamples(made, fish + Steps{{u"NEXT>>"_qs, {}}});
        appendCorrections(made, fish);
        return made;
    }();
    return all;
}

const Action& action(const char* name) {
    return *std::ranges::find_if(actions(), [name](const Action& one) { return std::strcmp(one.name, name) == 0; });
}

ScreenDriver prepare(const Action& action, std::unique_ptr<Screen>& screen, const Context& context) {
    screen = action.open(context);
    screen->show();
    const ScreenDriver hand(screen.get());
    if (!action.tab.isEmpty()) {
        hand.openTab(action.tab);
    }
    const ScreenDriver frame = action.frame.isEmpty() ? hand : hand.within(action.frame);
    frame.enter(action.steps);
    return frame;
}

Desk::Desk(const Action& chosen) : action(chosen), frame(nullptr) {
    store.addSmallYear();
    store.session.lastSavedOperation = 1;
    dialogs.path = QStringLiteral(KELVORA_TEST_FILES "/") + action.file;
    frame = prepare(action, screen, {store.path(), store.session, dialogs});
}

void Desk::act() {
    dialogs.said.clear();
    frame.press(action.button);
}

}  // namespace kelvora::test
