// Identifiers and hashes where the operating system gives no random bytes.

#include <cerrno>
#include <system_error>
#include <unordered_set>

#include <gmock/gmock.h>
#include <unistd.h>

#include "korrin/foundation/uuid.h"

// Takes the place of the C library's in this program.
int getentropy(void*, std::size_t) {
  errno = EIO;
  return -1;
}

namespace korrin {
namespace {

TEST(UUID, IsNotMadeWithoutRandomBytes) {
  try {
    UUID::random();
    FAIL() << "an identifier of no random bytes";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), std::errc::io_error);
    EXPECT_THAT(error.what(), testing::HasSubstr("no random bytes for an identifier"));
  }
}

// Sets of identifiers are in every edit: those go on.
TEST(Hash, DoesWithoutRandomBytes) {
  std::unordered_set<std::size_t> hashes;
  for (std::uint64_t i = 0; i < 1000; ++i) hashes.insert(hashCombine(i, i));
  EXPECT_EQ(hashes.size(), 1000u);
  EXPECT_NE(hashBytes("stage"), hashBytes("plot"));
}

}  // namespace
}  // namespace korrin
