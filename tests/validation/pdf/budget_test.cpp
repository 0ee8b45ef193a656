// Each limit of pdf_budget.h is met by one document that just stays below it and one that just goes
// beyond.

#include <string>

#include <gtest/gtest.h>

#include "korrin/validation/pdf/pdf_budget.h"

#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;
namespace limits = pdf::limits;

std::string repeated(std::string_view text, std::size_t times) {
  std::string result;
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

// One page in an object stream whose data is as long as `size`.
PdfPage pageInStreamOf(std::size_t size, const std::string& filters, bool twice) {
  const std::string head = "3 0 <</MediaBox[0 0 3 3]>>";
  std::string data = deflated(head + std::string(size - head.size(), ' '));
  if (twice) data = deflated(data);
  PdfBuilder pdf = tree();
  pdf.stream(4, "/Type/ObjStm/N 1/First 4/Filter[" + filters + "]", data)
      .pretendIn(3, 4, 0)
      .crossReferenceStream(9);
  return pageOf(pdf.file());
}

TEST(Budget, IsThePromisedOne) {
  constexpr std::size_t mebibyte = 1'048'576;
  EXPECT_EQ(limits::headerWindow, 1024u);
  EXPECT_EQ(limits::inflatedStream, 8 * mebibyte);
  EXPECT_EQ(limits::inflatedInAll, 64 * mebibyte);
  EXPECT_EQ(limits::scannedPerInputByte, 8u);
  EXPECT_EQ(limits::scannedBase, mebibyte);
  EXPECT_EQ(limits::inputBytesPerToken, 2u);
  EXPECT_EQ(limits::tokensBase, mebibyte);
  EXPECT_EQ(limits::lookUps, 4096u);
  EXPECT_EQ(limits::treeNodes, 10'000u);
  EXPECT_EQ(limits::treeDepth, 64u);
  EXPECT_EQ(limits::nesting, 64u);
  EXPECT_EQ(limits::referenceChain, 16u);
  EXPECT_EQ(limits::crossReferenceSections, 1024u);
  EXPECT_EQ(limits::crossReferenceBytes, 16 * mebibyte);
  EXPECT_EQ(limits::filters, 4u);
  EXPECT_EQ(limits::recoveredObjects, 524'288u);
  EXPECT_EQ(limits::recoveredTrailers, 64u);
}

TEST(Budget, AllowsAStreamOfTheLargestSize) {
  EXPECT_EQ(pageInStreamOf(limits::inflatedStream, "/FlateDecode", false), box(3, 3));
  EXPECT_EQ(pageInStreamOf(limits::inflatedStream + 1, "/FlateDecode", false), unreadable);
}

TEST(Budget, AllowsAStreamOfTheLargestSizeDeflatedTwice) {
  EXPECT_EQ(pageInStreamOf(limits::inflatedStream, "/FlateDecode/FlateDecode", true), box(3, 3));
  EXPECT_EQ(pageInStreamOf(limits::inflatedStream + 1, "/FlateDecode/FlateDecode", true),
            unreadable);
}

// Nulls in object streams of the largest size, all but the last, stand before the page.
PdfPage pageBehindStreams(std::size_t streams, std::size_t lastSize, const std::string& entries) {
  PdfBuilder pdf;
  std::string kids;
  for (std::size_t i = 0; i < streams; ++i) {
    const auto number = static_cast<std::uint32_t>(1000 + i);
    std::string data = std::to_string(number) + " 0 null";
    data.resize(i + 1 == streams ? lastSize : limits::inflatedStream, ' ');
    pdf.stream(number + 1000, "/Type/ObjStm/N 1/First 7/Filter/FlateDecode" + entries,
               deflated(data));
    pdf.pretendIn(number, number + 1000, 0);
    kids += std::to_string(number) + " 0 R ";
  }
  pdf.object(1, "<</Pages 2 0 R>>").object(2, "<</Kids[" + kids + "3 0 R]>>");
  pdf.object(3, "<</MediaBox[0 0 3 3]>>").crossReferenceStream(9);
  return pageOf(pdf.file());
}

// The rows of the cross-reference stream, which count as well.
std::size_t rowsOfStreams(std::size_t streams) { return 7 * (2 * streams + 4); }

TEST(Budget, AllowsSoMuchDataInAllStreams) {
  const std::size_t streams = limits::inflatedInAll / limits::inflatedStream;
  const std::size_t lastSize = limits::inflatedStream - rowsOfStreams(streams);
  EXPECT_EQ(pageBehindStreams(streams, lastSize, ""), box(3, 3));
  EXPECT_EQ(pageBehindStreams(streams, lastSize + 1, ""), unreadable);
}

TEST(Budget, CountsDataOnceMoreForAPredictor) {
  const std::size_t streams = limits::inflatedInAll / limits::inflatedStream / 2;
  const std::size_t lastSize = limits::inflatedStream - rowsOfStreams(streams) / 2;
  // Leaves rows of one byte as they are.
  const std::string predictor = "/DecodeParms<</Predictor 2/Columns 1>>";
  EXPECT_EQ(pageBehindStreams(streams, lastSize, predictor), box(3, 3));
  EXPECT_EQ(pageBehindStreams(streams, lastSize + 1, predictor), unreadable);
}

// Adds an object stream of `size` bytes that holds nothing but `object`.
void addLargeStream(PdfBuilder& pdf, std::uint32_t container, std::uint32_t number,
                    std::string_view object, std::size_t size) {
  std::string data = std::to_string(number) + " 0 ";
  const std::string first = std::to_string(data.size());
  data += object;
  data.resize(size, ' ');
  pdf.stream(container, "/Type/ObjStm/N 1/First " + first + "/Filter/FlateDecode", deflated(data))
      .pretendIn(number, container, 0);
}

// The tree whose page, object 3, is looked for once streams have held all but an eighth of what
// they may.
PdfBuilder behindMuchData() {
  PdfBuilder pdf;
  addLargeStream(pdf, 20, 10, "null", limits::inflatedStream);
  addLargeStream(pdf, 21, 11, "null", limits::inflatedStream);
  // One stream is held at a time: each of these unpacks one again.
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + repeated("10 0 R 11 0 R ", 3) + "10 0 R 3 0 R]>>");
  return pdf;
}

struct LeftStream {
  const char* name;
  const char* objectThree;  // in one stream
  const char* objectFour;   // in another
};

class StreamThatIsGoneBackTo : public testing::TestWithParam<LeftStream> {};

TEST_P(StreamThatIsGoneBackTo, IsPaidForAgain) {
  const auto pageWith = [](std::size_t size) {
    PdfBuilder pdf = behindMuchData();
    addLargeStream(pdf, 23, 3, GetParam().objectThree, size);
    addLargeStream(pdf, 24, 4, GetParam().objectFour, size);
    pdf.object(5, "<</MediaBox[0 0 3 3]>>").crossReferenceStream(9);
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageWith(limits::inflatedStream / 4), box(3, 3));
  EXPECT_EQ(pageWith(limits::inflatedStream * 3 / 8), unreadable);
}

INSTANTIATE_TEST_SUITE_P(
    For, StreamThatIsGoneBackTo,
    testing::Values(LeftStream{"TheBox", "<</Kids 4 0 R/MediaBox[0 0 3 3]>>", "null"},
                    LeftStream{"AnInheritedBox", "<</Kids[4 0 R]/MediaBox[0 0 3 3]>>", "<<>>"},
                    LeftStream{"TheNextChild", "<</Kids[4 0 R 5 0 R]>>", "<</Kids[]>>"}),
    [](const auto& row) { return row.param.name; });

TEST(Budget, CountsAPredictorLikeAnotherFilter) {
  const auto pageWith = [](std::size_t size) {
    PdfBuilder pdf = behindMuchData();
    // One row, behind the number of its filter.
    std::string data = std::string(1, '\0') + "3 0 <</MediaBox[0 0 3 3]>>";
    data.resize(1 + size, ' ');
    pdf.stream(23,
               "/Type/ObjStm/N 1/First 4/Filter/FlateDecode/DecodeParms<</Predictor 15/Columns " +
                   std::to_string(size) + ">>",
               deflated(data))
        .pretendIn(3, 23, 0)
        .crossReferenceStream(9);
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageWith(limits::inflatedStream * 3 / 8), box(3, 3));
  EXPECT_EQ(pageWith(limits::inflatedStream * 5 / 8), unreadable);
}

TEST(Budget, AllowsSoManyLookUps) {
  const auto pageBehind = [](std::size_t absent) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[" + repeated("7 0 R ", absent) + "3 0 R]>>")
        .object(3, "<</MediaBox[0 0 3 3]>>")
        .pretendFree(7)
        .table();
    return pageOf(pdf.file());
  };
  // The catalogue, the tree and the page are looked up as well.
  EXPECT_EQ(pageBehind(limits::lookUps - 3), box(3, 3));
  EXPECT_EQ(pageBehind(limits::lookUps - 2), unreadable);
}

TEST(Budget, AllowsSoManyTreeNodes) {
  const auto pageBehind = [](std::size_t nodes) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[" + repeated("<</Kids[]>>", nodes) + "3 0 R]>>")
        .object(3, "<</MediaBox[0 0 3 3]>>")
        .table();
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageBehind(limits::treeNodes - 2), box(3, 3));
  EXPECT_EQ(pageBehind(limits::treeNodes - 1), unreadable);
}

