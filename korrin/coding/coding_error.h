#pragma once

// What stops a document from being read or written.

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

#pragma GCC visibility push(default)

namespace korrin {

/// Why a document was not read. `what()` is one sentence: where, what was expected, what was found,
/// as in "items[3].style.labelScale: expected a number, found a string". When several fields are
/// wrong, the first in the records' field order is named, searched depth-first; text that is not
/// JSON goes before every field and is named by line and column.
class DecodingError : public std::runtime_error {
 public:
  /// What is wrong, for a program to tell apart.
  enum class Kind {
    keyNotFound,    ///< A required key is missing.
    valueNotFound,  ///< A required key, or a list's element, is null.
    typeMismatch,   ///< A value of another JSON type, or a fraction where an integer belongs.
    dataCorrupted,  ///< Not JSON, an unknown enumeration text, a malformed identifier or date, a
                    ///< number that does not fit, or a known key that stands twice.
  };

  /// As the reader makes it: `message` is the whole sentence, `keyPath` included.
  DecodingError(Kind kind, std::string keyPath, const std::string& message, std::size_t line = 0,
                std::size_t column = 0)
      : std::runtime_error(message),
        kind_(kind),
        keyPath_(std::move(keyPath)),
        line_(line),
        column_(column) {}

  /// Which of the four it is.
  Kind kind() const noexcept { return kind_; }

  /// The offending field, such as "items[3].style.labelScale"; for `keyNotFound` it ends in the
  /// missing key. Empty for the document itself.
  const std::string& keyPath() const noexcept { return keyPath_; }

  /// The line of the text where the error is, counted from 1: of the value that is wrong, of the
  /// second value of a key that stands twice, of the object that lacks a key, or of the byte where
  /// the text stops being JSON. Lines end with a line feed. 0 where no text was read.
  std::size_t line() const noexcept { return line_; }

  /// The column in that line, counted from 1 in characters (Unicode scalar values), not in bytes. 0
  /// where no text was read.
  std::size_t column() const noexcept { return column_; }

 private:
  Kind kind_;
  std::string keyPath_;
  std::size_t line_;
  std::size_t column_;
};

/// Why a value was not written: a number that is not finite, which JSON cannot hold.
class EncodingError : public std::runtime_error {
 public:
  /// As the writer makes it: `message` is the whole sentence, `keyPath` included.
  EncodingError(std::string keyPath, const std::string& message)
      : std::runtime_error(message), keyPath_(std::move(keyPath)) {}

  /// The offending field, such as "items[3].riserHeightMillimeters".
  const std::string& keyPath() const noexcept { return keyPath_; }

 private:
  std::string keyPath_;
};

}  // namespace korrin

#pragma GCC visibility pop
