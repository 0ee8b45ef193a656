#include "schema/schema_builder.h"

#include <limits>
#include <stdexcept>

namespace korrin::host {
namespace {

using Json = SchemaBuilder::Json;

// Regular expressions keep to what all dialects share: no look-ahead, which some lack, and no \d,
// which in some takes the digits of every script.
constexpr auto identifierPattern =
    "^[0-9A-Fa-f]{8}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{12}$";

constexpr auto datePattern =
    "^[0-9]{4}-(0[1-9]|1[0-2])-(0[1-9]|[12][0-9]|3[01])"
    "[Tt]([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9](\\.[0-9]{1,9})?"
    "([Zz]|[+-]([01][0-9]|2[0-3]):[0-5][0-9])$";

Json pattern(const char* text, const char* comment) {
  return {{"$comment", comment}, {"pattern", text}};
}

// Dates of the right shape that are none, or that nanoseconds of 64 bits do not reach. Which
// offsets reach the last instants of the range is left to the reader.
Json wrongDates() {
  return {
      pattern("^[0-9]{4}-(02-3|(04|06|09|11)-31)", "a day that its month does not have"),
      pattern("^([0-9]{2}([02468][1235679]|[13579][013-57-9])|"
              "([02468][1235679]|[13579][013-57-9])00)-02-29",
              "29 February of a year that is no leap year"),
      pattern("^(0|1[0-5]|16[0-6]|167[0-6]|1677-(0[1-8]|09-[01]))", "before 1677-09-20"),
      pattern("^(2262-(04-(1[3-9]|[23])|0[5-9]|1)|226[3-9]|22[7-9]|2[3-9]|[3-9])",
              "after 2262-04-12"),
  };
}

Json textDate() {
  return {{"type", "string"},
          {"format", "date-time"},
          {"pattern", datePattern},
          {"not", {{"anyOf", wrongDates()}}}};
}

// The instants that nanoseconds of 64 bits reach, to the nearest double.
Json numericDate(DateStrategy strategy) {
  const double nanosecondsPerUnit = strategy == DateStrategy::millisecondsSince1970 ? 1e6 : 1e9;
  const double origin = strategy == DateStrategy::secondsSinceReferenceDate ? 978'307'200 : 0;
  const double reach =
      static_cast<double>(std::numeric_limits<std::int64_t>::max()) / nanosecondsPerUnit;
  return {{"type", "number"}, {"minimum", -reach - origin}, {"maximum", reach - origin}};
}

}  // namespace

Json SchemaBuilder::of(Type<double>) {
  return defined("number", [this] {
    constexpr double largest = std::numeric_limits<double>::max();
    return Json{{"description", row("Types", "number").back()},
                {"type", "number"},
                {"minimum", -largest},
                {"maximum", largest}};
  });
}

Json SchemaBuilder::of(Type<std::int64_t>) {
  return defined("integer", [this] {
    return Json{{"description", row("Types", "integer").back()},
                {"type", "integer"},
                {"minimum", std::numeric_limits<std::int64_t>::min()},
                {"maximum", std::numeric_limits<std::int64_t>::max()}};
  });
}

Json SchemaBuilder::of(Type<UUID>) {
  return defined("identifier", [this] {
    return Json{{"description", row("Types", "identifier").back()},
                {"type", "string"},
                {"format", "uuid"},
                {"pattern", identifierPattern}};
  });
}

Json SchemaBuilder::of(Type<Instant>) {
  return defined("date", [this] {
    Json date = {{"description", row("Dates", rawValue(dates_)).at(1)}};
    date.update(dates_ == DateStrategy::iso8601 ? textDate() : numericDate(dates_));
    return date;
  });
}

Json SchemaBuilder::of(Type<ExitCode>) const {
  Json codes = Json::array();
  for (const ExitCode code :
       {ExitCode::clean, ExitCode::findings, ExitCode::unusable, ExitCode::needsNewerVersion})
    codes.push_back(static_cast<int>(code));
  return {{"type", "integer"}, {"enum", std::move(codes)}};
}

const std::string& SchemaBuilder::opening(std::string_view heading) const {
  for (const Page& page : pages_)
    if (const std::string* found = page.opening(heading)) return *found;
  throw std::logic_error("no page says what " + std::string(heading) + " is");
}

const PageRow& SchemaBuilder::row(std::string_view heading, std::string_view name) const {
  for (const Page& page : pages_)
    if (const PageRow* found = page.row(heading, name)) return *found;
  throw std::logic_error("no page describes " + std::string(name) + " of " + std::string(heading));
}

Json SchemaBuilder::eitherOf(std::vector<Json> schemas) { return {{"anyOf", std::move(schemas)}}; }

Json SchemaBuilder::arrayOf(Json items) { return {{"type", "array"}, {"items", std::move(items)}}; }

}  // namespace korrin::host
