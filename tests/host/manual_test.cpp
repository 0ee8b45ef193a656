// What tells people how the program is used: help, manual pages, and completion by shells. All
// three are held against each other, for whatever commands there are.

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scratch.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

using Words = std::vector<std::string>;

Words linesOf(const std::string& text) {
  Words lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// The words before the texts in one section of a help.
Words termsOf(const std::string& help, const std::string& section) {
  Words terms;
  bool isInside = false;
  for (const std::string& line : linesOf(help)) {
    if (line.empty()) isInside = false;
    if (isInside && line[2] != ' ') {
      const std::size_t end = line.find("  ", 2);
      terms.push_back(line.substr(2, end == std::string::npos ? end : end - 2));
    }
    if (line == section + ":") isInside = true;
  }
  return terms;
}

/// Each name in "-o, --output FILE" and the like.
Words optionNamesOf(const std::string& help) {
  Words names;
  for (const std::string& term : termsOf(help, "Options")) {
    std::istringstream words(term);
    for (std::string word; words >> word;) {
      if (word.ends_with(',')) word.pop_back();
      if (word.starts_with('-')) names.push_back(word);
    }
  }
  return names;
}

/// The program and a folder with its manual.
class Manual : public testing::Test {
 protected:
  Manual() { EXPECT_EQ(scratch.korrin("--write-manual manual").status, 0); }

  /// Runs a line of the shell in the folder.
  Outcome shell(const std::string& line) const {
    return scratch.korrin("--version >version; " + line);
  }
  std::string help(const std::string& command) const {
    return scratch.korrin(command + " --help").out;
  }
  Words commands() const { return termsOf(help(""), "Commands"); }
  std::string page(const std::string& name) const {
    return contentOf(scratch.path("manual/man1/" + name + ".1"));
  }

  /// What bash offers for the last of these words.
  Words completions(const std::string& words) const {
    const Outcome outcome = shell(
        "bash --norc -c 'source manual/completions/korrin; COMP_WORDS=(" + words +
        "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _korrin; printf \"%s\\n\" \"${COMPREPLY[@]}\"'");
    EXPECT_EQ(outcome.err, "");
    Words offered = linesOf(outcome.out);
    if (offered == Words{""}) offered.clear();
    return offered;
  }

  const Scratch scratch;
};

using Help = Manual;
using Completion = Manual;

TEST_F(Help, FitsATerminalOf80Columns) {
  Words all = commands();
  ASSERT_GE(all.size(), 6u);
  all.push_back("");
  for (const std::string& command : all)
    for (const std::string& line : linesOf(help(command)))
      EXPECT_LE(displayWidth(line), 80u) << command << ": " << line;
}

TEST_F(Help, SaysHowACommandIsUsedAndWhatItsOptionsMean) {
  const std::string text = help("render");
  EXPECT_THAT(text, testing::StartsWith("Usage: korrin render [OPTIONS] FILE\n\n"
                                        "Draw a plot for print, as SVG, PDF or PNG.\n"));
  EXPECT_THAT(text, HasSubstr("\nArguments:\n  FILE  Plot to draw; - is standard input\n"));
  EXPECT_THAT(text, testing::ContainsRegex("\n  -o, --output FILE +Where to write; "));
  EXPECT_THAT(text, HasSubstr("(not with --plot-only)"));
  EXPECT_THAT(help("check"), testing::StartsWith("Usage: korrin check [OPTIONS] [FILE...]\n"));
}

TEST_F(Help, IsACommandToo) {
  EXPECT_EQ(scratch.korrin("help").out, help(""));
  for (const std::string& command : commands())
    EXPECT_EQ(scratch.korrin("help " + command).out, help(command)) << command;
  EXPECT_EQ(scratch.korrin("help chek").err,
            "korrin: there is no command \"chek\"; did you mean \"check\"?\nTry korrin --help.\n");
  EXPECT_EQ(scratch.korrin("-V").out, scratch.korrin("--version").out);
}

TEST_F(Help, KeepsTheManualsWriterToItself) {
  EXPECT_THAT(help(""), Not(HasSubstr("write-")));
  EXPECT_THAT(page("korrin"), Not(HasSubstr("\\-write\\-")));
}

TEST_F(Manual, HasAPageForEveryCommandWithAllItsOptions) {
  EXPECT_THAT(page("korrin"), HasSubstr("\\fBcheck\\fR"));
  for (const std::string& command : commands()) {
    const std::string text = page("korrin-" + command);
    EXPECT_THAT(page("korrin"), HasSubstr("\\fBkorrin\\-" + command + "\\fR(1)"));
    for (const std::string& name : optionNamesOf(help(command))) {
      std::string escaped;
      for (const char c : name) escaped += c == '-' ? "\\-" : std::string(1, c);
      EXPECT_THAT(text, HasSubstr("\\fB" + escaped + "\\fR")) << command;
    }
  }
}

TEST_F(Manual, IsWrittenAsManExpectsIt) {
  const Words tools = linesOf(shell("command -v man; command -v mandoc").out);
  if (tools.size() < 2) GTEST_SKIP() << "man or mandoc is not installed";
  const Outcome man = shell(
      "for page in manual/man1/*; do LC_ALL=C.UTF-8 man --warnings -l $page >/dev/null; done");
  EXPECT_EQ(man.err, "");
  const Outcome lint = shell("mandoc -Tlint -W warning manual/man1/*");
  for (const std::string& complaint : linesOf(lint.out))
    EXPECT_THAT(complaint, HasSubstr("missing date")) << "which is left out on purpose";
}

TEST_F(Manual, ShowsWhatHelpShows) {
  if (shell("command -v man").out.empty()) GTEST_SKIP() << "man is not installed";
  const std::string shown =
      shell("LC_ALL=C.UTF-8 MANWIDTH=80 man -l manual/man1/korrin-check.1 | col -bx").out;
  EXPECT_THAT(shown, HasSubstr("korrin-check - say what plots still lack or get wrong"));
  EXPECT_THAT(shown, HasSubstr("korrin check [OPTIONS] [FILE...]"));
  EXPECT_THAT(shown, HasSubstr("EXIT STATUS"));
  EXPECT_THAT(shown, HasSubstr("--format FORMAT"));
}

TEST_F(Manual, ComplainsOfAFolderThatCannotBeMade) {
  scratch.write("taken", "a file");
  const Outcome refused = scratch.korrin("--write-manual taken/manual");
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.err, testing::StartsWith("korrin: "));
}

