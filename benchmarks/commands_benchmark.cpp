// Time and memory of the commands, beside the same deletion on plain vectors with a copy of the
// whole project for undo.
//
// Times are those of the command alone: the project that it is applied to is made before, and the
// result is disposed of after the clock has stopped. Both sides start from a project that another
// copy holds as well, which for the vectors means a project of its own.

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <future>
#include <thread>
#include <type_traits>
#include <vector>

#include <benchmark/benchmark.h>

#include "korrin/commands/document_command.h"

#include "benchmarks/support/plot_generator.h"
#include "benchmarks/support/vector_mirror.h"
#include "tests/support/allocations.h"

namespace korrin::benchmarks {
namespace {

template <class Action>
auto timed(benchmark::State& state, Action action) {
  const auto start = std::chrono::steady_clock::now();
  auto result = action();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  state.SetIterationTime(taken.count());
  return result;
}

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

KorrinProject plotFor(const benchmark::State& state) {
  return generatedPlot(static_cast<std::size_t>(state.range(0)));
}

KorrinProject wordyPlotFor(const benchmark::State& state) {
  KorrinProject project = plotFor(state);
  lengthen(project);
  return project;
}

// `count` items at equal distances in the list.
IDSet spread(const KorrinProject& project, std::size_t count) {
  IDSet ids;
  for (std::size_t i = 0; i < count; ++i)
    ids.insert(project.items[i * project.items.size() / count].id);
  return ids;
}

IDSet oneInTheMiddle(const KorrinProject& project) {
  return {project.items[project.items.size() / 2].id};
}

using VectorProject = Mirror<KorrinProject>;

template <auto list, auto link>
void clearLinks(VectorProject& project, const IDSet& ids) {
  for (auto& row : field<list>(project)) {
    auto& itemID = field<link>(row);
    if (itemID && ids.contains(*itemID)) itemID = std::nullopt;
  }
}

struct VectorResult {
  VectorProject inverse;
  IDSet changedItemIDs;
};

// The steps of a deletion, word for word.
VectorResult deleteFromVectors(VectorProject& project, const IDSet& ids) {
  VectorProject former = project;
  std::erase_if(field<&KorrinProject::items>(project),
                [&ids](const auto& item) { return ids.contains(field<&PlotItem::id>(item)); });
  clearLinks<&KorrinProject::inputs, &InputChannel::plotItemID>(project, ids);
  clearLinks<&KorrinProject::monitorMixes, &MonitorMix::plotItemID>(project, ids);
  clearLinks<&KorrinProject::equipmentRequirements, &EquipmentRequirement::plotItemID>(project,
                                                                                       ids);
  auto& groups = field<&KorrinProject::groups>(project);
  for (auto& group : groups)
    std::erase_if(field<&PlotGroup::itemIDs>(group),
                  [&ids](const UUID& id) { return ids.contains(id); });
  std::erase_if(groups,
                [](const auto& group) { return field<&PlotGroup::itemIDs>(group).empty(); });
  field<&ProjectMetadata::modifiedAt>(field<&KorrinProject::metadata>(project)) =
      Environment::system().now();
  return {.inverse = std::move(former), .changedItemIDs = ids};
}

using MakePlot = KorrinProject (*)(const benchmark::State&);

// The first request for a large block makes the allocator tidy up what the making of a plot has
// left behind, which for 100,000 items takes longer than a hundred commands.
void applyUntimed(const DocumentCommand& command, KorrinProject project) {
  benchmark::DoNotOptimize(command.apply(project));
}

void DeleteOneItem(benchmark::State& state, MakePlot makePlot) {
  const KorrinProject project = makePlot(state);
  const DocumentCommand command = DocumentCommand::deleteItems(oneInTheMiddle(project));
  applyUntimed(command, project);
  for (auto _ : state) {
    KorrinProject edited = project;
    const auto result = timed(state, [&] { return command.apply(edited); });
    benchmark::DoNotOptimize(result);
  }
}

void DeleteOneItemFromVectors(benchmark::State& state, MakePlot makePlot) {
  const KorrinProject shared = makePlot(state);
  const IDSet ids = oneInTheMiddle(shared);
  VectorProject project = MirrorOf<KorrinProject>::of(shared);
  project = deleteFromVectors(project, ids).inverse;
  for (auto _ : state) {
    auto result = timed(state, [&] { return deleteFromVectors(project, ids); });
    project = std::move(result.inverse);
  }
}

// As in a host with several threads, where owners of shared storage are counted by atomic
// instructions. The C library does not forget that there was a thread: to be run by itself.
void DeleteOneItemBesideAThread(benchmark::State& state) {
  std::promise<void> end;
  std::thread other([&end] { end.get_future().wait(); });
  DeleteOneItem(state, plotFor);
  end.set_value();
  other.join();
}

// A session of deletions whose results are all kept: what each adds to the heap.
void HeapOfAnUndoEntry(benchmark::State& state) {
  constexpr std::size_t edits = 20;
  const KorrinProject project = plotFor(state);
  std::vector<DocumentCommand> commands;
  for (const UUID& id : spread(project, edits))
    commands.push_back(DocumentCommand::deleteItems({id}));
  for (auto _ : state) {
    KorrinProject edited = project;
    std::vector<CommandResult> undoStack;
    undoStack.reserve(edits);
    const std::ptrdiff_t before = liveBytes();
    for (const DocumentCommand& command : commands) undoStack.push_back(command.apply(edited));
    state.counters["bytes"] = static_cast<double>(liveBytes() - before) / edits;
  }
}

void UndoOfADeletion(benchmark::State& state) {
  const KorrinProject project = plotFor(state);
  KorrinProject edited = project;
  const auto deletion = DocumentCommand::deleteItems(oneInTheMiddle(project)).apply(edited);
  for (auto _ : state) {
    KorrinProject undone = edited;
    const auto result = timed(state, [&] { return deletion.inverse.apply(undone); });
    benchmark::DoNotOptimize(result);
  }
}

// The part of the undo that depends on the number of items: the set of all their identifiers.
void ChangeSetOfAnUndo(benchmark::State& state) {
  const KorrinProject project = plotFor(state);
  for (auto _ : state) {
    const auto ids = timed(state, [&] {
      IDSet set;
      set.reserve(project.items.size());
      for (const PlotItem& item : project.items) set.insert(item.id);
      return set;
    });
    benchmark::DoNotOptimize(ids);
  }
}

// The other part alone: the same undo where the plot's items have been taken out of both projects.
void UndoBesidesItsChangeSet(benchmark::State& state) {
  KorrinProject project = plotFor(state);
  project.items.clear();
  KorrinProject edited = project;
  edited.inputs.edit(0).plotItemID = std::nullopt;
  const DocumentCommand undo = DocumentCommand::replaceProject(project);
  for (auto _ : state) {
    KorrinProject undone = edited;
    const auto result = timed(state, [&] { return undo.apply(undone); });
    benchmark::DoNotOptimize(result);
  }
}

void CopyOfAProject(benchmark::State& state) {
  const KorrinProject project = plotFor(state);
  const std::size_t before = allocationCount();
  for (auto _ : state) {
    KorrinProject copy = project;
    benchmark::DoNotOptimize(copy);
  }
  state.counters["allocations"] = static_cast<double>(allocationCount() - before);
}

void ReplaceSeveralItems(benchmark::State& state, std::size_t count) {
  const KorrinProject project = plotFor(state);
  const IDSet ids = spread(project, count);
  List<PlotItem> moved;
  for (const PlotItem& item : project.items) {
    if (!ids.contains(item.id)) continue;
    moved.emplace_back(item).position.x += 100;
  }
  const DocumentCommand command = DocumentCommand::replaceItems(moved);
  applyUntimed(command, project);
  for (auto _ : state) {
    KorrinProject edited = project;
    const auto result = timed(state, [&] { return command.apply(edited); });
    benchmark::DoNotOptimize(result);
  }
}

void DeleteSeveralItems(benchmark::State& state, std::size_t count) {
  const KorrinProject project = plotFor(state);
  const DocumentCommand command = DocumentCommand::deleteItems(spread(project, count));
  applyUntimed(command, project);
  for (auto _ : state) {
    KorrinProject edited = project;
    const auto result = timed(state, [&] { return command.apply(edited); });
    benchmark::DoNotOptimize(result);
  }
}

void plotSizes(benchmark::internal::Benchmark* benchmark) {
  for (const int items : {30, 1'000, 100'000}) benchmark->Arg(items);
  benchmark->UseManualTime();
}

BENCHMARK_CAPTURE(DeleteOneItem, shortTexts, plotFor)->Apply(plotSizes);
BENCHMARK_CAPTURE(DeleteOneItemFromVectors, shortTexts, plotFor)->Apply(plotSizes);
BENCHMARK_CAPTURE(DeleteOneItem, longTexts, wordyPlotFor)->Apply(plotSizes);
BENCHMARK_CAPTURE(DeleteOneItemFromVectors, longTexts, wordyPlotFor)->Apply(plotSizes);
BENCHMARK(UndoOfADeletion)->Apply(plotSizes);
BENCHMARK(ChangeSetOfAnUndo)->Apply(plotSizes);
BENCHMARK(UndoBesidesItsChangeSet)->Apply(plotSizes);
BENCHMARK(HeapOfAnUndoEntry)->Arg(30)->Arg(1'000)->Arg(100'000)->Iterations(1);
BENCHMARK(CopyOfAProject)->Arg(30)->Arg(1'000)->Arg(100'000);
BENCHMARK_CAPTURE(ReplaceSeveralItems, one, 1)->Arg(100'000)->UseManualTime();
BENCHMARK_CAPTURE(ReplaceSeveralItems, aThousand, 1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->UseManualTime();
BENCHMARK_CAPTURE(DeleteSeveralItems, tenThousand, 10'000)->Arg(100'000)->UseManualTime();
BENCHMARK(DeleteOneItemBesideAThread)->Apply(plotSizes);

}  // namespace
}  // namespace korrin::benchmarks
