#pragma once

// A folder of a test's own, and the built program run inside it.

#include <filesystem>
#include <string>
#include <string_view>

namespace korrin::host {

/// What a run of the program left behind.
struct Outcome {
  int status;       ///< Exit status, or 128 and the signal's number.
  std::string out;  ///< Standard output.
  std::string err;  ///< Standard error.
};

/// An empty folder that goes away with the value.
class Scratch {
 public:
  Scratch();
  ~Scratch();
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  /// The path of a name inside the folder.
  std::string path(std::string_view name) const { return (folder_ / name).string(); }
  /// Writes a file and returns its path.
  std::string write(std::string_view name, std::string_view bytes) const;
  /// Number of files in the folder, hidden ones included.
  std::size_t fileCount() const;

  /// Runs `korrin ARGUMENTS` through the shell, so that redirections work; "$D" is the folder of
  /// the example documents. Standard input is empty unless redirected.
  Outcome korrin(const std::string& arguments) const;

  /// Runs a line of the shell in the same way; "$KORRIN" is the program.
  Outcome shell(const std::string& line) const;

 private:
  std::filesystem::path folder_;
};

std::string contentOf(const std::string& path);

/// An example document's text, of "festival-main-stage" for instance.
std::string exampleDocument(std::string_view name);

/// The text with the first `part` replaced; the test fails when it is not there.
std::string replaced(std::string text, std::string_view part, std::string_view replacement);

/// The example "festival-main-stage", which demands a reader of version 7.
std::string newerDocument();

}  // namespace korrin::host
