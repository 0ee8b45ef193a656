#include "commands/command_line.h"

#include <algorithm>
#include <cstddef>
#include <memory>

#include <CLI/CLI.hpp>

#include "commands/help_text.h"
#include "commands/manual.h"
#include "documents/document_file.h"
#include "findings/rule_texts.h"
#include "terminal/failure.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

const Parameter help = {.names = {"-h", "--help"}, .text = "Print this help and exit"};
const Parameter version = {.names = {"-V", "--version"}, .text = "Print the version and exit"};

/// CLI11's way of naming one parameter in several ways.
std::string commaParted(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ",") + name;
  return text;
}

/// Lets `app` understand a parameter, and counts how often standard input is to be read. Both refer
/// to the parameter and the count.
void add(CLI::App& app, const Parameter& parameter, std::size_t& standardInputs) {
  const auto take = [&parameter, &standardInputs](const std::string& word) {
    if (parameter.isInput && word == standardStream) ++standardInputs;
    parameter.take(word);
  };
  const std::string names = commaParted(parameter.names);
  if (parameter.isFlag()) {
    app.add_flag_callback(names, [take] { take(""); });
  } else if (parameter.isRepeatable) {
    CLI::Option* option = app.add_option_function<std::vector<std::string>>(
        names, [take](const std::vector<std::string>& words) {
          for (const std::string& word : words) take(word);
        });
    option->required(parameter.isRequired);
    if (!parameter.isArgument()) option->take_all()->allow_extra_args(false);
  } else {
    app.add_option_function<std::string>(names, take)->required(parameter.isRequired);
  }
}

void add(CLI::App& app, const CommandPage& page, std::size_t& standardInputs) {
  app.set_help_flag(commaParted(help.names));
  for (const Parameter& argument : page.arguments) add(app, argument, standardInputs);
  for (const Parameter& option : page.options)
    if (option.take) add(app, option, standardInputs);
  for (const Parameter& option : page.options)
    for (const std::string& other : option.excludes)
      app.get_option(option.names.back())->excludes(app.get_option(other));
  app.allow_extras();  // and refused below, in words of our own
}

std::vector<std::string> optionNames(const CommandPage& page) {
  std::vector<std::string> names;
  for (const Parameter& option : page.options)
    if (!option.isHidden) names.insert(names.end(), option.names.begin(), option.names.end());
  return names;
}

std::vector<std::string> commandNames(const CommandPage& program) {
  std::vector<std::string> names;
  for (const CommandPage& command : program.subcommands) names.push_back(command.name);
  return names;
}

/// Refuses words that no parameter has taken.
void requireNothingLeft(const CLI::App& app, const CommandPage& page) {
  std::vector<std::string> left = app.remaining();
  // It says that no options follow, and is left where it stood.
  const auto mark = std::ranges::find(left, "--");
  const bool isBehindMark = !left.empty() && mark == left.begin();
  if (mark != left.end()) left.erase(mark);
  if (left.empty()) return;
  const std::string& word = left.front();
  if (!isBehindMark && word.starts_with("-") && word != standardStream) {
    const std::string name = word.substr(0, word.find('='));
    throw UsageError("there is no option \"" + name + "\"" + suggestion(name, optionNames(page)));
  }
  if (page.subcommands.empty())
    throw UsageError(page.fullName() + " has no use for \"" + word + "\"");
  throw UsageError("there is no command \"" + word + "\"" + suggestion(word, commandNames(page)));
}

/// What excludes another option is excluded by it: both say so.
void makeMutual(std::vector<Parameter>& options) {
  for (std::size_t i = 0; i < options.size(); ++i)
    for (const std::string& name : std::vector(options[i].excludes))
      for (Parameter& other : options) {
        const bool isMeant = std::ranges::count(other.names, name) > 0;
        const std::string& back = options[i].names.back();
        if (isMeant && std::ranges::count(other.excludes, back) == 0)
          other.excludes.push_back(back);
      }
}

/// The place of the command that was asked for; as many as there are commands for none.
std::size_t chosenCommand(const CLI::App& app, const CommandPage& program) {
  const std::vector<CLI::App*> parsed = app.get_subcommands();
  if (parsed.empty()) return program.subcommands.size();
  const auto found =
      std::ranges::find(program.subcommands, parsed.front()->get_name(), &CommandPage::name);
  return static_cast<std::size_t>(found - program.subcommands.begin());
}