TEST(Budget, AllowsATreeOfSuchDepth) {
  const auto pageUnder = [](std::size_t levels) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>");
    for (std::uint32_t node = 2; node < levels + 1; ++node)
      pdf.object(node, "<</Kids[" + std::to_string(node + 1) + " 0 R]>>");
    pdf.object(static_cast<std::uint32_t>(levels + 1), "<</MediaBox[0 0 3 3]>>").table();
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageUnder(limits::treeDepth), box(3, 3));
  EXPECT_EQ(pageUnder(limits::treeDepth + 1), unreadable);
}

TEST(Budget, AllowsSuchNesting) {
  const auto pageWith = [](std::size_t arrays) {
    return pageOf(
        onePage("/Nested" + repeated("[", arrays) + repeated("]", arrays) + "/MediaBox[0 0 3 3]"));
  };
  // The arrays nest in the value that they are.
  EXPECT_EQ(pageWith(limits::nesting), box(3, 3));
  EXPECT_EQ(pageWith(limits::nesting + 1), unreadable);
}

TEST(Budget, AllowsAChainOfSoManyReferences) {
  const auto pageBehind = [](std::size_t references) {
    PdfBuilder pdf = tree();
    pdf.object(3, "<</MediaBox 10 0 R>>");
    for (std::uint32_t i = 0; i + 1 < references; ++i)
      pdf.object(10 + i, std::to_string(11 + i) + " 0 R");
    pdf.object(static_cast<std::uint32_t>(9 + references), "[0 0 3 3]").table();
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageBehind(limits::referenceChain), box(3, 3));
  EXPECT_EQ(pageBehind(limits::referenceChain + 1), unreadable);
}

