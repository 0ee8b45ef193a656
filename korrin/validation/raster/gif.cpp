#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/readers.h"
#include "korrin/validation/raster/step_budget.h"

namespace korrin::raster {
namespace {

constexpr std::size_t signatureLength = 6;
constexpr std::uint32_t extension = 0x21;
constexpr std::uint32_t imageDescriptor = 0x2C;
constexpr std::uint32_t trailer = 0x3B;

void skipSubBlocks(ByteView& file, StepBudget& budget) noexcept {
  while (budget.spend()) {
    const std::uint32_t length = file.u8();
    if (length == 0) return;
    file.skip(length);
  }
}

// A file without a picture is no image, whatever its screen: at least one image descriptor must
// follow, and be complete. Bytes that begin no block are passed over one by one, as the readers in
// use do.
bool hasFrame(ByteView& file, StepBudget& budget) noexcept {
  while (budget.spend()) {
    const std::uint32_t block = file.u8();
    if (block == imageDescriptor) {
      file.skip(9);
      return file.ok();
    }
    if (block == trailer || !file.ok()) return false;
    if (block != extension) continue;
    file.skip(1);  // the extension's label
    skipSubBlocks(file, budget);
  }
  return false;
}

}  // namespace

bool isGif(Bytes bytes) noexcept {
  const ByteView file(bytes);
  return file.startsWith("GIF87a") || file.startsWith("GIF89a");
}

std::optional<PixelSize> gifSize(Bytes bytes) noexcept {
  ByteView file(bytes, std::endian::little);
  file.skip(signatureLength);
  const PixelSize screen{.width = file.u16(), .height = file.u16()};
  const std::uint32_t flags = file.u8();
  file.skip(2);  // background colour and pixel aspect
  const bool hasColourTable = (flags & 0x80) != 0;
  if (hasColourTable) file.skip(std::uint64_t{6} << (flags & 7));

  StepBudget budget;
  if (!hasFrame(file, budget)) return std::nullopt;
  return screen;
}

}  // namespace korrin::raster
