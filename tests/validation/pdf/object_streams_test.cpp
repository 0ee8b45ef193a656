#include <string>

#include <gtest/gtest.h>

#include "korrin/validation/pdf/pdf_budget.h"

#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

constexpr std::string_view pairs = "3 0 ";
constexpr std::string_view page = "<</MediaBox[0 0 3 3]>>";

// A document whose page lies in the object stream with `entries` and `data`. Damage there cannot be
// repaired, since the page stands nowhere else.
PdfPage pageIn(std::string_view entries, std::string_view data) {
  PdfBuilder pdf = tree();
  pdf.stream(4, "/Type/ObjStm" + std::string(entries), data)
      .pretendIn(3, 4, 0)
      .object(20, "<</Predictor 12/Columns 4>>")
      .object(21, "/FlateDecode")
      .object(22, "1")
      .object(23, "4")
      .object(24, "24 0 R")
      .object(25, std::to_string(data.size()))
      .crossReferenceStream(9);
  return pageOf(pdf.file());
}

std::string pageData() { return std::string(pairs) + std::string(page); }

// Rows of `columns` bytes, each after its filter's number.
std::string pngRows(std::string_view data, std::size_t columns, char filter) {
  std::string rows;
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(data[i]); };
  for (std::size_t i = 0; i < data.size(); ++i) {
    const bool hasLeft = i % columns > 0;
    const bool hasUp = i >= columns;
    const int left = hasLeft ? at(i - 1) : 0;
    const int up = hasUp ? at(i - columns) : 0;
    const int upLeft = hasLeft && hasUp ? at(i - columns - 1) : 0;
    const int estimate = left + up - upLeft;
    int paeth = upLeft;
    if (std::abs(estimate - up) <= std::abs(estimate - upLeft)) paeth = up;
    if (std::abs(estimate - left) <= std::abs(estimate - up) &&
        std::abs(estimate - left) <= std::abs(estimate - upLeft))
      paeth = left;
    const int predicted[] = {0, left, up, (left + up) / 2, paeth};
    if (!hasLeft) rows += filter;
    rows += static_cast<char>(at(i) - predicted[static_cast<int>(filter)]);
  }
  return rows;
}

TEST(ObjectStream, MayBePlain) { EXPECT_EQ(pageIn("/N 1/First 4", pageData()), box(3, 3)); }

