#pragma once

// Access to the objects of a document by number. Whatever is needed to open an object - the object
// stream that holds it, the length and filter of that stream - must itself be an ordinary object of
// the file, so that opening one never leads into opening a chain of others.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "korrin/validation/pdf/encryption.h"
#include "korrin/validation/pdf/scanner.h"
#include "korrin/validation/pdf/value.h"

namespace korrin::pdf {

/// Where an object is to be found, according to the cross-references.
struct ObjectPlace {
  enum class Kind {
    missing,  ///< Not listed at all.
    free,     ///< Listed as an object that does not exist.
    ordinary,
    compressed,
  };
  Kind kind = Kind::missing;
  std::size_t offset = 0;       ///< Of an ordinary object: its header's place in the file.
  std::uint32_t container = 0;  ///< Of a compressed one: the object stream's number,
  std::size_t index = 0;        ///< and its index there.
};

/// Says where objects are.
class ObjectTable {
 public:
  virtual ~ObjectTable() = default;
  virtual ObjectPlace find(std::uint32_t number) = 0;
};

class Objects {
 public:
  /// An ordinary object, its header passed.
  struct Ordinary {
    Scanner scanner;
    std::uint32_t number;
    std::uint64_t generation;
  };

  Objects(std::string_view file, ObjectTable& table, Budget& budget)
      : file_(file), table_(&table), budget_(&budget) {}

  /// Object streams opened from now on are decrypted with `decryption`.
  void decryptWith(const Decryption& decryption) { decryption_ = decryption; }

  /// A scanner in front of the value of object `number`; nothing when there is no such object.
  std::optional<Scanner> open(std::uint32_t number);
  std::optional<Ordinary> openOrdinary(std::uint32_t number);

  /// A scanner at a place met before; nothing when its object stream cannot be opened again.
  std::optional<Scanner> at(Place place);
  /// The head of the value that stands there; null when there is none.
  Value valueAt(Place place);
  /// A scanner at a place outside object streams, where all stands that resolveOrdinary leads to.
  Scanner inFile(Place place) const { return Scanner(file_, *budget_, place.offset); }

  /// A reference to the object of an object stream in which `place` lies; nothing when it lies in
  /// front of them all.
  std::optional<Value> objectAround(Place place);

  /// Follows references to the value itself; null when they lead nowhere.
  Value resolve(Value value);
  /// Follows one reference to an ordinary object.
  Value resolveOrdinary(const Value& value);

  /// The values of `keys` in the dictionary that `value` is or refers to, as readEntries does.
  template <std::size_t n>
  std::array<Value, n> entries(const Value& value, const std::array<std::string_view, n>& keys) {
    const Value dictionary = resolve(value);
    auto scanner = dictionary.kind == Value::Kind::dictionary ? at(dictionary.place) : std::nullopt;
    return scanner ? readEntries(*scanner, keys) : std::array<Value, n>{};
  }

  /// The head of an object stream: `count` pairs of an object's number and its offset.
  struct ObjectStreamHead {
    Scanner scanner;
    std::size_t count;
  };
  std::optional<ObjectStreamHead> openObjectStreamHead(const Ordinary& stream);

  Budget& budget() const { return *budget_; }

  /// Whether an object was missing, or not where the table says.
  bool foundDamage() const { return damaged_; }

 private:
  /// An unpacked object stream.
  struct Container {
    std::uint32_t number = 0;
    std::size_t count = 0;  ///< Of objects in it.
    std::size_t first = 0;  ///< Where the first of them begins.
    std::shared_ptr<const Bytes> bytes;
  };

  std::optional<Ordinary> openOrdinaryAt(std::size_t offset, std::uint32_t number);
  std::optional<Scanner> openCompressed(const ObjectPlace& place, std::uint32_t number);
  std::optional<Container> unpack(Ordinary stream, bool headerOnly);
  /// The object stream of that number, valid until the next call; null when it cannot be unpacked.
  const Container* load(std::uint32_t container);

  std::string_view file_;
  ObjectTable* table_;
  Budget* budget_;
  std::optional<Decryption> decryption_;
  std::vector<Container> containers_;  ///< The one in use last, in front of it those kept.
  bool damaged_ = false;
};

/// Takes "12 0 obj" and gives the number and generation.
struct ObjectHeader {
  std::uint32_t number;
  std::uint64_t generation;
};
std::optional<ObjectHeader> takeObjectHeader(Scanner& scanner);

}  // namespace korrin::pdf
