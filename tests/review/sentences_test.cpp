#include <limits>

#include <gmock/gmock.h>

#include "korrin/model/document_coding.h"
#include "korrin/review/difference.h"

#include "tests/support/full_project.h"
#include "tests/support/record_laws.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// The sample plot, and how its differences from an edited copy read.
class Sentences : public testing::Test {
 protected:
  std::vector<std::string> sentences() const {
    std::vector<std::string> result;
    for (const Difference& one : differences(before, after))
      result.push_back(sentenceFor(one, before, after));
    return result;
  }
  std::size_t placeOf(UUID id) const {
    std::size_t place = 0;
    while (after.items[place].id != id) ++place;
    return place;
  }
  PlotItem& item(UUID id) { return after.items.edit(placeOf(id)); }
  /// Changes the former plot as well.
  void setBefore(void (*change)(KorrinProject&)) {
    change(before);
    after = before;
  }

  KorrinProject before = sampleProject();
  KorrinProject after = before;
};

TEST_F(Sentences, SayWhichInputChangedAndHow) {
  setBefore([](KorrinProject& project) {
    InputChannel& input = project.inputs.edit(0);
    input.channel = 7;
    input.source = "Bass DI";
    input.microphoneOrDI = "DI";
    input.phantomPower = false;
    input.notes = "";
    input.plotItemID = sample::kick;
  });
  InputChannel& input = after.inputs.edit(0);
  input.microphoneOrDI = "Active DI";
  input.phantomPower = true;
  input.channel.reset();
  input.notes = "Pre-EQ";
  input.plotItemID = sample::guitar;
  const std::string kick = '"' + after.items[placeOf(sample::kick)].label.str() + '"';
  const std::string guitar = '"' + after.items[placeOf(sample::guitar)].label.str() + '"';
  EXPECT_THAT(
      sentences(),
      ElementsAre("Input 7 \"Bass DI\": channel removed, was 7",
                  "Input 7 \"Bass DI\": microphone or DI changed from \"DI\" to \"Active DI\"",
                  "Input 7 \"Bass DI\": phantom power on",
                  "Input 7 \"Bass DI\": notes set to \"Pre-EQ\"",
                  "Input 7 \"Bass DI\": linked symbol changed from " + kick + " to " + guitar));
}

struct Movement {
  const char* name;
  AudienceEdge audience;
  StagePoint by;
  const char* expected;
};
void PrintTo(const Movement& row, std::ostream* out) { *out << row.name; }

class Movements : public testing::TestWithParam<Movement> {};

