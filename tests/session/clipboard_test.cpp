#include "korrin/session/clipboard.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/same_bits.h"

#include "tests/support/laws.h"
#include "tests/support/record_laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using namespace test::sample;
using test::identifier;
using test::microphone;
using test::sampleProject;
using test::TestEnvironment;

PlotLayer layer(UUID id, Text name) {
  return {.id = id, .name = std::move(name), .isVisible = true, .isLocked = false, .zIndex = 0};
}

PlotItem itemOn(UUID layerID, UUID id, std::optional<UUID> groupID = std::nullopt) {
  PlotItem item = microphone(id);
  item.layerID = layerID;
  item.groupID = groupID;
  return item;
}

PlotFragment fragmentWith(List<PlotItem> items) {
  return {.items = std::move(items), .groups = {}, .layers = {}, .assetManifest = {}};
}

List<UUID> idsOf(const List<PlotItem>& items) {
  List<UUID> ids;
  for (const PlotItem& item : items) ids.push_back(item.id);
  return ids;
}

// The last items of a plot.
List<PlotItem> lastItems(const KorrinProject& project, std::size_t count) {
  return {project.items.end() - static_cast<std::ptrdiff_t>(count), project.items.end()};
}

// What the paste gives, once undo has been shown to be exact.
KorrinProject pasted(const KorrinProject& project, const PlotFragment& fragment,
                     const PasteOptions& options = {}) {
  TestEnvironment environment;
  const std::optional<Paste> paste = pastingCommand(project, fragment, options, environment);
  if (!paste) {
    ADD_FAILURE() << "nothing is pasted";
    return project;
  }
  KorrinProject result = project;
  const CommandResult done = paste->command.apply(result, environment);
  KorrinProject undone = result;
  done.inverse.apply(undone, environment);
  EXPECT_TRUE(sameBits(test::withModifiedAt(undone, {}), test::withModifiedAt(project, {})));
  EXPECT_EQ(idsOf(lastItems(result, fragment.items.size())), paste->itemIDs);
  return result;
}

TEST(PlotFragment, IsARecordOfDocuments) {
  const PlotFragment fragment = fragmentOf(sampleProject(), {vocal, wedge, kick});
  EXPECT_EQ(decodeJSON<PlotFragment>(encodeJSON(fragment)), fragment);
  EXPECT_EQ(std::hash<PlotFragment>{}(fragment),
            std::hash<PlotFragment>{}(decodeJSON<PlotFragment>(encodeJSON(fragment))));
  const List<PlotFragment> two = {fragment, {}};
  EXPECT_EQ(decodeJSON<List<PlotFragment>>(encodeJSON(two)), two);
  EXPECT_THROW(decodeJSON<PlotFragment>("{}"), DecodingError);
}

TEST(FragmentOf, HoldsTheSelectedItemsInTheOrderOfThePlotLockedOrNot) {
  const KorrinProject project = sampleProject();
  const PlotFragment fragment = fragmentOf(project, {spareAmp, keys, vocal, identifier(99)});
  EXPECT_EQ(idsOf(fragment.items), (List<UUID>{vocal, keys, spareAmp}));
  ASSERT_EQ(fragment.layers.size(), 2u);
  EXPECT_EQ(fragment.layers[0].id, front);
  EXPECT_EQ(fragment.layers[1].id, archive);
  EXPECT_EQ(fragmentOf(project, {identifier(99)}), PlotFragment());
}

TEST(FragmentOf, KeepsTheGroupsOfWhichTwoMembersAreCopied) {
  const KorrinProject project = sampleProject();
  const PlotFragment fragment = fragmentOf(project, {vocal, kick, guitar});
  ASSERT_EQ(fragment.groups.size(), 1u);
  EXPECT_EQ(fragment.groups[0].id, groupOfThree);
  EXPECT_EQ(fragment.groups[0].itemIDs, (List<UUID>{kick, guitar})) << "in the group's order";
  EXPECT_EQ(fragment.items[0].groupID, std::nullopt) << "vocal was copied alone of its group";
  EXPECT_EQ(fragment.items[1].groupID, groupOfThree);
}

TEST(FragmentOf, CountsAMemberThatIsListedTwiceOnce) {
  KorrinProject project = sampleProject();
  project.groups.edit(0).itemIDs = {vocal, vocal, wedge};
  EXPECT_EQ(fragmentOf(project, {vocal}).groups.size(), 0u);
}

TEST(FragmentOf, FreesItemsThatNameAGroupWhichDoesNotListThem) {
  KorrinProject project = sampleProject();
  for (std::size_t i = 0; i < project.items.size(); ++i)
    if (project.items[i].id == keys) project.items.edit(i).groupID = groupOfTwo;
  const PlotFragment fragment = fragmentOf(project, {vocal, wedge, keys});
  EXPECT_EQ(fragment.groups.size(), 1u);
  for (const PlotItem& item : fragment.items) EXPECT_EQ(item.groupID.has_value(), item.id != keys);
}

