#include "korrin/foundation/text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>
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

// Copies at most 15 bytes. A call of memcpy takes longer.
void copyShort(std::string_view from, unsigned char* to) noexcept {
  const std::size_t size = from.size();
  const auto copyEnds = [&]<std::size_t width>(std::integral_constant<std::size_t, width>) {
    // Both are read before either is written over the other.
    std::array<char, width> first;
    std::array<char, width> last;
    std::memcpy(first.data(), from.data(), width);
    std::memcpy(last.data(), from.data() + size - width, width);
    std::memcpy(to, first.data(), width);
    std::memcpy(to + size - width, last.data(), width);
  };
  if (size >= 8)
    copyEnds(std::integral_constant<std::size_t, 8>());
  else if (size >= 4)
    copyEnds(std::integral_constant<std::size_t, 4>());
  else
    for (std::size_t i = 0; i < size; ++i) to[i] = static_cast<unsigned char>(from[i]);
}

// The Unicode property White_Space.
constexpr bool isWhiteSpace(char32_t scalar) {
  return (scalar >= 0x09 && scalar <= 0x0D) || scalar == 0x20 || scalar == 0x85 || scalar == 0xA0 ||
         scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x2028 ||
         scalar == 0x2029 || scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

}  // namespace

Text::Storage::Storage(std::string_view utf8, std::string_view composed) noexcept
    : size(utf8.size()) {
  char* const first = reinterpret_cast<char*>(this + 1);
  char* const end = first + utf8.copy(first, size);
  if (composed.empty()) return;
  const std::size_t composedSize = composed.size();
  std::memcpy(end, &composedSize, sizeof composedSize);
  composed.copy(end + sizeof composedSize, composedSize);
}

Shared<Text::Storage> Text::Storage::make(std::string_view utf8, std::string_view composed) {
  const std::size_t forComposed = composed.empty() ? 0 : sizeof(std::size_t) + composed.size();
  void* const memory = ::operator new(sizeof(Storage) + utf8.size() + forComposed);
  return Shared<Storage>::adopt(::new (memory) Storage(utf8, composed));
}

void Text::Storage::destroy(Storage* storage) noexcept {
  std::destroy_at(storage);
  ::operator delete(storage);
}

void Text::hold(std::string_view utf8, std::string_view composed) {
  if (utf8.size() <= mostInside && composed.empty()) {
    copyShort(utf8, bytes_.data());
    bytes_.back() = static_cast<unsigned char>(utf8.size());
  } else {
    std::construct_at(place(), Storage::make(utf8, composed));
    bytes_.back() = composed.empty() ? outside : outsideWithComposed;
  }
}

Text::Text(std::string_view utf8) : bytes_{} {
  if (utf8::isASCII(utf8))
    hold(utf8, {});
  else if (utf8::wellFormedPrefix(utf8) == utf8.size())
    holdWithNormalForm(utf8);
  else
    holdWithNormalForm(replaceIllFormed(utf8));
}

Text::Text(WellFormedUTF8 utf8) : bytes_{} {
  if (utf8.isASCII)
    hold(utf8.bytes, {});
  else
    holdWithNormalForm(utf8.bytes);
}

void Text::holdWithNormalForm(std::string_view utf8) {
  if (isStableNFC(utf8)) {
    hold(utf8, {});
    return;
  }
  std::string composed = toNFC(utf8);
  if (composed == utf8) composed.clear();
  hold(utf8, composed);
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
