#include "korrin/foundation/list_iterator.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <numeric>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/list.h"
#include "korrin/foundation/uuid.h"

#include "tests/foundation/numbers.h"

namespace korrin {
namespace {

static_assert(std::random_access_iterator<List<std::string>::const_iterator>);
static_assert(std::random_access_iterator<List<UUID>::const_iterator>);
static_assert(std::is_same_v<List<std::string>::iterator, List<std::string>::const_iterator>);
static_assert(std::is_same_v<decltype(*List<int>().begin()), const int&>);

TEST(ListIterator, StepsForwardsAndBackwardsOverEveryElement) {
  std::vector<std::string> expected;
  for (int i = 0; i < 200; ++i) expected.push_back(std::to_string(i));
  const List<std::string> list = expected;
  EXPECT_TRUE(std::equal(list.begin(), list.end(), expected.begin(), expected.end()));
  EXPECT_TRUE(std::equal(std::make_reverse_iterator(list.end()),
                         std::make_reverse_iterator(list.begin()), expected.rbegin(),
                         expected.rend()));
  auto it = list.begin();
  EXPECT_EQ(*it++, expected[0]);
  EXPECT_EQ(*it--, expected[1]);
  EXPECT_EQ(it, list.begin());
  EXPECT_EQ(it->size(), expected[0].size());
}

TEST(ListIterator, AddsAndSubtractsAcrossLeaves) {
  List<int> list = numbers(300);
  list.eraseIf([](int n) { return n % 64 > 60 || n == 100; });
  const auto size = static_cast<std::ptrdiff_t>(list.size());
  for (std::ptrdiff_t from = 0; from <= size; from += 7) {
    for (std::ptrdiff_t to = 0; to <= size; ++to) {
      const auto a = list.begin() + from;
      const auto b = a + (to - from);
      ASSERT_EQ(b - list.begin(), to);
      ASSERT_EQ(b - a, to - from);
      ASSERT_EQ(list.end() - b, size - to);
      ASSERT_EQ(a == b, from == to);
      ASSERT_EQ(a <=> b, from <=> to);
      ASSERT_EQ(b - (to - from), a);
      if (to < size) {
        ASSERT_EQ(*b, list[static_cast<std::size_t>(to)]);
        ASSERT_EQ(&a[to - from], &*b);
      }
    }
  }
}

TEST(ListIterator, ServesTheStandardAlgorithms) {
  const List<int> list = numbers(1000);
  EXPECT_EQ(*std::lower_bound(list.begin(), list.end(), 777), 777);
  EXPECT_EQ(std::ranges::find(list, 640) - list.begin(), 640);
  EXPECT_EQ(std::accumulate(list.begin(), list.end(), 0), 999 * 500);
  EXPECT_TRUE(std::ranges::is_sorted(list));
  EXPECT_EQ(*std::ranges::max_element(list), 999);
}

TEST(ListIterator, AllEndsOfAnEmptyListAreEqual) {
  List<int> list;
  EXPECT_EQ(list.begin(), List<int>::const_iterator());
  EXPECT_EQ(list.end() - list.begin(), 0);
  EXPECT_EQ(list.begin() + 0, list.end());
  list.reserve(10);
  EXPECT_EQ(list.begin(), list.end());
  EXPECT_EQ(list.end() - list.begin(), 0);
}

}  // namespace
}  // namespace korrin
