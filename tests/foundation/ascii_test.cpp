#include "korrin/foundation/ascii.h"

#include <string>

#include <gtest/gtest.h>

namespace korrin {
namespace {

TEST(IsDigest, WantsSixtyFourHexadecimalDigits) {
  const std::string digits = "0123456789abcdefABCDEF";
  const std::string digest = digits + digits + digits.substr(0, 20);
  EXPECT_TRUE(isDigest(digest));
  EXPECT_FALSE(isDigest(digest.substr(1)));
  EXPECT_FALSE(isDigest(digest + "0"));
  EXPECT_FALSE(isDigest(""));
  for (const std::size_t place : {std::size_t{0}, std::size_t{31}, std::size_t{63}})
    for (const char other : {'g', 'G', '/', ':', '@', '`', ' '}) {
      std::string text = digest;
      text[place] = other;
      EXPECT_FALSE(isDigest(text)) << text;
    }
}

}  // namespace
}  // namespace korrin
