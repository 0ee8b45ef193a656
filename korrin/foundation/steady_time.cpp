#include "korrin/foundation/steady_time.h"

namespace korrin {

std::chrono::nanoseconds steadyTime() noexcept {
  return std::chrono::steady_clock::now().time_since_epoch();
}

}  // namespace korrin
