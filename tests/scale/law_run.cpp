// Holds laws against drawn cases, as many as one asks for, and prints a digest of the results,
// which is the same for the same seed whatever compiled the library:
//
//     law_run SEED LAW=CASES...        law_run 1 doubles=10000000 commands=1000
//
// One line a law goes to standard output; the time it took to standard error. A case that breaks
// its law is named by its number, and the program fails.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "tests/scale/scale_laws.h"

namespace {

using namespace korrin::test;

bool runLaw(const std::string& name, std::uint64_t seed, std::uint64_t cases) {
  const auto found = scaleLaws().find(name);
  if (found == scaleLaws().end()) {
    std::fprintf(stderr, "law_run: there is no law %s\n", name.c_str());
    return false;
  }
  Draw draw(seed);
  Digest digest;
  const ScaleLaw holds = found->second(draw);
  const auto start = std::chrono::steady_clock::now();
  for (std::uint64_t i = 1; i <= cases; ++i) {
    if (const auto law = holds(digest); !law) {
      std::fprintf(stderr, "law_run: %s, seed %llu, case %llu: %s\n", name.c_str(),
                   static_cast<unsigned long long>(seed), static_cast<unsigned long long>(i),
                   law.message());
      return false;
    }
  }
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  std::printf("%s: seed %llu, %llu cases, digest %016llx\n", name.c_str(),
              static_cast<unsigned long long>(seed), static_cast<unsigned long long>(cases),
              static_cast<unsigned long long>(digest.value()));
  std::fflush(stdout);
  std::fprintf(stderr, "%s: %.1f s\n", name.c_str(), time.count());
  return true;
}

int usage() {
  std::fprintf(stderr, "usage: law_run SEED LAW=CASES...\nlaws:");
  for (const auto& [name, make] : scaleLaws()) std::fprintf(stderr, " %s", name.c_str());
  std::fprintf(stderr, "\n");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return usage();
  const std::uint64_t seed = std::stoull(argv[1]);
  for (int i = 2; i < argc; ++i) {
    const std::string order = argv[i];
    const std::size_t sign = order.find('=');
    if (sign == std::string::npos) return usage();
    if (!runLaw(order.substr(0, sign), seed, std::stoull(order.substr(sign + 1)))) return 1;
  }
  return 0;
}
