#pragma once

// The commands that korrin edit understands.

#include <string>
#include <string_view>
#include <vector>

#include "korrin/coding/coding_options.h"
#include "korrin/geometry/item_alignment.h"

#include "assets/known_assets.h"
#include "editing/editor.h"
#include "terminal/passages.h"
#include "terminal/terminal.h"

namespace korrin::host {

/// What the user is told about the commands, for --help and help.
std::vector<Passage> editCommandsHelp();

class EditSession {
 public:
  struct Settings {
    std::string file;               ///< Where `save` writes; "-" when the plot came from a stream.
    KnownAssets assets = {};        ///< For `preflight`.
    EncodingOptions encoding = {};  ///< For `save`.
    /// Whether somebody is there to think again when unsaved changes would be lost.
    bool isInteractive = false;
  };

  EditSession(Settings settings, KorrinProject project, Console& console);

  /// Carries out one line and prints what came of it. Throws LineError when the line is not
  /// understood or refused, or when saving fails; then nothing has changed.
  void run(std::string_view line);

  /// Whether `quit` was carried out.
  bool isOver() const { return isOver_; }

  bool hasUnsavedChanges() const { return editor_.isModified(); }

 private:
  using Words = std::vector<std::string>;  // those after the command's name
  struct Command;
  friend std::vector<Passage> editCommandsHelp();

  static const std::vector<Command>& commands();

  void list(const Words& words);
  void show(const Words& words);
  void align(const Words& words);
  void distribute(const Words& words);
  void moveItem(const Words& words);
  void deleteItems(const Words& words);
  void group(const Words& words);
  void label(const Words& words);
  void undo(const Words& words);
  void redo(const Words& words);
  void preflight(const Words& words);
  void save(const Words& words);
  void help(const Words& words);
  void quit(const Words& words);

  void arrange(ItemAlignment alignment, const Words& itemNames);
  /// Applies the command and prints what its change set says.
  void apply(const DocumentCommand& command);
  void replace(PlotItem item);
  void printStep(std::string_view verb, const Editor::Step& step, const KorrinProject& before);
  /// Prints what an edit changed, items by the names they have or had.
  void printChanges(const ChangeSet& changes, const KorrinProject& before);

  Settings settings_;
  Editor editor_;
  Console& console_;
  std::string line_;  // being carried out: what an edit is called when it is undone
  bool isOver_ = false;
  bool hasWarned_ = false;  // that quitting loses changes, on this line
  bool wasWarned_ = false;  // the same, on the line before
};

}  // namespace korrin::host
