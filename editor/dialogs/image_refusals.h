#pragma once

// Why an image is not taken into a plot, and what to do about it.

#include <QString>

#include "korrin/validation/asset_refusal.h"

namespace korrin::editor {

/// Sentences for the user: what is wrong with the file, then what helps.
QString sentencesFor(AssetRefusal refusal);

/// Of an image that is in order, but too large together with those that the plot has.
QString noRoomSentences();

}  // namespace korrin::editor
