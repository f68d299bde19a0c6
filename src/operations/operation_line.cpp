#include "operations/operation_line.h"

#include "operations/finder_panel.h"

using namespace Qt::StringLiterals;

namespace kelvora {

OperationLine::OperationLine(const FinderPanel& finder) {
    QFont strong = font();
    strong.setBold(true);
    setFont(strong);
    const auto show = [this, &finder] {
        const QString number = finder.currentOperation();
        setText(number.isEmpty() ? u"No fishing operation is chosen: find one on the tab \"Fishing Operation\"."_s
                                 : u"%1 %2"_s.arg(finder.numberCaption(), number));
    };
    connect(&finder, &FinderPanel::operationChanged, this, show);
    show();
}

}  // namespace kelvora
