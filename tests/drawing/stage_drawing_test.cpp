#include "korrin/drawing/stage_drawing.h"

#include <algorithm>
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/drawing/label_places.h"
#include "korrin/drawing/lengths.h"
#include "korrin/drawing/symbol_drawing.h"
#include "korrin/drawing/tint.h"
#include "korrin/model/stacking.h"

#include "tests/support/svg_reader.h"

namespace korrin::drawing {
namespace {

using test::countOf;
using test::fixedExample;
using test::textsOf;
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

Drawing draw(const KorrinProject& project, const DrawingOptions& options = {}) {
  SvgWriter svg;
  ShortenedTexts shortened;
  svg.beginDocument(paper.width, paper.height, "");
  DrawnStage drawn = drawStage(svg, project, options, paper, shortened);
  svg.endDocument();
  return {svg.content(), textsOf(svg.content()), std::move(drawn)};
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
  for (const PlotItem* item : visibleItemsInStackingOrder(project))
    labels.push_back(item->label.str());
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
  EXPECT_THAT(drawing.drawn.looks, ElementsAre(lookOf(item)));
}

TEST(StageDrawing, NamesTheRiserThatHasNoLabel) {
  KorrinProject project = oneItem();
  PlotItem& item = project.items.edit(0);
  item.kind = PlotItemKind::riser;
  item.assetID = "krn.staging.riser.v1";
  item.label = "";
  item.riserHeightMillimeters = 1250;
  EXPECT_THAT(draw(project).drawn.risers, ElementsAre("Riser · H 1.25 m"));
}

TEST(StageDrawing, ShowsAsAWholeWhatStandsBesideTheStage) {
  KorrinProject project = oneItem();
  project.items.edit(0).position = {.x = -7000, .y = 0};
  const Drawing drawing = draw(project);
  EXPECT_TRUE(drawing.drawn.missing.empty());
  EXPECT_THAT(drawing.texts, Contains("MIX 1"));
  EXPECT_THAT(drawing.texts, Contains(HasSubstr("scale 1:75")));
}

TEST(StageDrawing, TakesAnItemOnTheEdgeForOneOnTheStage) {
  KorrinProject project = oneItem();
  PlotItem& item = project.items.edit(0);
  project.stage.size = {.width = 5791.2, .height = 4000};
  // 2336.8 + 1117.6 / 2 is a rounding error above half of 5791.2.
  item.size = {.width = 1117.6, .height = 500};
  item.position = {.x = 2336.8, .y = 0};
  EXPECT_THAT(draw(project).texts, Contains(HasSubstr("scale 1:30")));
  EXPECT_TRUE(draw(project).drawn.missing.empty());
}

TEST(StageDrawing, SaysWhatItDoesNotShowAndWhy) {
  KorrinProject project = fixedExample();
  PlotLayer hidden = project.layers[0];
  hidden.id = UUID({3});
  hidden.name = "Spares";
  hidden.isVisible = false;
  project.layers.push_back(hidden);
  project.items.edit(0).position.x = 1e6;
  project.items.edit(1).layerID = hidden.id;
  project.items.edit(2).layerID = UUID({99});
  PlotItem& wide = project.items.edit(3);
  wide.size.width = 1e6;
  const Drawing drawing = draw(project);
  std::map<std::string, std::string> reasons;
  for (const MissingItem& missing : drawing.drawn.missing)
    reasons.emplace(missing.item->label.str(), missing.reason);
  const std::map<std::string, std::string> expected = {
      {"DRUMS", "off the sheet: 1000 m right of and 2.3 m below the stage’s centre"},
      {"BASS AMP", "its layer “Spares” is hidden"},
      {"GUITAR AMP", "its layer does not exist"},
      {"KEYS", "cut off at the edge of the drawing"}};
  EXPECT_EQ(reasons, expected);
  for (const char* label : {"DRUMS", "BASS AMP", "GUITAR AMP"})
    EXPECT_THAT(drawing.texts, Not(Contains(label)));
}

TEST(StageDrawing, LabelsAnItemTooThinToSee) {
  KorrinProject project = oneItem();
  project.items.edit(0).size.width = 5e-324;
  const Drawing drawing = draw(project);
  EXPECT_TRUE(drawing.drawn.missing.empty());
  EXPECT_THAT(drawing.texts, Contains("MIX 1"));
}

struct SidesRow {
  const char* name;
  AudienceEdge edge;
  const char* atLeft;
  const char* atTop;
};

class StageSides : public testing::TestWithParam<SidesRow> {};

/// Where a text stands, whether it is turned or not.
Place placeOf(const std::string& svg, const std::string& text) {
  const std::vector<test::SvgElement> elements = test::readSvg(svg).elements;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (elements[i].text != text) continue;
    const auto& at = elements[i].attributes;
    if (at.at("x") != "0") return {std::stod(at.at("x")), std::stod(at.at("y"))};
    const std::string moved = elements[i - 1].attributes.at("transform").substr(10);
    return {std::stod(moved), std::stod(moved.substr(moved.find(' ')))};
  }
  ADD_FAILURE() << "no text " << text;
  return {};
}

// Right is the right hand of a performer who looks at the audience.
TEST_P(StageSides, AreThoseOfAPerformer) {
  KorrinProject project = oneItem();
  project.stage.audienceEdge = GetParam().edge;
  const std::string svg = draw(project).content;
  std::vector<std::string> sides = {"stage right", "stage left", "upstage", "downstage"};
  const auto leftmost = std::ranges::min_element(
      sides, {}, [&svg](const std::string& text) { return placeOf(svg, text).x; });
  EXPECT_EQ(*leftmost, GetParam().atLeft);
  const auto topmost = std::ranges::min_element(
      sides, {}, [&svg](const std::string& text) { return placeOf(svg, text).y; });
  EXPECT_EQ(*topmost, GetParam().atTop);
  EXPECT_THAT(textsOf(svg), Contains("centre line"));
}

INSTANTIATE_TEST_SUITE_P(
    , StageSides,
    testing::Values(SidesRow{"Bottom", AudienceEdge::bottom, "stage right", "upstage"},
                    SidesRow{"Top", AudienceEdge::top, "stage left", "downstage"},
                    SidesRow{"Left", AudienceEdge::left, "downstage", "stage right"},
                    SidesRow{"Right", AudienceEdge::right, "upstage", "stage left"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(StageDrawing, HasAScaleBarUnlessItIsNotWanted) {
  EXPECT_THAT(draw(fixedExample()).texts, Contains("1 m"));
  EXPECT_THAT(draw(fixedExample(), {.scaleBar = false}).texts, Not(Contains("1 m")));
}

TEST(StageDrawing, NumbersWhatRowsLinkTo) {
  EXPECT_THAT(draw(fixedExample()).texts, Contains("Ch 1–6"));
  EXPECT_THAT(draw(fixedExample()).texts, Contains("Mix 2"));
  EXPECT_THAT(draw(fixedExample(), {.patchNumbers = false}).texts, Not(Contains("Mix 2")));
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
  const std::vector<LabelCandidate> candidates = {
      {{40, 60, 20, 5}}, {{40, 35, 20, 5}}, {{60, 47, 20, 5}}};
  std::vector<Box> taken;
  for (int i = 0; i < 3; ++i) {
    const Box place = places.find(candidates).box;
    places.take(place);
    for (const Box& other : taken) EXPECT_EQ(overlap(other, place), 0);
    taken.push_back(place);
  }
}

TEST(StageDrawing, LabelsRowsOfSingersBelowEachSinger) {
  KorrinProject project = oneItem();
  project.inputs = {};
  project.monitorMixes = {};
  PlotItem singer = project.items[0];
  singer.kind = PlotItemKind::performer;
  singer.assetID = "krn.people.performer.v1";
  singer.size = {.width = 450, .height = 450};
  project.items = {};
  std::map<std::string, Place> places;
  for (int i = 0; i < 24; ++i) {
    singer.id = UUID({static_cast<std::uint8_t>(i)});
    singer.position = {.x = -3500.0 + (i % 8) * 1000,
                       .y = -2000.0 + static_cast<double>(i / 8) * 900};
    singer.label = "Alto " + std::to_string(i + 1);
    project.items.push_back(singer);
    // The stage's centre lies at 110, 76.5 on this paper, at 1:60.
    places[singer.label.str()] = {110 + singer.position.x / 60, 76.5 + singer.position.y / 60};
  }
  const std::string svg = draw(project).content;
  for (const auto& [label, place] : places) {
    const Place text = placeOf(svg, label);
    EXPECT_NEAR(text.x, place.x, 0.01) << label;
    EXPECT_GT(text.y, place.y + 3.75) << label;
    EXPECT_LT(text.y, place.y + 3.75 + 4) << label;
  }
}

TEST(StageDrawing, BreaksAndShrinksALabelBeforeItCoversAnother) {
  KorrinProject project = oneItem();
  project.inputs = {};
  project.monitorMixes = {};
  PlotItem item = project.items[0];
  item.size = {.width = 400, .height = 400};
  project.items = {};
  for (int i = 0; i < 5; ++i) {
    item.id = UUID({static_cast<std::uint8_t>(i)});
    item.position = {.x = -1200.0 + 600 * i, .y = 0};
    item.label = "Second soprano";
    project.items.push_back(item);
  }
  std::vector<std::string> texts = draw(project).texts;
  EXPECT_GT(std::ranges::count(texts, "Second"), 0);
  EXPECT_EQ(std::ranges::count(texts, "Second"), std::ranges::count(texts, "soprano"));
}

TEST(StageDrawing, NamesNoFontOfColouredEmoji) {
  // Its digits would be taken for those of texts.
  EXPECT_THAT(draw(fixedExample()).content, Not(HasSubstr("Emoji")));
}

TEST(StageDrawing, MovesLabelsOntoThePaper) {
  LabelPlaces places({0, 0, 100, 100});
  const std::vector<LabelCandidate> candidates = {{{95, -3, 20, 5}}};
  const Box place = places.find(candidates).box;
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
    testing::Values(TintRow{"ThreeDigits", "#f0a", std::nullopt},
                    TintRow{"SixDigits", "FFcc00", Tint{"#FFcc00", 1, false}},
                    TintRow{"EightDigits", "#ffffff00", Tint{"#ffffff", 0, false}},
                    TintRow{"TwoDigits", "#12", std::nullopt},
                    TintRow{"SevenDigits", "1234567", std::nullopt},
                    TintRow{"NoDigits", "#zzzzzz", std::nullopt},
                    TintRow{"Empty", "", std::nullopt}, TintRow{"TwoSigns", "##fff", std::nullopt},
                    TintRow{"WiderDigits", "ＦＦ", std::nullopt}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Symbols, DifferFromKindToKind) {
  PlotItem item = fixedExample().items[0];
  item.assetID = "of another host";
  std::vector<std::string> drawings;
  for (const PlotItemKind kind : allCases<PlotItemKind>()) {
    item.kind = kind;
    SvgWriter svg;
    drawLook(svg, lookOf(item), 20, 20, std::nullopt);
    EXPECT_THAT(drawings, Not(Contains(svg.content())));
    drawings.push_back(svg.content());
  }
}

TEST(Lengths, AreWrittenInMetres) {
  EXPECT_EQ(metres(12000), "12 m");
  EXPECT_EQ(metres(8500), "8.5 m");
  EXPECT_EQ(metres(250.4), "0.25 m");
  EXPECT_EQ(metres(-0.2), "0 m");
  EXPECT_EQ(metres(1e300), "? m");
}

}  // namespace
}  // namespace korrin::drawing
