#include <algorithm>
#include <chrono>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "picture_support.h"
#include "render/page_flow.h"
#include "render/plot_pages.h"
#include "render/svg_writer.h"
#include "scratch.h"

namespace korrin::host {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(PlotPages, ShowTheExampleAsKept) {
  // What the README shows; drawn anew by `korrin render --page 1` when the drawing changes.
  EXPECT_EQ(layOut(fixedExample()).page(1),
            contentOf(KORRIN_SOURCE_DIR "/docs/images/example.svg"));
}

TEST(PlotPages, AreOfThePaperThatTheSettingsName) {
  KorrinProject project = fixedExample();
  EXPECT_EQ(layOut(project).width, 297);
  EXPECT_EQ(layOut(project).height, 210);
  project.exportSettings.paperSize = PaperSize::letter;
  EXPECT_EQ(layOut(project).width, 279.4);
  project.stage.size = {.width = 6000, .height = 9000};
  EXPECT_EQ(layOut(project).width, 215.9);
  EXPECT_THAT(layOut(project).page(1), HasSubstr("width=\"215.9mm\" height=\"279.4mm\""));
}

TEST(PlotPages, HoldEveryCellOfTheIncludedLists) {
  const KorrinProject project = fixedExample();
  const std::vector<std::string> texts = textsOf(layOut(project).all());
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
  for (const ProjectNote& note : project.notes) EXPECT_THAT(texts, Contains(note.body.str()));
  EXPECT_EQ(std::ranges::count(texts, "48 V"), 1 + 5);  // the column's head and its channels
}

TEST(PlotPages, LeaveOutListsThatAreNotIncluded) {
  KorrinProject project = fixedExample();
  using Switch = bool ExportSettings::*;
  const std::vector<std::pair<Switch, std::string>> switches = {
      {&ExportSettings::includeInputList, "Input list"},
      {&ExportSettings::includeMonitorMixes, "Monitor mixes"},
      {&ExportSettings::includeEquipment, "Equipment"},
      {&ExportSettings::includeNotes, "Notes"}};
  for (const auto& [isIncluded, title] : switches) {
    const auto heading =
        HasSubstr("font-size=\"4.4\" font-weight=\"bold\" fill=\"#1f2933\">" + title + "<");
    EXPECT_THAT(layOut(project).all(), heading);
    project.exportSettings.*isIncluded = false;
    EXPECT_THAT(layOut(project).all(), Not(heading));
  }
  EXPECT_EQ(layOut(project).contents.size(), 1u);
}

TEST(PlotPages, NameThePlotAndThePage) {
  KorrinProject project = fixedExample();
  project.metadata.eventDate = Instant() + std::chrono::hours(30);
  const PlotPages pages = layOut(project);
  for (std::size_t number = 1; number <= pages.contents.size(); ++number) {
    const std::vector<std::string> texts = textsOf(pages.page(number));
    EXPECT_THAT(texts, Contains("Example — Festival Main Stage"));
    EXPECT_THAT(texts, Contains("The Example Band · Summer Arena · 1970-01-02 06:00 UTC"));
    EXPECT_THAT(texts, Contains("Prepared by Production · production@example.com · Revision 1"));
    EXPECT_THAT(texts, Contains("Page " + std::to_string(number) + " of " +
                                std::to_string(pages.contents.size())));
  }
}

TEST(PlotPages, ListTheSymbolsInALegend) {
  const std::vector<std::string> texts = textsOf(layOut(fixedExample()).page(1));
  for (const char* name : {"Microphone", "Wedge monitor", "Amplifier", "Bass amplifier", "Drum kit",
                           "Keyboard", "Power"})
    EXPECT_THAT(texts, Contains(name));
  EXPECT_THAT(texts, Not(Contains("Riser")));
}

TEST(PlotPages, SayHowManyLinesTheLegendHasNoRoomFor) {
  KorrinProject project = fixedExample();
  PlotItem riser = project.items[0];
  riser.kind = PlotItemKind::riser;
  for (int i = 0; i < 60; ++i) {
    riser.label = "Riser " + std::to_string(i);
    project.items.push_back(riser);
  }
  EXPECT_THAT(textsOf(layOut(project).page(1)), Contains(testing::MatchesRegex("and [0-9]+ more")));
}

TEST(PlotPages, EscapeWhateverATextHolds) {
  KorrinProject project = fixedExample();
  const std::string hostile = "<b a=\"1\">&amp;]]>\x1B\x01 \xEF\xBF\xBE é \xFF";
  project.metadata.title = hostile;
  project.stage.name = hostile;
  project.items.edit(0).label = "]]>&<";
  project.inputs.edit(0).source = hostile;
  project.notes.edit(0).body = hostile;
  const std::vector<std::string> texts = textsOf(layOut(project).all());
  EXPECT_THAT(texts, Contains(StartsWith("<b a=\"1\">&amp;]]>")));
  EXPECT_THAT(texts, Contains("]]>&<"));
}

TEST(PlotPages, KeepTextsOfAnyScript) {
  KorrinProject project = fixedExample();
  for (const char* text :
       {"Schlagzeug – Günther", "ドラム", "الطبول", "ไมโครโฟน", "🎪👩🏽‍🎤", "𝄞"}) {
    project.inputs.edit(0).source = text;
    EXPECT_THAT(textsOf(layOut(project).all()), Contains(text));
  }
}

TEST(PlotPages, DivideNotesThatAreLongerThanAPage) {
  KorrinProject project = fixedExample();
  std::string body;
  for (int i = 0; i < 120; ++i) body += "Line " + std::to_string(i) + " of the note\n";
  project.notes.edit(0).body = body;
  const PlotPages pages = layOut(project);
  EXPECT_GE(pages.contents.size(), 5u);
  const std::vector<std::string> texts = textsOf(pages.all());
  for (int i = 0; i < 120; ++i)
    EXPECT_EQ(std::ranges::count(texts, "Line " + std::to_string(i) + " of the note"), 1);
  EXPECT_THAT(texts, Contains("Notes (continued)"));
}

TEST(PlotPages, KeepEveryRowAboveTheFooter) {
  KorrinProject project = fixedExample();
  for (int i = 0; i < 300; ++i) {
    InputChannel input = project.inputs[0];
    input.notes = std::string(static_cast<std::size_t>(i), 'x');
    project.inputs.push_back(input);
  }
  const std::vector<ListTable> tables = includedLists(project);
  const Box box = {10, 10, 180, 100};
  std::size_t rows = 0;
  for (const SvgWriter& page : flowTables(tables, box)) {
    const std::string_view content = page.content();
    for (std::size_t at = content.find("<line"); at != std::string_view::npos;
         at = content.find("<line", at + 1)) {
      const std::string_view y = content.substr(content.find("y1=\"", at) + 4, 12);
      EXPECT_LE(std::stod(std::string(y.substr(0, y.find('"')))), box.bottom() + 0.001);
      ++rows;
    }
  }
  EXPECT_EQ(rows, 311u + 3 + 3 + 2);
}

TEST(PlotPages, KeepATableWholeThatFitsOnAPage) {
  ListTable table{"Table", {{"Column", 1}}, std::vector<std::vector<std::string>>(10, {"Row"})};
  const Box box = {0, 0, 100, 100};
  const std::vector<SvgWriter> pages = flowTables({table, table}, box);
  ASSERT_EQ(pages.size(), 2u);
  for (const SvgWriter& page : pages) EXPECT_EQ(countOf(page.content(), ">Row<"), 10u);
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
}  // namespace korrin::host
