#pragma once

// The size of the window and the places of its panels, kept from one run to the next.

#include <QMainWindow>

namespace korrin::editor {

/// Gives a window that is complete the layout that the last one closed with, and keeps its own when
/// it closes. Settings that are missing or damaged leave the window as it is.
void rememberLayout(QMainWindow& window);

/// Every panel where it was when `rememberLayout` was called.
void resetLayout(QMainWindow& window);

}  // namespace korrin::editor
