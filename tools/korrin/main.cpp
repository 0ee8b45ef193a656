// The command-line host: reads the command line, runs one command and reports how it went.

#include <algorithm>
#include <charconv>
#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include <CLI/CLI.hpp>
#include <fcntl.h>
#include <unistd.h>

#include "commands/asset_command.h"
#include "commands/check_command.h"
#include "commands/command_page.h"
#include "commands/edit_command.h"
#include "commands/fmt_command.h"
#include "commands/help_text.h"
#include "commands/manual.h"
#include "commands/new_command.h"
#include "commands/render_command.h"
#include "commands/schema_command.h"
#include "commands/templates_command.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "editing/edit_session.h"
#include "terminal/exit_code.h"
#include "terminal/terminal.h"

namespace {

using namespace korrin;
using namespace korrin::host;

constexpr auto exitStatuses =
    "Exit status:\n"
    "  0   done; nothing found but information\n"
    "  1   findings of severity error or warning, or an image that is not accepted\n"
    "  2   a file cannot be read or written, is not a plot, or is not valid;\n"
    "      or a line of a script is refused\n"
    "  3   a document needs a newer version of korrin\n"
    "  64  the command line cannot be understood";

/// The raw values of an enumeration, parted by commas.
template <class Enumeration>
std::string wordsOf() {
  std::string words;
  for (const Enumeration choice : allCases<Enumeration>())
    words += (words.empty() ? "" : ", ") + std::string(rawValue(choice));
  return words;
}

/// An option that takes the raw values of an enumeration, and a help text that ends in them.
template <class Enumeration>
void addChoice(CLI::App& command, const std::string& name, Enumeration& value,
               const std::string& valueName, const std::string& description) {
  const auto read = [&value](const std::string& word) {
    const std::optional<Enumeration> choice = fromRawValue<Enumeration>(word);
    if (!choice)
      throw CLI::ValidationError("there is no \"" + word + "\" among " + wordsOf<Enumeration>());
    value = *choice;
  };
  command.add_option_function<std::string>(name, read, description + ": " + wordsOf<Enumeration>())
      ->type_name(valueName);
}

void addAssets(CLI::App& command, AssetOptions& options) {
  command
      .add_option("--known-assets", options.files,
                  "File of known artwork identifiers, one a line (repeatable)")
      ->take_all()
      ->allow_extra_args(false)
      ->type_name("FILE");
  command.add_flag("--builtin-assets", options.useBuiltin,
                   "The symbols of the templates and example plots are known");
}

/// Prints help in the words and the width of this program.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_help(const CLI::App* command, std::string, CLI::AppFormatMode) const override {
    return helpText(pageOf(*command));
  }
};

CLI::App* addCheck(CLI::App& app, CheckOptions& options) {
  CLI::App* command = app.add_subcommand("check", "Say what plots still lack or get wrong");
  command->add_option("FILE", options.files, "Plots to check; - is standard input")
      ->required()
      ->type_name("");
  addAssets(*command, options.assets);
  command
      ->add_option("--assets", options.assetFolders,
                   "Folder with the plots' embedded images, found by their digests (repeatable)")
      ->take_all()
      ->allow_extra_args(false)
      ->type_name("FOLDER");
  addChoice(*command, "--format", options.format, "FORMAT", "How findings are printed");
  addChoice(*command, "--dates", options.dates, "STRATEGY", "How dates stand in the plots");
  command->footer(
      "Without known assets the rule missingAsset is not run.\n"
      "With --assets, each image of a plot's manifest must be in a folder (not in one inside it),\n"
      "as long as the manifest says, and safe to draw, by itself and together with the others.\n"
      "The first of several words is the default.\n\n"
      "Examples:\n"
      "  korrin check --builtin-assets plot.json  what a venue's crew would trip over\n"
      "  korrin check --format json *.json        the same of many, for programs\n\n" +
      std::string(exitStatuses));
  return command;
}

