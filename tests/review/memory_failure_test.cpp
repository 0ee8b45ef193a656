// Fails every allocation of the audit and of making and judging fixes in turn.

#include <new>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/waivers.h"

#include "tests/support/allocations.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

// Runs `action` with ever more allocations until they suffice.
template <class Action>
void expectNothingLostOn(const KorrinProject& project, Action action) {
  const std::string written = encodeJSON(project);
  const std::ptrdiff_t live = liveBytes();
  for (std::size_t allocations = 0;; ++allocations) {
    bool sufficed = true;
    try {
      const AllocationLimit limit(allocations);
      action();
    } catch (const std::bad_alloc&) {
      sufficed = false;
    }
    ASSERT_EQ(liveBytes(), live) << "after " << allocations << " allocations";
    if (sufficed) {
      EXPECT_GT(allocations, 0u);
      break;
    }
  }
  EXPECT_EQ(encodeJSON(project), written);
}

KorrinProject faultyProject() {
  KorrinProject project = sampleProject();
  project.items.edit(0).position.x = 1e6;
  project.items.edit(1).layerID = identifier(999);
  project.groups.edit(0).itemIDs.push_back(identifier(999));
  project.inputs.edit(0).channel = 0;
  project.inputs.edit(1).channel = 0;
  project.inputs.edit(1).id = project.items[2].id;
  return project;
}

TEST(OutOfMemory, LeavesNothingBehindInTheAudit) {
  const KorrinProject project = faultyProject();
  expectNothingLostOn(project, [&] { audit(project); });
}

TEST(OutOfMemory, LeavesNothingBehindInFixes) {
  const KorrinProject project = faultyProject();
  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {}))
    if (issue.severity == PreflightSeverity::error)
      expectNothingLostOn(project, [&] { fixesFor(issue, project); });
  for (const AuditFinding& finding : audit(project))
    if (finding.severity != PreflightSeverity::information)
      expectNothingLostOn(project, [&] { fixesFor(finding, project); });
}

TEST(OutOfMemory, LeavesNothingBehindInAReview) {
  const KorrinProject project = faultyProject();
  const std::vector<AuditFinding> findings = audit(project);
  WaiverList list = {.schemaVersion = 1, .waivers = {}};
  for (const AuditFinding& finding : findings)
    list.waivers.push_back({.findingID = finding.id, .reason = "", .author = "", .date = {}});
  expectNothingLostOn(project, [&] { review(findings, list); });
}

}  // namespace
}  // namespace korrin::test
