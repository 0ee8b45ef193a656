// korrin edit as its callers see it, from scripts.

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/coding/json.h"

#include "documents/plot_document.h"
#include "edit_fixture.h"
#include "scratch.h"

namespace korrin::host {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

TEST_F(Edit, CarriesOutTheExampleScriptAndEndsWhereItBegan) {
  const KorrinProject start = plotIn(scratch, "plot.json");
  const Outcome outcome =
      scratch.korrin("edit plot.json --script $D/../scripts/festival-changes.korrin");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  KorrinProject end = plotIn(scratch, "changed-and-undone.json");
  EXPECT_GT(end.metadata.modifiedAt, start.metadata.modifiedAt);
  end.metadata.modifiedAt = start.metadata.modifiedAt;
  EXPECT_EQ(end, start);
}

/// The project as a document in which every identifier is the number of its first occurrence.
std::string withNumberedIdentifiers(const KorrinProject& project) {
  const std::string document = encodeJSON(project, {.prettyPrinted = true});
  std::map<std::string, std::size_t> numbers;
  std::string text;
  for (std::size_t i = 0; i < document.size();) {
    const std::string word = document.substr(i, 36);
    if (!UUID::fromText(word)) {
      text += document[i++];
      continue;
    }
    text += "#" + std::to_string(numbers.try_emplace(word, numbers.size()).first->second);
    i += word.size();
  }
  return text;
}

TEST_F(Edit, BuildsTheFestivalPlotFromNothing) {
  ASSERT_EQ(scratch.korrin("new -o empty.json").status, 0);
  const Outcome outcome =
      scratch.korrin("edit empty.json --script $D/../scripts/festival-from-nothing.korrin");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const KorrinProject expected = plotIn(scratch, "plot.json");
  KorrinProject built = plotIn(scratch, "empty.json");
  built.metadata.createdAt = expected.metadata.createdAt;
  built.metadata.modifiedAt = expected.metadata.modifiedAt;
  EXPECT_EQ(withNumberedIdentifiers(built), withNumberedIdentifiers(expected));
}

TEST_F(Edit, SetsFieldsByPathAndByName) {
  const Outcome outcome =
      run("set title \"Nachtzug\"\n"
          "set eventDate 2026-07-18T20:30+02:00\n"
          "set GTR.rotationDegrees 15\n"
          "set GTR style.labelScale 1.5 style.tintHex none\n"
          "set input 7 microphoneOrDI \"Active DI\" phantomPower on channel none\n"
          "set input \"Floor Tom\" plotItemID GTR\n"
          "set mix 2 outputPatch \"Out 9\"\n"
          "set layer Stage zIndex -7\n"
          "set group Rhythm itemIDs \"Baß, GTR\"\n"
          "set item GTR layerID Risers\n"
          "set GTR.position -10.5,20\n"
          "set paperSize letter\n"
          "set stage.size.width 9000\n"
          "set 16A.isLocked no\n"
          "save\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
  const KorrinProject before =
      decodeDocument(exampleDocument("festival-main-stage"), DateStrategy::iso8601);
  const KorrinProject plot = plotIn(scratch, "plot.json");
  EXPECT_EQ(plot.metadata.title, "Nachtzug");
  EXPECT_EQ(plot.metadata.eventDate, before.metadata.eventDate);
  EXPECT_EQ(plot.items[5].rotationDegrees, 15);
  EXPECT_EQ(plot.items[5].style.labelScale, 1.5);
  EXPECT_EQ(plot.items[5].style.tintHex, std::nullopt);
  EXPECT_EQ(plot.items[5].layerID, plot.layers[0].id);
  EXPECT_EQ(plot.items[5].position, (StagePoint{-10.5, 20}));
  EXPECT_EQ(plot.inputs[6].microphoneOrDI, "Active DI");
  EXPECT_TRUE(plot.inputs[6].phantomPower);
  EXPECT_EQ(plot.inputs[6].channel, std::nullopt);
  EXPECT_EQ(plot.inputs[6].plotItemID, plot.items[5].id);
  EXPECT_EQ(plot.monitorMixes[1].outputPatch, "Out 9");
  EXPECT_EQ(plot.layers[1].zIndex, -7);
  EXPECT_EQ(plot.groups[0].itemIDs, (List<UUID>{plot.items[4].id, plot.items[5].id}));
  EXPECT_EQ(plot.exportSettings.paperSize, PaperSize::letter);
  EXPECT_EQ(plot.stage.size.width, 9000);
  EXPECT_FALSE(plot.items[15].isLocked);
}

TEST_F(Edit, AddsRemovesAndNumbersRecords) {
  const Outcome outcome =
      run("remove input 1 \"Kick Out\"\n"
          "add input source \"New one\"\n"
          "renumber input 3\n"
          "unlink mix 1\n"
          "link mix 2 GTR\n"
          "remove note Soundcheck\n"
          "add equipment item Cable\n"
          "remove layer Risers Stage\n"
          "remove group Rhythm\n"
          "remove item GTR\n"
          "paper letter\n"
          "stage 9000 7000 left\n"
          "save\n");
  EXPECT_EQ(outcome.err, "");
  const KorrinProject plot = plotIn(scratch, "plot.json");
  ASSERT_EQ(plot.inputs.size(), 16u);
  EXPECT_EQ(plot.inputs[0].source, "Snare Top");
  EXPECT_EQ(plot.inputs[0].channel, 3);
  EXPECT_EQ(plot.inputs[15].source, "New one");
  EXPECT_EQ(plot.inputs[15].channel, 18);
  EXPECT_EQ(plot.monitorMixes[0].plotItemID, std::nullopt);
  EXPECT_EQ(plot.notes.size(), 1u);
  EXPECT_EQ(plot.equipmentRequirements.back().quantity, 1);
  EXPECT_EQ(plot.layers.size(), 2u);
  EXPECT_EQ(plot.groups.size(), 0u);
  EXPECT_EQ(plot.items.size(), 17u);
  EXPECT_EQ(plot.stage.audienceEdge, AudienceEdge::left);
}

TEST_F(Edit, ChangesOrderCopiesAndTurnsItems) {
  scratch.write("other.json", exampleDocument("festival-main-stage"));
  const Outcome outcome =
      run("rotate GTR Baß 30\n"
          "resize GTR 100 200\n"
          "flip vertically GTR\n"
          "back GTR\n"
          "duplicate \"BV 1\" 100 50\n"
          "ungroup Baß\n"
          "copy \"LEAD VOX\" GTR to voices.fragment\n"
          "lock GTR\n"
          "layer Risers \"LEAD VOX\"\n"
          "save\n");
  EXPECT_EQ(outcome.err, "");
  const KorrinProject plot = plotIn(scratch, "plot.json");
  ASSERT_EQ(plot.items.size(), 19u);
  EXPECT_EQ(plot.items[1].label, "GTR") << "the backmost place of its layer";
  EXPECT_EQ(plot.items[1].size, (StageSize{100, 200}));
  EXPECT_EQ(plot.items[1].rotationDegrees, 210);
  EXPECT_TRUE(plot.items[1].isFlippedVertically);
  EXPECT_TRUE(plot.items[1].isLocked);
  EXPECT_EQ(plot.items[18].position, (StagePoint{-2300, -1050}));
  EXPECT_EQ(plot.groups.size(), 0u);
  scratch.write("script", "paste from voices.fragment 0 10\nsave\n");
  EXPECT_EQ(scratch.korrin("edit other.json --script script").err, "");
  const KorrinProject other = plotIn(scratch, "other.json");
  ASSERT_EQ(other.items.size(), 20u);
  EXPECT_EQ(other.items[19].label, "LEAD VOX");
  EXPECT_EQ(other.items[19].position, (StagePoint{0, -1390}));
}

TEST_F(Edit, UndoesEveryEditByItsName) {
  const std::vector<std::string> edits = {
      "set title x",
      "set GTR.label x",
      "set paperSize letter",
      "add note title x",
      "add item Microphone 0 0",
      "remove mix 1",
      "link input 17 GTR",
      "renumber input",
      "stage 9000 7000",
      "rotate GTR 5",
      "lock GTR",
      "back GTR",
      "layer Risers GTR",
      "ungroup Baß",
      "duplicate GTR 1 1",
      "remove layer Risers Stage",
      "group GTR \"BV 1\"",
      "add asset sha256 x filename y",
  };
  const KorrinProject start = plotIn(scratch, "plot.json");
  for (const std::string& edit : edits) {
    const std::string line = edit == "link input 17 GTR" ? "link input Talkback GTR" : edit;
    const Outcome outcome = run(line + "\nsave! changed.json\nhistory\nundo\nsave! undone.json\n");
    EXPECT_EQ(outcome.err, "") << line;
    EXPECT_THAT(outcome.out, HasSubstr("done    " + line + "\n"));
    EXPECT_THAT(outcome.out, HasSubstr("undone: " + line + "\n"));
    KorrinProject changed = plotIn(scratch, "changed.json");
    KorrinProject undone = plotIn(scratch, "undone.json");
    changed.metadata.modifiedAt = undone.metadata.modifiedAt = start.metadata.modifiedAt;
    EXPECT_NE(changed, start) << line;
    EXPECT_EQ(undone, start) << line;
  }
}

TEST_F(Edit, FindsTextsWhereverTheyStand) {
  const Outcome outcome = run("find active\nfind sommer\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr("input 10 microphoneOrDI: Active DI\n"));
  EXPECT_THAT(outcome.out, HasSubstr("equipment Active DI box item: Active DI box\n"));
  EXPECT_THAT(outcome.out, HasSubstr("plot venue: Sommerarena\n"));
  EXPECT_THAT(run("find nowhere").err, HasSubstr("nothing in the plot holds \"nowhere\""));
}

TEST_F(Edit, SavesNothingOfAScriptThatIsRefusedIfAsked) {
  scratch.write("script", "set title one\nsave\nset title two\nfrob\n");
  EXPECT_EQ(scratch.korrin("edit plot.json --all-or-nothing --script script").status, 2);
  EXPECT_EQ(contentOf(scratch.path("plot.json")), exampleDocument("festival-main-stage"));
  EXPECT_EQ(scratch.korrin("edit plot.json --script script").status, 2);
  EXPECT_EQ(plotIn(scratch, "plot.json").metadata.title, "one");
  scratch.write("script", "set title three\nsave\nset title four\nsave copy.json\n");
  EXPECT_EQ(scratch.korrin("edit plot.json --all-or-nothing --script script").status, 0);
  EXPECT_EQ(plotIn(scratch, "plot.json").metadata.title, "three");
  EXPECT_EQ(plotIn(scratch, "copy.json").metadata.title, "four");
}

TEST_F(Edit, SaysAfterEachCommandWhatChanged) {
  const Outcome outcome =
      run("distribute horizontally \"KEYS / Café\" Baß GTR\n"
          "group \"BV 1\" \"BV 2\"\n"
          "delete \"IEM drums\"\n"
          "undo\n");
  EXPECT_EQ(outcome.out,
            "> distribute horizontally \"KEYS / Café\" Baß GTR\n"
            "changed: 3 items (KEYS / Café, Baß, GTR)\n"
            "> group \"BV 1\" \"BV 2\"\n"
            "changed: 4 items (SCHLAGZEUG – Günther, Baß, BV 1, BV 2), document structure\n"
            "> delete \"IEM drums\"\n"
            "changed: 1 item (IEM drums (gone)), technical data, document structure\n"
            "> undo\n"
            "undone: delete \"IEM drums\"\n"
            "changed: 1 item (IEM drums), technical data, document structure\n");
}

TEST_F(Edit, SavesWhatItChanged) {
  const Outcome outcome =
      run("# a comment\n"
          "\n"
          "  align top \"BV 1\" \"LEAD VOX\"\r\n"
          "move \"BV 2\" -100.5 +20\n"
          "label GTR \"Guitar \\\"A\\\"\"\n"
          "group \"BV 1\" \"BV 2\"\n"
          "\"del\"ete 5D32FE61-985F-44E7-AA09-5EE82BB29976\n"
          "save\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  const KorrinProject plot = plotIn(scratch, "plot.json");
  ASSERT_EQ(plot.items.size(), 17u);
  EXPECT_EQ(plot.items[4].label, "Guitar \"A\"");
  EXPECT_EQ(plot.items[7].position, (StagePoint{-2400, -1400}));
  EXPECT_EQ(plot.items[8].position, (StagePoint{2299.5, -1080}));
  EXPECT_EQ(plot.groups[1].itemIDs, (List<UUID>{plot.items[7].id, plot.items[8].id}));
  EXPECT_EQ(scratch.fileCount(), 2u);
}

TEST_F(Edit, KnowsAFileByEachOfItsNames) {
  std::filesystem::create_symlink("plot.json", scratch.path("link.json"));
  std::filesystem::create_symlink("later.json", scratch.path("dangling.json"));
  const Outcome outcome =
      run("label GTR x\nsave ./plot.json\nlabel x y\nsave link.json\n"
          "save dangling.json\nlabel y z\nsave later.json\nsave dangling.json\nsave\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(plotIn(scratch, "plot.json").items[5].label, "z");
  EXPECT_EQ(plotIn(scratch, "later.json").items[5].label, "z");
  EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("link.json")));
  EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("dangling.json")));
}

TEST_F(Edit, SavesTheDatesAsItReadThem) {
  scratch.write("other.json", exampleDocument("festival-other-host"));
  scratch.write("script", "save");
  const Outcome outcome = scratch.korrin(
      "edit other.json --dates secondsSinceReferenceDate --pretty --script - <script");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "korrin: other.json: writing drops keys that the format does not know: futureKey, "
            "items[].opacity (18 times)\n");
  const std::string saved = contentOf(scratch.path("other.json"));
  EXPECT_THAT(saved, HasSubstr("\n    \"createdAt\": 794135695.123"));
}

