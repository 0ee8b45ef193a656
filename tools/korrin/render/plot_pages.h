#pragma once

// A plot as pages of paper: the drawing with its legend first, then the lists that the plot's
// export settings include.

#include <string>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::host {

/// Pages of one size, in millimetres.
struct PlotPages {
  double width;
  double height;
  std::string title;
  std::vector<std::string> contents;  ///< What each page shows, as SVG elements.

  /// One page, counted from 1, as a picture. The page must exist.
  std::string page(std::size_t number) const;
  /// All pages, one below the other, as one picture.
  std::string all() const;
};

/// Lays the plot out on the paper that its export settings name: on its long side unless the stage
/// is deeper than wide. The project must be valid.
PlotPages layOut(const KorrinProject& project);

/// The drawing alone, as a picture without page, header and legend. The project must be valid.
std::string drawingAlone(const KorrinProject& project);

}  // namespace korrin::host
