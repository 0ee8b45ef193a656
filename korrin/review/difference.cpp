#include "korrin/review/difference.h"

#include <utility>

#include "korrin/review/list_alignment.h"
#include "korrin/review/record_walk.h"

namespace korrin {
namespace {

using namespace revision;

class Comparison {
 public:
  explicit Comparison(const DifferenceOptions& options) : options_(options) {}

  std::vector<Difference> of(const KorrinProject& before, const KorrinProject& after) && {
    forEachField<KorrinProject>([&](const auto& field) {
      list_ = field.key;
      compare(before.*field.member, after.*field.member);
    });
    return std::move(differences_);
  }

 private:
  template <class Value>
  void compare(const Value& before, const Value& after) {
    if constexpr (isWalked<Value>)
      compareFields(before, after, [] { return std::string(); }, {});
    else if (!agree<Alike>(before, after))
      report(DifferenceKind::changed, {}, {}, jsonOf(before), jsonOf(after));
  }

  template <class Record>
  void compare(const List<Record>& before, const List<Record>& after) {
    const std::vector<Run> runs = Alignment<Record>(before, after).runs();
    const std::vector<bool> stays = stayingRuns(runs);

    // A removed record is told behind the last one that stays and stood before it.
    const std::vector<IndexRange> removed =
        uncovered(&Run::before, sortedBy(&Run::before, runs), before.size());
    auto nextRemoved = removed.begin();
    const auto removeUpTo = [&](std::size_t end) {
      for (; nextRemoved != removed.end() && nextRemoved->first < end; ++nextRemoved)
        for (std::size_t i = nextRemoved->first; i < nextRemoved->last; ++i)
          report(DifferenceKind::removed, textOf(identityOf(before[i])), {}, jsonOf(before[i]), {});
    };
    const auto nextStaying = [&](std::size_t place) {
      while (place < runs.size() && !stays[place]) ++place;
      return place < runs.size() ? runs[place].before : before.size();
    };
    const auto add = [&](std::size_t first, std::size_t last) {
      for (std::size_t i = first; i < last; ++i)
        report(DifferenceKind::added, textOf(identityOf(after[i])), {}, {}, jsonOf(after[i]));
    };

    removeUpTo(nextStaying(0));
    std::size_t next = 0;
    for (std::size_t place = 0; place < runs.size(); ++place) {
      const Run& run = runs[place];
      add(next, run.after);
      compareRun(run, stays[place], before, after);
      if (stays[place]) removeUpTo(nextStaying(place + 1));
      next = run.afterEnd();
    }
    add(next, after.size());
  }

  template <class Record>
  void compareRun(const Run& run, bool stays, const List<Record>& before,
                  const List<Record>& after) {
    if (stays && run.isShared) return;
    for (std::size_t i = 0; i < run.count; ++i) {
      const Record& former = before[run.before + i];
      const Record& present = after[run.after + i];
      const auto identity = [&present] { return textOf(identityOf(present)); };
      if (!stays)
        report(DifferenceKind::moved, identity(), {}, std::to_string(run.before + i),
               std::to_string(run.after + i));
      if (!run.isShared) compareFields(former, present, identity, {});
    }
  }

  template <class Record, class Identity>
  void compareFields(const Record& before, const Record& after, const Identity& identity,
                     const std::string& path) {
    if (&before == &after) return;
    forEachField<Record>([&](const auto& field) {
      if (isModifiedAt(field) && !options_.modifiedAt) return;
      const auto& former = before.*field.member;
      const auto& present = after.*field.member;
      if (agree<Alike>(former, present)) return;
      const std::string inner = below(path, field.key);
      if constexpr (isWalked<ValueOf<decltype(field)>>)
        compareFields(former, present, identity, inner);
      else
        report(DifferenceKind::changed, identity(), inner, jsonOf(former), jsonOf(present));
    });
  }

  void report(DifferenceKind kind, std::string id, const std::string& field, std::string before,
              std::string after) {
    differences_.push_back(
        {kind, std::string(list_), std::move(id), field, std::move(before), std::move(after)});
  }

  const DifferenceOptions& options_;
  std::string_view list_;
  std::vector<Difference> differences_;
};

}  // namespace

std::vector<Difference> differences(const KorrinProject& before, const KorrinProject& after,
                                    const DifferenceOptions& options) {
  return Comparison(options).of(before, after);
}

}  // namespace korrin
