#include "terminal/display_text.h"

#include <array>
#include <charconv>
#include <cstdio>

#include <utf8proc.h>

#include "korrin/foundation/hidden_scalar.h"
#include "korrin/foundation/text.h"

namespace korrin::host {
namespace {

struct Character {
  char32_t scalar;
  std::string_view bytes;
  std::size_t width;
};

/// The first character of well-formed, not empty text.
Character firstCharacter(std::string_view text) {
  utf8proc_int32_t scalar = 0;
  const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                       static_cast<utf8proc_ssize_t>(text.size()), &scalar);
  const std::size_t taken = length > 0 ? static_cast<std::size_t>(length) : 1;
  const int width = utf8proc_charwidth(scalar);
  return {static_cast<char32_t>(scalar), text.substr(0, taken),
          width > 0 ? static_cast<std::size_t>(width) : 0};
}

/// One UTF-16 code unit, or the two of a scalar beyond the basic plane.
std::string escapedInJSON(char32_t scalar) {
  std::array<char, 16> buffer{};
  const auto value = static_cast<unsigned>(scalar);
  if (value < 0x10000)
    std::snprintf(buffer.data(), buffer.size(), "\\u%04X", value);
  else
    std::snprintf(buffer.data(), buffer.size(), "\\u%04X\\u%04X",
                  0xD800 + ((value - 0x10000) >> 10), 0xDC00 + ((value - 0x10000) & 0x3FF));
  return buffer.data();
}

}  // namespace

std::string printable(std::string_view text) {
  const Text wellFormed(text);
  std::string result;
  for (std::string_view rest = wellFormed; !rest.empty();) {
    const Character character = firstCharacter(rest);
    if (isHidden(character.scalar))
      result += escaped(character.scalar);
    else
      result += character.bytes;
    rest.remove_prefix(character.bytes.size());
  }
  return result;
}

std::string printableJSON(std::string_view json) {
  std::string result;
  while (!json.empty()) {
    const Character character = firstCharacter(json);
    if (isHidden(character.scalar))
      result += escapedInJSON(character.scalar);
    else
      result += character.bytes;
    json.remove_prefix(character.bytes.size());
  }
  return result;
}

std::string shortNumber(double value, int digits) {
  std::array<char, 32> text;
  const auto end =
      std::to_chars(text.begin(), text.end(), value, std::chars_format::general, digits);
  return {text.begin(), end.ptr};
}

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    width += character.width;
    text.remove_prefix(character.bytes.size());
  }
  return width;
}

std::string shortened(std::string_view text, std::size_t width) {
  if (width == 0) return std::string(text);
  std::size_t taken = 0;  // columns up to here
  std::size_t cut = 0;    // bytes that leave a column for the ellipsis
  std::string_view rest = text;
  while (!rest.empty()) {
    const Character character = firstCharacter(rest);
    taken += character.width;
    if (taken > width) return std::string(text.substr(0, cut)) + "…";
    rest.remove_prefix(character.bytes.size());
    if (taken < width) cut = text.size() - rest.size();
  }
  return std::string(text);
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  if (width == 0) return {std::string(text)};
  std::vector<std::string> lines;
  std::string line;
  std::size_t lineWidth = 0;
  std::size_t blank = std::string::npos;  // the last place where the line may be broken
  for (std::string_view rest = text; !rest.empty();) {
    const Character character = firstCharacter(rest);
    rest.remove_prefix(character.bytes.size());
    if (lineWidth + character.width > width && !line.empty()) {
      std::string next;
      if (character.scalar != ' ' && blank != std::string::npos) {
        next = line.substr(blank + 1);
        line.resize(blank);
      }
      lines.push_back(std::move(line));
      line = std::move(next);
      lineWidth = displayWidth(line);
      blank = std::string::npos;
      if (character.scalar == ' ') continue;
    }
    if (character.scalar == ' ') blank = line.size();
    line += character.bytes;
    lineWidth += character.width;
  }
  if (!line.empty() || lines.empty()) lines.push_back(std::move(line));
  return lines;
}

}  // namespace korrin::host
