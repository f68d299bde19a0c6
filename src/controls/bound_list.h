#pragma once

#include <QComboBox>
#include <QPointer>
#include <QVariant>

#include <functional>
#include <memory>

class QAbstractItemModel;
class QAbstractItemView;

namespace kelvora {

/// A typeable drop-down list over the rows of a query. It has two values: its text, what is shown or typed, and its
/// key, the key column of the row whose shown text equals the text, compared as the source compares. A row that was
/// chosen wins over another row with an equal text. While a text is typed, the rows that contain it are offered below.
class BoundList : public QComboBox {
    Q_OBJECT

public:
    explicit BoundList(QWidget* parent = nullptr);
    ~BoundList() override;

    /// Fills the list; the columns are found by the source's headers. The text stays as it is, as does the place of the
    /// keyboard in it.
    void setSource(std::unique_ptr<QAbstractItemModel> source, const QString& shown, const QString& key);
    /// The same with the rows of the same query, which may have changed: what was chosen stays chosen, also without its
    /// row.
    void refill(std::unique_ptr<QAbstractItemModel> source, const QString& shown, const QString& key);
    /// Empties the list and its text.
    void clearSource();

    [[nodiscard]] QString text() const { return currentText(); }
    /// Shows a text, which chooses no row.
    void setText(const QString& text);

    /// The row that the text stands for; -1 if it matches none.
    [[nodiscard]] int row() const;
    /// The key of that row, or of the one that was chosen before the list lost it; invalid if there is none, and for a
    /// null.
    [[nodiscard]] QVariant key() const;
    /// Chooses the first row with a key, compared as the source compares, and shows its text; nothing changes if there
    /// is none, and for a null.
    void setKey(const QVariant& key);

    /// Asked before the list drops down; on false it stays closed.
    void setOpenCheck(std::function<bool()> mayOpen) { m_mayOpen = std::move(mayOpen); }

    void showPopup() override;

    /// What is typed is finished, as if the list were left: before a key presses a button and leaves the keyboard here.
    void finishTyping();
    /// Closes the rows offered below a typed text.
    void closeOffers();

Q_SIGNALS:
    /// The sampler chose a row, or finished typing the text of one. Leaving a text as it was announces nothing.
    void chosen();
    /// Enter was pressed on a finished text. On one of the rows offered below, Enter only chooses that row.
    void entered();

protected:
    bool event(QEvent* event) override;

private:
    [[nodiscard]] bool hasRowsOf(const QAbstractItemModel& source, int shown, int key) const;
    [[nodiscard]] int rowWith(int column, int role, const QVariant& value) const;
    [[nodiscard]] bool offersRows() const;
    [[nodiscard]] int offeredRow() const;
    void settle();
    void onLeft();

    std::unique_ptr<QAbstractItemModel> m_source;
    int m_shownColumn = -1;
    int m_keyColumn = -1;
    QString m_goneText;  ///< of a chosen row that the list has lost
    QVariant m_goneKey;
    QString m_settled;                     ///< the text that was last chosen or set, so that a row is announced once
    QPointer<QAbstractItemView> m_offers;  ///< the rows below a typed text
    bool m_offersHaveKey = false;
    std::function<bool()> m_mayOpen;
};

/// A drop-down list of fixed rows.
class FixedList : public QComboBox {
public:
    explicit FixedList(const QStringList& rows, QWidget* parent = nullptr);
};

}  // namespace kelvora
