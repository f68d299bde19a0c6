#include "controls/record_navigator.h"

#include "controls/fields.h"
#include "controls/screen.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// An arrow, with a bar in front of it for the ends of the result.
QIcon arrowIcon(const QPalette& palette, bool backwards, bool end) {
    return drawnIcon(palette, [backwards, end](QPainter& arrow, const QColor& colour) {
        arrow.setPen(Qt::NoPen);
        arrow.setBrush(colour);
        if (backwards) {
            arrow.translate(64, 0);
            arrow.scale(-1, 1);
        }
        arrow.drawPolygon(QPolygonF({{18, 12}, {end ? 42.0 : 48.0, 32}, {18, 52}}));
        if (end) {
            arrow.drawRect(QRectF(44, 12, 7, 40));
        }
    });
}

}  // namespace

RecordNavigator::RecordNavigator(const QString& name, QWidget* parent)
    : QFrame(parent),
      m_first(addButton(u"First"_s, true, true)),
      m_previous(addButton(u"Previous"_s, true, false)),
      m_label(new ValueLabel(this)),
      m_next(addButton(u"Next"_s, false, false)),
      m_last(addButton(u"Last"_s, false, true)) {
    setAccessibleName(name);
    setFrameShape(QFrame::StyledPanel);
    m_label->setAlignment(Qt::AlignCenter);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(m_first);
    layout->addWidget(m_previous);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_next);
    layout->addWidget(m_last);

    connect(m_first, &QToolButton::clicked, this, [this] { moveTo(0); });
    connect(m_previous, &QToolButton::clicked, this, [this] { moveTo(m_row - 1); });
    connect(m_next, &QToolButton::clicked, this, [this] { moveTo(m_row + 1); });
    connect(m_last, &QToolButton::clicked, this, [this] { moveTo(m_rows - 1); });
    updateButtons();
}

void RecordNavigator::setRowCount(int rows) {
    m_rows = rows;
    m_row = rows > 0 ? 0 : -1;
    updateButtons();
    Q_EMIT arrived(m_row);
}

void RecordNavigator::leave() {
    m_row = -1;
    updateButtons();
    setCaption({});
}

void RecordNavigator::moveTo(int row) {
    const int target = std::clamp(row, 0, std::max(m_rows - 1, 0));
    if (m_rows == 0 || target == m_row || handlerWaits()) {
        return;
    }
    m_row = target;
    updateButtons();
    Q_EMIT arrived(m_row);
}

void RecordNavigator::setCaption(const QString& caption) {
    m_caption = caption;
    m_label->setText(caption);
}

QToolButton* RecordNavigator::addButton(const QString& name, bool backwards, bool end) {
    auto* button = new QToolButton(this);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setIcon(arrowIcon(palette(), backwards, end));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void RecordNavigator::updateButtons() {
    m_first->setEnabled(m_rows > 0 && m_row != 0);
    m_previous->setEnabled(m_row > 0);
    m_next->setEnabled(m_row + 1 < m_rows);
    m_last->setEnabled(m_row + 1 < m_rows);
}

}  // namespace kelvora
