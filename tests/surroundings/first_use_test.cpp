// The first use of what is built once in a process, by threads that race for it: a program of its
// own, meant for the thread sanitizer and to be run many times from the start.

#include <atomic>
#include <cstddef>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/templates/korrin_template.h"

#include "tests/support/sample_project.h"

namespace korrin {
namespace {

struct Seen {
  const std::vector<KorrinTemplate>* templates = nullptr;
  std::size_t hash = 0;
  std::vector<PreflightIssue> issues;
};

TEST(FirstUse, MayBeRacedFor) {
  constexpr std::size_t count = 8;
  KorrinProject plot = test::sampleProject();
  plot.inputs.push_back(plot.inputs.front());  // A channel used twice ranks first.
  std::atomic<std::size_t> ready = 0;
  std::vector<Seen> seen(count);
  {
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < count; ++i) {
      threads.emplace_back(
          [&ready, &plot = std::as_const(plot), &mine = seen[i], templatesFirst = i % 2 == 0] {
            ++ready;
            while (ready < count) std::this_thread::yield();
            if (!templatesFirst) mine.issues = PreflightEngine::inspect(plot, {});
            mine.templates = &KorrinTemplate::all();
            for (const KorrinTemplate& each : *mine.templates)
              mine.hash = hashCombine(mine.hash, std::hash<KorrinTemplate>{}(each));
            if (templatesFirst) mine.issues = PreflightEngine::inspect(plot, {});
          });
    }
  }
  EXPECT_EQ(seen[0].templates->size(), 4u);
  EXPECT_GE(seen[0].issues.size(), 2u);
  EXPECT_NE(seen[0].issues.front().severity, seen[0].issues.back().severity);
  for (const Seen& each : seen) {
    EXPECT_EQ(each.templates, seen[0].templates);
    EXPECT_EQ(each.hash, seen[0].hash);
    EXPECT_EQ(each.issues, seen[0].issues);
  }
}

}  // namespace
}  // namespace korrin
