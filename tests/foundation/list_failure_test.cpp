// Every change of a List, with every step that can fail failing in turn: the list and its copies
// are what they were, and nothing leaks.

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/list.h"

#include "tests/foundation/second_thread.h"
#include "tests/foundation/watched.h"
#include "tests/support/allocations.h"

namespace korrin {
namespace {

// Plain elements stand in the leaves; watched ones on their own.
template <class T>
T make(Watch& watch, int value) {
  if constexpr (std::is_same_v<T, Watched>)
    return Watched(watch, value);
  else
    return value;
}

int valueOf(const Watched& element) { return element.value(); }
int valueOf(int element) { return element; }

template <class T>
std::vector<int> valuesOf(const List<T>& list) {
  std::vector<int> values;
  values.reserve(list.size());
  for (const T& element : list) values.push_back(valueOf(element));
  return values;
}

enum class Sharing { none, everything, someLeaves, someLeavesOfChangedCopy };
enum class Failing { allocation, element };

struct Case {
  const char* name;
  bool callsElements;  // copies or moves one, or asks a predicate
  std::function<void(List<Watched>&, Watch&)> changeWatched;
  std::function<void(List<int>&, Watch&)> changePlain;
};

// The same change for both kinds of elements; `change` is a generic function.
template <class Change>
Case change(const char* name, bool callsElements, Change change) {
  return {
      .name = name, .callsElements = callsElements, .changeWatched = change, .changePlain = change};
}

template <class T>
List<T> listOf(Watch& watch, int count) {
  List<T> list;
  for (int i = 0; i < count; ++i) list.push_back(make<T>(watch, i));
  return list;
}

/// Makes the change while step number `step` of it fails; false when it has fewer steps.
template <class Change, class T>
bool fails(const Change& change, List<T>& list, Watch& watch, Failing failing, int step) {
  std::optional<AllocationLimit> limit;
  try {
    if (failing == Failing::allocation) limit.emplace(static_cast<std::size_t>(step));
    if (failing == Failing::element) watch.untilFailure = step;
    change(list, watch);
  } catch (const std::bad_alloc&) {
    return true;
  } catch (const ElementFailure&) {
    watch.untilFailure = -1;
    return true;
  }
  watch.untilFailure = -1;
  return false;
}

/// Returns the number of steps that failed.
template <class T>
int failAtEveryStep(const std::function<void(List<T>&, Watch&)>& change, Failing failing, int count,
                    Sharing sharing) {
  SCOPED_TRACE(std::to_string(count) + " elements, sharing " +
               std::to_string(static_cast<int>(sharing)));
  const std::ptrdiff_t bytesBefore = liveBytes();
  for (int step = 0;; ++step) {
    bool hasFailed = false;
    Watch watch;
    {
      List<T> list = listOf<T>(watch, count);
      List<T> copy = sharing == Sharing::none ? List<T>() : list;
      if (sharing == Sharing::someLeaves && count > 0) list.edit(list.size() / 2);
      if (sharing == Sharing::someLeavesOfChangedCopy && count > 0) copy.edit(list.size() / 2);
      const std::vector<int> before = valuesOf(list);
      const std::vector<int> copyBefore = valuesOf(copy);
      const int aliveBefore = watch.alive;

      hasFailed = fails(change, list, watch, failing, step);
      if (hasFailed) {
        EXPECT_EQ(valuesOf(list), before) << "step " << step;
        EXPECT_EQ(watch.alive, aliveBefore) << "step " << step;
      }
      EXPECT_EQ(valuesOf(copy), copyBefore) << "step " << step;
      list.push_back(make<T>(watch, -1));
      EXPECT_EQ(valueOf(list.back()), -1);
    }
    EXPECT_EQ(watch.alive, 0) << "step " << step;
    EXPECT_EQ(liveBytes(), bytesBefore) << "step " << step;
    if (!hasFailed) return step;
  }
}

class ListFailure : public testing::TestWithParam<Case> {};

constexpr std::initializer_list<int> counts = {0, 1, 4, 5, 64, 65, 130};
constexpr std::initializer_list<Sharing> sharings = {
    Sharing::none, Sharing::everything, Sharing::someLeaves, Sharing::someLeavesOfChangedCopy};

TEST_P(ListFailure, OfAnyAllocationLeavesListAndCopiesAlone) {
  haveHadASecondThread();
  int failures = 0;
  for (const int count : counts) {
    for (const Sharing sharing : sharings) {
      failures += failAtEveryStep(GetParam().changeWatched, Failing::allocation, count, sharing);
      failures += failAtEveryStep(GetParam().changePlain, Failing::allocation, count, sharing);
    }
  }
  EXPECT_GT(failures, 0);
}

TEST_P(ListFailure, OfAnyElementOrPredicateLeavesListAndCopiesAlone) {
  haveHadASecondThread();
  int failures = 0;
  for (const int count : counts)
    for (const Sharing sharing : sharings)
      failures += failAtEveryStep(GetParam().changeWatched, Failing::element, count, sharing);
  EXPECT_EQ(failures > 0, GetParam().callsElements);
}

template <class List>
using ElementOf = typename List::value_type;

// A predicate that may fail as elements do; true for one of `outOf`.
auto chooser(Watch& watch, int outOf) {
  return [&watch, outOf](const auto& element) {
    watch.mayFail();
    return valueOf(element) % outOf == outOf - 1;
  };
}

INSTANTIATE_TEST_SUITE_P(
    In, ListFailure,
    testing::Values(
        change("PushBack", true,
               [](auto& list, Watch& watch) {
                 using T = ElementOf<std::decay_t<decltype(list)>>;
                 const T element = make<T>(watch, 7);
                 list.push_back(element);
               }),
        change("PushBackOfAnOwnElement", true,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.push_back(list[0]);
               }),
        change("InsertAtTheFront", true,
               [](auto& list, Watch& watch) {
                 list.insert(0, make<ElementOf<std::decay_t<decltype(list)>>>(watch, 7));
               }),
        change("InsertInTheMiddle", true,
               [](auto& list, Watch& watch) {
                 list.insert(list.size() / 2,
                             make<ElementOf<std::decay_t<decltype(list)>>>(watch, 7));
               }),
        change("EraseAtTheFront", false,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.erase(0);
               }),
        change("EraseInTheMiddle", false,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.erase(list.size() / 2);
               }),
        change("EraseAtTheEnd", false,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.erase(list.size() - 1);
               }),
        change("SwapInALeaf", false,
               [](auto& list, Watch&) {
                 if (list.size() > 1) list.swap(0, 1);
               }),
        change("SwapOfTheEnds", false,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.swap(0, list.size() - 1);
               }),
        change("MoveToTheEnd", false,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.move(0, list.size() - 1);
               }),
        change("MoveToTheFront", false,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.move(list.size() / 2, 0);
               }),
        change("Edit", true,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.edit(list.size() / 2);
               }),
        change("Replace", true,
               [](auto& list, Watch& watch) {
                 if (!list.empty())
                   list.replace(list.size() / 2,
                                make<ElementOf<std::decay_t<decltype(list)>>>(watch, 7));
               }),
        change("EraseIfFew", true,
               [](auto& list, Watch& watch) { list.eraseIf(chooser(watch, 60)); }),
        change("EraseIfMany", true,
               [](auto& list, Watch& watch) { list.eraseIf(chooser(watch, 2)); }),
        change("EraseIfAll", true,
               [](auto& list, Watch& watch) { list.eraseIf(chooser(watch, 1)); }),
        change("AssignOfOwnElements", true,
               [](auto& list, Watch&) { list.assign(list.begin(), list.end()); }),
        change("AssignOfRepetitions", true,
               [](auto& list, Watch&) {
                 if (!list.empty()) list.assign(70, list.back());
               }),
        change("AssignmentOfAVector", true,
               [](auto& list, Watch&) {
                 auto elements = list.toVector();
                 list = std::move(elements);
               }),
        change("Reserve", false, [](auto& list, Watch&) { list.reserve(list.size() + 100); })),
    [](const testing::TestParamInfo<Case>& row) { return row.param.name; });

}  // namespace
}  // namespace korrin
