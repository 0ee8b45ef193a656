#pragma once

// An empty folder of a test's own, which goes away with the value.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/files.h"

namespace korrin::test {

class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "korrin-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
    path_ = name;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

  /// Writes a file in place and returns its path.
  std::filesystem::path write(std::string_view name, std::string_view bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
    return path_ / name;
  }

  /// How many names the folder holds, hidden ones included.
  std::size_t count() const {
    using Entries = std::filesystem::directory_iterator;
    return static_cast<std::size_t>(std::distance(Entries(path_), Entries()));
  }

 private:
  std::filesystem::path path_;
};

}  // namespace korrin::test
