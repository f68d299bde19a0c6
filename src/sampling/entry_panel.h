#pragma once

#include <QWidget>

namespace kelvora {

/// What a sampling screen enters for the operation that its finder stands on. What is typed lives in the panel alone
/// until it is stored. Finder and connection are the screen's and outlive the panel.
class EntryPanel : public QWidget {
public:
    /// No operation is current any more.
    virtual void reset() = 0;
    /// An operation is current: shows what it has, and offers the species of its catch.
    virtual void refresh() = 0;
    /// Fills the lists of species again, which another screen may have changed.
    virtual void refillLists() = 0;
};

}  // namespace kelvora
