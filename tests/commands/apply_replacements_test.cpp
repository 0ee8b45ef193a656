#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"

#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::expectUndoAndRedo;
using test::identifier;
using test::sampleProject;
using test::TestEnvironment;

// One replacement of a whole part: which part, and that the inverse carries the former value.
template <class Case, class Part>
void expectReplacement(DocumentCommand (*make)(Part), Part KorrinProject::*part,
                       Part Case::*carried, const Part& value) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const CommandResult result = make(value).apply(project, environment);

  KorrinProject expected = sampleProject();
  expected.*part = value;
  expected.metadata.modifiedAt = TestEnvironment::instantOfRead(1);
  EXPECT_EQ(project, expected);
  ASSERT_NE(result.inverse.get<Case>(), nullptr);
  EXPECT_EQ(result.inverse.get<Case>()->*carried, sampleProject().*part);
  expectUndoAndRedo(sampleProject(), make(value));
}

// A list unlike the sample's: its last row twice and nothing else.
template <class Row>
List<Row> another(const List<Row>& rows) {
  return {rows.back(), rows.back()};
}

TEST(ReplaceGroups, StoresTheGivenList) {
  expectReplacement(&DocumentCommand::replaceGroups, &KorrinProject::groups, &ReplaceGroups::groups,
                    another(sampleProject().groups));
}

TEST(ReplaceGroups, NamesTheMembersOfTheNewGroupsOnly) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result =
      DocumentCommand::replaceGroups(
          {PlotGroup{.id = identifier(1), .name = "A", .itemIDs = {identifier(10), identifier(11)}},
           PlotGroup{.id = identifier(2), .name = "B", .itemIDs = {identifier(11)}},
           PlotGroup{.id = identifier(3), .name = "C", .itemIDs = {}}})
          .apply(project, environment);
  EXPECT_EQ(result.changes.changedItemIDs, (IDSet{identifier(10), identifier(11)}));
}

TEST(ReplaceGroups, KeepsEmptyGroupsAndTheItemsSideAsTheyAre) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const List<PlotGroup> empty = {PlotGroup{.id = identifier(1), .name = "Empty", .itemIDs = {}}};
  DocumentCommand::replaceGroups(empty).apply(project, environment);
  EXPECT_EQ(project.groups, empty);
  EXPECT_EQ(project.items, sampleProject().items);
}

TEST(ReplaceLayers, StoresTheGivenListAndRelayersNoItem) {
  expectReplacement(&DocumentCommand::replaceLayers, &KorrinProject::layers, &ReplaceLayers::layers,
                    another(sampleProject().layers));
  expectReplacement(&DocumentCommand::replaceLayers, &KorrinProject::layers, &ReplaceLayers::layers,
                    List<PlotLayer>{});
}

TEST(ReplaceAssetManifest, StoresTheGivenListAndKeepsTheItems) {
  expectReplacement(&DocumentCommand::replaceAssetManifest, &KorrinProject::assetManifest,
                    &ReplaceAssetManifest::entries, another(sampleProject().assetManifest));
  expectReplacement(&DocumentCommand::replaceAssetManifest, &KorrinProject::assetManifest,
                    &ReplaceAssetManifest::entries, List<AssetManifestEntry>{});
}

TEST(ReplaceStage, StoresTheGivenStage) {
  StageDefinition stage = sampleProject().stage;
  stage.audienceEdge = AudienceEdge::left;
  expectReplacement(&DocumentCommand::replaceStage, &KorrinProject::stage, &ReplaceStage::stage,
                    stage);
}

TEST(ReplaceInputs, StoresTheGivenList) {
  expectReplacement(&DocumentCommand::replaceInputs, &KorrinProject::inputs, &ReplaceInputs::inputs,
                    another(sampleProject().inputs));
}

TEST(ReplaceMonitorMixes, StoresTheGivenList) {
  expectReplacement(&DocumentCommand::replaceMonitorMixes, &KorrinProject::monitorMixes,
                    &ReplaceMonitorMixes::monitorMixes, another(sampleProject().monitorMixes));
}

TEST(ReplaceEquipment, StoresTheGivenList) {
  expectReplacement(&DocumentCommand::replaceEquipment, &KorrinProject::equipmentRequirements,
                    &ReplaceEquipment::equipmentRequirements,
                    another(sampleProject().equipmentRequirements));
}

TEST(ReplaceNotes, StoresTheGivenList) {
  expectReplacement(&DocumentCommand::replaceNotes, &KorrinProject::notes, &ReplaceNotes::notes,
                    another(sampleProject().notes));
}

TEST(ReplaceMetadata, StoresEveryFieldButModifiedAt) {
  ProjectMetadata metadata = sampleProject().metadata;
  metadata.title = "Winter tour";
  metadata.createdAt = test::instant(-5);
  metadata.modifiedAt = test::instant(-9);
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result = DocumentCommand::replaceMetadata(metadata).apply(project, environment);

  metadata.modifiedAt = TestEnvironment::instantOfRead(1);
  EXPECT_EQ(project.metadata, metadata);
  ASSERT_NE(result.inverse.get<ReplaceMetadata>(), nullptr);
  EXPECT_EQ(result.inverse.get<ReplaceMetadata>()->metadata, sampleProject().metadata);
}

TEST(ReplaceMetadata, TouchesAgainWhenUndone) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result =
      DocumentCommand::replaceMetadata(project.metadata).apply(project, environment);
  result.inverse.apply(project, environment);
  EXPECT_EQ(project, test::withModifiedAt(sampleProject(), TestEnvironment::instantOfRead(2)));
  expectUndoAndRedo(sampleProject(), DocumentCommand::replaceMetadata(sampleProject().metadata));
}

TEST(ReplaceProject, StoresTheGivenProjectUntouched) {
  KorrinProject incoming = sampleProject();
  incoming.schemaVersion = 7;
  incoming.items.erase(0);
  incoming.exportSettings.paperSize = PaperSize::letter;
  incoming.metadata.modifiedAt = test::instant(-77);
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result = DocumentCommand::replaceProject(incoming).apply(project, environment);
  EXPECT_EQ(project, incoming);
  EXPECT_EQ(environment.clockReads(), 0);
  ASSERT_NE(result.inverse.get<ReplaceProject>(), nullptr);
  EXPECT_EQ(result.inverse.get<ReplaceProject>()->project, sampleProject());
  expectUndoAndRedo(sampleProject(), DocumentCommand::replaceProject(incoming));
}

TEST(ReplaceProject, NamesTheItemsOfTheNewProjectOnly) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  KorrinProject incoming = sampleProject();
  incoming.items = {test::microphone(identifier(50)), test::microphone(identifier(50))};
  const auto result = DocumentCommand::replaceProject(incoming).apply(project, environment);
  EXPECT_EQ(result.changes.changedItemIDs, IDSet{identifier(50)});
}

}  // namespace
}  // namespace korrin
