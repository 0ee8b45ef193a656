#pragma once

// One list of a project merged three ways. Not public.
//
// The result starts as the whole list of one side, which costs nothing, and takes a few edits: that
// side gives the order and all that the other one did not touch.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "korrin/review/list_alignment.h"
#include "korrin/review/merge.h"
#include "korrin/review/record_merge.h"

namespace korrin::revision {

/// Neighbours in the base that both sides treat alike: each side has them as neighbours, or has
/// none of them.
struct Segment {
  std::size_t base;
  std::size_t count;
  std::optional<std::size_t> ours;
  std::optional<std::size_t> theirs;
  bool isOursShared;    ///< Whether our records are those of the base.
  bool isTheirsShared;  ///< Whether their records are those of the base.
};

/// The segments of a base of `size` records, in its order. What both sides removed is left out.
/// The runs are those of base and side, sorted by `before`.
std::vector<Segment> segmentsOf(const std::vector<Run>& ours, const std::vector<Run>& theirs,
                                std::size_t size);

/// Records that both sides have: `before` is their place in the list that gives the order, `after`
/// the one in the other list.
using Links = std::vector<Run>;

/// For each index of the other list, in ascending order, before which record of the list that gives
/// the order it goes: behind the linked record that it stood behind, and behind the additions that
/// follow that one.
std::vector<std::size_t> placesFor(const std::vector<std::size_t>& indices, const Links& links,
                                   std::size_t size);

template <class Record>
class ListMerge {
 public:
  ListMerge(std::string_view key, const List<Record>& base, const List<Record>& ours,
            const List<Record>& theirs, std::vector<MergeConflict>& conflicts)
      : key_(key), base_(base), ours_(ours), theirs_(theirs), conflicts_(conflicts) {
    const std::vector<Run> toOurs = Alignment<Record>(base, ours).runs();
    const std::vector<Run> toTheirs = Alignment<Record>(base, theirs).runs();
    segments_ =
        segmentsOf(sortedBy(&Run::before, toOurs), sortedBy(&Run::before, toTheirs), base.size());
    chooseOrder(toOurs);
    for (const Segment& segment : segments_) mergeSegment(segment);
    mergeAdditions(indicesOf(uncovered(&Run::after, toOurs, ours.size())),
                   indicesOf(uncovered(&Run::after, toTheirs, theirs.size())));
  }

  /// The merged list.
  List<Record> result() && {
    placeInsertions();
    std::stable_sort(edits_.begin(), edits_.end(), [](const Edit& a, const Edit& b) {
      return a.place != b.place ? a.place < b.place : a.isInsertion && !b.isInsertion;
    });
    List<Record> list = isOrderOurs_ ? ours_ : theirs_;
    std::size_t inserted = 0;
    std::size_t erased = 0;
    for (Edit& edit : edits_) {
      const std::size_t place = edit.place + inserted - erased;
      if (edit.isInsertion) {
        list.insert(place, *std::move(edit.record));
        ++inserted;
      } else if (edit.record) {
        list.replace(place, *std::move(edit.record));
      } else {
        list.erase(place);
        ++erased;
      }
    }
    return list;
  }

  /// The identities of the records that the result has from them alone.
  const std::vector<IdentityOf<Record>>& onlyTheirs() const { return onlyTheirs_; }

 private:
  /// An edit of the list that gives the order, at one of its places.
  struct Edit {
    std::size_t place;
    bool isInsertion;              // before `place`
    std::optional<Record> record;  // absent for a removal
  };

  static std::vector<std::size_t> indicesOf(const std::vector<IndexRange>& ranges) {
    std::vector<std::size_t> indices;
    for (const IndexRange& range : ranges)
      for (std::size_t i = range.first; i < range.last; ++i) indices.push_back(i);
    return indices;
  }

  void chooseOrder(const std::vector<Run>& toOurs) {
    std::vector<const Segment*> common;
    for (const Segment& segment : segments_)
      if (segment.ours && segment.theirs) common.push_back(&segment);
    const auto isInOrderOf = [&common](auto side) {
      return std::is_sorted(
          common.begin(), common.end(),
          [side](const Segment* a, const Segment* b) { return *(a->*side) < *(b->*side); });
    };
    const bool areOursMoved = !isInOrderOf(&Segment::ours);
    const bool areTheirsMoved = !isInOrderOf(&Segment::theirs);
    // Where ours is the base itself, theirs is all but the result.
    const bool areOursUntouched = base_.empty() ? ours_.empty()
                                                : toOurs.size() == 1 && toOurs[0].isShared &&
                                                      toOurs[0].count == base_.size() &&
                                                      ours_.size() == base_.size();
    isOrderOurs_ = areOursMoved || !(areTheirsMoved || areOursUntouched);
    if (!areOursMoved || !areTheirsMoved) return;

    const std::vector<const Segment*> inBase = common;
    std::sort(common.begin(), common.end(),
              [](const Segment* a, const Segment* b) { return *a->ours < *b->ours; });
    if (isInOrderOf(&Segment::theirs)) return;
    const std::string ourOrder = orderOf(common);
    std::sort(common.begin(), common.end(),
              [](const Segment* a, const Segment* b) { return *a->theirs < *b->theirs; });
    conflicts_.push_back({key_, {}, {}, orderOf(inBase), ourOrder, orderOf(common)});
  }

