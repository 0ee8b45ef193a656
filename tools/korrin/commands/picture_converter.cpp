#include "commands/picture_converter.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "commands/pdf_title.h"
#include "documents/document_file.h"

namespace korrin::host {
namespace {

constexpr const char* program = "rsvg-convert";

/// A folder of this process's own that goes away with the value.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "korrin-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
      throw ConverterError("no folder for temporary files can be made: " +
                           std::generic_category().message(errno));
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

/// Runs the program without a shell and waits for it.
void run(std::vector<std::string> arguments) {
  std::vector<char*> words;
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  pid_t child = 0;
  const int error = ::posix_spawnp(&child, program, nullptr, nullptr, words.data(), environ);
  if (error == ENOENT)
    throw ConverterError(
        "PDF and PNG need the program rsvg-convert of librsvg, which is not installed");
  if (error != 0)
    throw ConverterError("rsvg-convert cannot be run: " + std::generic_category().message(error));
  int status = 0;
  while (::waitpid(child, &status, 0) < 0)
    if (errno != EINTR)
      throw ConverterError("rsvg-convert is lost: " + std::generic_category().message(errno));
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
    throw ConverterError("rsvg-convert could not convert the picture");
}

}  // namespace

std::string convertPictures(const std::vector<std::string>& pictures, PictureFormat format,
                            const PictureDetails& details) {
  const TemporaryFolder folder;
  const std::string result = folder.file("result");
  std::vector<std::string> arguments = {program, "--output", result};
  // A plot whose lists are long, or whose images are large, is no attack on this program.
  arguments.push_back("--unlimited");
  if (format == PictureFormat::pdf) {
    arguments.insert(arguments.end(), {"--format", "pdf"});
  } else {
    arguments.insert(arguments.end(), {"--format", "png", "--dpi-x", "192", "--dpi-y", "192"});
    if (details.pixelWidth)
      arguments.insert(arguments.end(),
                       {"--width", std::to_string(*details.pixelWidth), "--keep-aspect-ratio"});
  }
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    arguments.push_back(folder.file(std::to_string(i) + ".svg"));
    replaceFile(arguments.back(), pictures[i]);
  }
  run(arguments);
  std::string bytes = readFile(result);
  return format == PictureFormat::pdf ? withTitle(std::move(bytes), details.title) : bytes;
}

}  // namespace korrin::host
