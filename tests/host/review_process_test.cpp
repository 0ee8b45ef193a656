// What the built program says and does about findings: explaining, fixing and accepting them, and
// reporting them to other programs.

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "scratch.h"

namespace korrin::host {
namespace {

using nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const char* const night = "club-night-with-findings";

json reportOn(const Scratch& scratch, const std::string& arguments) {
  return json::parse(scratch.korrin("check --format json " + arguments).out)["files"][0];
}

// The id of the first finding by this rule.
std::string idOf(const Scratch& scratch, const std::string& plot, const std::string& rule) {
  const json file = reportOn(scratch, "--audit " + plot);
  for (const char* list : {"findings", "audit"})
    for (const json& finding : file[list])
      if (finding["rule"] == rule) return finding["id"];
  ADD_FAILURE() << "there is no finding by " << rule;
  return {};
}

std::size_t countOf(const std::string& text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
    ++count;
  return count;
}

TEST(Explain, SaysWhatARuleIsAboutAndHowToMendIt) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("check --explain itemOutsideStage");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out,
              StartsWith("itemOutsideStage (preflight, warning): Symbol is outside the stage\n\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\nHow to mend it:\n"));
  EXPECT_THAT(scratch.korrin("check --explain hiddenItems").out, HasSubstr("(audit, information)"));
  EXPECT_THAT(scratch.korrin("check --explain invalidGeometry").out, HasSubstr("(validation, "));
}

TEST(Explain, SuggestsTheRuleThatWasMeant) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("check --explain itemOutsideStages");
  EXPECT_EQ(outcome.status, 64);
  EXPECT_THAT(outcome.err, HasSubstr("did you mean \"itemOutsideStage\"?"));
}

TEST(RulePages, AreWhatTheProgramWrites) {
  namespace fs = std::filesystem;
  const Scratch scratch;
  fs::create_directory(scratch.path("pages"));
  EXPECT_EQ(scratch.korrin("--write-rule-pages pages").status, 0);
  std::set<std::string> written, kept;
  for (const auto& page : fs::directory_iterator(scratch.path("pages")))
    written.insert(page.path().filename());
  const fs::path rules = fs::path(KORRIN_SOURCE_DIR) / "docs/rules";
  for (const auto& page : fs::directory_iterator(rules)) kept.insert(page.path().filename());
  EXPECT_EQ(written, kept);
  EXPECT_EQ(written.size(), 31u);
  for (const std::string& name : written)
    EXPECT_EQ(contentOf(scratch.path("pages/" + name)), contentOf(rules / name)) << name;
}

TEST(CheckAudit, AddsItsFindingsToEveryReport) {
  const Scratch scratch;
  std::string plot = replaced(exampleDocument("festival-main-stage"), "\"schemaVersion\": 1",
                              "\"schemaVersion\": 7");
  scratch.write("newer.json", plot);
  EXPECT_THAT(scratch.korrin("check newer.json").out, Not(HasSubstr("newer version")));
  const Outcome audited = scratch.korrin("check --audit newer.json");
  EXPECT_EQ(audited.status, 0);
  EXPECT_THAT(audited.out, HasSubstr("Written by a newer version"));
  EXPECT_EQ(reportOn(scratch, "newer.json")["audit"], nullptr);
  EXPECT_EQ(reportOn(scratch, "--audit newer.json")["audit"][0]["id"], "newerFormat:schemaVersion");
}

