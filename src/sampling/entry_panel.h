#pragma once

#include "records/refusal.h"
#include "records/species.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <span>

class QAbstractButton;
class QLineEdit;

namespace kelvora {

class BoundList;
class Dialogs;
class FinderPanel;

/// What a sampling screen enters for the operation that its finder stands on. What is typed lives in the panel alone
/// until it is stored. Finder, connection and dialogs are the screen's and outlive the panel.
class EntryPanel : public QWidget {
    Q_OBJECT

public:
    EntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs);

    /// No operation is current any more.
    virtual void reset() {}
    /// An operation is current: shows what it has, and offers the species of its catch.
    virtual void refresh() {}
    /// Fills the lists of species again, which another screen may have changed.
    virtual void refillLists() = 0;

protected:
    /// Runs a handler in the guard whenever a button is pressed.
    void onClick(QAbstractButton* button, const std::function<void()>& handler);
    /// Says what is wrong with the entry, if anything is, and moves the keyboard to its field in the panel's table.
    bool isRefused(const std::optional<Refusal>& refusal, std::span<QWidget* const> fields) const;

    const FinderPanel& m_finder;
    Connection& m_connection;
    Dialogs& m_dialogs;
};

/// Fills a list with all species of the catalogue, shown as genus and species. A chosen one stays chosen.
void fillSpecies(BoundList& list, Connection& connection);

/// Fills a list with the species of an operation's composition: only what was in the catch can have been measured.
void fillCaughtSpecies(BoundList& list, Connection& connection, int operation);
/// The same for the operation that the list was filled for, if there is one: a chosen species stays chosen.
void refillCaughtSpecies(BoundList& list, Connection& connection, const FinderPanel& finder);

/// The species that a list stands on; nothing if none is chosen or the typed text is none.
std::optional<ChosenSpecies> chosenSpecies(const BoundList& list);

/// The count typed into a box; nothing for a text that is no number of fish: that is said, and the box emptied.
std::optional<double> typedFrequency(Dialogs& dialogs, QLineEdit* box);

}  // namespace kelvora
