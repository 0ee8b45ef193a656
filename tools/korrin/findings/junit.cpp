#include "findings/junit.h"

#include "findings/finding_rows.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

/// Fit for an attribute and for a text. Of the characters that XML forbids, `printable` leaves
/// U+FFFE and U+FFFF.
std::string inXML(std::string_view text) {
  std::string shown = printable(text);
  for (const std::string_view forbidden : {"\uFFFE", "\uFFFF"})
    for (std::size_t at = 0; (at = shown.find(forbidden, at)) != std::string::npos;)
      shown.replace(at, forbidden.size(), "\uFFFD");
  std::string result;
  for (const char c : shown) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

struct Suite {
  std::size_t tests = 0, failures = 0, errors = 0, skipped = 0;
  std::string cases;

  void add(std::string_view className, std::string_view name, const std::string& inside) {
    ++tests;
    cases += "    <testcase classname=\"" + inXML(className) + "\" name=\"" + inXML(name) + "\"";
    cases += inside.empty() ? "/>\n" : ">" + inside + "</testcase>\n";
  }
};

std::string caseNameOf(const FindingRow& row) {
  return row.title.str() + (row.concern.empty() ? "" : ": " + row.concern);
}

Suite suiteOf(const FileFindings& file) {
  Suite suite;
  if (file.refusal) {
    ++suite.errors;
    suite.add("korrin", "opens", "<error message=\"" + inXML(file.refusal->what()) + "\"/>");
    return suite;
  }
  for (const FindingRow& row : openRows(file)) {
    const bool fails = row.severity != PreflightSeverity::information;
    suite.failures += fails;
    suite.add(row.rule, caseNameOf(row),
              fails ? "<failure type=\"" + std::string(rawValue(row.severity)) + "\" message=\"" +
                          inXML(row.detail) + "\">" + inXML(row.id) + "</failure>"
                    : "<system-out>" + inXML(row.detail) + "</system-out>");
  }
  for (const AcceptedFinding& accepted : file.waived) {
    ++suite.skipped;
    suite.add(accepted.row.rule, caseNameOf(accepted.row),
              "<skipped message=\"" + inXML(accepted.waiver.reason) + "\"/>");
  }
  for (const Waiver& waiver : file.stale) {
    suite.failures += file.isStrict;
    const std::string message = "the waiver for " + waiver.findingID.str() + " is stale";
    suite.add("waivers", waiver.findingID,
              file.isStrict ? "<failure type=\"stale\" message=\"" + inXML(message) + "\"/>"
                            : "<system-out>" + inXML(message) + "</system-out>");
  }
  if (suite.tests == 0) suite.add("korrin", "has no findings", "");
  return suite;
}

}  // namespace

std::string junitReport(std::span<const FileFindings> files) {
  std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n";
  for (const FileFindings& file : files) {
    const Suite suite = suiteOf(file);
    xml += "  <testsuite name=\"" + inXML(file.name) + "\" tests=\"" + std::to_string(suite.tests) +
           "\" failures=\"" + std::to_string(suite.failures) + "\" errors=\"" +
           std::to_string(suite.errors) + "\" skipped=\"" + std::to_string(suite.skipped) +
           "\">\n" + suite.cases + "  </testsuite>\n";
  }
  return xml + "</testsuites>\n";
}

}  // namespace korrin::host
