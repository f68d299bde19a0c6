#include "operations/operation_line.h"

#include "operations/finder_panel.h"

using namespace Qt::StringLiterals;

namespace kelvora {

OperationLine::OperationLine(const FinderPanel& finder) {
    QFont strong = font();
    strong.setBold(true);
    setFont(strong);
    const auto show = [this, &finder] {
        QString line = u"No fishing operation is chosen: find one on the tab \"Fishing Operation\"."_s;
        if (const auto& operation = finder.operation()) {
            line = u"%1 %2"_s.arg(finder.numberCaption(), QString::number(operation->number));
        }
        if (!finder.unregistered().isEmpty()) {
            line += u" (in no search and report until registered: %1)"_s.arg(finder.unregistered().join(u", "_s));
        }
        setText(line);
        setToolTip(finder.unregistered().isEmpty() ? QString() : line);
    };
    connect(&finder, &FinderPanel::operationChanged, this, show);
    show();
}

}  // namespace kelvora
