// What every fix promises, on projects by chance.

#include <cstdlib>
#include <map>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/audit.h"
#include "korrin/review/rules.h"
#include "korrin/review/safe_fixes.h"

#include "tests/support/effort.h"
#include "tests/support/hostile_projects.h"
#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using Counts = std::map<std::pair<std::string, std::string>, int>;

template <class Finding>
void addSerious(Counts& counts, const std::vector<Finding>& findings) {
  for (const Finding& finding : findings)
    if (finding.severity != PreflightSeverity::information)
      ++counts[{finding.id.str(), finding.title.str()}];
}

std::vector<PreflightIssue> inspected(const KorrinProject& project) {
  return PreflightEngine::inspect(project, {});
}

Counts seriousIn(const KorrinProject& project, bool withAudit) {
  Counts counts;
  addSerious(counts, inspected(project));
  if (withAudit) addSerious(counts, audit(project));
  return counts;
}

std::string newIn(const Counts& after, const Counts& before) {
  for (const auto& [name, count] : after) {
    const auto found = before.find(name);
    if (found == before.end() || found->second < count) return name.first + " " + name.second;
  }
  return {};
}

bool isOneCleanLine(const Text& title) {
  for (const char c : title.str())
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) return false;
  return !title.isBlank() && title.str().find("\u2028") == std::string::npos &&
         title.str().find("\u202E") == std::string::npos &&
         title.str().find("\u0085") == std::string::npos;
}

// As a document, in which NaN equals itself.
std::string written(const KorrinProject& project) {
  return encodeJSON(project, {.nonFinite = NonFinite::strings});
}

// The fields in which two records of a list differ, as "inputs.channel". A list with a record less
// is "inputs-".
template <class Record>
void addChanges(const List<Record>& before, const List<Record>& after, std::string_view key,
                std::vector<std::string>& changes) {
  if (before.size() != after.size())
    return changes.push_back(std::string(key) + (after.size() < before.size() ? "-" : "+"));
  for (std::size_t i = 0; i < before.size(); ++i)
    forEachField<Record>([&](const auto& field) {
      if (before[i].*field.member == after[i].*field.member) return;
      Record mixed = before[i];
      mixed.*field.member = after[i].*field.member;
      const EncodingOptions options = {.nonFinite = NonFinite::strings};
      if (encodeJSON(mixed, options) != encodeJSON(before[i], options))
        changes.push_back(std::string(key) + "." + std::string(field.key));
    });
}
template <class Value>
void addChanges(const Value& before, const Value& after, std::string_view key,
                std::vector<std::string>& changes) {
  if (before != after) changes.emplace_back(key);
}

std::vector<std::string> changesBetween(const KorrinProject& before, const KorrinProject& after) {
  std::vector<std::string> changes;
  forEachField<KorrinProject>([&](const auto& field) {
    // The stage, whose numbers need not be finite, is no part of any fix.
    if constexpr (!std::is_same_v<typename std::remove_cvref_t<decltype(field)>::ValueType,
                                  StageDefinition>)
      addChanges(before.*field.member, after.*field.member, field.key, changes);
  });
  return changes;
}

const std::map<std::string, std::vector<std::string>> mayChange = {
    {"duplicateInputChannel", {"inputs.channel"}},
    {"duplicateMonitorMix", {"monitorMixes.number"}},
    {"incompleteInput", {"inputs.source"}},
    {"unplacedInput", {"inputs.plotItemID"}},
    {"unplacedMonitor", {"monitorMixes.plotItemID"}},
    {"missingItemLabel", {"items.label", "items.style"}},
    {"invalidPlotReference",
     {"inputs.plotItemID", "monitorMixes.plotItemID", "equipmentRequirements.plotItemID"}},
    {"itemOutsideStage", {"items.position"}},
    {"invalidEquipmentQuantity", {"equipmentRequirements.quantity", "equipmentRequirements-"}},
    {"missingLayer", {"items.layerID"}},
    {"hiddenItems", {"layers.isVisible"}},
    {"missingGroup", {"items.groupID"}},
    {"oneSidedMembership", {"groups.itemIDs"}},
    {"unknownMember", {"groups.itemIDs"}},
    {"repeatedMember", {"groups.itemIDs"}},
    {"emptyGroup", {"groups-"}},
    {"unencodableNumber", {"items.riserHeightMillimeters"}},
    {"rotatedOutsideStage", {"items.position"}},
    {"unreadableTint", {"items.style"}},
    {"numberBelowOne", {"inputs.channel", "monitorMixes.number"}},
    {"unusedAsset", {"assetManifest-"}},
    {"repeatedAsset", {"assetManifest-"}},
};

std::vector<Text> titlesOf(const std::vector<Fix>& fixes) {
  std::vector<Text> titles;
  for (const Fix& fix : fixes) titles.push_back(fix.title);
  return titles;
}

