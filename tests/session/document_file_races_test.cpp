// Several who save one file at once, and somebody who reads it meanwhile.

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/session/document_file.h"

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

TEST(DocumentFile, LetsExactlyOneOfManySaversMakeAFile) {
  for (int round = 0; round < 20; ++round) {
    const test::Folder folder;
    std::atomic<int> winners = 0;
    std::atomic<int> refused = 0;
    {
      std::vector<std::jthread> savers;
      for (int i = 0; i < 4; ++i)
        savers.emplace_back([&] {
          DocumentFile file(folder / "plot.json");
          try {
            file.save(first);
            ++winners;
          } catch (const ChangedElsewhere&) {
            ++refused;
          }
        });
    }
    EXPECT_EQ(winners, 1);
    EXPECT_EQ(refused, 3);
    EXPECT_EQ(folder.count(), 1u);
  }
}

TEST(DocumentFile, LetsExactlyOneOfManySaversReplaceAFile) {
  for (int round = 0; round < 20; ++round) {
    const test::Folder folder;
    const fs::path path = folder.write("plot.json", firstBytes);
    std::atomic<int> winner = -1;
    std::atomic<int> winners = 0;
    {
      std::vector<std::jthread> savers;
      for (int i = 0; i < 4; ++i)
        savers.emplace_back([&, i] {
          DocumentFile file(path);
          file.openBytes();
          if (file.hasChangedElsewhere()) return;
          try {
            file.saveBytes("saver " + std::to_string(i));
            winner = i;
            ++winners;
          } catch (const ChangedElsewhere&) {
          }
        });
    }
    // Who opens after the first has saved may save again: then the last one's bytes stand.
    EXPECT_GE(winners, 1);
    if (winners == 1) {
      EXPECT_EQ(contentOf(path), "saver " + std::to_string(winner));
    }
    EXPECT_EQ(folder.count(), 1u);
  }
}

TEST(DocumentFile, NeverShowsAnythingBetweenOldAndNew) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", firstBytes));
  file.open();
  std::atomic<bool> isDone = false;
  std::atomic<int> looks = 0;
  std::jthread reader([&] {
    while (!isDone) {
      const std::string seen = contentOf(folder / "plot.json");
      EXPECT_TRUE(seen == firstBytes || seen == secondBytes);
      ++looks;
    }
  });
  for (int i = 0; i < 100 || looks < 20; ++i) file.save(i % 2 == 0 ? second : first);
  isDone = true;
}

}  // namespace
}  // namespace korrin