CLI::App* addFormat(CLI::App& app, FormatOptions& options) {
  CLI::App* command = app.add_subcommand("fmt", "Write a plot in its canonical form");
  command->add_option("FILE", options.file, "Plot to read; - is standard input")
      ->required()
      ->type_name("");
  command
      ->add_option("-o,--output", options.output,
                   "Where to write, the plot itself if you like; standard output when absent or -")
      ->type_name("FILE");
  command->add_flag("--pretty", options.encoding.prettyPrinted, "One member a line, indented");
  command->add_flag("--sorted-keys", options.encoding.sortedKeys,
                    "Keys in alphabetical order instead of the format's");
  addChoice(*command, "--dates", options.dates, "STRATEGY", "How dates stand in the plot");
  addChoice(*command, "--write-dates", options.encoding.dates, "STRATEGY", "How dates are written");
  command->footer(
      "Keys that the format does not know are dropped, and named on standard error.\n"
      "The plot is not validated. A file is replaced all at once or not at all.\n"
      "The first of several words is the default.\n\n"
      "Examples:\n"
      "  korrin fmt --pretty plot.json             for reading\n"
      "  korrin fmt --pretty -o plot.json plot.json  in its place\n\n" +
      std::string(exitStatuses));
  return command;
}

CLI::App* addEdit(CLI::App& app, EditOptions& options) {
  CLI::App* command = app.add_subcommand("edit", "Edit a plot by commands, with undo and redo");
  command->add_option("FILE", options.file, "Plot to edit; - is standard input")
      ->required()
      ->type_name("");
  command
      ->add_option("--script", options.script, "File of commands; standard input when absent or -")
      ->type_name("FILE");
  addAssets(*command, options.assets);
  addChoice(*command, "--dates", options.dates, "STRATEGY", "How dates stand in the plot");
  command->add_flag("--pretty", options.isPretty, "Save the plot indented");
  command->footer(editCommandsHelp() +
                  "\n\nA script ends at the first line that is refused, with exit status 2.\n"
                  "Keys that the format does not know are dropped when the plot is saved.\n\n"
                  "Examples:\n"
                  "  korrin edit plot.json  commands as they are typed\n"
                  "  korrin edit --script changes.korrin plot.json  commands from a file\n\n" +
                  std::string(exitStatuses));
  return command;
}

CLI::App* addAsset(CLI::App& app, AssetCommandOptions& options) {
  CLI::App* command = app.add_subcommand("asset", "Say which images and PDFs a plot may embed");
  command->add_option("FILE", options.files, "Files to judge; - is standard input")
      ->required()
      ->type_name("");
  command
      ->add_option("--media-type", options.mediaType,
                   "Judge every file as this; that of its content when absent")
      ->type_name("TYPE");
  addChoice(*command, "--format", options.format, "FORMAT", "How verdicts are printed");
  command->footer(
      "The files are taken in their order, as if one plot embedded them all; those that are\n"
      "accepted stand below the table as the manifest of such a plot, the others by digest.\n"
      "Only headers are read: an accepted file is safe to decode, and may still be damaged.\n"
      "The first of several words is the default.\n\n" +
      std::string(exitStatuses));
  return command;
}

CLI::App* addNew(CLI::App& app, NewOptions& options) {
  CLI::App* command = app.add_subcommand("new", "Begin a plot: empty, or from a template");
  CLI::Option* chosen = command->add_option_function<std::string>(
      "--template",
      [&options](const std::string& word) {
        options.templateID = fromRawValue<KorrinTemplateID>(word);
        if (!options.templateID)
          throw CLI::ValidationError("there is no template \"" + word +
                                     "\"; korrin templates lists them");
      },
      "The template to begin with, as korrin templates describes them: " +
          wordsOf<KorrinTemplateID>());
  chosen->type_name("ID");
  command->add_flag("--example", options.isExample, "A festival plot that shows everything")
      ->excludes(chosen);
  command
      ->add_option("-o,--output", options.output,
                   "Where to write; standard output when absent or -")
      ->type_name("FILE");
  command->add_flag("--force", options.isForced, "Replace a file that is there already");
  command->footer(
      "Examples:\n"
      "  korrin new --template power_trio -o trio.json  a plot that is complete already\n"
      "  korrin new -o plot.json                        an empty one\n\n" +
      std::string(exitStatuses));
  return command;
}

