// Saving is interrupted: the process is killed, or its memory is out.

#include <algorithm>
#include <chrono>
#include <new>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "korrin/foundation/steady_time.h"
#include "korrin/session/document_file.h"

#include "tests/session/folder.h"
#include "tests/session/killed.h"
#include "tests/session/two_plots.h"
#include "tests/support/allocations.h"
#include "tests/support/effort.h"

namespace korrin {
namespace {

namespace fs = std::filesystem;
using test::first;
using test::second;

TEST(DocumentFile, HoldsOldOrNewBytesWheneverTheProcessIsKilled) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const test::Folder folder;
  const fs::path path = folder.write("plot.json", bytesToSave(first));
  int changes = 0;
  std::string before = bytesToSave(first);
  const int rounds = test::repetitions(500, 60);
  // Long enough for some saves, however slow the disk is.
  const auto begin = steadyTime();
  DocumentFile(folder / "another.json").save(first);
  const auto save = std::chrono::duration_cast<std::chrono::microseconds>(steadyTime() - begin);
  const auto longest = std::max(std::chrono::microseconds(12'000), 4 * save);
  fs::remove(folder / "another.json");
  for (int round = 0; round < rounds; ++round) {
    test::runAndKill(
        [&](const auto& isReady) {
          DocumentFile file(path);
          file.open();
          isReady();
          for (bool isFirst = before == bytesToSave(first);; isFirst = !isFirst)
            file.save(isFirst ? second : first);
        },
        longest * (random() % 1000) / 1000);
    const std::string bytes = test::contentOf(path);
    ASSERT_TRUE(bytes == bytesToSave(first) || bytes == bytesToSave(second)) << bytes;
    changes += bytes != before;
    before = bytes;
    // What is left can be nothing but a whole file that was about to take the place, or has left
    // it.
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      if (entry.path() == path) continue;
      ASSERT_TRUE(entry.path().filename().native().starts_with(".korrin-")) << entry.path();
      const std::string left = test::contentOf(entry.path());
      ASSERT_TRUE(left == bytesToSave(first) || left == bytesToSave(second));
      fs::remove(entry.path());
    }
  }
  EXPECT_GT(changes, rounds / 20) << "the processes were killed before they saved";
}

TEST(DocumentFile, IsUnchangedWhereAnyAllocationOfSavingFails) {
  const test::Folder folder;
  const fs::path path = folder.write("plot.json", bytesToSave(first));
  DocumentFile file(path);
  file.open();
  const std::size_t countBefore = allocationCount();
  file.save(first);
  const std::size_t needed = allocationCount() - countBefore;
  ASSERT_GT(needed, 10u);
  for (std::size_t allocations = 0; allocations < needed; ++allocations) {
    try {
      const AllocationLimit limit(allocations, 1);
      file.save(second);
      ADD_FAILURE() << "saved after " << allocations << " of " << needed;
    } catch (const std::bad_alloc&) {
    }
    ASSERT_EQ(test::contentOf(path), bytesToSave(first)) << allocations;
    ASSERT_EQ(folder.count(), 1u) << allocations;
    ASSERT_FALSE(file.hasChangedElsewhere()) << allocations;
  }
  file.save(second);
  EXPECT_EQ(test::contentOf(path), bytesToSave(second));
}

TEST(DocumentFile, CountsAsNotOpenedWhereAnyAllocationOfOpeningFails) {
  const test::Folder folder;
  const fs::path path = folder.write("plot.json", bytesToSave(first));
  const std::size_t countBefore = allocationCount();
  DocumentFile(path).open();
  const std::size_t needed = allocationCount() - countBefore;
  for (std::size_t allocations = 0; allocations < needed; ++allocations) {
    try {
      const AllocationLimit limit(allocations, 1);
      DocumentFile file(path);
      try {
        file.open();
        ADD_FAILURE() << "opened after " << allocations << " of " << needed;
      } catch (const std::bad_alloc&) {
        EXPECT_TRUE(file.hasChangedElsewhere());
      }
    } catch (const std::bad_alloc&) {
    }
  }
}

}  // namespace
}  // namespace korrin
