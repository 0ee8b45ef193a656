#include "commands/completion.h"

#include "terminal/words.h"

namespace korrin::host {
namespace {

/// What may follow an option: a file's name, or a word among a few, if any are known.
std::string valueCase(const Parameter& option) {
  return "        " + joined(option.names, "|") + ") " +
         (option.takesFile() ? "files=yes"
                             : "words='" + joined(option.choices, " ") + "' files=''") +
         " ;;\n";
}

/// The part of the script for one command.
std::string commandCase(const CommandPage& command, const std::string& pattern) {
  std::vector<std::string> words;
  std::string files;
  std::string values;
  for (const CommandPage& subcommand : command.subcommands) words.push_back(subcommand.name);
  for (const Parameter& argument : command.arguments) {
    words.insert(words.end(), argument.choices.begin(), argument.choices.end());
    if (argument.takesFile()) files = "      files=yes\n";
  }
  for (const Parameter& option : command.options) {
    words.insert(words.end(), option.names.begin(), option.names.end());
    if (!option.isFlag()) values += valueCase(option);
  }
  if (!values.empty()) values = "      case $previous in\n" + values + "      esac\n";
  return "    " + pattern + ")\n" + "      words='" + joined(words, " ") + "'\n" + files + values +
         "      ;;\n";
}

}  // namespace

std::string bashCompletion(const CommandPage& program) {
  std::vector<std::string> commands;
  std::string cases = commandCase(program, "''");
  for (const CommandPage& command : program.subcommands) {
    commands.push_back(command.name);
    cases += commandCase(command, command.name);
  }
  return "# Completion of korrin's command line in bash.\n"
         "_korrin() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
         "  local command='' words='' files='' i\n"
         "  # Bash takes --option=word for three words.\n"
         "  if [[ $current == = ]]; then\n"
         "    current=''\n"
         "  elif [[ $previous == = ]]; then\n"
         "    previous=${COMP_WORDS[COMP_CWORD - 2]}\n"
         "  fi\n"
         "  for ((i = 1; i < COMP_CWORD; i++)); do\n"
         "    case ${COMP_WORDS[i]} in\n"
         "      " +
         joined(commands, "|") +
         ")\n"
         "        command=${COMP_WORDS[i]}\n"
         "        break\n"
         "        ;;\n"
         "    esac\n"
         "  done\n"
         "  case $command in\n" +
         cases +
         "  esac\n"
         "  if [[ $files && $current != -* ]]; then\n"
         "    compopt -o filenames 2>/dev/null\n"
         "    mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
         "  else\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
         "  fi\n"
         "}\n"
         "complete -F _korrin korrin\n";
}

}  // namespace korrin::host
