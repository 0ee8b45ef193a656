// A list of findings that keeps its place from one inspection to the next.

#include <algorithm>
#include <iostream>
#include <unordered_set>
#include <utility>
#include <vector>

#include <korrin/korrin.h>

using namespace korrin;

// [panel]
class PreflightPanel {
 public:
  void show(std::vector<PreflightIssue> issues) {
    issues_ = std::move(issues);
    if (std::ranges::find(issues_, chosen_, &PreflightIssue::id) == issues_.end()) chosen_ = {};
  }
  void choose(const PreflightIssue& issue) { chosen_ = issue.id; }

  const std::vector<PreflightIssue>& issues() const { return issues_; }
  bool hasChosen() const { return !chosen_.empty(); }

 private:
  std::vector<PreflightIssue> issues_;
  Text chosen_;  // an id, not a row: rows move when findings come and go
};
// [/panel]

void print(const std::vector<PreflightIssue>& issues) {
  // [print]
  for (const PreflightIssue& issue : issues)
    std::cout << "  " << rawValue(issue.severity) << ": " << issue.title.str() << ". "
              << issue.detail.str() << '\n';
  // [/print]
}

int main() {
  const KorrinProject plot = KorrinProject::template_(KorrinTemplateID::powerTrio);
  KorrinProject mistaken = plot;
  mistaken.inputs.edit(0).channel = 2;
  mistaken.inputs.edit(2).channel = 10;

  std::cout << "two channels given twice:\n";
  PreflightPanel panel;
  panel.show(PreflightEngine::inspect(mistaken, {}));
  print(panel.issues());

  panel.choose(panel.issues().back());
  mistaken.inputs.edit(2).channel = plot.inputs[2].channel;
  panel.show(PreflightEngine::inspect(mistaken, {}));
  std::cout << std::boolalpha << "channel 10 put right; the finding about channel 2 stays chosen: "
            << panel.hasChosen() << '\n';
  panel.show(PreflightEngine::inspect(plot, {}));
  std::cout << "channel 2 put right as well; something is chosen: " << panel.hasChosen() << '\n';

  // [assets]
  const std::unordered_set<Text> drawable = {"krn.instrument.drums.v1", "krn.audio.wedge.v1"};
  std::cout << "with two symbols to draw with: " << PreflightEngine::inspect(plot, drawable).size()
            << " finding(s)\n"
            << "with an empty set, which asks nothing: "
            << PreflightEngine::inspect(plot, {}).size() << '\n';
  // [/assets]
}