TEST_F(Edit, StopsAtTheFirstLineThatIsRefused) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"frob", "there is no command \"frob\"; help lists them"},
      {"list all",
       "there is no \"all\" among item, input, mix, equipment, note, layer, group, asset"},
      {"label GTR", "use: label ITEM TEXT"},
      {"show \"BV", "a double quote has no partner"},
      {"show nobody", "there is no item \"nobody\""},
      {"align middle GTR Baß",
       "there is no edge \"middle\" among left, horizontalCenter, right, top, verticalCenter, "
       "bottom"},
      {"align distributeVertically GTR Baß",
       "there is no edge \"distributeVertically\" among left, horizontalCenter, right, top, "
       "verticalCenter, bottom"},
      {"align left GTR", "use: align EDGE ITEM ITEM..."},
      {"distribute left GTR Baß Ángela",
       "there is no axis \"left\" among horizontally, vertically"},
      {"distribute vertically GTR Baß GTR", "\"GTR\" is named twice"},
      {"delete GTR 16A", "\"16A\" is locked"},
      {"group GTR \"Banner 舞台\"", "\"Banner 舞台\" is on the layer \"House\", which is locked"},
      {"move 16A 1 1", "\"16A\" is locked"},
      {"label 16A x", "\"16A\" is locked"},
      {"move GTR 1 2m", "\"2m\" is not a number of millimetres"},
      {"move GTR 1 inf", "\"inf\" is not a number of millimetres"},
      {"move GTR 1 1e9",
       "the plot would not be valid: The project contains invalid or unsupported dimensions."},
      {"undo", "there is nothing to undo"},
      {"redo", "there is nothing to redo"},
      {"algin left GTR Baß", "there is no command \"algin\"; did you mean \"align\"?"},
      {"set titel x", "the plot has no field \"titel\"; did you mean \"title\"?"},
      {"set GTR.rotationDegree 1",
       "an item has no field \"rotationDegree\"; did you mean \"rotationDegrees\"?"},
      {"set GTR.rotationDegrees left", "rotationDegrees: \"left\" is not a number"},
      {"set GTR.rotationDegrees nan", "rotationDegrees: \"nan\" is not a number"},
      {"set GTRR.label x", "there is no item \"GTRR\"; did you mean \"GTR\"?"},
      {"set GTR.id x", "id stays as it is: other records refer to it"},
      {"set 16A.label x", "\"16A\" is locked"},
      {"set eventDate tomorrow",
       "eventDate: \"tomorrow\" is not a date and time with its offset, such as "
       "2026-07-18T20:30+02:00"},
      {"set modifiedAt 2026-07-18T20:30Z", "modifiedAt is set by every edit itself"},
      {"set paperSize a5", "paperSize is one of a4, letter, not \"a5\"; did you mean \"a4\"?"},
      {"set GTR kind amplifer",
       "kind is one of microphone, monitor, amplifier, instrument, performer, riser, power, "
       "furniture, custom, not \"amplifer\"; did you mean \"amplifier\"?"},
      {"set input 7 phantomPower maybe", "phantomPower: \"maybe\" is neither true nor false"},
      {"set input 7 channel 1.5", "channel: \"1.5\" is not a whole number"},
      {"set input 99 source x", "there is no input \"99\""},
      {"set imput 9 source x",
       "there is no \"imput\" among item, input, mix, equipment, note, layer, group, asset; did "
       "you mean \"input\"?"},
      {"set input 7 source x stand", "\"stand\" stands alone: fields come with a value each"},
      {"set GTR.position 5", "position takes 2 values parted by commas: x, y"},
      {"set GTR.layerID Stagee", "there is no layer \"Stagee\"; did you mean \"Stage\"?"},
      {"add item Microfone 0 0", "there is no symbol \"Microfone\"; did you mean \"Microphone\"?"},
      {"add item wedge 0 0", "there is no symbol \"wedge\"; did you mean \"Wedge monitor\"?"},
      {"paste from plot.jso",
       "plot.jso: cannot be read: No such file or directory; did you mean \"plot.json\"?"},
      {"remove layer Risers",
       "items are on the layer \"Risers\"; name the layer that takes them behind it, or remove "
       "them first"},
      {"link note Soundcheck GTR", "only input, mix and equipment are shown by items, not note"},
      {"copy GTR to plot.json", "plot.json: is a plot and is not replaced by copied items"},
      {"paste", "there is nothing to paste: copy items first"},
      {"save nowhere/plot.json", "nowhere/plot.json: cannot be written: No such file or directory"},
  };
  for (const auto& [line, sentence] : rows) {
    const Outcome outcome = run("help\n\n" + line + "\nlabel GTR changed\nsave\n");
    EXPECT_EQ(outcome.status, 2) << line;
    EXPECT_EQ(outcome.err, "korrin: script:3: " + sentence + "\n");
    EXPECT_THAT(outcome.out, EndsWith("> " + line + "\n"));
  }
  EXPECT_EQ(contentOf(scratch.path("plot.json")), exampleDocument("festival-main-stage"));
}

