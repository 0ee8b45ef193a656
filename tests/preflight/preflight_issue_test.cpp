#include "korrin/preflight/preflight_issue.h"

#include <functional>
#include <map>
#include <string_view>

#include <gtest/gtest.h>

#include "korrin/coding/json.h"
#include "korrin/preflight/preflight_findings.h"

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

PreflightIssue issueAbout(std::optional<UUID> item, std::optional<UUID> record) {
  return {PreflightRule::incompleteInput,
          PreflightSeverity::warning,
          "Title",
          "Some advice, here.",
          item,
          record};
}

TEST(Findings, OfDifferentRulesHaveDifferentTitles) {
  using namespace findings;
  std::map<std::string_view, PreflightRule> rules;
  for (const Finding* finding :
       {&repeatedChannel, &repeatedMix, &inputWithoutSource, &inputWithoutSymbol,
        &inputWithLostSymbol, &mixWithoutOutput, &mixWithoutSymbol, &mixWithLostSymbol,
        &equipmentWithoutQuantity, &equipmentWithLostSymbol, &symbolWithoutLabel, &symbolOffStage,
        &symbolWithoutAsset})
    EXPECT_EQ(rules.try_emplace(finding->title, finding->rule).first->second, finding->rule);
  EXPECT_EQ(rules.size(), 13u);
}

TEST(PreflightIssue, IsIdentifiedByItsRuleAndItsRecord) {
  EXPECT_EQ(issueAbout(identifier(1), identifier(2)).id, "incompleteInput:" + identifier(2).text());
}

TEST(PreflightIssue, IsIdentifiedByItsItemWhereThereIsNoRecord) {
  EXPECT_EQ(issueAbout(identifier(1), std::nullopt).id, "incompleteInput:" + identifier(1).text());
}

TEST(PreflightIssue, IsIdentifiedByItsDetailWhereThereIsNeither) {
  const PreflightIssue issue(PreflightRule::missingAsset, PreflightSeverity::error, "Title",
                             "  Some advice, here. ");
  EXPECT_EQ(issue.id, "missingAsset:  Some advice, here. ");
  EXPECT_EQ(issue.relatedID, std::nullopt);
  EXPECT_EQ(issue.recordID, std::nullopt);
}

TEST(PreflightIssue, KeepsItsIdentifierWhenItsOtherMembersChange) {
  PreflightIssue issue = issueAbout(std::nullopt, std::nullopt);
  const Text before = issue.id;
  issue.detail = "Other advice.";
  issue.recordID = identifier(3);
  issue.rule = PreflightRule::missingAsset;
  EXPECT_EQ(issue.id, before);
  issue.id = "mine";
  EXPECT_EQ(issue.id, "mine");
}

TEST(PreflightIssue, ComparesAndHashesAllSevenMembers) {
  const PreflightIssue issue = issueAbout(identifier(1), identifier(2));
  EXPECT_EQ(issue, PreflightIssue(issue));
  EXPECT_EQ(std::hash<PreflightIssue>{}(issue), std::hash<PreflightIssue>{}(PreflightIssue(issue)));
  const std::vector<std::function<void(PreflightIssue&)>> changes = {
      [](auto& i) { i.id = "other"; },
      [](auto& i) { i.rule = PreflightRule::missingAsset; },
      [](auto& i) { i.severity = PreflightSeverity::error; },
      [](auto& i) { i.title = "other"; },
      [](auto& i) { i.detail = "other"; },
      [](auto& i) { i.relatedID.reset(); },
      [](auto& i) { i.recordID = identifier(9); },
  };
  for (const auto& change : changes) {
    PreflightIssue changed = issue;
    change(changed);
    EXPECT_NE(changed, issue);
    EXPECT_NE(std::hash<PreflightIssue>{}(changed), std::hash<PreflightIssue>{}(issue));
  }
}

TEST(PreflightIssue, ThatDiffersOnlyInTheRelatedItemIsAnotherWithTheSameIdentifier) {
  const PreflightIssue one = issueAbout(identifier(1), identifier(2));
  const PreflightIssue other = issueAbout(std::nullopt, identifier(2));
  EXPECT_NE(one, other);
  EXPECT_EQ(one.id, other.id);
}

TEST(PreflightSeverity, IsListedFromTheMostSeriousAndCodedByItsName) {
  EXPECT_EQ(allCases<PreflightSeverity>(),
            (std::array{PreflightSeverity::error, PreflightSeverity::warning,
                        PreflightSeverity::information}));
  EXPECT_EQ(encodeJSON(PreflightSeverity::information), "\"information\"");
  EXPECT_EQ(decodeJSON<PreflightSeverity>("\"information\""), PreflightSeverity::information);
  EXPECT_THROW(decodeJSON<PreflightSeverity>("\"info\""), DecodingError);
}

template <class T>
concept OffersAllCases = requires {
  allCases<T>();
};

TEST(PreflightRule, HasNoListButIsCodedByItsName) {
  static_assert(OffersAllCases<PreflightSeverity>);
  static_assert(!OffersAllCases<PreflightRule>);
  EXPECT_EQ(rawValue(PreflightRule::duplicateInputChannel), "duplicateInputChannel");
  EXPECT_EQ(rawValue(PreflightRule::missingAsset), "missingAsset");
  EXPECT_EQ(encodeJSON(PreflightRule::itemOutsideStage), "\"itemOutsideStage\"");
  EXPECT_EQ(decodeJSON<PreflightRule>("\"unplacedMonitor\""), PreflightRule::unplacedMonitor);
}

}  // namespace
}  // namespace korrin::test
