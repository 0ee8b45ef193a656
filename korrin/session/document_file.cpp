#include "korrin/session/document_file.h"

#include <algorithm>
#include <cerrno>
#include <istream>
#include <utility>

#include "korrin/foundation/environment.h"
#include "korrin/session/files/reading.h"
#include "korrin/session/files/replacing.h"
#include "korrin/session/files/sentences.h"

namespace korrin {

namespace fs = std::filesystem;

FileError::FileError(fs::path path, std::string remark, std::error_code code)
    : std::runtime_error(files::shown(path) + " " + remark),
      path_(std::move(path)),
      remark_(std::move(remark)),
      code_(code) {}

namespace {

// Whether a path could not be followed because nothing stands there.
bool findsNothing(const FileError& error) {
  return error.code() == std::errc::no_such_file_or_directory ||
         error.code() == std::errc::not_a_directory;
}

// As `files::followed`, for a file that was there.
files::Target followedAgain(const fs::path& absolute, const fs::path& path) {
  try {
    return files::followed(absolute, path);
  } catch (const FileError& error) {
    if (!findsNothing(error)) throw;
    throw ChangedElsewhere(path, "is not there any more, and neither is its folder", error.code());
  }
}

}  // namespace

DocumentFile::DocumentFile(fs::path path) : path_(std::move(path)) {
  std::error_code error;
  absolute_ = fs::absolute(path_, error);
  if (error || path_.empty()) absolute_ = path_;
}

std::string DocumentFile::openBytes(std::size_t limit) {
  const files::Target target = files::followed(absolute_, path_);
  const std::optional<files::FoundFile> file = files::find(target);
  if (!file) throw files::cannotRead(path_, ENOENT);
  std::string bytes = files::contentOf(*file, path_, std::min(limit, maximumSize));
  known_ = files::digestOf(bytes);
  return bytes;
}

OpenOutcome DocumentFile::open(const DecodingOptions& options) {
  DocumentFile opened = *this;
  OpenOutcome outcome = openDocument(opened.openBytes(), options);
  known_ = opened.known_;
  return outcome;
}

bool DocumentFile::hasChangedElsewhere() const {
  try {
    const std::optional<files::FoundFile> file = files::find(files::followed(absolute_, path_));
    if (!file) return known_.has_value();
    return !known_ || files::digestOf(*file) != known_;
  } catch (const FileError& error) {
    return !findsNothing(error) || known_.has_value();
  }
}

void DocumentFile::write(std::string_view bytes, bool asks) {
  if (bytes.size() > maximumSize) throw files::tooLarge(path_, maximumSize);
  const files::ContentDigest digest = files::digestOf(bytes);
  // The system's own time for files lags by some milliseconds. With an exact one a recovery that
  // was noted just before the save is seen to be older, and one noted meanwhile to be newer.
  const files::Replacement replacement = {.bytes = bytes,
                                          .asks = asks,
                                          .expected = known_,
                                          .isPrivate = false,
                                          .modified = Environment::system().now()};
  files::Replaced replaced = files::replace(
      asks && known_ ? followedAgain(absolute_, path_) : files::followed(absolute_, path_),
      replacement);
  known_ = digest;
  notKept_ = std::move(replaced.notKept);
  if (replaced.folderError != 0)
    throw FileError(path_,
                    "was saved, but a power cut may still undo that: the disk reports a fault",
                    {replaced.folderError, std::generic_category()});
}

void DocumentFile::save(const KorrinProject& project, const EncodingOptions& options) {
  write(bytesToSave(project, options), true);
}

void DocumentFile::saveAnyway(const KorrinProject& project, const EncodingOptions& options) {
  write(bytesToSave(project, options), false);
}

void DocumentFile::saveBytes(std::string_view bytes) { write(bytes, true); }

void DocumentFile::saveBytesAnyway(std::string_view bytes) { write(bytes, false); }

std::string readStream(std::istream& stream, const fs::path& name, std::size_t limit) {
  std::optional<std::string> bytes = files::readAll(
      [&](char* buffer, std::size_t room) {
        stream.read(buffer, static_cast<std::streamsize>(room));
        return static_cast<std::size_t>(stream.gcount());
      },
      0, limit);
  if (stream.bad()) throw files::cannotRead(name, EIO);
  if (!bytes) throw files::tooLarge(name, limit);
  return std::move(*bytes);
}

}  // namespace korrin
