#pragma once

// What is left of a document whose cross-references fail: one pass over the whole file finds every
// "12 0 obj", the object streams and catalogues among them, and whatever may serve as a trailer.
// The last definition of an object wins.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "korrin/validation/pdf/cross_references.h"
#include "korrin/validation/pdf/objects.h"

namespace korrin::pdf {

class RecoveredObjects : public ObjectTable {
 public:
  RecoveredObjects(std::string_view file, Budget& budget) : file_(file), budget_(&budget) {}

  /// The pass over the file.
  void scan();

  /// What trailers and cross-reference streams say, the last one first.
  std::vector<Trailer> trailers() const;

  /// Adds what is in the object streams, once `objects` can decrypt them.
  void addCompressedObjects(Objects& objects);

  /// The catalogues that the objects themselves show by their /Type, for a document without
  /// trailer. Those in object streams come last; otherwise the last one comes first.
  std::vector<Value> catalogues(Objects& objects) const;

  ObjectPlace find(std::uint32_t number) override;

 private:
  struct Entry {
    std::uint32_t number;
    std::uint32_t container;  ///< The object stream that holds it; 0 for an object of the file.
    std::size_t offset;       ///< Where the object, or the object stream, begins in the file.
  };

  /// The last few of what may be many.
  class LastFew {
   public:
    void add(std::size_t value) { values_[count_++ % values_.size()] = value; }
    /// The last one first.
    std::vector<std::size_t> list() const;

   private:
    std::array<std::size_t, limits::recoveredTrailers> values_{};
    std::size_t count_ = 0;
  };

  std::optional<Value> catalogueIn(Objects& objects, std::uint32_t container) const;

  std::size_t passObject(std::size_t keyword);
  std::size_t passName(std::size_t slash);
  std::size_t passStream(std::size_t keyword);
  void add(const Entry& entry);
  void addObjectStream(std::uint32_t number);
  void sort();

  std::string_view file_;
  Budget* budget_;
  std::vector<Entry> entries_;
  std::size_t sorted_ = 0;  ///< So many entries are in order; those behind are not found yet.
  std::vector<std::uint32_t> objectStreams_;
  LastFew trailers_;    ///< Offsets.
  LastFew catalogues_;  ///< Numbers of objects in which their name stands.
  bool noMoreEnds_ = false;
};

}  // namespace korrin::pdf
