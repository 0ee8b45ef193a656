#pragma once

// The digest by which a plot names its embedded images.

#include <cstddef>
#include <span>
#include <string>

namespace korrin::host {

/// The SHA-256 digest of the bytes as 64 hexadecimal digits in lower case, the spelling of the
/// manifest.
std::string sha256(std::span<const std::byte> bytes);

}  // namespace korrin::host
