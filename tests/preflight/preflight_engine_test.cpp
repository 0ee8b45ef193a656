#include "korrin/preflight/preflight_engine.h"

#include <algorithm>
#include <random>

#include <gmock/gmock.h>

#include "tests/support/sample_project.h"

namespace korrin {
void PrintTo(const PreflightIssue& issue, std::ostream* out) {
  *out << rawValue(issue.severity) << " " << issue.id.str() << " \"" << issue.title.str() << "\" \""
       << issue.detail.str() << "\"";
}
}  // namespace korrin

namespace korrin::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;
using Rule = PreflightRule;
using Severity = PreflightSeverity;
using Issues = std::vector<PreflightIssue>;

// A stage of 8 m by 6 m with one layer and nothing on it.
KorrinProject emptyPlot() {
  KorrinProject project = KorrinProject::newDocument();
  project.stage.size = {.width = 8000, .height = 6000};
  return project;
}

PlotItem itemAt(std::uint64_t number, double x, double y) {
  PlotItem item = microphone(identifier(number), x, y);
  item.size = {.width = 1000, .height = 500};
  return item;
}

InputChannel input(std::uint64_t number, std::optional<std::int64_t> channel,
                   std::optional<UUID> item, Text source = "Kick") {
  return {.id = identifier(number),
          .channel = channel,
          .source = std::move(source),
          .microphoneOrDI = "",
          .stand = "",
          .phantomPower = false,
          .notes = "",
          .plotItemID = item};
}

MonitorMix mix(std::uint64_t number, std::optional<std::int64_t> mixNumber,
               std::optional<UUID> item, Text name = "Keys", Text outputPatch = "Out 1") {
  return {.id = identifier(number),
          .number = mixNumber,
          .name = std::move(name),
          .type = "Wedge",
          .outputPatch = std::move(outputPatch),
          .notes = "",
          .plotItemID = item};
}

EquipmentRequirement equipment(std::uint64_t number, std::int64_t quantity,
                               std::optional<UUID> item = std::nullopt) {
  return {.id = identifier(number),
          .category = "Power",
          .item = "Clean power",
          .quantity = quantity,
          .suppliedBy = "Venue",
          .notes = "",
          .plotItemID = item};
}

Issues inspect(const KorrinProject& project) { return PreflightEngine::inspect(project, {}); }

// A plot whose one item, number 1, carries the lists under test.
KorrinProject plotWithItem() {
  KorrinProject project = emptyPlot();
  project.items = {itemAt(1, 0, 0)};
  return project;
}
const UUID theItem = identifier(1);
const UUID lostItem = identifier(77);

TEST(Preflight, FindsNothingInAnEmptyPlotWhateverIsKnown) {
  EXPECT_THAT(PreflightEngine::inspect(emptyPlot(), {}), IsEmpty());
  EXPECT_THAT(PreflightEngine::inspect(emptyPlot(), {"krn.audio.wedge.v1"}), IsEmpty());
}

TEST(PreflightInputs, ReportEveryUseOfARepeatedChannel) {
  KorrinProject project = plotWithItem();
  project.inputs = {input(11, 5, theItem), input(12, 7, theItem), input(13, 5, lostItem),
                    input(14, std::nullopt, theItem), input(15, std::nullopt, theItem)};
  const auto duplicate = [](std::uint64_t number, std::optional<UUID> related) {
    return PreflightIssue(Rule::duplicateInputChannel, Severity::error, "Duplicate input channel 5",
                          "Each input channel must be unique.", related, identifier(number));
  };
  EXPECT_THAT(inspect(project), ElementsAre(duplicate(11, theItem), duplicate(13, std::nullopt),
                                            PreflightIssue(Rule::invalidPlotReference,
                                                           Severity::error, "Input link is invalid",
                                                           "The linked plot item no longer exists.",
                                                           std::nullopt, identifier(13))));
}

TEST(PreflightInputs, WriteANegativeChannelWithItsSign) {
  KorrinProject project = plotWithItem();
  project.inputs = {input(11, -3, theItem), input(12, -3, theItem)};
  EXPECT_EQ(inspect(project).at(0).title, "Duplicate input channel -3");
}

