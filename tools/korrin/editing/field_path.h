#pragma once

// Fields of records by their path, such as "style.labelScale": the keys of the field tables joined
// by points.

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "korrin/foundation/record.h"

#include "editing/edit_words.h"
#include "editing/field_words.h"
#include "terminal/words.h"

namespace korrin::host {

/// The paths of all fields that hold no record, below `prefix`.
template <RecordType Record>
void addFieldPaths(const std::string& prefix, std::vector<std::string>& paths) {
  forEachField<Record>([&]<class Value>(const Field<Record, Value>& field) {
    const std::string path = prefix + std::string(field.key);
    if constexpr (RecordType<Value>)
      addFieldPaths<Value>(path + ".", paths);
    else
      paths.push_back(path);
  });
}

template <RecordType Record>
std::vector<std::string> fieldPaths() {
  std::vector<std::string> paths;
  addFieldPaths<Record>("", paths);
  return paths;
}

/// Whether the record has a field with this path, a record inside it included.
template <RecordType Record>
bool hasField(std::string_view path) {
  const std::size_t point = path.find('.');
  bool isThere = false;
  forEachField<Record>([&]<class Value>(const Field<Record, Value>& field) {
    if (field.key != path.substr(0, point)) return;
    if (point == std::string_view::npos) {
      isThere = true;
    } else {
      if constexpr (RecordType<Value>) isThere = hasField<Value>(path.substr(point + 1));
    }
  });
  return isThere;
}

/// Gives the fields of a record as many values as it has fields, parted by commas, as in
/// "-1200,400" for a position.
template <RecordType Record>
void setParts(Record& record, std::string_view key, const std::string& word,
              const FieldWords& words) {
  constexpr std::size_t count = std::tuple_size_v<decltype(fieldsOf<Record>())>;
  std::vector<std::string> parts;
  for (std::size_t start = 0; start <= word.size();) {
    const std::size_t end = std::min(word.find(',', start), word.size());
    parts.push_back(word.substr(start, end - start));
    start = end + 1;
  }
  if (parts.size() != count)
    throw LineError(std::string(key) + " takes " + std::to_string(count) +
                    " values parted by commas: " + listed(fieldPaths<Record>()));
  std::size_t place = 0;
  forEachField<Record>([&]<class Value>(const Field<Record, Value>& field) {
    if constexpr (!RecordType<Value>) words.read(field.key, parts[place++], record.*field.member);
  });
}

/// Gives the field with this path the value that the word says. Throws LineError, and may have
/// changed the record, when there is no such field or the word does not fit.
template <RecordType Record>
void setField(Record& record, std::string_view path, const std::string& word,
              const FieldWords& words) {
  if (!hasField<Record>(path))
    throw LineError("there is no field " + inQuotes(path) + " among " +
                    listed(fieldPaths<Record>()) + suggestion(path, fieldPaths<Record>()));
  const std::size_t point = path.find('.');
  forEachField<Record>([&]<class Value>(const Field<Record, Value>& field) {
    if (field.key != path.substr(0, point)) return;
    if constexpr (RecordType<Value>) {
      if (point == std::string_view::npos)
        setParts(record.*field.member, field.key, word, words);
      else
        setField(record.*field.member, path.substr(point + 1), word, words);
    } else {
      words.read(field.key, word, record.*field.member);
    }
  });
}

/// The same for words that alternate between a path and its value, from the one at `first` on.
template <RecordType Record>
void setFields(Record& record, const std::vector<std::string>& pairs, std::size_t first,
               const FieldWords& words) {
  if ((pairs.size() - first) % 2 != 0)
    throw LineError(inQuotes(pairs.back()) + " stands alone: fields come with a value each");
  for (std::size_t i = first; i + 1 < pairs.size(); i += 2)
    setField(record, pairs[i], pairs[i + 1], words);
}

}  // namespace korrin::host
