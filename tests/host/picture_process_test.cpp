// The commands that make, list and draw plots, as their callers see them.

#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/coding/json.h"
#include "korrin/templates/korrin_template.h"

#include "commands/utc_offset.h"
#include "scratch.h"
#include "terminal/failure.h"
#include "tests/support/svg_reader.h"

namespace korrin::host {
namespace {

using nlohmann::json;
using test::textsOf;
using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

bool canConvert() { return std::system("command -v rsvg-convert >/dev/null") == 0; }

TEST(New, WritesTheDocumentOfEachTemplate) {
  const Scratch scratch;
  for (const KorrinTemplateID id : allCases<KorrinTemplateID>()) {
    const std::string name(rawValue(id));
    const Outcome outcome = scratch.korrin("new --template " + name + " -o " + name + ".json");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const auto project = decodeJSON<KorrinProject>(contentOf(scratch.path(name + ".json")));
    EXPECT_EQ(project.metadata.title, KorrinProject::template_(id).metadata.title);
    EXPECT_EQ(scratch.korrin("check --builtin-assets " + name + ".json").out,
              name + ".json: no findings\n");
  }
}

TEST(New, WritesTheExampleAndAnEmptyPlotToStandardOutput) {
  const Scratch scratch;
  const auto example = decodeJSON<KorrinProject>(scratch.korrin("new --example").out);
  EXPECT_EQ(example.metadata.artist, "The Example Band");
  const auto empty = decodeJSON<KorrinProject>(scratch.korrin("new").out);
  EXPECT_EQ(empty.metadata.title, "Untitled Stage Plot");
  EXPECT_TRUE(empty.items.empty());
  EXPECT_NE(empty.layers[0].id, decodeJSON<KorrinProject>(scratch.korrin("new").out).layers[0].id);
}

TEST(New, ReplacesAFileOnlyWhenForced) {
  const Scratch scratch;
  scratch.write("plot.json", "mine");
  const Outcome refused = scratch.korrin("new -o plot.json");
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err, "korrin: plot.json: is there already; --force replaces it\n");
  EXPECT_EQ(contentOf(scratch.path("plot.json")), "mine");
  EXPECT_EQ(scratch.korrin("new --force -o plot.json").status, 0);
  EXPECT_THAT(contentOf(scratch.path("plot.json")), StartsWith("{"));
  EXPECT_EQ(scratch.fileCount(), 1u);
}

TEST(New, NeverReplacesAPlotThatNeedsANewerVersion) {
  const Scratch scratch;
  scratch.write("plot.json", R"({"schemaVersion":2,"minimumReaderVersion":2})");
  EXPECT_EQ(scratch.korrin("new --force -o plot.json").status, 3);
  EXPECT_THAT(contentOf(scratch.path("plot.json")), HasSubstr("2}"));
}

TEST(New, IsMisusedWithWordsThatMeanNothing) {
  const Scratch scratch;
  EXPECT_EQ(scratch.korrin("new --template powerTrio").status, 64);
  EXPECT_EQ(scratch.korrin("new --template power_trio --example").status, 64);
  EXPECT_EQ(scratch.korrin("new -o absent/plot.json").status, 2);
}

TEST(Templates, AreListedForPeopleAndPrograms) {
  const Scratch scratch;
  const std::string text = scratch.korrin("templates").out;
  const json listed = json::parse(scratch.korrin("templates --format json").out)["templates"];
  ASSERT_EQ(listed.size(), allCases<KorrinTemplateID>().size());
  std::size_t at = 0;
  for (const KorrinTemplateID id : allCases<KorrinTemplateID>()) {
    EXPECT_EQ(listed[at]["id"], rawValue(id));
    EXPECT_EQ(listed[at]["title"], title(id));
    EXPECT_EQ(listed[at++]["summary"], summary(id));
    for (const std::string_view part : {rawValue(id), title(id), summary(id)})
      EXPECT_THAT(text, HasSubstr(std::string(part)));
  }
}

TEST(Render, DrawsAllPagesOrOneOrTheDrawingAlone) {
  const Scratch scratch;
  const std::string plot = " $D/festival-main-stage.json ";
  const std::string all = scratch.korrin("render" + plot).out;
  EXPECT_THAT(textsOf(all), Contains(testing::EndsWith("Page 2 of 2")));
  EXPECT_EQ(scratch.korrin("render --page all" + plot).out, all);
  const std::vector<std::string> first = textsOf(scratch.korrin("render --page 1" + plot).out);
  EXPECT_THAT(first, Contains(testing::EndsWith("Page 1 of 2")));
  EXPECT_THAT(first, Contains("Drum riser · H 0.40 m"));
  const std::vector<std::string> second = textsOf(scratch.korrin("render --page 2" + plot).out);
  EXPECT_THAT(second, Contains("Input list"));
  const std::vector<std::string> alone = textsOf(scratch.korrin("render --plot-only" + plot).out);
  EXPECT_THAT(alone, Contains("Hauptbühne"));
  EXPECT_THAT(alone, testing::Not(Contains("Legend")));
}

TEST(Render, DrawsTheExamplePlots) {
  const Scratch scratch;
  for (const char* plot : {"$D/festival-main-stage.json", "$D/club-night-with-findings.json",
                           "--dates secondsSinceReferenceDate $D/festival-other-host.json",
                           "- <$D/festival-main-stage.json"}) {
    const Outcome outcome = scratch.korrin(std::string("render -o plot.svg ") + plot);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(textsOf(contentOf(scratch.path("plot.svg"))), Contains("AUDIENCE"));
  }
}

TEST(Render, RefusesWhatIsNotSafeToDraw) {
  const Scratch scratch;
  const std::string plot = exampleDocument("festival-main-stage");
  scratch.write("huge.json", replaced(plot, "\"width\": 12000", "\"width\": 1e7"));
  scratch.write("newer.json",
                replaced(plot, "\"minimumReaderVersion\": 1", "\"minimumReaderVersion\": 2"));
  scratch.write("broken.json", "{");
  EXPECT_EQ(
      scratch.korrin("render -o out.svg huge.json").err,
      "korrin: huge.json: is not valid: The project contains invalid or unsupported dimensions.\n");
  EXPECT_EQ(scratch.korrin("render -o out.svg huge.json").status, 2);
  EXPECT_EQ(scratch.korrin("render -o out.svg newer.json").status, 3);
  EXPECT_EQ(scratch.korrin("render -o out.svg broken.json").status, 2);
  EXPECT_EQ(scratch.fileCount(), 3u);
}

TEST(Render, NeverReplacesAPlot) {
  const Scratch scratch;
  const std::string plot = exampleDocument("festival-main-stage");
  scratch.write("plot.json", plot);
  const Outcome outcome = scratch.korrin("render plot.json -o plot.json");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "korrin: plot.json: is a plot and is not replaced by a picture\n");
  EXPECT_EQ(contentOf(scratch.path("plot.json")), plot);
}

