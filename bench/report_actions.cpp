#include "answers.h"
#include "office.h"
#include "reports/catch_summary.h"
#include "reports/gonad_maturity_report.h"
#include "reports/length_frequency_report.h"
#include "reports/species_composition_report.h"

namespace kelvora::bench {
namespace {

constexpr int kCommonSpecies = 1;
const QString kYear = QString::number(kLastYear);

/// How a year is grouped, or a composition chosen: the option, the direct name and tables, and the choice.
struct Grouping {
    std::string name, choiceName, joined, condition;
    QString row;
    QVariant key;
};

const std::vector<Grouping>& groupings() {
    static const std::string ports =
        " JOIN samplingport p ON p.samplingid = o.portid JOIN state s ON s.stateid = p.stateid";
    static const std::string methods =
        " JOIN Fishing_method m ON m.methodid = o.fishing_method JOIN Fishing_gear g ON g.gearid = m.gearid";
    static const std::vector<Grouping> all = {
        {"statename", "s.stateid, statename", ports, "s.stateid = 1", u"State 01"_qs, 1},
        {"samplingname", "samplingid, samplingname", ports, "o.portid = 1", u"Port 001"_qs, 1},
        {"vesselname", "v.vesselid, vesselname", " JOIN vessel v ON v.vesselname = o.vesselid",
         "o.vesselid = 'Vessel 0001'", u"Vessel 0001"_qs, u"Vessel 0001"_qs},
        {"guname || '[' || methodname || ']'", "guname || '[' || methodname || ']', methodid", methods,
         "o.fishing_method = 1", u"Gear 01[Method 01]"_qs, 1},
        {"guname", "guname, g.gearid", methods, "g.gearid = 1", u"Gear 01"_qs, 1},
        {"substr(optdate, 6, 2)", "substr(optdate, 6, 2)", "", "substr(optdate, 6, 2) = '03'", u"March"_qs, 3},
        {"aname", "areaid", " JOIN fishing_area a ON a.aname = o.areaid", "o.areaid = 'Area 01'", u"Area 01"_qs,
         u"Area 01"_qs},
    };
    return all;
}

const std::string kTotals = "SELECT count(*), sum(estotal) FROM fishoperation" + kOfTheYear;
const std::string kWeighed =
    "SELECT sum(c.estotal) FROM fishoperation o JOIN group_composition c ON c.optid = o.optid" + kOfTheYear;

Action data(const QString& name, const std::function<void(Office&)>& run, const Statements& direct) {
    return {.name = u"data: "_qs + name, .run = run, .direct = direct, .paints = false};
}

void addYears(std::vector<Action>& actions) {
    for (const auto& [name, sql, table] : {std::tuple{u"catches"_qs, &catchYears, "fishoperation"},
                                           {u"compositions"_qs, &compositionYears, "group_composition"},
                                           {u"lengths"_qs, &lengthYears, "length"},
                                           {u"gonads"_qs, &gonadYears, "gonad_detail"}}) {
        actions.push_back(data(
            u"years with "_qs + name, [sql = sql](Office& at) { at.connection().query(sql()); }, years(table)));
    }
}

void addData(std::vector<Action>& actions) {
    addYears(actions);
    actions.push_back(data(u"catch totals"_qs, [](Office& at) { catchTotals(at.connection(), kLastYear); }, {kTotals}));
    actions.push_back(data(u"total of the compositions"_qs,
                           [](Office& at) { compositionTotal(at.connection(), kLastYear); }, {kWeighed}));
    for (std::size_t i = 0; i < groupings().size(); ++i) {
        const Grouping& one = groupings()[i];
        const CatchGrouping& catchBy = catchGroupings()[i];
        const CompositionSubset& subset = compositionSubsets()[i];
        actions.push_back(data(u"catch "_qs + catchBy.option,
                               [&](Office& at) { catchByGroup(at.connection(), catchBy, kLastYear, 5e6); },
                               {catches(one.name, one.joined)}));
        actions.push_back(data(u"choices "_qs + subset.option,
                               [&](Office& at) { at.connection().query(compositionChoices(subset, kLastYear)); },
                               {compositionChoices(one.choiceName, one.joined)}));
        actions.push_back(data(u"composition "_qs + subset.option,
                               [&](Office& at) { compositionOf(at.connection(), subset, kLastYear, one.key, 5e6); },
                               {composition(one.joined, one.condition)}));
    }
    actions.push_back(data(u"length crosstab"_qs,
                           [](Office& at) { lengthsByMonth(at.connection(), kLastYear, kCommonSpecies); },
                           {lengths(kCommonSpecies)}));
    actions.push_back(data(
        u"four gonad tables"_qs,
        [](Office& at) {
            sexesByMonth(at.connection(), kLastYear, kCommonSpecies);
            for (const Sex sex : {Sex::Female, Sex::Male, Sex::None}) {
                stagesByMonth(at.connection(), kLastYear, kCommonSpecies, sex);
            }
        },
        gonads(kCommonSpecies)));
}

using Screen = std::function<test::ScreenDriver(Office&)>;

Screen report(const QString& caption, const QString& title) {
    return [=](Office& at) {
        const test::ScreenDriver hand = at.open(caption, title);
        hand.choose(u"Year"_qs, kYear);
        return hand;
    };
}

Action pressing(const QString& name, const Screen& screen, const QString& button, const Statements& direct) {
    return {.name = name,
            .before = [=](Office& at) { screen(at); },
            .run = [=](Office& at) { screen(at).press(button); },
            .direct = direct};
}

void addExport(std::vector<Action>& actions, const QString& name, const Screen& screen, const QString& search,
               const Statements& direct) {
    actions.push_back({.name = u"export: "_qs + name,
                       .before =
                           [=](Office& at) {
                               screen(at).press(search);
                               at.dialogs.expectSaveFile(at.file(u"report.csv"_qs));
                           },
                       .run = [=](Office& at) { screen(at).press(u"EXPORT"_qs); },
                       .direct = direct,
                       .paints = false});
}

void addCatch(std::vector<Action>& actions) {
    const Screen screen = report(u"Fishing Information"_qs, u"Number of record and estimate total catch"_qs);
    const auto direct = [](std::size_t i) { return catches(groupings()[i].name, groupings()[i].joined); };
    actions.push_back(pressing(u"report: catch, Search"_qs, screen, u"Search"_qs, {kTotals, direct(0)}));
    for (std::size_t i = 0; i < groupings().size(); ++i) {
        const QString option = catchGroupings()[i].option;
        actions.push_back(pressing(u"report: catch "_qs + option, screen, option, {direct(i)}));
    }
    addExport(actions, u"catch by vessel"_qs, screen, u"By Vessel"_qs, {direct(2)});
}

void addComposition(std::vector<Action>& actions) {
    const Screen screen = report(u"Species composition"_qs, u"Species Composition Report"_qs);
    actions.push_back(pressing(u"report: composition, Search"_qs, screen, u"Search"_qs, {kWeighed}));
    for (std::size_t i = 0; i < groupings().size(); ++i) {
        const Grouping& one = groupings()[i];
        const QString option = compositionSubsets()[i].option;
        actions.push_back(pressing(u"report: composition, choices "_qs + option, screen, option,
                                   {compositionChoices(one.choiceName, one.joined)}));
        actions.push_back({.name = u"report: composition "_qs + option,
                           .before = [=](Office& at) { screen(at).press(option); },
                           .run =
                               [=, row = one.row](Office& at) {
                                   static_cast<void>(screen);
                                   at.open(u"Species composition"_qs, u"Species Composition Report"_qs)
                                       .within(u"Species composition of"_qs)
                                       .choose(option, row);
                               },
                           .direct = {composition(one.joined, one.condition)}});
    }
}

void addSpeciesReports(std::vector<Action>& actions) {
    for (const auto& [name, caption, title, direct] :
         {std::tuple{u"lengths"_qs, u"Length Frequency"_qs, u"Length Frequency Report"_qs,
                     Statements{lengths(kCommonSpecies)}},
          {u"gonads"_qs, u"Gonad Maturity"_qs, u"Gonad Matuarity Report"_qs, gonads(kCommonSpecies)}}) {
        const Screen screen = [year = report(caption, title)](Office& at) {
            const test::ScreenDriver hand = year(at);
            hand.choose(u"Species"_qs, speciesName(kCommonSpecies));
            return hand;
        };
        actions.push_back(pressing(u"report: "_qs + name, screen, u"Search"_qs, direct));
        addExport(actions, name, screen, u"Search"_qs, {});
    }
}

}  // namespace

std::vector<Action> reportActions() {
    std::vector<Action> actions;
    addData(actions);
    addCatch(actions);
    addComposition(actions);
    // The choice of the last option stays on the screen for the export.
    addExport(actions, u"composition"_qs,
              [](Office& at) { return at.open(u"Species composition"_qs, u"Species Composition Report"_qs); },
              u"By Fishing Area"_qs, {});
    addSpeciesReports(actions);
    return actions;
}

}  // namespace kelvora::bench
