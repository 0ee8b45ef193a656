// The built program as its callers see it: arguments in; output, messages and exit status out.

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/drawing/symbol_catalogue.h"

#include "scratch.h"

namespace korrin::host {
namespace {

using nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

json findingsOf(const Outcome& outcome) { return json::parse(outcome.out)["files"][0]["findings"]; }

TEST(Check, PassesAPlotWithNothingButInformation) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("check $D/festival-main-stage.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr("input: Talkback"));
  EXPECT_THAT(outcome.out, EndsWith("festival-main-stage.json: 0 errors, 0 warnings, 2 for "
                                    "information; missingAsset: not run, no known assets given\n"));
}

TEST(Check, FindsTheSameInThePlotOfAnotherHost) {
  const Scratch scratch;
  const Outcome ours = scratch.korrin("check --format json $D/festival-main-stage.json");
  const Outcome theirs = scratch.korrin(
      "check --format json --dates secondsSinceReferenceDate $D/festival-other-host.json");
  EXPECT_EQ(ours.status, 0);
  EXPECT_EQ(theirs.status, 0);
  EXPECT_EQ(findingsOf(ours).size(), 2u);
  EXPECT_EQ(findingsOf(ours), findingsOf(theirs));
}

TEST(Check, ShowsEveryRuleSortedBySeverity) {
  const Scratch scratch;
  const Outcome outcome =
      scratch.korrin("check --builtin-assets --format json $D/club-night-with-findings.json");
  EXPECT_EQ(outcome.status, 1);
  std::vector<std::string> keys;
  std::set<std::string> rules;
  const std::map<std::string, std::string> ranks = {
      {"error", "0"}, {"warning", "1"}, {"information", "2"}};
  for (const json& finding : findingsOf(outcome)) {
    keys.push_back(ranks.at(finding["severity"]) + finding["title"].get<std::string>());
    rules.insert(finding["rule"]);
  }
  EXPECT_TRUE(std::ranges::is_sorted(keys));
  EXPECT_THAT(
      rules, testing::ElementsAre("duplicateInputChannel", "duplicateMonitorMix", "incompleteInput",
                                  "invalidEquipmentQuantity", "invalidPlotReference",
                                  "itemOutsideStage", "missingAsset", "missingItemLabel",
                                  "monitorWithoutOutput", "unplacedInput", "unplacedMonitor"));
}

TEST(Check, TakesKnownAssetsFromFiles) {
  const Scratch scratch;
  std::string lines;
  for (const Symbol& symbol : builtInSymbols()) lines += std::string(symbol.assetID) + "\r\n\n";
  scratch.write("symbols", lines);
  scratch.write("sofas", "krn.furniture.sofa.v9");
  const std::string plot = " $D/club-night-with-findings.json";
  const Outcome builtin = scratch.korrin("check --builtin-assets" + plot);
  EXPECT_THAT(builtin.out, HasSubstr("furniture: Merch? nein"));
  EXPECT_EQ(scratch.korrin("check --known-assets symbols" + plot).out, builtin.out);
  const Outcome both = scratch.korrin("check --known-assets symbols --known-assets sofas" + plot);
  EXPECT_THAT(both.out, Not(HasSubstr("Symbol asset is missing")));
  EXPECT_THAT(both.out, Not(HasSubstr("not run")));
}

TEST(Check, SaysThatAFileOfKnownAssetsNamesNone) {
  const Scratch scratch;
  scratch.write("symbols", "\n");
  const Outcome outcome =
      scratch.korrin("check --known-assets symbols $D/festival-main-stage.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out,
              EndsWith("missingAsset: not run, the files of known assets name none\n"));
}

TEST(Check, StopsWhenKnownAssetsCannotBeRead) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("check --known-assets absent $D/festival-main-stage.json");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "korrin: absent: cannot be read: No such file or directory\n");
}

TEST(Check, ReadsStandardInput) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("check - <$D/festival-main-stage.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("standard input: 0 errors"));
}

