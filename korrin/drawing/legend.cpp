#include "korrin/drawing/legend.h"

#include <algorithm>
#include <cmath>

#include "korrin/drawing/symbol_drawing.h"

namespace korrin::drawing {
namespace {

constexpr double rowHeight = 7.4;
constexpr double headHeight = 6;
constexpr double columnWidth = 56;
constexpr double swatchWidth = 6.6;
constexpr double swatchHeight = 5.8;

/// Lines in columns, filled one after the other.
class Legend {
 public:
  Legend(SvgWriter& svg, const Box& box, ShortenedTexts& shortened)
      : svg_(svg),
        shortened_(shortened),
        box_(box.inset(2.5)),
        columns_(std::max<std::size_t>(1, static_cast<std::size_t>(box_.width / columnWidth))),
        rows_(static_cast<std::size_t>((box_.height - headHeight) / rowHeight)) {
    svg.rectangle(box, {.stroke = "#c9d1d9", .strokeWidth = 0.2}, 1);
    svg.text({box_.x, box_.y + 3.4}, "Legend", {.size = 3.6, .isBold = true});
  }

  void draw(const DrawnStage& drawn) {
    const std::size_t notes = drawn.missing.empty() ? 0 : 1;
    const std::size_t wanted = drawn.looks.size() + drawn.risers.size() + notes;
    const std::size_t room = columns_ * rows_;
    const std::size_t shown = wanted <= room ? wanted - notes : room - notes - 1;
    for (const LookIndex look : drawn.looks)
      if (line_ < shown) drawLook(look);
    for (const std::string& riser : drawn.risers)
      if (line_ < shown) drawLine(riser, 0);
    if (wanted > room) drawLine("and " + std::to_string(wanted - notes - shown) + " more", 0);
    if (notes > 0)
      drawLine(std::to_string(drawn.missing.size()) + " not shown: see the last page", 0);
  }

 private:
  Place place() const {
    const double width = box_.width / static_cast<double>(columns_);
    return {box_.x + width * static_cast<double>(line_ / rows_),
            box_.y + headHeight + rowHeight * (static_cast<double>(line_ % rows_) + 0.5)};
  }

  void drawLook(LookIndex index) {
    const SymbolLook& look = lookAt(index);
    const Place at = place();
    // In its own proportions, but thick enough to be known again.
    const double ratio = std::clamp(look.size.height / look.size.width, 0.3, 2.0);
    const double width = std::min(swatchWidth, swatchHeight / ratio);
    svg_.beginPlaced({at.x + swatchWidth / 2, at.y});
    drawing::drawLook(svg_, index, width, width * ratio, std::nullopt);
    svg_.endGroup();
    drawLine(look.name, swatchWidth + 2.9);
  }

  void drawLine(std::string_view text, double indent) {
    const Place at = place();
    const double width = box_.width / static_cast<double>(columns_) - indent - 1;
    svg_.text({at.x + indent, at.y + 1.1}, shortened_.fitLine(text, 3, width), {.size = 3});
    ++line_;
  }

  SvgWriter& svg_;
  ShortenedTexts& shortened_;
  Box box_;
  std::size_t columns_;
  std::size_t rows_;
  std::size_t line_ = 0;
};

}  // namespace

void drawLegend(SvgWriter& svg, const DrawnStage& drawn, const Box& box,
                ShortenedTexts& shortened) {
  Legend(svg, box, shortened).draw(drawn);
}

}  // namespace korrin::drawing
