#pragma once

// The plot on its way out: sheets for paper, files that hold them, and a picture of the stage.

#include <QByteArray>
#include <QImage>
#include <string>
#include <vector>

#include "korrin/model/project.h"

class QPagedPaintDevice;
class QPrinter;

namespace korrin::editor {

/// The sheets that a venue receives, as SVG, with dates in local time.
std::vector<std::string> sheetsOf(const KorrinProject& project);
/// The sheets as a PDF with a page for each.
QByteArray pdfOf(const KorrinProject& project);
/// The stage alone, so many pixels wide at most and at most as high.
QImage pictureOfStage(const KorrinProject& project, int pixels);

/// Sets paper and direction as the plot asks for.
void setPaper(QPagedPaintDevice& device, const KorrinProject& project);
/// Prints the sheets, a page for each.
void printSheets(QPrinter& printer, const KorrinProject& project);

}  // namespace korrin::editor
