#include "tests/scale/scale_laws.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>
#include <optional>
#include <tuple>
#include <unordered_set>
#include <utility>
#include <vector>

#include "korrin/coding/date_coding.h"
#include "korrin/coding/instant_text.h"
#include "korrin/coding/json_number.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/model/document_coding.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/difference.h"
#include "korrin/review/merge.h"

#include "tests/support/laws.h"
#include "tests/support/random_edits.h"
#include "tests/support/random_revisions.h"
#include "tests/support/review_laws.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

Chance chanceOf(Draw& draw) {
  return [&draw](int limit) { return draw.below(limit); };
}

AssertionResult readsBack(double value, Digest& digest) {
  char buffer[json::maximumNumberLength];
  const std::string_view text(buffer,
                              static_cast<std::size_t>(json::writeDouble(buffer, value) - buffer));
  digest.add(text);
  const auto read = json::nearestDouble(text);
  if (!read || std::bit_cast<std::uint64_t>(*read) != std::bit_cast<std::uint64_t>(value))
    return AssertionFailure() << text << " is another number";
  return AssertionSuccess();
}

ScaleLaw doubles(Draw& draw) {
  return [&draw](Digest& digest) {
    auto any = std::bit_cast<double>(draw.bits());
    while (!std::isfinite(any)) any = std::bit_cast<double>(draw.bits());
    if (const auto law = readsBack(any, digest); !law) return law;
    return readsBack(0.1 * (draw.below(2'000'000) - 1'000'000), digest);
  };
}

ScaleLaw instants(Draw& draw) {
  return [&draw](Digest& digest) -> AssertionResult {
    // Of any magnitude, since most of all bit patterns lie centuries away.
    const Instant instant{
        std::chrono::nanoseconds(static_cast<std::int64_t>(draw.bits()) >> draw.below(64))};
    const std::string text = instantText(instant);
    digest.add(text);
    if (instantFromText(text) != instant)
      return AssertionFailure() << text << " is another instant";
    for (const auto strategy : {DateStrategy::secondsSince1970, DateStrategy::millisecondsSince1970,
                                DateStrategy::secondsSinceReferenceDate}) {
      char buffer[json::maximumNumberLength];
      const std::string_view number(
          buffer,
          static_cast<std::size_t>(json::writeInstantNumber(buffer, instant, strategy) - buffer));
      digest.add(number);
      if (json::instantFromNumber(number, strategy) != instant)
        return AssertionFailure() << number << " is another instant than " << text;
    }
    return AssertionSuccess();
  };
}

ScaleLaw documents(Draw& draw) {
  return [&draw, edits = std::make_shared<RandomEdits>(chanceOf(draw))](
             Digest& digest) -> AssertionResult {
    const KorrinProject project = edits->project();
    const EncodingOptions options{.prettyPrinted = draw.below(2) == 0,
                                  .sortedKeys = draw.below(2) == 0,
                                  .dates = static_cast<DateStrategy>(draw.below(4)),
                                  .nonFinite = NonFinite::fail};
    const std::string text = encodeJSON(project, options);
    digest.add(text);
    const auto decoded =
        decodeJSON<KorrinProject>(text, {.dates = options.dates, .nonFinite = options.nonFinite});
    if (decoded != project) return AssertionFailure() << "another project is read: " << text;
    if (encodeJSON(decoded, options) != text)
      return AssertionFailure() << "the project is written in two ways: " << text;
    return AssertionSuccess();
  };
}

// A project that commands are tried on, and exchanged for another after some twenty of them.
class Session {
 public:
  explicit Session(Draw& draw) : draw_(draw), edits_(chanceOf(draw)) {}

  AssertionResult tryNext(Digest& digest) {
    if (draw_.below(20) == 0) project_ = edits_.project();
    const DocumentCommand command = edits_.reversibleCommand(project_);
    if (const auto law = changesWhatItSays(project_, command); !law) return law;
    if (const auto law = undoes(project_, command); !law) return law;
    if (const auto law = redoes(project_, command); !law) return law;
    TestEnvironment environment;
    command.apply(project_, environment);
    digest.add(encodeJSON(project_));
    return AssertionSuccess();
  }

 private:
  Draw& draw_;
  RandomEdits edits_;
  KorrinProject project_ = edits_.project();
};

ScaleLaw commands(Draw& draw) {
  return [session = std::make_shared<Session>(draw)](Digest& digest) {
    return session->tryNext(digest);
  };
}

