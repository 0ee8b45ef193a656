#pragma once

// Laws that are held against any number of drawn cases, with a digest of what came out.

#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace korrin::test {

/// Draws by a generator whose numbers are the same everywhere.
class Draw {
 public:
  explicit Draw(std::uint64_t seed) : engine_(seed) {}

  std::uint64_t bits() { return engine_(); }
  int below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }

 private:
  std::mt19937_64 engine_;
};

/// FNV-1a of everything that is added.
class Digest {
 public:
  void add(std::string_view bytes) {
    for (const char c : bytes) value_ = (value_ ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  }
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325;
};

/// Draws one case, adds its result to the digest and says whether the law holds.
using ScaleLaw = std::function<testing::AssertionResult(Digest&)>;

/// The laws by name, each made for a source of choices that outlives it:
/// - doubles: any finite double, and lengths in tenths of millimetres, read back bit for bit;
/// - instants: any instant reads back to the nanosecond under every strategy;
/// - documents: any project, in any layout, reads back and is written again byte for byte;
/// - commands: a command changes what it says, undoes and redoes;
/// - alignment: one coordinate of each item changes and nothing else;
/// - preflight: issues stand in order, stay the same, and depend on known assets as they should;
/// - differences: they are those that a comparison of each record with each other finds;
/// - merges: no edit is lost, and none is there that nobody made.
const std::map<std::string, ScaleLaw (*)(Draw&)>& scaleLaws();

}  // namespace korrin::test
