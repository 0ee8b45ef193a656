#pragma once

// One value of a PDF, read where it stands. Numbers, references and short names are held; arrays,
// dictionaries and strings are only a place to read from.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "korrin/validation/pdf/scanner.h"

namespace korrin::pdf {

/// A name with its #-escapes resolved. One that is longer than every name of interest is kept as
/// the empty name, which equals none of them.
class Name {
 public:
  Name() = default;
  /// Reads the text of a name token, from the slash on.
  explicit Name(std::string_view token);
  std::string_view text() const { return {characters_.data(), size_}; }

 private:
  std::array<char, 23> characters_{};
  std::uint8_t size_ = 0;
};

struct Value {
  enum class Kind { null, number, name, string, array, dictionary, reference, other };
  Kind kind = Kind::null;
  Place place;                  ///< Where its first token begins.
  double number = 0;            ///< Of a number; infinite when it overflows.
  bool isTrue = false;          ///< Of the keyword `true`, a value of kind `other`.
  std::uint32_t reference = 0;  ///< Of a reference: the object's number.
  Name name;

  static Value referenceTo(std::uint32_t object) {
    Value value;
    value.kind = Kind::reference;
    value.reference = object;
    return value;
  }

  bool isNull() const { return kind == Kind::null; }
  bool isName(std::string_view text) const { return kind == Kind::name && name.text() == text; }
  /// The number, as `asOffset` gives it, if it is whole and in the range 0 to 2^53, which no size
  /// in a document exceeds.
  std::optional<std::size_t> asSize() const;
};

/// Takes the next value, passing over what is in it. Nothing at the end of the bytes, and at a
/// closing bracket, which is taken.
std::optional<Value> readValue(Scanner& scanner);

/// The same, but of an array or dictionary takes no more than its opening.
std::optional<Value> readValueHead(Scanner& scanner);

/// Reads the dictionary that stands next up to its end, and gives the values of `keys` in it. A key
/// that is missing gives null, one that stands twice its last value. Null everywhere when there is
/// no dictionary. An unclosed dictionary ends at `endobj` or `stream`, which are left to be taken.
template <std::size_t n>
std::array<Value, n> readEntries(Scanner& scanner, const std::array<std::string_view, n>& keys);

/// Takes the next key of a dictionary whose opening has been taken and gives its token's text;
/// nothing at the dictionary's end.
std::optional<std::string_view> readKey(Scanner& scanner);

/// What a name token spells. Only one with an escape is taken apart, and once for all comparisons;
/// the text of any other is its own.
class KeyText {
 public:
  explicit KeyText(std::string_view token)
      : plain_(token.substr(1)), isEscaped_(token.find('#') != token.npos) {
    if (isEscaped_) name_ = Name(token);
  }
  bool isEscaped() const { return isEscaped_; }
  std::string_view text() const { return isEscaped_ ? name_.text() : plain_; }

 private:
  std::string_view plain_;
  bool isEscaped_;
  Name name_;
};

/// Passes over the value of a key; of a reference only over its first number, since the rest cannot
/// be taken for a key. Stays in front of a closing bracket.
void skipValue(Scanner& scanner);

/// The first `capacity` bytes of the string at the scanner's position, escapes resolved; `size`
/// counts what is there.
struct ShortString {
  static constexpr std::size_t capacity = 128;
  std::array<std::byte, capacity> bytes{};
  std::size_t size = 0;
  std::span<const std::byte> first(std::size_t count) const {
    return std::span(bytes).first(count);
  }
};
ShortString readString(Scanner& scanner);

template <std::size_t n>
std::array<Value, n> readEntries(Scanner& scanner, const std::array<std::string_view, n>& keys) {
  std::array<Value, n> values;
  if (scanner.next().kind != Token::Kind::dictionaryOpen) return values;
  while (const auto token = readKey(scanner)) {
    const KeyText spelled(*token);
    if (spelled.isEscaped() && !scanner.budget().payFor(1, price::value)) break;
    const auto key = std::find(keys.begin(), keys.end(), spelled.text());
    const std::size_t valueStart = scanner.position();
    if (key == keys.end()) {
      skipValue(scanner);
    } else if (const auto value = readValue(scanner)) {
      values[static_cast<std::size_t>(key - keys.begin())] = *value;
    } else {
      // A key without a value: its dictionary ends here.
      scanner.moveTo(valueStart);
    }
  }
  return values;
}

}  // namespace korrin::pdf
