#include "commands/command_page.h"

#include <algorithm>
#include <string_view>

#include <CLI/CLI.hpp>

namespace korrin::host {
namespace {

bool isWord(std::string_view text) {
  constexpr std::string_view characters =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-.";
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

/// The words that a description ends in, as "text" and "json" in "How it is printed: text, json".
std::vector<std::string> choicesIn(std::string_view description) {
  const std::size_t colon = description.rfind(": ");
  if (colon == std::string_view::npos) return {};
  std::vector<std::string> words;
  for (std::string_view rest = description.substr(colon + 2); !rest.empty();) {
    const std::size_t end = std::min(rest.find(", "), rest.size());
    if (!isWord(rest.substr(0, end))) return {};
    words.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 2, rest.size()));
  }
  return words;
}

std::string repeatable(const CLI::Option& option, std::string name) {
  if (option.get_items_expected_max() > 1) name += "...";
  return option.get_required() ? name : "[" + name + "]";
}

Parameter parameterOf(const CLI::Option& option) {
  Parameter parameter{.names = {},
                      .valueName = "",
                      .text = option.get_description(),
                      .choices = choicesIn(option.get_description())};
  if (option.get_positional()) {
    parameter.names = {repeatable(option, option.get_name(true))};
    return parameter;
  }
  if (option.get_items_expected_max() > 0) parameter.valueName = option.get_type_name();
  for (const std::string& name : option.get_snames()) parameter.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) parameter.names.push_back("--" + name);
  for (const CLI::Option* other : option.get_excludes())
    parameter.text += " (not with " + other->get_name() + ")";
  return parameter;
}

std::size_t indentationOf(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

std::string joined(const std::string& text, std::string_view more) {
  return text.empty() ? std::string(more) : text + " " + std::string(more);
}

Row rowOf(std::string_view line) {
  const std::size_t end = std::min(line.find("  "), line.size());
  const std::string_view text = line.substr(end);
  return {std::string(line.substr(0, end)), std::string(text.substr(indentationOf(text)))};
}

std::vector<Passage> passagesOf(std::string_view footer) {
  std::vector<Passage> passages;
  bool isOpen = false;  // whether the next line may go on with the last passage
  while (!footer.empty()) {
    const std::size_t end = std::min(footer.find('\n'), footer.size());
    const std::string_view line = footer.substr(0, end);
    footer.remove_prefix(std::min(end + 1, footer.size()));
    const std::size_t indentation = indentationOf(line);
    const std::string_view content = line.substr(indentation);
    const bool isUnderHeading = isOpen && !passages.back().heading.empty();
    if (content.empty()) {
      isOpen = false;
    } else if (isUnderHeading && indentation == 2) {
      passages.back().rows.push_back(rowOf(content));
    } else if (isUnderHeading && indentation > 2 && !passages.back().rows.empty()) {
      std::string& text = passages.back().rows.back().text;
      text = joined(text, content);
    } else if (content.ends_with(':') && footer.starts_with("  ")) {
      passages.push_back({std::string(content.substr(0, content.size() - 1)), {}, ""});
      isOpen = true;
    } else if (isOpen && !isUnderHeading) {
      passages.back().prose = joined(passages.back().prose, content);
    } else {
      passages.push_back({"", {}, std::string(content)});
      isOpen = true;
    }
  }
  return passages;
}

}  // namespace

std::string Parameter::use() const {
  std::string use;
  for (const std::string& name : names) use += (use.empty() ? "" : ", ") + name;
  return valueName.empty() ? use : use + " " + valueName;
}

std::string CommandPage::word() const { return name.substr(name.rfind(' ') + 1); }

std::string CommandPage::use() const {
  std::string use = name + " [OPTIONS]";
  if (!subcommands.empty()) use += " COMMAND";
  for (const Parameter& argument : arguments) use += " " + argument.use();
  return use;
}

CommandPage pageOf(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  CommandPage page{.name = (parent == nullptr ? "" : parent->get_name() + " ") + command.get_name(),
                   .summary = command.get_description(),
                   .arguments = {},
                   .options = {},
                   .subcommands = {},
                   .passages = passagesOf(command.get_footer())};
  if (!page.summary.ends_with('.')) page.summary += '.';
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_group().empty()) continue;
    (option->get_positional() ? page.arguments : page.options).push_back(parameterOf(*option));
  }
  for (const CLI::App* subcommand : command.get_subcommands([](const CLI::App*) { return true; }))
    page.subcommands.push_back(pageOf(*subcommand));
  return page;
}

}  // namespace korrin::host
