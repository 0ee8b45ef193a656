#pragma once

// One record, or one value, merged three ways. Not public.

#include <string>
#include <string_view>
#include <vector>

#include "korrin/review/merge.h"
#include "korrin/review/record_walk.h"

namespace korrin::revision {

enum class Choice { ours, theirs, conflict };

/// Whose value stands. `base` is null where there was none. A value that one side left alone to the
/// bit counts as its; one that it only spelled in another way gives way to a real change.
template <class Value>
Choice chosen(const Value* base, const Value& ours, const Value& theirs) {
  if (base != nullptr && agree<Exact>(ours, *base)) return Choice::theirs;
  if (base != nullptr && agree<Exact>(theirs, *base)) return Choice::ours;
  if (agree<Alike>(ours, theirs)) return Choice::ours;
  if (base != nullptr && agree<Alike>(ours, *base)) return Choice::theirs;
  if (base != nullptr && agree<Alike>(theirs, *base)) return Choice::ours;
  return Choice::conflict;
}

/// Merges the fields of records, all but `modifiedAt`, into a copy of ours.
class FieldMerge {
 public:
  FieldMerge(std::string_view list, std::string id, std::vector<MergeConflict>& conflicts)
      : list_(list), id_(std::move(id)), conflicts_(conflicts) {}

  template <class Value>
  void merge(Value& merged, const Value* base, const Value& ours, const Value& theirs,
             const std::string& path) {
    switch (chosen(base, ours, theirs)) {
      case Choice::ours:
        return;
      case Choice::theirs:
        merged = theirs;
        return;
      case Choice::conflict:
        break;
    }
    if constexpr (isWalked<Value>)
      forEachField<Value>([&](const auto& field) {
        if (isModifiedAt(field)) return;
        merge(merged.*field.member, base != nullptr ? &(base->*field.member) : nullptr,
              ours.*field.member, theirs.*field.member, below(path, field.key));
      });
    else
      conflicts_.push_back({std::string(list_), id_, path,
                            base != nullptr ? jsonOf(*base) : std::string(), jsonOf(ours),
                            jsonOf(theirs)});
  }

 private:
  std::string_view list_;
  std::string id_;
  std::vector<MergeConflict>& conflicts_;
};

/// A record of a list.
template <class Record>
Record mergedRecord(std::string_view list, const Record* base, const Record& ours,
                    const Record& theirs, std::vector<MergeConflict>& conflicts) {
  Record merged = ours;
  FieldMerge(list, textOf(identityOf(ours)), conflicts).merge(merged, base, ours, theirs, {});
  return merged;
}

}  // namespace korrin::revision
