#pragma once

// Symbols of microphones, monitors, amplifiers and what connects them.

#include "korrin/drawing/shapes.h"

namespace korrin::drawing {

/// A boom stand: base below, boom, capsule above.
inline constexpr std::array microphoneShapes = {
    circle(0, 0.24, 0.3, Ink::light),
    line(0, 0.24, -0.22, 0.17, Ink::rods),
    line(0, 0.24, 0, 0.4, Ink::rods),
    line(0, 0.24, 0.22, 0.17, Ink::rods),
    line(0, 0.24, 0, -0.24, Ink::rods),
    circle(0, -0.32, 0.3, Ink::body),
    line(-0.24, -0.32, 0.24, -0.32, Ink::lines),
};

/// A tripod at the right and a long boom to the capsule at the left.
inline constexpr std::array boomStandShapes = {
    line(0.26, 0.1, 0.26, 0.48, Ink::rods),      line(0.26, 0.1, 0.48, -0.2, Ink::rods),
    line(0.26, 0.1, 0.04, -0.2, Ink::rods),      line(0.48, 0.16, -0.34, -0.12, Ink::rods),
    circle(0.26, 0.1, 0.08, Ink::body),          circle(-0.36, -0.13, 0.14, Ink::body),
    line(-0.36, -0.27, -0.36, 0.01, Ink::lines),
};

/// A heavy round base with the capsule in its middle.
inline constexpr std::array roundBaseStandShapes = {
    circle(0, 0, 0.49, Ink::light),
    circle(0, 0, 0.4, Ink::lines),
    circle(0, 0, 0.2, Ink::body),
    line(-0.2, 0, 0.2, 0, Ink::lines),
};

/// The broad grille looks up, at the musician.
inline constexpr std::array wedgeShapes = {
    polygon(Ink::body, {{-0.5, -0.5}, {0.5, -0.5}, {0.36, 0.5}, {-0.36, 0.5}}),
    line(-0.465, -0.25, 0.465, -0.25, Ink::lines),
    circle(-0.12, 0.1, 0.2, Ink::lines),
    circle(0.22, 0.1, 0.1, Ink::lines),
    polygon(Ink::solid, {{0, -0.46}, {0.07, -0.3}, {-0.07, -0.3}}),
};

/// A body pack and its two earpieces.
inline constexpr std::array inEarShapes = {
    rectangle(-0.28, -0.1, 0.28, 0.5, Ink::body, 0.08),
    rectangle(-0.18, 0.02, 0.18, 0.2, Ink::lines),
    line(0.2, -0.1, 0.2, -0.3, Ink::lines),
    line(-0.1, -0.1, -0.28, -0.36, Ink::lines),
    line(0.02, -0.1, 0.02, -0.36, Ink::lines),
    circle(-0.28, -0.4, 0.1, Ink::body),
    circle(0.02, -0.4, 0.1, Ink::body),
};

/// A stack of two full-range cabinets whose grille looks up, at the musicians.
inline constexpr std::array sideFillShapes = {
    polygon(Ink::body, {{-0.5, -0.5}, {0.5, -0.5}, {0.42, 0.5}, {-0.42, 0.5}}),
    rectangle(-0.44, -0.44, 0.44, -0.36, Ink::solid),
    circle(0, 0.1, 0.26, Ink::lines),
    circle(0, 0.1, 0.1, Ink::lines),
    line(-0.46, -0.26, 0.46, -0.26, Ink::lines),
    polygon(Ink::solid, {{0, -0.33}, {0.06, -0.27}, {-0.06, -0.27}}),
};

/// A wedge upon a subwoofer, looking up at the drummer.
inline constexpr std::array drumFillShapes = {
    rectangle(-0.5, -0.3, 0.5, 0.5, Ink::body, 0.04),
    polygon(Ink::light, {{-0.4, -0.5}, {0.4, -0.5}, {0.3, 0.12}, {-0.3, 0.12}}),
    line(-0.37, -0.34, 0.37, -0.34, Ink::lines),
    circle(0, -0.1, 0.14, Ink::lines),
    circle(0, 0.32, 0.12, Ink::lines),
};

/// A cabinet whose grille looks down, with the two cones of a guitar's.
inline constexpr std::array guitarAmplifierShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body, 0.06),
    line(-0.5, -0.26, 0.5, -0.26, Ink::lines),
    circle(-0.36, -0.38, 0.035, Ink::solid),
    circle(-0.26, -0.38, 0.035, Ink::solid),
    circle(-0.16, -0.38, 0.035, Ink::solid),
    circle(-0.06, -0.38, 0.035, Ink::solid),
    circle(-0.24, 0.08, 0.25, Ink::lines),
    circle(-0.24, 0.08, 0.09, Ink::lines),
    circle(0.24, 0.08, 0.25, Ink::lines),
    circle(0.24, 0.08, 0.09, Ink::lines),
    rectangle(-0.45, 0.38, 0.45, 0.45, Ink::solid),
};