CLI::App* addTemplates(CLI::App& app, TemplatesOptions& options) {
  CLI::App* command = app.add_subcommand("templates", "List the templates a plot can begin with");
  addChoice(*command, "--format", options.format, "FORMAT", "How they are printed");
  command->footer("The first of several words is the default.");
  return command;
}

CLI::App* addRender(CLI::App& app, RenderOptions& options) {
  CLI::App* command = app.add_subcommand("render", "Draw a plot for print, as SVG, PDF or PNG");
  command->add_option("FILE", options.file, "Plot to draw; - is standard input")
      ->required()
      ->type_name("");
  command
      ->add_option("-o,--output", options.output,
                   "Where to write; standard output when absent or -")
      ->type_name("FILE");
  CLI::Option* page = command->add_option_function<std::string>(
      "--page",
      [&options](const std::string& word) {
        if (word == "all") return;
        std::size_t number = 0;
        const auto end = std::from_chars(word.data(), word.data() + word.size(), number);
        if (end.ec != std::errc() || end.ptr != word.data() + word.size())
          throw CLI::ValidationError("\"" + word + "\" is neither a page number nor all");
        options.page = number;
      },
      "One page, counted from 1, or all of them one below the other: all");
  page->type_name("NUMBER");
  command
      ->add_flag("--plot-only", options.isPlotOnly,
                 "The drawing alone, without page, legend and lists")
      ->excludes(page);
  const auto convertTo = [&options](PictureFormat format) {
    return [&options, format] { options.converted = format; };
  };
  CLI::Option* pdf = command->add_flag_callback("--pdf", convertTo(PictureFormat::pdf),
                                                "Write PDF, by rsvg-convert of librsvg");
  command
      ->add_flag_callback("--png", convertTo(PictureFormat::png),
                          "Write PNG, by rsvg-convert of librsvg")
      ->excludes(pdf);
  addChoice(*command, "--dates", options.dates, "STRATEGY", "How dates stand in the plot");
  command->footer(
      "The plot's export settings say on which paper and with which lists. The plot is validated\n"
      "first. A file is replaced all at once or not at all, and never when it is a plot.\n"
      "The first of several words is the default.\n\n"
      "Examples:\n"
      "  korrin render --pdf -o plot.pdf plot.json    for the venue\n"
      "  korrin render --plot-only plot.json >plot.svg  for a page of one's own\n\n" +
      std::string(exitStatuses));
  return command;
}

CLI::App* addSchema(CLI::App& app, SchemaOptions& options) {
  CLI::App* command = app.add_subcommand("schema", "Print the JSON Schema of plots or of reports");
  addChoice(*command, "SUBJECT", options.subject, "", "What is described");
  addChoice(*command, "--dates", options.dates, "STRATEGY", "How dates stand in the plots");
  command->footer(
      "The report is what korrin check --format json prints, assets what korrin asset --format "
      "json\n"
      "does.\n"
      "The first of several words is the default.");
  return command;
}

ExitCode misused(Console& console, const std::string& sentence) {
  complain(console, sentence);
  console.err << "Try korrin --help.\n";
  return ExitCode::usage;
}

/// Everything that a command reads.
std::vector<std::string> inputsOf(const CheckOptions& options) {
  std::vector<std::string> inputs = options.files;
  inputs.insert(inputs.end(), options.assets.files.begin(), options.assets.files.end());
  return inputs;
}