TEST(Fix, ListsWhatCanBeDoneAndChangesNothing) {
  const Scratch scratch;
  const std::string before = exampleDocument(night);
  scratch.write("night.json", before);
  const Outcome outcome = scratch.korrin("fix night.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr("    #1 Give input "));
  EXPECT_THAT(outcome.out, HasSubstr("    #2 Remove the channel of input "));
  EXPECT_THAT(outcome.out, HasSubstr("    only a person can know\n"));
  EXPECT_EQ(contentOf(scratch.path("night.json")), before);
}

TEST(Fix, WritesNothingWhileAChoiceIsOpen) {
  const Scratch scratch;
  const std::string before = exampleDocument(night);
  scratch.write("night.json", before);
  const std::string id = idOf(scratch, "night.json", "duplicateInputChannel");
  const Outcome open = scratch.korrin("fix night.json " + id);
  EXPECT_EQ(open.status, 1);
  EXPECT_THAT(open.out, HasSubstr("    #2 "));
  EXPECT_THAT(open.err, HasSubstr("nothing is written"));
  EXPECT_EQ(contentOf(scratch.path("night.json")), before);

  const Outcome chosen = scratch.korrin("fix night.json '" + id + "#2'");
  EXPECT_EQ(chosen.status, 0);
  EXPECT_THAT(chosen.out, StartsWith("Remove the channel of input "));
  EXPECT_THAT(chosen.out, HasSubstr("channel"));
  const json file = reportOn(scratch, "night.json");
  for (const json& finding : file["findings"]) EXPECT_NE(finding["id"], id);
}

TEST(Fix, LeavesAcceptedFindingsAlone) {
  const Scratch scratch;
  scratch.write("night.json", exampleDocument(night));
  const std::string id = idOf(scratch, "night.json", "itemOutsideStage");
  scratch.korrin("waive night.json " + id + " --reason 'in the wing'");
  const Outcome outcome = scratch.korrin("fix --all-safe --dry-run night.json");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_FALSE(outcome.out.empty());
  EXPECT_THAT(outcome.out, Not(HasSubstr("inside the stage")));
}

TEST(Fix, MendsAllThatHasOneFix) {
  const Scratch scratch;
  const std::string before = exampleDocument(night);
  scratch.write("night.json", before);
  const Outcome rehearsal = scratch.korrin("fix --all-safe --dry-run night.json");
  EXPECT_EQ(rehearsal.status, 0);
  EXPECT_EQ(contentOf(scratch.path("night.json")), before);

  EXPECT_EQ(scratch.korrin("fix --all-safe night.json -o mended.json").out, rehearsal.out);
  EXPECT_EQ(contentOf(scratch.path("night.json")), before);
  std::set<std::string> rules;
  const json mended = reportOn(scratch, "mended.json");
  for (const json& finding : mended["findings"]) rules.insert(finding["rule"]);
  EXPECT_FALSE(rules.contains("itemOutsideStage"));
  EXPECT_FALSE(rules.contains("invalidPlotReference"));
  EXPECT_TRUE(rules.contains("duplicateInputChannel"));
  EXPECT_EQ(scratch.korrin("fix --all-safe mended.json").out, "");
}

TEST(Fix, WritesThePlotIndentedOrNotAsItWasFound) {
  const Scratch scratch;
  scratch.write("night.json", exampleDocument(night));
  const auto beginning = [&](std::string_view name) {
    return contentOf(scratch.path(name)).substr(0, 17);
  };
  scratch.korrin("fmt night.json -o line.json");
  scratch.korrin("fix --all-safe --pretty line.json -o asked-for.json");
  scratch.korrin("fix --all-safe line.json");
  EXPECT_EQ(beginning("line.json"), "{\"schemaVersion\":");
  EXPECT_EQ(beginning("asked-for.json"), "{\n  \"schemaVersio");
  scratch.korrin("fmt --pretty night.json -o indented.json");
  EXPECT_THAT(scratch.korrin("fix --all-safe indented.json").out, HasSubstr("label hidden"));
  EXPECT_EQ(beginning("indented.json"), "{\n  \"schemaVersio");
}

TEST(Check, PassesOverListsOfWaiversAmongPlots) {
  const Scratch scratch;
  scratch.write("night.json", exampleDocument(night));
  const Outcome before = scratch.korrin("check *.json");
  const std::string id = idOf(scratch, "night.json", "itemOutsideStage");
  ASSERT_EQ(scratch.korrin("waive night.json " + id + " --reason why").status, 0);
  const Outcome after = scratch.korrin("check *.json");
  EXPECT_EQ(after.status, before.status);
  EXPECT_EQ(after.err,
            "korrin: night.waivers.json: is a list of accepted findings, no plot; passed over\n");
  EXPECT_EQ(after.out, scratch.korrin("check night.json").out);
  EXPECT_EQ(scratch.korrin("check --waivers night.waivers.json *.json").out, after.out);
  EXPECT_EQ(scratch.korrin("check night.waivers.json night.waivers.json").status, 2);
}

TEST(Fix, RefusesFindingsThatThePlotDoesNotHave) {
  const Scratch scratch;
  const std::string before = exampleDocument(night);
  scratch.write("night.json", before);
  const Outcome outcome = scratch.korrin("fix --all-safe night.json newerFormat:schemaVersion");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("has no finding \"newerFormat:schemaVersion\""));
  EXPECT_EQ(contentOf(scratch.path("night.json")), before);
}

