#include "answers.h"
#include "office.h"
#include "reports/catch_summary.h"
#include "reports/gonad_maturity_report.h"
#include "reports/length_frequency_report.h"
#include "reports/species_composition_report.h"

using namespace Qt::StringLiterals;

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
        {"statename", "s.stateid, statename", ports, "s.stateid = 1", u"State 01"_s, 1},
        {"samplingname", "samplingid, samplingname", ports, "o.portid = 1", u"Port 001"_s, 1},
        {"vesselname", "v.vesselid, vesselname", " JOIN vessel v ON v.vesselname = o.vesselid",
         "o.vesselid = 'Vessel 0001'", u"Vessel 0001"_s, u"Vessel 0001"_s},
        {"guname || '[' || methodname || ']'", "guname || '[' || methodname || ']', methodid", methods,
         "o.fishing_method = 1", u"Gear 01[Method 01]"_s, 1},
        {"guname", "guname, g.gearid", methods, "g.gearid = 1", u"Gear 01"_s, 1},
        {"substr(optdate, 6, 2)", "substr(optdate, 6, 2)", "", "substr(optdate, 6, 2) = '03'", u"March"_s, u"3"_s},
        {"aname", "areaid", " JOIN fishing_area a ON a.aname = o.areaid", "o.areaid = 'Area 01'", u"Area 01"_s,
         u"Area 01"_s},
    };
    return all;
}

const std::string kTotals = "SELECT count(*), sum(estotal) FROM fishoperation" + kOfTheYear;
const std::string kWeighed =
    "SELECT sum(c.estotal) FROM fishoperation o JOIN group_composition c ON c.optid = o.optid JOIN fish ON fishno = "
    "spid" +
    kOfTheYear;

Action data(const QString& name, const std::function<void(Office&)>& run, const Statements& direct) {
    return {.name = u"data: "_s + name, .run = run, .direct = direct, .paints = false};
}

void addYears(std::vector<Action>& actions) {
    for (const auto& [name, sql, table] : {std::tuple{u"catches"_s, &catchYears, "fishoperation"},
                                           {u"compositions"_s, &compositionYears, "group_composition"},
                                           {u"lengths"_s, &lengthYears, "length"},
                                           {u"gonads"_s, &gonadYears, "gonad_detail"}}) {
        actions.push_back(data(
            u"years with "_s + name, [sql = sql](Office& at) { at.connection().query(sql()); }, years(table)));
    }
}

void addData(std::vector<Action>& actions) {
    addYears(actions);
    actions.push_back(data(u"catch totals"_s, [](Office& at) { catchTotals(at.connection(), kLastYear); }, {kTotals}));
    actions.push_back(data(u"total of the compositions"_s,
                           [](Office& at) { compositionTotal(at.connection(), kLastYear); }, {kWeighed}));
    for (std::size_t i = 0; i < groupings().size(); ++i) {
        const Grouping& one = groupings()[i];
        const CatchGrouping& catchBy = catchGroupings()[i];
        const CompositionSubset& subset = compositionSubsets()[i];
        actions.push_back(data(u"catch "_s + catchBy.option,
                               [&](Office& at) { catchByGroup(at.connection(), catchBy, kLastYear, 5e6); },
                               {catches(one.name, one.joined)}));
        actions.push_back(data(u"choices "_s + subset.option,
                               [&](Office& at) { at.connection().query(compositionChoices(subset, kLastYear)); },
                               {compositionChoices(one.choiceName, one.joined)}));
        actions.push_back(data(u"composition "_s + subset.option,
                               [&](Office& at) { compositionOf(at.connection(), subset, kLastYear, one.key, 5e6); },
                               {composition(one.joined, one.condition)}));
    }
    actions.push_back(data(u"length crosstab"_s,
                           [](Office& at) { lengthsByMonth(at.connection(), kLastYear, kCommonSpecies); },
                           {lengths(kCommonSpecies)}));
    actions.push_back(data(u"four gonad tables"_s,
                           [](Office& at) { gonadTables(at.connection(), kLastYear, kCommonSpecies); },
                           {gonads(kCommonSpecies)}));
}

struct Report {
    QString caption, title;

