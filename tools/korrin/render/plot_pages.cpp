#include "plot_pages.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "list_tables.h"
#include "page_flow.h"
#include "stage_drawing.h"
#include "svg_writer.h"
#include "text_fit.h"

namespace korrin::host {
namespace {

constexpr double margin = 12;
constexpr double headerHeight = 19;
constexpr double footerHeight = 8;
constexpr double legendWidth = 46;
constexpr double legendHeight = 44;
constexpr double legendRow = 7.4;
constexpr double betweenPages = 6;
constexpr std::string_view muted = "#5b6773";

/// Width and height of the paper, upright.
std::array<double, 2> upright(PaperSize size) {
  switch (size) {
    case PaperSize::a4:
      return {210, 297};
    case PaperSize::letter:
      break;
  }
  return {215.9, 279.4};
}

std::string joined(std::initializer_list<std::string> parts) {
  std::string line;
  for (const std::string& part : parts) {
    if (part.empty()) continue;
    line += (line.empty() ? "" : " · ") + part;
  }
  return line;
}

std::string prefixed(std::string_view prefix, const Text& text) {
  return text.isBlank() ? std::string() : std::string(prefix) + text.str();
}

/// The day in UTC, since a document does not say where the venue is.
std::string dateText(const std::optional<Instant>& instant) {
  if (!instant) return {};
  const auto days = std::chrono::floor<std::chrono::days>(*instant);
  const std::chrono::year_month_day date(days);
  const auto minutes = std::chrono::floor<std::chrono::minutes>(*instant - days).count();
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d UTC",
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), static_cast<int>(minutes / 60),
                static_cast<int>(minutes % 60));
  return text.data();
}

void drawHeader(SvgWriter& svg, const ProjectMetadata& metadata, const Box& box) {
  svg.text({box.x, box.y + 6}, fittedLine(metadata.title, 6, box.width, true),
           {.size = 6, .isBold = true});
  const std::string facts =
      joined({metadata.artist.str(), metadata.venue.str(), dateText(metadata.eventDate)});
  svg.text({box.x, box.y + 12}, fittedLine(facts, 3.6, box.width), {.size = 3.6});
  svg.line({box.x, box.y + 15}, {box.right(), box.y + 15}, {.stroke = "#1f2933"});
}

void drawFooter(SvgWriter& svg, const ProjectMetadata& metadata, const Box& box, std::size_t page,
                std::size_t pages) {
  const std::string count = "Page " + std::to_string(page) + " of " + std::to_string(pages);
  const std::string facts =
      joined({prefixed("Prepared by ", metadata.preparedBy), metadata.contactEmail.str(),
              prefixed("Revision ", metadata.revision)});
  const TextStyle style = {.size = 2.8, .colour = muted};
  svg.text({box.x, box.bottom()}, fittedLine(facts, 2.8, box.width - textWidth(count, 2.8) - 4),
           style);
  svg.text({box.right(), box.bottom()}, count,
           {.size = 2.8, .anchor = Anchor::end, .colour = muted});
}

/// Lines of the legend in columns, as many as fit.
class Legend {
 public:
  Legend(SvgWriter& svg, const Box& box)
      : svg_(svg),
        box_(box.inset(2.5)),
        columns_(std::max<std::size_t>(1, static_cast<std::size_t>(box_.width / 56))),
        rows_(static_cast<std::size_t>((box_.height - 6) / legendRow)) {
    svg.rectangle(box, {.stroke = "#c9d1d9", .strokeWidth = 0.2}, 1);
    svg.text({box_.x, box_.y + 3.4}, "Legend", {.size = 3.6, .isBold = true});
  }

  void draw(const DrawnStage& drawn) {
    const std::size_t notes = drawn.itemsOutOfSight > 0 ? 1 : 0;
    const std::size_t wanted = drawn.symbols.size() + drawn.risers.size() + notes;
    const std::size_t room = columns_ * rows_;
    // The last line says how many there was no room for.
    const std::size_t shown = wanted <= room ? wanted - notes : room - notes - 1;
    std::size_t at = 0;
    for (std::size_t i = 0; i < drawn.symbols.size() && at < shown; ++i)
      drawSymbolLine(at++, drawn.symbols[i]);
    for (std::size_t i = 0; i < drawn.risers.size() && at < shown; ++i)
      drawLine(at++, drawn.risers[i], 0);
    if (wanted > room) drawLine(at++, "and " + std::to_string(wanted - notes - shown) + " more", 0);
    if (notes > 0)
      drawLine(at, std::to_string(drawn.itemsOutOfSight) + " not shown: off the page", 0);
  }

