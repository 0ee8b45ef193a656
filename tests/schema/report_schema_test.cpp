// The schemas of reports against reports of the program, by the judgement of a validator of
// other authors.

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "commands/schema_command.h"
#include "tests/host/scratch.h"
#include "tests/schema/validator.h"

namespace korrin::host {
namespace {

using Json = nlohmann::ordered_json;

// A schema, by what is asked of korrin and by its identifier.
struct Subject {
  std::string schema;
  std::string id;

  std::string closedId() const { return id + ":closed"; }

  // Without room for keys that it does not name, so that it has to describe every key.
  std::string closedSchema() const {
    Json closed = Json::parse(schema);
    closed["$id"] = closedId();
    for (auto& [name, definition] : closed["$defs"].items())
      if (definition.contains("properties")) definition["additionalProperties"] = false;
    return closed.dump();
  }
};
const Subject checkReport = {reportSchema(), "urn:korrincore:check-report:1"};
const Subject assetReport = {assetReportSchema(), "urn:korrincore:asset-report:1"};

std::vector<std::string> verdictsOn(const std::vector<std::string>& reports, const Subject& subject,
                                    const std::string& id) {
  std::vector<test::SchemaCase> cases;
  for (const std::string& report : reports) cases.push_back({id, report});
  return test::verdictsOn(cases, {subject.schema, subject.closedSchema()});
}

void expectDescribed(const std::vector<std::string>& reports, const Subject& subject) {
  for (const std::string& id : {subject.id, subject.closedId()}) {
    const std::vector<std::string> verdicts = verdictsOn(reports, subject, id);
    for (std::size_t i = 0; i < reports.size(); ++i)
      EXPECT_EQ(verdicts[i], "valid") << id << ": " << reports[i];
  }
}

// Reports with every kind of outcome.
std::vector<std::string> realReports() {
  const Scratch scratch;
  const std::string plot = exampleDocument("festival-main-stage");
  scratch.write("newer.json",
                replaced(plot, "\"minimumReaderVersion\": 1", "\"minimumReaderVersion\": 2"));
  scratch.write("unsafe.json", replaced(plot, "\"width\": ", "\"width\": -"));
  scratch.write("mistyped.json", replaced(plot, "\"audienceEdge\": \"", "\"audienceEdge\": \"x"));
  scratch.write("empty.json", "");
  scratch.write("a\xFF.json", "[]");
  scratch.write("symbols", "krn.audio.wedge.v1\n");
  std::vector<std::string> reports;
  for (const std::string arguments :
       {"$D/festival-main-stage.json", "--builtin-assets $D/festival-main-stage.json",
        "--builtin-assets $D/club-night-with-findings.json", "$D/club-night-with-findings.json",
        "--known-assets symbols $D/club-night-with-findings.json",
        "--dates secondsSinceReferenceDate $D/festival-other-host.json",
        "$D/festival-other-host.json", "- <$D/festival-main-stage.json", "newer.json",
        "unsafe.json", "mistyped.json", "empty.json", ".", "missing.json", "a?.json",
        "--assets $D/../assets $D/trio-with-artwork.json", "--assets . $D/trio-with-artwork.json",
        "--builtin-assets --assets $D/../assets $D/*.json *.json missing.json"})
    reports.push_back(scratch.korrin("check --format json " + arguments).out);
  return reports;
}

TEST(ReportSchema, AdmitsWhatIsReportedAndDescribesEveryKeyOfIt) {
  if (const std::string why = test::whyNoValidator(); !why.empty()) GTEST_SKIP() << why;
  const std::vector<std::string> reports = realReports();
  expectDescribed(reports, checkReport);
  std::set<std::string> statuses;
  for (const std::string& text : reports) {
    const Json report = Json::parse(text);
    for (const Json& file : report["files"]) statuses.insert(file["status"]);
  }
  EXPECT_EQ(statuses, (std::set<std::string>{"clean", "findings", "invalid", "needsNewerVersion",
                                             "notAPlot", "unreadable"}));
}

TEST(ReportSchema, AdmitsAndDescribesWhatIsReportedOnImages) {
  if (const std::string why = test::whyNoValidator(); !why.empty()) GTEST_SKIP() << why;
  const Scratch scratch;
  scratch.write("text.png", "no image");
  const std::string images = "$D/../assets/logo.png $D/../assets/power-distribution.pdf";
  std::vector<std::string> reports;
  for (const std::string& arguments : {images, images + " " + images, images + " text.png missing",
                                       std::string("."), "--media-type image/gif " + images})
    reports.push_back(scratch.korrin("asset --format json " + arguments).out);
  expectDescribed(reports, assetReport);
  EXPECT_EQ(verdictsOn({replaced(reports[0], "\"accepted\"", "\"loved\""),
                        replaced(reports[0], "\"maximumTotalPixels\"", "\"limit\"")},
                       assetReport, assetReport.id),
            std::vector<std::string>(2, "invalid"));
}

// The paths of everything below a report's object.
std::vector<Json::json_pointer> pathsOf(const Json& report) {
  std::vector<Json::json_pointer> paths;
  const Json leaves = report.flatten();
  for (const auto& [path, leaf] : leaves.items())
    for (Json::json_pointer at(path); !at.empty(); at.pop_back())
      if (std::ranges::find(paths, at) == paths.end()) paths.push_back(at);
  return paths;
}

TEST(ReportSchema, DemandsEveryKeyWithItsType) {
  if (const std::string why = test::whyNoValidator(); !why.empty()) GTEST_SKIP() << why;
  const Scratch scratch;
  const Json report =
      Json::parse(scratch
                      .korrin("check --format json --assets . $D/festival-main-stage.json "
                              "$D/trio-with-artwork.json missing.json")
                      .out);
  const std::set<std::string> nullable = {"relatedID",     "recordID", "keyPath", "remark",
                                          "file",          "type",     "size",    "pixels",
                                          "manifestEntry", "assets"};
  std::vector<std::string> wrong;
  std::vector<std::string> right;
  for (const Json::json_pointer& path : pathsOf(report)) {
    const Json& value = report.at(path);
    const Json& holder = report.at(path.parent_pointer());
    if (holder.is_object()) {
      Json changed = report;
      changed.at(path.parent_pointer()).erase(path.back());
      wrong.push_back(changed.dump());
      changed = report;
      changed.at(path.parent_pointer())["later"] = 1;
      right.push_back(changed.dump());
    }
    for (const Json& other :
         {Json(), Json(true), Json(0.5), Json("x"), Json::array({1}), Json::object()}) {
      const bool mayBeNull = nullable.contains(path.back());
      if (other.type() == value.type() && !other.is_number_float()) continue;
      if (mayBeNull && (other.is_null() || other.is_string())) continue;
      Json changed = report;
      changed.at(path) = other;
      wrong.push_back(changed.dump());
    }
  }
  EXPECT_GT(wrong.size(), 200u);
  for (const std::string& verdict : verdictsOn(right, checkReport, checkReport.id))
    EXPECT_EQ(verdict, "valid");
  const std::vector<std::string> verdicts = verdictsOn(wrong, checkReport, checkReport.id);
  for (std::size_t i = 0; i < wrong.size(); ++i) EXPECT_EQ(verdicts[i], "invalid") << wrong[i];
}

TEST(ReportSchema, TiesTheStatusToWhatIsReported) {
  if (const std::string why = test::whyNoValidator(); !why.empty()) GTEST_SKIP() << why;
  const Scratch scratch;
  const std::string inspected =
      scratch.korrin("check --format json $D/festival-main-stage.json").out;
  const std::string refused = scratch.korrin("check --format json missing.json").out;
  EXPECT_EQ(verdictsOn({replaced(inspected, "\"clean\"", "\"notAPlot\""),
                        replaced(inspected, "\"clean\"", "\"tidy\""),
                        replaced(refused, "\"unreadable\"", "\"clean\""),
                        replaced(inspected, "\"information\",", "\"grave\","),
                        replaced(inspected, "\"reportVersion\": 1", "\"reportVersion\": 2"),
                        replaced(inspected, "\"exitCode\": 0", "\"exitCode\": 64"),
                        replaced(inspected, "\"error\": 0", "\"error\": -1")},
                       checkReport, checkReport.id),
            std::vector<std::string>(7, "invalid"));
}

}  // namespace
}  // namespace korrin::host
