#pragma once

#include <QDate>
#include <QLineEdit>

class QToolButton;

namespace kelvora {

/// A date as it is written, in the system's short form with a calendar below, the year always with four digits: a
/// sampler must see which century is stored. It starts with today. A text that is no date stays as it was typed.
class DateField : public QLineEdit {
    Q_OBJECT

public:
    explicit DateField(QWidget* parent = nullptr);

    /// The date meant by the text; invalid if it is none.
    [[nodiscard]] QDate date() const;
    void setDate(const QDate& date);
    /// How a date is written: an example to read.
    [[nodiscard]] QString example() const;

Q_SIGNALS:
    /// The keyboard has left a text that is no date for another field.
    void leftWithoutDate();

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void openCalendar();

    QString m_format;
    QToolButton* m_calendar;
};

}  // namespace kelvora
