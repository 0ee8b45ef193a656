#pragma once

// The lists of a plot as lines of text, so that a test can show the table it expects.

#include <string>

#include "korrin/model/project.h"

namespace korrin::test {

/// A line for each item: kind | asset | position | size | rotation | label
std::string itemRows(const KorrinProject& project);
/// A line for each input: channel | source | microphone or DI | stand | phantom | notes | item
std::string inputRows(const KorrinProject& project);
/// A line for each mix: number | name | type | output | notes | item
std::string mixRows(const KorrinProject& project);
/// A line for each equipment requirement: category | item | quantity | supplier | notes | item
std::string equipmentRows(const KorrinProject& project);
/// A line for each note: title | body
std::string noteRows(const KorrinProject& project);

}  // namespace korrin::test
