// The inspection of a plot, and the equality of texts on which much of it rests.

#include <cstring>
#include <string>
#include <unordered_set>
#include <vector>

#include <benchmark/benchmark.h>

#include "korrin/preflight/preflight_engine.h"

#include "benchmarks/support/plot_generator.h"

namespace korrin::benchmarks {
namespace {

void inspect(benchmark::State& state) {
  const KorrinProject project = generatedPlot(static_cast<std::size_t>(state.range(0)));
  std::unordered_set<Text> known;
  for (const PlotItem& item : project.items) known.insert(item.assetID);
  const std::size_t records = project.items.size() + project.inputs.size() +
                              project.monitorMixes.size() + project.equipmentRequirements.size();
  std::size_t issues = 0;
  for (auto _ : state) {
    const auto found = PreflightEngine::inspect(project, known);
    benchmark::DoNotOptimize(found.data());
    issues = found.size();
  }
  state.counters["records"] = static_cast<double>(records);
  state.counters["issues"] = static_cast<double>(issues);
  state.counters["perRecord"] = benchmark::Counter(
      static_cast<double>(records),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(inspect)->Arg(30)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// A thousand pairs of equal texts in memory of their own, of the length of a symbol's identifier.
constexpr std::size_t pairCount = 1000;

std::string word(std::size_t i, const std::string& filling) {
  return "krn." + filling + "." + std::to_string(i % 10) + ".v1";
}

void compareTexts(benchmark::State& state, const std::string& filling) {
  std::vector<Text> left, right;
  for (std::size_t i = 0; i < pairCount; ++i) {
    left.emplace_back(word(i, filling));
    right.emplace_back(word(i, filling));
  }
  for (auto _ : state)
    for (std::size_t i = 0; i < pairCount; ++i) benchmark::DoNotOptimize(left[i] == right[i]);
}

void compareBytes(benchmark::State& state) {
  std::vector<std::string> left, right;
  for (std::size_t i = 0; i < pairCount; ++i) {
    left.push_back(word(i, "instrument.keyboard"));
    right.push_back(word(i, "instrument.keyboard"));
  }
  for (auto _ : state)
    for (std::size_t i = 0; i < pairCount; ++i)
      benchmark::DoNotOptimize(left[i].size() == right[i].size() &&
                               std::memcmp(left[i].data(), right[i].data(), left[i].size()) == 0);
}

BENCHMARK_CAPTURE(compareTexts, plain, "instrument.keyboard");
BENCHMARK_CAPTURE(compareTexts, wide, "\u4E50\u5668\u952E\u76D8");
BENCHMARK_CAPTURE(compareTexts, combining, "cafe\u0301.cle\u0301.mo\u0302");
BENCHMARK(compareBytes);

}  // namespace
}  // namespace korrin::benchmarks
