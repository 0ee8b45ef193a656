#include "korrin/validation/pdf/stream_decoder.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include <zlib.h>

namespace korrin::pdf {
namespace {

// Ends the inflation on every path.
class Inflation {
 public:
  Inflation() {
    if (inflateInit(&stream) != Z_OK) throw std::bad_alloc();
  }
  ~Inflation() { inflateEnd(&stream); }
  Inflation(const Inflation&) = delete;
  Inflation& operator=(const Inflation&) = delete;

  z_stream stream{};
};

constexpr std::size_t firstOutput = 4096;

std::uint8_t at(const Bytes& bytes, std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); }

unsigned paeth(int left, int up, int upLeft) {
  // The distances of left + up - upLeft from each of the three.
  const int toLeft = std::abs(up - upLeft);
  const int toUp = std::abs(left - upLeft);
  const int toUpLeft = std::abs(left + up - 2 * upLeft);
  const int best = toUp <= toUpLeft ? up : upLeft;
  return static_cast<unsigned>(toLeft <= std::min(toUp, toUpLeft) ? left : best);
}

// One row of `count` bytes from `in` to `out`, which is never behind it; `above` is the row before
// or all zeros.
void undoPngRow(unsigned filter, const std::uint8_t* in, const std::uint8_t* above,
                std::uint8_t* out, std::size_t count, std::size_t pixelSize) {
  const std::size_t head = std::min(count, pixelSize);
  switch (filter) {
    case 1:
      std::memmove(out, in, head);
      for (std::size_t i = head; i < count; ++i)
        out[i] = static_cast<std::uint8_t>(in[i] + out[i - pixelSize]);
      return;
    case 2:
      for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<std::uint8_t>(in[i] + above[i]);
      return;
    case 3:
      for (std::size_t i = 0; i < head; ++i)
        out[i] = static_cast<std::uint8_t>(in[i] + above[i] / 2);
      for (std::size_t i = head; i < count; ++i)
        out[i] = static_cast<std::uint8_t>(in[i] + (out[i - pixelSize] + above[i]) / 2);
      return;
    case 4:
      for (std::size_t i = 0; i < head; ++i) out[i] = static_cast<std::uint8_t>(in[i] + above[i]);
      for (std::size_t i = head; i < count; ++i)
        out[i] = static_cast<std::uint8_t>(
            in[i] + paeth(out[i - pixelSize], above[i], above[i - pixelSize]));
      return;
    default:
      std::memmove(out, in, count);
  }
}

// Rows lose the byte that names their filter and so move towards the front; the row above already
// stands where it belongs.
void undoPngRows(Bytes& bytes, std::size_t rowSize, std::size_t pixelSize) {
  auto* const data = reinterpret_cast<std::uint8_t*>(bytes.data());
  const std::vector<std::uint8_t> zeros(std::min(rowSize, bytes.size()));
  const std::uint8_t* above = zeros.data();
  std::size_t in = 0;
  std::size_t out = 0;
  while (in + 1 < bytes.size()) {
    const unsigned filter = data[in++];
    const std::size_t count = std::min(rowSize, bytes.size() - in);
    undoPngRow(filter, data + in, above, data + out, count, pixelSize);
    above = data + out;
    in += count;
    out += count;
  }
  bytes.resize(out);
}

void undoTiffRows(Bytes& bytes, std::size_t rowSize, std::size_t pixelSize) {
  for (std::size_t row = 0; row < bytes.size(); row += rowSize) {
    const std::size_t end = std::min(row + rowSize, bytes.size());
    for (std::size_t i = row + pixelSize; i < end; ++i)
      bytes[i] = static_cast<std::byte>((at(bytes, i) + at(bytes, i - pixelSize)) & 0xFF);
  }
}

}  // namespace

std::optional<Bytes> copy(ByteSource& source, std::size_t wanted, Budget& budget) {
  Bytes output;
  for (auto piece = source.next(); !piece.empty() && output.size() < wanted;
       piece = source.next()) {
    piece = piece.first(std::min(piece.size(), wanted - output.size()));
    if (piece.size() > limits::inflatedStream - output.size()) budget.exhaust();
    if (!budget.inflate(piece.size())) return std::nullopt;
    output.insert(output.end(), piece.begin(), piece.end());
  }
  return output;
}

std::optional<Bytes> inflate(ByteSource& source, std::size_t wanted, Budget& budget) {
  Inflation inflation;
  z_stream& stream = inflation.stream;
  // One byte more than allowed tells a stream that ends at the limit from one that goes on.
  const std::size_t capacity = std::min(wanted, limits::inflatedStream + 1);
  Bytes output;
  std::size_t size = 0;
  int status = Z_OK;
  while (status == Z_OK && size < capacity) {
    if (stream.avail_in == 0) {
      const std::span<const std::byte> input = source.next();
      if (input.empty()) break;
      stream.next_in = reinterpret_cast<Bytef*>(const_cast<std::byte*>(input.data()));
      stream.avail_in = static_cast<uInt>(input.size());
    }
    if (size == output.size())
      output.resize(std::min(capacity, std::max(firstOutput, output.size() * 2)));
    stream.next_out = reinterpret_cast<Bytef*>(output.data() + size);
    stream.avail_out = static_cast<uInt>(output.size() - size);
    status = ::inflate(&stream, Z_NO_FLUSH);
    // No verdict about the file follows from a lack of memory.
    if (status == Z_MEM_ERROR) throw std::bad_alloc();
    const std::size_t made = output.size() - size - stream.avail_out;
    if (!budget.inflate(made)) return std::nullopt;
    size += made;
  }
  if (size > limits::inflatedStream) {
    budget.exhaust();
    return std::nullopt;
  }
  output.resize(size);
  return output;
}

bool undoPredictor(Bytes& bytes, const Predictor& predictor) {
  if (predictor.algorithm <= 1) return true;
  const auto [algorithm, colors, bits, columns] = predictor;
  constexpr std::size_t largest = limits::inflatedStream;
  if (colors < 1 || colors > 32 || bits < 1 || bits > 16 || columns < 1 || columns > largest)
    return false;
  const std::size_t pixelSize = (colors * bits + 7) / 8;
  const std::size_t rowSize = (colors * bits * columns + 7) / 8;
  if (rowSize > largest) return false;
  if (algorithm == 2 && bits == 8) {
    undoTiffRows(bytes, rowSize, pixelSize);
    return true;
  }
  if (algorithm < 10 || algorithm > 15) return false;
  undoPngRows(bytes, rowSize, pixelSize);
  return true;
}

}  // namespace korrin::pdf
