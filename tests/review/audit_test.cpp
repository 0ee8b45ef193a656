#include "korrin/review/audit.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using enum AuditRule;

const UUID layer = identifier(100);

// Two symbols on one layer, in one group, and nothing to find.
KorrinProject cleanProject() {
  KorrinProject project = sampleProject();
  project.schemaVersion = KorrinProject::currentSchemaVersion;
  project.stage.size = {.width = 8'000, .height = 6'000};
  project.layers = {
      {.id = layer, .name = "Front", .isVisible = true, .isLocked = false, .zIndex = 0}};
  project.items = {microphone(identifier(1)), microphone(identifier(2))};
  for (std::size_t i = 0; i < 2; ++i) {
    project.items.edit(i).layerID = layer;
    project.items.edit(i).groupID = identifier(200);
    project.items.edit(i).label = i == 0 ? "One" : "Two";
    project.items.edit(i).style.tintHex = std::nullopt;
  }
  project.groups = {
      {.id = identifier(200), .name = "Pair", .itemIDs = {identifier(1), identifier(2)}}};
  project.inputs = {};
  project.monitorMixes = {};
  project.equipmentRequirements = {};
  project.notes = {};
  project.assetManifest = {};
  return project;
}

std::vector<std::string> idsOf(const KorrinProject& project) {
  std::vector<std::string> ids;
  for (const AuditFinding& finding : audit(project)) ids.push_back(finding.id.str());
  return ids;
}

std::string idOf(AuditRule rule, const UUID& id) {
  return std::string(rawValue(rule)) + ":" + id.text();
}

std::vector<Fix> fixesOf(AuditRule rule, const KorrinProject& project) {
  for (const AuditFinding& finding : audit(project))
    if (finding.rule == rule) return fixesFor(finding, project, TestEnvironment());
  ADD_FAILURE() << "there is no such finding";
  return {};
}

// The project after the only fix of the only finding by this rule.
KorrinProject mended(AuditRule rule, KorrinProject project) {
  const std::vector<Fix> fixes = fixesOf(rule, project);
  EXPECT_EQ(fixes.size(), 1u);
  const Instant modifiedAt = project.metadata.modifiedAt;
  if (!fixes.empty()) fixes[0].command.apply(project, TestEnvironment());
  return withModifiedAt(std::move(project), modifiedAt);
}

TEST(Audit, FindsNothingInACleanProject) { EXPECT_THAT(idsOf(cleanProject()), testing::IsEmpty()); }

TEST(Audit, FindsNothingInTheExample) {
  for (const AuditFinding& finding : audit(KorrinProject::example()))
    EXPECT_EQ(finding.severity, PreflightSeverity::information) << finding.id.str();
}

TEST(Audit, PutsASymbolWithoutLayerOnTheFirst) {
  KorrinProject project = cleanProject();
  project.items.edit(1).layerID = identifier(999);
  EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(missingLayer, identifier(2))));
  EXPECT_EQ(mended(missingLayer, project), cleanProject());
  project.layers = {};
  EXPECT_EQ(audit(project).size(), 2u);
  EXPECT_TRUE(fixesOf(missingLayer, project).empty());
}

TEST(Audit, NamesAHiddenLayerOnceAndShowsIt) {
  KorrinProject project = cleanProject();
  project.layers.edit(0).isVisible = false;
  project.layers.push_back(
      {.id = identifier(101), .name = "Empty", .isVisible = false, .isLocked = false, .zIndex = 1});
  const std::vector<AuditFinding> findings = audit(project);
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(findings[0].id, idOf(hiddenItems, layer));
  EXPECT_EQ(findings[0].recordID, layer);
  EXPECT_THAT(findings[0].itemIDs.toVector(), testing::ElementsAre(identifier(1), identifier(2)));
  EXPECT_EQ(findings[0].severity, PreflightSeverity::information);
  EXPECT_TRUE(mended(hiddenItems, project).layers[0].isVisible);
}

TEST(Audit, TakesASymbolOutOfAGroupThatIsGone) {
  KorrinProject project = cleanProject();
  project.groups = {};
  EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(missingGroup, identifier(1)),
                                                   idOf(missingGroup, identifier(2))));
  EXPECT_EQ(mended(missingGroup, project).items[0].groupID, std::nullopt);
}

TEST(Audit, LetsAGroupFollowItsSymbols) {
  KorrinProject project = cleanProject();
  project.items.push_back(microphone(identifier(3)));
  project.items.edit(2).layerID = layer;
  project.items.edit(2).groupID = identifier(200);
  project.items.edit(0).groupID = std::nullopt;
  const std::vector<AuditFinding> findings = audit(project);
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(findings[0].id, idOf(oneSidedMembership, identifier(200)));
  EXPECT_THAT(findings[0].itemIDs.toVector(), testing::ElementsAre(identifier(1), identifier(3)));
  EXPECT_THAT(mended(oneSidedMembership, project).groups[0].itemIDs.toVector(),
              testing::ElementsAre(identifier(2), identifier(3)));
}

