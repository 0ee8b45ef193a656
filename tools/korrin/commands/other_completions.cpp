// Completion in zsh and fish, both of which show what each word means.

#include "commands/completion.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

/// The text with a backslash before each of these characters.
std::string withBackslashes(std::string_view text, std::string_view characters) {
  std::string result;
  for (const char c : text) {
    if (characters.find(c) != std::string_view::npos) result += '\\';
    result += c;
  }
  return result;
}

/// The text between single quotes, for zsh, where such a quote inside ends them for a moment.
std::string zshQuoted(std::string_view text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

std::string fishQuoted(std::string_view text) { return "'" + withBackslashes(text, "\\'") + "'"; }

/// What zsh offers for a value: ":FORMAT:(text json)".
std::string zshValue(const Parameter& parameter) {
  const std::string name = parameter.isArgument() ? parameter.names.front() : parameter.valueName;
  std::string action = " ";
  if (!parameter.choices.empty())
    action = "(" + joined(parameter.choices, " ") + ")";
  else if (parameter.takesFile())
    action = "_files";
  return ":" + withBackslashes(name, ":") + ":" + action;
}

std::string zshSpecifications(const CommandPage& page) {
  std::string text;
  for (const Parameter& option : page.options)
    for (const std::string& name : option.names)
      text += " \\\n        " + zshQuoted((option.isRepeatable ? "*" : "") + name + "[" +
                                          withBackslashes(option.text, "[]:") + "]" +
                                          (option.isFlag() ? "" : zshValue(option)));
  for (const Parameter& argument : page.arguments)
    text += " \\\n        " + zshQuoted((argument.isRepeatable ? "*" : "") + zshValue(argument));
  return text;
}

std::string fishOption(const Parameter& option, const std::string& condition) {
  std::string text = "complete -c korrin -n " + fishQuoted(condition);
  for (const std::string& name : option.names)
    text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  if (!option.isFlag()) text += option.takesFile() ? " -r -F" : " -x";
  if (!option.choices.empty()) text += " -a " + fishQuoted(joined(option.choices, " "));
  return text + " -d " + fishQuoted(option.text) + "\n";
}

}  // namespace

std::string zshCompletion(const CommandPage& program) {
  std::string names;
  std::string cases;
  for (const CommandPage& command : program.subcommands) {
    names += "    " + zshQuoted(command.name + ":" + withBackslashes(command.summary, ":")) + "\n";
    cases +=
        "    " + command.name + ")\n      _arguments" + zshSpecifications(command) + "\n      ;;\n";
  }
  return "#compdef korrin\n"
         "# Completion of korrin's command line in zsh.\n"
         "_korrin() {\n"
         "  local -a commands\n"
         "  commands=(\n" +
         names +
         "  )\n"
         "  if (( CURRENT == 2 )); then\n"
         "    if [[ $words[2] == -* ]]; then\n"
         "      _arguments" +
         zshSpecifications(program) +
         "\n"
         "    else\n"
         "      _describe command commands\n"
         "    fi\n"
         "    return\n"
         "  fi\n"
         "  local command=$words[2]\n"
         "  shift words\n"
         "  (( CURRENT-- ))\n"
         "  case $command in\n" +
         cases +
         "  esac\n"
         "}\n"
         "_korrin \"$@\"\n";
}

std::string fishCompletion(const CommandPage& program) {
  const std::string isFirst = "__fish_use_subcommand";
  std::string text =
      "# Completion of korrin's command line in fish.\n"
      "complete -c korrin -f\n";
  for (const Parameter& option : program.options) text += fishOption(option, isFirst);
  for (const CommandPage& command : program.subcommands) {
    const std::string isInside = "__fish_seen_subcommand_from " + command.name;
    text += "complete -c korrin -n " + fishQuoted(isFirst) + " -a " + command.name + " -d " +
            fishQuoted(command.summary) + "\n";
    for (const Parameter& argument : command.arguments) {
      if (argument.takesFile()) text += "complete -c korrin -n " + fishQuoted(isInside) + " -F\n";
      if (!argument.choices.empty())
        text += "complete -c korrin -n " + fishQuoted(isInside) + " -a " +
                fishQuoted(joined(argument.choices, " ")) + "\n";
    }
    for (const Parameter& option : command.options) text += fishOption(option, isInside);
  }
  return text;
}

}  // namespace korrin::host
