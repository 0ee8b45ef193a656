#pragma once

// Lines that a person types.

#include <memory>
#include <optional>
#include <string>

namespace korrin::host {

/// Reads lines from the terminal that is standard input, with editing and a history of the lines
/// before. There may be one at a time, and while it is there an interruption ends a line, not the
/// program. It sets the process's character type to UTF-8 where the
/// environment names none, as documents are.
class TerminalLines {
 public:
  /// `prompt` stands before each line.
  explicit TerminalLines(std::string prompt);
  ~TerminalLines();
  TerminalLines(const TerminalLines&) = delete;
  TerminalLines& operator=(const TerminalLines&) = delete;

  /// The next line without its line break; nothing when the person has ended the input. A line that
  /// is interrupted (Ctrl-C) is dropped: it comes back empty.
  std::optional<std::string> next();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace korrin::host
