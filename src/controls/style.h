#pragma once

class QApplication;

namespace kelvora {

/// The one look of all screens: quiet colours in the desktop's light or dark mode.
void applyStyle(QApplication& application);

}  // namespace kelvora
