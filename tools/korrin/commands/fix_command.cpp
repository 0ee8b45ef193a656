#include "commands/fix_command.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <utility>
#include <variant>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/audit.h"
#include "korrin/review/difference.h"
#include "korrin/review/safe_fixes.h"
#include "korrin/session/opening.h"

#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "documents/waiver_file.h"
#include "findings/finding_rows.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

/// A finding of either inspection and how it is shown.
struct Candidate {
  std::variant<PreflightIssue, AuditFinding> finding;
  FindingRow row;
};

/// The findings of one inspection, which stand in the order of their rows.
template <class Finding>
void add(std::vector<Candidate>& candidates, std::vector<Finding> findings,
         std::vector<FindingRow> rows) {
  for (std::size_t i = 0; i < findings.size(); ++i)
    candidates.push_back({std::move(findings[i]), std::move(rows[i])});
}

std::vector<Candidate> candidatesIn(const KorrinProject& project) {
  const std::vector<PreflightIssue> issues = PreflightEngine::inspect(project, {});
  const std::vector<AuditFinding> findings = audit(project);
  std::vector<Candidate> candidates;
  add(candidates, issues, rowsOf(project, issues, {}));
  add(candidates, findings, rowsOf(project, {}, findings));
  return candidates;
}

std::vector<Fix> fixesOf(const Candidate& candidate, FixFinder& fixesFor,
                         const Environment& environment) {
  return std::visit([&](const auto& finding) { return fixesFor(finding, environment); },
                    candidate.finding);
}

/// What the user asks for: a finding, and which of its fixes when it has several.
struct Request {
  std::string id;
  std::size_t choice = 0;  ///< Counted from 1; 0 when none is named.
};

/// An id may hold any character, "#" too: only a number at its end is a choice.
Request requestOf(const std::string& word) {
  const std::size_t mark = word.rfind('#');
  if (mark == std::string::npos) return {word};
  std::size_t choice = 0;
  const char* const end = word.data() + word.size();
  const auto [rest, error] = std::from_chars(word.data() + mark + 1, end, choice);
  if (error != std::errc() || rest != end || choice == 0) return {word};
  return {word.substr(0, mark), choice};
}

std::string headline(const FindingRow& row) {
  std::string line = std::string(rawValue(row.severity)) + ": " + printable(row.title);
  if (!row.concern.empty()) line += ", " + shortened(printable(row.concern), 60);
  return line;
}

void list(const Candidate& candidate, const std::vector<Fix>& fixes, std::ostream& out) {
  out << headline(candidate.row) << "\n  " << printable(candidate.row.id) << '\n';
  if (fixes.empty()) out << "    only a person can know\n";
  for (std::size_t i = 0; i < fixes.size(); ++i) {
    out << "    ";
    if (fixes.size() > 1) out << '#' << i + 1 << ' ';
    out << printable(fixes[i].title) << '\n';
  }
}

ExitCode listAll(const KorrinProject& project, const FixOptions& options, std::ostream& out) {
  const std::vector<Candidate> candidates = candidatesIn(project);
  FixFinder fixesFor(project);
  for (const Candidate& candidate : candidates)
    list(candidate, fixesOf(candidate, fixesFor, options.environment), out);
  if (candidates.empty()) out << "nothing to mend\n";
  return ExitCode::clean;
}

/// What the plot becomes by the fixes, one difference a line.
void printDifferences(const KorrinProject& before, const KorrinProject& after, std::ostream& out) {
  const DifferenceSentences sentenceFor(before, after);
  for (const Difference& difference : differences(before, after))
    out << "  " << printable(sentenceFor(difference)) << '\n';
}

/// Applies fixes one after the other, each to the plot that the one before left.
class Mending {
 public:
  Mending(KorrinProject project, const FixOptions& options, Console& console)
      : project_(std::move(project)), options_(options), console_(console) {}

  const KorrinProject& project() const { return project_; }
  std::size_t count() const { return count_; }
  bool isChoiceOpen() const { return isChoiceOpen_; }

  /// Throws Failure when the plot has no such finding, or no such fix.
  void mend(const Request& request) {
    const std::vector<Candidate> candidates = candidatesIn(project_);
    const auto isMeant = [&](const Candidate& candidate) { return candidate.row.id == request.id; };
    const auto candidate = std::ranges::find_if(candidates, isMeant);
    if (candidate == candidates.end())
      throw Failure("has no finding \"" + request.id + "\"; korrin fix lists them");
    if (std::ranges::count_if(candidates, isMeant) > 1)
      throw Failure("has several findings \"" + request.id +
                    "\", since records share their identifier; mend the finding sharedIdentifier "
                    "first");
    FixFinder fixesFor(project_);
    const std::vector<Fix> fixes = fixesOf(*candidate, fixesFor, options_.environment);
    if (fixes.empty()) throw Failure("cannot be mended by a program: \"" + request.id + "\"");
    if (request.choice > fixes.size())
      throw Failure("has no choice #" + std::to_string(request.choice) + " for \"" + request.id +
                    "\"");
    if (fixes.size() > 1 && request.choice == 0) {
      isChoiceOpen_ = true;
      list(*candidate, fixes, console_.out);
      return;
    }
    apply(fixes[request.choice == 0 ? 0 : request.choice - 1]);
  }

