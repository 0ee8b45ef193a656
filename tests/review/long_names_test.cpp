// What it takes to name a record in a sentence, however long its name is.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/difference.h"
#include "korrin/review/fixes.h"

#include "tests/support/heap_meter.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

constexpr std::size_t aFewKilobytes = 16 * 1024;

/// Two rows without a source that link to one symbol, whose label is not in normal form.
KorrinProject plotWithLongLabel() {
  KorrinProject project = test::sampleProject();
  std::string label;
  while (label.size() < 400'000) label += "e\u0301";
  project.items.edit(0).label = label;
  const InputChannel input = project.inputs[0];
  project.inputs = {input, input};
  for (std::size_t i = 0; i < project.inputs.size(); ++i) {
    InputChannel& row = project.inputs.edit(i);
    row.id = test::identifier(7'000 + i);
    row.source = "";
    row.channel = static_cast<std::int64_t>(i) + 1;
    row.plotItemID = project.items[0].id;
  }
  return project;
}

// Counted in bytes, since time tells nothing on a busy machine: whoever reads the name to its end
// for each row makes it a text again.
TEST(LongNames, AreNotReadToTheirEndForAFix) {
  const KorrinProject project = plotWithLongLabel();
  FixFinder finder(project);
  std::size_t fixes = 0;
  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {})) {
    if (issue.rule != PreflightRule::incompleteInput) continue;
    finder(issue);  // looks up what findings have in common
    EXPECT_LT(test::peakHeapOf([&] { fixes += finder(issue).size(); }), aFewKilobytes);
  }
  EXPECT_EQ(fixes, 2u);
}

TEST(LongNames, AreNotReadToTheirEndForASentence) {
  const KorrinProject after = plotWithLongLabel();
  KorrinProject before = after;
  for (std::size_t i = 0; i < before.inputs.size(); ++i)
    before.inputs.edit(i).plotItemID = std::nullopt;
  const DifferenceSentences sentenceFor(before, after);
  const std::vector<Difference> all = differences(before, after);
  ASSERT_EQ(all.size(), 2u);
  for (const Difference& difference : all) {
    std::string sentence;
    EXPECT_LT(test::peakHeapOf([&] { sentence = sentenceFor(difference); }), aFewKilobytes);
    EXPECT_TRUE(sentence.ends_with("\u0301…\"")) << sentence;
  }
}

TEST(LongNames, CountAsNoneWhereNothingIsSeenOfWhatIsShown) {
  KorrinProject before = plotWithLongLabel();
  before.items.edit(0).label = std::string(100'000, ' ') + "x";
  KorrinProject after = before;
  after.items.edit(0).isLocked = !before.items[0].isLocked;
  const std::vector<Difference> all = differences(before, after);
  ASSERT_EQ(all.size(), 1u);
  EXPECT_TRUE(sentenceFor(all[0], before, after).starts_with("Unlabelled "));
}

}  // namespace
}  // namespace korrin
