#include "commands/waive_command.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "korrin/preflight/preflight_engine.h"

#include "assets/known_assets.h"
#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "documents/waiver_file.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

bool hasFinding(const KorrinProject& project, const Text& id) {
  const KnownAssets known = knownAssets({.files = {}, .useBuiltin = true});
  for (const PreflightIssue& issue : PreflightEngine::inspect(project, known.identifiers))
    if (issue.id == id) return true;
  return std::ranges::any_of(audit(project),
                             [&](const AuditFinding& finding) { return finding.id == id; });
}

}  // namespace

ExitCode waive(const WaiveOptions& options, Console& console) {
  if (!options.reason || Text(*options.reason).isBlank())
    throw UsageError("--reason TEXT is required: whoever reads the plot wants to know why");
  if (options.file == standardStream && !options.waivers)
    throw UsageError("standard input has no file beside it; name one with --waivers");
  std::string current = inputName(options.file);
  return sayingFailures(console, current, [&] {
    const KorrinProject project = decodeDocument(readDocument(options.file).bytes, options.dates);
    requireValid(project);
    const std::string path = options.waivers.value_or(waiverFileFor(options.file));
    WaiverFile opened = openWaivers(path);
    WaiverList list = opened.list.value_or(
        WaiverList{.schemaVersion = WaiverList::currentSchemaVersion, .waivers = {}});
    if (!hasFinding(project, options.finding))
      throw Failure("has no finding \"" + options.finding +
                    "\"; korrin fix lists them with their ids");
    for (const Waiver& waiver : list.waivers)
      if (waiver.findingID == options.finding)
        throw Failure("\"" + options.finding + "\" is accepted already, in " + path);
    list.waivers.push_back({.findingID = options.finding,
                            .reason = *options.reason,
                            .author = options.author.value_or(""),
                            .date = options.environment.now()});
    current = path;
    writeWaivers(opened, list, console);
    console.out << printable(path) << ": accepted " << printable(options.finding) << '\n';
    return ExitCode::clean;
  });
}

Command waiveCommand() {
  const auto options = std::make_shared<WaiveOptions>();
  Parameter finding{
      .names = {"FINDING"},
      .text = "The finding's id, as korrin fix lists it",
      .isRequired = true,
      .take = [options = options.get()](const std::string& word) { options->finding = word; }};
  CommandPage page{
      .name = "waive",
      .summary = "Accept a finding of a plot, with a reason.",
      .arguments = {inputFile("Plot that has the finding; - is standard input", options->file),
                    std::move(finding)},
      .options = {option({"--reason"}, "TEXT", "Why the finding may stay; required",
                         options->reason),
                  option({"--author"}, "NAME", "Who accepts it", options->author),
                  option({"--waivers"}, "FILE",
                         "Where to write; NAME.waivers.json beside the plot when absent",
                         options->waivers),
                  dates(options->dates)},
      .passages = {
          {.prose = "korrin check then counts the finding as accepted, and says by whom and why. A "
                    "waiver whose finding is no more is stale: korrin check --strict fails on it."},
          {.heading = "Examples",
           .rows = {{"korrin waive plot.json ID --reason \"in the wing\" --author Kim",
                     "the finding with this id may stay"}}},
          exitStatuses()}};
  return {std::move(page), [options](Console& console) { return waive(*options, console); }};
}

}  // namespace korrin::host
