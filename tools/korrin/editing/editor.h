#pragma once

// A project being edited: the library applies commands and gives their inverses, the host keeps
// them for undo and redo.

#include <optional>
#include <string>
#include <vector>

#include "korrin/commands/document_command.h"

namespace korrin::host {

class Editor {
 public:
  /// Begins with a valid project, which counts as saved.
  explicit Editor(KorrinProject project, Environment environment = Environment::system());

  const KorrinProject& project() const { return project_; }

  /// Applies a command, after which there is nothing to redo. `title` is what to call the edit when
  /// it is undone. Throws DocumentValidationError, and changes nothing, when the project would not
  /// be safe to open any more.
  ChangeSet apply(const DocumentCommand& command, std::string title);

  /// An edit that was taken back or done again.
  struct Step {
    std::string title;
    ChangeSet changes;
  };
  /// Takes the last edit back; nothing when there is none.
  std::optional<Step> undo();
  /// Does the edit that was taken back last again; nothing when there is none.
  std::optional<Step> redo();

  /// Whether the project differs from the saved one in more than the time of its last change.
  bool isModified() const;
  void markSaved() { saved_ = project_; }

 private:
  struct Entry {
    std::string title;
    DocumentCommand command;
  };

  /// Applies the last entry of one stack and puts its inverse on the other.
  std::optional<Step> move(std::vector<Entry>& from, std::vector<Entry>& to);

  KorrinProject project_;
  KorrinProject saved_;  // shares what is not changed
  Environment environment_;
  std::vector<Entry> undo_;
  std::vector<Entry> redo_;
};

}  // namespace korrin::host
