#include "korrin/review/merge.h"

#include <limits>

#include <gmock/gmock.h>

#include "korrin/coding/json_value.h"
#include "korrin/model/document_coding.h"
#include "korrin/review/difference.h"
#include "korrin/validation/document_validation.h"

#include "tests/support/full_project.h"
#include "tests/support/laws.h"
#include "tests/support/record_laws.h"
#include "tests/support/review_laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
void PrintTo(const MergeConflict& one, std::ostream* out) {
  *out << one.list << " " << one.id << " " << one.field << ": " << one.base << ", " << one.ours
       << ", " << one.theirs;
}
}  // namespace korrin

namespace korrin::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ProjectNote note(std::uint64_t number, const char* title = "T") {
  return {.id = identifier(number), .title = title, .body = "B"};
}

KorrinProject withNotes(const std::vector<std::uint64_t>& numbers) {
  KorrinProject project{};
  for (const std::uint64_t number : numbers) project.notes.push_back(note(number));
  return project;
}

std::vector<std::uint64_t> numbersOf(const KorrinProject& project) {
  std::vector<std::uint64_t> numbers;
  for (const ProjectNote& one : project.notes) {
    std::uint64_t number = 0;
    while (one.id != identifier(number)) ++number;
    numbers.push_back(number);
  }
  return numbers;
}

std::string idText(std::uint64_t number) { return identifier(number).text(); }

/// Three projects of notes, merged.
struct Merged {
  explicit Merged(const std::vector<std::uint64_t>& base, const std::vector<std::uint64_t>& ours,
                  const std::vector<std::uint64_t>& theirs)
      : result(merge(withNotes(base), withNotes(ours), withNotes(theirs))) {
    EXPECT_TRUE(mergeIsRight(withNotes(base), withNotes(ours), withNotes(theirs)));
  }
  std::vector<std::uint64_t> numbers() const { return numbersOf(result.project); }

  MergeResult result;
};

TEST(Merge, TakesEachSinglesideEditOfEveryField) {
  const KorrinProject base = fullProject();
  for (const KorrinProject& edited : changesOf(base)) {
    for (const MergeResult& result : {merge(base, edited, base), merge(base, base, edited)}) {
      EXPECT_THAT(result.conflicts, IsEmpty());
      EXPECT_EQ(encodeJSON(withModifiedAt(result.project, {})),
                encodeJSON(withModifiedAt(edited, {})));
    }
  }
}

TEST(Merge, HasTheEditsOfBothSidesInOneRecord) {
  const KorrinProject base = sampleProject();
  KorrinProject ours = base;
  KorrinProject theirs = base;
  ours.inputs.edit(0).microphoneOrDI = "SM58";
  theirs.inputs.edit(0).stand = "Tall boom";
  ours.items.edit(0).style.labelScale = 2;
  theirs.items.edit(0).style.tintHex = "#00ff00";
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_THAT(result.conflicts, IsEmpty());
  EXPECT_EQ(result.project.inputs[0].microphoneOrDI, "SM58");
  EXPECT_EQ(result.project.inputs[0].stand, "Tall boom");
  EXPECT_EQ(result.project.items[0].style.labelScale, 2);
  EXPECT_EQ(result.project.items[0].style.tintHex, "#00ff00");
}

TEST(Merge, KeepsOursAndTellsWhereBothChangedOneField) {
  const KorrinProject base = sampleProject();
  KorrinProject ours = base;
  KorrinProject theirs = base;
  ours.items.edit(0).position.x += 100;
  theirs.items.edit(0).position.y += 100;
  ours.metadata.title = "Ours";
  theirs.metadata.title = "Theirs";
  ours.schemaVersion = 3;
  theirs.schemaVersion = 4;
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_EQ(result.project, ours);
  EXPECT_THAT(
      result.conflicts,
      ElementsAre(
          MergeConflict{"schemaVersion", "", "", encodeJSONValue(base.schemaVersion), "3", "4"},
          MergeConflict{"metadata", "", "title", encodeJSONValue(base.metadata.title), "\"Ours\"",
                        "\"Theirs\""},
          MergeConflict{"items", base.items[0].id.text(), "position",
                        encodeJSON(base.items[0].position), encodeJSON(ours.items[0].position),
                        encodeJSON(theirs.items[0].position)}));
}

TEST(Merge, TakesWhatBothChangedAlike) {
  const KorrinProject base = sampleProject();
  KorrinProject ours = base;
  ours.items.edit(0).label = "Caf\u00E9";
  ours.items.edit(0).rotationDegrees = std::numeric_limits<double>::quiet_NaN();
  KorrinProject theirs = ours;
  theirs.items.edit(0).label = "Cafe\u0301";
  theirs.items.edit(0).rotationDegrees = -std::numeric_limits<double>::quiet_NaN();
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_THAT(result.conflicts, IsEmpty());
  EXPECT_EQ(result.project.items[0].label.str(), "Caf\u00E9");
}

