#pragma once

#include <QToolButton>

namespace kelvora {

/// The picture button that starts a search: a drawn magnifying glass, called "Search" by a screen reader.
class SearchButton : public QToolButton {
public:
    explicit SearchButton(QWidget* parent = nullptr);
};

}  // namespace kelvora
