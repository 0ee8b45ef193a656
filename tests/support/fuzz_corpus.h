#pragma once

// What fuzzing found to be worth keeping, given again to the target that found it. The test
// program is linked with that target's source.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace korrin::test {

/// Replays the committed inputs of a target, which ends the program when it finds a fault, and
/// returns their number.
inline std::size_t replayFuzzCorpus(const std::string& target) {
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(
           std::filesystem::path(KORRIN_SOURCE_DIR) / "fuzz" / "corpus" / target)) {
    const std::string content = contentOf(entry.path());
    // On the heap and no longer, so that a read beyond the end is noticed.
    const std::vector<std::uint8_t> bytes(content.begin(), content.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    ++count;
  }
  return count;
}

}  // namespace korrin::test
