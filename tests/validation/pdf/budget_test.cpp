// Each limit of pdf_budget.h is met by one document that just stays below it and one that just goes
// beyond.

#include <string>

#include <gtest/gtest.h>

#include "korrin/validation/pdf/pdf_budget.h"
#include "korrin/validation/pdf/read_within.h"
#include "korrin/validation/pdf/recovery.h"
#include "korrin/validation/pdf/value.h"

#include "tests/support/effort.h"
#include "tests/support/files.h"
#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;
namespace limits = pdf::limits;
namespace price = pdf::price;
using pdf::Budget;

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
  EXPECT_EQ(limits::stepsPerInputByte, 5u);
  EXPECT_EQ(limits::stepsBase, 64 * mebibyte);
  EXPECT_EQ(limits::inflatedStream, 8 * mebibyte);
  EXPECT_EQ(limits::keptContainers, 64u);
  EXPECT_EQ(limits::keptContainerBytes, 2 * mebibyte);
  EXPECT_EQ(limits::lookUps, 4096u);
  EXPECT_EQ(limits::treeNodes, 10'000u);
  EXPECT_EQ(limits::treeDepth, 64u);
  EXPECT_EQ(limits::nesting, 64u);
  EXPECT_EQ(limits::referenceChain, 16u);
  EXPECT_EQ(limits::crossReferenceSections, 1024u);
  EXPECT_EQ(limits::crossReferenceBytes, 12 * mebibyte);
  EXPECT_EQ(limits::filters, 4u);
  EXPECT_EQ(limits::recoveredObjects, 524'288u);
  EXPECT_EQ(limits::recoveredObjectStreams, 65'536u);
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

// Adds an object stream of `size` bytes that holds nothing but `object`.
void addLargeStream(PdfBuilder& pdf, std::uint32_t container, std::uint32_t number,
                    std::string_view object, std::size_t size, const std::string& entries = "") {
  std::string data = std::to_string(number) + " 0 ";
  const std::string first = std::to_string(data.size());
  data += object;
  data.resize(size, ' ');
  pdf.stream(container, "/Type/ObjStm/N 1/First " + first + "/Filter/FlateDecode" + entries,
             deflated(data))
      .pretendIn(number, container, 0);
}

// A page behind two nulls in two object streams, which are looked at in turns.
PdfPage pageBehindVisits(std::size_t visits, std::size_t size, const std::string& entries = "") {
  PdfBuilder pdf;
  addLargeStream(pdf, 20, 10, "[]", size, entries);
  addLargeStream(pdf, 21, 11, "[]", size, entries);
  std::string kids;
  for (std::size_t i = 0; i < visits; ++i) kids += i % 2 == 0 ? "10 0 R " : "11 0 R ";
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + kids + "3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .crossReferenceStream(9);
  return pageOf(pdf.file());
}

TEST(Budget, CountsAStreamAgainThatIsUnpackedAgain) {
  // Symbols add a little to the bytes.
  constexpr std::size_t streams = limits::stepsBase / limits::inflatedStream;
  EXPECT_EQ(pageBehindVisits(streams - 2, limits::inflatedStream), box(3, 3));
  EXPECT_EQ(pageBehindVisits(streams, limits::inflatedStream), unreadable);
}

TEST(Budget, KeepsSmallObjectStreamsUnpacked) {
  EXPECT_EQ(pageBehindVisits(1000, limits::keptContainerBytes - 1), box(3, 3));
  EXPECT_EQ(pageBehindVisits(1000, limits::keptContainerBytes + 1), unreadable);
}

TEST(Budget, KeepsSoManyObjectStreamsUnpacked) {
  // Of each stream so much is unpacked that all visits cannot be paid for.
  const auto pageBehind = [](std::uint32_t streams) {
    PdfBuilder pdf;
    std::string kids;
    constexpr std::size_t size = limits::keptContainerBytes / (limits::keptContainers + 2);
    for (std::uint32_t i = 0; i < streams; ++i) {
      addLargeStream(pdf, 200 + i, 100 + i, "[]", size);
      kids += std::to_string(100 + i) + " 0 R ";
    }
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[" + repeated(kids, 3900 / streams) + "3 0 R]>>")
        .object(3, "<</MediaBox[0 0 3 3]>>")
        .crossReferenceStream(9);
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageBehind(limits::keptContainers), box(3, 3));
  EXPECT_EQ(pageBehind(limits::keptContainers + 2), unreadable);
}

TEST(Budget, CountsTheBytesAndRowsOfAPredictor) {
  // Leaves rows of one byte as they are.
  const std::string narrow = "/DecodeParms<</Predictor 2/Columns 1>>";
  const std::string wide = "/DecodeParms<</Predictor 2/Columns 1/Colors 32>>";
  constexpr std::size_t size = limits::keptContainerBytes + 1;
  constexpr std::size_t ofBytes = size * (price::unpackedByte + price::predictedByte);
  constexpr std::size_t ofRows = size * price::predictedRow;
  constexpr std::size_t visits = limits::stepsBase / ofBytes;
  constexpr std::size_t visitsOfRows = limits::stepsBase / (ofBytes + ofRows);
  static_assert(visitsOfRows + 1 < visits - 1);
  EXPECT_EQ(pageBehindVisits(visits - 1, size), box(3, 3));
  EXPECT_EQ(pageBehindVisits(visitsOfRows, size, narrow), box(3, 3));
  EXPECT_EQ(pageBehindVisits(visitsOfRows + 1, size, narrow), unreadable);
}

struct LeftStream {
  const char* name;
  const char* objectThree;  // in one stream
  const char* objectFour;   // in another
};

class StreamThatIsGoneBackTo : public testing::TestWithParam<LeftStream> {};

TEST_P(StreamThatIsGoneBackTo, IsPaidForAgain) {
  // Two thirds of what there is are used up before the page, object 3, is looked for.
  const auto pageWith = [](std::size_t size) {
    PdfBuilder pdf;
    addLargeStream(pdf, 20, 10, "[]", limits::inflatedStream);
    addLargeStream(pdf, 21, 11, "[]", limits::inflatedStream);
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[" + repeated("10 0 R 11 0 R ", 2) + "10 0 R 3 0 R]>>");
    addLargeStream(pdf, 23, 3, GetParam().objectThree, size);
    addLargeStream(pdf, 24, 4, GetParam().objectFour, size);
    pdf.object(5, "<</MediaBox[0 0 3 3]>>").crossReferenceStream(9);
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageWith(limits::keptContainerBytes + 1), box(3, 3));
  // Two of these could be paid for, but not three.
  EXPECT_EQ(pageWith(limits::inflatedStream * 7 / 8), unreadable);
}

INSTANTIATE_TEST_SUITE_P(
    For, StreamThatIsGoneBackTo,
    testing::Values(LeftStream{"TheBox", "<</Kids 4 0 R/MediaBox[0 0 3 3]>>", "null"},
                    LeftStream{"AnInheritedBox", "<</Kids[4 0 R]/MediaBox[0 0 3 3]>>", "<<>>"},
                    LeftStream{"TheNextChild", "<</Kids[4 0 R 5 0 R]>>", "<</Kids[]>>"}),
    [](const auto& row) { return row.param.name; });

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
  constexpr std::size_t last = limits::crossReferenceBytes % limits::inflatedStream + 28;
  EXPECT_EQ(pageBehind(last), box(3, 3));
  EXPECT_EQ(pageBehind(last + 1), unreadable);
}

TEST(Budget, AllowsSoManyBytes) {
  // The same long comment is passed at each look-up of one object.
  constexpr std::size_t comment = limits::stepsBase / price::byte / 16;
  const auto pageWith = [](std::size_t times) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[" + repeated("4 0 R ", times) + "3 0 R]>>")
        .object(3, "<</MediaBox[0 0 3 3]>>")
        .object(4, "%" + std::string(comment, '.') + "\nnull")
        .table();
    return pageOf(pdf.file());
  };
  constexpr std::size_t times = 16 + limits::stepsPerInputByte;
  EXPECT_EQ(pageWith(times - 1), box(3, 3));
  EXPECT_EQ(pageWith(times), unreadable);
}

TEST(Budget, AllowsSoManyTokens) {
  // Strings of two tokens and two bytes stand in a list that is passed at each look-up.
  constexpr std::size_t strings = 100'000;
  constexpr std::size_t once = strings * 2 * (price::token + price::byte);
  constexpr std::size_t whole = limits::stepsBase + strings * 2 * limits::stepsPerInputByte;
  const auto pageWith = [](std::size_t times) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[" + repeated("4 0 R ", times) + "3 0 R]>>")
        .object(3, "<</MediaBox[0 0 3 3]>>")
        .object(4, "<</Unread[" + repeated("()", strings) + "]/Kids[]>>")
        .table();
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageWith(whole / once - 1), box(3, 3));
  EXPECT_EQ(pageWith(whole / once + 1), unreadable);
}

