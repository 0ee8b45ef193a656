#pragma once

// Writes records as JSON text, driven by their field tables. A value that JSON cannot hold stops
// the walk; a second one then finds out where it stands, so that the usual walk keeps no path.

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "korrin/coding/coding_error.h"
#include "korrin/coding/coding_options.h"
#include "korrin/coding/expected_size.h"
#include "korrin/coding/key_path.h"
#include "korrin/coding/member_start.h"
#include "korrin/coding/text_buffer.h"
#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/instant.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

namespace korrin::json {

template <class Record, std::size_t index>
inline constexpr auto memberAt = std::get<index>(fieldsOf<Record>()).member;

/// The places of a record's fields in the byte order of their keys.
template <class Record, std::size_t... index>
consteval auto placesByKey(std::index_sequence<index...>) {
  constexpr std::array keys = {std::get<index>(fieldsOf<Record>()).key...};
  std::array places = {index...};
  std::sort(places.begin(), places.end(),
            [&keys](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
  return places;
}

/// Thrown while writing: the value holds a number that is not finite.
struct NotFinite {};

class Writer {
 public:
  explicit Writer(const EncodingOptions& options) : options_(options) {}

  /// The whole text of one value. Throws `NotFinite`.
  template <class Value>
  std::string document(const Value& value) {
    out_.reserve(expectedSize(value));
    write(value);
    return out_.finish();
  }

  /// The same, but throws the `EncodingError` that says where the number stands.
  template <class Value>
  std::string diagnose(const Value& value) {
    isDiagnosing_ = true;
    return document(value);
  }

 private:
  void write(bool value);
  void write(double value);
  void write(std::int64_t value);
  void write(const Text& value) { writeString(value); }
  void write(const UUID& value);
  void write(Instant value);
  void writeString(std::string_view text);
  void writeEscaped(std::string_view text);
  void writeEscape(unsigned char byte);

  template <RawValueEnumeration Enumeration>
  void write(Enumeration value) {
    writeString(rawValue(value));
  }

  template <class Element>
  void write(const List<Element>& list) {
    out_.append('[');
    ++depth_;
    std::size_t index = 0;
    for (const Element& element : list) {
      if (index != 0) out_.append(',');
      if (options_.prettyPrinted) startLine();
      if (isDiagnosing_) path_.enterElement(index);
      write(element);
      if (isDiagnosing_) path_.leave();
      ++index;
    }
    close(']', index != 0);
  }

  template <RecordType Record>
  void write(const Record& record) {
    using Indices = std::make_index_sequence<std::tuple_size_v<decltype(fieldsOf<Record>())>>;
    if (options_.sortedKeys)
      writeSorted(record, Indices());
    else
      writeMembers(record, Indices());
  }

  template <class Record, std::size_t... position>
  void writeSorted(const Record& record, std::index_sequence<position...> positions) {
    constexpr auto places = placesByKey<Record>(positions);
    writeMembers(record, std::index_sequence<places[position]...>());
  }

  template <class Record, std::size_t... index>
  void writeMembers(const Record& record, std::index_sequence<index...>) {
    out_.append('{');
    ++depth_;
    bool isFirst = true;
    (writeMember<Record, index>(record.*memberAt<Record, index>, isFirst), ...);
    close('}', !isFirst);
  }

  template <class Record, std::size_t index, class Value>
  void writeMember(const std::optional<Value>& value, bool& isFirst) {
    if (value) writeMember<Record, index>(*value, isFirst);
  }
  template <class Record, std::size_t index, class Value>
  void writeMember(const Value& value, bool& isFirst) {
    constexpr const auto& start = memberStart<Record, index>;
    if (options_.prettyPrinted) {
      if (!isFirst) out_.append(',');
      startLine();
      out_.append(std::string_view(start.data() + 1, start.size() - 1));
      out_.append(' ');
    } else if (isFirst) {
      out_.append(std::string_view(start.data() + 1, start.size() - 1));
    } else {
      out_.append(start);
    }
    isFirst = false;
    if (isDiagnosing_) path_.enterKey(std::get<index>(fieldsOf<Record>()).key);
    write(value);
    if (isDiagnosing_) path_.leave();
  }

  void close(char bracket, bool hasContent) {
    --depth_;
    if (options_.prettyPrinted && hasContent) startLine();
    out_.append(bracket);
  }
  void startLine();

  const EncodingOptions& options_;
  TextBuffer out_;
  std::size_t depth_ = 0;
  bool isDiagnosing_ = false;
  KeyPath path_;
};

}  // namespace korrin::json