 private:
  static constexpr double swatch = 8;

  Place placeOf(std::size_t line) const {
    const double width = box_.width / static_cast<double>(columns_);
    return {box_.x + width * static_cast<double>(line / rows_),
            box_.y + 6 + legendRow * (static_cast<double>(line % rows_) + 0.5)};
  }

  void drawSymbolLine(std::size_t line, Symbol symbol) {
    const Place place = placeOf(line);
    const bool isNarrow = symbol == Symbol::microphone || symbol == Symbol::guitar;
    svg_.beginPlaced({place.x + swatch / 2, place.y}, 0, false, false);
    drawSymbol(svg_, symbol, isNarrow ? 3.4 : 6.6, symbol == Symbol::keyboard ? 3.4 : 5.8,
               std::nullopt);
    svg_.endPlaced();
    drawLine(line, symbolName(symbol), swatch + 1.5);
  }

  void drawLine(std::size_t line, std::string_view text, double indent) {
    const Place place = placeOf(line);
    const double width = box_.width / static_cast<double>(columns_) - indent - 1;
    svg_.text({place.x + indent, place.y + 1.1}, fittedLine(text, 3, width), {.size = 3});
  }

  SvgWriter& svg_;
  Box box_;
  std::size_t columns_;
  std::size_t rows_;
};

/// The drawing and, beside or below it, the legend.
SvgWriter drawPlot(const KorrinProject& project, const Box& box) {
  const bool isUpright = box.height > box.width;
  Box drawing = box;
  (isUpright ? drawing.height : drawing.width) -= (isUpright ? legendHeight : legendWidth) + 4;
  const Box legend = isUpright ? Box{box.x, box.bottom() - legendHeight, box.width, legendHeight}
                               : Box{box.right() - legendWidth, box.y, legendWidth, box.height};
  SvgWriter svg;
  const DrawnStage drawn = drawStage(svg, project, drawing);
  Legend(svg, legend).draw(drawn);
  return svg;
}

}  // namespace

std::string PlotPages::page(std::size_t number) const {
  return svgDocument(width, height, title, contents.at(number - 1));
}

std::string PlotPages::all() const {
  if (contents.size() == 1) return page(1);
  SvgWriter svg;
  double y = 0;
  for (const std::string& content : contents) {
    svg.beginPlaced({0, y}, 0, false, false);
    svg.add(content);
    svg.endPlaced();
    y += height;
    if (&content == &contents.back()) break;
    svg.rectangle({0, y, width, betweenPages}, {.fill = "#d5dae0"});
    y += betweenPages;
  }
  return svgDocument(width, y, title, svg.content());
}

PlotPages layOut(const KorrinProject& project) {
  const auto [shorter, longer] = upright(project.exportSettings.paperSize);
  const bool isUpright = project.stage.size.height > project.stage.size.width;
  PlotPages pages = {.width = isUpright ? shorter : longer,
                     .height = isUpright ? longer : shorter,
                     .title = paperLine(project.metadata.title),
                     .contents = {}};
  const Box page = Box{0, 0, pages.width, pages.height}.inset(margin);
  const Box content = {page.x, page.y + headerHeight, page.width,
                       page.height - headerHeight - footerHeight};
  std::vector<SvgWriter> bodies = {drawPlot(project, content)};
  for (SvgWriter& body : flowTables(includedLists(project), content))
    bodies.push_back(std::move(body));
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    SvgWriter svg;
    drawHeader(svg, project.metadata, page);
    svg.add(bodies[i].content());
    drawFooter(svg, project.metadata, page, i + 1, bodies.size());
    pages.contents.push_back(svg.content());
  }
  return pages;
}

std::string drawingAlone(const KorrinProject& project) {
  constexpr double longest = 240;
  constexpr double shortest = 60;
  const StageSize& size = project.stage.size;
  const double larger = std::max(size.width, size.height);
  const Box box = {0, 0, std::max(shortest, longest * (size.width / larger)),
                   std::max(shortest, longest * (size.height / larger))};
  SvgWriter svg;
  drawStage(svg, project, box.inset(3));
  return svgDocument(box.width, box.height, paperLine(project.metadata.title), svg.content());
}

}  // namespace korrin::host
