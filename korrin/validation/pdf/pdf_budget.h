#pragma once

// How much work one PDF may cause. A document is followed only as far as these limits reach;
// whoever runs into one marks the whole budget as used up, and from then on every scanner sees the
// end of its bytes and every look-up finds nothing, so that the reader winds down by itself.

#include <cstddef>
#include <limits>

namespace korrin::pdf {

namespace limits {
/// The header stands within this many bytes from the start, and startxref within as many from the
/// end.
inline constexpr std::size_t headerWindow = 1024;
/// Bytes that one stream may grow to, and all streams together, each filter of a chain and each
/// predictor counted.
inline constexpr std::size_t inflatedStream = std::size_t{8} << 20;
inline constexpr std::size_t inflatedInAll = std::size_t{64} << 20;
/// Bytes looked at, as a multiple of the input's size and a fixed part; looking twice counts twice.
inline constexpr std::size_t scannedPerInputByte = 8;
inline constexpr std::size_t scannedBase = std::size_t{1} << 20;
/// Tokens, which cost more time than the bytes between them: one for so many bytes of the input,
/// and a fixed part.
inline constexpr std::size_t inputBytesPerToken = 2;
inline constexpr std::size_t tokensBase = std::size_t{1} << 20;
/// Objects opened by number.
inline constexpr std::size_t lookUps = 4096;
/// Nodes of the page tree visited, and levels from its root to the first page.
inline constexpr std::size_t treeNodes = 10'000;
inline constexpr std::size_t treeDepth = 64;
/// Arrays and dictionaries inside one another.
inline constexpr std::size_t nesting = 64;
/// References that lead to one another before a value is found.
inline constexpr std::size_t referenceChain = 16;
/// Cross-reference tables and streams of one document.
inline constexpr std::size_t crossReferenceSections = 1024;
/// Bytes of cross-reference streams that are kept at the same time.
inline constexpr std::size_t crossReferenceBytes = std::size_t{16} << 20;
/// Filters that one stream may have been passed through.
inline constexpr std::size_t filters = 4;
/// Objects that the recovery of a damaged document remembers, and trailers that it tries.
inline constexpr std::size_t recoveredObjects = std::size_t{1} << 19;
inline constexpr std::size_t recoveredTrailers = 64;
}  // namespace limits

/// What is left of the limits above while one document is read.
class Budget {
 public:
  explicit constexpr Budget(std::size_t inputSize)
      : scan_(inputSize < unlimited / (2 * limits::scannedPerInputByte)
                  ? inputSize * limits::scannedPerInputByte + limits::scannedBase
                  : unlimited),
        tokens_(inputSize / limits::inputBytesPerToken + limits::tokensBase) {}

  constexpr bool isExhausted() const { return exhausted_; }
  constexpr void exhaust() { exhausted_ = true; }

  /// Each of these pays for something before it is done and says whether it may be.
  constexpr bool scan(std::size_t bytes) { return pay(scan_, bytes); }
  constexpr bool takeTokens(std::size_t count) { return pay(tokens_, count); }
  constexpr bool inflate(std::size_t bytes) { return pay(inflate_, bytes); }
  constexpr bool keepCrossReferences(std::size_t bytes) { return pay(kept_, bytes); }
  constexpr bool lookUp() { return pay(lookUps_, 1); }
  constexpr bool treeNode() { return pay(treeNodes_, 1); }
  constexpr bool crossReferenceSection() { return pay(sections_, 1); }

 private:
  static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

  constexpr bool pay(std::size_t& left, std::size_t amount) {
    if (amount > left) exhausted_ = true;
    if (exhausted_) return false;
    left -= amount;
    return true;
  }

  std::size_t scan_;
  std::size_t tokens_;
  std::size_t inflate_ = limits::inflatedInAll;
  std::size_t kept_ = limits::crossReferenceBytes;
  std::size_t lookUps_ = limits::lookUps;
  std::size_t treeNodes_ = limits::treeNodes;
  std::size_t sections_ = limits::crossReferenceSections;
  bool exhausted_ = false;
};

}  // namespace korrin::pdf
