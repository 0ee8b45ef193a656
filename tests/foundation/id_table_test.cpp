#include "korrin/foundation/id_table.h"

#include <cstdint>
#include <random>
#include <set>

#include <gtest/gtest.h>

namespace korrin {
namespace {

UUID numbered(std::uint8_t first, std::uint8_t last) {
  UUID::Bytes bytes{};
  bytes.front() = first;
  bytes.back() = last;
  return UUID(bytes);
}

TEST(IDTable, HoldsNothingAtFirst) {
  const IDTable table(0);
  EXPECT_FALSE(table.contains(UUID()));
  EXPECT_FALSE(table.contains(numbered(1, 2)));
}

TEST(IDTable, HoldsTheNilIdentifierOnceItIsAdded) {
  IDTable table(2);
  table.insert(numbered(0, 1));
  EXPECT_FALSE(table.contains(UUID()));
  table.insert(UUID());
  EXPECT_TRUE(table.contains(UUID()));
  EXPECT_TRUE(table.contains(numbered(0, 1)));
  EXPECT_FALSE(table.contains(numbered(1, 0)));
}

TEST(IDTable, HoldsWhatWasAddedAndNothingElseAtEverySize) {
  constexpr unsigned seed = 99;
  std::mt19937_64 random(seed);
  for (std::size_t most = 1; most <= 300; most += 7) {
    IDTable table(most);
    std::set<UUID> added;
    while (added.size() < most) {
      const UUID id =
          numbered(static_cast<std::uint8_t>(random()), static_cast<std::uint8_t>(random()));
      added.insert(id);
      table.insert(id);
      table.insert(id);
    }
    for (int first = 0; first < 256; first += 3)
      for (int last = 0; last < 256; ++last) {
        const UUID id = numbered(static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(last));
        ASSERT_EQ(table.contains(id), added.contains(id)) << "seed " << seed;
      }
  }
}

}  // namespace
}  // namespace korrin
