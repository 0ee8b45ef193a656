// Opens any bytes as a plot, with any options, and saves what was opened. Exactly the outcome must
// come out that the parts of opening call for, and what is saved must open again as the same.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "korrin/foundation/precondition.h"
#include "korrin/foundation/same_bits.h"
#include "korrin/session/opening.h"
#include "korrin/validation/document_validation.h"

#include "fuzz/document_input.h"

namespace korrin::fuzz {
namespace {

constexpr std::size_t mostNamed = 100;

std::optional<DocumentVersions> versionsOf(std::string_view bytes) {
  try {
    return peekVersions(bytes);
  } catch (const DecodingError&) {
    return std::nullopt;
  }
}

bool isSafe(const KorrinProject& project) {
  try {
    DocumentValidation::validate(project);
    return true;
  } catch (const DocumentValidationError&) {
    return false;
  }
}

void checkNewer(const NewerDocument& newer, const DocumentInput& input) {
  precondition(versionsOf(input.text) == newer.versions, "a newer document has other versions");
  precondition(newer.versions.minimumReaderVersion > KorrinProject::currentSchemaVersion,
               "a document is called newer that is not");
}

void checkUnreadable(const UnreadableDocument& unreadable, const DocumentInput& input) {
  try {
    if (versionsOf(input.text)) {
      decodeJSON<KorrinProject>(input.text, input.decoding());
      precondition(false, "a document is called unreadable that can be read");
    } else {
      peekVersions(input.text);
    }
  } catch (const DecodingError& error) {
    precondition(unreadable.error.what() == std::string_view(error.what()),
                 "a document is refused for two reasons");
  }
}

void checkUnsafe(const UnsafeDocument& unsafe, const DocumentInput& input) {
  precondition(!isSafe(unsafe.project), "a document is called unsafe that is not");
  precondition(sameBits(unsafe.project, decodeJSON<KorrinProject>(input.text, input.decoding())),
               "what is unsafe is handed over as something else");
  try {
    bytesToSave(unsafe.project, input.options);
    precondition(false, "what is unsafe can be saved");
  } catch (const DocumentValidationError& error) {
    precondition(error.what() == std::string_view(unsafe.error.what()),
                 "a plot is unsafe for two reasons");
  }
}

const OpenedDocument& requireOpened(const OpenOutcome& outcome) {
  const auto* const opened = std::get_if<OpenedDocument>(&outcome);
  precondition(opened != nullptr, "what was opened does not open again");
  return *opened;
}

// A member more at the beginning of the document is the first that saving drops.
void checkFurtherKey(const OpenedDocument& opened, const DocumentInput& input) {
  std::string text(input.text);
  text.insert(text.find('{') + 1, "\"glow\":[{\"a\":[]}],");
  const OpenOutcome outcome = openDocument(text, input.decoding());
  const OpenedDocument& again = requireOpened(outcome);
  precondition(sameBits(again.project, opened.project), "an unknown key changes the plot");
  precondition(again.unknownKeys.count == opened.unknownKeys.count + 1, "a key is not counted");
  precondition(again.unknownKeys.paths.front() == "glow", "the first key is not named first");
}

void checkOpened(const OpenedDocument& opened, const DocumentInput& input) {
  precondition(isSafe(opened.project), "a document is opened that is not safe");
  const UnknownKeys& keys = opened.unknownKeys;
  precondition(keys.paths.size() == std::min(keys.count, mostNamed), "keys are named at random");
  checkFurtherKey(opened, input);

  const std::string saved = bytesToSave(opened.project, input.options);
  precondition(isPrettyPrinted(saved) == input.options.prettyPrinted, "a layout is mistaken");
  const OpenOutcome outcome = openDocument(saved, input.decoding());
  const OpenedDocument& again = requireOpened(outcome);
  KorrinProject expected = opened.project;
  expected.schemaVersion = std::min(expected.schemaVersion, KorrinProject::currentSchemaVersion);
  precondition(sameBits(again.project, expected), "saving changes the plot");
  precondition(again.unknownKeys.count == 0, "a key is saved that is not known");
  precondition(bytesToSave(again.project, input.options) == saved, "a plot is saved in two ways");
}

void check(const DocumentInput& input) {
  const OpenOutcome outcome = openDocument(input.text, input.decoding());
  if (const auto* const newer = std::get_if<NewerDocument>(&outcome)) checkNewer(*newer, input);
  if (const auto* const unreadable = std::get_if<UnreadableDocument>(&outcome))
    checkUnreadable(*unreadable, input);
  if (const auto* const unsafe = std::get_if<UnsafeDocument>(&outcome)) checkUnsafe(*unsafe, input);
  if (const auto* const opened = std::get_if<OpenedDocument>(&outcome)) checkOpened(*opened, input);
}

}  // namespace
}  // namespace korrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korrin::fuzz::check(korrin::fuzz::documentInput({reinterpret_cast<const char*>(data), size}));
  return 0;
}
