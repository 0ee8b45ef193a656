#pragma once

// How benchmarks are named, so that the report finds what to set beside what:
// "axis/case/contender/items", as in "decode/indented/simdjson/1000".

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>

namespace korrin::benchmarks {

/// The sizes of plots at which growth is looked at.
inline constexpr std::array<std::size_t, 4> itemCounts = {30, 1'000, 10'000, 100'000};

/// Registers one contender. `once` is called again and again and leaves everything as it found it;
/// the disposal of its result is part of the measured time. `name` has the first three parts.
template <class Once>
void compete(const std::string& name, std::size_t items, Once once) {
  benchmark::RegisterBenchmark((name + '/' + std::to_string(items)).c_str(),
                               [once = std::move(once)](benchmark::State& state) mutable {
                                 for (auto _ : state) benchmark::DoNotOptimize(once());
                               })
      ->Unit(benchmark::kMicrosecond);
}

/// Runs what has been registered, as the program's arguments ask.
inline int runContest(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace korrin::benchmarks