TEST(Budget, AllowsSoManyCrossReferenceSections) {
  const auto pageBehind = [](std::size_t sections) {
    PdfBuilder pdf = wholeTree();
    for (std::size_t i = 0; i < sections; ++i) pdf.table();
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageBehind(limits::crossReferenceSections), box(3, 3));
  EXPECT_EQ(pageBehind(limits::crossReferenceSections + 1), unreadable);
}

TEST(Budget, AllowsSoMuchCrossReferenceData) {
  // Sections of one row each, filled up with rows beyond the ones that are listed.
  const std::size_t whole = limits::crossReferenceBytes / limits::inflatedStream;
  const auto pageBehind = [&](std::size_t lastSize) {
    PdfBuilder pdf = wholeTree();
    std::size_t previous = 0;
    for (std::size_t i = 0; i <= whole; ++i) {
      std::string rows(i == whole ? lastSize
                       : i == 0   ? limits::inflatedStream - 28
                                  : limits::inflatedStream,
                       '\0');
      std::string entries = "/Type/XRef/W[1 4 2]/Filter/FlateDecode/Root 1 0 R/Size 4";
      if (i == 0) {
        rows.replace(0, 28, 28, '\0');
        for (const char* header : {"1 0 obj", "2 0 obj", "3 0 obj"})
          rows.replace(static_cast<std::size_t>(7 * (header[0] - '0')), 7,
                       "\x01" + bigEndian(pdf.file().find(header), 4) + bigEndian(0, 2));
      } else {
        entries += "/Index[9 1]/Prev " + std::to_string(previous);
      }
      previous = pdf.offset();
      pdf.stream(static_cast<std::uint32_t>(10 + i), entries, deflated(rows));
    }
    pdf.raw("startxref\n" + std::to_string(previous) + "\n%%EOF\n");
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageBehind(28), box(3, 3));
  EXPECT_EQ(pageBehind(29), unreadable);
}