/// The same with the one cone and the horn of a bass.
inline constexpr std::array bassAmplifierShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body, 0.06),
    line(-0.5, -0.26, 0.5, -0.26, Ink::lines),
    circle(-0.36, -0.38, 0.035, Ink::solid),
    circle(-0.26, -0.38, 0.035, Ink::solid),
    circle(-0.16, -0.38, 0.035, Ink::solid),
    circle(-0.06, -0.38, 0.035, Ink::solid),
    circle(-0.08, 0.08, 0.27, Ink::lines),
    circle(-0.08, 0.08, 0.1, Ink::lines),
    rectangle(0.25, -0.12, 0.4, 0.28, Ink::lines),
    rectangle(-0.45, 0.38, 0.45, 0.45, Ink::solid),
};

/// A box with its jack on the left and its three-pole connector on the right. It leaves a rim free,
/// since plots give it far more room than it takes on stage.
inline constexpr std::array diBoxShapes = {
    rectangle(-0.38, -0.34, 0.38, 0.34, Ink::body, 0.08),
    circle(-0.2, 0, 0.12, Ink::lines),
    circle(-0.2, 0, 0.055, Ink::solid),
    circle(0.16, 0, 0.21, Ink::lines),
    circle(0.11, -0.045, 0.04, Ink::solid),
    circle(0.21, -0.045, 0.04, Ink::solid),
    circle(0.16, 0.1, 0.04, Ink::solid),
};

/// Two rows of connectors and the multicore that leaves the box.
inline constexpr std::array subSnakeShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.3, Ink::body, 0.06),
    circle(-0.36, -0.26, 0.1, Ink::lines),
    circle(-0.12, -0.26, 0.1, Ink::lines),
    circle(0.12, -0.26, 0.1, Ink::lines),
    circle(0.36, -0.26, 0.1, Ink::lines),
    circle(-0.36, 0.06, 0.1, Ink::lines),
    circle(-0.12, 0.06, 0.1, Ink::lines),
    circle(0.12, 0.06, 0.1, Ink::lines),
    circle(0.36, 0.06, 0.1, Ink::lines),
    line(0, 0.3, 0, 0.5, Ink::rods),
};

inline constexpr std::array powerShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body, 0.18),
    polygon(Ink::solid,
            {{0.1, -0.4}, {-0.24, 0.08}, {-0.03, 0.08}, {-0.1, 0.4}, {0.24, -0.1}, {0.03, -0.1}}),
};

/// A rack with a flash and its outlets.
inline constexpr std::array powerDistributionShapes = {
    rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body, 0.06),
    rectangle(-0.44, -0.42, 0.02, 0.42, Ink::lines),
    polygon(Ink::solid, {{-0.16, -0.32},
                         {-0.34, 0.06},
                         {-0.22, 0.06},
                         {-0.26, 0.32},
                         {-0.08, -0.08},
                         {-0.2, -0.08}}),
    circle(0.16, -0.24, 0.1, Ink::lines),
    circle(0.36, -0.24, 0.1, Ink::lines),
    circle(0.16, 0.02, 0.1, Ink::lines),
    circle(0.36, 0.02, 0.1, Ink::lines),
    circle(0.16, 0.28, 0.1, Ink::lines),
    circle(0.36, 0.28, 0.1, Ink::lines),
};

/// A tripod with the camera upon it, looking up at the stage.
inline constexpr std::array cameraShapes = {
    line(0, 0, 0, -0.48, Ink::rods),
    line(0, 0, 0.44, 0.4, Ink::rods),
    line(0, 0, -0.44, 0.4, Ink::rods),
    polygon(Ink::light, {{-0.16, -0.46}, {0.16, -0.46}, {0.1, -0.26}, {-0.1, -0.26}}),
    rectangle(-0.2, -0.28, 0.2, 0.26, Ink::body, 0.05),
    circle(0, -0.04, 0.1, Ink::lines),
};

}  // namespace korrin::drawing
