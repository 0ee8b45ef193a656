#include "text_fit.h"

#include <algorithm>

#include <utf8proc.h>

#include "korrin/foundation/text.h"

namespace korrin::host {
namespace {

constexpr std::string_view ellipsis = "…";

struct Character {
  utf8proc_int32_t scalar;
  std::size_t length;
};

/// The first character of well-formed, not empty text.
Character firstCharacter(std::string_view text) {
  utf8proc_int32_t scalar = 0;
  const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                       static_cast<utf8proc_ssize_t>(text.size()), &scalar);
  return {scalar, length > 0 ? static_cast<std::size_t>(length) : 1};
}

bool isBreak(utf8proc_int32_t scalar) {
  return scalar == '\n' || scalar == '\r' || scalar == 0x85 || scalar == 0x2028 || scalar == 0x2029;
}

bool becomesBlank(utf8proc_int32_t scalar) {
  const auto category = utf8proc_category(scalar);
  return category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_ZL ||
         category == UTF8PROC_CATEGORY_ZP || scalar == ' ';
}

bool isDropped(utf8proc_int32_t scalar) {
  const bool isJoiner = scalar == 0x200C || scalar == 0x200D;
  // Some signs of the format category are written, such as the Arabic end of a verse.
  return utf8proc_category(scalar) == UTF8PROC_CATEGORY_CF && !isJoiner &&
         utf8proc_get_property(scalar)->ignorable;
}

/// The width of a character in a font of size 1.
double emWidth(utf8proc_int32_t scalar) {
  constexpr std::string_view narrow = " !'(),-./:;I[\\]fijlrt|";
  constexpr std::string_view wide = "%@MWmw";
  if (scalar < 0x80) {
    const char character = static_cast<char>(scalar);
    if (wide.find(character) != std::string_view::npos) return 1.0;
    if (narrow.find(character) != std::string_view::npos) return 0.42;
    return character >= 'A' && character <= 'Z' ? 0.76 : 0.64;
  }
  switch (utf8proc_charwidth(scalar)) {
    case 0:
      return 0;
    case 1:
      // Ligatures that write a whole phrase are the widest characters there are.
      if (scalar >= 0xFDF0 && scalar <= 0xFDFF) return 4;
      return scalar < 0x250 ? 0.8 : 1.0;
    default:
      return 1.1;
  }
}

/// What a reader sees as one character: how many bytes it has and how wide it is.
struct Cluster {
  std::size_t length;
  double width;
  bool isBlank;
};

std::vector<Cluster> clustersOf(std::string_view line, double em) {
  std::vector<Cluster> clusters;
  utf8proc_int32_t state = 0;
  utf8proc_int32_t previous = 0;
  for (std::size_t at = 0; at < line.size();) {
    const Character character = firstCharacter(line.substr(at));
    const double width = emWidth(character.scalar) * em;
    if (at == 0 || utf8proc_grapheme_break_stateful(previous, character.scalar, &state)) {
      clusters.push_back({character.length, width, character.scalar == ' '});
    } else {
      clusters.back().length += character.length;
      clusters.back().width += width;
    }
    previous = character.scalar;
    at += character.length;
  }
  return clusters;
}

double emOf(double size, bool isBold) { return isBold ? size * 1.12 : size; }

/// As much of the line as the width takes, and an ellipsis.
std::string shortened(std::string_view line, double em, double width) {
  const double room = width - emWidth(0x2026) * em;
  std::size_t length = 0;
  double used = 0;
  for (const Cluster& cluster : clustersOf(line, em)) {
    if (used + cluster.width > room) break;
    used += cluster.width;
    length += cluster.length;
  }
  std::string result(line.substr(0, length));
  while (result.ends_with(' ')) result.pop_back();
  return result.append(ellipsis);
}

/// Where the first line of a text that is wider than `width` ends and where the next one begins.
struct LineBreak {
  std::size_t end;
  std::size_t next;
};

LineBreak firstBreak(std::string_view line, double em, double width) {
  std::size_t at = 0;
  double used = 0;
  LineBreak atBlank{0, 0};
  for (const Cluster& cluster : clustersOf(line, em)) {
    if (cluster.isBlank && at > 0) atBlank = {at, at + cluster.length};
    if (used + cluster.width > width && at > 0)
      return atBlank.end > 0 ? atBlank : LineBreak{at, at};
    used += cluster.width;
    at += cluster.length;
  }
  return {line.size(), line.size()};
}

/// Cuts a text at its own line breaks and makes each piece a line of paper; blank ones are left
/// out.
std::vector<std::string> paragraphs(std::string_view text) {
  const Text wellFormed(text);
  std::vector<std::string> pieces;
  std::string_view rest = wellFormed;
  std::size_t length = 0;
  while (length < rest.size()) {
    const Character character = firstCharacter(rest.substr(length));
    if (!isBreak(character.scalar)) {
      length += character.length;
      continue;
    }
    pieces.push_back(paperLine(rest.substr(0, length)));
    rest.remove_prefix(length + character.length);
    length = 0;
  }
  pieces.push_back(paperLine(rest));
  std::erase(pieces, "");
  return pieces;
}

// No line of paper holds more; what lies beyond is not measured.
constexpr std::size_t longestLine = 4096;

std::string_view beginning(std::string_view line) {
  if (line.size() <= longestLine) return line;
  std::size_t length = longestLine;
  while (length > 0 && (static_cast<unsigned char>(line[length]) & 0xC0) == 0x80) --length;
  return line.substr(0, length);
}

}  // namespace

std::string paperLine(std::string_view text) {
  const Text wellFormed(text);
  std::string line;
  for (std::string_view rest = wellFormed; !rest.empty();) {
    const Character character = firstCharacter(rest);
    if (becomesBlank(character.scalar)) {
      if (!line.empty() && line.back() != ' ') line += ' ';
    } else if (!isDropped(character.scalar)) {
      line += rest.substr(0, character.length);
    }
    rest.remove_prefix(character.length);
  }
  while (line.ends_with(' ')) line.pop_back();
  return line;
}

double textWidth(std::string_view line, double size, bool isBold) {
  double width = 0;
  for (const Cluster& cluster : clustersOf(line, emOf(size, isBold))) width += cluster.width;
  return width;
}

std::vector<std::string> fitted(std::string_view text, double size, double width,
                                std::size_t mostLines, bool isBold) {
  const double em = emOf(size, isBold);
  std::vector<std::string> lines;
  const std::vector<std::string> pieces =
      mostLines > 1 ? paragraphs(text) : std::vector<std::string>{paperLine(text)};
  for (const std::string& piece : pieces) {
    for (std::string_view rest = piece; !rest.empty();) {
      if (lines.size() == mostLines) {
        // Something is left: the last line says so.
        lines.back() = shortened(lines.back(), em, width);
        return lines;
      }
      const LineBreak cut = firstBreak(beginning(rest), em, width);
      lines.emplace_back(rest.substr(0, cut.end));
      rest.remove_prefix(cut.next);
      while (rest.starts_with(' ')) rest.remove_prefix(1);
    }
  }
  return lines;
}

std::string fittedLine(std::string_view text, double size, double width, bool isBold) {
  const std::string line = paperLine(text);
  const double em = emOf(size, isBold);
  if (line.size() < longestLine && textWidth(line, size, isBold) <= width) return line;
  return shortened(beginning(line), em, width);
}

}  // namespace korrin::host
