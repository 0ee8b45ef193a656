#pragma once

// Unpacks the data of cross-reference streams and object streams: Flate, with the PNG predictors
// and the TIFF one for whole bytes. Output is bounded before it is made; damaged data gives what
// came before the damage.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>

#include "korrin/validation/pdf/pdf_budget.h"
#include "korrin/validation/pdf/scanner.h"

namespace korrin::pdf {

/// How the rows of one Flate stage were prepared; the defaults are the format's.
struct Predictor {
  std::size_t algorithm = 1;
  std::size_t colors = 1;
  std::size_t bitsPerComponent = 8;
  std::size_t columns = 1;
};

/// A source of bytes in pieces, so that encrypted data need not be held decrypted as a whole.
class ByteSource {
 public:
  /// No piece is longer, so that its size can be told to zlib.
  static constexpr std::size_t largestPiece = std::size_t{1} << 30;

  virtual ~ByteSource() = default;
  /// The next piece, valid until the next call; empty at the end.
  virtual std::span<const std::byte> next() = 0;
};

class PlainSource : public ByteSource {
 public:
  explicit PlainSource(std::span<const std::byte> bytes) : rest_(bytes) {}
  std::span<const std::byte> next() override {
    const auto piece = rest_.first(std::min(rest_.size(), largestPiece));
    rest_ = rest_.subspan(piece.size());
    return piece;
  }

 private:
  std::span<const std::byte> rest_;
};

/// Copies at most `wanted` bytes.
std::optional<Bytes> copy(ByteSource& source, std::size_t wanted, Budget& budget);

/// Unpacks at most `wanted` bytes. Nothing when a limit is met, which uses up the budget.
std::optional<Bytes> inflate(ByteSource& source, std::size_t wanted, Budget& budget);

/// Turns the rows in `bytes` back in place; the last one may be cut short. False for a predictor
/// that is unknown or whose rows are longer than any stream may be, and when a limit is met.
bool undoPredictor(Bytes& bytes, const Predictor& predictor, Budget& budget);

}  // namespace korrin::pdf
