#include "korrin/validation/pdf/value.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <fast_float/fast_float.h>

namespace korrin::pdf {
namespace {

// A sign, digits, and at most one point among them.
bool isNumber(std::string_view text) {
  std::size_t i = text.front() == '+' || text.front() == '-' ? 1 : 0;
  bool point = false;
  bool digit = false;
  for (; i < text.size(); ++i) {
    if (isDigit(text[i]))
      digit = true;
    else if (text[i] == '.' && !point)
      point = true;
    else
      return false;
  }
  return digit;
}

double numberOf(std::string_view text) {
  const bool negative = text.front() == '-';
  if (negative || text.front() == '+') text.remove_prefix(1);
  text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
  // Beyond so many digits nothing changes: before the point the number is infinite, behind it they
  // are too small to count.
  constexpr std::size_t mostDigits = 1100;
  text = text.substr(0, mostDigits);
  if (text.empty() || text == ".") return negative ? -0.0 : 0.0;
  // What is out of range becomes infinite or zero, whatever is reported of it.
  double value = 0;
  fast_float::from_chars(text.data(), text.data() + text.size(), value,
                         fast_float::chars_format::fixed);
  return negative ? -value : value;
}

std::optional<std::uint32_t> objectNumberOf(double number) {
  if (number >= 0 && number <= std::numeric_limits<std::uint32_t>::max() &&
      std::trunc(number) == number)
    return static_cast<std::uint32_t>(number);
  return std::nullopt;
}

// "12 0 R" begins as a number does; what follows decides.
void readReference(Scanner& scanner, Value& value) {
  const auto object = objectNumberOf(value.number);
  if (!object) return;
  const std::size_t start = scanner.position();
  if (scanner.takeCount() && scanner.takeKeyword("R")) {
    value.kind = Value::Kind::reference;
    value.reference = *object;
  } else {
    scanner.moveTo(start);
  }
}

void readWord(Scanner& scanner, const Token& token, Value& value) {
  const std::string_view text = scanner.text(token);
  if (isNumber(text)) {
    value.kind = Value::Kind::number;
    value.number = numberOf(text);
    readReference(scanner, value);
  } else {
    value.isTrue = text == "true";
    value.kind = text == "null" ? Value::Kind::null : Value::Kind::other;
  }
}

void append(ShortString& string, int byte) {
  if (string.size < ShortString::capacity)
    string.bytes[string.size++] = static_cast<std::byte>(byte);
}

ShortString unescaped(std::string_view text) {
  constexpr std::string_view letters = "nrtbf";
  constexpr std::string_view meanings = "\n\r\t\b\f";
  ShortString string;
  for (std::size_t i = 0; i < text.size() && string.size < ShortString::capacity; ++i) {
    if (text[i] != '\\') {
      append(string, text[i]);
      continue;
    }
    if (++i == text.size()) break;
    const std::size_t letter = letters.find(text[i]);
    if (letter != letters.npos) {
      append(string, meanings[letter]);
    } else if (text[i] >= '0' && text[i] <= '7') {
      int code = 0;
      std::size_t digits = 0;
      for (; digits < 3 && i + digits < text.size(); ++digits) {
        const char digit = text[i + digits];
        if (digit < '0' || digit > '7') break;
        code = code * 8 + (digit - '0');
      }
      i += digits - 1;
      append(string, code & 0xFF);
    } else if (text[i] == '\r') {
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else if (text[i] != '\n') {
      append(string, text[i]);
    }
  }
  return string;
}

ShortString fromHex(std::string_view text) {
  ShortString string;
  int high = -1;
  for (const char c : text) {
    const int digit = hexValue(c);
    if (digit < 0) continue;
    if (high < 0) {
      high = digit;
    } else {
      append(string, high * 16 + digit);
      high = -1;
    }
  }
  if (high >= 0) append(string, high * 16);
  return string;
}

// The text of a string token without its brackets; the closing one may be missing.
std::string_view inside(std::string_view text, char close) {
  text.remove_prefix(1);
  if (!text.empty() && text.back() == close) text.remove_suffix(1);
  return text;
}

}  // namespace

Name::Name(std::string_view token) {
  for (std::size_t i = 1; i < token.size(); ++i) {
    char c = token[i];
    if (c == '#' && i + 2 < token.size()) {
      const int high = hexValue(token[i + 1]);
      const int low = hexValue(token[i + 2]);
      if (high >= 0 && low >= 0) {
        c = static_cast<char>(high * 16 + low);
        i += 2;
      }
    }
    if (size_ == characters_.size()) {
      size_ = 0;
      return;
    }
    characters_[size_++] = c;
  }
}

std::optional<std::size_t> Value::asSize() const {
  constexpr double largest = 9007199254740992.0;
  if (kind == Kind::number && number >= 0 && number <= largest && std::trunc(number) == number)
    return asOffset(static_cast<std::uint64_t>(number));
  return std::nullopt;
}

std::optional<Value> readValueHead(Scanner& scanner) {
  const Token token = scanner.next();
  if (!scanner.budget().payFor(1, price::value)) return std::nullopt;
  Value value;
  value.place = scanner.place(token.begin);
  switch (token.kind) {
    case Token::Kind::word:
      readWord(scanner, token, value);
      return value;
    case Token::Kind::name:
      value.kind = Value::Kind::name;
      value.name = Name(scanner.text(token));
      return value;
    case Token::Kind::literalString:
    case Token::Kind::hexString:
      value.kind = Value::Kind::string;
      return value;
    case Token::Kind::arrayOpen:
      value.kind = Value::Kind::array;
      return value;
    case Token::Kind::dictionaryOpen:
      value.kind = Value::Kind::dictionary;
      return value;
    default:
      return std::nullopt;
  }
}

std::optional<Value> readValue(Scanner& scanner) {
  auto value = readValueHead(scanner);
  if (value && (value->kind == Value::Kind::array || value->kind == Value::Kind::dictionary))
    scanner.skipToClosing();
  return value;
}

std::optional<std::string_view> readKey(Scanner& scanner) {
  while (true) {
    const std::size_t start = scanner.position();
    const Token token = scanner.next();
    switch (token.kind) {
      case Token::Kind::name:
        return scanner.text(token);
      case Token::Kind::end:
      case Token::Kind::dictionaryClose:
        return std::nullopt;
      case Token::Kind::arrayOpen:
      case Token::Kind::dictionaryOpen:
        scanner.skipToClosing();
        break;
      case Token::Kind::word:
        if (const auto word = scanner.text(token); word == "endobj" || word == "stream") {
          scanner.moveTo(start);
          return std::nullopt;
        }
        break;
      default:
        break;
    }
  }
}

void skipValue(Scanner& scanner) {
  const std::size_t start = scanner.position();
  switch (scanner.next().kind) {
    case Token::Kind::arrayOpen:
    case Token::Kind::dictionaryOpen:
      return scanner.skipToClosing();
    case Token::Kind::arrayClose:
    case Token::Kind::dictionaryClose:
      return scanner.moveTo(start);
    default:
      return;
  }
}

ShortString readString(Scanner& scanner) {
  const Token token = scanner.next();
  if (token.kind == Token::Kind::literalString) return unescaped(inside(scanner.text(token), ')'));
  if (token.kind == Token::Kind::hexString) return fromHex(inside(scanner.text(token), '>'));
  return {};
}

}  // namespace korrin::pdf
