#pragma once

#include <QDateEdit>

namespace kelvora {

/// A date in the system's short form with a calendar below, the year always with four digits: a sampler must see which
/// century is stored. It starts with today. A date typed as it is written, its separators included, is the date meant.
class DateField : public QDateEdit {
public:
    explicit DateField(QWidget* parent = nullptr);

    /// The date meant by what was typed, else the one shown.
    QDate completed();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// What was typed since the field was reached, as long as nothing but characters was.
    QString m_typed;
    /// Whether the part that the keyboard is in (day, month or year) has been typed into since it was reached.
    bool m_partBegun = false;
};

}  // namespace kelvora
