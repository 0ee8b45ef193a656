#include "korrin/foundation/environment.h"

#include <gtest/gtest.h>

namespace korrin {
namespace {

TEST(Environment, ReadsTheSystemsClock) {
  const Environment system = Environment::system();
  const Instant before = std::chrono::system_clock::now();
  const Instant read = system.now();
  const Instant after = std::chrono::system_clock::now();
  EXPECT_LE(before, read);
  EXPECT_LE(read, after);
}

TEST(Environment, MakesFreshRandomIdentifiers) {
  const Environment system = Environment::system();
  const UUID first = system.makeUUID();
  EXPECT_NE(first, system.makeUUID());
  EXPECT_NE(first, Environment::system().makeUUID());
  EXPECT_EQ(first.bytes()[6] >> 4, 4);
}

TEST(Environment, IsAValueWhoseFunctionsAHostReplaces) {
  Environment mine = Environment::system();
  const Environment untouched = mine;
  mine.now = [] { return Instant(std::chrono::seconds(42)); };
  mine.makeUUID = [] { return UUID{}; };
  EXPECT_EQ(mine.now().time_since_epoch(), std::chrono::seconds(42));
  EXPECT_EQ(mine.makeUUID(), UUID{});
  EXPECT_NE(untouched.makeUUID(), UUID{});
  EXPECT_NE(Environment::system().now(), mine.now());
}

}  // namespace
}  // namespace korrin
