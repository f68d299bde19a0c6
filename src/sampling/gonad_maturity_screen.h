#pragma once

#include "controls/screen.h"
#include "data/connection.h"

namespace kelvora {

class FinderPanel;
class GonadEntryPanel;

/// "Gonad Maturity": the fish of a species of one operation, measured and weighed one by one.
class GonadMaturityScreen : public Screen {
    Q_OBJECT

public:
    /// Waits long for a file that another program holds: a sample of fish must not be lost to a passing lock.
    explicit GonadMaturityScreen(const Context& context);

protected:
    void refillLists() override;

private:
    Connection m_connection;
    FinderPanel* m_finder;
    GonadEntryPanel* m_entry;
};

}  // namespace kelvora
