#include "editor/output/sheets.h"

#include <QBuffer>
#include <QDateTime>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgRenderer>

#include <QtPrintSupport/QPrinter>

#include "editor/look/painted_svg.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

DrawingOptions optionsFor(const PrintedWith& with) {
  DrawingOptions options{.assetBytes = with.artwork};
  options.utcOffset = std::chrono::duration_cast<std::chrono::minutes>(
      std::chrono::seconds(QDateTime::currentDateTime().offsetFromUtc()));
  return options;
}

// `newPage` begins another page of the device.
template <class NewPage>
void paint(QPaintDevice& device, const std::vector<std::string>& sheets, NewPage newPage) {
  QPainter painter(&device);
  bool isFirst = true;
  for (const std::string& sheet : sheets) {
    if (!isFirst) newPage();
    isFirst = false;
    QSvgRenderer renderer(paintedSvg(sheet));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, QRectF(0, 0, device.width(), device.height()));
  }
}

}  // namespace

std::vector<std::string> sheetsOf(const KorrinProject& project, const PrintedWith& with) {
  return drawMarkedPages(project, with.marks, optionsFor(with));
}

void setPaper(QPagedPaintDevice& device, const KorrinProject& project) {
  const bool isLetter = project.exportSettings.paperSize == PaperSize::letter;
  const bool isDeep = project.stage.size.height > project.stage.size.width;
  // The sheets have margins of their own.
  device.setPageLayout(QPageLayout(QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4),
                                   isDeep ? QPageLayout::Portrait : QPageLayout::Landscape, {}));
}

QByteArray pdfOf(const KorrinProject& project, const PrintedWith& with) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  constexpr int dotsPerInch = 600;
  writer.setResolution(dotsPerInch);
  writer.setTitle(toQString(project.metadata.title));
  setPaper(writer, project);
  paint(writer, sheetsOf(project, with), [&writer] { writer.newPage(); });
  return bytes;
}

QImage pictureOfStage(const KorrinProject& project, int pixels, const PrintedWith& with) {
  QSvgRenderer renderer(paintedSvg(drawMarkedPlot(project, with.marks, optionsFor(with))));
  const QSizeF size =
      renderer.viewBoxF().size().scaled(QSizeF(pixels, pixels), Qt::KeepAspectRatio);
  QImage image(size.toSize().expandedTo({1, 1}), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter);
  return image;
}

void printSheets(QPrinter& printer, const KorrinProject& project, const PrintedWith& with) {
  printer.setFullPage(true);
  paint(printer, sheetsOf(project, with), [&printer] { printer.newPage(); });
}

}  // namespace korrin::editor
