#pragma once

// What a text may hold that must not reach a terminal, a line of a log or a sentence as it is: it
// would be obeyed, end the line, or make the rest of it read as something else.

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>

namespace korrin {

/// Whether the Unicode scalar value is a control character, a separator of lines or paragraphs, or
/// an invisible one that reorders, joins or tags others. The joiners U+200C and U+200D are not:
/// scripts and emoji need them.
constexpr bool isHidden(char32_t scalar) noexcept {
  struct Range {
    char32_t first;
    char32_t last;
  };
  constexpr std::array ranges = {
      Range{0x00, 0x1F},       Range{0x7F, 0x9F},       Range{0xAD, 0xAD},
      Range{0x600, 0x605},     Range{0x61C, 0x61C},     Range{0x6DD, 0x6DD},
      Range{0x70F, 0x70F},     Range{0x890, 0x891},     Range{0x8E2, 0x8E2},
      Range{0x180E, 0x180E},   Range{0x200B, 0x200B},   Range{0x200E, 0x200F},
      Range{0x2028, 0x202E},   Range{0x2060, 0x206F},   Range{0xFEFF, 0xFEFF},
      Range{0xFFF9, 0xFFFB},   Range{0x110BD, 0x110BD}, Range{0x110CD, 0x110CD},
      Range{0x13430, 0x1343F}, Range{0x1BCA0, 0x1BCA3}, Range{0x1D173, 0x1D17A},
      Range{0xE0001, 0xE0001}, Range{0xE0020, 0xE007F},
  };
  return std::any_of(ranges.begin(), ranges.end(), [scalar](const Range& range) {
    return scalar >= range.first && scalar <= range.last;
  });
}

/// The number of a scalar as Unicode writes it, in capital hexadecimal digits without zeros in
/// front.
inline std::string hexadecimal(char32_t scalar) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 static_cast<std::uint32_t>(scalar), 16);
  std::string text(digits.data(), end.ptr);
  for (char& digit : text)
    if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
  return text;
}

/// How a hidden scalar is shown: `\n`, `\r`, `\t`, or its number as in `\u{202E}`.
inline std::string escaped(char32_t scalar) {
  switch (scalar) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return "\\u{" + hexadecimal(scalar) + "}";
  }
}

}  // namespace korrin