TEST(Merge, LetsAnEditWinOverAnotherSpelling) {
  KorrinProject base = sampleProject();
  base.items.edit(0).label = "Caf\u00E9";
  KorrinProject ours = base;
  ours.items.edit(0).label = "Cafe\u0301";
  KorrinProject theirs = base;
  theirs.items.edit(0).label = "Bar";
  EXPECT_THAT(merge(base, ours, theirs).conflicts, IsEmpty());
  EXPECT_EQ(merge(base, ours, theirs).project.items[0].label, "Bar");
  EXPECT_EQ(merge(base, theirs, ours).project.items[0].label, "Bar");
  EXPECT_EQ(merge(base, base, ours).project.items[0].label.str(), "Cafe\u0301");
}

TEST(Merge, RemovesWhatEitherSideRemoved) {
  EXPECT_EQ(Merged({1, 2, 3, 4}, {1, 3, 4}, {1, 2, 3}).numbers(),
            (std::vector<std::uint64_t>{1, 3}));
}

TEST(Merge, KeepsAChangedRecordThatTheOtherSideRemoved) {
  const KorrinProject base = withNotes({1, 2, 3});
  KorrinProject changed = base;
  changed.notes.edit(1).title = "U";
  const KorrinProject removed = withNotes({1, 3});

  const MergeResult kept = merge(base, changed, removed);
  EXPECT_EQ(kept.project.notes, changed.notes);
  EXPECT_THAT(kept.conflicts,
              ElementsAre(MergeConflict{"notes", idText(2), "", encodeJSON(base.notes[1]),
                                        encodeJSON(changed.notes[1]), ""}));
  const MergeResult brought = merge(base, removed, changed);
  EXPECT_EQ(brought.project.notes, changed.notes);
  EXPECT_THAT(brought.conflicts,
              ElementsAre(MergeConflict{"notes", idText(2), "", encodeJSON(base.notes[1]), "",
                                        encodeJSON(changed.notes[1])}));
}

TEST(Merge, RemovesARecordThatTheOtherSideOnlyMoved) {
  const Merged merged({1, 2, 3}, {2, 3}, {2, 3, 1});
  EXPECT_EQ(merged.numbers(), (std::vector<std::uint64_t>{2, 3}));
  EXPECT_THAT(merged.result.conflicts, IsEmpty());
}

TEST(Merge, PutsAdditionsBehindWhatTheyStoodBehind) {
  using Numbers = std::vector<std::uint64_t>;
  EXPECT_EQ(Merged({1, 2}, {1, 8, 2}, {1, 9, 2}).numbers(), (Numbers{1, 8, 9, 2}));
  EXPECT_EQ(Merged({1, 2}, {1, 2, 8}, {1, 2, 9}).numbers(), (Numbers{1, 2, 8, 9}));
  EXPECT_EQ(Merged({1, 2}, {8, 1, 2}, {9, 1, 2}).numbers(), (Numbers{8, 9, 1, 2}));
  EXPECT_EQ(Merged({1, 2, 3}, {1, 3}, {1, 2, 9, 3}).numbers(), (Numbers{1, 9, 3}));
  EXPECT_EQ(Merged({1, 2, 3}, {3, 1, 2}, {1, 9, 2, 3}).numbers(), (Numbers{3, 1, 9, 2}));
  EXPECT_EQ(Merged({1, 2, 3}, {1, 9, 2, 3}, {3, 1, 2}).numbers(), (Numbers{3, 1, 9, 2}));
  EXPECT_EQ(Merged({}, {1, 2}, {3, 4}).numbers(), (Numbers{1, 2, 3, 4}));
  EXPECT_EQ(Merged({}, {1, 2}, {3, 2, 4}).numbers(), (Numbers{1, 3, 2, 4}));
}

TEST(Merge, TakesTheOrderOfTheSideThatChangedIt) {
  using Numbers = std::vector<std::uint64_t>;
  EXPECT_EQ(Merged({1, 2, 3}, {3, 1, 2}, {1, 2, 3}).numbers(), (Numbers{3, 1, 2}));
  EXPECT_EQ(Merged({1, 2, 3}, {1, 2, 3}, {3, 1, 2}).numbers(), (Numbers{3, 1, 2}));
  const Merged alike({1, 2, 3}, {3, 1, 2, 8}, {3, 9, 1, 2});
  EXPECT_EQ(alike.numbers(), (Numbers{3, 9, 1, 2, 8}));
  EXPECT_THAT(alike.result.conflicts, IsEmpty());
}

TEST(Merge, TellsWhereBothChangedTheOrderDifferently) {
  const Merged merged({1, 2, 3}, {3, 1, 2}, {2, 1, 3});
  EXPECT_EQ(merged.numbers(), (std::vector<std::uint64_t>{3, 1, 2}));
  const auto order = [](int a, int b, int c) {
    const auto text = [](int number) {
      return '"' + idText(static_cast<std::uint64_t>(number)) + '"';
    };
    return '[' + text(a) + ',' + text(b) + ',' + text(c) + ']';
  };
  EXPECT_THAT(merged.result.conflicts, ElementsAre(MergeConflict{"notes", "", "", order(1, 2, 3),
                                                                 order(3, 1, 2), order(2, 1, 3)}));
}

