#include "documents/plot_files.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scratch.h"
#include "terminal/failure.h"
#include "terminal/in_order.h"

namespace korrin::host {
namespace {

using testing::ElementsAre;

TEST(PlotFiles, AreThoseOfFoldersToo) {
  const Scratch scratch;
  for (const char* folder : {"tour/b", "tour/.git", "empty"})
    std::filesystem::create_directories(scratch.path(folder));
  for (const char* name : {"tour/z.json", "tour/b/a.json", "tour/z.waivers.json", "tour/readme.txt",
                           "tour/.hidden.json", "tour/.git/x.json", "one"})
    scratch.write(name, "{}");
  EXPECT_THAT(plotFiles({scratch.path("one"), scratch.path("tour"), "-", "absent"}),
              ElementsAre(scratch.path("one"), scratch.path("tour/b/a.json"),
                          scratch.path("tour/z.json"), "-", "absent"));
  EXPECT_THROW(plotFiles({scratch.path("empty")}), Failure);
}

TEST(InOrder, TakesEveryResultInItsTurn) {
  for (const std::size_t workers : {0u, 1u, 2u, 7u}) {
    std::vector<std::size_t> taken;
    inOrder(
        100, workers, [](std::size_t i) { return i * i; },
        [&](std::size_t i, std::size_t square) {
          EXPECT_EQ(square, i * i);
          taken.push_back(i);
        });
    ASSERT_EQ(taken.size(), 100u);
    EXPECT_TRUE(std::ranges::is_sorted(taken));
  }
}

TEST(InOrder, PassesOnWhatIsThrownAfterAllBeforeIt) {
  for (const std::size_t workers : {1u, 4u}) {
    std::size_t taken = 0;
    const auto work = [](std::size_t i) {
      if (i == 30) throw std::runtime_error("thirty");
      return i;
    };
    EXPECT_THROW(inOrder(100, workers, work, [&](std::size_t, std::size_t) { ++taken; }),
                 std::runtime_error);
    EXPECT_EQ(taken, 30u);
    const auto refuse = [](std::size_t, std::size_t) { throw std::runtime_error("enough"); };
    EXPECT_THROW(inOrder(
                     100, workers, [](std::size_t i) { return i; }, refuse),
                 std::runtime_error);
  }
}

}  // namespace
}  // namespace korrin::host
