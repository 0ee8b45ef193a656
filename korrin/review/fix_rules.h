#pragma once

// One function for each way to mend a finding, and what they share. Each gets the project and the
// place of the record concerned, and returns nothing where it has no answer. Whether its answer
// keeps the promises of a fix is for `keepLawful` to judge.

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "korrin/review/fixes.h"

namespace korrin::fixes {

/// The lowest channel from 1 on that no input has.
std::optional<Fix> freeChannel(const KorrinProject& project, std::size_t input);
/// The lowest number from 1 on that no mix has.
std::optional<Fix> freeMixNumber(const KorrinProject& project, std::size_t mix);
std::optional<Fix> noChannel(const KorrinProject& project, std::size_t input);
std::optional<Fix> noMixNumber(const KorrinProject& project, std::size_t mix);

/// The label of the symbol that the input is linked to.
std::optional<Fix> sourceFromLabel(const KorrinProject& project, std::size_t input);
/// A link to the only symbol of a fitting kind that bears the row's name.
std::optional<Fix> linkInputByName(const KorrinProject& project, std::size_t input);
std::optional<Fix> linkMixByName(const KorrinProject& project, std::size_t mix);

std::optional<Fix> noInputLink(const KorrinProject& project, std::size_t input);
std::optional<Fix> noMixLink(const KorrinProject& project, std::size_t mix);
std::optional<Fix> noEquipmentLink(const KorrinProject& project, std::size_t line);

std::optional<Fix> quantityOfOne(const KorrinProject& project, std::size_t line);
std::optional<Fix> withoutLine(const KorrinProject& project, std::size_t line);

/// The source or name of the only row that links to the symbol.
std::optional<Fix> labelFromRow(const KorrinProject& project, std::size_t item, const Environment&);
std::optional<Fix> hiddenLabel(const KorrinProject& project, std::size_t item, const Environment&);
/// The shortest move that brings the box, not turned, inside the stage.
std::optional<Fix> moveInside(const KorrinProject& project, std::size_t item, const Environment&);

/// The position nearest to this one, along one axis, at which a box of this extent lies inside a
/// stage whose middle is the origin. The box is not larger than the stage.
double nearestInside(double stageExtent, double position, double extent);

/// "Move NAME inside the stage, to x 0 mm, y 500 mm".
std::optional<Fix> moveTo(const KorrinProject& project, std::size_t item, StagePoint position,
                          const Environment&);

/// The command that puts `item` in the place of item `index`, which has the same identifier. Where
/// another item has it too, the whole project is replaced: overwriting by identifier could not be
/// undone exactly.
DocumentCommand replacingItem(const KorrinProject& project, std::size_t index, PlotItem item,
                              const Environment& environment);

/// The project as a command, read as changed at this instant.
DocumentCommand replacingProject(KorrinProject project, const Environment& environment);

}  // namespace korrin::fixes
