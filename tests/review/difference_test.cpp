#include "korrin/review/difference.h"

#include <limits>

#include <gmock/gmock.h>

#include "korrin/model/document_coding.h"

#include "tests/support/full_project.h"
#include "tests/support/laws.h"
#include "tests/support/record_laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
void PrintTo(const Difference& one, std::ostream* out) {
  *out << rawValue(one.kind) << " " << one.list << " " << one.id << " " << one.field << ": "
       << one.before << " -> " << one.after;
}
}  // namespace korrin

namespace korrin::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto added = DifferenceKind::added;
constexpr auto removed = DifferenceKind::removed;
constexpr auto moved = DifferenceKind::moved;
constexpr auto changed = DifferenceKind::changed;

std::string idText(std::uint64_t number) { return identifier(number).text(); }

/// A project whose notes have these numbers for identifiers.
KorrinProject withNotes(const std::vector<std::uint64_t>& numbers) {
  KorrinProject project{};
  for (const std::uint64_t number : numbers)
    project.notes.push_back({.id = identifier(number), .title = "T", .body = "B"});
  return project;
}

std::string noteJSON(std::uint64_t number) {
  return R"({"id":")" + idText(number) + R"(","title":"T","body":"B"})";
}

Difference movedNote(std::uint64_t number, const char* from, const char* to) {
  return {moved, "notes", idText(number), "", from, to};
}
Difference addedNote(std::uint64_t number) {
  return {added, "notes", idText(number), "", "", noteJSON(number)};
}
Difference removedNote(std::uint64_t number) {
  return {removed, "notes", idText(number), "", noteJSON(number), ""};
}

TEST(Differences, AreNoneBetweenAProjectAndItself) {
  EXPECT_THAT(differences(fullProject(), fullProject()), IsEmpty());
  EXPECT_THAT(differences(KorrinProject{}, KorrinProject{}), IsEmpty());
}

TEST(Differences, NameEveryFieldThatCanChange) {
  // Every single change of the full project, drawn from the field tables.
  const KorrinProject before = fullProject();
  int count = 0;
  for (const KorrinProject& after : changesOf(before)) {
    const bool isEqual = withModifiedAt(before, {}) == withModifiedAt(after, {});
    const auto found = differences(before, after);
    EXPECT_EQ(found.empty(), isEqual) << encodeJSON(after);
    for (const Difference& one : found) {
      EXPECT_FALSE(one.list.empty());
      EXPECT_NE(one.before, one.after);
    }
    ++count;
  }
  EXPECT_GT(count, 100);
}

TEST(Differences, HoldOldAndNewValuesAsCompactJSON) {
  const KorrinProject before = sampleProject();
  KorrinProject after = before;
  PlotItem& item = after.items.edit(0);
  item.label = "Lead \"V\"";
  item.position = {.x = 250.5, .y = -0.25};
  item.style.labelScale = 2;
  item.style.tintHex = "#ff0000";
  after.stage.size.width = std::numeric_limits<double>::infinity();
  after.schemaVersion = 9;
  const PlotItem& former = before.items[0];
  const std::string id = former.id.text();
  EXPECT_THAT(
      differences(before, after),
      ElementsAre(
          Difference{changed, "schemaVersion", "", "", std::to_string(before.schemaVersion), "9"},
          Difference{changed, "stage", "", "size", encodeJSON(before.stage.size),
                     encodeJSON(after.stage.size, {.nonFinite = NonFinite::strings})},
          Difference{changed, "items", id, "position", encodeJSON(former.position),
                     R"({"x":250.5,"y":-0.25})"},
          Difference{changed, "items", id, "label", '"' + former.label.str() + '"',
                     R"("Lead \"V\"")"},
          Difference{changed, "items", id, "style.tintHex", "", R"("#ff0000")"},
          Difference{changed, "items", id, "style.labelScale", "1", "2"}));
}

TEST(Differences, TellOfTheLastEditOnlyWhenAsked) {
  const KorrinProject before = sampleProject();
  const KorrinProject after =
      withModifiedAt(before, before.metadata.modifiedAt + std::chrono::hours(1));
  EXPECT_THAT(differences(before, after), IsEmpty());
  const auto all = differences(before, after, {.modifiedAt = true});
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].list, "metadata");
  EXPECT_EQ(all[0].field, "modifiedAt");
}

TEST(Differences, TakeTheMembersOfAGroupAsOneValue) {
  const KorrinProject before = sampleProject();
  KorrinProject after = before;
  after.groups.edit(0).itemIDs.push_back(sample::kick);
  const auto all = differences(before, after);
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].field, "itemIDs");
  EXPECT_EQ(all[0].before,
            '[' + ('"' + sample::vocal.text() + "\",\"" + sample::wedge.text() + "\"]"));
}

