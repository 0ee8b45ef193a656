#include "editor/dialogs/insert_images.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>
#include <vector>

#include "korrin/session/document_file.h"

#include "editor/dialogs/image_refusals.h"
#include "editor/plot/open_plot.h"
#include "editor/plot/plot_artwork.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("InsertImages", text); }

constexpr qsizetype longestName = 200;  // characters

// A name that was given by anybody, for one line of the window and of the plot.
QString nameOf(const QString& path) {
  QString name;
  const QString fileName = QFileInfo(path).fileName();
  for (const QChar c : fileName) name += c.isPrint() || c.isSurrogate() ? c : QChar(' ');
  name = name.simplified().left(longestName);
  return name.isEmpty() ? tr("image") : name;
}

StageSize sizeOnStage(const QSizeF& size, const StageSize& stage) {
  constexpr double usual = 1'000;  // millimetres
  constexpr double smallest = 10;
  const double side = std::min(usual, std::min(stage.width, stage.height) / 2);
  const QSizeF scaled = size.scaled(side, side, Qt::KeepAspectRatio);
  return {.width = std::max(smallest, std::round(scaled.width())),
          .height = std::max(smallest, std::round(scaled.height()))};
}

// What goes into the plot by one edit.
class Insertion {
 public:
  Insertion(OpenPlot& plot, const QPointF& place)
      : plot_(plot), place_(place), entries_(plot.project().assetManifest) {}

  /// Returns why the file is refused; nothing where it was taken.
  QString take(const QString& path) {
    std::string bytes;
    try {
      DocumentFile file(QFile::encodeName(QFileInfo(path).absoluteFilePath()).toStdString());
      bytes = file.openBytes(CheckedImage::maximumSize);
    } catch (const FileError& error) {
      return tr("It %1.").arg(QString::fromStdString(error.remark()));
    }
    auto checked = CheckedImage::check(std::move(bytes));
    if (const auto* refusal = std::get_if<AssetRefusal>(&checked)) return sentencesFor(*refusal);
    const auto& image = std::get<CheckedImage>(checked);
    const std::string digest = digestOf(image.bytes());
    if (!plot_.artwork().hasRoomFor(image, digest, taken_)) return noRoomSentences();
    try {
      plot_.artwork().keep(image, digest);
    } catch (const FileError& error) {
      return tr("It cannot be kept beside the plot: %1. Save the plot in another folder and insert "
                "it again.")
          .arg(QString::fromUtf8(error.what()));
    }
    add(image, digest, nameOf(path));
    return {};
  }

  void perform() {
    if (items_.empty()) return;
    std::vector<DocumentCommand> commands;
    if (hasNewEntry_) commands.push_back(DocumentCommand::replaceAssetManifest(entries_));
    commands.push_back(DocumentCommand::insertItems(List<PlotItem>(items_.begin(), items_.end())));
    IDSet ids;
    for (const PlotItem& item : items_) ids.insert(item.id);
    plot_.perform(items_.size() == 1 ? tr("Insert Image") : tr("Insert Images"),
                  DocumentCommand::compound(std::move(commands)), {.select = ids});
  }

 private:
  void add(const CheckedImage& image, const std::string& digest, const QString& name) {
    const bool isKnown =
        std::any_of(entries_.begin(), entries_.end(),
                    [&](const AssetManifestEntry& entry) { return entry.sha256 == Text(digest); });
    if (!isKnown) {
      hasNewEntry_ = true;
      taken_ += image.pixels();
      entries_.push_back({.sha256 = digest,
                          .filename = toText(name),
                          .mediaType = Text(image.mediaType()),
                          .byteCount = static_cast<std::int64_t>(image.bytes().size())});
    }
    const StageSize size = sizeOnStage(image.size(), plot_.project().stage.size);
    // The next one stands beside it.
    if (!items_.empty()) place_.rx() += size.width / 2;
    items_.push_back(
        {.id = plot_.environment().makeUUID(),
         .kind = PlotItemKind::custom,
         .assetID = digest,
         .position = {.x = std::round(place_.x()), .y = std::round(place_.y())},
         .size = size,
         .rotationDegrees = 0,
         .isFlippedHorizontally = false,
         .isFlippedVertically = false,
         .layerID = *plot_.activeLayer(),
         .groupID = {},
         .isLocked = false,
         .label = toText(QFileInfo(name).completeBaseName()),
         .riserHeightMillimeters = {},
         // An image speaks for itself; a frame does not.
         .style = {.tintHex = {}, .labelVisible = !image.canBeDrawn(), .labelScale = 1}});
    constexpr double gap = 100;
    place_.rx() += size.width / 2 + gap;
  }

  OpenPlot& plot_;
  QPointF place_;
  List<AssetManifestEntry> entries_;
  bool hasNewEntry_ = false;
  std::int64_t taken_ = 0;  // pixels
  std::vector<PlotItem> items_;
};

void tellRefused(const QStringList& refusals, QWidget* window) {
  constexpr qsizetype most = 6;
  QStringList shown = refusals.mid(0, most);
  if (refusals.size() > most)
    shown += tr("Further files that were not inserted: %1").arg(refusals.size() - most);
  QMessageBox box(QMessageBox::Warning, tr("Insert Image"), shown.join("\n\n"), QMessageBox::Ok,
                  window);
  box.setObjectName("imagesRefused");
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace

void insertImages(OpenPlot& plot, const QStringList& paths, const QPointF& place, QWidget* window) {
  if (!plot.activeLayer()) {
    tellRefused({tr("The plot has no layer to put an image on. Add one in the panel Layers.")},
                window);
    return;
  }
  QStringList refusals;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  Insertion insertion(plot, place);
  for (const QString& path : paths) {
    const QString refusal = insertion.take(path);
    if (!refusal.isEmpty()) refusals += tr("“%1” is not inserted. %2").arg(nameOf(path), refusal);
  }
  insertion.perform();
  QApplication::restoreOverrideCursor();
  if (!refusals.isEmpty()) tellRefused(refusals, window);
}

void askForImages(OpenPlot& plot, const QPointF& place, QWidget* window) {
  const QStringList paths = QFileDialog::getOpenFileNames(
      window, tr("Insert Image"), {},
      tr("Images and PDFs (*.png *.jpg *.jpeg *.gif *.bmp *.tif *.tiff *.webp *.heic *.heif *.avif "
         "*.pdf);;All files (*)"));
  if (!paths.isEmpty()) insertImages(plot, paths, place, window);
}

}  // namespace korrin::editor