TEST(FragmentOf, TakesTheManifestEntriesThatItsItemsName) {
  KorrinProject project = sampleProject();
  const auto entry = [](Text digest) {
    return AssetManifestEntry{
        .sha256 = std::move(digest), .filename = "a.png", .mediaType = "image/png", .byteCount = 1};
  };
  project.assetManifest = {entry("one"), entry("\u00E9"), entry("three")};
  project.items.edit(0).assetID = "e\u0301";  // canonically the same
  project.items.edit(1).assetID = "three";
  const PlotFragment fragment = fragmentOf(project, {project.items[0].id, project.items[1].id});
  EXPECT_EQ(fragment.assetManifest,
            (List<AssetManifestEntry>{project.assetManifest[1], project.assetManifest[2]}));
}

TEST(Pasting, PastesNothingWithoutItems) {
  PlotFragment fragment = fragmentOf(sampleProject(), {vocal, wedge});
  fragment.items.clear();
  TestEnvironment environment;
  EXPECT_FALSE(pastingCommand(sampleProject(), fragment, {}, environment));
  EXPECT_EQ(environment.identifiersMade(), 0);
}

TEST(Pasting, MakesIdentifiersForEveryItemThenForEveryGroup) {
  const KorrinProject project = sampleProject();
  const PlotFragment fragment = fragmentOf(project, {vocal, wedge, kick, guitar, keys});
  TestEnvironment environment;
  const auto paste = pastingCommand(project, fragment, {.offset = {.x = 5, .y = 7}}, environment);
  ASSERT_TRUE(paste);
  EXPECT_EQ(environment.identifiersMade(), 7);
  EXPECT_EQ(environment.clockReads(), 0);
  List<UUID> expected;
  for (int i = 1; i <= 5; ++i) expected.push_back(TestEnvironment::identifierMade(i));
  EXPECT_EQ(paste->itemIDs, expected);

  const KorrinProject result = pasted(project, fragment, {.offset = {.x = 5, .y = 7}});
  ASSERT_EQ(result.groups.size(), 4u);
  EXPECT_EQ(result.groups[2].id, TestEnvironment::identifierMade(6));
  EXPECT_EQ(result.groups[2].name, "Group 1");
  const List<PlotItem> items = lastItems(result, 5);
  for (std::size_t i = 0; i < items.size(); ++i) {
    PlotItem original = fragment.items[i];
    EXPECT_EQ(items[i].position.x, original.position.x + 5);
    EXPECT_EQ(items[i].position.y, original.position.y + 7);
    EXPECT_EQ(items[i].groupID.has_value(), original.groupID.has_value());
    original.id = items[i].id;
    original.position = items[i].position;
    original.groupID = items[i].groupID;
    EXPECT_EQ(items[i], original) << "nothing else differs";
  }
  for (const PlotGroup& group : {result.groups[2], result.groups[3]})
    for (const UUID& member : group.itemIDs) {
      const auto isMember = [&](const PlotItem& item) {
        return item.id == member && item.groupID == group.id;
      };
      EXPECT_EQ(std::count_if(items.begin(), items.end(), isMember), 1);
    }
}

TEST(Pasting, DropsMembersAndGroupsThatTheFragmentDoesNotHold) {
  const KorrinProject project = sampleProject();
  PlotFragment fragment =
      fragmentWith({itemOn(front, vocal, groupOfTwo), itemOn(front, kick, identifier(0x999)),
                    itemOn(front, wedge, identifier(0x888))});
  fragment.groups = {
      PlotGroup{.id = identifier(0x888), .name = "Strangers", .itemIDs = {guitar, keys}},
      PlotGroup{.id = groupOfTwo, .name = "Kept", .itemIDs = {guitar, vocal}},
      PlotGroup{.id = identifier(0x777), .name = "Empty", .itemIDs = {}}};
  const KorrinProject result = pasted(project, fragment);
  ASSERT_EQ(result.groups.size(), 3u);
  EXPECT_EQ(result.groups[2].id, TestEnvironment::identifierMade(4)) << "no other group took one";
  EXPECT_EQ(result.groups[2].itemIDs, (List<UUID>{TestEnvironment::identifierMade(1)}));
  const List<PlotItem> items = lastItems(result, 3);
  EXPECT_EQ(items[0].groupID, result.groups[2].id);
  EXPECT_EQ(items[1].groupID, std::nullopt);
  EXPECT_EQ(items[2].groupID, std::nullopt) << "its group was dropped";
}

