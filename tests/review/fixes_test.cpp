#include "korrin/review/fixes.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/safe_fixes.h"

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using enum PreflightRule;

InputChannel input(std::uint64_t id, std::optional<std::int64_t> channel, Text source,
                   std::optional<UUID> item = std::nullopt) {
  return {.id = identifier(id),
          .channel = channel,
          .source = std::move(source),
          .microphoneOrDI = "",
          .stand = "",
          .phantomPower = false,
          .notes = "",
          .plotItemID = item};
}

MonitorMix mix(std::uint64_t id, std::optional<std::int64_t> number, Text name,
               std::optional<UUID> item = std::nullopt) {
  return {.id = identifier(id),
          .number = number,
          .name = std::move(name),
          .type = "",
          .outputPatch = "Out 1",
          .notes = "",
          .plotItemID = item};
}

PlotItem labelled(std::uint64_t id, Text label, PlotItemKind kind = PlotItemKind::microphone) {
  PlotItem item = microphone(identifier(id));
  item.label = std::move(label);
  item.kind = kind;
  return item;
}

KorrinProject emptyProject() {
  KorrinProject project = sampleProject();
  project.stage.size = {.width = 8'000, .height = 6'000};
  project.items = {};
  project.groups = {};
  project.inputs = {};
  project.monitorMixes = {};
  project.equipmentRequirements = {};
  return project;
}

// The fixes of the first finding by this rule.
std::vector<Fix> fixesOf(PreflightRule rule, const KorrinProject& project) {
  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {}))
    if (issue.rule == rule) return fixesFor(issue, project, TestEnvironment());
  ADD_FAILURE() << "there is no such finding";
  return {};
}

std::vector<std::string> titlesOf(PreflightRule rule, const KorrinProject& project) {
  std::vector<std::string> titles;
  for (const Fix& fix : fixesOf(rule, project)) titles.push_back(fix.title.str());
  return titles;
}

KorrinProject mended(const Fix& fix, KorrinProject project) {
  fix.command.apply(project, TestEnvironment());
  return project;
}

TEST(FixesOfDuplicates, GiveTheLowestFreeNumberOrNone) {
  KorrinProject project = emptyProject();
  project.inputs = {
      input(1, 2, "Kick"),   input(2, 2, "Snare"),
      input(3, 1, "Bass"),   input(4, std::numeric_limits<std::int64_t>::max(), "Far"),
      input(5, -3, "Below"), input(6, 4, "Keys")};
  EXPECT_THAT(titlesOf(duplicateInputChannel, project),
              testing::ElementsAre("Give input 2 \"Kick\" channel 3",
                                   "Remove the channel of input 2 \"Kick\""));
  const std::vector<Fix> fixes = fixesOf(duplicateInputChannel, project);
  EXPECT_EQ(mended(fixes[0], project).inputs[0].channel, 3);
  EXPECT_EQ(mended(fixes[1], project).inputs[0].channel, std::nullopt);

  project.monitorMixes = {mix(7, 9, "Keys"), mix(8, 9, "")};
  EXPECT_THAT(
      titlesOf(duplicateMonitorMix, project),
      testing::ElementsAre("Give mix 9 \"Keys\" number 1", "Remove the number of mix 9 \"Keys\""));
}

TEST(FixesOfAnIncompleteInput, CopyTheLabelAsItStands) {
  KorrinProject project = emptyProject();
  project.items = {labelled(20, " Kick \n")};
  project.inputs = {input(1, 1, " ", identifier(20))};
  const std::vector<Fix> fixes = fixesOf(incompleteInput, project);
  ASSERT_EQ(fixes.size(), 1u);
  EXPECT_EQ(mended(fixes[0], project).inputs[0].source.str(), " Kick \n");
  EXPECT_EQ(fixes[0].title.str(),
            "Set the source of input 1 to \" Kick \\n\", the label of its symbol");

  project.items.edit(0).label = "\u3000";
  EXPECT_TRUE(fixesOf(incompleteInput, project).empty());
  project.inputs.edit(0).plotItemID = std::nullopt;
  EXPECT_TRUE(fixesOf(incompleteInput, project).empty());
}

