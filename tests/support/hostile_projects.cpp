#include "tests/support/hostile_projects.h"

#include <array>
#include <limits>
#include <string_view>

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

constexpr int poolSize = 8;

}  // namespace

template <class Make>
auto HostileProjects::listOf(int limit, Make make) {
  List<decltype(make())> list;
  next_ = 0;
  for (int count = chance_(limit); count > 0; --count) list.push_back(make());
  return list;
}

double HostileProjects::length() {
  using Limits = std::numeric_limits<double>;
  static constexpr std::array extremes = {Limits::infinity(),
                                          -Limits::infinity(),
                                          Limits::quiet_NaN(),
                                          Limits::max(),
                                          -Limits::max(),
                                          Limits::denorm_min(),
                                          -0.0,
                                          1e6,
                                          4e15,
                                          1e-9};
  if (rarely()) return extremes[static_cast<std::size_t>(chance_(10))];
  return (chance_(20'001) - 10'000) * (coin() ? 1.0 : 0.1);
}

double HostileProjects::extent() {
  return rarely() ? length() : (1 + chance_(6'000)) * (coin() ? 1.0 : 1.0 / 3);
}

std::int64_t HostileProjects::integer() {
  using Limits = std::numeric_limits<std::int64_t>;
  static constexpr std::array extremes = {Limits::max(), Limits::min(), std::int64_t{0},
                                          std::int64_t{-1}};
  return rarely() ? extremes[static_cast<std::size_t>(chance_(4))] : chance_(5);
}

Text HostileProjects::text() {
  static constexpr std::array<std::string_view, 12> texts = {
      "",        " ",      "Kick",    " Kick\n",    "Vocal", "\u0085Vocal\u3000",
      "e\u0301", "\u00e9", "\x1b[2J", "\u202Etxen", "\t",    "\u2028two\r\nlines"};
  return texts[static_cast<std::size_t>(chance_(12))];
}

UUID HostileProjects::pooled() { return identifier(static_cast<std::uint64_t>(chance_(poolSize))); }

std::optional<UUID> HostileProjects::maybePooled() {
  if (coin()) return std::nullopt;
  return pooled();
}

// Counted within each list unless identifiers repeat, so that lists share them all the same.
UUID HostileProjects::own() { return identifiersRepeat_ ? pooled() : identifier(next_++); }

PlotItem HostileProjects::item() {
  static constexpr std::array<std::string_view, 8> tints = {
      "#AABBCC", "aabbccdd", "#", "red", "#12345", "", "##AABBCC", "\u00e9"};
  const std::array rotations = {0.0, 90.0, 45.0, -30.0, 180.0, 1e300, length()};
  PlotItem item = microphone(own(), length(), length());
  item.kind = allCases<PlotItemKind>()[static_cast<std::size_t>(chance_(9))];
  item.assetID = text();
  item.size = {.width = extent(), .height = extent()};
  item.rotationDegrees = rotations[static_cast<std::size_t>(chance_(7))];
  item.layerID = pooled();
  item.groupID = maybePooled();
  item.isLocked = coin();
  item.label = text();
  if (rarely()) item.riserHeightMillimeters = length();
  if (coin()) item.style.tintHex = tints[static_cast<std::size_t>(chance_(8))];
  item.style.labelVisible = coin();
  return item;
}

KorrinProject HostileProjects::project() {
  identifiersRepeat_ = chance_(3) == 0;
  KorrinProject project = sampleProject();
  project.schemaVersion = integer();
  project.stage.size = {.width = coin() ? 8'000 : extent(), .height = coin() ? 6'000 : extent()};
  project.layers = listOf(4, [this] {
    return PlotLayer{
        .id = own(), .name = text(), .isVisible = coin(), .isLocked = coin(), .zIndex = integer()};
  });
  project.items = listOf(7, [this] { return item(); });
  project.groups = listOf(4, [this] {
    PlotGroup group = {.id = own(), .name = text(), .itemIDs = {}};
    for (int count = chance_(5); count > 0; --count) group.itemIDs.push_back(pooled());
    return group;
  });
  project.inputs = listOf(6, [this] {
    return InputChannel{.id = own(),
                        .channel = coin() ? std::optional(integer()) : std::nullopt,
                        .source = text(),
                        .microphoneOrDI = text(),
                        .stand = text(),
                        .phantomPower = coin(),
                        .notes = text(),
                        .plotItemID = maybePooled()};
  });
  project.monitorMixes = listOf(6, [this] {
    return MonitorMix{.id = own(),
                      .number = coin() ? std::optional(integer()) : std::nullopt,
                      .name = text(),
                      .type = text(),
                      .outputPatch = text(),
                      .notes = text(),
                      .plotItemID = maybePooled()};
  });
  project.equipmentRequirements = listOf(4, [this] {
    return EquipmentRequirement{.id = own(),
                                .category = text(),
                                .item = text(),
                                .quantity = integer(),
                                .suppliedBy = text(),
                                .notes = text(),
                                .plotItemID = maybePooled()};
  });
  project.notes =
      listOf(3, [this] { return ProjectNote{.id = own(), .title = text(), .body = text()}; });
  project.assetManifest = listOf(4, [this] {
    return AssetManifestEntry{
        .sha256 = text(), .filename = text(), .mediaType = text(), .byteCount = integer()};
  });
  return project;
}

}  // namespace korrin::test
