#pragma once

// Where in the lists of a project certain items are named.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"

namespace korrin {

inline bool contains(const IDSet& ids, const UUID& id) { return ids.contains(id); }
inline bool contains(const IDSet& ids, const std::optional<UUID>& id) {
  return id && ids.contains(*id);
}

/// The places, in ascending order, of the records whose identifier or link is in the set.
template <Searchable Record>
std::vector<std::size_t> placesOf(const IDSet& ids, const List<Record>& records) {
  std::vector<std::size_t> places;
  records.forEachCandidate(ids, [&](std::size_t place, const Record& record) {
    if (contains(ids, record.*searchKey<Record>)) places.push_back(place);
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
