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

constexpr bool kInSteps = true;
const QString kFish =
    u"TL(mm) = 100; BL(mm) = 100; FL(mm) = 100; SL(mm) = 100; BW = 100; GW = 2.5; Stage = 2-Maturing"_qs;

/// Takes the actions of one kind of screen.
struct Collector {
    void add(const char* name, const QString& tab, const QString& frame, const QString& steps, const QString& button,
             bool inSteps = false, const QString& file = {}) const {
        all.push_back({name, open, tab, frame, steps, button, inSteps, file});
    }
    std::vector<Action>& all;
    std::unique_ptr<Screen> (*open)(const Context&);
};

void addReference(const Collector& to) {
    const QString general = u"General"_qs;
    const QString species = u"Target Species"_qs;
    const QString vessels = u"Fishing Vessel"_qs;
    const QString newPort = u"New sampling port"_qs;
    const QString newMethod = u"New fishing method"_qs;
    to.add("a port", general, newPort, u"State/Province = Beta; Sampling port = New"_qs, u"ADD"_qs);
    to.add("a port of a new state", general, newPort, u"State/Province = Gamma; Sampling port = New"_qs, u"ADD"_qs,
           kInSteps);
    to.add("a method", general, newMethod, u"Fishing gear = Trawl; Fishing Method = Beam"_qs, u"Add"_qs);
    to.add("a method of a new gear", general, newMethod, u"Fishing gear = Trap; Fishing Method = Pot"_qs, u"Add"_qs,
           kInSteps);
    to.add("an area", general, u"New fishing area"_qs, u"Area Name = A9; Description = deep"_qs, u"Add"_qs);
    to.add("a species", species, u"New species"_qs, u"Family = Gadidae; Genus = Gadus; Species = morhua"_qs, u"Add"_qs);
    to.add("a vessel", vessels, u"FISHING VESSEL"_qs,
           u"Vessel name = New; Engine Power (hp) = 75; Size(GRT) = 12.5; Vessel Length(m) = 9; Type of Gear = Trawl; "
           "Engine type = In Board"_qs,
           u"Add"_qs);
    // The last rows are used by nothing.
    to.add("delete a port", general, u"State/Province and Sampling Port"_qs, u"Last"_qs, u"Delete"_qs);
    to.add("delete a method", general, u"Fishing Gear and Method"_qs, u"Last"_qs, u"Delete"_qs);
    to.add("delete an area", general, u"Fishing Area"_qs, u"Last"_qs, u"Delete"_qs);
    to.add("delete a species", species, species, u"Last"_qs, u"Delete"_qs);
    to.add("delete a vessel", vessels, u"FISHING VESSEL"_qs, u"Last"_qs, u"Delete"_qs);
    to.add("import vessels", vessels, u"Vessel import"_qs, u"Import"_qs, u"Save"_qs, false,
           u"vessel_import_uk_10m_and_under.csv"_qs);
    to.add("import species", species, u"IMPORT"_qs, u"Import"_qs, u"SAVE"_qs, false,
           u"species_import_world_fishes.csv"_qs);
}

void addOperations(const Collector& to) {
    const QString steps =
        u"Vessel Register id = R-1; Fishing Gear = Trawl; Fishing Method = Pair; Fishing Area = A2; "
        "Total Catch (kg/trip) = 120.5; Note = rain; Landing State/Province = %1; Landing Port = %2"_qs;
    to.add("an operation", {}, {}, steps.arg(u"Alpha"_qs, u"Bex"_qs), u"SAVE"_qs);
    to.add("an operation at a new port", {}, {}, steps.arg(u"Gamma"_qs, u"New"_qs), u"SAVE"_qs, kInSteps);
}

void addComposition(const Collector& to) {
    const QString tab = u"Species Composition"_qs;
    const QString single = u"Single species"_qs;
    const QString group = u"Sampling group"_qs;
    to.add("a single species", tab, single, u"Species = Nemipterus virgatus; Weight = 4"_qs, u"Add"_qs);
    to.add("a group", tab, group,
           u"Group = Mixed; Total weight = 60; Species = Nemipterus virgatus; Weight = 4; ADD"_qs, u"SAVE"_qs);
    to.add("delete a single species", tab, single, {}, u"X"_qs);
    to.add("delete a group", tab, group, {}, u"X"_qs);
}

void addLengths(const Collector& to) {
    const QString tab = u"Length Frequency"_qs;
    to.add("lengths", tab, {},
           u"Species = Nemipterus virgatus; Class Interval = 2; Sampling weight = 1.5; Lower limit(cm) = 11; "
           "START INPUT>>; Frequency = 3\n; FINISH"_qs,
           u"SAVE"_qs);
    to.add("lengths again", tab, {},
           u"Species = Rastrelliger kanagurta; Sampling weight = 1.5; Lower limit(cm) = 11"_qs, u"START INPUT>>"_qs);
}

/// On the search screen, operation 1 on it.
void addCorrections(const Collector& to) {
    const QString search = u"Criterion = State/Province; Value = Alpha; SEARCH; "_qs;
    const QString composition = u"Species Composition"_qs;
    const QString lengths = u"Length Frequency"_qs;
    const QString gonads = u"Gonad Matuarity"_qs;
    to.add("delete an operation", composition, {}, search, u"DELETE"_qs);
    to.add("delete a stored group", composition, {}, search, u"Delete group"_qs);
    to.add("delete lengths", lengths, {}, search, u"Delete length sample"_qs);
    to.add("delete fish", gonads, {}, search, u"Delete gonad sample"_qs);
    to.add("correct a weight", lengths, {}, search + u"Sample weight (kg.) = 3"_qs, u"Update"_qs);
    to.add("a further class", lengths, {}, search + u"Frequency = 7"_qs, u"ADD"_qs);
    to.add("a further fish", gonads, {}, search + kFish, u"ADD"_qs);
}

}  // namespace

const std::vector<Action>& actions() {
    static const std::vector<Action> all = [] {
        std::vector<Action> made;
        addReference({made, &make<GeneralInformationScreen>});
        addOperations({made, &make<OperationEntryScreen>});
        addComposition({made, &make<SpeciesCompositionScreen>});
        addLengths({made, &make<LengthFrequencyScreen>});
        const QString fish = kFish + u"; NEXT>>; "_qs;
        Collector{made, &make<GonadMaturityScreen>}.add(
            "fish", u"Gonad Maturity Detail"_qs, {},
            u"Species = Nemipterus virgatus; ADD SAMPLING >>; "_qs + fish.repeated(3), u"SAVE"_qs, kInSteps);
        addCorrections({made, &make<SearchScreen>});
        Collector{made, &make<ChangePasswordScreen>}.add("the password", {}, {},
                                                         u"Username = Somebody; Password = new; Re-password = new"_qs,
                                                         u"CHANGE PASSWORD"_qs);
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
