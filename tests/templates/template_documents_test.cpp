// What stands in the starting documents, row by row.

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

#include "plot_rows.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using enum KorrinTemplateID;

struct Expected {
  std::string_view name;
  KorrinProject (*make)(const Environment&);
  int clockReads;
  std::string_view title, artist, venue, contactEmail;
  std::string_view stageName;
  StageSize stageSize;
  std::string_view items, inputs, mixes, equipment, notes;
};

template <KorrinTemplateID id>
KorrinProject make(const Environment& environment) {
  return KorrinProject::template_(id, environment);
}

constexpr std::string_view festivalItems =
    R"(instrument | krn.instrument.drums.v1 | 0, 2300 | 2200 x 1800 | 360 | DRUMS
amplifier | krn.backline.bass-amp.v1 | -4100, 1800 | 1000 x 850 | 180 | BASS AMP
amplifier | krn.backline.guitar-amp.v1 | 4100, 1800 | 1000 x 700 | 180 | GUITAR AMP
instrument | krn.instrument.keyboard.v1 | -3600, -250 | 1500 x 650 | 360 | KEYS
microphone | krn.audio.microphone.v1 | 0, -1400 | 500 x 900 | 180 | LEAD VOCAL
monitor | krn.audio.wedge.v1 | -3300, -2600 | 900 x 650 | 192 | MIX 1
monitor | krn.audio.wedge.v1 | 0, -2800 | 900 x 650 | 180 | MIX 2
monitor | krn.audio.wedge.v1 | 3300, -2600 | 900 x 650 | 168 | MIX 3
power | krn.utility.power.v1 | -5100, -100 | 500 x 500 | 0 | CLEAN POWER
)";
constexpr std::string_view festivalInputs =
    R"(1 | Kick | Beta 52A | Short boom | off | Inside port | DRUMS
2 | Snare | SM57 | Clip | off | Top | DRUMS
3 | Rack Tom | e904 | Clip | off |  | DRUMS
4 | Floor Tom | e904 | Clip | off |  | DRUMS
5 | Overhead L | C451 | Tall boom | 48 V |  | DRUMS
6 | Overhead R | C451 | Tall boom | 48 V |  | DRUMS
7 | Bass | Active DI |  | 48 V | Pre-EQ | BASS AMP
8 | Guitar | e906 | Short boom | off |  | GUITAR AMP
9 | Keys L | Active DI |  | 48 V |  | KEYS
10 | Keys R | Active DI |  | 48 V |  | KEYS
11 | Lead Vocal | Beta 58A | Tall boom | off |  | LEAD VOCAL
)";
constexpr std::string_view festivalMixes =
    R"(1 | Keys | Wedge | Out 1 | Keys and lead vocal | MIX 1
2 | Lead Vocal | Wedge | Out 2 | Lead vocal, keys, guitar | MIX 2
3 | Guitar | Wedge | Out 3 | Guitar, vocal, kick | MIX 3
)";
constexpr std::string_view festivalEquipment =
    R"(Audio | Active DI box | 3 | Venue | With ground lift | KEYS
Staging | Drum rug | 1 | Venue | Minimum 2 × 2 m | DRUMS
Power | Clean 230 V power | 2 | Venue | Stage left | CLEAN POWER
)";
constexpr std::string_view festivalNotes =
    R"(Advance Notes | Please confirm stage dimensions, console model, and local backline before show day.
Soundcheck | Allow 45 minutes after the stage is fully patched and line checked.
)";

constexpr Expected documents[] = {
    {
        .name = "SoloAcoustic",
        .make = make<soloAcoustic>,
        .clockReads = 2,
        .title = "Solo Acoustic — Venue Advance",
        .artist = "Artist Name",
        .venue = "",
        .contactEmail = "",
        .stageName = "Main Stage",
        .stageSize = {8000, 6000},
        .items = R"(performer | krn.people.performer.v1 | 0, -350 | 700 x 700 | 180 | ARTIST
instrument | krn.instrument.acoustic-guitar.v1 | -850, -50 | 650 x 1200 | 180 | ACOUSTIC
microphone | krn.audio.microphone.v1 | 0, -1050 | 500 x 900 | 180 | VOCAL
monitor | krn.audio.wedge.v1 | 0, -2150 | 900 x 650 | 180 | MIX 1
power | krn.utility.di.v1 | -1250, -700 | 500 x 350 | 0 | ACTIVE DI
power | krn.utility.power.v1 | -2700, -200 | 500 x 500 | 0 | POWER
)",
        .inputs = R"(1 | Acoustic Guitar | Active DI |  | 48 V | Post pedalboard | ACOUSTIC
2 | Lead Vocal | Beta 58A | Tall boom | off |  | VOCAL
)",
        .mixes = R"(1 | Artist | Wedge | Out 1 | Vocal forward, acoustic guitar | MIX 1
)",
        .equipment = R"(Audio | Active DI box | 1 | Venue | With ground lift | ACTIVE DI
