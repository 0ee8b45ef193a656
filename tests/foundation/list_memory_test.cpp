// What copies and changes of a List keep in memory, measured.

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/list.h"
#include "korrin/foundation/uuid.h"

#include "tests/foundation/second_thread.h"
#include "tests/support/allocations.h"

namespace korrin {
namespace {

// With its count of owners it fills a block of the usual allocator to the last byte.
using Record = std::array<char, 176>;

List<Record> records(std::size_t count) {
  List<Record> list;
  for (std::size_t i = 0; i < count; ++i) list.push_back(Record{});
  return list;
}

TEST(ListMemory, ACopyAllocatesNothing) {
  const List<Record> list = records(1000);
  const std::size_t before = allocationCount();
  const List<Record> copy = list;
  EXPECT_EQ(allocationCount(), before);
  EXPECT_EQ(copy.size(), 1000u);
}

TEST(ListMemory, ReadingAllocatesNothing) {
  const List<Record> list = records(1000);
  const std::size_t before = allocationCount();
  std::size_t zeros = 0;
  for (const Record& record : list) zeros += record[0] == 0;
  for (std::size_t i = 0; i < list.size(); ++i) zeros += list[i][0] == 0;
  zeros += list == list;
  EXPECT_EQ(allocationCount(), before);
  EXPECT_EQ(zeros, 2001u);
}

struct Keeping {
  const char* name;
  std::size_t elements;
  std::ptrdiff_t bytes;
};

class ListMemoryOf : public testing::TestWithParam<Keeping> {};

TEST_P(ListMemoryOf, OneErasedElementIsThatOfSpineAndLeaf) {
  const List<Record> list = records(GetParam().elements);
  for (const std::size_t index : {std::size_t{0}, list.size() / 2, list.size() - 1}) {
    const std::ptrdiff_t before = liveBytes();
    List<Record> changed = list;
    changed.erase(index);
    EXPECT_LE(liveBytes() - before, GetParam().bytes) << index;
    changed = list;
    std::size_t i = 0;
    EXPECT_EQ(changed.eraseIf([&](const Record&) { return i++ == index; }), 1u);
    EXPECT_LE(liveBytes() - before, GetParam().bytes) << index;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, ListMemoryOf,
                         testing::Values(Keeping{"30", 30, 320}, Keeping{"1000", 1000, 1000},
                                         Keeping{"100000", 100'000, 26'000}),
                         [](const auto& row) { return std::string("Among") + row.param.name; });

TEST(ListMemory, AShortListOfKnownLengthIsSmall) {
  const std::ptrdiff_t before = liveBytes();
  const List<UUID> three{UUID(), UUID(), UUID()};
  EXPECT_LE(liveBytes() - before, 112);
}

TEST(ListMemory, FillingNeverTakesMuchMoreThanTheResult) {
  for (const std::size_t count : {1'000u, 100'000u}) {
    const std::ptrdiff_t before = liveBytes();
    restartPeak();
    const List<Record> list = records(count);
    const std::ptrdiff_t filled = liveBytes() - before;
    EXPECT_LE(peakBytes() - before, filled + filled / 50) << count;
    // The record, its count of owners and its slot; spine, headers and rounding take the rest.
    EXPECT_LE(filled, static_cast<std::ptrdiff_t>(count * (sizeof(Record) + 16) * 105 / 100));
  }
  const std::ptrdiff_t before = liveBytes();
  restartPeak();
  List<UUID> identifiers;
  for (int i = 0; i < 100'000; ++i) identifiers.push_back(UUID());
  EXPECT_LE(peakBytes() - before, 100'000 * 16 * 105 / 100);
}

TEST(ListMemory, InsertsInAscendingOrderFillLeaves) {
  for (const std::size_t behind : {1u, 64u, 100u}) {
    List<UUID> list{std::vector<UUID>(behind)};
    const std::ptrdiff_t before = liveBytes();
    for (std::size_t i = 0; i < 10'000; ++i) list.insert(i, UUID());
    EXPECT_LE(liveBytes() - before, 10'000 * 16 * 115 / 100) << behind;
  }
}

// What is left of 150 leaves would fit in eight.

TEST(ListMemory, ManySingleErasesLeaveNoRowOfTinyLeaves) {
  List<UUID> list(std::vector<UUID>(10'000));
  for (std::size_t at = 0; list.size() > 500; at += 61) list.erase(at % list.size());
  const std::ptrdiff_t filled = liveBytes();
  list.clear();
  // Leaves that shrink in place keep their room; on average they are three eighths full or more.
  EXPECT_LE(filled - liveBytes(), 500 * 16 * 3);
}

TEST(ListMemory, ManySparseErasesLeaveNoRowOfTinyLeaves) {
  List<UUID> list(std::vector<UUID>(10'000));
  while (list.size() > 500) {
    std::size_t i = 0;
    list.eraseIf([&i](const UUID&) { return i++ % 40 == 7; });
  }
  const std::ptrdiff_t filled = liveBytes();
  const auto kept = static_cast<std::ptrdiff_t>(list.size() * 16);
  list.clear();
  EXPECT_LE(filled - liveBytes(), kept * 13 / 10);
}

TEST(ListMemory, RunsOfInsertsFillTheirLeaves) {
  for (const bool ascending : {true, false}) {
    for (const std::size_t start : {0u, 64u, 100u}) {
      const std::ptrdiff_t before = liveBytes();
      List<UUID> list(std::vector<UUID>(128));
      for (std::size_t i = 0; i < 1000; ++i) list.insert(ascending ? start + i : start, UUID());
      // Full leaves where the run starts between two, else halves.
      const std::ptrdiff_t bytes = 1128 * 16 * (start % 64 == 0 ? 13 : 25) / 10;
      EXPECT_LE(liveBytes() - before, bytes) << ascending << " from " << start;
    }
  }
}

TEST(ListMemory, WhatIsLeftOfALongListIsSmall) {
  const std::ptrdiff_t before = liveBytes();
  List<UUID> list(std::vector<UUID>(10'000));
  std::size_t i = 0;
  list.eraseIf([&i](const UUID&) { return i++ != 5'000; });
  EXPECT_EQ(list.size(), 1u);
  EXPECT_LE(liveBytes() - before, 112);
}

TEST(ListMemory, ADroppedCopyGivesEverythingBack) {
  const List<Record> list = records(1000);
  const std::ptrdiff_t before = liveBytes();
  {
    List<Record> copy = list;
    copy.edit(3)[0] = 'x';
    copy.erase(500);
    copy.insert(100, Record{});
    EXPECT_GT(liveBytes(), before);
  }
  EXPECT_EQ(liveBytes(), before);
}

TEST(ListMemory, WhatAListThatIsGoneLeavesIsItsChangedLeaf) {
  haveHadASecondThread();
  constexpr std::ptrdiff_t leaf = 64 * 8 + 64;
  const std::ptrdiff_t before = liveBytes();
  List<Record> list = records(1000);
  const std::ptrdiff_t filled = liveBytes() - before;
  for (int generation = 0; generation < 9; ++generation) {
    const List<Record> former = std::move(list);
    list = former;
    list.edit(300)[0] = 'x';
    list.replace(310, Record{});
  }
  EXPECT_GT(liveBytes() - before, filled) << "the leaf borrows nothing";
  EXPECT_LE(liveBytes() - before, filled + leaf);
  for (std::size_t i = 300; i < 330; ++i) list.edit(i)[0] = 'x';
  list.erase(310);
  EXPECT_LE(liveBytes() - before, filled);
}

}  // namespace
}  // namespace korrin
