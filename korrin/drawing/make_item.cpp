#include <utility>

#include "korrin/drawing/symbol_catalogue.h"

namespace korrin {

PlotItem makeItem(const Symbol& symbol, StagePoint position, UUID layerID,
                  const Environment& environment) {
  // What can fail is made before the item: g++ 12 destroys parts of a nested aggregate twice when
  // a later part of its initialiser throws.
  const UUID id = environment.makeUUID();
  Text assetID = symbol.assetID;
  Text label = symbol.name;
  return {.id = id,
          .kind = symbol.kind,
          .assetID = std::move(assetID),
          .position = position,
          .size = symbol.size,
          .rotationDegrees = 0,
          .isFlippedHorizontally = false,
          .isFlippedVertically = false,
          .layerID = layerID,
          .groupID = std::nullopt,
          .isLocked = false,
          .label = std::move(label),
          .riserHeightMillimeters = std::nullopt,
          .style = {.tintHex = std::nullopt, .labelVisible = true, .labelScale = 1}};
}

}  // namespace korrin
