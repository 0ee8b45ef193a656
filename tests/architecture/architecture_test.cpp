// The drawing of the house, held against the include lines.

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace korrin {
namespace {

namespace fs = std::filesystem;

const fs::path root = KORRIN_SOURCE_DIR;

// The folders of each floor, from the ground up. A folder may include what stands on a lower floor
// and nothing beside it.
const std::vector<std::set<std::string>> floors = {
    {"foundation"},
    {"coding"},
    {"model"},
    {"validation", "templates", "commands", "preflight", "geometry"},
    {"session", "review", "drawing"},
};

// The same of the command-line host's folders.
const std::vector<std::set<std::string>> hostFloors = {
    {"terminal"}, {"documents"}, {"assets"}, {"findings"}, {"editing", "revisions", "schema"},
    {"commands"},
};

// Arrows between folders of one floor, each with its reason.
const std::map<std::pair<std::string, std::string>, std::string> sidewaysArrows = {};

struct Include {
  std::string name;
  bool isQuoted;
};

struct File {
  fs::path path;       // from the root of the repository
  std::string folder;  // below korrin/; empty for a file that stands on top of all
  std::vector<std::string> lines;
  std::vector<Include> includes;

  bool isHeader() const { return path.extension() == ".h"; }
};

// What `#include <x>` or `#include "x"` names; nothing for any other line.
std::optional<Include> includeOf(const std::string& line) {
  std::istringstream words(line);
  std::string directive, name;
  words >> directive;
  if (directive == "#") words >> name;
  if (directive + name != "#include") return std::nullopt;
  words >> name;
  const char close = name.front() == '<' ? '>' : '"';
  return Include{.name = name.substr(1, name.find(close, 1) - 1), .isQuoted = close == '"'};
}

File read(const fs::path& path, const fs::path& tree) {
  File file{.path = path.lexically_relative(root), .folder = "", .lines = {}, .includes = {}};
  const fs::path below = path.lexically_relative(tree);
  if (below.has_parent_path()) file.folder = below.begin()->string();
  std::istringstream content(test::contentOf(path));
  for (std::string line; std::getline(content, line);) {
    if (auto include = includeOf(line)) file.includes.push_back(*include);
    file.lines.push_back(line);
  }
  return file;
}

std::vector<File> filesOf(const fs::path& tree) {
  std::vector<File> files;
  for (const auto& entry : fs::recursive_directory_iterator(tree)) {
    const fs::path extension = entry.path().extension();
    if (extension == ".h" || extension == ".cpp") files.push_back(read(entry.path(), tree));
  }
  return files;
}

const std::vector<File> library = filesOf(root / "korrin");
const std::vector<File> host = filesOf(root / "tools" / "korrin");
const std::vector<File> editor = filesOf(root / "editor");

// The headers that each folder's build file lists as public.
std::set<std::string> publicHeaders() {
  std::set<std::string> headers;
  for (const auto& entry : fs::recursive_directory_iterator(root / "korrin")) {
    if (entry.path().filename() != "CMakeLists.txt") continue;
    const std::string content = test::contentOf(entry.path());
    const fs::path folder = entry.path().parent_path().lexically_relative(root);
    for (std::size_t at = content.find("HEADERS"); at != std::string::npos;
         at = content.find("HEADERS", at + 1)) {
      std::istringstream names(content.substr(at, content.find(')', at) - at));
      for (std::string name; names >> name;)
        if (name.ends_with(".h") && !name.starts_with('$'))
          headers.insert((folder / name).string());
    }
  }
  return headers;
}

std::size_t floorOf(const std::string& folder,
                    const std::vector<std::set<std::string>>& house = floors) {
  const auto found = std::ranges::find_if(
      house, [&](const std::set<std::string>& floor) { return floor.contains(folder); });
  return static_cast<std::size_t>(found - house.begin());
}

bool mayInclude(const std::string& from, const std::string& to) {
  if (from.empty() || from == to) return true;
  return floorOf(to) < floorOf(from) || sidewaysArrows.contains({from, to});
}

// The folder of a header of the library that is named from the root, as in "korrin/model/x.h".
std::string folderOf(const std::string& include) {
  const fs::path below = fs::path(include).lexically_relative("korrin");
  return below.has_parent_path() ? below.begin()->string() : "";
}

TEST(Architecture, HasAFloorForEveryFolder) {
  ASSERT_GT(library.size(), 40u);
  for (const File& file : library)
    EXPECT_TRUE(file.folder.empty() || floorOf(file.folder) < floors.size()) << file.path;
}

TEST(Architecture, HasNoArrowThatIsNotInTheDrawing) {
  int arrows = 0;
  for (const File& file : library) {
    for (const Include& include : file.includes) {
      if (!include.isQuoted) continue;
      ++arrows;
      EXPECT_TRUE(include.name.starts_with("korrin/")) << file.path << ": " << include.name;
      EXPECT_TRUE(fs::exists(root / include.name)) << file.path << ": " << include.name;
      EXPECT_TRUE(mayInclude(file.folder, folderOf(include.name)))
          << file.path << " must not include " << include.name;
      EXPECT_FALSE(!file.folder.empty() && folderOf(include.name).empty())
          << file.path << " must not include the header over everything";
    }
  }
  EXPECT_GT(arrows, 100);
}

TEST(Architecture, KeepsTheCoresUmbrellaBelowFloorFive) {
  const auto umbrella = std::ranges::find(library, fs::path("korrin/korrin.h"), &File::path);
  ASSERT_NE(umbrella, library.end());
  for (const Include& include : umbrella->includes)
    EXPECT_LT(floorOf(folderOf(include.name)), 4u) << include.name;
}

TEST(Architecture, NoticesAnArrowThatPointsUpOrSideways) {
  EXPECT_TRUE(mayInclude("model", "coding"));
  EXPECT_TRUE(mayInclude("", "model"));
  EXPECT_FALSE(mayInclude("coding", "model"));
  EXPECT_FALSE(mayInclude("foundation", "coding"));
  EXPECT_FALSE(mayInclude("preflight", "validation"));
  EXPECT_FALSE(mayInclude("commands", "session"));
  EXPECT_FALSE(mayInclude("session", "review"));
  EXPECT_EQ(folderOf("korrin/validation/raster/png.h"), "validation");
  EXPECT_EQ(folderOf("korrin/korrin.h"), "");
}

TEST(Architecture, HasAFloorForEveryFolderOfTheHost) {
  ASSERT_GT(host.size(), 60u);
  for (const File& file : host)
    EXPECT_TRUE(file.path == "tools/korrin/main.cpp" ||
                floorOf(file.folder, hostFloors) < hostFloors.size())
        << file.path;
}

TEST(Architecture, HasNoArrowInTheHostThatIsNotInItsDrawing) {
  int arrows = 0;
  for (const File& file : host) {
    for (const Include& include : file.includes) {
      if (!include.isQuoted || include.name.starts_with("korrin/")) continue;
      const fs::path name = include.name;
      if (!name.has_parent_path()) {
        EXPECT_TRUE(fs::exists(root / file.path.parent_path() / name)) << file.path << ": " << name;
        continue;
      }
      ++arrows;
      const std::string to = name.begin()->string();
      EXPECT_TRUE(fs::exists(root / "tools" / "korrin" / name)) << file.path << ": " << name;
      EXPECT_TRUE(file.folder.empty() || file.folder == to ||
                  floorOf(to, hostFloors) < floorOf(file.folder, hostFloors))
          << file.path << " must not include " << name;
    }
  }
  EXPECT_GT(arrows, 100);
}

TEST(Architecture, GuardsEveryHeaderOfTheHostAndOpensItWithAParagraph) {
  for (const File& file : host)
    if (file.isHeader()) {
      EXPECT_EQ(file.lines.at(0), "#pragma once") << file.path;
      EXPECT_TRUE(file.lines.at(2).starts_with("// ")) << file.path;
    }
}

// The headers of the language have neither folder nor suffix. Of the C library, which every program
// has, one is used where it exists.
bool isStandard(const std::string& header) {
  return header.find_first_of("./") == std::string::npos || header == "sys/single_threaded.h";
}

TEST(Architecture, ShowsNoThirdPartyHeaderInAPublicOne) {
  const std::set<std::string> headers = publicHeaders();
  ASSERT_GT(headers.size(), 20u);
  std::size_t seen = 0;
  for (const File& file : library) {
    if (!headers.contains(file.path.string())) continue;
    ++seen;
    for (const Include& include : file.includes) {
      if (include.isQuoted)
        EXPECT_TRUE(headers.contains(include.name))
            << file.path << " is public, " << include.name << " is not";
      else
        EXPECT_TRUE(isStandard(include.name)) << file.path << ": " << include.name;
    }
  }
  EXPECT_EQ(seen, headers.size());
}

TEST(Architecture, ExportsWhatAPublicHeaderDeclaresAndNothingElse) {
  const std::set<std::string> headers = publicHeaders();
  for (const File& file : library) {
    const auto push = std::ranges::find(file.lines, "#pragma GCC visibility push(default)");
    const auto pop = std::ranges::find(file.lines, "#pragma GCC visibility pop");
    const bool isExported = push < pop && pop != file.lines.end();
    // The header over everything declares nothing itself.
    const bool isPublic = headers.contains(file.path.string()) && !file.folder.empty();
    EXPECT_EQ(isExported, isPublic) << file.path;
    if (!isExported) continue;
    const auto first = std::ranges::find_if(
        file.lines, [](const std::string& line) { return line.starts_with("namespace "); });
    EXPECT_LT(push, first) << file.path;
    EXPECT_TRUE(std::none_of(push, pop, [](const std::string& line) { return includeOf(line); }))
        << file.path << " exports what it includes";
    EXPECT_TRUE(std::none_of(pop, file.lines.end(),
                             [](const std::string& line) {
                               return line.starts_with("namespace ") || line.starts_with("struct ");
                             }))
        << file.path << " declares something behind the end";
  }
}

// The folders of the desktop editor, in the same way.
const std::vector<std::set<std::string>> editorFloors = {
    {"languages", "look", "plot"}, {"canvas", "dialogs", "files", "menus", "output", "panels"}};

TEST(Architecture, HasAPlaceForEveryFolderOfTheEditor) {
  ASSERT_GT(editor.size(), 20u);
  for (const File& file : editor)
    EXPECT_TRUE(file.path == "editor/main.cpp" || file.path.stem() == "main_window" ||
                file.path.stem() == "program" ||
                floorOf(file.folder, editorFloors) < editorFloors.size())
        << file.path;
}

TEST(Architecture, KeepsTheEditorsFilesShortAndItsHeadersOpenedByAParagraph) {
  for (const File& file : editor) {
    EXPECT_LE(file.lines.size(), 300u) << file.path;
    if (!file.isHeader()) continue;
    EXPECT_EQ(file.lines.at(0), "#pragma once") << file.path;
    EXPECT_TRUE(file.lines.at(2).starts_with("// ")) << file.path;
  }
}

// `OpenPlot` alone has a history and a project that can be changed. Everybody else sees them const,
// unless const is cast away, or the history is another one.
TEST(Architecture, EditsInTheEditorThroughTheHistoryOfTheOpenPlotOnly) {
  bool isPerformed = false;
  for (const File& file : editor) {
    const bool isOpenPlot = file.path.stem() == "open_plot";
    for (const std::string& line : file.lines) {
      isPerformed |= isOpenPlot && line.find("history_.perform(") != std::string::npos;
      for (const std::string way : {"const_cast", "EditHistory", "QUndo", "korrin/session/edit_h"})
        EXPECT_TRUE(isOpenPlot || line.find(way) == std::string::npos) << file.path << ": " << line;
    }
  }
  EXPECT_TRUE(isPerformed);
}

// Only the editor knows Qt.
TEST(Architecture, KeepsWindowsOutOfTheLibraries) {
  for (const std::vector<File>* const tree : {&library, &host})
    for (const File& file : *tree)
      for (const Include& include : file.includes)
        EXPECT_FALSE(include.name.starts_with("Q") || include.name.starts_with("editor/"))
            << file.path << ": " << include.name;
}

TEST(Architecture, GuardsEveryHeader) {
  for (const File& file : library)
    if (file.isHeader()) {
      EXPECT_EQ(file.lines.at(0), "#pragma once") << file.path;
    }
}

TEST(Architecture, OpensEveryHeaderWithAParagraphAboutIt) {
  for (const File& file : library)
    if (file.isHeader()) {
      EXPECT_TRUE(file.lines.at(2).starts_with("// ")) << file.path;
    }
}

TEST(Architecture, KeepsFilesShort) {
  for (const auto& files : {library, host})
    for (const File& file : files) {
      if (file.path == "korrin/foundation/list.h") continue;
      EXPECT_LE(file.lines.size(), file.isHeader() ? 300u : 500u) << file.path;
    }
}

TEST(Architecture, ReadsTheClockAndMakesIdentifiersInTheFoundationOnly) {
  for (const File& file : library) {
    if (file.folder == "foundation") continue;
    for (const std::string& line : file.lines)
      for (const std::string outside :
           {"UUID::random", "_clock::now", "std::time", "getentropy", "random_device"})
        EXPECT_EQ(line.find(outside), std::string::npos) << file.path << ": " << line;
  }
}

// Whoever writes a document chooses what such a table holds. Only the hashes of identifiers and
// texts depend on a key that nobody outside of the process knows.
bool hashesWithoutKey(const std::string& line) {
  static const std::regex table("unordered_(map|set)<(?!UUID\\b|Text\\b)");
  static const std::regex hash("std::hash<std::(string|basic_string)");
  return std::regex_search(line, table) || std::regex_search(line, hash);
}

TEST(Architecture, HasNoHashTableThatADocumentCanSteer) {
  std::size_t seen = 0;
  for (const std::vector<File>* const tree : {&library, &host}) {
    for (const File& file : *tree) {
      for (const std::string& line : file.lines) {
        seen += line.find("unordered_") != std::string::npos;
        EXPECT_FALSE(hashesWithoutKey(line)) << file.path << ": " << line;
      }
    }
  }
  EXPECT_GT(seen, 10u);
}

TEST(Architecture, NoticesAHashTableThatADocumentCanSteer) {
  EXPECT_TRUE(hashesWithoutKey("  std::unordered_map<std::string, int> counts;"));
  EXPECT_TRUE(hashesWithoutKey("  std::unordered_set<std::int64_t> channels;"));
  EXPECT_TRUE(hashesWithoutKey("  return std::hash<std::string_view>{}(text);"));
  EXPECT_FALSE(hashesWithoutKey("  std::unordered_map<UUID, std::string> layers;"));
  EXPECT_FALSE(hashesWithoutKey("  std::unordered_set<Text> assets;"));
}

}  // namespace
}  // namespace korrin
