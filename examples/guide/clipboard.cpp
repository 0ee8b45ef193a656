// Copying, pasting and duplicating.

#include <iostream>
#include <optional>
#include <string>

#include <korrin/korrin.h>
#include <korrin/session.h>

using namespace korrin;

// [copy]
std::string clipboardText(const KorrinProject& project, const IDSet& selection) {
  return encodeJSON(fragmentOf(project, selection));
}
// [/copy]

// [paste]
IDSet paste(EditHistory& history, const std::string& text, const PasteOptions& options) {
  PlotFragment fragment;
  try {
    fragment = decodeJSON<PlotFragment>(text);
  } catch (const DecodingError&) {
    return {};  // something else is on the clipboard
  }
  const std::optional<Paste> paste = pastingCommand(history.project(), fragment, options);
  if (!paste) return {};

  KorrinProject trial = history.project();  // costs nothing
  paste->command.apply(trial);
  DocumentValidation::validate(trial);  // throws where the fragment would spoil the plot

  const IDSet pasted(paste->itemIDs.begin(), paste->itemIDs.end());
  history.perform(paste->command, {.name = "Paste", .selectionAfterwards = pasted});
  return pasted;
}
// [/paste]

int main() {
  const KorrinProject trio = KorrinProject::template_(KorrinTemplateID::powerTrio);
  const IDSet selection = {trio.items[0].id, trio.items[1].id};
  const std::string text = clipboardText(trio, selection);

  EditHistory history(KorrinProject::newDocument());
  const IDSet pasted = paste(history, text, {.offset = {.x = 250, .y = 250}});
  std::cout << "pasted into another plot: " << pasted.size() << " items\n"
            << "what is no fragment: " << paste(history, "Dear venue,", {}).size() << " items\n";

  std::string spoilt = text;
  const std::string size = "\"width\":";
  spoilt.insert(spoilt.find(size) + size.size(), "-");
  try {
    paste(history, spoilt, {});
  } catch (const DocumentValidationError& error) {
    std::cout << "what would spoil the plot: " << error.what() << '\n';
  }

  // [duplicate]
  if (const auto copy = duplicatingCommand(history.project(), pasted, {.x = 250, .y = 250}))
    history.perform(copy->command, {.name = "Duplicate"});
  // [/duplicate]
  std::cout << "after duplicating: " << history.project().items.size() << " items\n";
  while (history.undo()) continue;
  std::cout << "after undo: " << history.project().items.size() << " items\n";
}
