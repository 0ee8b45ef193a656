// Two records differ as soon as one field does, whichever it is, and their hashes then differ too.

#include <optional>
#include <type_traits>

#include <gtest/gtest.h>

#include "korrin/commands/change_set.h"
#include "korrin/model/document_coding.h"
#include "korrin/model/project.h"
#include "korrin/preflight/preflight_issue.h"
#include "korrin/templates/korrin_template.h"

#include "tests/support/full_project.h"

namespace korrin {
namespace {

Text another(const Text& text) { return text.str() + "'"; }
bool another(bool value) { return !value; }
double another(double value) { return value + 1; }
std::int64_t another(std::int64_t value) { return value + 1; }
Instant another(Instant instant) { return instant + std::chrono::nanoseconds(1); }
UUID another(const UUID&) { return test::numberedID(999); }
IDSet another(IDSet ids) {
  ids.insert(test::numberedID(999));
  return ids;
}
template <class Enumeration>
requires std::is_enum_v<Enumeration> Enumeration another(Enumeration value) {
  return static_cast<Enumeration>(static_cast<int>(value) == 0 ? 1 : 0);
}
template <class Value>
std::optional<Value> another(const std::optional<Value>& value) {
  return value ? std::nullopt : std::optional<Value>(Value{});
}
template <class Element>
List<Element> another(List<Element> list) {
  list.push_back(Element{});
  return list;
}
template <RecordType Record>
Record another(Record record) {
  constexpr auto member = std::get<0>(fieldsOf<Record>()).member;
  record.*member = another(record.*member);
  return record;
}

template <class Record>
Record sample() {
  return Record{};
}
template <>
PreflightIssue sample<PreflightIssue>() {
  return {PreflightRule::missingAsset, PreflightSeverity::warning, "title", "detail"};
}

template <class Record>
class RecordEquality : public testing::Test {};
using Records =
    testing::Types<StagePoint, StageSize, StageDefinition, PlotItemStyle, PlotItem, PlotLayer,
                   PlotGroup, InputChannel, MonitorMix, EquipmentRequirement, ProjectNote,
                   ProjectMetadata, ExportSettings, AssetManifestEntry, KorrinProject,
                   DocumentVersions, ChangeSet, PreflightIssue, KorrinTemplate>;
TYPED_TEST_SUITE(RecordEquality, Records);

TYPED_TEST(RecordEquality, LooksAtEveryField) {
  const TypeParam original = sample<TypeParam>();
  EXPECT_EQ(original, sample<TypeParam>());
  forEachField<TypeParam>([&original](const auto& field) {
    TypeParam changed = original;
    changed.*field.member = another(changed.*field.member);
    EXPECT_FALSE(changed == original) << field.key;
    EXPECT_NE(std::hash<TypeParam>{}(changed), std::hash<TypeParam>{}(original)) << field.key;
  });
}

}  // namespace
}  // namespace korrin
