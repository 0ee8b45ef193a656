#include "commands/command_page.h"

#include "terminal/words.h"

namespace korrin::host {

bool Parameter::isArgument() const { return !names.front().starts_with('-'); }

bool Parameter::takesFile() const {
  const std::string& name = isArgument() ? names.front() : valueName;
  return choices.empty() && (name == "FILE" || name == "FOLDER");
}

std::string Parameter::use() const {
  if (isArgument()) {
    const std::string name = names.front() + (isRepeatable ? "..." : "");
    return isRequired ? name : "[" + name + "]";
  }
  return valueName.empty() ? listed(names) : listed(names) + " " + valueName;
}

std::string Parameter::description() const {
  std::string description = text;
  if (!choices.empty()) description += ": " + listed(choices);
  for (const std::string& other : excludes) description += " (not with " + other + ")";
  return description;
}

std::string CommandPage::fullName() const { return program.empty() ? name : program + " " + name; }

std::string CommandPage::use() const {
  std::string use = fullName() + " [OPTIONS]";
  if (!subcommands.empty()) use += " COMMAND";
  for (const Parameter& argument : arguments)
    if (!argument.isHidden) use += " " + argument.use();
  return use;
}

Passage exitStatuses() {
  return {.heading = "Exit status",
          .rows = {{"0", "done; nothing found but information"},
                   {"1", "findings of severity error or warning, or an image that is not accepted"},
                   {"2",
                    "a file cannot be read or written, is not a plot, or is not valid; or a line "
                    "of a script is refused"},
                   {"3", "a document needs a newer version of korrin"},
                   {"64", "the command line cannot be understood"}}};
}

Passage firstChoiceIsDefault() { return {.prose = "The first of several words is the default."}; }

}  // namespace korrin::host
