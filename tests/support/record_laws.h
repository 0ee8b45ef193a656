#pragma once

// What holds for every record of a document, derived from its field table. A test calls each law
// in one line for one record.

#include <cstddef>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/coding/json.h"

namespace korrin::test {

/// Values that each differ from `value` in one place: for a record, in one of its fields.
inline std::vector<bool> changesOf(const bool& value) { return {!value}; }
inline std::vector<std::int64_t> changesOf(const std::int64_t& value) { return {value ^ 1}; }
inline std::vector<double> changesOf(const double& value) {
  return {value + 1, -value, value * (1 + std::numeric_limits<double>::epsilon())};
}
inline std::vector<Text> changesOf(const Text& value) {
  return {Text(value.str() + "x"), Text(" " + value.str()), Text()};
}
inline std::vector<UUID> changesOf(const UUID& value) {
  UUID::Bytes first = value.bytes();
  first.front() ^= 0x80;
  UUID::Bytes last = value.bytes();
  last.back() ^= 1;
  return {UUID(first), UUID(last)};
}
inline std::vector<Instant> changesOf(const Instant& value) {
  return {value + std::chrono::nanoseconds(1)};
}
template <RawValueEnumeration Enumeration>
std::vector<Enumeration> changesOf(const Enumeration& value) {
  std::vector<Enumeration> others;
  for (const auto& row : CaseTable<Enumeration>::cases)
    if (row.value != value) others.push_back(row.value);
  return others;
}
template <RecordType Record>
std::vector<Record> changesOf(const Record& record);
template <class Element>
std::vector<List<Element>> changesOf(const List<Element>& list);

template <class Value>
std::vector<std::optional<Value>> changesOf(const std::optional<Value>& value) {
  std::vector<std::optional<Value>> others = {value ? std::nullopt : std::optional(Value{})};
  if (value)
    for (const Value& other : changesOf(*value)) others.push_back(other);
  return others;
}
template <class Element>
std::vector<List<Element>> changesOf(const List<Element>& list) {
  List<Element> longer = list;
  longer.push_back(list.empty() ? Element{} : list.back());
  std::vector<List<Element>> others = {longer};
  if (list.empty()) return others;
  others.push_back({});
  for (const Element& element : changesOf(list.front())) {
    List<Element> other = list;
    other.edit(0) = element;
    others.push_back(other);
  }
  return others;
}
template <RecordType Record>
std::vector<Record> changesOf(const Record& record) {
  std::vector<Record> others;
  forEachField<Record>([&](const auto& field) {
    for (const auto& value : changesOf(record.*field.member)) {
      Record other = record;
      other.*field.member = value;
      others.push_back(std::move(other));
    }
  });
  return others;
}

/// Copies are equal, are independent and hash equally; a change of any one field, at any depth,
/// makes another value with another hash. `record` holds no not-a-number.
template <class Record>
void expectValueSemantics(const Record& record) {
  const std::hash<Record> hash;
  const Record copy = record;
  EXPECT_TRUE(copy == record);
  EXPECT_EQ(hash(copy), hash(record));

  forEachField<Record>([&](const auto& field) {
    SCOPED_TRACE(std::string(field.key));
    const auto changes = changesOf(record.*field.member);
    EXPECT_FALSE(changes.empty());
    for (const auto& value : changes) {
      if (value == record.*field.member) continue;  // -0.0 is 0.0, an empty text is empty
      Record other = record;
      other.*field.member = value;
      EXPECT_FALSE(other == record);
      EXPECT_NE(hash(other), hash(record));
      EXPECT_TRUE(copy == record);
      other.*field.member = record.*field.member;
      EXPECT_TRUE(other == record);
      EXPECT_EQ(hash(other), hash(record));
    }
  });
}

/// The record, and each record that differs from it in one place, is read back as it was from what
/// is written of it, byte for byte, in every layout. `record` holds only finite numbers.
template <class Record>
void expectRoundTrip(const Record& record) {
  std::vector<Record> records = changesOf(record);
  records.push_back(record);
  for (const Record& original : records) {
    for (const bool prettyPrinted : {false, true}) {
      for (const bool sortedKeys : {false, true}) {
        const EncodingOptions options{.prettyPrinted = prettyPrinted, .sortedKeys = sortedKeys};
        const std::string text = encodeJSON(original, options);
        const Record decoded = decodeJSON<Record>(text);
        EXPECT_TRUE(decoded == original) << text;
        EXPECT_EQ(encodeJSON(decoded, options), text);
      }
    }
  }
}

/// The table names the fields in the order in which they lie in memory, each once.
template <class Record>
void expectTableInDeclarationOrder() {
  const Record record{};
  const void* previous = nullptr;
  std::vector<std::string_view> keys;
  forEachField<Record>([&](const auto& field) {
    const void* const address = &(record.*field.member);
    EXPECT_TRUE(previous == nullptr || std::less<>{}(previous, address)) << field.key;
    previous = address;
    EXPECT_FALSE(field.key.empty());
    EXPECT_EQ(std::ranges::count(keys, field.key), 0) << field.key;
    keys.push_back(field.key);
  });
}

/// All of the above.
template <class Record>
void expectRecordLaws(const Record& record) {
  expectTableInDeclarationOrder<Record>();
  expectValueSemantics(record);
  expectRoundTrip(record);
}

}  // namespace korrin::test
