#include "korrin/foundation/hidden_scalar.h"

#include <gtest/gtest.h>
#include <utf8proc.h>

namespace korrin {
namespace {

// Unassigned ones that a later Unicode may make format characters are hidden beforehand.
bool isReservedForFormats(char32_t scalar) {
  return scalar == 0x2065 || (scalar >= 0x13430 && scalar <= 0x1343F);
}

TEST(HiddenScalar, IsWhatUnicodeCallsControlFormatOrLineSeparatorButForTheJoiners) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (isReservedForFormats(scalar)) {
      EXPECT_TRUE(isHidden(scalar));
      continue;
    }
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(scalar));
    const bool isJoiner = scalar == 0x200C || scalar == 0x200D;
    const bool expected = category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_ZL ||
                          category == UTF8PROC_CATEGORY_ZP ||
                          (category == UTF8PROC_CATEGORY_CF && !isJoiner);
    ASSERT_EQ(isHidden(scalar), expected) << std::hex << static_cast<unsigned>(scalar);
  }
}

TEST(HiddenScalar, IsShownByItsNumberUnlessItHasAShortName) {
  EXPECT_EQ(escaped('\n'), "\\n");
  EXPECT_EQ(escaped('\r'), "\\r");
  EXPECT_EQ(escaped('\t'), "\\t");
  EXPECT_EQ(escaped(0x1B), "\\u{1B}");
  EXPECT_EQ(escaped(0x202E), "\\u{202E}");
  EXPECT_EQ(escaped(0xE007F), "\\u{E007F}");
}

}  // namespace
}  // namespace korrin
