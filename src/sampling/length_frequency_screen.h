#pragma once

#include "controls/screen.h"
#include "data/connection.h"

namespace kelvora {

class FinderPanel;
class LengthEntryPanel;

/// "Length Frequency": how many fish of a species of one operation fall into each length class.
class LengthFrequencyScreen : public Screen {
    Q_OBJECT

public:
    explicit LengthFrequencyScreen(const Context& context);

protected:
    void refillLists() override;

private:
    Connection m_connection;
    FinderPanel* m_finder;
    LengthEntryPanel* m_entry;
};

}  // namespace kelvora
