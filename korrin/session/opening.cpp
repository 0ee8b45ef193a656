#include "korrin/session/opening.h"

#include <utility>

#include "korrin/validation/document_validation.h"

namespace korrin {

ReadOutcome readWithoutValidating(std::string_view bytes, const DecodingOptions& options) {
  try {
    const DocumentVersions versions = peekVersions(bytes);
    if (versions.minimumReaderVersion > KorrinProject::currentSchemaVersion)
      return NewerDocument{versions};
    return decodeJSONWithUnknownKeys<KorrinProject>(bytes, options);
  } catch (const DecodingError& error) {
    return UnreadableDocument{error};
  }
}

OpenOutcome openDocument(std::string_view bytes, const DecodingOptions& options) {
  ReadOutcome read = readWithoutValidating(bytes, options);
  if (auto* const newer = std::get_if<NewerDocument>(&read)) return std::move(*newer);
  if (auto* const unreadable = std::get_if<UnreadableDocument>(&read))
    return std::move(*unreadable);
  auto& decoded = std::get<DecodedWithUnknownKeys<KorrinProject>>(read);
  try {
    DocumentValidation::validate(decoded.value);
  } catch (const DocumentValidationError& error) {
    return UnsafeDocument{.error = error, .project = std::move(decoded.value)};
  }
  return OpenedDocument{.project = std::move(decoded.value),
                        .unknownKeys = std::move(decoded.unknownKeys)};
}

bool isPrettyPrinted(std::string_view bytes) noexcept {
  const std::size_t lineBreak = bytes.find('\n');
  return lineBreak != std::string_view::npos &&
         bytes.find_first_not_of(" \t\r\n", lineBreak) != std::string_view::npos;
}

std::string bytesToSave(const KorrinProject& project, const EncodingOptions& options) {
  DocumentValidation::validate(project);
  if (project.schemaVersion <= KorrinProject::currentSchemaVersion)
    return encodeJSON(project, options);
  KorrinProject written = project;
  written.schemaVersion = KorrinProject::currentSchemaVersion;
  return encodeJSON(written, options);
}

}  // namespace korrin
