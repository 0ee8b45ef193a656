#include "korrin/review/list_alignment.h"

#include <numeric>
#include <utility>

namespace korrin::revision {
namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

/// A row of runs that keep their order, given by its last run.
struct Row {
  std::size_t weight = 0;  // records in the row
  std::size_t last = none;

  /// Among rows of one weight the one that ends later: of two records that changed places, the one
  /// that came forward counts as moved.
  bool isBetterThan(const Row& other) const {
    if (weight != other.weight) return weight > other.weight;
    return last != none && (other.last == none || last > other.last);
  }
};

/// The heaviest row among those that end at one of the first ranks: a binary indexed tree.
class HeaviestRows {
 public:
  explicit HeaviestRows(std::size_t size) : rows_(size + 1) {}

  void enter(std::size_t rank, Row row) {
    for (std::size_t i = rank + 1; i < rows_.size(); i += i & (~i + 1))
      if (row.isBetterThan(rows_[i])) rows_[i] = row;
  }
  Row amongFirst(std::size_t count) const {
    Row best;
    for (std::size_t i = count; i > 0; i &= i - 1)
      if (rows_[i].isBetterThan(best)) best = rows_[i];
    return best;
  }

 private:
  std::vector<Row> rows_;
};

}  // namespace

std::vector<Run> sortedBy(std::size_t Run::*list, std::vector<Run> runs) {
  std::sort(runs.begin(), runs.end(),
            [list](const Run& a, const Run& b) { return a.*list < b.*list; });
  return runs;
}

std::vector<IndexRange> uncovered(std::size_t Run::*list, const std::vector<Run>& runs,
                                  std::size_t size) {
  std::vector<IndexRange> ranges;
  std::size_t next = 0;
  for (const Run& run : runs) {
    if (next < run.*list) ranges.push_back({next, run.*list});
    next = run.*list + run.count;
  }
  if (next < size) ranges.push_back({next, size});
  return ranges;
}

std::vector<bool> stayingRuns(const std::vector<Run>& runs) {
  const auto standsEarlier = [](const Run& a, const Run& b) { return a.before < b.before; };
  if (std::is_sorted(runs.begin(), runs.end(), standsEarlier))
    return std::vector<bool>(runs.size(), true);

  std::vector<std::size_t> places(runs.size());  // of the runs, in the order of `before`
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::sort(places.begin(), places.end(),
            [&](std::size_t a, std::size_t b) { return standsEarlier(runs[a], runs[b]); });
  std::vector<std::size_t> ranks(runs.size());
  for (std::size_t rank = 0; rank < places.size(); ++rank) ranks[places[rank]] = rank;

  HeaviestRows rows(runs.size());
  std::vector<std::size_t> previous(runs.size());
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const Row row = rows.amongFirst(ranks[i]);
    previous[i] = row.last;
    rows.enter(ranks[i], {row.weight + runs[i].count, i});
  }
  std::vector<bool> stays(runs.size(), false);
  for (std::size_t i = rows.amongFirst(runs.size()).last; i != none; i = previous[i])
    stays[i] = true;
  return stays;
}

}  // namespace korrin::revision
