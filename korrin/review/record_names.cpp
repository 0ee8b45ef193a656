#include "korrin/review/record_names.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

namespace korrin::names {
namespace {

constexpr std::size_t longestName = 60;

// A character of well-formed UTF-8.
struct Character {
  char32_t scalar;
  std::size_t length;
};

Character firstCharacter(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const auto tail = [&](std::size_t i) { return static_cast<char32_t>(byte(i) & 0x3F); };
  const char32_t lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  if (lead < 0xE0) return {(lead & 0x1F) << 6 | tail(1), 2};
  if (lead < 0xF0) return {(lead & 0x0F) << 12 | tail(1) << 6 | tail(2), 3};
  return {(lead & 0x07) << 18 | tail(1) << 12 | tail(2) << 6 | tail(3), 4};
}

// What a terminal obeys, what ends a line, and what reorders or hides the text around it. The
// joiners U+200C and U+200D, which scripts and emoji need, are not among them.
constexpr bool isObeyedOrInvisible(char32_t scalar) {
  return scalar < 0x20 || (scalar >= 0x7F && scalar < 0xA0) || scalar == 0xAD || scalar == 0x61C ||
         scalar == 0x180E || scalar == 0x200B || scalar == 0x200E || scalar == 0x200F ||
         (scalar >= 0x2028 && scalar <= 0x202E) || (scalar >= 0x2060 && scalar <= 0x206F) ||
         scalar == 0xFEFF || (scalar >= 0xFFF9 && scalar <= 0xFFFB) ||
         (scalar >= 0xE0000 && scalar <= 0xE007F);
}

std::string escaped(char32_t scalar) {
  if (scalar == '\n') return "\\n";
  if (scalar == '\r') return "\\r";
  if (scalar == '\t') return "\\t";
  std::array<char, 8> digits{};
  const auto end =
      std::to_chars(digits.begin(), digits.end(), static_cast<std::uint32_t>(scalar), 16);
  std::string text = "\\u{";
  for (const char* digit = digits.begin(); digit != end.ptr; ++digit)
    text += *digit >= 'a' ? static_cast<char>(*digit - 'a' + 'A') : *digit;
  return text + "}";
}

std::string numberedName(const char* kind, const std::optional<std::int64_t>& number,
                         const Text& name, std::size_t index) {
  std::string text = kind;
  if (number) text += " " + std::to_string(*number);
  if (!name.isBlank()) text += " " + quoted(name);
  if (!number && name.isBlank()) text += " in row " + std::to_string(index + 1);
  return text;
}

}  // namespace

std::string quoted(std::string_view text) {
  const Text wellFormed(text);
  std::string result = "\"";
  std::size_t count = 0;
  for (std::string_view rest = wellFormed; !rest.empty(); ++count) {
    if (count == longestName) {
      result += "…";
      break;
    }
    const Character character = firstCharacter(rest);
    if (isObeyedOrInvisible(character.scalar))
      result += escaped(character.scalar);
    else
      result += rest.substr(0, character.length);
    rest.remove_prefix(character.length);
  }
  return result + "\"";
}

std::string number(double value) {
  std::array<char, 32> text;
  const auto end = std::to_chars(text.begin(), text.end(), value);
  return {text.begin(), end.ptr};
}

std::string nameOf(const InputChannel& input, std::size_t index) {
  return numberedName("input", input.channel, input.source, index);
}

std::string nameOf(const MonitorMix& mix, std::size_t index) {
  return numberedName("mix", mix.number, mix.name, index);
}

std::string nameOf(const EquipmentRequirement& line, std::size_t index) {
  const Text& name = line.item.isBlank() ? line.category : line.item;
  return numberedName("equipment", std::nullopt, name, index);
}

std::string nameOf(const PlotItem& item) {
  std::string text(rawValue(item.kind));
  if (!item.label.isBlank()) return text + " " + quoted(item.label);
  return text + " at x " + number(item.position.x) + " mm, y " + number(item.position.y) + " mm";
}

std::string nameOf(const PlotLayer& layer) { return "layer " + quoted(layer.name); }

std::string nameOf(const PlotGroup& group) { return "group " + quoted(group.name); }

std::string nameOf(const AssetManifestEntry& entry) {
  return "asset " + quoted(entry.filename.isBlank() ? entry.sha256 : entry.filename);
}

}  // namespace korrin::names
