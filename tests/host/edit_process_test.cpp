// korrin edit as its callers see it, from scripts and from a terminal.

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "documents/plot_document.h"
#include "scratch.h"

namespace korrin::host {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

KorrinProject plotIn(const Scratch& scratch, std::string_view name) {
  return decodeDocument(contentOf(scratch.path(name)), DateStrategy::iso8601);
}

/// A folder that holds a plot to edit.
class Edit : public testing::Test {
 protected:
  Edit() { scratch.write("plot.json", exampleDocument("festival-main-stage")); }

  Outcome run(std::string_view script) const {
    scratch.write("script", script);
    return scratch.korrin("edit plot.json --script script");
  }

  const Scratch scratch;
};

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
            "changed: 18 items (Drum riser, SCHLAGZEUG – Günther, "
            "68B4AEF7-3EAA-4E17-9D8A-4EACE693AE2D, KEYS / Café, Baß, GTR and 12 more), technical "
            "data, document structure\n");
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
      {"list all", "use: list"},
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

/// What the program prints on a terminal of its own while the text is typed, and its exit status.
Outcome typed(const std::string& folder, const std::string& text) {
  int controller = -1;
  const pid_t child = forkpty(&controller, nullptr, nullptr, nullptr);
  if (child == 0) {
    if (chdir(folder.c_str()) == 0) {
      setenv("TERM", "dumb", 1);
      execl(KORRIN_TOOL, "korrin", "edit", "plot.json", nullptr);
    }
    _exit(127);
  }
  EXPECT_EQ(write(controller, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  std::string out;
  char buffer[4096];
  // The terminal's end reads as an error once the program has gone.
  for (ssize_t count = 0; (count = read(controller, buffer, sizeof buffer)) > 0;)
    out.append(buffer, static_cast<std::size_t>(count));
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  close(controller);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), out, ""};
}

TEST_F(Edit, GoesOnAfterARefusedLineOnATerminal) {
  const Outcome outcome =
      typed(scratch.path("."), "frob\nlabel GTR \"Café\"\nquit\nsave copy.json\nquit\n");
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_THAT(outcome.out, HasSubstr("korrin> "));
  EXPECT_THAT(outcome.out, HasSubstr("korrin: there is no command \"frob\""));
  EXPECT_THAT(outcome.out,
              HasSubstr("korrin: there are unsaved changes; save them, or quit again"));
  EXPECT_THAT(outcome.out, Not(HasSubstr("are lost")));
  EXPECT_EQ(plotIn(scratch, "copy.json").items[5].label, "Café");
}

TEST_F(Edit, EndsOnATerminalWhenAskedTwice) {
  const Outcome outcome = typed(scratch.path("."), "label GTR x\nquit\nquit\n");
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_THAT(outcome.out, HasSubstr("korrin: plot.json: the unsaved changes are lost"));
}

}  // namespace
}  // namespace korrin::host
