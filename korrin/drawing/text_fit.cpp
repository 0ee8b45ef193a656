#include "korrin/drawing/text_fit.h"

#include <array>
#include <utility>

#include <utf8proc.h>

namespace korrin::drawing {
namespace {

constexpr std::string_view ellipsis = "…";

// No line of paper holds more bytes; what lies beyond is not measured.
constexpr std::size_t longestLine = 4096;

struct Character {
  utf8proc_int32_t scalar;
  std::size_t length;
};

/// The first character of a text that is not empty.
Character firstCharacter(std::string_view text) {
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte < 0x80) return {byte, 1};
  utf8proc_int32_t scalar = 0;
  const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                       static_cast<utf8proc_ssize_t>(text.size()), &scalar);
  return length > 0 ? Character{scalar, static_cast<std::size_t>(length)} : Character{0xFFFD, 1};
}

bool isBreak(utf8proc_int32_t scalar) {
  return scalar == '\n' || scalar == '\r' || scalar == 0x85 || scalar == 0x2028 || scalar == 0x2029;
}

bool becomesBlank(utf8proc_int32_t scalar) {
  if (scalar < 0x80) return scalar <= 0x20 || scalar == 0x7F;
  const auto category = utf8proc_category(scalar);
  return category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_ZL ||
         category == UTF8PROC_CATEGORY_ZP;
}

bool isDropped(utf8proc_int32_t scalar) {
  if (scalar < 0x80) return false;
  const bool isJoiner = scalar == 0x200C || scalar == 0x200D;
  // Some signs of the format category are written, such as the Arabic end of a verse.
  return utf8proc_category(scalar) == UTF8PROC_CATEGORY_CF && !isJoiner &&
         utf8proc_get_property(scalar)->ignorable;
}

/// Adds a character to a line of paper.
void addToLine(std::string& line, std::string_view bytes, utf8proc_int32_t scalar) {
  if (becomesBlank(scalar)) {
    if (!line.empty() && line.back() != ' ') line += ' ';
  } else if (!isDropped(scalar)) {
    line += bytes;
  }
}

constexpr auto asciiWidths = [] {
  std::array<double, 0x80> widths{};
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const char character = static_cast<char>(i);
    widths[i] = character >= 'A' && character <= 'Z' ? 0.76 : 0.64;
  }
  for (const char narrow : std::string_view(" !'(),-./:;I[\\]fijlrt|"))
    widths[static_cast<std::size_t>(narrow)] = 0.42;
  for (const char wide : std::string_view("%@MWmw")) widths[static_cast<std::size_t>(wide)] = 1.0;
  return widths;
}();

/// The width of a character in a font of size 1.
double emWidth(utf8proc_int32_t scalar) {
  if (scalar < 0x80) return asciiWidths[static_cast<std::size_t>(scalar)];
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

/// What a reader sees as one character.
struct Cluster {
  std::size_t begin;
  std::size_t end;
  double width;
};

/// The cluster that begins at `begin`, before the end of the line.
Cluster clusterAt(std::string_view line, std::size_t begin, double em) {
  const auto isAscii = [line](std::size_t at) {
    return static_cast<unsigned char>(line[at]) < 0x80;
  };
  Character character = firstCharacter(line.substr(begin));
  Cluster cluster{begin, begin + character.length, emWidth(character.scalar) * em};
  // In a line of paper one ASCII character never joins the next.
  if (isAscii(begin) && (cluster.end == line.size() || isAscii(cluster.end))) return cluster;
  utf8proc_int32_t state = 0;
  while (cluster.end < line.size()) {
    const Character next = firstCharacter(line.substr(cluster.end));
    if (utf8proc_grapheme_break_stateful(character.scalar, next.scalar, &state)) break;
    cluster.end += next.length;
    cluster.width += emWidth(next.scalar) * em;
    character = next;
  }
  return cluster;
}

double emOf(double size, bool isBold) { return isBold ? size * 1.12 : size; }

/// As much of the line as the width takes, and an ellipsis.
std::string shortened(std::string_view line, double em, double width) {
  const double room = width - emWidth(0x2026) * em;
  double used = 0;
  std::size_t end = 0;
  while (end < line.size()) {
    const Cluster cluster = clusterAt(line, end, em);
    if (used + cluster.width > room) break;
    used += cluster.width;
    end = cluster.end;
  }
  std::string result(line.substr(0, end));
  while (result.ends_with(' ')) result.pop_back();
  return result.append(ellipsis);
}

/// Where the first line of a text ends and where the next one begins.
struct LineBreak {
  std::size_t end;
  std::size_t next;
};

LineBreak firstBreak(std::string_view line, double em, double width) {
  double used = 0;
  LineBreak atBlank{0, 0};
  for (std::size_t at = 0; at < line.size();) {
    const Cluster cluster = clusterAt(line, at, em);
    const bool isBlank = line[at] == ' ' && cluster.end == at + 1;
    if (isBlank && at > 0) atBlank = {at, cluster.end};
    if (used + cluster.width > width && at > 0)
      return atBlank.end > 0 ? atBlank : LineBreak{at, at};
    used += cluster.width;
    at = cluster.end;
  }
  return {line.size(), line.size()};
}

/// At most `longestLine` bytes, cut before a character.
std::string_view beginning(std::string_view line) {
  if (line.size() <= longestLine) return line;
  std::size_t length = longestLine;
  while (length > 0 && (static_cast<unsigned char>(line[length]) & 0xC0) == 0x80) --length;
  return line.substr(0, length);
}

}  // namespace