TEST(FixesOfAnUnplacedRow, LinkToTheOnlySymbolOfThatName) {
  KorrinProject project = emptyProject();
  project.items = {labelled(20, "Kick", PlotItemKind::riser), labelled(21, " Kick\t"),
                   labelled(22, "Kick", PlotItemKind::monitor)};
  project.inputs = {input(1, 1, "Kick ")};
  project.monitorMixes = {mix(2, 1, "Kick")};
  const std::vector<Fix> ofInput = fixesOf(unplacedInput, project);
  ASSERT_EQ(ofInput.size(), 1u);
  EXPECT_EQ(mended(ofInput[0], project).inputs[0].plotItemID, identifier(21));
  const std::vector<Fix> ofMix = fixesOf(unplacedMonitor, project);
  ASSERT_EQ(ofMix.size(), 1u);
  EXPECT_EQ(mended(ofMix[0], project).monitorMixes[0].plotItemID, identifier(22));

  project.items.push_back(labelled(23, "Kick", PlotItemKind::custom));
  EXPECT_TRUE(fixesOf(unplacedInput, project).empty());
  project.inputs.edit(0).source = " ";
  project.items = {labelled(20, " ")};
  EXPECT_TRUE(fixesOf(unplacedInput, project).empty());
}

TEST(FixesOfAnUnplacedRow, CompareTextsAsUsersMeanThem) {
  KorrinProject project = emptyProject();
  project.items = {labelled(20, "Caf\u00e9")};
  project.inputs = {input(1, 1, "Cafe\u0301")};
  EXPECT_EQ(fixesOf(unplacedInput, project).size(), 1u);
  project.inputs.edit(0).source = "caf\u00e9";
  EXPECT_TRUE(fixesOf(unplacedInput, project).empty());
}

TEST(FixesOfAMissingLabel, TakeWhatTheOnlyRowSaysOrHideIt) {
  KorrinProject project = emptyProject();
  project.items = {labelled(20, "")};
  project.items.edit(0).style.labelVisible = true;
  project.monitorMixes = {mix(2, 1, "Keys", identifier(20))};
  const std::vector<Fix> fixes = fixesOf(missingItemLabel, project);
  ASSERT_EQ(fixes.size(), 2u);
  EXPECT_EQ(mended(fixes[0], project).items[0].label, "Keys");
  EXPECT_FALSE(mended(fixes[1], project).items[0].style.labelVisible);

  project.inputs = {input(1, 1, "Keys", identifier(20))};
  EXPECT_EQ(fixesOf(missingItemLabel, project).size(), 1u);
  project.monitorMixes = {};
  EXPECT_EQ(fixesOf(missingItemLabel, project).size(), 2u);
  project.inputs.edit(0).source = " ";
  EXPECT_EQ(fixesOf(missingItemLabel, project).size(), 1u);
}

TEST(FixesOfALostLink, RemoveItFromTheRowThatTheTitleNames) {
  KorrinProject project = emptyProject();
  const UUID gone = identifier(999);
  project.inputs = {input(1, 1, "Kick", gone)};
  project.monitorMixes = {mix(1, 1, "Keys", gone)};
  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {})) {
    const std::vector<Fix> fixes = fixesFor(issue, project);
    ASSERT_EQ(fixes.size(), 1u);
    const KorrinProject after = mended(fixes[0], project);
    const bool isInput = issue.title == "Input link is invalid";
    EXPECT_EQ(after.inputs[0].plotItemID.has_value(), !isInput);
    EXPECT_EQ(after.monitorMixes[0].plotItemID.has_value(), isInput);
  }
}