TEST(Waive, AcceptsAFindingUntilItIsGone) {
  const Scratch scratch;
  scratch.write("night.json", exampleDocument(night));
  const std::string id = idOf(scratch, "night.json", "itemOutsideStage");
  const auto before = reportOn(scratch, "night.json")["counts"]["warning"].get<int>();
  const Outcome outcome =
      scratch.korrin("waive night.json " + id + " --reason 'in the wing' --author Kim");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");

  const Outcome checked = scratch.korrin("check --strict night.json");
  EXPECT_THAT(checked.out, HasSubstr("in the wing"));
  EXPECT_THAT(checked.out, HasSubstr("Kim"));
  EXPECT_THAT(checked.out, HasSubstr("1 accepted"));
  const json file = reportOn(scratch, "night.json");
  EXPECT_EQ(file["counts"]["warning"], before - 1);
  EXPECT_EQ(file["waived"][0]["findingID"], id);
  EXPECT_THAT(file["staleWaivers"], IsEmpty());

  EXPECT_EQ(scratch.korrin("fix night.json " + id).status, 0);
  EXPECT_EQ(reportOn(scratch, "night.json")["staleWaivers"][0]["findingID"], id);
  EXPECT_THAT(scratch.korrin("check night.json").out, HasSubstr("stale waiver"));
}

TEST(Waive, MakesAStaleWaiverFailUnderStrict) {
  const Scratch scratch;
  scratch.write("plot.json", exampleDocument("festival-main-stage"));
  scratch.write("plot.waivers.json",
                R"({"schemaVersion":1,"waivers":[{"findingID":"hiddenItems:x","reason":"r",)"
                R"("author":"","date":"2026-11-22T12:00:00Z"}]})");
  EXPECT_EQ(scratch.korrin("check plot.json").status, 0);
  EXPECT_EQ(scratch.korrin("check --strict plot.json").status, 1);
  // A rule that was not run does not make its waivers stale.
  scratch.write("plot.waivers.json",
                R"({"schemaVersion":1,"waivers":[{"findingID":"missingAsset:x","reason":"r",)"
                R"("author":"","date":"2026-11-22T12:00:00Z"}]})");
  EXPECT_EQ(scratch.korrin("check --strict plot.json").status, 0);
  EXPECT_EQ(scratch.korrin("check --strict --builtin-assets plot.json").status, 1);
}

TEST(Waive, RefusesWhatItCannotAccept) {
  const Scratch scratch;
  scratch.write("night.json", exampleDocument(night));
  const std::string id = idOf(scratch, "night.json", "itemOutsideStage");
  EXPECT_EQ(scratch.korrin("waive night.json " + id).status, 64);
  EXPECT_EQ(scratch.korrin("waive night.json nothing:x --reason r").status, 2);
  EXPECT_EQ(scratch.fileCount(), 1u);
  EXPECT_EQ(scratch.korrin("waive night.json " + id + " --reason r").status, 0);
  EXPECT_EQ(scratch.korrin("waive night.json " + id + " --reason r").status, 2);
  scratch.write("night.waivers.json", "{");
  EXPECT_EQ(scratch.korrin("check night.json").status, 2);
}

// What SARIF 2.1.0 says about the objects that a log holds here: the members that an object may
// have, the first of them needed. The standard allows no others, but for those of `properties`.
struct ObjectRule {
  const char* name;
  std::size_t needed;
  std::vector<std::string> members;
};

const std::vector<ObjectRule> objectRules = {
    {"log", 2, {"version", "runs", "$schema"}},
    {"run", 1, {"tool", "invocations", "results"}},
    {"tool", 1, {"driver"}},
    {"driver", 1, {"name", "rules"}},
    {"rule",
     1,
     {"id", "shortDescription", "fullDescription", "help", "defaultConfiguration", "properties"}},
    {"text", 1, {"text"}},
    {"configuration", 0, {"level"}},
    {"invocation", 1, {"executionSuccessful", "exitCode", "toolExecutionNotifications"}},
    {"notification", 1, {"message", "level", "locations"}},
    {"result",
     1,
     {"message", "ruleId", "ruleIndex", "level", "locations", "partialFingerprints",
      "suppressions"}},
    {"location", 0, {"physicalLocation"}},
    {"physicalLocation", 1, {"artifactLocation"}},
    {"artifactLocation", 0, {"uri"}},
    {"suppression", 1, {"kind", "status", "justification", "properties"}},
};

void expectObject(const std::string& name, const json& object) {
  const auto rule = std::ranges::find(objectRules, name, &ObjectRule::name);
  ASSERT_NE(rule, objectRules.end()) << name;
  ASSERT_TRUE(object.is_object()) << name;
  for (std::size_t i = 0; i < rule->needed; ++i)
    EXPECT_TRUE(object.contains(rule->members[i])) << name << " " << rule->members[i];
  for (const auto& [key, value] : object.items())
    EXPECT_THAT(rule->members, testing::Contains(key)) << name;
}

