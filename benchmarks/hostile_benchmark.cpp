// What a document costs whose author chose its identifiers, texts and keys to collide in hash
// tables, beside its peer: one of the same shape with random ones. Prints the least times of all
// rounds, which take turns, as rows of the threat model's table, and fails when a crafted document
// takes more than one and a half times as long as its peer in the same run.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <malloc.h>

#include "korrin/coding/json.h"
#include "korrin/commands/document_command.h"
#include "korrin/drawing/outlines.h"
#include "korrin/drawing/plot_drawing.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/model/project.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/audit.h"
#include "korrin/review/difference.h"
#include "korrin/review/merge.h"
#include "korrin/review/safe_fixes.h"
#include "korrin/review/waivers.h"
#include "korrin/session/clipboard.h"
#include "korrin/session/edit_history.h"
#include "korrin/session/item_edits.h"
#include "korrin/session/opening.h"
#include "korrin/session/structural_edits.h"
#include "korrin/validation/document_validation.h"

#include "tests/support/crafted_values.h"

namespace korrin::benchmarks {
namespace {

constexpr std::size_t count = 30'000;
constexpr int mostRounds = 25;
constexpr int fewestRounds = 5;
constexpr double enoughMilliseconds = 3'000;  // of processor time for a row, in fewer rounds
constexpr double mostTimesAsLong = 1.5;

/// What the author of a document may choose.
struct Chosen {
  std::vector<UUID> identifiers;
  std::vector<std::string> texts;  // as many
  std::vector<std::string> keys;   // that no record knows
};

Chosen chosenAtRandom() {
  std::mt19937_64 random(7);
  const auto word = [&random](std::size_t length) {
    std::string text(length, ' ');
    for (char& c : text) c = static_cast<char>('a' + random() % 26);
    return text;
  };
  Chosen chosen;
  for (std::size_t i = 0; i < count; ++i) {
    UUID::Bytes bytes;
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    chosen.identifiers.emplace_back(bytes);
    chosen.texts.push_back(word(16));
    chosen.keys.push_back(word(16));
  }
  return chosen;
}

Chosen chosenToCollide() {
  return {.identifiers = test::collidingIdentifiers(count),
          .texts = test::collidingTexts(count),
          .keys = test::textsAlikeInTheMiddleAndAtTheEnd(count)};
}

KorrinProject plotOf(const Chosen& chosen) {
  KorrinProject project = KorrinProject::newDocument();
  for (std::size_t i = 0; i < count; ++i) {
    const UUID& id = chosen.identifiers[i];
    const std::string& text = chosen.texts[i];
    project.items.push_back(
        {.id = id,
         .kind = PlotItemKind::microphone,
         .assetID = text,
         .position = {.x = 0.5, .y = -2},
         .size = {.width = 200, .height = 200},
         .rotationDegrees = 0,
         .isFlippedHorizontally = false,
         .isFlippedVertically = false,
         .layerID = project.layers.front().id,
         .groupID = std::nullopt,
         .isLocked = false,
         .label = text,
         .riserHeightMillimeters = std::nullopt,
         .style = {.tintHex = std::nullopt, .labelVisible = true, .labelScale = 1}});
    project.inputs.push_back({.id = id,
                              .channel = static_cast<std::int64_t>(i),
                              .source = text,
                              .microphoneOrDI = text,
                              .stand = text,
                              .phantomPower = false,
                              .notes = text,
                              .plotItemID = id});
    project.assetManifest.push_back(
        {.sha256 = text, .filename = text, .mediaType = "image/png", .byteCount = 1});
    if (i % 4 == 0)
      project.groups.push_back(
          {.id = id, .name = text, .itemIDs = {id, chosen.identifiers[i + 1]}});
  }
  return project;
}

/// A project as a document with a member behind each known key that no record knows.
std::string documentWithUnknownKeys(const Chosen& chosen) {
  std::string document = encodeJSON(KorrinProject::newDocument());
  document.pop_back();
  for (const std::string& key : chosen.keys) document += ",\"" + key + "\":1";
  return document + "}";
}

using Operation = std::function<void()>;

struct Case {
  const char* name;
  Operation (*of)(const Chosen& chosen);
};

Operation applying(DocumentCommand command, KorrinProject project) {
  return [=] {
    KorrinProject edited = project;
    command.apply(edited);
  };
}

IDSet identifiersOf(const KorrinProject& project) {
  IDSet ids;
  for (const PlotItem& item : project.items) ids.insert(item.id);
  return ids;
}

constexpr std::array cases = {
    Case{"`insertItems` of all",
         [](const Chosen& chosen) {
           const KorrinProject plot = plotOf(chosen);
           return applying(DocumentCommand::insertItems(plot.items), plot);
         }},
    Case{"`replaceItems` of all",
         [](const Chosen& chosen) {
           const KorrinProject plot = plotOf(chosen);
           return applying(DocumentCommand::replaceItems(plot.items), plot);
         }},
    Case{"`deleteItems` of all",
         [](const Chosen& chosen) {
           const KorrinProject plot = plotOf(chosen);
           return applying(DocumentCommand::deleteItems(identifiersOf(plot)), plot);
         }},
    Case{"`deleteItems` of one",
         [](const Chosen& chosen) {
           const KorrinProject plot = plotOf(chosen);
           return applying(DocumentCommand::deleteItems({plot.items[count / 2].id}), plot);
         }},
    Case{"undo of one deletion",
         [](const Chosen& chosen) {
           KorrinProject plot = plotOf(chosen);
           const auto done = DocumentCommand::deleteItems({plot.items[count / 2].id}).apply(plot);
           return applying(done.inverse, plot);
         }},
    Case{"grouping of all",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           return [plot, all = identifiersOf(plot)] {
             KorrinProject edited = plot;
             edited.groupingCommand(all).value().apply(edited);
           };
         }},
    Case{"grouping of all, each on a layer of its own",
         [](const Chosen& chosen) -> Operation {
           KorrinProject plot = plotOf(chosen);
           PlotLayer layer = plot.layers.front();
           plot.layers = {};
           for (std::size_t i = 0; i < count; ++i) {
             layer.id = chosen.identifiers[i];
             plot.layers.push_back(layer);
             plot.items.edit(i).layerID = layer.id;
           }
           return [plot, all = identifiersOf(plot)] {
             KorrinProject edited = plot;
             edited.groupingCommand(all).value().apply(edited);
           };
         }},
    Case{"`replaceGroups`",
         [](const Chosen& chosen) {
           const KorrinProject plot = plotOf(chosen);
           return applying(DocumentCommand::replaceGroups(plot.groups), plot);
         }},
    Case{"distribution of all",
         [](const Chosen& chosen) -> Operation {
           return [items = plotOf(chosen).items] {
             KorrinGeometry::applying(ItemAlignment::distributeHorizontally, items);
           };
         }},
    Case{"`inspect`, every image embedded",
         [](const Chosen& chosen) -> Operation {
           return [plot = plotOf(chosen)] { PreflightEngine::inspect(plot, {"another"}); };
         }},
    Case{"`inspect`, every image known",
         [](const Chosen& chosen) -> Operation {
           const std::unordered_set<Text> known(chosen.texts.begin(), chosen.texts.end());
           return [plot = plotOf(chosen), known] { PreflightEngine::inspect(plot, known); };
         }},
    Case{"`validate`",
         [](const Chosen& chosen) -> Operation {
           return [plot = plotOf(chosen)] { DocumentValidation::validate(plot); };
         }},
    Case{"`decodeJSON`",
         [](const Chosen& chosen) -> Operation {
           return [document = encodeJSON(plotOf(chosen))] { decodeJSON<KorrinProject>(document); };
         }},
    Case{"`decodeJSON`, 30,000 unknown keys",
         [](const Chosen& chosen) -> Operation {
           return [document = documentWithUnknownKeys(chosen)] {
             decodeJSON<KorrinProject>(document);
           };
         }},
    Case{"`encodeJSON`",
         [](const Chosen& chosen) -> Operation {
           return [plot = plotOf(chosen)] { encodeJSON(plot); };
         }},
};

constexpr std::array sessionCases = {
    Case{"`withGroupMembers` of all",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           return [plot, all = identifiersOf(plot)] { withGroupMembers(plot, all); };
         }},
    Case{"locking of all",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           return [plot, all = identifiersOf(plot)] { lockingCommand(plot, all, true); };
         }},
    Case{"ungrouping of all",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           return [plot, all = identifiersOf(plot)] { ungroupingCommand(plot, all); };
         }},
    Case{"stacking of half to the front",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           const IDSet half(chosen.identifiers.begin(), chosen.identifiers.begin() + count / 2);
           return [plot, half] { stackingCommand(plot, half, StackingMove::toFront); };
         }},
    Case{"copy of all and paste",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           return [plot, all = identifiersOf(plot)] {
             KorrinProject edited = plot;
             pastingCommand(edited, fragmentOf(plot, all)).value().command.apply(edited);
           };
         }},
    Case{"`EditHistory`: deletion of half, undo, redo",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           const IDSet half(chosen.identifiers.begin(), chosen.identifiers.begin() + count / 2);
           return [plot, half] {
             EditHistory history(plot);
             history.perform(DocumentCommand::deleteItems(half));
             history.undo();
             history.redo();
           };
         }},
    Case{"`openDocument`",
         [](const Chosen& chosen) -> Operation {
           return [document = encodeJSON(plotOf(chosen))] { openDocument(document); };
         }},
};