    [[nodiscard]] test::ScreenDriver open(Office& at) const { return at.open(caption, title); }
    [[nodiscard]] test::ScreenDriver ofTheYear(Office& at) const {
        const test::ScreenDriver hand = open(at);
        hand.choose(u"Year"_s, kYear);
        return hand;
    }
    /// From the press of a button to the painted table and picture.
    [[nodiscard]] Action pressing(const QString& name, const QString& button, const Statements& direct,
                                  const std::function<void(Office&)>& before) const {
        return {.name = u"report: "_s + name,
                .before = before,
                .run = [=, *this](Office& at) { open(at).press(button); },
                .direct = direct};
    }
    [[nodiscard]] Action exporting(const QString& name, const Statements& direct,
                                   const std::function<void(Office&)>& before) const {
        return {.name = u"export: "_s + name,
                .before =
                    [=](Office& at) {
                        before(at);
                        at.dialogs.expect(u"? save file -> "_s + at.file(u"report.csv"_s));
                    },
                .run = [*this](Office& at) { open(at).press(u"EXPORT"_s); },
                .direct = direct,
                .paints = false};
    }
};

void addCatch(std::vector<Action>& actions) {
    const Report report{u"Fishing Information"_s, u"Number of record and estimate total catch"_s};
    const auto direct = [](std::size_t i) { return catches(groupings()[i].name, groupings()[i].joined); };
    const auto chosen = [=](Office& at) { (void)report.ofTheYear(at); };
    const auto searched = [=](Office& at) { report.ofTheYear(at).press(u"Search"_s); };
    actions.push_back(report.pressing(u"catch, Search"_s, u"Search"_s, {kTotals, direct(0)}, chosen));
    for (std::size_t i = 0; i < groupings().size(); ++i) {
        const QString option = catchGroupings()[i].option;
        actions.push_back(report.pressing(u"catch "_s + option, option, {direct(i)}, searched));
    }
    actions.push_back(report.exporting(u"catch by vessel"_s, {direct(2)}, [=](Office& at) {
        searched(at);
        report.open(at).press(catchGroupings()[2].option);
    }));
}

void addComposition(std::vector<Action>& actions) {
    const Report report{u"Species composition"_s, u"Species Composition Report"_s};
    const auto searched = [=](Office& at) { report.ofTheYear(at).press(u"Search"_s); };
    const auto choose = [=](Office& at, std::size_t i) {
        report.open(at).within(u"Species composition of"_s).choose(compositionSubsets()[i].option, groupings()[i].row);
    };
    const auto offered = [=](Office& at, std::size_t i) {
        searched(at);
        report.open(at).press(compositionSubsets()[i].option);
    };
    actions.push_back(report.pressing(u"composition, Search"_s, u"Search"_s, {kWeighed},
                                      [=](Office& at) { (void)report.ofTheYear(at); }));
    for (std::size_t i = 0; i < groupings().size(); ++i) {
        const Grouping& one = groupings()[i];
        const QString option = compositionSubsets()[i].option;
        actions.push_back(report.pressing(u"composition, choices "_s + option, option,
                                          {compositionChoices(one.choiceName, one.joined)}, searched));
        actions.push_back({.name = u"report: composition "_s + option,
                           .before = [=](Office& at) { offered(at, i); },
                           .run = [=](Office& at) { choose(at, i); },
                           .direct = {composition(one.joined, one.condition)}});
    }
    actions.push_back(report.exporting(u"composition of a state"_s, {}, [=](Office& at) {
        offered(at, 0);
        choose(at, 0);
    }));
}

void addOfSpecies(std::vector<Action>& actions, const QString& name, const Report& report, const Statements& direct) {
    const auto chosen = [=](Office& at) { report.ofTheYear(at).choose(u"Species"_s, speciesName(kCommonSpecies)); };
    actions.push_back(report.pressing(name, u"Search"_s, direct, chosen));
    actions.push_back(report.exporting(name, {}, [=](Office& at) {
        chosen(at);
        report.open(at).press(u"Search"_s);
    }));
}

}  // namespace

std::vector<Action> reportActions() {
    std::vector<Action> actions;
    addData(actions);
    addCatch(actions);
    addComposition(actions);
    addOfSpecies(actions, u"lengths"_s, {u"Length Frequency"_s, u"Length Frequency Report"_s},
                 {lengths(kCommonSpecies)});
    addOfSpecies(actions, u"gonads"_s, {u"Gonad Maturity"_s, u"Gonad Matuarity Report"_s}, {gonads(kCommonSpecies)});
    return actions;
}

}  // namespace kelvora::bench
