#include "korrin/validation/pdf/recovery.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

struct Damage {
  const char* name;
  const char* from;
  const char* to;
};

class DamagedCrossReferences : public testing::TestWithParam<Damage> {};

TEST_P(DamagedCrossReferences, AreRebuilt) {
  const auto& [name, from, to] = GetParam();
  EXPECT_EQ(pageOf(replaced(onePage("/MediaBox[0 0 3 3]"), from, to)), box(3, 3));
}

INSTANTIATE_TEST_SUITE_P(
    Table, DamagedCrossReferences,
    testing::Values(Damage{"NoStart", "startxref", "startxxxx"},
                    Damage{"StartOutsideTheFile", "startxref\n", "startxref\n99"},
                    Damage{"NoTable", "xref\n0 1", "xxxx\n0 1"},
                    Damage{"NumbersOffByOne", "\n1 3\n", "\n2 3\n"},
                    Damage{"TooManyEntries", "\n1 3\n", "\n1 99999999\n"},
                    Damage{"TooFewEntries", "\n1 3\n", "\n1 2\n"},
                    Damage{"EntryThatIsNone", "00000 n \ntrailer", "0000o n \ntrailer"},
                    Damage{"OffsetOfThePageWrong", " 00000 n \ntrailer", "1 0000 n \ntrailer"},
                    Damage{"FreeListHeadAtTheCatalogue", "0 1\n0000000000 65535 f \n1 3\n",
                           "1 4\n0000000000 65535 f \n"},
                    Damage{"PreviousIsNoNumber", "/Root 1 0 R", "/Prev[7]/Root 1 0 R"},
                    Damage{"PreviousLeadsNowhere", "/Root 1 0 R", "/Prev 7/Root 1 0 R"},
                    Damage{"NothingAfterTheTrailer", "startxref", ""}),
    [](const auto& row) { return row.param.name; });

TEST(Recovery, FindsObjectsInObjectStreams) {
  EXPECT_EQ(pageOf(replaced(onePageInObjectStream("/MediaBox[0 0 3 3]"), "startxref", "")),
            box(3, 3));
}

