#pragma once

// The only way in which the raster readers look at foreign bytes. A view is a window that shrinks
// from the front as it is read. A read or step past its end fails the view for good: from then on
// it is empty and every number read from it is zero. A reader therefore reads a whole header
// first and asks `ok()` once.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace korrin::raster {

/// The number that four characters of a container's tag make when read with the big end first.
consteval std::uint32_t tag(const char (&name)[5]) {
  std::uint32_t value = 0;
  for (int i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(name[i]);
  return value;
}

class ByteView {
 public:
  explicit ByteView(std::span<const std::byte> bytes, std::endian order = std::endian::big) noexcept
      : bytes_(bytes), order_(order) {}

  /// Whether everything read so far lay inside the view.
  bool ok() const noexcept { return ok_; }

  /// Number of bytes not read yet.
  std::uint64_t size() const noexcept { return bytes_.size(); }

  /// The bytes not read yet.
  std::span<const std::byte> bytes() const noexcept { return bytes_; }

  /// Whether the unread bytes begin with `prefix`. Reads nothing and never fails the view.
  bool startsWith(std::string_view prefix) const noexcept {
    const std::string_view text(reinterpret_cast<const char*>(bytes_.data()), bytes_.size());
    return text.starts_with(prefix);
  }

  std::uint32_t u8() noexcept { return static_cast<std::uint32_t>(number<1>()); }
  std::uint32_t u16() noexcept { return static_cast<std::uint32_t>(number<2>()); }
  std::uint32_t u24() noexcept { return static_cast<std::uint32_t>(number<3>()); }
  std::uint32_t u32() noexcept { return static_cast<std::uint32_t>(number<4>()); }
  std::uint64_t u64() noexcept { return number<8>(); }

  /// Steps over `count` bytes.
  void skip(std::uint64_t count) noexcept { take(count); }

  /// The next `count` bytes as a view of their own, which this one steps over. Where they are not
  /// all there, both views fail.
  ByteView take(std::uint64_t count) noexcept {
    ByteView part = *this;
    if (count > bytes_.size()) {
      fail();
      part.fail();
      return part;
    }
    const auto length = static_cast<std::size_t>(count);
    part.bytes_ = bytes_.first(length);
    bytes_ = bytes_.subspan(length);
    return part;
  }

 private:
  template <unsigned count>
  std::uint64_t number() noexcept {
    if (bytes_.size() < count) {
      fail();
      return 0;
    }
    if constexpr (count == 4) {
      // Compilers make one load of this, and four of the loop below.
      std::uint32_t word;
      std::memcpy(&word, bytes_.data(), sizeof word);
      bytes_ = bytes_.subspan(count);
      return order_ == std::endian::native ? word : __builtin_bswap32(word);
    } else {
      std::uint64_t value = 0;
      for (unsigned i = 0; i < count; ++i) {
        const unsigned place = order_ == std::endian::big ? count - 1 - i : i;
        value |= std::to_integer<std::uint64_t>(bytes_[i]) << (8 * place);
      }
      bytes_ = bytes_.subspan(count);
      return value;
    }
  }

  void fail() noexcept {
    ok_ = false;
    bytes_ = {};
  }

  std::span<const std::byte> bytes_;
  std::endian order_;
  bool ok_ = true;
};

}  // namespace korrin::raster
