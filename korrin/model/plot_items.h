#pragma once

// The symbols of a plot and what orders them: items, layers and groups. References between records
// are identifiers. They are not checked and may refer to records that do not exist.

#include <cstdint>
#include <optional>

#include "korrin/foundation/list.h"
#include "korrin/foundation/search_key.h"
#include "korrin/model/stage_values.h"

#pragma GCC visibility push(default)

namespace korrin {

/// What a plot item stands for.
enum class PlotItemKind {
  microphone,
  monitor,
  amplifier,
  instrument,
  performer,
  riser,
  power,
  furniture,
  custom,
};

template <>
struct CaseTable<PlotItemKind> {
  static constexpr std::array cases = {
      Case{PlotItemKind::microphone, "microphone"}, Case{PlotItemKind::monitor, "monitor"},
      Case{PlotItemKind::amplifier, "amplifier"},   Case{PlotItemKind::instrument, "instrument"},
      Case{PlotItemKind::performer, "performer"},   Case{PlotItemKind::riser, "riser"},
      Case{PlotItemKind::power, "power"},           Case{PlotItemKind::furniture, "furniture"},
      Case{PlotItemKind::custom, "custom"},
  };
};

/// How an item's symbol and label are drawn.
struct PlotItemStyle {
  std::optional<Text> tintHex;  ///< Colour in hexadecimal; absent for the symbol's own colours.
  bool labelVisible;            ///< Whether the label is drawn.
  double labelScale;            ///< Factor on the normal label size, 0 to 100 in a valid document.

  friend bool operator==(const PlotItemStyle&, const PlotItemStyle&) = default;
};

template <>
constexpr auto fieldsOf<PlotItemStyle>() {
  return std::tuple{
      Field{"tintHex", &PlotItemStyle::tintHex},
      Field{"labelVisible", &PlotItemStyle::labelVisible},
      Field{"labelScale", &PlotItemStyle::labelScale},
  };
}
static_assert(tableIsComplete<PlotItemStyle>);

/// One symbol on the stage.
struct PlotItem {
  UUID id;            ///< No other item of a valid project has it.
  PlotItemKind kind;  ///< For legends and lists; what is drawn is `assetID`.
  /// The artwork: a built-in identifier such as "krn.instrument.drums.v1", or the `sha256` of an
  /// entry of the project's asset manifest.
  Text assetID;
  StagePoint position;          ///< The item's centre.
  StageSize size;               ///< Full width and height before rotation.
  double rotationDegrees;       ///< Any number of turns; alignment and preflight ignore it.
  bool isFlippedHorizontally;   ///< Whether left and right of the symbol are exchanged.
  bool isFlippedVertically;     ///< Whether top and bottom of the symbol are exchanged.
  UUID layerID;                 ///< The layer that holds the item.
  std::optional<UUID> groupID;  ///< The group the item belongs to; absent when ungrouped.
  bool isLocked;                ///< Whether this one item may not be edited.
  Text label;                   ///< Shown beside the symbol; may be empty.
  /// Height of a riser in millimetres; absent for every other kind and while it is not known.
  std::optional<double> riserHeightMillimeters;
  PlotItemStyle style;  ///< Of the symbol and its label.

  /// The text a legend or a printed list shows for the item: its label; for a riser whose height is
  /// finite and above 0 also the height in metres, as in "Drums · H 0.60 m", or "H 0.60 m" alone
  /// when the label has no characters.
  Text legendText() const;

  friend bool operator==(const PlotItem&, const PlotItem&) = default;
};

template <>
constexpr auto fieldsOf<PlotItem>() {
  return std::tuple{
      Field{"id", &PlotItem::id},
      Field{"kind", &PlotItem::kind},
      Field{"assetID", &PlotItem::assetID},
      Field{"position", &PlotItem::position},
      Field{"size", &PlotItem::size},
      Field{"rotationDegrees", &PlotItem::rotationDegrees},
      Field{"isFlippedHorizontally", &PlotItem::isFlippedHorizontally},
      Field{"isFlippedVertically", &PlotItem::isFlippedVertically},
      Field{"layerID", &PlotItem::layerID},
      Field{"groupID", &PlotItem::groupID},
      Field{"isLocked", &PlotItem::isLocked},
      Field{"label", &PlotItem::label},
      Field{"riserHeightMillimeters", &PlotItem::riserHeightMillimeters},
      Field{"style", &PlotItem::style},
  };
}
static_assert(tableIsComplete<PlotItem>);
template <>
inline constexpr auto searchKey<PlotItem> = &PlotItem::id;

/// A drawing layer.
struct PlotLayer {
  UUID id;              ///< No other layer of a valid project has it.
  Text name;            ///< Shown in the list of layers.
  bool isVisible;       ///< Whether the layer's items are drawn and can be selected.
  bool isLocked;        ///< Whether the layer's items are kept from selection and editing.
  std::int64_t zIndex;  ///< Stacking position; a higher value draws above a lower one.

  friend bool operator==(const PlotLayer&, const PlotLayer&) = default;
};

template <>
constexpr auto fieldsOf<PlotLayer>() {
  return std::tuple{
      Field{"id", &PlotLayer::id},
      Field{"name", &PlotLayer::name},
      Field{"isVisible", &PlotLayer::isVisible},
      Field{"isLocked", &PlotLayer::isLocked},
      Field{"zIndex", &PlotLayer::zIndex},
  };
}
static_assert(tableIsComplete<PlotLayer>);

/// Items that are selected and moved together. The items name their group as well; the grouping
/// command keeps the two sides consistent.
struct PlotGroup {
  UUID id;             ///< No other group of a valid project has it.
  Text name;           ///< "Group " and a number when the grouping command made it.
  List<UUID> itemIDs;  ///< The members, in the order given.

  friend bool operator==(const PlotGroup&, const PlotGroup&) = default;
};

template <>
constexpr auto fieldsOf<PlotGroup>() {
  return std::tuple{
      Field{"id", &PlotGroup::id},
      Field{"name", &PlotGroup::name},
      Field{"itemIDs", &PlotGroup::itemIDs},
  };
}
static_assert(tableIsComplete<PlotGroup>);
template <>
inline constexpr auto searchKey<PlotGroup> = &PlotGroup::itemIDs;

}  // namespace korrin

#pragma GCC visibility pop
