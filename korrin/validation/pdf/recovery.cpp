#include "korrin/validation/pdf/recovery.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace korrin::pdf {
namespace {

// Digits of an object's number and of its generation, and the blanks between them. Beyond these
// counts, "obj" is not taken for the start of an object.
constexpr std::size_t mostNumberDigits = 10;
constexpr std::size_t mostGenerationDigits = 5;
constexpr std::size_t mostBlanks = 16;

constexpr std::string_view catalogue = "/Catalog";

// Asked at every other byte and mostly denied, so it looks at the second character first: its
// callers have seen the first.
bool standsAt(std::string_view file, std::size_t offset, std::string_view word) {
  return file.size() - offset >= word.size() && file[offset + 1] == word[1] &&
         file.substr(offset, word.size()) == word;
}

bool endsWordAt(std::string_view file, std::size_t offset) {
  return offset >= file.size() || !isRegular(file[offset]);
}

// Moves `end` back over blanks, of which there must be one.
bool backOverBlanks(std::string_view file, std::size_t& end) {
  const std::size_t start = end;
  while (end > 0 && start - end < mostBlanks && isWhiteSpace(file[end - 1])) --end;
  return end < start;
}

// Moves `end` back over the digits of a number, all of them, and gives the number.
std::optional<std::uint64_t> backOverNumber(std::string_view file, std::size_t& end,
                                            std::size_t mostDigits) {
  const std::size_t start = end;
  std::uint64_t number = 0;
  std::uint64_t weight = 1;
  for (; end > 0 && isDigit(file[end - 1]); --end, weight *= 10) {
    if (start - end == mostDigits) return std::nullopt;
    number += weight * static_cast<std::uint64_t>(file[end - 1] - '0');
  }
  return end < start ? std::optional(number) : std::nullopt;
}

}  // namespace

std::vector<std::size_t> RecoveredObjects::LastFew::list() const {
  std::vector<std::size_t> list;
  for (std::size_t i = 0; i < std::min(count_, values_.size()); ++i)
    list.push_back(values_[(count_ - 1 - i) % values_.size()]);
  return list;
}

void RecoveredObjects::scan() {
  if (!budget_->payFor(file_.size(), price::recoveredByte)) return;
  for (std::size_t i = 0; i < file_.size() && !budget_->isExhausted();) {
    switch (file_[i]) {
      case 'o':
        i = passObject(i);
        break;
      case '/':
        i = passName(i);
        break;
      case 's':
        i = passStream(i);
        break;
      case 't':
        if (standsAt(file_, i, "trailer")) trailers_.add(i);
        [[fallthrough]];
      default:
        ++i;
    }
  }
  sort();
}

std::size_t RecoveredObjects::passObject(std::size_t keyword) {
  if (!standsAt(file_, keyword, "obj")) return keyword + 1;
  const std::size_t next = keyword + 3;
  std::size_t start = keyword;
  if (!endsWordAt(file_, next) || !backOverBlanks(file_, start) ||
      !backOverNumber(file_, start, mostGenerationDigits) || !backOverBlanks(file_, start))
    return next;
  const auto number = backOverNumber(file_, start, mostNumberDigits);
  if (number && *number <= std::numeric_limits<std::uint32_t>::max())
    add({static_cast<std::uint32_t>(*number), 0, start});
  return next;
}

// The names that tell what the object around them is for.
std::size_t RecoveredObjects::passName(std::size_t slash) {
  constexpr std::string_view initials = "XCO";
  if (entries_.empty() || slash + 1 == file_.size() ||
      initials.find(file_[slash + 1]) == initials.npos)
    return slash + 1;
  const Entry& object = entries_.back();
  const auto is = [&](std::string_view name) {
    return standsAt(file_, slash, name) && endsWordAt(file_, slash + name.size());
  };
  if (is("/XRef"))
    trailers_.add(object.offset);
  else if (is(catalogue))
    catalogues_.add(object.number);
  else if (is("/ObjStm") && (objectStreams_.empty() || objectStreams_.back() != object.number))
    addObjectStream(object.number);
  return slash + 1;
}

// What is in a stream may look like objects; it is passed up to the end of the stream or, where
// that is missing, of the object.
std::size_t RecoveredObjects::passStream(std::size_t keyword) {
  if (noMoreEnds_ || !standsAt(file_, keyword, "stream")) return keyword + 1;
  std::size_t before = keyword;
  backOverBlanks(file_, before);
  if (before < 2 || !standsAt(file_, before - 2, ">>")) return keyword + 1;
  for (std::size_t i = keyword; i + 3 < file_.size(); ++i)
    if (file_[i] == 'e' && (standsAt(file_, i, "endstream") || standsAt(file_, i, "endobj")))
      return i + 3;
  // Nothing says how far this stream goes, nor any after it: they are searched like the rest.
  noMoreEnds_ = true;
  return keyword + 1;
}

