#pragma once

#include "records/refusal.h"
#include "records/species.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

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
    /// The species that its list offers: all of the catalogue, or those of the operation's composition, since only what
    /// was in the catch can have been measured.
    enum class Offers { Catalogue, Catch };
    EntryPanel(const FinderPanel& finder, Connection& connection, Dialogs& dialogs, Offers offers);

    /// No operation is current any more.
    virtual void reset() {}
    /// An operation is current: shows what it has, and offers the species of its catch.
    virtual void refresh() {}
    /// Fills the list of species again, which another screen may have changed: a chosen one stays chosen.
    virtual void refillLists();

protected:
    /// Runs a handler in the guard whenever a button is pressed.
    void onClick(QAbstractButton* button, const std::function<void()>& handler);
    /// Says what is wrong with the entry, if anything is, and moves the keyboard to its field.
    [[nodiscard]] bool isRefused(const std::optional<Refusal>& refusal) const;

    /// Fills the list with the species of the current operation's composition.
    void offerCatch();
    /// The species that the list stands on; nothing if none is chosen or the typed text is none.
    [[nodiscard]] std::optional<ChosenSpecies> chosenSpecies() const;

    const FinderPanel& m_finder;
    Connection& m_connection;
    Dialogs& m_dialogs;
    BoundList* m_species;
    std::vector<QWidget*> m_fields;  ///< the table that refusals name the fields of

private:
    Offers m_offers;
};

/// The count typed into a box; nothing for a text that is no number of fish: that is said, and the box emptied.
std::optional<double> typedFrequency(Dialogs& dialogs, QLineEdit* box);

}  // namespace kelvora
