#pragma once

// The recovery file of a plot: this user's alone, never reached through a symbolic link.

#include <filesystem>

#include "korrin/foundation/instant.h"
#include "korrin/model/project.h"

namespace korrin::files {

/// What a path means at this moment.
std::filesystem::path absolutePath(const std::filesystem::path& path);

/// Writes the plot in one step, readable for this user only, with `notedAt` as its time of
/// modification. Throws `FileError`, or `DocumentValidationError` when it could not be opened
/// again.
void writeRecovery(const std::filesystem::path& file, const KorrinProject& project,
                   Instant notedAt);

/// Removes the file, if there is one. Throws `FileError`, also when it is not this user's.
void removeRecovery(const std::filesystem::path& file);

}  // namespace korrin::files
