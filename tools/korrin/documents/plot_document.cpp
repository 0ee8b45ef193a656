#include "documents/plot_document.h"

#include <optional>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"
#include "korrin/validation/document_validation.h"

namespace korrin::host {
namespace {

void requireReadableVersion(const DocumentVersions& versions) {
  if (versions.minimumReaderVersion <= KorrinProject::currentSchemaVersion) return;
  throw Refusal(RefusalReason::needsNewerVersion,
                "needs a newer version of korrin: the document is in format version " +
                    std::to_string(versions.schemaVersion) + " and demands a reader of version " +
                    std::to_string(versions.minimumReaderVersion) +
                    "; this program reads up to version " +
                    std::to_string(KorrinProject::currentSchemaVersion));
}

bool decodesWith(DateStrategy dates, std::string_view bytes) {
  try {
    decodeJSON<KorrinProject>(bytes, {.dates = dates, .nonFinite = NonFinite::fail});
    return true;
  } catch (const DecodingError&) {
    return false;
  }
}

/// What to say when the document would be fine but for the way its dates are written.
std::string dateHint(std::string_view bytes, DateStrategy dates) {
  if (dates == DateStrategy::iso8601)
    return decodesWith(DateStrategy::secondsSince1970, bytes)
               ? " (its dates are numbers: say what they count with --dates)"
               : "";
  return decodesWith(DateStrategy::iso8601, bytes) ? " (its dates are texts: use --dates iso8601)"
                                                   : "";
}

Refusal notAPlot(const DecodingError& error, const std::string& hint = {}) {
  return Refusal(RefusalReason::notAPlot, std::string("is not a plot: ") + error.what() + hint,
                 error.keyPath());
}

/// The file, opened if it is there.
DocumentFile openedToReplace(const std::string& path) {
  DocumentFile file(path);
  std::optional<std::string> bytes;
  try {
    bytes = openIfPresent(file);
  } catch (const FileError& error) {
    throw Refusal(RefusalReason::unreadable, std::string("is not replaced, as it ") + error.what());
  }
  if (!bytes) return file;
  DocumentVersions versions{};
  try {
    versions = peekVersions(*bytes);
  } catch (const DecodingError&) {
    return file;  // not a plot of any version: what becomes of it is the caller's wish
  }
  requireReadableVersion(versions);
  return file;
}

}  // namespace

Input readDocument(const std::string& path) {
  Input input;
  try {
    input = readInput(path);
  } catch (const FileError& error) {
    throw Refusal(RefusalReason::unreadable, error.what());
  }
  if (input.bytes.empty()) throw Refusal(RefusalReason::notAPlot, "is not a plot: it is empty");
  return input;
}

bool isIndented(std::string_view document) {
  const std::size_t lineBreak = document.find('\n');
  return lineBreak != std::string_view::npos &&
         document.find_first_not_of(" \t\r\n", lineBreak) != std::string_view::npos;
}

KorrinProject decodeDocument(std::string_view bytes, DateStrategy dates) {
  try {
    requireReadableVersion(peekVersions(bytes));
  } catch (const DecodingError& error) {
    throw notAPlot(error);
  }
  try {
    return decodeJSON<KorrinProject>(bytes, {.dates = dates, .nonFinite = NonFinite::fail});
  } catch (const DecodingError& error) {
    throw notAPlot(error, dateHint(bytes, dates));
  }
}

void requireValid(const KorrinProject& project) {
  try {
    DocumentValidation::validate(project);
  } catch (const DocumentValidationError& error) {
    throw Refusal(RefusalReason::invalid, std::string("is not valid: ") + error.what());
  }
}

void requireReplaceable(const std::string& path) { openedToReplace(path); }

void writeDocument(const std::string& path, std::string_view bytes, const Input& input,
                   Console& console) {
  const bool isInPlace = input.file && input.file->path() == path;
  DocumentFile file = isInPlace ? *input.file : openedToReplace(path);
  save(file, bytes, Replacing::whatWasOpened, console);
}

}  // namespace korrin::host
