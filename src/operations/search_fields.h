#pragma once

#include "records/operation_store.h"

#include <QWidget>

namespace kelvora {

class BoundList;
class Connection;
class Dialogs;
class FixedList;

/// What operations are searched by: one of the five criteria, and a value of its reference table.
class SearchFields : public QWidget {
    Q_OBJECT

public:
    /// The connection and the dialogs outlive the fields. No criterion is chosen at first.
    SearchFields(Connection& connection, Dialogs& dialogs);

    /// Fills the values again, which another screen may have changed.
    void refill();
    /// As if the sampler chose the first criterion.
    void chooseFirstCriterion();

    /// What to search for; nothing without a value.
    [[nodiscard]] std::optional<OperationSearch> search() const;

Q_SIGNALS:
    /// Another criterion was chosen; its values are not offered yet.
    void criterionChosen();
    void valueChosen();
    /// The value's text was changed by a key press.
    void valueTyped();
    /// Enter was pressed in the value.
    void entered();

private:
    void onCriterionChosen();

    Connection& m_connection;
    Dialogs& m_dialogs;
    FixedList* m_criterion;
    BoundList* m_value;
};

}  // namespace kelvora
