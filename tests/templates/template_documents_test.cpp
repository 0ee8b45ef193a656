// What holds for every starting document. What each one holds, row by row, the golden documents
// say.

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/templates/korrin_template.h"
#include "korrin/validation/document_validation.h"

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using enum KorrinTemplateID;

struct Expected {
  std::string_view name;
  KorrinProject (*make)(const Environment&);
  int clockReads;
};

template <KorrinTemplateID id>
KorrinProject make(const Environment& environment) {
  return KorrinProject::template_(id, environment);
}

constexpr Expected documents[] = {
    {.name = "SoloAcoustic", .make = make<soloAcoustic>, .clockReads = 2},
    {.name = "PowerTrio", .make = make<powerTrio>, .clockReads = 2},
    {.name = "ElectronicDuo", .make = make<electronicDuo>, .clockReads = 2},
    {.name = "FivePieceBand", .make = make<fivePieceBand>, .clockReads = 4},
    {.name = "Example", .make = KorrinProject::example, .clockReads = 2},
};

class TemplateDocument : public testing::TestWithParam<Expected> {
 protected:
  TestEnvironment environment;
  const KorrinProject project = GetParam().make(environment);
};

TEST_P(TemplateDocument, IsDatedByItsLastTwoReadsOfTheClock) {
  const int reads = GetParam().clockReads;
  EXPECT_EQ(project.metadata.createdAt, TestEnvironment::instantOfRead(reads - 1));
  EXPECT_EQ(project.metadata.modifiedAt, TestEnvironment::instantOfRead(reads));
}

TEST_P(TemplateDocument, HoldsWhatIsCommonToAll) {
  EXPECT_EQ(project.schemaVersion, 1);
  EXPECT_EQ(project.minimumReaderVersion, 1);
  EXPECT_EQ(project.stage.audienceEdge, AudienceEdge::top);
  EXPECT_EQ(project.stage.gridSpacingMillimeters, 500);
  EXPECT_TRUE(project.stage.showGrid && project.stage.showDimensions);
  ASSERT_EQ(project.layers.size(), 1u);
  const PlotLayer layer = {.id = project.layers[0].id,
                           .name = "Stage",
                           .isVisible = true,
                           .isLocked = false,
                           .zIndex = 0};
  EXPECT_EQ(project.layers[0], layer);
  const PlotItemStyle style = {.tintHex = std::nullopt, .labelVisible = true, .labelScale = 1};
  for (const PlotItem& item : project.items) {
    EXPECT_FALSE(item.isFlippedHorizontally || item.isFlippedVertically || item.isLocked);
    EXPECT_EQ(item.layerID, layer.id);
    EXPECT_EQ(item.groupID, std::nullopt);
    EXPECT_EQ(item.riserHeightMillimeters, std::nullopt);
    EXPECT_EQ(item.style, style);
  }
  EXPECT_TRUE(project.groups.empty());
  EXPECT_TRUE(project.assetManifest.empty());
  const ExportSettings settings = {.paperSize = PaperSize::a4,
                                   .includeInputList = true,
                                   .includeMonitorMixes = true,
                                   .includeEquipment = true,
                                   .includeNotes = true};
  EXPECT_EQ(project.exportSettings, settings);
}

TEST_P(TemplateDocument, MakesIdentifiersForTheLayerTheItemsAndEachLineInTurn) {
  int made = 0;
  const auto expectNext = [&made](const auto& records) {
    for (const auto& record : records)
      EXPECT_EQ(record.id, TestEnvironment::identifierMade(++made));
  };
  expectNext(project.layers);
  expectNext(project.items);
  expectNext(project.inputs);
  expectNext(project.monitorMixes);
  expectNext(project.equipmentRequirements);
  expectNext(project.notes);
  EXPECT_EQ(environment.identifiersMade(), made);
}

TEST_P(TemplateDocument, ReadsTheClockOnlyForItsMetadata) {
  EXPECT_EQ(environment.clockReads(), GetParam().clockReads);
}

TEST_P(TemplateDocument, ReadsTheClockBeforeItMakesIdentifiers) {
  std::string calls;
  GetParam().make({.now =
                       [&calls] {
                         calls += 'c';
                         return Instant();
                       },
                   .makeUUID =
                       [&calls] {
                         calls += 'i';
                         return UUID::random();
                       }});
  EXPECT_TRUE(calls.starts_with("cci")) << calls;
  // The five-piece band is dated anew when the example it is made from stands.
  EXPECT_TRUE(calls.ends_with(GetParam().clockReads == 4 ? "icc" : "i")) << calls;
}

TEST_P(TemplateDocument, PassesValidation) {
  EXPECT_NO_THROW(DocumentValidation::validate(project));
}

TEST_P(TemplateDocument, GivesPreflightNothingToReport) {
  std::unordered_set<Text> assets;
  for (const PlotItem& item : project.items) assets.insert(item.assetID);
  EXPECT_THAT(PreflightEngine::inspect(project, assets), testing::IsEmpty());
}

TEST_P(TemplateDocument, NumbersChannelsAndMixesWithoutGaps) {
  for (std::size_t i = 0; i < project.inputs.size(); ++i)
    EXPECT_EQ(project.inputs[i].channel, static_cast<std::int64_t>(i) + 1);
  for (std::size_t i = 0; i < project.monitorMixes.size(); ++i)
    EXPECT_EQ(project.monitorMixes[i].number, static_cast<std::int64_t>(i) + 1);
}

TEST_P(TemplateDocument, HasIdentifiersOfItsOwnEachTime) {
  const KorrinProject one = GetParam().make(Environment::system());
  const KorrinProject other = GetParam().make(Environment::system());
  ASSERT_EQ(one.items.size(), other.items.size());
  for (std::size_t i = 0; i < one.items.size(); ++i) EXPECT_NE(one.items[i].id, other.items[i].id);
  EXPECT_NE(one.layers[0].id, other.layers[0].id);
  EXPECT_NE(one.inputs[0].id, other.inputs[0].id);
  EXPECT_NE(one.notes[0].id, other.notes[0].id);
}

/// The system's clock and identifiers, of which the call after `calls` others throws.
Environment failingAfter(int calls) {
  Environment environment = Environment::system();
  const auto left = std::make_shared<int>(calls);
  const auto call = [left](auto function) {
    return [left, function] {
      if ((*left)-- == 0) throw std::runtime_error("there is no clock and no chance");
      return function();
    };
  };
  environment.now = call(environment.now);
  environment.makeUUID = call(environment.makeUUID);
  return environment;
}

TEST_P(TemplateDocument, PassesOnWhatTheEnvironmentThrows) {
  const int calls = environment.clockReads() + environment.identifiersMade();
  for (int call = 0; call < calls; ++call)
    EXPECT_THROW(GetParam().make(failingAfter(call)), std::runtime_error) << call;
  EXPECT_NO_THROW(GetParam().make(failingAfter(calls)));
}

INSTANTIATE_TEST_SUITE_P(, TemplateDocument, testing::ValuesIn(documents),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(FivePieceBand, IsTheExampleWithOtherMetadata) {
  TestEnvironment environment;
  TestEnvironment anotherEnvironment;
  KorrinProject band = KorrinProject::template_(fivePieceBand, environment);
  const KorrinProject example = KorrinProject::example(anotherEnvironment);
  EXPECT_NE(band, example);
  band.metadata = example.metadata;
  EXPECT_EQ(band, example);
}

}  // namespace
}  // namespace korrin::test
