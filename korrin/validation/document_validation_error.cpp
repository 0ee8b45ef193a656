#include "korrin/validation/document_validation_error.h"

#include <array>

namespace korrin {
namespace {

// In the order of the cases.
constexpr std::array sentences = {
    "The project contains duplicate identifiers.",
    "The project contains invalid or unsupported dimensions.",
    "An embedded image is not valid.",
    "The embedded images exceed the safe pixel limit.",
};

}  // namespace

const char* DocumentValidationError::what() const noexcept { return sentences[code_]; }

}  // namespace korrin