TEST(Budget, AllowsSoManyScannedBytes) {
  // The same long comment is passed at each look-up of one object.
  const auto pageWith = [](std::size_t comment, std::size_t times) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[" + repeated("4 0 R ", times) + "3 0 R]>>")
        .object(3, "<</MediaBox[0 0 3 3]>>")
        .object(4, "%" + std::string(comment, '.') + "\nnull")
        .table();
    return pageOf(pdf.file());
  };
  const std::size_t comment = limits::scannedBase;
  // Nine times the input: eight are free, and the fixed part makes up for the ninth.
  EXPECT_EQ(pageWith(comment, limits::scannedPerInputByte), box(3, 3));
  EXPECT_EQ(pageWith(comment, limits::scannedPerInputByte + 2), unreadable);
}

TEST(Budget, CountsScannedBytesExactly) {
  pdf::Budget budget(10);
  EXPECT_TRUE(budget.scan(limits::scannedBase + 10 * limits::scannedPerInputByte));
  EXPECT_FALSE(budget.isExhausted());
  EXPECT_FALSE(budget.scan(1));
  EXPECT_TRUE(budget.isExhausted());
}

TEST(Budget, CountsTokensExactly) {
  pdf::Budget budget(10 * limits::inputBytesPerToken);
  EXPECT_TRUE(budget.takeTokens(limits::tokensBase + 10));
  EXPECT_FALSE(budget.isExhausted());
  EXPECT_FALSE(budget.takeTokens(1));
  EXPECT_TRUE(budget.isExhausted());
}

TEST(Budget, AllowsSoManyTokens) {
  // A number among the children is looked at twice, for what it is and for a reference; it takes
  // two bytes, which allow for one token.
  const auto pageBehind = [](std::size_t numbers) {
    return pageOf(PdfBuilder()
                      .object(1, "<</Pages 2 0 R>>")
                      .object(2, "<</Kids[" + repeated("7 ", numbers) + "3 0 R]>>")
                      .object(3, "<</MediaBox[0 0 3 3]>>")
                      .table()
                      .file());
  };
  EXPECT_EQ(pageBehind(limits::tokensBase - 100), box(3, 3));
  EXPECT_EQ(pageBehind(limits::tokensBase + 1000), unreadable);
}

TEST(Budget, CountsNoTokensAmongTheNumbersThatArePassedOver) {
  // Half a million numbers are passed at each of eight look-ups; all would be more than there may
  // be.
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + repeated("4 0 R ", 8) + "3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .object(4, "<</Unread[" + repeated("7 ", limits::tokensBase / 2) + "]/Kids[]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(Budget, PaysForNothingOnceItIsUsedUp) {
  pdf::Budget budget(10);
  EXPECT_FALSE(budget.inflate(limits::inflatedInAll + 1));
  EXPECT_FALSE(budget.scan(1));
  EXPECT_FALSE(budget.takeTokens(1));
  EXPECT_FALSE(budget.keepCrossReferences(1));
  EXPECT_FALSE(budget.lookUp());
  EXPECT_FALSE(budget.treeNode());
  EXPECT_FALSE(budget.crossReferenceSection());
}

TEST(Budget, OfAnInputOfAnySizeDoesNotOverflow) {
  pdf::Budget budget(static_cast<std::size_t>(-1));
  EXPECT_TRUE(budget.scan(std::size_t{1} << 62));
}

TEST(Budget, AllowsSoManyRecoveredObjects) {
  const auto pageAmong = [](std::size_t objects) {
    PdfBuilder pdf = wholeTree();
    pdf.raw(repeated("9 0 obj\n", objects - 3)).raw("trailer<</Root 1 0 R>>");
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageAmong(limits::recoveredObjects), box(3, 3));
  EXPECT_EQ(pageAmong(limits::recoveredObjects + 1), unreadable);
}

TEST(Budget, TriesSoManyRecoveredTrailers) {
  const auto pageBefore = [](std::size_t trailers) {
    PdfBuilder pdf = wholeTree();
    pdf.raw("trailer<</Root 1 0 R>>\n").raw(repeated("trailer<<>>\n", trailers));
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageBefore(limits::recoveredTrailers - 1), box(3, 3));
  EXPECT_EQ(pageBefore(limits::recoveredTrailers), unreadable);
}

}  // namespace
}  // namespace korrin
