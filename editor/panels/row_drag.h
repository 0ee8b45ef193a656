#pragma once

// Rows on their way from a table to a symbol or to another place of the table.

#include <QByteArray>
#include <optional>
#include <vector>

#include "editor/panels/plot_list.h"
#include "editor/plot/open_plot.h"

namespace korrin::editor {

/// Rows of one list. As mime data: the list's key and the rows' identifiers, a line each.
struct DraggedRows {
  static constexpr const char* mimeType = "application/x-korrin-rows";

  const PlotList* list;  ///< Never null.
  std::vector<UUID> ids;

  QByteArray bytes() const;
};

/// What these bytes say, where it is rows.
std::optional<DraggedRows> draggedRows(const QByteArray& bytes);

/// Links the rows to an item, or unlinks them where there is none. Returns whether anything
/// changed.
bool link(OpenPlot& plot, const DraggedRows& rows, std::optional<UUID> item);

}  // namespace korrin::editor
