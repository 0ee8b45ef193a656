#include "symbols.h"

#include <algorithm>
#include <array>
#include <span>

#include "tint.h"

namespace korrin::host {
namespace {

constexpr std::string_view ink = "#1f2933";
constexpr double outlineWidth = 0.35;
constexpr double detailWidth = 0.25;

/// Draws in fractions of the symbol's extent, from -0.5 to 0.5.
class Pen {
 public:
  Pen(SvgWriter& svg, double width, double height, std::string_view ownColour,
      const std::optional<Tint>& tint)
      : svg_(svg),
        width_(width),
        height_(height),
        body_{.fill = tint ? std::string_view(tint->colour) : ownColour,
              .stroke = ink,
              .strokeWidth = outlineWidth,
              .fillOpacity = tint ? tint->opacity : 1},
        detailColour_(tint && tint->isDark ? "#fff" : ink) {}

  /// Paint of the symbol's main shape.
  Paint body() const { return body_; }
  Paint solid() const { return {.fill = detailColour_}; }
  Paint lines() const { return {.stroke = detailColour_, .strokeWidth = detailWidth}; }
  Paint light() const {
    return {.fill = "#fff", .stroke = ink, .strokeWidth = detailWidth, .fillOpacity = 0.9};
  }

  void rectangle(double left, double top, double right, double bottom, const Paint& paint,
                 double corner = 0) {
    svg_.rectangle(
        {left * width_, top * height_, (right - left) * width_, (bottom - top) * height_}, paint,
        corner * shorter());
  }
  void ellipse(double x, double y, double radiusX, double radiusY, const Paint& paint) {
    svg_.ellipse(at(x, y), radiusX * width_, radiusY * height_, paint);
  }
  /// A circle, whatever the proportions; the radius is a fraction of the shorter side.
  void circle(double x, double y, double radius, const Paint& paint) {
    svg_.ellipse(at(x, y), radius * shorter(), radius * shorter(), paint);
  }
  void line(double x1, double y1, double x2, double y2, const Paint& paint) {
    svg_.line(at(x1, y1), at(x2, y2), paint);
  }
  void polygon(std::initializer_list<Place> corners, const Paint& paint) {
    std::array<Place, 8> places{};
    std::ranges::transform(corners, places.begin(), [this](Place p) { return at(p.x, p.y); });
    svg_.polygon(std::span(places.begin(), corners.size()), paint);
  }

 private:
  Place at(double x, double y) const { return {x * width_, y * height_}; }
  double shorter() const { return std::min(width_, height_); }

