#include "korrin/drawing/legend.h"

#include <algorithm>
#include <cmath>

#include "korrin/drawing/symbol_drawing.h"

namespace korrin::drawing {
namespace {

constexpr double highestRow = 7.4;
constexpr double lowestRow = 4.4;
constexpr double headingHeight = 6;
constexpr double columnWidth = 56;
constexpr double swatchWidth = 6.6;
constexpr double swatchHeight = 5.8;

/// Lines in columns, filled one after the other.
class Legend {
 public:
  Legend(SvgWriter& svg, const DrawnStage& drawn, const Box& box, ShortenedTexts& shortened)
      : svg_(svg),
        shortened_(shortened),
        box_(box.inset(2.5)),
        columns_(std::max<std::size_t>(1, static_cast<std::size_t>(box_.width / columnWidth))),
        notes_(drawn.missing.empty() ? 0 : 1),
        wanted_(drawn.looks.size() + drawn.risers.size() + notes_) {
    const double room = box_.height - headingHeight;
    const std::size_t rows = std::max<std::size_t>(1, (wanted_ + columns_ - 1) / columns_);
    rowHeight_ = std::clamp(room / static_cast<double>(rows), lowestRow, highestRow);
    rows_ = static_cast<std::size_t>(room / rowHeight_ + 1e-9);
    svg.rectangle(box, {.stroke = "#c9d1d9", .strokeWidth = 0.2}, 1);
    svg.text({box_.x, box_.y + 3.4}, "Legend", {.size = 3.6, .isBold = true});
  }

  void draw(const DrawnStage& drawn) {
    const std::size_t room = columns_ * rows_;
    const std::size_t shown = wanted_ <= room ? wanted_ - notes_ : room - notes_ - 1;
    for (const LookIndex look : drawn.looks)
      if (line_ < shown) drawLook(look);
    for (const std::string& riser : drawn.risers)
      if (line_ < shown) drawLine(riser, 0);
    if (wanted_ > room) drawLine("and " + std::to_string(wanted_ - notes_ - shown) + " more", 0);
    if (notes_ > 0) drawLine(std::to_string(drawn.missing.size()) + " not drawn: see lists", 0);
  }

 private:
  Place place() const {
    const double width = box_.width / static_cast<double>(columns_);
    return {box_.x + width * static_cast<double>(line_ / rows_),
            box_.y + headingHeight + rowHeight_ * (static_cast<double>(line_ % rows_) + 0.5)};
  }

  void drawLook(LookIndex index) {
    const SymbolLook& look = lookAt(index);
    const Place at = place();
    // In its own proportions, but thick enough to be known again.
    const double ratio = std::clamp(look.size.height / look.size.width, 0.3, 2.0);
    const double height = swatchHeight * rowHeight_ / highestRow;
    const double width = std::min(swatchWidth, height / ratio);
    svg_.beginPlaced({at.x + swatchWidth / 2, at.y});
    drawing::drawLook(svg_, index, width, width * ratio, std::nullopt);
    svg_.endGroup();
    drawLine(look.name, swatchWidth + 2.9);
  }

  void drawLine(std::string_view text, double indent) {
    const Place at = place();
    const double width = box_.width / static_cast<double>(columns_) - indent - 1;
    svg_.text({at.x + indent, at.y + 1.1}, shortened_.fitLine(text, 2.8, width), {.size = 2.8});
    ++line_;
  }

  SvgWriter& svg_;
  ShortenedTexts& shortened_;
  Box box_;
  std::size_t columns_;
  std::size_t notes_;
  std::size_t wanted_;
  double rowHeight_ = highestRow;
  std::size_t rows_ = 1;
  std::size_t line_ = 0;
};

}  // namespace

void drawLegend(SvgWriter& svg, const DrawnStage& drawn, const Box& box,
                ShortenedTexts& shortened) {
  Legend(svg, drawn, box, shortened).draw(drawn);
}

}  // namespace korrin::drawing
