#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/hostile_pdf_streams.h"
#include "tests/support/hostile_pdfs.h"
#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"
#include "tests/support/small_stack.h"

namespace korrin {
namespace {

using namespace test;

class Hostile : public testing::TestWithParam<HostilePdf> {};

TEST_P(Hostile, DocumentHasAnOutcome) {
  EXPECT_EQ(pageOf(GetParam().make(std::size_t{1} << 20)).outcome, GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(Stream, Hostile, testing::ValuesIn(hostilePdfStreams()),
                         [](const auto& row) { return std::string(row.param.name); });
INSTANTIATE_TEST_SUITE_P(Trick, Hostile, testing::ValuesIn(hostilePdfs()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(HostileDocument, HasTheSameOutcomeOnASmallStack) {
  for (const auto* list : {&hostilePdfs(), &hostilePdfStreams()})
    for (const HostilePdf& hostile : *list) {
      const std::string file = hostile.make(std::size_t{1} << 20);
      PdfPage page{};
      runOnStack(std::size_t{128} << 10, [&] { page = pageOf(file); });
      EXPECT_EQ(page.outcome, hostile.outcome) << hostile.name;
    }
}

// One small document of each construction.
std::vector<std::string> smallDocuments() {
  PdfBuilder hybrid;
  hybrid.object(1, "<</Pages 2 0 R>>").objectStream(4, {{3, "<</MediaBox[0 0 3 3]>>"}});
  hybrid.stream(5, "/Type/XRef/Size 6/W[1 4 2]/Index[3 1]",
                "\x02" + bigEndian(4, 4) + bigEndian(0, 2));
  const std::size_t hidden = hybrid.file().find("5 0 obj");
  hybrid.object(2, "<</Kids[3 0 R]>>")
      .pretendFree(3)
      .table("/Root 1 0 R/XRefStm " + std::to_string(hidden));

  PdfBuilder revised;
  revised.object(1, "<</Pages 2 0 R>>").object(2, "<</Kids[3 0 R]/MediaBox 4 0 R>>").table();
  revised.object(3, "<</Type/Page>>")
      .object(4, "[0 0 5 0 R 5 0 R]")
      .object(5, "3")
      .crossReferenceStream(6);
  return {onePage("/MediaBox[0 0 3 3]"), onePageInObjectStream("/MediaBox[0 0 3 3]"), hybrid.file(),
          revised.file()};
}

// Whatever was read, the result keeps to its description.
void expectAnOutcome(std::string_view file) {
  const PdfPage page = pageOf(file);
  if (page.outcome == PdfOutcome::box)
    EXPECT_FALSE(page.width < 0 || page.height < 0);
  else
    EXPECT_TRUE(page == notAPdf || page == locked || page == unreadable || page == noBox);
}

TEST(TruncatedDocument, HasAnOutcomeWhereverItEnds) {
  for (const std::string& file : smallDocuments()) {
    ASSERT_EQ(pageOf(file), box(3, 3));
    for (std::size_t size = 0; size < file.size(); ++size) {
      // A copy of exactly that size lets a read beyond the end show.
      const std::vector<char> prefix(file.begin(),
                                     file.begin() + static_cast<std::ptrdiff_t>(size));
      expectAnOutcome({prefix.data(), prefix.size()});
    }
  }
}

TEST(ChangedDocument, HasAnOutcomeForEveryByteAtItsStart) {
  for (std::string file : smallDocuments())
    for (std::size_t at = 0; at < 64; ++at) {
      const char original = file[at];
      for (int byte = 0; byte < 256; ++byte) {
        file[at] = static_cast<char>(byte);
        expectAnOutcome(file);
      }
      file[at] = original;
    }
}

TEST(ChangedDocument, HasAnOutcomeForTellingBytesEverywhere) {
  for (std::string file : smallDocuments())
    for (char& byte : file) {
      const char original = byte;
      for (const char other :
           {'\0', ' ', '<', '>', '[', ']', '(', '/', '%', '0', '9', '-', 'R', '\xFF'}) {
        byte = other;
        expectAnOutcome(file);
      }
      byte = original;
    }
}

}  // namespace
}  // namespace korrin
