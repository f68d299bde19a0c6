#include "controls/search_button.h"

#include <QCoreApplication>
#include <QPainter>

namespace kelvora {
namespace {

/// A magnifying glass in the text colour of the buttons.
QIcon magnifyingGlass(const QPalette& palette) {
    QIcon icon;
    for (const auto& [mode, group] :
         {std::pair{QIcon::Normal, QPalette::Active}, {QIcon::Disabled, QPalette::Disabled}}) {
        QPixmap pixmap(64, 64);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor colour = palette.color(group, QPalette::ButtonText);
        painter.setPen(QPen(colour, 6));
        painter.drawEllipse(QPointF(27, 27), 17, 17);
        painter.setPen(QPen(colour, 9, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(41, 41), QPointF(55, 55));
        icon.addPixmap(pixmap, mode);
    }
    return icon;
}

}  // namespace

SearchButton::SearchButton(QWidget* parent) : QToolButton(parent) {
    const QString name = QCoreApplication::translate("SearchButton", "Search");
    setAccessibleName(name);
    setToolTip(name);
    setIcon(magnifyingGlass(palette()));
    // A click takes the keyboard from a list beside it, so that what was typed there is settled before the search.
    setFocusPolicy(Qt::StrongFocus);
}

}  // namespace kelvora
