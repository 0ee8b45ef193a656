#include "findings/sarif.h"

#include <algorithm>
#include <cstdio>

#include <nlohmann/json.hpp>

#include "findings/finding_rows.h"
#include "findings/rule_texts.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

using Json = nlohmann::ordered_json;

std::string levelOf(PreflightSeverity severity) {
  return severity == PreflightSeverity::information ? "note" : std::string(rawValue(severity));
}

/// A path as a URI, which names its scheme where the path starts at the root: every byte but
/// letters, digits and the marks that a path may hold as "%20".
std::string uriOf(const std::string& path) {
  std::string uri = path.starts_with('/') ? "file://" : "";
  for (const char c : path) {
    const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                         (c >= '0' && c <= '9') ||
                         std::string_view("-._~/").find(c) != std::string_view::npos;
    if (isPlain) {
      uri += c;
    } else {
      char buffer[4];
      std::snprintf(buffer, sizeof buffer, "%%%02X",
                    static_cast<unsigned>(static_cast<unsigned char>(c)));
      uri += buffer;
    }
  }
  return uri;
}

Json messageOf(const std::string& text) { return {{"text", text}}; }

Json locationsOf(const FileFindings& file) {
  return Json::array({{{"physicalLocation", {{"artifactLocation", {{"uri", uriOf(file.name)}}}}}}});
}

Json rulesOf(const std::vector<RuleText>& rules) {
  Json array = Json::array();
  for (const RuleText& rule : rules) {
    if (rule.group == "validation") continue;
    const auto severity = *fromRawValue<PreflightSeverity>(rule.severity);
    array.push_back({{"id", rule.name},
                     {"shortDescription", messageOf(std::string(rule.title))},
                     {"fullDescription", messageOf(std::string(rule.explanation))},
                     {"help", messageOf(std::string(rule.remedy))},
                     {"defaultConfiguration", {{"level", levelOf(severity)}}},
                     {"properties", {{"page", pageOf(rule.name)}}}});
  }
  return array;
}

Json resultOf(const FileFindings& file, const FindingRow& row, const std::vector<RuleText>& rules) {
  const auto rule = std::ranges::find(rules, row.rule, &RuleText::name);
  std::string text = row.title.str() + ": ";
  if (!row.concern.empty()) text += row.concern + ". ";
  text += row.detail.str();
  return {{"ruleId", row.rule},
          {"ruleIndex", rule - rules.begin()},
          {"level", levelOf(row.severity)},
          {"message", messageOf(printable(text))},
          {"locations", locationsOf(file)},
          {"partialFingerprints", {{"korrinFinding/v1", row.id.str()}}}};
}

Json suppressionOf(const Waiver& waiver) {
  Json suppression = {
      {"kind", "external"}, {"status", "accepted"}, {"justification", printable(waiver.reason)}};
  if (!waiver.author.isBlank()) suppression["properties"] = {{"author", printable(waiver.author)}};
  return suppression;
}

}  // namespace

std::string sarifLog(std::span<const FileFindings> files, ExitCode exitCode) {
  const std::vector<RuleText> rules = allRuleTexts();
  Json results = Json::array();
  Json notifications = Json::array();
  bool isSuccessful = true;
  for (const FileFindings& file : files) {
    if (file.refusal) {
      isSuccessful = false;
      notifications.push_back({{"level", "error"},
                               {"message", messageOf(printable(file.refusal->what()))},
                               {"locations", locationsOf(file)}});
      continue;
    }
    for (const FindingRow& row : openRows(file)) results.push_back(resultOf(file, row, rules));
    for (const AcceptedFinding& accepted : file.waived) {
      Json result = resultOf(file, accepted.row, rules);
      result["suppressions"] = Json::array({suppressionOf(accepted.waiver)});
      results.push_back(std::move(result));
    }
    for (const Waiver& waiver : file.stale)
      notifications.push_back(
          {{"level", "warning"},
           {"message", messageOf("the waiver for " + printable(waiver.findingID) +
                                 " is stale: its finding is no more")},
           {"locations", locationsOf(file)}});
  }
  const Json driver = {{"name", "korrin"}, {"rules", rulesOf(rules)}};
  const Json invocation = {{"executionSuccessful", isSuccessful},
                           {"exitCode", static_cast<int>(exitCode)},
                           {"toolExecutionNotifications", std::move(notifications)}};
  const Json run = {{"tool", {{"driver", driver}}},
                    {"invocations", Json::array({invocation})},
                    {"results", std::move(results)}};
  const Json log = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                    {"version", "2.1.0"},
                    {"runs", Json::array({run})}};
  return log.dump(2, ' ', false, Json::error_handler_t::replace);
}

}  // namespace korrin::host
