// Edits that follow each other closely become one entry of the history.

#include <chrono>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "korrin/session/edit_history.h"

#include "tests/session/history_in_use.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using namespace std::chrono_literals;
using namespace test::sample;
using test::Clock;
using test::expectSame;
using test::instant;
using test::move;
using test::sampleProject;
using test::xOf;
using C = DocumentCommand;

TEST(EditHistory, MergesEditsOfOneKeyAndKeepsTheFirstNameAndSelection) {
  Clock clock;
  EditHistory history(sampleProject());
  history.perform(
      move(history.project(), 1),
      {.name = "Nudge", .mergeKey = "k", .selection = {vocal}, .selectionAfterwards = {vocal}},
      clock.environment);
  clock.time += 1s;  // measured from the last merged edit, and the limit counts as within
  history.perform(
      move(history.project(), 2),
      {.name = "Other", .mergeKey = "k", .selection = {kick}, .selectionAfterwards = {kick}},
      clock.environment);
  clock.time += 1s;
  history.perform(move(history.project(), 3), {.mergeKey = "k"}, clock.environment);
  EXPECT_EQ(history.undoCount(), 1u);
  EXPECT_EQ(history.undoName(), Text("Nudge"));
  EXPECT_EQ(history.undo(clock.environment)->selection, IDSet{vocal});
  expectSame(history.project(), sampleProject());
  EXPECT_EQ(history.redo(clock.environment)->selection, IDSet{}) << "the last one is empty";
  EXPECT_EQ(xOf(history), 3);
}

TEST(EditHistory, MergesByCanonicalEquivalenceOfTheKey) {
  Clock clock;
  EditHistory history(sampleProject());
  history.perform(move(history.project(), 1), {.mergeKey = "\u00E9"}, clock.environment);
  history.perform(move(history.project(), 2), {.mergeKey = "e\u0301"}, clock.environment);
  EXPECT_EQ(history.undoCount(), 1u);
}

struct Interval {
  std::string name;
  std::chrono::nanoseconds limit;
  Instant first;
  Instant second;
  std::size_t entries;
  friend std::ostream& operator<<(std::ostream& out, const Interval& row) {
    return out << row.name;
  }
};

class MergeInterval : public testing::TestWithParam<Interval> {};

TEST_P(MergeInterval, IsTheLongestTimeBetweenMergedEdits) {
  const Interval& row = GetParam();
  Clock clock;
  EditHistory history(sampleProject(), {.entries = 10, .mergeInterval = row.limit});
  clock.time = row.first;
  history.perform(move(history.project(), 1), {.mergeKey = "k"}, clock.environment);
  clock.time = row.second;
  history.perform(move(history.project(), 2), {.mergeKey = "k"}, clock.environment);
  EXPECT_EQ(history.undoCount(), row.entries);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MergeInterval,
    testing::Values(Interval{"JustWithin", 1s, instant(0), instant(1), 1},
                    Interval{"JustBeyond", 1s, instant(0), instant(1) + 1ns, 2},
                    Interval{"ZeroMergesWithinOneInstant", 0s, instant(0), instant(0), 1},
                    Interval{"ZeroMergesNothingElse", 0s, instant(0), instant(0) + 1ns, 2},
                    Interval{"NegativeMergesNothing", -1ns, instant(0), instant(0), 2},
                    Interval{"AClockSetBackALittle", 1s, instant(1), instant(0), 1},
                    Interval{"AClockSetBackFar", 1s, instant(9), instant(0), 2},
                    Interval{"TheLongestInterval", std::chrono::nanoseconds::max(), instant(0),
                             instant(1'000'000'000), 1},
                    Interval{"InstantsThatAreFurthestApart", std::chrono::nanoseconds::max(),
                             Instant::min(), Instant::max(), 2}),
    [](const auto& each) { return each.param.name; });

TEST(EditHistory, TakesTheMergeTimeFromTheClockForCommandsThatReadNone) {
  Clock clock;
  EditHistory history(sampleProject());
  history.perform(C::replaceProject(sampleProject()), {.mergeKey = "k"}, clock.environment);
  clock.time += 1s;
  history.perform(C::replaceProject(sampleProject()), {.mergeKey = "k"}, clock.environment);
  EXPECT_EQ(history.undoCount(), 1u);
  clock.time += 2s;
  history.perform(C::replaceProject(sampleProject()), {.mergeKey = "k"}, clock.environment);
  EXPECT_EQ(history.undoCount(), 2u);
  EXPECT_EQ(clock.reads, 3);
  history.perform(C::replaceProject(sampleProject()), {}, clock.environment);
  EXPECT_EQ(clock.reads, 3) << "no key, no reading";
}

TEST(EditHistory, MergesNothingAcrossWhatHappensInBetween) {
  const auto entriesAfter = [](auto inBetween) {
    Clock clock;
    EditHistory history(sampleProject());
    history.perform(move(history.project(), 1), {.mergeKey = "k"}, clock.environment);
    inBetween(history, clock.environment);
    history.perform(move(history.project(), 2), {.mergeKey = "k"}, clock.environment);
    return history.undoCount();
  };
  EXPECT_EQ(entriesAfter([](EditHistory&, const Environment&) {}), 1u);
  EXPECT_EQ(entriesAfter([](EditHistory& h, const Environment& e) { h.redo(e); }), 1u) << "in vain";
  EXPECT_EQ(entriesAfter([](EditHistory& h, const Environment&) {
              h.beginGesture();
              h.endGesture();
              h.endGesture();
              h.cancelGesture();
            }),
            1u)
      << "an empty gesture";
  EXPECT_EQ(entriesAfter([](EditHistory& h, const Environment& e) {
              h.beginGesture();
              h.perform(move(h.project(), 7), {}, e);
              h.cancelGesture();
            }),
            1u)
      << "a cancelled gesture";
  EXPECT_EQ(entriesAfter([](EditHistory& h, const Environment& e) {
              h.perform(C::compound({C::compound({})}), {.mergeKey = "other"}, e);
            }),
            1u)
      << "an empty compound";
  EXPECT_EQ(entriesAfter([](EditHistory& h, const Environment&) { h.markSaved(); }), 2u);
  EXPECT_EQ(entriesAfter([](EditHistory& h, const Environment& e) {
              h.undo(e);
              h.redo(e);
            }),
            2u);
  EXPECT_EQ(entriesAfter([](EditHistory& h, const Environment& e) {
              h.perform(move(h.project(), 5), {}, e);
            }),
            3u)
      << "an edit without key";
  EXPECT_EQ(entriesAfter([](EditHistory& h, const Environment& e) {
              h.beginGesture({.mergeKey = "k"});
              h.perform(move(h.project(), 5), {.mergeKey = "k"}, e);
              h.endGesture();
            }),
            3u)
      << "a gesture";
}

}  // namespace
}  // namespace korrin
