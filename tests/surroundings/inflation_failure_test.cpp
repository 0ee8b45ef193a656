// zlib asks malloc for its memory. Where that fails, the file is no better or worse than before.

#include <cstddef>
#include <new>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "korrin/validation/pdf/stream_decoder.h"

#include "tests/support/allocations.h"
#include "tests/support/pdf_builder.h"

namespace korrin::pdf {
namespace {

TEST(Inflation, ThrowsWhereverOneAllocationFails) {
  const std::string packed = test::deflatedRun('x', 100'000);
  const auto unpackWith = [&](std::size_t allocations) {
    Budget budget(packed.size());
    PlainSource source(test::asBytes(packed));
    const AllocationLimit limit(allocations, 1);
    return inflate(source, 100'000, budget);
  };
  const std::size_t before = allocationCount();
  ASSERT_EQ(unpackWith(AllocationLimit::unlimited)->size(), 100'000u);
  const std::size_t needed = allocationCount() - before;

  ASSERT_GT(needed, 2u);
  for (std::size_t allocations = 0; allocations < needed; ++allocations)
    EXPECT_THROW(unpackWith(allocations), std::bad_alloc) << allocations << " of " << needed;
}

}  // namespace
}  // namespace korrin::pdf
