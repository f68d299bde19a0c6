#pragma once

#include <QIcon>
#include <QLabel>
#include <QToolButton>

#include <functional>

class QGridLayout;
class QPainter;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace kelvora {

/// A value to read. Long texts are cut off with "…" in the picture only: text() and a screen reader have them whole.
/// Markup is shown as it is written.
class ValueLabel : public QLabel {
public:
    explicit ValueLabel(QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Puts a field with its caption in front of it into a form: the caption goes into the given cell, the
/// field beside it, and the caption's label has the field as its buddy. Returns the label.
QLabel* addField(QGridLayout* form, int row, int column, const QString& caption, QWidget* field);

/// Names a list that has no caption on the screen. A screen reader calls a list by its current text, so the name is
/// given by a hidden label too. The list must have its parent already.
void nameList(QComboBox* list, const QString& name);

/// Makes a text box show "*" for each typed character.
void showStars(QLineEdit* field);

/// Moves the keyboard to a field. Its text is selected, so that what is typed replaces it.
void focusOn(QWidget* field);

/// A text box that is there to be read and copied.
void makeReadOnly(QLineEdit* field);

/// A button as wide as those beside it.
QPushButton* keyButton(const QString& caption);

/// A text box for a number: wide enough for eight digits and the point.
QLineEdit* numberField(const QString& text = {});

/// A picture of 64 by 64 points in the colour of the buttons' text, drawn once as enabled and once as disabled.
QIcon drawnIcon(const QPalette& palette, const std::function<void(QPainter&, const QColor&)>& draw);

/// The picture button that starts a search: a magnifying glass, called "Search" by a screen reader.
class SearchButton : public QToolButton {
public:
    explicit SearchButton(QWidget* parent = nullptr);
};

}  // namespace kelvora
