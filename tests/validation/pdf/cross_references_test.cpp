#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

PdfBuilder firstRevision() {
  PdfBuilder pdf = wholeTree();
  pdf.table();
  return pdf;
}

// The same page twice, the second time where only an intact section can lead to it: a recovery
// would take the last definition.
PdfBuilder withDecoy() {
  PdfBuilder pdf = wholeTree();
  const std::size_t intended =
      pdf.offset() - std::string("3 0 obj\n<</MediaBox[0 0 3 3]>>\nendobj\n").size();
  pdf.object(3, "<</MediaBox[0 0 99 99]>>").pretendAt(3, intended);
  return pdf;
}

TEST(CrossReferences, LeadToThePageThroughATable) {
  EXPECT_EQ(pageOf(withDecoy().table().file()), box(3, 3));
}

TEST(CrossReferences, LeadToThePageThroughAStream) {
  EXPECT_EQ(pageOf(withDecoy().crossReferenceStream(9).file()), box(3, 3));
}

TEST(CrossReferences, PreferTheNewestRevision) {
  EXPECT_EQ(pageOf(firstRevision().object(3, "<</MediaBox[0 0 4 4]>>").table().file()), box(4, 4));
  EXPECT_EQ(
      pageOf(firstRevision().object(3, "<</MediaBox[0 0 4 4]>>").crossReferenceStream(9).file()),
      box(4, 4));
}

TEST(CrossReferences, TakeTheRootFromAnOlderTrailerWhenTheNewestHasNone) {
  EXPECT_EQ(pageOf(firstRevision().object(3, "<</MediaBox[0 0 4 4]>>").table("").file()),
            box(4, 4));
}

TEST(CrossReferences, BelieveThatAnObjectWasDeleted) {
  PdfBuilder pdf = firstRevision();
  pdf.object(2, "<</Kids[3 0 R 4 0 R]>>")
      .object(4, "<</MediaBox[0 0 4 4]>>")
      .pretendFree(3)
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(4, 4));
}

TEST(CrossReferences, BelieveThatTheOnlyPageWasDeleted) {
  EXPECT_EQ(pageOf(firstRevision().pretendFree(3).table().file()), unreadable);
  EXPECT_EQ(pageOf(firstRevision().pretendFree(3).crossReferenceStream(9).file()), unreadable);
}

TEST(CrossReferences, FindHiddenObjectsOfAHybridFile) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>").objectStream(4, {{3, "<</MediaBox[0 0 3 3]>>"}});
  pdf.stream(5, "/Type/XRef/Size 6/W[1 4 2]/Index[3 1]",
             "\x02" + bigEndian(4, 4) + bigEndian(0, 2));
  const std::size_t hidden = pdf.file().find("5 0 obj");
  pdf.object(2, "<</Kids[3 0 R]>>").pretendFree(3);
  pdf.table("/Root 1 0 R/XRefStm " + std::to_string(hidden));
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(CrossReferences, CountOffsetsFromTheHeaderWhereTheFileDoes) {
  const std::string junk = "junk before the header\n";
  EXPECT_EQ(pageOf(junk + withDecoy().table().file()), box(3, 3));
  EXPECT_EQ(pageOf(junk + withDecoy().crossReferenceStream(9).file()), box(3, 3));
}

