// Heap that reading, holding and editing a plot take, as the allocator rounds it. Allocations are
// counted as the tests do, at operator new, which costs time: nothing else is measured here.

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "korrin/commands/document_command.h"
#include "korrin/model/document_coding.h"
#include "korrin/session/edit_history.h"

#include "benchmarks/support/contest.h"
#include "benchmarks/support/mirror_reading.h"
#include "benchmarks/support/peer_nodes.h"
#include "benchmarks/support/plain_commands.h"
#include "benchmarks/support/plot_generator.h"
#include "tests/support/allocations.h"

namespace korrin::benchmarks {
namespace {

// Registers a measurement in bytes, or whatever else the axis says. It is exact, so one suffices.
void measure(const std::string& name, std::size_t items, std::function<double()> once) {
  benchmark::RegisterBenchmark((name + '/' + std::to_string(items)).c_str(),
                               [once = std::move(once)](benchmark::State& state) {
                                 for (auto _ : state) state.counters["value"] = once();
                               })
      ->Iterations(1);
}

// The most heap beyond what was there before, for each byte of the document.
template <class Read>
double peakWhile(const std::string& document, Read read) {
  const std::ptrdiff_t before = liveBytes();
  restartPeak();
  const auto result = read(document);
  benchmark::DoNotOptimize(result);
  return static_cast<double>(peakBytes() - before) / static_cast<double>(document.size());
}

// What one of twenty edits in a row adds, where all their results are kept.
template <class Project, class Edit>
double heldForEachEdit(Project project, const std::vector<UUID>& ids, Edit edit) {
  std::vector<decltype(edit(project, IDSet{}))> undoStack;
  undoStack.reserve(ids.size());
  const std::ptrdiff_t before = liveBytes();
  for (const UUID& id : ids) undoStack.push_back(edit(project, IDSet{id}));
  return static_cast<double>(liveBytes() - before) / static_cast<double>(ids.size());
}

std::vector<UUID> twentyOf(const KorrinProject& project) {
  constexpr std::size_t count = 20;
  std::vector<UUID> ids;
  for (std::size_t i = 0; i < count; ++i)
    ids.push_back(project.items[i * project.items.size() / count].id);
  return ids;
}

void addReading(std::size_t items) {
  const auto text = std::make_shared<const std::string>(encodeJSON(generatedPlot(items)));
  measure("reading-heap/compact/korrin", items, [text] {
    return peakWhile(*text,
                     [](const auto& document) { return decodeJSON<KorrinProject>(document); });
  });
  measure("reading-heap/compact/nlohmann-json", items, [text] {
    return peakWhile(*text, [](const auto& document) {
      return ReadingOf<KorrinProject>::from(NlohmannNode(nlohmann::json::parse(document)));
    });
  });
  measure("reading-heap/compact/simdjson", items, [text] {
    return peakWhile(*text, [](const auto& document) {
      simdjson::dom::parser parser;
      return ReadingOf<KorrinProject>::from(SimdjsonNode(parser.parse(document).value()));
    });
  });
}

void addUndoEntries(std::size_t items) {
  measure("undo-heap/entry/korrin", items, [items] {
    const KorrinProject project = generatedPlot(items);
    return heldForEachEdit(project, twentyOf(project), [](auto& edited, IDSet ids) {
      return DocumentCommand::deleteItems(std::move(ids)).apply(edited);
    });
  });
  measure("undo-heap/entry/vectors", items, [items] {
    const KorrinProject project = generatedPlot(items);
    return heldForEachEdit(MirrorOf<KorrinProject>::of(project), twentyOf(project),
                           [](auto& edited, const IDSet& ids) { return deleteItems(edited, ids); });
  });
}

// What a drag of so many steps leaves behind.
double heldByDrag(std::size_t items, int steps) {
  EditHistory history(generatedPlot(items));
  PlotItem item = history.project().items[items / 2];
  const std::ptrdiff_t before = liveBytes();
  history.beginGesture();
  for (int step = 0; step < steps; ++step) {
    item.position.x += 1;
    history.perform(DocumentCommand::replaceItems({item}));
  }
  history.endGesture();
  return static_cast<double>(liveBytes() - before);
}

void addDrags(std::size_t items) {
  measure("drag-heap/one-step/korrin", items, [items] { return heldByDrag(items, 1); });
  measure("drag-heap/steps/korrin", items, [items] { return heldByDrag(items, 10'000); });
}

template <class Project>
double allocationsOfACopy(const Project& project) {
  const std::size_t before = allocationCount();
  const Project copy = project;
  benchmark::DoNotOptimize(copy);
  return static_cast<double>(allocationCount() - before);
}

void addCopies(std::size_t items) {
  measure("copy-allocations/project/korrin", items,
          [items] { return allocationsOfACopy(generatedPlot(items)); });
  measure("copy-allocations/project/vectors", items, [items] {
    return allocationsOfACopy(MirrorOf<KorrinProject>::of(generatedPlot(items)));
  });
}

}  // namespace
}  // namespace korrin::benchmarks

int main(int argc, char** argv) {
  for (const std::size_t items : korrin::benchmarks::itemCounts) {
    korrin::benchmarks::addReading(items);
    korrin::benchmarks::addUndoEntries(items);
    korrin::benchmarks::addDrags(items);
    korrin::benchmarks::addCopies(items);
  }
  return korrin::benchmarks::runContest(argc, argv);
}
