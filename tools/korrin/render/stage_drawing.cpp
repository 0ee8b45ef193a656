#include "stage_drawing.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <set>
#include <utility>

#include "korrin/model/stacking.h"
#include "korrin/validation/document_validation.h"

#include "label_places.h"
#include "text_fit.h"

namespace korrin::host {
namespace {

constexpr double side = 9;           // beside the stage, for the audience and the dimensions
constexpr double captionHeight = 7;  // below all
constexpr double narrowestGrid = 1.2;
constexpr double labelSize = 2.7;
constexpr double largestLabel = 16;
constexpr double lineHeight = 1.2;
constexpr std::string_view ink = "#1f2933";
constexpr std::string_view muted = "#5b6773";

/// Draws one plot: holds what all parts of the drawing share.
class StageDrawing {
 public:
  StageDrawing(SvgWriter& svg, const KorrinProject& project, const Box& box)
      : svg_(svg), project_(project), stage_(project.stage), box_(box) {
    const double roomX = box.width - 2 * side;
    const double roomY = box.height - 2 * side - captionHeight;
    scaleNumber_ =
        std::max(scaleNumber(stage_.size.width, roomX), scaleNumber(stage_.size.height, roomY));
    const double width = stage_.size.width / scaleNumber_;
    const double height = stage_.size.height / scaleNumber_;
    ground_ = {box.x + (box.width - width) / 2, box.y + side + (roomY - height) / 2, width, height};
  }

  DrawnStage draw() {
    drawGround();
    drawAudience();
    if (stage_.showDimensions) drawDimensions();
    const Box canvas = {box_.x, box_.y, box_.width, box_.height - captionHeight};
    svg_.beginClipped(canvas);
    const std::vector<const PlotItem*> items = drawnItems(project_);
    for (const PlotItem* item : items) drawItem(*item, canvas);
    drawLabels(items, canvas);
    svg_.endClipped();
    drawCaption();
    return drawn();
  }

 private:
  Place onPaper(const StagePoint& point) const {
    const Place centre = ground_.centre();
    return {centre.x + point.x / scaleNumber_, centre.y + point.y / scaleNumber_};
  }

  /// The upright rectangle around the turned item.
  Box around(const PlotItem& item) const {
    const double angle = std::fmod(item.rotationDegrees, 360.0) * std::numbers::pi / 180;
    const double cosine = std::fabs(std::cos(angle));
    const double sine = std::fabs(std::sin(angle));
    const double width = (item.size.width * cosine + item.size.height * sine) / scaleNumber_;
    const double height = (item.size.width * sine + item.size.height * cosine) / scaleNumber_;
    const Place centre = onPaper(item.position);
    return {centre.x - width / 2, centre.y - height / 2, width, height};
  }

  void drawGround() {
    svg_.rectangle(ground_, {.fill = "#fbfaf7"});
    if (stage_.showGrid) {
      drawGridLines(stage_.size.width, [this](double at) {
        return std::array{Place{at + ground_.centre().x, ground_.y},
                          Place{at + ground_.centre().x, ground_.bottom()}};
      });
      drawGridLines(stage_.size.height, [this](double at) {
        return std::array{Place{ground_.x, at + ground_.centre().y},
                          Place{ground_.right(), at + ground_.centre().y}};
      });
    }
    svg_.rectangle(ground_, {.stroke = ink, .strokeWidth = 0.6});
  }

  /// Lines too close to be told apart are left out evenly.
  template <class LineAt>
  void drawGridLines(double length, LineAt lineAt) {
    const double spacing = stage_.gridSpacingMillimeters;
    const std::vector<double> all =
        DocumentValidation::gridCoordinates(-length / 2, length / 2, spacing);
    const double every = std::max(1.0, std::ceil(narrowestGrid / (spacing / scaleNumber_)));
    const std::size_t step = every < 1e6 ? static_cast<std::size_t>(every) : all.size() + 1;
    for (std::size_t i = 0; i < all.size(); i += step) {
      const auto [from, to] = lineAt(all[i] / scaleNumber_);
      svg_.line(from, to, {.stroke = "#d9dde1", .strokeWidth = 0.15});
    }
  }

