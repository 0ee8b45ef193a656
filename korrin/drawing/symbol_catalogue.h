#pragma once

// The built-in symbols: what a palette offers and what preflight takes for known artwork.

#include <span>
#include <string_view>
#include <unordered_set>

#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A built-in symbol. Its texts live as long as the program.
struct Symbol {
  std::string_view assetID;  ///< What items name, such as "krn.audio.wedge.v1". Never renamed.
  PlotItemKind kind;         ///< Of the items that it usually stands for.
  std::string_view name;     ///< For people, such as "Wedge monitor".
  StageSize size;            ///< The customary real size in millimetres, seen from above.
};

/// All built-in symbols, ordered by `assetID`; those of the built-in templates are among them.
std::span<const Symbol> builtInSymbols();

/// The identifiers of all built-in symbols, as preflight asks for them.
std::unordered_set<Text> builtInAssetIDs();

/// A new item of the symbol's kind, artwork and size with its centre at `position`: upright,
/// unlocked, ungrouped, without tint or riser height, labelled visibly with the symbol's name.
/// Makes one identifier and does not read the clock. The layer is not looked at.
PlotItem makeItem(const Symbol& symbol, StagePoint position, UUID layerID,
                  const Environment& environment = Environment::system());

}  // namespace korrin

#pragma GCC visibility pop
