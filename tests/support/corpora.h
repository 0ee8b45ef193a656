#pragma once

// Third-party files with known outcomes. They lie beside the repository, not in it, and may be
// absent, all together; a test that needs them is then skipped.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/byte_writer.h"

namespace korrin::test {

/// One line of a folder's table of expected outcomes.
struct ExpectedOutcome {
  std::string file;  ///< Relative to the folder.
  std::string mediaType;
  std::string outcome;
  bool isFirm;  ///< Independent tools agree; otherwise the outcome is only the most defensible.
};

/// The folder of that name in the corpora; nothing when there are no corpora. Throws
/// std::runtime_error when there are some without it, so that a test whose folder is missing fails.
std::optional<std::filesystem::path> corpusFolder(const std::string& name);

/// The lines of the folder's `expected.tsv`; none when it is absent.
std::vector<ExpectedOutcome> expectedOutcomes(const std::filesystem::path& folder);

/// The whole file. Throws std::runtime_error when it cannot be read.
Bytes readFile(const std::filesystem::path& path);

}  // namespace korrin::test