TEST(Differences, StandInTheOrderOfTheLaterListWithRemovalsInTheirPlace) {
  EXPECT_THAT(differences(withNotes({1, 2, 3, 4}), withNotes({1, 9, 3, 8, 4})),
              ElementsAre(removedNote(2), addedNote(9), addedNote(8)));
  EXPECT_THAT(differences(withNotes({7, 1, 2}), withNotes({1, 2, 5})),
              ElementsAre(removedNote(7), addedNote(5)));
}

TEST(Differences, NameTheFewestRecordsThatMoved) {
  EXPECT_THAT(differences(withNotes({1, 2, 3, 4, 5}), withNotes({5, 1, 2, 3, 4})),
              ElementsAre(movedNote(5, "4", "0")));
  EXPECT_THAT(differences(withNotes({1, 2, 3, 4, 5}), withNotes({2, 3, 4, 5, 1})),
              ElementsAre(movedNote(1, "0", "4")));
  EXPECT_THAT(differences(withNotes({1, 2, 3, 4, 5, 6}), withNotes({1, 5, 2, 3, 6})),
              ElementsAre(movedNote(5, "4", "1"), removedNote(4)));
}

TEST(Differences, MoveASharedStretchRatherThanMoreThatIsNotShared) {
  // One record that both lists share stands between many that only look alike: it moves.
  KorrinProject before = withNotes({1});
  KorrinProject after = before;
  const KorrinProject others = withNotes({2, 3, 4});
  for (const ProjectNote& note : others.notes) before.notes.push_back(note);
  for (const ProjectNote& note : others.notes) after.notes.insert(after.notes.size() - 1, note);
  EXPECT_THAT(differences(before, after), ElementsAre(movedNote(1, "0", "3")));
}

TEST(Differences, PairTheNthOfARepeatedIdentifierWithTheNth) {
  KorrinProject before = withNotes({1, 1, 2});
  before.notes.edit(1).title = "second";
  KorrinProject after = before;
  after.notes.erase(0);
  EXPECT_THAT(
      differences(before, after),
      ElementsAre(Difference{changed, "notes", idText(1), "title", "\"T\"", "\"second\""},
                  Difference{removed, "notes", idText(1), "", encodeJSON(before.notes[1]), ""}));
}

TEST(Differences, FindARepeatedIdentifierFarAwayInSharedStorage) {
  KorrinProject before{};
  for (std::uint64_t i = 0; i < 300; ++i)
    before.items.push_back(microphone(identifier(i == 290 ? 0 : i)));
  KorrinProject after = before;
  after.items.erase(0);
  // The second one takes the first one's part, and what went is the second.
  const auto all = differences(before, after);
  const auto count = [&all](DifferenceKind kind) {
    return std::ranges::count(all, kind, &Difference::kind);
  };
  EXPECT_EQ(count(removed), 1);
  EXPECT_EQ(count(moved), 1);
  EXPECT_EQ(all.size(), 2u);
}

TEST(Differences, IdentifyEmbeddedFilesByTheirDigests) {
  KorrinProject before{};
  before.assetManifest = {
      {.sha256 = "aa", .filename = "a.png", .mediaType = "image/png", .byteCount = 1}};
  KorrinProject after = before;
  after.assetManifest.edit(0).byteCount = 2;
  EXPECT_THAT(differences(before, after),
              ElementsAre(Difference{changed, "assetManifest", "aa", "byteCount", "1", "2"}));
}

TEST(Differences, CompareTextsByTheirCharactersAndZeroByItsValue) {
  KorrinProject before = sampleProject();
  before.items.edit(0).label = "Caf\u00E9";
  before.items.edit(0).rotationDegrees = 0.0;
  KorrinProject after = before;
  after.items.edit(0).label = "Cafe\u0301";
  after.items.edit(0).rotationDegrees = -0.0;
  EXPECT_EQ(before, after);
  EXPECT_THAT(differences(before, after), IsEmpty());
}

TEST(Differences, HoldNotANumberForTheSameAsItself) {
  KorrinProject before = sampleProject();
  before.items.edit(0).rotationDegrees = std::numeric_limits<double>::quiet_NaN();
  KorrinProject after = before;
  after.items.edit(0).rotationDegrees = -std::numeric_limits<double>::quiet_NaN();
  EXPECT_THAT(differences(before, after), IsEmpty());
  after.items.edit(0).rotationDegrees = 1;
  EXPECT_THAT(differences(before, after),
              ElementsAre(Difference{changed, "items", before.items[0].id.text(), "rotationDegrees",
                                     "\"NaN\"", "1"}));
}

}  // namespace
}  // namespace korrin::test
