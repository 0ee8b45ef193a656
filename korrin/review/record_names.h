#pragma once

// What the records of a plot are called in sentences. Documents come from strangers: a name is one
// line, of bounded length, and holds nothing that a terminal would obey; words.h sees to that.

#include <cstddef>
#include <string>

#include "korrin/model/project.h"

namespace korrin::names {

/// `input 7 "Bass DI"`, or as much of it as there is; `input in row 3` for one with neither.
std::string nameOf(const InputChannel& input, std::size_t index);
/// `mix 2 "Keys"`, as for inputs.
std::string nameOf(const MonitorMix& mix, std::size_t index);
/// `equipment "Clean 230 V power"`, the category where there is no item; `equipment in row 3`.
std::string nameOf(const EquipmentRequirement& line, std::size_t index);
/// `microphone "Vocal"`; `microphone at x 0 mm, y 500 mm` where the label is blank.
std::string nameOf(const PlotItem& item);
/// `layer "Front"`.
std::string nameOf(const PlotLayer& layer);
/// `group "Drums"`.
std::string nameOf(const PlotGroup& group);
/// `asset "logo.png"`, the digest where it has no file name.
std::string nameOf(const AssetManifestEntry& entry);

}  // namespace korrin::names
