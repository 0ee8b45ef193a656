// What opening takes when a document is made to hurt, and what it does when memory is out.

#include <new>
#include <string>

#include <gtest/gtest.h>

#include "korrin/session/opening.h"

#include "tests/support/allocations.h"
#include "tests/support/full_project.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

std::ptrdiff_t heapToOpen(const std::string& bytes, std::size_t expectedKeys) {
  const std::ptrdiff_t before = liveBytes();
  restartPeak();
  const OpenOutcome outcome = openDocument(bytes);
  EXPECT_EQ(std::get<OpenedDocument>(outcome).unknownKeys.count, expectedKeys);
  return peakBytes() - before;
}

/// The sample plot with `members` before its own.
std::string sampleWith(const std::string& members) {
  std::string bytes = bytesToSave(test::sampleProject(), {});
  return bytes.insert(1, members);
}

TEST(OpenDocument, TakesNoMemoryForUnknownKeysBeyondTheHundredThatItNames) {
  const std::ptrdiff_t plain = heapToOpen(sampleWith(""), 0);
  std::string members;
  constexpr std::size_t count = 200'000;
  for (std::size_t i = 0; i < count; ++i) members += "\"key" + std::to_string(i) + "\":[{}],";
  EXPECT_LT(heapToOpen(sampleWith(members), count) - plain, 40'000);
}

TEST(OpenDocument, TakesNoMemoryOfTheSizeOfAnUnknownKey) {
  const std::ptrdiff_t plain = heapToOpen(sampleWith(""), 0);
  std::string escaped;
  for (int i = 0; i < 200'000; ++i) escaped += "\\u0061";
  EXPECT_LT(heapToOpen(sampleWith("\"" + escaped + "\":1,"), 1) - plain, 80'000);
  const std::string longKey(1'000'000, 'a');
  EXPECT_LT(heapToOpen(sampleWith("\"" + longKey + "\":1,"), 1) - plain, 80'000);
}

TEST(OpenDocument, ThrowsNothingElseWhereAnyAllocationFails) {
  std::string bytes = bytesToSave(test::fullProject());
  bytes.insert(1, "\"glow\":1,\"a.b\":2,");
  const std::size_t countBefore = allocationCount();
  const auto expected = std::get<OpenedDocument>(openDocument(bytes));
  const std::size_t needed = allocationCount() - countBefore;
  ASSERT_GT(needed, 20u);
  for (std::size_t allocations = 0; allocations < needed; ++allocations) {
    const AllocationLimit limit(allocations, 1);
    EXPECT_THROW(openDocument(bytes), std::bad_alloc) << allocations << " of " << needed;
  }
  EXPECT_TRUE(std::get<OpenedDocument>(openDocument(bytes)).project == expected.project);
}

}  // namespace
}  // namespace korrin
