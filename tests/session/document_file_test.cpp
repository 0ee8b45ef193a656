// The file of a plot: what it holds, and what becomes of it when it is saved.

#include "korrin/session/document_file.h"

#include <cerrno>
#include <chrono>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "korrin/foundation/ascii.h"
#include "korrin/session/files/content_digest.h"

#include "tests/session/folder.h"
#include "tests/session/two_plots.h"

namespace korrin {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::first;
using test::firstBytes;
using test::second;
using test::secondBytes;

std::string digestText(std::string_view bytes) {
  std::string text;
  for (const std::uint8_t byte : files::digestOf(bytes)) appendHex(text, byte);
  return text;
}

TEST(ContentDigest, IsSHA256) {
  EXPECT_EQ(digestText(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(digestText("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(digestText("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(digestText(std::string(1'000'000, 'a')),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(ContentDigest, DoesNotDependOnThePieces) {
  const std::string bytes(200, 'x');
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
    files::ContentDigester digester;
    digester.add(std::string_view(bytes).substr(0, cut));
    digester.add(std::string_view(bytes).substr(cut));
    ASSERT_EQ(digester.digest(), files::digestOf(bytes)) << cut;
  }
}

TEST(DocumentFile, OpensWhatItSaved) {
  const test::Folder folder;
  DocumentFile file(folder / "plot.json");
  EXPECT_EQ(file.path(), folder / "plot.json");
  file.save(first);
  EXPECT_EQ(contentOf(file.path()), firstBytes);
  file.save(second, {});
  EXPECT_EQ(contentOf(file.path()), bytesToSave(second, {}));
  EXPECT_TRUE(std::get<OpenedDocument>(file.open()).project == second);
  EXPECT_EQ(folder.count(), 1u);
  EXPECT_TRUE(file.notKept().empty());
}

// What somebody else does to a file between opening and saving it.
struct Interference {
  std::string name;
  std::function<void(const fs::path&)> act;
  bool isChange;
};

void PrintTo(const Interference& row, std::ostream* out) { *out << row.name; }

class SavingAfter : public testing::TestWithParam<Interference> {};

TEST_P(SavingAfter, AsksExactlyWhereTheContentIsAnother) {
  const test::Folder folder;
  const fs::path path = folder.write("plot.json", firstBytes);
  DocumentFile file(path);
  file.open();
  EXPECT_FALSE(file.hasChangedElsewhere());
  GetParam().act(path);
  const bool isThere = fs::exists(path);
  const std::string between = isThere ? contentOf(path) : "";
  EXPECT_EQ(file.hasChangedElsewhere(), GetParam().isChange);
  if (GetParam().isChange) {
    EXPECT_THROW(file.save(second), ChangedElsewhere);
    EXPECT_EQ(fs::exists(path), isThere);
    if (isThere) {
      EXPECT_EQ(contentOf(path), between);
    }
    EXPECT_EQ(folder.count(), isThere ? 1u : 0u);
    EXPECT_THROW(file.save(second), ChangedElsewhere) << "asks once only";
    file.saveAnyway(second);
  } else {
    file.save(second);
  }
  EXPECT_EQ(contentOf(path), secondBytes);
  EXPECT_FALSE(file.hasChangedElsewhere());
  file.save(first);
  EXPECT_EQ(folder.count(), 1u);
}

void overwrite(const fs::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Interferences, SavingAfter,
    testing::Values(Interference{"nothing", [](const fs::path&) {}, false},
                    Interference{"aTouch",
                                 [](const fs::path& path) {
                                   fs::last_write_time(path, fs::file_time_type::clock::now());
                                 },
                                 false},
                    Interference{"theSameBytesInAnotherFile",
                                 [](const fs::path& path) {
                                   overwrite(path.string() + "~", firstBytes);
                                   fs::rename(path.string() + "~", path);
                                 },
                                 false},
                    Interference{"otherBytesInPlace",
                                 [](const fs::path& path) { overwrite(path, secondBytes); }, true},
                    Interference{"otherBytesOfTheSameLengthAndTime",
                                 [](const fs::path& path) {
                                   const auto time = fs::last_write_time(path);
                                   std::string bytes = firstBytes;
                                   bytes[bytes.find("first")] = 'F';
                                   overwrite(path, bytes);
                                   fs::last_write_time(path, time);
                                 },
                                 true},
                    Interference{"anotherFile",
                                 [](const fs::path& path) {
                                   overwrite(path.string() + "~", secondBytes);
                                   fs::rename(path.string() + "~", path);
                                 },
                                 true},
                    Interference{"cuttingItOff", [](const fs::path& path) { overwrite(path, ""); },
                                 true},
                    Interference{"removal", [](const fs::path& path) { fs::remove(path); }, true}),
    [](const auto& row) { return row.param.name; });

TEST(DocumentFile, DoesNotReplaceWhatItNeverOpened) {
  const test::Folder folder;
  const fs::path path = folder.write("plot.json", firstBytes);
  DocumentFile file(path);
  EXPECT_TRUE(file.hasChangedElsewhere());
  EXPECT_THROW(file.save(second), ChangedElsewhere);
  EXPECT_EQ(contentOf(path), firstBytes);
  DocumentFile missing(folder / "other.json");
  EXPECT_FALSE(missing.hasChangedElsewhere());
  EXPECT_THROW(missing.open(), FileError);
  missing.save(first);
  EXPECT_EQ(contentOf(folder / "other.json"), firstBytes);
}

TEST(DocumentFile, CountsWhatTurnedOutToBeNoPlotAsOpened) {
  const test::Folder folder;
  const fs::path path = folder.write("plot.json", "not a plot");
  DocumentFile file(path);
  EXPECT_TRUE(std::holds_alternative<UnreadableDocument>(file.open()));
  EXPECT_FALSE(file.hasChangedElsewhere());
  file.save(first);
  EXPECT_EQ(contentOf(path), firstBytes);
}

TEST(DocumentFile, LeavesEverythingAloneWhenThePlotCannotBeSaved) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", firstBytes));
  file.open();
  KorrinProject unsafe = second;
  unsafe.items.push_back(unsafe.items.front());
  EXPECT_THROW(file.save(unsafe), DocumentValidationError);
  EXPECT_THROW(file.saveAnyway(unsafe), DocumentValidationError);
  EXPECT_EQ(contentOf(file.path()), firstBytes);
  EXPECT_EQ(folder.count(), 1u);
}

TEST(DocumentFile, FollowsSymbolicLinksAndKeepsThem) {
  const test::Folder folder;
  fs::create_directory(folder / "elsewhere");
  fs::create_symlink("elsewhere/middle", folder / "link.json");
  fs::create_symlink("../plot.json", folder / "elsewhere/middle");
  DocumentFile file(folder / "link.json");
  file.save(first);  // at the end of a chain that leads nowhere yet
  EXPECT_TRUE(fs::is_symlink(folder / "link.json"));
  EXPECT_TRUE(fs::is_symlink(folder / "elsewhere/middle"));
  EXPECT_EQ(contentOf(folder / "plot.json"), firstBytes);
  file.save(second);
  EXPECT_TRUE(fs::is_symlink(folder / "link.json"));
  EXPECT_EQ(contentOf(folder / "plot.json"), secondBytes);
  EXPECT_FALSE(fs::is_symlink(folder / "plot.json"));
}

TEST(DocumentFile, RefusesLinksInACircle) {
  const test::Folder folder;
  fs::create_symlink("b", folder / "a");
  fs::create_symlink("a", folder / "b");
  DocumentFile file(folder / "a");
  EXPECT_THROW(file.open(), FileError);
  EXPECT_THROW(file.saveAnyway(first), FileError);
}

TEST(DocumentFile, FollowsNoLinkThatAStrangerLeftInASharedFolder) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can act as a stranger";
  const test::Folder folder;
  fs::create_directory(folder / "shared");
  ASSERT_EQ(::chmod((folder / "shared").c_str(), 01777), 0);
  fs::create_symlink("../mine.json", folder / "shared/plot.json");
  ASSERT_EQ(::lchown((folder / "shared/plot.json").c_str(), 12345, 12345), 0);
  DocumentFile file(folder / "shared/plot.json");
  EXPECT_THROW(file.save(first), FileError);
  EXPECT_THROW(file.saveAnyway(first), FileError);
  EXPECT_FALSE(fs::exists(folder / "mine.json"));
}

TEST(DocumentFile, RefusesWhatIsNoFileAtOnce) {
  const test::Folder folder;
  const fs::path pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const fs::path& path :
       {pipe, fs::path("/dev/full"), fs::path("/dev/zero"), fs::path("/dev/null"), folder.path(),
        folder.path() / "", folder.path() / "..", fs::path(), fs::path(std::string("a\0b", 3))}) {
    DocumentFile file(path);
    EXPECT_THROW(file.open(), FileError) << path;
    EXPECT_THROW(file.save(first), FileError) << path;
    EXPECT_THROW(file.saveAnyway(first), FileError) << path;
    EXPECT_TRUE(file.hasChangedElsewhere()) << path;
  }
  EXPECT_EQ(folder.count(), 1u);
}

TEST(DocumentFile, NamesWhatALinkOfTheSystemLeadsTo) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  DocumentFile file("/proc/self/fd/" + std::to_string(ends[0]));
  try {
    file.open();
    FAIL();
  } catch (const FileError& error) {
    EXPECT_EQ(error.remark(), "is a pipe, not a file");
  }
  EXPECT_THROW(file.saveAnyway(first), FileError);
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(DocumentFile, AsksWhereTheFolderHasGoneWithTheFile) {
  const test::Folder folder;
  fs::create_directory(folder / "tour");
  fs::create_symlink(folder / "tour", folder / "link");
  DocumentFile file(folder.write("tour/plot.json", firstBytes));
  DocumentFile linked(folder / "link/plot.json");
  file.open();
  linked.open();
  fs::remove_all(folder / "tour");
  for (DocumentFile* const gone : {&file, &linked}) {
    EXPECT_TRUE(gone->hasChangedElsewhere());
    EXPECT_THROW(gone->save(second), ChangedElsewhere);
    EXPECT_THROW(gone->saveAnyway(second), FileError);
  }
  EXPECT_FALSE(DocumentFile(file.path()).hasChangedElsewhere());
  fs::create_directory(folder / "tour");
  EXPECT_THROW(file.save(second), ChangedElsewhere);
  file.saveAnyway(second);
  EXPECT_EQ(contentOf(file.path()), secondBytes);
}

TEST(DocumentFile, SeesAtOnceThatAFileHasGrownBeyondAnyPlot) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", firstBytes));
  file.open();
  fs::resize_file(file.path(), std::uintmax_t{1} << 40);  // a hole, which takes no room
  EXPECT_TRUE(file.hasChangedElsewhere());
  EXPECT_THROW(file.save(second), ChangedElsewhere);
}

TEST(DocumentFile, RefusesWhatIsLargerThanAnyPlot) {
  const test::Folder folder;
  const fs::path path = folder.write("plot.json", "");
  fs::resize_file(path, DocumentFile::maximumSize + 1);
  DocumentFile file(path);
  try {
    file.open();
    FAIL();
  } catch (const FileError& error) {
    EXPECT_EQ(std::string(error.what()), "\"" + path.string() + "\" is larger than 1024 MiB");
  }
  fs::resize_file(path, 11);
  EXPECT_THROW(file.openBytes(10), FileError);
  EXPECT_EQ(file.openBytes(11).size(), 11u);
}

class KeptMode : public testing::TestWithParam<mode_t> {};

TEST_P(KeptMode, StaysWhenTheFileIsSaved) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", firstBytes));
  file.open();
  ASSERT_EQ(::chmod(file.path().c_str(), GetParam()), 0);
  file.save(second);
  struct stat status {};
  ASSERT_EQ(::stat(file.path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, GetParam());
  EXPECT_TRUE(file.notKept().empty());
}

INSTANTIATE_TEST_SUITE_P(Modes, KeptMode, testing::Values(0600, 0640, 0644, 0664, 0777, 02664));

TEST(DocumentFile, AsksBeforeItReplacesAProtectedFile) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", firstBytes));
  file.open();
  ASSERT_EQ(::chmod(file.path().c_str(), 0444), 0);
  EXPECT_FALSE(file.hasChangedElsewhere());
  try {
    file.save(second);
    FAIL();
  } catch (const ChangedElsewhere&) {
    FAIL() << "it has not changed";
  } catch (const FileError& error) {
    EXPECT_EQ(error.code(), std::errc::permission_denied);
  }
  EXPECT_EQ(contentOf(file.path()), firstBytes);
  file.saveAnyway(second);
  EXPECT_EQ(contentOf(file.path()), secondBytes);
  struct stat status {};
  ASSERT_EQ(::stat(file.path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0444u);
}

TEST(DocumentFile, KeepsOwnerAndExtendedAttributes) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", firstBytes));
  file.open();
  if (::setxattr(file.path().c_str(), "user.venue", "club", 4, 0) != 0)
    GTEST_SKIP() << "no extended attributes here";
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown(file.path().c_str(), 12345, 54321), 0);
    ASSERT_EQ(::chmod(file.path().c_str(), 02664), 0);
  }
  file.save(second);
  std::string value(10, '\0');
  EXPECT_EQ(::getxattr(file.path().c_str(), "user.venue", value.data(), value.size()), 4);
  EXPECT_EQ(value.substr(0, 4), "club");
  if (::geteuid() == 0) {
    struct stat status {};
    ASSERT_EQ(::stat(file.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345u);
    EXPECT_EQ(status.st_gid, 54321u);
    EXPECT_EQ(status.st_mode & 07777, 02664u);
  }
  EXPECT_TRUE(file.notKept().empty());
}

