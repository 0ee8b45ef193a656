#pragma once

// The stage itself and what is written around it.

#include <string_view>
#include <vector>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/shortened_texts.h"
#include "korrin/drawing/stage_view.h"
#include "korrin/drawing/svg_writer.h"

namespace korrin::drawing {

/// The height of the line of text below the drawing.
constexpr double captionHeight = 7;
/// What is written around the stage takes so much on each side.
constexpr double frameWidth = 9;

class StageFrame {
 public:
  /// The arguments must outlive it.
  StageFrame(SvgWriter& svg, const StageDefinition& stage, const StageView& view);

  /// The floor with its grid and centre line.
  void drawGround();
  /// Audience, sides and dimensions.
  void drawSurroundings();
  /// Name, measures, scale and scale bar in the lowest line of the box.
  void drawCaption(const Box& box, bool hasScaleBar, ShortenedTexts& shortened);

  /// Where something is written.
  const std::vector<Box>& texts() const { return texts_; }

 private:
  enum class Side { top, right, bottom, left };

  template <class LineAt>
  void drawGridLines(double length, LineAt lineAt);
  void drawCentreLine();
  void drawAudience();
  void drawDirections();
  void drawDimensions();
  void drawDimension(Side side, double length, const std::string& text);
  double drawScaleBar(double right, double y);

  Side audienceSide() const;
  static Side opposite(Side side);
  static Side rightOf(Side side);
  static bool isUpright(Side side) { return side == Side::left || side == Side::right; }
  Place beside(Side side, double along, double away) const;
  void write(Side side, double along, double away, std::string_view text, const TextStyle& style);

  SvgWriter& svg_;
  const StageDefinition& stage_;
  const StageView& view_;
  std::vector<Box> texts_;
};

}  // namespace korrin::drawing
