#pragma once

// Changes of a JSON text that mostly leave it JSON, so that fuzzing gets past the syntax.

#include <random>
#include <string>

namespace korrin::fuzz {

/// The text with one value, member or element changed: replaced, repeated, removed, exchanged for
/// another, or spelled differently. A text in which no value is found comes back as it is.
std::string mutatedJSON(std::string text, std::minstd_rand& random);

}  // namespace korrin::fuzz
