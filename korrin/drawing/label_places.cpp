#include "korrin/drawing/label_places.h"

#include <cmath>
#include <limits>

namespace korrin::drawing {
namespace {

constexpr double cellSize = 12;
constexpr std::size_t fullCell = 48;
constexpr std::size_t mostComparisons = 20'000'000;
constexpr double labelWeight = 20;
constexpr double symbolWeight = 1;
constexpr double rim = 0.4;

std::size_t cellsAlong(double length) {
  return static_cast<std::size_t>(std::clamp(std::ceil(length / cellSize), 1.0, 200.0));
}

std::size_t cellAt(double distance, std::size_t count) {
  if (!(distance > 0)) return 0;  // nor is it a number
  return static_cast<std::size_t>(std::min(distance / cellSize, static_cast<double>(count) - 1));
}

}  // namespace

LabelPlaces::LabelPlaces(const Box& region)
    : region_(region),
      columns_(cellsAlong(region.width)),
      rows_(cellsAlong(region.height)),
      cells_(columns_ * rows_),
      comparisonsLeft_(mostComparisons) {}

std::size_t LabelPlaces::columnOf(double x) const { return cellAt(x - region_.x, columns_); }
std::size_t LabelPlaces::rowOf(double y) const { return cellAt(y - region_.y, rows_); }

void LabelPlaces::add(const Obstacle& obstacle) {
  if (overlap(obstacle.box, region_) == 0) return;
  for (std::size_t row = rowOf(obstacle.box.y); row <= rowOf(obstacle.box.bottom()); ++row)
    for (std::size_t column = columnOf(obstacle.box.x); column <= columnOf(obstacle.box.right());
         ++column) {
      std::vector<Obstacle>& cell = cells_[row * columns_ + column];
      if (cell.size() < fullCell) cell.push_back(obstacle);
    }
}

double LabelPlaces::cost(const Box& box) {
  double sum = 0;
  for (std::size_t row = rowOf(box.y); row <= rowOf(box.bottom()); ++row) {
    for (std::size_t column = columnOf(box.x); column <= columnOf(box.right()); ++column) {
      const std::vector<Obstacle>& cell = cells_[row * columns_ + column];
      comparisonsLeft_ -= std::min(comparisonsLeft_, cell.size() + 1);
      for (const Obstacle& obstacle : cell) sum += obstacle.weight * overlap(obstacle.box, box);
    }
  }
  return sum;
}

Box LabelPlaces::movedInside(Box box) const {
  box.x = std::max(region_.x, std::min(box.x, region_.right() - box.width));
  box.y = std::max(region_.y, std::min(box.y, region_.bottom() - box.height));
  return box;
}

void LabelPlaces::avoid(const Box& symbol) { add({symbol, symbolWeight}); }

LabelCandidate LabelPlaces::find(std::span<const LabelCandidate> candidates) {
  LabelCandidate best = {movedInside(candidates.front().box),
                         std::numeric_limits<double>::infinity()};
  for (const LabelCandidate& candidate : candidates) {
    if (comparisonsLeft_ == 0) break;
    const Box moved = movedInside(candidate.box);
    const double drift = std::hypot(moved.x - candidate.box.x, moved.y - candidate.box.y);
    const double total = cost(moved) + drift + candidate.cost;
    if (total < best.cost) best = {moved, total};
  }
  return best;
}

void LabelPlaces::take(const Box& box) { add({box.inset(-rim), labelWeight}); }

}  // namespace korrin::drawing
