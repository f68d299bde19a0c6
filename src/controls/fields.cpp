#include "controls/fields.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace kelvora {

ValueLabel::ValueLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    // A width that is ignored could become none: the value would be gone where room is short.
    setMinimumWidth(fontMetrics().averageCharWidth() * 4);
}

QSize ValueLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 4, fontMetrics().height() + 4};
}

QSize ValueLabel::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 18, fontMetrics().height() + 4};
}

void ValueLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QString line = text().left(2'000).simplified();
    line = fontMetrics().elidedText(line, Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(), line,
                          foregroundRole());
}

QLabel* addField(QGridLayout* form, int row, int column, const QString& caption, QWidget* field) {
    auto* label = new QLabel(caption);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(field);
    form->addWidget(label, row, column);
    form->addWidget(field, row, column + 1);
    return label;
}

QPushButton* keyButton(const QString& caption) {
    auto* button = new QPushButton(caption);
    constexpr int margins = 32;
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(caption) + margins);
    return button;
}

void focusOn(QWidget* field) {
    field->setFocus(Qt::TabFocusReason);
    if (auto* date = qobject_cast<QAbstractSpinBox*>(field)) {
        date->selectAll();
        return;
    }
    const auto* list = qobject_cast<QComboBox*>(field);
    if (auto* line = list != nullptr ? list->lineEdit() : qobject_cast<QLineEdit*>(field)) {
        line->selectAll();
    }
}

void makeReadOnly(QLineEdit* field) {
    field->setReadOnly(true);
    QPalette toRead = field->palette();
    toRead.setColor(QPalette::Base, toRead.color(QPalette::Window));
    field->setPalette(toRead);
}

void nameList(QComboBox* list, const QString& name) {
    list->setAccessibleName(name);
    auto* label = new QLabel(name, list->parentWidget());
    label->setBuddy(list);
    label->hide();
}

void showStars(QLineEdit* field) {
    field->setEchoMode(QLineEdit::Password);
    field->setStyleSheet(u"lineedit-password-character: 42"_s);  // "*"
}

QLineEdit* numberField(const QString& text) {
    auto* field = new QLineEdit(text);
    constexpr int margins = 16;
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(u"12345.678"_s) + margins);
    return field;
}

QIcon drawnIcon(const QPalette& palette, const std::function<void(QPainter&, const QColor&)>& draw) {
    QIcon icon;
    for (const auto& [mode, group] :
         {std::pair{QIcon::Normal, QPalette::Active}, {QIcon::Disabled, QPalette::Disabled}}) {
        QPixmap pixmap(64, 64);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        draw(painter, palette.color(group, QPalette::ButtonText));
        icon.addPixmap(pixmap, mode);
    }
    return icon;
}

SearchButton::SearchButton(QWidget* parent) : QToolButton(parent) {
    setAccessibleName(u"Search"_s);
    setToolTip(u"Search"_s);
    setIcon(drawnIcon(palette(), [](QPainter& glass, const QColor& colour) {
        glass.setPen(QPen(colour, 6));
        glass.drawEllipse(QPointF(27, 27), 17, 17);
        glass.setPen(QPen(colour, 9, Qt::SolidLine, Qt::RoundCap));
        glass.drawLine(QPointF(41, 41), QPointF(55, 55));
    }));
    // A click takes the keyboard from a list beside it, so that what was typed there is settled before the search.
    setFocusPolicy(Qt::StrongFocus);
}

}  // namespace kelvora
