#include "tests/support/hostile_plots.h"

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double none = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();

constexpr std::array numbers = {0.0,     -0.0,   1.0,     -1.0,     500.0,    1000.0,    8000.0,
                                12000.0, 1e6,    -1e6,    1e7,      1e15,     -1e300,    1e300,
                                5e-324,  1e-300, largest, -largest, infinity, -infinity, none,
                                0.5,     45.0,   90.0,    359.999,  1e-3,     2336.8,    99.0};

const std::vector<std::string> pieces = {"<script>alert(1)</script>",
                                         "]]>",
                                         "&amp;",
                                         "&#0;",
                                         "\"",
                                         "'",
                                         "/>",
                                         "<",
                                         ">",
                                         "&",
                                         "onload=\"x\"",
                                         "javascript:x",
                                         "url(http://x)",
                                         "http://example.org/x.png",
                                         "<!--",
                                         "-->",
                                         "<?xml?>",
                                         "%s%n",
                                         std::string(1, '\0'),
                                         "\x01\x1B[31m",
                                         "\x7F",
                                         "\t",
                                         "\n",
                                         "\r\n",
                                         "\xC2\x85",
                                         "\xE2\x80\xA8",
                                         "\xE2\x80\xAE",
                                         "\xEF\xBF\xBE",
                                         "\xEF\xBF\xBF",
                                         "\xEF\xBB\xBF",
                                         "\xFF\xFE",
                                         "\xC0\x80",
                                         "\xED\xA0\x80",
                                         "\xF4\x90\x80\x80",
                                         "e\xCC\x81",
                                         "é",
                                         "ß",
                                         "漢字",
                                         "العربية",
                                         "עברית",
                                         "🎪",
                                         "👩🏽‍🎤",
                                         "ไมโครโฟน",
                                         "\xEF\xB7\xBA",
                                         "word",
                                         " ",
                                         "  ",
                                         "Ch",
                                         "1",
                                         std::string(300, 'x'),
                                         "a" + std::string(40, '.'),
                                         "NaN?",
                                         "…"};

const std::vector<std::string> assets = {
    "krn.audio.wedge.v1",
    "krn.instrument.drums.v1",
    "krn.people.seated.v1",
    "krn.unknown.v1",
    "",
    "0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef",
    "\"/><image xlink:href=\"http://x\""};

const std::vector<std::string> tints = {"#ff0000",      "00ff0080", "#FFF", "red",      "url(#s0)",
                                        "\"/><script>", "#gg0000",  "",     "#ff00001", "ff0000\n"};

}  // namespace

std::size_t HostilePlots::below(std::size_t limit) {
  return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
}

double HostilePlots::number() {
  if (below(3) == 0) return numbers[below(numbers.size())];
  return std::uniform_real_distribution<double>(-7000, 7000)(random_);
}

Text HostilePlots::text() {
  std::string text;
  for (std::size_t count = below(6); count > 0; --count) text += pieces[below(pieces.size())];
  return text;
}

UUID HostilePlots::identifier() { return test::identifier(below(8)); }

std::optional<UUID> HostilePlots::maybeIdentifier() {
  return coin() ? std::optional(identifier()) : std::nullopt;
}

std::optional<std::int64_t> HostilePlots::maybeWhole() {
  constexpr std::array<std::int64_t, 7> wholes = {1,
                                                  2,
                                                  3,
                                                  0,
                                                  -5,
                                                  std::numeric_limits<std::int64_t>::min(),
                                                  std::numeric_limits<std::int64_t>::max()};
  return coin() ? std::optional(wholes[below(wholes.size())]) : std::nullopt;
}

Instant HostilePlots::instant() {
  switch (below(3)) {
    case 0:
      return Instant::min();
    case 1:
      return Instant::max();
    default:
      return test::instant(static_cast<int>(below(1'000'000)));
  }
}

PlotItem HostilePlots::item() {
  PlotItem item = microphone(identifier());
  item.kind = allCases<PlotItemKind>().begin()[below(9)];
  item.assetID = assets[below(assets.size())];
  item.position = {.x = number(), .y = number()};
  item.size = {.width = number(), .height = number()};
  item.rotationDegrees = number();
  item.isFlippedHorizontally = coin();
  item.isFlippedVertically = coin();
  item.layerID = identifier();
  item.label = text();
  if (coin()) item.riserHeightMillimeters = number();
  if (coin()) item.style.tintHex = coin() ? Text(tints[below(tints.size())]) : text();
  item.style.labelVisible = below(4) != 0;
  item.style.labelScale = coin() ? 1 : number();
  return item;
}

template <class Make>
auto HostilePlots::listOf(std::size_t limit, Make make) {
  List<decltype(make())> list;
  for (std::size_t count = below(limit + 1); count > 0; --count) list.push_back(make());
  return list;
}

KorrinProject HostilePlots::next() {
  KorrinProject project = sampleProject();
  project.metadata = {.title = text(),
                      .artist = text(),
                      .venue = text(),
                      .eventDate = coin() ? std::optional(instant()) : std::nullopt,
                      .preparedBy = text(),
                      .contactEmail = text(),
                      .revision = text(),
                      .createdAt = instant(),
                      .modifiedAt = instant()};
  project.stage = {.name = text(),
                   .size = {.width = coin() ? 8000 : number(), .height = coin() ? 6000 : number()},
                   .audienceEdge = allCases<AudienceEdge>().begin()[below(4)],
                   .gridSpacingMillimeters = coin() ? 500 : number(),
                   .showGrid = coin(),
                   .showDimensions = coin()};
  project.layers = listOf(6, [this] {
    return PlotLayer{.id = identifier(),
                     .name = text(),
                     .isVisible = below(4) != 0,
                     .isLocked = coin(),
                     .zIndex = maybeWhole().value_or(0)};
  });
  project.items = listOf(8, [this] { return item(); });
  project.inputs = listOf(4, [this] {
    return InputChannel{.id = identifier(),
                        .channel = maybeWhole(),
                        .source = text(),
                        .microphoneOrDI = text(),
                        .stand = text(),
                        .phantomPower = coin(),
                        .notes = text(),
                        .plotItemID = maybeIdentifier()};
  });
  project.monitorMixes = listOf(3, [this] {
    return MonitorMix{.id = identifier(),
                      .number = maybeWhole(),
                      .name = text(),
                      .type = text(),
                      .outputPatch = text(),
                      .notes = text(),
                      .plotItemID = maybeIdentifier()};
  });
  project.notes = listOf(
      2, [this] { return ProjectNote{.id = identifier(), .title = text(), .body = text()}; });
  project.assetManifest = listOf(2, [this] {
    return AssetManifestEntry{.sha256 = assets[below(assets.size())],
                              .filename = text(),
                              .mediaType = coin() ? Text("image/png") : text(),
                              .byteCount = maybeWhole().value_or(1)};
  });
  project.exportSettings = {.paperSize = coin() ? PaperSize::a4 : PaperSize::letter,
                            .includeInputList = coin(),
                            .includeMonitorMixes = coin(),
                            .includeEquipment = coin(),
                            .includeNotes = coin()};
  return project;
}

}  // namespace korrin::test
