#pragma once

// Lengths as people write them.

#include <string>

namespace korrin::drawing {

/// A length in metres, to the millimetre: "12 m", "8.5 m", "0.25 m". "? m" for what is no number of
/// any use.
std::string metres(double millimeters);

}  // namespace korrin::drawing
