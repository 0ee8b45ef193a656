#pragma once

// The reading of a PDF with a budget of the caller's.

#include <string_view>

#include "korrin/validation/pdf/pdf_budget.h"
#include "korrin/validation/pdf/pdf_page.h"

namespace korrin::pdf {

/// What readFirstPage gives for the bytes of `file` when `budget` is all that may be spent on it.
PdfPage readWithin(std::string_view file, Budget& budget);

}  // namespace korrin::pdf