class PreflightBlankSource : public testing::TestWithParam<const char*> {};

TEST_P(PreflightBlankSource, IsIncomplete) {
  KorrinProject project = plotWithItem();
  project.inputs = {input(11, 1, theItem, GetParam())};
  EXPECT_THAT(inspect(project),
              ElementsAre(PreflightIssue(
                  Rule::incompleteInput, Severity::warning, "Input source is missing",
                  "Add a source name to the input list.", theItem, identifier(11))));
}

INSTANTIATE_TEST_SUITE_P(Texts, PreflightBlankSource,
                         testing::Values("", "   ", "\n", "\r\n\t", "\u00A0\u2003\u2029"));

TEST(PreflightInputs, NeedNothingButASource) {
  KorrinProject project = plotWithItem();
  project.inputs = {input(11, std::nullopt, theItem, "x"), input(12, 1, theItem, "\u200B")};
  EXPECT_THAT(inspect(project), IsEmpty());
}

TEST(PreflightInputs, AreReportedWhenNotPlaced) {
  KorrinProject project = plotWithItem();
  project.inputs = {input(11, 1, std::nullopt)};
  EXPECT_THAT(inspect(project),
              ElementsAre(PreflightIssue(
                  Rule::unplacedInput, Severity::information, "Input is not placed",
                  "This input is not linked to a plot symbol.", std::nullopt, identifier(11))));
}

TEST(PreflightInputs, WithALostItemAreNotAlsoUnplaced) {
  KorrinProject project = plotWithItem();
  project.inputs = {input(11, 1, lostItem, " ")};
  EXPECT_THAT(
      inspect(project),
      ElementsAre(
          PreflightIssue(Rule::invalidPlotReference, Severity::error, "Input link is invalid",
                         "The linked plot item no longer exists.", std::nullopt, identifier(11)),
          PreflightIssue(Rule::incompleteInput, Severity::warning, "Input source is missing",
                         "Add a source name to the input list.", std::nullopt, identifier(11))));
}

TEST(PreflightMixes, ReportEveryUseOfARepeatedNumber) {
  KorrinProject project = plotWithItem();
  project.monitorMixes = {mix(21, 2, theItem),
                          mix(22, 2, theItem),
                          mix(23, 2, theItem),
                          mix(24, 10, theItem),
                          mix(25, std::nullopt, theItem),
                          mix(26, std::nullopt, theItem)};
  const Issues issues = inspect(project);
  ASSERT_THAT(issues, SizeIs(3));
  for (std::size_t i = 0; i < issues.size(); ++i)
    EXPECT_EQ(
        issues[i],
        PreflightIssue(Rule::duplicateMonitorMix, Severity::error, "Duplicate monitor mix 2",
                       "Each monitor mix number must be unique.", theItem, identifier(21 + i)));
}

TEST(PreflightMixes, AreNamedInTheAdviceOnTheirOutput) {
  const auto adviceFor = [](Text name) {
    KorrinProject project = plotWithItem();
    project.monitorMixes = {mix(21, 1, theItem, std::move(name), " \n")};
    const Issues issues = inspect(project);
    EXPECT_THAT(issues, SizeIs(1));
    EXPECT_EQ(issues.at(0), PreflightIssue(Rule::monitorWithoutOutput, Severity::warning,
                                           "Monitor output is missing", issues.at(0).detail,
                                           theItem, identifier(21)));
    return issues.at(0).detail.str();
  };
  EXPECT_EQ(adviceFor("IEM 1"), "Add an output patch for IEM 1.");
  EXPECT_EQ(adviceFor(""), "Add an output patch for this mix.");
  EXPECT_EQ(adviceFor("  "), "Add an output patch for   .");
}

TEST(PreflightMixes, AreReportedWhenNotPlacedOrWhenTheirItemIsLost) {
  KorrinProject project = plotWithItem();
  project.monitorMixes = {mix(21, 1, std::nullopt), mix(22, 2, lostItem)};
  EXPECT_THAT(
      inspect(project),
      ElementsAre(
          PreflightIssue(Rule::invalidPlotReference, Severity::error, "Monitor link is invalid",
                         "The linked plot item no longer exists.", std::nullopt, identifier(22)),
          PreflightIssue(Rule::unplacedMonitor, Severity::information, "Monitor mix is not placed",
                         "This mix is not linked to a monitor symbol.", std::nullopt,
                         identifier(21))));
}