/// As its author changed it: every second item is gone, and the rest is in the opposite order.
KorrinProject revisionOf(const KorrinProject& plot) {
  KorrinProject revision = plot;
  revision.items = {};
  for (std::size_t i = plot.items.size(); i-- > 0;)
    if (i % 2 == 0) revision.items.push_back(plot.items[i]);
  return revision;
}

/// The same records in lists of their own, as another file brings them.
KorrinProject unsharedCopyOf(const KorrinProject& plot) {
  return decodeJSON<KorrinProject>(encodeJSON(plot));
}

WaiverList waiversOfAll(const std::vector<PreflightIssue>& issues) {
  WaiverList list{.schemaVersion = WaiverList::currentSchemaVersion, .waivers = {}};
  for (const PreflightIssue& issue : issues)
    list.waivers.push_back(
        {.findingID = issue.id, .reason = "accepted", .author = "", .date = Instant{}});
  return list;
}

constexpr std::array reviewCases = {
    Case{
        "`audit`",
        [](const Chosen& chosen) -> Operation { return [plot = plotOf(chosen)] { audit(plot); }; }},
    Case{"`safeFixes`",
         [](const Chosen& chosen) -> Operation {
           return [plot = plotOf(chosen)] { safeFixes(plot); };
         }},
    Case{"`review` with a waiver for each finding",
         [](const Chosen& chosen) -> Operation {
           KorrinProject plot = plotOf(chosen);
           plot.assetManifest = {};
           const auto issues = PreflightEngine::inspect(plot, {"another"});
           return [issues, waivers = waiversOfAll(issues)] { review(issues, waivers); };
         }},
    Case{"`differences`, half removed, the rest turned round",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           return [plot, after = revisionOf(unsharedCopyOf(plot))] { differences(plot, after); };
         }},
    Case{"`merge` with the same on the other side",
         [](const Chosen& chosen) -> Operation {
           const KorrinProject plot = plotOf(chosen);
           return [plot, ours = unsharedCopyOf(plot), theirs = revisionOf(unsharedCopyOf(plot))] {
             merge(plot, ours, theirs);
           };
         }},
};

