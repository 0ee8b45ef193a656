#pragma once

// Finds a place for each label where it covers neither another label nor, if possible, a symbol.

#include <cstddef>
#include <span>
#include <vector>

#include "korrin/drawing/paper.h"

namespace korrin::drawing {

/// A place that a label may take.
struct LabelCandidate {
  Box box;
  double cost = 0;  ///< What choosing it costs, in square millimetres of a symbol covered.
};

class LabelPlaces {
 public:
  /// Labels keep inside `region`.
  explicit LabelPlaces(const Box& region);

  /// A symbol that labels should leave free.
  void avoid(const Box& symbol);

  /// The best of the candidates (at least one), moved into the region where it sticks out, the
  /// earlier the better, with its cost. Time does not grow with crowding: what lies beyond a bound
  /// in one spot counts as full, and once very many comparisons were made, on a sheet that nobody
  /// can read, every label gets its first candidate at an infinite cost.
  LabelCandidate find(std::span<const LabelCandidate> candidates);

  /// A label stands here from then on.
  void take(const Box& box);

 private:
  struct Obstacle {
    Box box;
    double weight;
  };

  std::size_t columnOf(double x) const;
  std::size_t rowOf(double y) const;
  void add(const Obstacle& obstacle);
  double cost(const Box& box);
  Box movedInside(Box box) const;

  Box region_;
  std::size_t columns_;
  std::size_t rows_;
  std::vector<std::vector<Obstacle>> cells_;
  std::size_t comparisonsLeft_;
};

}  // namespace korrin::drawing
