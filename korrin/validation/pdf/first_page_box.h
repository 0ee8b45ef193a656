#pragma once

// The one fact that the check on embedded PDFs needs: how large the first page is. Nothing else of
// a document is read, nothing is drawn, and what is read stays inside fixed budgets of time, memory
// and stack, whatever the bytes are.

#include <cstddef>
#include <span>

#include "korrin/validation/pdf/pdf_page.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Whether the bytes claim to be a PDF: "%PDF-" stands among the first 1,024, or the file begins
/// with a comment of high bytes, as PDFs have one under their header, and holds no "%PDF-" at all.
/// Only in files of the second kind is anything behind the first 1,024 bytes looked at.
bool hasPdfHeader(std::span<const std::byte> bytes) noexcept;

/// Reads the media box of the first page of the PDF in `bytes`. Allocates at most 32 MiB, uses no
/// stack that grows with the input, keeps nothing and reads nothing but `bytes`. Throws
/// std::bad_alloc when memory runs out.
PdfPage readFirstPage(std::span<const std::byte> bytes);

}  // namespace korrin

#pragma GCC visibility pop