constexpr std::array drawingCases = {
    Case{"`drawPlot`",
         [](const Chosen& chosen) -> Operation {
           return [plot = plotOf(chosen)] { drawPlot(plot); };
         }},
    Case{"`drawPages`",
         [](const Chosen& chosen) -> Operation {
           return [plot = plotOf(chosen)] { drawPages(plot); };
         }},
    Case{"`itemsAt` a place of all",
         [](const Chosen& chosen) -> Operation {
           return [plot = plotOf(chosen)] { itemsAt(plot, plot.items[0].position); };
         }},
};

double milliseconds(const Operation& operation) {
  const std::clock_t start = std::clock();
  operation();
  return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

bool isWithinBounds(const Case& row, const Chosen& random, const Chosen& crafted) {
  const Operation ofRandom = row.of(random);
  const Operation ofCrafted = row.of(crafted);
  double leastOfRandom = milliseconds(ofRandom);
  double leastOfCrafted = milliseconds(ofCrafted);
  double spent = leastOfRandom + leastOfCrafted;
  for (int round = 1; round < fewestRounds || (round < mostRounds && spent < enoughMilliseconds);
       ++round) {
    // Each comes first in every second round: what one leaves of the heap is not always the
    // other's.
    const bool isCraftedFirst = round % 2 == 1;
    const double first = milliseconds(isCraftedFirst ? ofCrafted : ofRandom);
    const double second = milliseconds(isCraftedFirst ? ofRandom : ofCrafted);
    leastOfRandom = std::min(leastOfRandom, isCraftedFirst ? second : first);
    leastOfCrafted = std::min(leastOfCrafted, isCraftedFirst ? first : second);
    spent += first + second;
  }
  const double ratio = leastOfCrafted / leastOfRandom;
  std::printf("| %s | %.3g ms | %.3g ms | %.2f |\n", row.name, leastOfRandom, leastOfCrafted,
              ratio);
  std::fflush(stdout);
  return ratio <= mostTimesAsLong;
}

template <std::size_t rows>
bool areWithinBounds(const std::array<Case, rows>& table, const Chosen& random,
                     const Chosen& crafted, std::string_view wanted) {
  bool all = true;
  for (const Case& row : table)
    if (std::string_view(row.name).find(wanted) != std::string_view::npos)
      all &= isWithinBounds(row, random, crafted);
  return all;
}

}  // namespace
}  // namespace korrin::benchmarks

/// `hostile_benchmark [TEXT]`: all rows, or those whose name contains the text.
int main(int argumentCount, char** arguments) {
  using namespace korrin::benchmarks;
  // Memory stays with the process: whether it is given back and taken again between two rounds is
  // an accident that costs as much as reading a document.
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_MMAP_MAX, 0);
  const std::string_view wanted = argumentCount > 1 ? arguments[1] : "";
  const Chosen random = chosenAtRandom();
  const Chosen crafted = chosenToCollide();
  std::puts("| operation | random | crafted | times as long |\n|---|---|---|---|");
  bool areAllWithinBounds = areWithinBounds(cases, random, crafted, wanted);
  areAllWithinBounds &= areWithinBounds(sessionCases, random, crafted, wanted);
  areAllWithinBounds &= areWithinBounds(reviewCases, random, crafted, wanted);
  areAllWithinBounds &= areWithinBounds(drawingCases, random, crafted, wanted);
  return areAllWithinBounds ? 0 : 1;
}
