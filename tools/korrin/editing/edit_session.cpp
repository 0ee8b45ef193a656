#include "editing/edit_session.h"

#include <algorithm>
#include <utility>

#include "korrin/session/opening.h"
#include "korrin/validation/document_validation.h"

#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "editing/edit_commands.h"
#include "editing/edit_words.h"
#include "editing/item_names.h"
#include "editing/session_steps.h"
#include "terminal/display_text.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

using Words = EditCommand::Words;

std::vector<std::string> commandNames() {
  std::vector<std::string> names;
  for (const EditCommand& command : editCommands()) names.emplace_back(command.name);
  return names;
}

/// The command of the line. One name may stand for several uses.
const EditCommand& commandFor(const std::string& name, std::size_t wordCount) {
  const EditCommand* found = nullptr;
  std::string uses;
  for (const EditCommand& command : editCommands()) {
    if (command.name != name) continue;
    if (wordCount >= command.fewest && wordCount <= command.most) return command;
    uses += (found == nullptr ? "use: " : ", or ") + command.use();
    found = &command;
  }
  if (found == nullptr)
    throw LineError("there is no command " + inQuotes(name) +
                    suggestion(name, commandNames(), "; help lists them"));
  throw LineError(uses);
}

/// Whether all but the time of the last change is the same. Change sets do not tell of metadata.
bool haveOneMetadata(const KorrinProject& before, const KorrinProject& after) {
  ProjectMetadata metadata = after.metadata;
  metadata.modifiedAt = before.metadata.modifiedAt;
  return metadata == before.metadata;
}

/// One line on what became of the plot.
std::string changesSentence(const ChangeSet& changes, const KorrinProject& before,
                            const KorrinProject& after) {
  constexpr std::size_t mostNamed = 6;
  // The identifiers come in no order; the project's order is the one that people know.
  std::vector<std::string> named;
  IDSet left = changes.changedItemIDs;
  const auto take = [&](const KorrinProject& project, std::string_view remark) {
    const ItemNames names(project);
    for (const PlotItem& item : project.items)
      if (left.erase(item.id) > 0) named.push_back(names.nameOf(item) + std::string(remark));
  };
  take(after, "");
  take(before, " (gone)");
  std::vector<std::string> parts;
  if (!named.empty())
    parts.push_back(std::to_string(named.size()) + (named.size() == 1 ? " item (" : " items (") +
                    listed(named, mostNamed) + ")");
  if (changes.affectsTechnicalData) parts.push_back("technical data");
  if (changes.affectsDocumentStructure) parts.push_back("document structure");
  if (parts.empty()) parts.push_back(haveOneMetadata(before, after) ? "nothing" : "metadata");
  return "changed: " + printable(listed(parts)) + "\n";
}

}  // namespace

EditSession::EditSession(Settings settings, KorrinProject project, Console& console)
    : settings_(std::move(settings)), history_(std::move(project)), console_(console) {
  if (settings_.opened) files_.emplace(identityOf(settings_.file), *settings_.opened);
}

void EditSession::run(std::string_view line) {
  Words words = wordsOf(line);
  if (words.empty()) return;
  wasWarned_ = std::exchange(hasWarned_, false);
  const EditCommand& command = commandFor(words.front(), words.size() - 1);
  words.erase(words.begin());
  line_ = line.substr(line.find_first_not_of(" \t"));
  command.carryOut(*this, words);
}

// What can fail comes first, what is said included: a line that runs out of memory must not leave
// an edit behind.
void EditSession::apply(const DocumentCommand& command) {
  const KorrinProject before = project();
  KorrinProject after = before;
  ChangeSet changes{};
  try {
    changes = command.apply(after, environment()).changes;
    DocumentValidation::validate(after);
  } catch (const DocumentValidationError& error) {
    throw LineError(std::string("the plot would not be valid: ") + error.what());
  }
  const std::string sentence = changesSentence(changes, before, after);
  std::vector<std::string> names(
      names_.begin(), names_.begin() + static_cast<std::ptrdiff_t>(history_.undoCount()));
  names.push_back(line_);
  history_.perform(command,
                   {.name = line_, .mergeKey = {}, .selection = {}, .selectionAfterwards = {}},
                   environment());
  // The history forgets the oldest edits at some time.
  if (names.size() > history_.undoCount())
    names.erase(names.begin(), names.end() - static_cast<std::ptrdiff_t>(history_.undoCount()));
  names_ = std::move(names);
  console_.out << sentence;
}

void EditSession::take(Step step, std::string_view verb, const std::string& refusal) {
  EditHistory next = history_;
  const std::optional<HistoryStep> done = (next.*step)(environment());
  if (!done) throw LineError(refusal);
  const std::string sentences = std::string(verb) + ": " + printable(done->name) + "\n" +
                                changesSentence(done->changes, project(), next.project());
  history_ = std::move(next);
  console_.out << sentences;
}

void EditSession::undo() { take(&EditHistory::undo, "undone", "there is nothing to undo"); }

void EditSession::redo() { take(&EditHistory::redo, "done again", "there is nothing to redo"); }

void EditSession::listEdits() {
  if (names_.empty()) throw LineError("there are no edits yet");
  for (std::size_t i = 0; i < names_.size(); ++i)
    console_.out << (i < history_.undoCount() ? "done    " : "undone  ") << printable(names_[i])
                 << '\n';
}

void EditSession::write(const Save& save) {
  // Another file is one that was never opened, until it has been saved once.
  const std::string identity = identityOf(save.file);
  DocumentFile& file = files_.try_emplace(identity, DocumentFile(save.file)).first->second;
  try {
    requireReplaceable(save.file);
    host::save(file, save.bytes, save.replacing, console_);
  } catch (const NotReplaced& failure) {
    throw LineError(save.file + ": " + failure.what() +
                    (identity == identityOf(settings_.file)
                         ? "; save! replaces it, save FILE writes another"
                         : "; save! FILE replaces it, another FILE leaves it"));
  } catch (const Failure& failure) {
    throw LineError(save.file + ": " + failure.what(), failure.exitCode());
  }
}

void EditSession::save(const std::string& file, Replacing replacing) {
  if (file == standardStream) throw LineError("save needs a file: the plot came from a stream");
  Save save{file, bytesToSave(project(), settings_.encoding) + "\n", replacing};
  const std::string sentence =
      (settings_.savesAtTheEnd ? "to be saved: " : "saved: ") + printable(file) + "\n";
  if (settings_.savesAtTheEnd)
    saves_.push_back(std::move(save));
  else
    write(save);
  history_.markSaved();
  console_.out << sentence;
}

void EditSession::finish() {
  for (const Save& save : saves_) write(save);
  saves_.clear();
}

void EditSession::quit() {
  if (settings_.isInteractive && hasUnsavedChanges() && !wasWarned_) {
    hasWarned_ = true;
    throw LineError("there are unsaved changes; save them, or quit again to lose them");
  }
  isOver_ = true;
}

void undoEdit(EditSession& session, const Words&) { session.undo(); }
void redoEdit(EditSession& session, const Words&) { session.redo(); }
void listEdits(EditSession& session, const Words&) { session.listEdits(); }
void savePlot(EditSession& session, const Words& words) {
  session.save(words.empty() ? session.settings().file : words[0], Replacing::whatWasOpened);
}
void savePlotAnyway(EditSession& session, const Words& words) {
  session.save(words.empty() ? session.settings().file : words[0], Replacing::anything);
}
void printHelp(EditSession& session, const Words&) {
  session.console().out << textOf(editCommandsHelp());
}
void quitSession(EditSession& session, const Words&) { session.quit(); }

}  // namespace korrin::host
