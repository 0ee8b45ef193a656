#include "korrin/validation/document_validation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace korrin::DocumentValidation {
namespace {

constexpr double maximumLabelScale = 100;
constexpr double smallestGridSpacing = 4;
constexpr std::size_t maximumGridLines = 4096;

// Sorting takes as long for identifiers that somebody chose to collide in a hash table.
template <class Record>
void requireDistinctIdentifiers(const List<Record>& records) {
  std::vector<UUID> ids;
  ids.reserve(records.size());
  for (const Record& record : records) ids.push_back(record.id);
  std::sort(ids.begin(), ids.end());
  if (std::adjacent_find(ids.begin(), ids.end()) != ids.end())
    throw DocumentValidationError(DocumentValidationError::duplicateIdentifiers);
}

// Comparisons with a not-a-number value are false, so each of these refuses one.
bool isExtent(double value) { return value > 0 && value <= maximumDimension; }
bool isCoordinate(double value) { return std::fabs(value) <= maximumDimension; }
bool isWithin(double value, double limit) { return value >= 0 && value <= limit; }

bool isExtent(const StageSize& size) { return isExtent(size.width) && isExtent(size.height); }

bool hasValidGeometry(const StageDefinition& stage) {
  return isExtent(stage.size) && isWithin(stage.gridSpacingMillimeters, maximumDimension);
}

bool hasValidGeometry(const PlotItem& item) {
  return isExtent(item.size) && isCoordinate(item.position.x) && isCoordinate(item.position.y) &&
         std::isfinite(item.rotationDegrees) && isWithin(item.style.labelScale, maximumLabelScale);
}

void requireValidGeometry(bool isValid) {
  if (!isValid) throw DocumentValidationError(DocumentValidationError::invalidGeometry);
}

}  // namespace

void validate(const KorrinProject& project) {
  requireDistinctIdentifiers(project.layers);
  requireDistinctIdentifiers(project.items);
  requireDistinctIdentifiers(project.groups);
  requireDistinctIdentifiers(project.inputs);
  requireDistinctIdentifiers(project.monitorMixes);
  requireDistinctIdentifiers(project.equipmentRequirements);
  requireDistinctIdentifiers(project.notes);
  requireValidGeometry(hasValidGeometry(project.stage));
  for (const PlotItem& item : project.items) requireValidGeometry(hasValidGeometry(item));
}

std::vector<double> gridCoordinates(double start, double end, double spacing) {
  std::vector<double> coordinates;
  const bool isFinite = std::isfinite(start) && std::isfinite(end) && std::isfinite(spacing);
  if (!isFinite || spacing < smallestGridSpacing) return coordinates;
  double current = start;
  while (current <= end && coordinates.size() < maximumGridLines) {
    coordinates.push_back(current);
    const double next = current + spacing;
    // Far from zero an addition may no longer advance, or leave the range.
    if (!(next > current) || !std::isfinite(next)) break;
    current = next;
  }
  return coordinates;
}

}  // namespace korrin::DocumentValidation
