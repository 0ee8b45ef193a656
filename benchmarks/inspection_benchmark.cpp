// What looks at a plot without editing it: validation, preflight, the arithmetic of alignment, and
// the equality of texts on which much of it rests.

#include <cstring>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "korrin/foundation/normalization.h"
#include "korrin/foundation/precondition.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/validation/document_validation.h"

#include "benchmarks/support/contest.h"
#include "benchmarks/support/plain_inspection.h"
#include "benchmarks/support/plot_generator.h"

namespace korrin::benchmarks {
namespace {

// The same plot in which every input, mix and line of equipment has something to be said about.
KorrinProject withFindings(KorrinProject project) {
  for (std::size_t i = 0; i < project.inputs.size(); ++i) project.inputs.edit(i).source = "";
  for (std::size_t i = 0; i < project.monitorMixes.size(); ++i)
    project.monitorMixes.edit(i).outputPatch = " ";
  for (std::size_t i = 0; i < project.equipmentRequirements.size(); ++i)
    project.equipmentRequirements.edit(i).quantity = 0;
  return project;
}

using SharedMirror = std::shared_ptr<const Mirror<KorrinProject>>;

void addPreflight(const std::string& which, std::size_t items, const KorrinProject& project,
                  const SharedMirror& mirror) {
  std::unordered_set<Text> known;
  std::unordered_set<std::string> plainKnown;
  for (const PlotItem& item : project.items) {
    known.insert(item.assetID);
    plainKnown.insert(item.assetID.str());
  }
  const std::size_t issues = PreflightEngine::inspect(project, known).size();
  precondition(PlainInspection(*mirror, plainKnown).run().size() == issues,
               "the peer finds something else");
  // The report divides by these.
  const std::size_t records = project.items.size() + project.inputs.size() +
                              project.monitorMixes.size() + project.equipmentRequirements.size();
  const std::string name = "preflight/" + which;
  benchmark::RegisterBenchmark(
      (name + "/korrin/" + std::to_string(items)).c_str(),
      [=](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(PreflightEngine::inspect(project, known));
        state.counters["records"] = static_cast<double>(records);
        state.counters["issues"] = static_cast<double>(issues);
      })
      ->Unit(benchmark::kMicrosecond);
  compete(name + "/vectors", items,
          [mirror, plainKnown] { return PlainInspection(*mirror, plainKnown).run(); });
}

void addValidation(std::size_t items, const KorrinProject& project, const SharedMirror& mirror) {
  compete("validation/whole/korrin", items, [project] {
    DocumentValidation::validate(project);
    return true;
  });
  compete("validation/whole/vectors", items, [mirror] {
    precondition(isValid(*mirror), "the peer refuses the plot");
    return true;
  });
}

void addAlignment(std::size_t items, const KorrinProject& project, const SharedMirror& mirror) {
  const auto add = [&](const std::string& which, ItemAlignment alignment,
                       VectorItems (*plain)(VectorItems)) {
    compete("alignment/" + which + "/korrin", items, [alignment, list = project.items] {
      return KorrinGeometry::applying(alignment, list);
    });
    compete("alignment/" + which + "/vectors", items,
            [plain, mirror] { return plain(field<&KorrinProject::items>(*mirror)); });
  };
  add("left", ItemAlignment::left, alignedLeft);
  add("distribution", ItemAlignment::distributeHorizontally, distributed);
}

// A thousand pairs of equal texts in memory of their own, of the length of a symbol's identifier.
constexpr std::size_t pairCount = 1000;

std::vector<std::string> words(const std::string& filling) {
  std::vector<std::string> words;
  for (std::size_t i = 0; i < pairCount; ++i)
    words.push_back("krn." + filling + "." + std::to_string(i % 10) + ".v1");
  return words;
}

template <class Texts, class Compare>
void addPairs(const std::string& name, const Texts& left, const Texts& right, Compare areEqual) {
  for (std::size_t i = 0; i < pairCount; ++i)
    precondition(areEqual(left[i], right[i]), "two texts of a pair differ");
  compete(name, pairCount, [left, right, areEqual] {
    std::size_t equal = 0;
    for (std::size_t i = 0; i < pairCount; ++i) {
      bool same = areEqual(left[i], right[i]);
      benchmark::DoNotOptimize(same);
      equal += same;
    }
    return equal;
  });
}

void addEquality(const std::string& which, const std::string& left, const std::string& right) {
  const std::string name = "text-equality/" + which;
  const std::vector<std::string> leftWords = words(left);
  const std::vector<std::string> rightWords = words(right);
  addPairs(name + "/korrin", std::vector<Text>(leftWords.begin(), leftWords.end()),
           std::vector<Text>(rightWords.begin(), rightWords.end()),
           [](const Text& a, const Text& b) { return a == b; });
  // Two spellings of a text have different bytes, which this peer cannot call equal.
  if (left == right)
    addPairs(name + "/memcmp", leftWords, rightWords,
             [](const std::string& a, const std::string& b) {
               return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size()) == 0;
             });
  addPairs(name + "/utf8proc", leftWords, rightWords,
           [](const std::string& a, const std::string& b) { return toNFC(a) == toNFC(b); });
}

}  // namespace
}  // namespace korrin::benchmarks

int main(int argc, char** argv) {
  using namespace korrin::benchmarks;
  for (const std::size_t items : itemCounts) {
    const korrin::KorrinProject project = generatedPlot(items);
    const auto mirrorOf = [](const korrin::KorrinProject& plot) {
      return std::make_shared<const Mirror<korrin::KorrinProject>>(
          MirrorOf<korrin::KorrinProject>::of(plot));
    };
    const SharedMirror mirror = mirrorOf(project);
    const korrin::KorrinProject faulty = withFindings(project);
    addPreflight("clean", items, project, mirror);
    addPreflight("findings", items, faulty, mirrorOf(faulty));
    addValidation(items, project, mirror);
    addAlignment(items, project, mirror);
  }
  addEquality("plain", "instrument.keyboard", "instrument.keyboard");
  addEquality("wide", "\u4E50\u5668\u952E\u76D8", "\u4E50\u5668\u952E\u76D8");
  addEquality("combining", "cafe\u0301.cle\u0301.mo\u0302", "caf\u00E9.cl\u00E9.m\u00F4");
  return runContest(argc, argv);
}
