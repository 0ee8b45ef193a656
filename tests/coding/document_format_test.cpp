// The page for the host's developer against the field tables.

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/files.h"

namespace korrin {
namespace {

struct Row {
  std::string key;
  std::string type;
  std::string presence;

  friend bool operator==(const Row&, const Row&) = default;
};
void PrintTo(const Row& row, std::ostream* out) {
  *out << row.key << " | " << row.type << " | " << row.presence;
}

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The cells of "| a | b |".
std::vector<std::string> cells(const std::string& line) {
  std::vector<std::string> found;
  std::istringstream parts(line.substr(1));
  for (std::string cell; std::getline(parts, cell, '|');) found.push_back(trimmed(cell));
  return found;
}

std::string withoutTicks(std::string text) {
  std::erase(text, '`');
  return text;
}

// The tables of the page by the heading above them.
std::map<std::string, std::vector<std::vector<std::string>>> tables() {
  std::map<std::string, std::vector<std::vector<std::string>>> found;
  std::istringstream page(test::contentOfSource("docs/document-format.md"));
  std::string heading;
  bool isHead = true;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with('#')) heading = line.substr(line.find(' ') + 1);
    if (!line.starts_with('|')) {
      isHead = true;
    } else if (isHead) {
      std::getline(page, line);  // the rule under the column titles
      isHead = false;
    } else {
      found[heading].push_back(cells(line));
    }
  }
  return found;
}

const std::map<std::string, std::vector<std::vector<std::string>>> page = tables();

std::string typeName(const Text*) { return "text"; }
std::string typeName(const double*) { return "number"; }
std::string typeName(const std::int64_t*) { return "integer"; }
std::string typeName(const bool*) { return "Boolean"; }
std::string typeName(const UUID*) { return "identifier"; }
std::string typeName(const Instant*) { return "date"; }
std::string typeName(const AudienceEdge*) { return "`AudienceEdge`"; }
std::string typeName(const PlotItemKind*) { return "`PlotItemKind`"; }
std::string typeName(const PaperSize*) { return "`PaperSize`"; }
std::string typeName(const StagePoint*) { return "`StagePoint`"; }
std::string typeName(const StageSize*) { return "`StageSize`"; }
std::string typeName(const StageDefinition*) { return "`StageDefinition`"; }
std::string typeName(const PlotItemStyle*) { return "`PlotItemStyle`"; }
std::string typeName(const PlotItem*) { return "`PlotItem`"; }
std::string typeName(const PlotLayer*) { return "`PlotLayer`"; }
std::string typeName(const PlotGroup*) { return "`PlotGroup`"; }
std::string typeName(const InputChannel*) { return "`InputChannel`"; }
std::string typeName(const MonitorMix*) { return "`MonitorMix`"; }
std::string typeName(const EquipmentRequirement*) { return "`EquipmentRequirement`"; }
std::string typeName(const ProjectNote*) { return "`ProjectNote`"; }
std::string typeName(const ProjectMetadata*) { return "`ProjectMetadata`"; }
std::string typeName(const ExportSettings*) { return "`ExportSettings`"; }
std::string typeName(const AssetManifestEntry*) { return "`AssetManifestEntry`"; }
std::string typeName(const KorrinProject*) { return "`KorrinProject`"; }
template <class Element>
std::string typeName(const List<Element>*) {
  return "list of " + typeName(static_cast<const Element*>(nullptr));
}

template <class Value>
Row rowOf(const std::string& key, const Value*) {
  return {key, typeName(static_cast<const Value*>(nullptr)), "required"};
}
template <class Value>
Row rowOf(const std::string& key, const std::optional<Value>*) {
  return {key, typeName(static_cast<const Value*>(nullptr)), "optional"};
}

template <class Record>
class DocumentedRecord : public testing::Test {};

using Records =
    testing::Types<StagePoint, StageSize, StageDefinition, PlotItemStyle, PlotItem, PlotLayer,
                   PlotGroup, InputChannel, MonitorMix, EquipmentRequirement, ProjectNote,
                   ProjectMetadata, ExportSettings, AssetManifestEntry, KorrinProject>;
TYPED_TEST_SUITE(DocumentedRecord, Records);

TYPED_TEST(DocumentedRecord, HasItsFieldTableOnThePage) {
  const std::string name = withoutTicks(typeName(static_cast<const TypeParam*>(nullptr)));
  SCOPED_TRACE(name);
  ASSERT_TRUE(page.contains(name));
  std::vector<Row> documented;
  for (const auto& line : page.at(name)) {
    ASSERT_EQ(line.size(), 4u);
    EXPECT_FALSE(line[3].empty()) << line[0];
    documented.push_back({withoutTicks(line[0]), line[1], line[2]});
  }
  std::vector<Row> fields;
  forEachField<TypeParam>([&](const auto& field) {
    using Value = typename std::remove_cvref_t<decltype(field)>::ValueType;
    fields.push_back(rowOf(std::string(field.key), static_cast<const Value*>(nullptr)));
  });
  EXPECT_EQ(documented, fields);
}

template <class Enumeration>
std::vector<std::string> documentedLine() {
  std::string words;
  for (const auto& row : CaseTable<Enumeration>::cases)
    words += (words.empty() ? "`" : ", `") + std::string(row.rawValue) + "`";
  return {typeName(static_cast<const Enumeration*>(nullptr)), words};
}

TEST(DocumentedEnumerations, AreTheCaseTables) {
  EXPECT_EQ(page.at("Enumerations"),
            (std::vector{documentedLine<AudienceEdge>(), documentedLine<PlotItemKind>(),
                         documentedLine<PaperSize>()}));
}

TEST(DocumentedDates, AreWrittenAsThePageSays) {
  const Instant instant = Instant(std::chrono::milliseconds(978'307'201'500));
  const auto written = [&](DateStrategy strategy) {
    ProjectMetadata metadata{};
    metadata.modifiedAt = instant;
    const std::string text = encodeJSON(metadata, {.dates = strategy});
    const std::size_t start = text.find("\"modifiedAt\":") + 13;
    return "`" + text.substr(start, text.size() - start - 1) + "`";
  };
  const auto& rows = page.at("Dates");
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0].at(2), written(DateStrategy::iso8601));
  EXPECT_EQ(rows[1].at(2), written(DateStrategy::secondsSince1970));
  EXPECT_EQ(rows[2].at(2), written(DateStrategy::millisecondsSince1970));
  EXPECT_EQ(rows[3].at(2), written(DateStrategy::secondsSinceReferenceDate));
}

}  // namespace
}  // namespace korrin
