#include "findings_json.h"

#include <nlohmann/json.hpp>

#include "asset_json.h"

namespace korrin::host {
namespace {

using Json = nlohmann::ordered_json;

Json identifier(const std::optional<UUID>& id) { return id ? Json(id->text()) : Json(nullptr); }

Json report(const PreflightIssue& issue) {
  return {
      {"id", issue.id.str()},
      {"rule", rawValue(issue.rule)},
      {"severity", rawValue(issue.severity)},
      {"title", issue.title.str()},
      {"detail", issue.detail.str()},
      {"relatedID", identifier(issue.relatedID)},
      {"recordID", identifier(issue.recordID)},
  };
}

std::string_view status(const FileFindings& file) {
  if (file.refusal) return rawValue(file.refusal->reason());
  return file.exitCode() == ExitCode::clean ? "clean" : "findings";
}

Json refusal(const Refusal& refused) {
  Json result = {{"message", Text(refused.what()).str()}};
  result["keyPath"] = refused.keyPath().empty() ? Json(nullptr) : Json(refused.keyPath());
  return result;
}

Json report(const FileFindings& file) {
  // A file's name is bytes, and JSON holds well-formed text only.
  Json result = {{"file", Text(file.name).str()}, {"status", status(file)}};
  if (file.refusal) {
    result["refusal"] = refusal(*file.refusal);
    return result;
  }
  const auto [errors, warnings, information] = file.counts();
  result["counts"] = {{"error", errors}, {"warning", warnings}, {"information", information}};
  result["notRun"] = Json::array();
  if (!file.missingAssetNotRunReason.empty())
    result["notRun"].push_back({{"rule", rawValue(PreflightRule::missingAsset)},
                                {"reason", file.missingAssetNotRunReason}});
  result["findings"] = Json::array();
  for (const PreflightIssue& issue : file.issues) result["findings"].push_back(report(issue));
  if (file.assets) result["assets"] = assetSection(*file.assets);
  return result;
}

}  // namespace

std::string findingsReport(std::span<const FileFindings> files, ExitCode exitCode) {
  Json result = {
      {"reportVersion", reportVersion},
      {"exitCode", static_cast<int>(exitCode)},
      {"files", Json::array()},
  };
  for (const FileFindings& file : files) result["files"].push_back(report(file));
  return result.dump(2);
}

}  // namespace korrin::host
