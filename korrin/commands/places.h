#pragma once

// Where in the lists of a project certain items are named.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

#include "korrin/commands/id_filter.h"
#include "korrin/foundation/list.h"

namespace korrin {

/// Calls `visit(place, record)`, in ascending order, for every record whose search key is or holds
/// one of the identifiers, and for some others: `visit` tells them apart. Records whose search key
/// is an empty list are among them.
template <Searchable Record, class Visit>
void forEachCandidate(const IDFilter& ids, const List<Record>& records, Visit visit) {
  if (ids.areFew()) return records.forEachCandidate(ids.few(), visit);
  // Every record has memory of its own. When there are more than the caches hold, asking for each
  // one long before it is read halves the time of the walk.
  constexpr std::ptrdiff_t manyRecords = 4096;
  constexpr std::ptrdiff_t distance = 24;
  auto ahead = std::ssize(records) > manyRecords ? records.begin() + distance : records.end();
  std::size_t place = 0;
  for (const Record& record : records) {
    if (ahead != records.end()) {
      const auto* const key = &(*ahead.*searchKey<Record>);
      __builtin_prefetch(key);
      __builtin_prefetch(reinterpret_cast<const char*>(key + 1) - 1);  // it may span two lines
      ++ahead;
    }
    visit(place++, record);
  }
}

/// The places, in ascending order, of the records whose identifier or link is in the set.
template <Searchable Record>
std::vector<std::size_t> placesOf(const IDFilter& ids, const List<Record>& records) {
  std::vector<std::size_t> places;
  forEachCandidate(ids, records, [&](std::size_t place, const Record& record) {
    if (ids.contains(record.*searchKey<Record>)) places.push_back(place);
  });
  return places;
}

/// The list without the records at these places, which stand in ascending order.
template <class Record>
List<Record> withoutPlaces(List<Record> records, const std::vector<std::size_t>& places) {
  if (places.size() == 1) {
    records.erase(places.front());
  } else if (!places.empty()) {
    std::size_t place = 0;
    auto next = places.begin();
    records.eraseIf([&](const Record&) {
      const bool isNext = next != places.end() && *next == place;
      if (isNext) ++next;
      ++place;
      return isNext;
    });
  }
  return records;
}

}  // namespace korrin
