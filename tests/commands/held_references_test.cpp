// Commands on lists whose elements were changed through references, many of them held at once: what
// they find is what stands in the list, whatever it was when the reference was taken.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"

#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::identifier;
using test::microphone;
using test::sampleProject;

InputChannel inputLinkedTo(UUID id, std::optional<UUID> item) {
  InputChannel input = sampleProject().inputs[0];
  input.id = id;
  input.plotItemID = item;
  return input;
}

TEST(DeleteItems, ClearsALinkThatWasExchangedThroughTwoReferences) {
  const UUID a = identifier(301);
  const UUID b = identifier(302);
  KorrinProject project = sampleProject();
  project.items = {microphone(a), microphone(b)};
  project.inputs = {inputLinkedTo(identifier(1), a), inputLinkedTo(identifier(2), b)};
  std::swap(project.inputs.edit(0), project.inputs.edit(1));
  DocumentCommand::deleteItems({a}).apply(project);
  EXPECT_EQ(project.inputs[0].plotItemID, b);
  EXPECT_EQ(project.inputs[1].plotItemID, std::nullopt);
}

TEST(DeleteItems, FindsAnItemThatGotItsIdentifierWhileAnotherReferenceWasHeld) {
  const UUID known = identifier(301);
  KorrinProject project = sampleProject();
  PlotItem& first = project.items.edit(0);
  PlotItem& second = project.items.edit(1);
  first.id = known;
  second.label = "held as well";
  const std::size_t before = project.items.size();
  DocumentCommand::deleteItems({known}).apply(project);
  EXPECT_EQ(project.items.size(), before - 1);
  EXPECT_EQ(project.items[0].label, "held as well");
}

/// A plot as plain vectors.
struct Model {
  std::vector<PlotItem> items;
  std::vector<InputChannel> inputs;
  std::vector<std::vector<UUID>> groups;

  friend bool operator==(const Model&, const Model&) = default;
};

Model modelOf(const KorrinProject& project) {
  Model model{.items = project.items.toVector(), .inputs = project.inputs.toVector(), .groups = {}};
  for (const PlotGroup& group : project.groups) model.groups.push_back(group.itemIDs.toVector());
  return model;
}

void removeMembers(Model& model, const IDSet& ids) {
  for (std::vector<UUID>& group : model.groups)
    std::erase_if(group, [&ids](const UUID& id) { return ids.contains(id); });
  std::erase_if(model.groups, [](const std::vector<UUID>& group) { return group.empty(); });
}

void deleteItems(Model& model, const IDSet& ids) {
  std::erase_if(model.items, [&ids](const PlotItem& item) { return ids.contains(item.id); });
  for (InputChannel& input : model.inputs)
    if (input.plotItemID && ids.contains(*input.plotItemID)) input.plotItemID = std::nullopt;
  removeMembers(model, ids);
}

void replaceItem(Model& model, const PlotItem& item) {
  const auto place = std::ranges::find(model.items, item.id, &PlotItem::id);
  if (place != model.items.end()) *place = item;
}

void group(Model& model, const IDSet& ids, const UUID& groupID) {
  std::vector<UUID> members;
  for (PlotItem& item : model.items) {
    if (!ids.contains(item.id)) continue;
    item.groupID = groupID;
    members.push_back(item.id);
  }
  removeMembers(model, ids);
  model.groups.push_back(members);
}

std::size_t below(std::mt19937_64& random, std::size_t bound) {
  return static_cast<std::size_t>(random() % bound);
}

