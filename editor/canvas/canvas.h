#pragma once

// The canvas: the stage to scale with everything that stands on it. A unit of the scene is a
// millimetre on stage, so that scene and plot share their coordinates.

#include <QGraphicsView>
#include <functional>
#include <map>
#include <memory>

#include "editor/canvas/drags.h"
#include "editor/canvas/plot_scene.h"

class QMenu;
class QMimeData;
class QRubberBand;

namespace korrin::editor {

class ChangeMarks;
class LabelEditor;
class Ruler;

class Canvas : public QGraphicsView {
  Q_OBJECT

 public:
  /// What palettes drag onto the canvas: the identifier of a built-in symbol, in UTF-8.
  static constexpr const char* symbolType = "application/x-korrin-symbol";

  /// The plot must outlive it.
  explicit Canvas(OpenPlot& plot, QWidget* parent = nullptr);
  ~Canvas() override;

  PlotScene& plotScene() { return *scene_; }
  /// The place on stage in the middle of what is seen.
  QPointF middle() const;
  /// Pixels for a millimetre on stage.
  double zoom() const { return transform().m11(); }

  /// Adds the symbol, its centre at the place, and selects it. Nothing for an unknown identifier.
  void addSymbol(std::string_view assetID, const QPointF& place);

  /// What is dragged onto an item, such as the row of a table: `drop` gets the data and the item.
  using Drop = std::function<void(const QByteArray& data, const UUID& itemID)>;
  void acceptOnItems(const QString& mimeType, Drop drop) { drops_[mimeType] = std::move(drop); }

  /// Files that are dropped from a file manager: `drop` gets their paths and the place on stage.
  using FileDrop = std::function<void(const QStringList& paths, const QPointF& place)>;
  void acceptFiles(FileDrop drop) { fileDrop_ = std::move(drop); }

  /// What a right click opens; the menu is the caller's.
  void setContextMenu(QMenu* menu) { contextMenu_ = menu; }

 public Q_SLOTS:
  /// The whole stage as large as it goes.
  void zoomToFit();
  void zoomIn();
  void zoomOut();
  /// Selects the item and brings it into sight.
  void showItem(const korrin::UUID& id);
  /// Opens the field for the label of the item that is selected alone.
  void editLabel();

 Q_SIGNALS:
  /// The pointer is over this place on stage, in millimetres from its centre.
  void pointerMoved(const QPointF& place);
  void zoomChanged();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void drawBackground(QPainter* painter, const QRectF& exposed) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  bool viewportEvent(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  /// What a press of the button has begun and the next moves decide.
  struct Press {
    QPoint at;
    std::optional<Handle> handle;
    std::optional<UUID> item;
    bool pans = false;
    IDSet before;  ///< What was selected, for a rubber band that adds.
  };

  void setZoom(double zoom, const QPoint& fixed);
  void nudge(const QPointF& by);
  bool selectNext(int step);
  void beginDrag(const QPointF& point);
  void stretchBand(const QPoint& to);
  void endPress();
  bool cancelDrag();
  void showGuides(const std::vector<Guide>& guides);
  void showCursor(const QPoint& at);
  void refreshFrame();
  void placeRulers();
  std::optional<UUID> itemAt(const QPointF& point) const;
  const QString* dropTypeOf(const QMimeData& dragged) const;
  bool takesFiles(const QMimeData& dragged) const;
  QPointF onStage(const QPoint& at) const { return mapToScene(at); }

  OpenPlot& plot_;
  PlotScene* scene_;
  SelectionFrame* frame_;
  ChangeMarks* changeMarks_;
  LabelEditor* labelEditor_;
  Ruler* levelRuler_;
  Ruler* uprightRuler_;
  QRubberBand* band_;
  QMenu* contextMenu_ = nullptr;
  std::vector<QGraphicsLineItem*> guideLines_;
  std::map<QString, Drop> drops_;
  FileDrop fileDrop_;
  std::optional<Press> press_;
  std::unique_ptr<Drag> drag_;
  bool isSpaceDown_ = false;
};

}  // namespace korrin::editor
