// Meant for the thread sanitizer. A program of its own, because the first use of the templates
// happens once in a process.

#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/templates/korrin_template.h"

namespace korrin {
namespace {

TEST(TemplateThreads, MayRaceForTheFirstUse) {
  constexpr std::size_t count = 8;
  std::atomic<std::size_t> ready = 0;
  std::vector<const std::vector<KorrinTemplate>*> lists(count);
  std::vector<std::size_t> hashes(count);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < count; ++i) {
    threads.emplace_back([&ready, &list = lists[i], &hash = hashes[i]] {
      ++ready;
      while (ready < count) std::this_thread::yield();
      list = &KorrinTemplate::all();
      for (const KorrinTemplate& each : *list)
        hash = hashCombine(hash, std::hash<KorrinTemplate>{}(each));
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_EQ(lists[i], lists[0]);
    EXPECT_EQ(hashes[i], hashes[0]);
  }
  EXPECT_EQ(lists[0]->size(), 4u);
}

}  // namespace
}  // namespace korrin
