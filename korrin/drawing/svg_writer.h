#pragma once

// Writes pictures as SVG. Texts may hold any characters: what XML does not allow is replaced, what
// it would obey is escaped. Numbers are written with at most three decimals; one that is not finite
// or lies far off any paper stands for a place a kilometre away.

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/drawing/paper.h"
#include "korrin/drawing/photo_turn.h"

namespace korrin::drawing {

constexpr std::string_view inkColour = "#1f2933";
constexpr std::string_view mutedColour = "#5b6773";

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
  double size = 0;  ///< Height of the font; 0 for that of the group.
  bool isBold = false;
  Anchor anchor = Anchor::start;
  std::string_view colour = "";  ///< Empty for that of the group, which is ink unless it says.
};

/// What is written is copied once at most, into the string that `take` gives.
class SvgWriter {
 public:
  /// A picture of this size in millimetres, with a title for those who cannot see it.
  void beginDocument(double width, double height, std::string_view title);
  /// The same of a height that is not known yet: `endDocument` is told.
  void beginDocument(double width, std::string_view title);
  /// The same without a ground, for a symbol upon anything.
  void beginSymbol(double width, double height, std::string_view title);
  /// Ends the picture. `height` counts only where the beginning did not know it.
  void endDocument(double height = 0);

  void rectangle(const Box& box, const Paint& paint, double cornerRadius = 0);
  void ellipse(Place centre, double radiusX, double radiusY, const Paint& paint);
  void line(Place from, Place to, const Paint& paint);
  void polygon(std::span<const Place> corners, const Paint& paint);
  /// One line of text whose baseline is at y.
  void text(Place place, std::string_view text, const TextStyle& style);
  /// A line of text in a group of `beginHaloTexts`.
  void haloText(Place place, std::string_view text, const TextStyle& style);

  /// Everything up to `endGroup` is flipped about (0, 0), then turned clockwise, then moved.
  void beginPlaced(Place place, double degrees = 0, bool flipX = false, bool flipY = false);
  /// Up to `endGroup`, which `reuse` draws again.
  void beginNamed(std::size_t name);
  /// What `beginNamed` began, flipped, turned and moved.
  void reuse(std::size_t name, Place place, double degrees, bool flipX, bool flipY);
  /// Texts up to `endGroup` are of this size.
  void beginTexts(double size);
  /// Texts up to `endGroup` are bold, stand about the middle of their places and have a white rim
  /// that keeps them legible on top of lines.
  void beginHaloTexts();
  /// Up to `endGroup`, what has a title for those who cannot see it.
  void beginTitled(std::string_view title);
  void endGroup();
  /// Everything up to `endClipped` shows only inside the box.
  void beginClipped(const Box& box);
  void endClipped();

  /// An image as it is stored, and how it stands upright.
  struct StoredImage {
    double width;
    double height;
    PhotoTurn turn;
    std::string_view mediaType;  ///< Holds no character that XML obeys.
    std::string_view bytes;      ///< They ask for no turn themselves.
  };
  /// Keeps an image to be drawn by `image`.
  void keepImage(std::size_t name, const StoredImage& stored);
  /// A kept image as large as the box allows.
  void image(std::size_t name, const Box& box);

  /// Adds what another writer has written.
  void add(const SvgWriter& other);
  std::string content() const;
  /// The content, which the writer loses. Takes little memory beside it.
  std::string take();

 private:
  void rollOver();
  void begin(double width, double height, std::string_view title);
  void number(double value);
  void attribute(std::string_view name, double value);
  void extent(std::string_view name, double value);
  void word(std::string_view name, std::string_view value);
  void paint(const Paint& paint);
  void place(Place place, double degrees, bool flipX, bool flipY);
  void beginText(Place place, const TextStyle& style);
  void escaped(std::string_view text);

  std::vector<std::string> written_;  // in front of the content; each large
  std::string content_;
  std::size_t heightGap_ = 0;  // where in the first string the height belongs that was not known
  double width_ = 0;
};

/// A number as it stands in pictures.
std::string svgNumber(double value);

}  // namespace korrin::drawing
