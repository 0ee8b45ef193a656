#pragma once

// The bytes of a JSON text, walked once from left to right: white space, strings, numbers, members
// and elements, and whole values that nobody asked for. Everything is strict RFC 8259, ignored
// values included. Nothing here recurses on the input.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

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
  /// The magnitude, where `isShortInteger`: digits alone, few enough to be exact as a double.
  std::uint64_t magnitude;
  bool isShortInteger;
  bool isNegative() const { return text.front() == '-'; }
};

/// Where the text stops being JSON, and what should have stood there.
struct Malformed {
  const char* at;
  const char* expected;
};

/// Every operation throws `Malformed` where the text is not JSON.
class Scanner {
 public:
  explicit Scanner(std::string_view text)
      : begin_(text.data()), at_(text.data()), end_(text.data() + text.size()) {}

  /// Objects and arrays may be nested this deep.
  static constexpr int maximumDepth = 512;

  const char* begin() const { return begin_; }
  const char* end() const { return end_; }
  const char* position() const { return at_; }
  /// Goes back to a value's start, found by an earlier `position` at the same depth.
  void returnTo(const char* position) { at_ = position; }

  void skipSpace() {
    if (at_ != end_ && static_cast<unsigned char>(*at_) > ' ') return;
    skipSpaceRun();
  }

  /// The first character of the next value, or NUL at the end of the text.
  char peek() const { return at_ != end_ ? *at_ : '\0'; }

  /// Takes the next character if it is `wanted`.
  bool take(char wanted) {
    if (at_ == end_ || *at_ != wanted) return false;
    ++at_;
    return true;
  }

  /// Takes `literal` if it stands next.
  template <std::size_t length>
  bool take(const char (&literal)[length]) {
    return takeBytes(literal, length - 1);
  }
  bool takeBytes(const char* bytes, std::size_t length) {
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
    skipSpace();
    if (!take(close)) return true;
    --depth_;
    return false;
  }

  /// After a member or element: whether another one follows, at which the scanner then stands.
  bool next(char close) {
    skipSpace();
    if (take(',')) {
      skipSpace();
      return true;
    }
    if (!take(close)) throw Malformed{at_, close == '}' ? "\",\" or \"}\"" : "\",\" or \"]\""};
    --depth_;
    return false;
  }

  /// Takes a member's key, when it is the one spelled `quoted` with its quotation marks, and the
  /// colon after it; otherwise takes nothing.
  bool takeKey(std::string_view quoted) {
    if (!takeBytes(quoted.data(), quoted.size())) return false;
    takeColon();
    return true;
  }

  /// Takes any member's key and the colon after it.
  StringToken key() {
    if (peek() != '"') throw Malformed{at_, "a key in quotation marks"};
    const StringToken token = string();
    takeColon();
    return token;
  }

  /// Takes a string, whose quotation mark stands next.
  StringToken string();

  /// Takes a number, whose first character, a digit or a minus sign, stands next.
  NumberToken number();

  /// Takes any value.
  void skipValue();

  /// Demands that nothing but white space is left.
  void finish() {
    skipSpace();
    if (at_ != end_) throw Malformed{at_, "the end of the document"};
  }

 private:
  void takeColon() {
    if (at_ != end_ && *at_ == ':') [[likely]] {
      ++at_;
    } else {
      skipSpace();
      if (!take(':')) throw Malformed{at_, "\":\" after the key"};
    }
    skipSpace();
  }

  void skipSpaceRun();
  void skipScalar();
  void takeEscape();
  void takeDigits();

  const char* begin_;
  const char* at_;
  const char* end_;
  int depth_ = 0;
};

}  // namespace korrin::json
