#pragma once

// Canonical normalisation of well-formed UTF-8.

#include <string>
#include <string_view>

namespace korrin {

/// Whether `text` is in composed canonical form by virtue of each scalar alone: none combines with,
/// or is reordered around, any neighbour. False for some texts that are composed; never true for
/// one that is not.
bool isStableNFC(std::string_view text) noexcept;

/// The composed canonical form (NFC). Takes O(n log n) time, whatever the text. Throws
/// std::bad_alloc when memory runs out.
std::string toNFC(std::string_view text);

}  // namespace korrin
