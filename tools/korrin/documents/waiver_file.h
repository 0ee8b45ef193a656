#pragma once

// The file in which accepted findings stand, beside the plot.

#include <optional>
#include <string>

#include "korrin/review/waivers.h"

namespace korrin::host {

/// "night.waivers.json" for "night.json", in the same folder.
std::string waiverFileFor(const std::string& plot);

/// What the file holds; nothing when there is no such file. Throws Refusal when it cannot be read,
/// is no list of waivers, or only a newer version can read it; its sentence begins with the path.
std::optional<WaiverList> readWaivers(const std::string& path);

/// Makes the list the file's whole content. Throws FileError.
void writeWaivers(const std::string& path, const WaiverList& list);

}  // namespace korrin::host
