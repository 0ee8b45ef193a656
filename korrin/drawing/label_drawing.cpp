#include "korrin/drawing/label_drawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "korrin/drawing/text_fit.h"

namespace korrin::drawing {
namespace {

constexpr double labelSize = 2.7;
constexpr double numberSize = 2.2;
constexpr double largestLabel = 16;
constexpr double lineHeight = 1.2;
constexpr std::string_view numberColour = "#1f5fa8";

/// Where a symbol has most of its lines: corners are empty or look alike.
Box core(const Box& box) {
  constexpr double rim = 0.12;
  constexpr double widest = 0.4;
  const double x = std::min(widest, rim * box.width);
  const double y = std::min(widest, rim * box.height);
  return {box.x + x, box.y + y, box.width - 2 * x, box.height - 2 * y};
}

/// Below, above, right and left of the symbol; a riser's inside its lower or upper edge first,
/// since what stands on it covers its middle.
std::vector<LabelCandidate> candidates(const PlotItem& item, const Box& symbol, double width,
                                       double height) {
  constexpr double gap = 0.7;
  // Rows of labels are read best when all stand on the same side of their symbols.
  constexpr double above = 4;
  constexpr double beside = 12;
  const Place centre = symbol.centre();
  const double x = centre.x - width / 2;
  const double y = centre.y - height / 2;
  std::vector<LabelCandidate> boxes;
  if (item.kind == PlotItemKind::riser && width < symbol.width && height * 3 < symbol.height) {
    boxes.push_back({{x, symbol.bottom() - height - gap, width, height}});
    boxes.push_back({{x, symbol.y + gap, width, height}});
  }
  boxes.push_back({{x, symbol.bottom() + gap, width, height}});
  boxes.push_back({{x, symbol.y - height - gap, width, height}, above});
  boxes.push_back({{symbol.right() + gap, y, width, height}, beside});
  boxes.push_back({{symbol.x - width - gap, y, width, height}, beside});
  for (const double away : {1.0, 2.0, 3.0}) {
    // Rather touch another symbol than stand where nobody knows whose label it is.
    const double cost = 30 * away;
    boxes.push_back({{x, symbol.bottom() + gap + away * height, width, height}, cost});
    boxes.push_back({{x, symbol.y - gap - (away + 1) * height, width, height}, cost});
  }
  return boxes;
}

}  // namespace

LabelDrawing::LabelDrawing(SvgWriter& svg, const DrawingOptions& options, const StageView& view,
                           std::span<const Box> texts, ShortenedTexts& shortened)
    : svg_(svg),
      options_(options),
      view_(view),
      shortened_(shortened),
      scale_(options.labelScale > 0 ? options.labelScale : 0),
      places_(view.canvas.inset(0.5)) {
  constexpr double edgeOfStage = 0.8;
  avoidEdges(view.ground, edgeOfStage);
  for (const Box& text : texts) places_.take(text);
}

/// What has room inside is left free at its edges only.
void LabelDrawing::avoidEdges(const Box& box, double thick) {
  for (const double y : {box.y, box.bottom()})
    places_.avoid({box.x, y - thick / 2, box.width, thick});
  for (const double x : {box.x, box.right()})
    places_.avoid({x - thick / 2, box.y, thick, box.height});
}

void LabelDrawing::draw(const KorrinProject& project, std::span<const PlotItem* const> items) {
  constexpr double edgeOfRiser = 0.4;
  for (const PlotItem* item : items) {
    if (item->kind == PlotItemKind::riser) {
      avoidEdges(view_.around(*item), edgeOfRiser);
    } else {
      places_.avoid(core(view_.around(*item)));
    }
  }
  const PatchNumbers numbers(project);
  svg_.beginHaloTexts();
  // What stands on a riser has its label beside it; the riser's goes where there is room left.
  for (const bool isRiser : {false, true})
    for (const PlotItem* item : items)
      if ((item->kind == PlotItemKind::riser) == isRiser) drawLabel(*item, numbers);
  svg_.endGroup();
}

void LabelDrawing::addLine(Form& form, Line line) {
  form.width = std::max(form.width, textWidth(line.text, line.size, true));
  form.height += line.size * lineHeight;
  form.lines.push_back(std::move(line));
}

LabelDrawing::Texts LabelDrawing::textsOf(const PlotItem& item, const PatchNumbers& numbers) const {
  Texts texts{"", std::min(labelSize * scale_ * item.style.labelScale, largestLabel), ""};
  if (item.style.labelVisible && texts.size > 0) texts.label = item.legendText();
  if (options_.patchNumbers && scale_ > 0) texts.numbers = numbers.of(item.id);
  return texts;
}

double LabelDrawing::roomFor(const Box& symbol, double size) const {
  return std::min(std::max(symbol.width * 1.3, 11 * size), view_.canvas.width - 2);
}

LabelDrawing::Form LabelDrawing::usualForm(const Texts& texts, const Box& symbol) {
  Form form;
  const auto add = [&](const Text& text, double size, std::string_view colour) {
    for (std::string& line : shortened_.fit(text, size, roomFor(symbol, size), 2, true))
      addLine(form, {std::move(line), size, colour});
  };
  if (!texts.label.empty()) add(texts.label, texts.size, "");
  if (!texts.numbers.empty())
    add(texts.numbers, std::min(numberSize * scale_, largestLabel), numberColour);
  return form;
}

/// For where it is crowded: in narrow lines, in small letters, and both. Words stay whole.
std::vector<LabelDrawing::Form> LabelDrawing::smallForms(const Texts& texts,
                                                         const Box& symbol) const {
  struct Way {
    double size;
    bool isNarrow;
    double cost;
  };
  constexpr Way ways[] = {{1, true, 2}, {0.8, false, 10}, {0.8, true, 12}};
  std::vector<Form> forms;
  for (const Way& way : ways) {
    Form form;
    form.cost = way.cost;
    const auto add = [&](const Text& text, double usualSize, std::string_view colour) {
      const double size = way.size * usualSize;
      const double room = way.isNarrow ? std::max(symbol.width * 1.1, 5 * size)
                                       : way.size * roomFor(symbol, usualSize);
      constexpr std::size_t mostLines = 3;
      std::string whole;
      for (std::string& line : fitted(text, size, room, mostLines, true).lines) {
        whole += (whole.empty() ? "" : " ") + line;
        addLine(form, {std::move(line), size, colour});
      }
      return whole == paperLine(text);
    };
    if (add(texts.label, texts.size, "") &&
        add(texts.numbers, std::min(numberSize * scale_, largestLabel), numberColour))
      forms.push_back(std::move(form));
  }
  return forms;
}

void LabelDrawing::drawLabel(const PlotItem& item, const PatchNumbers& numbers) {
  const Box symbol = view_.around(item);
  if (!touches(symbol, view_.canvas)) return;
  const Texts texts = textsOf(item, numbers);
  Form form = usualForm(texts, symbol);
  if (form.lines.empty()) return;
  // What covers so little is as good as free.
  constexpr double little = 8;
  LabelCandidate best = places_.find(candidates(item, symbol, form.width, form.height));
  if (best.cost > little && std::isfinite(best.cost)) {
    for (Form& other : smallForms(texts, symbol)) {
      const LabelCandidate found =
          places_.find(candidates(item, symbol, other.width, other.height));
      if (found.cost + other.cost >= best.cost) continue;
      best = {found.box, found.cost + other.cost};
      form = std::move(other);
    }
  }
  places_.take(best.box);
  double y = best.box.y;
  for (const Line& line : form.lines) {
    svg_.haloText({best.box.centre().x, y + 0.95 * line.size}, line.text,
                  {.size = line.size, .colour = line.colour});
    y += line.size * lineHeight;
  }
}

}  // namespace korrin::drawing
