#include "korrin/model/plot_items.h"

#include <array>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/effort.h"
#include "tests/support/enumeration_laws.h"
#include "tests/support/full_project.h"
#include "tests/support/locales.h"
#include "tests/support/record_laws.h"

namespace korrin {
namespace {

const PlotItem item = test::fullProject().items[0];
const PlotItem sparseItem = test::sparseProject().items[0];

TEST(PlotItemKind, KeepsTheEnumerationLaws) {
  using enum PlotItemKind;
  test::expectEnumerationLaws<PlotItemKind>({{microphone, "microphone"},
                                             {monitor, "monitor"},
                                             {amplifier, "amplifier"},
                                             {instrument, "instrument"},
                                             {performer, "performer"},
                                             {riser, "riser"},
                                             {power, "power"},
                                             {furniture, "furniture"},
                                             {custom, "custom"}});
}

TEST(PlotItemStyle, KeepsTheRecordLaws) {
  test::expectRecordLaws(item.style);
  test::expectRecordLaws(sparseItem.style);
}

TEST(PlotItem, KeepsTheRecordLaws) {
  test::expectRecordLaws(item);
  test::expectRecordLaws(sparseItem);
}

TEST(PlotItem, DiffersByItsLabelScaleAlone) {
  PlotItem other = item;
  other.style.labelScale = 1.5;
  EXPECT_FALSE(other == item);
}

TEST(PlotLayer, KeepsTheRecordLaws) { test::expectRecordLaws(test::fullProject().layers[0]); }

TEST(PlotGroup, KeepsTheRecordLaws) {
  test::expectRecordLaws(test::fullProject().groups[0]);
  test::expectRecordLaws(PlotGroup{.id = {}, .name = {}, .itemIDs = {}});
}

TEST(PlotGroup, DiffersByTheOrderOfItsMembers) {
  const UUID a = test::numberedID(1);
  const UUID b = test::numberedID(2);
  const PlotGroup group{.id = {}, .name = "Rhythm", .itemIDs = {a, b}};
  PlotGroup other = group;
  other.itemIDs = {b, a};
  EXPECT_FALSE(other == group);
  EXPECT_NE(std::hash<PlotGroup>{}(other), std::hash<PlotGroup>{}(group));
}

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Legend {
  std::string name;
  PlotItemKind kind;
  std::optional<double> height;
  std::string label;
  std::string text;
};
void PrintTo(const Legend& row, std::ostream* out) { *out << row.text; }

class LegendText : public testing::TestWithParam<Legend> {};

TEST_P(LegendText, NamesTheItem) {
  PlotItem other = item;
  other.kind = GetParam().kind;
  other.riserHeightMillimeters = GetParam().height;
  other.label = GetParam().label;
  EXPECT_EQ(other.legendText().str(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , LegendText,
    testing::Values(
        Legend{"RiserWithLabel", PlotItemKind::riser, 600, "Drums", "Drums \u00B7 H 0.60 m"},
        Legend{"RiserWithoutLabel", PlotItemKind::riser, 400, "", "H 0.40 m"},
        Legend{"RiserOfMoreThanAMetre", PlotItemKind::riser, 1250, "", "H 1.25 m"},
        Legend{"HeightAsTheDoubleStands", PlotItemKind::riser, 1234.5, "", "H 1.23 m"},
        Legend{"HeightRoundedUp", PlotItemKind::riser, 1235.1, "", "H 1.24 m"},
        Legend{"TieToEven", PlotItemKind::riser, 125, "", "H 0.12 m"},
        Legend{"HeightTooSmallToShow", PlotItemKind::riser, 0.001, "Drums",
               "Drums \u00B7 H 0.00 m"},
        Legend{"LabelOfBlanks", PlotItemKind::riser, 600, " ", "  \u00B7 H 0.60 m"},
        Legend{"NoHeight", PlotItemKind::riser, std::nullopt, "Drums", "Drums"},
        Legend{"ZeroHeight", PlotItemKind::riser, 0, "Drums", "Drums"},
        Legend{"NegativeZeroHeight", PlotItemKind::riser, -0.0, "Drums", "Drums"},
        Legend{"NegativeHeight", PlotItemKind::riser, -200, "Drums", "Drums"},
        Legend{"InfiniteHeight", PlotItemKind::riser, infinity, "Drums", "Drums"},
        Legend{"NegativeInfiniteHeight", PlotItemKind::riser, -infinity, "Drums", "Drums"},
        Legend{"HeightThatIsNoNumber", PlotItemKind::riser,
               std::numeric_limits<double>::quiet_NaN(), "Drums", "Drums"},
        Legend{"NeitherHeightNorLabel", PlotItemKind::riser, std::nullopt, "", ""},
        Legend{"MicrophoneWithHeight", PlotItemKind::microphone, 500, "Vocals", "Vocals"},
        Legend{"CustomShapeWithHeight", PlotItemKind::custom, 500, "", ""}),
    [](const auto& row) { return row.param.name; });

TEST(RiserHeight, IsShownWithEveryDigit) {
  PlotItem highest = item;
  highest.label = "";
  highest.riserHeightMillimeters = std::numeric_limits<double>::max();
  const test::PlainNumbers plain;
  std::array<char, 400> expected;
  std::snprintf(expected.data(), expected.size(), "H %.2f m",
                std::numeric_limits<double>::max() / 1000);
  EXPECT_EQ(highest.legendText().str(), expected.data());
}

TEST(RiserHeight, IsRoundedAsPrintfDoes) {
  const test::PlainNumbers plain;
  PlotItem riser = item;
  riser.label = "";
  std::mt19937_64 random(12);
  for (int i = 0; i < test::repetitions(200'000, 20'000); ++i) {
    // Halves of a millimetre and tenths, where ties and near ties are.
    const double height = static_cast<double>(1 + random() % 100'000) / (i % 2 == 0 ? 2 : 10);
    riser.riserHeightMillimeters = height;
    std::array<char, 64> expected;
    std::snprintf(expected.data(), expected.size(), "H %.2f m", height / 1000);
    ASSERT_EQ(riser.legendText().str(), expected.data()) << height;
  }
}

}  // namespace
}  // namespace korrin
