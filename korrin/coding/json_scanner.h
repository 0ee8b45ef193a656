#pragma once

// The bytes of a JSON text, walked once from left to right: white space, strings, numbers, members
// and elements, and whole values that nobody asked for. Everything is strict RFC 8259, ignored
// values included. Nothing here recurses on the input.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "korrin/coding/digits.h"
#include "korrin/coding/text_block.h"
#include "korrin/foundation/ascii.h"

namespace korrin::json {

/// A string as it stands between its quotation marks: well-formed, escapes not yet resolved.
struct StringToken {
  std::string_view raw;
  bool hasEscapes;
};

/// The characters that a string stands for.
std::string unescaped(const StringToken& token);

/// A number as it stands.
struct NumberToken {
  std::string_view text;
  /// Where `isShort`, the number is its sign, these digits, and a point before the last `decimals`
  /// of them: no more digits than 64 bits hold, and no exponent.
  std::uint64_t digits;
  std::int64_t decimals;
  bool isShort;

  static constexpr std::ptrdiff_t maximumDigits = 19;

  bool isNegative() const { return text.front() == '-'; }
};

/// Where the text stops being JSON, and what should have stood there.
struct Malformed {
  const char* at;
  const char* expected;
};

/// Every operation throws `Malformed` where the text is not JSON. The small steps that a document
/// takes tens of times a record are forced inline. Left to themselves, compilers stop inlining them
/// in records with many fields, and the reader loses a third of its speed.
class Scanner {
 public:
  explicit Scanner(std::string_view text)
      : begin_(text.data()),
        at_(text.data()),
        end_(text.data() + text.size()),
        indentation_(indentationOf(text)) {}

  /// Objects and arrays may be nested this deep.
  static constexpr int maximumDepth = 512;

  const char* begin() const { return begin_; }
  const char* end() const { return end_; }
  const char* position() const { return at_; }
  /// Goes back to a value's start, found by an earlier `position` at the same depth.
  void returnTo(const char* position) { at_ = position; }

  [[gnu::always_inline]] void skipSpace() {
    // Nothing, a single blank behind a colon, or a line's end and its indentation.
    if (at_ == end_) return;
    if (static_cast<unsigned char>(*at_) > ' ') return;
    if (*at_ == ' ' && end_ - at_ >= 2 && static_cast<unsigned char>(at_[1]) > ' ')
      ++at_;
    else
      skipSpaceRun();
  }

  /// As `skipSpace`, where the next line of an indented text would be one of `depth` levels.
  [[gnu::always_inline]] void skipToLine(int depth) {
    if (at_ == end_ || static_cast<unsigned char>(*at_) > ' ') return;
    const std::size_t guess = indentation_ * static_cast<std::size_t>(depth) + 1;
    if (guess < blockSize && static_cast<std::size_t>(end_ - at_) >= blockSize &&
        standBlanks(at_, guess))
      at_ += guess;
    else
      skipSpaceRun();
  }

  /// The first character of the next value, or NUL at the end of the text.
  [[gnu::always_inline]] char peek() const { return at_ != end_ ? *at_ : '\0'; }

  /// Takes the next character if it is `wanted`.
  [[gnu::always_inline]] bool take(char wanted) {
    if (at_ == end_ || *at_ != wanted) return false;
    ++at_;
    return true;
  }

  /// Takes `literal` if it stands next.
  template <std::size_t length>
  bool take(const char (&literal)[length]) {
    return takeBytes(literal, length - 1);
  }
  [[gnu::always_inline]] bool takeBytes(const char* bytes, std::size_t length) {
    if (static_cast<std::size_t>(end_ - at_) < length || std::memcmp(at_, bytes, length) != 0)
      return false;
    at_ += length;
    return true;
  }

  /// Enters an object or array whose opening bracket stands next; returns whether it has a member
  /// or element, at which the scanner then stands. `close` is the bracket that ends it.
  bool enter(char close) {
    ++at_;
    if (++depth_ > maximumDepth) throw Malformed{at_ - 1, "at most 512 levels of nesting"};
    skipToLine(depth_);
    if (!take(close)) return true;
    --depth_;
    return false;
  }

  /// After a member or element: whether another one follows, at which the scanner then stands.
  [[gnu::always_inline]] bool next(char close) {
    skipToLine(depth_ - 1);
    if (!take(',')) {
      leave(close);
      return false;
    }
    skipToLine(depth_);
    return true;
  }

  /// After a member: takes comma, key and colon of the next one if they stand here as `start` does,
  /// which is of the form `,"key":`, and the white space behind them; otherwise takes nothing.
  template <std::size_t length>
  [[gnu::always_inline]] bool takeMemberStart(const std::array<char, length>& start) {
    if (!takeBytes(start.data(), length)) return false;
    skipSpace();
    return true;
  }

  /// Takes a member's key, when it is the one spelled `quoted` with its quotation marks, and the
  /// colon after it; otherwise takes nothing.
  template <std::size_t length>
  [[gnu::always_inline]] bool takeKey(const std::array<char, length>& quoted) {
    if (!takeBytes(quoted.data(), length)) return false;
    takeColon();
    return true;
  }

