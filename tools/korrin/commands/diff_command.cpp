#include "commands/diff_command.h"

#include <cstdlib>
#include <memory>
#include <utility>

#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "revisions/plot_revisions.h"
#include "terminal/display_text.h"
#include "terminal/failure.h"

namespace korrin::host {
namespace {

// What git gives: PATH OLD-FILE OLD-HEX OLD-MODE NEW-FILE NEW-HEX NEW-MODE, then the new path and
// what is known about the renaming. Of a path with a merge to finish it gives the path alone.
constexpr std::size_t wordsOfGit = 7;
constexpr std::size_t wordsOfARenaming = 9;
constexpr std::size_t oldFileOfGit = 1;
constexpr std::size_t newFileOfGit = 4;

bool isCalledByGit() { return std::getenv("GIT_DIFF_PATH_COUNTER") != nullptr; }

void print(const RevisionReport& report, DiffFormat format, Console& console) {
  if (format == DiffFormat::json)
    console.out << report.json() << '\n';
  else
    report.print(console.out);
}

ExitCode diffFiles(const DiffOptions& options, Console& console) {
  std::string current = inputName(options.words[0]);
  return sayingFailures(console, current, [&] {
    Revision before = readRevision(options.words[0], options.dates);
    current = inputName(options.words[1]);
    Revision after = readRevision(options.words[1], options.dates);
    const RevisionReport report(std::move(before), std::move(after));
    print(report, options.format, console);
    return report.isEmpty() ? ExitCode::clean : ExitCode::findings;
  });
}

ExitCode diffForGit(const DiffOptions& options, Console& console) {
  const bool isRenamed = options.words.size() == wordsOfARenaming;
  console.out << printable(options.words[0]);
  if (isRenamed) console.out << " -> " << printable(options.words[wordsOfGit]);
  console.out << '\n';
  std::string current = "the former file";
  try {
    Revision before = readRevision(options.words[oldFileOfGit], options.dates);
    current = "the file";
    Revision after = readRevision(options.words[newFileOfGit], options.dates);
    print(RevisionReport(std::move(before), std::move(after)), options.format, console);
  } catch (const Failure& failure) {
    console.out << current << ": " << printable(failure.what()) << '\n';
  }
  return ExitCode::clean;
}

}  // namespace

ExitCode diff(const DiffOptions& options, Console& console) {
  switch (options.words.size()) {
    case 2:
      return diffFiles(options, console);
    case wordsOfGit:
    case wordsOfARenaming:
      return diffForGit(options, console);
    case 1:
      if (!isCalledByGit()) break;
      console.out << printable(options.words[0]) << "\nA merge of this plot is not finished.\n";
      return ExitCode::clean;
    default:
      break;
  }
  throw UsageError("diff takes two plots, the old one and the new one");
}

Command diffCommand() {
  const auto options = std::make_shared<DiffOptions>();
  const auto takeWord = [options](const std::string& word) { options->words.push_back(word); };
  CommandPage page{
      .name = "diff",
      .summary = "Say what changed between two plots.",
      .arguments = {{.names = {"OLD"},
                     .text = "Plot as it was; - is standard input",
                     .isRequired = true,
                     .isInput = true,
                     .take = takeWord},
                    {.names = {"NEW"}, .text = "Plot as it is", .isInput = true, .take = takeWord},
                    {.names = {"GIT"},
                     .text = "What git adds when it calls this as external diff",
                     .isRepeatable = true,
                     .isHidden = true,
                     .take = takeWord}},
      .options = {choice("--format", "FORMAT", "How differences are printed", options->format),
                  dates(options->dates, "How dates stand in the plots")},
      .passages = {
          {.prose = "Records are told apart by their identifiers; the time of the last edit does "
                    "not count. An empty file stands for no plot. The plots are not validated. "
                    "With git: git config diff.korrin.command 'korrin diff'. The first of several "
                    "words is the default."},
          {.heading = "Examples",
           .rows = {{"korrin diff monday.json friday.json", "what the crew must know"},
                    {"korrin diff --format json a.json b.json", "the same for programs"}}},
          {.heading = "Exit status",
           .rows = {{"0", "the plots are equal"},
                    {"1", "they differ"},
                    {"2", "a file cannot be read or is not a plot"},
                    {"3", "a document needs a newer version of korrin"},
                    {"64", "the command line cannot be understood"}}}}};
  return {std::move(page), [options](Console& console) { return diff(*options, console); }};
}

}  // namespace korrin::host
