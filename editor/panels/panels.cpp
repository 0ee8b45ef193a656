#include "editor/panels/panels.h"

#include "editor/main_window.h"

namespace korrin::editor {

void addPanels(MainWindow&) {}

}  // namespace korrin::editor