TEST(PreflightEquipment, NeedsAQuantityAboveZero) {
  KorrinProject project = plotWithItem();
  project.equipmentRequirements = {equipment(31, 0), equipment(32, -2, theItem), equipment(33, 1)};
  const auto invalid = [](std::uint64_t number, std::optional<UUID> related) {
    return PreflightIssue(Rule::invalidEquipmentQuantity, Severity::error,
                          "Invalid equipment quantity", "Quantity must be greater than zero.",
                          related, identifier(number));
  };
  EXPECT_THAT(inspect(project), ElementsAre(invalid(31, std::nullopt), invalid(32, theItem)));
}

TEST(PreflightEquipment, MayStandOffThePlotButNotPointAtALostItem) {
  KorrinProject project = plotWithItem();
  project.equipmentRequirements = {equipment(31, 1), equipment(32, 1, lostItem)};
  EXPECT_THAT(inspect(project),
              ElementsAre(PreflightIssue(
                  Rule::invalidPlotReference, Severity::error, "Equipment link is invalid",
                  "The linked plot item no longer exists.", std::nullopt, identifier(32))));
}

TEST(PreflightItems, NeedALabelWhereItIsVisible) {
  KorrinProject project = plotWithItem();
  project.items.edit(0).label = " ";
  EXPECT_THAT(inspect(project),
              ElementsAre(PreflightIssue(
                  Rule::missingItemLabel, Severity::information, "Symbol label is empty",
                  "A visible label helps venue teams read the plot.", theItem)));
  project.items.edit(0).style.labelVisible = false;
  project.items.edit(0).label = "";
  EXPECT_THAT(inspect(project), IsEmpty());
}

bool isReportedOutside(const PlotItem& item) {
  KorrinProject project = emptyPlot();
  project.items = {item};
  const Issues issues = inspect(project);
  const PreflightIssue expected(Rule::itemOutsideStage, Severity::warning,
                                "Symbol is outside the stage",
                                "Move the symbol inside the stage boundary.", item.id);
  EXPECT_TRUE(issues.empty() || issues == Issues{expected});
  return !issues.empty();
}

TEST(PreflightItems, AreInsideUpToTheEdgeOfTheStage) {
  EXPECT_FALSE(isReportedOutside(itemAt(1, 3500, 0)));
  EXPECT_TRUE(isReportedOutside(itemAt(1, 3500.5, 0)));
  EXPECT_TRUE(isReportedOutside(itemAt(1, -3500.5, 0)));
  EXPECT_FALSE(isReportedOutside(itemAt(1, 0, 2750)));
  EXPECT_TRUE(isReportedOutside(itemAt(1, 0, 2750.5)));
  EXPECT_TRUE(isReportedOutside(itemAt(1, 0, -2750.5)));
}

TEST(PreflightItems, AreMeasuredUnrotated) {
  PlotItem item = itemAt(1, 3500, 2750);
  item.rotationDegrees = 45;
  EXPECT_FALSE(isReportedOutside(item));
}

TEST(PreflightItems, ThatCannotBeComparedAreNotOutside) {
  EXPECT_FALSE(isReportedOutside(itemAt(1, std::numeric_limits<double>::quiet_NaN(), 0)));
  EXPECT_TRUE(isReportedOutside(itemAt(1, std::numeric_limits<double>::infinity(), 0)));
}

TEST(PreflightItems, NeedAKnownOrEmbeddedAsset) {
  KorrinProject project = plotWithItem();
  project.items.push_back(itemAt(2, 0, 0));
  project.items.edit(0).assetID = "krn.audio.wedge.v1";
  project.items.edit(1).assetID = "abc123";
  project.assetManifest = {{.sha256 = "abc123", .filename = "", .mediaType = "", .byteCount = 0}};
  EXPECT_THAT(PreflightEngine::inspect(project, {"krn.audio.wedge.v1"}), IsEmpty());
  EXPECT_THAT(
      PreflightEngine::inspect(project, {"krn.other.v1"}),
      ElementsAre(PreflightIssue(Rule::missingAsset, Severity::error, "Symbol asset is missing",
                                 "The symbol cannot be rendered.", theItem)));
  project.assetManifest.clear();
  EXPECT_THAT(PreflightEngine::inspect(project, {"krn.audio.wedge.v1"}), SizeIs(1));
  EXPECT_THAT(PreflightEngine::inspect(project, {}), IsEmpty());
}

