#pragma once

// Numbers as JSON writes them: from text to value without loss, and back.

#include <cstdint>
#include <optional>
#include <string_view>

namespace korrin::json {

/// Why a number is no integer of 64 bits.
enum class IntegerFault { none, hasFraction, doesNotFit };

struct ExactInteger {
  std::int64_t value;
  IntegerFault fault;
};

/// The exact value of a number in any notation, `text` being a well-formed JSON number.
ExactInteger exactInteger(std::string_view text);

/// `text` times ten to the power `decimals`, rounded to the nearest integer, halves away from zero,
/// plus `origin`, which is not negative; nothing when that does not fit 64 bits.
std::optional<std::int64_t> scaledInteger(std::string_view text, int decimals, std::int64_t origin);

/// The nearest double; nothing when it is not finite. Keeps the sign of -0.
std::optional<double> nearestDouble(std::string_view text);

/// Longest text that `writeDouble` and `writeInteger` produce.
inline constexpr std::size_t maximumNumberLength = 32;

/// Writes the shortest text that reads back as exactly `value`, which is finite, and returns its
/// end. Values from 1e-7 to below 1e21 stand without an exponent.
char* writeDouble(char* out, double value);

/// Writes `value` in decimal and returns its end.
char* writeInteger(char* out, std::int64_t value);

/// Writes `value` minus `origin`, times ten to the power -`decimals`, exactly and without an
/// exponent, and returns its end: what `scaledInteger` reads back.
char* writeScaledInteger(char* out, std::int64_t value, int decimals, std::int64_t origin);

}  // namespace korrin::json