TEST_F(Completion, IsRegisteredForTheProgram) {
  EXPECT_EQ(shell("bash --norc -c 'source manual/completions/korrin; complete -p korrin'").out,
            "complete -F _korrin korrin\n");
}

TEST_F(Completion, OffersEveryCommand) {
  EXPECT_THAT(completions("korrin \"\""), IsSupersetOf(commands()));
  EXPECT_THAT(completions("korrin che"), ElementsAre("check"));
}

TEST_F(Completion, OffersEveryOptionOfEveryCommand) {
  EXPECT_THAT(completions("korrin -"), IsSupersetOf(optionNamesOf(help(""))));
  for (const std::string& command : commands()) {
    const Words names = optionNamesOf(help(command));
    EXPECT_THAT(names, Contains("--help"));
    EXPECT_THAT(completions("korrin " + command + " -"), testing::UnorderedElementsAreArray(names))
        << command;
  }
}

TEST_F(Completion, OffersTheWordsThatAnOptionTakes) {
  EXPECT_THAT(completions("korrin asset --format \"\""), ElementsAre("text", "json"));
  EXPECT_THAT(completions("korrin check --format = j"), ElementsAre("json", "junit"));
  EXPECT_THAT(completions("korrin check --format ="),
              ElementsAre("text", "json", "sarif", "junit"));
  EXPECT_THAT(completions("korrin fmt --write-dates sec"),
              ElementsAre("secondsSince1970", "secondsSinceReferenceDate"));
  EXPECT_THAT(completions("korrin new --template p"), ElementsAre("power_trio"));
}

TEST_F(Completion, IsReadByZshAndFishWithoutAComplaint) {
  if (shell("command -v zsh").out.empty() || shell("command -v fish").out.empty())
    GTEST_SKIP() << "zsh or fish is not installed";
  const Outcome zsh = shell("zsh -f -n manual/zsh/_korrin");
  EXPECT_EQ(zsh.status, 0);
  EXPECT_EQ(zsh.err, "");
  const Outcome fish = shell("HOME=$PWD fish --no-config -n manual/fish/korrin.fish");
  EXPECT_EQ(fish.status, 0);
  EXPECT_EQ(fish.err, "");
}

TEST_F(Completion, OffersTheSameInFish) {
  if (shell("command -v fish").out.empty()) GTEST_SKIP() << "fish is not installed";
  const auto offered = [&](const std::string& line) {
    const Outcome outcome =
        shell("HOME=$PWD fish --no-config -c 'source manual/fish/korrin.fish; complete -C \"" +
              line + "\"'");
    EXPECT_EQ(outcome.err, "");
    Words words;
    for (const std::string& word : linesOf(outcome.out))
      words.push_back(word.substr(0, word.find('\t')));
    return words;
  };
  EXPECT_THAT(offered("korrin "), IsSupersetOf(commands()));
  EXPECT_THAT(offered("korrin check --format "),
              testing::UnorderedElementsAre("text", "json", "sarif", "junit"));
  for (const std::string& command : commands()) {
    Words names;
    for (const std::string& name : optionNamesOf(help(command)))
      if (name.starts_with("--")) names.push_back(name);
    EXPECT_THAT(offered("korrin " + command + " --"), IsSupersetOf(names)) << command;
  }
}

TEST_F(Completion, NamesEveryOptionForZsh) {
  const std::string script = contentOf(scratch.path("manual/zsh/_korrin"));
  for (const std::string& command : commands()) {
    EXPECT_THAT(script, HasSubstr("\n    " + command + ")\n"));
    for (const std::string& name : optionNamesOf(help(command)))
      EXPECT_THAT(script, HasSubstr(name + "[")) << command;
  }
  EXPECT_THAT(script, HasSubstr(":FORMAT:(text json)"));
}

TEST_F(Completion, OffersFilesWhereOneBelongs) {
  scratch.write("two words.json", "");
  EXPECT_THAT(completions("korrin check two"), ElementsAre("two words.json"));
  EXPECT_THAT(completions("korrin new -o two"), ElementsAre("two words.json"));
  EXPECT_THAT(completions("korrin new two"), IsEmpty());
  EXPECT_THAT(completions("korrin check --format two"), IsEmpty());
}

}  // namespace
}  // namespace korrin::host
