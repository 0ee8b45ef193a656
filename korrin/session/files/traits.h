#pragma once

// What a file has beside its content.

#include <string>
#include <vector>

#include "korrin/session/files/reading.h"

namespace korrin::files {

/// Gives a new file the owner, group, permissions and extended attributes (access lists among them)
/// of an old one. Returns a sentence for each that the system did not allow. Permissions that were
/// meant for a group or owner which the new file could not get are taken away, not given to
/// another.
std::vector<std::string> copyTraits(const FoundFile& from, int to);

}  // namespace korrin::files