  std::string orderOf(const std::vector<const Segment*>& segments) const {
    List<IdentityOf<Record>> identities;
    for (const Segment* segment : segments)
      for (std::size_t i = 0; i < segment->count; ++i)
        identities.push_back(identityOf(base_[segment->base + i]));
    return jsonOf(identities);
  }

  void mergeSegment(const Segment& segment) {
    if (segment.ours && segment.theirs) {
      link(*segment.ours, *segment.theirs, segment.count);
      if (isOrderOurs_ ? segment.isTheirsShared : segment.isOursShared) return;
      for (std::size_t i = 0; i < segment.count; ++i)
        mergeRecords(&base_[segment.base + i], *segment.ours + i, *segment.theirs + i);
    } else {
      for (std::size_t i = 0; i < segment.count; ++i)
        keepOrRemove(segment, segment.base + i,
                     (segment.ours ? *segment.ours : *segment.theirs) + i);
    }
  }

  void mergeRecords(const Record* base, std::size_t ours, std::size_t theirs) {
    if (agree<Exact>(ours_[ours], theirs_[theirs])) return;
    const Record& present = isOrderOurs_ ? ours_[ours] : theirs_[theirs];
    Record merged = mergedRecord(key_, base, ours_[ours], theirs_[theirs], conflicts_);
    if (!agree<Exact>(merged, present))
      edits_.push_back({isOrderOurs_ ? ours : theirs, false, std::move(merged)});
  }

  /// A record that one side has and the other removed.
  void keepOrRemove(const Segment& segment, std::size_t base, std::size_t place) {
    const bool isInOurs = segment.ours.has_value();
    const Record& record = isInOurs ? ours_[place] : theirs_[place];
    const bool isShared = isInOurs ? segment.isOursShared : segment.isTheirsShared;
    const bool isChanged = !isShared && !agree<Alike>(base_[base], record);
    const bool givesOrder = isInOurs == isOrderOurs_;
    if (!isChanged) {
      if (givesOrder) edits_.push_back({place, false, std::nullopt});
      return;
    }
    const std::string json = jsonOf(record);
    conflicts_.push_back({key_,
                          textOf(identityOf(record)),
                          {},
                          jsonOf(base_[base]),
                          isInOurs ? json : std::string(),
                          isInOurs ? std::string() : json});
    if (!isInOurs) onlyTheirs_.push_back(identityOf(record));
    if (!givesOrder) insertions_.push_back(place);
  }

  void mergeAdditions(const std::vector<std::size_t>& ours,
                      const std::vector<std::size_t>& theirs) {
    std::vector<Waiting<IdentityOf<Record>>> ourRecords;
    std::vector<Waiting<IdentityOf<Record>>> theirRecords;
    for (const std::size_t i : ours) ourRecords.push_back({&identityOf(ours_[i]), i});
    for (const std::size_t i : theirs) theirRecords.push_back({&identityOf(theirs_[i]), i});
    sortByIdentity(ourRecords);
    sortByIdentity(theirRecords);
    std::vector<std::size_t> pairedOurs;
    std::vector<std::size_t> pairedTheirs;
    forEachPair(ourRecords, theirRecords, [&](std::size_t mine, std::size_t other) {
      link(mine, other, 1);
      mergeRecords(nullptr, mine, other);
      pairedOurs.push_back(mine);
      pairedTheirs.push_back(other);
    });
    std::sort(pairedOurs.begin(), pairedOurs.end());
    std::sort(pairedTheirs.begin(), pairedTheirs.end());
    if (!isOrderOurs_)
      std::set_difference(ours.begin(), ours.end(), pairedOurs.begin(), pairedOurs.end(),
                          std::back_inserter(insertions_));
    for (const std::size_t i : theirs) {
      if (std::binary_search(pairedTheirs.begin(), pairedTheirs.end(), i)) continue;
      onlyTheirs_.push_back(identityOf(theirs_[i]));
      if (isOrderOurs_) insertions_.push_back(i);
    }
  }

  void link(std::size_t ours, std::size_t theirs, std::size_t count) {
    links_.push_back({isOrderOurs_ ? ours : theirs, isOrderOurs_ ? theirs : ours, count, false});
  }

  void placeInsertions() {
    std::sort(insertions_.begin(), insertions_.end());
    const List<Record>& other = isOrderOurs_ ? theirs_ : ours_;
    const std::vector<std::size_t> places =
        placesFor(insertions_, links_, (isOrderOurs_ ? ours_ : theirs_).size());
    for (std::size_t i = 0; i < insertions_.size(); ++i)
      edits_.push_back({places[i], true, other[insertions_[i]]});
  }

  std::string key_;
  const List<Record>& base_;
  const List<Record>& ours_;
  const List<Record>& theirs_;
  std::vector<MergeConflict>& conflicts_;
  std::vector<Segment> segments_;
  bool isOrderOurs_ = true;
  Links links_;
  std::vector<Edit> edits_;
  std::vector<std::size_t> insertions_;  // indices of the other list
  std::vector<IdentityOf<Record>> onlyTheirs_;
};

}  // namespace korrin::revision