TEST(Recovery, FindsObjectsInStreamsThatArePackedTwice) {
  // First as they are, behind a head of seven bytes, so that all of it is needed for what is in it.
  const std::string data = "3 0 <</MediaBox[0 0 3 3]>>";
  const auto size = static_cast<char>(data.size());
  const std::string stored =
      std::string("\x78\x01\x01") + size + '\0' + static_cast<char>(~size) + '\xFF' + data;
  PdfBuilder pdf = tree();
  pdf.stream(4, "/Type/ObjStm/N 1/First 4/Filter[/FlateDecode/FlateDecode]", deflated(stored))
      .raw("trailer<</Root 1 0 R>>");
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(Recovery, FindsObjectsInStreamsWithAPredictor) {
  // Each byte stands in a row of its own, so that the head is twice as long before that is undone.
  std::string rows;
  for (const char byte : std::string("7 0 3 5 null <</MediaBox[0 0 3 3]>>")) {
    rows += '\0';
    rows += byte;
  }
  PdfBuilder pdf = tree();
  pdf.stream(4,
             "/Type/ObjStm/N 2/First 8/Filter/FlateDecode/DecodeParms<</Predictor 12/Columns 1>>",
             deflated(rows))
      .raw("trailer<</Root 1 0 R>>");
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(Recovery, FindsATrailerFromTheFirstByteOn) {
  EXPECT_EQ(pageOf(wholeTree().file()), unreadable);
  EXPECT_EQ(pageOf("trailer<</Root 1 0 R>>\n" + wholeTree().file()), box(3, 3));
}

TEST(Recovery, FindsWhatAnUnreadableOlderSectionLists) {
  PdfBuilder pdf = wholeTree();
  pdf.table().object(4, "null").table();
  EXPECT_EQ(pageOf(replaced(pdf.file(), "/Prev ", "/Prev 7")), box(3, 3));
}

TEST(Recovery, TrustsNoSectionThatLeadsToAnUnreadableOne) {
  // A larger page stands behind the section, which does not list it.
  const auto pageWith = [](const std::string& trailer) {
    PdfBuilder pdf = wholeTree();
    pdf.table("/Root 1 0 R" + trailer).object(3, "<</MediaBox[0 0 5 5]>>");
    return pageOf(pdf.raw("startxref\n" + std::to_string(pdf.lastSection())).file());
  };
  EXPECT_EQ(pageWith(""), box(3, 3));
  EXPECT_EQ(pageWith("/Prev 7"), box(5, 5));
  EXPECT_EQ(pageWith("/Prev[7]"), box(5, 5));
}

TEST(Recovery, FindsObjectStreamsBehindTheObjectsOfOthers) {
  // The numbers in the first streams are beyond and between those of the streams themselves.
  PdfBuilder pdf;
  pdf.objectStream(10, {{1, "<</Pages 60 0 R>>"}, {99, "null"}, {15, "null"}})
      .objectStream(20, {{60, "<</Kids[3 0 R]>>"}, {25, "null"}, {11, "null"}})
      .objectStream(30, {{3, "<</MediaBox 70 0 R>>"}, {5, "null"}})
      .objectStream(40, {{70, "[0 0 3 3]"}})
      .raw("trailer<</Root 1 0 R>>");
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(Recovery, ShiftsWithBytesInsertedAnywhere) {
  for (const std::string& file :
       {onePage("/MediaBox[0 0 3 3]"), onePageInObjectStream("/MediaBox[0 0 3 3]")})
    for (std::size_t at = file.find("\nendobj"); at != file.npos;
         at = file.find("\nendobj", at + 1))
      EXPECT_EQ(pageOf(std::string(file).insert(at, "      \n")), box(3, 3)) << at;
}

TEST(Recovery, LetsTheLastDefinitionWin) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .object(2, "<</Kids[3 0 R]>>")
      .object(3, "<</MediaBox[0 0 4 4]>>")
      .raw("trailer<</Root 1 0 R>>");
  EXPECT_EQ(pageOf(pdf.file()), box(4, 4));
}

TEST(Recovery, OrdersObjectStreamsAndObjectsByTheirPlace) {
  PdfBuilder compressedLast = wholeTree();
  compressedLast.objectStream(5, {{3, "<</MediaBox[0 0 5 5]>>"}}).raw("trailer<</Root 1 0 R>>");
  EXPECT_EQ(pageOf(compressedLast.file()), box(5, 5));
  PdfBuilder ordinaryLast = tree();
  ordinaryLast.objectStream(5, {{3, "<</MediaBox[0 0 5 5]>>"}})
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .raw("trailer<</Root 1 0 R>>");
  EXPECT_EQ(pageOf(ordinaryLast.file()), box(3, 3));
}

TEST(Recovery, TakesTheLastTrailerThatLeadsToAPage) {
  PdfBuilder pdf = wholeTree();
  pdf.raw("trailer<</Root 1 0 R>>\ntrailer<</Root 3 0 R>>\ntrailer<</Size 3>>");
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(Recovery, PassesOverWhatLooksLikeObjectsInStreams) {
  PdfBuilder pdf = wholeTree();
  pdf.stream(4, "", "3 0 obj<</MediaBox[0 0 9 9]>>").raw("trailer<</Root 1 0 R>>");
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(Recovery, GoesOnBehindAStreamWithoutAnEnd) {
  PdfBuilder pdf = tree();
  EXPECT_EQ(
      pageOf(pdf.raw("4 0 obj<<>>stream data 3 0 obj<</MediaBox[0 0 3 3]>>trailer<</Root 1 0 R>>")
                 .file()),
      box(3, 3));
}

TEST(Recovery, TakesNoOverlongNumberForAnObject) {
  PdfBuilder pdf = tree();
  EXPECT_EQ(
      pageOf(
          PdfBuilder(pdf)
              .raw("3 18446744073709551616 obj<</MediaBox[0 0 3 3]>>endobj trailer<</Root 1 0 R>>")
              .file()),
      unreadable);
  EXPECT_EQ(pageOf(PdfBuilder(pdf)
                       .raw("100000000003 0 obj<</MediaBox[0 0 3 3]>>endobj trailer<</Root 1 0 R>>")
                       .file()),
            unreadable);
  EXPECT_EQ(pageOf(PdfBuilder(pdf)
                       .raw("3 0 object<</MediaBox[0 0 3 3]>>endobj trailer<</Root 1 0 R>>")
                       .file()),
            unreadable);
}

// A tree of one page, without any trailer, and whatever `catalogue` adds.
PdfBuilder withoutTrailer() {
  PdfBuilder pdf;
  pdf.object(2, "<</Type/Pages/Kids[3 0 R]/Count 1>>")
      .object(3, "<</Type/Page/MediaBox[0 0 3 3]>>");
  return pdf;
}

TEST(Recovery, FindsTheCatalogueOfADocumentWithoutTrailer) {
  EXPECT_EQ(pageOf(withoutTrailer().file()), unreadable);
  EXPECT_EQ(pageOf(withoutTrailer().object(1, "<</Type/Catalog/Pages 2 0 R>>").file()), box(3, 3));
  EXPECT_EQ(pageOf(withoutTrailer().object(1, "<</Pages 2 0 R /Type /Catalog >>").file()),
            box(3, 3));
  // The table is there, and the trailer is not.
  const std::string whole = onePage("/MediaBox[0 0 3 3]");
  const std::size_t trailer = whole.find("trailer");
  EXPECT_EQ(pageOf(whole.substr(0, trailer)), box(3, 3));
  EXPECT_EQ(pageOf(whole.substr(0, trailer) + whole.substr(whole.find("startxref"))), box(3, 3));
}

TEST(Recovery, TakesNothingElseForTheCatalogue) {
  for (const char* object : {"<</Pages 2 0 R>>", "<</Type/Catalogue/Pages 2 0 R>>",
                             "<</Kind/Catalog/Pages 2 0 R>>", "[/Type/Catalog/Pages 2 0 R]"})
    EXPECT_EQ(pageOf(withoutTrailer().object(1, object).file()), unreadable) << object;
  // A trailer is believed, even one that names another object or none.
  for (const char* trailer : {"trailer<</Root 9 0 R>>", "trailer<<>>", "trailer 3 <</Root 1 0 R>>"})
    EXPECT_EQ(
        pageOf(withoutTrailer().object(1, "<</Type/Catalog/Pages 2 0 R>>").raw(trailer).file()),
        unreadable)
        << trailer;
}

TEST(Recovery, TakesTheLastCatalogueThatLeadsToAPage) {
  PdfBuilder pdf = withoutTrailer();
  pdf.object(5, "<</Type/Page/MediaBox[0 0 5 5]>>")
      .object(1, "<</Type/Catalog/Pages 5 0 R>>")
      .object(4, "<</Type/Catalog/Pages 2 0 R>>")
      .object(6, "<</Type/Catalog>>");
  EXPECT_EQ(pageOf(pdf.file()), box(3, 3));
}

TEST(Recovery, FindsTheCatalogueInAnObjectStream) {
  const std::string catalogue = "<</Type/Catalog/Pages 2 0 R>>";
  EXPECT_EQ(pageOf(withoutTrailer()
                       .objectStream(4, {{7, "<</Kind/Font>>"}, {1, catalogue}, {8, "null"}})
                       .objectStream(5, {{9, "null"}})
                       .file()),
            box(3, 3));
  EXPECT_EQ(pageOf(withoutTrailer().objectStream(4, {{1, catalogue}}).file()), box(3, 3));
  EXPECT_EQ(pageOf(withoutTrailer().objectStream(4, {{7, "null"}, {1, catalogue}}).file()),
            box(3, 3));
  // The whole document, whose cross-references are cut off.
  const std::string whole = onePageInObjectStream("/MediaBox[0 0 3 3]");
  EXPECT_EQ(pageOf(whole.substr(0, whole.rfind("5 0 obj"))), box(3, 3));
}

TEST(Recovery, FindsTheCatalogueWhateverTheOrderOfItsObjectStream) {
  // The pairs of the head stand in another order than the objects.
  const std::string first = "null ";
  const std::string second = "<</Type/Catalog/Pages 2 0 R>> ";
  const std::string head = "7 35 1 5 8 0 ";
  EXPECT_EQ(pageOf(withoutTrailer()
                       .stream(4, "/Type/ObjStm/N 3/First " + std::to_string(head.size()),
                               head + first + second + "<</Kind/Font>>")
                       .file()),
            box(3, 3));
}

TEST(Recovery, FindsTheCatalogueByThePairsThatCanBeRead) {
  const std::string catalogue = "<</Type/Catalog/Pages 2 0 R>>";
  const auto pageWith = [&](const std::string& head) {
    return pageOf(
        withoutTrailer()
            .stream(4, "/Type/ObjStm/N 3/First " + std::to_string(head.size()), head + catalogue)
            .file());
  };
  EXPECT_EQ(pageWith("1 0 "), box(3, 3));
  EXPECT_EQ(pageWith("1 0 7 "), box(3, 3));
  EXPECT_EQ(pageWith("1 0 99999999999 0 "), box(3, 3));
  // No pair, or none in front of the catalogue.
  EXPECT_EQ(pageWith("x 0 "), unreadable);
  EXPECT_EQ(pageWith("1 1 "), unreadable);
}

TEST(Recovery, FindsNothingAroundAPlaceInAnObjectStreamThatIsMissing) {
  const std::string file = withoutTrailer().file();
  pdf::Budget budget(file.size());
  pdf::RecoveredObjects recovered(file, budget);
  recovered.scan();
  pdf::Objects objects(file, recovered, budget);
  EXPECT_FALSE(objects.objectAround({77, 0}));
}

TEST(Recovery, PassesOverAStreamAtTheVeryStart) {
  const std::string object = "3 0 obj<</MediaBox[0 0 9 9]>>endobj ";
  const std::string rest = tree().file() + "trailer<</Root 1 0 R>>";
  EXPECT_EQ(pageOf(">>stream " + object + "endstream " + rest), unreadable);
  // These two begin no stream.
  EXPECT_EQ(pageOf("stream " + object + "endstream " + rest), box(9, 9));
  EXPECT_EQ(pageOf(" stream " + object + "endstream " + rest), box(9, 9));
}

TEST(Recovery, OpensAnObjectStreamOnceHoweverOftenItsNumberStands) {
  PdfBuilder pdf = wholeTree();
  std::string repeated;
  for (std::size_t i = 0; i < pdf::limits::lookUps; ++i)
    repeated += "4 0 obj<</Type/ObjStm>>endobj 5 0 obj<</Type/ObjStm>>endobj ";
  EXPECT_EQ(pageOf(pdf.raw(repeated).raw("trailer<</Root 1 0 R>>").file()), box(3, 3));
}

TEST(Recovery, TakesNothingFromAnObjectStreamOfNumberZero) {
  PdfBuilder pdf = wholeTree();
  pdf.stream(0, "/Type/ObjStm/N 1/First 4", "3 0 <</MediaBox[0 0 9 9]>>");
  EXPECT_EQ(pageOf(pdf.raw("trailer<</Root 1 0 R>>").file()), box(3, 3));
}

TEST(Recovery, RemembersSoManyObjectStreams) {
  const auto isScanned = [](std::size_t streams) {
    std::string file;
    for (std::size_t i = 0; i < streams; ++i) file += std::to_string(i + 1) + " 0 obj/ObjStm ";
    pdf::Budget budget(file.size());
    pdf::RecoveredObjects(file, budget).scan();
    return !budget.isExhausted();
  };
  EXPECT_TRUE(isScanned(pdf::limits::recoveredObjectStreams));
  EXPECT_FALSE(isScanned(pdf::limits::recoveredObjectStreams + 1));
}

}  // namespace
}  // namespace korrin
