#include "terminal/signals.h"

#include <string_view>

#include <unistd.h>

namespace korrin::host {
namespace {

constexpr int ending[] = {SIGINT, SIGTERM, SIGHUP};

// Nothing but what may be called while anything else is half done.
void sayAndEnd(int signal) {
  const std::string_view sentence =
      signal == SIGINT    ? "korrin: interrupted; what was not saved is lost\n"
      : signal == SIGTERM ? "korrin: ended by SIGTERM; what was not saved is lost\n"
                          : "korrin: ended by SIGHUP; what was not saved is lost\n";
  if (::write(STDERR_FILENO, sentence.data(), sentence.size()) < 0) {
    // There is nobody left to tell.
  }
  std::signal(signal, SIG_DFL);
  ::raise(signal);  // arrives when this function returns
}

}  // namespace

void prepareForSignals() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  for (const int signal : ending)
    if (std::signal(signal, sayAndEnd) == SIG_IGN) std::signal(signal, SIG_IGN);
}

EndSignalsHeld::EndSignalsHeld() {
  sigset_t held;
  sigemptyset(&held);
  for (const int signal : ending) sigaddset(&held, signal);
  sigprocmask(SIG_BLOCK, &held, &before_);
}

EndSignalsHeld::~EndSignalsHeld() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace korrin::host
