#pragma once

// Projects as a stranger might write them: identifiers repeat within lists and across them, links
// dangle, numbers are extreme and texts hold whatever Unicode has.

#include "tests/support/random_edits.h"

namespace korrin::test {

/// Draws such projects.
class HostileProjects {
 public:
  explicit HostileProjects(Chance chance) : chance_(std::move(chance)) {}

  KorrinProject project();

 private:
  template <class Make>
  auto listOf(int limit, Make make);
  bool rarely() { return chance_(6) == 0; }
  bool coin() { return chance_(2) == 0; }
  double length();
  double extent();
  std::int64_t integer();
  Text text();
  UUID pooled();
  UUID own();
  std::optional<UUID> maybePooled();
  PlotItem item();

  Chance chance_;
  bool identifiersRepeat_ = false;
  std::uint64_t next_ = 0;
};

}  // namespace korrin::test
