#include "korrin/foundation/text.h"

#include <utility>

#include "korrin/foundation/normalization.h"
#include "korrin/foundation/utf8.h"

namespace korrin {
namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

std::string replaceIllFormed(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const utf8::Step next = utf8::step(bytes);
    if (next.isWellFormed)
      text.append(bytes.substr(0, next.length));
    else
      utf8::append(text, replacementCharacter);
    bytes.remove_prefix(next.length);
  }
  return text;
}

// The Unicode property White_Space.
constexpr bool isWhiteSpace(char32_t scalar) {
  return (scalar >= 0x09 && scalar <= 0x0D) || scalar == 0x20 || scalar == 0x85 || scalar == 0xA0 ||
         scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x2028 ||
         scalar == 0x2029 || scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

}  // namespace

Text::Text(std::string utf8) {
  if (utf8.empty()) return;
  bool isStable = utf8::isASCII(utf8);
  if (!isStable) {
    if (utf8::wellFormedPrefix(utf8) != utf8.size()) utf8 = replaceIllFormed(utf8);
    isStable = isStableNFC(utf8);
  }
  storage_ = Shared<Storage>::first(new Storage(std::move(utf8), isStable));
}

const std::string& Text::emptyString() noexcept {
  static const std::string empty;
  return empty;
}

bool Text::isBlank() const noexcept {
  std::string_view rest = *this;
  while (!rest.empty()) {
    const utf8::Step next = utf8::step(rest);
    if (!isWhiteSpace(next.scalar)) return false;
    rest.remove_prefix(next.length);
  }
  return true;
}

bool Text::equalNormalized(const Text& a, const Text& b) {
  return std::string_view(a) == std::string_view(b) || compareNormalized(a, b) == 0;
}

std::strong_ordering Text::compareNormalized(const Text& a, const Text& b) {
  // The order of UTF-8 bytes is the order of scalar values.
  const auto normalForm = [](const Text& text) {
    return text.isStable() ? text.str() : toNFC(text);
  };
  return normalForm(a) <=> normalForm(b);
}

std::size_t Text::hash() const {
  const std::hash<std::string_view> hashBytes;
  return isStable() ? hashBytes(*this) : hashBytes(toNFC(*this));
}

}  // namespace korrin
