// The process is killed while it notes, and may lose no more than was promised.

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <new>
#include <random>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <sys/mman.h>

#include "korrin/foundation/steady_time.h"
#include "korrin/session/autosave.h"
#include "korrin/session/opening.h"

#include "tests/session/folder.h"
#include "tests/session/killed.h"
#include "tests/support/allocations.h"
#include "tests/support/effort.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// When each state was noted, kept where it outlives the process that notes.
struct Diary {
  static constexpr std::size_t most = 100'000;
  std::atomic<std::size_t> count;
  std::array<std::chrono::nanoseconds, most> times;

  // How long the machine let the process wait, at most: writing waits no less.
  std::chrono::nanoseconds longestPause() const {
    std::chrono::nanoseconds longest{};
    for (std::size_t i = 1; i < count; ++i) longest = std::max(longest, times[i] - times[i - 1]);
    return longest;
  }
};

class SharedDiary {
 public:
  SharedDiary()
      : memory_(::mmap(nullptr, sizeof(Diary), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                       -1, 0)) {
    if (memory_ == MAP_FAILED) throw std::bad_alloc();
  }
  ~SharedDiary() { ::munmap(memory_, sizeof(Diary)); }
  SharedDiary(const SharedDiary&) = delete;
  SharedDiary& operator=(const SharedDiary&) = delete;
  Diary& operator*() const { return *static_cast<Diary*>(memory_); }

 private:
  void* memory_;
};

TEST(Autosave, LosesNoMoreThanItMayWheneverTheProcessIsKilled) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const test::Folder folder;
  const fs::path document = folder.write("plot.json", bytesToSave(test::sampleProject()));
  fs::last_write_time(document, fs::last_write_time(document) - 1h);
  const std::string saved = test::contentOf(document);
  constexpr auto quiet = 5ms;
  int found = 0;
  const int rounds = test::repetitions(500, 40);
  for (int round = 0; round < rounds; ++round) {
    // One storm without end, of which only its limit saves anything; then storms and pauses by
    // turns.
    const bool isEndless = round < 3;
    discardRecovery(document);
    const SharedDiary diary;
    test::runAndKill(
        [&](const auto& isReady) {
          Autosave autosave(recoveryFileFor(document), quiet);
          KorrinProject project = test::sampleProject();
          isReady();
          for (std::size_t i = 0; i < Diary::most; ++i) {
            project.metadata.revision = std::to_string(i);
            autosave.note(project);
            (*diary).times[i] = steadyTime();
            (*diary).count = i + 1;
            std::this_thread::sleep_for(isEndless || i / 50 % 2 == 0 ? 500us : 8000us);
          }
        },
        isEndless ? 1500ms : std::chrono::microseconds(random() % 150'000));
    const auto killed = steadyTime();
    ASSERT_EQ(test::contentOf(document), saved);
    const auto recovery = recoveryOf(document);
    found += recovery.has_value();
    // The first state that is lost.
    const std::size_t lost =
        recovery ? std::stoul(recovery->project.metadata.revision.str()) + 1 : 0;
    if (lost < (*diary).count) {
      EXPECT_LE(killed - (*diary).times[lost], 10 * quiet + 500ms + 10 * (*diary).longestPause())
          << "round " << round;
    }
  }
  EXPECT_GT(found, rounds / 4) << "the processes were killed before anything was written";
}

TEST(Autosave, TakesAStateWithoutAnAllocation) {
  const test::Folder folder;
  Autosave autosave(folder / "recovery", 1h);
  KorrinProject project = test::sampleProject();
  for (int i = 0; i < 10'000; ++i) project.items.push_back(project.items.front());
  const std::size_t before = allocationCount();
  for (int i = 0; i < 100; ++i) autosave.note(project);
  EXPECT_EQ(allocationCount(), before);
}

TEST(RecoveryOf, ADocumentThrowsNothingElseWhereAnyAllocationFails) {
  const test::Folder folder;
  const fs::path document = folder.write("plot.json", bytesToSave(KorrinProject::newDocument()));
  fs::last_write_time(document, fs::last_write_time(document) - 1h);
  { Autosave(recoveryFileFor(document), 1h).note(test::sampleProject()); }
  const std::size_t countBefore = allocationCount();
  EXPECT_TRUE(recoveryOf(document));
  const std::size_t needed = allocationCount() - countBefore;
  for (std::size_t allocations = 0; allocations < needed; ++allocations) {
    const AllocationLimit limit(allocations, 1);
    EXPECT_THROW(recoveryOf(document), std::bad_alloc) << allocations << " of " << needed;
  }
}

}  // namespace
}  // namespace korrin