std::string paperLine(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    addToLine(line, text.substr(0, character.length), character.scalar);
    text.remove_prefix(character.length);
  }
  while (line.ends_with(' ')) line.pop_back();
  return line;
}

double textWidth(std::string_view line, double size, bool isBold) {
  const double em = emOf(size, isBold);
  double width = 0;
  while (!line.empty()) {
    const Character character = firstCharacter(line);
    width += emWidth(character.scalar) * em;
    line.remove_prefix(character.length);
  }
  return width;
}

LineCutter::LineCutter(std::string_view text, double size, double width, bool keepsBreaks,
                       bool isBold)
    : rest_(text), em_(emOf(size, isBold)), width_(width), keepsBreaks_(keepsBreaks) {}

/// Looks as far ahead as a line may be long.
void LineCutter::fill() {
  if (isEnded_ || paragraph_.size() - at_ > longestLine) return;
  paragraph_.erase(0, at_);
  at_ = 0;
  while (paragraph_.size() <= 2 * longestLine) {
    if (rest_.empty()) {
      isEnded_ = true;
      break;
    }
    const Character character = firstCharacter(rest_);
    const std::string_view bytes = rest_.substr(0, character.length);
    rest_.remove_prefix(character.length);
    if (keepsBreaks_ && isBreak(character.scalar)) {
      isEnded_ = true;
      break;
    }
    addToLine(paragraph_, bytes, character.scalar);
  }
  if (!isEnded_) return;
  while (paragraph_.ends_with(' ')) paragraph_.pop_back();
}

std::string_view LineCutter::ahead() const { return std::string_view(paragraph_).substr(at_); }

bool LineCutter::isAtEnd() {
  fill();
  while (ahead().starts_with(' ')) ++at_;
  while (ahead().empty()) {
    if (isEnded_ && rest_.empty()) return true;
    paragraph_.clear();
    at_ = 0;
    isEnded_ = false;
    fill();
    while (ahead().starts_with(' ')) ++at_;
  }
  return false;
}

std::string LineCutter::next() {
  isAtEnd();
  const std::string_view line = beginning(ahead());
  const LineBreak cut = firstBreak(line, em_, width_);
  std::string result(line.substr(0, cut.end));
  while (result.ends_with(' ')) result.pop_back();
  at_ += cut.next;
  return result;
}

bool LineCutter::addLast(std::vector<std::string>& lines) {
  isAtEnd();
  std::string line(beginning(ahead()));
  const bool isWhole = line.size() == ahead().size() && textWidth(line, em_) <= width_;
  at_ = paragraph_.size();
  if (isWhole && isAtEnd()) {
    lines.push_back(std::move(line));
    return false;
  }
  lines.push_back(shortened(line, em_, width_));
  return true;
}

Fitted fitted(std::string_view text, double size, double width, std::size_t mostLines,
              bool isBold) {
  LineCutter cutter(text, size, width, mostLines > 1, isBold);
  Fitted result;
  while (!cutter.isAtEnd()) {
    if (result.lines.size() + 1 < mostLines) {
      result.lines.push_back(cutter.next());
      continue;
    }
    result.isShortened = cutter.addLast(result.lines);
    break;
  }
  return result;
}

std::string fittedLine(std::string_view text, double size, double width, bool isBold) {
  Fitted line = fitted(text, size, width, 1, isBold);
  return line.lines.empty() ? std::string() : std::move(line.lines.front());
}

std::string repeatedLine(std::string_view text) { return fittedLine(text, 1, longestRepeated); }

}  // namespace korrin::drawing
