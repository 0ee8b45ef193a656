#include "korrin/model/document_coding.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/decoding_outcome.h"
#include "tests/support/files.h"
#include "tests/support/full_project.h"

namespace korrin {
namespace {

using Kind = DecodingError::Kind;
using test::refusalOf;
using test::refusedAt;

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  const std::size_t place = text.find(what);
  EXPECT_NE(place, std::string::npos) << what;
  return text.replace(place, what.size(), by);
}

const std::string fullDocument = encodeJSON(test::fullProject());

TEST(Document, TakesAMissingGroupAndNullForAnUngroupedItem) {
  const std::string grouped = "\"groupID\":\"5A10FF00-0000-4000-8000-000000000003\",";
  for (const std::string& by : {std::string(), std::string("\"groupID\":null,")}) {
    const auto project = decodeJSON<KorrinProject>(replaced(fullDocument, grouped, by));
    EXPECT_FALSE(project.items[0].groupID.has_value());
    EXPECT_EQ(encodeJSON(project).find("\"groupID\""), std::string::npos);
  }
}

TEST(Document, KeepsChannelZeroAndLeavesOutNoChannel) {
  const auto zero =
      decodeJSON<KorrinProject>(replaced(fullDocument, "\"channel\":7", "\"channel\":0"));
  EXPECT_EQ(zero.inputs[0].channel, 0);
  EXPECT_NE(encodeJSON(zero).find("\"channel\":0,"), std::string::npos);
  const auto none = decodeJSON<KorrinProject>(replaced(fullDocument, "\"channel\":7,", ""));
  EXPECT_FALSE(none.inputs[0].channel.has_value());
  EXPECT_EQ(encodeJSON(none).find("\"channel\""), std::string::npos);
}

TEST(Document, WithoutItsAssetManifestIsRefusedThoughItWouldBeEmpty) {
  const std::string document = encodeJSON(KorrinProject::newDocument());
  EXPECT_EQ(refusalOf<KorrinProject>(replaced(document, ",\"assetManifest\":[]", "")),
            refusedAt("assetManifest", Kind::keyNotFound, "expected a value, found no such key"));
}

TEST(Document, TakesAnEdgeInLowerCaseOnly) {
  EXPECT_EQ(decodeJSON<KorrinProject>(fullDocument).stage.audienceEdge, AudienceEdge::bottom);
  const auto refusal = refusalOf<KorrinProject>(replaced(fullDocument, "\"bottom\"", "\"Bottom\""));
  ASSERT_TRUE(refusal.has_value());
  EXPECT_EQ(refusal->kind, Kind::dataCorrupted);
  EXPECT_EQ(refusal->keyPath, "stage.audienceEdge");
}

TEST(Document, LosesAnUnknownKeyWithTheNextEncoding) {
  const auto project = decodeJSON<KorrinProject>(
      replaced(fullDocument, "\"metadata\":", "\"futureField\":{\"a\":[1]},\"metadata\":"));
  EXPECT_TRUE(project == test::fullProject());
  EXPECT_EQ(encodeJSON(project), fullDocument);
}

TEST(Document, ReadsBackAsTheProjectItWas) {
  EXPECT_TRUE(decodeJSON<KorrinProject>(fullDocument) == test::fullProject());
  const KorrinProject fresh = KorrinProject::newDocument();
  EXPECT_TRUE(decodeJSON<KorrinProject>(encodeJSON(fresh)) == fresh);
}

TEST(Document, WritesEmptyListsAsEmptyArrays) {
  const std::string document = encodeJSON(KorrinProject::newDocument());
  for (const std::string key : {"items", "groups", "inputs", "monitorMixes",
                                "equipmentRequirements", "notes", "assetManifest"})
    EXPECT_NE(document.find("\"" + key + "\":[]"), std::string::npos) << key;
}

TEST(Document, NormalisesNothing) {
  KorrinProject project = test::fullProject();
  project.metadata.title = "  Cafe\u0301\n";
  project.items.push_back(project.items[0]);  // the same identifier twice
  project.items.edit(1).size = {.width = -5, .height = -0.0};
  project.groups.edit(0).itemIDs = {test::numberedID(9), test::numberedID(9), UUID{}};
  project.inputs.edit(0).plotItemID = test::numberedID(77);
  const auto decoded = decodeJSON<KorrinProject>(encodeJSON(project));
  EXPECT_TRUE(decoded == project);
  EXPECT_EQ(decoded.metadata.title.str(), "  Cafe\u0301\n");
  EXPECT_TRUE(std::signbit(decoded.items[1].size.height));
}

TEST(Document, WritesNoDerivedValue) {
  EXPECT_EQ(fullDocument.find("legendText"), std::string::npos);
}

TEST(Document, ThatDemandsANewerReaderIsReadLikeAnyOther) {
  const auto project = decodeJSON<KorrinProject>(
      replaced(fullDocument, "\"minimumReaderVersion\":1", "\"minimumReaderVersion\":2"));
  EXPECT_EQ(project.minimumReaderVersion, 2);
}

TEST(Document, OfAnotherHostHoldsTheSamePlot) {
  const auto main = decodeJSON<KorrinProject>(
      test::contentOfSource("examples/documents/festival-main-stage.json"));
  const auto other = decodeJSON<KorrinProject>(
      test::contentOfSource("examples/documents/festival-other-host.json"),
      {.dates = DateStrategy::secondsSinceReferenceDate});
  EXPECT_EQ(main.items.size(), other.items.size());
  EXPECT_EQ(main.inputs.size(), other.inputs.size());
}

TEST(DocumentVersions, AreReadWhateverElseStandsInTheDocument) {
  EXPECT_EQ(peekVersions(fullDocument),
            (DocumentVersions{.schemaVersion = 1, .minimumReaderVersion = 1}));
  EXPECT_EQ(peekVersions(R"({"items":[{"kind":"hologram"}],"minimumReaderVersion":3,)"
                         R"("stage":7,"schemaVersion":9})"),
            (DocumentVersions{.schemaVersion = 9, .minimumReaderVersion = 3}));
}

TEST(DocumentVersions, HaveTheKeysOfTheProject) {
  std::string keys;
  forEachField<DocumentVersions>([&](const auto& field) { keys += std::string(field.key) + " "; });
  EXPECT_EQ(keys, "schemaVersion minimumReaderVersion ");
}

TEST(DocumentVersions, AreRefusedWhereTheyAreNoIntegersOrTheTextIsNoJSON) {
  EXPECT_EQ(refusalOf<DocumentVersions>("{}"),
            refusedAt("schemaVersion", Kind::keyNotFound, "expected a value, found no such key"));
  EXPECT_EQ(refusalOf<DocumentVersions>(R"({"schemaVersion":"1","minimumReaderVersion":1})"),
            refusedAt("schemaVersion", Kind::typeMismatch, "expected an integer, found a string"));
  EXPECT_THROW((void)peekVersions("PK\x03\x04"), DecodingError);
  EXPECT_THROW((void)peekVersions(""), DecodingError);
  EXPECT_THROW((void)peekVersions(R"({"schemaVersion":1,"minimumReaderVersion":1)"), DecodingError);
}

}  // namespace
}  // namespace korrin
