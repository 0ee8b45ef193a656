#pragma once

// An earlier plot that the open one is compared with: what changed since, for marks upon canvas and
// sheets and for a list in words. It follows the edits.

#include <QObject>
#include <QString>
#include <QTimer>
#include <optional>
#include <vector>

#include "korrin/drawing/revision_marks.h"

namespace korrin::editor {

class OpenPlot;

class Comparison : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the plot.
  explicit Comparison(OpenPlot& plot);

  /// `name` is that of the file with the earlier plot.
  void begin(const QString& name, KorrinProject earlier);
  void end();
  bool isOn() const { return earlier_.has_value(); }
  const QString& name() const { return name_; }

  /// What changed, in words, and the item that it changed of.
  struct Change {
    QString sentence;
    std::optional<UUID> item;
  };
  /// Of the plot as it stands; empty while nothing is compared. More than a few thousand changes
  /// end in one that says so.
  const std::vector<Change>& changes();
  const RevisionMarks& marks();

 Q_SIGNALS:
  /// There are other marks and changes, or none. Comes a moment after an edit.
  void changed();

 private:
  void compare();
  void refresh();

  OpenPlot& plot_;
  QString name_;
  std::optional<KorrinProject> earlier_;
  std::vector<Change> changes_;
  RevisionMarks marks_;
  bool isStale_ = false;
  QTimer timer_;
};

}  // namespace korrin::editor
