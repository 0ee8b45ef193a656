#pragma once

// 128-bit identifiers of records.

#include <array>
#include <bit>
#include <compare>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "korrin/foundation/hash.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A universally unique identifier: 16 bytes, compared and ordered byte by byte.
class UUID {
 public:
  using Bytes = std::array<std::uint8_t, 16>;  ///< In the order of the text form.

  /// Number of characters of the text form.
  static constexpr std::size_t textLength = 36;

  /// The nil identifier: 16 zero bytes.
  constexpr UUID() = default;
  /// The identifier of these bytes, whatever their version.
  constexpr explicit UUID(const Bytes& bytes) : bytes_(bytes) {}

  /// A fresh version 4 identifier from the operating system's generator. Throws std::system_error
  /// when the generator gives no bytes.
  static UUID random();

  /// The identifier written as 8-4-4-4-12 hexadecimal digits of either letter case, without braces
  /// or blanks; nothing for any other text.
  static std::optional<UUID> fromText(std::string_view text);

  /// The canonical text form: 36 characters, upper-case digits.
  std::string text() const;

  /// Writes the canonical text form to the `textLength` characters from `out` on; adds no
  /// terminator.
  void writeText(char* out) const;

  /// The 16 bytes.
  constexpr const Bytes& bytes() const { return bytes_; }

  /// Prints the canonical text form, to a stream whose header the caller includes.
  template <class Traits>
  friend std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& out,
                                                      const UUID& id) {
    return out << id.text();
  }

  friend constexpr bool operator==(const UUID&, const UUID&) = default;
  /// By the bytes in their order, which is that of the canonical texts.
  friend constexpr std::strong_ordering operator<=>(const UUID& a, const UUID& b) {
    const std::strong_ordering order = a.half(0) <=> b.half(0);
    return order != 0 ? order : a.half(1) <=> b.half(1);
  }

 private:
  // Eight bytes as a number that orders as they do; comparing it is several times as fast.
  constexpr std::uint64_t half(std::size_t i) const {
    const std::uint64_t number = std::bit_cast<std::array<std::uint64_t, 2>>(bytes_)[i];
    return std::endian::native == std::endian::little ? __builtin_bswap64(number) : number;
  }

  Bytes bytes_{};
};

}  // namespace korrin

template <>
struct std::hash<korrin::UUID> {
  std::size_t operator()(const korrin::UUID& id) const noexcept {
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(id.bytes());
    return korrin::hashCombine(halves[0], halves[1]);
  }
};

#pragma GCC visibility pop
