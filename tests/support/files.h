#pragma once

// Whole files, as tests read them.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace korrin::test {

/// The bytes of a file. Throws std::runtime_error when it cannot be read, so that a test whose
/// file is missing fails.
inline std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return content;
}

/// A file of this repository, named from its root.
inline std::string contentOfSource(const std::string& name) {
  return contentOf(std::filesystem::path(KORRIN_SOURCE_DIR) / name);
}

}  // namespace korrin::test
