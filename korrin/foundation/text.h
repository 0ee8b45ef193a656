#pragma once

// Unicode text as users mean it: two spellings of the same characters are the same text.

#include <algorithm>
#include <array>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iosfwd>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "korrin/foundation/hash.h"
#include "korrin/foundation/shared.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Bytes for a text that need not be checked: for readers that have looked at each already. They
/// are ASCII, at most `Text::mostInside`, and stand at the start of 16 bytes that may be read.
struct ShortASCII {
  const char* block;  ///< Its first `size` bytes are the text.
  std::size_t size;   ///< In bytes.
};

/// Bytes for a text that are known to be well-formed, for readers that have looked at each already.
struct WellFormedUTF8 {
  std::string_view bytes;  ///< Well-formed UTF-8.
  bool isASCII;  ///< Whether they are all below 0x80; false may also mean that nobody looked.
};

/// Immutable Unicode text, held as well-formed UTF-8. It stores what it was given: nothing is
/// normalised or trimmed. Copies cost no allocation and may be used from different threads at the
/// same time: up to `mostInside` bytes stand in the text itself, more in storage that copies share.
///
/// Equality is canonical equivalence: "é" as one scalar equals "e" followed by a combining acute
/// accent. Order is by the Unicode scalar values of the composed canonical form (NFC), neither by
/// locale nor by numbers: "10" stands before "2". The hash agrees with equality.
class Text {
 public:
  /// The longest text, in bytes, that needs no storage besides itself.
  static constexpr std::size_t mostInside = 15;

  /// The empty text.
  Text() noexcept : bytes_{} {}
  /// Every ill-formed sequence of bytes is replaced by one U+FFFD.
  Text(std::string_view utf8);
  /// As from a view.
  Text(const std::string& utf8) : Text(std::string_view(utf8)) {}
  /// As from a view; `utf8` ends in a zero byte.
  Text(const char* utf8) : Text(std::string_view(utf8)) {}
  /// Copies a whole block, which takes less time than finding out how much to copy.
  explicit Text(ShortASCII utf8) noexcept {
    static_assert(sizeof(Text) == mostInside + 1);
    // As many bytes as the text has stay, then come zeros and the size.
    static constexpr std::array<unsigned char, 2 * mostInside + 1> masks = [] {
      std::array<unsigned char, 2 * mostInside + 1> bytes{};
      std::fill_n(bytes.begin(), mostInside, static_cast<unsigned char>(0xFF));
      return bytes;
    }();
    std::array<std::uint64_t, 2> bytes;
    std::array<std::uint64_t, 2> mask;
    std::memcpy(bytes.data(), utf8.block, sizeof bytes);
    std::memcpy(mask.data(), masks.data() + mostInside - utf8.size, sizeof mask);
    bytes = {bytes[0] & mask[0], bytes[1] & mask[1]};
    std::memcpy(bytes_.data(), bytes.data(), sizeof bytes);
    bytes_.back() = static_cast<unsigned char>(utf8.size);
  }
  /// Does not look for ill-formed sequences.
  explicit Text(WellFormedUTF8 utf8);
  Text(std::nullptr_t) = delete;
  template <std::integral Number>
  Text(Number) = delete;

  /// Shares the storage of a text of more than 15 bytes.
  Text(const Text& other) noexcept : bytes_(other.bytes_) {
    if (other.isOutside()) std::construct_at(place(), other.shared());
  }
  /// Leaves `other` empty.
  Text(Text&& other) noexcept : bytes_(other.bytes_) {
    if (other.isOutside()) std::construct_at(place(), std::move(other.shared()));
    other.bytes_ = {};
  }
  /// Shares the storage of a text of more than 15 bytes.
  Text& operator=(const Text& other) noexcept {
    if (this != &other) {
      this->~Text();
      std::construct_at(this, other);
    }
    return *this;
  }
  /// Leaves `other` empty.
  Text& operator=(Text&& other) noexcept {
    if (this != &other) {
      this->~Text();
      std::construct_at(this, std::move(other));
    }
    return *this;
  }
  ~Text() {
    if (isOutside()) std::destroy_at(&shared());
  }

  /// A copy of the bytes as stored, well-formed UTF-8.
  std::string str() const { return std::string(view()); }
  /// The bytes as stored. Valid as long as this very text lives and keeps its value; a view of a
  /// copy is one of its own.
  operator std::string_view() const noexcept { return view(); }

  /// Whether the text has no characters. A blank counts as one.
  bool empty() const noexcept { return bytes_.back() == 0; }

  /// Whether nothing but white space (the Unicode property White_Space) stands in the text; true
  /// for the empty text.
  bool isBlank() const noexcept;

