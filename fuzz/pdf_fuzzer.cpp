// Any bytes given as a PDF have an outcome that keeps to its description, the same one each time.

#include <cstddef>
#include <cstdint>
#include <span>

#include "korrin/foundation/precondition.h"
#include "korrin/validation/pdf/first_page_box.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto bytes = std::as_bytes(std::span(data, size));
  const korrin::PdfPage page = korrin::readFirstPage(bytes);
  // Infinity less infinity is no number; a box may hold it, but never a negative extent.
  korrin::precondition(!(page.width < 0) && !(page.height < 0), "an extent is negative");
  if (page.outcome != korrin::PdfOutcome::box)
    korrin::precondition(page.width == 0 && page.height == 0, "an extent without a box");
  korrin::precondition(korrin::readFirstPage(bytes).outcome == page.outcome,
                       "the outcome changes from one call to the next");
  return 0;
}
