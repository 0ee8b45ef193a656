// Pictures by what stands where: elements, texts and places to a tenth of a millimetre. Fonts, the
// shapes of symbols and the way numbers are written may change without these; nothing may move,
// come or go. With KORRIN_WRITE_GOLDEN set the files are written anew, to be looked at before they
// are kept.

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/revision_marks.h"
#include "korrin/drawing/symbol_catalogue.h"

#include "tests/support/files.h"
#include "tests/support/sample_project.h"
#include "tests/support/svg_reader.h"

namespace korrin {
namespace {

using test::identifier;

/// The text with every number in it rounded to a tenth. A colour has none, though its digits may
/// read like one: 40e26.
std::string rounded(std::string_view text) {
  if (text.starts_with('#')) return std::string(text);
  std::string result;
  while (!text.empty()) {
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc()) {
      result += text.front();
      text.remove_prefix(1);
      continue;
    }
    const long long tenths = std::llround(number * 10);
    result += (tenths < 0 ? "-" : "") + std::to_string(std::abs(tenths) / 10);
    if (tenths % 10 != 0) result += "." + std::to_string(std::abs(tenths) % 10);
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  }
  return result;
}

/// A line for each element but those that symbols are made of.
std::string structureOf(const std::string& svg) {
  constexpr std::array places = {"id", "xlink:href", "transform", "points", "viewBox",
                                 "x",  "y",          "width",     "height", "x1",
                                 "y1", "x2",         "y2",        "stroke", "text-anchor"};
  const test::SvgPicture picture = test::readSvg(svg);
  EXPECT_EQ(picture.fault, "");
  std::string lines;
  bool isInSymbol = false;
  for (const test::SvgElement& element : picture.elements) {
    const bool isShape = element.name == "rect" || element.name == "ellipse" ||
                         element.name == "line" || element.name == "polygon";
    if (isInSymbol && isShape) continue;
    isInSymbol = element.name == "g" && element.attributes.contains("id");
    lines += element.name;
    for (const char* name : places)
      if (const auto found = element.attributes.find(name); found != element.attributes.end())
        lines += " " + found->first + "=" + rounded(found->second.substr(0, 60));
    const bool isText = element.name == "text" || element.name == "title";
    lines += isText ? " | " + element.text + "\n" : "\n";
  }
  return lines;
}

constexpr const char* logoDigest =
    "0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef";

/// A riser with a microphone upon it, a wedge beside the stage, a logo, a label that is too long
/// and an item on a hidden layer.
KorrinProject plot() {
  KorrinProject project = test::fixedExample();
  project.metadata.title = "Golden";
  project.metadata.eventDate = project.metadata.createdAt + std::chrono::hours(40);
  const UUID layer = project.layers[0].id;
  PlotLayer hidden = project.layers[0];
  hidden.id = identifier(50);
  hidden.name = "Spares";
  hidden.isVisible = false;
  project.layers.push_back(hidden);
  project.stage.size = {.width = 8000, .height = 5000};
  project.items = {};
  std::uint64_t number = 100;
  const auto add = [&](std::string_view assetID, StagePoint place, const char* label) -> PlotItem& {
    for (const Symbol& symbol : builtInSymbols()) {
      if (symbol.assetID != assetID) continue;
      PlotItem item = makeItem(symbol, place, layer);
      item.id = identifier(number++);
      item.label = label;
      project.items.push_back(item);
    }
    return project.items.edit(project.items.size() - 1);
  };
  add("krn.staging.riser.v1", {.x = 0, .y = -1500}, "Drums").riserHeightMillimeters = 400;
  add("krn.audio.microphone.v1", {.x = 200, .y = -1400}, "Overhead").rotationDegrees = 30;
  add("krn.audio.wedge.v1", {.x = -4600, .y = 1900}, "Mix 1").isFlippedHorizontally = true;
  add("krn.people.performer.v1", {.x = 2500, .y = 1000},
      "The singer who is also the one who plays the second guitar in the songs of the first set "
      "and "
      "the accordion in those of the second");
  PlotItem& logo = add("krn.furniture.table.v1", {.x = -2000, .y = 1000}, "");
  logo.assetID = logoDigest;
  add("krn.audio.wedge.v1", {.x = 1000, .y = 1500}, "Spare wedge").layerID = hidden.id;
  project.assetManifest.push_back(
      {.sha256 = logoDigest, .filename = "logo.png", .mediaType = "image/png", .byteCount = 100});
  while (project.inputs.size() > 2) project.inputs.erase(project.inputs.size() - 1);
  project.inputs.edit(0).plotItemID = identifier(101);
  project.inputs.edit(1).plotItemID = identifier(101);
  while (project.monitorMixes.size() > 1) project.monitorMixes.erase(1);
  project.monitorMixes.edit(0).plotItemID = identifier(102);
  return project;
}

void expectGolden(const std::string& name, const std::vector<std::string>& pictures) {
  std::string structure;
  for (const std::string& picture : pictures) structure += structureOf(picture);
  const std::string file = "tests/drawing/golden/" + name + ".txt";
  if (std::getenv("KORRIN_WRITE_GOLDEN") != nullptr) {
    std::ofstream(std::filesystem::path(KORRIN_SOURCE_DIR) / file) << structure;
    FAIL() << file << " is written anew";
  }
  EXPECT_EQ(structure, test::contentOfSource(file));
}

class GoldenEdges : public testing::TestWithParam<AudienceEdge> {};

TEST_P(GoldenEdges, HoldTheirElementsInTheirPlaces) {
  KorrinProject project = plot();
  project.stage.audienceEdge = GetParam();
  expectGolden("edge-" + std::string(rawValue(GetParam())), {drawPlot(project)});
}

INSTANTIATE_TEST_SUITE_P(, GoldenEdges, testing::ValuesIn(allCases<AudienceEdge>()),
                         [](const auto& row) { return std::string(rawValue(row.param)); });

class GoldenPapers : public testing::TestWithParam<PaperSize> {};

TEST_P(GoldenPapers, HoldTheirElementsInTheirPlaces) {
  KorrinProject project = plot();
  project.exportSettings.paperSize = GetParam();
  expectGolden("sheets-" + std::string(rawValue(GetParam())),
               drawPages(project, {.utcOffset = std::chrono::minutes(120)}));
}

TEST_P(GoldenPapers, HoldADeepStageUpright) {
  KorrinProject project = plot();
  project.exportSettings.paperSize = GetParam();
  project.stage.size = {.width = 5000, .height = 8000};
  expectGolden("upright-" + std::string(rawValue(GetParam())), {drawPages(project).front()});
}

INSTANTIATE_TEST_SUITE_P(, GoldenPapers, testing::ValuesIn(allCases<PaperSize>()),
                         [](const auto& row) { return std::string(rawValue(row.param)); });

TEST(GoldenMarks, HoldTheirElementsInTheirPlaces) {
  const KorrinProject project = plot();
  PlotItem former = project.items[1];
  former.position.x -= 1000;
  PlotItem gone = project.items[2];
  gone.id = identifier(200);
  gone.position = {.x = -1000, .y = -500};
  expectGolden("marks", drawMarkedPages(project, {.added = {project.items[3].id},
                                                  .changed = {project.items[0].id},
                                                  .moved = {former},
                                                  .gone = {gone},
                                                  .sentences = {"Two sentences", "tell of it"}}));
}

}  // namespace
}  // namespace korrin
