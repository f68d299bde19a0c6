#include "sampling/composition_summary.h"

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns columns() {
    return {{u"Species"_s, 2600, Qt::AlignHCenter},
            {u"Composition"_s, 1700, Qt::AlignHCenter},
            {u"%Composition"_s, 1700, Qt::AlignHCenter}};
}

}  // namespace

ResultSet compositionOf(Connection& connection, int operation) {
    const Sql from = Sql(" FROM fish INNER JOIN group_composition ON fish.fishno = group_composition.spid")
                     << " where optid = " << operation;
    const ResultSet sum = connection.query(Sql("SELECT sum(group_composition.estotal) as sc") << from);
    const double total = sum.number(0, u"sc").value_or(0);
    return connection.query(
        Sql("SELECT    fish.genus & ' ' & fish.fishname,format(sum(group_composition.estotal),'#0.00'),"
            "format((sum(group_composition.estotal)*100 )/")
        << total << ",'#0.00')" << from
        << " group by   fish.fishno,fish.genus & ' ' & fish.fishname  order by fish.genus & ' ' & fish.fishname ASC");
}

CompositionSummary::CompositionSummary(QWidget* parent) : CaptionedGrid(u"Composition"_s, parent) {
    reset();
}

void CompositionSummary::refresh(Connection& connection, int operation) {
    ResultSet composition = compositionOf(connection, operation);
    if (composition.isEmpty()) {
        reset();
    } else {
        grid()->show(std::make_unique<ResultModel>(std::move(composition)), columns());
    }
}

void CompositionSummary::reset() {
    grid()->showBlank(columns());
}

}  // namespace kelvora
