// One open plot: opening, drags, undo and redo, pasting, noting for recovery. The peer does the
// same on plain vectors; for undo it keeps the one former item of a drag, and the whole former plot
// of a deletion or a paste. Opening has its own parts beside it, which look for no unknown keys.

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <unistd.h>

#include "korrin/session/autosave.h"
#include "korrin/session/edit_history.h"
#include "korrin/session/opening.h"
#include "korrin/session/structural_edits.h"
#include "korrin/validation/document_validation.h"

#include "benchmarks/support/contest.h"
#include "benchmarks/support/plain_commands.h"
#include "benchmarks/support/plot_generator.h"

namespace korrin::benchmarks {
namespace {

const PlotItem& inTheMiddle(const KorrinProject& project) {
  return project.items[project.items.size() / 2];
}

std::shared_ptr<VectorProject> mirrored(const KorrinProject& project) {
  return std::make_shared<VectorProject>(MirrorOf<KorrinProject>::of(project));
}

// One step of a drag: the item goes to and fro.
void addDrag(std::size_t items) {
  const KorrinProject project = generatedPlot(items);
  const PlotItem from = inTheMiddle(project);
  PlotItem to = from;
  to.position.x += 100;

  const auto history = std::make_shared<EditHistory>(project);
  history->beginGesture();
  const std::vector<DocumentCommand> steps = {DocumentCommand::replaceItems({to}),
                                              DocumentCommand::replaceItems({from})};
  compete("drag/step/korrin", items,
          [history, steps, turn = 0u]() mutable { return history->perform(steps[turn++ % 2]); });
  compete("drag/step/vectors-in-place", items,
          [vectors = mirrored(project), item = MirrorOf<PlotItem>::of(to)]() mutable {
            item = exchangeItem(*vectors, std::move(item));
            return field<&PlotItem::id>(item);
          });
}

// Undo and redo of an edit, both, so that the plot is afterwards what it was.
void addUndoAndRedo(const std::string& name, std::size_t items, const KorrinProject& project,
                    const DocumentCommand& command) {
  const auto history = std::make_shared<EditHistory>(project);
  history->perform(command);
  compete(name, items, [history] {
    history->undo();
    return history->redo();
  });
}

void addUndo(std::size_t items) {
  const KorrinProject project = generatedPlot(items);
  PlotItem moved = inTheMiddle(project);
  moved.position.x += 100;
  addUndoAndRedo("undo-redo/move/korrin", items, project, DocumentCommand::replaceItems({moved}));
  compete("undo-redo/move/vectors-in-place", items,
          [vectors = mirrored(project), item = MirrorOf<PlotItem>::of(moved)]() mutable {
            item = exchangeItem(*vectors, std::move(item));
            item = exchangeItem(*vectors, std::move(item));
            return field<&PlotItem::id>(item);
          });
  addUndoAndRedo("undo-redo/delete/korrin", items, project,
                 DocumentCommand::deleteItems({moved.id}));
  const auto vectors = mirrored(project);
  const auto former = std::make_shared<VectorProject>(deleteItems(*vectors, {moved.id}).inverse);
  compete("undo-redo/delete/vectors", items, [vectors, former] {
    *former = putBack(*vectors, std::move(*former)).inverse;
    VectorResult redone = putBack(*vectors, std::move(*former));
    *former = std::move(redone.inverse);
    return std::move(redone.changedItemIDs);
  });
}

// The peer's paste: copies with fresh identifiers, group members following.
VectorResult pasteItems(VectorProject& project, const VectorProject& fragment) {
  VectorProject former = project;
  std::unordered_map<UUID, UUID> fresh;
  std::unordered_map<UUID, UUID> freshGroups;
  IDSet ids;
  for (const auto& item : field<&KorrinProject::items>(fragment)) {
    const UUID id = Environment::system().makeUUID();
    fresh.emplace(field<&PlotItem::id>(item), id);
    ids.insert(id);
  }
  for (auto group : field<&KorrinProject::groups>(fragment)) {
    const UUID id = Environment::system().makeUUID();
    freshGroups.emplace(field<&PlotGroup::id>(group), id);
    field<&PlotGroup::id>(group) = id;
    for (UUID& member : field<&PlotGroup::itemIDs>(group)) member = fresh.at(member);
    field<&KorrinProject::groups>(project).push_back(std::move(group));
  }
  for (auto item : field<&KorrinProject::items>(fragment)) {
    field<&PlotItem::id>(item) = fresh.at(field<&PlotItem::id>(item));
    if (auto& groupID = field<&PlotItem::groupID>(item)) groupID = freshGroups.at(*groupID);
    field<&StagePoint::x>(field<&PlotItem::position>(item)) += 100;
    field<&KorrinProject::items>(project).push_back(std::move(item));
  }
  noteModification(project);
  return {.inverse = std::move(former), .changedItemIDs = std::move(ids)};
}

// A thousand items go into a plot of so many.
void addPaste(std::size_t items) {
  constexpr std::size_t pastedItems = 1'000;
  const KorrinProject project = generatedPlot(items);
  const KorrinProject source = generatedPlot(pastedItems);
  IDSet all;
  for (const PlotItem& item : source.items) all.insert(item.id);
  const PlotFragment fragment = fragmentOf(source, all);
  compete("paste/thousand/korrin", items, [project, fragment] {
    KorrinProject edited = project;
    return pastingCommand(project, fragment, {.offset = {.x = 100, .y = 0}})
        .value()
        .command.apply(edited);
  });
  KorrinProject held = source;
  held.items = fragment.items;
  held.groups = fragment.groups;
  compete("paste/thousand/vectors", items, [vectors = mirrored(project), source = mirrored(held)] {
    VectorResult result = pasteItems(*vectors, *source);
    *vectors = std::move(result.inverse);
    return std::move(result.changedItemIDs);
  });
}

void addOpening(const std::string& name, std::size_t items, std::string document) {
  const auto text = std::make_shared<const std::string>(std::move(document));
  compete("open/" + name + "/korrin", items, [text] { return openDocument(*text); });
  compete("open/" + name + "/parts", items, [text] {
    peekVersions(*text);
    KorrinProject project = decodeJSON<KorrinProject>(*text);
    DocumentValidation::validate(project);
    return project;
  });
}

// Each item has a member that the format does not know.
std::string withUnknownKeys(const std::string& document) {
  const std::string key = "\"assetID\":";
  std::string text;
  std::size_t from = 0;
  for (std::size_t at = 0; (at = document.find(key, from)) != std::string::npos;) {
    text.append(document, from, at - from).append("\"opacity\":0.5,").append(key);
    from = at + key.size();
  }
  return text.append(document, from);
}

void addOpening(std::size_t items) {
  const std::string document = bytesToSave(generatedPlot(items), {});
  addOpening("plain", items, document);
  addOpening("unknown", items, withUnknownKeys(document));
}

// The worker writes all the time meanwhile, one state after the other.
void addNoting(std::size_t items) {
  const KorrinProject project = generatedPlot(items);
  PlotItem moved = inTheMiddle(project);
  moved.position.x += 100;
  KorrinProject edited = project;
  DocumentCommand::replaceItems({moved}).apply(edited);
  benchmark::RegisterBenchmark(("note/while-writing/korrin/" + std::to_string(items)).c_str(),
                               [project, edited](benchmark::State& state) {
                                 const auto file =
                                     std::filesystem::temp_directory_path() /
                                     ("korrin-benchmark-" + std::to_string(::getpid()));
                                 Autosave autosave(file, std::chrono::milliseconds(0));
                                 bool isEdited = false;
                                 for (auto _ : state)
                                   autosave.note((isEdited = !isEdited) ? edited : project);
                                 autosave.settle();
                               })
      ->Unit(benchmark::kMicrosecond);
}

}  // namespace
}  // namespace korrin::benchmarks

int main(int argc, char** argv) {
  for (const std::size_t items : korrin::benchmarks::itemCounts) {
    korrin::benchmarks::addOpening(items);
    korrin::benchmarks::addDrag(items);
    korrin::benchmarks::addUndo(items);
    korrin::benchmarks::addPaste(items);
    korrin::benchmarks::addNoting(items);
  }
  return korrin::benchmarks::runContest(argc, argv);
}
