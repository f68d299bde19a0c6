#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

namespace kelvora {

/// First, previous, next and last over the rows of a result, with a caption that its screen sets.
class RecordNavigator : public QFrame {
    Q_OBJECT

public:
    /// The name is what a screen reader calls the navigator.
    explicit RecordNavigator(const QString& name, QWidget* parent = nullptr);

    /// A new result: the navigator goes to its first row.
    void setRowCount(int rows);
    /// Stands on no row any more; the next step or row gone to is an arrival, also on the row before.
    void leave();
    /// The row it stands on; -1 if there is none.
    [[nodiscard]] int row() const { return m_row; }
    [[nodiscard]] int rowCount() const { return m_rows; }

    /// Goes to a row, the nearest one of the result; does nothing in an empty result or when it stands there already.
    void moveTo(int row);

    [[nodiscard]] QString caption() const { return m_caption; }
    void setCaption(const QString& caption);

Q_SIGNALS:
    /// It arrived on a row, or a new result is empty (-1).
    void arrived(int row);

private:
    QToolButton* addButton(const QString& name, bool backwards, bool end);
    void updateButtons();

    QToolButton* m_first;
    QToolButton* m_previous;
    QLabel* m_label;
    QToolButton* m_next;
    QToolButton* m_last;
    QString m_caption;
    int m_rows = 0;
    int m_row = -1;
};

}  // namespace kelvora