TEST_P(Movements, AreToldAsTheDrawingHasThem) {
  KorrinProject before = sampleProject();
  before.items.edit(0).label = "MIX 2";
  before.stage.audienceEdge = GetParam().audience;
  KorrinProject after = before;
  StagePoint& position = after.items.edit(0).position;
  position = {.x = position.x + GetParam().by.x, .y = position.y + GetParam().by.y};
  const auto all = differences(before, after);
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(sentenceFor(all[0], before, after),
            "\"MIX 2\" moved " + std::string(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Movements,
    testing::Values(Movement{"both",
                             AudienceEdge::bottom,
                             {400, 150},
                             "0.40 m to the right and 0.15 m towards the audience"},
                    Movement{"leftAndAway",
                             AudienceEdge::bottom,
                             {-1000, -20},
                             "1.00 m to the left and 0.02 m away from the audience"},
                    Movement{"onlyRight", AudienceEdge::bottom, {400, 0}, "0.40 m to the right"},
                    Movement{
                        "aHair", AudienceEdge::bottom, {0, 0.5}, "0.5 mm towards the audience"},
                    Movement{"audienceAbove",
                             AudienceEdge::top,
                             {400, 150},
                             "0.40 m to the right and 0.15 m away from the audience"},
                    Movement{"audienceAtTheRight",
                             AudienceEdge::right,
                             {400, 150},
                             "0.40 m towards the audience and 0.15 m down in the drawing"},
                    Movement{"audienceAtTheLeft",
                             AudienceEdge::left,
                             {400, -150},
                             "0.40 m away from the audience and 0.15 m up in the drawing"}),
    [](const auto& row) { return row.param.name; });

TEST_F(Sentences, FallBackToPositionsForAMoveWithoutADistance) {
  item(sample::vocal).position.x = std::numeric_limits<double>::infinity();
  ASSERT_EQ(sentences().size(), 1u);
  EXPECT_THAT(sentences()[0], HasSubstr(": position changed from ("));
  EXPECT_THAT(sentences()[0], HasSubstr("(Infinity mm, "));
}

TEST_F(Sentences, SayTruthValuesInWords) {
  setBefore([](KorrinProject& project) {
    for (std::size_t i = 0; i < project.items.size(); ++i) project.items.edit(i).isLocked = false;
    project.items.edit(0).label = "Vox";
    project.layers.edit(0).name = "Front";
    project.layers.edit(0).isVisible = true;
    project.stage.showGrid = true;
    project.exportSettings.includeInputList = true;
  });
  after.items.edit(0).isLocked = true;
  after.items.edit(0).isFlippedHorizontally = !before.items[0].isFlippedHorizontally;
  after.items.edit(0).style.labelVisible = !before.items[0].style.labelVisible;
  after.layers.edit(0).isVisible = false;
  after.stage.showGrid = false;
  after.exportSettings.includeInputList = false;
  EXPECT_THAT(sentences(),
              ElementsAre("Stage: grid hidden", "Layer \"Front\" is hidden",
                          "\"Vox\" is flipped horizontally", "\"Vox\" is locked",
                          "\"Vox\": label hidden", "Printed pages: input list left out"));
}

TEST_F(Sentences, SayUnitsAndNames) {
  setBefore([](KorrinProject& project) {
    PlotItem& item = project.items.edit(0);
    item.label = "Drums";
    item.riserHeightMillimeters = 400;
    item.rotationDegrees = 0;
    item.size = {.width = 2000, .height = 1005};
    item.layerID = sample::front;
    project.metadata.title = "Tour";
    project.metadata.eventDate.reset();
    project.stage.audienceEdge = AudienceEdge::bottom;
  });
  PlotItem& item = after.items.edit(0);
  item.riserHeightMillimeters = 600;
  item.rotationDegrees = 22.5;
  item.size.width = 3000;
  item.layerID = sample::rigging;
  after.metadata.title = "Tour 2";
  after.metadata.eventDate = Instant(std::chrono::hours(24 * 365) + std::chrono::minutes(30));
  after.stage.audienceEdge = AudienceEdge::top;
  const std::string front = before.layers[0].name.str();
  const std::string rigging = before.layers[1].name.str();
  EXPECT_THAT(sentences(),
              ElementsAre("Plot: title changed from \"Tour\" to \"Tour 2\"",
                          "Plot: event date set to 1971-01-01 00:30 UTC",
                          "Stage: audience edge changed from bottom to top",
                          "\"Drums\": size changed from 2.00 m x 1005 mm to 3.00 m x 1005 mm",
                          "\"Drums\": rotation changed from 0° to 22.5°",
                          "\"Drums\": layer changed from \"" + front + "\" to \"" + rigging + '"',
                          "\"Drums\": riser height changed from 0.40 m to 0.60 m"));
}

TEST_F(Sentences, SayWhoJoinedAndWhoLeftAGroup) {
  setBefore([](KorrinProject& project) {
    project.groups.edit(0).name = "Band";
    for (std::size_t i = 0; i < project.items.size(); ++i)
      project.items.edit(i).label = "Item " + std::to_string(i);
  });
  const auto idOf = [this](std::size_t i) { return before.items[i].id; };
  before.groups.edit(0).itemIDs = {idOf(0), idOf(1)};
  after.groups.edit(0).itemIDs = {idOf(1), idOf(2), idOf(3)};
  EXPECT_THAT(sentences(),
              ElementsAre("Group \"Band\": \"Item 2\" and \"Item 3\" joined, \"Item 0\" left"));
  after.groups.edit(0).itemIDs = {idOf(1), idOf(0)};
  EXPECT_THAT(sentences(), ElementsAre("Group \"Band\": items in another order"));
  after.groups.edit(0).itemIDs = {idOf(0), idOf(1), idOf(0)};
  EXPECT_THAT(sentences(), ElementsAre("Group \"Band\": items listed more or less often"));
  std::swap(before, after);
  EXPECT_THAT(sentences(), ElementsAre("Group \"Band\": items listed more or less often"));
  std::swap(before, after);
  after.groups.edit(0).itemIDs = {idOf(0), idOf(2), idOf(2)};
  EXPECT_THAT(sentences(), ElementsAre("Group \"Band\": \"Item 2\" joined, \"Item 1\" left"));
  before.groups.edit(0).itemIDs = {};
  after.groups.edit(0).itemIDs = {idOf(0), idOf(1), idOf(2), idOf(3), idOf(4), identifier(999)};
  EXPECT_THAT(sentences(), ElementsAre("Group \"Band\": \"Item 0\", \"Item 1\", \"Item 2\", "
                                       "\"Item 3\" and 2 more joined"));
}

TEST_F(Sentences, SayWhatCameWentAndMoved) {
  setBefore([](KorrinProject& project) {
    project.notes = {{.id = identifier(501), .title = "Load-in", .body = "x"},
                     {.id = identifier(502), .title = "Power", .body = "x"},
                     {.id = identifier(503), .title = "", .body = "x"}};
    project.inputs.edit(0).source = "";
    project.inputs.edit(0).channel.reset();
  });
  after.notes = {
      before.notes[2], before.notes[0], {.id = identifier(504), .title = "Parking", .body = "y"}};
  after.inputs.erase(0);
  EXPECT_THAT(sentences(),
              ElementsAre("Input without a name removed", "Note moved from place 3 to 1",
                          "Note \"Power\" removed", "Note \"Parking\" added"));
}

TEST_F(Sentences, StandOnOneLineWhateverTheDocumentSays) {
  setBefore([](KorrinProject& project) {
    project.items.edit(0).label = "A\n\x1B[2J\u202EB\u0007\u200D\u2028";
  });
  item(before.items[0].id).isLocked = !before.items[0].isLocked;
  ASSERT_EQ(sentences().size(), 1u);
  EXPECT_THAT(sentences()[0],
              testing::StartsWith("\"A\\n\\u{1B}[2J\\u{202E}B\\u{7}\u200D\\u{2028}\" is "));
}

TEST_F(Sentences, CutLongTextsToWhereTheyDiffer) {
  const std::string start(1000, 'x');
  setBefore([](KorrinProject& project) {
    project.notes = {{.id = identifier(1), .title = "N", .body = std::string(1000, 'x') + "one"}};
  });
  after.notes.edit(0).body = start + "two";
  EXPECT_THAT(sentences(), ElementsAre("Note \"N\": body changed from \"…xxxxxxxxxxone\" to "
                                       "\"…xxxxxxxxxxtwo\""));
  after.notes.edit(0).body = "short";
  EXPECT_THAT(sentences(), ElementsAre("Note \"N\": body changed from \"" + std::string(60, 'x') +
                                       "…\" to \"short\""));
}

TEST_F(Sentences, HaveNoHoleForADifferenceThatDoesNotFit) {
  const std::string id = identifier(777).text();
  const KorrinProject nothing{};
  const auto sentence = [&](Difference one) { return sentenceFor(one, nothing, nothing); };
  constexpr auto changed = DifferenceKind::changed;
  EXPECT_EQ(sentence({changed, "items", id, "label", "\"A\"", "\"B\""}),
            "Items " + id + ": label changed from \"A\" to \"B\"");
  EXPECT_EQ(sentence({changed, "items", id, "label", "7", "\n"}),
            "Items " + id + ": label changed from 7 to \\n");
  EXPECT_EQ(sentence({changed, "items", "no id", "nosuch.field", "1", "2"}),
            "Items no id: nosuch.field changed from 1 to 2");
  EXPECT_EQ(sentence({changed, "nowhere", "", "x", "", "2"}), "Nowhere: x set to 2");
  EXPECT_EQ(sentence({DifferenceKind::moved, "items", id, "", "9223372036854775807", "x"}),
            "Items " + id + " moved from place 9223372036854775807 to x");
  EXPECT_EQ(sentence({DifferenceKind::removed, "notes", id, "", "{", ""}),
            "Notes " + id + " removed");
  EXPECT_FALSE(sentence({changed, "", "", "", "", ""}).empty());
}

TEST_F(Sentences, AreThereForEveryFieldThatCanChange) {
  const KorrinProject former = fullProject();
  std::size_t count = 0;
  for (const KorrinProject& present : changesOf(former)) {
    const DifferenceSentences sentences(former, present);
    for (const Difference& one : differences(former, present)) {
      const std::string sentence = sentenceFor(one, former, present);
      EXPECT_EQ(sentences(one), sentence);
      EXPECT_THAT(sentence, Not(HasSubstr("{")));
      ++count;
    }
  }
  EXPECT_GT(count, 100u);
}

}  // namespace
}  // namespace korrin::test
