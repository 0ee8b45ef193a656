#include "tests/support/crafted_values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace korrin::test {
namespace {

UUID ofHalves(std::uint64_t first, std::uint64_t second) {
  return UUID(std::bit_cast<UUID::Bytes>(std::array{first, second}));
}

// What libstdc++ does with each eight bytes of a string, and back.
constexpr std::uint64_t factor = 0xC6A4A7935BD1E995u;
constexpr std::uint64_t inverseFactor = [] {
  std::uint64_t inverse = factor;  // right in the last three bits; each round doubles their number
  for (int round = 0; round < 5; ++round) inverse *= 2 - factor * inverse;
  return inverse;
}();
static_assert(factor * inverseFactor == 1);

constexpr std::uint64_t folded(std::uint64_t word) { return word ^ (word >> 47); }
constexpr std::uint64_t mixed(std::uint64_t word) { return folded(word * factor) * factor; }
constexpr std::uint64_t unmixed(std::uint64_t word) {
  return folded(word * inverseFactor) * inverseFactor;
}
static_assert(unmixed(mixed(0x0123456789ABCDEFu)) == 0x0123456789ABCDEFu);

}  // namespace

const std::vector<IdentifierFamily>& identifierFamilies() {
  static const std::vector<IdentifierFamily> families = {
      {"HalvesThatCancelOutWhenShifted",
       [](std::size_t i) {
         const std::uint64_t second = (i + 1) * 0x9E3779B97F4A7C15u;
         return ofHalves(second ^ (second >> 29), second);
       }},
      {"EqualHalves", [](std::size_t i) { return ofHalves(i + 1, i + 1); }},
      {"OppositeHalves", [](std::size_t i) { return ofHalves(i + 1, ~std::uint64_t{i + 1}); }},
      {"HalvesOfOneSum", [](std::size_t i) { return ofHalves(i, 0 - std::uint64_t{i}); }},
      {"CountingInTheFirstBytes", [](std::size_t i) { return ofHalves(i, 0); }},
      {"CountingInTheLastBytes", [](std::size_t i) { return ofHalves(0, std::uint64_t{i} << 48); }},
      {"CountingInTheHighestBits",
       [](std::size_t i) { return ofHalves(std::uint64_t{i} << 48, std::uint64_t{i} << 48); }},
      {"OneHalfOfEachOrder",
       [](std::size_t i) { return ofHalves(i, std::rotl(std::uint64_t{i}, 32)); }},
  };
  return families;
}

std::vector<UUID> collidingIdentifiers(std::size_t count) {
  std::vector<UUID> identifiers;
  for (std::size_t i = 0; i < count; ++i)
    identifiers.push_back(identifierFamilies().front().member(i));
  return identifiers;
}

std::vector<std::string> collidingTexts(std::size_t count) {
  constexpr std::uint64_t length = 16;
  constexpr std::uint64_t start = 0xC70F6907u ^ length * factor;
  std::vector<std::string> texts;
  for (std::uint64_t i = 0; texts.size() < count; ++i) {
    std::uint64_t first = 0;
    for (int digit = 0; digit < 8; ++digit) first = first << 8 | ('a' + (i >> 4 * digit & 15));
    // The second half cancels out whatever the first one has come to.
    const std::uint64_t second = unmixed((start ^ mixed(first)) * factor);
    const auto characters = std::bit_cast<std::array<char, length>>(std::array{first, second});
    const auto isPlain = [](char c) { return c >= ' ' && c != '"' && c != '\\' && c != 0x7F; };
    if (std::all_of(characters.begin(), characters.end(), isPlain))
      texts.emplace_back(characters.begin(), characters.end());
  }
  return texts;
}

std::vector<std::string> textsAlikeInTheMiddleAndAtTheEnd(std::size_t count) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < count; ++i) {
    std::string number = std::to_string(i);
    number.insert(0, 8 - number.size(), '0');
    texts.push_back(number + "-------.");
  }
  return texts;
}

}  // namespace korrin::test