TEST(PreflightItems, OnHiddenAndLockedLayersAreInspected) {
  KorrinProject project = plotWithItem();
  project.items.edit(0).label = "";
  project.layers.edit(0).isVisible = false;
  project.layers.edit(0).isLocked = true;
  EXPECT_THAT(inspect(project), SizeIs(1));
}

// Every rule at least once.
KorrinProject troubledPlot() {
  KorrinProject project = plotWithItem();
  project.items.push_back(itemAt(2, 9000, 0));
  project.items.edit(1).label = "";
  for (std::int64_t i = 0; i < 24; ++i)
    project.inputs.push_back(input(100 + static_cast<std::uint64_t>(i), i % 12,
                                   i % 3 == 0 ? std::optional(theItem) : std::nullopt,
                                   i % 4 == 0 ? "" : "Kick"));
  project.inputs.push_back(input(150, 99, lostItem));
  project.monitorMixes = {mix(201, 1, std::nullopt, "b", ""), mix(202, 1, theItem, "a", "")};
  project.equipmentRequirements = {equipment(301, 0), equipment(302, 1, lostItem)};
  return project;
}

TEST(PreflightOrder, IsBySeverityThenTitleThenDetailThenIdentifier) {
  const Issues issues = PreflightEngine::inspect(troubledPlot(), {"krn.none.v1"});
  const auto key = [](const PreflightIssue& issue) {
    return std::tuple(static_cast<int>(issue.severity), issue.title.str(), issue.detail.str(),
                      issue.id.str());
  };
  EXPECT_TRUE(std::ranges::is_sorted(issues, {}, key));
  std::unordered_set<std::string_view> rules;
  for (const PreflightIssue& issue : issues) rules.insert(rawValue(issue.rule));
  EXPECT_THAT(rules, SizeIs(11));
}

TEST(PreflightOrder, PutsChannelTenBeforeChannelTwo) {
  KorrinProject project = plotWithItem();
  project.inputs = {input(11, 2, theItem), input(12, 2, theItem), input(13, 10, theItem),
                    input(14, 10, theItem)};
  const Issues issues = inspect(project);
  ASSERT_THAT(issues, SizeIs(4));
  EXPECT_EQ(issues[0].title, "Duplicate input channel 10");
  EXPECT_EQ(issues[3].title, "Duplicate input channel 2");
}

TEST(PreflightOrder, DoesNotDependOnTheOrderOfTheLists) {
  KorrinProject project = troubledPlot();
  const Issues expected = inspect(project);
  std::mt19937 random(7);
  for (int round = 0; round < 20; ++round) {
    std::vector<InputChannel> inputs = project.inputs.toVector();
    std::ranges::shuffle(inputs, random);
    project.inputs = inputs;
    EXPECT_EQ(inspect(project), expected);
  }
}

TEST(PreflightOrder, IsByTheRelatedItemWhereRecordsShareAnIdentifier) {
  KorrinProject project = emptyPlot();
  for (std::uint64_t number = 40; number > 0; --number) {
    project.items.push_back(itemAt(number, 0, 0));
    project.inputs.push_back(input(99, std::nullopt, identifier(number), " "));
  }
  const Issues issues = inspect(project);
  ASSERT_THAT(issues, SizeIs(40));
  for (std::size_t i = 0; i < 40; ++i) EXPECT_EQ(issues[i].relatedID, identifier(i + 1));
}

TEST(Preflight, LeavesTheProjectAsItIs) {
  const KorrinProject project = troubledPlot();
  const KorrinProject before = project;
  inspect(project);
  EXPECT_EQ(project, before);
}

}  // namespace
}  // namespace korrin::test
