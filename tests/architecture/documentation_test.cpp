// What the pages for readers show is what the repository holds.

#include <filesystem>
#include <string>
#include <vector>

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

// The targets of a page's links to other pages: what stands between "](" and ")" or "#".
std::vector<std::string> linkedPages(const std::string& text) {
  std::vector<std::string> targets;
  for (std::size_t at = 0; (at = text.find("](", at)) != std::string::npos;) {
    at += 2;
    const std::string target = text.substr(at, text.find_first_of(")#", at) - at);
    if (!target.empty() && target.find(':') == std::string::npos) targets.push_back(target);
  }
  return targets;
}

TEST(Documentation, LinksToPagesThatExist) {
  std::vector<fs::path> pages = {root / "README.md", root / "CHANGELOG.md"};
  for (const auto& entry : fs::recursive_directory_iterator(root / "docs"))
    if (entry.path().extension() == ".md") pages.push_back(entry.path());
  std::size_t links = 0;
  for (const fs::path& page : pages) {
    for (const std::string& target : linkedPages(test::contentOf(page))) {
      EXPECT_TRUE(fs::exists(page.parent_path() / target)) << page.filename() << ": " << target;
      ++links;
    }
  }
  EXPECT_GT(links, 0u);
}

}  // namespace
}  // namespace korrin
