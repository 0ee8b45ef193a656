// The starting documents as they are written, kept as files so that a change of any of their
// contents shows. The clock and the identifiers are those of `TestEnvironment`.

#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "korrin/coding/json.h"
#include "korrin/templates/korrin_template.h"

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

std::string goldenDocument(std::string_view name) {
  std::ifstream file(KORRIN_SOURCE_DIR "/tests/golden/template-" + std::string(name) + ".json",
                     std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void expectGolden(std::string_view name, const KorrinProject& project) {
  const std::string golden = goldenDocument(name);
  const EncodingOptions pretty = {.prettyPrinted = true,
                                  .sortedKeys = false,
                                  .dates = DateStrategy::iso8601,
                                  .nonFinite = NonFinite::fail};
  EXPECT_EQ(encodeJSON(project, pretty) + "\n", golden);
  EXPECT_EQ(decodeJSON<KorrinProject>(golden), project);
}

class GoldenTemplate : public testing::TestWithParam<KorrinTemplateID> {};

TEST_P(GoldenTemplate, IsWrittenAsKept) {
  TestEnvironment environment;
  expectGolden(rawValue(GetParam()), KorrinProject::template_(GetParam(), environment));
}

INSTANTIATE_TEST_SUITE_P(, GoldenTemplate, testing::ValuesIn(allCases<KorrinTemplateID>()),
                         [](const auto& row) { return std::string(rawValue(row.param)); });

TEST(GoldenExample, IsWrittenAsKept) {
  TestEnvironment environment;
  expectGolden("example", KorrinProject::example(environment));
}

}  // namespace
}  // namespace korrin::test