void expectText(const json& message) {
  expectObject("text", message);
  EXPECT_FALSE(message["text"].get<std::string>().empty());
}

void expectLevel(const json& level) {
  EXPECT_THAT((std::set<std::string>{"none", "note", "warning", "error"}),
              testing::Contains(level.get<std::string>()));
}

// A reference as RFC 3986 has it: no blanks, no bytes beyond ASCII, and each "%" before two digits.
void expectLocations(const json& locations) {
  for (const json& location : locations) {
    expectObject("location", location);
    expectObject("physicalLocation", location["physicalLocation"]);
    const json& artifact = location["physicalLocation"]["artifactLocation"];
    expectObject("artifactLocation", artifact);
    EXPECT_THAT(artifact["uri"].get<std::string>(),
                testing::MatchesRegex("([-._~/:A-Za-z0-9]|%[0-9A-F][0-9A-F])+"));
  }
}

void expectResult(const json& result, const json& rules) {
  expectObject("result", result);
  expectText(result["message"]);
  expectLevel(result["level"]);
  expectLocations(result["locations"]);
  EXPECT_EQ(rules.at(result["ruleIndex"].get<std::size_t>())["id"], result["ruleId"]);
  for (const auto& [key, value] : result["partialFingerprints"].items())
    EXPECT_TRUE(value.is_string()) << key;
  if (!result.contains("suppressions")) return;
  for (const json& suppression : result["suppressions"]) {
    expectObject("suppression", suppression);
    EXPECT_EQ(suppression["kind"], "external");
    EXPECT_EQ(suppression["status"], "accepted");
    EXPECT_TRUE(suppression["justification"].is_string());
  }
}

void expectSarif(const json& log) {
  expectObject("log", log);
  EXPECT_EQ(log["version"], "2.1.0");
  EXPECT_THAT(log["$schema"].get<std::string>(), HasSubstr("sarif-2.1.0"));
  for (const json& run : log["runs"]) {
    expectObject("run", run);
    expectObject("tool", run["tool"]);
    const json& driver = run["tool"]["driver"];
    expectObject("driver", driver);
    std::set<std::string> ids;
    for (const json& rule : driver["rules"]) {
      expectObject("rule", rule);
      EXPECT_TRUE(ids.insert(rule["id"]).second) << rule["id"];
      for (const char* text : {"shortDescription", "fullDescription", "help"})
        expectText(rule[text]);
      expectObject("configuration", rule["defaultConfiguration"]);
      expectLevel(rule["defaultConfiguration"]["level"]);
    }
    for (const json& invocation : run["invocations"]) {
      expectObject("invocation", invocation);
      EXPECT_TRUE(invocation["executionSuccessful"].is_boolean());
      EXPECT_TRUE(invocation["exitCode"].is_number_integer());
      for (const json& notification : invocation["toolExecutionNotifications"]) {
        expectObject("notification", notification);
        expectText(notification["message"]);
        expectLevel(notification["level"]);
        expectLocations(notification["locations"]);
      }
    }
    for (const json& result : run["results"]) expectResult(result, driver["rules"]);
  }
}

TEST(Sarif, HasTheMembersOfTheStandardAndNoOthers) {
  const Scratch scratch;
  scratch.write("a ni\u0308ght %.json", exampleDocument(night));
  const std::string id = idOf(scratch, "'a ni\u0308ght %.json'", "itemOutsideStage");
  scratch.korrin("waive 'a ni\u0308ght %.json' " + id + " --reason 'in the wing' --author Kim");
  const Outcome outcome =
      scratch.korrin("check --audit --format sarif 'a ni\u0308ght %.json' absent \"$PWD/absent\"");
  const json log = json::parse(outcome.out);
  expectSarif(log);
  const json& run = log["runs"][0];
  EXPECT_GT(run["results"].size(), 5u);
  const json& notifications = run["invocations"][0]["toolExecutionNotifications"];
  ASSERT_EQ(notifications.size(), 2u);
  const auto uriIn = [](const json& object) {
    return object["locations"][0]["physicalLocation"]["artifactLocation"]["uri"].get<std::string>();
  };
  EXPECT_EQ(uriIn(run["results"][0]), "a%20ni%CC%88ght%20%25.json");
  EXPECT_EQ(uriIn(notifications[0]), "absent");
  EXPECT_THAT(uriIn(notifications[1]), StartsWith("file:///"));
  const auto isAccepted = [](const json& result) {
    return result.contains("suppressions") &&
           result["suppressions"][0]["properties"]["author"] == "Kim";
  };
  EXPECT_EQ(std::ranges::count_if(run["results"], isAccepted), 1);
}

