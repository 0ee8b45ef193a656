// What holds for every drawing, whoever wrote the plot.

#include <algorithm>
#include <chrono>
#include <ctime>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "korrin/drawing/outlines.h"
#include "korrin/drawing/plot_drawing.h"

#include "tests/support/effort.h"
#include "tests/support/hostile_plots.h"
#include "tests/support/image_builder.h"
#include "tests/support/sample_project.h"
#include "tests/support/svg_reader.h"

namespace korrin {
namespace {

using test::readSvg;

std::string imageBytes() {
  std::string bytes;
  for (const std::byte byte : test::png({.width = 40, .height = 30}))
    bytes += static_cast<char>(byte);
  return bytes;
}

TEST(DrawingLaws, GiveAFaultlessPictureOfAnyPlot) {
  const std::string image = imageBytes();
  const int count = test::repetitions(10'000, 150);
  for (int seed = 1; seed <= count; ++seed) {
    const KorrinProject project = test::HostilePlots(static_cast<unsigned>(seed)).next();
    const DrawingOptions options = {
        .utcOffset = std::chrono::minutes(seed % 3 == 0 ? 1'000'000 : seed),
        .assetBytes = [&image, seed](const Text&) -> std::optional<std::string> {
          if (seed % 2 == 0) return std::nullopt;
          return image;
        },
        .labelScale = seed % 5 == 0 ? 1e300 : 1,
        .patchNumbers = seed % 7 != 0,
        .scaleBar = seed % 11 != 0};
    for (const std::string& page : drawPages(project, options))
      ASSERT_EQ(readSvg(page).fault, "") << "seed " << seed;
    ASSERT_EQ(readSvg(drawPlot(project)).fault, "") << "seed " << seed;
    ASSERT_EQ(readSvg(drawStackedPages(project)).fault, "") << "seed " << seed;
    for (const PlotItem& item : project.items) {
      ASSERT_EQ(readSvg(drawSymbol(item)).fault, "") << "seed " << seed;
      itemsAt(project, outlineOf(item)[0]);
    }
  }
}

TEST(DrawingLaws, GiveTheSameBytesTwice) {
  for (unsigned seed = 1; seed <= 50; ++seed) {
    const KorrinProject project = test::HostilePlots(seed).next();
    EXPECT_EQ(drawPages(project), drawPages(test::HostilePlots(seed).next())) << "seed " << seed;
  }
}

/// So many labelled items with a row each: all in one spot, each of another size.
KorrinProject crowd(std::size_t count) {
  KorrinProject project = test::fixedExample();
  PlotItem item = project.items[0];
  InputChannel input = project.inputs[0];
  project.items = {};
  project.inputs = {};
  for (std::size_t i = 0; i < count; ++i) {
    item.id = test::identifier(i);
    item.size.width = 100 + static_cast<double>(i) / 100;
    item.label = "A label that takes two lines " + std::to_string(i);
    project.items.push_back(item);
    input.id = test::identifier(count + i);
    input.plotItemID = item.id;
    input.channel = static_cast<std::int64_t>(i);
    project.inputs.push_back(input);
  }
  return project;
}

// Processor time, so that other work on the machine does not count.
double secondsFor(std::size_t count) {
  const KorrinProject project = crowd(count);
  const std::clock_t begin = std::clock();
  EXPECT_FALSE(drawPages(project).empty());
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

TEST(DrawingLaws, TakeTimeInProportionToTheItems) {
  const std::size_t many = static_cast<std::size_t>(test::repetitions(100'000, 8'000));
  const double few = std::max(0.02, secondsFor(many / 8));
  // Eight times as many may take eight times as long and some more, but not sixty-four times.
  EXPECT_LT(secondsFor(many), 28 * few);
}

TEST(DrawingLaws, TakeNumbersOfOneItemInProportionToTheRows) {
  KorrinProject project = crowd(4'000);
  for (std::size_t i = 0; i < project.inputs.size(); ++i) {
    project.inputs.edit(i).plotItemID = project.items[0].id;
    project.inputs.edit(i).channel = static_cast<std::int64_t>(2 * i);
  }
  std::string all;
  for (const std::string& text : test::textsOf(drawStackedPages(project))) all += text + " ";
  EXPECT_NE(all.find("7998"), std::string::npos);
}

/// Bytes of all pictures of a plot of `scale` times as many items, pages and letters of one text.
struct LongText {
  const char* name;
  void (*write)(KorrinProject& project, const std::string& text);
};

std::size_t bytesWith(const LongText& place, std::size_t scale) {
  KorrinProject project = crowd(100 * scale);
  std::string body;
  for (std::size_t line = 0; line < 2'000 * scale; ++line) body += "a\n";
  project.notes = {{.id = test::identifier(1'000'000), .title = "Lines", .body = body}};
  place.write(project, std::string(10'000 * scale, 'x'));
  std::size_t bytes = drawPlot(project).size();
  for (const std::string& page : drawPages(project)) bytes += page.size();
  return bytes;
}

class PicturesOfALongText : public testing::TestWithParam<LongText> {};

TEST_P(PicturesOfALongText, GrowNoFasterThanThePlot) {
  const std::size_t once = bytesWith(GetParam(), 1);
  // What is written for each item or page makes it sixteen times as much.
  EXPECT_LT(bytesWith(GetParam(), 4), 6 * once);
}

INSTANTIATE_TEST_SUITE_P(
    , PicturesOfALongText,
    testing::Values(LongText{"Title",
                             [](KorrinProject& project, const std::string& text) {
                               project.metadata.title = text;
                             }},
                    LongText{"HiddenLayer",
                             [](KorrinProject& project, const std::string& text) {
                               for (std::size_t i = 0; i < project.layers.size(); ++i) {
                                 project.layers.edit(i).isVisible = false;
                                 project.layers.edit(i).name = text;
                               }
                             }},
                    LongText{"FileName",
                             [](KorrinProject& project, const std::string& text) {
                               const std::string digest(64, 'a');
                               project.assetManifest = {{.sha256 = digest,
                                                         .filename = text,
                                                         .mediaType = "image/png",
                                                         .byteCount = 1}};
                               for (std::size_t i = 0; i < project.items.size(); ++i)
                                 project.items.edit(i).assetID = digest;
                             }}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(DrawingLaws, ListInFullWhateverTheyShorten) {
  std::string text = std::string(300, 'l') + " ";
  for (int i = 0; i < 300; ++i) text += "Ж";
  for (const bool isLayer : {true, false}) {
    KorrinProject project = crowd(2);
    if (isLayer) {
      project.layers.edit(0).name = text;
      project.layers.edit(0).isVisible = false;
    } else {
      project.assetManifest = {{.sha256 = std::string(64, 'a'),
                                .filename = text,
                                .mediaType = "image/png",
                                .byteCount = 1}};
      for (std::size_t i = 0; i < 2; ++i) project.items.edit(i).assetID = std::string(64, 'a');
    }
    std::string all;
    for (const std::string& line : test::textsOf(drawStackedPages(project))) all += line;
    EXPECT_GE(test::countOf(all, "Ж"), 300u) << isLayer;
  }
}

}  // namespace
}  // namespace korrin
