#pragma once

// The one error of document validation and of the checks on embedded images.

#include <cstddef>
#include <exception>
#include <functional>

#pragma GCC visibility push(default)

namespace korrin {

/// What is structurally wrong with a project or an embedded image. Compared and hashed by its case.
class DocumentValidationError : public std::exception {
 public:
  /// The cases.
  enum Code {
    duplicateIdentifiers,  ///< Two records of one list carry the same identifier.
    invalidGeometry,       ///< A stage or item dimension is not finite or out of range.
    invalidImage,          ///< Bytes that are not an image or PDF that can be read.
    imageTooLarge,         ///< More pixels, or a larger page, than is safe to draw.
  };

  /// Implicit, so that an error compares with a case.
  DocumentValidationError(Code code) noexcept : code_(code) {}  // NOLINT: a case is an error

  /// The case.
  Code code() const noexcept { return code_; }

  /// The sentence to show to the user.
  const char* what() const noexcept override;

  /// Whether the cases are the same.
  friend bool operator==(const DocumentValidationError& a,
                         const DocumentValidationError& b) noexcept {
    return a.code_ == b.code_;
  }

 private:
  Code code_;
};

}  // namespace korrin

template <>
struct std::hash<korrin::DocumentValidationError> {
  std::size_t operator()(const korrin::DocumentValidationError& error) const noexcept {
    return std::hash<int>{}(error.code());
  }
};

#pragma GCC visibility pop
