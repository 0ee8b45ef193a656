// The schemas against the pages: each says what the other says, and nothing is left over.

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/model/document_coding.h"

#include "commands/schema_command.h"
#include "documents/plot_document.h"
#include "schema/embedded_pages.h"
#include "schema/page.h"
#include "tests/support/files.h"

namespace korrin::host {
namespace {

using Json = nlohmann::ordered_json;
using Sections = std::set<std::string>;

struct Described {
  std::string name;
  std::string page;    // in docs/
  std::string golden;  // in schema/
  Sections otherTables;
  Sections describedElsewhere;  // on the page that the type's own schema goes with
  std::string_view (*embeddedPage)();
  std::string (*schema)();
};
void PrintTo(const Described& format, std::ostream* out) { *out << format.name; }

const std::vector<Described> formats = {
    {"Document",
     "document-format.md",
     "document.schema.json",
     {"Types", "Enumerations", "Dates", "Errors", "Schema"},
     {},
     documentFormatPage,
     [] { return documentSchema(DateStrategy::iso8601); }},
    {"CheckReport",
     "check-report.md",
     "check-report.schema.json",
     {"Types", "Enumerations", "What a status means"},
     {"AssetSection", "ReportedAsset", "AssetStatus", "AssetManifestEntry"},
     checkReportPage,
     reportSchema},
    {"AssetReport",
     "asset-report.md",
     "asset-report.schema.json",
     {"Enumerations", "What a status means"},
     {"AssetManifestEntry"},
     assetReportPage,
     assetReportSchema},
};

// A type in the words of the pages.
std::string wordsFor(const Json& schema) {
  if (schema.contains("const")) return schema["const"].dump();
  if (schema.contains("$ref")) {
    const std::string name = schema["$ref"].get<std::string>().substr(8);
    return name[0] >= 'A' && name[0] <= 'Z' ? "`" + name + "`" : name;
  }
  if (schema.contains("anyOf"))
    return wordsFor(schema["anyOf"][0]) + " or " + wordsFor(schema["anyOf"][1]);
  if (schema.contains("enum")) {
    std::string words;
    for (const Json& value : schema["enum"]) words += (words.empty() ? "" : ", ") + value.dump();
    return words;
  }
  const std::string type = schema.at("type");
  if (type == "array") return "list of " + wordsFor(schema["items"]);
  if (type == "string") return "text";
  if (type == "boolean") return "Boolean";
  if (type == "integer") return "count";
  return type;
}

// The row that the page must have for a key.
PageRow rowFor(const std::string& key, const Json& definition, bool namesPresence) {
  const Json& property = definition["properties"][key];
  std::string type = wordsFor(property);
  PageRow row = {"`" + key + "`"};
  if (namesPresence) {
    const bool isRequired =
        std::ranges::find(definition["required"], Json(key)) != definition["required"].end();
    const std::string absent = " or null";
    if (!isRequired && type.ends_with(absent)) type.erase(type.size() - absent.size());
    row.insert(row.end(), {type, isRequired ? "required" : "optional"});
  } else {
    row.push_back(type);
  }
  row.push_back(property["description"]);
  return row;
}

class DescribedFormat : public testing::TestWithParam<Described> {
 protected:
  const Page page{GetParam().embeddedPage()};
  const Json schema = Json::parse(GetParam().schema());

  /// The definitions that the page describes and that have such a member.
  std::vector<std::pair<std::string, Json>> definitionsWith(const std::string& member) const {
    std::vector<std::pair<std::string, Json>> found;
    for (const auto& [name, definition] : schema["$defs"].items())
      if (definition.contains(member) && !GetParam().describedElsewhere.contains(name))
        found.emplace_back(name, definition);
    return found;
  }
};

TEST_P(DescribedFormat, HasItsSchemaInTheRepository) {
  EXPECT_EQ(GetParam().schema() + "\n", test::contentOfSource("schema/" + GetParam().golden))
      << "korrin schema prints another one than schema/ holds";
}

TEST_P(DescribedFormat, IsDescribedByThePageOfTheRepository) {
  EXPECT_EQ(GetParam().embeddedPage(), test::contentOfSource("docs/" + GetParam().page));
}

TEST_P(DescribedFormat, HasATableForEveryRecordAndNoOther) {
  Sections expected = GetParam().otherTables;
  for (const auto& [name, definition] : definitionsWith("properties")) expected.insert(name);
  Sections found;
  for (const auto& [heading, section] : page.sections())
    if (!section.rows.empty()) found.insert(heading);
  EXPECT_EQ(found, expected);
}

TEST_P(DescribedFormat, HasThePagesRowsForItsRecords) {
  const bool namesPresence = GetParam().name == "Document";
  for (const auto& [name, definition] : definitionsWith("properties")) {
    std::vector<PageRow> rows;
    for (const auto& [key, property] : definition["properties"].items()) {
      EXPECT_NE(property["description"], "") << name << '.' << key;
      rows.push_back(rowFor(key, definition, namesPresence));
    }
    EXPECT_EQ(page.sections().at(name).rows, rows) << name;
    ASSERT_NE(page.opening(name), nullptr) << name;
    EXPECT_EQ(definition["description"], *page.opening(name));
  }
}

TEST_P(DescribedFormat, HasThePagesWordsForItsEnumerations) {
  std::vector<PageRow> documented = page.sections().at("Enumerations").rows;
  std::vector<PageRow> defined;
  for (const auto& [name, definition] : definitionsWith("enum")) {
    EXPECT_NE(definition["description"], "") << name;
    std::string words;
    for (const Json& word : definition["enum"])
      words += (words.empty() ? "`" : ", `") + word.get<std::string>() + "`";
    defined.push_back({"`" + name + "`", words, definition["description"]});
  }
  std::ranges::sort(documented);
  std::ranges::sort(defined);
  EXPECT_EQ(documented, defined);
}

INSTANTIATE_TEST_SUITE_P(, DescribedFormat, testing::ValuesIn(formats),
                         [](const auto& row) { return row.param.name; });

TEST(DocumentedDates, AreWrittenAsThePageSays) {
  const Instant instant = Instant(std::chrono::milliseconds(978'307'201'500));
  const auto written = [&](DateStrategy strategy) {
    ProjectMetadata metadata{};
    metadata.modifiedAt = instant;
    const std::string text = encodeJSON(metadata, {.dates = strategy});
    const std::size_t start = text.find("\"modifiedAt\":") + 13;
    return "`" + text.substr(start, text.size() - start - 1) + "`";
  };
  const Page page(documentFormatPage());
  const std::vector<PageRow>& rows = page.sections().at("Dates").rows;
  const auto strategies = allCases<DateStrategy>();
  ASSERT_EQ(rows.size(), strategies.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(nameOfRow(rows[i]), rawValue(strategies[i]));
    EXPECT_EQ(rows[i].at(2), written(strategies[i]));
  }
}

}  // namespace
}  // namespace korrin::host