/// korrin help: what --help prints, of the program or of one of the commands.
Command helpCommand(const std::vector<Command>& commands) {
  const auto topic = std::make_shared<std::string>();
  Parameter argument{.names = {"COMMAND"},
                     .text = "The command that is explained; the program when absent",
                     .take = [topic](const std::string& word) { *topic = word; }};
  for (const Command& command : commands) argument.choices.push_back(command.page.name);
  CommandPage page{.name = "help",
                   .summary = "Explain the program or one of its commands.",
                   .arguments = {std::move(argument)}};
  const auto run = [topic, commands](Console& console) {
    std::vector<Command> all = commands;
    all.push_back(helpCommand(commands));
    const CommandPage program = programPage(all);
    const auto found = std::ranges::find(program.subcommands, *topic, &CommandPage::name);
    if (!topic->empty() && found == program.subcommands.end())
      throw UsageError("there is no command \"" + *topic + "\"" +
                       suggestion(*topic, commandNames(program)));
    console.out << helpText(topic->empty() ? program : *found);
    return ExitCode::clean;
  };
  return {std::move(page), run};
}

ExitCode runUnderstood(const std::vector<Command>& commands, int count, char** arguments,
                       Console& console) {
  CommandPage program = programPage(commands);
  std::string manualFolder;  // for whoever packages the program
  program.options.push_back(
      {.names = {"--write-manual"},
       .valueName = "FOLDER",
       .isHidden = true,
       .take = [&manualFolder](const std::string& word) { manualFolder = word; }});
  std::string rulePagesFolder;  // for whoever keeps docs/rules
  program.options.push_back(
      {.names = {"--write-rule-pages"},
       .valueName = "FOLDER",
       .isHidden = true,
       .take = [&rulePagesFolder](const std::string& word) { rulePagesFolder = word; }});
  std::size_t standardInputs = 0;
  CLI::App app("", program.name);
  app.require_subcommand(0, 1);
  add(app, program, standardInputs);
  app.set_version_flag(commaParted(version.names), "korrin " KORRIN_VERSION);
  for (const CommandPage& page : program.subcommands)
    add(*app.add_subcommand(page.name), page, standardInputs);
  try {
    app.parse(count, arguments);
  } catch (const CLI::CallForHelp&) {
    const std::size_t chosen = chosenCommand(app, program);
    console.out << helpText(chosen < commands.size() ? program.subcommands[chosen] : program);
    return ExitCode::clean;
  } catch (const CLI::CallForVersion& request) {
    console.out << request.what() << '\n';
    return ExitCode::clean;
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  if (!manualFolder.empty()) {
    std::erase_if(program.options, [](const Parameter& option) { return option.isHidden; });
    writeManual(program, KORRIN_VERSION, manualFolder);
    return ExitCode::clean;
  }
  if (!rulePagesFolder.empty())
    return sayingFailures(console, rulePagesFolder, [&] {
      writeRulePages(rulePagesFolder);
      return ExitCode::clean;
    });
  const std::size_t chosen = chosenCommand(app, program);
  requireNothingLeft(app, program);
  if (chosen == commands.size()) throw UsageError("a command is missing");
  requireNothingLeft(*app.get_subcommands().front(), program.subcommands[chosen]);
  if (standardInputs > 1) throw UsageError("standard input can be read only once");
  return commands[chosen].run(console);
}

}  // namespace

CommandPage programPage(const std::vector<Command>& commands) {
  CommandPage program{
      .name = "korrin",
      .summary = "Makes, checks, rewrites, edits and draws stage plots.",
      .options = {help, version},
      .passages = {{.prose = "korrin help COMMAND tells more of a command."}, exitStatuses()}};
  for (const Command& command : commands) {
    CommandPage page = command.page;
    page.program = program.name;
    page.options.insert(page.options.begin(), help);
    makeMutual(page.options);
    program.subcommands.push_back(std::move(page));
  }
  return program;
}

ExitCode runCommandLine(const std::vector<Command>& commands, int count, char** arguments,
                        Console& console) {
  try {
    std::vector<Command> all = commands;
    all.push_back(helpCommand(commands));
    return runUnderstood(all, count, arguments, console);
  } catch (const UsageError& error) {
    complain(console, error.what());
    console.err << "Try korrin --help.\n";
    return ExitCode::usage;
  }
}

}  // namespace korrin::host
