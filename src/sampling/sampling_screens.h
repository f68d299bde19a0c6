#pragma once

#include "controls/screen.h"
#include "data/connection.h"

namespace kelvora {

class EntryPanel;
class FinderPanel;

/// A screen of samples: a tab that finds a fishing operation, and one that enters what was sampled of its catch. It
/// waits long for a file that another program holds: a sample must not be lost to a passing lock.
class SamplingScreen : public Screen {
    Q_OBJECT

protected:
    /// The number's caption is that of the current operation.
    SamplingScreen(const QString& caption, const QString& numberCaption, const Context& context);

    /// To be called once, with the panel of the second tab.
    void open(EntryPanel* entry, const QString& tabCaption, bool selectFirstCriterion);
    void refillLists() override;

    Connection m_connection;
    FinderPanel* m_finder;

private:
    EntryPanel* m_entry = nullptr;
};

/// "Species Composition": how the catch of one operation divides into species by weight.
class SpeciesCompositionScreen : public SamplingScreen {
public:
    explicit SpeciesCompositionScreen(const Context& context);
};

/// "Length Frequency": how many fish of a species of one operation fall into each length class.
class LengthFrequencyScreen : public SamplingScreen {
public:
    explicit LengthFrequencyScreen(const Context& context);
};

/// "Gonad Maturity": the fish of a species of one operation, measured and weighed one by one.
class GonadMaturityScreen : public SamplingScreen {
public:
    explicit GonadMaturityScreen(const Context& context);
};

}  // namespace kelvora
