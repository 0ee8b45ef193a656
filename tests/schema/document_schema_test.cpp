// The schema of documents against the reader, by the judgement of a validator of other authors.

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/coding/instant_text.h"
#include "korrin/model/document_coding.h"

#include "commands/schema_command.h"
#include "documents/plot_document.h"
#include "schema/embedded_pages.h"
#include "schema/page.h"
#include "tests/schema/validator.h"
#include "tests/support/date_texts.h"
#include "tests/support/files.h"
#include "tests/support/full_project.h"
#include "tests/support/mutated_projects.h"
#include "tests/support/number_texts.h"

namespace korrin::host {
namespace {

namespace fs = std::filesystem;
using test::FullDocument;
using test::Place;
using test::SchemaCase;

constexpr auto strategies = allCases<DateStrategy>();

std::string idOf(DateStrategy dates) {
  std::string id = "urn:korrincore:document:1";
  if (dates != DateStrategy::iso8601) id += ":" + std::string(rawValue(dates));
  return id;
}

std::vector<std::string> schemas() {
  std::vector<std::string> all;
  for (const DateStrategy dates : strategies) all.push_back(documentSchema(dates));
  return all;
}

// A text, and whether the reader takes it.
struct Document {
  std::string name;  // the same for all documents that are refused for one reason
  std::string place;
  std::string text;
  bool isAccepted;
  std::string schema = idOf(DateStrategy::iso8601);
};

bool isAccepted(const std::string& text, DateStrategy dates = DateStrategy::iso8601) {
  return !test::refusalOf<KorrinProject>(text, {.dates = dates});
}

Document judged(const std::string& name, const std::string& text) {
  return {name, "", text, isAccepted(text)};
}

// The full document with the raw text as the first value whose type has that name.
Document withFirst(const std::string& expected, const std::string& name, const std::string& raw) {
  const FullDocument document;
  const auto place = std::ranges::find(document.places(), expected, &Place::expected);
  const std::string text = document.withRaw(*place, raw);
  return {name, place->keyPath, text, isAccepted(text)};
}

std::vector<Document> mutations() {
  std::vector<Document> documents;
  for (const test::Mutation& row : test::allMutations())
    documents.push_back({row.change, row.keyPath, row.text, isAccepted(row.text)});
  return documents;
}

std::vector<Document> notations() {
  std::vector<Document> documents;
  const auto addDate = [&](const std::string& name, const std::string& text) {
    documents.push_back(withFirst("a date as a string", name, FullDocument::Json(text).dump()));
  };
  for (const auto& row : test::acceptedDates()) addDate(row.name, row.text);
  for (const auto& row : test::refusedDates()) addDate(row.name, row.text);
  for (const auto& row : test::acceptedIntegers())
    documents.push_back(withFirst("an integer", row.name, row.text));
  for (const auto& row : test::refusedIntegers())
    documents.push_back(withFirst("an integer", row.name + " as an integer", row.text));
  for (const auto& row : test::acceptedDoubles())
    documents.push_back(withFirst("a number", row.name, row.text));
  for (const std::string& text : test::refusedDoubles())
    documents.push_back(withFirst("a number", "double that rounds to infinity", text));
  return documents;
}

// The last days of months in years of every kind, by themselves.
std::vector<Document> calendar() {
  std::vector<Document> documents;
  for (const int year : {0,    1500, 1599, 1676, 1678, 1700, 1704, 1800, 1896, 1900, 1904, 1999,
                         2000, 2001, 2004, 2018, 2100, 2200, 2261, 2263, 2300, 2400, 9999})
    for (int month = 1; month <= 12; ++month)
      for (const int day : {28, 29, 30, 31}) {
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT12:00:00Z", year, month, day);
        const bool isDate = instantFromText(text.data()).has_value();
        documents.push_back({"calendar", text.data(), '"' + std::string(text.data()) + '"', isDate,
                             idOf(DateStrategy::iso8601) + "#/$defs/date"});
      }
  return documents;
}

std::string nested(int depth) {
  const auto count = static_cast<std::size_t>(depth);
  return std::string(count, '[') + std::string(count, ']');
}

// What is wrong with the text rather than with the value.
std::vector<Document> texts() {
  const std::string text = encodeJSON(test::fullProject());
  const auto withMember = [&](const std::string& value) {
    return "{\"later\":" + value + "," + text.substr(1);
  };
  return {
      judged("as written", text),
      judged("nested to the limit", withMember(nested(511))),
      judged("nested too deep", withMember(nested(512))),
      judged("lone surrogate", withMember(R"("\ud800")")),
      judged("surrogate pair", withMember(R"("\ud83e\udd41")")),
      judged("byte order mark", "\xEF\xBB\xBF" + text),
      judged("ill-formed UTF-8", withMember("\"\xC3\"")),
      judged("control character in a text", withMember("\"\x01\"")),
      judged("comma behind the last member", withMember("[1,]")),
      judged("not a number", withMember("NaN")),
      judged("truncated", text.substr(0, text.size() - 1)),
      judged("two documents", text + text),
      judged("nothing", ""),
  };
}

// Every document under every date strategy.
std::vector<Document> files() {
  std::vector<Document> documents;
  for (const std::string folder : {"examples/documents", "tests/golden"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(KORRIN_SOURCE_DIR) / folder)) {
      const std::string text = test::contentOf(entry.path());
      const std::string name = entry.path().filename().string();
      // Of single records golden_test.cpp proves that they are read.
      const std::string record = entry.path().stem().string();
      const bool isRecord = folder == "tests/golden" && !name.starts_with("KorrinProject") &&
                            !name.starts_with("template");
      for (const DateStrategy dates : strategies) {
        if (!isRecord)
          documents.push_back({"file", name, text, isAccepted(text, dates), idOf(dates)});
        else if (dates == DateStrategy::iso8601)
          documents.push_back({"file", name, text, true, idOf(dates) + "#/$defs/" + record});
      }
    }
  }
  return documents;
}

// The first and the last instant of every strategy, and numbers a little beyond them.
std::vector<Document> numericDates() {
  struct Beyond {
    DateStrategy dates;
    std::vector<std::string> numbers;
    std::string nearestDouble;  // to the last instant, and later than it
  };
  const std::vector<Beyond> beyond = {
      {DateStrategy::secondsSince1970,
       {"-9223372036.86", "9223372036.86", "1e300"},
       "9223372036.854776"},
      {DateStrategy::millisecondsSince1970,
       {"-9223372036854.78", "9223372036854.78"},
       "9223372036854.776"},
      {DateStrategy::secondsSinceReferenceDate,
       {"-10201679236.86", "8245064836.86"},
       "8245064836.854776"},
  };
  std::vector<Document> documents;
  KorrinProject project = test::fullProject();
  const auto add = [&](const std::string& name, DateStrategy dates, const std::string& text) {
    documents.push_back(
        {name, std::string(rawValue(dates)), text, isAccepted(text, dates), idOf(dates)});
  };
  for (const DateStrategy dates : strategies) {
    for (const Instant instant : {Instant::min(), Instant(), Instant::max()}) {
      project.metadata.createdAt = instant;
      add("instant", dates, encodeJSON(project, {.dates = dates}));
    }
  }
  project.metadata.createdAt = Instant();
  for (const Beyond& row : beyond) {
    const std::string text = encodeJSON(project, {.dates = row.dates});
    const std::string key = "\"createdAt\":";
    const std::size_t start = text.find(key) + key.size();
    const std::size_t length = text.find(',', start) - start;
    const auto with = [&](const std::string& number) {
      return std::string(text).replace(start, length, number);
    };
    for (const std::string& number : row.numbers) add("instant", row.dates, with(number));
    add("instant that rounding brings into reach", row.dates, with(row.nearestDouble));
  }
  return documents;
}

// What the reader refuses and the schema cannot, by the reason that the page gives. The validator
// reads numbers as doubles.
const std::map<std::string, std::set<std::string>> differences = {
    {"a known key that stands twice", {"key twice", "EscapedKeyTwice"}},
    {"an escape of a lone surrogate", {"lone surrogate"}},
    {"nesting deeper than 512", {"nested too deep"}},
    {"an instant of 1677-09-20 to 21 or 2262-04-11 to 12 that lies just outside the range",
     {"JustBeforeTheEarliest", "OneSecondBeforeTheEarliest", "TheEarliestTooFarEast",
      "JustAfterTheLatest", "OneSecondAfterTheLatest", "TheLatestTooFarWest"}},
    {"a number that only rounding makes fit, such as `9223372036854775808` for an integer or one "
     "with a fraction of 1e-400",
     {"9223372036854775808", "JustAbove as an integer", "JustAboveWithFraction as an integer",
      "JustAboveScaled as an integer", "JustAboveTimesHundred as an integer",
      "JustBelow as an integer", "FractionJustBelowTheHighest as an integer",
      "HugeNegativeExponent as an integer", "instant that rounding brings into reach"}},
};

std::vector<Document> allDocuments() {
  std::vector<Document> all;
  for (const auto& group : {mutations(), notations(), calendar(), texts(), files(), numericDates()})
    all.insert(all.end(), group.begin(), group.end());
  return all;
}

TEST(DocumentSchema, JudgesAsTheReaderDoesWhereverASchemaCan) {
  if (const std::string why = test::whyNoValidator(); !why.empty()) GTEST_SKIP() << why;
  const std::vector<Document> documents = allDocuments();
  std::vector<SchemaCase> cases;
  for (const Document& document : documents) cases.push_back({document.schema, document.text});
  const std::vector<std::string> verdicts = test::verdictsOn(cases, schemas());

  std::set<std::string> expected;
  for (const auto& [reason, names] : differences) expected.insert(names.begin(), names.end());
  std::set<std::string> differing;
  std::map<bool, int> count;
  for (std::size_t i = 0; i < documents.size(); ++i) {
    const Document& document = documents[i];
    SCOPED_TRACE(document.name + " at \"" + document.place + "\", " + document.schema);
    ++count[document.isAccepted];
    if (expected.contains(document.name)) {
      EXPECT_FALSE(document.isAccepted);
      EXPECT_EQ(verdicts[i], "valid");
      differing.insert(document.name);
    } else if (document.isAccepted) {
      EXPECT_EQ(verdicts[i], "valid");
    } else {
      EXPECT_TRUE(verdicts[i] == "invalid" || verdicts[i] == "not JSON") << verdicts[i];
    }
  }
  EXPECT_EQ(differing, expected);
  EXPECT_GT(count[true], 200);
  EXPECT_GT(count[false], 700);
}

TEST(DocumentSchema, DiffersFromTheReaderForTheReasonsOnThePage) {
  const Page page(documentFormatPage());
  std::set<std::string> documented;
  for (const PageRow& row : page.sections().at("Schema").rows) documented.insert(row.front());
  std::set<std::string> tested;
  for (const auto& [reason, names] : differences) tested.insert(reason);
  EXPECT_EQ(documented, tested);
}

TEST(DocumentSchema, DiffersBetweenDateStrategiesInTheDateAlone) {
  using Json = nlohmann::ordered_json;
  const Json usual = Json::parse(documentSchema(DateStrategy::iso8601));
  for (const DateStrategy dates : strategies) {
    Json other = Json::parse(documentSchema(dates));
    EXPECT_EQ(other["$id"], idOf(dates));
    other["$id"] = usual["$id"];
    other["$defs"]["date"] = usual["$defs"]["date"];
    EXPECT_EQ(other, usual);
  }
}

}  // namespace
}  // namespace korrin::host
