#pragma once

// Documents to begin with, one of every kind.

#include <string>

#include "fuzz/document_input.h"

namespace korrin::fuzz {

/// A document of that kind in which every field is present, with its header.
std::string seedDocument(std::size_t kind, const EncodingOptions& options);

/// Whether the text decodes as what its header says.
bool decodes(const DocumentInput& input);

}  // namespace korrin::fuzz
