#pragma once

// Colours and style of the whole window, light or dark.

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;

namespace korrin::editor {

enum class Theme { light, dark };

/// Gives the program its style in these colours.
void apply(Theme theme, QApplication& application);
/// The theme that suits the desktop's own colours.
Theme desktopTheme(const QApplication& application);
/// Whether the program's colours are dark.
bool isDark();

/// @{
/// What is selected, guides, and what is selected but locked.
QColor accentColour();
QColor guideColour();
QColor lockedColour();
/// @}
/// @{
/// Around the stage, the stage itself and lines upon it. The stage is light in both themes, as the
/// paper that it is printed on.
QColor deskColour();
QColor stageColour();
QColor stageInkColour();
QColor gridColour();
/// @}

/// An icon of the program by its name, in the colour of the text; empty when there is none.
QIcon themedIcon(const QString& name);

}  // namespace korrin::editor
