#pragma once

// Plots as somebody would write them who wants a drawing to fail: numbers that are none, enormous
// or tiny, texts that look like markup or hold what no text should, links and layers at random.

#include <random>

#include "korrin/model/project.h"

namespace korrin::test {

class HostilePlots {
 public:
  explicit HostilePlots(unsigned seed) : random_(seed) {}

  KorrinProject next();

 private:
  std::size_t below(std::size_t limit);
  bool coin() { return below(2) == 0; }
  double number();
  Text text();
  UUID identifier();
  std::optional<UUID> maybeIdentifier();
  std::optional<std::int64_t> maybeWhole();
  Instant instant();
  PlotItem item();
  template <class Make>
  auto listOf(std::size_t limit, Make make);

  std::mt19937 random_;
};

}  // namespace korrin::test
