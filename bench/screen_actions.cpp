#include "answers.h"
#include "office.h"
#include "operations/operation_query.h"

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
        {u"General Information"_qs, u"General Information"_qs, true,
         choices({"state", "samplingport", "Fishing_gear", "Fishing_method", "fishing_area", "fish", "vessel"})},
        {u"Fishing Operation"_qs, u"Fishing Information"_qs, true,
         choices({"state ORDER BY statename", "vessel ORDER BY vesselname", "Fishing_gear", "Fishing_method",
                  "fishing_area"}) +
             Statements{"SELECT max(optid) FROM fishoperation"}},
        {u"Species Composition"_qs, u"Species Composition"_qs, true, choices({"state"}) + Statements{kSpeciesList}},
        {u"Length Frequency"_qs, u"Length Frequency"_qs, true, choices({"state"})},
        {u"Gonad Maturity"_qs, u"Gonad Matuarity Detail"_qs, true, choices({"state", "gonad_stage"})},
        {u"Search"_qs, u"Search"_qs, false, choices({"state", "gonad_stage"})},
        {u"Change password"_qs, u"CHANGE PASSWORD"_qs, false, {}},
        {u"Fishing Information"_qs, u"Number of record and estimate total catch"_qs, false, years("fishoperation")},
        {u"Species composition"_qs, u"Species Composition Report"_qs, false, years("group_composition")},
        {u"Length Frequency"_qs, u"Length Frequency Report"_qs, false, years("length") + Statements{kSpeciesList}},
        {u"Gonad Maturity"_qs, u"Gonad Matuarity Report"_qs, false, years("gonad_detail") + Statements{kSpeciesList}},
    };
    return all;
}

struct Criterion {
    QString caption, value, table;
    const char* condition;
};

const std::vector<Criterion>& criteria() {
    static const std::vector<Criterion> all = {
        {u"State/Province"_qs, u"State 01"_qs, u"state"_qs, "p.stateid = 1"},
        {u"Sampling Port"_qs, u"Port 001"_qs, u"samplingport"_qs, "o.portid = 1"},
        {u"Fishing Area"_qs, u"Bank 01"_qs, u"fishing_area"_qs, "o.areaid = 'Area 01'"},
        {u"Vessel"_qs, u"Vessel 0001"_qs, u"vessel"_qs, "o.vesselid = 'Vessel 0001'"},
        {u"Fishing Gear"_qs, u"Gear 01"_qs, u"Fishing_gear"_qs, "m.gearid = 1"},
    };
    return all;
}

const Criterion kDesk = {u"Vessel"_qs, u"Desk vessel"_qs, {}, ""};

void choose(const test::ScreenDriver& hand, const Criterion& criterion) {
    hand.choose(u"Criterion"_qs, criterion.caption);
    hand.choose(u"Value"_qs, criterion.value);
}

/// What the finder (of a sampling screen) and the search screen do alike.
void addSearches(std::vector<Action>& actions, const QString& where, const QString& caption, bool button,
                 const QString& search, const Statements& arrival) {
    const auto at = [caption, button](Office& office) { return office.open(caption, caption, button); };
    for (const Criterion& criterion : criteria()) {
        actions.push_back({.name = where + u": list of criterion "_qs + criterion.caption,
                           .before = [=](Office& office) { at(office).choose(u"Criterion"_qs, u"Sampling Port"_qs); },
                           .run = [=](Office& office) { at(office).choose(u"Criterion"_qs, criterion.caption); },
                           .direct = choices({criterion.table.toStdString()})});
        actions.push_back({.name = where + u": search by "_qs + criterion.caption,
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
    for (const QString& move : {u"Next"_qs, u"Last"_qs}) {
        actions.push_back({.name = where + u": navigator, "_qs + move,
                           .before = search1,
                           .run = [=](Office& office) { at(office).move(u"Result"_qs, move); },
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
            {.name = u"open "_qs + window.title,
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
    addSearches(actions, u"finder"_qs, u"Species Composition"_qs, true, u"Search"_qs,
                details(2) + Statements{samples(2)[1], samples(2)[2], samples(2)[3]});
    addSearches(actions, u"search screen"_qs, u"Search"_qs, false, u"SEARCH"_qs, samples(2));
    return actions;
}

}  // namespace kelvora::bench
