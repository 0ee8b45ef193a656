#pragma once

// A small plot as a band would send it, and a clock and identifiers that repeat from run to run.

#include <cstdint>

#include "korrin/model/project.h"

namespace korrin::test {

/// The identifier that ends in this number.
UUID identifier(std::uint64_t number);

/// A time in whole seconds, counted from the day on which the sample plot was drawn.
Instant instant(int seconds);

/// A clock that goes on by one second at every read, from `instant(1'000'001)` on, and identifiers
/// that count up. Both are numbered, so that a test can tell how often they were read.
class TestEnvironment {
 public:
  TestEnvironment();
  TestEnvironment(const TestEnvironment&) = delete;
  TestEnvironment& operator=(const TestEnvironment&) = delete;

  operator const Environment&() const { return environment_; }

  int clockReads() const { return clockReads_; }
  int identifiersMade() const { return identifiersMade_; }

  /// What the clock's read number `read`, counted from 1, gave or will give.
  static Instant instantOfRead(int read) { return instant(1'000'000 + read); }
  /// The identifier made as number `made`, counted from 1.
  static UUID identifierMade(int made) {
    return identifier(0xE000'0000 + static_cast<std::uint64_t>(made));
  }

 private:
  Environment environment_;
  int clockReads_ = 0;
  int identifiersMade_ = 0;
};

/// An item of the sample plot's front layer, a microphone of 200 mm by 200 mm.
PlotItem microphone(UUID id, double x = 0, double y = 0);

/// The plot. Its drawing:
///
///     layer     items                          groups
///     front     vocal, guitar, wedge           "Group 1" of vocal, wedge
///               kick, drumRiser, keys (locked) "Group 2" of kick, drumRiser, guitar
///     rigging   truss                          (locked layer)
///     archive   spareAmp                       (hidden layer)
///
/// Its lists: inputs for vocal, kick and an unplaced one; monitor mixes for wedge and an unplaced
/// one; equipment for drumRiser and one without a symbol; one note; one embedded image.
KorrinProject sampleProject();

namespace sample {

inline const UUID front = identifier(0x101);
inline const UUID rigging = identifier(0x102);
inline const UUID archive = identifier(0x103);

inline const UUID vocal = identifier(1);
inline const UUID guitar = identifier(2);
inline const UUID wedge = identifier(3);
inline const UUID kick = identifier(4);
inline const UUID drumRiser = identifier(5);
inline const UUID keys = identifier(6);
inline const UUID truss = identifier(7);
inline const UUID spareAmp = identifier(8);

inline const UUID groupOfTwo = identifier(0x201);
inline const UUID groupOfThree = identifier(0x202);

}  // namespace sample

}  // namespace korrin::test
