#include "korrin/templates/korrin_template.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/coding/json.h"

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using enum KorrinTemplateID;

struct Entry {
  KorrinTemplateID id;
  std::string_view rawValue, title, summary, systemImage, projectTitle;
};

constexpr Entry catalogue[] = {
    {soloAcoustic, "solo_acoustic", "Solo Acoustic",
     "Vocal, acoustic guitar, DI, wedge, inputs, and a compact 8 × 6 m stage.", "music.mic",
     "Solo Acoustic — Venue Advance"},
    {powerTrio, "power_trio", "Power Trio",
     "Drums, bass, guitar, three mixes, and a practical festival input list.", "guitars",
     "Power Trio — Festival Stage"},
    {electronicDuo, "electronic_duo", "Electronic Duo",
     "Stereo playback, two performers, IEMs, vocal inputs, and clean power.", "waveform.path.ecg",
     "Electronic Duo — Stereo Playback"},
    {fivePieceBand, "five_piece_band", "Five-Piece Band",
     "A complete festival-ready plot with 11 inputs, three mixes, and production notes.",
     "person.3.fill", "Five-Piece Band — Festival Main Stage"},
};

class TemplateCatalogue : public testing::TestWithParam<Entry> {};

TEST_P(TemplateCatalogue, SaysWhatAChooserShows) {
  const Entry& entry = GetParam();
  EXPECT_EQ(title(entry.id), entry.title);
  EXPECT_EQ(summary(entry.id), entry.summary);
  EXPECT_EQ(systemImage(entry.id), entry.systemImage);
}

TEST_P(TemplateCatalogue, NamesTemplatesInDocumentsByTheirRawValues) {
  const Entry& entry = GetParam();
  EXPECT_EQ(rawValue(entry.id), entry.rawValue);
  EXPECT_EQ(fromRawValue<KorrinTemplateID>(entry.rawValue), entry.id);
  const std::string document = '"' + std::string(entry.rawValue) + '"';
  EXPECT_EQ(encodeJSON(entry.id), document);
  EXPECT_EQ(decodeJSON<KorrinTemplateID>(document), entry.id);
}

TEST_P(TemplateCatalogue, HoldsTheDocumentOfEachTemplate) {
  const auto place = static_cast<std::size_t>(GetParam().id);
  ASSERT_LT(place, KorrinTemplate::all().size());
  const KorrinTemplate& entry = KorrinTemplate::all()[place];
  EXPECT_EQ(entry.id, GetParam().id);
  EXPECT_EQ(entry.project.metadata.title, GetParam().projectTitle);
  TestEnvironment environment;
  const KorrinProject fresh = KorrinProject::template_(entry.id, environment);
  EXPECT_EQ(entry.project.items.size(), fresh.items.size());
  EXPECT_EQ(entry.project.stage, fresh.stage);
}

INSTANTIATE_TEST_SUITE_P(, TemplateCatalogue, testing::ValuesIn(catalogue), [](const auto& row) {
  std::string name(row.param.title);
  std::erase_if(name, [](char character) { return character == ' ' || character == '-'; });
  return name;
});

TEST(KorrinTemplateID, ListsItsCasesInOrder) {
  EXPECT_THAT(allCases<KorrinTemplateID>(),
              testing::ElementsAre(soloAcoustic, powerTrio, electronicDuo, fivePieceBand));
}

TEST(KorrinTemplateID, IsNotNamedByTitlesOrByTheNamesInTheSource) {
  for (const char* text : {"Power Trio", "powerTrio", "POWER_TRIO", " power_trio", ""}) {
    EXPECT_EQ(fromRawValue<KorrinTemplateID>(text), std::nullopt) << text;
    EXPECT_THROW(decodeJSON<KorrinTemplateID>('"' + std::string(text) + '"'), DecodingError);
  }
}

TEST(KorrinTemplateID, IsCodedInLists) {
  const List<KorrinTemplateID> list = {fivePieceBand, soloAcoustic};
  EXPECT_EQ(encodeJSON(list), R"(["five_piece_band","solo_acoustic"])");
  EXPECT_EQ(decodeJSON<List<KorrinTemplateID>>(encodeJSON(list)), list);
}

TEST(KorrinTemplateIDDeathTest, AbortsForAValueThatIsNoCase) {
  const auto none = static_cast<KorrinTemplateID>(4);
  EXPECT_DEATH(title(none), "no case");
  EXPECT_DEATH(KorrinProject::template_(none), "no case");
}

TEST(KorrinTemplate, ListsAllTemplatesOnce) {
  EXPECT_EQ(KorrinTemplate::all().size(), std::size(catalogue));
  EXPECT_EQ(&KorrinTemplate::all(), &KorrinTemplate::all());
}

TEST(KorrinTemplate, ComparesAndHashesBothFields) {
  TestEnvironment environment;
  const KorrinTemplate original = {.id = powerTrio, .project = KorrinProject::example(environment)};
  KorrinTemplate other = original;
  EXPECT_EQ(other, original);
  EXPECT_EQ(std::hash<KorrinTemplate>{}(other), std::hash<KorrinTemplate>{}(original));
  other.id = soloAcoustic;
  EXPECT_NE(other, original);
  EXPECT_NE(std::hash<KorrinTemplate>{}(other), std::hash<KorrinTemplate>{}(original));
  other = original;
  other.project.metadata.title = "Another";
  EXPECT_NE(other, original);
  EXPECT_NE(std::hash<KorrinTemplate>{}(other), std::hash<KorrinTemplate>{}(original));
}

}  // namespace
}  // namespace korrin::test
