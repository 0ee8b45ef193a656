#include "korrin/drawing/sheets.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <list>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/coding/json.h"
#include "korrin/drawing/moment_text.h"
#include "korrin/drawing/page_flow.h"

#include "tests/support/files.h"
#include "tests/support/svg_reader.h"

namespace korrin::drawing {
namespace {

using namespace std::chrono_literals;
using test::countOf;
using test::fixedExample;
using test::textsOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The texts of all sheets.
std::vector<std::string> textsOfAll(const KorrinProject& project,
                                    const DrawingOptions& options = {}) {
  return textsOf(drawStackedPages(project, options));
}

/// The pages that the tables take.
std::list<SvgWriter> flowed(const std::vector<ListTable>& tables, const Box& box) {
  std::list<SvgWriter> pages;
  flowTables(tables, box, [&pages]() -> SvgWriter& { return pages.emplace_back(); });
  return pages;
}

std::vector<test::SvgElement> elementsOf(const SvgWriter& content) {
  SvgWriter svg;
  svg.beginDocument(100, 100, "");
  svg.add(content);
  svg.endDocument();
  const test::SvgPicture picture = test::readSvg(svg.content());
  EXPECT_EQ(picture.fault, "");
  return picture.elements;
}

TEST(Sheets, AreThoseThatTheReadmeShows) {
  // Drawn anew by `korrin render --utc-offset +02:00` when the drawing changes.
  const auto project = decodeJSON<KorrinProject>(
      test::contentOfSource("examples/documents/festival-main-stage.json"));
  EXPECT_TRUE(drawStackedPages(project, {.utcOffset = 120min}) ==
              test::contentOfSource("docs/images/example.svg"));
}

TEST(Sheets, AreOfThePaperThatTheSettingsName) {
  KorrinProject project = fixedExample();
  const auto expectSize = [&project](const std::string& width, const std::string& height) {
    for (const std::string& page : drawPages(project))
      EXPECT_THAT(page, HasSubstr("width=\"" + width + "mm\" height=\"" + height + "mm\""));
  };
  expectSize("297", "210");
  project.exportSettings.paperSize = PaperSize::letter;
  expectSize("279.4", "215.9");
  project.stage.size = {.width = 6000, .height = 9000};
  expectSize("215.9", "279.4");
}

TEST(Sheets, HoldEveryCellOfTheIncludedLists) {
  const KorrinProject project = fixedExample();
  const std::vector<std::string> texts = textsOfAll(project);
  for (const InputChannel& input : project.inputs)
    for (const Text& text : {input.source, input.microphoneOrDI, input.stand, input.notes})
      EXPECT_TRUE(text.empty() || std::ranges::find(texts, text.str()) != texts.end())
          << text.str();
  for (const MonitorMix& mix : project.monitorMixes)
    for (const Text& text : {mix.name, mix.type, mix.outputPatch, mix.notes})
      EXPECT_THAT(texts, Contains(text.str()));
  for (const EquipmentRequirement& line : project.equipmentRequirements)
    for (const Text& text : {line.category, line.item, line.suppliedBy, line.notes})
      EXPECT_THAT(texts, Contains(text.str()));
  std::string all;
  for (const std::string& text : texts) all += text + " ";
  for (const ProjectNote& note : project.notes) EXPECT_THAT(all, HasSubstr(note.body.str()));
  EXPECT_EQ(std::ranges::count(texts, "48 V"), 1 + 5);  // the column's head and its channels
}

TEST(Sheets, LeaveOutListsThatAreNotIncluded) {
  KorrinProject project = fixedExample();
  using Switch = bool ExportSettings::*;
  const std::vector<std::pair<Switch, std::string>> switches = {
      {&ExportSettings::includeInputList, "Input list"},
      {&ExportSettings::includeMonitorMixes, "Monitor mixes"},
      {&ExportSettings::includeEquipment, "Equipment"},
      {&ExportSettings::includeNotes, "Notes"}};
  for (const auto& [isIncluded, title] : switches) {
    EXPECT_THAT(textsOfAll(project), Contains(title));
    project.exportSettings.*isIncluded = false;
    EXPECT_THAT(textsOfAll(project), Not(Contains(title)));
  }
  EXPECT_THAT(textsOfAll(project), Not(Contains("Totals")));
  EXPECT_EQ(drawPages(project).size(), 1u);
}

TEST(Sheets, NameThePlotAndThePage) {
  KorrinProject project = fixedExample();
  project.metadata.eventDate = Instant() + 30h;
  project.metadata.modifiedAt = Instant() + 31h;
  const std::vector<std::string> pages = drawPages(project, {.utcOffset = 90min});
  for (std::size_t number = 1; number <= pages.size(); ++number) {
    const std::vector<std::string> texts = textsOf(pages[number - 1]);
    EXPECT_THAT(texts, Contains("Example — Festival Main Stage"));
    EXPECT_THAT(texts, Contains("The Example Band · Summer Arena"));
    EXPECT_THAT(texts, Contains("1970-01-02 07:30 UTC+01:30"));
    EXPECT_THAT(texts, Contains("Prepared by Production · production@example.com · Revision 1"));
    EXPECT_THAT(texts, Contains("Last change 1970-01-02 08:30 UTC+01:30 · Page " +
                                std::to_string(number) + " of " + std::to_string(pages.size())));
  }
}

TEST(Sheets, TakeOnePageForTheListsOfABand) { EXPECT_EQ(drawPages(fixedExample()).size(), 2u); }

TEST(Sheets, CountInputsMicrophonesAndStands) {
  const std::vector<std::string> texts = textsOfAll(fixedExample());
  for (const char* total :
       {"11 inputs", "5 × 48 V", "3 × Active DI", "2 × C451", "3 × Tall boom", "2 × Short boom"})
    EXPECT_THAT(texts, Contains(total));
}

TEST(Sheets, ListWhatIsOnNoSheet) {
  KorrinProject project = fixedExample();
  project.exportSettings = {.paperSize = PaperSize::a4,
                            .includeInputList = false,
                            .includeMonitorMixes = false,
                            .includeEquipment = false,
                            .includeNotes = false};
  EXPECT_THAT(textsOfAll(project), Not(Contains("Not on the drawing")));
  project.items.edit(0).layerID = UUID({99});
  const std::vector<std::string> texts = textsOfAll(project);
  EXPECT_THAT(texts, Contains("1 not drawn: see lists"));
  EXPECT_THAT(texts, Contains("Not on the drawing"));
  EXPECT_THAT(texts, Contains("DRUMS"));
  EXPECT_THAT(texts, Contains("its layer does not exist"));
}

TEST(Sheets, ListInFullWhatIsShortened) {
  KorrinProject project = fixedExample();
  EXPECT_THAT(textsOfAll(project), Not(Contains("Shortened texts")));
  std::string label;
  for (int i = 0; i < 30; ++i) label += "word" + std::to_string(i) + " ";
  project.items.edit(0).label = label;
  project.items.edit(1).label = label;
  const std::vector<std::string> texts = textsOfAll(project);
  EXPECT_THAT(texts, Contains("Shortened texts"));
  std::string all;
  for (const std::string& text : texts) all += text + " ";
  EXPECT_EQ(countOf(all, "word29"), 1u);
}

TEST(Sheets, ListTheSymbolsInALegend) {
  const std::vector<std::string> texts = textsOf(drawPages(fixedExample()).front());
  for (const char* name : {"Microphone", "Wedge monitor", "Amplifier", "Bass amplifier", "Drum kit",
                           "Keyboard", "Power"})
    EXPECT_THAT(texts, Contains(name));
  EXPECT_THAT(texts, Not(Contains("Riser")));
}

TEST(Sheets, SayHowManyLinesTheLegendHasNoRoomFor) {
  KorrinProject project = fixedExample();
  PlotItem riser = project.items[0];
  riser.kind = PlotItemKind::riser;
  for (int i = 0; i < 60; ++i) {
    riser.label = "Riser " + std::to_string(i);
    project.items.push_back(riser);
  }
  EXPECT_THAT(textsOf(drawPages(project).front()),
              Contains(testing::MatchesRegex("and [0-9]+ more")));
}

TEST(Sheets, EscapeWhateverATextHolds) {
  KorrinProject project = fixedExample();
  const std::string hostile = "<b a=\"1\">&amp;]]>\x1B\x01 \xEF\xBF\xBE é \xFF";
  project.metadata.title = hostile;
  project.stage.name = hostile;
  project.items.edit(0).label = "]]>&<";
  project.inputs.edit(0).source = hostile;
  project.notes.edit(0).body = hostile;
  const std::vector<std::string> texts = textsOfAll(project);
  EXPECT_THAT(texts, Contains(StartsWith("<b a=\"1\">&amp;]]>")));
  EXPECT_THAT(texts, Contains("]]>&<"));
}

TEST(Sheets, KeepTextsOfAnyScript) {
  KorrinProject project = fixedExample();
  for (const char* text :
       {"Schlagzeug – Günther", "ドラム", "الطبول", "ไมโครโฟน", "🎪👩🏽‍🎤", "𝄞"}) {
    project.inputs.edit(0).source = text;
    EXPECT_THAT(textsOfAll(project), Contains(text));
  }
}

TEST(Sheets, DivideNotesThatAreLongerThanAPage) {
  KorrinProject project = fixedExample();
  std::string body;
  for (int i = 0; i < 120; ++i) body += "Line " + std::to_string(i) + " of the note\n";
  project.notes.edit(0).body = body;
  EXPECT_GE(drawPages(project).size(), 3u);
  const std::vector<std::string> texts = textsOfAll(project);
  for (int i = 0; i < 120; ++i)
    EXPECT_EQ(std::ranges::count(texts, "Line " + std::to_string(i) + " of the note"), 1);
  EXPECT_THAT(texts, Contains("Notes (continued)"));
}

TEST(Sheets, KeepEveryRowAboveTheFooter) {
  KorrinProject project = fixedExample();
  for (int i = 0; i < 300; ++i) {
    InputChannel input = project.inputs[0];
    input.notes = std::string(static_cast<std::size_t>(i), 'x');
    project.inputs.push_back(input);
  }
  const Box box = {10, 10, 180, 100};
  std::size_t rows = 0;
  for (const SvgWriter& page : flowed(includedLists(project), box)) {
    for (const test::SvgElement& element : elementsOf(page)) {
      if (element.name != "line") continue;
      EXPECT_LE(std::stod(element.attributes.at("y1")), box.bottom() + 0.001);
      ++rows;
    }
  }
  EXPECT_GE(rows, 311u + 3 + 3 + 2);
}

TEST(Sheets, KeepATableWholeThatFitsOnAPage) {
  const ListTable table{"Table", {"Column"}, 10, [](std::size_t) -> Cells { return {"Row"}; }};
  const std::list<SvgWriter> pages = flowed({table, table}, {0, 0, 100, 100});
  ASSERT_EQ(pages.size(), 2u);
  for (const SvgWriter& page : pages) EXPECT_EQ(countOf(page.content(), ">Row<"), 10u);
}

TEST(Sheets, FillTwoColumnsOfWidePaper) {
  const ListTable table{"Table", {"Column"}, 10, [](std::size_t) -> Cells { return {"Row"}; }};
  EXPECT_EQ(flowed({table, table}, {0, 0, 270, 100}).size(), 1u);
}

struct MomentRow {
  const char* name;
  Instant instant;
  std::chrono::minutes offset;
  const char* text;
};

class Moments : public testing::TestWithParam<MomentRow> {};

TEST_P(Moments, SayHowFarTheyAreFromUTC) {
  EXPECT_EQ(momentText(GetParam().instant, GetParam().offset), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , Moments,
    testing::Values(MomentRow{"UTC", Instant() + 59s, 0min, "1970-01-01 00:00 UTC+00:00"},
                    MomentRow{"East", Instant() + 23h, 120min, "1970-01-02 01:00 UTC+02:00"},
                    MomentRow{"West", Instant(), -570min, "1969-12-31 14:30 UTC-09:30"},
                    MomentRow{"BeforeTheEpoch", Instant() - 1ns, 0min,
                              "1969-12-31 23:59 UTC+00:00"},
                    MomentRow{"FirstOfAll", Instant::min(), -10h, "1677-09-20 14:12 UTC-10:00"},
                    MomentRow{"LastOfAll", Instant::max(), 10h, "2262-04-12 09:47 UTC+10:00"},
                    MomentRow{"FarthestEast", Instant(), std::chrono::minutes::max(),
                              "1970-01-05 03:59 UTC+99:59"},
                    MomentRow{"FarthestWest", Instant(), std::chrono::minutes::min(),
                              "1969-12-27 20:01 UTC-99:59"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SvgWriter, JoinsWhatIsTooLargeForOneString) {
  const std::string text(20'000'000, 'x');
  SvgWriter part;
  part.text({1, 2}, text, {});
  SvgWriter svg;
  svg.beginDocument(100, "");
  for (int i = 0; i < 3; ++i) svg.add(part);
  svg.text({1, 2}, "last", {});
  svg.endDocument(77);
  const std::string expected = svg.content();
  const std::string whole = svg.take();
  EXPECT_TRUE(whole == expected);
  EXPECT_GT(whole.size(), 3 * text.size());
  EXPECT_EQ(countOf(whole.substr(0, 600), "viewBox=\"0 0 100 77\""), 1u);
  EXPECT_TRUE(whole.ends_with(">last</text>\n</svg>\n"));
}

TEST(SvgWriter, WritesNumbersThatEveryReaderTakes) {
  EXPECT_EQ(svgNumber(0.1 + 0.2), "0.3");
  EXPECT_EQ(svgNumber(-0.0001), "0");
  EXPECT_EQ(svgNumber(1e300), "1000000");
  EXPECT_EQ(svgNumber(-std::numeric_limits<double>::infinity()), "-1000000");
  EXPECT_EQ(svgNumber(std::numeric_limits<double>::quiet_NaN()), "1000000");
  EXPECT_EQ(svgNumber(123456.789), "123456.789");
}

}  // namespace
}  // namespace korrin::drawing