  /// Every finding that nobody accepted and that has one fix alone. A fix may bring a remark that
  /// has one itself.
  void mendAllSafe() {
    std::optional<WaiverList> accepted;
    if (options_.file != standardStream) accepted = readWaivers(waiverFileFor(options_.file));
    const std::optional<SafeFixes> fixes =
        safeFixes(project_, accepted.value_or(WaiverList{}), options_.environment);
    if (!fixes) return;
    for (const Text& title : fixes->titles) say(title);
    fixes->command.apply(project_, options_.environment);
  }

 private:
  void apply(const Fix& fix) {
    fix.command.apply(project_, options_.environment);
    say(fix.title);
  }
  void say(const Text& title) {
    console_.out << printable(title) << '\n';
    ++count_;
  }

  KorrinProject project_;
  const FixOptions& options_;
  Console& console_;
  std::size_t count_ = 0;
  bool isChoiceOpen_ = false;
};

}  // namespace

ExitCode fix(const FixOptions& options, Console& console) {
  std::string current = inputName(options.file);
  return sayingFailures(console, current, [&] {
    const Input input = readDocument(options.file);
    const Plot plot = readPlot(input.bytes, options.dates);
    const KorrinProject& project = plot.value;
    requireValid(project);
    if (options.findings.empty() && !options.fixesAllSafe)
      return listAll(project, options, console.out);

    Mending mending(project, options, console);
    for (const std::string& word : options.findings) mending.mend(requestOf(word));
    if (options.fixesAllSafe) mending.mendAllSafe();
    if (mending.isChoiceOpen()) {
      complain(console, current + ": choose by #1, #2 ... behind the finding; nothing is written");
      return ExitCode::findings;
    }
    printDifferences(project, mending.project(), console.out);
    if (options.isDryRun || mending.count() == 0) return ExitCode::clean;

    const EncodingOptions encoding = {
        .prettyPrinted = options.isPretty || isPrettyPrinted(input.bytes),
        .sortedKeys = false,
        .dates = options.dates,
        .nonFinite = NonFinite::fail};
    const std::string document = bytesToSave(mending.project(), encoding) + "\n";
    const std::string target = options.output.value_or(options.file);
    if (target == standardStream)
      throw Failure("was read from standard input; name a file with --output");
    const std::string dropped = droppedKeysSentence(plot.unknownKeys);
    if (!dropped.empty()) complain(console, current + ": " + dropped);
    current = target;
    writeDocument(target, document, input, console);
    return ExitCode::clean;
  });
}

Command fixCommand() {
  const auto options = std::make_shared<FixOptions>();
  Parameter findings{.names = {"FINDING"},
                     .text =
                         "Findings to mend, as their ids or as ID#2 for the second choice; all "
                         "findings are listed when absent",
                     .isRepeatable = true,
                     .take = [options = options.get()](const std::string& word) {
                       options->findings.push_back(word);
                     }};
  CommandPage page{
      .name = "fix",
      .summary = "Say what can be done about findings, and do it.",
      .arguments = {inputFile("Plot to mend; - is standard input", options->file),
                    std::move(findings)},
      .options =
          {flag({"--dry-run"}, "Say what would be done and write nothing", options->isDryRun),
           flag({"--all-safe"}, "Mend every finding that has one fix alone", options->fixesAllSafe),
           output(options->output, "Where to write; the plot itself when absent"),
           flag({"--pretty"}, "Write the plot indented even if it was not", options->isPretty),
           dates(options->dates)},
      .passages = {
          {.prose = "Findings are those of preflight and of the audit. Without FINDING and "
                    "--all-safe nothing is changed. Each fix makes its finding go away and brings "
                    "no error or warning; --all-safe leaves accepted findings alone. Where a "
                    "choice is open, it is listed, nothing is "
                    "written and the exit status is 1. Keys that the format does not know are "
                    "dropped when the plot is written, and named on standard error."},
          {.heading = "Examples",
           .rows = {{"korrin fix plot.json", "what can be done"},
                    {"korrin fix --all-safe --dry-run plot.json", "what would be done"},
                    {"korrin fix plot.json missingLayer:9A1E40B4-5815-4A99-99E2-D15364C7A500",
                     "one finding"}}},
          exitStatuses()}};
  return {std::move(page), [options](Console& console) { return fix(*options, console); }};
}

}  // namespace korrin::host
