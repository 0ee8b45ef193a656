#include "korrin/foundation/environment.h"

#include <chrono>

namespace korrin {

Environment Environment::system() {
  return {
      .now =
          [] {
            return std::chrono::time_point_cast<Instant::duration>(
                std::chrono::system_clock::now());
          },
      .makeUUID = [] { return UUID::random(); },
  };
}

}  // namespace korrin
