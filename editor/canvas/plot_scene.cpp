#include "editor/canvas/plot_scene.h"

#include <utility>

#include "korrin/model/stacking.h"

namespace korrin::editor {

PlotScene::PlotScene(OpenPlot& plot, QObject* parent)
    : QGraphicsScene(parent), plot_(plot), pictures_(plot.artwork()) {
  // Items move all the time; keeping an index of them costs more than it saves.
  setItemIndexMethod(NoIndex);
  connect(&plot_, &OpenPlot::replaced, this, &PlotScene::showAll);
  connect(&plot_, &OpenPlot::changed, this, &PlotScene::showChanges);
  connect(&plot_.artwork(), &PlotArtwork::arrived, this, &PlotScene::showArtwork);
  showAll();
}

PlotScene::~PlotScene() = default;

QRectF PlotScene::stageBounds() const {
  const StageSize& size = plot_.project().stage.size;
  return {-size.width / 2, -size.height / 2, size.width, size.height};
}

void PlotScene::setZoom(double pixelsPerMillimetre) {
  zoom_ = pixelsPerMillimetre;
  for (const auto& [id, view] : views_) view->label().setZoom(zoom_);
}

void PlotScene::showAll() {
  views_.clear();
  for (const PlotItem& item : plot_.project().items) showItem(item);
  showOrder();
  showStage();
}

bool PlotScene::showItem(const PlotItem& item) {
  ++refreshes_;
  std::unique_ptr<SymbolView>& view = views_[item.id];
  if (view) {
    const bool isMoved = view->plotItem().layerID != item.layerID;
    view->show(item, pictures_);
    return isMoved;
  }
  view = std::make_unique<SymbolView>(item, pictures_);
  view->label().setZoom(zoom_);
  addItem(view.get());
  addItem(&view->label());
  return true;
}

void PlotScene::showChanges(const ChangeSet& changes) {
  const List<PlotItem>& items = plot_.project().items;
  IDSet gone = changes.changedItemIDs;
  bool isRestacked = changes.affectsDocumentStructure;
  items.forEachCandidate(changes.changedItemIDs, [&](std::size_t, const PlotItem& item) {
    if (gone.erase(item.id) > 0) isRestacked |= showItem(item);
  });
  for (const UUID& id : gone) views_.erase(id);
  if (changes.affectsDocumentStructure) {
    showUnnamed();
    showStage();
  }
  if (isRestacked) showOrder();
}

// Of a plot that was replaced as a whole not every item need be named.
void PlotScene::showUnnamed() {
  IDSet present;
  for (const PlotItem& item : plot_.project().items) {
    present.insert(item.id);
    const auto view = views_.find(item.id);
    if (view == views_.end() || view->second->plotItem() != item) showItem(item);
  }
  std::erase_if(views_, [&](const auto& entry) { return !present.contains(entry.first); });
}

void PlotScene::showArtwork(const Text& sha256) {
  for (const auto& [id, view] : views_)
    if (view->plotItem().assetID == sha256) view->redraw(pictures_);
}

void PlotScene::showOrder() {
  IDSet shown;
  int place = 0;
  for (const PlotItem* item : visibleItemsInStackingOrder(plot_.project())) {
    shown.insert(item->id);
    const auto view = views_.find(item->id);
    if (view != views_.end()) view->second->setPlace(++place);
  }
  for (const auto& [id, view] : views_) view->setShown(shown.contains(id));
}

void PlotScene::showStage() {
  // Room to push things off the stage, and to see what stands there.
  const QRectF stage = stageBounds();
  const double room = std::max(stage.width(), stage.height());
  setSceneRect(stage.adjusted(-room, -room, room, room));
  update();
}

}  // namespace korrin::editor
