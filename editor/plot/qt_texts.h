#pragma once

// Texts of a plot as texts of the window, and back.

#include <QString>
#include <string>

#include "korrin/foundation/text.h"

namespace korrin::editor {

inline QString toQString(const Text& text) { return QString::fromStdString(text.str()); }

/// What is no Unicode text, such as half of a surrogate pair, is replaced.
inline Text toText(const QString& text) { return Text(text.toStdString()); }

}  // namespace korrin::editor
