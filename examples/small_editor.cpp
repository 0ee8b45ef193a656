// An editor, whole but for its window: it opens a plot or says why not, edits it with undo and
// drags, copies and pastes, keeps what a crash would lose, and saves over nobody's work.
//
//     small_editor PLOT < commands

#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

#include <korrin/korrin.h>
#include <korrin/session.h>

namespace {

using namespace korrin;

// What a user is told instead of seeing a plot.
std::string refusal(const OpenedDocument&) { return {}; }
std::string refusal(const NewerDocument&) { return "This plot needs a newer version."; }
std::string refusal(const auto& document) { return document.error.what(); }

class Editor {
 public:
  Editor(DocumentFile file, OpenedDocument opened)
      : file_(std::move(file)),
        history_(std::move(opened.project)),
        autosave_(recoveryFileFor(file_.path())) {
    if (opened.unknownKeys.count > 0)
      std::cout << "saving drops " << opened.unknownKeys.count << " unknown member(s)\n";
    if (std::optional<Recovery> recovery = recoveryOf(file_.path())) {
      perform(DocumentCommand::replaceProject(std::move(recovery->project)), "Recover");
      std::cout << "recovered what was not saved; undo for the file as it is\n";
    }
  }

  void run(const std::string& line) {
    std::istringstream words(line);
    std::string verb;
    words >> verb;
    if (verb == "select")
      select(words);
    else if (verb == "drag")
      drag(words);
    else if (verb == "delete")
      perform(deletingCommand(project(), selection_).value_or(DocumentCommand::compound({})),
              "Delete");
    else if (verb == "copy")
      clipboard_ = encodeJSON(fragmentOf(project(), selection_));
    else if (verb == "paste")
      paste();
    else if (verb == "undo")
      show(history_.undo(), "undone");
    else if (verb == "redo")
      show(history_.redo(), "redone");
    else if (verb == "save")
      save();
    else
      std::cout << "what is \"" << verb << "\"?\n";
    history_.isSaved() ? autosave_.settle() : autosave_.note(project());
  }

  void report() const {
    std::cout << project().items.size() << " items, " << selection_.size() << " selected, "
              << history_.undoCount() << " to undo, " << (history_.isSaved() ? "" : "not ")
              << "saved\n";
  }

 private:
  const KorrinProject& project() const { return history_.project(); }

  void select(std::istream& words) {
    std::string label;
    std::getline(words >> std::ws, label);
    selection_.clear();
    for (const PlotItem& item : project().items)
      if (item.label == label && project().canSelectItem(item)) selection_.insert(item.id);
  }

  // As the pointer moves, step by step; one edit for undo.
  void drag(std::istream& words) {
    StagePoint by{};
    int steps = 0;
    words >> by.x >> by.y >> steps;
    history_.beginGesture(
        {.name = "Drag", .selection = selection_, .selectionAfterwards = selection_});
    for (int step = 0; step < steps; ++step)
      if (const auto command = movingCommand(project(), selection_, by)) history_.perform(*command);
    history_.endGesture();
  }

  void paste() {
    const auto paste = pastingCommand(project(), decodeJSON<PlotFragment>(clipboard_),
                                      {.offset = {.x = 200, .y = 200}});
    if (!paste) return;
    KorrinProject trial = project();  // the clipboard may hold what would spoil the plot
    paste->command.apply(trial);
    DocumentValidation::validate(trial);
    perform(paste->command, "Paste", IDSet(paste->itemIDs.begin(), paste->itemIDs.end()));
  }

  void perform(const DocumentCommand& command, const char* name, IDSet selected = {}) {
    history_.perform(command,
                     {.name = name, .selection = selection_, .selectionAfterwards = selected});
    selection_ = std::move(selected);
  }

  void show(const std::optional<HistoryStep>& step, const char* what) {
    if (!step) return void(std::cout << "nothing to do\n");
    selection_ = step->selection;
    std::cout << what << ": " << step->name.str() << '\n';
  }

  void save() {
    file_.save(project());  // throws ChangedElsewhere rather than write over somebody's work
    history_.markSaved();
  }

  DocumentFile file_;
  EditHistory history_;
  Autosave autosave_;
  IDSet selection_;
  std::string clipboard_;
};

}  // namespace

int main(int, char** arguments) try {
  DocumentFile file(arguments[1]);
  OpenOutcome outcome = file.open();
  if (const auto refused = std::visit([](const auto& it) { return refusal(it); }, outcome);
      !refused.empty()) {
    std::cout << refused << '\n';
    return 1;
  }
  Editor editor(std::move(file), std::get<OpenedDocument>(std::move(outcome)));
  for (std::string line; std::getline(std::cin, line); editor.report()) {
    try {
      editor.run(line);
    } catch (const std::exception& error) {
      std::cout << error.what() << '\n';  // the plot is what it was before the line
    }
  }
} catch (const std::exception& error) {
  std::cout << error.what() << '\n';
  return 1;
}