TEST(Render, SaysWhichPagesThereAre) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("render --page 4 $D/festival-main-stage.json");
  EXPECT_EQ(outcome.status, 64);
  EXPECT_THAT(outcome.err, HasSubstr("has no page 4 but 2 pages"));
  EXPECT_EQ(scratch.korrin("render --page 0 $D/festival-main-stage.json").status, 64);
  EXPECT_EQ(scratch.korrin("render --page one $D/festival-main-stage.json").status, 64);
  EXPECT_EQ(scratch.korrin("render --page 1 --plot-only $D/festival-main-stage.json").status, 64);
  EXPECT_EQ(scratch.korrin("render --pdf --png $D/festival-main-stage.json").status, 64);
}

TEST(Render, ConvertsToPDFAndPNG) {
  if (!canConvert()) GTEST_SKIP() << "rsvg-convert is not installed";
  const Scratch scratch;
  EXPECT_EQ(scratch.korrin("render --pdf -o plot.pdf $D/festival-main-stage.json").err, "");
  EXPECT_THAT(contentOf(scratch.path("plot.pdf")), StartsWith("%PDF-"));
  EXPECT_EQ(scratch.korrin("render --png --page 1 -o plot.png $D/festival-main-stage.json").err,
            "");
  const std::string png = contentOf(scratch.path("plot.png"));
  EXPECT_THAT(png, StartsWith("\x89PNG"));
  // A4 on its long side at 192 pixels an inch is 2246 by 1588.
  EXPECT_THAT(png.substr(0, 24), testing::EndsWith(std::string("\0\0\x08\xC6\0\0\x06\x34", 8)));
}