TEST_F(Edit, GoesOnWhereThingsAreAsTheyAreWanted) {
  const Outcome outcome =
      run("front GTR\nfront GTR\nset GTR.layerID Stage\nlayer Stage GTR\n"
          "set title Nachtzug\nset title Nachtzug\nquit\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("> front GTR\nchanged: nothing: the order is like this\n"));
  EXPECT_THAT(outcome.out, HasSubstr("changed: nothing: these items are on the layer \"Stage\"\n"));
  EXPECT_THAT(outcome.out, HasSubstr("> set title Nachtzug\nchanged: metadata\n"
                                     "> set title Nachtzug\nchanged: nothing\n"));
}

TEST_F(Edit, NamesACopyByItsNumber) {
  const Outcome outcome =
      run("duplicate GTR 500 0\nlabel GTR#2 \"GTR 2\"\nset \"GTR 2\".position 0,0\nsave\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(plotIn(scratch, "plot.json").items[plotIn(scratch, "plot.json").items.size() - 1].label,
            "GTR 2");
}

TEST_F(Edit, SaysThatUnsavedChangesAreLost) {
  const Outcome quit = run("label GTR changed\nquit\nfrob\n");
  EXPECT_EQ(quit.status, 0);
  EXPECT_EQ(quit.err, "korrin: plot.json: the unsaved changes are lost\n");
  EXPECT_EQ(run("label GTR changed\nundo\n").err, "");
  const Outcome refused = run("label GTR changed\nfrob\n");
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.err, EndsWith("korrin: plot.json: the unsaved changes are lost\n"));
}

