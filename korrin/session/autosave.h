#pragma once

// What a crash would lose, kept in a file beside the plot's. A host notes every state of its plot
// here; a worker thread writes the latest one. After a crash, `recoveryOf` finds it.

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "korrin/coding/coding_options.h"
#include "korrin/foundation/instant.h"
#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Writes the latest of the noted states of a plot to its recovery file, which is a plot document
/// itself. All operations may be called from any thread.
///
/// A kill at any moment loses at most what was noted in the last `quiet`, or in ten times that
/// while notes keep coming, and during the time that writing takes. It never harms the document.
/// The file is replaced in one step: the former recovery stays whole until the next one is.
///
/// A state that could not be opened again is not written: the recovery before stays, and `failure`
/// says why. Numbers that are not finite are written as strings, which `recoveryOf` reads. What
/// could not be written is tried again after ten times `quiet`, but no sooner than after a tenth of
/// a second, or when something new is noted.
class Autosave {
 public:
  /// Starts the worker. Looks at no file. A relative path means what it means at this moment. A
  /// negative `quiet` counts as none. Throws `std::system_error` when there is no thread to be had.
  explicit Autosave(std::filesystem::path recoveryFile,
                    std::chrono::milliseconds quiet = std::chrono::seconds(2));
  /// Flushes.
  ~Autosave();
  Autosave(const Autosave&) = delete;
  Autosave& operator=(const Autosave&) = delete;

  /// Takes the state that a crash should not lose. Returns at once at any size of the plot, without
  /// an allocation: the worker encodes, writes and destroys. Written once nothing came for `quiet`,
  /// at the latest after ten times that.
  void note(KorrinProject project);

  /// Waits until what was noted is written, or could not be; see `failure`. Does not wait for
  /// `quiet`.
  void flush();

  /// After a real save: forgets what was noted and not written, and removes the recovery file.
  /// Waits for a write that has begun. A file that cannot be removed is a `failure`.
  void settle();

  /// Why the last write failed, in one sentence; absent when it did not.
  std::optional<std::string> failure() const;

 private:
  class Worker;
  std::unique_ptr<Worker> worker_;
};

/// Where the recovery of a document belongs: beside it, hidden, named after it. No two documents of
/// a folder share one, and no name becomes too long. Looks at no file.
std::filesystem::path recoveryFileFor(const std::filesystem::path& document);

/// What `Autosave` kept of a plot.
struct Recovery {
  KorrinProject project;       ///< The state, safe to edit.
  std::filesystem::path file;  ///< Where it was found.
  Instant notedAt;             ///< When it was noted: the file's time of modification.
};

/// The recovery of a document, where there is one that was noted after the document was written and
/// that differs from it in more than `modifiedAt`; also where the document is missing or cannot be
/// read. Absent otherwise, and where the recovery file is damaged, not safe to edit, a symbolic
/// link or owned by a user who owns neither this process nor the document. `options` are those of
/// the document. Throws nothing but `std::bad_alloc`.
std::optional<Recovery> recoveryOf(const std::filesystem::path& document,
                                   const DecodingOptions& options = {});

/// Removes the recovery of a document, if there is one. Throws `FileError` when that fails, or when
/// what bears its name is not this user's file.
void discardRecovery(const std::filesystem::path& document);

}  // namespace korrin

#pragma GCC visibility pop
