#pragma once

// Lining up plot items. Positions are centres in millimetres, x to the right and y downward; an
// item's edges are those of its box before rotation. Locks, layers and groups play no part: the
// caller passes the items that are to move, and makes a `replaceItems` command of the result.

#include "korrin/foundation/list.h"
#include "korrin/geometry/item_alignment.h"
#include "korrin/model/plot_items.h"

#pragma GCC visibility push(default)

namespace korrin::KorrinGeometry {

/// The same items in the same order, with one coordinate of each `position` replaced: x for the
/// horizontal alignments, y for the vertical ones. All else is as it was. Fewer than two items, and
/// fewer than three in a distribution, come back unchanged.
///
/// `left` puts every left edge on the leftmost one (`right`, `top` and `bottom` likewise):
///
///     |A|                 |A|
///         |BBB|      ->   |BBB|
///       |C|               |C|
///
/// `horizontalCenter` puts every centre on the middle of the whole span (`verticalCenter`
/// likewise):
///
///     |A|                     |A|
///           |BBBBB|  ->     |BBBBB|
///       |C|                   |C|
///
/// `distributeHorizontally` gives the centres equal distances between the first and the last, which
/// stay where they are (`distributeVertically` likewise); the gaps between boxes of different size
/// differ:
///
///     |A|  |B||C|          |D|   ->   |A|    |B|    |C|    |D|
///
/// Items at the same coordinate keep the order in which they are given. No two items of a
/// distribution may have the same identifier: that aborts the program.
///
/// Numbers that are not finite are computed with as they are. In a distribution an item whose
/// coordinate is not a number counts as the last, so that the coordinates of all become so.
List<PlotItem> applying(ItemAlignment alignment, const List<PlotItem>& items);

}  // namespace korrin::KorrinGeometry

#pragma GCC visibility pop
