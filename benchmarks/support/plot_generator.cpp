#include "benchmarks/support/plot_generator.h"

#include <array>
#include <random>
#include <string>
#include <utility>

namespace korrin::benchmarks {
namespace {

struct Symbol {
  const char* name;
  PlotItemKind kind;
  const char* assetID;
  double width;
  double height;
};

constexpr std::array symbols = {
    Symbol{"Drum kit", PlotItemKind::instrument, "krn.instrument.drums.v1", 2200, 1800},
    Symbol{"Microphone", PlotItemKind::microphone, "krn.audio.microphone.v1", 500, 900},
    Symbol{"Floor wedge", PlotItemKind::monitor, "krn.audio.wedge.v1", 900, 650},
    Symbol{"Guitar amp", PlotItemKind::amplifier, "krn.backline.guitar-amp.v1", 1000, 700},
    Symbol{"Riser", PlotItemKind::riser, "krn.staging.riser.v1", 2000, 1000},
    Symbol{"Power drop", PlotItemKind::power, "krn.utility.power.v1", 500, 500},
};

class Generator {
 public:
  KorrinProject plot(std::size_t itemCount) {
    KorrinProject project = KorrinProject::newDocument(
        {.now = [] { return Instant(std::chrono::seconds(1'780'000'000)); },
         .makeUUID = [this] { return identifier(); }});
    project.metadata.title = "Generated Festival Main Stage";
    for (int i = 1; i < 4; ++i)
      project.layers.push_back({.id = identifier(),
                                .name = "Layer " + std::to_string(i),
                                .isVisible = true,
                                .isLocked = i == 3,
                                .zIndex = i});
    // Of eight items in a row the first four are a group.
    for (std::size_t i = 0; i < itemCount; ++i) {
      if (i % 8 == 0) addGroup(project);
      project.items.push_back(item(project, i));
      if (i % 8 < 4) addToLastGroup(project, project.items.back());
    }
    for (std::size_t i = 0; i < itemCount; i += 2) addInput(project, i);
    for (std::size_t i = 0; i < itemCount; i += 10) addMixAndEquipment(project, i);
    for (std::size_t i = 0; i < itemCount; i += 50)
      project.notes.push_back({.id = identifier(),
                               .title = "Soundcheck",
                               .body = "Allow 45 minutes after the stage is patched."});
    return project;
  }

 private:
  UUID identifier() {
    UUID::Bytes bytes;
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random_());
    return UUID(bytes);
  }

  double coordinate(int limit) {
    return std::uniform_int_distribution<int>(-limit, limit)(random_) * 0.5;
  }

  PlotItem item(const KorrinProject& project, std::size_t index) {
    const Symbol& symbol = symbols[index % symbols.size()];
    const bool isRiser = symbol.kind == PlotItemKind::riser;
    return {.id = identifier(),
            .kind = symbol.kind,
            .assetID = symbol.assetID,
            .position = {.x = coordinate(10000), .y = coordinate(6000)},
            .size = {.width = symbol.width, .height = symbol.height},
            .rotationDegrees = index % 3 == 0 ? 180.0 : 0.0,
            .isFlippedHorizontally = false,
            .isFlippedVertically = false,
            .layerID = project.layers[index % 4].id,
            .groupID = index % 8 < 4 ? std::optional(project.groups.back().id) : std::nullopt,
            .isLocked = index % 17 == 0,
            .label = std::string(symbol.name) + " " + std::to_string(index) + " stage left",
            .riserHeightMillimeters = isRiser ? std::optional(400.0) : std::nullopt,
            .style = {.tintHex = index % 5 == 0 ? std::optional<Text>("#336699") : std::nullopt,
                      .labelVisible = true,
                      .labelScale = index % 7 == 0 ? 1.25 : 1.0}};
  }

  void addGroup(KorrinProject& project) {
    project.groups.push_back({.id = identifier(),
                              .name = "Group " + std::to_string(project.groups.size() + 1),
                              .itemIDs = {}});
  }

  static void addToLastGroup(KorrinProject& project, const PlotItem& item) {
    PlotGroup group = project.groups.back();
    group.itemIDs.push_back(item.id);
    project.groups.replace(project.groups.size() - 1, std::move(group));
  }

  void addInput(KorrinProject& project, std::size_t index) {
    project.inputs.push_back({.id = identifier(),
                              .channel = static_cast<std::int64_t>(project.inputs.size() + 1),
                              .source = "Source " + std::to_string(index) + " downstage",
                              .microphoneOrDI = "SM57",
                              .stand = "Short boom",
                              .phantomPower = index % 4 == 0,
                              .notes = index % 4 == 0 ? "Post pedalboard, mono" : "",
                              .plotItemID = project.items[index].id});
  }

  void addMixAndEquipment(KorrinProject& project, std::size_t index) {
    const auto number = static_cast<std::int64_t>(project.monitorMixes.size() + 1);
    project.monitorMixes.push_back({.id = identifier(),
                                    .number = number,
                                    .name = "Mix " + std::to_string(number),
                                    .type = "Wedge",
                                    .outputPatch = "Out " + std::to_string(number),
                                    .notes = "Keys and lead vocal",
                                    .plotItemID = project.items[index].id});
    project.equipmentRequirements.push_back({.id = identifier(),
                                             .category = "Power",
                                             .item = "Clean 230 V power",
                                             .quantity = 1,
                                             .suppliedBy = "Venue",
                                             .notes = "Stage left",
                                             .plotItemID = project.items[index].id});
  }

  std::mt19937_64 random_{42};
};

}  // namespace

KorrinProject generatedPlot(std::size_t itemCount) { return Generator().plot(itemCount); }

}  // namespace korrin::benchmarks
