#include "korrin/session/files/traits.h"

#include <cerrno>
#include <string_view>

#include <sys/xattr.h>
#include <unistd.h>

namespace korrin::files {
namespace {

constexpr std::size_t largestAttribute = 64 * 1024;  // as of Linux, for names and for a value

constexpr const char* accessList = "system.posix_acl_access";

void copyOwner(const struct stat& from, int to, mode_t& mode, std::vector<std::string>& notKept) {
  struct stat own {};
  if (::fstat(to, &own) != 0) return;
  const bool hasOwner =
      own.st_uid == from.st_uid || ::fchown(to, from.st_uid, static_cast<gid_t>(-1)) == 0;
  const bool hasGroup =
      own.st_gid == from.st_gid || ::fchown(to, static_cast<uid_t>(-1), from.st_gid) == 0;
  if (!hasOwner) {
    notKept.push_back("the file belongs to you instead of its former owner");
    mode &= ~static_cast<mode_t>(S_ISUID);
  }
  if (!hasGroup) {
    notKept.push_back("the file is no longer shared with its group");
    const mode_t everybody = mode & S_IRWXO;
    mode &= ~static_cast<mode_t>(S_ISGID | S_IRWXG) | everybody << 3;
  }
}

bool holds(int file, const char* name, std::string_view value) {
  std::string own(value.size() + 1, '\0');
  const ssize_t size = ::fgetxattr(file, name, own.data(), own.size());
  return size >= 0 && std::string_view(own.data(), static_cast<std::size_t>(size)) == value;
}

void copyAttributes(const FoundFile& from, int to, std::vector<std::string>& notKept) {
  // A folder may have given the new file an access list of its own.
  ::fremovexattr(to, accessList);
  if (!from.handle.isOpen()) {
    notKept.push_back("the file's extended attributes could not be read");
    return;
  }
  std::string names(largestAttribute, '\0');
  const ssize_t length = ::flistxattr(from.handle.number(), names.data(), names.size());
  if (length <= 0) return;
  names.resize(static_cast<std::size_t>(length));
  std::string value(largestAttribute, '\0');
  for (std::size_t at = 0; at < names.size();
       at += std::string_view(names.c_str() + at).size() + 1) {
    const char* const name = names.c_str() + at;
    const ssize_t size = ::fgetxattr(from.handle.number(), name, value.data(), value.size());
    if (size < 0 && errno == ENODATA) continue;
    const bool isKept =
        size >= 0 &&
        (::fsetxattr(to, name, value.data(), static_cast<std::size_t>(size), 0) == 0 ||
         // A security label that the system gave by itself may be one that nobody may set.
         holds(to, name, std::string_view(value.data(), static_cast<std::size_t>(size))));
    if (!isKept) notKept.push_back("the file has lost its extended attribute " + std::string(name));
  }
}

}  // namespace

std::vector<std::string> copyTraits(const FoundFile& from, int to) {
  std::vector<std::string> notKept;
  mode_t mode = from.status.st_mode & 07777;
  copyOwner(from.status, to, mode, notKept);
  copyAttributes(from, to, notKept);
  // Last, as a new owner takes the set-user and set-group bits away.
  if (::fchmod(to, mode) != 0) notKept.push_back("the file's permissions could not be set");
  if (from.status.st_nlink > 1)
    notKept.push_back("the file's other names (hard links) keep the content from before");
  return notKept;
}

}  // namespace korrin::files
