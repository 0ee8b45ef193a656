// A history of edits, drags, and what surprises where the core is used without one.

#include <cstddef>
#include <iostream>
#include <limits>
#include <optional>
#include <string>

#include <korrin/korrin.h>
#include <korrin/session.h>

using namespace korrin;

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
  EditHistory history(KorrinProject::template_(KorrinTemplateID::powerTrio));

  PlotItem moved = history.project().items.front();
  moved.position.x += 500;
  refresh(history.perform(DocumentCommand::replaceItems({moved}), {.name = "Move"}));
  refresh(history.perform(DocumentCommand::deleteItems({moved.id}),
                          {.name = "Delete", .selection = {moved.id}}));

  std::cout << "Undo " << history.undoName()->str() << '\n';
  while (const std::optional<HistoryStep> step = history.undo()) refresh(step->changes);
  // [/edit]
}

void severalEditsAsOne() {
  EditHistory history(KorrinProject::template_(KorrinTemplateID::powerTrio));
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

void drag() {
  EditHistory history(KorrinProject::template_(KorrinTemplateID::powerTrio));
  const IDSet selection = {history.project().items.front().id};
  // [drag]
  history.beginGesture({.name = "Drag", .selection = selection, .selectionAfterwards = selection});
  for (int step = 0; step < 200; ++step)
    if (const auto command = movingCommand(history.project(), selection, {.x = 2, .y = 1}))
      history.perform(*command);
  history.endGesture();  // or cancelGesture(), when the user presses Escape
  // [/drag]
  std::cout << "edits to undo after a drag of 200 steps: " << history.undoCount() << '\n';
}

void typing() {
  EditHistory history(KorrinProject::template_(KorrinTemplateID::powerTrio));
  // [merge]
  for (const char* venue : {"R", "Ro", "Ros", "Rose"}) {
    ProjectMetadata metadata = history.project().metadata;
    metadata.venue = venue;
    history.perform(DocumentCommand::replaceMetadata(metadata),
                    {.name = "Change Venue", .mergeKey = "venue"});
  }
  // [/merge]
  std::cout << "edits to undo after typing four letters: " << history.undoCount() << '\n';
}

void reinsertedItem() {
  // [reinsert]
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  PlotItem item = project.items.front();
  item.label = "Relabelled";

  const std::size_t count = project.items.size();
  const CommandResult inserted = DocumentCommand::insertItems({item}).apply(project);
  inserted.inverse.apply(project);
  std::cout << "items lost by insert and its inverse: " << count - project.items.size() << '\n';
  // [/reinsert]
}

void savedDocument() {
  // [saved]
  EditHistory history(KorrinProject::template_(KorrinTemplateID::powerTrio));
  const KorrinProject saved = history.project();

  history.perform(DocumentCommand::replaceNotes({}));
  history.undo();
  std::cout << "equal to what was saved: " << (history.project() == saved)
            << ", saved: " << history.isSaved() << '\n';
  // [/saved]
  history.perform(DocumentCommand::replaceNotes({}));
  history.markSaved();
  history.undo();
  history.perform(DocumentCommand::replaceEquipment({}));
  std::cout << "as many edits as when it was saved, but others; saved: " << history.isSaved()
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
  drag();
  typing();
  reinsertedItem();
  savedDocument();
  heightThatIsNoNumber();
}
