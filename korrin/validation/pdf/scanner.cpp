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

}  // namespace

bool isWhiteSpace(char c) { return classOf(c) == Class::whiteSpace; }
bool isRegular(char c) { return classOf(c) == Class::regular; }

std::size_t find(std::string_view text, std::string_view word) {
  // After Horspool: the character under the word's end tells how far the word may move on. The
  // standard library's searcher does the same, where there is one.
  std::array<std::size_t, 256> steps;
  steps.fill(word.size());
  for (std::size_t i = 0; i + 1 < word.size(); ++i)
    steps[static_cast<unsigned char>(word[i])] = word.size() - 1 - i;
  for (std::size_t last = word.size() - 1; last < text.size();) {
    const char c = text[last];
    const std::size_t first = last + 1 - word.size();
    if (c == word.back() && text.substr(first, word.size()) == word) return first;
    last += steps[static_cast<unsigned char>(c)];
  }
  return text.npos;
}

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

std::size_t Scanner::pastWhiteSpace(std::size_t offset) const {
  while (offset < bytes_.size()) {
    const char c = bytes_[offset];
    if (c == '%') {
      while (offset < bytes_.size() && bytes_[offset] != '\n' && bytes_[offset] != '\r') ++offset;
    } else if (isWhiteSpace(c)) {
      ++offset;
    } else {
      break;
    }
  }
  return offset;
}

std::size_t Scanner::pastRegular(std::size_t offset) const {
  while (offset < bytes_.size() && isRegular(bytes_[offset])) ++offset;
  return offset;
}

bool Scanner::endsWord(std::size_t offset) const {
  return offset >= bytes_.size() || !isRegular(bytes_[offset]);
}

// From behind the opening parenthesis to behind the closing one that belongs to it. Parentheses and
// escapes inside are counted as tokens.
Scanner::StringEnd Scanner::pastLiteralString(std::size_t offset) const {
  std::size_t open = 1;
  std::size_t tokens = 1;
  while (offset < bytes_.size()) {
    const char c = bytes_[offset++];
    if (c != '\\' && c != '(' && c != ')') continue;
    ++tokens;
    if (c == '\\') {
      if (offset < bytes_.size()) ++offset;
    } else if (c == '(') {
      ++open;
    } else if (--open == 0) {
      break;
    }
  }
  return {offset, tokens};
}

Token Scanner::next() {
  const std::size_t start = position_;
  const std::size_t begin = pastWhiteSpace(start);
  Token token{Token::Kind::end, begin, begin};
  std::size_t tokens = 1;
  if (begin < bytes_.size()) {
    const char c = bytes_[begin];
    const char following = begin + 1 < bytes_.size() ? bytes_[begin + 1] : '\0';
    using enum Token::Kind;
    if (isRegular(c)) {
      token = {word, begin, pastRegular(begin + 1)};
    } else if (c == '/') {
      token = {name, begin, pastRegular(begin + 1)};
    } else if (c == '(') {
      const StringEnd end = pastLiteralString(begin + 1);
      token = {literalString, begin, end.offset};
      tokens = end.tokens;
    } else if (c == '<' && following == '<') {
      token = {dictionaryOpen, begin, begin + 2};
    } else if (c == '>' && following == '>') {
      token = {dictionaryClose, begin, begin + 2};
    } else if (c == '<') {
      const std::size_t close = bytes_.find('>', begin);
      token = {hexString, begin, close == bytes_.npos ? bytes_.size() : close + 1};
    } else {
      token = {c == '[' ? arrayOpen : c == ']' ? arrayClose : word, begin, begin + 1};
    }
  }
  position_ = token.end;
  if (!budget_->payForBytes(position_ - start) || !budget_->payForTokens(tokens))
    return {Token::Kind::end, position_, position_};
  return token;
}

std::size_t Scanner::toNextToken() {
  const std::size_t start = position_;
  position_ = pastWhiteSpace(start);
  budget_->payForBytes(position_ - start);
  return position_;
}

// Only delimiters matter here: regular characters, names among them, are passed as they come.
void Scanner::skipToClosing() {
  std::size_t depth = 1;
  while (!budget_->isExhausted()) {
    const std::size_t start = position_;
    while (position_ < bytes_.size() &&
           (classOf(bytes_[position_]) != Class::delimiter || bytes_[position_] == '/'))
      ++position_;
    if (!budget_->payForBytes(position_ - start)) return;
    using enum Token::Kind;
    switch (next().kind) {
      case arrayOpen:
      case dictionaryOpen:
        if (++depth > limits::nesting) budget_->exhaust();
        break;
      case arrayClose:
      case dictionaryClose:
        if (--depth == 0) return;
        break;
      case end:
        return;
      default:
        break;
    }
  }
}

bool Scanner::takeKeyword(std::string_view keyword) {
  const std::size_t start = position_;
  const std::size_t begin = pastWhiteSpace(start);
  const std::size_t end = begin + keyword.size();
  const bool found = bytes_.substr(begin, keyword.size()) == keyword && endsWord(end);
  if (!budget_->payForBytes((found ? end : begin) - start) || !found) return false;
  position_ = end;
  return budget_->payForTokens(1);
}

std::optional<std::uint64_t> Scanner::takeCount() {
  constexpr std::size_t mostDigits = 18;
  const std::size_t start = position_;
  const std::size_t begin = pastWhiteSpace(start);
  std::uint64_t value = 0;
  std::size_t end = begin;
  for (; end < bytes_.size() && isDigit(bytes_[end]) && end - begin <= mostDigits; ++end)
    value = value * 10 + static_cast<std::uint64_t>(bytes_[end] - '0');
  const bool found = end > begin && end - begin <= mostDigits && endsWord(end);
  if (!budget_->payForBytes(end - start) || !found) return std::nullopt;
  position_ = end;
  return budget_->payForTokens(1) ? std::optional(value) : std::nullopt;
}

}  // namespace korrin::pdf
