#include "korrin/preflight/preflight_issue.h"

#include <gtest/gtest.h>

#include "korrin/coding/json.h"

#include "tests/support/enumeration_laws.h"
#include "tests/support/full_project.h"
#include "tests/support/record_laws.h"

namespace korrin {
namespace {

TEST(PreflightSeverity, KeepsTheEnumerationLaws) {
  using enum PreflightSeverity;
  test::expectEnumerationLaws<PreflightSeverity>(
      {{error, "error"}, {warning, "warning"}, {information, "information"}});
}

TEST(PreflightRule, HasItsRawValuesButNoPublicList) {
  using enum PreflightRule;
  test::expectRawValues<PreflightRule>({{duplicateInputChannel, "duplicateInputChannel"},
                                        {duplicateMonitorMix, "duplicateMonitorMix"},
                                        {incompleteInput, "incompleteInput"},
                                        {unplacedInput, "unplacedInput"},
                                        {unplacedMonitor, "unplacedMonitor"},
                                        {monitorWithoutOutput, "monitorWithoutOutput"},
                                        {missingItemLabel, "missingItemLabel"},
                                        {invalidPlotReference, "invalidPlotReference"},
                                        {itemOutsideStage, "itemOutsideStage"},
                                        {invalidEquipmentQuantity, "invalidEquipmentQuantity"},
                                        {missingAsset, "missingAsset"}});
  EXPECT_FALSE(test::offersAllCases<PreflightRule>);
  EXPECT_TRUE(test::offersAllCases<PreflightSeverity>);
}

TEST(PreflightRule, IsWrittenAndReadByItself) {
  const List<PreflightRule> rules = {PreflightRule::missingAsset, PreflightRule::unplacedInput};
  EXPECT_EQ(encodeJSON(rules), R"(["missingAsset","unplacedInput"])");
  EXPECT_TRUE(decodeJSON<List<PreflightRule>>(encodeJSON(rules)) == rules);
}

TEST(PreflightIssue, DiffersByEachOfItsFields) {
  test::expectValueSemantics(
      PreflightIssue(PreflightRule::incompleteInput, PreflightSeverity::warning, "Incomplete input",
                     "Give it a source.", test::numberedID(1), test::numberedID(2)));
}

struct Identity {
  std::string name;
  std::optional<UUID> relatedID;
  std::optional<UUID> recordID;
  std::string id;
};
class PreflightIssueIdentity : public testing::TestWithParam<Identity> {};

TEST_P(PreflightIssueIdentity, NamesTheRuleAndWhatItConcerns) {
  PreflightIssue issue(PreflightRule::missingAsset, PreflightSeverity::error, "Title", "Detail",
                       GetParam().relatedID, GetParam().recordID);
  EXPECT_EQ(issue.id.str(), GetParam().id);
  EXPECT_EQ(issue.relatedID, GetParam().relatedID);
  EXPECT_EQ(issue.recordID, GetParam().recordID);
  issue.detail = "Another";
  issue.recordID.reset();
  EXPECT_EQ(issue.id.str(), GetParam().id);
}

INSTANTIATE_TEST_SUITE_P(
    , PreflightIssueIdentity,
    testing::Values(Identity{"NeitherItemNorRecord", std::nullopt, std::nullopt,
                             "missingAsset:Detail"},
                    Identity{"Item", test::numberedID(1), std::nullopt,
                             "missingAsset:5A10FF00-0000-4000-8000-000000000001"},
                    Identity{"Record", std::nullopt, test::numberedID(2),
                             "missingAsset:5A10FF00-0000-4000-8000-000000000002"},
                    Identity{"RecordBeforeItem", test::numberedID(1), test::numberedID(2),
                             "missingAsset:5A10FF00-0000-4000-8000-000000000002"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace korrin
