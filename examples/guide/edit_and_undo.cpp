// A history of edits, and the three surprises that undo and saving hold.

#include <cstddef>
#include <iostream>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <korrin/korrin.h>

using namespace korrin;

// [history]
class History {
 public:
  explicit History(KorrinProject project) : project_(std::move(project)) {}

  const KorrinProject& project() const { return project_; }
  bool isClean() const { return cleanPosition_ == undo_.size(); }
  void markSaved() { cleanPosition_ = undo_.size(); }

  ChangeSet perform(const DocumentCommand& command) {
    ChangeSet changes = apply(command, undo_);
    redo_.clear();
    // What was saved may lie among the edits that can no longer be redone.
    if (cleanPosition_ && *cleanPosition_ >= undo_.size()) cleanPosition_.reset();
    return changes;
  }
  std::optional<ChangeSet> undo() { return step(undo_, redo_); }
  std::optional<ChangeSet> redo() { return step(redo_, undo_); }

 private:
  using Stack = std::vector<DocumentCommand>;

  ChangeSet apply(const DocumentCommand& command, Stack& inverses) {
    CommandResult done = command.apply(project_);
    inverses.push_back(std::move(done.inverse));
    return std::move(done.changes);
  }
  std::optional<ChangeSet> step(Stack& from, Stack& to) {
    if (from.empty()) return std::nullopt;
    ChangeSet changes = apply(from.back(), to);
    from.pop_back();
    return changes;
  }

  KorrinProject project_;
  Stack undo_;
  Stack redo_;
  std::optional<std::size_t> cleanPosition_ = 0;
};
// [/history]

// [refresh]
void refresh(const ChangeSet& changes) {
  std::cout << "redraw " << changes.changedItemIDs.size() << " item(s)";
  if (changes.affectsTechnicalData) std::cout << ", the lists";
  if (changes.affectsDocumentStructure) std::cout << ", layers and outline";
  std::cout << '\n';
}
// [/refresh]

void editAndUndo() {
  // [edit]
  History history(KorrinProject::template_(KorrinTemplateID::powerTrio));

  PlotItem moved = history.project().items.front();
  moved.position.x += 500;
  refresh(history.perform(DocumentCommand::replaceItems({moved})));
  refresh(history.perform(DocumentCommand::deleteItems({moved.id})));

  while (const std::optional<ChangeSet> changes = history.undo()) refresh(*changes);
  // [/edit]
}

void severalEditsAsOne() {
  History history(KorrinProject::template_(KorrinTemplateID::powerTrio));
  StageDefinition stage = history.project().stage;
  stage.name = "Garden Stage";
  ProjectMetadata metadata = history.project().metadata;
  metadata.venue = "Rosengarten";
  // [compound]
  history.perform(DocumentCommand::compound(
      {DocumentCommand::replaceStage(stage), DocumentCommand::replaceMetadata(metadata)}));
  history.undo();
  // [/compound]
  std::cout << "one undo for two edits: " << (history.project().stage.name != "Garden Stage")
            << '\n';
}

void reinsertedItem() {
  // [reinsert]
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  PlotItem item = project.items.front();
  item.label = "Relabelled";

  const std::size_t count = project.items.size();
  const CommandResult inserted = DocumentCommand::insertItems({item}).apply(project);
  inserted.inverse.apply(project);
  std::cout << "items lost by insert and undo: " << count - project.items.size() << '\n';
  // [/reinsert]
}

void cleanDocument() {
  // [clean]
  History history(KorrinProject::template_(KorrinTemplateID::powerTrio));
  const KorrinProject saved = history.project();
  history.markSaved();

  history.perform(DocumentCommand::replaceNotes({}));
  history.undo();
  std::cout << "equal to what was saved: " << (history.project() == saved)
            << ", clean: " << history.isClean() << '\n';
  // [/clean]
  history = History(saved);
  history.perform(DocumentCommand::deleteItems({saved.items.front().id}));
  history.undo();
  std::cout << "equal after undoing a deletion: " << (history.project() == saved) << '\n';

  history.perform(DocumentCommand::replaceNotes({}));
  history.markSaved();
  history.undo();
  history.perform(DocumentCommand::replaceEquipment({}));
  std::cout << "as many edits as when it was saved, but others; clean: " << history.isClean()
            << '\n';
}

void heightThatIsNoNumber() {
  // [height]
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  project.items.edit(0).riserHeightMillimeters = std::numeric_limits<double>::quiet_NaN();

  DocumentValidation::validate(project);  // does not look at riser heights
  try {
    encodeJSON(project);
  } catch (const EncodingError& error) {
    std::cout << "not saved: " << error.what() << '\n';
  }
  // [/height]
}

int main() {
  std::cout << std::boolalpha;
  editAndUndo();
  severalEditsAsOne();
  reinsertedItem();
  cleanDocument();
  heightThatIsNoNumber();
}
