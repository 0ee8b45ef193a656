#pragma once

// Symbols of instruments and of what players hold their parts on.

#include "korrin/drawing/shapes.h"

namespace korrin::drawing {

/// The bass drum looks up and the drummer sits below.
inline constexpr std::array drumShapes = {
    rectangle(-0.16, -0.48, 0.16, -0.08, Ink::body, 0.05),
    line(-0.16, -0.42, 0.16, -0.42, Ink::lines),
    ellipse(-0.13, -0.1, 0.105, 0.125, Ink::body),
    ellipse(0.11, -0.1, 0.105, 0.125, Ink::body),
    ellipse(-0.23, 0.15, 0.12, 0.145, Ink::body),
    ellipse(0.29, 0.13, 0.15, 0.18, Ink::body),
    ellipse(-0.13, -0.1, 0.08, 0.095, Ink::lines),
    ellipse(0.11, -0.1, 0.08, 0.095, Ink::lines),
    ellipse(-0.23, 0.15, 0.095, 0.115, Ink::lines),
    ellipse(0.29, 0.13, 0.12, 0.145, Ink::lines),
    ellipse(-0.39, 0.02, 0.11, 0.132, Ink::brass),
    circle(-0.39, 0.02, 0.02, Ink::dark),
    ellipse(-0.34, -0.3, 0.14, 0.168, Ink::brass),
    circle(-0.34, -0.3, 0.02, Ink::dark),
    ellipse(0.36, -0.28, 0.14, 0.168, Ink::brass),
    circle(0.36, -0.28, 0.02, Ink::dark),
    ellipse(0.01, 0.36, 0.1, 0.12, Ink::light),
};

/// Congas, timbales and a table of small instruments; the player stands below.
inline constexpr std::array percussionShapes = {
    ellipse(-0.36, -0.12, 0.13, 0.19, Ink::body),
    ellipse(-0.12, -0.22, 0.13, 0.19, Ink::body),
    ellipse(-0.36, -0.12, 0.1, 0.15, Ink::lines),
    ellipse(-0.12, -0.22, 0.1, 0.15, Ink::lines),
    ellipse(0.14, -0.24, 0.1, 0.15, Ink::light),
    ellipse(0.36, -0.2, 0.1, 0.15, Ink::light),
    ellipse(0.24, -0.38, 0.08, 0.11, Ink::brass),
    rectangle(0.1, 0.06, 0.5, 0.36, Ink::body, 0.04),
    line(0.16, 0.16, 0.36, 0.12, Ink::boldLines),
    circle(0.42, 0.24, 0.06, Ink::solid),
    circle(0.2, 0.26, 0.05, Ink::lines),
    polygon(Ink::solid, {{-0.1, 0.3}, {0.02, 0.3}, {-0.04, 0.44}}),
};

/// A keyboard with fourteen white keys, which lie below, where the player stands.
constexpr auto makeKeyboardShapes() {
  constexpr std::size_t keys = 14;
  constexpr std::size_t blackKeys = 10;
  std::array<Shape, 2 + (keys - 1) + blackKeys + 4> shapes{};
  std::size_t count = 0;
  shapes[count++] = rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body, 0.08);
  shapes[count++] = rectangle(-0.46, -0.06, 0.46, 0.42, Ink::keys);
  for (std::size_t key = 1; key < keys; ++key) {
    const double x = -0.46 + 0.92 * static_cast<double>(key) / keys;
    shapes[count++] = line(x, -0.06, x, 0.42, Ink::keyGaps);
    // There is none between B and C, nor between E and F.
    if (key % 7 != 3 && key % 7 != 0)
      shapes[count++] = rectangle(x - 0.018, -0.06, x + 0.018, 0.2, Ink::dark);
  }
  for (const double x : {-0.4, -0.33, -0.26}) shapes[count++] = circle(x, -0.28, 0.06, Ink::solid);
  shapes[count++] = rectangle(0.02, -0.38, 0.4, -0.18, Ink::lines);
  return std::pair(shapes, count);
}
static_assert(makeKeyboardShapes().second == makeKeyboardShapes().first.size());
inline constexpr auto keyboardShapes = makeKeyboardShapes().first;

/// The keys lie below and the lid's curve at the right; bass strings run along the straight side.
inline constexpr std::array grandPianoShapes = {
    polygon(Ink::body, {{-0.5, 0.5},
                        {-0.5, -0.36},
                        {-0.4, -0.47},
                        {-0.24, -0.5},
                        {-0.08, -0.46},
                        {0.02, -0.34},
                        {0.1, -0.16},
                        {0.26, -0.04},
                        {0.42, 0.06},
                        {0.5, 0.2},
                        {0.5, 0.5}}),
    rectangle(-0.44, 0.34, 0.44, 0.46, Ink::keys),
    line(-0.316, 0.34, -0.316, 0.46, Ink::keyGaps),
    line(-0.19, 0.34, -0.19, 0.46, Ink::keyGaps),
    line(-0.063, 0.34, -0.063, 0.46, Ink::keyGaps),
    line(0.063, 0.34, 0.063, 0.46, Ink::keyGaps),
    line(0.19, 0.34, 0.19, 0.46, Ink::keyGaps),
    line(0.316, 0.34, 0.316, 0.46, Ink::keyGaps),
    line(-0.5, 0.28, 0.5, 0.28, Ink::lines),
    line(-0.4, 0.28, -0.34, -0.38, Ink::lines),
    line(-0.28, 0.28, -0.2, -0.38, Ink::lines),
    line(-0.16, 0.28, -0.06, -0.24, Ink::lines),
};

