#pragma once

// Digits, decimal and hexadecimal, as ASCII has them: no locale changes what they are.

#include <algorithm>
#include <string>
#include <string_view>

namespace korrin {

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// The value of a hexadecimal digit of either case, or -1.
constexpr int hexValue(char c) noexcept {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

constexpr bool isHexDigit(char c) noexcept { return hexValue(c) >= 0; }

/// Whether the text can be a SHA-256 digest, which embedded files are named by: 64 hexadecimal
/// digits of either case.
constexpr bool isDigest(std::string_view text) noexcept {
  return text.size() == 64 && std::all_of(text.begin(), text.end(), isHexDigit);
}

/// Appends the two digits of a byte, in small letters.
inline void appendHex(std::string& text, unsigned char byte) {
  constexpr char digits[] = "0123456789abcdef";
  text += digits[byte >> 4];
  text += digits[byte & 15];
}

}  // namespace korrin
