#pragma once

// The file that was meant by the name of one that is not there.

#include <string>

namespace korrin::host {

/// "; did you mean "plot.json"?" where there is no file of this name and its folder holds one with
/// a similar name, otherwise empty.
std::string similarFileSuggestion(const std::string& path);

}  // namespace korrin::host
