// From findings to a mended plot: subjects, fixes, the audit and waivers.

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

#include <korrin/korrin.h>
#include <korrin/review.h>

using namespace korrin;

void show(const PreflightIssue& issue, const KorrinProject& plot) {
  // [subject]
  std::cout << issue.title.str();
  if (const auto subject = subjectOf(issue, plot))
    std::cout << " at " << rawValue(subject->list) << "[" << subject->index << "]."
              << subject->field;
  std::cout << '\n';
  // [/subject]
}

/// Identifiers that count up. Findings of one kind come in the order of their identifiers, so this
/// program prints the same at every run.
Environment counting() {
  Environment environment = Environment::system();
  environment.makeUUID = [last = std::uint8_t{0}]() mutable {
    UUID::Bytes bytes{};
    bytes.back() = ++last;
    return UUID(bytes);
  };
  return environment;
}

int main() {
  KorrinProject plot = KorrinProject::template_(KorrinTemplateID::powerTrio, counting());
  plot.inputs.edit(0).channel = 2;
  plot.items.edit(0).position.x = -20'000;

  // [fixes]
  for (const PreflightIssue& issue : PreflightEngine::inspect(plot, {})) {
    show(issue, plot);
    for (const Fix& fix : fixesFor(issue, plot)) std::cout << "  " << fix.title.str() << '\n';
  }
  // [/fixes]

  // [apply]
  const PreflightIssue first = PreflightEngine::inspect(plot, {}).front();
  const CommandResult done = fixesFor(first, plot).front().command.apply(plot);
  std::cout << "findings left: " << PreflightEngine::inspect(plot, {}).size() << '\n';
  done.inverse.apply(plot);  // a fix is a command like any other: it undoes
  // [/apply]

  // [audit]
  plot.items.edit(1).style.tintHex = "reddish";
  for (const AuditFinding& finding : audit(plot)) {
    std::cout << rawValue(finding.severity) << ": " << finding.title.str() << '\n';
    for (const Fix& fix : fixesFor(finding, plot)) std::cout << "  " << fix.title.str() << '\n';
  }
  // [/audit]

  // [waivers]
  std::vector<PreflightIssue> issues = PreflightEngine::inspect(plot, {});
  const WaiverList accepted = {.schemaVersion = WaiverList::currentSchemaVersion,
                               .waivers = {{.findingID = issues.back().id,
                                            .reason = "stands in the wing",
                                            .author = "Kim",
                                            .date = Environment::system().now()},
                                           {.findingID = "incompleteInput:gone",
                                            .reason = "talkback",
                                            .author = "",
                                            .date = Environment::system().now()}}};
  const ReviewedIssues reviewed = review(std::move(issues), accepted);
  std::cout << "open: " << reviewed.open.size() << ", accepted: " << reviewed.waived.size()
            << ", stale: " << reviewed.stale.size() << '\n';
  // [/waivers]
}