template <class Finding>
void expectLaws(const Finding& finding, const KorrinProject& project, FixFinder& finder,
                const Counts& before, std::map<std::string, int>& offered) {
  TestEnvironment environment;
  const std::string rule(rawValue(finding.rule));
  const std::vector<Fix> fixes = fixesFor(finding, project, environment);
  EXPECT_EQ(titlesOf(finder(finding)), titlesOf(fixes)) << finding.id.str();
  for (const Fix& fix : fixes) {
    ++offered[rule];
    SCOPED_TRACE(finding.id.str() + " " + fix.title.str());
    EXPECT_TRUE(isOneCleanLine(fix.title));
    KorrinProject mended = project;
    const CommandResult result = fix.command.apply(mended, environment);

    if constexpr (std::is_same_v<Finding, PreflightIssue>)
      EXPECT_FALSE(std::ranges::count(inspected(mended), finding));
    else
      EXPECT_FALSE(std::ranges::count(audit(mended), finding));
    const bool withAudit = std::is_same_v<Finding, AuditFinding>;
    EXPECT_EQ(newIn(seriousIn(mended, withAudit), before), "");

    KorrinProject timeless = withModifiedAt(mended, project.metadata.modifiedAt);
    const std::vector<std::string> changes = changesBetween(project, timeless);
    EXPECT_FALSE(changes.empty());
    if (const auto allowed = mayChange.find(rule); allowed != mayChange.end()) {
      EXPECT_EQ(changes.size(), 1u);
      for (const std::string& change : changes)
        EXPECT_TRUE(std::ranges::count(allowed->second, change)) << change;
    }

    result.inverse.apply(mended, environment);
    // NaN equals itself when written, and what is equal needs no writing.
    const KorrinProject undone = withModifiedAt(mended, project.metadata.modifiedAt);
    if (undone != project) {
      EXPECT_EQ(written(undone), written(project));
    }
  }
}

template <class Finding>
void addSafeOnes(std::vector<Finding>& safe, std::vector<Finding> findings,
                 const KorrinProject& project) {
  FixFinder finder(project);
  for (Finding& finding : findings)
    if (finder(finding).size() == 1) safe.push_back(std::move(finding));
}

bool hasRepeats(const KorrinProject& project) {
  bool repeats = false;
  forEachField<KorrinProject>([&](const auto& field) {
    if constexpr (requires { (project.*field.member)[0].id; }) {
      std::set<UUID> ids;
      for (const auto& record : project.*field.member) repeats |= !ids.insert(record.id).second;
    }
  });
  return repeats;
}

// Every finding that had one fix alone is gone or can't be mended without a choice any more, and
// nothing serious came, but for what moving a turned item inside its own box may show to the audit.
void expectSafeFixesToBeLawful(const KorrinProject& project, std::map<std::string, int>& offered) {
  TestEnvironment environment;
  const std::optional<SafeFixes> fixes = safeFixes(project, {}, environment);
  std::vector<PreflightIssue> issues;
  std::vector<AuditFinding> findings;
  addSafeOnes(issues, inspected(project), project);
  addSafeOnes(findings, audit(project), project);
  ASSERT_EQ(fixes.has_value(), !hasRepeats(project) && issues.size() + findings.size() > 0);
  if (!fixes) return;
  ++offered["all that are safe"];

  KorrinProject mended = project;
  const CommandResult result = fixes->command.apply(mended, environment);
  EXPECT_EQ(newIn(seriousIn(mended, false), seriousIn(project, false)), "");
  Counts after;
  addSerious(after, audit(mended));
  std::erase_if(after, [](const auto& entry) {
    return entry.first.first.starts_with("rotatedOutsideStage:");
  });
  Counts before;
  addSerious(before, audit(project));
  EXPECT_EQ(newIn(after, before), "");
  addSafeOnes(issues = {}, inspected(mended), mended);
  addSafeOnes(findings = {}, audit(mended), mended);
  std::set<Text> known;
  for (const PreflightIssue& issue : inspected(project)) known.insert(issue.id);
  for (const AuditFinding& finding : audit(project)) known.insert(finding.id);
  for (const PreflightIssue& issue : issues) EXPECT_FALSE(known.contains(issue.id)) << issue.id;
  for (const AuditFinding& finding : findings)
    EXPECT_FALSE(known.contains(finding.id)) << finding.id;

  result.inverse.apply(mended, environment);
  EXPECT_EQ(written(mended), written(project));
}

TEST(Fixes, KeepWhatTheyPromiseOnHostileProjects) {
  const char* const rounds = std::getenv("KORRIN_FIX_ROUNDS");
  const int count = rounds != nullptr ? std::atoi(rounds) : repetitions(1'000, 300);
  const char* const seedText = std::getenv("KORRIN_FIX_SEED");
  const auto seed = static_cast<unsigned>(seedText != nullptr ? std::atoi(seedText) : 16);
  std::map<std::string, int> offered;
  for (int round = 0; round < count; ++round) {
    SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
    std::mt19937 engine(seed + static_cast<unsigned>(round));
    HostileProjects projects(
        [&](int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); });
    const KorrinProject project = projects.project();
    const Counts ofPreflight = seriousIn(project, false);
    const Counts ofBoth = seriousIn(project, true);
    FixFinder finder(project);
    const IssueSubjects subjects(project);
    for (const PreflightIssue& issue : inspected(project)) {
      ASSERT_TRUE(subjectOf(issue, project)) << issue.id.str();
      EXPECT_EQ(subjects(issue), subjectOf(issue, project)) << issue.id.str();
      expectLaws(issue, project, finder, ofPreflight, offered);
    }
    for (const AuditFinding& finding : audit(project))
      expectLaws(finding, project, finder, ofBoth, offered);
    expectSafeFixesToBeLawful(project, offered);
    if (testing::Test::HasFailure()) FAIL() << written(project);
  }
  // Every rule that has a fix is met.
  for (const auto& [rule, changes] : mayChange) EXPECT_GT(offered[rule], count / 300) << rule;
  EXPECT_GT(offered["sharedIdentifier"], count / 300);
  EXPECT_GT(offered["all that are safe"], count / 3);
  if (rounds != nullptr)
    for (const auto& [rule, number] : offered) std::printf("%8d %s\n", number, rule.c_str());
}

}  // namespace
}  // namespace korrin::test
