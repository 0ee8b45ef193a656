#include "editor/plot/open_plot.h"

#include <algorithm>
#include <utility>

#include "korrin/validation/document_validation.h"

#include "editor/plot/comparison.h"
#include "editor/plot/plot_artwork.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {

OpenPlot::OpenPlot(Environment environment, QObject* parent)
    : QObject(parent),
      environment_(std::move(environment)),
      history_(KorrinProject::newDocument(environment_)),
      artwork_(new PlotArtwork(*this)),
      comparison_(new Comparison(*this)) {}

void OpenPlot::begin(KorrinProject project, std::optional<DocumentFile> file) {
  history_ = EditHistory(std::move(project));
  file_ = std::move(file);
  selection_.clear();
  activeLayer_.reset();
  Q_EMIT replaced();
  Q_EMIT selectionChanged();
  Q_EMIT activeLayerChanged();
  Q_EMIT historyChanged();
}

void OpenPlot::setFile(DocumentFile file) {
  file_ = std::move(file);
  Q_EMIT historyChanged();
}

void OpenPlot::markSaved() {
  history_.markSaved();
  Q_EMIT historyChanged();
}

IDSet OpenPlot::selectable(const IDSet& ids) const {
  IDSet found;
  project().items.forEachCandidate(ids, [&](std::size_t, const PlotItem& item) {
    if (ids.contains(item.id) && project().canSelectItem(item)) found.insert(item.id);
  });
  return found;
}

void OpenPlot::select(const IDSet& ids) {
  IDSet found = selectable(ids);
  if (found == selection_) return;
  selection_ = std::move(found);
  Q_EMIT selectionChanged();
}

std::vector<const PlotItem*> OpenPlot::selectedItems() const {
  std::vector<const PlotItem*> found;
  project().items.forEachCandidate(selection_, [&](std::size_t, const PlotItem& item) {
    if (selection_.contains(item.id)) found.push_back(&item);
  });
  return found;
}

const PlotItem* OpenPlot::item(const UUID& id) const {
  const PlotItem* found = nullptr;
  project().items.forEachCandidate(IDSet{id}, [&](std::size_t, const PlotItem& item) {
    if (found == nullptr && item.id == id) found = &item;
  });
  return found;
}

void OpenPlot::setActiveLayer(UUID id) {
  if (activeLayer() == id) return;
  activeLayer_ = id;
  Q_EMIT activeLayerChanged();
}

bool OpenPlot::perform(const QString& name, const DocumentCommand& command,
                       const EditOptions& options) {
  // A gesture is judged as a whole when it ends: its steps follow the pointer without delay.
  if (!isInGesture()) {
    KorrinProject trial = project();
    command.apply(trial, environment_);
    if (!isSafe(trial)) return false;
  }
  const ChangeSet changes =
      history_.perform(command,
                       {.name = toText(name),
                        .mergeKey = toText(options.mergeKey),
                        .selection = selection_,
                        .selectionAfterwards = options.select.value_or(selection_)},
                       environment_);
  if (options.select) {
    selection_ = *options.select;
    Q_EMIT selectionChanged();
  }
  show(changes);
  return true;
}

bool OpenPlot::isSafe(const KorrinProject& next) {
  try {
    DocumentValidation::validate(next);
    return true;
  } catch (const DocumentValidationError& error) {
    Q_EMIT refused(QString::fromUtf8(error.what()));
    return false;
  }
}

bool OpenPlot::perform(const QString& name, const std::optional<DocumentCommand>& command,
                       const EditOptions& options) {
  return command && perform(name, *command, options);
}

void OpenPlot::beginGesture(const QString& name) {
  history_.beginGesture(
      {.name = toText(name), .selection = selection_, .selectionAfterwards = selection_});
}

void OpenPlot::endGesture() {
  if (isInGesture() && !isSafe(project())) return cancelGesture();
  history_.endGesture();
  Q_EMIT historyChanged();
}

void OpenPlot::cancelGesture() { show(history_.cancelGesture()); }

void OpenPlot::undo() { takeStep(history_.undo(environment_)); }

void OpenPlot::redo() { takeStep(history_.redo(environment_)); }

void OpenPlot::takeStep(const std::optional<HistoryStep>& step) {
  if (!step) return;
  const IDSet before = std::exchange(selection_, selectable(step->selection));
  if (selection_ != before) Q_EMIT selectionChanged();
  show(step->changes);
}

void OpenPlot::show(const ChangeSet& changes) {
  // What came to lie on a hidden or locked layer, or is gone, cannot stay selected.
  if (changes.affectsDocumentStructure || !changes.changedItemIDs.empty()) select(selection_);
  Q_EMIT changed(changes);
  Q_EMIT historyChanged();
}

}  // namespace korrin::editor
