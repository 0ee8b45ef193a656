#include "korrin/model/project.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/enumeration_laws.h"
#include "tests/support/full_project.h"
#include "tests/support/record_laws.h"

namespace korrin {
namespace {

const KorrinProject full = test::fullProject();

TEST(ProjectMetadata, KeepsTheRecordLaws) {
  test::expectRecordLaws(full.metadata);
  test::expectRecordLaws(test::sparseProject().metadata);
}

TEST(PaperSize, KeepsTheEnumerationLaws) {
  test::expectEnumerationLaws<PaperSize>({{PaperSize::a4, "a4"}, {PaperSize::letter, "letter"}});
}

TEST(ExportSettings, KeepsTheRecordLaws) { test::expectRecordLaws(full.exportSettings); }

TEST(AssetManifestEntry, KeepsTheRecordLaws) { test::expectRecordLaws(full.assetManifest[0]); }

TEST(AssetManifestEntry, IsIdentifiedByItsDigestEvenAnEmptyOne) {
  AssetManifestEntry entry = full.assetManifest[0];
  EXPECT_EQ(&entry.id(), &entry.sha256);
  entry.sha256 = "";
  EXPECT_EQ(entry.id(), "");
  EXPECT_EQ(encodeJSON(entry).find("\"id\""), std::string::npos);
}

TEST(KorrinProject, KeepsTheRecordLaws) {
  test::expectRecordLaws(full);
  test::expectRecordLaws(test::sparseProject());
}

TEST(KorrinProject, NamesTheVersionsThatItWrites) {
  static_assert(KorrinProject::currentSchemaVersion == 1);
  static_assert(KorrinProject::currentMinimumReaderVersion == 1);
  static_assert(std::same_as<decltype(KorrinProject::currentSchemaVersion), const std::int64_t>);
}

TEST(KorrinProject, KeepsVersionsOfItsOwn) {
  KorrinProject project = full;
  project.schemaVersion = 7;
  project.minimumReaderVersion = 3;
  const KorrinProject copy = decodeJSON<KorrinProject>(encodeJSON(project));
  EXPECT_EQ(copy.schemaVersion, 7);
  EXPECT_EQ(copy.minimumReaderVersion, 3);
}

TEST(KorrinProject, DiffersByItsPaperSizeAlone) {
  KorrinProject other = full;
  other.exportSettings.paperSize = PaperSize::a4;
  EXPECT_FALSE(other == full);
  EXPECT_NE(std::hash<KorrinProject>{}(other), std::hash<KorrinProject>{}(full));
}

TEST(KorrinProject, DiffersByItsLastModificationAlone) {
  KorrinProject other = full;
  other.metadata.modifiedAt += std::chrono::nanoseconds(1);
  EXPECT_FALSE(other == full);
}

// An outside world that counts: each read of the clock is a second later, each identifier one
// higher, and both leave a mark.
struct CountingWorld {
  std::vector<std::string> calls;

  Environment environment() {
    return {.now =
                [this] {
                  calls.push_back("now");
                  return Instant(std::chrono::seconds(calls.size()));
                },
            .makeUUID =
                [this] {
                  calls.push_back("makeUUID");
                  return test::numberedID(static_cast<unsigned>(calls.size()));
                }};
  }
};

TEST(NewDocument, IsAnEmptyPlotWithOneLayer) {
  CountingWorld world;
  const KorrinProject project = KorrinProject::newDocument(world.environment());
  const KorrinProject expected = {
      .schemaVersion = 1,
      .minimumReaderVersion = 1,
      .metadata = {.title = "Untitled Stage Plot",
                   .artist = "",
                   .venue = "",
                   .eventDate = std::nullopt,
                   .preparedBy = "",
                   .contactEmail = "",
                   .revision = "1",
                   .createdAt = Instant(std::chrono::seconds(1)),
                   .modifiedAt = Instant(std::chrono::seconds(2))},
      .stage = {.name = "Main Stage",
                .size = {.width = 12000, .height = 8000},
                .audienceEdge = AudienceEdge::top,
                .gridSpacingMillimeters = 500,
                .showGrid = true,
                .showDimensions = true},
      .layers = {PlotLayer{.id = test::numberedID(3),
                           .name = "Stage",
                           .isVisible = true,
                           .isLocked = false,
                           .zIndex = 0}},
      .items = {},
      .groups = {},
      .inputs = {},
      .monitorMixes = {},
      .equipmentRequirements = {},
      .notes = {},
      .exportSettings = {.paperSize = PaperSize::a4,
                         .includeInputList = true,
                         .includeMonitorMixes = true,
                         .includeEquipment = true,
                         .includeNotes = true},
      .assetManifest = {},
  };
  EXPECT_TRUE(project == expected) << encodeJSON(project);
  EXPECT_EQ(project.schemaVersion, KorrinProject::currentSchemaVersion);
}

TEST(NewDocument, ReadsTheClockTwiceAndMakesOneIdentifier) {
  CountingWorld world;
  (void)KorrinProject::newDocument(world.environment());
  EXPECT_EQ(world.calls, (std::vector<std::string>{"now", "now", "makeUUID"}));
}

TEST(NewDocument, IsAnotherOneEachTime) {
  const KorrinProject first = KorrinProject::newDocument();
  const KorrinProject second = KorrinProject::newDocument();
  EXPECT_FALSE(first == second);
  EXPECT_NE(first.layers[0].id, second.layers[0].id);
  EXPECT_LE(first.metadata.createdAt, first.metadata.modifiedAt);
}

TEST(NewDocument, PassesOnWhatTheEnvironmentThrowsAndLeavesNothingBehind) {
  Environment withoutClock = Environment::system();
  withoutClock.now = []() -> Instant { throw std::runtime_error("no clock"); };
  EXPECT_THROW((void)KorrinProject::newDocument(withoutClock), std::runtime_error);
  Environment withoutIdentifiers = Environment::system();
  withoutIdentifiers.makeUUID = []() -> UUID { throw std::runtime_error("no identifiers"); };
  EXPECT_THROW((void)KorrinProject::newDocument(withoutIdentifiers), std::runtime_error);
}

}  // namespace
}  // namespace korrin
