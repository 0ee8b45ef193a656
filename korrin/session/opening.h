#pragma once

// From bytes that claim to be a plot to a plot that is safe to edit, or to what to tell the user
// instead; and back to bytes. No file is touched here.

#include <string>
#include <string_view>
#include <variant>

#include "korrin/coding/coding_error.h"
#include "korrin/coding/coding_options.h"
#include "korrin/coding/unknown_keys.h"
#include "korrin/model/document_coding.h"
#include "korrin/model/project.h"
#include "korrin/validation/document_validation_error.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A plot that was read whole and is safe to edit.
struct OpenedDocument {
  KorrinProject project;    ///< What the document holds.
  UnknownKeys unknownKeys;  ///< What saving the project drops. Tell the user before the first save.
};

/// A plot for a newer version of the format. Nothing else of it was looked at.
struct NewerDocument {
  DocumentVersions versions;  ///< `minimumReaderVersion` is above what this library reads.
};

/// Bytes that are no plot.
struct UnreadableDocument {
  DecodingError error;  ///< Where and why, in one sentence.
};

/// A plot that was read whole but breaks a rule that editing relies on.
struct UnsafeDocument {
  DocumentValidationError error;  ///< The rule.
  KorrinProject project;          ///< To look at and to mend, not to edit as it is.
};

/// What became of an attempt to open: one of four, never half a document.
using OpenOutcome = std::variant<OpenedDocument, NewerDocument, UnreadableDocument, UnsafeDocument>;

/// What became of an attempt to read a plot that need not be safe: the first of three where it was
/// read whole.
using ReadOutcome =
    std::variant<DecodedWithUnknownKeys<KorrinProject>, NewerDocument, UnreadableDocument>;

/// As `openDocument`, but without the validation at its end: for tools that show or mend what no
/// editor opens. Throws nothing but `std::bad_alloc`.
ReadOutcome readWithoutValidating(std::string_view bytes, const DecodingOptions& options = {});

/// Opens the plot that `bytes` hold. Looks at the two versions first, as a newer document may hold
/// words that this version could only call mistakes; then decodes, then validates. `bytes` are not
/// kept. Throws nothing but `std::bad_alloc`.
OpenOutcome openDocument(std::string_view bytes, const DecodingOptions& options = {});

/// The layout of saved plots: one member a line, indented, so that a person or a version control
/// system can compare two of them.
inline constexpr EncodingOptions prettyPrinted = {.prettyPrinted = true};

/// Whether a document is laid out on several lines, for a host that saves as it found: any line
/// break with something behind it counts. One at the end does not.
bool isPrettyPrinted(std::string_view bytes) noexcept;

/// The bytes of a document that `openDocument` opens again. Validates first, then encodes. A
/// `schemaVersion` above the current one is written as the current one, which is what the bytes
/// are; `minimumReaderVersion` is written as it is. Throws `DocumentValidationError` when the
/// project is not safe to edit, `EncodingError` when it holds a number that JSON cannot hold.
std::string bytesToSave(const KorrinProject& project,
                        const EncodingOptions& options = prettyPrinted);

}  // namespace korrin

#pragma GCC visibility pop
