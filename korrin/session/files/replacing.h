#pragma once

// Putting new content in a file's place in one step.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/foundation/instant.h"
#include "korrin/session/files/content_digest.h"
#include "korrin/session/files/reading.h"

namespace korrin::files {

/// What is to stand at a target, and what may stand there before.
struct Replacement {
  std::string_view bytes;
  bool asks;  ///< Whether anything else than `expected`, or a protected file, is refused.
  std::optional<ContentDigest> expected;  ///< Absent: no file.
  bool isPrivate;                         ///< For this user only, in place of this user's only.
  Instant modified;  ///< The time that the file is to bear, where the file system can do that.
};

/// What there is to say of a replacement that was made.
struct Replaced {
  std::vector<std::string>
      notKept;          ///< Sentences on what the old file had and the new one has not.
  int folderError = 0;  ///< Why the folder could not be flushed.
};

/// Replaces the file, or makes it. Throws `ChangedElsewhere` or `FileError`, and then the file is
/// what it was.
Replaced replace(const Target& target, const Replacement& replacement);

/// Removes this user's regular file at the target; does nothing where there is none. Throws
/// `FileError`.
void removeOwn(const Target& target);

}  // namespace korrin::files
