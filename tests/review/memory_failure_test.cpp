// Fails every allocation of the audit and of making and judging fixes in turn.

#include <new>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/safe_fixes.h"
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

TEST(OutOfMemory, LeavesNothingBehindInSafeFixes) {
  const KorrinProject project = faultyProject();
  expectNothingLostOn(project, [&] { safeFixes(project); });
}

// A plot in which each of `count` items, inputs, mixes and groups has faults, and all share their
// identifiers with others.
KorrinProject brokenPlot(std::size_t count) {
  KorrinProject project = sampleProject();
  project.groups.clear();
  project.inputs.clear();
  project.monitorMixes.clear();
  const PlotItem sample = project.items[0];
  const std::size_t first = project.items.size();
  for (std::size_t i = 0; i < count; ++i) {
    PlotItem item = sample;
    item.id = identifier(10'000 + i);
    item.label = "Vocal";
    item.position.x = 1e6;
    item.style.tintHex = "red";
    item.layerID = identifier(1);
    item.groupID = identifier(2);
    project.items.push_back(item);
    project.groups.push_back(
        {.id = identifier(20'000 + i), .name = "Group", .itemIDs = {item.id, identifier(3)}});
    InputChannel input{};
    input.id = item.id;
    input.channel = 7;
    input.source = "Vocal";
    project.inputs.push_back(input);
    MonitorMix mix{};
    mix.id = item.id;
    mix.number = 0;
    mix.plotItemID = identifier(4);
    mix.outputPatch = "Out";
    project.monitorMixes.push_back(mix);
  }
  EXPECT_EQ(project.items.size(), first + count);
  return project;
}

std::size_t countOfAll(const KorrinProject& project) {
  FixFinder finder(project);
  std::size_t count = 0;
  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {}))
    count += finder(issue).size();
  for (const AuditFinding& finding : audit(project)) count += finder(finding).size();
  return count;
}

template <class Action>
std::size_t allocationsOf(Action action) {
  const std::size_t before = allocationCount();
  action();
  return allocationCount() - before;
}

// Counted, since time tells nothing on a busy machine: whoever inspected the plot anew for each
// finding would allocate for each.
TEST(ManyFixes, TakeAllocationsInProportionToTheFindings) {
  constexpr std::size_t count = 30;
  const KorrinProject plot = brokenPlot(count);
  const KorrinProject larger = brokenPlot(4 * count);
  EXPECT_GT(countOfAll(plot), 6 * count);
  const std::size_t found = allocationsOf([&] { countOfAll(plot); });
  const std::size_t foundInLarger = allocationsOf([&] { countOfAll(larger); });
  EXPECT_LT(foundInLarger, 5 * found);

  EXPECT_GT(safeFixes(plot)->titles.size(), 5 * count);
  const std::size_t mended = allocationsOf([&] { safeFixes(plot); });
  const std::size_t mendedInLarger = allocationsOf([&] { safeFixes(larger); });
  EXPECT_LT(mendedInLarger, 5 * mended);
}

// A plot whose only fault is that each item shares its identifier with an input.
KorrinProject plotOfSharedIdentifiers(std::size_t count) {
  KorrinProject project = sampleProject();
  const PlotItem sample = project.items[0];
  for (std::size_t i = 0; i < count; ++i) {
    PlotItem item = sample;
    item.id = identifier(10'000 + i);
    item.groupID = std::nullopt;
    project.items.push_back(item);
    InputChannel input{};
    input.id = item.id;
    input.channel = static_cast<std::int64_t>(1'000 + i);
    input.source = "Vocal";
    input.plotItemID = item.id;
    project.inputs.push_back(input);
  }
  return project;
}

TEST(ManySafeFixes, OfTheWholePlotTakeAllocationsInProportionToTheFindings) {
  constexpr std::size_t count = 200;
  const KorrinProject plot = plotOfSharedIdentifiers(count);
  const KorrinProject larger = plotOfSharedIdentifiers(4 * count);
  EXPECT_GE(safeFixes(plot)->titles.size(), count);
  const std::size_t mended = allocationsOf([&] { safeFixes(plot); });
  const std::size_t mendedInLarger = allocationsOf([&] { safeFixes(larger); });
  EXPECT_LT(mendedInLarger, 5 * mended);
}

}  // namespace
}  // namespace korrin::test
