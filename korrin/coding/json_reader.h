#pragma once

// Reads records from JSON text, driven by their field tables: one walk over the bytes, no tree.
//
// A document is read in the order in which it is written. Where anything is wrong, this first walk
// stops without a report. A second walk over the same text then finds what to report: first whether
// the text is JSON at all, then the first wrong field in the records' order. So the path that every
// good document takes carries no bookkeeping for errors.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "korrin/coding/coding_options.h"
#include "korrin/coding/decoding_report.h"
#include "korrin/coding/json_scanner.h"
#include "korrin/coding/member_start.h"
#include "korrin/coding/recent_texts.h"
#include "korrin/coding/record_keys.h"
#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/instant.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

namespace korrin::json {

/// Thrown while reading in written order: the document is of no use.
struct Refused {};

class Reader {
 public:
  Reader(std::string_view text, const DecodingOptions& options)
      : scanner_(text), options_(options) {}

  /// Reads the whole text as one value, in the order written. Throws `Refused` or `Malformed`.
  template <class Value>
  Value document() {
    Value value{};
    scanner_.skipSpace();
    valueStart_ = scanner_.position();
    read(value);
    scanner_.finish();
    return value;
  }

  /// How many members `document` passed over because their record does not know the key. Members
  /// inside such a member do not count.
  std::size_t unknownKeyCount() const { return unknownKeyCount_; }

  /// Reads the whole text as one value, in field order. Throws the `DecodingError` that describes
  /// the first fault.
  template <class Value>
  Value diagnose() {
    try {
      const Scanner start = scanner_;
      scanner_.skipSpace();
      scanner_.skipValue();
      scanner_.finish();
      scanner_ = start;
    } catch (const Malformed& fault) {
      throw notJSON(scanner_, fault);
    }
    isDiagnosing_ = true;
    return document<Value>();
  }

 private:
  void read(bool& value);
  void read(double& value);
  void read(std::int64_t& value);
  void read(Text& value);
  void read(UUID& value);
  void read(Instant& value);

  template <class Value>
  void read(std::optional<Value>& value) {
    if (scanner_.peek() == 'n') {
      takeLiteral("null");
      value.reset();
    } else {
      read(value.emplace());
    }
  }

  template <RawValueEnumeration Enumeration>
  void read(Enumeration& value) {
    const StringToken token = string("a string");
    const auto found = token.hasEscapes ? fromRawValue<Enumeration>(unescaped(token))
                                        : fromRawValue<Enumeration>(token.raw);
    if (found) {
      value = *found;
    } else {
      std::vector<std::string_view> words;
      if (isDiagnosing_)
        for (const auto& row : CaseTable<Enumeration>::cases) words.push_back(row.rawValue);
      refuseWord(words, token);
    }
  }

  template <class Element>
  void read(List<Element>& list) {
    expect('[', "an array");
    if (!scanner_.enter(']')) return;
    do {
      if (isDiagnosing_) {
        path_.enterElement(list.size());
        valueStart_ = scanner_.position();
      }
      if constexpr (std::is_trivially_copyable_v<Element>) {
        Element element{};
        read(element);
        list.push_back(element);
      } else {
        read(list.emplace_back());
      }
      if (isDiagnosing_) path_.leave();
    } while (scanner_.next(']'));
  }

  template <RecordType Record>
  void read(Record& record) {
    expect('{', "an object");
    if (isDiagnosing_)
      readInFieldOrder(record, fieldIndices<Record>());
    else
      readInWrittenOrder(record, fieldIndices<Record>());
  }

  template <class Record>
  static constexpr std::size_t fieldCount = std::tuple_size_v<decltype(fieldsOf<Record>())>;
  template <class Record>
  static constexpr auto fieldIndices() {
    return std::make_index_sequence<fieldCount<Record>>();
  }

  template <class Record, std::size_t index>
  void readField(Record& record) {
    constexpr auto member = std::get<index>(fieldsOf<Record>()).member;
    read(record.*member);
  }

  /// How far the walk over a record's members has come.
  struct MemberWalk {
    bool isOpen;                  ///< Whether more of the record may follow.
    bool isBehindMember = false;  ///< Rather than at a key.
  };

  [[gnu::always_inline]] void goToKey(MemberWalk& walk) {
    if (walk.isBehindMember) walk = {.isOpen = scanner_.next('}')};
  }

  // Nearly every document holds the keys in field order: one comparison each.
  template <class Record, std::size_t place>
  [[gnu::always_inline]] void readIfNext(Record& record, MemberWalk& walk, std::uint32_t& seen) {
    if (!walk.isBehindMember || !scanner_.takeMemberStart(memberStart<Record, place>)) {
      goToKey(walk);
      if (!walk.isOpen || !scanner_.takeKey(quotedKey<Record, place>)) return;
    }
    readField<Record, place>(record);
    seen |= std::uint32_t{1} << place;
    walk.isBehindMember = true;
  }

