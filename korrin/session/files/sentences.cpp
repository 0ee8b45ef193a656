#include "korrin/session/files/sentences.h"

#include <cerrno>
#include <system_error>

#include "korrin/foundation/ascii.h"
#include "korrin/foundation/hidden_scalar.h"
#include "korrin/foundation/text.h"
#include "korrin/foundation/utf8.h"

namespace korrin::files {
namespace {

// What to do about it, where that is not plain.
std::string_view adviceFor(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
      return "; make room or choose another place";
    case EFBIG:
      return "; raise the limit or choose another place";
    case EROFS:
    case EIO:
      return "; choose another place";
    default:
      return "";
  }
}

FileError failed(const std::filesystem::path& path, const char* what, int error) {
  const std::error_code code(error, std::generic_category());
  return FileError(path, what + code.message() + std::string(adviceFor(error)), code);
}

std::string_view kindOf(mode_t mode) {
  if (S_ISDIR(mode)) return "a directory";
  if (S_ISFIFO(mode)) return "a pipe";
  if (S_ISSOCK(mode)) return "a socket";
  if (S_ISLNK(mode)) return "a symbolic link";
  return "a device";
}

}  // namespace

std::string shown(const std::filesystem::path& path) {
  std::string text = "\"";
  const Text wellFormed = path.native();
  for (std::string_view rest = wellFormed; !rest.empty();) {
    const utf8::Step next = utf8::step(rest);
    const std::string_view bytes = rest.substr(0, next.length);
    rest.remove_prefix(next.length);
    if (!isHidden(next.scalar)) {
      text += bytes;
      continue;
    }
    for (const char byte : bytes) {
      text += "\\x";
      appendHex(text, static_cast<unsigned char>(byte));
    }
  }
  return text + '"';
}

FileError cannotRead(const std::filesystem::path& path, int error) {
  return failed(path, "cannot be read: ", error);
}

FileError cannotWrite(const std::filesystem::path& path, int error) {
  return failed(path, "cannot be written: ", error);
}

FileError cannotReach(const std::filesystem::path& path, int error) {
  return failed(path, "cannot be reached: ", error);
}

FileError notAFile(const std::filesystem::path& path, mode_t mode) {
  return FileError(path, "is " + std::string(kindOf(mode)) + ", not a file");
}

FileError tooLarge(const std::filesystem::path& path, std::size_t limit) {
  return FileError(path, "is larger than " + std::to_string(limit >> 20) + " MiB");
}

}  // namespace korrin::files
