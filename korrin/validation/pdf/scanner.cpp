#include "korrin/validation/pdf/scanner.h"

#include <array>

namespace korrin::pdf {
namespace {

enum class Class : std::uint8_t { regular, whiteSpace, delimiter };

constexpr std::array<Class, 256> classes = [] {
  std::array<Class, 256> table{};
  for (const char c : {'\0', '\t', '\n', '\f', '\r', ' '})
    table[static_cast<unsigned char>(c)] = Class::whiteSpace;
  for (const char c : {'(', ')', '<', '>', '[', ']', '{', '}', '/', '%'})
    table[static_cast<unsigned char>(c)] = Class::delimiter;
  return table;
}();

Class classOf(char c) { return classes[static_cast<unsigned char>(c)]; }

bool startsNumber(char c) { return isDigit(c) || c == '+' || c == '-' || c == '.'; }

// A sign, digits, and at most one point among them.
bool isNumber(std::string_view text) {
  std::size_t i = text[0] == '+' || text[0] == '-' ? 1 : 0;
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

}  // namespace

bool isWhiteSpace(char c) { return classOf(c) == Class::whiteSpace; }
bool isRegular(char c) { return classOf(c) == Class::regular; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

Scanner::Scanner(std::string_view bytes, Budget& budget, std::size_t offset)
    : bytes_(bytes), budget_(&budget) {
  moveTo(offset);
}

Scanner::Scanner(std::shared_ptr<const Bytes> bytes, std::uint32_t container, Budget& budget,
                 std::size_t offset)
    : owner_(std::move(bytes)), bytes_(asText(*owner_)), budget_(&budget), container_(container) {
  moveTo(offset);
}

std::string_view Scanner::text(const Token& token) const {
  return bytes_.substr(token.begin, token.end - token.begin);
}

bool Scanner::is(const Token& token, std::string_view keyword) const {
  return token.kind == Token::Kind::keyword && text(token) == keyword;
}

void Scanner::skipWhiteSpace() {
  while (position_ < bytes_.size()) {
    const char c = bytes_[position_];
    if (c == '%') {
      while (position_ < bytes_.size() && bytes_[position_] != '\n' && bytes_[position_] != '\r')
        ++position_;
    } else if (isWhiteSpace(c)) {
      ++position_;
    } else {
      return;
    }
  }
}

// Leaves the position behind the closing parenthesis that belongs to the opening one before it.
void Scanner::skipLiteralString() {
  std::size_t open = 1;
  while (position_ < bytes_.size()) {
    const char c = bytes_[position_++];
    if (c == '\\') {
      if (position_ < bytes_.size()) ++position_;
    } else if (c == '(') {
      ++open;
    } else if (c == ')' && --open == 0) {
      return;
    }
  }
}

Token Scanner::finish(Token::Kind kind, std::size_t begin, std::size_t end) {
  position_ = end;
  return {kind, begin, end};
}

Token Scanner::next() {
  const std::size_t start = position_;
  skipWhiteSpace();
  const std::size_t begin = position_;
  Token token{Token::Kind::end, begin, begin};
  if (begin < bytes_.size()) {
    const char c = bytes_[begin];
    const char following = begin + 1 < bytes_.size() ? bytes_[begin + 1] : '\0';
    using enum Token::Kind;
    if (classOf(c) == Class::regular) {
      std::size_t end = begin + 1;
      while (end < bytes_.size() && isRegular(bytes_[end])) ++end;
      const bool number = startsNumber(c) && isNumber(bytes_.substr(begin, end - begin));
      token = finish(number ? Token::Kind::number : keyword, begin, end);
    } else if (c == '/') {
      std::size_t end = begin + 1;
      while (end < bytes_.size() && isRegular(bytes_[end])) ++end;
      token = finish(name, begin, end);
    } else if (c == '(') {
      ++position_;
      skipLiteralString();
      token = finish(literalString, begin, position_);
    } else if (c == '<' && following == '<') {
      token = finish(dictionaryOpen, begin, begin + 2);
    } else if (c == '>' && following == '>') {
      token = finish(dictionaryClose, begin, begin + 2);
    } else if (c == '<') {
      const std::size_t close = bytes_.find('>', begin);
      token = finish(hexString, begin, close == bytes_.npos ? bytes_.size() : close + 1);
    } else {
      const Token::Kind kind = c == '[' ? arrayOpen : c == ']' ? arrayClose : keyword;
      token = finish(kind, begin, begin + 1);
    }
  }
  if (!budget_->scan(position_ - start)) return {Token::Kind::end, position_, position_};
  return token;
}

// Only delimiters matter here, so regular characters are passed without forming tokens of them.
void Scanner::skipToClosing() {
  std::size_t depth = 1;
  std::size_t paid = position_;
  while (position_ < bytes_.size()) {
    const char c = bytes_[position_];
    if (classOf(c) != Class::delimiter) {
      ++position_;
      continue;
    }
    if (!budget_->scan(position_ - paid)) return;
    paid = position_;
    if (c == '/') {
      ++position_;
      continue;
    }
    const Token token = next();
    paid = position_;
    using enum Token::Kind;
    if (token.kind == arrayOpen || token.kind == dictionaryOpen) {
      if (++depth > limits::nesting) return budget_->exhaust();
    } else if (token.kind == arrayClose || token.kind == dictionaryClose) {
      if (--depth == 0) return;
    } else if (token.kind == end && budget_->isExhausted()) {
      return;
    }
  }
  budget_->scan(position_ - paid);
}

bool Scanner::takeKeyword(std::string_view keyword) {
  const std::size_t start = position_;
  if (is(next(), keyword)) return true;
  position_ = start;
  return false;
}

std::optional<std::uint64_t> Scanner::takeCount() {
  const std::size_t start = position_;
  const std::string_view digits = text(next());
  if (!digits.empty() && digits.size() <= 18) {
    std::uint64_t value = 0;
    for (const char c : digits) {
      if (!isDigit(c)) {
        position_ = start;
        return std::nullopt;
      }
      value = value * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return value;
  }
  position_ = start;
  return std::nullopt;
}

}  // namespace korrin::pdf
