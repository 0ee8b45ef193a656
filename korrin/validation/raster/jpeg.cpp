#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/readers.h"
#include "korrin/validation/raster/step_budget.h"

namespace korrin::raster {
namespace {

constexpr std::uint32_t startOfImage = 0xD8;
constexpr std::uint32_t endOfImage = 0xD9;
constexpr std::uint32_t startOfScan = 0xDA;

// Of the sixteen codes from C0 on, three are no frames: Huffman tables, an extension, and
// arithmetic coding conditions.
bool isStartOfFrame(std::uint32_t marker) noexcept {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// Markers without a segment: the temporary one and the restart markers.
bool standsAlone(std::uint32_t marker) noexcept {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

// The next marker's code. Fill bytes, stuffed zeros and stray bytes before it are passed over, as
// the common decoders do: otherwise a size that a decoder will find could be missed here.
std::optional<std::uint32_t> nextMarker(ByteView& file, StepBudget& budget) noexcept {
  bool afterFF = false;
  while (budget.spend()) {
    const std::uint32_t byte = file.u8();
    if (!file.ok()) return std::nullopt;
    if (byte == 0xFF) {
      afterFF = true;
    } else if (afterFF && byte != 0) {
      return byte;
    } else {
      afterFF = false;
    }
  }
  return std::nullopt;
}

std::optional<PixelSize> frameSize(ByteView frame) noexcept {
  const std::uint32_t precision = frame.u8();
  const std::uint32_t height = frame.u16();
  const std::uint32_t width = frame.u16();
  const std::uint32_t components = frame.u8();
  if (!frame.ok() || precision < 2 || precision > 16) return std::nullopt;
  if (components == 0 || frame.size() != 3 * components) return std::nullopt;
  return PixelSize{.width = width, .height = height};
}

}  // namespace

bool isJpeg(Bytes file) noexcept { return ByteView(file).startsWith("\xFF\xD8\xFF"); }

std::optional<PixelSize> jpegSize(Bytes bytes) noexcept {
  ByteView file(bytes);
  file.skip(2);
  StepBudget budget;
  while (const auto marker = nextMarker(file, budget)) {
    if (standsAlone(*marker)) continue;
    if (*marker == startOfImage || *marker == endOfImage || *marker == startOfScan) break;
    const std::uint32_t length = file.u16();
    if (length < 2) break;
    const ByteView segment = file.take(length - 2);
    if (isStartOfFrame(*marker)) return frameSize(segment);
  }
  return std::nullopt;
}

}  // namespace korrin::raster
