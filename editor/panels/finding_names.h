#pragma once

// What the rows and symbols that findings are about are called, so that two findings of one rule
// can be told apart.

#include <QString>

#include "editor/panels/findings.h"

namespace korrin::editor {

/// Its label, or what its symbol is called.
QString nameOf(const PlotItem& item);

/// "Row 4: Snare" or "DRUMS, KEYS": the row or the items that the finding is about. Empty where it
/// is about neither. The plot is the one that it was found in.
QString subjectText(const Finding& finding, const KorrinProject& project);

}  // namespace korrin::editor
