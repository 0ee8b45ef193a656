#pragma once

// Keys of a document that this version of the format does not know: reading passes over them, so
// writing loses them.

#include <string>
#include <string_view>

namespace korrin::host {

/// A sentence that names the unknown keys of a plot document that decodes, with how often each
/// stands, such as "writing drops keys that the format does not know: futureKey, items[].opacity
/// (12 times)"; empty when there are none.
std::string droppedKeysSentence(std::string_view document);

}  // namespace korrin::host
