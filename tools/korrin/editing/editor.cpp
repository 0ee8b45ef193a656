#include "editing/editor.h"

#include <utility>

#include "korrin/validation/document_validation.h"

namespace korrin::host {

Editor::Editor(KorrinProject project, Environment environment)
    : project_(std::move(project)), saved_(project_), environment_(std::move(environment)) {}

ChangeSet Editor::apply(const DocumentCommand& command, std::string title) {
  KorrinProject next = project_;
  CommandResult result = command.apply(next, environment_);
  DocumentValidation::validate(next);
  undo_.push_back({std::move(title), result.inverse});
  redo_.clear();
  project_ = std::move(next);
  return std::move(result.changes);
}

std::optional<Editor::Step> Editor::undo() { return move(undo_, redo_); }

std::optional<Editor::Step> Editor::redo() { return move(redo_, undo_); }

std::optional<Editor::Step> Editor::move(std::vector<Entry>& from, std::vector<Entry>& to) {
  if (from.empty()) return std::nullopt;
  Entry entry = from.back();
  CommandResult result = entry.command.apply(project_, environment_);
  from.pop_back();
  to.push_back({entry.title, result.inverse});
  return Step{std::move(entry.title), std::move(result.changes)};
}

bool Editor::isModified() const {
  KorrinProject saved = saved_;
  saved.metadata.modifiedAt = project_.metadata.modifiedAt;
  return saved != project_;
}

}  // namespace korrin::host