TEST(Check, ReportsTheWorstOfSeveralFilesAndGoesOn) {
  const Scratch scratch;
  scratch.write("newer.json", newerDocument());
  scratch.write("broken.json", "{");
  const std::string clean = " $D/festival-main-stage.json ";
  const std::string found = " $D/club-night-with-findings.json ";
  EXPECT_EQ(scratch.korrin("check" + found + clean).status, 1);
  EXPECT_EQ(scratch.korrin("check broken.json" + found + clean).status, 2);
  const Outcome outcome = scratch.korrin("check newer.json broken.json" + found + clean);
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.err, HasSubstr("korrin: newer.json: needs a newer version of korrin"));
  EXPECT_THAT(outcome.err, HasSubstr("korrin: broken.json: is not a plot"));
  EXPECT_THAT(outcome.out, HasSubstr("club-night-with-findings.json: 9 errors"));
  EXPECT_THAT(outcome.out, HasSubstr("festival-main-stage.json: 0 errors"));
}

TEST(Check, TakesFoldersAndSeveralPlotsAtOnceAndSumsUp) {
  const Scratch scratch;
  std::filesystem::create_directories(scratch.path("tour/autumn"));
  for (const char* name : {"tour/a.json", "tour/autumn/b.json", "tour/c.json"})
    scratch.write(name, exampleDocument("club-night-with-findings"));
  scratch.write("tour/broken.json", "{");
  const Outcome one = scratch.korrin("check tour");
  EXPECT_EQ(one.status, 2);
  EXPECT_THAT(one.out, HasSubstr("tour/autumn/b.json: 9 errors"));
  EXPECT_THAT(one.out, HasSubstr("\n4 plots: 27 errors, "));
  EXPECT_THAT(one.out, EndsWith("; 1 not opened\n"));
  const Outcome several = scratch.korrin("check -j 3 tour");
  EXPECT_EQ(several.status, one.status);
  EXPECT_EQ(several.out, one.out);
  EXPECT_EQ(several.err, one.err);
  EXPECT_EQ(scratch.korrin("check --format json --jobs 2 tour").out,
            scratch.korrin("check --format json tour").out);
  EXPECT_EQ(scratch.korrin("check -j 0 tour").status, 64);
}

TEST(Check, ReportsRefusedFilesInJsonToo) {
  const Scratch scratch;
  scratch.write("newer.json", newerDocument());
  const Outcome outcome =
      scratch.korrin("check --format json newer.json absent $D/club-night-with-findings.json");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "");
  const json report = json::parse(outcome.out);
  EXPECT_EQ(report["exitCode"], 3);
  EXPECT_EQ(report["files"][0]["status"], "needsNewerVersion");
  EXPECT_EQ(report["files"][1]["status"], "unreadable");
  EXPECT_EQ(report["files"][2]["status"], "findings");
}

TEST(Check, RefusesWhatCannotBeOpened) {
  const Scratch scratch;
  scratch.write("empty", "");
  scratch.write("invalid.json", replaced(exampleDocument("festival-main-stage"), "\"width\": 12000",
                                         "\"width\": -1"));
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"absent", "absent: cannot be read: No such file or directory"},
      {"/dev/null", "/dev/null: is not a plot: it is empty"},
      {"/dev/zero", "/dev/zero: cannot be read: it is a device"},
      {"empty", "empty: is not a plot: it is empty"},
      {"-", "standard input: is not a plot: it is empty"},
      {"- <&-", "standard input: cannot be read: Bad file descriptor"},
      {"invalid.json",
       "invalid.json: is not valid: The project contains invalid or unsupported dimensions."},
  };
  for (const auto& [argument, sentence] : rows) {
    const Outcome outcome = scratch.korrin("check " + argument);
    EXPECT_EQ(outcome.status, 2) << argument;
    EXPECT_EQ(outcome.out, "") << argument;
    EXPECT_EQ(outcome.err, "korrin: " + sentence + "\n");
  }
}