TEST(DocumentFile, SaysThatOtherNamesKeepTheOldContent) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", firstBytes));
  fs::create_hard_link(file.path(), folder / "copy.json");
  file.open();
  file.save(second);
  EXPECT_EQ(file.notKept().size(), 1u);
  EXPECT_EQ(contentOf(folder / "copy.json"), firstBytes);
  file.save(first);
  EXPECT_TRUE(file.notKept().empty());
}

TEST(DocumentFile, MakesANewFileAsTheUserAsksFor) {
  const test::Folder folder;
  const mode_t before = ::umask(027);
  DocumentFile file(folder / "plot.json");
  file.save(first);
  ::umask(before);
  struct stat status {};
  ASSERT_EQ(::stat(file.path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST(DocumentFile, LeavesNothingBehindWhereTheSystemAllowsNoFurtherByte) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", firstBytes));
  file.open();
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  rlimit small = before;
  small.rlim_cur = firstBytes.size() / 2;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  std::optional<FileError> failure;
  try {
    file.save(second);
  } catch (const FileError& error) {
    failure = error;
  }
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->code(), std::errc::file_too_large);
  EXPECT_EQ(contentOf(file.path()), firstBytes);
  EXPECT_EQ(folder.count(), 1u);
  file.save(second);
}

TEST(DocumentFile, MeansTheFileThatItsPathMeantAtFirst) {
  const test::Folder folder;
  fs::create_directory(folder / "other");
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  DocumentFile file("plot.json");
  fs::current_path(folder / "other");
  file.save(first);
  fs::current_path(before);
  EXPECT_EQ(contentOf(folder / "plot.json"), firstBytes);
  EXPECT_EQ(file.path(), "plot.json");
}

TEST(DocumentFile, SavesUnderTheLongestNameAndAnyBytes) {
  const test::Folder folder;
  for (const std::string& name : {std::string(255, 'n'), std::string("a\nb\x1b[2J\xFF"),
                                  std::string(" "), std::string("\\")}) {
    DocumentFile file(folder / name);
    file.save(first);
    file.save(second);
    EXPECT_EQ(contentOf(folder / name), secondBytes);
  }
  EXPECT_EQ(folder.count(), 4u);
}

TEST(DocumentFile, SpeaksInOneLineWhateverTheName) {
  const test::Folder folder;
  DocumentFile file(folder / "no\nfolder\x1b/\xFFplot.json");
  try {
    file.save(first);
    FAIL();
  } catch (const FileError& error) {
    const std::string sentence = error.what();
    EXPECT_EQ(error.path(), file.path());
    EXPECT_EQ(sentence.find_first_of("\n\x1b"), std::string::npos);
    EXPECT_NE(sentence.find("no\\x0afolder\\x1b/\uFFFDplot.json\" cannot be reached: "),
              std::string::npos)
        << sentence;
  }
}

TEST(DocumentFile, SpeaksWithoutWhatBreaksOrTurnsALine) {
  const test::Folder folder;
  for (const std::string hidden : {"\u0085", "\u009B", "\u200F", "\u2028", "\u2029", "\u202E",
                                   "\u2066", "\u2069", "\u061C", "\x7F"}) {
    DocumentFile file(folder / ("pl" + hidden + "ot.json"));
    try {
      file.open();
      FAIL();
    } catch (const FileError& error) {
      const std::string sentence = error.what();
      EXPECT_EQ(sentence.find(hidden), std::string::npos) << sentence;
      EXPECT_NE(sentence.find("pl\\x"), std::string::npos) << sentence;
    }
  }
  EXPECT_NE(std::string(FileError("Bühne 舞台.json", "is there").what()).find("Bühne 舞台.json"),
            std::string::npos);
}

TEST(ReadStream, TakesAllAndNoMoreThanItsLimit) {
  for (const std::size_t size : {0u, 1u, 4095u, 4096u, 4097u, 3'000'000u}) {
    std::istringstream stream(std::string(size, 'x'));
    EXPECT_EQ(readStream(stream, "-"), std::string(size, 'x'));
    std::istringstream again(std::string(size + 1, 'x'));
    EXPECT_THROW(readStream(again, "-", size), FileError) << size;
  }
}

}  // namespace
}  // namespace korrin
