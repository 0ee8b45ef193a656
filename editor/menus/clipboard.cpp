#include "editor/menus/clipboard.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMimeData>

#include "korrin/session/clipboard.h"

#include "editor/plot/plot_artwork.h"

namespace korrin::editor {
namespace {

constexpr const char* fragmentType = "application/x-korrin-fragment";

QString tr(const char* text) { return QCoreApplication::translate("Clipboard", text); }

}  // namespace

bool copySelection(const OpenPlot& plot) {
  const PlotFragment fragment = fragmentOf(plot.project(), plot.selection());
  if (fragment.items.empty()) return false;
  // The images go where another window finds them. Without them it shows frames.
  plot.artwork().bring(fragment.assetManifest, plot.artwork().sharedFolder());
  auto* data = new QMimeData;
  data->setData(fragmentType, QByteArray::fromStdString(encodeJSON(fragment)));
  QGuiApplication::clipboard()->setMimeData(data);
  return true;
}

void pasteInto(OpenPlot& plot, const QPointF& shift) {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (data == nullptr || !data->hasFormat(fragmentType)) return;
  try {
    const auto fragment = decodeJSON<PlotFragment>(data->data(fragmentType).toStdString());
    const std::optional<Paste> paste =
        pastingCommand(plot.project(), fragment,
                       {.offset = {.x = shift.x(), .y = shift.y()}, .layerID = plot.activeLayer()},
                       plot.environment());
    if (!paste) return;
    if (!plot.perform(tr("Paste"), paste->command,
                      {.select = IDSet(paste->itemIDs.begin(), paste->itemIDs.end())}))
      return;
    for (const std::string& failure : plot.artwork().bringHere(fragment.assetManifest))
      Q_EMIT plot.refused(QString::fromStdString(failure));
  } catch (const DecodingError& error) {
    Q_EMIT plot.refused(tr("The clipboard holds no part of a plot: %1").arg(error.what()));
  }
}

bool canPaste() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasFormat(fragmentType);
}

}  // namespace korrin::editor