TEST(CrossReferences, CountOffsetsFromTheStartWhereTheFileDoes) {
  PdfBuilder pdf("junk before the header\n%PDF-1.7\n");
  pdf.object(1, "<</Pages 2 0 R>>").object(2, "<</Kids[3 0 R]>>");
  const std::size_t page = pdf.offset();
  pdf.object(3, "<</MediaBox[0 0 3 3]>>")
      .object(3, "<</MediaBox[0 0 9 9]>>")
      .pretendAt(3, page)
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(CrossReferences, AcceptEntriesThatEndInOneCharacterLess) {
  std::string file = withDecoy().table().file();
  for (std::size_t at = file.find(" n \n"); at != file.npos; at = file.find(" n \n"))
    file.replace(at, 4, " n\n");
  file = replaced(file, " f \n", " f\n");
  EXPECT_EQ(pageOf(file), box(3, 3));
}

TEST(CrossReferences, AcceptEntriesThatEndInOneCharacterMore) {
  std::string file = withDecoy().table().file();
  for (std::size_t at = file.find(" n \n"); at != file.npos; at = file.find(" n \n"))
    file.replace(at, 4, " n \r\n");
  file = replaced(file, " f \n", " f \r\n");
  EXPECT_EQ(pageOf(file), box(3, 3));
}

TEST(CrossReferences, UseRowsWithoutATypeForOrdinaryObjects) {
  PdfBuilder pdf = wholeTree();
  const auto at = [&](const char* header) { return bigEndian(pdf.file().find(header), 2); };
  const std::string rows = bigEndian(0, 2) + at("1 0 obj") + at("2 0 obj") + at("3 0 obj");
  pdf.object(3, "<</MediaBox[0 0 9 9]>>");
  const std::size_t section = pdf.offset();
  pdf.stream(4, "/Type/XRef/Size 4/W[0 2 0]/Root 1 0 R", rows)
      .raw("startxref\n" + std::to_string(section) + "\n%%EOF\n");
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(CrossReferences, UseRowsWithColumnsOfAnyWidth) {
  for (const int last : {0, 1, 2, 3}) {
    PdfBuilder pdf = wholeTree();
    std::string rows = bigEndian(0, 3 + last);
    for (const char* header : {"1 0 obj", "2 0 obj", "3 0 obj"})
      rows += bigEndian(1, 1) + bigEndian(pdf.file().find(header), 2) + bigEndian(0, last);
    pdf.object(3, "<</MediaBox[0 0 9 9]>>");
    const std::size_t section = pdf.offset();
    pdf.stream(4, "/Type/XRef/Size 4/W[1 2 " + std::to_string(last) + "]/Root 1 0 R", rows)
        .raw("startxref\n" + std::to_string(section) + "\n%%EOF\n");
    EXPECT_EQ(pageOf(pdf.file()), box(3, 3)) << last;
  }
}

TEST(CrossReferences, ThatReturnToThemselvesEnd) {
  PdfBuilder pdf = wholeTree();
  pdf.table("/Root 1 0 R/Prev " + std::to_string(pdf.offset()));
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(CrossReferences, AreFoundFromTheLastKilobyteAlone) {
  // The table lists the smaller page; whoever searches the file sees that the larger one is newer.
  const auto pageAt = [](std::size_t distance) {
    PdfBuilder pdf = wholeTree();
    pdf.table().object(3, "<</MediaBox[0 0 5 5]>>").raw("%" + std::string(2000, '.') + "\n");
    const std::string start = "startxref\n" + std::to_string(pdf.lastSection());
    pdf.raw(start + std::string(distance - start.size(), '\n'));
    return pageOf(pdf.file());
  };
  EXPECT_EQ(pageAt(1024), box(3, 3));
  for (std::size_t distance = 1025; distance < 1036; ++distance)
    EXPECT_EQ(pageAt(distance), box(5, 5)) << distance;
}

TEST(Header, MayStandAnywhereInTheFirstKilobyte) {
  const std::string file = onePage("/MediaBox[0 0 3 3]");
  EXPECT_EQ(pageOf(std::string(1019, ' ') + file), box(3, 3));
  EXPECT_EQ(pageOf(std::string(1020, ' ') + file), notAPdf);
  EXPECT_EQ(pageOf(std::string(4000, ' ') + file), notAPdf);
}

TEST(Header, IsNeeded) {
  EXPECT_EQ(pageOf(replaced(onePage("/MediaBox[0 0 3 3]"), "%PDF-", "%PDX-")), notAPdf);
  EXPECT_EQ(pageOf(""), notAPdf);
  EXPECT_EQ(pageOf("%PDF-1.7"), unreadable);
  for (const char* text : {"%", "% a comment", "\xE2\xE3", "x\xE2"})
    EXPECT_EQ(pageOf(text), notAPdf) << text;
}

TEST(Header, MayBeLostAboveTheCommentThatMarksAFileAsBinary) {
  PdfBuilder pdf("%\xE2\xE3\xCF\xD3\n");
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
  EXPECT_EQ(pageOf(pdf.file() + std::string(2000, ' ') + "%PDF-1.7"), notAPdf);
}

TEST(Trailer, IsTakenEntryByEntryFromTheNewestSectionThatHasIt) {
  PdfBuilder withoutRoot = wholeTree();
  withoutRoot.table("/Root 1 0 R/ID[(a)(b)]").object(4, "null").table("/ID[(a)(b)]");
  EXPECT_EQ(pageOf(withoutRoot.file()), box(3, 3));
  // Either root leads to a page.
  PdfBuilder withAnother = wholeTree();
  withAnother.table()
      .object(4, "<</Pages 5 0 R>>")
      .object(5, "<</MediaBox[0 0 5 5]>>")
      .table("/Root 4 0 R");
  EXPECT_EQ(pageOf(withAnother.file()), box(5, 5));
}

TEST(CrossReferenceStream, WithoutAnyWidthIsRebuilt) {
  for (const char* widths : {"/W[0 0 0]", "/W[1 4]", "/W[1 9 2]", "/W 7"})
    EXPECT_EQ(pageOf(replaced(onePageInObjectStream("/MediaBox[0 0 3 3]"), "/W[1 4 2]", widths)),
              box(3, 3))
        << widths;
}

TEST(CrossReferences, AreRebuiltWhereverTheirTableIsCutOff) {
  // The place of the table is stated before it, so that it is looked for wherever the file ends.
  const std::string whole = onePage("/MediaBox[0 0 3 3]");
  const std::size_t objects = whole.rfind("xref\n0 ");
  const std::string table = whole.substr(objects, whole.rfind("trailer") - objects);
  const std::size_t place = objects + 32;
  std::string start = whole.substr(0, objects) + "startxref\n" + std::to_string(place);
  start.resize(place, '\n');
  for (std::size_t size = 0; size <= table.size(); ++size) {
    const std::string file = start + table.substr(0, size);
    // A sanitizer sees a byte read behind these.
    const std::vector<char> bytes(file.begin(), file.end());
    EXPECT_EQ(pageOf(std::string_view(bytes.data(), bytes.size())), box(3, 3)) << size;
  }
}

}  // namespace
}  // namespace korrin
