#include "editor/canvas/canvas.h"

#include <QContextMenuEvent>
#include <QGraphicsLineItem>
#include <QMenu>
#include <QMouseEvent>
#include <QRubberBand>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "korrin/drawing/outlines.h"
#include "korrin/drawing/symbol_catalogue.h"

#include "editor/canvas/change_marks.h"
#include "editor/canvas/label_editor.h"
#include "editor/canvas/ruler.h"
#include "editor/canvas/stage_ground.h"
#include "editor/languages/library_texts.h"
#include "editor/look/theme.h"
#include "editor/plot/comparison.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {

Canvas::Canvas(OpenPlot& plot, QWidget* parent)
    : QGraphicsView(parent),
      plot_(plot),
      scene_(new PlotScene(plot, this)),
      frame_(new SelectionFrame(plot)),
      changeMarks_(new ChangeMarks(plot)),
      labelEditor_(new LabelEditor(plot, viewport())),
      levelRuler_(new Ruler(Qt::Horizontal, this)),
      uprightRuler_(new Ruler(Qt::Vertical, this)),
      band_(new QRubberBand(QRubberBand::Rectangle, viewport())) {
  setScene(scene_);
  scene_->addItem(frame_);
  scene_->addItem(changeMarks_);
  setFrameShape(NoFrame);
  setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  setViewportUpdateMode(MinimalViewportUpdate);
  setCacheMode(CacheBackground);
  setTransformationAnchor(NoAnchor);
  setResizeAnchor(AnchorViewCenter);
  setViewportMargins(Ruler::thickness, Ruler::thickness, 0, 0);
  setAcceptDrops(true);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Stage"));
  setAccessibleDescription(
      tr("The items of the plot. Tab selects the next one, arrow keys move it."));
  connect(&plot_, &OpenPlot::replaced, this, &Canvas::zoomToFit);
  connect(&plot_, &OpenPlot::selectionChanged, this, &Canvas::refreshFrame);
  connect(&plot_, &OpenPlot::changed, this, [this](const ChangeSet& changes) {
    refreshFrame();
    if (changes.affectsDocumentStructure) {
      resetCachedContent();
      viewport()->update();
    }
  });
  connect(&plot_.comparison(), &Comparison::changed, this, [this] { changeMarks_->refresh(); });
  zoomToFit();
}

Canvas::~Canvas() = default;

QPointF Canvas::middle() const { return mapToScene(viewport()->rect().center()); }

void Canvas::refreshFrame() { frame_->refresh(); }

void Canvas::setZoom(double zoom, const QPoint& fixed) {
  constexpr double smallest = 0.002;
  constexpr double largest = 8;
  const QPointF place = mapToScene(fixed);
  zoom = std::clamp(zoom, smallest, largest);
  setTransform(QTransform::fromScale(zoom, zoom));
  const QPoint off = mapFromScene(place) - fixed;
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + off.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() + off.y());
  scene_->setZoom(zoom);
  frame_->setZoom(zoom);
  changeMarks_->setZoom(zoom);
  placeRulers();
  Q_EMIT zoomChanged();
}

void Canvas::zoomToFit() {
  constexpr double rim = 44;  // pixels, for what is written around the stage
  const QRectF stage = scene_->stageBounds();
  const QSizeF room = QSizeF(viewport()->size()) - QSizeF(2 * rim, 2 * rim);
  const double fitting = std::min(room.width() / stage.width(), room.height() / stage.height());
  setZoom(fitting > 0 ? fitting : 0.01, viewport()->rect().center());
  centerOn(stage.center());
  placeRulers();
}

void Canvas::zoomIn() { setZoom(zoom() * 1.25, viewport()->rect().center()); }

void Canvas::zoomOut() { setZoom(zoom() / 1.25, viewport()->rect().center()); }

void Canvas::showItem(const UUID& id) {
  plot_.select({id});
  if (const PlotItem* item = plot_.item(id)) ensureVisible(boundsOf(*item), 60, 60);
}

void Canvas::editLabel() {
  const PlotItem* item = frame_->itemWithHandles();
  if (item == nullptr) return;
  const QRectF bounds = boundsOf(*item);
  labelEditor_->edit(*item, mapFromScene(QPointF(bounds.center().x(), bounds.bottom())));
}

void Canvas::addSymbol(std::string_view assetID, const QPointF& place) {
  const std::optional<UUID> layer = plot_.activeLayer();
  for (const Symbol& symbol : builtInSymbols()) {
    if (symbol.assetID != assetID || !layer) continue;
    const QString name = inUsersLanguage(symbol.name);
    PlotItem item = makeItem(symbol, {.x = std::round(place.x()), .y = std::round(place.y())},
                             *layer, plot_.environment());
    item.label = toText(name);
    plot_.perform(tr("Add %1").arg(name), DocumentCommand::insertItems({item}),
                  {.select = IDSet{item.id}});
    return;
  }
}

std::optional<UUID> Canvas::itemAt(const QPointF& point) const {
  for (const UUID& id : itemsAt(plot_.project(), {.x = point.x(), .y = point.y()})) {
    const PlotItem* item = plot_.item(id);
    if (item != nullptr && plot_.project().canSelectItem(*item)) return id;
  }
  return std::nullopt;
}

void Canvas::showGuides(const std::vector<Guide>& guides) {
  while (guideLines_.size() < guides.size()) {
    QPen pen(guideColour(), 1);
    pen.setCosmetic(true);
    QGraphicsLineItem* line = scene_->addLine({}, pen);
    line->setZValue(frame_->zValue() + 1);
    guideLines_.push_back(line);
  }
  for (std::size_t i = 0; i < guideLines_.size(); ++i) {
    guideLines_[i]->setVisible(i < guides.size());
    if (i < guides.size()) guideLines_[i]->setLine({guides[i].from, guides[i].to});
  }
}

void Canvas::drawBackground(QPainter* painter, const QRectF& exposed) {
  drawGround(*painter, plot_.project().stage, exposed, zoom());
}

void Canvas::resizeEvent(QResizeEvent* event) {
  QGraphicsView::resizeEvent(event);
  // A window that takes its first size shows the whole stage.
  if (!event->oldSize().isValid() || event->oldSize().width() < 120) zoomToFit();
  placeRulers();
}

void Canvas::scrollContentsBy(int dx, int dy) {
  QGraphicsView::scrollContentsBy(dx, dy);
  placeRulers();
}

void Canvas::placeRulers() {
  constexpr int thickness = Ruler::thickness;
  const QRect view = viewport()->geometry();
  levelRuler_->setGeometry(view.left(), view.top() - thickness, view.width(), thickness);
  uprightRuler_->setGeometry(view.left() - thickness, view.top(), thickness, view.height());
  const QPointF corner = mapToScene(QPoint(0, 0));
  levelRuler_->setRange(corner.x(), zoom());
  uprightRuler_->setRange(corner.y(), zoom());
}

bool Canvas::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) {
    levelRuler_->setPointer(-1);
    uprightRuler_->setPointer(-1);
  } else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
    resetCachedContent();
  }
  return QGraphicsView::viewportEvent(event);
}

}  // namespace korrin::editor
