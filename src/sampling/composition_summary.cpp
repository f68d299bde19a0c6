#include "sampling/composition_summary.h"

#include "records/composition_store.h"

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

GridColumns summaryColumns() {
    return {{u"Species"_s, 173, Qt::AlignHCenter},
            {u"Composition"_s, 113, Qt::AlignHCenter},
            {u"%Composition"_s, 113, Qt::AlignHCenter}};
}

}  // namespace

CompositionSummary::CompositionSummary(QWidget* parent) : CaptionedGrid(u"Composition"_s, parent) {
    reset();
}

void CompositionSummary::refresh(Connection& connection, int operation) {
    ResultSet composition = compositionOf(connection, operation);
    if (composition.isEmpty()) {
        reset();
    } else {
        grid()->show(std::make_unique<ResultModel>(std::move(composition)), summaryColumns());
    }
}

void CompositionSummary::reset() {
    grid()->showBlank(summaryColumns());
}

}  // namespace kelvora
