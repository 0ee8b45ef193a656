// What the pages for readers show is what the repository holds.

#include <filesystem>
#include <regex>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace korrin {
namespace {

namespace fs = std::filesystem;

const fs::path root = KORRIN_SOURCE_DIR;

std::string page(const std::string& name) { return test::contentOfSource(name); }

// The drawing of the house: the block of code that begins with the host.
std::string drawing(const std::string& text) {
  const std::size_t start = text.find("```\nhost");
  return text.substr(start, text.find("\n```", start) - start);
}

TEST(Documentation, ShowsTheExampleThatIsCompiled) {
  EXPECT_NE(page("README.md").find("```cpp\n" + page("examples/readme_example.cpp") + "```"),
            std::string::npos);
}

TEST(Documentation, DrawsTheHouseOnce) {
  EXPECT_NE(drawing(page("README.md")), "");
  EXPECT_EQ(drawing(page("README.md")), drawing(page("docs/architecture.md")));
}

TEST(Documentation, LinksToPagesThatExist) {
  const std::regex link(R"(\]\(([^)#:]+)(#[^)]*)?\))");
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const fs::path relative = entry.path().lexically_relative(root);
    if (entry.path().extension() != ".md" || *relative.begin() == "build") continue;
    const std::string text = test::contentOf(entry.path());
    for (std::sregex_iterator found(text.begin(), text.end(), link), end; found != end; ++found)
      EXPECT_TRUE(fs::exists(entry.path().parent_path() / (*found)[1].str()))
          << relative << ": " << (*found)[1];
  }
}

}  // namespace
}  // namespace korrin
