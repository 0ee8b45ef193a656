#pragma once

// The way from the catalogue to the first page and its media box.

#include <optional>

#include "korrin/validation/pdf/objects.h"
#include "korrin/validation/pdf/pdf_page.h"
#include "korrin/validation/pdf/value.h"

namespace korrin::pdf {

/// The first page of the document whose catalogue `root` is or refers to; nothing when none is
/// found.
std::optional<PdfPage> firstPage(Objects& objects, const Value& root);

}  // namespace korrin::pdf
