#include "korrin/coding/json_reader.h"

#include <bit>

#include "korrin/coding/date_coding.h"
#include "korrin/coding/decimal_quotient.h"
#include "korrin/coding/instant_text.h"
#include "korrin/coding/json_number.h"

namespace korrin::json {
namespace {

using Kind = DecodingError::Kind;

}  // namespace

std::string_view Reader::number(std::string_view expected) {
  const char first = scanner_.peek();
  if (first != '-' && (first < '0' || first > '9')) refuseType(expected);
  return scanner_.number();
}

void Reader::read(bool& value) {
  if (scanner_.peek() == 't') {
    takeLiteral("true");
    value = true;
  } else if (scanner_.peek() == 'f') {
    takeLiteral("false");
    value = false;
  } else {
    refuseType("true or false");
  }
}

std::optional<double> Reader::nonFinite() {
  const char* const start = scanner_.position();
  const auto found = nonFiniteNamed(unescaped(scanner_.string()));
  if (!found) scanner_.returnTo(start);
  return found;
}

void Reader::read(double& value) {
  static_assert(ShortNumber::maximumDigits - 1 <= mostDecimals);
  const char* const start = scanner_.position();
  if (const auto number = scanner_.shortNumber()) [[likely]] {
    if (const auto magnitude = nearestQuotient(number->digits, number->decimals)) [[likely]] {
      // Keeps the sign of -0, and does not make the processor guess it.
      value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(*magnitude) |
                                    std::uint64_t{number->isNegative} << 63);
      return;
    }
    scanner_.returnTo(start);
  }
  readAnyNumber(value);
}

void Reader::readAnyNumber(double& value) {
  if (scanner_.peek() == '"' && options_.nonFinite == NonFinite::strings) {
    if (const auto found = nonFinite()) {
      value = *found;
      return;
    }
  }
  const std::string_view text = number("a number");
  const auto nearest = nearestDouble(text);
  if (!nearest)
    refuse(Kind::dataCorrupted, "a number within the range of a double", shortened(text));
  value = *nearest;
}

void Reader::read(std::int64_t& value) {
  const char* const start = scanner_.position();
  if (const auto number = scanner_.shortNumber()) [[likely]] {
    if (number->decimals == 0) [[likely]] {
      const auto magnitude = static_cast<std::int64_t>(number->digits);
      value = number->isNegative ? -magnitude : magnitude;
      return;
    }
    scanner_.returnTo(start);
  }
  readAnyNumber(value);
}

void Reader::readAnyNumber(std::int64_t& value) {
  const std::string_view text = number("an integer");
  const ExactInteger exact = exactInteger(text);
  if (exact.fault == IntegerFault::hasFraction)
    refuse(Kind::typeMismatch, "an integer", shortened(text));
  if (exact.fault == IntegerFault::doesNotFit)
    refuse(Kind::dataCorrupted, "an integer of 64 bits", shortened(text));
  value = exact.value;
}

void Reader::read(Text& value) {
  expect('"', "a string");
  const std::string_view bytes = scanner_.shortString(Text::mostInside);
  if (bytes.data() != nullptr) {
    value = Text(ShortASCII{bytes.data(), bytes.size()});
    return;
  }
  const StringToken token = scanner_.string();
  if (token.hasEscapes)
    value = unescaped(token);
  else
    recentTexts_.read({token.raw, token.isASCII}, value);
}

void Reader::read(UUID& value) {
  // An identifier as everybody writes it needs no search for its closing quotation mark.
  constexpr std::size_t length = UUID::textLength + 2;
  const std::string_view ahead = scanner_.ahead(length);
  if (ahead.size() == length && ahead.front() == '"' && ahead.back() == '"') {
    if (const auto found = UUID::fromText(ahead.substr(1, UUID::textLength))) {
      scanner_.advance(length);
      value = *found;
      return;
    }
  }
  const StringToken token = string("an identifier");
  const auto found = UUID::fromText(unescaped(token));
  if (!found) refuse(Kind::dataCorrupted, "an identifier of 36 characters", quoted(token.raw));
  value = *found;
}

void Reader::read(Instant& value) {
  if (options_.dates != DateStrategy::iso8601) {
    const std::string_view text = number("a number");
    const auto found = instantFromNumber(text, options_.dates);
    if (!found)
      refuse(Kind::dataCorrupted, "a date between the years 1677 and 2262", shortened(text));
    value = *found;
    return;
  }
  const StringToken token = string("a date as a string");
  const auto found =
      token.hasEscapes ? instantFromText(unescaped(token)) : instantFromText(token.raw);
  if (!found)
    refuse(Kind::dataCorrupted, "a date such as \"2026-07-18T20:30:00Z\"", quoted(token.raw));
  value = *found;
}

void Reader::checkPresence(bool isPresent, bool mayBeAbsent, bool standsTwice) const {
  if (standsTwice) refuse(Kind::dataCorrupted, "the key once", "it twice");
  if (!isPresent && !mayBeAbsent) refuse(Kind::keyNotFound, "a value", "no such key");
}

void Reader::refuseType(std::string_view expected) const {
  const std::string_view found = typeOfNextValue(scanner_);
  refuse(found == "null" ? Kind::valueNotFound : Kind::typeMismatch, expected, found);
}

void Reader::refuse(Kind kind, std::string_view expected, std::string_view found) const {
  if (!isDiagnosing_) throw Refused{};
  throw refusal(kind, path_, placeOf(scanner_, valueStart_), expected, found);
}

void Reader::refuseWord(const std::vector<std::string_view>& words,
                        const StringToken& token) const {
  if (!isDiagnosing_) throw Refused{};
  // Shown as the document spells it, so that escaped control characters stay escaped.
  throw refusal(
      Kind::dataCorrupted, path_, placeOf(scanner_, valueStart_), oneOf(words),
      quoted(token.raw) + "; the nearest is " + quoted(nearestWord(unescaped(token), words)));
}

}  // namespace korrin::json
