#pragma once

// The plot as a scene: a view for each item, kept like the plot by what its change sets name.

#include <QGraphicsScene>
#include <memory>
#include <unordered_map>

#include "editor/canvas/symbol_view.h"
#include "editor/plot/open_plot.h"

namespace korrin::editor {

class PlotScene : public QGraphicsScene {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  explicit PlotScene(OpenPlot& plot, QObject* parent = nullptr);
  ~PlotScene() override;

  /// The stage in millimetres.
  QRectF stageBounds() const;
  /// Tells how many pixels a millimetre takes, for what keeps its size on the screen.
  void setZoom(double pixelsPerMillimetre);
  double zoom() const { return zoom_; }
  /// How many views were given a new state since the beginning, for tests.
  std::size_t refreshes() const { return refreshes_; }

 private:
  void showAll();
  void showChanges(const ChangeSet& changes);
  /// Returns whether its place among the others may be another.
  bool showItem(const PlotItem& item);
  void showUnnamed();
  void showArtwork(const Text& sha256);
  void showOrder();
  void showStage();

  OpenPlot& plot_;
  SymbolPictures pictures_;
  std::unordered_map<UUID, std::unique_ptr<SymbolView>> views_;
  double zoom_ = 0.1;
  std::size_t refreshes_ = 0;
};

}  // namespace korrin::editor
