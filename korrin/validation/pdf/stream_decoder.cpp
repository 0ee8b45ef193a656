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
// A symbol takes two bits at least and yields at most 258 bytes.
constexpr std::size_t mostExpansion = 4 * 258;

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
    if (!budget.payFor(piece.size(), price::unpackedByte)) return std::nullopt;
    output.insert(output.end(), piece.begin(), piece.end());
  }
  return output;
}

std::optional<Bytes> inflate(ByteSource& source, std::size_t wanted, Budget& budget) {
  if (!budget.payFor(1, price::stream)) return std::nullopt;
  Inflation inflation;
  z_stream& stream = inflation.stream;
  const std::size_t capacity = std::min(wanted, limits::inflatedStream);
  Bytes output;
  std::size_t size = 0;
  // Takes one byte more than allowed, which tells a stream that ends at the limit from one that
  // goes on.
  std::byte excess{};
  int status = Z_OK;
  while (status == Z_OK && size < wanted) {
    if (stream.avail_in == 0) {
      const std::span<const std::byte> input = source.next();
      if (input.empty()) break;
      stream.next_in = reinterpret_cast<Bytef*>(const_cast<std::byte*>(input.data()));
      stream.avail_in = static_cast<uInt>(input.size());
      // Memory that is not written costs nothing, and output that never moves is never held twice.
      if (output.capacity() == 0)
        output.reserve(input.size() < capacity / mostExpansion ? input.size() * mostExpansion
                                                               : capacity);
    }
    if (size == output.size() && size < capacity)
      output.resize(std::min(capacity, std::max(firstOutput, output.size() * 2)));
    const std::span<std::byte> space =
        size < capacity ? std::span(output).subspan(size) : std::span(&excess, 1);
    stream.next_out = reinterpret_cast<Bytef*>(space.data());
    stream.avail_out = static_cast<uInt>(space.size());
    const std::size_t before = stream.avail_in;
    // Stops at the end of each block: blocks cost time even when nothing comes out of them.
    status = ::inflate(&stream, Z_BLOCK);
    // No verdict about the file follows from a lack of memory.
    if (status == Z_MEM_ERROR) throw std::bad_alloc();
    const std::size_t made = space.size() - stream.avail_out;
    if (size + made > limits::inflatedStream) budget.exhaust();
    if (!budget.payForUnpacking(before - stream.avail_in, made)) return std::nullopt;
    size += made;
  }
  output.resize(size);
  return output;
}

bool undoPredictor(Bytes& bytes, const Predictor& predictor, Budget& budget) {
  if (predictor.algorithm <= 1) return true;
  const auto [algorithm, colors, bits, columns] = predictor;
  constexpr std::size_t largest = limits::inflatedStream;
  if (colors < 1 || colors > 32 || bits < 1 || bits > 16 || columns < 1 || columns > largest)
    return false;
  const std::size_t pixelSize = (colors * bits + 7) / 8;
  const std::uint64_t bitsOfARow = std::uint64_t{colors} * bits * columns;
  if (bitsOfARow > largest * std::uint64_t{8}) return false;
  const auto rowSize = static_cast<std::size_t>((bitsOfARow + 7) / 8);
  if (!budget.payFor(bytes.size(), price::predictedByte) ||
      !budget.payFor(bytes.size() / rowSize + 1, price::predictedRow))
    return false;
  if (algorithm == 2 && bits == 8) {
    undoTiffRows(bytes, rowSize, pixelSize);
    return true;
  }
  if (algorithm < 10 || algorithm > 15) return false;
  undoPngRows(bytes, rowSize, pixelSize);
  return true;
}

}  // namespace korrin::pdf
