#pragma once

// What ends a command, or one line of a script, and leaves the rest of the program as it was.

#include <stdexcept>
#include <string>
#include <string_view>

#include "terminal/exit_code.h"
#include "terminal/similar_file.h"
#include "terminal/terminal.h"

namespace korrin::host {

/// `what()` is one sentence without a full stop, or the rest of one that begins with a file's name.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& sentence, ExitCode exitCode = ExitCode::unusable)
      : std::runtime_error(sentence), exitCode_(exitCode) {}

  /// What the program ends with where nothing worse comes.
  ExitCode exitCode() const noexcept { return exitCode_; }

 private:
  ExitCode exitCode_;
};

/// A command line that cannot be understood.
class UsageError : public Failure {
 public:
  explicit UsageError(const std::string& sentence) : Failure(sentence, ExitCode::usage) {}
};

/// What `body` returns. A failure is said, after `place` if that is not empty, and its exit code
/// returned instead; `body` may change `place` as it goes. Where `place` names a file to read that
/// is not there, one with a similar name is offered.
template <class Body>
ExitCode sayingFailures(Console& console, const std::string& place, Body body) {
  try {
    return body();
  } catch (const UsageError&) {
    throw;
  } catch (const Failure& failure) {
    const bool isReading = std::string_view(failure.what()).starts_with("cannot be read");
    complain(console, (place.empty() ? "" : place + ": ") + failure.what() +
                          (isReading ? similarFileSuggestion(place) : ""));
    return failure.exitCode();
  }
}

}  // namespace korrin::host
