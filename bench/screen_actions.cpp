#include "answers.h"
#include "office.h"
#include "records/operation_store.h"

using namespace Qt::StringLiterals;

namespace kelvora::bench {
namespace {

struct Window {
    QString caption;
    QString title;
    bool button;
    Statements direct;
};

const std::vector<Window>& windows() {
    static const std::vector<Window> all = {
        {u"General Information"_s, u"General Information"_s, true,
         choices({"state", "samplingport", "Fishing_gear", "Fishing_method", "fishing_area", "fish", "vessel"})},
        {u"Fishing Operation"_s, u"Fishing Information"_s, true,
         choices({"state ORDER BY statename", "vessel ORDER BY vesselname", "Fishing_gear", "Fishing_method",
                  "fishing_area"}) +
             Statements{"SELECT max(optid) FROM fishoperation"}},
        {u"Species Composition"_s, u"Species Composition"_s, true, choices({"state"}) + Statements{kSpeciesList}},
        {u"Length Frequency"_s, u"Length Frequency"_s, true, choices({"state"})},
        {u"Gonad Maturity"_s, u"Gonad Matuarity Detail"_s, true, choices({"state", "gonad_stage"})},
        {u"Search"_s, u"Search"_s, false, choices({"state", "gonad_stage"})},
        {u"Change password"_s, u"CHANGE PASSWORD"_s, false, {}},
        {u"Fishing Information"_s, u"Number of record and estimate total catch"_s, false, years("fishoperation")},
        {u"Species composition"_s, u"Species Composition Report"_s, false, years("group_composition")},
        {u"Length Frequency"_s, u"Length Frequency Report"_s, false, years("length") + Statements{kSpeciesList}},
        {u"Gonad Maturity"_s, u"Gonad Matuarity Report"_s, false, years("gonad_detail") + Statements{kSpeciesList}},
    };
    return all;
}

struct Criterion {
    QString caption, value, table;
    const char* condition;
};

const std::vector<Criterion>& criteria() {
    static const std::vector<Criterion> all = {
        {u"State/Province"_s, u"State 01"_s, u"state"_s, "p.stateid = 1"},
        {u"Sampling Port"_s, u"Port 001"_s, u"samplingport"_s, "o.portid = 1"},
        {u"Fishing Area"_s, u"Bank 01"_s, u"fishing_area"_s, "o.areaid = 'Area 01'"},
        {u"Vessel"_s, u"Vessel 0001"_s, u"vessel"_s, "o.vesselid = 'Vessel 0001'"},
        {u"Fishing Gear"_s, u"Gear 01"_s, u"Fishing_gear"_s, "m.gearid = 1"},
    };
    return all;
}

const Criterion kDesk = {u"Vessel"_s, u"Desk vessel"_s, {}, ""};

void choose(const test::ScreenDriver& hand, const Criterion& criterion) {
    hand.choose(u"Criterion"_s, criterion.caption);
    hand.choose(u"Value"_s, criterion.value);
}

/// What the finder (of a sampling screen) and the search screen do alike.
void addSearches(std::vector<Action>& actions, const QString& where, const QString& caption, bool button,
                 const QString& search, const Statements& arrival) {
    const auto at = [caption, button](Office& office) { return office.open(caption, caption, button); };
    for (const Criterion& criterion : criteria()) {
        actions.push_back({.name = where + u": list of criterion "_s + criterion.caption,
                           .before = [=](Office& office) { at(office).choose(u"Criterion"_s, u"Sampling Port"_s); },
                           .run = [=](Office& office) { at(office).choose(u"Criterion"_s, criterion.caption); },
                           .direct = choices({criterion.table.toStdString()})});
        actions.push_back({.name = where + u": search by "_s + criterion.caption,
                           // Another operation is on the screen before.
                           .before =
                               [=](Office& office) {
                                   choose(at(office), kDesk);
                                   at(office).press(search);
                                   choose(at(office), criterion);
                               },
                           .run = [=](Office& office) { at(office).press(search); },
                           .direct = foundBy(criterion.condition) + arrival});
    }
    const auto search1 = [=](Office& office) {
        choose(at(office), criteria()[0]);
        at(office).press(search);
    };
    for (const QString& move : {u"Next"_s, u"Last"_s}) {
        actions.push_back({.name = where + u": navigator, "_s + move,
                           .before = search1,
                           .run = [=](Office& office) { at(office).navigator(u"Result"_s).press(move); },
                           .direct = arrival});
    }
}

}  // namespace

void openAll(Office& office) {
    for (const Window& window : windows()) {
        office.open(window.caption, window.title, window.button);
        office.settle();
    }
}

std::vector<Action> screenActions() {
    std::vector<Action> actions;
    for (const Window& window : windows()) {
        actions.push_back(
            {.name = u"open "_s + window.title,
             .before =
                 [window](Office& office) {
                     office.open(window.caption, window.title, window.button);
                     office.close(window.title);
                     office.open(windows()[window.title == windows()[0].title ? 1 : 0].caption,
                                 windows()[window.title == windows()[0].title ? 1 : 0].title, true);
                 },
             .run = [window](Office& office) { office.open(window.caption, window.title, window.button); },
             .direct = window.direct});
    }
    addSearches(actions, u"finder"_s, u"Species Composition"_s, true, u"Search"_s,
                details(2) + Statements{samples(2)[1], samples(2)[2], samples(2)[3]});
    addSearches(actions, u"search screen"_s, u"Search"_s, false, u"SEARCH"_s, samples(2));
    return actions;
}

}  // namespace kelvora::bench
