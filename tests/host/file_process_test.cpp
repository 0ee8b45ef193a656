// What the program does with files when others use them too, or the system puts obstacles in its
// way.

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "documents/plot_document.h"
#include "scratch.h"
#include "tests/support/effort.h"

namespace korrin::host {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
namespace fs = std::filesystem;

class Files : public testing::Test {
 protected:
  Files() { scratch.write("plot.json", plot); }

  Outcome shell(const std::string& commands) const { return scratch.shell(commands); }
  /// Edits the plot; the shell commands are carried out once it is open and before `lines` are.
  Outcome editAfter(const std::string& commands, const std::string& lines) const {
    return shell("(printf 'label GTR A\\n'; sleep 1; " + commands + "; printf '" + lines +
                 "') | \"$KORRIN\" edit plot.json");
  }
  KorrinProject plotIn(std::string_view name) const {
    return decodeDocument(contentOf(scratch.path(name)), DateStrategy::iso8601);
  }

  const std::string plot = exampleDocument("festival-main-stage");
  const Scratch scratch;
};

TEST_F(Files, ThatSomebodyElseChangedAreNotSavedOver) {
  const Outcome outcome = editAfter("printf other >plot.json", "save\\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "korrin: standard input:2: plot.json: was changed by somebody else; save! replaces it, "
            "save FILE writes another\n"
            "korrin: plot.json: the unsaved changes are lost\n");
  EXPECT_EQ(contentOf(scratch.path("plot.json")), "other");
}

TEST_F(Files, ThatSomebodyElseRemovedAreNotMadeAgain) {
  const Outcome outcome = editAfter("rm plot.json", "save\\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("plot.json: is not there any more"));
  EXPECT_EQ(scratch.fileCount(), 0u);
}

TEST_F(Files, ThatSomebodyElseChangedAreSavedOverWhenAskedTwice) {
  const Outcome outcome =
      editAfter("printf other >plot.json", "save copy.json\\nsave copy.json\\nsave!\\nsave\\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(plotIn("plot.json").items[5].label, "A");
  EXPECT_EQ(plotIn("copy.json").items[5].label, "A");
}

TEST_F(Files, ThatWereThereBeforeAreNotSavedOver) {
  scratch.write("copy.json", "mine");
  const Outcome outcome = editAfter("true", "save copy.json\\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("copy.json: is there already and was not opened; save! FILE "
                                     "replaces it, another FILE leaves it\n"));
  EXPECT_EQ(contentOf(scratch.path("copy.json")), "mine");
}

TEST_F(Files, ThatSomebodyElseChangedBeforeTheEndOfAScriptAreNotSavedOver) {
  const std::string lines = "label GTR A\\nsave\\n";
  const std::string edit = "\"$KORRIN\" edit --all-or-nothing plot.json";
  const Outcome outcome =
      shell("(printf '" + lines + "'; sleep 1; printf other >plot.json) | " + edit);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("plot.json: was changed by somebody else; save! replaces it"));
  EXPECT_EQ(contentOf(scratch.path("plot.json")), "other");
}

TEST_F(Files, ThatHaveOtherNamesAreRemarkedUponWhenEdited) {
  fs::create_hard_link(scratch.path("plot.json"), scratch.path("other-name.json"));
  const Outcome outcome = editAfter("true", "save\\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(
      outcome.err,
      "korrin: plot.json: the file's other names (hard links) keep the content from before\n");
}

TEST_F(Files, AreSavedIndentedOrNotAsTheyWereFound) {
  editAfter("true", "save\\n");
  const std::string indented = contentOf(scratch.path("plot.json"));
  EXPECT_THAT(indented, StartsWith("{\n  \"schemaVersion\": 1,\n"));
  shell("\"$KORRIN\" fmt plot.json -o plot.json");
  editAfter("true", "save\\n");
  EXPECT_THAT(contentOf(scratch.path("plot.json")), StartsWith("{\"schemaVersion\":1,"));
}

TEST_F(Files, ThatAreNoneAreRefusedAtOnce) {
  ASSERT_EQ(::mkfifo(scratch.path("pipe").c_str(), 0600), 0);
  const std::vector<std::string> commands = {"fmt plot.json", "new", "new --force",
                                             "render plot.json"};
  for (const std::string& command : commands) {
    const Outcome pipe = shell("timeout 20 \"$KORRIN\" " + command + " -o pipe");
    EXPECT_EQ(pipe.status, 2) << command;
    EXPECT_THAT(pipe.err, HasSubstr("pipe: ")) << command;
    const Outcome device = shell("timeout 20 \"$KORRIN\" " + command + " -o /dev/full");
    EXPECT_EQ(device.status, 2) << command;
    EXPECT_THAT(device.err, HasSubstr("/dev/full: ")) << command;
  }
  EXPECT_THAT(shell("\"$KORRIN\" fmt plot.json -o /dev/full").err,
              HasSubstr("/dev/full: is not replaced, as it cannot be read: it is a device"));
  EXPECT_EQ(shell("timeout 20 \"$KORRIN\" fmt pipe").err,
            "korrin: pipe: cannot be read: it is a pipe\n");
  EXPECT_EQ(shell("timeout 20 \"$KORRIN\" fmt - </dev/zero").err,
            "korrin: standard input: cannot be read: it is a device\n");
  EXPECT_EQ(shell("cat plot.json | \"$KORRIN\" fmt - | \"$KORRIN\" check -").status, 0);
}

TEST_F(Files, ThatTwoBeginAtOnceAreMadeByOne) {
  for (int round = 0; round < 10; ++round) {
    const Outcome outcome = shell(
        "rm -f n.json; \"$KORRIN\" new -o n.json & \"$KORRIN\" new -o n.json; A=$?; wait $!; B=$?; "
        "echo $A $B");
    EXPECT_TRUE(outcome.out == "0 2\n" || outcome.out == "2 0\n") << outcome.out;
  }
}

TEST_F(Files, KeepTheirOwnerAndModeAndSayWhichNamesKeepTheOldContent) {
  fs::create_hard_link(scratch.path("plot.json"), scratch.path("other-name.json"));
  const bool isRoot = ::geteuid() == 0;
  if (isRoot) {
    ASSERT_EQ(::chown(scratch.path("plot.json").c_str(), 12345, 12345), 0);
  }
  ASSERT_EQ(::chmod(scratch.path("plot.json").c_str(), 02664), 0);
  const Outcome outcome = shell("\"$KORRIN\" fmt plot.json -o plot.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(
      outcome.err,
      "korrin: plot.json: the file's other names (hard links) keep the content from before\n");
  struct stat status {};
  ASSERT_EQ(::stat(scratch.path("plot.json").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 02664u);
  if (isRoot) {
    EXPECT_EQ(status.st_uid, 12345u);
  }
  EXPECT_EQ(contentOf(scratch.path("other-name.json")), plot);
}

TEST_F(Files, ThatMayNotGrowAreSaidAndLeaveNothingBehind) {
  const Outcome outcome = shell("ulimit -f 8; \"$KORRIN\" fmt --pretty plot.json -o new.json");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("korrin: new.json: cannot be written: File too large"));
  EXPECT_EQ(scratch.fileCount(), 1u);
}

TEST_F(Files, AreWholeAndLeaveNothingBehindWhenTheProgramIsEnded) {
  for (const std::string signal : {"TERM", "HUP"}) {
    const Outcome waiting =
        shell("sleep 3 | \"$KORRIN\" edit plot.json & sleep 1; kill -" + signal + " $!; wait $!");
    EXPECT_EQ(waiting.status, signal == "TERM" ? 143 : 129);
    EXPECT_THAT(waiting.err,
                StartsWith("korrin: ended by SIG" + signal + "; what was not saved is lost\n"));
  }
  const int rounds = test::repetitions(60, 10);
  for (int round = 0; round < rounds; ++round) {
    shell("\"$KORRIN\" fmt plot.json -o copy.json & sleep 0.0" + std::to_string(round % 10) +
          "; kill -TERM $!; wait $!");
    if (fs::exists(scratch.path("copy.json"))) {
      EXPECT_EQ(plotIn("copy.json"), plotIn("plot.json"));
      fs::remove(scratch.path("copy.json"));
    }
    ASSERT_EQ(scratch.fileCount(), 1u);
  }
}

TEST_F(Files, AtTheEndOfALinkAreMadeThere) {
  fs::create_symlink("target.json", scratch.path("link.json"));
  EXPECT_EQ(shell("\"$KORRIN\" new -o link.json").status, 0);
  EXPECT_TRUE(fs::is_symlink(scratch.path("link.json")));
  EXPECT_THAT(contentOf(scratch.path("target.json")), StartsWith("{"));
}

TEST_F(Files, ThatHoldADamagedPlotAreNotReplacedByAPicture) {
  const std::string damaged = plot.substr(0, plot.rfind('}'));
  scratch.write("damaged.json", damaged);
  const Outcome outcome = shell("\"$KORRIN\" render plot.json -o damaged.json");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "korrin: damaged.json: is no picture and is not replaced by one; remove it first\n");
  EXPECT_EQ(contentOf(scratch.path("damaged.json")), damaged);
  EXPECT_EQ(shell("\"$KORRIN\" render plot.json -o p.svg && \"$KORRIN\" render plot.json -o p.svg")
                .status,
            0);
}

TEST_F(Files, ThatAreProtectedAreNotReplaced) {
  ASSERT_EQ(::chmod(scratch.path("plot.json").c_str(), 0444), 0);
  const Outcome outcome = shell("\"$KORRIN\" fmt plot.json -o plot.json");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "korrin: plot.json: is protected against writing\n");
  const Outcome edited = editAfter("true", "save\\n");
  EXPECT_EQ(edited.status, 2);
  EXPECT_THAT(edited.err, HasSubstr("plot.json: is protected against writing; save! replaces it, "
                                    "save FILE writes another\n"));
  EXPECT_EQ(contentOf(scratch.path("plot.json")), plot);
  EXPECT_EQ(editAfter("true", "save!\\n").status, 0);
  EXPECT_EQ(plotIn("plot.json").items[5].label, "A");
}

}  // namespace
}  // namespace korrin::host
