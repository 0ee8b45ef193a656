#pragma once

// The bytes of a JSON text, walked once from left to right: white space, strings, numbers, members
// and elements, and whole values that nobody asked for. Everything is strict RFC 8259, ignored
// values included. Nothing here recurses on the input.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
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
  bool isASCII;  ///< Of what stands there, whatever the escapes stand for.
};

/// The characters that a string stands for.
std::string unescaped(const StringToken& token);

/// A number of no more digits than 64 bits hold and without an exponent: its digits, with a point
/// before the last `decimals` of them.
struct ShortNumber {
  std::uint64_t digits;
  std::size_t decimals;  ///< Fewer than `maximumDigits`, since a digit stands before the point.
  bool isNegative;

  static constexpr std::size_t maximumDigits = 19;
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
  [[gnu::always_inline]] bool enter(char close) {
    ++at_;
    if (++depth_ > maximumDepth) throwNestedTooDeeply();
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

  /// Takes a number, whose first character, a digit or a minus sign, stands next: returns it as it
  /// stands.
  std::string_view number();

  /// Takes a number that documents commonly hold, away from the borders of the text. Otherwise, and
  /// where no number stands next, takes nothing and returns nothing.
  [[gnu::always_inline]] std::optional<ShortNumber> shortNumber() {
    // What is read: a sign, fewer digits than a word, a point and a block behind it; and the block
    // before the number's end.
    constexpr std::ptrdiff_t room = 1 + 7 + 1 + blockSize;
    if (at_ - begin_ < std::ptrdiff_t{blockSize} || end_ - at_ < room) return std::nullopt;
    const bool isNegative = *at_ == '-';
    const char* const first = at_ + (isNegative ? 1 : 0);
    const char* at = first;
    std::uint64_t digits = 0;
    // Nearly always as many as at the last number here, so that the processor goes on behind them
    // before it knows, which it cannot where it must count them.
    for (; at != first + 8; ++at) {
      const auto digit = static_cast<unsigned char>(*at - '0');
      if (digit > 9) break;
      digits = digits * 10 + digit;
    }
    const auto count = static_cast<std::size_t>(at - first);
    if (count == 0 || count == 8 || (*first == '0' && count != 1)) return std::nullopt;
    std::size_t decimals = 0;
    if (*at == '.') {
      ++at;
      if (isDigit(at[0]) && !isDigit(at[1])) {  // mostly a half
        decimals = 1;
        digits = digits * 10 + static_cast<std::uint64_t>(at[0] - '0');
      } else {
        decimals = digitsInBlock(at);
        if (decimals == 0 || count + decimals > ShortNumber::maximumDigits || decimals == blockSize)
          return std::nullopt;
        digits = digits * powersOfTen[decimals] + lastDigits(at + decimals, decimals);
      }
      at += decimals;
    }
    if (*at == 'e' || *at == 'E') return std::nullopt;
    at_ = at;
    return ShortNumber{digits, decimals, isNegative};
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
  [[noreturn]] void throwNestedTooDeeply() const;
  void leave(char close);

  void takeDigits();
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