Power | 230 V power | 1 | Venue | Stage left | POWER
)",
        .notes =
            R"(Advance | Please confirm the vocal microphone, DI, wedge, and a clear centre-stage performance area.
)",
    },
    {
        .name = "PowerTrio",
        .make = make<powerTrio>,
        .clockReads = 2,
        .title = "Power Trio — Festival Stage",
        .artist = "Band Name",
        .venue = "",
        .contactEmail = "",
        .stageName = "Festival Stage",
        .stageSize = {10000, 7000},
        .items = R"(instrument | krn.instrument.drums.v1 | 0, 2100 | 2200 x 1800 | 360 | DRUMS
amplifier | krn.backline.bass-amp.v1 | -3200, 1500 | 1000 x 850 | 180 | BASS AMP
amplifier | krn.backline.guitar-amp.v1 | 3200, 1500 | 1000 x 700 | 180 | GUITAR AMP
microphone | krn.audio.microphone.v1 | -2500, -1100 | 500 x 900 | 180 | BASS VOCAL
microphone | krn.audio.microphone.v1 | 2500, -1100 | 500 x 900 | 180 | GUITAR VOCAL
monitor | krn.audio.wedge.v1 | -2500, -2350 | 900 x 650 | 180 | MIX 1
monitor | krn.audio.wedge.v1 | 2500, -2350 | 900 x 650 | 180 | MIX 2
monitor | krn.audio.wedge.v1 | 0, 650 | 900 x 650 | 180 | MIX 3
power | krn.utility.power.v1 | -4100, 0 | 500 x 500 | 0 | POWER
)",
        .inputs = R"(1 | Kick | Beta 52A | Short boom | off |  | DRUMS
2 | Snare | SM57 | Clip | off |  | DRUMS
3 | Rack Tom | e904 | Clip | off |  | DRUMS
4 | Floor Tom | e904 | Clip | off |  | DRUMS
5 | Overhead L | C451 | Tall boom | 48 V |  | DRUMS
6 | Overhead R | C451 | Tall boom | 48 V |  | DRUMS
7 | Bass | Active DI |  | 48 V | Pre-EQ | BASS AMP
8 | Guitar | e906 | Short boom | off |  | GUITAR AMP
9 | Bass Vocal | Beta 58A | Tall boom | off |  | BASS VOCAL
10 | Guitar Vocal | Beta 58A | Tall boom | off |  | GUITAR VOCAL
)",
        .mixes = R"(1 | Bass / Vocal | Wedge | Out 1 | Bass vocal, guitar vocal, kick | MIX 1
2 | Guitar / Vocal | Wedge | Out 2 | Guitar vocal, bass vocal, kick | MIX 2
3 | Drums | Wedge | Out 3 | Both vocals, bass, guitar | MIX 3
)",
        .equipment = R"(Audio | Active DI box | 1 | Venue | With ground lift | BASS AMP
Power | Clean backline power | 2 | Venue | Stage left and right | POWER
)",
        .notes = R"(Changeover | Allow 20 minutes from clear stage to line check.
)",
    },
    {
        .name = "ElectronicDuo",
        .make = make<electronicDuo>,
        .clockReads = 2,
        .title = "Electronic Duo — Stereo Playback",
        .artist = "Artist Name",
        .venue = "",
        .contactEmail = "",
        .stageName = "Main Stage",
        .stageSize = {8000, 6000},
        .items = R"(performer | krn.people.performer.v1 | -1600, 500 | 700 x 700 | 180 | ARTIST 1
performer | krn.people.performer.v1 | 1600, 500 | 700 x 700 | 180 | ARTIST 2
instrument | krn.instrument.keyboard.v1 | -1600, -250 | 1200 x 600 | 0 | PLAYBACK
instrument | krn.instrument.keyboard.v1 | 1600, -250 | 1500 x 650 | 0 | KEYS
microphone | krn.audio.microphone.v1 | -1600, -1250 | 500 x 900 | 180 | VOCAL 1
microphone | krn.audio.microphone.v1 | 1600, -1250 | 500 x 900 | 180 | VOCAL 2
monitor | krn.audio.iem.v1 | -2800, 500 | 400 x 400 | 0 | IEM 1
monitor | krn.audio.iem.v1 | 2800, 500 | 400 x 400 | 0 | IEM 2
power | krn.utility.di.v1 | 0, -250 | 500 x 350 | 0 | DI BOXES
power | krn.utility.power.v1 | 0, 1400 | 500 x 500 | 0 | CLEAN POWER
)",
        .inputs = R"(1 | Playback L | Active DI |  | 48 V | Line level | PLAYBACK
