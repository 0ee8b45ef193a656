#pragma once

// Finds the paths of unknown keys in a text that has been read and holds some. A walk of its own,
// so that reading keeps no paths: a document without unknown keys costs nothing more.

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "korrin/coding/json_scanner.h"
#include "korrin/coding/key_path.h"
#include "korrin/coding/record_keys.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"

namespace korrin::json {

/// Whether values of this type hold records, which alone have keys.
template <class Value>
inline constexpr bool holdsRecords = RecordType<Value>;
template <class Value>
inline constexpr bool holdsRecords<std::optional<Value>> = holdsRecords<Value>;
template <class Element>
inline constexpr bool holdsRecords<List<Element>> = holdsRecords<Element>;

/// Goes over a text in the order written. Where the types say that records stand, it looks at their
/// keys; all other values are skipped. The text must have been read as a `Value` before.
class UnknownKeyWalk {
 public:
  static constexpr std::size_t mostPaths = 100;

  explicit UnknownKeyWalk(std::string_view text) : scanner_(text) {}

  /// The paths of the first unknown keys, `mostPaths` or fewer.
  template <class Value>
  std::vector<std::string> paths() {
    scanner_.skipSpace();
    walk(static_cast<const Value*>(nullptr));
    return std::move(paths_);
  }

 private:
  // The pointers are null: they choose the overload, as there is no value yet.
  template <class Value>
  void walk(const Value*) {
    scanner_.skipValue();
  }

  template <class Value>
  requires holdsRecords<Value>
  void walk(const std::optional<Value>*) {
    if (scanner_.peek() == 'n')
      scanner_.skipValue();
    else
      walk(static_cast<const Value*>(nullptr));
  }

  template <class Element>
  requires holdsRecords<Element>
  void walk(const List<Element>*) {
    if (!scanner_.enter(']')) return;
    std::size_t index = 0;
    do {
      path_.enterElement(index++);
      walk(static_cast<const Element*>(nullptr));
      path_.leave();
    } while (!isFull() && scanner_.next(']'));
  }

  template <RecordType Record>
  void walk(const Record*) {
    if (!scanner_.enter('}')) return;
    do {
      const StringToken key = scanner_.key();
      const std::size_t place = fieldNamed<Record>(key);
      if (place == keysOf<Record>.count) {
        note(key);
        scanner_.skipValue();
      } else {
        walkField<Record>(
            place, std::make_index_sequence<std::tuple_size_v<decltype(fieldsOf<Record>())>>());
      }
    } while (!isFull() && scanner_.next('}'));
  }

  template <class Record, std::size_t... index>
  void walkField(std::size_t place, std::index_sequence<index...>) {
    const auto walkPlace = [&](const auto& field) {
      using Value = typename std::remove_cvref_t<decltype(field)>::ValueType;
      path_.enterKey(field.key);
      walk(static_cast<const Value*>(nullptr));
      path_.leave();
    };
    ((place == index ? walkPlace(std::get<index>(fieldsOf<Record>())) : void()), ...);
  }

  bool isFull() const { return paths_.size() == mostPaths; }
  void note(const StringToken& key);

  Scanner scanner_;
  KeyPath path_;
  std::vector<std::string> paths_;
};

}  // namespace korrin::json
