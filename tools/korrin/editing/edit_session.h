#pragma once

// A plot being edited by commands: what they share, and how a line is carried out.

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/coding/coding_options.h"
#include "korrin/session/clipboard.h"
#include "korrin/session/edit_history.h"

#include "assets/known_assets.h"
#include "documents/document_file.h"
#include "terminal/terminal.h"

namespace korrin::host {

class EditSession {
 public:
  struct Settings {
    std::string file;  ///< Where `save` writes; "-" when the plot came from a stream.
    std::optional<DocumentFile> opened = {};  ///< The same, as it was opened.
    KnownAssets assets = {};                  ///< For `preflight`.
    EncodingOptions encoding = {};            ///< For `save`.
    /// Whether somebody is there to think again when unsaved changes would be lost.
    bool isInteractive = false;
    /// Whether `save` waits until `finish`.
    bool savesAtTheEnd = false;
    Environment environment = Environment::system();
  };

  EditSession(Settings settings, KorrinProject project, Console& console);

  /// Carries out one line and prints what came of it. Throws LineError when the line is not
  /// understood or refused, or when saving fails, and `std::bad_alloc`; then the plot and what can
  /// be undone are as they were.
  void run(std::string_view line);

  /// Writes what `save` was to write but waited. Throws LineError.
  void finish();

  /// Whether `quit` was carried out.
  bool isOver() const { return isOver_; }
  bool hasUnsavedChanges() const { return !history_.isSaved() || !saves_.empty(); }

  // For the commands.

  const Settings& settings() const { return settings_; }
  const Environment& environment() const { return settings_.environment; }
  Console& console() { return console_; }
  const KorrinProject& project() const { return history_.project(); }

  /// Makes an edit, named after the line, and prints what changed. Throws LineError, and changes
  /// nothing, when the project would not be safe to open any more.
  void apply(const DocumentCommand& command);

  void undo();
  void redo();
  /// Prints the names of the edits that can be undone, and of those that can be done again.
  void listEdits();
  /// Throws LineError, also where `replacing` forbids it.
  void save(const std::string& file, Replacing replacing);
  /// Ends the session; where changes would be lost and somebody is there, only when asked twice.
  void quit();

  const PlotFragment& clipboard() const { return clipboard_; }
  void setClipboard(PlotFragment fragment) { clipboard_ = std::move(fragment); }

 private:
  struct Save {
    std::string file;
    std::string bytes;
    Replacing replacing;
  };

  using Step = std::optional<HistoryStep> (EditHistory::*)(const Environment&);

  void write(const Save& save);
  void take(Step step, std::string_view verb, const std::string& refusal);

  Settings settings_;
  EditHistory history_;
  std::map<std::string, DocumentFile> files_;  // opened or saved here, by their identities
  Console& console_;
  std::vector<std::string> names_;  // of the edits, those that can be done again at the end
  PlotFragment clipboard_;
  std::vector<Save> saves_;  // that wait for the end
  std::string line_;         // the one being carried out
  bool isOver_ = false;
  bool hasWarned_ = false;  // that quitting loses changes, on this line
  bool wasWarned_ = false;  // the same, on the line before
};

}  // namespace korrin::host
