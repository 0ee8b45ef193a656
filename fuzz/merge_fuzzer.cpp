// Three projects read from bytes: a base and two revisions of it, or three that have nothing in
// common. Their differences, the sentences of these and their merge keep the laws.

#include <cstddef>
#include <cstdint>
#include <span>

#include "korrin/foundation/precondition.h"

#include "fuzz/choices.h"
#include "tests/support/random_revisions.h"
#include "tests/support/review_laws.h"

namespace korrin::fuzz {
namespace {

void require(const testing::AssertionResult& law) { precondition(law, law.message()); }

void run(std::span<const std::uint8_t> bytes) {
  Choices choices(bytes);
  const bool areRelated = choices.below(4) != 0;
  test::RandomRevisions revisions([&choices](int limit) { return choices.below(limit); });
  const KorrinProject base = revisions.project();
  const KorrinProject ours = revisions.revised(areRelated ? base : revisions.project());
  const KorrinProject theirs = revisions.revised(areRelated ? base : revisions.project());
  require(test::differencesAreRight(ours, theirs));
  require(test::mergeIsRight(base, ours, theirs));
}

}  // namespace
}  // namespace korrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korrin::fuzz::run(std::span(data, size));
  return 0;
}
