// How long elements live whose leaves lend them to each other. A full leaf has 64; copies of leaves
// with fewer than 16 borrow nothing.

#include <cstddef>
#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/list.h"

#include "tests/foundation/second_thread.h"
#include "tests/foundation/watched.h"

namespace korrin {
namespace {

std::vector<int> valuesOf(const List<Watched>& list) {
  std::vector<int> values;
  for (const Watched& element : list) values.push_back(element.value());
  return values;
}

class ListLoan : public testing::Test {
 protected:
  void SetUp() override { haveHadASecondThread(); }
};

TEST_F(ListLoan, LeavesEachEndWhatItHoldsWhenTheOtherGoes) {
  for (const int count : {15, 17, 64, 100}) {
    for (const bool lenderGoesFirst : {true, false}) {
      Watch watch;
      List<Watched> lender = watched(watch, count);
      List<Watched> borrower = lender;
      borrower.replace(3, Watched(watch, -1));
      borrower.erase(5);
      List<Watched> former = borrower;  // of the leaf that borrows
      former.erase(0);
      EXPECT_EQ(watch.alive, count + 1);
      const std::vector<int> values = valuesOf(lenderGoesFirst ? borrower : lender);

      (lenderGoesFirst ? lender : borrower).clear();
      const List<Watched>& rest = lenderGoesFirst ? borrower : lender;
      EXPECT_EQ(valuesOf(rest), values);
      EXPECT_EQ(watch.alive, lenderGoesFirst ? count - 1 : count + 1);
      former.clear();
      EXPECT_EQ(valuesOf(rest), values);
      EXPECT_EQ(watch.alive, static_cast<int>(rest.size()));
      lender.clear();
      borrower.clear();
      EXPECT_EQ(watch.alive, 0);
    }
  }
}

TEST_F(ListLoan, EndsForAnElementThatBothHaveRemoved) {
  for (const bool lenderRemovesFirst : {true, false}) {
    Watch watch;
    List<Watched> lender = watched(watch, 64);
    List<Watched> borrower = lender;
    borrower.erase(63);
    borrower.push_back(Watched(watch, 64));
    EXPECT_EQ(watch.alive, 65);
    List<Watched>& first = lenderRemovesFirst ? lender : borrower;
    List<Watched>& second = lenderRemovesFirst ? borrower : lender;
    first.erase(20);
    EXPECT_EQ(watch.alive, 65);
    second.erase(20);
    EXPECT_EQ(watch.alive, 64);
    first.insert(0, Watched(watch, -1));
    EXPECT_EQ(watch.alive, 65);
    first.clear();
    EXPECT_EQ(watch.alive, 63);
  }
}

TEST_F(ListLoan, CopiesAnEditedElementWhileTheOtherEndHoldsIt) {
  for (const bool lenderEdits : {true, false}) {
    Watch watch;
    List<Watched> lender = watched(watch, 64);
    List<Watched> borrower = lender;
    borrower.edit(0).setValue(-1);
    ASSERT_EQ(watch.copies, 1);
    List<Watched>& edited = lenderEdits ? lender : borrower;
    List<Watched>& other = lenderEdits ? borrower : lender;
    edited.edit(30).setValue(-2);
    EXPECT_EQ(watch.copies, 2);
    EXPECT_EQ(edited[30].value(), -2);
    EXPECT_EQ(other[30].value(), 30);
    EXPECT_EQ(watch.alive, 66);
    edited.edit(0).setValue(-3);
    edited.edit(30).setValue(-4);
    EXPECT_EQ(watch.copies, 2);
  }
}

TEST_F(ListLoan, CopiesNoElementThatTheOtherEndHasLetGo) {
  Watch watch;
  List<Watched> lender = watched(watch, 64);
  List<Watched> borrower = lender;
  borrower.erase(1);
  lender.replace(31, Watched(watch, -1));
  const Watched* const before = &borrower[30];
  borrower.edit(30).setValue(-2);
  EXPECT_EQ(watch.copies, 0);
  lender.clear();
  for (std::size_t i = 0; i < borrower.size(); ++i) borrower.edit(i).setValue(static_cast<int>(i));
  EXPECT_EQ(watch.copies, 0);
  EXPECT_EQ(&borrower[30], before);
  EXPECT_EQ(watch.alive, 63);

  List<Watched> next = borrower;
  next.erase(0);
  borrower.edit(0).setValue(-1);
  EXPECT_EQ(watch.copies, 0);
  next.clear();
  for (std::size_t i = 0; i < borrower.size(); ++i) borrower.edit(i).setValue(static_cast<int>(i));
  EXPECT_EQ(watch.copies, 0);
}

TEST_F(ListLoan, SurvivesAMoveOfItsEndsToLargerLeaves) {
  for (const bool lenderGrows : {true, false}) {
    Watch watch;
    List<Watched> lender = watched(watch, 32);
    List<Watched> borrower = lender;
    borrower.erase(7);
    List<Watched>& grown = lenderGrows ? lender : borrower;
    for (int i = 0; i < 8; ++i) grown.push_back(Watched(watch, 100 + i));
    EXPECT_EQ(watch.alive, 40);
    (lenderGrows ? borrower : lender).clear();
    EXPECT_EQ(watch.alive, static_cast<int>(grown.size()));
    EXPECT_EQ(grown[8].value(), lenderGrows ? 8 : 9);
  }
}

// Random changes of some lists that are copies of each other: whatever lends to whatever, alive are
// the elements that can be reached.
TEST_F(ListLoan, KeepsThoseElementsAliveThatAListHolds) {
  for (std::uint64_t seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    const auto below = [&](std::size_t bound) {
      return static_cast<std::size_t>(random() % bound);
    };
    Watch watch;
    std::vector<List<Watched>> lists(4);
    std::vector<std::vector<int>> models(lists.size());
    const std::size_t start = 20 + below(150);
    for (List<Watched>& list : lists)
      for (std::size_t i = 0; i < start; ++i) list.emplace_back(watch, static_cast<int>(i));
    for (std::size_t i = 0; i < lists.size(); ++i) models[i] = valuesOf(lists[i]);

    for (int step = 0; step < 150; ++step) {
      const std::size_t chosen = below(lists.size());
      List<Watched>& list = lists[chosen];
      std::vector<int>& model = models[chosen];
      if (list.size() < 5 || below(4) == 0) {
        const std::size_t source = below(lists.size());
        list = List<Watched>(lists[source]);
        model = std::vector<int>(models[source]);
      }
      if (list.empty()) continue;
      const std::size_t at = below(list.size());
      const auto place = model.begin() + static_cast<std::ptrdiff_t>(at);
      switch (below(8)) {
        case 0:
        case 1:
          list.erase(at);
          model.erase(place);
          break;
        case 2:
          list.replace(at, Watched(watch, step));
          *place = step;
          break;
        case 3:
          list.edit(at).setValue(step);
          *place = step;
          break;
        case 4:
          list.insert(at, Watched(watch, step));
          model.insert(place, step);
          break;
        case 5:
          list.push_back(Watched(watch, step));
          model.push_back(step);
          break;
        case 6: {
          const std::size_t other = below(list.size());
          list.swap(at, other);
          std::swap(model[at], model[other]);
          break;
        }
        default: {
          const int remainder = static_cast<int>(below(9));
          list.eraseIf([&](const Watched& element) { return element.value() % 9 == remainder; });
          std::erase_if(model, [&](int value) { return value % 9 == remainder; });
        }
      }
      std::set<const Watched*> held;
      for (std::size_t i = 0; i < lists.size(); ++i) {
        ASSERT_EQ(valuesOf(lists[i]), models[i]) << "step " << step;
        for (const Watched& element : lists[i]) held.insert(&element);
      }
      ASSERT_EQ(watch.alive, static_cast<int>(held.size())) << "step " << step;
    }
    lists.clear();
    ASSERT_EQ(watch.alive, 0);
  }
}

}  // namespace
}  // namespace korrin
