// Two revisions of a plot compared, and two edited copies merged, by the built program and by git.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/model/document_coding.h"

#include "scratch.h"

namespace korrin::host {
namespace {

using nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string festival() { return exampleDocument("festival-main-stage"); }

/// Another microphone at the second input.
std::string withMicrophone(const std::string& plot, const std::string& name) {
  return replaced(plot, "\"microphoneOrDI\": \"D6\"", "\"microphoneOrDI\": \"" + name + "\"");
}
/// Another title.
std::string withTitle(const std::string& plot, const std::string& title) {
  return replaced(plot, "\"title\": \"Sommerfestival", "\"title\": \"" + title);
}

constexpr auto kickOut = "Input 2 \"Kick Out\": microphone or DI changed from \"D6\" to ";

TEST(Diff, SaysWhatChangedGroupedByList) {
  const Scratch scratch;
  scratch.write("old.json", festival());
  scratch.write("new.json", withTitle(withMicrophone(festival(), "Beta 52A"), "Winterfestival"));
  const Outcome outcome = scratch.korrin("diff old.json new.json");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "Metadata\n"
            "  Plot: title changed from \"Sommerfestival – Hauptbühne\" to "
            "\"Winterfestival – Hauptbühne\"\n"
            "Inputs\n"
            "  " +
                std::string(kickOut) + "\"Beta 52A\"\n");
}

TEST(Diff, EndsWithZeroForEqualPlots) {
  const Scratch scratch;
  const Outcome outcome =
      scratch.korrin("diff $D/festival-main-stage.json $D/festival-main-stage.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "No difference.\n");
}

TEST(Diff, PrintsTheSameForPrograms) {
  const Scratch scratch;
  scratch.write("old.json", festival());
  scratch.write("new.json", withMicrophone(festival(), "Beta 52A"));
  const Outcome outcome = scratch.korrin("diff --format json old.json new.json");
  EXPECT_EQ(outcome.status, 1);
  const json report = json::parse(outcome.out);
  EXPECT_EQ(report["before"], "old.json");
  ASSERT_EQ(report["differences"].size(), 1u);
  EXPECT_EQ(report["differences"][0], json({{"kind", "changed"},
                                            {"list", "inputs"},
                                            {"id", "C44A66F4-CF25-4346-9CBE-4F50BDBCDA98"},
                                            {"field", "microphoneOrDI"},
                                            {"before", "D6"},
                                            {"after", "Beta 52A"},
                                            {"sentence", std::string(kickOut) + "\"Beta 52A\""}}));
}

TEST(Diff, TellsOfAPlotThatIsNewOrGone) {
  const Scratch scratch;
  scratch.write("new.json", festival());
  const Outcome added = scratch.korrin("diff /dev/null new.json");
  EXPECT_EQ(added.status, 1);
  EXPECT_THAT(added.out, StartsWith("The plot is new.\nLayers\n  Layer \"Risers\" added\n"));
  const Outcome gone = scratch.korrin("diff new.json /dev/null");
  EXPECT_EQ(gone.status, 1);
  EXPECT_THAT(gone.out, HasSubstr("Layer \"Risers\" removed"));
  EXPECT_THAT(gone.out, StartsWith("The plot is gone.\n"));
}

TEST(Diff, NamesAFileThatCannotBeRead) {
  const Scratch scratch;
  scratch.write("plot.json", festival());
  scratch.write("broken.json", "{");
  const Outcome missing = scratch.korrin("diff plot.json nowhere.json");
  EXPECT_EQ(missing.status, 2);
  EXPECT_THAT(missing.err, StartsWith("korrin: nowhere.json: "));
  EXPECT_EQ(scratch.korrin("diff broken.json plot.json").status, 2);
  EXPECT_EQ(scratch.korrin("diff plot.json").status, 64);
  EXPECT_EQ(scratch.korrin("diff a b c").status, 64);
}

TEST(Diff, TellsGitOfAMergeThatIsNotFinished) {
  const Scratch scratch;
  const Outcome outcome = scratch.shell("GIT_DIFF_PATH_COUNTER=1 \"$KORRIN\" diff plot.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "plot.json\nA merge of this plot is not finished.\n");
}

TEST(Merge, HasTheEditsOfBothSides) {
  const Scratch scratch;
  scratch.write("base.json", festival());
  scratch.write("ours.json", withMicrophone(festival(), "Beta 52A"));
  scratch.write("theirs.json", withTitle(festival(), "Winterfestival"));
  const Outcome outcome = scratch.korrin("merge base.json ours.json theirs.json -o merged.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
  const KorrinProject merged = decodeJSON<KorrinProject>(contentOf(scratch.path("merged.json")));
  EXPECT_EQ(merged, decodeJSON<KorrinProject>(
                        withTitle(withMicrophone(festival(), "Beta 52A"), "Winterfestival")));
  EXPECT_EQ(scratch.korrin("merge base.json ours.json theirs.json").out,
            contentOf(scratch.path("merged.json")));
}

TEST(Merge, ListsConflictsAndKeepsOurs) {
  const Scratch scratch;
  scratch.write("base.json", festival());
  scratch.write("ours.json", withMicrophone(festival(), "Beta 52A"));
  scratch.write("theirs.json", withMicrophone(festival(), "RE20"));
  const Outcome outcome = scratch.korrin("merge base.json ours.json theirs.json -o merged.json");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "ours.json: 1 conflict\n  ours:   " + std::string(kickOut) +
                             "\"Beta 52A\"\n  theirs: " + kickOut + "\"RE20\"\n  ours stands\n");
  EXPECT_THAT(contentOf(scratch.path("merged.json")), HasSubstr("Beta 52A"));
  const Outcome printed = scratch.korrin("merge base.json ours.json theirs.json");
  EXPECT_EQ(printed.status, 1);
  EXPECT_THAT(printed.err, HasSubstr("1 conflict"));
  EXPECT_THAT(printed.out, Not(HasSubstr("conflict")));
}

TEST(Merge, WritesNothingWhereAFileIsRefused) {
  const Scratch scratch;
  scratch.write("base.json", festival());
  scratch.write("broken.json", "{}");
  EXPECT_EQ(scratch.korrin("merge base.json broken.json base.json -o out.json").status, 2);
  EXPECT_EQ(scratch.korrin("merge base.json base.json nowhere.json -o out.json").status, 2);
  EXPECT_EQ(scratch.korrin("merge base.json base.json").status, 64);
  EXPECT_EQ(scratch.fileCount(), 2u);
}

TEST(Merge, TakesAnEmptyBaseForNone) {
  const Scratch scratch;
  scratch.write("base.json", "");
  scratch.write("ours.json", festival());
  const Outcome outcome = scratch.korrin("merge base.json ours.json ours.json");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(decodeJSON<KorrinProject>(outcome.out), decodeJSON<KorrinProject>(festival()));
}

TEST(Render, MarksWhatChangedSinceAnEarlierRevision) {
  const Scratch scratch;
  scratch.write("old.json", festival());
  const std::string moved = replaced(festival(), "\"x\": -3600,\n        \"y\": 1200",
                                     "\"x\": -3000,\n        \"y\": 1200");
  scratch.write("new.json", withMicrophone(moved, "Beta 52A"));
  const Outcome plain = scratch.korrin("render new.json");
  EXPECT_THAT(plain.out, Not(HasSubstr(">moved<")));
  const Outcome marked = scratch.korrin("render --since old.json new.json");
  EXPECT_EQ(marked.status, 0) << marked.err;
  EXPECT_THAT(marked.out, HasSubstr(">moved<"));
  EXPECT_THAT(marked.out, HasSubstr("What changed"));
  EXPECT_THAT(marked.out, HasSubstr("Beta 52A"));
  EXPECT_EQ(scratch.korrin("render --since new.json new.json").out, plain.out);
  EXPECT_EQ(scratch.korrin("render --since nowhere.json new.json").status, 2);
}

/// A repository with the festival plot in it, and korrin set up as the page about git says.
class Git : public testing::Test {
 protected:
  void SetUp() override {
    if (scratch.shell("git --version").status != 0) GTEST_SKIP() << "git is not installed";
    scratch.write(".gitattributes", "*.json diff=korrin merge=korrin\n");
    scratch.write("plot.json", festival());
    const Outcome outcome =
        git("git init -q -b main . && git config user.name Crew && "
            "git config user.email crew@example.org && "
            "git config diff.korrin.command \"'$KORRIN' diff\" && "
            "git config merge.korrin.driver \"'$KORRIN' merge %O %A %B %P\" && "
            "git add . && git commit -q -m Monday");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
  }
  /// Without what the machine's owner set up.
  Outcome git(const std::string& line) const {
    return scratch.shell(
        "export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null; unset GIT_DIR; " + line);
  }

  const Scratch scratch;
};

TEST_F(Git, ShowsDifferencesInWords) {
  scratch.write("plot.json", withMicrophone(festival(), "Beta 52A"));
  const Outcome outcome = git("git diff");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "plot.json\nInputs\n  " + std::string(kickOut) + "\"Beta 52A\"\n");
}

TEST_F(Git, ShowsPlotsThatAreNewGoneRenamedOrBroken) {
  scratch.write("new.json", festival());
  Outcome outcome = git("git add new.json && git diff --cached");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, StartsWith("new.json\nThe plot is new.\n"));

  outcome = git("git commit -q -m New && git rm -q --cached new.json && git diff --cached");
  EXPECT_THAT(outcome.out, StartsWith("new.json\nThe plot is gone.\n"));

  outcome =
      git("git reset -q --hard && git rm -q new.json && git commit -q -m Gone && "
          "git mv plot.json moved.json && sed -i s/D6/D7/ moved.json && git add . && "
          "git diff --cached -M");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("plot.json -> moved.json\n"));
  EXPECT_THAT(outcome.out, HasSubstr(std::string(kickOut) + "\"D7\""));

