#include "korrin/session/files/recovery_file.h"

#include <chrono>
#include <optional>
#include <string>
#include <system_error>

#include <unistd.h>

#include "korrin/foundation/ascii.h"
#include "korrin/foundation/utf8.h"
#include "korrin/session/autosave.h"
#include "korrin/session/files/reading.h"
#include "korrin/session/files/replacing.h"
#include "korrin/session/files/sentences.h"
#include "korrin/session/opening.h"
#include "korrin/validation/document_validation.h"

namespace korrin {

namespace fs = std::filesystem;

namespace files {
namespace {

constexpr EncodingOptions recoveryEncoding = {.nonFinite = NonFinite::strings};
constexpr DecodingOptions recoveryDecoding = {.nonFinite = NonFinite::strings};

// Nothing for a time that no instant can hold.
std::optional<Instant> instantOf(const struct timespec& time) {
  constexpr auto limit = std::chrono::floor<std::chrono::seconds>(Instant::max());
  const std::chrono::sys_seconds seconds{std::chrono::seconds(time.tv_sec)};
  if (seconds >= limit || seconds <= std::chrono::ceil<std::chrono::seconds>(Instant::min()))
    return std::nullopt;
  return Instant(seconds) + std::chrono::nanoseconds(time.tv_nsec);
}

bool isLater(const struct timespec& a, const struct timespec& b) {
  return a.tv_sec != b.tv_sec ? a.tv_sec > b.tv_sec : a.tv_nsec > b.tv_nsec;
}

// The regular file there; nothing where there is none that can be read.
std::optional<FoundFile> readableFile(const fs::path& path, bool followsLinks) {
  try {
    std::optional<FoundFile> file = find(followsLinks ? followed(path, path) : unfollowed(path));
    return file && file->handle.isOpen() ? std::move(file) : std::nullopt;
  } catch (const FileError&) {
    return std::nullopt;
  }
}

std::optional<std::string> readable(const FoundFile& file) {
  try {
    return contentOf(file, {}, DocumentFile::maximumSize);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

bool differs(const KorrinProject& recovered, const FoundFile& document,
             const DecodingOptions& options) {
  const std::optional<std::string> bytes = readable(document);
  if (!bytes) return true;
  try {
    KorrinProject project = decodeJSON<KorrinProject>(*bytes, options);
    project.metadata.modifiedAt = recovered.metadata.modifiedAt;
    return !(project == recovered);
  } catch (const DecodingError&) {
    return true;
  }
}

}  // namespace

fs::path absolutePath(const fs::path& path) {
  std::error_code error;
  fs::path absolute = fs::absolute(path, error);
  return error || path.empty() ? path : absolute;
}

void writeRecovery(const fs::path& file, const KorrinProject& project, Instant notedAt) {
  DocumentValidation::validate(project);
  if (project.minimumReaderVersion > KorrinProject::currentSchemaVersion)
    throw FileError(file, "could not be opened again: the plot asks for a newer version");
  const std::string bytes = encodeJSON(project, recoveryEncoding);
  if (bytes.size() > DocumentFile::maximumSize) throw tooLarge(file, DocumentFile::maximumSize);
  const Replacement replacement = {.bytes = bytes,
                                   .asks = false,
                                   .expected = std::nullopt,
                                   .isPrivate = true,
                                   .modified = notedAt};
  const Replaced replaced = replace(unfollowed(file), replacement);
  if (replaced.folderError != 0) throw cannotWrite(file, replaced.folderError);
}

void removeRecovery(const fs::path& file) { removeOwn(unfollowed(file)); }

}  // namespace files

fs::path recoveryFileFor(const fs::path& document) {
  constexpr std::size_t longestName = 255;
  constexpr std::string_view suffix = ".korrin-recovery";
  // Ends in another way, so that no short name can stand for a long one.
  constexpr std::string_view suffixOfLongNames = ".korrin-recovery-long";
  constexpr std::size_t digestBytes = 16;
  const std::string name = document.filename().native();
  std::string hidden = "." + name;
  if (hidden.size() + suffix.size() <= longestName)
    return document.parent_path() / hidden.append(suffix);
  hidden.resize(longestName - suffixOfLongNames.size() - 1 - 2 * digestBytes);
  hidden.resize(std::max(utf8::wellFormedPrefix(hidden), hidden.size() - 3));
  hidden += '~';
  const files::ContentDigest digest = files::digestOf(name);
  for (std::size_t i = 0; i < digestBytes; ++i) appendHex(hidden, digest[i]);
  return document.parent_path() / hidden.append(suffixOfLongNames);
}

std::optional<Recovery> recoveryOf(const fs::path& document, const DecodingOptions& options) {
  const fs::path path = recoveryFileFor(document);
  const auto file = files::readableFile(path, false);
  if (!file) return std::nullopt;
  const auto plot = files::readableFile(document, true);
  const uid_t owner = file->status.st_uid;
  if (owner != ::geteuid() && !(plot && owner == plot->status.st_uid)) return std::nullopt;
  if (plot && !files::isLater(file->status.st_mtim, plot->status.st_mtim)) return std::nullopt;
  const std::optional<Instant> notedAt = files::instantOf(file->status.st_mtim);
  const std::optional<std::string> bytes = files::readable(*file);
  if (!notedAt || !bytes) return std::nullopt;
  OpenOutcome outcome = openDocument(*bytes, files::recoveryDecoding);
  auto* const opened = std::get_if<OpenedDocument>(&outcome);
  if (opened == nullptr) return std::nullopt;
  if (plot && !files::differs(opened->project, *plot, options)) return std::nullopt;
  return Recovery{.project = std::move(opened->project), .file = path, .notedAt = *notedAt};
}

void discardRecovery(const fs::path& document) { files::removeRecovery(recoveryFileFor(document)); }

}  // namespace korrin
