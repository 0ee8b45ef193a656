#pragma once

// The one fact that the check on embedded PDFs needs: how large the first page is. Nothing else of
// a document is read, nothing is drawn, and what is read stays inside fixed budgets of time, memory
// and stack, whatever the bytes are.

#include <cstddef>
#include <span>

#include "korrin/validation/pdf/pdf_page.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Whether the bytes have a PDF's header at or near their start, which is all that is looked at but
/// in a file that begins with a comment of high bytes. Takes time in proportion to their number.
bool hasPdfHeader(std::span<const std::byte> bytes) noexcept;

/// Reads the media box of the first page of the PDF in `bytes`. Allocates at most 32 MiB, uses no
/// stack that grows with the input, keeps nothing and reads nothing but `bytes`.
PdfPage readFirstPage(std::span<const std::byte> bytes);

}  // namespace korrin

#pragma GCC visibility pop
