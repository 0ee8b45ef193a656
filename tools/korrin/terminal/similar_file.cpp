#include "terminal/similar_file.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "terminal/words.h"

namespace korrin::host {

namespace fs = std::filesystem;

std::string similarFileSuggestion(const std::string& path) {
  // Folders with more files than people have names for are not searched to the end.
  constexpr std::size_t mostFiles = 10'000;
  const fs::path missing(path);
  std::error_code unknown;
  if (fs::symlink_status(missing, unknown).type() != fs::file_type::not_found) return {};
  const fs::path folder = missing.has_parent_path() ? missing.parent_path() : fs::path(".");
  std::error_code error;
  std::vector<std::string> names;
  fs::directory_iterator entries(folder, error);
  while (!error && entries != fs::directory_iterator() && names.size() < mostFiles) {
    names.push_back(entries->path().filename().string());
    entries.increment(error);
  }
  std::ranges::sort(names);
  const std::optional<std::string> similar = similarWord(missing.filename().string(), names);
  if (!similar) return {};
  const fs::path meant = missing.has_parent_path() ? folder / *similar : fs::path(*similar);
  return "; did you mean \"" + meant.string() + "\"?";
}

}  // namespace korrin::host
