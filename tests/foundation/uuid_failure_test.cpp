// Identifiers where the operating system gives no random bytes.

#include <cerrno>
#include <system_error>

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

}  // namespace
}  // namespace korrin
