#include "korrin/validation/document_validation_error.h"

namespace korrin {

const char* DocumentValidationError::what() const noexcept {
  switch (code_) {
    case duplicateIdentifiers:
      return "The project contains duplicate identifiers.";
    case invalidGeometry:
      return "The project contains invalid or unsupported dimensions.";
    case invalidImage:
      return "An embedded image is not valid.";
    case imageTooLarge:
      return "The embedded images exceed the safe pixel limit.";
  }
  return "";
}

}  // namespace korrin
