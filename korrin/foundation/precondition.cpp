#include "korrin/foundation/precondition.h"

#include <cstdio>
#include <cstdlib>

namespace korrin {

void abortWith(const char* message) noexcept {
  std::fprintf(stderr, "korrin: %s\n", message);
  std::abort();
}

}  // namespace korrin
