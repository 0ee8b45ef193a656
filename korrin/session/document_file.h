#pragma once

// The file of an open plot: read whole, replaced whole, and never replaced when somebody else has
// changed it meanwhile.
//
// One object stands for one file that one host has open. It remembers what the file held when it
// was last opened or saved, as a digest. It is a value without locks: use it from one thread at a
// time. Files of other kinds that a host writes, such as pictures, go the same way as bytes.

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "korrin/session/opening.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A file that cannot be read or written. `what()` is one sentence, on one line whatever bytes the
/// path holds: which file, what failed, and what to do where that is not plain.
class FileError : public std::runtime_error {
 public:
  /// `remark` is the rest of a sentence that begins with the file's name.
  FileError(std::filesystem::path path, std::string remark, std::error_code code = {});

  /// The file, as the host named it.
  const std::filesystem::path& path() const noexcept { return path_; }

  /// The sentence without the file's name, for a host that shows this in its own way: "cannot be
  /// read: Permission denied".
  const std::string& remark() const noexcept { return remark_; }

  /// What the system answered; no error where the file was refused by what it is.
  const std::error_code& code() const noexcept { return code_; }

 private:
  std::filesystem::path path_;
  std::string remark_;
  std::error_code code_;
};

/// The path does not hold what was last opened or saved: other bytes, none, or a file that was
/// never opened. Nothing was written. Ask the user, then `saveAnyway` or save elsewhere.
class ChangedElsewhere : public FileError {
 public:
  using FileError::FileError;
};

/// The file of a plot.
///
/// Saving makes the bytes first, writes them to a file without a name beside the old one, flushes
/// them to the disk, puts them in the old one's place in one step and flushes the folder. Whoever
/// opens the path finds the old content or the new one, whatever fails and whenever the process is
/// killed. What stood there is compared once more after it has been exchanged for the new file, and
/// put back when somebody replaced it in between. What is left: a program that has the old file
/// open and writes to it afterwards writes to a file without a name; and where the file system
/// cannot exchange two files (some network and FAT ones), a change in the last instant before the
/// replacement is not noticed.
class DocumentFile {
 public:
  /// Larger files are neither read nor written.
  static constexpr std::size_t maximumSize = std::size_t{1} << 30;

  /// Does not look at the file. A relative path means what it means at this moment, wherever the
  /// process goes later.
  explicit DocumentFile(std::filesystem::path path);

  /// As given.
  const std::filesystem::path& path() const noexcept { return path_; }

  /// Reads and opens the file, following symbolic links. Whatever the outcome, the file counts as
  /// opened. Throws `FileError` when it cannot be read, is no regular file (which is then not
  /// touched) or is too large; then nothing counts as opened that did not before.
  OpenOutcome open(const DecodingOptions& options = {});

  /// Whether `save` would throw `ChangedElsewhere`, or finds what is no readable file: the path
  /// holds other bytes than were last opened or saved, holds none, or holds what was never opened.
  /// Reads the whole file. The same bytes in another file are no change.
  bool hasChangedElsewhere() const;

  /// Saves as `bytesToSave` encodes, and throws what it throws. Throws `ChangedElsewhere` as said
  /// there. Throws `FileError` when a step fails, the path holds no regular file, or the file is
  /// protected: nobody may write it, or this process may not. Then the old file stands as it was.
  /// (A `FileError` that says that the new content may be lost in a power cut is the exception: it
  /// is thrown after the replacement.) Permissions are kept and, where the process may, owner,
  /// group and extended attributes; a symbolic link stays and its target is written, whether it is
  /// there or not. The file's time of modification is that of the call, to the nanosecond where the
  /// file system can keep that, so that `recoveryOf` knows what was noted before and what after.
  void save(const KorrinProject& project, const EncodingOptions& options = prettyPrinted);

  /// As `save`, without asking whether the file has changed or is protected.
  void saveAnyway(const KorrinProject& project, const EncodingOptions& options = prettyPrinted);

  /// The file's bytes, which counts as opening it. Throws as `open`; more than `limit` bytes are
  /// too large.
  std::string openBytes(std::size_t limit = maximumSize);

  /// As `save` and `saveAnyway`, with bytes that the host made itself.
  void saveBytes(std::string_view bytes);
  void saveBytesAnyway(std::string_view bytes);

  /// What the last save could not keep of the file that it replaced, one sentence each, for the
  /// user: its owner, its group, an extended attribute, its other names (hard links). Empty after
  /// nearly every save.
  const std::vector<std::string>& notKept() const noexcept { return notKept_; }

 private:
  void write(std::string_view bytes, bool asks);

  std::filesystem::path path_;
  std::filesystem::path absolute_;
  std::optional<std::array<std::uint8_t, 32>> known_;  // the digest of what was opened or saved
  std::vector<std::string> notKept_;
};

/// All bytes of a stream, such as standard input. Takes little more memory than they do, and no
/// more than `limit` when there is no end to them. Throws `FileError`, with `name` as its path,
/// when there are more than `limit` or reading fails.
std::string readStream(std::istream& stream, const std::filesystem::path& name,
                       std::size_t limit = DocumentFile::maximumSize);

}  // namespace korrin

#pragma GCC visibility pop
