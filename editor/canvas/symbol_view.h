#pragma once

// One item upon the canvas: its symbol and its label.

#include <QGraphicsItem>
#include <QStaticText>
#include <memory>

#include "editor/canvas/symbol_pictures.h"

namespace korrin::editor {

/// The upright rectangle around the turned item, in millimetres on stage.
QRectF boundsOf(const PlotItem& item);

/// The label below its item. It lies above all symbols and never turns.
class LabelView : public QGraphicsItem {
 public:
  void show(const PlotItem& item);
  /// The same for an item that has moved and has the label that it had.
  void follow(const PlotItem& item);
  /// Tells how many pixels a millimetre on stage takes.
  void setZoom(double pixelsPerMillimetre);

  QRectF boundingRect() const override;
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 private:
  void layOut();

  QString text_;
  double scale_ = 1;
  double zoom_ = 0.1;
  QFont font_;
  QStaticText laidOut_;
};

class SymbolView : public QGraphicsItem {
 public:
  SymbolView(const PlotItem& item, SymbolPictures& pictures);
  ~SymbolView() override;

  /// Takes the item's new state; draws anew only what that changes.
  void show(const PlotItem& item, SymbolPictures& pictures);
  /// Draws it anew: its image has come.
  void redraw(SymbolPictures& pictures);
  const PlotItem& plotItem() const { return item_; }
  LabelView& label() { return *label_; }

  /// Its place in the stacking order.
  void setPlace(int place);
  void setShown(bool isShown);

  QRectF boundingRect() const override;
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 private:
  PlotItem item_;
  std::shared_ptr<SymbolPicture> picture_;
  std::unique_ptr<LabelView> label_;
};

}  // namespace korrin::editor
