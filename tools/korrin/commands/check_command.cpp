#include "commands/check_command.h"

#include <charconv>
#include <cstddef>
#include <map>
#include <memory>
#include <utility>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/waivers.h"

#include "assets/asset_folders.h"
#include "assets/asset_table.h"
#include "assets/known_assets.h"
#include "assets/manifest_check.h"
#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "documents/plot_files.h"
#include "documents/waiver_file.h"
#include "findings/finding_rows.h"
#include "findings/findings_json.h"
#include "findings/findings_table.h"
#include "findings/junit.h"
#include "findings/rule_texts.h"
#include "findings/sarif.h"
#include "terminal/display_text.h"
#include "terminal/failure.h"
#include "terminal/in_order.h"
#include "terminal/similar_file.h"

namespace korrin::host {
namespace {

/// Takes the accepted findings out of a file's. The audit is run for this in any case: whether a
/// waiver is stale must not depend on what was asked for.
void acceptWaived(FileFindings& file, std::vector<AuditFinding> audited, const WaiverList& list,
                  bool withAudit) {
  ReviewedIssues ofPreflight = review(std::move(file.issues), list);
  ReviewedFindings ofAudit = review(
      std::move(audited),
      WaiverList{.schemaVersion = list.schemaVersion, .waivers = std::move(ofPreflight.stale)});
  std::vector<PreflightIssue> issues;
  std::vector<AuditFinding> findings;
  std::map<Text, Waiver> waivers;
  for (WaivedIssue& waived : ofPreflight.waived) {
    waivers.try_emplace(waived.issue.id, std::move(waived.waiver));
    issues.push_back(std::move(waived.issue));
  }
  for (WaivedFinding& waived : ofAudit.waived) {
    if (!withAudit) continue;
    waivers.try_emplace(waived.finding.id, std::move(waived.waiver));
    findings.push_back(std::move(waived.finding));
  }
  for (FindingRow& row : rowsOf(file.project, issues, findings)) {
    Waiver waiver = waivers.at(row.id);
    file.waived.push_back({std::move(row), std::move(waiver)});
  }
  file.issues = std::move(ofPreflight.open);
  if (withAudit) file.audit = std::move(ofAudit.open);
  // A rule that was not run says nothing about what it would have found.
  const std::string notRun = std::string(rawValue(PreflightRule::missingAsset)) + ":";
  for (Waiver& waiver : ofAudit.stale)
    if (file.missingAssetNotRunReason.empty() || !waiver.findingID.str().starts_with(notRun))
      file.stale.push_back(std::move(waiver));
}

FileFindings inspect(const std::string& path, const CheckOptions& options,
                     const KnownAssets& known) {
  FileFindings file{inputName(path), std::nullopt, KorrinProject{}, {}, known.notRunReason};
  file.isStrict = options.isStrict;
  try {
    file.project = decodeDocument(readDocument(path).bytes, options.dates);
    requireValid(file.project);
    file.issues = PreflightEngine::inspect(file.project, known.identifiers);
    std::optional<WaiverList> waivers;
    if (options.waivers || path != standardStream)
      waivers = readWaivers(options.waivers.value_or(waiverFileFor(path)));
    if (options.waivers && !waivers)
      throw Refusal(RefusalReason::unreadable, *options.waivers + ": there is no such file" +
                                                   similarFileSuggestion(*options.waivers));
    if (waivers)
      acceptWaived(file, audit(file.project), *waivers, options.withAudit);
    else if (options.withAudit)
      file.audit = audit(file.project);
  } catch (const Refusal& refusal) {
    file.refusal = refusal;
  }
  return file;
}

void print(const FileFindings& file, Console& console) {
  if (file.refusal) {
    const std::string what = file.refusal->what();
    const bool isMissing = what.starts_with("cannot be read");
    complain(console,
             file.name + ": " + what + (isMissing ? similarFileSuggestion(file.name) : ""));
    return;
  }
  const std::vector<FindingRow> rows = openRows(file);
  const bool hasAssets = file.assets && !file.assets->empty();
  if (!rows.empty() || hasAssets || !file.waived.empty() || !file.stale.empty())
    console.out << printable(file.name) << '\n';
  printRows(console.out, console.outTerminal, rows);
  printWaivers(console.out, console.outTerminal, file);
  if (hasAssets) printAssets(console.out, console.outTerminal, *file.assets);
  console.out << summaryLine(file) << '\n';
}

void printReport(CheckFormat format, const std::vector<FileFindings>& files, ExitCode result,
                 std::ostream& out) {
  if (format == CheckFormat::json) out << findingsReport(files, result) << '\n';
  if (format == CheckFormat::sarif) out << sarifLog(files, result) << '\n';
  if (format == CheckFormat::junit) out << junitReport(files);
}

/// What the findings of several plots come to.
class CheckTotals {
 public:
  void add(const FileFindings& file) {
    ++plots_;
    if (file.refusal) ++refused_;
    const SeverityCounts counts = file.counts();
    for (std::size_t i = 0; i < counts.size(); ++i) counts_[i] += counts[i];
  }

  std::string sentence() const {
    const auto [errors, warnings, information] = counts_;
    return std::to_string(plots_) + " plots: " + std::to_string(errors) +
           (errors == 1 ? " error, " : " errors, ") + std::to_string(warnings) +
           (warnings == 1 ? " warning, " : " warnings, ") + std::to_string(information) +
           " for information; " + std::to_string(refused_) + " not opened";
  }