TEST(Check, SendsNothingRawOfAHostileDocument) {
  const Scratch scratch;
  scratch.write("hostile.json", replaced(replaced(exampleDocument("club-night-with-findings"),
                                                  "Hi-Hat", "\\u001b]0;owned\\u0007"),
                                         "\"BV 2\"", "\"\\u009b2J\\r\""));
  scratch.write("edge.json",
                replaced(exampleDocument("festival-main-stage"), "\"top\"", "\"\\u001b[2J\""));
  const Outcome outcome = scratch.korrin("check hostile.json edge.json");
  EXPECT_EQ(outcome.status, 2);
  for (const char byte : outcome.out + outcome.err)
    EXPECT_TRUE(byte == '\n' || static_cast<unsigned char>(byte) >= 0x20);
  EXPECT_THAT(outcome.out, HasSubstr("channel 2: \\u{1B}]0;owned\\u{7}"));
  EXPECT_THAT(outcome.err, HasSubstr("stage.audienceEdge"));
}

TEST(Check, PrintsNoColourAndNoProgressIntoFiles) {
  const Scratch scratch;
  const Outcome outcome =
      scratch.korrin("check $D/club-night-with-findings.json $D/festival-main-stage.json");
  EXPECT_EQ(outcome.out.find('\x1b'), std::string::npos);
  EXPECT_EQ(outcome.err, "");
}

TEST(Fmt, WritesAFixedPoint) {
  const Scratch scratch;
  for (const std::string option : {"", "--pretty", "--sorted-keys", "--pretty --sorted-keys"}) {
    const Outcome first = scratch.korrin("fmt " + option + " $D/festival-main-stage.json");
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(first.err, "");
    EXPECT_THAT(first.out, EndsWith("}\n"));
    scratch.write("once.json", first.out);
    EXPECT_EQ(scratch.korrin("fmt " + option + " once.json").out, first.out);
    EXPECT_EQ(json::parse(first.out)["items"].size(), 18u);
  }
}

TEST(Fmt, TranslatesDates) {
  const Scratch scratch;
  const std::string ours = scratch.korrin("fmt $D/festival-main-stage.json").out;
  const Outcome theirs =
      scratch.korrin("fmt --dates secondsSinceReferenceDate $D/festival-other-host.json");
  EXPECT_EQ(theirs.status, 0);
  EXPECT_EQ(theirs.out, ours);
  EXPECT_EQ(
      theirs.err.substr(theirs.err.find("writing")),
      "writing drops keys that the format does not know: futureKey, items[].opacity (18 times)\n");
  scratch.write(
      "numbers.json",
      scratch.korrin("fmt --write-dates secondsSince1970 $D/festival-main-stage.json").out);
  EXPECT_EQ(scratch.korrin("fmt --dates secondsSince1970 numbers.json").out, ours);
}

TEST(Fmt, ReplacesTheFileItRead) {
  const Scratch scratch;
  scratch.write("plot.json", exampleDocument("festival-main-stage"));
  const Outcome outcome = scratch.korrin("fmt plot.json --output plot.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(contentOf(scratch.path("plot.json")),
            scratch.korrin("fmt $D/festival-main-stage.json -o -").out);
  EXPECT_EQ(scratch.fileCount(), 1u);
}

TEST(Fmt, NeitherReadsNorReplacesANewerDocument) {
  const Scratch scratch;
  scratch.write("newer.json", newerDocument());
  EXPECT_EQ(scratch.korrin("fmt newer.json").status, 3);
  const Outcome outcome = scratch.korrin("fmt $D/festival-main-stage.json -o newer.json");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.err, StartsWith("korrin: newer.json: needs a newer version of korrin"));
  EXPECT_EQ(contentOf(scratch.path("newer.json")), newerDocument());
}

TEST(Fmt, LeavesTheOldFileWhenItCannotGoOn) {
  const Scratch scratch;
  scratch.write("plot.json", "{broken");
  EXPECT_EQ(scratch.korrin("fmt plot.json -o plot.json").status, 2);
  EXPECT_EQ(contentOf(scratch.path("plot.json")), "{broken");
  const Outcome outcome = scratch.korrin("fmt $D/festival-main-stage.json -o nowhere/plot.json");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "korrin: nowhere/plot.json: cannot be written: No such file or directory\n");
}

