#pragma once

// Whether a project is structurally safe to open and edit. A host calls this on a project that it
// has just decoded or is about to save; nothing else in the library does.

#include <vector>

#include "korrin/model/project.h"
#include "korrin/validation/document_validation_error.h"

#pragma GCC visibility push(default)

namespace korrin::DocumentValidation {

/// The largest stage dimension, grid spacing, item dimension and distance of an item from the
/// stage's centre along one axis, in millimetres.
inline constexpr double maximumDimension = 1'000'000;

/// Returns when the project passes; throws the first `DocumentValidationError` otherwise:
/// `duplicateIdentifiers` when two records of one list share an identifier (layers, items, groups,
/// inputs, monitor mixes, equipment and notes, each list for itself), then `invalidGeometry` when a
/// dimension of the stage or of an item is not finite or out of range. References between records,
/// riser heights and the asset manifest are not looked at.
void validate(const KorrinProject& project);

/// The grid lines from `start` on, `spacing` apart, none beyond `end`, in ascending order and at
/// most 4096 of them. Empty when an argument is not finite, `spacing` is below 4 or `start` is
/// above `end`.
std::vector<double> gridCoordinates(double start, double end, double spacing);

}  // namespace korrin::DocumentValidation

#pragma GCC visibility pop