TEST(Budget, CountsNoTokensAmongTheNumbersThatArePassedOver) {
  // As many numbers as tokens would exceed what there is are passed at each look-up.
  constexpr std::size_t numbers = limits::stepsBase / price::token / 8;
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[" + repeated("4 0 R ", 16) + "3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .object(4, "<</Unread[" + repeated("7 ", numbers) + "]/Kids[]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(Budget, CountsEachSectionThatIsAsked) {
  // Sections that list nothing hide the one that matters, and are asked at each look-up before it.
  constexpr std::size_t sections = 1000;
  const auto pageBehind = [](std::size_t lookUps) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[" + repeated("7 0 R ", lookUps) + "3 0 R]>>")
        .object(3, "<</MediaBox[0 0 3 3]>>")
        .pretendFree(7)
        .crossReferenceStream(9);
    std::size_t previous = pdf.lastSection();
    for (std::size_t i = 0; i < sections; ++i) {
      const std::size_t section = pdf.offset();
      pdf.stream(100, "/Type/XRef/Root 1 0 R/W[1 1 1]/Prev " + std::to_string(previous), "\1");
      previous = section;
    }
    return pageOf(pdf.raw("startxref\n" + std::to_string(previous) + "\n%%EOF\n").file());
  };
  constexpr std::size_t lookUps = limits::stepsBase / sections / price::section;
  EXPECT_EQ(pageBehind(lookUps * 9 / 10), box(3, 3));
  EXPECT_EQ(pageBehind(lookUps * 11 / 10), unreadable);
}

TEST(Budget, CountsStepsExactly) {
  Budget budget(10);
  EXPECT_TRUE(budget.payForBytes(limits::stepsBase + 10 * limits::stepsPerInputByte));
  EXPECT_FALSE(budget.isExhausted());
  EXPECT_FALSE(budget.payForBytes(1));
  EXPECT_TRUE(budget.isExhausted());
}

struct Document {
  const char* name;
  std::string file;
};

class ShortBudget : public testing::TestWithParam<Document> {};

// Wherever the steps end, the reader comes to nothing rather than to something else.
TEST_P(ShortBudget, ReadsTheSamePageOrNone) {
  const std::string& file = GetParam().file;
  const PdfPage page = pageOf(file);
  ASSERT_EQ(page.outcome, PdfOutcome::box);
  const std::size_t stride = isSanitized ? 211 : 5;
  for (std::size_t steps = 0;; steps += stride) {
    Budget budget(0);
    budget.payFor(limits::stepsBase - steps, 1);
    const PdfPage read = pdf::readWithin(file, budget);
    if (!budget.isExhausted()) {
      EXPECT_EQ(read, page);
      return;
    }
    ASSERT_TRUE(read == unreadable || read == notAPdf) << steps << " steps: " << read;
  }
}

INSTANTIATE_TEST_SUITE_P(
    For, ShortBudget,
    testing::Values(
        Document{"AnEscapedKey", onePage("/Media#42ox[0 0 3 3]")},
        Document{"AHeaderThatIsMissing", "%\xE2\xE3" + onePage("/MediaBox[0 0 3 3]").substr(8)},
        Document{"AnObjectStream", onePageInObjectStream("/MediaBox[0 0 3 3]")},
        Document{"ACatalogueToRecover",
                 PdfBuilder()
                     .objectStream(4, {{1, "<</Type/Catalog/Pages 2 0 R>>"},
                                       {2, "<</Type/Pages/Kids[<</MediaBox[0 0 3 3]>>]>>"}})
                     .file()},
        Document{"AnEncryptedObjectStream",
                 contentOfSource("tests/validation/pdf/documents/rc4_40.pdf")}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Budget, CountsWhatALookUpAndATokenCost) {
  Budget budget(0);
  ASSERT_TRUE(budget.payFor(limits::stepsBase - price::lookUp - 2 * price::token, 1));
  EXPECT_TRUE(budget.payForLookUp());
  EXPECT_TRUE(budget.payForTokens(2));
  EXPECT_FALSE(budget.isExhausted());
  EXPECT_FALSE(budget.payFor(1, 1));
}

TEST(Budget, CountsAValueAndAKeyWithEscapes) {
  const auto isReadWith = [](std::size_t steps, std::string_view text) {
    Budget budget(0);
    budget.payFor(limits::stepsBase - steps, 1);
    pdf::Scanner scanner(text, budget, 0);
    readEntries(scanner, std::array<std::string_view, 1>{"A"});
    return !budget.isExhausted();
  };
  // Two brackets, a key, a value, and what follows the value.
  constexpr std::size_t plain = 4 * price::token + 8 * price::byte + price::value;
  EXPECT_TRUE(isReadWith(plain, "<</A/B>>"));
  EXPECT_FALSE(isReadWith(plain - 1, "<</A/B>>"));
  constexpr std::size_t escaped = plain + 2 * price::byte + price::value;
  EXPECT_TRUE(isReadWith(escaped, "<</#41/B>>"));
  EXPECT_FALSE(isReadWith(escaped - 1, "<</#41/B>>"));
}

TEST(Budget, CountsTheObjectsThatRecoverySorts) {
  const auto isScannedWith = [](std::size_t steps, std::string_view file) {
    Budget budget(0);
    budget.payFor(limits::stepsBase - steps, 1);
    pdf::RecoveredObjects(file, budget).scan();
    return !budget.isExhausted();
  };
  const std::string_view inOrder = "1 0 obj 2 0 obj 3 0 obj";
  const std::size_t bytes = inOrder.size() * price::recoveredByte;
  EXPECT_TRUE(isScannedWith(bytes, inOrder));
  EXPECT_FALSE(isScannedWith(bytes - 1, inOrder));
  const std::string_view inDisorder = "1 0 obj 3 0 obj 2 0 obj";
  EXPECT_TRUE(isScannedWith(bytes + 3 * price::sortedObject, inDisorder));
  EXPECT_FALSE(isScannedWith(bytes + 3 * price::sortedObject - 1, inDisorder));
}

TEST(Budget, PaysForNothingOnceItIsUsedUp) {
  Budget budget(10);
  EXPECT_FALSE(budget.payFor(limits::stepsBase + 1000, 1));
  EXPECT_FALSE(budget.payFor(1, 1));
  EXPECT_FALSE(budget.payForBytes(1));
  EXPECT_FALSE(budget.payForTokens(1));
  EXPECT_FALSE(budget.payForUnpacking(1, 1));
  EXPECT_FALSE(budget.payForKeeping(1));
  EXPECT_FALSE(budget.payForLookUp());
  EXPECT_FALSE(budget.payForTreeNode());
  EXPECT_FALSE(budget.payForCrossReferenceSection());
}

TEST(Budget, OfAnInputOfAnySizeDoesNotOverflow) {
  Budget budget(~std::uint64_t{0});
  EXPECT_TRUE(budget.payForBytes(std::uint64_t{1} << 62));
  Budget other(0);
  EXPECT_FALSE(other.payFor(~std::uint64_t{0} / 2, 3));
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
