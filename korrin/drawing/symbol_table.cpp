#include "korrin/drawing/symbol_table.h"

#include <algorithm>

#include "korrin/drawing/audio_shapes.h"
#include "korrin/drawing/instrument_shapes.h"
#include "korrin/drawing/stage_shapes.h"
#include "korrin/drawing/symbol_catalogue.h"

namespace korrin {
namespace {

using enum PlotItemKind;
using namespace drawing;

/// A built-in symbol and how it is drawn.
struct Row {
  Symbol symbol;
  std::string_view colour;
  std::span<const Shape> shapes;
};

// clang-format off
constexpr Row rows[] = {
    {{"krn.audio.boom-stand.v1", microphone, "Boom stand", {900, 700}}, "#8d99a6", boomStandShapes},
    {{"krn.audio.drum-fill.v1", monitor, "Drum fill", {700, 900}}, "#b9c4cf", drumFillShapes},
    {{"krn.audio.iem.v1", monitor, "In-ear monitor", {200, 200}}, "#cfd8e0", inEarShapes},
    {{"krn.audio.microphone.v1", microphone, "Microphone", {500, 900}}, "#8d99a6", microphoneShapes},
    {{"krn.audio.round-base-stand.v1", microphone, "Round-base stand", {250, 250}}, "#8d99a6", roundBaseStandShapes},
    {{"krn.audio.side-fill.v1", monitor, "Side fill", {750, 750}}, "#b9c4cf", sideFillShapes},
    {{"krn.audio.sub-snake.v1", custom, "Sub-snake", {400, 250}}, "#aab4bf", subSnakeShapes},
    {{"krn.audio.wedge.v1", monitor, "Wedge monitor", {650, 500}}, "#b9c4cf", wedgeShapes},
    {{"krn.backline.bass-amp.v1", amplifier, "Bass amplifier", {650, 450}}, "#d9a07a", bassAmplifierShapes},
    {{"krn.backline.guitar-amp.v1", amplifier, "Amplifier", {700, 350}}, "#e0b48a", guitarAmplifierShapes},
    {{"krn.furniture.music-stand.v1", furniture, "Music stand", {500, 450}}, "#d8c3a5", musicStandShapes},
    {{"krn.furniture.stool.v1", furniture, "Stool", {400, 400}}, "#d8c3a5", stoolShapes},
    {{"krn.furniture.table.v1", furniture, "Table", {1800, 750}}, "#d8c3a5", furnitureShapes},
    {{"krn.instrument.acoustic-guitar.v1", instrument, "Acoustic guitar", {400, 1050}}, "#e3b778", guitarShapes},
    {{"krn.instrument.dj-table.v1", instrument, "DJ table", {1800, 800}}, "#9fb4c7", djTableShapes},
    {{"krn.instrument.drums.v1", instrument, "Drum kit", {2200, 1800}}, "#e8edf2", drumShapes},
    {{"krn.instrument.grand-piano.v1", instrument, "Grand piano", {1550, 2750}}, "#9fb4c7", grandPianoShapes},
    {{"krn.instrument.horn-stand.v1", instrument, "Horn stand", {450, 450}}, "#f3d27a", hornStandShapes},
    {{"krn.instrument.keyboard.v1", instrument, "Keyboard", {1350, 400}}, "#9fb4c7", keyboardShapes},
    {{"krn.instrument.laptop.v1", instrument, "Laptop", {360, 300}}, "#cfd8e0", laptopShapes},
    {{"krn.instrument.percussion.v1", instrument, "Percussion", {1800, 1400}}, "#e3b778", percussionShapes},
    {{"krn.instrument.upright-bass.v1", instrument, "Upright bass", {700, 1900}}, "#d9a07a", uprightBassShapes},
    {{"krn.people.performer.v1", performer, "Performer", {700, 700}}, "#9ec5e8", performerShapes},
    {{"krn.people.seated.v1", performer, "Person seated", {650, 900}}, "#9ec5e8", seatedShapes},
    {{"krn.staging.choir-riser.v1", riser, "Choir riser", {1800, 1400}}, "#efe9dd", choirRiserShapes},
    {{"krn.staging.handrail.v1", custom, "Handrail", {2000, 60}}, "#aab4bf", handrailShapes},
    {{"krn.staging.riser.v1", riser, "Riser", {2000, 1000}}, "#efe9dd", riserShapes},
    {{"krn.staging.stairs.v1", custom, "Stairs", {1000, 1200}}, "#efe9dd", stairsShapes},
    {{"krn.utility.camera.v1", custom, "Camera", {900, 900}}, "#cfd8e0", cameraShapes},
    {{"krn.utility.di.v1", power, "DI box", {150, 120}}, "#c9d6a8", diBoxShapes},
    {{"krn.utility.power-distribution.v1", power, "Power distribution", {600, 500}}, "#f6d860", powerDistributionShapes},
    {{"krn.utility.power.v1", power, "Power", {300, 300}}, "#f6d860", powerShapes},
};
// clang-format on

constexpr std::size_t count = std::size(rows);
static_assert(std::is_sorted(std::begin(rows), std::end(rows), [](const Row& a, const Row& b) {
  return a.symbol.assetID < b.symbol.assetID;
}));

constexpr auto symbols = [] {
  std::array<Symbol, count> all{};
  for (std::size_t i = 0; i < count; ++i) all[i] = rows[i].symbol;
  return all;
}();

/// Stand for items of a kind whose artwork is not known.
struct KindRow {
  PlotItemKind kind;
  SymbolLook look;
};

constexpr KindRow kinds[] = {
    {microphone, {"Microphone", "#8d99a6", {500, 900}, microphoneShapes}},
    {monitor, {"Wedge monitor", "#b9c4cf", {650, 500}, wedgeShapes}},
    {amplifier, {"Amplifier", "#e0b48a", {700, 350}, guitarAmplifierShapes}},
    {instrument, {"Instrument", "#cfe0d6", {600, 600}, instrumentShapes}},
    {performer, {"Performer", "#9ec5e8", {700, 700}, performerShapes}},
    {riser, {"Riser", "#efe9dd", {2000, 1000}, riserShapes}},
    {PlotItemKind::power, {"Power", "#f6d860", {300, 300}, powerShapes}},
    {furniture, {"Furniture", "#d8c3a5", {1800, 750}, furnitureShapes}},
    {custom, {"Other", "#e4dff0", {600, 600}, customShapes}},
};

constexpr auto looks = [] {
  std::array<SymbolLook, count + std::size(kinds)> all{};
  for (std::size_t i = 0; i < count; ++i)
    all[i] = {rows[i].symbol.name, rows[i].colour, rows[i].symbol.size, rows[i].shapes};
  for (std::size_t i = 0; i < std::size(kinds); ++i) all[count + i] = kinds[i].look;
  return all;
}();

/// The symbol's place in the catalogue; `count` when it is none of it.
std::size_t placeOf(std::string_view assetID) {
  const auto* const found = std::lower_bound(
      symbols.data(), symbols.data() + count, assetID,
      [](const Symbol& symbol, std::string_view id) { return symbol.assetID < id; });
  const auto place = static_cast<std::size_t>(found - symbols.data());
  return place != count && found->assetID == assetID ? place : count;
}

}  // namespace

std::span<const Symbol> builtInSymbols() { return symbols; }

std::unordered_set<Text> builtInAssetIDs() {
  std::unordered_set<Text> ids;
  for (const Symbol& symbol : symbols) ids.emplace(symbol.assetID);
  return ids;
}

namespace drawing {

bool isBuiltIn(std::string_view assetID) { return placeOf(assetID) != count; }

LookIndex lookOf(const PlotItem& item) {
  const std::string_view assetID = item.assetID;
  if (const std::size_t place = placeOf(assetID); place != count)
    return static_cast<LookIndex>(place);
  const auto kind = std::find_if(std::begin(kinds), std::end(kinds),
                                 [&](const KindRow& row) { return row.kind == item.kind; });
  const auto row = kind != std::end(kinds) ? kind : std::prev(std::end(kinds));
  const LookIndex index = count + static_cast<LookIndex>(row - std::begin(kinds));
  // A legend names what looks alike once.
  const auto twin = std::find_if(looks.begin(), looks.end(), [row](const SymbolLook& look) {
    return look.name == row->look.name && look.shapes.data() == row->look.shapes.data();
  });
  return std::min(index, static_cast<LookIndex>(twin - looks.begin()));
}

const SymbolLook& lookAt(LookIndex index) { return looks.at(index); }

}  // namespace drawing
}  // namespace korrin