TEST(Audit, LeavesNoGroupEmpty) {
  KorrinProject project = cleanProject();
  project.items.edit(0).groupID = std::nullopt;
  project.items.edit(1).groupID = std::nullopt;
  EXPECT_TRUE(fixesOf(oneSidedMembership, project).empty());
  project = cleanProject();
  project.groups.push_back({.id = identifier(201), .name = "", .itemIDs = {identifier(999)}});
  EXPECT_TRUE(fixesOf(unknownMember, project).empty());
}

TEST(Audit, TakesUnknownMembersOut) {
  KorrinProject project = cleanProject();
  project.groups.edit(0).itemIDs.insert(1, identifier(999));
  EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(unknownMember, identifier(200))));
  EXPECT_EQ(mended(unknownMember, project), cleanProject());
}

TEST(Audit, ListsAMemberOnce) {
  KorrinProject project = cleanProject();
  project.groups.edit(0).itemIDs.push_back(identifier(1));
  EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(repeatedMember, identifier(200))));
  EXPECT_EQ(mended(repeatedMember, project), cleanProject());
}

TEST(Audit, DropsAnEmptyGroupUnlessASymbolNamesIt) {
  KorrinProject project = cleanProject();
  project.groups.push_back({.id = identifier(201), .name = "", .itemIDs = {}});
  EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(emptyGroup, identifier(201))));
  EXPECT_EQ(mended(emptyGroup, project), cleanProject());
  project.items.edit(0).groupID = identifier(201);
  EXPECT_TRUE(fixesOf(emptyGroup, project).empty());
}

TEST(Audit, RemovesAHeightThatNoDocumentHolds) {
  for (const double height :
       {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN()}) {
    KorrinProject project = cleanProject();
    project.items.edit(0).riserHeightMillimeters = height;
    EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(unencodableNumber, identifier(1))));
    EXPECT_EQ(mended(unencodableNumber, project), cleanProject());
  }
}

TEST(Audit, MovesATurnedSymbolInside) {
  KorrinProject project = cleanProject();
  PlotItem& item = project.items.edit(0);
  item.size = {.width = 200, .height = 1'000};
  item.position = {.x = 3'900, .y = 0};
  item.rotationDegrees = -90;
  EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(rotatedOutsideStage, identifier(1))));
  EXPECT_EQ(mended(rotatedOutsideStage, project).items[0].position, (StagePoint{3'500, 0}));

  project.items.edit(0).position.x = 3'500.5;
  EXPECT_THAT(idsOf(project), testing::IsEmpty());
  project.items.edit(0).position.x = 3'501;
  EXPECT_EQ(audit(project).size(), 1u);
  // Preflight reports it already.
  project.items.edit(0).position.x = 5'000;
  EXPECT_THAT(idsOf(project), testing::IsEmpty());
  // What is larger than the stage is not moved.
  project.items.edit(0) = cleanProject().items[0];
  project.items.edit(0).size = {.width = 8'000, .height = 10};
  project.items.edit(0).rotationDegrees = 450;
  EXPECT_TRUE(fixesOf(rotatedOutsideStage, project).empty());
}

TEST(Audit, ReadsTintsOfSixOrEightDigits) {
  KorrinProject project = cleanProject();
  for (const char* tint : {"#C0392B", "c0392b", "#C0392BFF", "00000000"}) {
    project.items.edit(0).style.tintHex = tint;
    EXPECT_THAT(idsOf(project), testing::IsEmpty()) << tint;
  }
  for (const char* tint : {"", "#", "red", "#C0392", "##C0392B", "C0392G", "#C0392B ", "1234567"}) {
    project.items.edit(0).style.tintHex = tint;
    EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(unreadableTint, identifier(1)))) << tint;
  }
  EXPECT_EQ(mended(unreadableTint, project), cleanProject());
}

TEST(Audit, GivesAllButTheFirstASharedIdentifierOfTheirOwn) {
  KorrinProject project = cleanProject();
  // A layer, a symbol and a group with one identifier, and links to the latter two.
  const UUID shared = layer;
  project.items.edit(0).id = shared;
  project.items.edit(0).groupID = shared;
  project.items.edit(1).groupID = shared;
  project.groups = {{.id = shared, .name = "Pair", .itemIDs = {shared, identifier(2)}}};
  project.inputs = {{.id = identifier(300),
                     .channel = std::nullopt,
                     .source = "Kick",
                     .microphoneOrDI = "",
                     .stand = "",
                     .phantomPower = false,
                     .notes = "",
                     .plotItemID = shared}};
  EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(sharedIdentifier, shared)));
  const KorrinProject after = mended(sharedIdentifier, project);
  const UUID item = TestEnvironment::identifierMade(1), group = TestEnvironment::identifierMade(2);
  EXPECT_EQ(after.layers, project.layers);
  EXPECT_EQ(after.items[0].id, item);
  EXPECT_EQ(after.items[0].layerID, layer);
  EXPECT_EQ(after.items[0].groupID, group);
  EXPECT_EQ(after.items[1].groupID, group);
  EXPECT_EQ(after.groups[0].id, group);
  EXPECT_THAT(after.groups[0].itemIDs.toVector(), testing::ElementsAre(item, identifier(2)));
  EXPECT_EQ(after.inputs[0].plotItemID, item);
  EXPECT_THAT(idsOf(after), testing::IsEmpty());
}

