#pragma once

// Writes numbers and texts one after the other, for files that tests put together.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::test {

using Bytes = std::vector<std::byte>;

class ByteWriter {
 public:
  explicit ByteWriter(std::endian order = std::endian::big) : order_(order) {}

  ByteWriter& u8(std::uint64_t value) { return number(value, 1); }
  ByteWriter& u16(std::uint64_t value) { return number(value, 2); }
  ByteWriter& u24(std::uint64_t value) { return number(value, 3); }
  ByteWriter& u32(std::uint64_t value) { return number(value, 4); }
  ByteWriter& u64(std::uint64_t value) { return number(value, 8); }

  ByteWriter& text(std::string_view characters) {
    for (const char c : characters) bytes_.push_back(static_cast<std::byte>(c));
    return *this;
  }
  ByteWriter& bytes(const Bytes& more) {
    bytes_.insert(bytes_.end(), more.begin(), more.end());
    return *this;
  }
  ByteWriter& repeat(std::uint8_t value, std::size_t count) {
    bytes_.insert(bytes_.end(), count, static_cast<std::byte>(value));
    return *this;
  }

  const Bytes& done() const { return bytes_; }

 private:
  ByteWriter& number(std::uint64_t value, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      const unsigned place = order_ == std::endian::big ? count - 1 - i : i;
      bytes_.push_back(static_cast<std::byte>(value >> (8 * place)));
    }
    return *this;
  }

  std::endian order_;
  Bytes bytes_;
};

inline Bytes bytesOf(std::string_view text) { return ByteWriter().text(text).done(); }

inline std::string textOf(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace korrin::test
