#include "documents/document_file.h"

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

#include "korrin/session/document_file.h"

#include "terminal/signals.h"

namespace korrin::host {
namespace {

// What git calls programs with in place of a file that is not there.
constexpr std::string_view noFile = "/dev/null";

/// A failure of the library in the words of this program: what was tried, and why not.
FileError failed(const std::string& verb, const korrin::FileError& error) {
  const std::string& remark = error.remark();
  if (remark.starts_with(verb)) return FileError(remark);
  if (error.code()) return FileError(verb + ": " + error.code().message());
  constexpr std::string_view rest = ", not a file";
  const std::size_t end = remark.ends_with(rest) ? remark.size() - rest.size() : remark.size();
  return FileError(verb + ": it " + remark.substr(0, end));
}

// Devices have no end; a terminal has a person who makes one.
bool isEndlessDevice(const struct stat& status) {
  struct stat null {};
  return S_ISCHR(status.st_mode) && ::isatty(STDIN_FILENO) != 1 &&
         (::stat(noFile.data(), &null) != 0 || null.st_rdev != status.st_rdev);
}

std::string readStandardInput(std::size_t limit) {
  struct stat status {};
  // Reading nothing tells whether anything can be read.
  if (::fstat(STDIN_FILENO, &status) != 0 || ::read(STDIN_FILENO, nullptr, 0) != 0)
    throw FileError("cannot be read: " + std::generic_category().message(errno));
  if (isEndlessDevice(status)) throw FileError("cannot be read: it is a device");
  return readStream(std::cin, standardStream, limit);
}

void write(const std::string& path, std::string_view bytes, bool isNew) {
  const EndSignalsHeld untilTheFileIsWhole;
  try {
    DocumentFile file(path);
    if (isNew)
      file.saveBytes(bytes);
    else
      file.saveBytesAnyway(bytes);
  } catch (const ChangedElsewhere&) {
    throw FileError("is there already");
  } catch (const korrin::FileError& error) {
    throw failed("cannot be written", error);
  }
}

}  // namespace

std::string inputName(const std::string& path) {
  return path == standardStream ? "standard input" : path;
}

std::string readFile(const std::string& path, std::size_t limit) {
  if (path == noFile) return "";
  try {
    if (path == standardStream) return readStandardInput(limit);
    return DocumentFile(path).openBytes(limit);
  } catch (const korrin::FileError& error) {
    throw failed("cannot be read", error);
  }
}

std::optional<std::string> readFileIfPresent(const std::string& path) {
  try {
    return DocumentFile(path).openBytes();
  } catch (const korrin::FileError& error) {
    if (error.code() == std::errc::no_such_file_or_directory) return std::nullopt;
    throw failed("cannot be read", error);
  }
}

void makeFile(const std::string& path, std::string_view bytes) { write(path, bytes, true); }

void replaceFile(const std::string& path, std::string_view bytes) { write(path, bytes, false); }

}  // namespace korrin::host