TEST(Merge, MergesWhatBothAddedUnderOneIdentifierFieldByField) {
  const KorrinProject base = withNotes({});
  KorrinProject ours = base;
  KorrinProject theirs = base;
  ours.notes.push_back({.id = identifier(1), .title = "T", .body = "ours"});
  theirs.notes.push_back({.id = identifier(1), .title = "T", .body = "theirs"});
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_EQ(result.project.notes, ours.notes);
  EXPECT_THAT(result.conflicts,
              ElementsAre(MergeConflict{"notes", idText(1), "body", "", "\"ours\"", "\"theirs\""}));
}

TEST(Merge, TakesTheLaterInstantOfTheLastEdit) {
  const KorrinProject base = sampleProject();
  const KorrinProject earlier = withModifiedAt(base, instant(5));
  const KorrinProject later = withModifiedAt(base, instant(6));
  EXPECT_EQ(merge(base, earlier, later).project, later);
  EXPECT_EQ(merge(base, later, earlier).project, later);
  EXPECT_THAT(merge(base, earlier, later).conflicts, IsEmpty());
}

TEST(Merge, PairsRepeatedIdentifiersInTurn) {
  const KorrinProject base = withNotes({1, 1});
  KorrinProject ours = base;
  KorrinProject theirs = base;
  ours.notes.edit(0).title = "first";
  theirs.notes.edit(1).title = "second";
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_THAT(result.conflicts, IsEmpty());
  EXPECT_EQ(result.project.notes, (List<ProjectNote>{note(1, "first"), note(1, "second")}));
}

TEST(Merge, GivesNoIdentifierToTwoLists) {
  const KorrinProject base = sampleProject();
  KorrinProject ours = base;
  KorrinProject theirs = base;
  ours.notes.push_back(note(700));
  theirs.items.push_back(microphone(identifier(700)));
  theirs.items.push_back(microphone(identifier(701)));
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_EQ(result.project.notes, ours.notes);
  EXPECT_EQ(result.project.items.size(), base.items.size() + 1);
  EXPECT_EQ(result.project.items.back().id, identifier(701));
  EXPECT_THAT(result.conflicts,
              ElementsAre(MergeConflict{"items", idText(700), "", "", "",
                                        encodeJSON(microphone(identifier(700)))}));
  EXPECT_EQ(merge(base, theirs, ours).project.notes, base.notes);
}

TEST(Merge, LeavesAnIdentifierInTwoListsWhereOneSideHadItSo) {
  const KorrinProject base = sampleProject();
  KorrinProject theirs = base;
  theirs.notes.push_back(note(700));
  theirs.items.push_back(microphone(identifier(700)));
  const MergeResult result = merge(base, base, theirs);
  EXPECT_THAT(result.conflicts, IsEmpty());
  EXPECT_EQ(result.project, theirs);
}

TEST(Merge, DropsAChangedRecordWhoseIdentifierOursGaveToAnotherList) {
  const KorrinProject base = withNotes({1, 2});
  KorrinProject ours = withNotes({1});
  ours.items.push_back(microphone(identifier(2)));
  KorrinProject theirs = base;
  theirs.notes.edit(1).title = "U";
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_EQ(result.project, ours);
  ASSERT_EQ(result.conflicts.size(), 1u);
  EXPECT_EQ(result.conflicts[0].id, idText(2));
  EXPECT_EQ(result.conflicts[0].list, "notes");
}

TEST(Merge, KeepsBothEditsWhereAReferenceDanglesThen) {
  const KorrinProject base = sampleProject();
  KorrinProject ours = base;
  ours.layers.erase(2);
  KorrinProject theirs = base;
  theirs.items.push_back(microphone(identifier(700)));
  theirs.items.edit(theirs.items.size() - 1).layerID = base.layers[2].id;
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_THAT(result.conflicts, IsEmpty());
  EXPECT_EQ(result.project.layers, ours.layers);
  EXPECT_EQ(result.project.items, theirs.items);
  DocumentValidation::validate(result.project);
}

TEST(Merge, SharesTheStorageOfListsThatOneSideLeftAlone) {
  const KorrinProject base = fullProject();
  KorrinProject ours = base;
  KorrinProject theirs = base;
  ours.notes.edit(0).title = "Ours";
  theirs.items.edit(0).label = "Theirs";
  const MergeResult result = merge(base, ours, theirs);
  EXPECT_EQ(&result.project.items[0], &theirs.items[0]);
  EXPECT_EQ(&result.project.notes[0], &ours.notes[0]);
  EXPECT_EQ(&result.project.inputs[0], &base.inputs[0]);
}

}  // namespace
}  // namespace korrin::test