List<PlotItem> itemsAnywhere(Draw& draw) {
  List<PlotItem> items;
  for (int i = 0, count = draw.below(12); i < count; ++i) {
    const double x = 0.1 * draw.below(60);
    const double y = 0.1 * (draw.below(40000) - 20000);
    PlotItem item = microphone(identifier(static_cast<std::uint64_t>(i)), x, y);
    item.size = {.width = 0.1 * draw.below(400), .height = 0.1 * draw.below(400)};
    items.push_back(item);
  }
  return items;
}

ScaleLaw alignment(Draw& draw) {
  return [&draw](Digest& digest) -> AssertionResult {
    const auto alignment = allCases<ItemAlignment>()[static_cast<std::size_t>(draw.below(8))];
    const List<PlotItem> items = itemsAnywhere(draw);
    List<PlotItem> aligned = KorrinGeometry::applying(alignment, items);
    digest.add(encodeJSON(aligned));
    const bool isHorizontal =
        alignment < ItemAlignment::top || alignment == ItemAlignment::distributeHorizontally;
    const auto coordinate = isHorizontal ? &StagePoint::x : &StagePoint::y;
    if (aligned.size() != items.size()) return AssertionFailure() << "items come or go";
    for (std::size_t i = 0; i < items.size(); ++i)
      aligned.edit(i).position.*coordinate = items[i].position.*coordinate;
    if (aligned != items) return AssertionFailure() << "more than one coordinate changes";
    return AssertionSuccess();
  };
}

bool standInOrder(const std::vector<PreflightIssue>& issues) {
  const auto key = [](const PreflightIssue& issue) {
    return std::tie(issue.severity, issue.title, issue.detail, issue.id);
  };
  return std::ranges::is_sorted(issues,
                                [key](const auto& a, const auto& b) { return key(a) < key(b); });
}

std::vector<PreflightIssue> withoutMissingAssets(std::vector<PreflightIssue> issues) {
  std::erase_if(issues, [](const PreflightIssue& issue) {
    return issue.rule == PreflightRule::missingAsset;
  });
  return issues;
}

ScaleLaw preflight(Draw& draw) {
  return [&draw, edits = std::make_shared<RandomEdits>(chanceOf(draw))](
             Digest& digest) -> AssertionResult {
    KorrinProject project = edits->project();
    for (std::size_t i = 0; i < project.items.size(); ++i) {
      PlotItem& item = project.items.edit(i);
      item.assetID = std::to_string(draw.below(6));
      if (draw.below(3) == 0) item.label = "\u2003";
    }
    std::unordered_set<Text> everyAsset = {"another"};
    std::unordered_set<Text> someAssets = {"another"};
    for (const PlotItem& item : project.items) {
      everyAsset.insert(item.assetID);
      if (draw.below(2) == 0) someAssets.insert(item.assetID);
    }
    const auto issues = PreflightEngine::inspect(project, someAssets);
    for (const PreflightIssue& issue : issues) digest.add(issue.id.str() + issue.detail.str());
    if (!standInOrder(issues)) return AssertionFailure() << "issues stand in disorder";
    if (PreflightEngine::inspect(project, someAssets) != issues)
      return AssertionFailure() << "issues change from one call to the next";
    const auto others = withoutMissingAssets(issues);
    if (PreflightEngine::inspect(project, everyAsset) != others ||
        PreflightEngine::inspect(project, {}) != others)
      return AssertionFailure() << "known assets decide about more than missing ones";
    return AssertionSuccess();
  };
}

ScaleLaw differences(Draw& draw) {
  return [revisions = std::make_shared<RandomRevisions>(chanceOf(draw))](Digest& digest) {
    const KorrinProject before = revisions->project();
    const KorrinProject after = revisions->revised(before);
    for (const Difference& one : korrin::differences(before, after))
      digest.add(sentenceFor(one, before, after));
    return differencesAreRight(before, after);
  };
}

ScaleLaw merges(Draw& draw) {
  return [revisions = std::make_shared<RandomRevisions>(chanceOf(draw))](Digest& digest) {
    const KorrinProject base = revisions->project();
    const KorrinProject ours = revisions->revised(base);
    const KorrinProject theirs = revisions->revised(base);
    const MergeResult result = merge(base, ours, theirs);
    digest.add(encodeJSON(result.project, {.nonFinite = NonFinite::strings}));
    for (const MergeConflict& conflict : result.conflicts) digest.add(conflict.list + conflict.id);
    return mergeIsRight(base, ours, theirs);
  };
}

}  // namespace

const std::map<std::string, ScaleLaw (*)(Draw&)>& scaleLaws() {
  static const std::map<std::string, ScaleLaw (*)(Draw&)> laws = {
      {"doubles", doubles},         {"instants", instants},   {"documents", documents},
      {"commands", commands},       {"alignment", alignment}, {"preflight", preflight},
      {"differences", differences}, {"merges", merges}};
  return laws;
}

}  // namespace korrin::test
