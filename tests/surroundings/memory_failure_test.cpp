// Memory runs out at each point of every public operation in turn. The operation throws
// std::bad_alloc or succeeds as ever; its project is what it was, and nothing leaks.

#include <cstddef>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/allocations.h"
#include "tests/support/every_operation.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

constexpr const char* outOfMemory = "out of memory";

std::string outcomeWith(std::size_t allocations, std::size_t failures, const Operation& operation,
                        const KorrinProject& project) {
  try {
    const AllocationLimit limit(allocations, failures);
    return operation.outcome(project);
  } catch (const std::bad_alloc&) {
    return outOfMemory;
  }
}

// Without this the laws below would hold for no allocation at all.
TEST(AllocationLimit, CountsAllocationsAndMakesThemFail) {
  const std::size_t before = allocationCount();
  ::operator delete(::operator new(1));
  EXPECT_EQ(allocationCount() - before, 1u);
  const AllocationLimit limit(0, 1);
  EXPECT_THROW(::operator delete(::operator new(1)), std::bad_alloc);
}

class OutOfMemory : public testing::TestWithParam<Operation> {
 protected:
  // Fails the allocations of the operation after each possible number of successful ones.
  void expectNothingHalfDone(std::size_t failures) {
    const KorrinProject project = sampleProject();
    const std::string before = encodeJSON(project);
    const std::string expected = GetParam().outcome(project);
    const std::size_t countBefore = allocationCount();
    (void)GetParam().outcome(project);
    const std::size_t needed = allocationCount() - countBefore;
    RecordProperty("allocations", std::to_string(needed));
    const std::ptrdiff_t live = liveBytes();

    for (std::size_t allocations = 0; allocations < needed; ++allocations) {
      const std::string outcome = outcomeWith(allocations, failures, GetParam(), project);
      ASSERT_TRUE(outcome == outOfMemory || outcome == expected)
          << outcome << " after " << allocations << " of " << needed;
    }
    EXPECT_EQ(liveBytes(), live);
    EXPECT_EQ(outcomeWith(needed, failures, GetParam(), project), expected);
    EXPECT_EQ(encodeJSON(project), before);
  }
};

TEST_P(OutOfMemory, AnOperationThrowsOrSucceedsWhereMemoryStaysOut) {
  expectNothingHalfDone(AllocationLimit::unlimited);
}

TEST_P(OutOfMemory, AnOperationThrowsOrSucceedsWhereASingleAllocationFails) {
  expectNothingHalfDone(1);
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, OutOfMemory, testing::ValuesIn(everyOperation()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace korrin::test
