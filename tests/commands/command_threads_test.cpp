#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

TEST(CommandsBetweenThreads, AreAppliedToCopiesOfOneProjectAtTheSameTime) {
  const KorrinProject project = sampleProject();
  DocumentCommand command = DocumentCommand::compound({});
  for (int i = 0; i < 200; ++i)
    command = DocumentCommand::compound({command, DocumentCommand::replaceItems({microphone(
                                                      sample::vocal, static_cast<double>(i))})});
  command = DocumentCommand::compound({command, DocumentCommand::deleteItems({sample::kick})});

  std::vector<KorrinProject> restored(4, project);
  {
    std::vector<std::jthread> threads;
    for (KorrinProject& own : restored)
      threads.emplace_back([&own, command] {
        TestEnvironment environment;
        const CommandResult result = command.apply(own, environment);
        result.inverse.apply(own, environment);
      });
  }
  for (KorrinProject& own : restored) {
    own.metadata.modifiedAt = project.metadata.modifiedAt;
    EXPECT_EQ(own, project);
  }
}

TEST(CommandsBetweenThreads, AreDisposedOfByWhoeverKeepsThemLast) {
  for (int round = 0; round < 50; ++round) {
    DocumentCommand shared = DocumentCommand::deleteItems({sample::kick});
    std::vector<std::vector<DocumentCommand>> kept(4);
    for (int i = 0; i < 100; ++i) {
      shared = DocumentCommand::compound({shared, shared});
      for (auto& commands : kept) commands.push_back(shared);
    }
    shared = DocumentCommand::compound({});
    std::vector<std::jthread> threads;
    for (auto& commands : kept)
      threads.emplace_back([own = std::move(commands)]() mutable { own.clear(); });
  }
}

}  // namespace
}  // namespace korrin::test
