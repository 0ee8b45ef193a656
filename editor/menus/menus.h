#pragma once

// What the menus Edit, Arrange and View hold, and the context menu and tool bar made of it.

namespace korrin::editor {

class LiveActions;
class MainWindow;

void fillEditMenu(MainWindow& window, LiveActions& actions);
void fillArrangeMenu(MainWindow& window, LiveActions& actions);
void fillViewMenu(MainWindow& window, LiveActions& actions);

}  // namespace korrin::editor
