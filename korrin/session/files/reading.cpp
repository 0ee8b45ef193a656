#include "korrin/session/files/reading.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

#include "korrin/session/files/sentences.h"

namespace korrin::files {

namespace fs = std::filesystem;

Descriptor::~Descriptor() {
  if (number_ >= 0) ::close(number_);
}

namespace {

constexpr int mostLinks = 40;

fs::path folderOf(const fs::path& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// The rule by which Linux guards folders that all may write to: without it, whoever leaves a link
// in /tmp chooses which file of somebody else is written.
bool isTrusted(const fs::path& link, const struct stat& status) {
  struct stat folder {};
  if (::stat(folderOf(link).c_str(), &folder) != 0) return false;
  const bool isShared = (folder.st_mode & S_ISVTX) != 0 && (folder.st_mode & S_IWOTH) != 0;
  return !isShared || status.st_uid == ::geteuid() || status.st_uid == folder.st_uid;
}

fs::path destinationOf(const fs::path& link, const fs::path& asNamed) {
  std::string text(4096, '\0');
  const ssize_t length = ::readlink(link.c_str(), text.data(), text.size());
  if (length < 0) throw cannotReach(asNamed, errno);
  text.resize(static_cast<std::size_t>(length));
  return folderOf(link) / text;  // an absolute text takes the place of all before it
}

Target targetAt(const fs::path& path, const fs::path& asNamed) {
  if (path.empty()) throw FileError(asNamed, "is no name of a file: it is empty");
  if (path.native().find('\0') != std::string::npos)
    throw FileError(asNamed, "is no name of a file: it holds a NUL");
  if (!path.has_filename()) throw notAFile(asNamed, S_IFDIR);
  const fs::path folder = folderOf(path);
  Descriptor handle(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!handle.isOpen()) throw cannotReach(asNamed, errno);
  return {.path = asNamed,
          .folder = folder,
          .folderHandle = std::move(handle),
          .name = path.filename().native()};
}

}  // namespace

Target followed(const fs::path& absolute, const fs::path& asNamed) {
  fs::path path = absolute;
  for (int links = 0; links <= mostLinks; ++links) {
    Target target = targetAt(path, asNamed);
    struct stat status {};
    if (::fstatat(target.folderHandle.number(), target.name.c_str(), &status,
                  AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISLNK(status.st_mode))
      return target;
    if (!isTrusted(path, status)) break;
    // The links of /proc to pipes and devices read like names, of which nothing stands there.
    if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
      throw notAFile(asNamed, status.st_mode);
    path = destinationOf(path, asNamed);
  }
  throw cannotReach(asNamed, ELOOP);
}

Target unfollowed(const fs::path& path) { return targetAt(path, path); }

std::optional<FoundFile> find(const Target& target) {
  FoundFile file;
  const int folder = target.folderHandle.number();
  const char* const name = target.name.c_str();
  // Opening a device can do things: what stands there is looked at first.
  if (::fstatat(folder, name, &file.status, AT_SYMLINK_NOFOLLOW) != 0) {
    if (errno == ENOENT) return std::nullopt;
    throw cannotReach(target.path, errno);
  }
  if (!S_ISREG(file.status.st_mode)) throw notAFile(target.path, file.status.st_mode);
  file.handle =
      Descriptor(::openat(folder, name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC));
  if (!file.handle.isOpen()) {
    file.error = errno;
    if (file.error == ENOENT) return std::nullopt;
    return file;
  }
  if (::fstat(file.handle.number(), &file.status) != 0) throw cannotRead(target.path, errno);
  if (!S_ISREG(file.status.st_mode)) throw notAFile(target.path, file.status.st_mode);
  return file;
}

std::optional<std::string> readAll(const std::function<std::size_t(char*, std::size_t)>& read,
                                   std::size_t expected, std::size_t limit) {
  // What nobody knows the length of comes in pieces: a string that grows takes up to three times
  // its size while it does.
  constexpr std::size_t pieceSize = std::size_t{1} << 20;
  std::string bytes(std::min(expected, limit), '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const std::size_t count = read(bytes.data() + filled, bytes.size() - filled);
    if (count == 0) break;
    filled += count;
  }
  if (filled < bytes.size()) {
    bytes.resize(filled);
    return bytes;
  }
  std::deque<std::string> pieces;
  std::size_t total = filled;
  for (;;) {
    std::string piece(pieces.empty() ? std::size_t{4096} : pieceSize, '\0');
    std::size_t size = 0;
    while (size < piece.size()) {
      const std::size_t count = read(piece.data() + size, piece.size() - size);
      if (count == 0) break;
      size += count;
    }
    total += size;
    if (total > limit) return std::nullopt;
    const bool isLast = size < piece.size();
    piece.resize(size);
    if (size != 0) pieces.push_back(std::move(piece));
    if (isLast) break;
  }
  if (pieces.empty()) return bytes;
  bytes.reserve(total);
  for (; !pieces.empty(); pieces.pop_front()) bytes += pieces.front();
  return bytes;
}

namespace {

// Up to `size` bytes; nothing where reading fails, which leaves the reason in `errno`.
std::optional<std::size_t> readSome(int descriptor, char* buffer, std::size_t size) {
  for (;;) {
    const ssize_t count = ::read(descriptor, buffer, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) return std::nullopt;
  }
}

}  // namespace

std::string contentOf(const FoundFile& file, const fs::path& path, std::size_t limit) {
  if (!file.handle.isOpen()) throw cannotRead(path, file.error);
  const auto size = static_cast<std::size_t>(file.status.st_size);
  if (size > limit) throw tooLarge(path, limit);
  std::optional<std::string> bytes = readAll(
      [&](char* buffer, std::size_t room) {
        const auto count = readSome(file.handle.number(), buffer, room);
        if (!count) throw cannotRead(path, errno);
        return *count;
      },
      size, limit);
  if (!bytes) throw tooLarge(path, limit);
  return std::move(*bytes);
}

std::optional<ContentDigest> digestOf(const FoundFile& file) {
  if (!file.handle.isOpen()) return std::nullopt;
  if (file.status.st_size > static_cast<off_t>(DocumentFile::maximumSize)) return std::nullopt;
  if (::lseek(file.handle.number(), 0, SEEK_SET) != 0) return std::nullopt;
  ContentDigester digester;
  std::array<char, 32 * 1024> buffer;
  for (std::size_t total = 0; total <= DocumentFile::maximumSize;) {
    const auto count = readSome(file.handle.number(), buffer.data(), buffer.size());
    if (!count) return std::nullopt;
    if (*count == 0) return digester.digest();
    digester.add({buffer.data(), *count});
    total += *count;
  }
  return std::nullopt;
}

}  // namespace korrin::files
