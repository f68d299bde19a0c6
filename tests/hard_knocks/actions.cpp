#include "actions.h"

#include "operations/operation_entry_screen.h"
#include "reference/general_information_screen.h"
#include "sampling/sampling_screens.h"
#include "search/search_screen.h"
#include "shell/change_password_screen.h"

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace kelvora::test {
namespace {

constexpr bool kInSteps = true;
const QString kFish =
    u"TL(mm) = 100; BL(mm) = 100; FL(mm) = 100; SL(mm) = 100; BW = 100; GW = 2.5; Stage = 2-Maturing"_s;

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
    const QString general = u"General"_s;
    const QString species = u"Target Species"_s;
    const QString vessels = u"Fishing Vessel"_s;
    const QString newPort = u"New sampling port"_s;
    const QString newMethod = u"New fishing method"_s;
    to.add("a port", general, newPort, u"State/Province = Beta; Sampling port = New"_s, u"ADD"_s);
    to.add("a port of a new state", general, newPort, u"State/Province = Gamma; Sampling port = New"_s, u"ADD"_s,
           kInSteps);
    to.add("a method", general, newMethod, u"Fishing gear = Trawl; Fishing Method = Beam"_s, u"Add"_s);
    to.add("a method of a new gear", general, newMethod, u"Fishing gear = Trap; Fishing Method = Pot"_s, u"Add"_s,
           kInSteps);
    to.add("an area", general, u"New fishing area"_s, u"Area Name = A9; Description = deep"_s, u"Add"_s);
    to.add("a species", species, u"New species"_s, u"Family = Gadidae; Genus = Gadus; Species = morhua"_s, u"Add"_s);
    to.add("a vessel", vessels, u"FISHING VESSEL"_s,
           u"Vessel name = New; Engine Power (hp) = 75; Size(GRT) = 12.5; Vessel Length(m) = 9; Type of Gear = Trawl; "
           "Engine type = In Board"_s,
           u"Add"_s);
    // The last rows are used by nothing.
    to.add("delete a port", general, u"State/Province and Sampling Port"_s, u"Last"_s, u"Delete"_s);
    to.add("delete a method", general, u"Fishing Gear and Method"_s, u"Last"_s, u"Delete"_s);
    to.add("delete an area", general, u"Fishing Area"_s, u"Last"_s, u"Delete"_s);
    to.add("delete a species", species, species, u"Last"_s, u"Delete"_s);
    to.add("delete a vessel", vessels, u"FISHING VESSEL"_s, u"Last"_s, u"Delete"_s);
    to.add("import vessels", vessels, u"Vessel import"_s, u"Import"_s, u"Save"_s, false,
           u"vessel_import_uk_10m_and_under.csv"_s);
    to.add("import species", species, u"IMPORT"_s, u"Import"_s, u"SAVE"_s, false, u"species_import_world_fishes.csv"_s);
}

void addOperations(const Collector& to) {
    const QString steps =
        u"Vessel Register id = R-1; Fishing Gear = Trawl; Fishing Method = Pair; Fishing Area = A2; "
        "Total Catch (kg/trip) = 120.5; Note = rain; Landing State/Province = %1; Landing Port = %2"_s;
    to.add("an operation", {}, {}, steps.arg(u"Alpha"_s, u"Bex"_s), u"SAVE"_s);
    to.add("an operation at a new port", {}, {}, steps.arg(u"Gamma"_s, u"New"_s), u"SAVE"_s, kInSteps);
}

void addComposition(const Collector& to) {
    const QString tab = u"Species Composition"_s;
    const QString single = u"Single species"_s;
    const QString group = u"Sampling group"_s;
    to.add("a single species", tab, single, u"Species = Nemipterus virgatus; Weight = 4"_s, u"Add"_s);
    to.add("a group", tab, group, u"Group = Mixed; Total weight = 60; Species = Nemipterus virgatus; Weight = 4; ADD"_s,
           u"SAVE"_s);
    to.add("delete a single species", tab, single, {}, u"X"_s);
    to.add("delete a group", tab, group, {}, u"X"_s);
}

void addLengths(const Collector& to) {
    const QString tab = u"Length Frequency"_s;
    to.add("lengths", tab, {},
           u"Species = Nemipterus virgatus; Class Interval = 2; Sampling weight = 1.5; Lower limit(cm) = 11; "
           "START INPUT>>; Frequency = 3\n; FINISH"_s,
           u"SAVE"_s);
    to.add("lengths again", tab, {}, u"Species = Rastrelliger kanagurta; Sampling weight = 1.5; Lower limit(cm) = 11"_s,
           u"START INPUT>>"_s);
}

/// On the search screen, operation 1 on it.
void addCorrections(const Collector& to) {
    const QString search = u"Criterion = State/Province; Value = Alpha; SEARCH; "_s;
    const QString composition = u"Species Composition"_s;
    const QString lengths = u"Length Frequency"_s;
    const QString gonads = u"Gonad Matuarity"_s;
    to.add("delete an operation", composition, {}, search, u"DELETE"_s);
    to.add("delete a stored group", composition, {}, search, u"Delete group"_s);
    to.add("delete lengths", lengths, {}, search, u"Delete length sample"_s);
    to.add("delete fish", gonads, {}, search, u"Delete gonad sample"_s);
    to.add("correct a weight", lengths, {}, search + u"Sample weight (kg.) = 3"_s, u"Update"_s);
    to.add("a further class", lengths, {}, search + u"Frequency = 7"_s, u"ADD"_s);
    to.add("a further fish", gonads, {}, search + kFish, u"ADD"_s);
}

}  // namespace

const std::vector<Action>& actions() {
    static const std::vector<Action> all = [] {
        std::vector<Action> made;
        addReference({made, &make<GeneralInformationScreen>});
        addOperations({made, &make<OperationEntryScreen>});
        addComposition({made, &make<SpeciesCompositionScreen>});
        addLengths({made, &make<LengthFrequencyScreen>});
        const QString fish = kFish + u"; NEXT>>; "_s;
        Collector{made, &make<GonadMaturityScreen>}.add(
            "fish", u"Gonad Maturity Detail"_s, {},
            u"Species = Nemipterus virgatus; ADD SAMPLING >>; "_s + fish.repeated(3), u"SAVE"_s, kInSteps);
        addCorrections({made, &make<SearchScreen>});
        Collector{made, &make<ChangePasswordScreen>}.add(
            "the password", {}, {}, u"Username = Somebody; Password = new; Re-password = new"_s, u"CHANGE PASSWORD"_s);
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
    dialogs.path = u"" KELVORA_TEST_FILES "/"_s + action.file;
    frame = prepare(action, screen, {store.path(), store.session, dialogs});
}

void Desk::act() {
    dialogs.said.clear();
    frame.press(action.button);
}

}  // namespace kelvora::test
