#pragma once

// The unpacked data of one stream: where it begins and ends in the file, and its filters undone.

#include <cstddef>
#include <cstdint>
#include <optional>

#include "korrin/validation/pdf/encryption.h"
#include "korrin/validation/pdf/scanner.h"
#include "korrin/validation/pdf/value.h"

namespace korrin::pdf {

class Objects;

/// What a stream's dictionary says about its data.
struct StreamEntries {
  Value length;
  Value filter;
  Value parameters;
};

/// With what a stream is decrypted; `decryption` is null for one that is not encrypted.
struct StreamKey {
  const Decryption* decryption = nullptr;
  std::uint32_t number = 0;
  std::uint64_t generation = 0;
};

/// Reads the stream whose dictionary has just been passed by `scanner`, and gives at most its first
/// `wanted` bytes. Nothing when there is no stream, when a filter is not one that is undone here,
/// and when a limit is met.
std::optional<Bytes> readStreamData(Objects& objects, Scanner scanner, const StreamEntries& entries,
                                    const StreamKey& key, std::size_t wanted);

}  // namespace korrin::pdf