TEST_F(Edit, NeverReplacesANewerDocument) {
  const std::string newer = replaced(exampleDocument("festival-main-stage"),
                                     "\"minimumReaderVersion\": 1", "\"minimumReaderVersion\": 2");
  scratch.write("newer.json", newer);
  EXPECT_EQ(scratch.korrin("edit newer.json --script /dev/null").status, 3);
  const Outcome outcome = run("save newer.json\n");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.err, HasSubstr("script:1: newer.json: needs a newer version of korrin"));
  EXPECT_EQ(contentOf(scratch.path("newer.json")), newer);
}

TEST_F(Edit, RefusesAPlotThatIsNotValid) {
  scratch.write("plot.json", replaced(exampleDocument("festival-main-stage"), "\"width\": 12000",
                                      "\"width\": -1"));
  const Outcome outcome = run("list\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("plot.json: is not valid"));
}

TEST_F(Edit, ReadsThePlotOrTheScriptFromStandardInput) {
  scratch.write("script", "label GTR x");
  const Outcome script = scratch.korrin("edit plot.json <script");
  EXPECT_EQ(script.status, 0);
  EXPECT_THAT(script.out, HasSubstr("> label GTR x\nchanged: 1 item (x)\n"));
  scratch.write("script", "save copy.json\nsave\n");
  const Outcome plot = scratch.korrin("edit - --script script <plot.json");
  EXPECT_EQ(plot.status, 2);
  EXPECT_THAT(plot.err, HasSubstr("script:2: save needs a file: the plot came from a stream"));
  EXPECT_EQ(plotIn(scratch, "copy.json"), plotIn(scratch, "plot.json"));
  EXPECT_EQ(scratch.korrin("edit - <plot.json").status, 64);
  EXPECT_EQ(scratch.korrin("edit plot.json --script absent").err,
            "korrin: absent: cannot be read: No such file or directory\n");
}

TEST_F(Edit, ListsAndShowsItemsWithoutRawCharacters) {
  scratch.write("plot.json",
                replaced(replaced(exampleDocument("festival-main-stage"), "BV 1", "\\u001b[2J"),
                         "BV 2", "\\u009b2J\\u202e"));
  const Outcome outcome =
      run("list\nshow 4350CC17-21E5-4F21-ACD5-52A09DDBEF12\n"
          "label 4350CC17-21E5-4F21-ACD5-52A09DDBEF12 BV\nshow Baß\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("\\u{1B}[2J"));
  EXPECT_THAT(outcome.out, HasSubstr("\"label\": \"\\u{9B}2J\\u{202E}\""));
  EXPECT_THAT(outcome.out, Not(HasSubstr("\u202e")));
  EXPECT_THAT(outcome.out, HasSubstr("is on the layer \"House\", which is locked"));
  EXPECT_THAT(outcome.out, HasSubstr("linked from channel 10: Bass DI"));
}

TEST_F(Edit, PreflightsThePlotAsItStands) {
  const Outcome outcome = run("preflight\ndelete \"IEM drums\"\npreflight\nundo\n");
  EXPECT_THAT(outcome.out, HasSubstr("plot.json: 0 errors, 0 warnings, 2 for information"));
  EXPECT_THAT(outcome.out, HasSubstr("plot.json: 0 errors, 0 warnings, 3 for information"));
}

}  // namespace
}  // namespace korrin::host
