#include "documents/plot_document.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"
#include "korrin/session/opening.h"
#include "korrin/validation/document_validation.h"

#include "terminal/display_text.h"

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

Refusal notAPlot(const DecodingError& error, const std::string& hint) {
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

/// A key's path for all elements of its lists: "items[].glow" for "items[3].glow".
std::string withoutNumbers(std::string_view path) {
  std::string text;
  bool isQuoted = false;
  bool isEscaped = false;
  for (const char c : path) {
    if (c == '"' && !isEscaped) isQuoted = !isQuoted;
    isEscaped = c == '\\' && !isEscaped;
    if (!isQuoted && c == ']') text.erase(text.find_last_not_of("0123456789") + 1);
    text += c;
  }
  return text;
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

Plot readPlot(std::string_view bytes, DateStrategy dates) {
  ReadOutcome outcome =
      readWithoutValidating(bytes, {.dates = dates, .nonFinite = NonFinite::fail});
  if (const auto* const newer = std::get_if<NewerDocument>(&outcome))
    requireReadableVersion(newer->versions);
  if (const auto* const unreadable = std::get_if<UnreadableDocument>(&outcome))
    throw notAPlot(unreadable->error, dateHint(bytes, dates));
  return std::get<Plot>(std::move(outcome));
}

KorrinProject decodeDocument(std::string_view bytes, DateStrategy dates) {
  return readPlot(bytes, dates).value;
}

std::string droppedKeysSentence(const UnknownKeys& keys) {
  constexpr std::size_t mostNamed = 5;
  constexpr std::size_t longestName = 80;
  if (keys.count == 0) return "";
  std::vector<std::pair<std::string, std::size_t>> named;  // with how often each stands
  std::size_t unnamed = keys.count;
  for (const std::string& path : keys.paths) {
    const std::string name = withoutNumbers(path);
    auto known = std::ranges::find(named, name, &std::pair<std::string, std::size_t>::first);
    if (known == named.end()) {
      if (named.size() == mostNamed) continue;
      known = named.insert(named.end(), {name, 0});
    }
    ++known->second;
    --unnamed;
  }
  std::string sentence = "writing drops keys that the format does not know";
  for (const auto& [name, times] : named) {
    sentence +=
        (&name == &named.front().first ? ": " : ", ") + shortened(printable(name), longestName);
    if (times > 1) sentence += " (" + std::to_string(times) + " times)";
  }
  if (unnamed > 0) sentence += " and " + std::to_string(unnamed) + " more";
  return sentence;
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
  const bool isInPlace = input.file && identityOf(input.file->path().string()) == identityOf(path);
  DocumentFile file = isInPlace ? *input.file : openedToReplace(path);
  save(file, bytes, Replacing::whatWasOpened, console);
}

}  // namespace korrin::host
