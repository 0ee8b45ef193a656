#pragma once

// Which items no drawing shows, and why.

#include <vector>

#include "korrin/model/project.h"

namespace korrin::drawing {

/// An item that is not drawn.
struct LeftOutItem {
  const PlotItem* item;
  const PlotLayer* layer;  ///< The hidden layer that holds it; null when there is no such layer.
};

/// The items that stand on no visible layer, in the project's order. Where hidden layers share an
/// identifier the first counts. The project must outlive the result.
std::vector<LeftOutItem> leftOutItems(const KorrinProject& project);

}  // namespace korrin::drawing
