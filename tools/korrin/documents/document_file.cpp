#include "documents/document_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korrin::host {
namespace {

/// An open file descriptor that this scope closes.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }
  /// Closes now; false when the system reports a late write error.
  bool close() { return ::close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

/// A file that is removed again unless it is kept.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string path) : path_(std::move(path)) {}
  ~TemporaryFile() {
    if (!path_.empty()) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void keep() { path_.clear(); }

 private:
  std::string path_;
};

[[noreturn]] void failReading(int error) {
  throw FileError("cannot be read: " + std::generic_category().message(error));
}

[[noreturn]] void failWriting(int error) {
  throw FileError("cannot be written: " + std::generic_category().message(error));
}

std::string sizeText(std::size_t bytes) { return std::to_string(bytes >> 20) + " MiB"; }

[[noreturn]] void failTooLarge(std::size_t limit) {
  throw FileError("cannot be read: it is larger than " + sizeText(limit));
}

std::string readAll(int descriptor, std::size_t limit) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) failReading(errno);
  if (S_ISDIR(status.st_mode)) throw FileError("cannot be read: it is a directory");
  std::string bytes;
  if (S_ISREG(status.st_mode) && status.st_size > 0) {
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > limit) failTooLarge(limit);
    bytes.reserve(size + 1);
  }
  std::size_t filled = 0;
  for (;;) {
    constexpr std::size_t chunk = 64 * 1024;
    bytes.resize(std::max(filled + chunk, bytes.capacity()));
    const ssize_t count = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failReading(errno);
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
    if (filled > limit) failTooLarge(limit);
  }
  bytes.resize(filled);
  return bytes;
}

void writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failWriting(errno);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

/// The file itself where the path leads through symbolic links to one that exists.
std::filesystem::path targetOf(const std::string& path) {
  std::error_code error;
  std::filesystem::path target = std::filesystem::canonical(path, error);
  return error ? std::filesystem::path(path) : target;
}

/// The permission bits that the new file is to have.
mode_t modeFor(const std::filesystem::path& target) {
  struct stat status {};
  if (::stat(target.c_str(), &status) == 0) {
    if (!S_ISREG(status.st_mode)) throw FileError("cannot be written: it is not a regular file");
    return status.st_mode & 0777;
  }
  if (errno != ENOENT) failWriting(errno);
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

}  // namespace

std::string inputName(const std::string& path) {
  return path == standardStream ? "standard input" : path;
}

std::string readFile(const std::string& path, std::size_t limit) {
  if (path == standardStream) return readAll(STDIN_FILENO, limit);
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.isOpen()) failReading(errno);
  return readAll(file.number(), limit);
}

std::optional<std::string> readFileIfPresent(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.isOpen() && errno == ENOENT) return std::nullopt;
  if (!file.isOpen()) failReading(errno);
  return readAll(file.number(), largestFile);
}

void replaceFile(const std::string& path, std::string_view bytes) {
  const std::filesystem::path target = targetOf(path);
  const mode_t mode = modeFor(target);
  const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";

  std::string besideIt = (folder / ".korrin-XXXXXX").string();
  Descriptor file(::mkostemp(besideIt.data(), O_CLOEXEC));
  if (!file.isOpen()) failWriting(errno);
  TemporaryFile temporary(besideIt);
  writeAll(file.number(), bytes);
  if (::fchmod(file.number(), mode) != 0 || ::fsync(file.number()) != 0) failWriting(errno);
  if (!file.close()) failWriting(errno);
  if (::rename(besideIt.c_str(), target.c_str()) != 0) failWriting(errno);
  temporary.keep();

  // The new name reaches the disk with its folder. Some file systems cannot flush a folder; the
  // content is whole all the same, so that is no failure.
  const Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory.isOpen()) ::fsync(directory.number());
}

}  // namespace korrin::host
