#pragma once

#include "controls/screen.h"
#include "data/connection.h"
#include "records/operation_store.h"

#include <optional>
#include <vector>

class QPushButton;
class QTabWidget;

namespace kelvora {

class OperationFrame;
class RecordNavigator;
class SampleTab;
class SearchFields;

/// Finds stored operations by one criterion, shows them one by one with all their samples, deletes an operation with
/// everything that hangs on it, and mends its samples.
class SearchScreen : public Screen {
    Q_OBJECT

public:
    /// Throws DataError if the data file cannot be opened or read.
    explicit SearchScreen(const Context& context);

protected:
    void refillLists() override;

private:
    QWidget* searchPanel();
    QTabWidget* sampleTabs();

    void onSearch();
    void onDelete();
    void onArrived(int row);
    void onOutdated();

    void runSearch();
    void refresh(int operation);
    void showOperation(int operation);
    void clearOperation();
    void reportGone(int operation);

    Connection m_connection;
    SearchFields* m_fields;
    QPushButton* m_searchButton;
    QPushButton* m_delete;
    RecordNavigator* m_navigator;
    OperationFrame* m_frame;
    std::vector<SampleTab*> m_tabs;

    OperationSearch m_search;                    ///< what was searched last
    std::vector<int> m_found;                    ///< numbers of the operations found
    std::optional<StoredOperation> m_operation;  ///< the one shown
};

}  // namespace kelvora
