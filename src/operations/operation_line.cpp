#include "operations/operation_line.h"

#include "operations/finder_panel.h"

namespace kelvora {

OperationLine::OperationLine(const FinderPanel& finder) {
    QFont strong = font();
    strong.setBold(true);
    setFont(strong);
    const auto show = [this, &finder] {
        const QString number = finder.currentOperation();
        setText(number.isEmpty() ? tr("No fishing operation is chosen: find one on the tab \"Fishing Operation\".")
                                 : QStringLiteral("%1 %2").arg(finder.numberCaption(), number));
    };
    connect(&finder, &FinderPanel::operationChanged, this, show);
    show();
}

}  // namespace kelvora
