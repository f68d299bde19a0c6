#pragma once

#include "controls/session.h"
#include "data/result_set.h"

#include <QWidget>

#include <optional>

class QGroupBox;

namespace kelvora {

class Connection;
class OperationDetails;
class RecordNavigator;
class SearchFields;
class ValueLabel;

/// Finds the stored operation that a sampling screen works on: a criterion, a value, the matching operations one by
/// one, and the details of the one shown, which is the screen's current operation.
class FinderPanel : public QWidget {
    Q_OBJECT

public:
    /// The caption is that of the current operation's number. The connection is the screen's and outlives the panel.
    FinderPanel(const QString& numberCaption, Connection& connection, Context context, QWidget* parent = nullptr);

    /// To be called once, when the screen is built. With an operation saved last, the panel stays on that operation for
    /// the screen's whole life.
    void open(bool selectFirstCriterion);

    [[nodiscard]] const QString& numberCaption() const { return m_numberCaption; }
    /// The number of the current operation in decimal text; empty if there is none.
    [[nodiscard]] QString currentOperation() const;
    /// The same as a number.
    [[nodiscard]] std::optional<int> operation() const;

Q_SIGNALS:
    /// Another operation is current, or none any more. It may have no details to load.
    void operationChanged();
    /// No operation is current any more: the screen blanks what it shows of one.
    void cleared();
    /// The details of the current operation have been loaded: the screen shows what it has of it.
    void loaded();

private:
    void clear();
    void onValueTyped();
    void onSearch();
    void onArrived(int row);
    void setOperation(int operation);
    void setNumber(const QString& number);

    Connection& m_connection;
    Context m_context;
    QString m_numberCaption;
    QGroupBox* m_search;
    SearchFields* m_fields;
    RecordNavigator* m_navigator;
    ValueLabel* m_number;
    OperationDetails* m_details;
    ResultSet m_found;
};

}  // namespace kelvora
