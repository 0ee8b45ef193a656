#include "korrin/foundation/utf8.h"

namespace korrin::utf8 {
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