  scratch.write("moved.json", "{\n");
  outcome = git("git diff");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, StartsWith("moved.json\nthe file: "));
}

TEST_F(Git, MergesTwoBranchesThatEditOnePlot) {
  const std::string ours = withMicrophone(festival(), "Beta 52A");
  ASSERT_EQ(git("git checkout -q -b theirs").status, 0);
  scratch.write("plot.json", withTitle(festival(), "Winterfestival"));
  ASSERT_EQ(git("git commit -q -a -m Title && git checkout -q main").status, 0);
  scratch.write("plot.json", ours);
  ASSERT_EQ(git("git commit -q -a -m Microphone").status, 0);
  const Outcome outcome = git("git merge -q -m Both theirs");
  EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
  EXPECT_EQ(decodeJSON<KorrinProject>(contentOf(scratch.path("plot.json"))),
            decodeJSON<KorrinProject>(withTitle(ours, "Winterfestival")));
}

TEST_F(Git, LeavesAConflictToBeLookedAt) {
  ASSERT_EQ(git("git checkout -q -b theirs").status, 0);
  scratch.write("plot.json", withMicrophone(festival(), "RE20"));
  ASSERT_EQ(git("git commit -q -a -m RE20 && git checkout -q main").status, 0);
  scratch.write("plot.json", withMicrophone(festival(), "Beta 52A"));
  ASSERT_EQ(git("git commit -q -a -m Beta").status, 0);
  const Outcome outcome = git("git merge -m Both theirs");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("plot.json: 1 conflict\n"));
  EXPECT_THAT(outcome.out, HasSubstr(std::string(kickOut) + "\"RE20\""));
  EXPECT_THAT(outcome.out, HasSubstr("CONFLICT (content): Merge conflict in plot.json"));
  EXPECT_THAT(contentOf(scratch.path("plot.json")), HasSubstr("Beta 52A"));
  EXPECT_EQ(git("git add plot.json && git commit -q -m Both").status, 0);
}

}  // namespace
}  // namespace korrin::host
