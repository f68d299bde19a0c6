#pragma once

#include "records/operation_store.h"
#include "records/species.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QAbstractButton;
class QPushButton;

namespace kelvora {

class Dialogs;
class RecordNavigator;

/// A tab of the search screen: the samples of one kind of the current operation, to look at and to mend.
class SampleTab : public QWidget {
    Q_OBJECT

public:
    /// Shows the samples of an operation, or the empty tab if there is none. Throws DataError.
    void load(const std::optional<StoredOperation>& operation);

Q_SIGNALS:
    /// What the sampler wanted to change is not stored any more: nothing was changed, and what the screen shows is old.
    void outdated();

protected:
    /// The connection and the dialogs are the screen's and outlive the tab.
    SampleTab(Connection& connection, Dialogs& dialogs) : m_connection(connection), m_dialogs(dialogs) {}

    /// Reads the samples of the current operation; without one, shows what a tab without samples shows.
    virtual void reload() = 0;

    [[nodiscard]] Connection& connection() const { return m_connection; }
    [[nodiscard]] Dialogs& dialogs() const { return m_dialogs; }
    [[nodiscard]] const std::optional<StoredOperation>& operation() const { return m_operation; }

    /// Runs a handler in the guard whenever a button is pressed.
    void onClick(QAbstractButton* button, const std::function<void()>& handler);

    /// Whether a change may go on: the operation is stored as it was, and so is the sample. Sends outdated() if not.
    /// Throws DataError.
    bool mayChange(bool sampleIsStored);

private:
    Connection& m_connection;
    Dialogs& m_dialogs;
    std::optional<StoredOperation> m_operation;
};

/// A tab whose samples are of one species each, shown one at a time.
class SpeciesSampleTab : public SampleTab {
    Q_OBJECT

protected:
    /// What differs between the kinds of samples.
    struct Kind {
        QString navigator;     ///< its name
        QString position;      ///< its caption in front of the species: place and number of the samples
        QString deleteButton;  ///< its caption
        QString deleteTitle;   ///< of the question whether to delete
        std::vector<ChosenSpecies> (*species)(Connection& connection, int operation);
        std::optional<QVariant> (*weight)(Connection& connection, int operation, int species);
        void (*remove)(Connection& connection, const StoredOperation& operation, const ChosenSpecies& species);
    };
    SpeciesSampleTab(Connection& connection, Dialogs& dialogs, Kind kind);

    void reload() override;
    /// Shows the sample of the current species, whose sampling weight (kg) is given. Throws DataError.
    virtual void showSample(const QString& weight) = 0;
    virtual void showNone() = 0;
    /// There is a sample to mend, or there is none.
    virtual void setUsable(bool usable) = 0;

    /// The species that the navigator stands on.
    [[nodiscard]] const ChosenSpecies& species() const;
    [[nodiscard]] QString storedWeight() const;
    bool mayChangeSample();

    RecordNavigator* m_navigator;
    QPushButton* m_delete;

private:
    void onArrived(int row);
    void onDelete();

    Kind m_kind;
    std::vector<ChosenSpecies> m_species;  ///< of which the operation has a sample
};

}  // namespace kelvora