std::vector<std::string> inputsOf(const EditOptions& options) {
  std::vector<std::string> inputs = options.assets.files;
  inputs.push_back(options.file);
  inputs.push_back(options.script.value_or(std::string(standardStream)));
  return inputs;
}

bool readsTwice(const std::vector<std::string>& inputs) {
  return std::ranges::count(inputs, standardStream) > 1;
}

ExitCode run(int argc, char** argv, Console& console) {
  CLI::App app("Makes, checks, rewrites, edits and draws stage plots.", "korrin");
  app.formatter(std::make_shared<HelpFormatter>());  // before the commands, which take it over
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.set_version_flag("--version", "korrin " KORRIN_VERSION, "Print the version and exit");
  std::string manualFolder;
  app.add_option("--write-manual", manualFolder)->group("");  // for whoever packages the program
  app.require_subcommand(0, 1);
  app.footer("korrin COMMAND --help tells more of a command.\n\n" + std::string(exitStatuses));
  CheckOptions checkOptions;
  FormatOptions formatOptions;
  EditOptions editOptions;
  const CLI::App* checkCommand = addCheck(app, checkOptions);
  const CLI::App* formatCommand = addFormat(app, formatOptions);
  const CLI::App* editCommand = addEdit(app, editOptions);
  AssetCommandOptions assetOptions;
  const CLI::App* assetCommand = addAsset(app, assetOptions);
  NewOptions newOptions;
  TemplatesOptions templatesOptions;
  RenderOptions renderOptions;
  SchemaOptions schemaOptions;
  const CLI::App* newCommand = addNew(app, newOptions);
  const CLI::App* templatesCommand = addTemplates(app, templatesOptions);
  const CLI::App* renderCommand = addRender(app, renderOptions);
  const CLI::App* schemaCommand = addSchema(app, schemaOptions);
  app.allow_extras();  // and refused below, in words of our own
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& request) {  // --help or --version
    app.exit(request, console.out, console.err);
    return ExitCode::clean;
  } catch (const CLI::ParseError& error) {
    return misused(console, error.what());
  }
  if (!manualFolder.empty()) {
    writeManual(pageOf(app), KORRIN_VERSION, manualFolder);
    return ExitCode::clean;
  }
  const std::vector<std::string> unknown = app.remaining();
  if (!unknown.empty()) return misused(console, "there is no command \"" + unknown.front() + "\"");
  if (readsTwice(inputsOf(checkOptions)) || readsTwice(inputsOf(editOptions)) ||
      readsTwice(assetOptions.files))
    return misused(console, "standard input can be read only once");
  if (*checkCommand) return check(checkOptions, console);
  if (*formatCommand) return format(formatOptions, console);
  if (*editCommand) return edit(editOptions, console);
  if (*assetCommand) return judgeFiles(assetOptions, console);
  if (*newCommand) return makeNew(newOptions, console);
  if (*templatesCommand) return listTemplates(templatesOptions, console);
  if (*renderCommand) return render(renderOptions, console);
  if (*schemaCommand) return printSchema(schemaOptions, console);
  return misused(console, "a command is missing");
}

/// A standard stream that the caller closed would leave its number to the next file opened, which
/// would then receive what is printed. A descriptor opened the wrong way round keeps the number and
/// fails on use.
void occupyStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1) continue;
    ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  occupyStandardDescriptors();
  // A reader that went away shows as a failed write, like a full disk.
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  Console console{std::cout, std::cerr, Terminal::of(STDOUT_FILENO), Terminal::of(STDERR_FILENO)};
  ExitCode result = ExitCode::unusable;
  try {
    result = run(argc, argv, console);
  } catch (const std::bad_alloc&) {
    complain(console, "there is not enough memory");
  } catch (const std::exception& error) {
    complain(console, error.what());
  }
  if (!std::cout.flush()) {
    complain(console, "standard output cannot be written");
    result = worse(result, ExitCode::unusable);
  }
  return static_cast<int>(result);
}
