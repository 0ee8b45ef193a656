#pragma once

// What readFirstPage gives, in words that a test can compare and print.

#include <ostream>
#include <string_view>

#include "korrin/validation/pdf/first_page_box.h"

#include "tests/support/pdf_builder.h"

namespace korrin {

inline std::ostream& operator<<(std::ostream& out, const PdfPage& page) {
  if (page.outcome == PdfOutcome::notAPdf) return out << "not a PDF";
  if (page.outcome == PdfOutcome::locked) return out << "locked";
  if (page.outcome == PdfOutcome::unreadable) return out << "unreadable";
  if (page.outcome == PdfOutcome::noBox) return out << "no box";
  return out << page.width << " x " << page.height;
}

namespace test {

inline PdfPage pageOf(std::string_view file) { return readFirstPage(asBytes(file)); }

inline PdfPage box(double width, double height) { return {PdfOutcome::box, width, height}; }
inline constexpr PdfPage notAPdf{PdfOutcome::notAPdf, 0, 0};
inline constexpr PdfPage locked{PdfOutcome::locked, 0, 0};
inline constexpr PdfPage unreadable{PdfOutcome::unreadable, 0, 0};
inline constexpr PdfPage noBox{PdfOutcome::noBox, 0, 0};

}  // namespace test
}  // namespace korrin
