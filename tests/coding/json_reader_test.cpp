#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "korrin/coding/json.h"
#include "korrin/model/plot_items.h"

namespace korrin {
namespace {

// The parts one after the other, with white space behind those whose bit is set.
template <std::size_t count>
std::string spaced(const std::array<std::string_view, count>& parts, unsigned spacedParts) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += parts[i];
    if ((spacedParts >> i & 1) != 0) text += i % 2 == 0 ? " " : "\r\n\t";
  }
  return text;
}

TEST(Members, AreReadWhereverWhiteSpaceStandsBetweenThem) {
  const std::array<std::string_view, 13> parts = {
      "{", "\"tintHex\"",    ":", "\"#336699\"", ",", "\"labelVisible\"", ":", "true",
      ",", "\"labelScale\"", ":", "1.25",        "}"};
  const PlotItemStyle style{.tintHex = "#336699", .labelVisible = true, .labelScale = 1.25};
  for (unsigned spacedParts = 0; spacedParts < 1u << parts.size(); ++spacedParts) {
    const std::string text = spaced(parts, spacedParts);
    EXPECT_EQ(decodeJSON<PlotItemStyle>(text), style) << text;
  }
}

TEST(Members, AreReadWhereOthersAreLeftOutUnknownOrInAnotherOrder) {
  const PlotItemStyle style{.tintHex = std::nullopt, .labelVisible = true, .labelScale = 1.25};
  for (const std::string_view text :
       {R"({"labelVisible":true,"labelScale":1.25})", R"({"labelScale":1.25,"labelVisible":true})",
        R"({"labelVisible":true,"other":{},"labelScale":1.25,"another":[]})",
        R"({"tintHex":null,"labelScale":1.25,"labelVisible":true})",
        R"({"labelVisible":true,"labelScal":1,"labelScale":1.25,"labelScales":1})"})
    EXPECT_EQ(decodeJSON<PlotItemStyle>(text), style) << text;
}

TEST(Members, AreRefusedWithoutTheirPunctuation) {
  for (const std::string_view text :
       {R"({"labelVisible":true"labelScale":1.25})", R"({"labelVisible":true,,"labelScale":1.25})",
        R"({,"labelVisible":true,"labelScale":1.25})",
        R"({"labelVisible":true,"labelScale":1.25,})", R"({"labelVisible":true,"labelScale"1.25})",
        R"({"labelVisible":true,"labelScale":})", R"({"labelVisible":true,"labelScale":1.25)",
        R"({"labelVisible":true,"labelScale":)", R"({"labelVisible":true,"labelScale)"})
    EXPECT_THROW(decodeJSON<PlotItemStyle>(text), DecodingError) << text;
}

}  // namespace
}  // namespace korrin
