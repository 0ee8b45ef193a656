// Fails every allocation of a save, of opening a file, of a recovery and of the budget for images
// in turn. Each must leave everything as it was, or have done all of it.

#include <cstddef>
#include <filesystem>
#include <functional>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/session/asset_budget.h"
#include "korrin/session/autosave.h"
#include "korrin/session/document_file.h"

#include "tests/session/folder.h"
#include "tests/support/allocations.h"
#include "tests/support/image_builder.h"
#include "tests/support/pdf_builder.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

KorrinProject titled(const std::string& title) {
  KorrinProject project = test::sampleProject();
  project.metadata.title = title;
  return project;
}

/// Carries `run` out with one allocation less to fail each time, until none is left, and looks
/// after every failure. Returns how many there were.
std::size_t failingEachAllocation(const std::function<void()>& run,
                                  const std::function<void()>& look) {
  for (std::size_t allocations = 0;; ++allocations) {
    try {
      const AllocationLimit limit(allocations, 1);
      run();
      return allocations;
    } catch (const std::bad_alloc&) {
    }
    look();
    if (testing::Test::HasFailure()) return allocations;
  }
}

std::string contentOrNothing(const std::filesystem::path& path) {
  return std::filesystem::exists(path) ? test::contentOf(path) : "";
}

struct Row {
  std::string name;
  bool isThere;  // whether there is a file to replace
  std::function<void(DocumentFile&, const KorrinProject&)> save;
  friend std::ostream& operator<<(std::ostream& out, const Row& row) { return out << row.name; }
};

class SavingWithoutMemory : public testing::TestWithParam<Row> {};

TEST_P(SavingWithoutMemory, LeavesTheFileAndWhatIsKnownOfItAsTheyWere) {
  const test::Folder folder;
  const KorrinProject next = titled("next");
  const std::string before = GetParam().isThere ? bytesToSave(titled("before")) : "";
  DocumentFile file(folder / "plot.json");
  if (GetParam().isThere) {
    folder.write("plot.json", before);
    file.open();
  }
  const std::size_t files = folder.count();
  const std::size_t failures =
      failingEachAllocation([&] { GetParam().save(file, next); },
                            [&] {
                              EXPECT_EQ(folder.count(), files);
                              EXPECT_EQ(contentOrNothing(file.path()), before);
                              EXPECT_FALSE(file.hasChangedElsewhere());
                            });
  EXPECT_GT(failures, 10u);
  EXPECT_EQ(test::contentOf(file.path()), bytesToSave(next));
  EXPECT_FALSE(file.hasChangedElsewhere());
  EXPECT_EQ(folder.count(), 1u);
}

void save(DocumentFile& file, const KorrinProject& project) { file.save(project); }
void saveAnyway(DocumentFile& file, const KorrinProject& project) { file.saveAnyway(project); }

INSTANTIATE_TEST_SUITE_P(Rows, SavingWithoutMemory,
                         testing::Values(Row{"OverWhatWasOpened", true, save},
                                         Row{"AnywayOverWhatWasOpened", true, saveAnyway},
                                         Row{"WhereNothingIs", false, save},
                                         Row{"AnywayWhereNothingIs", false, saveAnyway}),
                         [](const auto& row) { return row.param.name; });

TEST(OpeningWithoutMemory, CountsAsNoOpening) {
  const test::Folder folder;
  DocumentFile file(folder.write("plot.json", bytesToSave(titled("before"))));
  const std::size_t failures = failingEachAllocation(
      [&] { EXPECT_TRUE(std::holds_alternative<OpenedDocument>(file.open())); },
      [&] { EXPECT_TRUE(file.hasChangedElsewhere()) << "it was never opened"; });
  EXPECT_GT(failures, 20u);
  EXPECT_FALSE(file.hasChangedElsewhere());
}

TEST(NotingWithoutMemory, TakesTheStateAllTheSame) {
  const test::Folder folder;
  const auto document = folder / "plot.json";
  const KorrinProject project = titled("noted");
  {
    Autosave autosave(recoveryFileFor(document), std::chrono::hours(1));
    const AllocationLimit limit(0);
    for (int i = 0; i < 100; ++i) autosave.note(project);
  }
  std::optional<Recovery> found;
  const std::size_t failures = failingEachAllocation(
      [&] { found = recoveryOf(document); }, [&] { EXPECT_FALSE(found) << "half a recovery"; });
  EXPECT_GT(failures, 20u);
  ASSERT_TRUE(found);
  EXPECT_TRUE(found->project == project);
}

TEST(AdmittingWithoutMemory, LeavesTheBudgetAsItWas) {
  const test::Bytes image = test::png({.width = 10, .height = 20});
  const std::string pdf = test::PdfBuilder()
                              .object(1, "<</Type/Catalog/Pages 2 0 R>>")
                              .object(2, "<</Type/Pages/Kids[3 0 R]/Count 1>>")
                              .object(3, "<</Type/Page/Parent 2 0 R/MediaBox[0 0 100 100]>>")
                              .table()
                              .file();
  AssetBudget budget;
  budget.admit(std::as_bytes(std::span(image)), std::nullopt);
  const std::size_t failures =
      failingEachAllocation([&] { budget.admit(test::asBytes(pdf), "application/pdf"); },
                            [&] { EXPECT_EQ(budget.pixels(), 200); });
  EXPECT_GT(failures, 0u);
  EXPECT_EQ(budget.pixels(), 200);
}

}  // namespace
}  // namespace korrin
