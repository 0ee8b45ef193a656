#include "korrin/drawing/plot_drawing.h"

#include <algorithm>
#include <utility>

#include "korrin/drawing/item_drawing.h"
#include "korrin/drawing/sheets.h"
#include "korrin/drawing/stage_drawing.h"
#include "korrin/drawing/stage_view.h"
#include "korrin/foundation/ascii.h"

namespace korrin {

namespace {

std::string plotWith(const KorrinProject& project, const DrawingOptions& options,
                     const RevisionMarks* marks) {
  using namespace drawing;
  constexpr double longest = 240;
  constexpr double shortest = 90;
  const StageSize size = usableSize(project.stage.size);
  const double larger = std::max(size.width, size.height);
  const Box box = {0, 0, std::max(shortest, longest * (size.width / larger)),
                   std::max(shortest, longest * (size.height / larger))};
  SvgWriter svg;
  ShortenedTexts shortened;
  svg.beginDocument(box.width, box.height, paperLine(project.metadata.title));
  drawStage(svg, project, options, box.inset(3), shortened, marks);
  svg.endDocument();
  return svg.take();
}

}  // namespace

std::string drawPlot(const KorrinProject& project, const DrawingOptions& options) {
  return plotWith(project, options, nullptr);
}

std::string drawMarkedPlot(const KorrinProject& project, const RevisionMarks& marks,
                           const DrawingOptions& options) {
  return plotWith(project, options, &marks);
}

std::vector<std::string> drawPages(const KorrinProject& project, const DrawingOptions& options) {
  return drawing::drawSheets(project, options, drawing::Binding::separate);
}

std::string drawStackedPages(const KorrinProject& project, const DrawingOptions& options) {
  return std::move(drawing::drawSheets(project, options, drawing::Binding::stacked).front());
}

std::vector<std::string> drawMarkedPages(const KorrinProject& project, const RevisionMarks& marks,
                                         const DrawingOptions& options) {
  return drawing::drawSheets(project, options, drawing::Binding::separate, &marks);
}

std::string drawMarkedStackedPages(const KorrinProject& project, const RevisionMarks& marks,
                                   const DrawingOptions& options) {
  return std::move(
      drawing::drawSheets(project, options, drawing::Binding::stacked, &marks).front());
}

std::string drawSymbol(const PlotItem& item) {
  using namespace drawing;
  // As large as on a sheet, where lines have the strength that suits the symbols.
  constexpr double longest = 24;
  const StageSize size = usableSize(item.size);
  const double larger = std::max(size.width, size.height);
  const double width = longest * (size.width / larger);
  const double height = longest * (size.height / larger);
  // Outlines are drawn half outside of their shapes.
  const double rim = std::min({0.4, width / 2, height / 2});
  SvgWriter svg;
  svg.beginSymbol(width, height, nameOf(item));
  svg.beginPlaced({width / 2, height / 2}, 0, item.isFlippedHorizontally, item.isFlippedVertically);
  if (!isBuiltIn(item.assetID) && isDigest(item.assetID)) {
    svg.beginTitled(item.assetID);
    drawFrame(svg, width - rim, height - rim);
    svg.endGroup();
  } else {
    drawLook(svg, lookOf(item), width - rim, height - rim, item.style.tintHex);
  }
  svg.endGroup();
  svg.endDocument();
  return svg.take();
}

}  // namespace korrin
