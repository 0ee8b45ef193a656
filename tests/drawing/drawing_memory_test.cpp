// Fails the allocations of a drawing in turn.

#include <cstddef>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/coding/json.h"
#include "korrin/drawing/outlines.h"
#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/revision_marks.h"
#include "korrin/drawing/symbol_catalogue.h"
#include "korrin/model/document_coding.h"

#include "tests/support/allocations.h"
#include "tests/support/image_builder.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

/// Runs `action` until it has all the memory that it wants: with each of the first hundred numbers
/// of allocations, then with ever fewer of them. Says how many it took.
template <class Action>
std::size_t allocationsUntilSuccess(Action action) {
  for (std::size_t allocations = 0;; allocations += 1 + allocations / 100) {
    const std::ptrdiff_t before = liveBytes();
    try {
      const AllocationLimit limit(allocations);
      action();
      return allocations;
    } catch (const std::bad_alloc&) {
    }
    EXPECT_EQ(liveBytes(), before) << "after " << allocations << " allocations";
  }
}

/// Items on visible and hidden layers, a label to be shortened, links, every list and an image.
KorrinProject eventfulProject() {
  KorrinProject project = sampleProject();
  project.items.edit(0).label = std::string(200, 'x');
  project.items.edit(1).assetID =
      "0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef";
  project.exportSettings.includeInputList = true;
  project.exportSettings.includeNotes = true;
  return project;
}

TEST(DrawingWithoutMemory, LeavesThePlotAloneAndNothingBehind) {
  const KorrinProject project = eventfulProject();
  const std::string written = encodeJSON(project);
  std::string image;
  for (const std::byte byte : png({.width = 40, .height = 30})) image += static_cast<char>(byte);
  const DrawingOptions options = {
      .assetBytes = [&image](const Text&) { return std::optional(image); }};
  const std::vector<std::string> expected = drawPages(project, options);
  std::vector<std::string> pages;
  EXPECT_GT(allocationsUntilSuccess([&] {
              std::vector<std::string> drawn = drawPages(project, options);
              pages.swap(drawn);
            }),
            100u);
  EXPECT_EQ(pages, expected);
  EXPECT_EQ(encodeJSON(project), written);
}

TEST(DrawingWithoutMemory, LeavesNothingOfMarksBehind) {
  const KorrinProject project = eventfulProject();
  PlotItem gone = project.items[2];
  gone.id = identifier(900);
  const RevisionMarks marks = {.added = {project.items[0].id},
                               .changed = {project.items[1].id},
                               .moved = {project.items[2]},
                               .gone = {gone},
                               .sentences = {"Something changed that takes many words to tell"}};
  allocationsUntilSuccess([&] { EXPECT_FALSE(drawMarkedStackedPages(project, marks).empty()); });
}

TEST(DrawingWithoutMemory, MakesAWholeItemOrNone) {
  const KorrinProject project = sampleProject();
  for (const Symbol& symbol : builtInSymbols())
    allocationsUntilSuccess([&] {
      const PlotItem item = makeItem(symbol, StagePoint::zero, sample::front);
      EXPECT_EQ(drawSymbol(item).empty(), false);
    });
  allocationsUntilSuccess([&] { EXPECT_FALSE(itemsAt(project, {.x = 0, .y = 0}).empty()); });
  EXPECT_FALSE(builtInAssetIDs().empty());
  allocationsUntilSuccess([&] { EXPECT_GT(builtInAssetIDs().size(), 30u); });
}

}  // namespace
}  // namespace korrin::test
