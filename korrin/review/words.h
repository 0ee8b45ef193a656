#pragma once

// Values and keys in words for a sentence that anybody may print: on one line, with nothing in it
// that a terminal would obey. Not public.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "korrin/model/stage_values.h"

namespace korrin::revision {

/// The text with control characters, line separators and characters that reorder or hide others
/// written as "\n" or "\u{202E}", cut to about 60 characters.
std::string shown(std::string_view text);

/// Two texts that differ, each as by `shown`. Where one of them is too long, both are cut to about
/// where they begin to differ.
std::pair<std::string, std::string> shownApart(std::string_view first, std::string_view second);

std::string quoted(std::string_view text);

/// Whether nothing could be seen of the text by `shown`, as of a name that is blank.
bool isShownBlank(std::string_view text);

/// A key in words: "microphone or DI" for "microphoneOrDI", "layer" for "layerID", "riser height"
/// for "riserHeightMillimeters".
std::string wordsOf(std::string_view key);

/// What the key of a truth value says of its record, with the blank or colon that joins it to the
/// record's name: " is locked", ": phantom power on".
std::string truthOf(std::string_view key, bool value);

/// The shortest decimal number, independent of the locale.
std::string numberText(double value);

/// Metres where they are exact in centimetres, and millimetres otherwise.
std::string lengthText(double millimetres);

/// The value of a field in the unit that its key names.
std::string measureText(std::string_view key, double value);

/// How far and where to something moved, as in "0.40 m to the right and 0.15 m towards the
/// audience"; empty where it did not or where that is no finite distance.
std::string movementText(const StagePoint& from, const StagePoint& to, AudienceEdge audience);

/// An instant as it stands in a document, such as "2026-06-12T18:00:00Z", for people.
std::string dateText(std::string_view iso8601);

/// The first letter as a capital.
std::string capitalized(std::string text);

}  // namespace korrin::revision
