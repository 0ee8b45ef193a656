#pragma once

// What the program knows about the places it prints to.

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace korrin::host {

/// Properties of one output.
struct Terminal {
  bool isTerminal = false;  ///< Whether a person is looking, rather than a file or a pipe.
  bool hasColour = false;   ///< Whether colours are shown and wanted.
  std::size_t width = 0;    ///< Columns of a line; 0 for no limit.

  /// The properties of an open file descriptor. There is no colour where the environment variable
  /// NO_COLOR is set and not empty, nor on a terminal that calls itself dumb.
  static Terminal of(int descriptor);
};

enum class Colour { red, yellow, blue };

/// `text` in colour and bold where the terminal has colours, otherwise as it is.
std::string coloured(const Terminal& terminal, Colour colour, std::string_view text);

/// Where a command prints: results, and everything about the work itself.
struct Console {
  std::ostream& out;
  std::ostream& err;
  Terminal outTerminal;
  Terminal errTerminal;
};

/// Prints one line about the work, "korrin: " and the sentence, after all results printed before.
/// The sentence may hold any bytes; see `printable`.
void complain(Console& console, std::string_view sentence);

/// A line on the console's error output that says how far the work has come. Shown only on a
/// terminal, and only for two or more steps, or where a step takes a while.
class Progress {
 public:
  Progress(Console& console, std::size_t steps);
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Shows that the next step, called `name`, begins. It takes a while where it has many bytes.
  void step(std::string_view name, std::uintmax_t bytes = 0);
  /// Takes the line away, so that something else can be printed.
  void clear();

 private:
  Console& console_;
  std::size_t steps_;
  std::size_t begun_ = 0;
  bool isEnabled_;
  bool isShown_ = false;
};

}  // namespace korrin::host
