#include "korrin/foundation/utf8.h"

namespace korrin::utf8 {
namespace {

unsigned byteAt(std::string_view text, std::size_t i) noexcept {
  return static_cast<unsigned char>(text[i]);
}

}  // namespace

Step step(std::string_view text) noexcept {
  const unsigned lead = byteAt(text, 0);
  if (lead < 0x80) return {lead, 1, true};

  // The second byte alone excludes overlong forms, surrogates and values above U+10FFFF.
  std::size_t length;
  unsigned secondLow = 0x80;
  unsigned secondHigh = 0xBF;
  char32_t scalar;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    scalar = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    scalar = lead & 0x0F;
    if (lead == 0xE0) secondLow = 0xA0;
    if (lead == 0xED) secondHigh = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    scalar = lead & 0x07;
    if (lead == 0xF0) secondLow = 0x90;
    if (lead == 0xF4) secondHigh = 0x8F;
  } else {
    return {0, 1, false};
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (i >= text.size()) return {0, i, false};
    const unsigned byte = byteAt(text, i);
    if (byte < secondLow || byte > secondHigh) return {0, i, false};
    secondLow = 0x80;
    secondHigh = 0xBF;
    scalar = scalar << 6 | (byte & 0x3F);
  }
  return {scalar, length, true};
}

void append(std::string& text, char32_t scalar) {
  const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (scalar < 0x80) {
    put(scalar);
  } else if (scalar < 0x800) {
    put(0xC0 | scalar >> 6);
    put(0x80 | (scalar & 0x3F));
  } else if (scalar < 0x10000) {
    put(0xE0 | scalar >> 12);
    put(0x80 | (scalar >> 6 & 0x3F));
    put(0x80 | (scalar & 0x3F));
  } else {
    put(0xF0 | scalar >> 18);
    put(0x80 | (scalar >> 12 & 0x3F));
    put(0x80 | (scalar >> 6 & 0x3F));
    put(0x80 | (scalar & 0x3F));
  }
}

std::size_t wellFormedPrefix(std::string_view text) noexcept {
  std::size_t at = 0;
  while (at < text.size()) {
    const Step next = step(text.substr(at));
    if (!next.isWellFormed) break;
    at += next.length;
  }
  return at;
}

}  // namespace korrin::utf8
