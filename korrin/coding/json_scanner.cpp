#include "korrin/coding/json_scanner.h"

#include <bitset>
#include <cstdint>
#include <optional>

#include "korrin/coding/digits.h"
#include "korrin/coding/text_block.h"
#include "korrin/foundation/utf8.h"

namespace korrin::json {
namespace {

// The value of the four hexadecimal digits from `at` on, nothing where there are fewer.
std::optional<char32_t> fourDigits(const char* at, const char* end) {
  if (end - at < 4) return std::nullopt;
  char32_t value = 0;
  for (int i = 0; i < 4; ++i) {
    const int digit = hexValue(at[i]);
    if (digit < 0) return std::nullopt;
    value = value << 4 | static_cast<char32_t>(digit);
  }
  return value;
}

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

char simpleEscape(char letter) {
  switch (letter) {
    case 'b':
      return '\b';
    case 'f':
      return '\f';
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    default:
      return letter;
  }
}

}  // namespace

std::string unescaped(const StringToken& token) {
  std::string text;
  text.reserve(token.raw.size());
  const char* at = token.raw.data();
  const char* const end = at + token.raw.size();
  while (at != end) {
    if (*at != '\\') {
      text += *at++;
      continue;
    }
    const char letter = at[1];
    at += 2;
    if (letter != 'u') {
      text += simpleEscape(letter);
      continue;
    }
    char32_t scalar = *fourDigits(at, end);
    at += 4;
    if (isHighSurrogate(scalar)) {
      scalar = 0x10000 + ((scalar - 0xD800) << 10) + (*fourDigits(at + 2, end) - 0xDC00);
      at += 6;
    }
    utf8::append(text, scalar);
  }
  return text;
}

void Scanner::skipSpaceRun() {
  while (end_ - at_ >= std::ptrdiff_t{blockSize}) {
    const std::size_t blanks = blanksInBlock(at_);
    at_ += blanks;
    if (blanks < blockSize) return;
  }
  while (at_ != end_ && (*at_ == ' ' || *at_ == '\n' || *at_ == '\r' || *at_ == '\t')) ++at_;
}

void Scanner::throwMissingColon() const { throw Malformed{at_, "\":\" after the key"}; }

void Scanner::throwNestedTooDeeply() const {
  throw Malformed{at_ - 1, "at most 512 levels of nesting"};
}

void Scanner::leave(char close) {
  if (!take(close)) throw Malformed{at_, close == '}' ? "\",\" or \"}\"" : "\",\" or \"]\""};
  --depth_;
}

StringToken Scanner::string() {
  const char* const open = at_++;
  bool hasEscapes = false;
  bool isASCII = true;
  for (;;) {
    while (end_ - at_ >= std::ptrdiff_t{blockSize}) {
      const std::size_t plain = plainInBlock(at_);
      at_ += plain;
      if (plain < blockSize) break;
    }
    if (at_ == end_) throw Malformed{at_, "the string's closing quotation mark"};
    const auto byte = static_cast<unsigned char>(*at_);
    if (byte == '"') {
      const std::string_view raw(open + 1, static_cast<std::size_t>(at_ - open - 1));
      ++at_;
      return {raw, hasEscapes, isASCII};
    }
    if (byte == '\\') {
      takeEscape();
      hasEscapes = true;
    } else if (byte < 0x20) {
      throw Malformed{at_, "no control character inside a string"};
    } else if (byte < 0x80) {
      ++at_;  // plain, among the last bytes of the text
    } else {
      const auto step = utf8::step({at_, static_cast<std::size_t>(end_ - at_)});
      if (!step.isWellFormed) throw Malformed{at_, "well-formed UTF-8"};
      at_ += step.length;
      isASCII = false;
    }
  }
}

void Scanner::takeEscape() {
  const char* const start = at_++;
  if (at_ == end_) throw Malformed{at_, "the rest of an escape"};
  const char letter = *at_++;
  if (letter != 'u') {
    if (std::string_view("\"\\/bfnrt").find(letter) == std::string_view::npos)
      throw Malformed{start, "one of the escapes of JSON"};
    return;
  }
  const auto unit = fourDigits(at_, end_);
  if (!unit) throw Malformed{start, "four hexadecimal digits after \\u"};
  at_ += 4;
  if (isLowSurrogate(*unit)) throw Malformed{start, "no lone surrogate"};
  if (!isHighSurrogate(*unit)) return;
  const auto low = take("\\u") ? fourDigits(at_, end_) : std::nullopt;
  if (!low || !isLowSurrogate(*low)) throw Malformed{start, "no lone surrogate"};
  at_ += 4;
}

void Scanner::takeDigits() {
  const char* const first = at_;
  while (end_ - at_ >= std::ptrdiff_t{blockSize}) {
    const std::size_t count = digitsInBlock(at_);
    at_ += count;
    if (count < blockSize) break;
  }
  while (at_ != end_ && isDigit(*at_)) ++at_;
  if (at_ == first) throw Malformed{at_, "a digit"};
}

std::string_view Scanner::number() {
  const char* const start = at_;
  take('-');
  if (!take('0')) takeDigits();  // no digit follows a leading 0
  if (take('.')) takeDigits();
  if (take('e') || take('E')) {
    if (!take('+')) take('-');
    takeDigits();
  }
  return {start, static_cast<std::size_t>(at_ - start)};
}

void Scanner::skipScalar() {
  const char first = peek();
  if (first == '"')
    string();
  else if (first == '-' || isDigit(first))
    shortNumber() ? void() : void(number());
  else if (!take("true") && !take("false") && !take("null"))
    throw Malformed{at_, "a value"};
}

void Scanner::skipValue() {
  std::bitset<maximumDepth + 1> isObject;  // of the brackets that are open, by depth
  const int outside = depth_;
  const auto close = [&] { return isObject[static_cast<std::size_t>(depth_)] ? '}' : ']'; };
  for (;;) {
    // At a value.
    const char first = peek();
    bool isOpen = first == '{' || first == '[';
    if (isOpen) {
      isOpen = enter(first == '{' ? '}' : ']');
      if (isOpen) isObject[static_cast<std::size_t>(depth_)] = first == '{';
    } else {
      skipScalar();
    }
    // Behind a value, or at the first one of what was opened.
    while (!isOpen) {
      if (depth_ == outside) return;
      isOpen = next(close());
    }
    if (close() == '}') key();
  }
}

}  // namespace korrin::json
