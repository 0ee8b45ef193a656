#pragma once

// The words of one line of editing commands.

#include <string>
#include <string_view>
#include <vector>

#include "terminal/failure.h"

namespace korrin::host {

/// A line that is not carried out; `what()` is one sentence without a full stop.
class LineError : public Failure {
 public:
  using Failure::Failure;
};

/// The words between the blanks of a line. Double quotes hold a word with blanks, or an empty one,
/// together; inside them \" stands for a quote, \\ for a backslash, and \n, \r and \t for a line
/// break, a carriage return and a tab. A # that begins a word makes the rest of the line a comment.
/// Throws LineError for a quote without its partner.
std::vector<std::string> wordsOf(std::string_view line);

/// The word as it has to be written in a line; ill-formed bytes and all.
std::string inQuotes(std::string_view word);

}  // namespace korrin::host
