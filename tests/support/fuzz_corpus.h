#pragma once

// What fuzzing found to be worth keeping, given again to the target that found it. The test
// program is linked with that target's source.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace korrin::test {

/// An input of a fuzz target, with its name in the archive.
struct FuzzInput {
  std::string name;
  std::vector<std::uint8_t>
      bytes;  ///< Without spare room, so that reading beyond the end is noticed.
};

/// The inputs committed for a target, from `fuzz/corpus/TARGET.tar.gz`. Throws std::runtime_error
/// when the archive is missing or damaged.
std::vector<FuzzInput> fuzzInputs(const std::string& target);

/// Replays the committed inputs of a target, which ends the program when it finds a fault, and
/// returns their number.
inline std::size_t replayFuzzCorpus(const std::string& target) {
  const std::vector<FuzzInput> inputs = fuzzInputs(target);
  for (const FuzzInput& input : inputs)
    LLVMFuzzerTestOneInput(input.bytes.data(), input.bytes.size());
  return inputs.size();
}

}  // namespace korrin::test
