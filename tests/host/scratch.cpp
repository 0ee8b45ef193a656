#include "scratch.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace korrin::host {
namespace {

constexpr std::string_view documents = KORRIN_SOURCE_DIR "/examples/documents";

}  // namespace

Scratch::Scratch() {
  std::string name = (std::filesystem::temp_directory_path() / "korrin-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
  folder_ = name;
}

Scratch::~Scratch() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string Scratch::write(std::string_view name, std::string_view bytes) const {
  std::ofstream(folder_ / name, std::ios::binary) << bytes;
  return path(name);
}

std::size_t Scratch::fileCount() const {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder_), {}));
}

Outcome Scratch::korrin(const std::string& arguments) const {
  return shell("\"$KORRIN\" " + arguments);
}

Outcome Scratch::shell(const std::string& line) const {
  // The captured output lies outside the folder, so that a test may count its files.
  const Scratch captured;
  const std::string out = captured.path("out");
  const std::string err = captured.path("err");
  const std::string whole = "cd '" + folder_.string() + "' && D='" + std::string(documents) +
                            "' && export KORRIN='" KORRIN_TOOL "' && { " + line +
                            "; } </dev/null >'" + out + "' 2>'" + err + "'";
  const int status = std::system(whole.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), contentOf(out),
          contentOf(err)};
}

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string exampleDocument(std::string_view name) {
  return contentOf(std::string(documents) + "/" + std::string(name) + ".json");
}

std::string replaced(std::string text, std::string_view part, std::string_view replacement) {
  const std::size_t place = text.find(part);
  EXPECT_NE(place, std::string::npos) << part;
  if (place != std::string::npos) text.replace(place, part.size(), replacement);
  return text;
}

std::string newerDocument() {
  return replaced(exampleDocument("festival-main-stage"), "\"minimumReaderVersion\": 1",
                  "\"minimumReaderVersion\": 7");
}

}  // namespace korrin::host
