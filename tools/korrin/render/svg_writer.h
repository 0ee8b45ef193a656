#pragma once

// Writes pictures as SVG. Texts may hold anything: what XML does not allow is replaced, what it
// would obey is escaped. Numbers are written with at most three decimals; one that is not finite or
// lies far off any paper stands for a place a kilometre away.

#include <span>
#include <string>
#include <string_view>

#include "paper.h"

namespace korrin::host {

/// How a shape is painted. Colours are SVG colours; empty for none.
struct Paint {
  std::string_view fill = "";
  std::string_view stroke = "";
  double strokeWidth = 0.3;
  double fillOpacity = 1;
  std::string_view dashes = "";  ///< Lengths of dashes and gaps; empty for a whole line.
};

enum class Anchor { start, middle, end };

struct TextStyle {
  double size = 3;  ///< Height of the font.
  bool isBold = false;
  Anchor anchor = Anchor::start;
  std::string_view colour = "#1f2933";
  bool hasHalo = false;  ///< Whether a white rim keeps it legible on top of lines.
};

class SvgWriter {
 public:
  void rectangle(const Box& box, const Paint& paint, double cornerRadius = 0);
  void ellipse(Place centre, double radiusX, double radiusY, const Paint& paint);
  void line(Place from, Place to, const Paint& paint);
  void polygon(std::span<const Place> corners, const Paint& paint);
  /// One line of text whose baseline is at y.
  void text(Place place, std::string_view text, const TextStyle& style);

  /// Everything up to `endPlaced` is flipped about (0, 0), then turned clockwise, then moved.
  void beginPlaced(Place place, double degrees, bool flipX, bool flipY);
  void endPlaced();
  /// Everything up to `endClipped` shows only inside the box.
  void beginClipped(const Box& box);
  void endClipped();

  /// Adds what another writer has written.
  void add(std::string_view content) { content_ += content; }
  const std::string& content() const { return content_; }

 private:
  void attribute(std::string_view name, double value);
  void paint(const Paint& paint);

  std::string content_;
};

/// A number as it stands in pictures.
std::string svgNumber(double value);

/// Any bytes as the content of an XML element or of a quoted attribute.
std::string xmlText(std::string_view text);

/// A whole picture of this size in millimetres, with a title for those who cannot see it.
std::string svgDocument(double width, double height, std::string_view title,
                        std::string_view content);

}  // namespace korrin::host
