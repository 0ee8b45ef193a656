// Edits of a plot and their undo, beside the same edits on plain vectors. Every cycle includes the
// disposal of the result and of the edited project.

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "korrin/commands/document_command.h"

#include "benchmarks/support/contest.h"
#include "benchmarks/support/plain_commands.h"
#include "benchmarks/support/plot_generator.h"

namespace korrin::benchmarks {
namespace {

// A list whose texts are sentences. A std::string keeps up to 15 characters within itself, so that
// the length of texts decides how often a copy of a vector allocates.
template <class T>
void lengthen(List<T>& list);
template <class T>
void lengthen(T& value) {
  if constexpr (std::is_same_v<T, Text>)
    value = value.str() + ", see the stage plan";
  else if constexpr (RecordType<T>)
    forEachField<T>([&](const auto& field) { lengthen(value.*field.member); });
}
template <class T>
void lengthen(List<T>& list) {
  for (std::size_t i = 0; i < list.size(); ++i) lengthen(list.edit(i));
}

PlotItem inTheMiddle(const KorrinProject& project) {
  return project.items[project.items.size() / 2];
}

std::shared_ptr<VectorProject> mirrored(const KorrinProject& project) {
  return std::make_shared<VectorProject>(MirrorOf<KorrinProject>::of(project));
}

void addCommand(const std::string& name, std::size_t items, const KorrinProject& project,
                const DocumentCommand& command) {
  compete(name, items, [project, command] {
    KorrinProject edited = project;
    return command.apply(edited);
  });
}

// An edit of the peer's project, which its own inverse restores.
template <class Edit>
void addVectorEdit(const std::string& name, std::size_t items,
                   const std::shared_ptr<VectorProject>& vectors, Edit edit) {
  compete(name, items, [vectors, edit] {
    VectorResult result = edit(*vectors);
    *vectors = std::move(result.inverse);
    return std::move(result.changedItemIDs);
  });
}

void addDeletion(const std::string& texts, std::size_t items, const KorrinProject& project) {
  const IDSet ids = {inTheMiddle(project).id};
  addCommand("delete/" + texts + "/korrin", items, project, DocumentCommand::deleteItems(ids));
  addVectorEdit("delete/" + texts + "/vectors", items, mirrored(project),
                [ids](VectorProject& vectors) { return deleteItems(vectors, ids); });
}

// A plot of one size, and the same one for all of the peer's edits, each of which is put back.
struct Plot {
  std::size_t items;
  KorrinProject project;
  std::shared_ptr<VectorProject> vectors;
};

IDSet everyTenth(const KorrinProject& project) {
  IDSet ids;
  for (std::size_t i = 0; i < project.items.size(); i += 10) ids.insert(project.items[i].id);
  return ids;
}

void addManyAtOnce(const Plot& plot) {
  const IDSet tenth = everyTenth(plot.project);
  List<PlotItem> moved;
  for (const PlotItem& item : plot.project.items)
    if (tenth.contains(item.id)) moved.emplace_back(item).position.x += 100;
  addCommand("delete/tenth/korrin", plot.items, plot.project, DocumentCommand::deleteItems(tenth));
  addVectorEdit("delete/tenth/vectors", plot.items, plot.vectors,
                [tenth](VectorProject& vectors) { return deleteItems(vectors, tenth); });
  addCommand("replace/tenth/korrin", plot.items, plot.project,
             DocumentCommand::replaceItems(moved));
  addVectorEdit("replace/tenth/vectors", plot.items, plot.vectors,
                [items = MirrorOf<List<PlotItem>>::of(moved)](VectorProject& vectors) {
                  return replaceItems(vectors, items);
                });
}

void addUndo(const Plot& plot) {
  KorrinProject edited = plot.project;
  const auto deletion = DocumentCommand::deleteItems({inTheMiddle(edited).id}).apply(edited);
  addCommand("undo/whole/korrin", plot.items, edited, deletion.inverse);
  compete("undo/whole/vectors", plot.items,
          [vectors = plot.vectors, former = mirrored(plot.project)] {
            VectorResult result = putBack(*vectors, std::move(*former));
            *former = std::move(result.inverse);
            return std::move(result.changedItemIDs);
          });

  // The change set names every item; without items there is only the rest of the undo.
  KorrinProject rest = plot.project;
  rest.items.clear();
  edited = rest;
  edited.inputs.edit(0).plotItemID = std::nullopt;
  addCommand("undo/besides-change-set/korrin", plot.items, edited,
             DocumentCommand::replaceProject(rest));
}

void addReplacement(const Plot& plot) {
  PlotItem moved = inTheMiddle(plot.project);
  moved.position.x += 100;
  const VectorItem mirroredItem = MirrorOf<PlotItem>::of(moved);
  addCommand("replace/one/korrin", plot.items, plot.project,
             DocumentCommand::replaceItems({moved}));
  addVectorEdit(
      "replace/one/vectors", plot.items, plot.vectors,
      [mirroredItem](VectorProject& vectors) { return replaceItem(vectors, mirroredItem); });
  // Its inverse is applied the next time.
  compete("replace/one/vectors-in-place", plot.items,
          [vectors = plot.vectors, item = mirroredItem]() mutable {
            item = exchangeItem(*vectors, std::move(item));
            return field<&PlotItem::id>(item);
          });
}

void addGrouping(const std::string& which, const Plot& plot, const IDSet& selection) {
  const std::string name = "grouping/" + which;
  compete(name + "/korrin", plot.items, [project = plot.project, selection] {
    KorrinProject edited = project;
    return edited.groupingCommand(selection).value().apply(edited);
  });
  addVectorEdit(name + "/vectors", plot.items, plot.vectors,
                [selection](VectorProject& vectors) { return groupItems(vectors, selection); });
}

void addGroupings(const Plot& plot) {
  IDSet two;
  for (const PlotItem& item : plot.project.items)
    if (two.size() < 2 && plot.project.canEditItem(item)) two.insert(item.id);
  addGrouping("two", plot, two);
  addGrouping("tenth", plot, everyTenth(plot.project));
}

void addCopy(const Plot& plot) {
  compete("copy/project/korrin", plot.items,
          [project = plot.project] { return KorrinProject(project); });
  compete("copy/project/vectors", plot.items,
          [vectors = plot.vectors] { return VectorProject(*vectors); });
}

}  // namespace
}  // namespace korrin::benchmarks

int main(int argc, char** argv) {
  using namespace korrin::benchmarks;
  for (const std::size_t items : itemCounts) {
    const korrin::KorrinProject project = generatedPlot(items);
    const Plot plot = {.items = items, .project = project, .vectors = mirrored(project)};
    korrin::KorrinProject wordy = project;
    lengthen(wordy);
    addDeletion("short", items, project);
    addDeletion("long", items, wordy);
    addManyAtOnce(plot);
    addUndo(plot);
    addReplacement(plot);
    addGroupings(plot);
    addCopy(plot);
  }
  return runContest(argc, argv);
}