TEST(FixesOfASymbolOutside, MoveItNoFurtherThanItMust) {
  KorrinProject project = emptyProject();
  project.items = {microphone(identifier(20), -5'000, 100)};
  std::vector<Fix> fixes = fixesOf(itemOutsideStage, project);
  ASSERT_EQ(fixes.size(), 1u);
  EXPECT_EQ(mended(fixes[0], project).items[0].position, (StagePoint{-3'900, 100}));
  EXPECT_EQ(fixes[0].title.str(), "Move microphone \"" + project.items[0].label.str() +
                                      "\" inside the stage, to x -3900 mm, y 100 mm");

  project.items.edit(0).size = {.width = 8'000, .height = 6'000};
  EXPECT_EQ(mended(fixesOf(itemOutsideStage, project)[0], project).items[0].position,
            StagePoint::zero);
  project.items.edit(0).size.width = std::nextafter(8'000.0, 9'000.0);
  EXPECT_TRUE(fixesOf(itemOutsideStage, project).empty());
  project.items.edit(0).size.width = 1;
  project.items.edit(0).position.y = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(fixesOf(itemOutsideStage, project).empty());
  project.items.edit(0).position = {-std::numeric_limits<double>::infinity(), 0};
  EXPECT_TRUE(fixesOf(itemOutsideStage, project).empty());
}

TEST(FixesOfASymbolOutside, AreInsideInTheArithmeticThatReports) {
  int nudged = 0;
  for (int i = 1; i <= 2'000; ++i) {
    KorrinProject project = emptyProject();
    project.stage.size.width = 8'000.0 / 7 + 0.1 * i;
    project.items = {microphone(identifier(20), 1e6, 0)};
    // Extents below zero, which a document may hold, are where plain subtraction rounds outwards.
    project.items.edit(0).size.width = (i % 2 == 0 ? 1'000.0 : -5e6) / i / 3;
    const std::vector<Fix> fixes = fixesOf(itemOutsideStage, project);
    ASSERT_EQ(fixes.size(), 1u) << i;
    const PlotItem item = mended(fixes[0], project).items[0];
    nudged += item.position.x != project.stage.size.width * 0.5 - item.size.width * 0.5;
  }
  EXPECT_GT(nudged, 0);
}

TEST(FixesOfAQuantity, SetItToOneOrRemoveTheLine) {
  KorrinProject project = sampleProject();
  project.equipmentRequirements.edit(0).quantity = -2;
  const std::vector<Fix> fixes = fixesOf(invalidEquipmentQuantity, project);
  ASSERT_EQ(fixes.size(), 2u);
  EXPECT_EQ(mended(fixes[0], project).equipmentRequirements[0].quantity, 1);
  EXPECT_EQ(mended(fixes[1], project).equipmentRequirements.size(),
            project.equipmentRequirements.size() - 1);
}

TEST(Fixes, AreNoneWhereOnlyAPersonCanKnow) {
  KorrinProject project = emptyProject();
  project.items = {microphone(identifier(20))};
  project.monitorMixes = {mix(1, 1, "Keys", identifier(20))};
  project.monitorMixes.edit(0).outputPatch = "";
  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {"another"}))
    EXPECT_TRUE(fixesFor(issue, project).empty()) << issue.id.str();
}

TEST(Fixes, AreNoneForAFindingThatTheProjectDoesNotHave) {
  KorrinProject project = emptyProject();
  project.inputs = {input(1, 5, "Kick", identifier(20)), input(2, 5, "Snare")};
  project.items = {microphone(identifier(20))};
  const PreflightIssue issue = PreflightEngine::inspect(project, {}).front();
  ASSERT_EQ(fixesFor(issue, project).size(), 2u);
  const auto changed = [&](auto member, auto value) {
    PreflightIssue other = issue;
    other.*member = value;
    return fixesFor(other, project);
  };
  EXPECT_TRUE(changed(&PreflightIssue::id, "x").empty());
  EXPECT_TRUE(changed(&PreflightIssue::rule, incompleteInput).empty());
  EXPECT_TRUE(changed(&PreflightIssue::severity, PreflightSeverity::warning).empty());
  EXPECT_TRUE(changed(&PreflightIssue::title, "Duplicate input channel 6").empty());
  EXPECT_TRUE(changed(&PreflightIssue::detail, "x").empty());
  EXPECT_TRUE(changed(&PreflightIssue::relatedID, identifier(77)).empty());
  EXPECT_TRUE(changed(&PreflightIssue::recordID, identifier(77)).empty());
}

TEST(Fixes, ReplaceTheProjectWhereTwoItemsShareAnIdentifier) {
  KorrinProject project = emptyProject();
  project.items = {microphone(identifier(20)), microphone(identifier(20), 9'000, 0)};
  project.items.edit(0).label = "First";
  const std::vector<Fix> fixes = fixesOf(itemOutsideStage, project);
  ASSERT_EQ(fixes.size(), 1u);
  KorrinProject after = project;
  const CommandResult result = fixes[0].command.apply(after);
  EXPECT_EQ(after.items[0], project.items[0]);
  EXPECT_EQ(after.items[1].position.x, 3'900);
  result.inverse.apply(after);
  EXPECT_EQ(after, project);
}

TEST(Fixes, EscapeAndShortenNamesInTheirTitles) {
  KorrinProject project = emptyProject();
  project.inputs = {input(1, 5, "\x1b[2J\u202E\u2028" + std::string(200, 'x')), input(2, 5, "b")};
  EXPECT_EQ(titlesOf(duplicateInputChannel, project)[0],
            "Give input 5 \"\\u{1B}[2J\\u{202E}\\u{2028}" + std::string(54, 'x') + "…\" channel 1");
}

TEST(SafeFixes, MendWhatHasOneFixInOneCommand) {
  KorrinProject project = sampleProject();
  project.items.edit(0).position.x = 1e6;
  project.items.edit(0).style.tintHex = "red";
  project.items.edit(1).layerID = identifier(999);
  const std::optional<SafeFixes> fixes = safeFixes(project);
  ASSERT_TRUE(fixes);
  EXPECT_GE(fixes->titles.size(), 3u);
  KorrinProject mended = project;
  const CommandResult result = fixes->command.apply(mended);
  EXPECT_EQ(mended.items[1].layerID, project.layers[0].id);
  EXPECT_EQ(mended.items[0].style.tintHex, std::nullopt);
  EXPECT_LT(mended.items[0].position.x, project.stage.size.width);
  EXPECT_FALSE(safeFixes(mended));
  result.inverse.apply(mended);
  EXPECT_EQ(mended, project);
}

TEST(SafeFixes, LinkToTheFreshIdentifierOfARecordThatSharedIts) {
  KorrinProject project = KorrinProject::newDocument();
  PlotItem wedge{};
  wedge.id = project.layers[0].id;
  wedge.kind = PlotItemKind::monitor;
  wedge.label = "Vocals";
  wedge.layerID = project.layers[0].id;
  wedge.size = {.width = 600, .height = 400};
  project.items.push_back(wedge);
  MonitorMix mix{};
  mix.id = identifier(2);
  mix.name = "Vocals";
  mix.outputPatch = "Aux 1";
  project.monitorMixes.push_back(mix);
  const std::optional<SafeFixes> fixes = safeFixes(project);
  ASSERT_TRUE(fixes);
  fixes->command.apply(project);
  EXPECT_NE(project.items[0].id, project.layers[0].id);
  EXPECT_EQ(project.monitorMixes[0].plotItemID, project.items[0].id);
}

TEST(SafeFixes, LeaveAcceptedFindingsAlone) {
  KorrinProject project = sampleProject();
  project.items.edit(0).style.tintHex = "red";
  project.items.edit(1).style.tintHex = "red";
  WaiverList accepted = {.schemaVersion = 1, .waivers = {}};
  accepted.waivers.push_back({.findingID = "unreadableTint:" + project.items[0].id.text(),
                              .reason = "red it is",
                              .author = "",
                              .date = {}});
  KorrinProject mended = project;
  safeFixes(project, accepted)->command.apply(mended);
  EXPECT_EQ(mended.items[0].style.tintHex, "red");
  EXPECT_EQ(mended.items[1].style.tintHex, std::nullopt);
}

}  // namespace
}  // namespace korrin::test
