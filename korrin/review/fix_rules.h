#pragma once

// One function for each way to mend a finding, and what they share. Each gets the plot and the
// place of the record concerned, and returns nothing where it has no answer. Where no list holds an
// identifier twice, its answer keeps the promises of a fix.

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "korrin/review/fixes.h"
#include "korrin/review/plot_lookup.h"

namespace korrin::fixes {

/// The lowest channel from 1 on that no input has.
std::optional<Fix> freeChannel(PlotLookup& plot, std::size_t input);
/// The lowest number from 1 on that no mix has.
std::optional<Fix> freeMixNumber(PlotLookup& plot, std::size_t mix);
std::optional<Fix> noChannel(PlotLookup& plot, std::size_t input);
std::optional<Fix> noMixNumber(PlotLookup& plot, std::size_t mix);

/// The label of the symbol that the input is linked to.
std::optional<Fix> sourceFromLabel(PlotLookup& plot, std::size_t input);
/// A link to the only symbol of a fitting kind that bears the row's name.
std::optional<Fix> linkInputByName(PlotLookup& plot, std::size_t input);
std::optional<Fix> linkMixByName(PlotLookup& plot, std::size_t mix);

std::optional<Fix> noInputLink(PlotLookup& plot, std::size_t input);
std::optional<Fix> noMixLink(PlotLookup& plot, std::size_t mix);
std::optional<Fix> noEquipmentLink(PlotLookup& plot, std::size_t line);

std::optional<Fix> quantityOfOne(PlotLookup& plot, std::size_t line);
std::optional<Fix> withoutLine(PlotLookup& plot, std::size_t line);

/// The source or name of the only row that links to the symbol.
std::optional<Fix> labelFromRow(PlotLookup& plot, std::size_t item, const Environment&);
std::optional<Fix> hiddenLabel(PlotLookup& plot, std::size_t item, const Environment&);
/// The shortest move that brings the box, not turned, inside the stage.
std::optional<Fix> moveInside(PlotLookup& plot, std::size_t item, const Environment&);

/// The position nearest to this one, along one axis, at which a box of this extent lies inside a
/// stage whose middle is the origin. The box is not larger than the stage.
double nearestInside(double stageExtent, double position, double extent);

/// "Move NAME inside the stage, to x 0 mm, y 500 mm".
std::optional<Fix> moveTo(PlotLookup& plot, std::size_t item, StagePoint position,
                          const Environment&);

/// The command that puts `item` in the place of item `index`, which has the same identifier. Where
/// another item has it too, the whole project is replaced: overwriting by identifier could not be
/// undone exactly.
DocumentCommand replacingItem(const PlotLookup& plot, std::size_t index, PlotItem item,
                              const Environment& environment);

/// The project as a command, read as changed at this instant.
DocumentCommand replacingProject(KorrinProject project, const Environment& environment);

}  // namespace korrin::fixes
