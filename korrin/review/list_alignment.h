#pragma once

// Which record of one list is which of another: by identifier, and the n-th of a repeated one with
// the n-th. The result is a few runs, so that two lists that share most of their storage are
// compared in time that follows what they do not share. Not public.

#include <algorithm>
#include <cstddef>
#include <span>
#include <type_traits>
#include <vector>

#include "korrin/foundation/list_difference.h"
#include "korrin/review/record_walk.h"

namespace korrin::revision {

/// Records that stand one behind the other in both lists. No record is in two runs.
struct Run {
  std::size_t before;  ///< Index of the first record in the one list.
  std::size_t after;   ///< Its index in the other list.
  std::size_t count;   ///< At least one.
  bool isShared;       ///< Whether both lists hold the very same records, equal to the bit.

  std::size_t beforeEnd() const { return before + count; }
  std::size_t afterEnd() const { return after + count; }
};

/// The runs in the order of `before` or of `after`.
std::vector<Run> sortedBy(std::size_t Run::*list, std::vector<Run> runs);

/// The parts of a list of `size` elements that no run covers. The runs are sorted by `list`.
std::vector<IndexRange> uncovered(std::size_t Run::*list, const std::vector<Run>& runs,
                                  std::size_t size);

/// For each run, which are sorted by `after`, whether it may stay in its place while others move:
/// the heaviest choice whose records keep their order, so that the fewest must move.
std::vector<bool> stayingRuns(const std::vector<Run>& runs);

/// A record that waits for its partner.
template <class Identity>
struct Waiting {
  const Identity* identity;
  std::size_t index;
};

/// Sorted, and not hashed: whoever writes a document chooses its identifiers.
template <class Identity>
void sortByIdentity(std::vector<Waiting<Identity>>& records) {
  std::sort(records.begin(), records.end(), [](const auto& a, const auto& b) {
    const auto order = *a.identity <=> *b.identity;
    return order != 0 ? order < 0 : a.index < b.index;
  });
}

template <class Record>
void appendRange(std::vector<Waiting<IdentityOf<Record>>>& records, const List<Record>& list,
                 IndexRange range) {
  for (std::size_t i = range.first; i < range.last; ++i)
    records.push_back({&identityOf(list[i]), i});
}

/// Calls `visit(a, b)` with the indices of partners, both sorted by identity before.
template <class Identity, class Visit>
void forEachPair(const std::vector<Waiting<Identity>>& as, const std::vector<Waiting<Identity>>& bs,
                 Visit visit) {
  auto a = as.begin();
  auto b = bs.begin();
  while (a != as.end() && b != bs.end()) {
    const auto order = *a->identity <=> *b->identity;
    if (order == 0) visit(a->index, b->index);
    if (order <= 0) ++a;
    if (order >= 0) ++b;
  }
}

/// Calls `visit(index)` for every record with one of the identities, which are sorted. A few
/// identifiers of plot items are found without reading every item.
template <class Record, class Visit>
void forEachWithIdentity(const List<Record>& list, const std::vector<IdentityOf<Record>>& sought,
                         Visit visit) {
  if (sought.empty()) return;
  if constexpr (std::is_same_v<Record, PlotItem>) {
    constexpr std::size_t aFew = 16;
    if (sought.size() <= aFew) {
      list.forEachCandidate(std::span<const UUID>(sought),
                            [&](std::size_t index, const Record& record) {
                              if (std::binary_search(sought.begin(), sought.end(), record.id))
                                visit(index);
                            });
      return;
    }
  }
  std::size_t index = 0;
  for (const Record& record : list) {
    if (std::binary_search(sought.begin(), sought.end(), identityOf(record))) visit(index);
    ++index;
  }
}

template <class Record>
class Alignment {
  using Identity = IdentityOf<Record>;

 public:
  Alignment(const List<Record>& before, const List<Record>& after)
      : before_(before), after_(after) {
    runUpInOrder();
    sortByIdentity(left_);
    sortByIdentity(right_);
    if (isAnyInARun()) startAgainWithoutRuns();
    forEachPair(left_, right_, [this](std::size_t a, std::size_t b) {
      runs_.push_back({a, b, 1, &before_[a] == &after_[b]});
    });
  }

  /// In the order of `after`, as few as may be.
  std::vector<Run> runs() const {
    std::vector<Run> joined;
    for (const Run& run : sortedBy(&Run::after, runs_)) {
      if (!joined.empty() && joined.back().beforeEnd() == run.before &&
          joined.back().afterEnd() == run.after && joined.back().isShared == run.isShared)
        joined.back().count += run.count;
      else
        joined.push_back(run);
    }
    return joined;
  }

 private:
  /// Pairs what is shared, and what stands at both ends of a stretch that is not.
  void runUpInOrder() {
    std::size_t a = 0;
    std::size_t b = 0;
    forEachDifference(before_, after_, [&](IndexRange before, IndexRange after) {
      add({a, b, before.first - a, true});
      a = before.last;
      b = after.last;
      takeEqualEnds(before, after);
      appendRange(left_, before_, before);
      appendRange(right_, after_, after);
    });
    add({a, b, before_.size() - a, true});
  }

  void takeEqualEnds(IndexRange& before, IndexRange& after) {
    const Run front = {before.first, after.first, 0, false};
    while (before.size() > 0 && after.size() > 0 && isSameRecord(before.first, after.first)) {
      ++before.first;
      ++after.first;
    }
    add({front.before, front.after, before.first - front.before, false});
    const std::size_t end = before.last;
    while (before.size() > 0 && after.size() > 0 && isSameRecord(before.last - 1, after.last - 1)) {
      --before.last;
      --after.last;
    }
    add({before.last, after.last, end - before.last, false});
  }

  bool isSameRecord(std::size_t a, std::size_t b) const {
    return identityOf(before_[a]) == identityOf(after_[b]);
  }
  void add(Run run) {
    if (run.count > 0) runs_.push_back(run);
  }

  /// Whether a waiting record shares its identity with one in a run. Then the n-th of a stretch
  /// need not be the n-th of the list.
  bool isAnyInARun() const {
    std::vector<Identity> sought;
    sought.reserve(left_.size() + right_.size());
    for (const auto& record : left_) sought.push_back(*record.identity);
    for (const auto& record : right_) sought.push_back(*record.identity);
    std::sort(sought.begin(), sought.end());
    sought.erase(std::unique(sought.begin(), sought.end()), sought.end());
    // Both lists hold the same identities in their runs: one of them tells.
    std::size_t found = 0;
    forEachWithIdentity(before_, sought, [&found](std::size_t) { ++found; });
    return found != left_.size();
  }

  void startAgainWithoutRuns() {
    runs_.clear();
    left_.clear();
    right_.clear();
    appendRange(left_, before_, {0, before_.size()});
    appendRange(right_, after_, {0, after_.size()});
    sortByIdentity(left_);
    sortByIdentity(right_);
  }

  const List<Record>& before_;
  const List<Record>& after_;
  std::vector<Run> runs_;
  std::vector<Waiting<Identity>> left_;
  std::vector<Waiting<Identity>> right_;
};

}  // namespace korrin::revision
