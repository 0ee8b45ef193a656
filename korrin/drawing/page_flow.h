#pragma once

// Tables one below the other, in the columns of as many pages as they take.

#include <functional>
#include <span>

#include "korrin/drawing/list_tables.h"
#include "korrin/drawing/svg_writer.h"

namespace korrin::drawing {

/// Draws the tables into the box of one page after another, each of which `newPage` begins; what it
/// returns must hold until the next one. A table that is whole on a page of its own is kept whole.
/// Titles and column heads stand again where a table goes on elsewhere; a row that is higher than a
/// page is divided.
void flowTables(std::span<const ListTable> tables, const Box& box,
                const std::function<SvgWriter&()>& newPage);

}  // namespace korrin::drawing
