#include "editor/menus/live_actions.h"

#include <QAction>
#include <QMenu>

#include "editor/look/theme.h"

namespace korrin::editor {

LiveActions::LiveActions(OpenPlot& plot, QObject* parent) : QObject(parent), plot_(plot) {
  connect(&plot_, &OpenPlot::selectionChanged, this, &LiveActions::refresh);
  connect(&plot_, &OpenPlot::historyChanged, this, &LiveActions::refresh);
}

QAction* LiveActions::add(QMenu& menu, const QString& text, const QString& icon,
                          const QKeySequence& keys, std::function<void()> work,
                          IsPossible isPossible) {
  QAction* action = menu.addAction(text);
  action->setShortcut(keys);
  if (!icon.isEmpty()) action->setIcon(themedIcon(icon));
  connect(action, &QAction::triggered, this, std::move(work));
  if (isPossible) action->setEnabled(isPossible());
  rows_.push_back({.action = action, .icon = icon, .isPossible = std::move(isPossible)});
  return action;
}

LiveActions::IsPossible LiveActions::selected(std::size_t count) const {
  return [this, count] { return plot_.selection().size() >= count; };
}

void LiveActions::refreshIcons() {
  for (const Row& row : rows_)
    if (!row.icon.isEmpty()) row.action->setIcon(themedIcon(row.icon));
}

void LiveActions::refresh() {
  // Nobody opens a menu in the middle of a drag.
  if (plot_.isInGesture()) return;
  for (const Row& row : rows_)
    if (row.isPossible) row.action->setEnabled(row.isPossible());
}

}  // namespace korrin::editor
