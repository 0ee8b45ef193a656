#pragma once

// What changed since an earlier plot, marked upon the canvas as it is upon sheets: an outline and a
// word for each item that is new, moved or changed, and where items stood that are gone.

#include <QGraphicsItem>
#include <QPolygonF>
#include <vector>

#include "editor/plot/open_plot.h"

namespace korrin::editor {

class ChangeMarks : public QGraphicsItem {
 public:
  /// The plot must outlive it.
  explicit ChangeMarks(OpenPlot& plot);

  /// Takes over the marks as they are at this moment.
  void refresh();
  /// Tells how many pixels a millimetre on stage takes.
  void setZoom(double pixelsPerMillimetre);
  /// How many items are marked.
  std::size_t count() const { return marks_.size(); }

  QRectF boundingRect() const override { return bounds_; }
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 private:
  struct Mark {
    QPolygonF outline;  // empty where the item is gone
    QPolygonF former;   // where it stood; empty where it did not
    QLineF way;         // from there, where it moved
    QString word;
    QColor colour;
  };

  void add(const PlotItem* item, const PlotItem* former, const QString& word, const QColor& colour);
  void measure();

  OpenPlot& plot_;
  std::vector<Mark> marks_;
  QRectF bounds_;
  double zoom_ = 0.1;
};

}  // namespace korrin::editor
