#pragma once

// What is said about files that cannot be read or written.

#include <filesystem>
#include <string>
#include <string_view>

#include <sys/stat.h>

#include "korrin/session/document_file.h"

namespace korrin::files {

/// The path between quotation marks, on one line and well-formed whatever bytes it holds.
std::string shown(const std::filesystem::path& path);

/// "plot.json" cannot be read: Permission denied; for an error number of the system.
FileError cannotRead(const std::filesystem::path& path, int error);
FileError cannotWrite(const std::filesystem::path& path, int error);
FileError cannotReach(const std::filesystem::path& path, int error);

/// "plot.json" is a directory, not a file; and so on for all that is no regular file.
FileError notAFile(const std::filesystem::path& path, mode_t mode);

/// For more bytes than `DocumentFile::maximumSize` or the limit given.
FileError tooLarge(const std::filesystem::path& path, std::size_t limit);

}  // namespace korrin::files
