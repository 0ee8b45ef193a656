#include "documents/document_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "scratch.h"

namespace korrin::host {
namespace {

std::string failure(auto action) {
  try {
    action();
  } catch (const FileError& error) {
    return error.what();
  }
  return "no failure";
}

mode_t modeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 0777;
}

TEST(ReadFile, GivesEveryByte) {
  const Scratch scratch;
  std::string bytes;
  for (int i = 0; i < 300'000; ++i) bytes += static_cast<char>(i % 251);
  EXPECT_EQ(readFile(scratch.write("plot", bytes)), bytes);
  EXPECT_EQ(readFile(scratch.write("empty", "")), "");
}

TEST(ReadFile, SaysWhyItCannot) {
  const Scratch scratch;
  EXPECT_EQ(failure([&] { readFile(scratch.path("absent")); }),
            std::string("cannot be read: ") + std::strerror(ENOENT));
  EXPECT_EQ(failure([&] { readFile(scratch.path(".")); }), "cannot be read: it is a directory");
}

TEST(ReadFile, StopsAtTheLimit) {
  const Scratch scratch;
  const std::string path = scratch.write("plot", std::string(2 << 20, 'x'));
  EXPECT_EQ(readFile(path, 2 << 20).size(), std::size_t{2} << 20);
  EXPECT_EQ(failure([&] { readFile(path, (2 << 20) - 1); }),
            "cannot be read: it is larger than 1 MiB");
  EXPECT_EQ(failure([] { readFile("/dev/zero", 1 << 20); }), "cannot be read: it is a device");
}

TEST(ReadFileIfPresent, TellsAbsentFromUnreadable) {
  const Scratch scratch;
  EXPECT_EQ(readFileIfPresent(scratch.path("absent")), std::nullopt);
  EXPECT_EQ(readFileIfPresent(scratch.write("plot", "{}")), "{}");
  EXPECT_EQ(failure([&] { readFileIfPresent(scratch.path(".")); }),
            "cannot be read: it is a directory");
}

TEST(ReplaceFile, MakesANewFileAndLeavesNothingBeside) {
  const Scratch scratch;
  replaceFile(scratch.path("plot"), "new");
  EXPECT_EQ(contentOf(scratch.path("plot")), "new");
  EXPECT_EQ(scratch.fileCount(), 1u);
}

TEST(ReplaceFile, GivesANewFileTheUsualPermissions) {
  const Scratch scratch;
  const mode_t mask = umask(027);
  replaceFile(scratch.path("plot"), "new");
  umask(mask);
  EXPECT_EQ(modeOf(scratch.path("plot")), 0640u);
}

TEST(ReplaceFile, KeepsThePermissionsOfTheOldFile) {
  const Scratch scratch;
  const std::string path = scratch.write("plot", "old and longer");
  chmod(path.c_str(), 0604);
  replaceFile(path, "new");
  EXPECT_EQ(contentOf(path), "new");
  EXPECT_EQ(modeOf(path), 0604u);
}

TEST(ReplaceFile, ReplacesWhatALinkLeadsTo) {
  const Scratch scratch;
  const std::string path = scratch.write("plot", "old");
  std::filesystem::create_symlink("plot", scratch.path("link"));
  replaceFile(scratch.path("link"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("link")));
  EXPECT_EQ(contentOf(path), "new");
}

TEST(ReplaceFile, LeavesReadersOfTheOldContentUndisturbed) {
  const Scratch scratch;
  const std::string path = scratch.write("plot", "old");
  std::filesystem::create_hard_link(path, scratch.path("reader"));
  replaceFile(path, "new");
  EXPECT_EQ(contentOf(scratch.path("reader")), "old");
}

TEST(ReplaceFile, LeavesNothingBehindWhenItFails) {
  const Scratch scratch;
  std::filesystem::create_directory(scratch.path("folder"));
  EXPECT_EQ(failure([&] { replaceFile(scratch.path("folder"), "new"); }),
            "cannot be written: it is a directory");
  EXPECT_EQ(failure([&] { replaceFile(scratch.path("absent/plot"), "new"); }),
            std::string("cannot be written: ") + std::strerror(ENOENT));
  EXPECT_EQ(failure([] { replaceFile("/dev/null", "new"); }), "cannot be written: it is a device");
  EXPECT_EQ(scratch.fileCount(), 1u);
}

}  // namespace
}  // namespace korrin::host