 private:
  std::size_t plots_ = 0;
  std::size_t refused_ = 0;
  SeverityCounts counts_ = {};
};

/// How many plots are checked at once.
std::size_t workerCount(const std::string& word) {
  constexpr std::size_t most = 64;
  std::size_t count = 0;
  const auto end = std::from_chars(word.data(), word.data() + word.size(), count);
  if (end.ec != std::errc() || end.ptr != word.data() + word.size() || count < 1 || count > most)
    throw UsageError("\"" + word + "\" is no number of workers from 1 to " + std::to_string(most));
  return count;
}

/// The plots that the command line means. Among others, a list of waivers stands for the plot
/// beside it: "*.json" names both.
std::vector<std::string> plotsNamed(const CheckOptions& options, Console& console) {
  std::vector<std::string> files = plotFiles(options.files);
  if (files.size() < 2) return files;
  std::vector<std::string> plots;
  for (std::string& file : files) {
    if (isWaiverName(file))
      complain(console, file + ": is a list of accepted findings, no plot; passed over");
    else
      plots.push_back(std::move(file));
  }
  if (plots.empty()) throw Failure("there is no plot to check among these files");
  return plots;
}

ExitCode checkFiles(const CheckOptions& options, Console& console) {
  if (options.explained) {
    console.out << explanationOf(*options.explained);
    return ExitCode::clean;
  }
  if (options.files.empty()) throw UsageError("FILE is required");
  const std::vector<std::string> files = plotsNamed(options, console);
  if (options.waivers && files.size() > 1)
    throw UsageError("--waivers goes with one FILE; each plot has findings of its own");
  const KnownAssets known = knownAssets(options.assets);
  AssetFolders folders(options.assetFolders);
  ExitCode result = ExitCode::clean;
  std::vector<FileFindings> reported;
  const bool isParallel = options.workers > 1 && files.size() > 1;
  CheckTotals totals;
  Progress progress(console, files.size());
  const auto inspectFile = [&](std::size_t i) {
    if (!isParallel) progress.step(inputName(files[i]), sizeOf(files[i]));
    return inspect(files[i], options, known);
  };
  // Folders of images remember what they have read: one thread looks into them.
  const auto takeFile = [&](std::size_t i, FileFindings file) {
    if (isParallel) progress.step(inputName(files[i]));
    if (!options.assetFolders.empty() && !file.refusal)
      file.assets = checkManifest(file.project, folders);
    result = worse(result, file.exitCode());
    totals.add(file);
    if (options.format == CheckFormat::text) {
      progress.clear();
      print(file, console);
    } else {
      if (options.format == CheckFormat::json)
        file.project = KorrinProject{};  // the report needs the findings only
      reported.push_back(std::move(file));
    }
  };
  inOrder(files.size(), options.workers, inspectFile, takeFile);
  progress.clear();
  if (options.format == CheckFormat::text && files.size() > 1)
    console.out << totals.sentence() << '\n';
  printReport(options.format, reported, result, console.out);
  return result;
}

}  // namespace

ExitCode check(const CheckOptions& options, Console& console) {
  return sayingFailures(console, "", [&] { return checkFiles(options, console); });
}

Command checkCommand() {
  const auto options = std::make_shared<CheckOptions>();
  CommandPage page{
      .name = "check",
      .summary = "Say what plots still lack or get wrong.",
      .arguments = {inputFiles("Plots to check, and folders of them; - is standard input",
                               options->files)},
      .options = knownAssetOptions(options->assets),
      .passages = {
          {.prose =
               "Without known assets the rule missingAsset is not run. With --assets, each "
               "image of a plot's manifest must be in a folder (not in one inside it), as "
               "long as the manifest says, and safe to draw, by itself and together with the "
               "others. Of a folder all files are checked whose names end in .json, also in "
               "folders inside it; lists of waivers are passed over. The first of several words is "
               "the default."},
          {.heading = "Examples",
           .rows = {{"korrin check --builtin-assets plot.json",
                     "what a venue's crew would trip over"},
                    {"korrin check --format json *.json", "the same of many, for programs"},
                    {"korrin check --explain itemOutsideStage", "what a rule is about"}}},
          exitStatuses()}};
  page.options.push_back(repeatable(
      {"--assets"}, "FOLDER", "Folder with the plots' embedded images, found by their digests",
      options->assetFolders));
  page.arguments.front().isRequired = false;  // with --explain there is none
  page.options.push_back(flag(
      {"--audit"}, "Also look at what preflight passes over, such as groups", options->withAudit));
  page.options.push_back(option({"--waivers"}, "FILE",
                                "Accepted findings; those in NAME.waivers.json beside the plot "
                                "when absent",
                                options->waivers));
  page.options.push_back(
      flag({"--strict"}, "A waiver whose finding is no more is a finding", options->isStrict));
  page.options.push_back(option({"--explain"}, "RULE",
                                "Say what a rule is about and how to mend what it finds",
                                options->explained));
  page.options.push_back(choice("--format", "FORMAT", "How findings are printed", options->format));
  page.options.push_back({.names = {"-j", "--jobs"},
                          .valueName = "NUMBER",
                          .text = "How many plots are checked at once; 1 when absent",
                          .take = [options = options.get()](const std::string& word) {
                            options->workers = workerCount(word);
                          }});
  page.options.push_back(dates(options->dates, "How dates stand in the plots"));
  return {std::move(page), [options](Console& console) { return check(*options, console); }};
}

}  // namespace korrin::host
