// Eight threads run every reading operation on one project while others edit copies of it. Meant
// for the thread sanitizer, which reports what the outcomes do not show.

#include <atomic>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"
#include "korrin/model/document_coding.h"

#include "tests/support/every_operation.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

constexpr std::size_t readers = 8;
constexpr std::size_t editors = 2;

// Edits a copy, keeps a copy of the copy, undoes, and starts again.
void editUntil(const std::atomic<bool>& isOver, const KorrinProject& shared) {
  TestEnvironment environment;
  while (!isOver) {
    KorrinProject own = shared;
    const auto deletion = DocumentCommand::deleteItems({sample::kick, sample::vocal});
    const CommandResult deleted = deletion.apply(own, environment);
    const KorrinProject kept = own;
    own.items.push_back(microphone(identifier(500)));
    own.metadata.title = "edited";
    deleted.inverse.apply(own, environment);
  }
}

TEST(ReadingThreads, AllComeToTheSameWhileCopiesAreEdited) {
  const KorrinProject project = sampleProject();
  std::vector<std::string> expected;
  for (const Operation& operation : everyOperation())
    expected.push_back(operation.outcome(project));

  std::atomic<bool> isOver = false;
  std::vector<std::size_t> differences(readers);
  std::vector<std::jthread> editing;
  for (std::size_t i = 0; i < editors; ++i)
    editing.emplace_back([&isOver, &project] { editUntil(isOver, project); });
  {
    std::vector<std::jthread> reading;
    for (std::size_t reader = 0; reader < readers; ++reader)
      reading.emplace_back([&project, &expected, &count = differences[reader], reader] {
        const auto& operations = everyOperation();
        // Each begins elsewhere, so that different operations meet.
        for (std::size_t i = 0; i < operations.size(); ++i) {
          const std::size_t chosen = (i + reader * operations.size() / readers) % operations.size();
          count += operations[chosen].outcome(project) != expected[chosen];
        }
      });
  }
  isOver = true;
  editing.clear();
  EXPECT_EQ(differences, std::vector<std::size_t>(readers));
  EXPECT_EQ(project, sampleProject());
}

}  // namespace
}  // namespace korrin::test
