// What a crash would lose is written beside the plot, and found again.

#include "korrin/session/autosave.h"

#include <atomic>
#include <chrono>
#include <cmath>
#include <ctime>
#include <functional>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "korrin/foundation/steady_time.h"
#include "korrin/session/document_file.h"

#include "tests/session/folder.h"
#include "tests/session/two_plots.h"

namespace korrin {
namespace {

namespace fs = std::filesystem;
using test::first;
using test::second;
using namespace std::chrono_literals;

class AutosaveTest : public testing::Test {
 protected:
  const test::Folder folder;
  const fs::path document = folder / "plot.json";
  const fs::path recovery = recoveryFileFor(document);

  void waitFor(const std::function<bool()>& condition) {
    for (int i = 0; i < 2000 && !condition(); ++i) std::this_thread::sleep_for(5ms);
    EXPECT_TRUE(condition());
  }
  std::string recovered() const {
    const auto found = recoveryOf(document);
    return found ? found->project.metadata.title.str() : "nothing";
  }
};

TEST_F(AutosaveTest, WritesTheLatestOnceNothingComesAnyMore) {
  Autosave autosave(recovery, 400ms);
  const auto begin = steadyTime();
  autosave.note(first);
  autosave.note(second);
  const bool wasWritten = fs::exists(recovery);
  // A busy machine may let this thread wait for so long that writing is right.
  EXPECT_TRUE(!wasWritten || steadyTime() - begin > 400ms);
  waitFor([&] { return recovered() == "second"; });
  EXPECT_EQ(autosave.failure(), std::nullopt);
  EXPECT_EQ(folder.count(), 1u);
}

TEST_F(AutosaveTest, WritesInAStormOfNotes) {
  Autosave autosave(recovery, 20ms);
  waitFor([&] {
    for (int i = 0; i < 5; ++i) {
      autosave.note(first);
      std::this_thread::sleep_for(1ms);
    }
    return fs::exists(recovery);
  });
}

TEST_F(AutosaveTest, FlushesWithoutWaitingForQuiet) {
  Autosave autosave(recovery, 1h);
  autosave.flush();
  EXPECT_FALSE(fs::exists(recovery));
  autosave.note(first);
  autosave.flush();
  EXPECT_EQ(recovered(), "first");
  autosave.note(second);
  autosave.flush();
  EXPECT_EQ(recovered(), "second");
  autosave.flush();
}

TEST_F(AutosaveTest, FlushesWhenItGoes) {
  { Autosave(recovery, 1h).note(first); }
  EXPECT_EQ(recovered(), "first");
}

TEST_F(AutosaveTest, TakesAnyLengthOfQuiet) {
  for (const auto quiet : {std::chrono::milliseconds::max(), std::chrono::milliseconds::min(),
                           std::chrono::milliseconds(0)}) {
    Autosave autosave(recovery, quiet);
    autosave.note(first);
    autosave.flush();
    EXPECT_EQ(recovered(), "first");
  }
}

TEST_F(AutosaveTest, RestsBeforeItTriesAgain) {
  Autosave autosave(folder / "no such folder" / ".plot.json", 0ms);
  autosave.note(first);
  autosave.flush();
  EXPECT_TRUE(autosave.failure());
  const auto processorTime = [] {
    timespec used;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
  };
  const auto begin = processorTime();
  std::this_thread::sleep_for(1s);
  EXPECT_LT(processorTime() - begin, 200ms);
}

TEST_F(AutosaveTest, ForgetsWhatIsPendingAndRemovesTheFileWhenItSettles) {
  Autosave autosave(recovery, 30ms);
  autosave.note(first);
  autosave.flush();
  autosave.note(second);
  autosave.settle();
  EXPECT_FALSE(fs::exists(recovery));
  std::this_thread::sleep_for(100ms);
  EXPECT_FALSE(fs::exists(recovery));
  EXPECT_EQ(autosave.failure(), std::nullopt);
  autosave.note(second);
  autosave.flush();
  EXPECT_EQ(recovered(), "second");
  autosave.settle();
  autosave.settle();
  EXPECT_EQ(folder.count(), 0u);
}

TEST_F(AutosaveTest, SaysWhyItCannotWriteAndTriesAgain) {
  const fs::path later = folder / "later" / "file";
  Autosave autosave(later, 10ms);
  autosave.note(first);
  autosave.flush();
  ASSERT_TRUE(autosave.failure());
  EXPECT_NE(autosave.failure()->find("later"), std::string::npos) << *autosave.failure();
  fs::create_directory(folder / "later");
  waitFor([&] { return fs::exists(later); });
  waitFor([&] { return !autosave.failure(); });
}

TEST_F(AutosaveTest, KeepsTheLastStateThatCanBeOpenedAgain) {
  Autosave autosave(recovery, 1h);
  autosave.note(first);
  autosave.flush();
  KorrinProject unsafe = second;
  unsafe.items.push_back(unsafe.items.front());
  autosave.note(unsafe);
  autosave.flush();
  EXPECT_TRUE(autosave.failure());
  EXPECT_EQ(recovered(), "first");
  autosave.note(second);
  autosave.flush();
  EXPECT_EQ(autosave.failure(), std::nullopt);
  EXPECT_EQ(recovered(), "second");
}

TEST_F(AutosaveTest, KeepsTheLastStateThatThisVersionCanOpenAgain) {
  Autosave autosave(recovery, 1h);
  autosave.note(first);
  autosave.flush();
  KorrinProject newer = second;
  newer.minimumReaderVersion = KorrinProject::currentSchemaVersion + 1;
  autosave.note(newer);
  autosave.flush();
  EXPECT_TRUE(autosave.failure());
  EXPECT_EQ(recovered(), "first");
  newer.minimumReaderVersion = KorrinProject::currentMinimumReaderVersion;
  newer.schemaVersion = KorrinProject::currentSchemaVersion + 1;
  autosave.note(newer);
  autosave.flush();
  EXPECT_EQ(autosave.failure(), std::nullopt);
  EXPECT_EQ(recovered(), "second");
}

TEST_F(AutosaveTest, KeepsAPlotThatCannotBeSavedForItsNumbers) {
  KorrinProject project = first;
  project.items.edit(0).riserHeightMillimeters = std::numeric_limits<double>::quiet_NaN();
  { Autosave(recovery, 1h).note(project); }
  const auto found = recoveryOf(document);
  ASSERT_TRUE(found);
  EXPECT_TRUE(std::isnan(*found->project.items[0].riserHeightMillimeters));
}

TEST_F(AutosaveTest, KeepsTheRecoveryToItsUser) {
  { Autosave(recovery, 1h).note(first); }
  struct stat status {};
  ASSERT_EQ(::stat(recovery.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0600u);
}

TEST_F(AutosaveTest, WritesThroughNoLinkAndOverNoFileOfAStranger) {
  const fs::path victim = folder.write("victim", "precious");
  fs::create_symlink("victim", recovery);
  {
    Autosave autosave(recovery, 1h);
    autosave.note(first);
    autosave.flush();
    EXPECT_TRUE(autosave.failure());
    EXPECT_EQ(recoveryOf(document), std::nullopt);
    autosave.settle();
    EXPECT_TRUE(autosave.failure());
  }
  EXPECT_EQ(test::contentOf(victim), "precious");
  EXPECT_TRUE(fs::is_symlink(recovery));
  EXPECT_THROW(discardRecovery(document), FileError);
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can act as a stranger";
  fs::remove(recovery);
  folder.write(recovery.filename().native(), bytesToSave(second));
  ASSERT_EQ(::chown(recovery.c_str(), 12345, 12345), 0);
  EXPECT_EQ(recovered(), "nothing");
  Autosave autosave(recovery, 1h);
  autosave.note(first);
  autosave.flush();
  EXPECT_TRUE(autosave.failure());
  EXPECT_EQ(test::contentOf(recovery), bytesToSave(second));
}

TEST_F(AutosaveTest, MeansTheFileThatItsPathMeantAtFirst) {
  fs::create_directory(folder / "other");
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  {
    Autosave autosave("recovery", 1h);
    fs::current_path(folder / "other");
    autosave.note(first);
  }
  fs::current_path(before);
  EXPECT_TRUE(fs::exists(folder / "recovery"));
}

TEST_F(AutosaveTest, CanBeUsedFromSeveralThreads) {
  Autosave autosave(recovery, 1ms);
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 2; ++i)
      threads.emplace_back([&] {
        for (int n = 0; n < 200; ++n) autosave.note(n % 2 == 0 ? first : second);
      });
    threads.emplace_back([&] {
      for (int n = 0; n < 20; ++n) autosave.flush();
    });
    threads.emplace_back([&] {
      for (int n = 0; n < 20; ++n) autosave.settle();
    });
    threads.emplace_back([&] {
      for (int n = 0; n < 200; ++n) EXPECT_EQ(autosave.failure(), std::nullopt);
    });
  }
  autosave.note(second);
  autosave.flush();
  EXPECT_EQ(recovered(), "second");
}

void setTime(const fs::path& path, std::chrono::seconds sinceNow) {
  fs::last_write_time(path, fs::file_time_type::clock::now() + sinceNow);
}

class RecoveryOf : public AutosaveTest {
 protected:
  void writeBoth(const KorrinProject& saved, const KorrinProject& noted,
                 std::chrono::seconds notedAfter = 10s) {
    folder.write("plot.json", bytesToSave(saved));
    setTime(document, -100s);
    folder.write(recovery.filename().native(), bytesToSave(noted));
    setTime(recovery, -100s + notedAfter);
  }
};

TEST_F(RecoveryOf, ADocumentIsWhatWasNotedAfterItWasSaved) {
  writeBoth(first, second);
  const auto found = recoveryOf(document);
  ASSERT_TRUE(found);
  EXPECT_TRUE(found->project == second);
  EXPECT_EQ(found->file, recovery);
  const auto ago = Environment::system().now() - found->notedAt;
  EXPECT_GT(ago, 60s);
  EXPECT_LT(ago, 120s);
}

TEST_F(RecoveryOf, ADocumentIsNothingWhereThereIsNone) {
  EXPECT_EQ(recovered(), "nothing");
  folder.write("plot.json", bytesToSave(first));
  EXPECT_EQ(recovered(), "nothing");
}

TEST_F(RecoveryOf, ADocumentIsNothingWhereItWasSavedLater) {
  writeBoth(first, second, -10s);
  EXPECT_EQ(recovered(), "nothing");
  writeBoth(first, second, 0s);
  fs::last_write_time(recovery, fs::last_write_time(document));
  EXPECT_EQ(recovered(), "nothing");
}

// Both within a few microseconds, of which the system's time for files knows nothing.
TEST_F(RecoveryOf, ADocumentGoesByTheOrderOfNoteAndSaveHoweverFastTheyFollow) {
  DocumentFile file(document);
  Autosave autosave(recovery, 1h);
  for (int round = 0; round < 20; ++round) {
    autosave.note(second);
    autosave.flush();
    file.save(first);
    EXPECT_EQ(recovered(), "nothing");
    autosave.note(second);
    autosave.flush();
    EXPECT_EQ(recovered(), "second");
  }
}

TEST_F(RecoveryOf, ADocumentIsNothingWhereOnlyTheTimeOfTheLastEditDiffers) {
  KorrinProject edited = first;
  edited.metadata.modifiedAt += 1h;
  writeBoth(first, edited);
  EXPECT_EQ(recovered(), "nothing");
}

TEST_F(RecoveryOf, AMissingOrDamagedDocumentIsWhatWasNoted) {
  writeBoth(first, second);
  folder.write("plot.json", "{");
  setTime(document, -100s);
  EXPECT_EQ(recovered(), "second");
  fs::remove(document);
  EXPECT_EQ(recovered(), "second");
}

TEST_F(RecoveryOf, ADocumentIsNothingWhereTheRecoveryIsDamagedOrUnsafe) {
  folder.write(recovery.filename().native(), bytesToSave(second).substr(0, 1000));
  EXPECT_EQ(recovered(), "nothing");
  folder.write(recovery.filename().native(), "");
  EXPECT_EQ(recovered(), "nothing");
  KorrinProject unsafe = second;
  unsafe.items.push_back(unsafe.items.front());
  folder.write(recovery.filename().native(), encodeJSON(unsafe));
  EXPECT_EQ(recovered(), "nothing");
  fs::remove(recovery);
  ASSERT_EQ(::mkfifo(recovery.c_str(), 0600), 0);
  EXPECT_EQ(recovered(), "nothing");
}

TEST_F(RecoveryOf, ADocumentWithOtherDatesIsComparedAsItStands) {
  writeBoth(first, first);
  folder.write("plot.json", bytesToSave(first, {.dates = DateStrategy::secondsSince1970}));
  setTime(document, -100s);
  EXPECT_EQ(recoveryOf(document, {.dates = DateStrategy::secondsSince1970}), std::nullopt);
}

TEST_F(RecoveryOf, ADocumentTellsTheTimeOfTheNoteNotOfTheWriting) {
  const Instant before = Environment::system().now();
  Instant after;
  {
    Autosave autosave(recovery, 1h);
    autosave.note(first);
    after = Environment::system().now();
    std::this_thread::sleep_for(50ms);
  }
  const auto found = recoveryOf(document);
  ASSERT_TRUE(found);
  EXPECT_GE(found->notedAt, before);
  EXPECT_LE(found->notedAt, after);
}

TEST_F(RecoveryOf, ADocumentIsGoneWhenItIsDiscarded) {
  writeBoth(first, second);
  discardRecovery(document);
  EXPECT_EQ(folder.count(), 1u);
  discardRecovery(document);
  EXPECT_EQ(recovered(), "nothing");
}

TEST(RecoveryFile, StandsHiddenBesideItsDocument) {
  EXPECT_EQ(recoveryFileFor("/shows/plot.json"), "/shows/.plot.json.korrin-recovery");
  EXPECT_EQ(recoveryFileFor("plot.json"), ".plot.json.korrin-recovery");
}

TEST(RecoveryFile, IsNeverSharedAndNeverTooLong) {
  std::vector<fs::path> seen;
  for (std::size_t length = 200; length <= 255; ++length)
    for (const char* last : {"a", "b"}) {
      const fs::path file = recoveryFileFor(std::string(length - 1, 'n') + last);
      EXPECT_LE(file.native().size(), 255u);
      EXPECT_TRUE(file.native().starts_with(".nnn"));
      EXPECT_EQ(std::ranges::count(seen, file), 0) << file;
      seen.push_back(file);
      // Nor by a document that is named like the recovery of another.
      const std::string inner = file.native().substr(1, file.native().rfind(".korrin") - 1);
      if (inner != std::string(length - 1, 'n') + last) {
        EXPECT_NE(recoveryFileFor(inner), file);
      }
    }
  std::string accents;
  while (accents.size() < 254) accents += "é";
  const std::string name = recoveryFileFor(accents).native();
  EXPECT_EQ(Text(name).str(), name);
}

TEST_F(AutosaveTest, WorksForADocumentWithTheLongestName) {
  const fs::path longest = folder / std::string(255, 'n');
  { Autosave(recoveryFileFor(longest), 1h).note(first); }
  EXPECT_TRUE(recoveryOf(longest));
}

}  // namespace
}  // namespace korrin