2 | Playback R | Active DI |  | 48 V | Line level | PLAYBACK
3 | Keys L | Active DI |  | 48 V |  | KEYS
4 | Keys R | Active DI |  | 48 V |  | KEYS
5 | Vocal 1 | Beta 58A | Tall boom | off |  | VOCAL 1
6 | Vocal 2 | Beta 58A | Tall boom | off |  | VOCAL 2
)",
        .mixes = R"(1 | Artist 1 | IEM | Out 1/2 | Stereo playback, keys, both vocals | IEM 1
2 | Artist 2 | IEM | Out 3/4 | Stereo playback, keys, both vocals | IEM 2
)",
        .equipment = R"(Audio | Active DI box | 4 | Venue | Playback and keys | DI BOXES
Audio | Stereo IEM system | 2 | Venue | One for each artist | IEM 1
Power | Clean 230 V power | 1 | Venue | Upstage centre | CLEAN POWER
)",
        .notes =
            R"(Playback | Playback is delivered at line level on balanced left and right outputs.
)",
    },
    {
        .name = "FivePieceBand",
        .make = make<fivePieceBand>,
        .clockReads = 4,
        .title = "Five-Piece Band — Festival Main Stage",
        .artist = "Band Name",
        .venue = "",
        .contactEmail = "",
        .stageName = "Main Stage",
        .stageSize = {12000, 8000},
        .items = festivalItems,
        .inputs = festivalInputs,
        .mixes = festivalMixes,
        .equipment = festivalEquipment,
        .notes = festivalNotes,
    },
    {
        .name = "Example",
        .make = KorrinProject::example,
        .clockReads = 2,
        .title = "Example — Festival Main Stage",
        .artist = "The Example Band",
        .venue = "Summer Arena",
        .contactEmail = "production@example.com",
        .stageName = "Main Stage",
        .stageSize = {12000, 8000},
        .items = festivalItems,
        .inputs = festivalInputs,
        .mixes = festivalMixes,
        .equipment = festivalEquipment,
        .notes = festivalNotes,
    },
};

class TemplateDocument : public testing::TestWithParam<Expected> {
 protected:
  TestEnvironment environment;
  const KorrinProject project = GetParam().make(environment);
};

TEST_P(TemplateDocument, HoldsExactlyItsRows) {
  EXPECT_EQ(itemRows(project), GetParam().items);
  EXPECT_EQ(inputRows(project), GetParam().inputs);
  EXPECT_EQ(mixRows(project), GetParam().mixes);
  EXPECT_EQ(equipmentRows(project), GetParam().equipment);
  EXPECT_EQ(noteRows(project), GetParam().notes);
}

TEST_P(TemplateDocument, HoldsItsOwnMetadata) {
  const int reads = GetParam().clockReads;
  const ProjectMetadata expected = {
      .title = GetParam().title,
      .artist = GetParam().artist,
      .venue = GetParam().venue,
      .eventDate = std::nullopt,
      .preparedBy = "Production",
      .contactEmail = GetParam().contactEmail,
      .revision = "1",
      .createdAt = TestEnvironment::instantOfRead(reads - 1),
      .modifiedAt = TestEnvironment::instantOfRead(reads),
  };
  EXPECT_EQ(project.metadata, expected);
}

TEST_P(TemplateDocument, HoldsWhatIsCommonToAll) {
  EXPECT_EQ(project.schemaVersion, 1);
  EXPECT_EQ(project.minimumReaderVersion, 1);
  const StageDefinition stage = {.name = GetParam().stageName,
                                 .size = GetParam().stageSize,
                                 .audienceEdge = AudienceEdge::top,
                                 .gridSpacingMillimeters = 500,
                                 .showGrid = true,
                                 .showDimensions = true};
  EXPECT_EQ(project.stage, stage);
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
