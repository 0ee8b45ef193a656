#include "commands/manual_page.h"

#include <algorithm>
#include <cctype>

namespace korrin::host {
namespace {

std::string upperCase(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return text;
}

/// Text that is to be shown as it stands, on a line of its own.
std::string literal(std::string_view text) {
  std::string result;
  if (text.starts_with('.') || text.starts_with('\'')) result = "\\&";
  for (const char c : text) {
    if (c == '\\')
      result += "\\e";
    else if (c == '-')
      result += "\\-";
    else
      result += c;
  }
  return result;
}

std::string bold(std::string_view text) { return "\\fB" + literal(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + literal(text) + "\\fR"; }

std::string heading(std::string_view text) {
  return ".SH \"" + upperCase(std::string(text)) + "\"\n";
}

std::string entry(const std::string& term, std::string_view text) {
  return ".TP\n" + term + "\n" + literal(text) + "\n";
}

std::string optionTerm(const Parameter& option) {
  std::string term;
  for (const std::string& name : option.names) term += (term.empty() ? "" : ", ") + bold(name);
  return option.valueName.empty() ? term : term + " " + italic(option.valueName);
}

/// A heading as manuals have them: "Commands" of "Commands, one a line".
std::string_view subject(std::string_view title) { return title.substr(0, title.find(',')); }

std::string passages(const CommandPage& page) {
  std::string text;
  for (const Passage& passage : page.passages) {
    if (passage.heading.empty()) {
      text += (text.empty() ? heading("Notes") : ".PP\n") + literal(passage.prose) + "\n";
      continue;
    }
    text += heading(subject(passage.heading));
    for (const Row& row : passage.rows) text += entry(bold(row.term), row.text);
  }
  return text;
}

std::string seeAlso(const CommandPage& page) {
  std::string text;
  if (page.subcommands.empty()) text = bold(page.program) + "(1)";
  for (const CommandPage& command : page.subcommands)
    text += (text.empty() ? "" : ",\n") + bold(manualName(command)) + "(1)";
  return heading("See also") + text + "\n";
}

}  // namespace

std::string manualName(const CommandPage& page) {
  std::string name = page.fullName();
  std::ranges::replace(name, ' ', '-');
  return name;
}

std::string manualPage(const CommandPage& page, std::string_view version) {
  // Without a date, which somebody would have to keep or which would make every build another one.
  std::string text = ".TH \"" + upperCase(literal(manualName(page))) + "\" 1 \"\" \"korrin " +
                     std::string(version) + "\" \"User Commands\"\n";
  std::string summary = page.summary.substr(0, page.summary.size() - 1);
  summary.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(summary.front())));
  text += heading("Name") + literal(manualName(page)) + " \\- " + literal(summary) + "\n";
  text += heading("Synopsis") + bold(page.fullName()) +
          literal(page.use().substr(page.fullName().size())) + "\n";
  text += heading("Description") + literal(page.summary) + "\n";
  if (!page.subcommands.empty()) text += heading("Commands");
  for (const CommandPage& command : page.subcommands)
    text += entry(bold(command.name), command.summary);
  if (!page.arguments.empty()) text += heading("Arguments");
  for (const Parameter& argument : page.arguments)
    if (!argument.isHidden) text += entry(italic(argument.use()), argument.description());
  if (!page.options.empty()) text += heading("Options");
  for (const Parameter& option : page.options)
    text += entry(optionTerm(option), option.description());
  return text + passages(page) + seeAlso(page);
}

}  // namespace korrin::host
