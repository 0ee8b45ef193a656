#include "documents/document_file.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

#include "terminal/signals.h"

namespace korrin::host {
namespace {

// What git calls programs with in place of a file that is not there.
constexpr std::string_view noFile = "/dev/null";

/// A failure of the library in the words of this program: what was tried, and why not.
FileError failed(const std::string& verb, const korrin::FileError& error) {
  const std::string& remark = error.remark();
  if (remark.starts_with("cannot be reached"))
    return FileError(verb + ": " + error.code().message());
  if (!remark.starts_with("is ")) return FileError(remark);
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

bool isProtected(const korrin::FileError& error) {
  return error.code() == std::errc::permission_denied && error.remark().starts_with("is ");
}

void write(DocumentFile& file, std::string_view bytes, Replacing replacing) {
  const EndSignalsHeld untilTheFileIsWhole;
  try {
    if (replacing == Replacing::anything)
      file.saveBytesAnyway(bytes);
    else
      file.saveBytes(bytes);
  } catch (const ChangedElsewhere& error) {
    throw NotReplaced(error.remark());
  } catch (const korrin::FileError& error) {
    if (isProtected(error)) throw NotReplaced(error.remark());
    throw failed("cannot be written", error);
  }
}

}  // namespace

std::string identityOf(const std::string& path) {
  namespace fs = std::filesystem;
  constexpr int mostLinks = 40;
  std::error_code error;
  fs::path place = fs::absolute(path, error);
  // Links are followed here, as a file that is not there yet has no canonical path.
  for (int links = 0; links < mostLinks && fs::is_symlink(place, error); ++links)
    place = place.parent_path() / fs::read_symlink(place, error);
  const fs::path canonical = fs::weakly_canonical(place, error);
  return error ? path : canonical.string();
}

std::string inputName(const std::string& path) {
  return path == standardStream ? "standard input" : path;
}

std::string readFile(const std::string& path, std::size_t limit) {
  return readInput(path, limit).bytes;
}

Input readInput(const std::string& path, std::size_t limit) {
  if (path == noFile) return {};
  try {
    if (path == standardStream) return {readStandardInput(limit), std::nullopt};
    DocumentFile file(path);
    std::string bytes = file.openBytes(limit);
    return {std::move(bytes), std::move(file)};
  } catch (const korrin::FileError& error) {
    throw failed("cannot be read", error);
  }
}

std::optional<std::string> readFileIfPresent(const std::string& path) {
  DocumentFile file(path);
  return openIfPresent(file);
}

std::optional<std::string> openIfPresent(DocumentFile& file) {
  try {
    return file.openBytes();
  } catch (const korrin::FileError& error) {
    if (error.code() == std::errc::no_such_file_or_directory) return std::nullopt;
    throw failed("cannot be read", error);
  }
}

std::uintmax_t sizeOf(const std::string& path) {
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(path, unknown);
  return unknown ? 0 : size;
}

void makeFile(const std::string& path, std::string_view bytes) {
  DocumentFile file(path);
  try {
    write(file, bytes, Replacing::whatWasOpened);
  } catch (const NotReplaced&) {
    throw FileError("is there already");
  }
}

void replaceFile(const std::string& path, std::string_view bytes) {
  DocumentFile file(path);
  write(file, bytes, Replacing::anything);
}

void save(DocumentFile& file, std::string_view bytes, Replacing replacing, Console& console) {
  write(file, bytes, replacing);
  for (const std::string& sentence : file.notKept())
    complain(console, file.path().string() + ": " + sentence);
}

}  // namespace korrin::host
