#pragma once

// Symbols of people, staging and furniture, and of what is none of the others.

#include "korrin/drawing/shapes.h"

namespace korrin::drawing {

/// Seen from above, looking down.
inline constexpr std::array performerShapes = {
    ellipse(0, 0, 0.5, 0.24, Ink::body),
    polygon(Ink::solid, {{-0.1, 0.24}, {0.1, 0.24}, {0, 0.42}}),
    ellipse(0, 0.02, 0.22, 0.26, Ink::light),
};

/// The same on a chair, knees below.
inline constexpr std::array seatedShapes = {
    rectangle(-0.4, -0.5, 0.4, 0.1, Ink::light, 0.1),
    rectangle(-0.4, -0.5, 0.4, -0.4, Ink::dark, 0.03),
    rectangle(-0.3, -0.1, -0.06, 0.4, Ink::body, 0.1),
    rectangle(0.06, -0.1, 0.3, 0.4, Ink::body, 0.1),
    ellipse(0, -0.14, 0.5, 0.2, Ink::body),
    polygon(Ink::solid, {{-0.08, 0.1}, {0.08, 0.1}, {0, 0.22}}),
    ellipse(0, -0.1, 0.19, 0.18, Ink::light),
};

inline constexpr std::array riserShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body), line(-0.5, -0.5, -0.4, -0.4, Ink::lines),
    line(-0.5, 0.5, -0.4, 0.4, Ink::lines),     line(0.5, -0.5, 0.4, -0.4, Ink::lines),
    line(0.5, 0.5, 0.4, 0.4, Ink::lines),
};

/// Three steps, the highest above.
inline constexpr std::array choirRiserShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body),
    line(-0.5, -0.167, 0.5, -0.167, Ink::boldLines),
    line(-0.5, 0.167, 0.5, 0.167, Ink::boldLines),
    line(-0.5, -0.47, 0.5, -0.47, Ink::lines),
};

/// Treads and an arrow that points up the stairs.
inline constexpr std::array stairsShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body),
    line(-0.5, -0.3, 0.5, -0.3, Ink::lines),
    line(-0.5, -0.1, 0.5, -0.1, Ink::lines),
    line(-0.5, 0.1, 0.5, 0.1, Ink::lines),
    line(-0.5, 0.3, 0.5, 0.3, Ink::lines),
    line(0, 0.42, 0, -0.34, Ink::boldLines),
    polygon(Ink::solid, {{0, -0.46}, {0.1, -0.28}, {-0.1, -0.28}}),
};

/// A rail between posts.
inline constexpr std::array handrailShapes = {
    rectangle(-0.5, -0.2, 0.5, 0.2, Ink::body),
    circle(-0.45, 0, 0.5, Ink::solid),
    circle(0, 0, 0.5, Ink::solid),
    circle(0.45, 0, 0.5, Ink::solid),
};

inline constexpr std::array furnitureShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body, 0.08),
    rectangle(-0.42, -0.38, 0.42, 0.38, Ink::lines, 0.05),
    line(-0.42, -0.13, 0.42, -0.13, Ink::lines),
    line(-0.42, 0.13, 0.42, 0.13, Ink::lines),
};

inline constexpr std::array stoolShapes = {
    circle(-0.34, -0.34, 0.07, Ink::dark), circle(0.34, -0.34, 0.07, Ink::dark),
    circle(-0.34, 0.34, 0.07, Ink::dark),  circle(0.34, 0.34, 0.07, Ink::dark),
    circle(0, 0, 0.46, Ink::body),         circle(0, 0, 0.34, Ink::lines),
};

inline constexpr std::array customShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::bodyDashed),
    polygon(Ink::lines, {{0, -0.36}, {0.36, 0}, {0, 0.36}, {-0.36, 0}}),
};

}  // namespace korrin::drawing
