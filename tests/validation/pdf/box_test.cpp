#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

constexpr double infinity = std::numeric_limits<double>::infinity();

struct BoxCase {
  const char* name;
  const char* entries;
  PdfPage expected;
};

class MediaBox : public testing::TestWithParam<BoxCase> {};

TEST_P(MediaBox, IsReadFromAPage) {
  EXPECT_EQ(pageOf(onePage(GetParam().entries)), GetParam().expected);
}

TEST_P(MediaBox, IsReadFromAPageInAnObjectStream) {
  EXPECT_EQ(pageOf(onePageInObjectStream(GetParam().entries)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, MediaBox,
    testing::Values(
        BoxCase{"Plain", "/MediaBox[0 0 595 842]", box(595, 842)},
        BoxCase{"Fractions", "/MediaBox[0 0 595.25 841.5]", box(595.25, 841.5)},
        BoxCase{"AnyOrigin", "/MediaBox[-10 -20 90 80]", box(100, 100)},
        BoxCase{"UpperLeftFirst", "/MediaBox[0 842 595 0]", box(595, 842)},
        BoxCase{"UpperRightFirst", "/MediaBox[595 842 0 0]", box(595, 842)},
        BoxCase{"Signs", "/MediaBox[+0 -0 +595. .5]", box(595, 0.5)},
        BoxCase{"Comments", "/MediaBox%here\n[0 0%there\r595 842]", box(595, 842)},
        BoxCase{"NameWithEscapes", "/Media#42ox[0 0 595 842]", box(595, 842)},
        BoxCase{"ZeroWidth", "/MediaBox[10 0 10 842]", box(0, 842)},
        BoxCase{"ZeroHeight", "/MediaBox[0 7 595 7]", box(595, 0)},
        BoxCase{"Limit", "/MediaBox[0 0 20000 20000]", box(20000, 20000)},
        BoxCase{"BeyondTheLimit", "/MediaBox[0 0 20001 1]", box(20001, 1)},
        BoxCase{"TwiceGivesTheLast", "/MediaBox[0 0 1 1]/MediaBox[0 0 2 2]", box(2, 2)},
        BoxCase{"UserUnitIsIgnored", "/UserUnit 100/MediaBox[0 0 595 842]", box(595, 842)},
        BoxCase{"RotateIsIgnored", "/Rotate 90/MediaBox[0 0 595 842]", box(595, 842)},
        BoxCase{"CropBoxIsIgnored", "/CropBox[0 0 1 1]/MediaBox[0 0 595 842]", box(595, 842)}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(Malformed, MediaBox,
                         testing::Values(BoxCase{"Missing", "/Rotate 0", noBox},
                                         BoxCase{"Null", "/MediaBox null", noBox},
                                         BoxCase{"Number", "/MediaBox 595", noBox},
                                         BoxCase{"Dictionary", "/MediaBox<</W 1/H 1>>", noBox},
                                         BoxCase{"Empty", "/MediaBox[]", noBox},
                                         BoxCase{"ThreeNumbers", "/MediaBox[0 0 595]", noBox},
                                         BoxCase{"FiveNumbers", "/MediaBox[0 0 595 842 1]", noBox},
                                         BoxCase{"AName", "/MediaBox[0 0/Wide 842]", noBox},
                                         BoxCase{"AString", "/MediaBox[0 0(595)842]", noBox},
                                         BoxCase{"ANull", "/MediaBox[0 0 null 842]", noBox},
                                         BoxCase{"AWord", "/MediaBox[0 0 59x5 842]", noBox},
                                         BoxCase{"AnExponent", "/MediaBox[0 0 1e3 842]", noBox},
                                         BoxCase{"TwoPoints", "/MediaBox[0 0 1.2.3 842]", noBox},
                                         BoxCase{"NotANumber", "/MediaBox[0 0 nan 842]", noBox},
                                         BoxCase{"Nested", "/MediaBox[[0 0 595 842]]", noBox},
                                         BoxCase{"MissingObject", "/MediaBox 99 0 R", noBox},
                                         BoxCase{"MissingNumber", "/MediaBox[0 0 99 0 R 842]",
                                                 noBox}),
                         [](const auto& row) { return row.param.name; });

TEST(MediaBox, OverflowsToInfinity) {
  const std::string huge(400, '9');
  EXPECT_EQ(pageOf(onePage("/MediaBox[0 0 " + huge + " 1]")), box(infinity, 1));
  EXPECT_EQ(pageOf(onePage("/MediaBox[0 -" + huge + " 1 0.5]")), box(1, infinity));
  EXPECT_EQ(pageOf(onePage("/MediaBox[0 0 " + huge + ".5 1]")), box(infinity, 1));
}

TEST(MediaBox, OverflowsToInfinityInTheDifferenceOfItsCorners) {
  const std::string large = "1" + std::string(308, '0');
  EXPECT_EQ(pageOf(onePage("/MediaBox[-" + large + " 0 " + large + " 1]")), box(infinity, 1));
}

TEST(MediaBox, IsNoNumberWhenInfinityIsTakenFromInfinity) {
  const std::string huge(400, '9');
  const PdfPage page = pageOf(onePage("/MediaBox[" + huge + " 0 " + huge + " 1]"));
  EXPECT_EQ(page.outcome, PdfOutcome::box);
  EXPECT_FALSE(std::isfinite(page.width));
}

TEST(MediaBox, TakesNumbersTooSmallToTellFromZeroForZero) {
  const std::string tiny = "0." + std::string(400, '0') + "1";
  EXPECT_EQ(pageOf(onePage("/MediaBox[0 0 " + tiny + " 1]")), box(0, 1));
}

TEST(MediaBox, MayBeAReferenceToNumbersAndReferences) {
  const std::string file = PdfBuilder()
                               .object(1, "<</Pages 2 0 R>>")
                               .object(2, "<</Kids[3 0 R]>>")
                               .object(3, "<</MediaBox 4 0 R>>")
                               .object(4, "[0 0 5 0 R 6 0 R]")
                               .object(5, "595")
                               .object(6, "842")
                               .table()
                               .file();
  EXPECT_EQ(pageOf(file), box(595, 842));
}

TEST(MediaBox, MayBeSpreadOverObjectStreams) {
  const std::string file =
      PdfBuilder()
          .objectStream(10, {{1, "<</Pages 2 0 R>>"}, {4, "[0 0 5 0 R 6 0 R]"}})
          .objectStream(11, {{2, "<</Kids[3 0 R]>>"}, {5, "595"}})
          .objectStream(12, {{3, "<</MediaBox 4 0 R>>"}, {6, "842"}})
          .crossReferenceStream(13)
          .file();
  EXPECT_EQ(pageOf(file), box(595, 842));
}

}  // namespace
}  // namespace korrin
