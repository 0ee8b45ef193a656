#pragma once

// A ruler along an edge of the canvas, in metres from the stage's centre.

#include <QWidget>

namespace korrin::editor {

class Ruler : public QWidget {
  Q_OBJECT

 public:
  static constexpr int thickness = 24;  ///< In pixels.

  Ruler(Qt::Orientation orientation, QWidget* parent);

  /// The place on stage at the ruler's beginning and the pixels of a millimetre.
  void setRange(double start, double zoom);
  /// Marks where the pointer is; in pixels from the beginning.
  void setPointer(int at);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::Orientation orientation_;
  double start_ = 0;
  double zoom_ = 0.1;
  int pointer_ = -1;
};

}  // namespace korrin::editor
