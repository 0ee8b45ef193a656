#include "korrin/drawing/plot_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/drawing/symbol_catalogue.h"

#include "tests/support/image_builder.h"
#include "tests/support/sample_project.h"
#include "tests/support/svg_reader.h"

namespace korrin {
namespace {

using test::countOf;
using test::fixedExample;
using test::readSvg;
using test::textsOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* digest = "0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef";

std::string png(std::uint32_t width, std::uint32_t height) {
  std::string bytes;
  for (const std::byte byte : test::png({.width = width, .height = height}))
    bytes += static_cast<char>(byte);
  return bytes;
}

/// The example with three items that show one image.
KorrinProject withImage(const char* mediaType = "image/png") {
  KorrinProject project = fixedExample();
  project.assetManifest.push_back(
      {.sha256 = digest, .filename = "logo.png", .mediaType = mediaType, .byteCount = 100});
  for (const std::size_t i : {0u, 1u, 2u}) project.items.edit(i).assetID = digest;
  return project;
}

/// Options that give these bytes for every digest, and how often they were asked.
struct Source {
  explicit Source(std::string given) : bytes(std::move(given)) {}

  DrawingOptions options() {
    return {.assetBytes = [this](const Text& sha256) {
      ++asked[sha256.str()];
      return std::optional(bytes);
    }};
  }

