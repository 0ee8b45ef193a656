#pragma once

// How much work one PDF may cause, and how much memory it may take. A document is followed only as
// far as these limits reach; whoever runs into one marks the whole budget as used up, and from then
// on every scanner sees the end of its bytes and every look-up finds nothing, so that the reader
// winds down by itself.
//
// All time comes out of one purse. It holds steps, of which one takes about a nanosecond, and
// whatever the file can make longer has its price in them: bytes passed, tokens, look-ups,
// unpacking, decrypting, sorting. So the most expensive mixture takes no longer than any other.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace korrin::pdf {

namespace limits {
/// The header stands within this many bytes from the start, and startxref within as many from the
/// end.
inline constexpr std::size_t headerWindow = 1024;
/// Steps of work: so many for each byte of the input, and a fixed part.
inline constexpr std::size_t stepsPerInputByte = 5;
inline constexpr std::size_t stepsBase = std::size_t{64} << 20;
/// Bytes that one stream may grow to at each of its filters.
inline constexpr std::size_t inflatedStream = std::size_t{8} << 20;
/// Object streams that stay unpacked beside the one in use, and their bytes.
inline constexpr std::size_t keptContainers = 64;
inline constexpr std::size_t keptContainerBytes = std::size_t{2} << 20;
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
inline constexpr std::size_t crossReferenceBytes = std::size_t{12} << 20;
/// Filters that one stream may have been passed through.
inline constexpr std::size_t filters = 4;
/// Objects that the recovery of a damaged document remembers, object streams among them, and
/// trailers that it tries.
inline constexpr std::size_t recoveredObjects = std::size_t{1} << 19;
inline constexpr std::size_t recoveredObjectStreams = std::size_t{1} << 16;
inline constexpr std::size_t recoveredTrailers = 64;
}  // namespace limits

/// What things cost in steps, rounded up from what they take.
namespace price {
/// Passing one byte in a scanner; searching one byte for a word; searching one for objects.
inline constexpr std::size_t byte = 1;
inline constexpr std::size_t searchedByte = 2;
inline constexpr std::size_t recoveredByte = 3;
/// One token, besides its bytes; making a value of it, or a key with escapes comparable.
inline constexpr std::size_t token = 12;
inline constexpr std::size_t value = 24;
/// Opening an object by number; asking one section where it is, and one subsection.
inline constexpr std::size_t lookUp = 256;
inline constexpr std::size_t section = 32;
inline constexpr std::size_t subsection = 32;
/// Preparing to unpack a stream; one byte that comes out; one symbol of the compressed data, which
/// takes at least a bit of it and yields at least a byte.
inline constexpr std::size_t stream = 4096;
inline constexpr std::size_t unpackedByte = 1;
inline constexpr std::size_t symbol = 4;
inline constexpr std::size_t symbolsPerByte = 8;
/// The tables at the start of a compressed block, and the most of it for one byte.
inline constexpr std::size_t block = 3500;
inline constexpr std::size_t blockByte = 100;
/// Undoing a predictor: one byte, and one row.
inline constexpr std::size_t predictedByte = 4;
inline constexpr std::size_t predictedRow = 16;
inline constexpr std::size_t decryptedByte = 4;
/// One round of the hash of a password, and one object among those that are sorted.
inline constexpr std::size_t hashRound = 40'000;
inline constexpr std::size_t sortedObject = 64;
}  // namespace price

/// What is left of the limits above while one document is read.
class Budget {
  using Count = std::uint64_t;  // the same on every machine, however large its addresses

 public:
  explicit constexpr Budget(Count inputSize)
      : steps_(inputSize < unlimited / (2 * limits::stepsPerInputByte)
                   ? inputSize * limits::stepsPerInputByte + limits::stepsBase
                   : unlimited) {}

  constexpr bool isExhausted() const { return exhausted_; }
  constexpr void exhaust() { exhausted_ = true; }

  /// Each of these pays for something before it is done, or for a bounded piece of it afterwards,
  /// and says whether that could be paid.
  constexpr bool payFor(Count count, Count priceOfOne) {
    if (count > unlimited / priceOfOne) exhausted_ = true;
    return take(steps_, count * priceOfOne);
  }
  constexpr bool payForBytes(Count count) { return payFor(count, price::byte); }
  constexpr bool payForTokens(Count count) { return payFor(count, price::token); }
  /// Part of a compressed block that turned `consumed` bytes into `made` bytes.
  constexpr bool payForUnpacking(Count consumed, Count made) {
    const Count tables = std::min<Count>(price::block, consumed * price::blockByte);
    const Count symbols = std::min(made, consumed * price::symbolsPerByte);
    return payFor(tables + symbols * price::symbol + made * price::unpackedByte, 1);
  }
  constexpr bool payForKeeping(Count crossReferenceBytes) {
    return take(kept_, crossReferenceBytes);
  }
  constexpr bool payForLookUp() { return take(lookUps_, 1) && payFor(1, price::lookUp); }
  constexpr bool payForTreeNode() { return take(treeNodes_, 1); }
  constexpr bool payForCrossReferenceSection() { return take(sections_, 1); }

 private:
  static constexpr Count unlimited = std::numeric_limits<Count>::max();

  constexpr bool take(Count& left, Count amount) {
    if (amount > left) exhausted_ = true;
    if (exhausted_) return false;
    left -= amount;
    return true;
  }

  Count steps_;
  Count kept_ = limits::crossReferenceBytes;
  Count lookUps_ = limits::lookUps;
  Count treeNodes_ = limits::treeNodes;
  Count sections_ = limits::crossReferenceSections;
  bool exhausted_ = false;
};

}  // namespace korrin::pdf
