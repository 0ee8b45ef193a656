#include "korrin/commands/change_set.h"

#include <type_traits>

#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"

#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::identifier;

ChangeSet sampleChanges() {
  return {.changedItemIDs = {identifier(1), identifier(2), identifier(3)},
          .affectsTechnicalData = false,
          .affectsDocumentStructure = false};
}

TEST(ChangeSet, IsEqualWhateverTheOrderOfInsertion) {
  ChangeSet other = sampleChanges();
  other.changedItemIDs.clear();
  other.changedItemIDs.rehash(1000);
  for (const int number : {3, 1, 2, 3})
    other.changedItemIDs.insert(identifier(static_cast<std::uint64_t>(number)));
  EXPECT_EQ(other, sampleChanges());
  EXPECT_EQ(std::hash<ChangeSet>{}(other), std::hash<ChangeSet>{}(sampleChanges()));
}

TEST(ChangeSet, DiffersInEachOfItsFields) {
  ChangeSet other = sampleChanges();
  other.changedItemIDs.erase(identifier(2));
  EXPECT_NE(other, sampleChanges());
  EXPECT_NE(std::hash<ChangeSet>{}(other), std::hash<ChangeSet>{}(sampleChanges()));

  for (const auto flag : {&ChangeSet::affectsTechnicalData, &ChangeSet::affectsDocumentStructure}) {
    other = sampleChanges();
    other.*flag = true;
    EXPECT_NE(other, sampleChanges());
    EXPECT_NE(std::hash<ChangeSet>{}(other), std::hash<ChangeSet>{}(sampleChanges()));
  }
}

TEST(ChangeSet, IsOwnedByEachCopy) {
  const ChangeSet original = sampleChanges();
  ChangeSet copy = original;
  copy.changedItemIDs.clear();
  EXPECT_EQ(original, sampleChanges());
}

TEST(ChangeSet, SumsUpEditsByUnionAndOr) {
  ChangeSet total = {
      .changedItemIDs = {}, .affectsTechnicalData = false, .affectsDocumentStructure = false};
  total.merge(sampleChanges());
  EXPECT_EQ(total, sampleChanges());
  total.merge({.changedItemIDs = {identifier(3), identifier(4)},
               .affectsTechnicalData = true,
               .affectsDocumentStructure = false});
  EXPECT_EQ(
      total,
      (ChangeSet{.changedItemIDs = {identifier(1), identifier(2), identifier(3), identifier(4)},
                 .affectsTechnicalData = true,
                 .affectsDocumentStructure = false}));
  total.merge(
      {.changedItemIDs = {}, .affectsTechnicalData = false, .affectsDocumentStructure = true});
  EXPECT_EQ(total.changedItemIDs.size(), 4u);
  EXPECT_TRUE(total.affectsTechnicalData);
  EXPECT_TRUE(total.affectsDocumentStructure);
}

template <class T>
constexpr bool isCompared = requires(const T& a, const T& b) {
  a == b;
};

TEST(CommandResult, IsNeitherComparedNorHashed) {
  EXPECT_FALSE(isCompared<CommandResult>);
  EXPECT_FALSE(std::is_default_constructible_v<std::hash<CommandResult>>);
  EXPECT_FALSE(isCompared<DocumentCommand>);
}

TEST(CommandResult, HoldsWhatItIsGiven) {
  CommandResult result = {.inverse = DocumentCommand::deleteItems({identifier(7)}),
                          .changes = sampleChanges()};
  EXPECT_EQ(result.inverse.get<DeleteItems>()->itemIDs, IDSet{identifier(7)});
  EXPECT_EQ(result.changes, sampleChanges());
  result.inverse = DocumentCommand::compound({});
  EXPECT_NE(result.inverse.get<Compound>(), nullptr);
}

}  // namespace
}  // namespace korrin