  /// A thick edge, arrows that point off the stage, and the word.
  void drawAudience() {
    const AudienceEdge edge = stage_.audienceEdge;
    const bool isUpright = edge == AudienceEdge::left || edge == AudienceEdge::right;
    const double length = isUpright ? ground_.height : ground_.width;
    const double depth = (isUpright ? ground_.width : ground_.height) / 2;
    // Drawn as for an audience below, about the stage's centre, and turned to its side.
    const double turn = edge == AudienceEdge::top     ? 180
                        : edge == AudienceEdge::left  ? 90
                        : edge == AudienceEdge::right ? 270
                                                      : 0;
    svg_.beginPlaced(ground_.centre(), turn, false, false);
    svg_.line({-length / 2, depth}, {length / 2, depth}, {.stroke = "#b4232a", .strokeWidth = 1.4});
    for (const double at : {-14.0, 14.0})
      svg_.polygon(
          std::array{Place{at - 2, depth + 3}, Place{at + 2, depth + 3}, Place{at, depth + 5.6}},
          {.fill = "#b4232a"});
    svg_.endPlaced();
    const Place centre = ground_.centre();
    const double away = depth + 4.4;
    const Place place = edge == AudienceEdge::top     ? Place{centre.x, centre.y - away}
                        : edge == AudienceEdge::left  ? Place{centre.x - away, centre.y}
                        : edge == AudienceEdge::right ? Place{centre.x + away, centre.y}
                                                      : Place{centre.x, centre.y + away};
    besideStage_.push_back(isUpright ? Box{place.x - 2, place.y - 17, 4, 34}
                                     : Box{place.x - 17, place.y - 2, 34, 4});
    svg_.beginPlaced(place, isUpright ? 270 : 0, false, false);
    svg_.text({0, 1.1}, "AUDIENCE",
              {.size = 3.2, .isBold = true, .anchor = Anchor::middle, .colour = "#b4232a"});
    svg_.endPlaced();
  }

  /// On the sides where the audience is not.
  void drawDimensions() {
    const Place centre = ground_.centre();
    const double x =
        stage_.audienceEdge == AudienceEdge::left ? ground_.right() + 4 : ground_.x - 4;
    const double y =
        stage_.audienceEdge == AudienceEdge::bottom ? ground_.y - 4 : ground_.bottom() + 4;
    drawDimension({centre.x, y}, 0, ground_.width, metres(stage_.size.width));
    drawDimension({x, centre.y}, 270, ground_.height, metres(stage_.size.height));
  }

  void drawDimension(Place place, double turn, double length, const std::string& text) {
    const Paint thin = {.stroke = muted, .strokeWidth = 0.2};
    const double gap = textWidth(text, 3) / 2 + 1;
    const double reach = std::max(gap, length / 2);
    besideStage_.push_back(turn == 0 ? Box{place.x - reach, place.y - 1.5, 2 * reach, 3}
                                     : Box{place.x - 1.5, place.y - reach, 3, 2 * reach});
    svg_.beginPlaced(place, turn, false, false);
    for (const double sign : {-1.0, 1.0}) {
      const double end = sign * length / 2;
      svg_.line({end, -1.5}, {end, 1.5}, thin);
      if (length / 2 > gap) svg_.line({end, 0}, {sign * gap, 0}, thin);
    }
    svg_.text({0, 1.05}, text, {.size = 3, .anchor = Anchor::middle, .colour = muted});
    svg_.endPlaced();
  }

  void drawItem(const PlotItem& item, const Box& canvas) {
    const Symbol symbol = symbolOf(item);
    symbols_.insert(symbol);
    if (item.kind == PlotItemKind::riser) addRiser(item);
    if (!touches(around(item), canvas)) {
      ++itemsOutOfSight_;
      return;
    }
    svg_.beginPlaced(onPaper(item.position), item.rotationDegrees, item.isFlippedHorizontally,
                     item.isFlippedVertically);
    drawSymbol(svg_, symbol, item.size.width / scaleNumber_, item.size.height / scaleNumber_,
               item.style.tintHex);
    svg_.endPlaced();
  }

  void addRiser(const PlotItem& item) {
    std::string text = paperLine(item.legendText());
    if (!text.empty() && knownRisers_.insert(text).second) risers_.push_back(std::move(text));
  }

  void drawLabels(const std::vector<const PlotItem*>& items, const Box& canvas) {
    LabelPlaces places(canvas.inset(0.5));
    avoidEdges(places, ground_);
    for (const Box& text : besideStage_) places.avoid(text);
    for (const PlotItem* item : items) {
      if (item->kind == PlotItemKind::riser) {
        avoidEdges(places, around(*item));
      } else {
        places.avoid(around(*item));
      }
    }
    for (const PlotItem* item : items)
      if (item->style.labelVisible && item->style.labelScale > 0) drawLabel(*item, canvas, places);
  }

  /// What has room inside is left free at its edges only.
  static void avoidEdges(LabelPlaces& places, const Box& box) {
    constexpr double thick = 0.8;
    for (const double y : {box.y, box.bottom()})
      places.avoid({box.x, y - thick / 2, box.width, thick});
    for (const double x : {box.x, box.right()})
      places.avoid({x - thick / 2, box.y, thick, box.height});
  }