  /// The text without the white space (the Unicode property White_Space) at its two ends; the text
  /// itself, sharing its storage, where there is none.
  Text trimmed() const;

  /// Canonical equivalence.
  friend bool operator==(const Text& a, const Text& b) noexcept {
    if (a.bytes_.back() == outside && b.bytes_.back() == outside) {
      const Storage* const mine = a.shared().get();
      const Storage* const other = b.shared().get();
      return mine == other ||
             (mine->size == other->size && areEqual(mine->bytes(), other->bytes(), mine->size));
    }
    // Texts that stand inside are in normal form, and what is left of their bytes is zero.
    if (a.hasSameBlock(b)) return true;
    return (a.isOutside() || b.isOutside()) && a.normalForm() == b.normalForm();
  }
  /// By the scalar values of the composed forms.
  friend std::strong_ordering operator<=>(const Text& a, const Text& b) noexcept {
    // The order of UTF-8 bytes is the order of scalar values.
    if (a.hasSameBlock(b)) return std::strong_ordering::equal;
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
    return out << text.view();
  }

 private:
  friend struct std::hash<Text>;

  // One block: this object, the bytes and, where the composed canonical form is another text, its
  // size and its bytes. That form is made once, since a comparison that made it would cost a
  // hostile document's reader the product of its longest texts. Its size is not in front, so that a
  // text of some thirty bytes stands in a single line of the processor's cache.
  struct Storage : Counted {
    static Shared<Storage> make(std::string_view utf8, std::string_view composed);
    static void destroy(Storage* storage) noexcept;

    const char* bytes() const noexcept { return reinterpret_cast<const char*>(this + 1); }
    /// Only where it is another text.
    std::string_view composed() const noexcept {
      std::size_t composedSize;
      std::memcpy(&composedSize, bytes() + size, sizeof composedSize);
      return {bytes() + size + sizeof composedSize, composedSize};
    }

    std::size_t size;

   private:
    Storage(std::string_view utf8, std::string_view composed) noexcept;
  };

  // The last byte is the size of a text that stands inside, or says that the first bytes are the
  // pointer to its storage, and whether that holds the composed form too. Texts that are not in
  // normal form are never inside.
  static constexpr unsigned char outside = mostInside + 1;
  static constexpr unsigned char outsideWithComposed = mostInside + 2;
  bool isOutside() const noexcept { return bytes_.back() >= outside; }
  Shared<Storage>* place() noexcept { return reinterpret_cast<Shared<Storage>*>(bytes_.data()); }
  Shared<Storage>& shared() noexcept { return *std::launder(place()); }
  const Shared<Storage>& shared() const noexcept { return const_cast<Text*>(this)->shared(); }

  void hold(std::string_view utf8, std::string_view composed);
  void holdWithNormalForm(std::string_view utf8);

  bool hasSameBlock(const Text& other) const noexcept {
    std::array<std::uint64_t, 2> mine;
    std::array<std::uint64_t, 2> others;
    std::memcpy(mine.data(), bytes_.data(), sizeof mine);
    std::memcpy(others.data(), other.bytes_.data(), sizeof others);
    return ((mine[0] ^ others[0]) | (mine[1] ^ others[1])) == 0;
  }
  /// Of two texts that stand outside and are no shorter than a block.
  static bool areEqual(const char* a, const char* b, std::size_t size) noexcept {
    if (size > 32) return std::memcmp(a, b, size) == 0;
    // The first 16 bytes and the last 16, which may overlap: a call of memcmp for so few takes
    // longer than comparing them here.
    using Block [[gnu::vector_size(16)]] = std::uint64_t;
    std::array<Block, 2> ours;
    std::array<Block, 2> others;
    std::memcpy(&ours[0], a, 16);
    std::memcpy(&ours[1], a + size - 16, 16);
    std::memcpy(&others[0], b, 16);
    std::memcpy(&others[1], b + size - 16, 16);
    const Block differing = (ours[0] ^ others[0]) | (ours[1] ^ others[1]);
    return (differing[0] | differing[1]) == 0;
  }

  std::string_view view() const noexcept {
    if (!isOutside()) return {reinterpret_cast<const char*>(bytes_.data()), bytes_.back()};
    return {shared()->bytes(), shared()->size};
  }
  std::string_view normalForm() const noexcept {
    return bytes_.back() == outsideWithComposed ? shared()->composed() : view();
  }

  // Of a type in which another object, the pointer, may live.
  alignas(Shared<Storage>) std::array<unsigned char, mostInside + 1> bytes_;
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
