#pragma once

#include "controls/screen.h"
#include "data/connection.h"

#include <optional>

class QPushButton;

namespace kelvora {

class OperationForm;
struct OperationEntry;

/// Records one sampled fishing operation. A state/province, a sampling port or a vessel register id that was typed and
/// is not yet stored is added on the way, each after a confirmation. A saved operation stays on the screen until CLEAR,
/// and is the session's last saved operation as long as it does.
class OperationEntryScreen : public Screen {
    Q_OBJECT

public:
    /// Throws DataError if the data file cannot be opened or read.
    explicit OperationEntryScreen(const Context& context);
    ~OperationEntryScreen() override;

protected:
    void refillLists() override;

private:
    void save();
    void clear();
    bool passesChecks(const OperationEntry& entry);
    bool claimNumber();
    void giveNumber();
    int stateKeyOf(const QString& state);
    int portKeyOf(const OperationEntry& entry, int state);
    int foundKey(const std::optional<int>& key);
    void offerVessel(const QString& registerId);
    std::function<bool()> asked(const QString& question);

    Connection m_connection;
    OperationForm* m_form;
    QPushButton* m_save;
    std::optional<int> m_number;  ///< of the operation on the screen; nothing while none could be given
};

}  // namespace kelvora
