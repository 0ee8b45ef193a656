// Differences and merges of plots of many sizes: one record changed or a tenth of them, and the two
// states of one plot, which share their storage, or two files, which share nothing.

#include <benchmark/benchmark.h>

#include "korrin/model/document_coding.h"
#include "korrin/review/difference.h"
#include "korrin/review/merge.h"

#include "benchmarks/support/plot_generator.h"

namespace korrin::benchmarks {
namespace {

KorrinProject unshared(const KorrinProject& project) {
  return decodeJSON<KorrinProject>(encodeJSON(project));
}

/// The plot with every `step`th item moved, from item `first` on.
KorrinProject edited(KorrinProject project, std::size_t first, std::size_t step) {
  for (std::size_t i = first; i < project.items.size(); i += step)
    project.items.edit(i).position.x += 10;
  return project;
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  for (const std::int64_t count : {30, 300, 1'000, 10'000, 100'000}) benchmark->Arg(count);
}

/// Every item, or every tenth: what `step` of `edited` is.
std::size_t stepOf(const KorrinProject& project, bool isOneRecord) {
  return isOneRecord ? project.items.size() : 10;
}

template <bool isOneRecord, bool isShared>
void compare(benchmark::State& state) {
  const KorrinProject before = generatedPlot(static_cast<std::size_t>(state.range(0)));
  KorrinProject after = edited(before, 5, stepOf(before, isOneRecord));
  if (!isShared) after = unshared(after);
  for (auto _ : state) benchmark::DoNotOptimize(differences(before, after));
}

template <bool isOneRecord, bool isShared>
void mergeSides(benchmark::State& state) {
  const KorrinProject base = generatedPlot(static_cast<std::size_t>(state.range(0)));
  KorrinProject ours = edited(base, 5, stepOf(base, isOneRecord));
  KorrinProject theirs = edited(base, 7, stepOf(base, isOneRecord));
  if (!isShared) {
    ours = unshared(ours);
    theirs = unshared(theirs);
  }
  for (auto _ : state) benchmark::DoNotOptimize(merge(base, ours, theirs));
}

BENCHMARK(compare<true, true>)->Name("differences/one changed/shared")->Apply(sizes);
BENCHMARK(compare<false, true>)->Name("differences/a tenth changed/shared")->Apply(sizes);
BENCHMARK(compare<true, false>)->Name("differences/one changed/two files")->Apply(sizes);
BENCHMARK(compare<false, false>)->Name("differences/a tenth changed/two files")->Apply(sizes);
BENCHMARK(mergeSides<true, true>)->Name("merge/one changed/shared")->Apply(sizes);
BENCHMARK(mergeSides<false, true>)->Name("merge/a tenth changed/shared")->Apply(sizes);
BENCHMARK(mergeSides<true, false>)->Name("merge/one changed/three files")->Apply(sizes);
BENCHMARK(mergeSides<false, false>)->Name("merge/a tenth changed/three files")->Apply(sizes);

}  // namespace
}  // namespace korrin::benchmarks

BENCHMARK_MAIN();
