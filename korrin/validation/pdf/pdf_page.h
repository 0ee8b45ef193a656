#pragma once

// The first page of a PDF, as far as it could be read.

#pragma GCC visibility push(default)

namespace korrin {

/// How far the way to the first page's box led.
enum class PdfOutcome {
  notAPdf,     ///< There is no header at or near the start.
  locked,      ///< A password is needed, or the document is encrypted in a way not known here.
  unreadable,  ///< No first page can be found, or a budget is used up on the way to it.
  noBox,       ///< The first page has no media box, or one that is not four numbers.
  box,         ///< The first page has a media box of four numbers.
};

/// The first page as far as it could be read. The extents of its media box are in points with the
/// corners in order, never negative: 0 for a degenerate box, infinite for one whose numbers
/// overflow, and 0 unless the outcome is `box`.
struct PdfPage {
  PdfOutcome outcome;  ///< Whether there is a box, or why not.
  double width;        ///< From the box's left edge to its right one.
  double height;       ///< From the box's lower edge to its upper one.

  friend bool operator==(const PdfPage&, const PdfPage&) = default;
};

}  // namespace korrin

#pragma GCC visibility pop
