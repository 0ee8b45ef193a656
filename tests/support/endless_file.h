#pragma once

#include <cstddef>
#include <span>

#include "tests/support/byte_writer.h"

namespace korrin::test {

/// A file of 16 GiB, or of 1 GiB where addresses have 32 bits, of which only the first MiB may be
/// looked at: reading a byte after that ends the program. What a reader makes of such a file does
/// not depend on the file's length.
class EndlessFile {
 public:
  /// `beginning`, followed by `part` over and over. Throws std::system_error when there is no such
  /// range of addresses to be had.
  EndlessFile(const Bytes& beginning, const Bytes& part);
  ~EndlessFile();
  EndlessFile(const EndlessFile&) = delete;
  EndlessFile& operator=(const EndlessFile&) = delete;

  std::span<const std::byte> bytes() const { return bytes_; }

 private:
  std::span<std::byte> bytes_;
};

}  // namespace korrin::test