TEST(Audit, LeavesASharedIdentifierThatAListRepeats) {
  KorrinProject project = cleanProject();
  project.notes = {{.id = identifier(1), .title = "", .body = ""},
                   {.id = identifier(1), .title = "", .body = ""}};
  EXPECT_TRUE(fixesOf(sharedIdentifier, project).empty());
}

TEST(Audit, RemovesNumbersBelowOneAndTellsListsApart) {
  KorrinProject project = cleanProject();
  const UUID row = identifier(300);
  project.inputs = {{.id = row,
                     .channel = 0,
                     .source = "Kick",
                     .microphoneOrDI = "",
                     .stand = "",
                     .phantomPower = false,
                     .notes = "",
                     .plotItemID = std::nullopt}};
  project.monitorMixes = {{.id = row,
                           .number = std::numeric_limits<std::int64_t>::min(),
                           .name = "Keys",
                           .type = "",
                           .outputPatch = "Out 1",
                           .notes = "",
                           .plotItemID = std::nullopt}};
  int found = 0;
  for (const AuditFinding& finding : audit(project)) {
    if (finding.rule != numberBelowOne) continue;
    ++found;
    EXPECT_EQ(finding.recordID, row);
    const std::vector<Fix> fixes = fixesFor(finding, project);
    ASSERT_EQ(fixes.size(), 1u);
    KorrinProject after = project;
    fixes[0].command.apply(after);
    EXPECT_NE(after.inputs[0].channel.has_value(), after.monitorMixes[0].number.has_value());
  }
  EXPECT_EQ(found, 2);
}

TEST(Audit, RemovesUnusedAndRepeatedAssets) {
  KorrinProject project = cleanProject();
  project.items.edit(0).assetID = "aa";
  const AssetManifestEntry used = {
      .sha256 = "aa", .filename = "one.png", .mediaType = "", .byteCount = 1};
  const AssetManifestEntry again = {
      .sha256 = "aa", .filename = "two.png", .mediaType = "", .byteCount = 1};
  const AssetManifestEntry unused = {
      .sha256 = "bb", .filename = "logo.png", .mediaType = "", .byteCount = 1};
  project.assetManifest = {used, unused, again};
  EXPECT_THAT(idsOf(project), testing::UnorderedElementsAre("repeatedAsset:aa", "unusedAsset:bb"));
  EXPECT_THAT(mended(repeatedAsset, project).assetManifest.toVector(),
              testing::ElementsAre(used, unused));
  EXPECT_THAT(mended(unusedAsset, project).assetManifest.toVector(),
              testing::ElementsAre(used, again));
}

TEST(Audit, MentionsANewerFormatAndLeavesIt) {
  KorrinProject project = cleanProject();
  project.schemaVersion = 7;
  EXPECT_THAT(idsOf(project), testing::ElementsAre("newerFormat:schemaVersion"));
  EXPECT_TRUE(fixesOf(newerFormat, project).empty());
}

TEST(Audit, StandsTheMostSeriousFirst) {
  KorrinProject project = cleanProject();
  project.schemaVersion = 2;
  project.items.edit(0).style.tintHex = "red";
  project.items.edit(1).layerID = identifier(999);
  EXPECT_THAT(idsOf(project), testing::ElementsAre(idOf(missingLayer, identifier(2)),
                                                   idOf(unreadableTint, identifier(1)),
                                                   "newerFormat:schemaVersion"));
}

TEST(AuditFixes, AreNoneForAFindingThatTheProjectDoesNotHave) {
  KorrinProject project = cleanProject();
  project.items.edit(0).style.tintHex = "red";
  AuditFinding finding = audit(project).front();
  EXPECT_EQ(fixesFor(finding, project).size(), 1u);
  EXPECT_TRUE(fixesFor(finding, cleanProject()).empty());
  finding.recordID = identifier(1);
  EXPECT_TRUE(fixesFor(finding, project).empty());
}

TEST(AuditFixes, AreNoneThatWouldBringAFinding) {
  KorrinProject project = cleanProject();
  // The later record has a warning of its own, which would appear under another identifier.
  project.inputs = {{.id = identifier(1),
                     .channel = std::nullopt,
                     .source = "",
                     .microphoneOrDI = "",
                     .stand = "",
                     .phantomPower = false,
                     .notes = "",
                     .plotItemID = std::nullopt}};
  EXPECT_TRUE(fixesOf(sharedIdentifier, project).empty());
  project.inputs.edit(0).source = "Kick";
  EXPECT_EQ(fixesOf(sharedIdentifier, project).size(), 1u);
}

}  // namespace
}  // namespace korrin::test
