#pragma once

// Actions that are enabled while they have something to work on.

#include <QIcon>
#include <QKeySequence>
#include <QObject>
#include <functional>
#include <vector>

#include "editor/plot/open_plot.h"

class QAction;
class QMenu;

namespace korrin::editor {

class LiveActions : public QObject {
  Q_OBJECT

 public:
  using IsPossible = std::function<bool()>;

  /// The plot must outlive it.
  LiveActions(OpenPlot& plot, QObject* parent);

  /// An action at the end of the menu. `icon` is the name of an icon of the program, or empty. What
  /// `isPossible` says is asked whenever the plot or its selection changes, and must be cheap.
  QAction* add(QMenu& menu, const QString& text, const QString& icon, const QKeySequence& keys,
               std::function<void()> work, IsPossible isPossible = {});

  /// At least so many items are selected.
  IsPossible selected(std::size_t count) const;

  /// Draws the icons again, in the colours of the theme.
  void refreshIcons();

 private:
  struct Row {
    QAction* action;
    QString icon;
    IsPossible isPossible;
  };

  void refresh();

  OpenPlot& plot_;
  std::vector<Row> rows_;
};

}  // namespace korrin::editor
