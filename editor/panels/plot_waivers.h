#pragma once

// The findings of the open plot that somebody accepted, kept beside the plot's file.

#include <QObject>
#include <optional>

#include "korrin/review/waivers.h"
#include "korrin/session/document_file.h"

#include "editor/plot/open_plot.h"

namespace korrin::editor {

/// Follows the plot from file to file. As long as the plot has none, waivers wait for it.
class PlotWaivers : public QObject {
  Q_OBJECT

 public:
  explicit PlotWaivers(OpenPlot& plot, QObject* parent = nullptr);

  const WaiverList& list() const { return list_; }

  /// Accepts a finding from now on.
  void waive(const Text& findingID, const QString& reason);
  /// Takes that back.
  void revoke(const Text& findingID);

 Q_SIGNALS:
  void changed();
  /// The file of waivers cannot be read or written: why, in a sentence.
  void failed(const QString& sentence);

 private:
  void load();
  void follow();
  void store();

  OpenPlot& plot_;
  WaiverList list_;
  std::optional<DocumentFile> file_;
  bool isReadable_ = true;  // a file that is there and cannot be understood is not replaced
};

/// Where the waivers of a plot stand: NAME.waivers.json beside NAME.json.
std::filesystem::path waiversBeside(const std::filesystem::path& plot);

}  // namespace korrin::editor
