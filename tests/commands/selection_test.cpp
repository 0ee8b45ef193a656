#include <gtest/gtest.h>

#include "korrin/commands/edit_refusal.h"

#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::identifier;
using test::microphone;
using test::sampleProject;
using namespace test::sample;

PlotItem itemOn(UUID layerID, bool isLocked = false) {
  PlotItem item = microphone(identifier(99));
  item.layerID = layerID;
  item.isLocked = isLocked;
  return item;
}

PlotLayer layer(UUID id, bool isVisible, bool isLocked, std::int64_t zIndex = 0) {
  return {
      .id = id, .name = "Layer", .isVisible = isVisible, .isLocked = isLocked, .zIndex = zIndex};
}

TEST(CanSelectItem, WantsAVisibleUnlockedLayer) {
  const KorrinProject project = sampleProject();
  EXPECT_TRUE(project.canSelectItem(itemOn(front)));
  EXPECT_FALSE(project.canSelectItem(itemOn(rigging))) << "a locked layer";
  EXPECT_FALSE(project.canSelectItem(itemOn(archive))) << "a hidden layer";
  EXPECT_FALSE(project.canSelectItem(itemOn(identifier(0x999)))) << "no such layer";
}

TEST(CanSelectItem, RefusesALayerThatIsBothHiddenAndLocked) {
  KorrinProject project = sampleProject();
  project.layers = {layer(front, false, true)};
  EXPECT_FALSE(project.canSelectItem(itemOn(front)));
}

TEST(CanSelectItem, RefusesEverythingInAProjectWithoutLayers) {
  KorrinProject project = sampleProject();
  project.layers.clear();
  EXPECT_FALSE(project.canSelectItem(project.items.front()));
}

TEST(CanSelectItem, IsContentWithOneOfSeveralLayersOfTheSameIdentifier) {
  KorrinProject project = sampleProject();
  project.layers = {layer(front, false, false), layer(front, true, true),
                    layer(front, true, false)};
  EXPECT_TRUE(project.canSelectItem(itemOn(front)));
  project.layers.erase(2);
  EXPECT_FALSE(project.canSelectItem(itemOn(front))) << "no single record is visible and unlocked";
}

TEST(CanSelectItem, DoesNotMindTheItemsOwnLock) {
  EXPECT_TRUE(sampleProject().canSelectItem(itemOn(front, true)));
}

TEST(CanEditItem, WantsAnUnlockedItemThatCanBeSelected) {
  const KorrinProject project = sampleProject();
  EXPECT_TRUE(project.canEditItem(itemOn(front)));
  EXPECT_FALSE(project.canEditItem(itemOn(front, true)));
  EXPECT_FALSE(project.canEditItem(itemOn(rigging)));
  EXPECT_FALSE(project.canEditItem(itemOn(archive)));
  EXPECT_FALSE(project.canEditItem(itemOn(identifier(0x999))));
}

TEST(WhyNotEditable, NamesTheLockOfTheItemFirst) {
  const KorrinProject project = sampleProject();
  for (const UUID layerID : {front, rigging, archive, identifier(0x999)})
    EXPECT_EQ(whyNotEditable(project, itemOn(layerID, true)), EditRefusal::itemLocked);
}

TEST(WhyNotEditable, NamesWhatTheLayerLacks) {
  KorrinProject project = sampleProject();
  EXPECT_EQ(whyNotEditable(project, itemOn(front)), std::nullopt);
  EXPECT_EQ(whyNotEditable(project, itemOn(rigging)), EditRefusal::layerLocked);
  EXPECT_EQ(whyNotEditable(project, itemOn(archive)), EditRefusal::layerHidden);
  EXPECT_EQ(whyNotEditable(project, itemOn(identifier(0x999))), EditRefusal::layerMissing);
  project.layers = {layer(front, false, true)};
  EXPECT_EQ(whyNotEditable(project, itemOn(front)), EditRefusal::layerHidden);
  project.layers.clear();
  EXPECT_EQ(whyNotEditable(project, itemOn(front)), EditRefusal::layerMissing);
}

TEST(WhyNotEditable, NamesWhatTheFirstOfSeveralLayersOfOneIdentifierLacks) {
  KorrinProject project = sampleProject();
  project.layers = {layer(front, true, true), layer(front, false, false)};
  EXPECT_EQ(whyNotEditable(project, itemOn(front)), EditRefusal::layerLocked);
  project.layers.push_back(layer(front, true, false));
  EXPECT_EQ(whyNotEditable(project, itemOn(front)), std::nullopt);
}

TEST(ResolvedActiveLayer, IsTheRequestedOneHoweverHiddenOrLocked) {
  KorrinProject project = sampleProject();
  project.layers.push_back(layer(identifier(0x104), false, true));
  EXPECT_EQ(project.resolvedActiveLayerID(rigging), rigging);
  EXPECT_EQ(project.resolvedActiveLayerID(archive), archive);
  EXPECT_EQ(project.resolvedActiveLayerID(identifier(0x104)), identifier(0x104));
}

TEST(ResolvedActiveLayer, IsTheFirstOfTheListWhenTheRequestNamesNone) {
  KorrinProject project = sampleProject();
  project.layers = {layer(archive, false, true, 9), layer(front, true, false, 0)};
  EXPECT_EQ(project.resolvedActiveLayerID(std::nullopt), archive);
  EXPECT_EQ(project.resolvedActiveLayerID(identifier(0x999)), archive);
}

TEST(ResolvedActiveLayer, IsAbsentInAProjectWithoutLayers) {
  KorrinProject project = sampleProject();
  project.layers.clear();
  EXPECT_EQ(project.resolvedActiveLayerID(std::nullopt), std::nullopt);
  EXPECT_EQ(project.resolvedActiveLayerID(front), std::nullopt);
}

}  // namespace
}  // namespace korrin
