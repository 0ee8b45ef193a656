#include "korrin/validation/pdf/page_tree.h"

#include <array>
#include <cmath>
#include <vector>

namespace korrin::pdf {
namespace {

// A node whose children are being visited.
struct Node {
  Place kids;  // Where the next child is read.
  Place box;   // Where its media box begins,
  bool hasBox = false;
};

// The four elements of the array `box`, references not followed. Whoever reads on in an object
// stream keeps it, which is why this ends before the next one is unpacked.
std::optional<std::array<Value, 4>> elements(Objects& objects, const Value& box) {
  if (box.kind != Value::Kind::array) return std::nullopt;
  auto scanner = objects.at(box.place);
  if (!scanner) return std::nullopt;
  scanner->next();
  std::array<Value, 4> values;
  for (Value& value : values) {
    const auto read = readValue(*scanner);
    if (!read) return std::nullopt;
    value = *read;
  }
  if (scanner->next().kind != Token::Kind::arrayClose) return std::nullopt;
  return values;
}

std::optional<std::array<double, 4>> corners(Objects& objects, const Value& box) {
  const auto values = elements(objects, box);
  if (!values) return std::nullopt;
  std::array<double, 4> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const Value number = objects.resolve((*values)[i]);
    if (number.kind != Value::Kind::number) return std::nullopt;
    numbers[i] = number.number;
  }
  return numbers;
}

// The box nearest to the page counts, even one that turns out not to be a box; only null is as good
// as no entry.
PdfPage measured(Objects& objects, const Value& own, const std::vector<Node>& path) {
  Value box = objects.resolve(own);
  for (auto node = path.rbegin(); box.isNull() && node != path.rend(); ++node) {
    if (!node->hasBox) continue;
    box = objects.resolve(objects.valueAt(node->box));
  }
  const auto numbers = corners(objects, box);
  if (!numbers) return {PdfOutcome::noBox, 0, 0};
  const auto [left, bottom, right, top] = *numbers;
  return {PdfOutcome::box, std::abs(right - left), std::abs(top - bottom)};
}

// What the tree knows of a node before it decides where to go on.
struct Entries {
  enum class Kind { page, list, empty };
  Kind kind;
  Place kids;  // Of a list: where its first child is read.
  Value box;
};

// What a node says of itself counts before what it looks like: a page may carry a list that does
// not make it a list of pages, and a list of pages without pages is no page. Of a node that says
// neither, the list decides.
Entries entriesOf(Objects& objects, const Value& node, bool isRoot) {
  using enum Entries::Kind;
  const auto [type, kids, box] =
      objects.entries(node, std::array<std::string_view, 3>{"Type", "Kids", "MediaBox"});
  const Value typeName = objects.resolve(type);
  if (typeName.isName("Page")) return {page, {}, box};
  const Value children = objects.resolve(kids);
  // The list is entered behind its opening bracket.
  if (children.kind == Value::Kind::array)
    return {list, {children.place.container, children.place.offset + 1}, box};
  // Nothing shows that a root without children is a page, unless it has a box.
  const bool isEmpty = typeName.isName("Pages") || (isRoot && box.isNull());
  return {isEmpty ? empty : page, {}, box};
}

// The next child that may be a node, of the last node on the path or, when it has no more, of one
// above it; the path then ends in the node that it was found in.
std::optional<Value> nextChild(Objects& objects, std::vector<Node>& path) {
  for (; !path.empty(); path.pop_back()) {
    auto scanner = objects.at(path.back().kids);
    if (!scanner) return std::nullopt;
    while (true) {
      const std::size_t start = scanner->position();
      const Token token = scanner->next();
      using enum Token::Kind;
      if (token.kind == end || token.kind == arrayClose || token.kind == dictionaryClose) break;
      if (token.kind == arrayOpen) scanner->skipToClosing();
      // Only these may begin a reference or a dictionary: a list may be long, and most of it none.
      const bool isNumber = token.kind == word && isDigit(scanner->bytes()[token.begin]);
      if (!isNumber && token.kind != dictionaryOpen) continue;
      scanner->moveTo(start);
      const auto child = readValue(*scanner);
      if (!child || child->kind == Value::Kind::number) continue;
      path.back().kids = scanner->place(scanner->position());
      return child;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<PdfPage> firstPage(Objects& objects, const Value& root) {
  const auto [pages] = objects.entries(root, std::array<std::string_view, 1>{"Pages"});
  Value next = objects.resolve(pages);
  if (next.kind != Value::Kind::dictionary) return std::nullopt;
  std::vector<Node> path;
  while (true) {
    if (next.kind == Value::Kind::dictionary) {
      if (path.size() == limits::treeDepth) objects.budget().exhaust();
      if (!objects.budget().payForTreeNode()) return std::nullopt;
      const Entries entries = entriesOf(objects, next, path.empty());
      if (entries.kind == Entries::Kind::page) return measured(objects, entries.box, path);
      if (entries.kind == Entries::Kind::list)
        path.push_back({entries.kids, entries.box.place, !entries.box.isNull()});
    }
    const auto child = nextChild(objects, path);
    if (!child) return std::nullopt;
    next = objects.resolve(*child);
  }
}

}  // namespace korrin::pdf
