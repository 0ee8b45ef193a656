#include "findings/rule_texts.h"

#include "korrin/review/audit.h"
#include "korrin/review/rules.h"

#include "documents/document_file.h"
#include "terminal/display_text.h"
#include "terminal/failure.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

constexpr std::string_view groups[] = {"preflight", "audit", "validation"};

// Lines of at most 80 columns.
std::string paragraph(std::string_view text) {
  std::string lines;
  for (const std::string& line : wrapped(text, 80)) lines += line + "\n";
  return lines;
}

std::string sentenceAboutGroup(std::string_view group) {
  if (group == "preflight") return "What `korrin check` finds.";
  if (group == "audit") return "What `korrin check --audit` finds beyond that.";
  return "Why a document is refused before anything else is looked at.";
}

std::string page(const RuleText& rule) {
  std::string text = "# " + std::string(rule.title) + "\n\n";
  text += "`" + std::string(rule.name) + "`, " + std::string(rule.group) + ", " +
          std::string(rule.severity) + "\n\n";
  text += paragraph(rule.explanation) + "\n## How to mend it\n\n" + paragraph(rule.remedy);
  return text;
}

std::string indexPage(const std::vector<RuleText>& rules) {
  std::string text =
      "# Rules\n\nWritten by `korrin --write-rule-pages docs/rules` from the table that\n"
      "`korrin check --explain RULE` prints.\n";
  for (const std::string_view group : groups) {
    std::string title(group);
    title.front() = static_cast<char>(title.front() - 'a' + 'A');
    text += "\n## " + title + "\n\n" + sentenceAboutGroup(group) +
            "\n\n| rule | severity | what it says |\n|---|---|---|\n";
    for (const RuleText& rule : rules)
      if (rule.group == group)
        text += "| [`" + std::string(rule.name) + "`](" + std::string(rule.name) + ".md) | " +
                std::string(rule.severity) + " | " + std::string(rule.title) + " |\n";
  }
  return text;
}

}  // namespace

std::vector<RuleText> allRuleTexts() {
  std::vector<RuleText> rules;
  for (const RuleDescription& rule : preflightRules())
    rules.push_back({rawValue(rule.rule), groups[0], rawValue(rule.severity), rule.title,
                     rule.explanation, rule.remedy});
  for (const AuditRuleDescription& rule : auditRules())
    rules.push_back({rawValue(rule.rule), groups[1], rawValue(rule.severity), rule.title,
                     rule.explanation, rule.remedy});
  for (const ValidationDescription& rule : validationRules())
    rules.push_back({rule.name, groups[2], "refused", rule.title, rule.explanation, rule.remedy});
  return rules;
}

std::string explanationOf(const std::string& name) {
  std::vector<std::string> names;
  for (const RuleText& rule : allRuleTexts()) {
    if (rule.name == name)
      return std::string(rule.name) + " (" + std::string(rule.group) + ", " +
             std::string(rule.severity) + "): " + std::string(rule.title) + "\n\n" +
             paragraph(rule.explanation) + "\nHow to mend it:\n" + paragraph(rule.remedy);
    names.emplace_back(rule.name);
  }
  throw UsageError("there is no rule \"" + name + "\"" +
                   suggestion(name, names, "; docs/rules/README.md lists them"));
}

std::string pageOf(std::string_view rule) { return "docs/rules/" + std::string(rule) + ".md"; }

void writeRulePages(const std::string& folder) {
  const std::vector<RuleText> rules = allRuleTexts();
  for (const RuleText& rule : rules)
    replaceFile(folder + "/" + std::string(rule.name) + ".md", page(rule));
  replaceFile(folder + "/README.md", indexPage(rules));
}

}  // namespace korrin::host