void RecoveredObjects::addObjectStream(std::uint32_t number) {
  if (objectStreams_.size() == limits::recoveredObjectStreams) return budget_->exhaust();
  objectStreams_.push_back(number);
}

void RecoveredObjects::add(const Entry& entry) {
  if (entries_.size() == limits::recoveredObjects) return budget_->exhaust();
  entries_.push_back(entry);
}

void RecoveredObjects::sort() {
  const auto before = [](const Entry& a, const Entry& b) {
    return std::tie(a.number, a.offset) < std::tie(b.number, b.offset);
  };
  // Most documents are in order as they are.
  if (!std::is_sorted(entries_.begin(), entries_.end(), before)) {
    if (!budget_->payFor(entries_.size(), price::sortedObject)) return;
    std::sort(entries_.begin(), entries_.end(), before);
  }
  sorted_ = entries_.size();
}

std::vector<Trailer> RecoveredObjects::trailers() const {
  std::vector<Trailer> trailers;
  for (const std::size_t offset : trailers_.list()) {
    Scanner scanner(file_, *budget_, offset);
    if (!scanner.takeKeyword("trailer") && !takeObjectHeader(scanner)) continue;
    const auto [root, encrypt, identifiers] =
        readEntries(scanner, std::array<std::string_view, 3>{"Root", "Encrypt", "ID"});
    trailers.push_back({root, encrypt, identifiers});
  }
  return trailers;
}

void RecoveredObjects::addCompressedObjects(Objects& objects) {
  std::sort(objectStreams_.begin(), objectStreams_.end());
  objectStreams_.erase(std::unique(objectStreams_.begin(), objectStreams_.end()),
                       objectStreams_.end());
  std::erase(objectStreams_, 0u);  // 0 stands for the file itself.
  for (const std::uint32_t container : objectStreams_) {
    const ObjectPlace place = find(container);
    const auto stream = objects.openOrdinary(container);
    auto head = stream ? objects.openObjectStreamHead(*stream) : std::nullopt;
    if (!head) continue;
    for (std::size_t i = 0; i < head->count; ++i) {
      const auto number = head->scanner.takeCount();
      if (!number || !head->scanner.takeCount()) break;
      if (*number > std::numeric_limits<std::uint32_t>::max()) break;
      add({static_cast<std::uint32_t>(*number), container, place.offset});
    }
  }
  sort();
}

std::vector<Value> RecoveredObjects::catalogues(Objects& objects) const {
  std::vector<Value> roots;
  const auto addIfOne = [&](const Value& root) {
    const auto [type] = objects.entries(root, std::array<std::string_view, 1>{"Type"});
    if (type.isName(catalogue.substr(1))) roots.push_back(root);
  };
  for (const std::size_t number : catalogues_.list())
    addIfOne(Value::referenceTo(static_cast<std::uint32_t>(number)));
  for (auto container = objectStreams_.rbegin(); container != objectStreams_.rend(); ++container)
    if (const auto root = catalogueIn(objects, *container)) addIfOne(*root);
  return roots;
}

// The object of an object stream in which the word for a catalogue stands first.
std::optional<Value> RecoveredObjects::catalogueIn(Objects& objects,
                                                   std::uint32_t container) const {
  const auto scanner = objects.at({container, 0});
  if (!scanner || !budget_->payFor(scanner->bytes().size(), price::searchedByte))
    return std::nullopt;
  const std::size_t word = pdf::find(scanner->bytes(), catalogue);
  if (word == scanner->bytes().npos) return std::nullopt;
  return objects.objectAround({container, word});
}

ObjectPlace RecoveredObjects::find(std::uint32_t number) {
  const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(sorted_);
  const auto after = std::upper_bound(
      entries_.begin(), end, number,
      [](std::uint32_t wanted, const Entry& entry) { return wanted < entry.number; });
  if (after == entries_.begin() || std::prev(after)->number != number) return {};
  const Entry& entry = *std::prev(after);
  if (entry.container == 0) return {ObjectPlace::Kind::ordinary, entry.offset, 0, 0};
  return {ObjectPlace::Kind::compressed, 0, entry.container, 0};
}

}  // namespace korrin::pdf