  SvgWriter& svg_;
  double width_;
  double height_;
  Paint body_;
  std::string_view detailColour_;
};

/// A boom stand: base below, boom, capsule above.
void drawMicrophone(Pen& pen) {
  Paint boom = pen.lines();
  boom.strokeWidth = 0.6;
  boom.stroke = ink;
  pen.circle(0, 0.24, 0.3, pen.light());
  for (const double x : {-0.22, 0.0, 0.22}) pen.line(0, 0.24, x, x == 0 ? 0.4 : 0.17, boom);
  pen.line(0, 0.24, 0, -0.24, boom);
  pen.circle(0, -0.32, 0.3, pen.body());
  pen.line(-0.24, -0.32, 0.24, -0.32, pen.lines());
}

/// The broad grille looks up, at the musician.
void drawWedge(Pen& pen) {
  pen.polygon({{-0.5, -0.5}, {0.5, -0.5}, {0.36, 0.5}, {-0.36, 0.5}}, pen.body());
  pen.line(-0.465, -0.25, 0.465, -0.25, pen.lines());
  pen.circle(-0.12, 0.1, 0.2, pen.lines());
  pen.circle(0.22, 0.1, 0.1, pen.lines());
  pen.polygon({{0, -0.46}, {0.07, -0.3}, {-0.07, -0.3}}, pen.solid());
}

/// A body pack and its two earpieces.
void drawInEarMonitor(Pen& pen) {
  pen.rectangle(-0.28, -0.1, 0.28, 0.5, pen.body(), 0.08);
  pen.rectangle(-0.18, 0.02, 0.18, 0.2, pen.lines());
  pen.line(0.2, -0.1, 0.2, -0.3, pen.lines());
  pen.line(-0.1, -0.1, -0.28, -0.36, pen.lines());
  pen.line(0.02, -0.1, 0.02, -0.36, pen.lines());
  pen.circle(-0.28, -0.4, 0.1, pen.body());
  pen.circle(0.02, -0.4, 0.1, pen.body());
}

/// A cabinet whose grille looks down: two cones for a guitar, one and a horn for a bass.
void drawAmplifier(Pen& pen, bool isBass) {
  pen.rectangle(-0.5, -0.5, 0.5, 0.5, pen.body(), 0.06);
  pen.line(-0.5, -0.26, 0.5, -0.26, pen.lines());
  for (const double x : {-0.36, -0.26, -0.16, -0.06}) pen.circle(x, -0.38, 0.035, pen.solid());
  if (isBass) {
    pen.circle(-0.08, 0.08, 0.27, pen.lines());
    pen.circle(-0.08, 0.08, 0.1, pen.lines());
    pen.rectangle(0.25, -0.12, 0.4, 0.28, pen.lines());
  } else {
    for (const double x : {-0.24, 0.24}) {
      pen.circle(x, 0.08, 0.25, pen.lines());
      pen.circle(x, 0.08, 0.09, pen.lines());
    }
  }
  pen.rectangle(-0.45, 0.38, 0.45, 0.45, pen.solid());
}

/// The bass drum looks up and the drummer sits below.
void drawDrums(Pen& pen) {
  const Paint cymbal = {.fill = "#f3d27a", .stroke = ink, .strokeWidth = 0.25, .fillOpacity = 0.9};
  pen.rectangle(-0.16, -0.48, 0.16, -0.08, pen.body(), 0.05);
  pen.line(-0.16, -0.42, 0.16, -0.42, pen.lines());
  pen.ellipse(-0.13, -0.1, 0.105, 0.125, pen.body());
  pen.ellipse(0.11, -0.1, 0.105, 0.125, pen.body());
  pen.ellipse(-0.23, 0.15, 0.12, 0.145, pen.body());
  pen.ellipse(0.29, 0.13, 0.15, 0.18, pen.body());
  for (const double x : {-0.13, 0.11}) pen.ellipse(x, -0.1, 0.08, 0.095, pen.lines());
  pen.ellipse(-0.23, 0.15, 0.095, 0.115, pen.lines());
  pen.ellipse(0.29, 0.13, 0.12, 0.145, pen.lines());
  for (const auto& [x, y, radius] : {std::array{-0.39, 0.02, 0.11}, std::array{-0.34, -0.3, 0.14},
                                     std::array{0.36, -0.28, 0.14}}) {
    pen.ellipse(x, y, radius, radius * 1.2, cymbal);
    pen.circle(x, y, 0.02, {.fill = ink});
  }
  pen.ellipse(0.01, 0.36, 0.1, 0.12, pen.light());
}

/// The keys lie below, where the player stands.
void drawKeyboard(Pen& pen) {
  constexpr int keys = 14;
  pen.rectangle(-0.5, -0.5, 0.5, 0.5, pen.body(), 0.08);
  pen.rectangle(-0.46, -0.06, 0.46, 0.42, {.fill = "#fff", .stroke = ink, .strokeWidth = 0.2});
  for (int key = 1; key < keys; ++key) {
    const double x = -0.46 + 0.92 * key / keys;
    pen.line(x, -0.06, x, 0.42, {.stroke = ink, .strokeWidth = 0.15});
    const int inOctave = key % 7;
    if (inOctave != 3 && inOctave != 0)
      pen.rectangle(x - 0.018, -0.06, x + 0.018, 0.2, {.fill = ink});
  }
  for (const double x : {-0.4, -0.33, -0.26}) pen.circle(x, -0.28, 0.06, pen.solid());
  pen.rectangle(0.02, -0.38, 0.4, -0.18, pen.lines());
}

void drawGuitar(Pen& pen) {
  pen.rectangle(-0.06, -0.42, 0.06, 0, pen.body());
  pen.polygon({{-0.12, -0.5}, {0.12, -0.5}, {0.08, -0.37}, {-0.08, -0.37}}, pen.body());
  pen.ellipse(0, 0.03, 0.35, 0.14, pen.body());
  pen.ellipse(0, 0.3, 0.5, 0.2, pen.body());
  Paint waist = pen.body();
  waist.stroke = "";
  pen.ellipse(0, 0.13, 0.27, 0.13, waist);
  pen.circle(0, 0.12, 0.15, pen.light());
  pen.rectangle(-0.2, 0.34, 0.2, 0.37, pen.solid());
  pen.line(0, -0.42, 0, 0.34, pen.lines());
}

void drawInstrument(Pen& pen) {
  pen.rectangle(-0.5, -0.5, 0.5, 0.5, pen.body(), 0.2);
  Paint stem = pen.lines();
  stem.strokeWidth = 0.6;
  pen.circle(-0.14, 0.22, 0.12, pen.solid());
  pen.circle(0.2, 0.14, 0.12, pen.solid());
  pen.line(-0.05, 0.22, -0.05, -0.26, stem);
  pen.line(0.29, 0.14, 0.29, -0.34, stem);
  pen.polygon({{-0.05, -0.28}, {0.29, -0.36}, {0.29, -0.24}, {-0.05, -0.16}}, pen.solid());
}

/// Seen from above, looking down.
void drawPerformer(Pen& pen) {
  pen.ellipse(0, 0, 0.5, 0.24, pen.body());
  pen.polygon({{-0.1, 0.24}, {0.1, 0.24}, {0, 0.42}}, pen.solid());
  pen.ellipse(0, 0.02, 0.22, 0.26, pen.light());
}

void drawRiser(Pen& pen) {
  pen.rectangle(-0.5, -0.5, 0.5, 0.5, pen.body());
  for (const double x : {-0.5, 0.5})
    for (const double y : {-0.5, 0.5}) pen.line(x, y, x * 0.8, y * 0.8, pen.lines());
}

void drawPower(Pen& pen) {
  pen.rectangle(-0.5, -0.5, 0.5, 0.5, pen.body(), 0.18);
  pen.polygon({{0.1, -0.4}, {-0.24, 0.08}, {-0.03, 0.08}, {-0.1, 0.4}, {0.24, -0.1}, {0.03, -0.1}},
              pen.solid());
}

/// A box with its jack on the left and its three-pole connector on the right.
void drawDIBox(Pen& pen) {
  pen.rectangle(-0.5, -0.5, 0.5, 0.5, pen.body(), 0.1);
  pen.circle(-0.26, 0, 0.16, pen.lines());
  pen.circle(-0.26, 0, 0.07, pen.solid());
  pen.circle(0.22, 0, 0.28, pen.lines());
  pen.circle(0.15, -0.06, 0.05, pen.solid());
  pen.circle(0.29, -0.06, 0.05, pen.solid());
  pen.circle(0.22, 0.13, 0.05, pen.solid());
}

void drawFurniture(Pen& pen) {
  pen.rectangle(-0.5, -0.5, 0.5, 0.5, pen.body(), 0.08);
  pen.rectangle(-0.42, -0.38, 0.42, 0.38, pen.lines(), 0.05);
  for (const double y : {-0.13, 0.13}) pen.line(-0.42, y, 0.42, y, pen.lines());
}

void drawCustom(Pen& pen) {
  Paint frame = pen.body();
  frame.dashes = "1.4 0.8";
  pen.rectangle(-0.5, -0.5, 0.5, 0.5, frame);
  pen.polygon({{0, -0.36}, {0.36, 0}, {0, 0.36}, {-0.36, 0}}, pen.lines());
}

struct SymbolRow {
  Symbol symbol;
  std::string_view name;
  std::string_view colour;
  void (*draw)(Pen&);
};

constexpr SymbolRow symbols[] = {
    {Symbol::microphone, "Microphone", "#8d99a6", drawMicrophone},
    {Symbol::wedge, "Wedge monitor", "#b9c4cf", drawWedge},
    {Symbol::inEarMonitor, "In-ear monitor", "#cfd8e0", drawInEarMonitor},
    {Symbol::guitarAmplifier, "Amplifier", "#e0b48a", [](Pen& pen) { drawAmplifier(pen, false); }},
    {Symbol::bassAmplifier, "Bass amplifier", "#d9a07a",
     [](Pen& pen) { drawAmplifier(pen, true); }},
    {Symbol::drums, "Drum kit", "#e8edf2", drawDrums},
    {Symbol::keyboard, "Keyboard", "#9fb4c7", drawKeyboard},
    {Symbol::guitar, "Acoustic guitar", "#e3b778", drawGuitar},
    {Symbol::instrument, "Instrument", "#cfe0d6", drawInstrument},
    {Symbol::performer, "Performer", "#9ec5e8", drawPerformer},
    {Symbol::riser, "Riser", "#efe9dd", drawRiser},
    {Symbol::power, "Power", "#f6d860", drawPower},
    {Symbol::diBox, "DI box", "#c9d6a8", drawDIBox},
    {Symbol::furniture, "Furniture", "#d8c3a5", drawFurniture},
    {Symbol::custom, "Other", "#e4dff0", drawCustom},
};

const SymbolRow& rowOf(Symbol symbol) {
  return *std::ranges::find(symbols, symbol, &SymbolRow::symbol);
}

struct Artwork {
  std::string_view assetID;
  Symbol symbol;
};

constexpr Artwork builtinArtwork[] = {
    {"krn.audio.iem.v1", Symbol::inEarMonitor},
    {"krn.audio.microphone.v1", Symbol::microphone},
    {"krn.audio.wedge.v1", Symbol::wedge},
    {"krn.backline.bass-amp.v1", Symbol::bassAmplifier},
    {"krn.backline.guitar-amp.v1", Symbol::guitarAmplifier},
    {"krn.furniture.table.v1", Symbol::furniture},
    {"krn.instrument.acoustic-guitar.v1", Symbol::guitar},
    {"krn.instrument.drums.v1", Symbol::drums},
    {"krn.instrument.keyboard.v1", Symbol::keyboard},
    {"krn.people.performer.v1", Symbol::performer},
    {"krn.staging.riser.v1", Symbol::riser},
    {"krn.utility.di.v1", Symbol::diBox},
    {"krn.utility.power.v1", Symbol::power},
};

Symbol symbolOf(PlotItemKind kind) {
  switch (kind) {
    case PlotItemKind::microphone:
      return Symbol::microphone;
    case PlotItemKind::monitor:
      return Symbol::wedge;
    case PlotItemKind::amplifier:
      return Symbol::guitarAmplifier;
    case PlotItemKind::instrument:
      return Symbol::instrument;
    case PlotItemKind::performer:
      return Symbol::performer;
    case PlotItemKind::riser:
      return Symbol::riser;
    case PlotItemKind::power:
      return Symbol::power;
    case PlotItemKind::furniture:
      return Symbol::furniture;
    case PlotItemKind::custom:
      break;
  }
  return Symbol::custom;
}

}  // namespace

Symbol symbolOf(const PlotItem& item) {
  const auto artwork =
      std::ranges::find(builtinArtwork, std::string_view(item.assetID), &Artwork::assetID);
  return artwork != std::end(builtinArtwork) ? artwork->symbol : symbolOf(item.kind);
}

std::string_view symbolName(Symbol symbol) { return rowOf(symbol).name; }

void drawSymbol(SvgWriter& svg, Symbol symbol, double width, double height,
                const std::optional<Text>& tintHex) {
  const SymbolRow& row = rowOf(symbol);
  const std::optional<Tint> tint = tintOf(tintHex);
  Pen pen(svg, width, height, row.colour, tint);
  row.draw(pen);
}

}  // namespace korrin::host
