#include "editor/panels/plot_waivers.h"

#include <system_error>

#include "korrin/coding/coding_error.h"
#include "korrin/coding/json.h"
#include "korrin/session/opening.h"

#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

constexpr std::size_t maximumSize = std::size_t{16} << 20;

WaiverList noWaivers() {
  return {.schemaVersion = WaiverList::currentSchemaVersion, .waivers = {}};
}

// Who accepts a finding: the name under which the user works.
QString userName() { return qEnvironmentVariable("USER"); }

}  // namespace

std::filesystem::path waiversBeside(const std::filesystem::path& plot) {
  std::filesystem::path path = plot;
  path.replace_extension("waivers.json");
  return path;
}

PlotWaivers::PlotWaivers(OpenPlot& plot, QObject* parent)
    : QObject(parent), plot_(plot), list_(noWaivers()) {
  connect(&plot_, &OpenPlot::replaced, this, &PlotWaivers::load);
  connect(&plot_, &OpenPlot::historyChanged, this, &PlotWaivers::follow);
}

void PlotWaivers::load() {
  list_ = noWaivers();
  file_.reset();
  isReadable_ = true;
  if (const DocumentFile* plotFile = plot_.file()) {
    file_.emplace(waiversBeside(plotFile->path()));
    std::error_code none;
    if (std::filesystem::exists(file_->path(), none)) {
      try {
        WaiverList read = decodeJSON<WaiverList>(file_->openBytes(maximumSize));
        isReadable_ = read.schemaVersion <= WaiverList::currentSchemaVersion;
        if (isReadable_)
          list_ = std::move(read);
        else
          Q_EMIT failed(
              tr("The list of accepted findings was made by a newer version. It is left "
                 "as it is."));
      } catch (const FileError& error) {
        isReadable_ = false;
        Q_EMIT failed(QString::fromUtf8(error.what()));
      } catch (const DecodingError& error) {
        isReadable_ = false;
        Q_EMIT failed(tr("The list of accepted findings cannot be read: %1")
                          .arg(QString::fromUtf8(error.what())));
      }
    }
  }
  Q_EMIT changed();
}

// The plot was saved under another name: its waivers go along.
void PlotWaivers::follow() {
  const DocumentFile* plotFile = plot_.file();
  if (plotFile == nullptr || (file_ && file_->path() == waiversBeside(plotFile->path()))) return;
  file_.emplace(waiversBeside(plotFile->path()));
  isReadable_ = true;
  std::error_code none;
  if (list_.waivers.empty()) {
    if (std::filesystem::exists(file_->path(), none)) load();
    return;
  }
  store();
}

void PlotWaivers::waive(const Text& findingID, const QString& reason) {
  list_.waivers.push_back({.findingID = findingID,
                           .reason = toText(reason),
                           .author = toText(userName()),
                           .date = plot_.environment().now()});
  store();
  Q_EMIT changed();
}

void PlotWaivers::revoke(const Text& findingID) {
  list_.waivers.eraseIf([&](const Waiver& waiver) { return waiver.findingID == findingID; });
  store();
  Q_EMIT changed();
}

void PlotWaivers::store() {
  if (!file_) return;
  if (!isReadable_) {
    Q_EMIT failed(
        tr("The list of accepted findings beside the plot cannot be understood and is "
           "not replaced. What you accept holds until the window closes."));
    return;
  }
  try {
    file_->saveBytes(encodeJSON(list_, prettyPrinted));
  } catch (const FileError& error) {
    Q_EMIT failed(QString::fromUtf8(error.what()));
  }
}

}  // namespace korrin::editor
