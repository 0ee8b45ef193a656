#pragma once

// The plot on its way out: sheets for paper, files that hold them, and a picture of the stage.

#include <QByteArray>
#include <QImage>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "korrin/drawing/revision_marks.h"
#include "korrin/model/project.h"

class QPagedPaintDevice;
class QPrinter;

namespace korrin::editor {

/// What a plot is printed with that it does not hold itself.
struct PrintedWith {
  /// The bytes of embedded images, as `DrawingOptions::assetBytes`: frames where there are none.
  std::function<std::optional<std::string>(const Text& sha256)> artwork = {};
  RevisionMarks marks = {};  ///< What changed since an earlier revision; empty for no marks.
};

/// The sheets that a venue receives, as SVG, with dates in local time.
std::vector<std::string> sheetsOf(const KorrinProject& project, const PrintedWith& with = {});
/// The sheets as a PDF with a page for each.
QByteArray pdfOf(const KorrinProject& project, const PrintedWith& with = {});
/// The stage alone, so many pixels wide at most and at most as high.
QImage pictureOfStage(const KorrinProject& project, int pixels, const PrintedWith& with = {});

/// Sets paper and direction as the plot asks for.
void setPaper(QPagedPaintDevice& device, const KorrinProject& project);
/// Prints the sheets, a page for each.
void printSheets(QPrinter& printer, const KorrinProject& project, const PrintedWith& with = {});

}  // namespace korrin::editor