TEST(Pasting, FindsTheLayerByIdentifierThenByNameThenAsANewItemDoes) {
  KorrinProject project = sampleProject();
  project.layers = {layer(identifier(0x11), "Caf\u00E9"), layer(identifier(0x12), "Drums"),
                    layer(identifier(0x13), "Drums")};
  PlotFragment fragment = fragmentWith(
      {itemOn(identifier(0x13), identifier(1)), itemOn(identifier(0x21), identifier(2)),
       itemOn(identifier(0x22), identifier(3)), itemOn(identifier(0x23), identifier(4)),
       itemOn(identifier(0x24), identifier(5))});
  fragment.layers = {layer(identifier(0x13), "Caf\u00E9"), layer(identifier(0x21), "Drums"),
                     layer(identifier(0x22), "Cafe\u0301"), layer(identifier(0x23), "Elsewhere")};
  const auto layersOf = [&](const PasteOptions& options) {
    List<UUID> ids;
    for (const PlotItem& item : lastItems(pasted(project, fragment, options), 5))
      ids.push_back(item.layerID);
    return ids;
  };
  EXPECT_EQ(layersOf({}), (List<UUID>{identifier(0x13), identifier(0x12), identifier(0x11),
                                      identifier(0x11), identifier(0x11)}));
  EXPECT_EQ(layersOf({.layerID = identifier(0x13)}),
            (List<UUID>{identifier(0x13), identifier(0x12), identifier(0x11), identifier(0x13),
                        identifier(0x13)}));
  EXPECT_EQ(pasted(project, fragment).layers, project.layers);
}

TEST(Pasting, GivesAPlotWithoutLayersThoseOfTheFragment) {
  KorrinProject project = sampleProject();
  project.layers.clear();
  PlotFragment fragment =
      fragmentWith({itemOn(identifier(0x21), vocal), itemOn(identifier(0x99), kick)});
  fragment.layers = {layer(identifier(0x20), "One"), layer(identifier(0x21), "Two"),
                     layer(identifier(0x20), "Again")};
  const KorrinProject result = pasted(project, fragment);
  EXPECT_EQ(result.layers, (List<PlotLayer>{fragment.layers[0], fragment.layers[1]}))
      << "no identifier stands twice";
  EXPECT_EQ(lastItems(result, 2)[0].layerID, identifier(0x21));
  EXPECT_EQ(lastItems(result, 2)[1].layerID, identifier(0x20));
  fragment.layers.clear();
  EXPECT_EQ(lastItems(pasted(project, fragment), 2)[0].layerID, identifier(0x21));
}

TEST(Pasting, AppendsTheManifestEntriesThatThePlotLacks) {
  KorrinProject project = sampleProject();
  const auto entry = [](Text digest, Text name) {
    return AssetManifestEntry{.sha256 = std::move(digest),
                              .filename = std::move(name),
                              .mediaType = "image/png",
                              .byteCount = 1};
  };
  project.assetManifest = {entry("\u00E9", "mine")};
  PlotFragment fragment = fragmentWith({itemOn(front, vocal)});
  fragment.assetManifest = {entry("e\u0301", "theirs"), entry("b", "new"), entry("b", "again")};
  EXPECT_EQ(pasted(project, fragment).assetManifest,
            (List<AssetManifestEntry>{project.assetManifest[0], fragment.assetManifest[1]}));
}

TEST(Pasting, MeansTheFirstWhereIdentifiersRepeat) {
  const KorrinProject project = sampleProject();
  PlotFragment fragment =
      fragmentWith({itemOn(front, vocal, groupOfTwo), itemOn(front, vocal, groupOfTwo)});
  fragment.groups = {PlotGroup{.id = groupOfTwo, .name = "One", .itemIDs = {vocal}},
                     PlotGroup{.id = groupOfTwo, .name = "Two", .itemIDs = {vocal}}};
  const KorrinProject result = pasted(project, fragment);
  const List<PlotItem> items = lastItems(result, 2);
  EXPECT_NE(items[0].id, items[1].id);
  ASSERT_EQ(result.groups.size(), 4u);
  EXPECT_NE(result.groups[2].id, result.groups[3].id);
  EXPECT_EQ(result.groups[3].itemIDs, (List<UUID>{items[0].id}));
  EXPECT_EQ(items[1].groupID, result.groups[2].id);
}

// Tens of thousands of identifiers in every place where one may stand. With quadratic time this
// test would take minutes.
TEST(Pasting, TakesManyIdentifiersInItsStride) {
  PlotFragment fragment;
  PlotGroup group = {.id = identifier(1), .name = "All", .itemIDs = {}};
  for (std::uint64_t i = 0; i < 30'000; ++i) {
    fragment.items.push_back(itemOn(identifier(i), identifier(i), identifier(i)));
    fragment.layers.push_back(layer(identifier(i), "Layer"));
    group.itemIDs.push_back(identifier(i));
  }
  for (int i = 0; i < 30'000; ++i) group.itemIDs.push_back(identifier(0xABC));
  fragment.groups = {group};
  TestEnvironment environment;
  const auto paste = pastingCommand(sampleProject(), fragment, {}, environment);
  ASSERT_TRUE(paste);
  EXPECT_EQ(environment.identifiersMade(), 30'001);
}

}  // namespace
}  // namespace korrin