inline constexpr std::array guitarShapes = {
    rectangle(-0.06, -0.42, 0.06, 0, Ink::body),
    polygon(Ink::body, {{-0.12, -0.5}, {0.12, -0.5}, {0.08, -0.37}, {-0.08, -0.37}}),
    ellipse(0, 0.03, 0.35, 0.14, Ink::body),
    ellipse(0, 0.3, 0.46, 0.19, Ink::body),
    ellipse(0, 0.13, 0.27, 0.13, Ink::bodyBare),
    circle(0, 0.12, 0.15, Ink::light),
    rectangle(-0.2, 0.34, 0.2, 0.37, Ink::solid),
    line(0, -0.42, 0, 0.34, Ink::lines),
};

/// The scroll above, sloping shoulders, the bridge and the spike below.
inline constexpr std::array uprightBassShapes = {
    line(0, 0.44, 0, 0.5, Ink::rods),
    ellipse(0, 0.26, 0.5, 0.2, Ink::body),
    ellipse(0, -0.02, 0.36, 0.14, Ink::body),
    ellipse(0, 0.12, 0.31, 0.14, Ink::bodyBare),
    polygon(Ink::solid, {{-0.05, -0.42}, {0.05, -0.42}, {0.09, 0.1}, {-0.09, 0.1}}),
    circle(0, -0.46, 0.055, Ink::body),
    rectangle(-0.14, 0.2, 0.14, 0.225, Ink::solid),
    line(-0.24, 0.08, -0.2, 0.24, Ink::lines),
    line(0.24, 0.08, 0.2, 0.24, Ink::lines),
};

/// A peg on a tripod for an instrument of the winds.
inline constexpr std::array hornStandShapes = {
    line(0, 0, 0, -0.46, Ink::rods),    line(0, 0, 0.42, 0.32, Ink::rods),
    line(0, 0, -0.42, 0.32, Ink::rods), circle(0, 0, 0.26, Ink::body),
    circle(0, 0, 0.18, Ink::lines),     circle(0, 0, 0.06, Ink::solid),
};

/// A desk that leans away from the player below.
inline constexpr std::array musicStandShapes = {
    line(0, -0.1, 0, 0.46, Ink::rods),
    line(0, 0.1, -0.34, 0.36, Ink::rods),
    line(0, 0.1, 0.34, 0.36, Ink::rods),
    rectangle(-0.5, -0.42, 0.5, 0.1, Ink::body, 0.05),
    rectangle(-0.36, -0.34, -0.02, 0.02, Ink::light),
    rectangle(0.02, -0.34, 0.36, 0.02, Ink::light),
    line(-0.44, 0.06, 0.44, 0.06, Ink::lines),
};

/// Two turntables with a mixer between them.
inline constexpr std::array djTableShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body, 0.04),
    rectangle(-0.46, -0.36, -0.16, 0.36, Ink::light),
    circle(-0.32, 0, 0.28, Ink::dark),
    circle(-0.32, 0, 0.06, Ink::light),
    rectangle(0.16, -0.36, 0.46, 0.36, Ink::light),
    circle(0.32, 0, 0.28, Ink::dark),
    circle(0.32, 0, 0.06, Ink::light),
    rectangle(-0.12, -0.36, 0.12, 0.36, Ink::lines),
    line(-0.06, -0.1, -0.06, 0.26, Ink::boldLines),
    line(0.06, -0.1, 0.06, 0.26, Ink::boldLines),
    circle(-0.06, -0.24, 0.05, Ink::solid),
    circle(0.06, -0.24, 0.05, Ink::solid),
};

/// The screen above and the keys below.
inline constexpr std::array laptopShapes = {
    polygon(Ink::body, {{-0.46, -0.5}, {0.46, -0.5}, {0.5, -0.16}, {-0.5, -0.16}}),
    polygon(Ink::solid, {{-0.4, -0.44}, {0.4, -0.44}, {0.43, -0.22}, {-0.43, -0.22}}),
    rectangle(-0.5, -0.12, 0.5, 0.5, Ink::body, 0.05),
    rectangle(-0.42, -0.04, 0.42, 0.2, Ink::lines),
    rectangle(-0.14, 0.27, 0.14, 0.43, Ink::lines),
};

inline constexpr std::array instrumentShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body, 0.2),
    circle(-0.14, 0.22, 0.12, Ink::solid),
    circle(0.2, 0.14, 0.12, Ink::solid),
    line(-0.05, 0.22, -0.05, -0.26, Ink::boldLines),
    line(0.29, 0.14, 0.29, -0.34, Ink::boldLines),
    polygon(Ink::solid, {{-0.05, -0.28}, {0.29, -0.36}, {0.29, -0.24}, {-0.05, -0.16}}),
};

}  // namespace korrin::drawing
