// Reading and writing documents, beside the peers a program would otherwise use, in one run.

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "korrin/model/document_coding.h"

#include "benchmarks/support/contest.h"
#include "benchmarks/support/mirror_reading.h"
#include "benchmarks/support/mirror_writing.h"
#include "benchmarks/support/peer_nodes.h"
#include "benchmarks/support/plot_generator.h"
#include "benchmarks/support/varied_plot.h"

namespace korrin::benchmarks {
namespace {

// Every object gets an order of its own, so that no reader can learn one.
void shuffleKeys(OrderedTree& tree, std::mt19937_64& random) {
  if (tree.is_object()) {
    OrderedTree::object_t& members = tree.get_ref<OrderedTree::object_t&>();
    // A member cannot be assigned, as its key is constant.
    std::vector<OrderedTree::object_t::iterator> order;
    for (auto member = members.begin(); member != members.end(); ++member) order.push_back(member);
    std::shuffle(order.begin(), order.end(), random);
    OrderedTree::object_t shuffled;
    for (const auto member : order) shuffled.push_back(std::move(*member));
    members.swap(shuffled);
  }
  // Any other value would stand for its own only child.
  if (tree.is_structured())
    for (OrderedTree& child : tree) shuffleKeys(child, random);
}

std::string withShuffledKeys(const std::string& document) {
  OrderedTree tree = OrderedTree::parse(document);
  std::mt19937_64 random(42);
  shuffleKeys(tree, random);
  return tree.dump();
}

void addReading(const std::string& name, std::size_t items, const std::string& document) {
  const auto text = std::make_shared<const std::string>(document);
  compete(name + "/korrin", items, [text] { return decodeJSON<KorrinProject>(*text); });
  compete(name + "/nlohmann-json", items, [text] {
    return ReadingOf<KorrinProject>::from(NlohmannNode(nlohmann::json::parse(*text)));
  });
  // The parser keeps its buffers from one document to the next, as its users are advised.
  compete(name + "/simdjson", items, [text, parser = std::make_shared<simdjson::dom::parser>()] {
    return ReadingOf<KorrinProject>::from(SimdjsonNode(parser->parse(*text).value()));
  });
}

void addWriting(const std::string& name, std::size_t items, const KorrinProject& project) {
  compete(name + "/korrin", items, [project] { return encodeJSON(project); });
  const auto mirror =
      std::make_shared<const Mirror<KorrinProject>>(MirrorOf<KorrinProject>::of(project));
  compete(name + "/nlohmann-json", items,
          [mirror] { return TreeOf<KorrinProject>::of(*mirror).dump(); });
}

void addMix(const std::string& mix, std::size_t items, const KorrinProject& project) {
  const std::string compact = encodeJSON(project);
  addReading("decode" + mix + "/compact", items, compact);
  addReading("decode" + mix + "/indented", items, encodeJSON(project, {.prettyPrinted = true}));
  addReading("decode" + mix + "/shuffled", items, withShuffledKeys(compact));
  addWriting("encode" + mix + "/compact", items, project);
}

}  // namespace
}  // namespace korrin::benchmarks

int main(int argc, char** argv) {
  using namespace korrin::benchmarks;
  for (const std::size_t items : itemCounts) {
    const korrin::KorrinProject project = generatedPlot(items);
    addMix("", items, project);
    addMix("-varied", items, withVariedContents(project));
  }
  return runContest(argc, argv);
}
