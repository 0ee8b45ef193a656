#include "korrin/foundation/uuid.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace korrin {
namespace {

constexpr std::uint8_t notADigit = 0xFF;

constexpr std::array<std::uint8_t, 256> digitValues = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(notADigit);
  for (std::uint8_t digit = 0; digit < 10; ++digit) values['0' + digit] = digit;
  for (std::uint8_t digit = 10; digit < 16; ++digit) {
    values['A' + digit - 10] = digit;
    values['a' + digit - 10] = digit;
  }
  return values;
}();

constexpr std::array<std::array<char, 2>, 256> bytePairs = [] {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::array<std::array<char, 2>, 256> pairs{};
  for (std::size_t byte = 0; byte < 256; ++byte)
    pairs[byte] = {digits[byte >> 4], digits[byte & 15]};
  return pairs;
}();

// Where the two digits of each byte stand in the text form.
constexpr std::array<std::uint8_t, 16> pairOffsets = {0,  2,  4,  6,  9,  11, 14, 16,
                                                      19, 21, 24, 26, 28, 30, 32, 34};
constexpr std::array<std::uint8_t, 4> hyphenOffsets = {8, 13, 18, 23};

}  // namespace

UUID UUID::random() {
  UUID id;
  if (getentropy(id.bytes_.data(), id.bytes_.size()) != 0)
    throw std::system_error(errno, std::generic_category(), "no random bytes for an identifier");
  id.bytes_[6] = static_cast<std::uint8_t>((id.bytes_[6] & 0x0F) | 0x40);  // version 4: random
  id.bytes_[8] = static_cast<std::uint8_t>((id.bytes_[8] & 0x3F) | 0x80);  // the RFC 4122 variant
  return id;
}

std::optional<UUID> UUID::fromText(std::string_view text) {
  if (text.size() != textLength) return std::nullopt;
  UUID id;
  // Digits are below 16, so one look at the collected bits finds any character that is none.
  unsigned wrong = 0;
  for (std::size_t i = 0; i < id.bytes_.size(); ++i) {
    const unsigned high = digitValues[static_cast<unsigned char>(text[pairOffsets[i]])];
    const unsigned low = digitValues[static_cast<unsigned char>(text[pairOffsets[i] + 1u])];
    wrong |= high | low;
    id.bytes_[i] = static_cast<std::uint8_t>(high << 4 | low);
  }
  for (const std::size_t offset : hyphenOffsets) wrong |= text[offset] == '-' ? 0u : notADigit;
  if (wrong > 15) return std::nullopt;
  return id;
}

void UUID::writeText(char* out) const {
  for (std::size_t i = 0; i < bytes_.size(); ++i)
    std::memcpy(out + pairOffsets[i], bytePairs[bytes_[i]].data(), 2);
  for (const std::size_t offset : hyphenOffsets) out[offset] = '-';
}

std::string UUID::text() const {
  std::string text(textLength, '\0');
  writeText(text.data());
  return text;
}

}  // namespace korrin
