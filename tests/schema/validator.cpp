#include "tests/schema/validator.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include "tests/host/scratch.h"

namespace korrin::test {
namespace {

using Json = nlohmann::ordered_json;

constexpr auto modules = KORRIN_SOURCE_DIR "/build/schema-validator";

// What is run before the name of the list of cases. Debian's own interpreter: its modules are not
// there for another one.
constexpr auto first = "/usr/bin/python3 '" KORRIN_SOURCE_DIR "/tests/schema/validate.py'";
const std::string second =
    std::string("node '") + KORRIN_SOURCE_DIR + "/tests/schema/validate.mjs' '" + modules + "'";

bool runs(const std::string& command) {
  return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

// The file is copied there when everything else is in place.
bool hasSecondOpinion() {
  return std::filesystem::exists(std::string(modules) + "/installed-lock.json") &&
         runs("node --version");
}

std::vector<std::string> verdictsOf(const std::string& validator, const host::Scratch& scratch,
                                    const std::string& list, std::size_t count) {
  const std::string out = scratch.path("verdicts");
  const std::string errors = scratch.path("errors");
  const std::string line = validator + " '" + list + "' >'" + out + "' 2>'" + errors + "'";
  if (std::system(line.c_str()) != 0) throw std::runtime_error(host::contentOf(errors));
  std::vector<std::string> verdicts;
  std::istringstream lines(host::contentOf(out));
  for (std::string verdict; std::getline(lines, verdict);) verdicts.push_back(verdict);
  if (verdicts.size() != count) throw std::runtime_error("verdicts are missing");
  return verdicts;
}

}  // namespace

std::string whyNoValidator() {
  if (!runs("/usr/bin/python3 -c 'import jsonschema'"))
    return "python3-jsonschema is not installed; script/bootstrap installs it";
  return "";
}

std::vector<std::string> verdictsOn(const std::vector<SchemaCase>& cases,
                                    const std::vector<std::string>& schemas) {
  const host::Scratch scratch;
  Json input = {{"schemas", Json::array()}, {"cases", Json::array()}};
  for (const std::string& schema : schemas) input["schemas"].push_back(Json::parse(schema));
  for (const SchemaCase& each : cases) {
    const std::string name = std::to_string(input["cases"].size()) + ".json";
    input["cases"].push_back({{"schema", each.schema}, {"file", scratch.write(name, each.text)}});
  }
  const std::string list = scratch.write("cases", input.dump());
  std::vector<std::string> verdicts = verdictsOf(first, scratch, list, cases.size());
  if (!hasSecondOpinion()) return verdicts;
  const std::vector<std::string> others = verdictsOf(second, scratch, list, cases.size());
  for (std::size_t i = 0; i < verdicts.size(); ++i)
    if (verdicts[i] != others[i])
      verdicts[i] = "one validator says " + verdicts[i] + ", the other " + others[i];
  return verdicts;
}

}  // namespace korrin::test
