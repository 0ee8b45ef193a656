#pragma once

// The choices a host has in writing and reading documents. Reader and writer must agree on dates
// and non-finite numbers; layout and key order carry no meaning on reading.

#include <array>

#include "korrin/foundation/enumeration.h"

#pragma GCC visibility push(default)

namespace korrin {

/// How an instant stands in a document.
enum class DateStrategy {
  /// RFC 3339 text. Written in UTC with 0, 3, 6 or 9 fraction digits, as few as are exact; read
  /// with any offset and up to 9 fraction digits.
  iso8601,
  /// A number of seconds since 1970-01-01T00:00:00Z. Written exactly; read to the nearest
  /// nanosecond.
  secondsSince1970,
  /// A number of milliseconds since 1970-01-01T00:00:00Z, exact in the same way.
  millisecondsSince1970,
  /// A number of seconds since 2001-01-01T00:00:00Z, exact in the same way.
  secondsSinceReferenceDate,
};

/// The names by which a host's options and reports call the strategies.
template <>
struct CaseTable<DateStrategy> {
  static constexpr bool isNotCodable = true;
  static constexpr std::array cases = {
      Case{DateStrategy::iso8601, "iso8601"},
      Case{DateStrategy::secondsSince1970, "secondsSince1970"},
      Case{DateStrategy::millisecondsSince1970, "millisecondsSince1970"},
      Case{DateStrategy::secondsSinceReferenceDate, "secondsSinceReferenceDate"},
  };
};

/// What is done with infinities and not-a-number values, which JSON cannot hold.
enum class NonFinite {
  fail,     ///< Writing throws `EncodingError`; reading takes numbers only.
  strings,  ///< They stand as the strings "Infinity", "-Infinity" and "NaN".
};

/// How a document is written. What is not given is as the document format has it.
struct EncodingOptions {
  bool prettyPrinted = false;  ///< One member a line, two blanks of indentation a level.
  bool sortedKeys = false;     ///< Keys in byte order instead of the records' field order.
  DateStrategy dates = DateStrategy::iso8601;  ///< The form of every date in the document.
  NonFinite nonFinite = NonFinite::fail;       ///< For every number in the document.
};

/// How a document was written, as far as its reader must know.
struct DecodingOptions {
  DateStrategy dates = DateStrategy::iso8601;  ///< The form of every date in the document.
  NonFinite nonFinite = NonFinite::fail;       ///< For every number in the document.
};

}  // namespace korrin

#pragma GCC visibility pop
