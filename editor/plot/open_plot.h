#pragma once

// The plot that a window shows: its file, its history and what is selected of it. Everything in the
// window reads the plot here, changes it here and hears of changes from here.

#include <QObject>
#include <QString>
#include <optional>

#include "korrin/session/document_file.h"
#include "korrin/session/edit_history.h"

namespace korrin::editor {

class Comparison;
class PlotArtwork;

/// What an edit may say beside its name.
struct EditOptions {
  std::optional<IDSet> select = {};  ///< What is selected afterwards; absent: what was before.
  QString mergeKey = {};  ///< Edits in a row with the same key are one entry; empty: never.
};

class OpenPlot : public QObject {
  Q_OBJECT

 public:
  /// An empty plot without a file.
  explicit OpenPlot(Environment environment = Environment::system(), QObject* parent = nullptr);

  /// Another plot takes the place of the present one: nothing to undo, nothing selected. It counts
  /// as saved.
  void begin(KorrinProject project, std::optional<DocumentFile> file = {});

  /// The plot as it stands. The reference holds; what it refers to changes with every edit.
  const KorrinProject& project() const { return history_.project(); }
  const EditHistory& history() const { return history_; }
  const Environment& environment() const { return environment_; }

  /// The plot's file; null for one that was never saved.
  DocumentFile* file() { return file_ ? &*file_ : nullptr; }
  const DocumentFile* file() const { return file_ ? &*file_ : nullptr; }
  void setFile(DocumentFile file);
  /// To be called after every save.
  void markSaved();

  /// The images that the plot shows.
  PlotArtwork& artwork() const { return *artwork_; }
  /// The earlier plot that it is compared with, if any.
  Comparison& comparison() const { return *comparison_; }

  const IDSet& selection() const { return selection_; }
  /// Of these, the items that may be selected (see `KorrinProject::canSelectItem`).
  void select(const IDSet& ids);
  /// The selected items in the plot's order. The pointers hold until the next edit.
  std::vector<const PlotItem*> selectedItems() const;
  /// The item; null where there is none. The pointer holds until the next edit.
  const PlotItem* item(const UUID& id) const;

  /// The layer for new items; absent only in a plot without layers.
  std::optional<UUID> activeLayer() const { return project().resolvedActiveLayerID(activeLayer_); }
  void setActiveLayer(UUID id);

  /// Performs an edit under the name that menus show for undo. Returns whether it was performed: an
  /// edit that would make the plot unsafe to open again is `refused` instead, and nothing happens.
  /// Inside a gesture it joins the gesture, which is judged when it ends.
  bool perform(const QString& name, const DocumentCommand& command,
               const EditOptions& options = {});
  /// The same where there is something to do.
  bool perform(const QString& name, const std::optional<DocumentCommand>& command,
               const EditOptions& options = {});

  /// @{
  /// A gesture, such as a drag: all edits from its beginning to its end are one entry. Its
  /// cancellation leaves no trace.
  void beginGesture(const QString& name);
  void endGesture();
  void cancelGesture();
  bool isInGesture() const { return history_.isInGesture(); }
  /// @}

 public Q_SLOTS:
  void undo();
  void redo();

 Q_SIGNALS:
  /// After each edit, undo and redo.
  void changed(const korrin::ChangeSet& changes);
  void selectionChanged();
  /// What can be undone and redone, and whether the plot is saved, may have changed.
  void historyChanged();
  /// Another plot has begun, or the file is another one.
  void replaced();
  void activeLayerChanged();
  /// An edit was refused: why, in a sentence.
  void refused(const QString& sentence);

 private:
  bool isSafe(const KorrinProject& next);
  void show(const ChangeSet& changes);
  void takeStep(const std::optional<HistoryStep>& step);
  IDSet selectable(const IDSet& ids) const;

  Environment environment_;
  EditHistory history_;
  std::optional<DocumentFile> file_;
  IDSet selection_;
  std::optional<UUID> activeLayer_;
  PlotArtwork* artwork_;
  Comparison* comparison_;
};

}  // namespace korrin::editor
