#include "documents/plot_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "terminal/failure.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

namespace fs = std::filesystem;

bool isPlotName(const std::string& name) { return name.ends_with(".json") && !isWaiverName(name); }

std::vector<std::string> plotsIn(const std::string& folder) {
  std::vector<std::string> plots;
  std::error_code error;
  fs::recursive_directory_iterator entries(folder, error);
  while (!error && entries != fs::recursive_directory_iterator()) {
    const std::string name = entries->path().filename().string();
    std::error_code unknown;  // an entry that has just gone is none
    if (name.starts_with('.')) {
      if (entries->is_directory(unknown)) entries.disable_recursion_pending();
    } else if (isPlotName(name) && entries->is_regular_file(unknown)) {
      plots.push_back(entries->path().string());
    }
    entries.increment(error);
  }
  if (error) throw Failure(folder + ": cannot be read: " + error.message());
  if (plots.empty()) throw Failure(folder + ": holds no plots, whose names end in .json");
  std::ranges::sort(plots);
  return plots;
}

}  // namespace

bool isWaiverName(const std::string& name) { return name.ends_with(".waivers.json"); }

std::vector<std::string> plotFiles(const std::vector<std::string>& paths) {
  std::vector<std::string> files;
  for (const std::string& path : paths) {
    std::error_code error;  // what is wrong with a file is said when it is read
    if (!fs::is_directory(path, error)) {
      files.push_back(path);
      continue;
    }
    const std::vector<std::string> plots = plotsIn(path);
    files.insert(files.end(), plots.begin(), plots.end());
  }
  return files;
}

}  // namespace korrin::host
