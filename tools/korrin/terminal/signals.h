#pragma once

// The signals that end the program from outside: SIGINT, SIGTERM and SIGHUP.

#include <csignal>

namespace korrin::host {

/// From here on they end the program with a message; one that the caller ignores stays ignored.
/// SIGPIPE and SIGXFSZ are ignored: a reader that went away, or a file that may not grow, shows as
/// a failed write, like a full disk.
void prepareForSignals();

/// While it lives, the signals that end the program wait.
class EndSignalsHeld {
 public:
  EndSignalsHeld();
  ~EndSignalsHeld();
  EndSignalsHeld(const EndSignalsHeld&) = delete;
  EndSignalsHeld& operator=(const EndSignalsHeld&) = delete;

 private:
  sigset_t before_;
};

}  // namespace korrin::host
