#include "korrin/foundation/uuid.h"

#include <bit>
#include <cerrno>
#include <cstring>
#include <system_error>

#include <unistd.h>

namespace korrin {
namespace {

// Sixteen bytes that compilers keep in one vector register where there is one.
using Bytes16 [[gnu::vector_size(16)]] = std::uint8_t;
using Words2 [[gnu::vector_size(16)]] = std::uint64_t;
using Words4 [[gnu::vector_size(16)]] = std::uint32_t;

std::uint32_t loadFour(const char* at) {
  std::uint32_t word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

// Four times four bytes, put together in a register.
Bytes16 loadFours(const char* a, const char* b, const char* c, const char* d) {
  return std::bit_cast<Bytes16>(Words4{loadFour(a), loadFour(b), loadFour(c), loadFour(d)});
}

// What hexadecimal digits stand for; a mark of 0xFF where a character is one.
struct DigitValues {
  Bytes16 values;
  Bytes16 marks;
};

DigitValues digitValues(Bytes16 characters) {
  const Bytes16 decimals = characters - '0';
  const Bytes16 letters = (characters | 0x20) - 'a';  // of either case
  const Bytes16 isDecimal = std::bit_cast<Bytes16>(decimals <= 9);
  const Bytes16 isLetter = std::bit_cast<Bytes16>(letters <= 5);
  return {(decimals & isDecimal) | ((letters + 10) & isLetter), isDecimal | isLetter};
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
  const bool hasHyphens = at[8] == '-' && at[13] == '-' && at[18] == '-' && at[23] == '-';
  const auto [first, firstMarks] = digitValues(loadFours(at, at + 4, at + 9, at + 14));
  const auto [second, secondMarks] = digitValues(loadFours(at + 19, at + 24, at + 28, at + 32));
  const auto marks = std::bit_cast<Words2>(firstMarks & secondMarks);
  if (!hasHyphens || (marks[0] & marks[1]) != ~std::uint64_t{0}) return std::nullopt;

  const Bytes16 high = __builtin_shufflevector(first, second, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20,
                                               22, 24, 26, 28, 30);
  const Bytes16 low = __builtin_shufflevector(first, second, 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21,
                                              23, 25, 27, 29, 31);
  return UUID(std::bit_cast<Bytes>((high << 4) | low));
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
