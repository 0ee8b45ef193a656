#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"

#include "tests/support/crafted_values.h"
#include "tests/support/sample_project.h"

// A plot whose author chose its identifiers to share a hash is edited about as fast as one with
// identifiers at random. Where look-ups become searches it takes hundreds of times as long.

namespace korrin {
namespace {

constexpr std::size_t many = 12'000;
constexpr double tolerable = 8;  // Far above what memory, its order and sanitizers make of it.

std::vector<UUID> randomIdentifiers(std::uint64_t seed) {
  std::mt19937_64 random(seed);
  std::vector<UUID> identifiers;
  for (std::size_t i = 0; i < many; ++i) {
    UUID::Bytes bytes;
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    identifiers.emplace_back(bytes);
  }
  return identifiers;
}

/// Every item on a layer of its own, as long as there are layers.
KorrinProject plotOf(const std::vector<UUID>& items, const std::vector<UUID>& layers) {
  KorrinProject project = test::sampleProject();
  PlotItem item = project.items[0];
  InputChannel input = project.inputs[0];
  PlotLayer layer = {.id = {}, .name = "Layer", .isVisible = true, .isLocked = false, .zIndex = 0};
  item.groupID = std::nullopt;
  item.isLocked = false;
  project.items = {};
  project.groups = {};
  project.layers = {};
  project.inputs = {};
  for (const UUID& id : layers) {
    layer.id = id;
    project.layers.push_back(layer);
  }
  for (std::size_t i = 0; i < items.size(); ++i) {
    item.id = items[i];
    item.layerID = layers[i % layers.size()];
    project.items.push_back(item);
    input.id = items[i];
    input.plotItemID = items[i];
    project.inputs.push_back(input);
  }
  return project;
}

IDSet identifiersOf(const KorrinProject& project) {
  IDSet ids;
  for (const PlotItem& item : project.items) ids.insert(item.id);
  return ids;
}

/// Processor time, so that other work on the machine does not count; the least of three.
double seconds(const std::function<void()>& operation) {
  double least = std::numeric_limits<double>::max();
  for (int round = 0; round < 3; ++round) {
    const std::clock_t start = std::clock();
    operation();
    least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  return least;
}

struct Edit {
  const char* name;
  void (*perform)(KorrinProject& project);
};

class EditOfACraftedPlot : public testing::TestWithParam<Edit> {
 protected:
  static double timeOf(const KorrinProject& project) {
    return seconds([&] {
      KorrinProject edited = project;
      GetParam().perform(edited);
    });
  }
};

const std::vector<UUID>& atRandom() {
  static const std::vector<UUID> identifiers = randomIdentifiers(20261122);
  return identifiers;
}

const std::vector<UUID>& others() {
  static const std::vector<UUID> identifiers = randomIdentifiers(20261123);
  return identifiers;
}

TEST_P(EditOfACraftedPlot, TakesNoLongerForItemsThatCollide) {
  const double usual = timeOf(plotOf(atRandom(), {others()[0]}));
  EXPECT_LT(timeOf(plotOf(test::collidingIdentifiers(many), {others()[0]})),
            tolerable * usual + 0.01);
}

TEST_P(EditOfACraftedPlot, TakesNoLongerForLayersThatCollide) {
  const double usual = timeOf(plotOf(atRandom(), {others()[0]}));
  EXPECT_LT(timeOf(plotOf(atRandom(), test::collidingIdentifiers(many))), tolerable * usual + 0.01);
}

INSTANTIATE_TEST_SUITE_P(
    By, EditOfACraftedPlot,
    testing::Values(Edit{"Grouping",
                         [](KorrinProject& project) {
                           project.groupingCommand(identifiersOf(project)).value().apply(project);
                         }},
                    Edit{"Replacement",
                         [](KorrinProject& project) {
                           DocumentCommand::replaceItems(project.items).apply(project);
                         }},
                    Edit{"DeletionAndUndo",
                         [](KorrinProject& project) {
                           const auto done =
                               DocumentCommand::deleteItems(identifiersOf(project)).apply(project);
                           done.inverse.apply(project);
                         }}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace korrin
