#include "korrin/session/opening.h"

#include <utility>

#include "korrin/validation/document_validation.h"

namespace korrin {

OpenOutcome openDocument(std::string_view bytes, const DecodingOptions& options) {
  try {
    const DocumentVersions versions = peekVersions(bytes);
    if (versions.minimumReaderVersion > KorrinProject::currentSchemaVersion)
      return NewerDocument{versions};
    auto decoded = decodeJSONWithUnknownKeys<KorrinProject>(bytes, options);
    try {
      DocumentValidation::validate(decoded.value);
    } catch (const DocumentValidationError& error) {
      return UnsafeDocument{.error = error, .project = std::move(decoded.value)};
    }
    return OpenedDocument{.project = std::move(decoded.value),
                          .unknownKeys = std::move(decoded.unknownKeys)};
  } catch (const DecodingError& error) {
    return UnreadableDocument{error};
  }
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