TEST(ObjectStream, MayBeTheFirstObject) {
  PdfBuilder pdf;
  pdf.objectStream(1, {{2, "<</Kids[3 0 R]>>"}, {3, "<</MediaBox[0 0 3 3]>>"}})
      .object(4, "<</Pages 2 0 R>>")
      .crossReferenceStream(9, "/Root 4 0 R");
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(ObjectStream, MayBeDeflatedOnceOrTwice) {
  EXPECT_EQ(pageIn("/N 1/First 4/Filter/FlateDecode", deflated(pageData())), box(3, 3));
  EXPECT_EQ(pageIn("/N 1/First 4/Filter[/FlateDecode]", deflated(pageData())), box(3, 3));
  EXPECT_EQ(pageIn("/N 1/First 4/Filter[/FlateDecode/FlateDecode]", deflated(deflated(pageData()))),
            box(3, 3));
}

TEST(ObjectStream, MayBeDeflatedAsOftenAsThereAreFilters) {
  std::string data = pageData();
  std::string filters;
  for (std::size_t i = 0; i < pdf::limits::filters; ++i) {
    data = deflated(data);
    filters += "/FlateDecode";
  }
  EXPECT_EQ(pageIn("/N 1/First 4/Filter[" + filters + "]", data), box(3, 3));
  EXPECT_EQ(pageIn("/N 1/First 4/Filter[" + filters + "/FlateDecode]", deflated(data)), unreadable);
}

TEST(ObjectStream, MayNameItsFilterInShort) {
  EXPECT_EQ(pageIn("/N 1/First 4/Filter/Fl", deflated(pageData())), box(3, 3));
  EXPECT_EQ(pageIn("/N 1/First 4/Filter[/Fl/FlateDecode]", deflated(deflated(pageData()))),
            box(3, 3));
  EXPECT_EQ(pageIn("/N 1/First 4/Filter/Flat", deflated(pageData())), unreadable);
}

class PngFilter : public testing::TestWithParam<int> {};

TEST_P(PngFilter, IsUndone) {
  const auto filter = static_cast<char>(GetParam());
  for (const std::size_t columns : {1u, 4u, 7u, 1000u})
    EXPECT_EQ(pageIn("/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 15/Columns " +
                         std::to_string(columns) + ">>",
                     deflated(pngRows(pageData(), columns, filter))),
              box(3, 3))
        << columns;
}

INSTANTIATE_TEST_SUITE_P(None, PngFilter, testing::Values(0));
INSTANTIATE_TEST_SUITE_P(Sub, PngFilter, testing::Values(1));
INSTANTIATE_TEST_SUITE_P(Up, PngFilter, testing::Values(2));
INSTANTIATE_TEST_SUITE_P(Average, PngFilter, testing::Values(3));
INSTANTIATE_TEST_SUITE_P(Paeth, PngFilter, testing::Values(4));

TEST(ObjectStream, MayHaveAPaethByteAsFarFromTheOneAboveAsFromTheOneBesideThat) {
  // In rows of two bytes the string's end stands under A, with D to its left and C above that.
  const std::string data = std::string(pairs) + "<</AB(CAD)/MediaBox[0 0 3 3]>>";
  EXPECT_EQ(pageIn("/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 15/Columns 2>>",
                   deflated(pngRows(data, 2, 4))),
            box(3, 3));
}

TEST(ObjectStream, MayHaveTheTiffPredictor) {
  const std::string data = pageData();
  std::string differences;
  for (std::size_t i = 0; i < data.size(); ++i)
    differences += static_cast<char>(data[i] - (i % 8 >= 2 ? data[i - 2] : 0));
  EXPECT_EQ(pageIn("/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 2/Colors 2/Columns 4>>",
                   deflated(differences)),
            box(3, 3));
}

struct Samples {
  const char* name;
  const char* parameters;
  std::size_t rowSize;  // in bytes
  PdfPage expected;
};

class PredictorSamples : public testing::TestWithParam<Samples> {};

TEST_P(PredictorSamples, AreUndoneWithinTheirLimits) {
  const Samples& samples = GetParam();
  EXPECT_EQ(pageIn("/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 12" +
                       std::string(samples.parameters) + ">>",
                   deflated(pngRows(pageData(), samples.rowSize, 2))),
            samples.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, PredictorSamples,
    testing::Values(Samples{"OfOneBit", "/BitsPerComponent 1/Columns 32", 4, box(3, 3)},
                    Samples{"OfSixteenBits", "/BitsPerComponent 16/Columns 2", 4, box(3, 3)},
                    Samples{"OfMoreBits", "/BitsPerComponent 17/Columns 8", 17, unreadable},
                    Samples{"OfThirtyTwoColors", "/Colors 32", 32, box(3, 3)},
                    Samples{"OfMoreColors", "/Colors 33", 33, unreadable},
                    Samples{"WithAPredictorBelowPng", "/Columns 4/Predictor 9", 4, unreadable},
                    Samples{"WithAPredictorAbovePng", "/Columns 4/Predictor 16", 4, unreadable},
                    Samples{"OfMoreBitsThanSomeMachinesCount",
                            "/Colors 32/BitsPerComponent 16/Columns 8388608", 1, unreadable},
                    Samples{"InAPartOfAByte", "/BitsPerComponent 1/Columns 9", 2, box(3, 3)}),
    [](const auto& row) { return row.param.name; });

TEST(ObjectStream, MayHaveItsEntriesInOrdinaryObjects) {
  EXPECT_EQ(pageIn("/N 22 0 R/First 23 0 R/Length 25 0 R/Filter 21 0 R/DecodeParms 20 0 R",
                   deflated(pngRows(pageData(), 4, 2))),
            box(3, 3));
  EXPECT_EQ(pageIn("/N 22 0 R/First 23 0 R/Filter[21 0 R]/DecodeParms[20 0 R]",
                   deflated(pngRows(pageData(), 4, 2))),
            box(3, 3));
}

struct Entries {
  const char* name;
  const char* entries;
};

class UnusableObjectStream : public testing::TestWithParam<Entries> {};

TEST_P(UnusableObjectStream, HoldsNoPage) {
  EXPECT_EQ(pageIn(GetParam().entries, deflated(pageData())), unreadable);
}

INSTANTIATE_TEST_SUITE_P(
    Entries, UnusableObjectStream,
    testing::Values(
        Entries{"UnknownFilter", "/N 1/First 4/Filter/LZWDecode"},
        Entries{"FilterThatIsNoName", "/N 1/First 4/Filter 7"}, Entries{"NoFilter", "/N 1/First 4"},
        Entries{"NoCount", "/First 4/Filter/FlateDecode"},
        Entries{"NoFirst", "/N 1/Filter/FlateDecode"},
        Entries{"FirstBeyondTheData", "/N 1/First 4000/Filter/FlateDecode"},
        Entries{"NegativeFirst", "/N 1/First -4/Filter/FlateDecode"},
        Entries{"CountThatRefersToItself", "/N 24 0 R/First 4/Filter/FlateDecode"},
        Entries{"UnknownPredictor", "/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 3>>"},
        Entries{"PredictorThatIsNone",
                "/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor/Up>>"},
        Entries{"NoColumns",
                "/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 12/Columns 0>>"},
        Entries{"HugeColumns",
                "/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 12/Columns "
                "9900000000000000000>>"},
        Entries{"HugeColors",
                "/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 12/Colors "
                "536870913>>"},
        Entries{"LongRows",
                "/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 12/Colors "
                "32/BitsPerComponent 16/Columns 8388608>>"}),
    [](const auto& row) { return row.param.name; });

TEST(ObjectStream, IsFoundWhateverItsLengthSays) {
  for (const char* length : {"0", "1", "99999999", "-1", "(7)", "99 0 R", "24 0 R", "20 0 R"})
    EXPECT_EQ(pageIn("/N 1/First 4/Filter/FlateDecode/Length " + std::string(length) + " ",
                     deflated(pageData())),
              box(3, 3))
        << length;
}

TEST(ObjectStream, MayLackItsEnd) {
  PdfBuilder pdf = tree();
  pdf.raw("trailer<</Root 1 0 R>>\n")
      .raw("4 0 obj<</Type/ObjStm/N 1/First 4/Filter/FlateDecode>>stream\n" + deflated(pageData()));
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(ObjectStream, GivesWhatComesBeforeDamage) {
  std::string data = pageData() + std::string(60'000, ' ');
  for (std::size_t i = pageData().size(); i < data.size(); ++i)
    data[i] = static_cast<char>(i * i >> 3);
  std::string damaged = deflated(data);
  damaged.resize(damaged.size() / 2);
  EXPECT_EQ(pageIn("/N 1/First 4/Filter/FlateDecode", damaged), box(3, 3));
}

TEST(ObjectStream, IsSearchedForTheObjectWhenItsIndexIsWrong) {
  PdfBuilder pdf = tree();
  pdf.objectStream(4, {{7, "<<>>"}, {3, "<</MediaBox[0 0 3 3]>>"}})
      .pretendIn(3, 4, 0)
      .crossReferenceStream(9);
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(ObjectStream, PrefersTheIndexAmongObjectsOfOneNumber) {
  PdfBuilder pdf = tree();
  pdf.objectStream(4, {{3, "<</MediaBox[0 0 3 3]>>"}, {3, "<</MediaBox[0 0 4 4]>>"}})
      .pretendIn(3, 4, 0)
      .crossReferenceStream(9);
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(ObjectStream, MustBeAnOrdinaryObject) {
  // The inner stream would be readable, were it not itself in an object stream.
  PdfBuilder pdf = tree();
  pdf.objectStream(4, {{5,
                        "<</Type/ObjStm/N 1/First 4/Length 26>>stream\n3 0 <</MediaBox[0 0 3 3]>>"
                        "\nendstream"}})
      .pretendIn(3, 5, 0)
      .crossReferenceStream(9);
  EXPECT_EQ(pageOf(pdf.file()), unreadable);
}

TEST(ObjectStream, MayNotHaveTheNumberOfTheFreeList) {
  PdfBuilder pdf = tree();
  pdf.stream(0, "/Type/ObjStm/N 1/First 4", pageData()).pretendIn(3, 0, 0).crossReferenceStream(9);
  EXPECT_EQ(pageOf(pdf.file()), unreadable);
}

TEST(ObjectStream, MayNotContainItself) {
  PdfBuilder pdf = tree();
  pdf.pretendIn(4, 4, 0).pretendIn(3, 4, 0);
  pdf.crossReferenceStream(9);
  EXPECT_EQ(pageOf(pdf.file()), unreadable);
}

TEST(ObjectStream, EndsBeforeItsEndMarkWhateverFollows) {
  // The page's dictionary is not closed, and would go on behind the end.
  for (const char* length : {"", "/Length 0", "/Length 24"}) {
    PdfBuilder pdf = tree();
    pdf.pretendAt(4, pdf.offset())
        .raw("4 0 obj<</Type/ObjStm/N 1/First 4" + std::string(length) +
             ">>stream\n3 0 <</MediaBox[0 0 3 3]\nendstream/MediaBox[0 0 9 9]>>endobj\n")
        .pretendIn(3, 4, 0)
        .crossReferenceStream(9);
    EXPECT_EQ(pageOf(pdf.file()), box(3, 3)) << length;
  }
}

TEST(ObjectStream, EndsWhereItsLengthSaysWhenItsEndFollowsWithinSixteenBlanks) {
  // Cut off at the mark inside the string the page would have no box.
  const std::string_view data = "3 0 <</A(endstream)/MediaBox[0 0 3 3]>>";
  for (const std::size_t blanks : {0u, 1u, 15u, 16u, 17u}) {
    PdfBuilder pdf = tree();
    pdf.pretendAt(4, pdf.offset())
        .raw("4 0 obj<</Type/ObjStm/N 1/First 4/Length " + std::to_string(data.size()) +
             ">>stream\n" + std::string(data) + std::string(blanks, ' ') + "endstream endobj\n")
        .pretendIn(3, 4, 0)
        .crossReferenceStream(9);
    EXPECT_EQ(pageOf(pdf.file()), blanks <= 16 ? box(3, 3) : noBox) << blanks;
  }
}

}  // namespace
}  // namespace korrin
