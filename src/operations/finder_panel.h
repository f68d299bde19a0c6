#pragma once

#include "controls/screen.h"
#include "operations/operation_details.h"
#include "records/operation_store.h"

#include <QWidget>

#include <optional>

class QGroupBox;
class QVBoxLayout;

namespace kelvora {

class Connection;
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
    /// Whether it stays on the operation saved last.
    [[nodiscard]] bool isLocked() const;

    /// Fills the list of values again, which another screen may have changed.
    void refillLists();

    [[nodiscard]] const QString& numberCaption() const { return m_numberCaption; }
    /// The current operation as it was read; nothing if there is none.
    [[nodiscard]] const std::optional<StoredOperation>& operation() const { return m_current; }
    /// What the current operation refers to and is not registered; its details are not shown then.
    [[nodiscard]] const QStringList& unregistered() const { return m_unregistered; }

Q_SIGNALS:
    /// Another operation is current, or none any more.
    void operationChanged();
    /// No operation is current any more: the screen blanks what it shows of one.
    void cleared();
    /// Another operation is current: the screen shows what it has of it.
    void loaded();

private:
    void addDetails(QVBoxLayout* layout);
    void clear();
    void onValueTyped();
    void onSearch();
    void onArrived(int row);
    void setOperation(int number);
    void setCurrent(std::optional<StoredOperation> operation, QStringList unregistered = {});

    Connection& m_connection;
    Context m_context;
    QString m_numberCaption;
    QGroupBox* m_search;
    SearchFields* m_fields;
    RecordNavigator* m_navigator;
    ValueLabel* m_number;
    OperationDetails m_details;
    std::vector<int> m_found;  ///< numbers of the operations found
    std::optional<StoredOperation> m_current;
    QStringList m_unregistered;
};

}  // namespace kelvora
