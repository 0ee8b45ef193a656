// What a document costs whose author chose its identifiers, texts and keys to collide in hash
// tables, beside one of the same shape with random ones. Prints the least times of all rounds as
// rows of the threat model's table, and fails when a crafted document takes more than one and a
// half times as long.

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
#include <unordered_set>
#include <utility>
#include <vector>

#include <malloc.h>

#include "korrin/coding/json.h"
#include "korrin/commands/document_command.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/model/project.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/validation/document_validation.h"

#include "tests/support/crafted_values.h"

namespace korrin::benchmarks {
namespace {

constexpr std::size_t count = 30'000;
constexpr int rounds = 25;
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
  for (int round = 1; round < rounds; ++round) {
    leastOfRandom = std::min(leastOfRandom, milliseconds(ofRandom));
    leastOfCrafted = std::min(leastOfCrafted, milliseconds(ofCrafted));
  }
  const double ratio = leastOfCrafted / leastOfRandom;
  std::printf("| %s | %.3g ms | %.3g ms | %.2f |\n", row.name, leastOfRandom, leastOfCrafted,
              ratio);
  std::fflush(stdout);
  return ratio <= mostTimesAsLong;
}

}  // namespace
}  // namespace korrin::benchmarks

int main() {
  using namespace korrin::benchmarks;
  // Memory stays with the process: whether it is given back and taken again between two rounds is
  // an accident that costs as much as reading a document.
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_MMAP_MAX, 0);
  const Chosen random = chosenAtRandom();
  const Chosen crafted = chosenToCollide();
  std::puts("| operation | random | crafted | times as long |\n|---|---|---|---|");
  bool areAllWithinBounds = true;
  for (const Case& row : cases) areAllWithinBounds &= isWithinBounds(row, random, crafted);
  return areAllWithinBounds ? 0 : 1;
}