  void drawLabel(const PlotItem& item, const Box& canvas, LabelPlaces& places) {
    const Box symbol = around(item);
    if (!touches(symbol, canvas)) return;
    const double size = std::min(labelSize * item.style.labelScale, largestLabel);
    const double room = std::min(std::max(symbol.width * 1.3, 11 * size), canvas.width - 2);
    const std::vector<std::string> lines = fitted(item.legendText(), size, room, 2, true);
    if (lines.empty()) return;
    double width = 0;
    for (const std::string& line : lines) width = std::max(width, textWidth(line, size, true));
    const double height = size * lineHeight * static_cast<double>(lines.size());
    const Box place = places.take(candidates(item, symbol, width, height));
    for (std::size_t i = 0; i < lines.size(); ++i)
      svg_.text({place.centre().x, place.y + size * (lineHeight * static_cast<double>(i) + 0.95)},
                lines[i],
                {.size = size, .isBold = true, .anchor = Anchor::middle, .hasHalo = true});
  }

  /// Below, above, right and left of the symbol; a riser's inside its lower or upper edge first,
  /// since what stands on it covers its middle.
  static std::vector<Box> candidates(const PlotItem& item, const Box& symbol, double width,
                                     double height) {
    constexpr double gap = 0.7;
    const Place centre = symbol.centre();
    const double x = centre.x - width / 2;
    const double y = centre.y - height / 2;
    std::vector<Box> boxes;
    if (item.kind == PlotItemKind::riser && width < symbol.width && height * 3 < symbol.height) {
      boxes.push_back({x, symbol.bottom() - height - gap, width, height});
      boxes.push_back({x, symbol.y + gap, width, height});
    }
    boxes.push_back({x, symbol.bottom() + gap, width, height});
    boxes.push_back({x, symbol.y - height - gap, width, height});
    boxes.push_back({symbol.right() + gap, y, width, height});
    boxes.push_back({symbol.x - width - gap, y, width, height});
    for (const double away : {1.0, 2.0, 3.0}) {
      boxes.push_back({x, symbol.bottom() + gap + away * height, width, height});
      boxes.push_back({x, symbol.y - gap - (away + 1) * height, width, height});
    }
    return boxes;
  }

  void drawCaption() {
    std::string facts = metres(stage_.size.width) + " × " + metres(stage_.size.height);
    if (stage_.showGrid && stage_.gridSpacingMillimeters >= 4)
      facts += " · grid " + metres(stage_.gridSpacingMillimeters);
    facts += " · scale 1:" + svgNumber(scaleNumber_);
    const double factsWidth = textWidth(facts, 3);
    const double y = box_.bottom() - 1.5;
    svg_.text({box_.right(), y}, facts, {.size = 3, .anchor = Anchor::end, .colour = muted});
    svg_.text({box_.x, y}, fittedLine(stage_.name, 3.8, box_.width - factsWidth - 4, true),
              {.size = 3.8, .isBold = true});
  }

  DrawnStage drawn() {
    return {.symbols = {symbols_.begin(), symbols_.end()},
            .risers = std::move(risers_),
            .itemsOutOfSight = itemsOutOfSight_};
  }

  SvgWriter& svg_;
  const KorrinProject& project_;
  const StageDefinition& stage_;
  Box box_;
  Box ground_{};
  double scaleNumber_ = 1;
  std::vector<Box> besideStage_;  // what is written there
  std::set<Symbol> symbols_;
  std::vector<std::string> risers_;
  std::set<std::string> knownRisers_;
  std::size_t itemsOutOfSight_ = 0;
};

}  // namespace

std::vector<const PlotItem*> drawnItems(const KorrinProject& project) {
  return visibleItemsInStackingOrder(project);
}

DrawnStage drawStage(SvgWriter& svg, const KorrinProject& project, const Box& box) {
  return StageDrawing(svg, project, box).draw();
}

double scaleNumber(double length, double room) {
  constexpr std::array customary = {1.0, 1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 7.5, 8.0, 10.0};
  constexpr double smallest = 0.1;
  const double needed = std::max(length / room, smallest);
  const double decade = std::pow(10, std::floor(std::log10(needed)));
  // The quotient may lie a rounding error above a number that fits exactly.
  for (const double number : customary)
    if (number * decade >= needed * (1 - 1e-9)) return number * decade;
  return 10 * decade;
}

std::string metres(double millimeters) {
  std::array<char, 320> digits{};
  const auto end =
      std::to_chars(digits.begin(), digits.end(), millimeters / 1000, std::chars_format::fixed, 3);
  std::string text(digits.begin(), end.ptr);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text + " m";
}

}  // namespace korrin::host
