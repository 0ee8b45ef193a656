#include "findings/findings_table.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/preflight/preflight_engine.h"

#include "documents/plot_document.h"
#include "scratch.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

KorrinProject clubNight() {
  return decodeDocument(exampleDocument("club-night-with-findings"), DateStrategy::iso8601);
}

std::vector<std::string> table(const KorrinProject& project, const Terminal& terminal = {}) {
  std::ostringstream out;
  printFindings(out, terminal, project, PreflightEngine::inspect(project, {}));
  std::vector<std::string> lines;
  std::istringstream in(out.str());
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The columns from a line's start to `part`.
std::size_t columnOf(const std::string& line, std::string_view part) {
  const std::size_t place = line.find(part);
  EXPECT_NE(place, std::string::npos) << line;
  return displayWidth(line.substr(0, place));
}

TEST(FindingsTable, ShowsOneFindingARow) {
  const std::vector<std::string> lines = table(clubNight());
  ASSERT_EQ(lines.size(), 18u);
  EXPECT_EQ(lines[0],
            "  SEVERITY     FINDING                      CONCERNS                       "
            "DETAIL");
  EXPECT_EQ(lines[4],
            "  error        Duplicate monitor mix 1      mix 1: BV 1                    "
            "Each monitor mix number must be unique.");
}

TEST(FindingsTable, AlignsWideCharacters) {
  KorrinProject project = clubNight();
  project.inputs.edit(4).source = "舞台 🎤";
  const std::vector<std::string> lines = table(project);
  const std::size_t detail = columnOf(lines[0], "DETAIL");
  EXPECT_EQ(columnOf(lines[1], "Each input"), detail);
  EXPECT_NE(lines[1].find("channel 2: 舞台 🎤"), std::string::npos) << lines[1];
  for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(columnOf(lines[i], "Each input"), detail);
}

TEST(FindingsTable, ShowsControlCharactersOfTheDocument) {
  KorrinProject project = clubNight();
  project.inputs.edit(4).source = "\x1b[2JHi\nHat\u202E";
  project.monitorMixes.edit(2).name = "\x07";
  const std::vector<std::string> lines = table(project);
  ASSERT_EQ(lines.size(), 18u);
  EXPECT_NE(lines[1].find("channel 2: \\u{1B}[2JHi\\nHat\\u{202E}"), std::string::npos) << lines[1];
  EXPECT_TRUE(lines[11].ends_with("Add an output patch for \\u{7}.")) << lines[11];
  for (const std::string& line : lines)
    for (const char byte : line) EXPECT_TRUE(static_cast<unsigned char>(byte) >= 0x20);
}

TEST(FindingsTable, KeepsWithinTheTerminal) {
  for (const std::size_t width : {60u, 80u, 100u, 133u}) {
    const std::vector<std::string> lines = table(clubNight(), {true, false, width});
    for (const std::string& line : lines) EXPECT_LE(displayWidth(line), width) << line;
    EXPECT_GE(lines.size(), 18u);
  }
}

TEST(FindingsTable, ShortensAVeryLongName) {
  KorrinProject project = clubNight();
  project.inputs.edit(4).source = std::string(100'000, 'x');
  project.monitorMixes.edit(2).name = std::string(100'000, 'y');
  for (const std::string& line : table(project)) EXPECT_LE(displayWidth(line), 600u);
}

TEST(FindingsTable, ColoursTheSeverityWithoutMovingTheRest) {
  const std::vector<std::string> plain = table(clubNight(), {true, false, 200});
  const std::vector<std::string> painted = table(clubNight(), {true, true, 200});
  ASSERT_EQ(plain.size(), painted.size());
  EXPECT_EQ(painted[1], replaced(plain[1], "error", "\x1b[1;31merror\x1b[0m"));
  EXPECT_EQ(painted[10], replaced(plain[10], "warning", "\x1b[1;33mwarning\x1b[0m"));
  EXPECT_EQ(painted[14], replaced(plain[14], "information", "\x1b[1;34minformation\x1b[0m"));
}

TEST(FindingsTable, IsNotShownWithoutFindings) {
  std::ostringstream out;
  printFindings(out, {}, clubNight(), {});
  EXPECT_EQ(out.str(), "");
}

TEST(SummaryLine, CountsFindingsAndSaysWhatWasNotChecked) {
  FileFindings file{"a\x1b.json", std::nullopt, clubNight(), {}, "no known assets given"};
  EXPECT_EQ(summaryLine(file),
            "a\\u{1B}.json: no findings; missingAsset: not run, no known assets given");
  file.issues = PreflightEngine::inspect(file.project, {});
  file.missingAssetNotRunReason = "";
  EXPECT_EQ(summaryLine(file), "a\\u{1B}.json: 9 errors, 4 warnings, 4 for information");
  file.issues.erase(file.issues.begin() + 1, file.issues.end());
  EXPECT_EQ(summaryLine(file), "a\\u{1B}.json: 1 error, 0 warnings, 0 for information");
}

}  // namespace
}  // namespace korrin::host
