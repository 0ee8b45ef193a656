#include "korrin/review/rules.h"

#include <gtest/gtest.h>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/audit.h"

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using enum PreflightRule;
using enum PreflightSeverity;

TEST(PreflightRules, AreDescribedAllInOrder) {
  ASSERT_EQ(preflightRules().size(), CaseTable<PreflightRule>::cases.size());
  for (std::size_t i = 0; i < preflightRules().size(); ++i) {
    const RuleDescription& description = preflightRules()[i];
    EXPECT_EQ(description.rule, CaseTable<PreflightRule>::cases[i].value);
    EXPECT_FALSE(description.title.empty());
    EXPECT_TRUE(description.explanation.ends_with('.')) << description.explanation;
    EXPECT_TRUE(description.remedy.ends_with('.')) << description.remedy;
  }
}

TEST(ValidationRules, AreDescribedAllInOrder) {
  ASSERT_EQ(validationRules().size(), 4u);
  for (std::size_t i = 0; i < validationRules().size(); ++i)
    EXPECT_EQ(static_cast<std::size_t>(validationRules()[i].code), i);
}

TEST(AuditRules, AreDescribedAllInOrder) {
  ASSERT_EQ(auditRules().size(), allCases<AuditRule>().size());
  for (std::size_t i = 0; i < auditRules().size(); ++i) {
    EXPECT_EQ(auditRules()[i].rule, allCases<AuditRule>()[i]);
    EXPECT_TRUE(auditRules()[i].remedy.ends_with('.')) << auditRules()[i].remedy;
  }
}

// A plot with every finding of preflight, whose rows all share the identifiers of its items.
KorrinProject faultyProject() {
  KorrinProject project = sampleProject();
  const UUID one = identifier(1), two = identifier(2), gone = identifier(999);
  PlotItem outside = microphone(one, 1e5, 0);
  outside.label = " ";
  project.items = {outside, microphone(two)};
  project.inputs = {{.id = two,
                     .channel = 5,
                     .source = "Bass",
                     .microphoneOrDI = "",
                     .stand = "",
                     .phantomPower = false,
                     .notes = "",
                     .plotItemID = std::nullopt},
                    {.id = one,
                     .channel = 5,
                     .source = " ",
                     .microphoneOrDI = "",
                     .stand = "",
                     .phantomPower = false,
                     .notes = "",
                     .plotItemID = gone}};
  project.monitorMixes = {{.id = two,
                           .number = 1,
                           .name = "Keys",
                           .type = "",
                           .outputPatch = "Out 1",
                           .notes = "",
                           .plotItemID = std::nullopt},
                          {.id = one,
                           .number = 1,
                           .name = "",
                           .type = "",
                           .outputPatch = "",
                           .notes = "",
                           .plotItemID = gone}};
  project.equipmentRequirements = {{.id = one,
                                    .category = "Power",
                                    .item = "",
                                    .quantity = 0,
                                    .suppliedBy = "",
                                    .notes = "",
                                    .plotItemID = gone}};
  return project;
}

struct Expected {
  PreflightRule rule;
  const char* title;
  UUID id;
  IssueSubject subject;
};

TEST(SubjectOf, TellsListsThatShareIdentifiersApart) {
  using enum ProjectList;
  const UUID one = identifier(1), two = identifier(2);
  const std::vector<Expected> table = {
      {duplicateInputChannel, "Duplicate input channel 5", two, {inputs, 0, "channel"}},
      {duplicateInputChannel, "Duplicate input channel 5", one, {inputs, 1, "channel"}},
      {duplicateMonitorMix, "Duplicate monitor mix 1", one, {monitorMixes, 1, "number"}},
      {incompleteInput, "Input source is missing", one, {inputs, 1, "source"}},
      {unplacedInput, "Input is not placed", two, {inputs, 0, "plotItemID"}},
      {unplacedMonitor, "Monitor mix is not placed", two, {monitorMixes, 0, "plotItemID"}},
      {monitorWithoutOutput, "Monitor output is missing", one, {monitorMixes, 1, "outputPatch"}},
      {missingItemLabel, "Symbol label is empty", one, {items, 0, "label"}},
      {invalidPlotReference, "Input link is invalid", one, {inputs, 1, "plotItemID"}},
      {invalidPlotReference, "Monitor link is invalid", one, {monitorMixes, 1, "plotItemID"}},
      {invalidPlotReference,
       "Equipment link is invalid",
       one,
       {equipmentRequirements, 0, "plotItemID"}},
      {itemOutsideStage, "Symbol is outside the stage", one, {items, 0, "position"}},
      {invalidEquipmentQuantity,
       "Invalid equipment quantity",
       one,
       {equipmentRequirements, 0, "quantity"}},
      {missingAsset, "Symbol asset is missing", two, {items, 1, "assetID"}},
  };
  const KorrinProject project = faultyProject();
  const auto issues = PreflightEngine::inspect(project, {"another"});
  for (const Expected& expected : table) {
    SCOPED_TRACE(expected.title);
    const auto issue = std::ranges::find_if(issues, [&](const PreflightIssue& candidate) {
      return candidate.rule == expected.rule && candidate.title == expected.title &&
             (candidate.recordID ? candidate.recordID : candidate.relatedID) == expected.id;
    });
    ASSERT_NE(issue, issues.end());
    EXPECT_EQ(subjectOf(*issue, project), expected.subject);
  }
}

TEST(PreflightRules, HaveTheSeverityThatTheEngineGives) {
  const auto issues = PreflightEngine::inspect(faultyProject(), {"another"});
  for (const PreflightIssue& issue : issues)
    EXPECT_EQ(preflightRules()[static_cast<std::size_t>(issue.rule)].severity, issue.severity)
        << rawValue(issue.rule);
}

TEST(SubjectOf, AnswersAStaleFindingWhileItsRecordStands) {
  KorrinProject project = faultyProject();
  const auto issues = PreflightEngine::inspect(project, {});
  project.inputs.edit(0).channel = 7;
  const PreflightIssue stale(duplicateInputChannel, error, "Duplicate input channel 5", "", {},
                             identifier(2));
  EXPECT_EQ(subjectOf(stale, project), (IssueSubject{ProjectList::inputs, 0, "channel"}));
  project.inputs.erase(0);
  EXPECT_EQ(subjectOf(stale, project), std::nullopt);
}

TEST(SubjectOf, MeansTheRecordThatTheFindingFitsWhereAListRepeatsAnIdentifier) {
  KorrinProject project = faultyProject();
  project.inputs.edit(0).id = identifier(1);
  const PreflightIssue blank(incompleteInput, warning, "Input source is missing", "", {},
                             identifier(1));
  EXPECT_EQ(subjectOf(blank, project), (IssueSubject{ProjectList::inputs, 1, "source"}));
}

TEST(SubjectOf, LooksThroughTheListsUnderATranslatedTitle) {
  const PreflightIssue issue(invalidPlotReference, error, "Lien perdu", "", {}, identifier(1));
  KorrinProject project = faultyProject();
  EXPECT_EQ(subjectOf(issue, project), (IssueSubject{ProjectList::inputs, 1, "plotItemID"}));
  project.inputs = {};
  EXPECT_EQ(subjectOf(issue, project), (IssueSubject{ProjectList::monitorMixes, 1, "plotItemID"}));
}

TEST(SubjectOf, HasNoAnswerWithoutAnIdentifier) {
  EXPECT_EQ(subjectOf({missingItemLabel, information, "", ""}, faultyProject()), std::nullopt);
}

}  // namespace
}  // namespace korrin::test
