#include "korrin/session/files/sentences.h"

#include <cerrno>
#include <system_error>

#include "korrin/foundation/text.h"

namespace korrin::files {
namespace {

// The reason, and what to do about it where that is not plain.
std::string reasonOf(int error) {
  switch (error) {
    case ENOENT:
      return "it does not exist, or the folder does not";
    case EACCES:
      return "permission is denied";
    case ENOSPC:
      return "the disk is full; make room or choose another place";
    case EDQUOT:
      return "your share of the disk is used up; make room or choose another place";
    case EFBIG:
      return "it would be larger than the system allows; raise the limit or choose another place";
    case EROFS:
      return "the disk is read-only; choose another place";
    case EIO:
      return "the disk reports a fault; choose another place";
    case ENAMETOOLONG:
      return "the name is too long";
    case ELOOP:
      return "its symbolic links lead nowhere, or are not to be trusted";
    case ENOTDIR:
      return "a part of the path is no folder";
    default:
      return std::generic_category().message(error);
  }
}

std::string_view kindOf(mode_t mode) {
  if (S_ISDIR(mode)) return "a folder";
  if (S_ISFIFO(mode)) return "a pipe";
  if (S_ISSOCK(mode)) return "a socket";
  if (S_ISLNK(mode)) return "a symbolic link";
  return "a device";
}

}  // namespace

std::string shown(const std::filesystem::path& path) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text = "\"";
  const Text wellFormed = path.native();
  for (const char c : std::string_view(wellFormed)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F) {
      text += "\\x";
      text += digits[byte >> 4];
      text += digits[byte & 15];
    } else {
      text += c;
    }
  }
  return text + '"';
}

FileError cannotRead(const std::filesystem::path& path, int error) {
  return FileError(path, shown(path) + " cannot be read: " + reasonOf(error),
                   {error, std::generic_category()});
}

FileError cannotWrite(const std::filesystem::path& path, int error) {
  return FileError(path, shown(path) + " cannot be written: " + reasonOf(error),
                   {error, std::generic_category()});
}

FileError cannotReach(const std::filesystem::path& path, int error) {
  return FileError(path, shown(path) + " cannot be reached: " + reasonOf(error),
                   {error, std::generic_category()});
}

FileError notAFile(const std::filesystem::path& path, mode_t mode) {
  return FileError(path, shown(path) + " is " + std::string(kindOf(mode)) + ", not a file");
}

FileError tooLarge(const std::filesystem::path& path, std::size_t limit) {
  return FileError(path, shown(path) + " is larger than " + std::to_string(limit >> 20) + " MiB");
}

}  // namespace korrin::files
