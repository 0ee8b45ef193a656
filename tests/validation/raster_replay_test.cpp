// The files that fuzzing found to be worth keeping, in every build.

#include <gtest/gtest.h>

#include "tests/support/corpora.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace korrin::test {
namespace {

TEST(RasterFuzzing, FindsNothingInItsCommittedCorpus) {
  const std::filesystem::path folder =
      std::filesystem::path(KORRIN_SOURCE_DIR) / "fuzz" / "corpus" / "raster";
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const Bytes bytes = readFile(entry.path());
    EXPECT_EQ(
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()),
        0);
    ++count;
  }
  EXPECT_GT(count, 100u);
}

}  // namespace
}  // namespace korrin::test
