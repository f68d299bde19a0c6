#pragma once

#include <QString>
#include <QWidget>

class QAbstractButton;

namespace kelvora {
class Grid;
}  // namespace kelvora

namespace kelvora::test {

/// A caption without its mnemonic.
inline QString plain(QString caption) {
    return caption.remove(u'&').trimmed();
}

/// Uses a screen as a sampler does: finds fields by their caption or accessible name, types keys, presses buttons. What
/// is not there, or is disabled when it is to be used, ends the test at once.
class ScreenDriver {
public:
    explicit ScreenDriver(QWidget* root) : m_root(root) {}

    [[nodiscard]] QWidget* root() const { return m_root; }
    /// The same, inside a frame with a title (or the tab or widget with that accessible name).
    [[nodiscard]] ScreenDriver within(const QString& frame) const;
    [[nodiscard]] ScreenDriver navigator(const QString& name) const;

    /// The field with a caption: the buddy of the label with that text, else the widget with that accessible name.
    [[nodiscard]] QWidget* field(const QString& caption) const;
    [[nodiscard]] Grid* grid(const QString& name) const;
    /// A button or option by its caption (mnemonic left out) or accessible name.
    [[nodiscard]] QAbstractButton* button(const QString& caption) const;
    /// A button or, where there is none of that name, a field.
    [[nodiscard]] QWidget* control(const QString& name) const;

    /// The text of a field, whatever it is, or the caption of a navigator.
    [[nodiscard]] QString text(const QString& caption) const;
    [[nodiscard]] bool enabled(const QString& caption) const { return control(caption)->isEnabled(); }
    /// The rows of a grid as shown, each as its cells joined by "|".
    [[nodiscard]] QStringList rows(const QString& name) const;

    /// Replaces a field's text with key presses (texts that have no keys at once, as an input method enters them) and
    /// leaves it (Tab), as far as it can be left.
    void type(const QString& caption, const QString& text) const;
    /// Chooses a row of a drop-down list by its shown text.
    void choose(const QString& caption, const QString& row) const;
    [[nodiscard]] QStringList options(const QString& caption) const;
    void press(const QString& caption) const;
    /// One step after the other: "Vessel Name = Blue Fin; Weight = 2.5; SAVE" chooses a row where a drop-down list
    /// offers the text, types where it does not, and presses a button. Return is pressed behind a text with a line
    /// break.
    void enter(const QString& steps) const;
    void openTab(const QString& caption) const;

private:
    QWidget* m_root;
};

}  // namespace kelvora::test
