#include "korrin/review/waivers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/record_laws.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

PreflightIssue issue(const char* detail) {
  return {PreflightRule::incompleteInput, PreflightSeverity::warning, "Input source is missing",
          detail};
}

Waiver waiver(const char* findingID, const char* reason = "agreed") {
  return {.findingID = findingID, .reason = reason, .author = "Kim", .date = instant(0)};
}

WaiverList listOf(List<Waiver> waivers) {
  return {.schemaVersion = WaiverList::currentSchemaVersion, .waivers = std::move(waivers)};
}

TEST(Review, PutsEverythingInExactlyOnePlaceAndKeepsTheOrder) {
  const PreflightIssue a = issue("a"), b = issue("b"), c = issue("c"), d = issue("d");
  const Waiver forC = waiver("incompleteInput:c"), forA = waiver("incompleteInput:a"),
               gone = waiver("incompleteInput:z"), earlier = waiver("unplacedInput:a");
  const ReviewedIssues reviewed = review({a, b, c, d}, listOf({gone, forC, forA, earlier}));
  EXPECT_THAT(reviewed.open, testing::ElementsAre(b, d));
  EXPECT_THAT(reviewed.waived, testing::ElementsAre(WaivedIssue{a, forA}, WaivedIssue{c, forC}));
  EXPECT_THAT(reviewed.stale, testing::ElementsAre(gone, earlier));
}

TEST(Review, TakesTheFirstOfTwoWaiversForEveryFindingOfItsID) {
  const Waiver first = waiver("incompleteInput:a", "first");
  const Waiver second = waiver("incompleteInput:a", "second");
  const ReviewedIssues reviewed = review({issue("a"), issue("a")}, listOf({first, second}));
  EXPECT_TRUE(reviewed.open.empty());
  EXPECT_THAT(reviewed.waived,
              testing::ElementsAre(WaivedIssue{issue("a"), first}, WaivedIssue{issue("a"), first}));
  EXPECT_THAT(reviewed.stale, testing::ElementsAre(second));
}

TEST(Review, ComparesIdentifiersAsTexts) {
  const ReviewedIssues reviewed =
      review({issue("caf\u00e9")}, listOf({waiver("incompleteInput:cafe\u0301")}));
  EXPECT_EQ(reviewed.waived.size(), 1u);
}

TEST(Review, OfNothingIsNothing) {
  EXPECT_EQ(review(std::vector<PreflightIssue>(), listOf({})), ReviewedIssues());
}

TEST(Review, SharesOneListBetweenPreflightAndAudit) {
  KorrinProject project = sampleProject();
  project.schemaVersion = 2;
  const WaiverList list = listOf(
      {waiver("newerFormat:schemaVersion"), waiver("newerFormat:x"), waiver("incompleteInput:a")});
  const ReviewedIssues ofPreflight = review({issue("a")}, list);
  const ReviewedFindings ofBoth = review(audit(project), listOf(ofPreflight.stale));
  EXPECT_EQ(ofBoth.waived.size(), 1u);
  EXPECT_THAT(ofBoth.stale, testing::ElementsAre(waiver("newerFormat:x")));
}

TEST(WaiverList, ComesBackFromItsFile) {
  const WaiverList list = listOf({waiver("incompleteInput:a", "\u202E\n"), waiver("b")});
  EXPECT_EQ(decodeJSON<WaiverList>(encodeJSON(list)), list);
  EXPECT_EQ(encodeJSON(listOf({})), R"({"schemaVersion":1,"waivers":[]})");
  EXPECT_THROW(decodeJSON<WaiverList>(R"({"schemaVersion":1})"), DecodingError);
  EXPECT_NE(std::hash<WaiverList>()(list), std::hash<WaiverList>()(listOf({})));
}

}  // namespace
}  // namespace korrin::test
