#include "korrin/session/files/replacing.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <unistd.h>

#include "korrin/foundation/environment.h"
#include "korrin/session/files/sentences.h"
#include "korrin/session/files/traits.h"

namespace korrin::files {
namespace {

constexpr mode_t ownOnly = 0600;
constexpr mode_t asTheUserAsksFor = 0666;  // less what the process's mask takes away

/// While it lives, writing beyond the size that the process may write fails instead of ending the
/// process. The host's handling of the signal is left alone.
class FileSizeSignal {
 public:
  FileSizeSignal() {
    sigemptyset(&signal_);
    sigaddset(&signal_, SIGXFSZ);
    sigset_t pending;
    sigpending(&pending);
    wasPending_ = sigismember(&pending, SIGXFSZ) == 1;
    isBlocked_ = pthread_sigmask(SIG_BLOCK, &signal_, &before_) == 0;
  }
  ~FileSizeSignal() {
    if (!isBlocked_) return;
    const struct timespec atOnce {};
    if (!wasPending_)
      while (sigtimedwait(&signal_, nullptr, &atOnce) < 0 && errno == EINTR) continue;
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  FileSizeSignal(const FileSizeSignal&) = delete;
  FileSizeSignal& operator=(const FileSizeSignal&) = delete;

 private:
  sigset_t signal_;
  sigset_t before_;
  bool wasPending_ = false;
  bool isBlocked_ = false;
};

struct timespec timeOf(Instant instant) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(instant);
  return {.tv_sec = static_cast<time_t>(seconds.time_since_epoch().count()),
          .tv_nsec = static_cast<long>((instant - seconds).count())};
}

std::string freshName() { return ".korrin-" + Environment::system().makeUUID().text(); }

/// A new file in the target's folder: without a name where the file system can do that, so that
/// nothing is left behind whenever the process ends.
class NewFile {
 public:
  NewFile(const Target& target, mode_t mode) : target_(target) {
    const int folder = target.folderHandle.number();
    const bool canBeNamed = ::access("/proc/self/fd", X_OK) == 0;
    if (canBeNamed)
      handle_ = Descriptor(::openat(folder, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
    if (handle_.isOpen()) return;
    if (canBeNamed && errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL && errno != ENOENT)
      throw cannotWrite(target.path, errno);
    name_ = freshName();
    handle_ = Descriptor(
        ::openat(folder, name_.c_str(), O_CREAT | O_EXCL | O_NOFOLLOW | O_RDWR | O_CLOEXEC, mode));
    if (handle_.isOpen()) return;
    const int error = errno;
    name_.clear();
    throw cannotWrite(target.path, error);
  }
  ~NewFile() { removeName(); }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  int number() const { return handle_.number(); }

  void write(std::string_view bytes) {
    const FileSizeSignal guard;
    while (!bytes.empty()) {
      const ssize_t count = ::write(number(), bytes.data(), bytes.size());
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) throw cannotWrite(target_.path, errno);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  void flush() {
    int result = 0;
    do {
      result = ::fsync(number());
    } while (result != 0 && errno == EINTR);
    if (result != 0) throw cannotWrite(target_.path, errno);
  }

  /// Gives the file this name if it is free; otherwise false.
  bool takeFree(const std::string& name) {
    const int folder = target_.folderHandle.number();
    int result = 0;
    if (name_.empty()) {
      result = ::linkat(AT_FDCWD, ownPath().c_str(), folder, name.c_str(), AT_SYMLINK_FOLLOW);
    } else {
      result = ::renameat2(folder, name_.c_str(), folder, name.c_str(), RENAME_NOREPLACE);
      if (result == 0) name_.clear();
      // Where the file system does not know that, a second name does the same.
      if (result != 0 && (errno == EINVAL || errno == ENOSYS))
        result = ::linkat(folder, name_.c_str(), folder, name.c_str(), 0);
    }
    if (result == 0) return true;
    if (errno == EEXIST) return false;
    throw cannotWrite(target_.path, errno);
  }

  /// The name beside the target's that the file bears until it takes the target's.
  const std::string& temporaryName() {
    if (name_.empty()) {
      std::string name = freshName();
      if (!takeFree(name)) throw cannotWrite(target_.path, EEXIST);
      name_ = std::move(name);
    }
    return name_;
  }

  /// The temporary name is no longer this file's.
  void forgetName() { name_.clear(); }

  /// Removes what bears the temporary name.
  void removeName() {
    if (!name_.empty()) ::unlinkat(target_.folderHandle.number(), name_.c_str(), 0);
    name_.clear();
  }

 private:
  std::string ownPath() const { return "/proc/self/fd/" + std::to_string(number()); }

  const Target& target_;
  Descriptor handle_;
  std::string name_;
};

/// Keeps other saves of this library away from the folder while a file changes places. Whoever
/// holds the lock for long does not stop a save: the exchange notices what it must.
class FolderLock {
 public:
  explicit FolderLock(const Target& target)
      : handle_(::openat(target.folderHandle.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!handle_.isOpen()) return;
    for (int attempt = 0; attempt < 1000; ++attempt) {
      if (::flock(handle_.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  /// Flushes the folder's names to the disk; returns why that failed. A folder that may not be
  /// read, or a file system that cannot flush folders, is no failure.
  int flush() const {
    if (!handle_.isOpen() || ::fsync(handle_.number()) == 0) return 0;
    return errno == EIO || errno == ENOSPC || errno == EDQUOT ? errno : 0;
  }

 private:
  Descriptor handle_;
};

ChangedElsewhere isThereAlready(const Target& target) {
  return ChangedElsewhere(target.path, "is there already and was not opened");
}
ChangedElsewhere isGone(const Target& target) {
  return ChangedElsewhere(target.path, "is not there any more: somebody removed it");
}
ChangedElsewhere isChanged(const Target& target, const std::string& rest = "") {
  return ChangedElsewhere(target.path, "was changed by somebody else" + rest);
}

void requireExpected(const Target& target, const std::optional<FoundFile>& file,
                     const std::optional<ContentDigest>& expected) {
  if (!file) {
    if (expected) throw isGone(target);
    return;
  }
  if (!expected) throw isThereAlready(target);
  if (!file->handle.isOpen()) throw cannotRead(target.path, file->error);
  if (digestOf(*file) != expected) throw isChanged(target);
}

// The superuser may write every file: a mode without any permission to write is a wish all the
// same.
void requireUnprotected(const Target& target, const FoundFile& file) {
  constexpr mode_t anybody = S_IWUSR | S_IWGRP | S_IWOTH;
  if ((file.status.st_mode & anybody) != 0 &&
      ::faccessat(target.folderHandle.number(), target.name.c_str(), W_OK, AT_EACCESS) == 0)
    return;
  throw FileError(target.path, "is protected against writing", {EACCES, std::generic_category()});
}

void requireOwn(const Target& target, const FoundFile& file) {
  if (file.status.st_uid != ::geteuid()) throw FileError(target.path, "belongs to somebody else");
}

bool isSameFile(int folder, const std::string& name, int handle) {
  struct stat named {};
  struct stat opened {};
  return ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         ::fstat(handle, &opened) == 0 && named.st_dev == opened.st_dev &&
         named.st_ino == opened.st_ino;
}

void rename(const Target& target, NewFile& file) {
  const int folder = target.folderHandle.number();
  if (::renameat(folder, file.temporaryName().c_str(), folder, target.name.c_str()) != 0)
    throw cannotWrite(target.path, errno);
  file.forgetName();
}

// Whether what bears a name holds the expected bytes.
bool holds(const Target& target, const std::string& name, const ContentDigest& expected) {
  const int folder = target.folderHandle.number();
  struct stat status {};
  if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return false;
  if (!S_ISREG(status.st_mode)) return false;
  FoundFile file;
  file.handle = Descriptor(
      ::openat(folder, name.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC));
  return digestOf(file) == expected;
}

// The new file and what stands at the target change places, so that what stood there last can be
// looked at before it is given up.
void exchange(const Target& target, NewFile& file, const ContentDigest& expected) {
  const int folder = target.folderHandle.number();
  const std::string name = file.temporaryName();
  const auto changePlaces = [&] {
    return ::renameat2(folder, name.c_str(), folder, target.name.c_str(), RENAME_EXCHANGE) == 0;
  };
  if (!changePlaces()) {
    if (errno == ENOENT) throw isGone(target);
    if (errno != EINVAL && errno != ENOSYS) throw cannotWrite(target.path, errno);
    if (!holds(target, target.name, expected)) throw isChanged(target);
    return rename(target, file);
  }
  if (holds(target, name, expected)) return;  // and is removed with the temporary name
  const bool isBack = changePlaces();
  // Whoever was so quick as to write here twice has no file lost either.
  if (isBack && isSameFile(folder, name, file.number())) throw isChanged(target);
  file.forgetName();
  throw isChanged(target, "; what it held is in " + shown(target.folder / name));
}

}  // namespace

Replaced replace(const Target& target, const Replacement& replacement) {
  const std::optional<FoundFile> old = find(target);
  if (replacement.asks) requireExpected(target, old, replacement.expected);
  if (replacement.asks && old) requireUnprotected(target, *old);
  if (replacement.isPrivate && old) requireOwn(target, *old);

  Replaced replaced;
  const bool isNew = !old && !replacement.isPrivate;
  NewFile file(target, isNew ? asTheUserAsksFor : ownOnly);
  file.write(replacement.bytes);
  if (old && !replacement.isPrivate) replaced.notKept = copyTraits(*old, file.number());
  const struct timespec modified = timeOf(replacement.modified);
  const struct timespec times[2] = {modified, modified};
  // A recovery without its time would be taken for something else.
  if (::futimens(file.number(), times) != 0 && replacement.isPrivate)
    throw cannotWrite(target.path, errno);
  file.flush();

  const FolderLock lock(target);
  if (!replacement.asks)
    rename(target, file);
  else if (old)
    exchange(target, file, *replacement.expected);
  else if (!file.takeFree(target.name))
    throw isThereAlready(target);
  file.removeName();
  replaced.folderError = lock.flush();
  return replaced;
}

void removeOwn(const Target& target) {
  const std::optional<FoundFile> file = find(target);
  if (!file) return;
  requireOwn(target, *file);
  if (::unlinkat(target.folderHandle.number(), target.name.c_str(), 0) != 0 && errno != ENOENT)
    throw cannotWrite(target.path, errno);
}

}  // namespace korrin::files
