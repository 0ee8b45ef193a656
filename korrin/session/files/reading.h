#pragma once

// Finding and reading regular files without being made to wait or to follow what is planted.

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>

#include "korrin/session/files/content_digest.h"
#include "korrin/session/files/descriptor.h"

namespace korrin::files {

/// A place in a folder: what reading and writing at a path comes down to.
struct Target {
  std::filesystem::path path;  ///< As the user named it, for messages.
  std::filesystem::path folder;
  Descriptor folderHandle;  ///< For operations beside the file.
  std::string name;         ///< Of the file in the folder.
};

/// Where a path leads through symbolic links: a file, or a name that is free, whose folder exists.
/// A link in a folder in which others may leave theirs (sticky and writable for all, as /tmp) is
/// followed only if the folder's owner or this process's user made it. Throws `FileError`.
Target followed(const std::filesystem::path& absolute, const std::filesystem::path& asNamed);

/// The path itself: a symbolic link there is not followed.
Target unfollowed(const std::filesystem::path& path);

/// A regular file that was found.
struct FoundFile {
  Descriptor handle;  ///< For reading; not open where the file may not be read.
  int error = 0;      ///< Why not.
  struct stat status {};
};

/// The file at `target`, nothing where there is none. Does not wait for a pipe or device. Throws
/// `FileError` when it is no regular file.
std::optional<FoundFile> find(const Target& target);

/// All bytes that `read` gives: it fills a buffer from its beginning and returns how many bytes it
/// put there, 0 at the end. Takes little more memory than the bytes. `limit` or fewer; nothing
/// where there are more. `expected` is a guess at the number.
std::optional<std::string> readAll(const std::function<std::size_t(char*, std::size_t)>& read,
                                   std::size_t expected, std::size_t limit);

/// The file's bytes. Throws `FileError`, also when there are more than `limit`.
std::string contentOf(const FoundFile& file, const std::filesystem::path& path, std::size_t limit);

/// The digest of the file's bytes from its beginning; nothing where they cannot be read or are more
/// than any document's.
std::optional<ContentDigest> digestOf(const FoundFile& file);

}  // namespace korrin::files
