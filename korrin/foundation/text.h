#pragma once

// Unicode text as users mean it: two spellings of the same characters are the same text.

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "korrin/foundation/hash.h"
#include "korrin/foundation/shared.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Immutable Unicode text, held as well-formed UTF-8. It stores what it was given: nothing is
/// normalised or trimmed. Copies share storage, cost no allocation and may be used from different
/// threads at the same time; an empty text has no storage.
///
/// Equality is canonical equivalence: "é" as one scalar equals "e" followed by a combining acute
/// accent. Order is by the Unicode scalar values of the composed canonical form (NFC), neither by
/// locale nor by numbers: "10" stands before "2". The hash agrees with equality.
class Text {
 public:
  /// The empty text.
  Text() = default;
  /// Every ill-formed sequence of bytes is replaced by one U+FFFD.
  Text(std::string utf8);
  /// As from a string.
  Text(std::string_view utf8) : Text(std::string(utf8)) {}
  /// As from a string; `utf8` ends in a zero byte.
  Text(const char* utf8) : Text(std::string(utf8)) {}
  Text(std::nullptr_t) = delete;
  template <std::integral Number>
  Text(Number) = delete;

  /// The bytes as stored, well-formed UTF-8. Valid as long as this text or a copy of it lives.
  const std::string& str() const noexcept { return storage_ ? storage_->utf8 : emptyString(); }
  /// The same bytes. Valid as long as this text or a copy of it lives.
  operator std::string_view() const noexcept {
    return storage_ ? std::string_view(storage_->utf8) : std::string_view();
  }

  /// Whether the text has no characters. A blank counts as one.
  bool empty() const noexcept { return !storage_; }

  /// Whether nothing but white space (the Unicode property White_Space) stands in the text; true
  /// for the empty text.
  bool isBlank() const noexcept;

  /// The text without the white space (the Unicode property White_Space) at its two ends; the text
  /// itself, sharing its storage, where there is none.
  Text trimmed() const;

  /// Canonical equivalence.
  friend bool operator==(const Text& a, const Text& b) noexcept {
    return a.storage_.get() == b.storage_.get() || a.normalForm() == b.normalForm();
  }
  /// By the scalar values of the composed forms.
  friend std::strong_ordering operator<=>(const Text& a, const Text& b) noexcept {
    // The order of UTF-8 bytes is the order of scalar values.
    if (a.storage_.get() == b.storage_.get()) return std::strong_ordering::equal;
    return a.normalForm().compare(b.normalForm()) <=> 0;
  }

  /// Comparison with a string or literal, as if it were made a text; equal bytes need no
  /// allocation.
  template <class String>
  requires(std::convertible_to<const String&, std::string_view> &&
           !std::same_as<String, Text>) friend bool
  operator==(const Text& a, const String& b) {
    const std::string_view view = b;
    return std::string_view(a) == view || a == Text(view);
  }
  /// Order against a string or literal, in the same way.
  template <class String>
  requires(std::convertible_to<const String&, std::string_view> &&
           !std::same_as<String, Text>) friend std::strong_ordering
  operator<=>(const Text& a, const String& b) {
    return a <=> Text(std::string_view(b));
  }

  /// Prints the bytes as stored, to a stream whose header the caller includes.
  template <class Traits>
  friend std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& out,
                                                      const Text& text) {
    return out << text.str();
  }

 private:
  friend struct std::hash<Text>;

  struct Storage : Counted {
    Storage(std::string&& text, std::unique_ptr<const std::string>&& normal)
        : utf8(std::move(text)), composed(std::move(normal)) {}
    static void destroy(Storage* storage) noexcept { delete storage; }

    const std::string utf8;
    /// The composed canonical form, where it is another text. Made once, since a comparison that
    /// made it would cost a hostile document's reader the product of its longest texts.
    const std::unique_ptr<const std::string> composed;
  };

  static const std::string& emptyString() noexcept;
  std::string_view normalForm() const noexcept {
    if (!storage_) return {};
    return storage_->composed ? *storage_->composed : storage_->utf8;
  }

  Shared<Storage> storage_;
};

}  // namespace korrin

template <>
struct std::hash<korrin::Text> {
  // Not declared noexcept, though it does not throw: standard containers then keep the hash with
  // the element. Otherwise they would hash a long text again whenever they pass it.
  std::size_t operator()(const korrin::Text& text) const {
    return korrin::hashBytes(text.normalForm());
  }
};

#pragma GCC visibility pop
