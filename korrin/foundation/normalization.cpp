#include "korrin/foundation/normalization.h"

#include <algorithm>
#include <array>
#include <vector>

#include <utf8proc.h>

#include "korrin/foundation/utf8.h"

namespace korrin {
namespace {

// Below U+0300 nothing combines; 0xCC starts the encoding of U+0300. No lower byte starts that of a
// later scalar.
constexpr unsigned char firstCombiningByte = 0xCC;

constexpr utf8proc_uint16_t none = 0xFFFF;
constexpr utf8proc_uint16_t firstSecondHalf = 0x8000;

// Jamo vowels and finals join a preceding syllable by arithmetic, outside the library's tables.
bool joinsHangulSyllable(char32_t scalar) {
  return (scalar >= 0x1161 && scalar <= 0x1175) || (scalar >= 0x11A8 && scalar <= 0x11C2);
}

bool isStable(char32_t scalar) {
  const utf8proc_property_t& property =
      *utf8proc_get_property(static_cast<utf8proc_int32_t>(scalar));
  const bool isDecomposed = property.decomp_seqindex != none && property.decomp_type == 0;
  const bool joinsPreceding = property.comb_index != none && property.comb_index >= firstSecondHalf;
  return property.combining_class == 0 && !isDecomposed && !joinsPreceding &&
         !joinsHangulSyllable(scalar);
}

using Scalars = std::vector<utf8proc_int32_t>;

Scalars decompose(std::string_view text) {
  Scalars scalars;
  scalars.reserve(text.size());
  std::array<utf8proc_int32_t, 8> parts;  // a canonical decomposition has at most four scalars
  int boundary = 0;
  while (!text.empty()) {
    const utf8::Step next = utf8::step(text);
    const auto count = utf8proc_decompose_char(
        static_cast<utf8proc_int32_t>(next.scalar), parts.data(), std::ssize(parts),
        static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_STABLE), &boundary);
    scalars.insert(scalars.end(), parts.begin(), parts.begin() + count);
    text.remove_prefix(next.length);
  }
  return scalars;
}

int combiningClass(utf8proc_int32_t scalar) {
  return utf8proc_get_property(scalar)->combining_class;
}

// The library's own reordering takes quadratic time on a long run of marks, which a hostile
// document can hold; a stable sort of each run gives the same order.
void reorderMarks(Scalars& scalars) {
  const auto isMark = [](utf8proc_int32_t scalar) { return combiningClass(scalar) != 0; };
  for (auto at = scalars.begin(); at != scalars.end();) {
    const auto first = std::find_if(at, scalars.end(), isMark);
    at = std::find_if_not(first, scalars.end(), isMark);
    std::stable_sort(first, at, [](utf8proc_int32_t a, utf8proc_int32_t b) {
      return combiningClass(a) < combiningClass(b);
    });
  }
}

}  // namespace

bool isStableNFC(std::string_view text) noexcept {
  if (utf8::allBytesBelow(text, firstCombiningByte)) return true;
  for (std::size_t at = 0; at < text.size();) {
    if (static_cast<unsigned char>(text[at]) < firstCombiningByte) {
      ++at;
      continue;
    }
    const utf8::Step next = utf8::step(text.substr(at));
    if (!isStable(next.scalar)) return false;
    at += next.length;
  }
  return true;
}

std::string toNFC(std::string_view text) {
  Scalars scalars = decompose(text);
  reorderMarks(scalars);
  const auto count =
      utf8proc_normalize_utf32(scalars.data(), std::ssize(scalars),
                               static_cast<utf8proc_option_t>(UTF8PROC_COMPOSE | UTF8PROC_STABLE));
  std::string composed;
  composed.reserve(text.size());
  for (auto i = 0; i < count; ++i)
    utf8::append(composed, static_cast<char32_t>(scalars[static_cast<std::size_t>(i)]));
  return composed;
}

}  // namespace korrin
