#include "korrin/coding/unknown_key_walk.h"

#include <algorithm>

#include "korrin/foundation/ascii.h"
#include "korrin/foundation/utf8.h"

namespace korrin::json {
namespace {

// Longer than any name that a person or program gives on purpose.
constexpr std::size_t longestKey = 4096;

bool isControl(char32_t scalar) { return scalar < 0x20 || (scalar >= 0x7F && scalar < 0xA0); }

// Whether the key can't be taken for anything else behind a point.
bool isPlain(std::string_view key) {
  if (key.empty() || key.find_first_of(".[]\"\\") != std::string_view::npos) return false;
  while (!key.empty()) {
    const utf8::Step step = utf8::step(key);
    if (isControl(step.scalar)) return false;
    key.remove_prefix(step.length);
  }
  return true;
}

// The key as a JSON string, with every control character escaped.
std::string quotedKeyText(std::string_view key) {
  std::string text = "\"";
  while (!key.empty()) {
    const utf8::Step step = utf8::step(key);
    if (isControl(step.scalar)) {
      text += "\\u00";
      appendHex(text, static_cast<unsigned char>(step.scalar));
    } else {
      if (key.front() == '"' || key.front() == '\\') text += '\\';
      text += key.substr(0, step.length);
    }
    key.remove_prefix(step.length);
  }
  return text + '"';
}

// The first `longestKey` bytes of what the token stands for, or fewer: only whole characters.
// `isCut` where there are more. No more than these bytes are unescaped.
struct ShownKey {
  std::string name;
  bool isCut;
};
ShownKey shownKey(const StringToken& key) {
  StringToken head = key;
  if (key.hasEscapes && key.raw.size() > 6 * longestKey) {
    // Cut before an escape or a character begins, so that none is torn.
    std::size_t length = 0;
    while (length <= 6 * longestKey) {
      const std::size_t start = length;
      if (key.raw[length] != '\\')
        length += utf8::step(key.raw.substr(length)).length;
      else
        length += key.raw[length + 1] == 'u' ? 6 : 2;
      // The second half of a surrogate pair belongs to the first.
      if (length - start == 6 && (key.raw[start + 2] == 'd' || key.raw[start + 2] == 'D') &&
          key.raw[start + 3] > '7')
        length += 6;
    }
    head.raw = key.raw.substr(0, length);
  } else if (!key.hasEscapes) {
    head.raw = key.raw.substr(0, longestKey + 4);
  }
  std::string name = key.hasEscapes ? unescaped(head) : std::string(head.raw);
  const bool isCut = name.size() > longestKey;
  if (isCut) {
    name.resize(longestKey);
    name.resize(utf8::wellFormedPrefix(name));
  }
  return {std::move(name), isCut};
}

}  // namespace

void UnknownKeyWalk::note(const StringToken& key) {
  const ShownKey shown = shownKey(key);
  std::string text = path_.text();
  if (shown.isCut) {
    text += '[' + quotedKeyText(shown.name) + "...]";
  } else if (!isPlain(shown.name)) {
    text += '[' + quotedKeyText(shown.name) + ']';
  } else {
    if (!text.empty()) text += '.';
    text += shown.name;
  }
  paths_.push_back(std::move(text));
}

}  // namespace korrin::json
