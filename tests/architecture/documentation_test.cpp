// What the pages for readers show is what the repository holds.

#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace korrin {
namespace {

namespace fs = std::filesystem;

const fs::path checkout = KORRIN_SOURCE_DIR;

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
  std::vector<fs::path> pages = {checkout / "README.md", checkout / "CHANGELOG.md"};
  for (const auto& entry : fs::recursive_directory_iterator(checkout / "docs"))
    if (entry.path().extension() == ".md") pages.push_back(entry.path());
  for (const auto& entry : fs::recursive_directory_iterator(checkout / "examples"))
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

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// Lines between an opening and a closing one, with as much taken from the left of each as the first
// is indented by.
std::string between(const std::vector<std::string>& lines, const std::string& open,
                    const std::string& close) {
  std::string text;
  std::size_t indentation = std::string::npos;
  bool isInside = false;
  for (const std::string& line : lines) {
    const std::size_t start = line.find_first_not_of(' ');
    const std::string content = start == std::string::npos ? "" : line.substr(start);
    if (content == close) isInside = false;
    if (isInside && indentation == std::string::npos) indentation = start;
    if (isInside) text += (content.empty() ? "" : line.substr(indentation)) + "\n";
    if (content == open) isInside = true;
  }
  return text;
}

std::string region(const std::string& program, const std::string& name) {
  return between(linesOf(page(program)), "// [" + name + "]", "// [/" + name + "]");
}

const std::string guide = "docs/guide";
const std::string programs = "examples/guide";

// The files of a folder with this extension, named from the checkout.
std::vector<std::string> filesOf(const std::string& folder, const std::string& extension) {
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(checkout / folder))
    if (entry.path().extension() == extension)
      files.push_back(entry.path().lexically_relative(checkout).string());
  return files;
}

// A block of code on a page, and the program and the region that the line above it names.
struct Shown {
  std::string program;
  std::string region;
  std::string code;
};

std::vector<Shown> codeOf(const std::string& pageName) {
  std::vector<Shown> blocks;
  std::string above;
  bool isInside = false;
  for (const std::string& line : linesOf(page(pageName))) {
    if (isInside && line != "```") blocks.back().code += line + "\n";
    if (line == "```") isInside = false;
    if (line == "```cpp") {
      isInside = true;
      std::istringstream words(above);  // <!-- program: region -->
      std::string dashes, program, name;
      words >> dashes >> program >> name;
      if (program.ends_with(':')) program.pop_back();
      blocks.push_back({program, name, ""});
    }
    above = line;
  }
  return blocks;
}

TEST(Guide, ShowsCodeThatIsCompiled) {
  std::size_t blocks = 0;
  for (const std::string& name : filesOf(guide, ".md")) {
    for (const Shown& shown : codeOf(name)) {
      ASSERT_TRUE(fs::is_regular_file(checkout / shown.program)) << name << ": " << shown.code;
      EXPECT_EQ(shown.code, region(shown.program, shown.region)) << name << ": " << shown.region;
      EXPECT_NE(shown.code, "") << name;
      ++blocks;
    }
  }
  EXPECT_GT(blocks, 20u);
}

TEST(Guide, ShowsEveryPieceThatItsProgramsMark) {
  std::set<std::pair<std::string, std::string>> shown;
  for (const std::string& name : filesOf(guide, ".md"))
    for (const Shown& block : codeOf(name)) shown.insert({block.program, block.region});
  for (const std::string& program : filesOf(programs, ".cpp")) {
    for (const std::string& line : linesOf(page(program))) {
      const std::size_t mark = line.find("// [");
      if (mark == std::string::npos || line[mark + 4] == '/') continue;
      const std::string name = line.substr(mark + 4, line.find(']') - mark - 4);
      EXPECT_TRUE(shown.contains({program, name})) << program << ": " << name;
    }
  }
}

TEST(Guide, RunsEveryProgramItHas) {
  const std::string list = page(programs + "/CMakeLists.txt");
  for (const std::string& program : filesOf(programs, ".cpp"))
    EXPECT_NE(list.find("korrin_guide_program(" + fs::path(program).stem().string() + " "),
              std::string::npos)
        << program;
}

TEST(Guide, ListsItsPagesInOrder) {
  const std::string contents = page(guide + "/README.md");
  for (const std::string& name : filesOf(guide, ".md")) {
    const std::string file = fs::path(name).filename().string();
    if (file == "README.md") continue;
    const std::string number = std::to_string(std::stoi(file.substr(0, 2)));
    EXPECT_NE(contents.find("\n" + number + ". ["), std::string::npos) << name;
    EXPECT_NE(contents.find("(" + file + ")"), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace korrin