  /// What stands from the scanner's position on, at most `length` bytes.
  std::string_view ahead(std::size_t length) const {
    return {at_, std::min(length, static_cast<std::size_t>(end_ - at_))};
  }
  void advance(std::size_t length) { at_ += length; }

  /// Takes any member's key and the colon after it.
  StringToken key() {
    if (peek() != '"') throw Malformed{at_, "a key in quotation marks"};
    const StringToken token = string();
    takeColon();
    return token;
  }

  /// Takes a string, whose quotation mark stands next.
  StringToken string();

  /// Takes a string, whose quotation mark stands next, if it is of at most `most` plain characters,
  /// fewer than a block, and the end of the text is not near: returns what stands between its
  /// quotation marks, from where a whole block may be read. Otherwise takes nothing and returns a
  /// view of nothing, whose data are null.
  [[gnu::always_inline]] std::string_view shortString(std::size_t most) {
    if (static_cast<std::size_t>(end_ - at_) < blockSize + 1) return {};
    const char* const first = at_ + 1;
    const std::size_t size = plainInBlock(first);
    if (size > most || first[size] != '"') return {};
    at_ = first + size + 1;
    return {first, size};
  }

  /// Takes a number, whose first character, a digit or a minus sign, stands next.
  [[gnu::always_inline]] NumberToken number() {
    const char* const start = at_;
    const char* const first = start + (*start == '-' ? 1 : 0);
    const char* at = first;
    std::uint64_t digits = 0;
    // Nearly always as many as at the last number here, so that a loop takes less time than
    // counting them.
    for (; at != end_; ++at) {
      const auto digit = static_cast<unsigned char>(*at - '0');
      if (digit > 9) break;
      digits = digits * 10 + digit;
    }
    // What would be a number's longest part, and no border of the text near.
    constexpr std::ptrdiff_t room = 24;
    const std::ptrdiff_t count = at - first;
    if (end_ - at < room || count == 0 || (*first == '0' && count != 1))
      return longNumber(first, at, digits);
    const char* const wholeEnd = at;
    const std::uint64_t whole = digits;
    std::ptrdiff_t decimals = 0;
    if (*at == '.') {
      decimals = takeDecimals(at + 1, digits);
      if (decimals == 0) return longNumber(first, wholeEnd, whole);
      at += 1 + decimals;
    }
    if (count + decimals > NumberToken::maximumDigits || *at == 'e' || *at == 'E')
      return longNumber(first, wholeEnd, whole);
    at_ = at;
    return {{start, static_cast<std::size_t>(at - start)}, digits, decimals, true};
  }

  /// Takes any value.
  void skipValue();

  /// Demands that nothing but white space is left.
  void finish() {
    skipSpace();
    if (at_ != end_) throw Malformed{at_, "the end of the document"};
  }

 private:
  [[gnu::always_inline]] void takeColon() {
    skipSpace();
    if (!take(':')) throwMissingColon();
    skipSpace();
  }

  /// The blanks of the second line, where an indented text has its first key; a block's at most.
  static std::size_t indentationOf(std::string_view text) {
    if (text.size() < 2 || text[1] != '\n') return 0;
    const std::string_view line = text.substr(2, blockSize);
    return std::min(line.find_first_not_of(" \t"), line.size());
  }

  [[noreturn]] void throwMissingColon() const;
  void leave(char close);

  /// Appends the digits at `at`, where a block can be read, to a number: returns how many there
  /// are, or 0 where a block does not hold them.
  [[gnu::always_inline]] static std::ptrdiff_t takeDecimals(const char* at, std::uint64_t& value) {
    if (!isDigit(at[1]) && isDigit(at[0])) {  // mostly a half
      value = value * 10 + static_cast<std::uint64_t>(at[0] - '0');
      return 1;
    }
    const std::uint64_t word = words::loadWord(at);
    std::size_t count = leadingDigits(word);
    if (count < 8) {
      if (count == 0) return 0;
      value = value * powersOfTen[count] + eightDigits(word << (64 - 8 * count));
      return static_cast<std::ptrdiff_t>(count);
    }
    value = value * powersOfTen[8] + eightDigits(word);
    const std::uint64_t other = words::loadWord(at + 8);
    count = leadingDigits(other);
    if (count == 8) return 0;
    // Two shifts, as one by all 64 bits would have no effect.
    value = value * powersOfTen[count] + eightDigits(other << 8 << (56 - 8 * count));
    return static_cast<std::ptrdiff_t>(8 + count);
  }

  NumberToken longNumber(const char* first, const char* at, std::uint64_t digits);
  void skipSpaceRun();
  void skipScalar();
  void takeEscape();

  const char* begin_;
  const char* at_;
  const char* end_;
  int depth_ = 0;
  std::size_t indentation_;  // bytes of each level, as far as the first line tells
};

}  // namespace korrin::json
