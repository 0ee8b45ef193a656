// How long the check on a raster image takes, next to libraries that read the same header: libspng
// for PNG, TurboJPEG for JPEG. The images are written by those libraries and so look as usual.

#include <cstdlib>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>
#include <spng.h>
#include <turbojpeg.h>

#include "korrin/validation/raster_asset_safety.h"

namespace {

constexpr int width = 640;
constexpr int height = 480;
constexpr std::int64_t pixels = std::int64_t{width} * height;

using Bytes = std::vector<std::byte>;

void require(bool holds) {
  if (!holds) std::abort();
}

Bytes copyOf(const void* data, std::size_t size) {
  const auto* first = static_cast<const std::byte*>(data);
  return Bytes(first, first + size);
}

Bytes encodedPng() {
  const std::vector<unsigned char> image(3 * pixels);
  const std::unique_ptr<spng_ctx, void (*)(spng_ctx*)> context(spng_ctx_new(SPNG_CTX_ENCODER),
                                                               spng_ctx_free);
  require(spng_set_option(context.get(), SPNG_ENCODE_TO_BUFFER, 1) == 0);
  spng_ihdr header{};
  header.width = width;
  header.height = height;
  header.bit_depth = 8;
  header.color_type = SPNG_COLOR_TYPE_TRUECOLOR;
  require(spng_set_ihdr(context.get(), &header) == 0);
  require(spng_encode_image(context.get(), image.data(), image.size(), SPNG_FMT_PNG,
                            SPNG_ENCODE_FINALIZE) == 0);
  std::size_t size = 0;
  int error = 0;
  const std::unique_ptr<void, void (*)(void*)> data(
      spng_get_png_buffer(context.get(), &size, &error), std::free);
  require(data != nullptr && error == 0);
  return copyOf(data.get(), size);
}

Bytes encodedJpeg() {
  const std::vector<unsigned char> image(3 * pixels);
  const std::unique_ptr<void, int (*)(void*)> handle(tjInitCompress(), tjDestroy);
  unsigned char* data = nullptr;
  unsigned long size = 0;
  require(tjCompress2(handle.get(), image.data(), width, 0, height, TJPF_RGB, &data, &size,
                      TJSAMP_420, 85, 0) == 0);
  const Bytes bytes = copyOf(data, size);
  tjFree(data);
  return bytes;
}

void check(benchmark::State& state, const Bytes& bytes) {
  for (auto _ : state) {
    const std::int64_t count = korrin::RasterAssetSafety::validate(bytes);
    require(count == pixels);
  }
}

void pngOurs(benchmark::State& state) { check(state, encodedPng()); }

void pngLibspng(benchmark::State& state) {
  const Bytes bytes = encodedPng();
  for (auto _ : state) {
    // A context reads one image only, so that making one is part of reading a header.
    spng_ctx* context = spng_ctx_new(0);
    spng_ihdr header{};
    require(spng_set_png_buffer(context, bytes.data(), bytes.size()) == 0);
    require(spng_get_ihdr(context, &header) == 0);
    require(std::int64_t{header.width} * header.height == pixels);
    spng_ctx_free(context);
  }
}

void jpegOurs(benchmark::State& state) { check(state, encodedJpeg()); }

void jpegTurboJpeg(benchmark::State& state) {
  const Bytes bytes = encodedJpeg();
  // One handle reads many images: making it is left out of the time.
  const std::unique_ptr<void, int (*)(void*)> handle(tjInitDecompress(), tjDestroy);
  for (auto _ : state) {
    int foundWidth = 0;
    int foundHeight = 0;
    int subsampling = 0;
    int colourSpace = 0;
    require(tjDecompressHeader3(handle.get(), reinterpret_cast<const unsigned char*>(bytes.data()),
                                bytes.size(), &foundWidth, &foundHeight, &subsampling,
                                &colourSpace) == 0);
    require(std::int64_t{foundWidth} * foundHeight == pixels);
  }
}

BENCHMARK(pngOurs)->Name("raster/png/korrin");
BENCHMARK(pngLibspng)->Name("raster/png/libspng");
BENCHMARK(jpegOurs)->Name("raster/jpeg/korrin");
BENCHMARK(jpegTurboJpeg)->Name("raster/jpeg/turbojpeg");

}  // namespace

BENCHMARK_MAIN();
