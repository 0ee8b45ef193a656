#include "editor/canvas/drags.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "korrin/session/item_edits.h"
#include "korrin/session/structural_edits.h"
#include "korrin/validation/document_validation.h"

#include "editor/canvas/symbol_view.h"

namespace korrin::editor {
namespace {

constexpr double smallest = 20;  // millimetres; less cannot be caught again

QRectF boundsOfMoving(const OpenPlot& plot) {
  QRectF bounds;
  for (const PlotItem* item : plot.selectedItems())
    if (plot.project().canEditItem(*item)) bounds |= boundsOf(*item);
  return bounds;
}

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

QPointF turned(const QPointF& point, double degrees) {
  const double sine = std::sin(radians(degrees));
  const double cosine = std::cos(radians(degrees));
  return {point.x() * cosine - point.y() * sine, point.x() * sine + point.y() * cosine};
}

}  // namespace

MoveDrag::MoveDrag(OpenPlot& plot, const QPointF& from)
    : Drag(plot, tr("Move")),
      from_(from),
      bounds_(boundsOfMoving(plot)),
      targets_(plot.project(), plot.selection()) {}

void MoveDrag::moveTo(const QPointF& point, double reach, Qt::KeyboardModifiers keys) {
  QPointF by = point - from_;
  if (keys.testFlag(Qt::ShiftModifier)) {
    if (std::fabs(by.x()) > std::fabs(by.y()))
      by.setY(0);
    else
      by.setX(0);
  }
  guides_.clear();
  if (!keys.testFlag(Qt::ControlModifier)) {
    Snap snap = targets_.snap(bounds_.translated(by), reach);
    by += snap.by;
    guides_ = std::move(snap.guides);
  }
  // Whole millimetres add up without a rest, so that a way there and back ends where it began.
  by = {std::round(by.x()), std::round(by.y())};
  const QPointF step = by - moved_;
  if (step.isNull()) return;
  plot_.perform({}, movingCommand(plot_.project(), plot_.selection(), {step.x(), step.y()}));
  moved_ = by;
}

ResizeDrag::ResizeDrag(OpenPlot& plot, const PlotItem& item, const Handle& handle)
    : Drag(plot, tr("Resize")), item_(item), handle_(handle) {}

void ResizeDrag::moveTo(const QPointF& point, double, Qt::KeyboardModifiers keys) {
  const QPointF centre(item_.position.x, item_.position.y);
  const QPointF inside = turned(point - centre, -item_.rotationDegrees);
  const bool keepsCentre = keys.testFlag(Qt::AltModifier);
  const double step = keys.testFlag(Qt::ControlModifier) ? 1 : 10;
  const auto extent = [&](double before, int side, double at) {
    if (side == 0) return before;
    const double wanted = keepsCentre ? 2 * side * at : side * at + before / 2;
    return std::clamp(std::round(wanted / step) * step, smallest,
                      DocumentValidation::maximumDimension);
  };
  StageSize size = {.width = extent(item_.size.width, handle_.x, inside.x()),
                    .height = extent(item_.size.height, handle_.y, inside.y())};
  if (keys.testFlag(Qt::ShiftModifier)) {
    const double across = handle_.x == 0 ? 0 : size.width / item_.size.width;
    const double down = handle_.y == 0 ? 0 : size.height / item_.size.height;
    const double factor = std::max(across, down);
    size = {.width = item_.size.width * factor, .height = item_.size.height * factor};
  }
  QPointF shift;
  if (!keepsCentre)
    shift = turned({handle_.x * (size.width - item_.size.width) / 2,
                    handle_.y * (size.height - item_.size.height) / 2},
                   item_.rotationDegrees);
  plot_.perform({}, changingCommand(plot_.project(), {item_.id}, [&](PlotItem& item) {
                  item.size = size;
                  item.position = {.x = item_.position.x + shift.x(),
                                   .y = item_.position.y + shift.y()};
                }));
}

TurnDrag::TurnDrag(OpenPlot& plot, const PlotItem& item, const QPointF& from)
    : Drag(plot, tr("Turn")), item_(item), angle_(angleAt(from)) {}

double TurnDrag::angleAt(const QPointF& point) const {
  return std::atan2(point.y() - item_.position.y, point.x() - item_.position.x) * 180 /
         std::numbers::pi;
}

void TurnDrag::moveTo(const QPointF& point, double, Qt::KeyboardModifiers keys) {
  const double step = keys.testFlag(Qt::ControlModifier) ? 1 : 15;
  const double wanted = item_.rotationDegrees + angleAt(point) - angle_;
  const double degrees = std::fmod(std::round(wanted / step) * step + 720, 360);
  plot_.perform({}, changingCommand(plot_.project(), {item_.id},
                                    [&](PlotItem& item) { item.rotationDegrees = degrees; }));
}

}  // namespace korrin::editor