/// Holds references all over a project and writes through them, whenever it likes, what changes the
/// members by which records are found; the model follows.
class HeldReferences {
 public:
  HeldReferences(KorrinProject& project, Model& model, std::mt19937_64& random)
      : model_(model), random_(random) {
    const std::size_t count = 2 + below(random_, 20);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t item = below(random_, project.items.size());
      items_.emplace_back(&project.items.edit(item), item);
      const std::size_t input = below(random_, project.inputs.size());
      inputs_.emplace_back(&project.inputs.edit(input), input);
      const std::size_t group = below(random_, project.groups.size());
      groups_.emplace_back(&project.groups.edit(group), group);
    }
  }

  void write() {
    const auto& [item, at] = any(items_);
    const auto& [otherItem, otherAt] = any(items_);
    std::swap(item->id, otherItem->id);
    std::swap(model_.items[at].id, model_.items[otherAt].id);

    const auto& [input, row] = any(inputs_);
    const std::optional<UUID> link = random_() % 3 == 0 ? std::nullopt : anyIdentifier();
    input->plotItemID = model_.inputs[row].plotItemID = link;
    const auto& [otherInput, otherRow] = any(inputs_);
    if (row != otherRow) {
      std::swap(*input, *otherInput);
      std::swap(model_.inputs[row], model_.inputs[otherRow]);
    }

    const auto& [group, place] = any(groups_);
    const auto& [otherGroup, otherPlace] = any(groups_);
    std::swap(group->itemIDs, otherGroup->itemIDs);
    std::swap(model_.groups[place], model_.groups[otherPlace]);
    const UUID member = *anyIdentifier();
    group->itemIDs.push_back(member);
    model_.groups[place].push_back(member);
  }

 private:
  template <class Record>
  using Held = std::vector<std::pair<Record*, std::size_t>>;

  template <class Record>
  const std::pair<Record*, std::size_t>& any(const Held<Record>& held) {
    return held[below(random_, held.size())];
  }
  std::optional<UUID> anyIdentifier() {
    return model_.items[below(random_, model_.items.size())].id;
  }

  Model& model_;
  std::mt19937_64& random_;
  Held<PlotItem> items_;
  Held<InputChannel> inputs_;
  Held<PlotGroup> groups_;
};

KorrinProject plotOf(std::uint64_t items) {
  KorrinProject project = sampleProject();
  project.items.clear();
  project.inputs.clear();
  project.groups.clear();
  for (std::uint64_t i = 0; i < items; ++i) {
    project.items.push_back(microphone(identifier(1000 + i)));
    project.inputs.push_back(inputLinkedTo(identifier(5000 + i), identifier(1000 + i * 7 % items)));
    if (i % 4 == 0)
      project.groups.push_back(
          {.id = identifier(9000 + i),
           .name = "",
           .itemIDs = {identifier(1000 + i), identifier(1000 + i * 3 % items)}});
  }
  return project;
}

TEST(HeldReferences, LeadCommandsToWhatWasWrittenThroughThem) {
  for (std::uint64_t seed = 1; seed <= 150; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    KorrinProject project = plotOf(10 + below(random, 150));
    Model model = modelOf(project);
    std::vector<KorrinProject> copies;
    for (int round = 0; round < 4; ++round) {
      HeldReferences held(project, model, random);
      for (std::uint64_t writes = random() % 30; writes > 0; --writes) held.write();
      ASSERT_EQ(modelOf(project), model);

      IDSet ids;
      for (std::uint64_t count = 1 + random() % 16; count > 0; --count)
        ids.insert(model.items[below(random, model.items.size())].id);
      if (random() % 2 == 0) copies.push_back(project);
      switch (random() % 3) {
        case 0:
          DocumentCommand::deleteItems(ids).apply(project);
          deleteItems(model, ids);
          break;
        case 1: {
          List<PlotItem> moved;
          for (const PlotItem& item : model.items)
            if (ids.contains(item.id)) moved.emplace_back(item).position.x += 100;
          DocumentCommand::replaceItems(moved).apply(project);
          for (const PlotItem& item : moved) replaceItem(model, item);
          break;
        }
        default:
          if (const auto command = project.groupingCommand(ids)) {
            command->apply(project);
            group(model, ids, project.groups.back().id);
          }
      }
      ASSERT_EQ(modelOf(project), model) << "round " << round;
      if (model.items.size() < 2 || model.groups.empty()) break;
    }
  }
}

}  // namespace
}  // namespace korrin
