#pragma once

// From bytes that claim to be a plot to a project, or to the sentence that says why not.

#include <array>
#include <string>
#include <string_view>

#include "korrin/coding/coding_options.h"
#include "korrin/coding/unknown_keys.h"
#include "korrin/foundation/enumeration.h"
#include "korrin/model/project.h"

#include "documents/document_file.h"
#include "terminal/failure.h"

namespace korrin::host {

/// Why a file did not become a project.
enum class RefusalReason {
  unreadable,         ///< No bytes: missing, forbidden, a directory, too large.
  notAPlot,           ///< Bytes that are not a plot document.
  invalid,            ///< A plot document that is not safe to open.
  needsNewerVersion,  ///< A plot document that only a newer version can read.
};

/// A file that is not opened. `what()` is the rest of a sentence that begins with the file's name.
class Refusal : public Failure {
 public:
  Refusal(RefusalReason reason, const std::string& sentence, std::string keyPath = {})
      : Failure(sentence, reason == RefusalReason::needsNewerVersion ? ExitCode::needsNewerVersion
                                                                     : ExitCode::unusable),
        reason_(reason),
        keyPath_(std::move(keyPath)) {}

  RefusalReason reason() const noexcept { return reason_; }
  /// The field of the document that was not understood; empty when none is to blame.
  const std::string& keyPath() const noexcept { return keyPath_; }

 private:
  RefusalReason reason_;
  std::string keyPath_;
};

/// The bytes of a file, or of standard input for "-". Throws Refusal, also when there are none.
Input readDocument(const std::string& path);

/// A plot that is going to be written: the project, and what writing it drops.
using Plot = DecodedWithUnknownKeys<KorrinProject>;

/// The plot that the bytes hold, not yet validated. The versions are looked at before anything
/// else, so that a newer document is not taken for a broken one. Throws Refusal.
Plot readPlot(std::string_view bytes, DateStrategy dates);

/// The project alone.
KorrinProject decodeDocument(std::string_view bytes, DateStrategy dates);

/// What writing a plot drops, such as "writing drops keys that the format does not know: futureKey,
/// items[].opacity (12 times) and 3 more"; empty when that is nothing.
std::string droppedKeysSentence(const UnknownKeys& keys);

/// Throws Refusal when the project is not safe to open.
void requireValid(const KorrinProject& project);

/// Throws Refusal when writing to `path` would replace a document that needs a newer version, or a
/// file that cannot be looked at.
void requireReplaceable(const std::string& path);

/// Makes `bytes` the whole content of `path`, and says what of the old file could not be kept. When
/// that is the file that `input` was read from, whatever it is called here, it must still hold what
/// was read; another must not hold a document that needs a newer version. Throws Refusal or
/// FileError.
void writeDocument(const std::string& path, std::string_view bytes, const Input& input,
                   Console& console);

}  // namespace korrin::host

namespace korrin {

template <>
struct CaseTable<host::RefusalReason> {
  static constexpr std::array cases = {
      Case{host::RefusalReason::unreadable, "unreadable"},
      Case{host::RefusalReason::notAPlot, "notAPlot"},
      Case{host::RefusalReason::invalid, "invalid"},
      Case{host::RefusalReason::needsNewerVersion, "needsNewerVersion"},
  };
};

}  // namespace korrin