TEST(Output, ThatCannotBeWrittenIsSaid) {
  const Scratch scratch;
  for (const std::string redirection : {">/dev/full", ">&-"}) {
    for (const std::string command : {"check", "fmt"}) {
      const Outcome outcome =
          scratch.korrin(command + " $D/festival-main-stage.json " + redirection);
      EXPECT_EQ(outcome.status, 2) << command << redirection;
      EXPECT_EQ(outcome.err, "korrin: standard output cannot be written\n");
    }
  }
}

TEST(Output, WhoseReaderWentAwayIsSaid) {
  const Scratch scratch;
  // More than a pipe takes without a reader.
  scratch.write("long.json", replaced(exampleDocument("festival-main-stage"), "Talkback",
                                      std::string(1'000'000, 'x')));
  const Outcome outcome = scratch.korrin("fmt long.json 2>message | true; cat message >&2");
  EXPECT_EQ(outcome.err, "korrin: standard output cannot be written\n");
}

TEST(CommandLine, ThatIsWrongIsMisuse) {
  const Scratch scratch;
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"", "a command is missing"},
      {"chek", "there is no command \"chek\"; did you mean \"check\"?"},
      {"frobnicate", "there is no command \"frobnicate\""},
      {"--frob check x", "there is no option \"--frob\""},
      {"check", "FILE is required"},
      {"check --frob x", "there is no option \"--frob\""},
      {"check --formt=json x", "there is no option \"--formt\"; did you mean \"--format\"?"},
      {"check --format xml x", "there is no \"xml\" among text, json, sarif, junit"},
      {"fmt --dates iso861 x",
       "there is no \"iso861\" among iso8601, secondsSince1970, millisecondsSince1970, "
       "secondsSinceReferenceDate; did you mean \"iso8601\"?"},
      {"check - -", "standard input can be read only once"},
      {"check - --known-assets -", "standard input can be read only once"},
      {"edit -", "standard input can be read only once"},
      {"edit", "FILE is required"},
      {"fmt", "FILE is required"},
      {"fmt a b", "korrin fmt has no use for \"b\""},
  };
  for (const auto& [arguments, sentence] : rows) {
    const Outcome outcome = scratch.korrin(arguments);
    EXPECT_EQ(outcome.status, 64) << arguments;
    EXPECT_EQ(outcome.out, "") << arguments;
    EXPECT_EQ(outcome.err, "korrin: " + sentence + "\nTry korrin --help.\n");
  }
}

TEST(CommandLine, TakesWordsBehindTwoDashesForFiles) {
  const Scratch scratch;
  ASSERT_EQ(scratch.korrin("new --example -o ./-plot.json").status, 0);
  EXPECT_EQ(scratch.korrin("check --format json -- -plot.json").status, 0);
  EXPECT_EQ(scratch.korrin("diff -- -plot.json -plot.json").status, 0);
  const Outcome outcome = scratch.korrin("fmt -- -plot.json --pretty");
  EXPECT_EQ(outcome.status, 64);
  EXPECT_EQ(outcome.err, "korrin: korrin fmt has no use for \"--pretty\"\nTry korrin --help.\n");
}

TEST(CommandLine, GivesHelpAndVersion) {
  const Scratch scratch;
  EXPECT_THAT(scratch.korrin("--version").out, StartsWith("korrin "));
  for (const std::string arguments : {"--help", "check --help", "fmt --help", "--version"}) {
    const Outcome outcome = scratch.korrin(arguments);
    EXPECT_EQ(outcome.status, 0) << arguments;
    EXPECT_THAT(outcome.out, Not(IsEmpty())) << arguments;
    EXPECT_EQ(outcome.err, "") << arguments;
  }
  EXPECT_THAT(scratch.korrin("check --help").out, HasSubstr("Exit status:"));
}

}  // namespace
}  // namespace korrin::host
