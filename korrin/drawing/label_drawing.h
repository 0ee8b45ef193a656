#pragma once

// Labels and patch numbers beside their items.

#include <span>
#include <string>
#include <vector>

#include "korrin/drawing/label_places.h"
#include "korrin/drawing/patch_numbers.h"
#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/shortened_texts.h"
#include "korrin/drawing/stage_view.h"
#include "korrin/drawing/svg_writer.h"

namespace korrin::drawing {

class LabelDrawing {
 public:
  /// Labels leave free what is written at `texts`. The arguments must outlive it.
  LabelDrawing(SvgWriter& svg, const DrawingOptions& options, const StageView& view,
               std::span<const Box> texts, ShortenedTexts& shortened);

  /// The labels and numbers of the items, which are the project's.
  void draw(const KorrinProject& project, std::span<const PlotItem* const> items);

 private:
  struct Line {
    std::string text;
    double size;
    std::string_view colour;
  };

  /// A label as it may be written, and how much worse that is than the usual way.
  struct Form {
    std::vector<Line> lines;
    double width = 0;
    double height = 0;
    double cost = 0;
  };
  /// What a label may be made of.
  struct Texts {
    Text label;
    double size;
    std::string numbers;
  };

  void avoidEdges(const Box& box, double thick);
  static void addLine(Form& form, Line line);
  Texts textsOf(const PlotItem& item, const PatchNumbers& numbers) const;
  Form usualForm(const Texts& texts, const Box& symbol);
  std::vector<Form> smallForms(const Texts& texts, const Box& symbol) const;
  double roomFor(const Box& symbol, double size) const;
  void drawLabel(const PlotItem& item, const PatchNumbers& numbers);

  SvgWriter& svg_;
  const DrawingOptions& options_;
  const StageView& view_;
  ShortenedTexts& shortened_;
  double scale_;
  LabelPlaces places_;
};

}  // namespace korrin::drawing
