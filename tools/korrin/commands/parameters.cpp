#include "commands/parameters.h"

#include <utility>

namespace korrin::host {

Parameter flag(std::vector<std::string> names, std::string text, bool& value) {
  return {.names = std::move(names), .text = std::move(text), .take = [&value](const std::string&) {
            value = true;
          }};
}

Parameter option(std::vector<std::string> names, std::string valueName, std::string text,
                 std::optional<std::string>& value) {
  return {.names = std::move(names),
          .valueName = std::move(valueName),
          .text = std::move(text),
          .take = [&value](const std::string& word) { value = word; }};
}

Parameter repeatable(std::vector<std::string> names, std::string valueName, std::string text,
                     std::vector<std::string>& values) {
  return {.names = std::move(names),
          .valueName = std::move(valueName),
          .text = std::move(text) + " (repeatable)",
          .isRepeatable = true,
          .take = [&values](const std::string& word) { values.push_back(word); }};
}

Parameter inputFile(std::string text, std::string& file) {
  return {.names = {"FILE"},
          .text = std::move(text),
          .isRequired = true,
          .isInput = true,
          .take = [&file](const std::string& word) { file = word; }};
}

Parameter inputFiles(std::string text, std::vector<std::string>& files) {
  return {.names = {"FILE"},
          .text = std::move(text),
          .isRequired = true,
          .isRepeatable = true,
          .isInput = true,
          .take = [&files](const std::string& word) { files.push_back(word); }};
}

Parameter output(std::optional<std::string>& file, std::string text) {
  return option({"-o", "--output"}, "FILE", std::move(text), file);
}

Parameter dates(DateStrategy& value, std::string text) {
  return choice("--dates", "STRATEGY", std::move(text), value);
}

std::vector<Parameter> knownAssetOptions(AssetOptions& assets) {
  Parameter files = repeatable({"--known-assets"}, "FILE",
                               "File of known artwork identifiers, one a line", assets.files);
  files.isInput = true;
  return {std::move(files),
          flag({"--builtin-assets"}, "The symbols of the templates and example plots are known",
               assets.useBuiltin)};
}

}  // namespace korrin::host
