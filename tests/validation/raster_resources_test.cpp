// What a check on raster images costs besides time: no heap, little stack, and nothing shared
// between threads.

#include <memory>
#include <thread>

#include <gtest/gtest.h>

#include "korrin/validation/raster/raster_facts.h"

#include "tests/support/allocation_count.h"
#include "tests/support/image_builder.h"
#include "tests/support/outcome.h"
#include "tests/support/small_stack.h"

namespace korrin::test {
namespace {

// Good and damaged files of every kind.
std::vector<NamedImage> samples() {
  std::vector<NamedImage> images = imagesOfEveryKind(300, 20);
  for (const NamedImage& large : imagesOfEveryKind(16000, 16000)) images.push_back(large);
  for (NamedImage damaged : imagesOfEveryKind(300, 20)) {
    damaged.bytes.resize(damaged.bytes.size() - 5);
    images.push_back(damaged);
  }
  return images;
}

TEST(RasterResources, AreNoAllocations) {
  for (const NamedImage& image : samples()) {
    const std::size_t before = allocationCount();
    const auto facts = readRasterFacts(image.bytes);
    EXPECT_EQ(allocationCount(), before) << image.name;
    EXPECT_TRUE(facts.has_value()) << image.name;
  }
}

TEST(RasterResources, AreNoAllocationsForAVerdictEither) {
  for (const NamedImage& image : samples()) {
    const std::size_t before = allocationCount();
    // The outcomes' texts are short enough to be held without an allocation.
    const Outcome outcome = rasterOutcome(image.bytes);
    EXPECT_EQ(allocationCount(), before) << image.name << ": " << outcome;
  }
}

TEST(RasterResources, AreCounted) {
  const std::size_t before = allocationCount();
  const auto text = std::make_unique<Outcome>(100, 'x');
  EXPECT_GE(allocationCount(), before + 2) << *text;
}

TEST(RasterResources, AreASmallStack) {
  constexpr std::size_t stackBytes = std::size_t{128} << 10;
  for (const NamedImage& image : samples()) {
    const Outcome expected = rasterOutcome(image.bytes);
    runOnStack(stackBytes, [&] {
      EXPECT_EQ(rasterOutcome(image.bytes), expected) << image.name;
      EXPECT_EQ(assetOutcome(image.bytes, std::nullopt), expected) << image.name;
    });
  }
}

TEST(RasterResources, AreNotSharedBetweenThreads) {
  const std::vector<NamedImage> images = samples();
  std::vector<Outcome> expected;
  for (const NamedImage& image : images) expected.push_back(rasterOutcome(image.bytes));

  std::vector<std::vector<Outcome>> found(4);
  std::vector<std::thread> threads;
  for (std::vector<Outcome>& outcomes : found) {
    threads.emplace_back([&images, &outcomes] {
      for (const NamedImage& image : images) outcomes.push_back(rasterOutcome(image.bytes));
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::vector<Outcome>& outcomes : found) EXPECT_EQ(outcomes, expected);
}

}  // namespace
}  // namespace korrin::test
