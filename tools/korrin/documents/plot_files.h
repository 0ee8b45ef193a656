#pragma once

// The plots that a command line means by the files and folders it names.

#include <string>
#include <vector>

namespace korrin::host {

/// Whether a file is a list of waivers by its name, ".waivers.json".
bool isWaiverName(const std::string& name);

/// The paths, with every folder replaced by the plots in it and in the folders inside it: files
/// whose names end in ".json", ordered by path. Hidden files and folders, lists of waivers
/// (".waivers.json") and folders behind symbolic links are passed over. Throws Failure, with the
/// folder's name, for one that cannot be read or holds no plot.
std::vector<std::string> plotFiles(const std::vector<std::string>& paths);

}  // namespace korrin::host