TEST(Render, TakesTheFormatFromTheEndingOfTheOutput) {
  const Scratch scratch;
  EXPECT_EQ(scratch.korrin("render -o plot.SVG $D/festival-main-stage.json").status, 0);
  EXPECT_THAT(contentOf(scratch.path("plot.SVG")), StartsWith("<?xml"));
  for (const char* misuse : {"--pdf -o plot.svg", "--png -o plot.pdf", "--width 800 -o plot.svg",
                             "--width 0 -o plot.png", "--width many -o plot.png"})
    EXPECT_EQ(scratch.korrin("render $D/festival-main-stage.json " + std::string(misuse)).status,
              64)
        << misuse;
  EXPECT_THAT(scratch.korrin("render --pdf -o plot.svg $D/festival-main-stage.json").err,
              HasSubstr("--pdf contradicts the ending of \"plot.svg\""));
  EXPECT_EQ(scratch.fileCount(), 1u);
  if (!canConvert()) GTEST_SKIP() << "rsvg-convert is not installed";
  EXPECT_EQ(scratch.korrin("render -o plot.pdf $D/festival-main-stage.json").err, "");
  EXPECT_THAT(contentOf(scratch.path("plot.pdf")), StartsWith("%PDF-"));
  EXPECT_EQ(
      scratch.korrin("render --width 640 -o plot.png --page 1 $D/festival-main-stage.json").err,
      "");
  EXPECT_THAT(contentOf(scratch.path("plot.png")).substr(16, 4),
              testing::Eq(std::string("\0\0\x02\x80", 4)));
}

TEST(Render, WritesTheTitleOfThePlotIntoAPDF) {
  if (!canConvert()) GTEST_SKIP() << "rsvg-convert is not installed";
  const Scratch scratch;
  scratch.korrin("render -o plot.pdf $D/festival-main-stage.json");
  // "Somm" in UTF-16.
  EXPECT_THAT(contentOf(scratch.path("plot.pdf")), HasSubstr("/Title <FEFF0053006F006D006D"));
}

TEST(Render, PrintsLocalTime) {
  const Scratch scratch;
  const std::string plot = " --page 1 $D/festival-main-stage.json";
  EXPECT_THAT(textsOf(scratch.korrin("render --utc-offset +02:00" + plot).out),
              Contains("2026-07-18 20:30 UTC+02:00"));
  EXPECT_THAT(textsOf(scratch.korrin("render --utc-offset -0930" + plot).out),
              Contains("2026-07-18 09:00 UTC-09:30"));
  EXPECT_EQ(scratch.korrin("render --utc-offset 2" + plot).status, 64);
}

TEST(Render, DrawsEmbeddedImagesThatFoldersHold) {
  const Scratch scratch;
  const std::string plot = " --plot-only $D/trio-with-artwork.json";
  EXPECT_THAT(scratch.korrin("render" + plot).out, testing::Not(HasSubstr("data:")));
  EXPECT_THAT(scratch.korrin("render --assets $D/../assets" + plot).out,
              HasSubstr("data:image/png;base64,"));
  EXPECT_EQ(scratch.korrin("render --assets absent" + plot).status, 2);
}

struct OffsetRow {
  const char* name;
  const char* word;
  int minutes;
};

class UtcOffsets : public testing::TestWithParam<OffsetRow> {};

TEST_P(UtcOffsets, AreReadAsPeopleWriteThem) {
  EXPECT_EQ(utcOffsetFrom(GetParam().word).count(), GetParam().minutes);
}

INSTANTIATE_TEST_SUITE_P(
    , UtcOffsets,
    testing::Values(OffsetRow{"Colon", "+02:00", 120}, OffsetRow{"Plain", "-0930", -570},
                    OffsetRow{"Hours", "+2", 120}, OffsetRow{"TwoDigits", "-05", -300},
                    OffsetRow{"Short", "+5:45", 345}, OffsetRow{"UTC", "UTC", 0},
                    OffsetRow{"Z", "Z", 0}, OffsetRow{"Most", "+18:00", 1080}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(UtcOffset, RefusesAllOtherWords) {
  for (const char* word : {"", "2", "+", "02:00", "+18:01", "+2:5", "+2:60", "+02:000", "+ 2",
                           "+-2", "+02:00x", "CET"})
    EXPECT_THROW(utcOffsetFrom(word), UsageError) << word;
}

TEST(Render, SaysWhenTheConverterIsNotInstalled) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("templates >/dev/null; PATH=/absent '" KORRIN_TOOL
                                         "' render --png -o plot.png $D/festival-main-stage.json");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "korrin: PDF and PNG need the program rsvg-convert of librsvg, which is not "
            "installed\n");
  EXPECT_EQ(scratch.fileCount(), 0u);
}

}  // namespace
}  // namespace korrin::host
