#include "findings/findings_json.h"

#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/preflight/preflight_engine.h"

#include "documents/plot_document.h"
#include "scratch.h"

namespace korrin::host {
namespace {

using nlohmann::json;

FileFindings inspected(const std::string& name) {
  FileFindings file{name + ".json", std::nullopt, {}, {}, ""};
  file.project = decodeDocument(exampleDocument(name), DateStrategy::iso8601);
  file.issues = PreflightEngine::inspect(file.project, {});
  return file;
}

json reportOn(const FileFindings& file) {
  const std::vector<FileFindings> files = {file};
  return json::parse(findingsReport(files, file.exitCode()));
}

TEST(FindingsReport, HoldsEveryMemberOfEveryFindingInOrder) {
  const FileFindings file = inspected("club-night-with-findings");
  const json report = reportOn(file);
  EXPECT_EQ(report["reportVersion"], 1);
  EXPECT_EQ(report["exitCode"], 1);
  const json& entry = report["files"][0];
  EXPECT_EQ(entry["file"], "club-night-with-findings.json");
  EXPECT_EQ(entry["status"], "findings");
  EXPECT_EQ(entry["counts"], json::parse(R"({"error": 9, "warning": 4, "information": 4})"));
  EXPECT_EQ(entry["notRun"], json::array());
  ASSERT_EQ(entry["findings"].size(), file.issues.size());
  for (std::size_t i = 0; i < file.issues.size(); ++i) {
    const PreflightIssue& issue = file.issues[i];
    const json& finding = entry["findings"][i];
    EXPECT_EQ(finding.size(), 7u);
    EXPECT_EQ(finding["id"], issue.id.str());
    EXPECT_EQ(finding["rule"], rawValue(issue.rule));
    EXPECT_EQ(finding["severity"], rawValue(issue.severity));
    EXPECT_EQ(finding["title"], issue.title.str());
    EXPECT_EQ(finding["detail"], issue.detail.str());
    EXPECT_EQ(finding["relatedID"], issue.relatedID ? json(issue.relatedID->text()) : json());
    EXPECT_EQ(finding["recordID"], issue.recordID ? json(issue.recordID->text()) : json());
  }
}

TEST(FindingsReport, CallsInformationAloneClean) {
  const json entry = reportOn(inspected("festival-main-stage"))["files"][0];
  EXPECT_EQ(entry["status"], "clean");
  EXPECT_EQ(entry["findings"].size(), 2u);
}

TEST(FindingsReport, SaysWhichRuleWasNotRun) {
  FileFindings file = inspected("festival-main-stage");
  file.missingAssetNotRunReason = "no known assets given";
  EXPECT_EQ(reportOn(file)["files"][0]["notRun"],
            json::parse(R"([{"rule": "missingAsset", "reason": "no known assets given"}])"));
}

TEST(FindingsReport, SaysWhyAFileWasRefused) {
  const FileFindings file{
      "a\xFF.json",
      Refusal(RefusalReason::notAPlot, "is not a plot: items: \"\x1b\xFF\"", "items"),
      {},
      {},
      ""};
  const json report = reportOn(file);
  EXPECT_EQ(report["exitCode"], 2);
  EXPECT_EQ(report["files"][0],
            json({{"file", "a\uFFFD.json"},
                  {"status", "notAPlot"},
                  {"refusal",
                   {{"message", "is not a plot: items: \"\x1b\uFFFD\""}, {"keyPath", "items"}}}}));
}

TEST(FindingsReport, HasNoKeyPathWhereNoFieldIsToBlame) {
  const FileFindings file{
      "a.json", Refusal(RefusalReason::unreadable, "cannot be read"), {}, {}, ""};
  EXPECT_EQ(reportOn(file)["files"][0]["refusal"]["keyPath"], nullptr);
}

}  // namespace
}  // namespace korrin::host
