#include "render/stage_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "assets/known_assets.h"
#include "picture_support.h"
#include "render/label_places.h"
#include "render/tint.h"

namespace korrin::host {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr Box paper = {0, 0, 220, 160};

struct Drawing {
  std::string content;
  std::vector<std::string> texts;
  DrawnStage drawn;
};

Drawing draw(const KorrinProject& project) {
  SvgWriter svg;
  DrawnStage drawn = drawStage(svg, project, paper);
  return {svg.content(), textsOf(svgDocument(paper.width, paper.height, "", svg.content())),
          std::move(drawn)};
}

/// The example with one item only, in the middle of the stage.
KorrinProject oneItem() {
  KorrinProject project = fixedExample();
  PlotItem item = project.items[5];
  item.position = {.x = 0, .y = 0};
  item.rotationDegrees = 0;
  project.items = {item};
  return project;
}

TEST(StageDrawing, NamesTheStageItsMeasuresAndItsScale) {
  const Drawing drawing = draw(fixedExample());
  EXPECT_THAT(drawing.texts, Contains("Main Stage"));
  EXPECT_THAT(drawing.texts, Contains("12 m × 8 m · grid 0.5 m · scale 1:60"));
  EXPECT_THAT(drawing.texts, Contains("12 m"));
  EXPECT_THAT(drawing.texts, Contains("8 m"));
  // 12 m and 8 m at 1:60.
  EXPECT_THAT(drawing.content, HasSubstr("width=\"200\" height=\"133.333\""));
}

TEST(StageDrawing, LeavesOutGridAndDimensionsThatAreNotToBeShown) {
  KorrinProject project = fixedExample();
  const std::size_t withGrid = countOf(draw(project).content, "#d9dde1");
  EXPECT_EQ(withGrid, 25u + 17u);  // every half metre, both edges included
  project.stage.showGrid = false;
  project.stage.showDimensions = false;
  const Drawing drawing = draw(project);
  EXPECT_EQ(countOf(drawing.content, "#d9dde1"), 0u);
  EXPECT_THAT(drawing.texts, Not(Contains("12 m")));
  EXPECT_THAT(drawing.texts, Contains("12 m × 8 m · scale 1:60"));
}

TEST(StageDrawing, ThinsOutAGridTooFineToPrint) {
  KorrinProject project = fixedExample();
  project.stage.gridSpacingMillimeters = 4;
  EXPECT_LT(countOf(draw(project).content, "#d9dde1"), 400u);
}

TEST(StageDrawing, MarksTheAudienceOnEachSide) {
  KorrinProject project = fixedExample();
  std::vector<std::string> drawings;
  for (const AudienceEdge edge : allCases<AudienceEdge>()) {
    project.stage.audienceEdge = edge;
    const Drawing drawing = draw(project);
    EXPECT_EQ(std::ranges::count(drawing.texts, "AUDIENCE"), 1);
    EXPECT_THAT(drawings, Not(Contains(drawing.content)));
    drawings.push_back(drawing.content);
  }
}

TEST(StageDrawing, DrawsVisibleLayersFromTheLowestUp) {
  KorrinProject project = fixedExample();
  PlotLayer layer = project.layers[0];
  const auto addLayer = [&](std::uint8_t number, std::int64_t zIndex, bool isVisible) {
    layer.id = UUID({number});
    layer.zIndex = zIndex;
    layer.isVisible = isVisible;
    project.layers.push_back(layer);
    return layer.id;
  };
  const UUID above = addLayer(1, 5, true);
  const UUID below = addLayer(2, -5, true);
  const UUID hidden = addLayer(3, 9, false);
  const UUID level = addLayer(4, 0, true);
  project.items.edit(0).layerID = above;
  project.items.edit(1).layerID = level;
  project.items.edit(3).layerID = below;
  project.items.edit(4).layerID = hidden;
  project.items.edit(5).layerID = UUID({99});  // of a layer that is gone
  std::vector<std::string> labels;
  for (const PlotItem* item : drawnItems(project)) labels.push_back(item->label.str());
  EXPECT_THAT(labels, ElementsAre("KEYS", "BASS AMP", "GUITAR AMP", "MIX 2", "MIX 3", "CLEAN POWER",
                                  "DRUMS"));
  EXPECT_THAT(draw(project).texts, Not(Contains("LEAD VOCAL")));
}

TEST(StageDrawing, TurnsAndFlipsTheUnturnedSymbolAboutItsCentre) {
  KorrinProject project = oneItem();
  PlotItem& item = project.items.edit(0);
  item.rotationDegrees = 192;
  item.isFlippedHorizontally = true;
  EXPECT_THAT(draw(project).content, HasSubstr("rotate(192) scale(-1 1)"));
  item.isFlippedHorizontally = false;
  item.isFlippedVertically = true;
  item.rotationDegrees = 720.5;
  EXPECT_THAT(draw(project).content, HasSubstr("rotate(0.5) scale(1 -1)"));
  item.isFlippedVertically = false;
  item.rotationDegrees = 360;
  EXPECT_THAT(draw(project).content, Not(HasSubstr("scale(")));
}

TEST(StageDrawing, PutsItemsToScaleWhereTheyStand) {
  KorrinProject project = oneItem();
  PlotItem& item = project.items.edit(0);
  item.kind = PlotItemKind::riser;
  item.assetID = "krn.staging.riser.v1";
  item.position = {.x = 1200, .y = -600};
  item.size = {.width = 3000, .height = 1500};
  const std::string content = draw(project).content;
  // The stage's centre lies at 110, 76.5 on this paper.
  EXPECT_THAT(content, HasSubstr("translate(130 66.5)"));
  EXPECT_THAT(content, HasSubstr("<rect x=\"-25\" y=\"-12.5\" width=\"50\" height=\"25\""));
}

TEST(StageDrawing, TintsWhatHasAColourAndIgnoresWhatIsNone) {
  KorrinProject project = oneItem();
  const std::string plain = draw(project).content;
  PlotItemStyle& style = project.items.edit(0).style;
  style.tintHex = "#0A84fe";
  EXPECT_THAT(draw(project).content, HasSubstr("fill=\"#0A84fe\""));
  style.tintHex = "\"/><script>";
  EXPECT_EQ(draw(project).content, plain);
}

TEST(StageDrawing, LabelsByVisibilityAndScale) {
  KorrinProject project = oneItem();
  EXPECT_THAT(draw(project).content, HasSubstr("font-size=\"2.7\""));
  PlotItemStyle& style = project.items.edit(0).style;
  style.labelScale = 2;
  EXPECT_THAT(draw(project).content, HasSubstr("font-size=\"5.4\""));
  style.labelScale = 0;
  EXPECT_THAT(draw(project).texts, Not(Contains("MIX 1")));
  style.labelScale = 1;
  style.labelVisible = false;
  EXPECT_THAT(draw(project).texts, Not(Contains("MIX 1")));
}

TEST(StageDrawing, SaysHowHighARiserIs) {
  KorrinProject project = oneItem();
  PlotItem& item = project.items.edit(0);
  item.kind = PlotItemKind::riser;
  item.assetID = "krn.staging.riser.v1";
  item.size = {.width = 4000, .height = 2000};
  item.label = "Drums";
  item.riserHeightMillimeters = 600;
  const Drawing drawing = draw(project);
  EXPECT_THAT(drawing.texts, Contains("Drums · H 0.60 m"));
  EXPECT_THAT(drawing.drawn.risers, ElementsAre("Drums · H 0.60 m"));
  EXPECT_THAT(drawing.drawn.symbols, ElementsAre(Symbol::riser));
}

TEST(StageDrawing, CountsWhatLiesOffThePaper) {
  KorrinProject project = oneItem();
  project.items.edit(0).position.x = 1e6;
  const Drawing drawing = draw(project);
  EXPECT_EQ(drawing.drawn.itemsOutOfSight, 1u);
  EXPECT_THAT(drawing.texts, Not(Contains("MIX 1")));
}

TEST(StageDrawing, LabelsAnItemTooThinToSee) {
  KorrinProject project = oneItem();
  project.items.edit(0).size.width = 5e-324;
  const Drawing drawing = draw(project);
  EXPECT_EQ(drawing.drawn.itemsOutOfSight, 0u);
  EXPECT_THAT(drawing.texts, Contains("MIX 1"));
}

TEST(StageDrawing, SurvivesTheLargestAndSmallestValidGeometry) {
  KorrinProject project = oneItem();
  for (const double width : {1e-308, 1e-3, 1e6})
    for (const double height : {1e-308, 1e6})
      for (const double extent : {5e-324, 1e6})
        for (const double place : {-1e6, 0.0}) {
          project.stage.size = {.width = width, .height = height};
          project.stage.gridSpacingMillimeters = extent;
          PlotItem& item = project.items.edit(0);
          item.size = {.width = extent, .height = 1e6};
          item.position = {.x = place, .y = place};
          item.rotationDegrees = 1.7e308;
          item.style.labelScale = 100;
          const std::string content = draw(project).content;
          EXPECT_THAT(content, Not(HasSubstr("nan")));
          EXPECT_THAT(content, Not(HasSubstr("inf")));
        }
}

TEST(StageDrawing, KeepsLabelsApart) {
  LabelPlaces places({0, 0, 100, 100});
  places.avoid({40, 40, 20, 20});
  const std::vector<Box> candidates = {{40, 60, 20, 5}, {40, 35, 20, 5}, {60, 47, 20, 5}};
  std::vector<Box> taken;
  for (int i = 0; i < 3; ++i) {
    const Box place = places.take(candidates);
    for (const Box& other : taken) EXPECT_EQ(overlap(other, place), 0);
    taken.push_back(place);
  }
}

TEST(StageDrawing, MovesLabelsOntoThePaper) {
  LabelPlaces places({0, 0, 100, 100});
  const std::vector<Box> candidates = {{95, -3, 20, 5}};
  const Box place = places.take(candidates);
  EXPECT_EQ(place.x, 80);
  EXPECT_EQ(place.y, 0);
}

struct ScaleRow {
  const char* name;
  double length, room, number;
};

class CustomaryScale : public testing::TestWithParam<ScaleRow> {};

TEST_P(CustomaryScale, IsTheLargestThatFits) {
  EXPECT_DOUBLE_EQ(scaleNumber(GetParam().length, GetParam().room), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(, CustomaryScale,
                         testing::Values(ScaleRow{"FitsExactly", 12000, 200, 60},
                                         ScaleRow{"NextLarger", 12001, 200, 75},
                                         ScaleRow{"NextDecade", 16500, 200, 100},
                                         ScaleRow{"LargestStage", 1e6, 200, 5000},
                                         ScaleRow{"SmallestStage", 5e-324, 200, 0.1}),
                         [](const auto& row) { return std::string(row.param.name); });

struct TintRow {
  const char* name;
  const char* hex;
  std::optional<Tint> tint;
};

class ItemTint : public testing::TestWithParam<TintRow> {};

TEST_P(ItemTint, IsReadFromHexadecimalDigits) {
  EXPECT_EQ(tintOf(Text(GetParam().hex)), GetParam().tint);
}

INSTANTIATE_TEST_SUITE_P(
    , ItemTint,
    testing::Values(TintRow{"ThreeDigits", "#f0a", Tint{"#ff00aa", 1, true}},
                    TintRow{"SixDigits", "FFcc00", Tint{"#FFcc00", 1, false}},
                    TintRow{"EightDigits", "#ffffff00", Tint{"#ffffff", 0, false}},
                    TintRow{"TwoDigits", "#12", std::nullopt},
                    TintRow{"SevenDigits", "1234567", std::nullopt},
                    TintRow{"NoDigits", "#zzzzzz", std::nullopt},
                    TintRow{"Empty", "", std::nullopt}, TintRow{"TwoSigns", "##fff", std::nullopt},
                    TintRow{"WiderDigits", "ＦＦ", std::nullopt}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Symbols, KnowTheArtworkOfTheTemplates) {
  PlotItem item = fixedExample().items[0];
  item.kind = PlotItemKind::custom;
  for (const std::string_view asset : builtinAssets) {
    item.assetID = asset;
    EXPECT_NE(symbolOf(item), Symbol::custom) << asset;
  }
}

TEST(Symbols, DifferFromKindToKind) {
  PlotItem item = fixedExample().items[0];
  item.assetID = "of another host";
  std::vector<std::string> drawings;
  for (const PlotItemKind kind : allCases<PlotItemKind>()) {
    item.kind = kind;
    SvgWriter svg;
    drawSymbol(svg, symbolOf(item), 20, 20, std::nullopt);
    EXPECT_THAT(drawings, Not(Contains(svg.content())));
    drawings.push_back(svg.content());
  }
}

}  // namespace
}  // namespace korrin::host
