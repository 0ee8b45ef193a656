#include "korrin/foundation/text.h"

#include <algorithm>
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
  std::unique_ptr<const std::string> composed;
  if (!utf8::isASCII(utf8)) {
    if (utf8::wellFormedPrefix(utf8) != utf8.size()) utf8 = replaceIllFormed(utf8);
    if (!isStableNFC(utf8)) {
      std::string normal = toNFC(utf8);
      if (normal != utf8) composed = std::make_unique<const std::string>(std::move(normal));
    }
  }
  storage_ = Shared<Storage>::adopt(new Storage(std::move(utf8), std::move(composed)));
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

Text Text::trimmed() const {
  const std::string_view whole = *this;
  std::size_t first = whole.size();
  std::size_t last = 0;
  for (std::size_t at = 0; at < whole.size();) {
    const utf8::Step next = utf8::step(whole.substr(at));
    if (!isWhiteSpace(next.scalar)) {
      first = std::min(first, at);
      last = at + next.length;
    }
    at += next.length;
  }
  if (last == 0) return {};
  return last - first == whole.size() ? *this : Text(whole.substr(first, last - first));
}

}  // namespace korrin