  template <class Record, std::size_t... index>
  void readInWrittenOrder(Record& record, std::index_sequence<index...> indices) {
    static_assert(sizeof...(index) <= 32);
    constexpr std::uint32_t required =
        ((isOptional<typename std::tuple_element_t<index, decltype(fieldsOf<Record>())>::ValueType>
              ? 0
              : std::uint32_t{1} << index) |
         ...);
    std::uint32_t seen = 0;
    MemberWalk walk{.isOpen = scanner_.enter('}')};
    (readIfNext<Record, index>(record, walk, seen), ...);
    goToKey(walk);
    if (walk.isOpen) seen = readInAnyOrder(record, seen, indices);
    if ((required & ~seen) != 0) throw Refused{};
  }

  // Reads what is left of a record, in some other order, twice, or not ours; returns what has been
  // seen. A function of its own, so that it does not slow down the usual way.
  template <class Record, std::size_t... index>
  [[gnu::noinline]] std::uint32_t readInAnyOrder(Record& record, std::uint32_t seen,
                                                 std::index_sequence<index...>) {
    do {
      const std::size_t place = fieldNamed<Record>(scanner_.key());
      if (place == sizeof...(index)) {
        ++unknownKeyCount_;
        scanner_.skipValue();
      } else {
        if ((seen >> place & 1) != 0) throw Refused{};
        seen |= std::uint32_t{1} << place;
        ((place == index ? readField<Record, index>(record) : void()), ...);
      }
    } while (scanner_.next('}'));
    return seen;
  }

  template <class Record, std::size_t... index>
  void readInFieldOrder(Record& record, std::index_sequence<index...>) {
    const char* const open = scanner_.position();
    std::array<const char*, sizeof...(index)> starts{};
    std::array<const char*, sizeof...(index)> secondStarts{};
    if (scanner_.enter('}')) {
      do {
        const std::size_t place = fieldNamed<Record>(scanner_.key());
        if (place < starts.size()) {
          auto& start = starts[place] == nullptr ? starts[place] : secondStarts[place];
          if (start == nullptr) start = scanner_.position();
        }
        scanner_.skipValue();
      } while (scanner_.next('}'));
    }
    const char* const end = scanner_.position();
    const auto readPlace = [&]<std::size_t place>(std::integral_constant<std::size_t, place>) {
      constexpr auto field = std::get<place>(fieldsOf<Record>());
      path_.enterKey(field.key);
      const bool standsTwice = secondStarts[place] != nullptr;
      valueStart_ = standsTwice ? secondStarts[place] : starts[place];
      if (valueStart_ == nullptr) valueStart_ = open;
      checkPresence(starts[place] != nullptr, isOptional<typename decltype(field)::ValueType>,
                    standsTwice);
      if (starts[place] != nullptr) {
        scanner_.returnTo(starts[place]);
        readField<Record, place>(record);
      }
      path_.leave();
    };
    (readPlace(std::integral_constant<std::size_t, index>()), ...);
    scanner_.returnTo(end);
  }

  void expect(char first, std::string_view expected) {
    if (scanner_.peek() != first) refuseType(expected);
  }
  StringToken string(std::string_view expected) {
    expect('"', expected);
    const std::string_view plain = scanner_.shortString(blockSize - 1);
    return plain.data() != nullptr ? StringToken{plain, false, true} : scanner_.string();
  }
  std::string_view number(std::string_view expected);
  /// As `read` of any number: those that are not short.
  [[gnu::noinline]] void readAnyNumber(double& value);
  [[gnu::noinline]] void readAnyNumber(std::int64_t& value);
  /// Takes a string that stands for a number that is not finite; any other one stays.
  [[gnu::noinline]] std::optional<double> nonFinite();
  template <std::size_t length>
  void takeLiteral(const char (&literal)[length]) {
    if (!scanner_.take(literal)) throw Malformed{scanner_.position(), "a value"};
  }

  void checkPresence(bool isPresent, bool mayBeAbsent, bool standsTwice) const;
  [[noreturn]] void refuseType(std::string_view expected) const;
  [[noreturn]] void refuse(DecodingError::Kind kind, std::string_view expected,
                           std::string_view found) const;
  [[noreturn]] void refuseWord(const std::vector<std::string_view>& words,
                               const StringToken& token) const;

  Scanner scanner_;
  const DecodingOptions& options_;
  std::size_t unknownKeyCount_ = 0;
  bool isDiagnosing_ = false;
  KeyPath path_;                      // these two are kept up only while diagnosing
  const char* valueStart_ = nullptr;  // of what the path leads to
  RecentTexts recentTexts_;
};

}  // namespace korrin::json
