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
constexpr auto program = KORRIN_SOURCE_DIR "/tests/schema/validate.mjs";

}  // namespace

std::string whyNoValidator() {
  // Copied there when everything else is in place.
  if (!std::filesystem::exists(std::string(modules) + "/installed-lock.json"))
    return "the validator is not installed; script/schema-validator installs it";
  if (std::system("node --version >/dev/null 2>&1") != 0) return "node is not installed";
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
  const std::string out = scratch.path("verdicts");
  const std::string errors = scratch.path("errors");
  const std::string line = std::string("node '") + program + "' '" + modules + "' '" + list +
                           "' >'" + out + "' 2>'" + errors + "'";
  if (std::system(line.c_str()) != 0) throw std::runtime_error(host::contentOf(errors));

  std::vector<std::string> verdicts;
  std::istringstream lines(host::contentOf(out));
  for (std::string verdict; std::getline(lines, verdict);) verdicts.push_back(verdict);
  if (verdicts.size() != cases.size()) throw std::runtime_error("verdicts are missing");
  return verdicts;
}

}  // namespace korrin::test
