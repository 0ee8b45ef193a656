#include "korrin/foundation/uuid.h"

#include <cerrno>
#include <system_error>

#include <unistd.h>

#include "korrin/foundation/words.h"

namespace korrin {
namespace {

using words::everyByte;
using words::highBits;
using words::loadWord;

// High bits of the bytes, all below 0x80, that are at least `limit`.
constexpr std::uint64_t atLeast(std::uint64_t word, char limit) {
  return word + everyByte * static_cast<std::uint64_t>(0x80 - limit);
}

// High bits of the bytes that are hexadecimal digits.
constexpr std::uint64_t digitMarks(std::uint64_t word) {
  const std::uint64_t ascii = word & ~highBits;
  const std::uint64_t lower = ascii | everyByte * 0x20;
  const std::uint64_t isDecimal = atLeast(ascii, '0') & ~atLeast(ascii, '9' + 1);
  const std::uint64_t isLetter = atLeast(lower, 'a') & ~atLeast(lower, 'f' + 1);
  return (isDecimal | isLetter) & ~word & highBits;
}

// The four bytes that eight digits stand for, the first one lowest.
constexpr std::uint64_t digitBytes(std::uint64_t digits) {
  // Letters of either case end in 1 to 6 and have bit 6 set.
  const std::uint64_t values = (digits & everyByte * 0x0F) + (digits >> 6 & everyByte) * 9;
  std::uint64_t bytes = (values << 4 | values >> 8) & 0x00FF00FF00FF00FFu;
  bytes = (bytes | bytes >> 8) & 0x0000FFFF0000FFFFu;
  return (bytes | bytes >> 16) & 0xFFFFFFFFu;
}

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
  const char* const at = text.data();
  // The middle groups of four digits are taken with what stands beside them and cut out.
  constexpr std::uint64_t lowHalf = 0xFFFFFFFFu;
  const std::uint64_t second = loadWord(at + 8);   // -dddd-dd
  const std::uint64_t third = loadWord(at + 14);   // dddd-ddd
  const std::uint64_t fourth = loadWord(at + 19);  // dddd-ddd
  const std::uint64_t fifth = loadWord(at + 24);   // dddddddd
  const std::array<std::uint64_t, 4> digits = {loadWord(at), (second >> 8 & lowHalf) | third << 32,
                                               (fourth & lowHalf) | fifth << 32, loadWord(at + 28)};
  const std::uint64_t marks =
      digitMarks(digits[0]) & digitMarks(digits[1]) & digitMarks(digits[2]) & digitMarks(digits[3]);
  const bool hasHyphens = at[8] == '-' && at[13] == '-' && at[18] == '-' && at[23] == '-';
  if (marks != highBits || !hasHyphens) return std::nullopt;

  UUID id;
  words::storeWord(&id.bytes_[0], digitBytes(digits[0]) | digitBytes(digits[1]) << 32);
  words::storeWord(&id.bytes_[8], digitBytes(digits[2]) | digitBytes(digits[3]) << 32);
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