  std::string bytes;
  std::map<std::string, int> asked;
};

/// What the picture's images hold: the beginnings of their references.
std::vector<std::string> imagesIn(const std::string& svg) {
  std::vector<std::string> images;
  for (const test::SvgElement& element : readSvg(svg).elements)
    if (element.name == "image")
      images.push_back(element.attributes.at("xlink:href").substr(0, 22));
  return images;
}

TEST(DrawPlot, DrawsTheStageAlone) {
  const std::vector<std::string> texts = textsOf(drawPlot(fixedExample()));
  EXPECT_THAT(texts, Contains("Main Stage"));
  EXPECT_THAT(texts, Contains("DRUMS"));
  EXPECT_THAT(texts, Contains(HasSubstr("12 m × 8 m · grid 0.5 m · scale 1:")));
  EXPECT_THAT(texts, Not(Contains("Legend")));
}

TEST(DrawPlot, ScalesLabels) {
  EXPECT_THAT(drawPlot(fixedExample(), {.labelScale = 2}), HasSubstr("font-size=\"5.4\""));
  EXPECT_THAT(textsOf(drawPlot(fixedExample(), {.labelScale = 0})), Not(Contains("DRUMS")));
}

TEST(DrawPlot, DrawsAnImageOnceHoweverOftenItIsShown) {
  Source source(png(40, 30));
  const std::string svg = drawPlot(withImage(), source.options());
  EXPECT_THAT(source.asked, testing::ElementsAre(testing::Pair(digest, 1)));
  EXPECT_THAT(imagesIn(svg), testing::ElementsAre("data:image/png;base64,"));
  EXPECT_EQ(countOf(svg, "<use xlink:href=\"#a0\""), 3u);
}

TEST(DrawPlot, NamesTheFormatThatAnImageHas) {
  Source source(png(40, 30));
  EXPECT_THAT(imagesIn(drawPlot(withImage("image/jpeg"), source.options())),
              testing::ElementsAre("data:image/png;base64,"));
}

/// A place of the stored image on the drawing of the upright one.
StagePoint upright(const test::SvgElement& image, StagePoint place) {
  double left = 0, top = 0, degrees = 0, sign = 1;
  const std::string transform = image.attributes.at("transform");
  std::sscanf(transform.c_str(), "translate(%lf %lf)", &left, &top);
  if (const auto at = transform.find("rotate"); at != std::string::npos)
    std::sscanf(transform.c_str() + at, "rotate(%lf)", &degrees);
  if (transform.find("scale(-1 1)") != std::string::npos) sign = -1;
  const double cosine = std::round(std::cos(degrees * 3.14159265 / 180));
  const double sine = std::round(std::sin(degrees * 3.14159265 / 180));
  return {.x = left + cosine * sign * place.x - sine * place.y,
          .y = top + sine * sign * place.x + cosine * place.y};
}

struct TurnedPhoto {
  const char* name;
  std::uint8_t orientation;
  const char* viewBox;
  StagePoint first;   // where the corner of the first stored row and column stands
  StagePoint across;  // where the other end of that row stands
};

class DrawPlotOfATurnedPhoto : public testing::TestWithParam<TurnedPhoto> {};

TEST_P(DrawPlotOfATurnedPhoto, StandsItUpright) {
  const TurnedPhoto& row = GetParam();
  Source source(test::textOf(test::turnedPhoto(row.orientation, 40, 30)));
  const std::string svg = drawPlot(withImage("image/jpeg"), source.options());
  const auto elements = readSvg(svg).elements;
  const auto image = std::ranges::find(elements, "image", &test::SvgElement::name);
  ASSERT_NE(image, elements.end());
  EXPECT_EQ(image->attributes.at("width"), "40");
  EXPECT_EQ(image->attributes.at("height"), "30");
  EXPECT_THAT(svg, HasSubstr("<symbol id=\"a0\" viewBox=\"" + std::string(row.viewBox) + '"'));
  EXPECT_EQ(upright(*image, {.x = 0, .y = 0}), row.first);
  EXPECT_EQ(upright(*image, {.x = 40, .y = 0}), row.across);
  // A renderer that obeys the camera's note finds none.
  const std::string unturned = drawPlot(
      withImage("image/jpeg"), Source(test::textOf(test::turnedPhoto(1, 40, 30))).options());
  const auto plain = readSvg(unturned).elements;
  EXPECT_EQ(
      image->attributes.at("xlink:href"),
      std::ranges::find(plain, "image", &test::SvgElement::name)->attributes.at("xlink:href"));
}

INSTANTIATE_TEST_SUITE_P(
    EveryTurn, DrawPlotOfATurnedPhoto,
    testing::Values(TurnedPhoto{"Mirrored", 2, "0 0 40 30", {40, 0}, {0, 0}},
                    TurnedPhoto{"UpsideDown", 3, "0 0 40 30", {40, 30}, {0, 30}},
                    TurnedPhoto{"UpsideDownAndMirrored", 4, "0 0 40 30", {0, 30}, {40, 30}},
                    TurnedPhoto{"LeftAndMirrored", 5, "0 0 30 40", {0, 0}, {0, 40}},
                    TurnedPhoto{"Right", 6, "0 0 30 40", {30, 0}, {30, 40}},
                    TurnedPhoto{"RightAndMirrored", 7, "0 0 30 40", {30, 40}, {30, 0}},
                    TurnedPhoto{"Left", 8, "0 0 30 40", {0, 40}, {0, 0}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(DrawPlot, LeavesAnUprightPhotoAsItIs) {
  Source source(test::textOf(test::turnedPhoto(1, 40, 30)));
  EXPECT_THAT(drawPlot(withImage("image/jpeg"), source.options()),
              HasSubstr("<image width=\"40\" height=\"30\" xlink:href="));
}

TEST(DrawPlot, FramesWhatCannotBeShown) {
  Source garbage("no image");
  Source huge(png(20'000, 20'000));
  Source pdf("%PDF-1.7");
  for (const DrawingOptions& options :
       {DrawingOptions(), garbage.options(), huge.options(), pdf.options(),
        DrawingOptions{.assetBytes = [](const Text&) { return std::nullopt; }}}) {
    const std::string svg = drawPlot(withImage(), options);
    EXPECT_THAT(imagesIn(svg), IsEmpty());
    EXPECT_EQ(std::ranges::count(textsOf(svg), "logo.png"), 3);
  }
}

TEST(DrawPlot, FramesAnImageThatIsCalledAPDF) {
  Source source(png(40, 30));
  EXPECT_THAT(imagesIn(drawPlot(withImage("application/pdf"), source.options())), IsEmpty());
}

TEST(DrawPlot, NamesAFrameByItsDigestWithoutAFileName) {
  KorrinProject project = withImage();
  project.assetManifest = {};
  EXPECT_THAT(drawPlot(project), HasSubstr(digest));
}

TEST(DrawPlot, NamesAFrameByItsDigestWhereTheFileNameCannotBeSeen) {
  KorrinProject project = withImage();
  for (const char* name : {"", "  ", "\x01", "\u202E"}) {
    project.assetManifest.edit(project.assetManifest.size() - 1).filename = name;
    EXPECT_THAT(drawPlot(project), HasSubstr("<title>" + std::string(digest)));
  }
}

TEST(DrawSymbol, FramesAnImageAndBearsItsDigest) {
  const std::string svg = drawSymbol(withImage().items[0]);
  EXPECT_EQ(readSvg(svg).fault, "");
  EXPECT_THAT(svg, HasSubstr("<title>" + std::string(digest)));
}

TEST(DrawPlot, StopsAtTheTotalOfPixels) {
  KorrinProject project = fixedExample();
  for (const std::size_t i : {0u, 1u, 2u}) {
    const Text sha256 = std::to_string(i) + std::string(digest).substr(1);
    project.assetManifest.push_back(
        {.sha256 = sha256, .filename = "wall", .mediaType = "image/png", .byteCount = 1});
    project.items.edit(i).assetID = sha256;
  }
  Source source(png(7000, 6000));
  const std::string svg = drawPlot(project, source.options());
  EXPECT_EQ(imagesIn(svg).size(), 2u);
  EXPECT_EQ(std::ranges::count(textsOf(svg), "wall"), 1);
}

TEST(DrawPlot, PassesOnWhatTheSourceOfImagesThrows) {
  const DrawingOptions options = {.assetBytes = [](const Text&) -> std::optional<std::string> {
    throw std::runtime_error("gone");
  }};
  EXPECT_THROW(drawPages(withImage(), options), std::runtime_error);
}

TEST(DrawPages, DrawsTheSamePicturesTwice) {
  EXPECT_EQ(drawPages(fixedExample()), drawPages(fixedExample()));
  EXPECT_EQ(drawPlot(fixedExample()), drawPlot(fixedExample()));
}

TEST(DrawPages, IsAboutTheTextsOfTheStackedOnes) {
  std::vector<std::string> separate;
  for (const std::string& page : drawPages(fixedExample()))
    for (const std::string& text : textsOf(page)) separate.push_back(text);
  const std::vector<std::string> stacked = textsOf(drawStackedPages(fixedExample()));
  EXPECT_THAT(stacked, testing::UnorderedElementsAreArray(separate));
}

TEST(DrawSymbol, DoesNotMindPositionAndRotation) {
  for (const Symbol& symbol : builtInSymbols()) {
    PlotItem item = makeItem(symbol, StagePoint::zero, UUID());
    const std::string svg = drawSymbol(item);
    EXPECT_EQ(readSvg(svg).fault, "");
    item.position = {.x = 17, .y = 4};
    item.rotationDegrees = 33;
    EXPECT_EQ(drawSymbol(item), svg);
  }
}

TEST(DrawSymbol, HasTheItemsProportionsFlipsAndTint) {
  PlotItem item = makeItem(builtInSymbols()[0], StagePoint::zero, UUID());
  item.size = {.width = 2000, .height = 1000};
  EXPECT_THAT(drawSymbol(item), HasSubstr("viewBox=\"0 0 24 12\""));
  item.isFlippedHorizontally = true;
  EXPECT_THAT(drawSymbol(item), HasSubstr("scale(-1 1)"));
  item.style.tintHex = "#0a84fe";
  EXPECT_THAT(drawSymbol(item), HasSubstr("fill=\"#0a84fe\""));
}

}  // namespace
}  // namespace korrin