TEST(Sarif, HoldsEveryFindingWithItsIdAsFingerprint) {
  const Scratch scratch;
  scratch.write("a night.json", exampleDocument(night));
  const std::string id = idOf(scratch, "'a night.json'", "itemOutsideStage");
  scratch.korrin("waive 'a night.json' " + id + " --reason 'in the wing'");
  const Outcome outcome = scratch.korrin("check --format sarif 'a night.json' absent");
  EXPECT_EQ(outcome.status, 2);
  const json log = json::parse(outcome.out);
  EXPECT_EQ(log["version"], "2.1.0");
  ASSERT_EQ(log["runs"].size(), 1u);
  const json& run = log["runs"][0];
  const json& rules = run["tool"]["driver"]["rules"];
  std::set<std::string> fingerprints;
  int suppressed = 0;
  for (const json& result : run["results"]) {
    EXPECT_EQ(rules[result["ruleIndex"].get<std::size_t>()]["id"], result["ruleId"]);
    EXPECT_THAT((std::set<std::string>{"error", "warning", "note"}),
                testing::Contains(result["level"].get<std::string>()));
    EXPECT_FALSE(result["message"]["text"].get<std::string>().empty());
    EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
              "a%20night.json");
    fingerprints.insert(result["partialFingerprints"]["korrinFinding/v1"]);
    if (!result.contains("suppressions")) continue;
    ++suppressed;
    EXPECT_EQ(result["suppressions"][0]["kind"], "external");
    EXPECT_EQ(result["suppressions"][0]["justification"], "in the wing");
  }
  EXPECT_EQ(suppressed, 1);
  EXPECT_EQ(fingerprints.size(), run["results"].size());
  EXPECT_TRUE(fingerprints.contains(id));
  EXPECT_EQ(run["invocations"][0]["executionSuccessful"], false);
  EXPECT_EQ(run["invocations"][0]["toolExecutionNotifications"].size(), 1u);
  for (const json& rule : rules) {
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(KORRIN_SOURCE_DIR) /
                                        rule["properties"]["page"].get<std::string>()));
    EXPECT_FALSE(rule["help"]["text"].get<std::string>().empty());
  }
}

TEST(Junit, CountsWhatItHolds) {
  const Scratch scratch;
  scratch.write("night.json", replaced(exampleDocument(night), "Hi-Hat", "<&\\\"\\u0007\\uFFFE>"));
  const std::string id = idOf(scratch, "night.json", "itemOutsideStage");
  scratch.korrin("waive night.json " + id + " --reason '<in the wing>'");
  const Outcome outcome =
      scratch.korrin("check --format junit night.json $D/festival-main-stage.json absent");
  EXPECT_EQ(outcome.status, 2);
  const std::string& xml = outcome.out;
  EXPECT_THAT(xml, StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n"));
  EXPECT_THAT(xml, EndsWith("</testsuites>\n"));
  EXPECT_EQ(countOf(xml, "<testsuite "), 3u);
  EXPECT_EQ(countOf(xml, "<testcase "), countOf(xml, "</testcase>"));
  EXPECT_EQ(countOf(xml, "<skipped "), 1u);
  EXPECT_EQ(countOf(xml, "<error "), 1u);
  EXPECT_THAT(xml, HasSubstr("message=\"&lt;in the wing&gt;\""));
  EXPECT_THAT(xml, HasSubstr("&lt;&amp;&quot;\\u{7}\uFFFD&gt;"));
  const json file = reportOn(scratch, "night.json");
  const std::size_t failures =
      file["counts"]["error"].get<std::size_t>() + file["counts"]["warning"].get<std::size_t>();
  EXPECT_EQ(countOf(xml, "<failure "), failures);
  EXPECT_THAT(xml, HasSubstr("failures=\"" + std::to_string(failures) + "\" errors=\"0\""));
}

TEST(Fix, SendsNothingRawOfAHostileDocument) {
  const Scratch scratch;
  scratch.write("hostile.json",
                replaced(exampleDocument(night), "Hi-Hat", "\\u001b]0;owned\\u0007\\u202e"));
  const Outcome outcome = scratch.korrin("fix hostile.json");
  EXPECT_EQ(outcome.status, 0);
  for (const char byte : outcome.out)
    EXPECT_TRUE(byte == '\n' || static_cast<unsigned char>(byte) >= 0x20);
  EXPECT_EQ(outcome.out.find("\u202e"), std::string::npos);
}

}  // namespace
}  // namespace korrin::host
