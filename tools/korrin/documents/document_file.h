#pragma once

// Files as whole strings of bytes: reading them, and replacing them all at once or not at all.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "korrin/session/document_file.h"

#include "terminal/failure.h"
#include "terminal/terminal.h"

namespace korrin::host {

/// A file that cannot be read or written; `what()` says what failed and why, without the file's
/// name: "cannot be read: No such file or directory".
class FileError : public Failure {
 public:
  using Failure::Failure;
};

/// A file that stands as it was, since it is not what was opened, or is protected against writing.
/// The user may want it replaced all the same.
class NotReplaced : public FileError {
 public:
  using FileError::FileError;
};

/// The path that stands for standard input or standard output.
inline constexpr std::string_view standardStream = "-";

/// What tells a file from all others whatever it is called: its absolute path without links, "."
/// and "..". Two names of one file (hard links) are two files, as saving one does not change the
/// other.
std::string identityOf(const std::string& path);

/// The name by which messages call a file: its path, or "standard input".
std::string inputName(const std::string& path);

/// More than any plot needs, and less than would exhaust a machine.
inline constexpr std::size_t largestFile = std::size_t{1} << 30;

/// More than any image that a plot may embed takes.
inline constexpr std::size_t largestAsset = std::size_t{256} << 20;

/// All bytes of a file, or of standard input for "-". Throws FileError when it cannot be read, is a
/// directory, or is larger than `limit` bytes.
std::string readFile(const std::string& path, std::size_t limit = largestFile);

/// What was read.
struct Input {
  std::string bytes;
  std::optional<DocumentFile> file;  ///< Where it came from, opened; absent for standard input.
};

/// As `readFile`, for what may be saved in its place.
Input readInput(const std::string& path, std::size_t limit = largestFile);

/// As `readFile`; nothing when there is no such file.
std::optional<std::string> readFileIfPresent(const std::string& path);

/// The same of a file that may be saved in its place.
std::optional<std::string> openIfPresent(DocumentFile& file);

/// The bytes of a regular file; 0 where there is none.
std::uintmax_t sizeOf(const std::string& path);

/// Makes a new file. Throws FileError, "is there already", where there is one: of two that make it
/// at once, one succeeds.
void makeFile(const std::string& path, std::string_view bytes);

/// Makes `bytes` the file's whole content: written beside it, flushed to the disk and renamed over
/// it, so that whoever opens the path finds the old content or the new one, whatever goes wrong.
/// The permissions of a file that was there are kept, and owner and attributes where the system
/// allows; a symbolic link stays, and the file it leads to is written, there or not. Throws
/// FileError, and then the old content still stands, when a step fails or the path names something
/// that is not a regular file. Signals that end the program wait until the file is whole.
void replaceFile(const std::string& path, std::string_view bytes);

/// What saving may replace.
enum class Replacing {
  whatWasOpened,  ///< Nothing but what `file` opened or saved last, unless it is protected.
  anything,       ///< Any regular file.
};

/// Replaces the file as `replaceFile` does, and says what of the old one could not be kept: its
/// owner or its other names, for instance. Throws NotReplaced where `replacing` forbids it.
void save(DocumentFile& file, std::string_view bytes, Replacing replacing, Console& console);

}  // namespace korrin::host
