#include <string>

#include <gtest/gtest.h>

#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

TEST(PageTree, InheritsTheNearestBox) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R]/MediaBox[0 0 1 1]>>")
      .object(3, "<</Kids[4 0 R]/MediaBox[0 0 2 2]>>")
      .object(4, "<</Kids[5 0 R]>>")
      .object(5, "<</Type/Page>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(2, 2));
}

TEST(PageTree, PrefersThePagesOwnBox) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R]/MediaBox[0 0 1 1]>>")
      .object(3, "<</MediaBox[0 0 2 2]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(2, 2));
}

TEST(PageTree, DoesNotInheritPastAMalformedBox) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R]/MediaBox[0 0 1 1]>>")
      .object(3, "<</MediaBox[0 0 2]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), noBox);
}

TEST(PageTree, InheritsPastANullBox) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R]/MediaBox[0 0 1 1]>>")
      .object(3, "<</MediaBox null>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(1, 1));
}

TEST(PageTree, TakesTheFirstLeafInOrder) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R 6 0 R]>>")
      .object(3, "<</Kids[4 0 R 5 0 R]>>")
      .object(4, "<</MediaBox[0 0 4 4]>>")
      .object(5, "<</MediaBox[0 0 5 5]>>")
      .object(6, "<</MediaBox[0 0 6 6]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(4, 4));
}

TEST(PageTree, PassesOverEmptyBranchesAndNulls) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R null 7/Name(string)[4 0 R]99 0 R 4 0 R]>>")
      .object(3, "<</Kids[]/MediaBox[0 0 3 3]>>")
      .object(4, "<</MediaBox[0 0 4 4]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(4, 4));
}

TEST(PageTree, GoesBackToAnObjectStreamLeftForAnother) {
  PdfBuilder pdf;
  pdf.objectStream(10, {{1, "<</Pages 2 0 R>>"}, {2, "<</Kids[3 0 R 4 0 R]/MediaBox[0 0 2 2]>>"}})
      .objectStream(11, {{3, "<</Kids[]>>"}, {4, "<</Type/Page>>"}})
      .crossReferenceStream(12);
  EXPECT_EQ(pageOf(pdf.file()), box(2, 2));
}

TEST(PageTree, ListsPagesDirectly) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages<</Kids[<</Kids[]>><</MediaBox[0 0 4 4]>>]>>>>").table();
  EXPECT_EQ(pageOf(pdf.file()), box(4, 4));
}

TEST(PageTree, IgnoresCountsAndTypesThatAreNoneOfATree) {
  PdfBuilder pdf;
  pdf.object(1, "<</Type/Font/Pages 2 0 R>>")
      .object(2, "<</Type/Template/Kids[3 0 R]/Count -17>>")
      .object(3, "<</Type/Font/Count 12/MediaBox[0 0 3 3]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(PageTree, TakesANodeThatCallsItselfAPageForOne) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R]/MediaBox[0 0 2 2]>>")
      .object(3, "<</Type/Page/Kids[4 0 R]>>")
      .object(4, "<</Type/Page/MediaBox[0 0 4 4]>>")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(2, 2));
  // The root, too, and without a box.
  PdfBuilder root;
  root.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Type/Page/Kids[3 0 R]>>")
      .object(3, "<</Type/Page/MediaBox[0 0 3 3]>>")
      .table();
  EXPECT_EQ(pageOf(root.file()), noBox);
}

TEST(PageTree, PassesOverAListOfPagesWithoutPages) {
  for (const char* entries : {"/Count 0", "/Count 3", "/Count 0/MediaBox[0 0 9 9]",
                              "/Count 0/Kids null", "/Kids<</Type/Page/MediaBox[0 0 9 9]>>",
                              "/Kids 7/MediaBox[0 0 9 9]", "/Kids[]/MediaBox[0 0 9 9]"}) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Type/Pages/Kids[3 0 R 4 0 R]/MediaBox[0 0 2 2]>>")
        .object(3, "<</Type/Pages" + std::string(entries) + ">>")
        .object(4, "<</Type/Page/MediaBox[0 0 4 4]>>")
        .table();
    EXPECT_EQ(pageOf(pdf.file()), box(4, 4)) << entries;
    // As the root, it is a document without pages.
    PdfBuilder alone;
    alone.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Type/Pages" + std::string(entries) + ">>")
        .table();
    EXPECT_EQ(pageOf(alone.file()), unreadable) << entries;
  }
}

TEST(PageTree, FollowsAReferenceToAType) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids[3 0 R 4 0 R]>>")
      .object(3, "<</Type 5 0 R/MediaBox[0 0 3 3]>>")
      .object(4, "<</Type 6 0 R/Kids[3 0 R]/MediaBox[0 0 4 4]>>")
      .object(5, "/Pages")
      .object(6, "/Page")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(4, 4));
}

TEST(PageTree, MayKeepItsListElsewhere) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(2, "<</Kids 4 0 R>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .object(4, "[3 0 R]")
      .table();
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(PageTree, MayBeASinglePage) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>").object(2, "<</MediaBox[0 0 2 2]>>").table();
  EXPECT_EQ(pageOf(pdf.file()), box(2, 2));
}

TEST(PageTree, IsNoPageWithoutChildrenAndABox) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>").object(2, "<</Resources<<>>>>").table();
  EXPECT_EQ(pageOf(pdf.file()), unreadable);
}

TEST(PageTree, WithoutPagesIsUnreadable) {
  for (const char* kids : {"[]", "[null]", "[9 0 R]", "[[]]", "[3 0 R]"}) {
    PdfBuilder pdf;
    pdf.object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids" + std::string(kids) + ">>")
        .object(3, "<</Kids[]>>")
        .table();
    EXPECT_EQ(pageOf(pdf.file()), unreadable) << kids;
  }
}

TEST(PageTree, ThatReturnsToItselfIsUnreadable) {
  PdfBuilder pdf = tree();
  pdf.object(3, "<</Kids[2 0 R]>>").table();
  EXPECT_EQ(pageOf(pdf.file()), unreadable);
}

TEST(PageTree, IsUnreadableWithoutACatalogue) {
  PdfBuilder noRoot;
  noRoot.object(2, "<</Kids[3 0 R]>>").object(3, "<</MediaBox[0 0 3 3]>>").table("");
  EXPECT_EQ(pageOf(noRoot.file()), unreadable);
  PdfBuilder noPages;
  noPages.object(1, "<</Type/Catalog>>").object(3, "<</MediaBox[0 0 3 3]>>").table();
  EXPECT_EQ(pageOf(noPages.file()), unreadable);
}

}  // namespace
}  // namespace korrin
