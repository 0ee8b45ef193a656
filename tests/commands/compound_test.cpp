#include <functional>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>
#include <pthread.h>

#include "korrin/commands/document_command.h"

#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::expectUndoAndRedo;
using test::identifier;
using test::microphone;
using test::sampleProject;
using test::TestEnvironment;
using namespace test::sample;

const ChangeSet noChanges = {
    .changedItemIDs = {}, .affectsTechnicalData = false, .affectsDocumentStructure = false};

TEST(Compound, AppliesItsCommandsInOrder) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  DocumentCommand::compound({DocumentCommand::replaceItems({microphone(vocal, 1)}),
                             DocumentCommand::replaceItems({microphone(vocal, 2)})})
      .apply(project, environment);
  EXPECT_EQ(project.items[0], microphone(vocal, 2));
  EXPECT_EQ(environment.clockReads(), 2);
  EXPECT_EQ(project.metadata.modifiedAt, TestEnvironment::instantOfRead(2));
}

TEST(Compound, InvertsToTheInversesInReverseOrder) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result = DocumentCommand::compound({DocumentCommand::replaceNotes({}),
                                                 DocumentCommand::deleteItems({vocal}),
                                                 DocumentCommand::replaceInputs({})})
                          .apply(project, environment);
  ASSERT_NE(result.inverse.get<Compound>(), nullptr);
  const std::vector<DocumentCommand>& inverses = result.inverse.get<Compound>()->commands;
  ASSERT_EQ(inverses.size(), 3u);
  EXPECT_NE(inverses[0].get<ReplaceInputs>(), nullptr);
  EXPECT_NE(inverses[1].get<ReplaceProject>(), nullptr);
  ASSERT_NE(inverses[2].get<ReplaceNotes>(), nullptr);
  EXPECT_EQ(inverses[2].get<ReplaceNotes>()->notes, sampleProject().notes);
}

TEST(Compound, KeepsItsNestingInTheInverse) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto a = DocumentCommand::replaceNotes({});
  const auto b = DocumentCommand::replaceInputs({});
  const auto c = DocumentCommand::replaceLayers({});
  const auto result = DocumentCommand::compound(
                          {a, DocumentCommand::compound({b, DocumentCommand::compound({}), c}),
                           DocumentCommand::compound({})})
                          .apply(project, environment);
  const auto& outer = result.inverse.get<Compound>()->commands;
  ASSERT_EQ(outer.size(), 3u);
  EXPECT_TRUE(outer[0].get<Compound>()->commands.empty());
  EXPECT_NE(outer[2].get<ReplaceNotes>(), nullptr);
  const auto& inner = outer[1].get<Compound>()->commands;
  ASSERT_EQ(inner.size(), 3u);
  EXPECT_NE(inner[0].get<ReplaceLayers>(), nullptr);
  EXPECT_TRUE(inner[1].get<Compound>()->commands.empty());
  EXPECT_NE(inner[2].get<ReplaceInputs>(), nullptr);
}

TEST(Compound, UnitesTheChangesOfItsCommands) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result =
      DocumentCommand::compound(
          {DocumentCommand::replaceItems({microphone(vocal), microphone(wedge)}),
           DocumentCommand::compound(
               {DocumentCommand::replaceItems({microphone(wedge), microphone(keys)})}),
           DocumentCommand::replaceNotes({})})
          .apply(project, environment);
  EXPECT_EQ(result.changes, (ChangeSet{.changedItemIDs = {vocal, wedge, keys},
                                       .affectsTechnicalData = true,
                                       .affectsDocumentStructure = false}));
}

TEST(Compound, RaisesNoFlagThatNoneOfItsCommandsRaises) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result =
      DocumentCommand::compound({DocumentCommand::replaceItems({microphone(vocal)}),
                                 DocumentCommand::replaceMetadata(project.metadata)})
          .apply(project, environment);
  EXPECT_EQ(result.changes, (ChangeSet{.changedItemIDs = {vocal},
                                       .affectsTechnicalData = false,
                                       .affectsDocumentStructure = false}));
}

TEST(Compound, OfNothingChangesNothing) {
  for (const auto& command : {DocumentCommand::compound({}),
                              DocumentCommand::compound({DocumentCommand::compound({}),
                                                         DocumentCommand::compound({})})}) {
    KorrinProject project = sampleProject();
    TestEnvironment environment;
    const auto result = command.apply(project, environment);
    EXPECT_EQ(project, sampleProject());
    EXPECT_EQ(result.changes, noChanges);
    EXPECT_EQ(environment.clockReads(), 0);
    EXPECT_EQ(result.inverse.get<Compound>()->commands.size(),
              command.get<Compound>()->commands.size());
    expectUndoAndRedo(sampleProject(), command);
  }
}

TEST(Compound, OfReplacedProjectsDoesNotTouch) {
  KorrinProject incoming = sampleProject();
  incoming.metadata.modifiedAt = test::instant(-4);
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  DocumentCommand::compound({DocumentCommand::replaceProject(incoming)})
      .apply(project, environment);
  EXPECT_EQ(project, incoming);
  EXPECT_EQ(environment.clockReads(), 0);
}

TEST(Compound, ThatInsertsAnExistingItemAgainDeletesItWhenUndone) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result =
      DocumentCommand::compound({DocumentCommand::insertItems({microphone(guitar)})})
          .apply(project, environment);
  result.inverse.apply(project, environment);
  EXPECT_EQ(project.items.size(), sampleProject().items.size() - 1);
  EXPECT_EQ(std::ranges::find(project.items, guitar, &PlotItem::id), project.items.end());
}

TEST(Compound, UndoesAndRedoesCommandsThatBuildOnEachOther) {
  const UUID fresh = identifier(99);
  PlotItem moved = microphone(fresh, 4, 4);
  expectUndoAndRedo(
      sampleProject(),
      DocumentCommand::compound(
          {DocumentCommand::insertItems({microphone(fresh)}),
           DocumentCommand::compound(
               {DocumentCommand::replaceItems({moved}),
                DocumentCommand::replaceGroups({PlotGroup{
                    .id = identifier(0x299), .name = "New", .itemIDs = {fresh, vocal}}})}),
           DocumentCommand::deleteItems({vocal}),
           DocumentCommand::replaceStage(sampleProject().stage)}));
}

TEST(Compound, LeavesTheProjectAloneWhenTheClockFailsHalfway) {
  int reads = 0;
  const Environment failing = {.now =
                                   [&reads] {
                                     if (++reads == 3) throw std::runtime_error("no clock");
                                     return test::instant(reads);
                                   },
                               .makeUUID = [] { return UUID(); }};
  KorrinProject project = sampleProject();
  const auto command = DocumentCommand::compound(
      {DocumentCommand::deleteItems({vocal}),
       DocumentCommand::compound({DocumentCommand::replaceInputs({}),
                                  DocumentCommand::replaceItems({microphone(keys)})})});
  EXPECT_THROW(command.apply(project, failing), std::runtime_error);
  EXPECT_EQ(reads, 3);
  EXPECT_EQ(project, sampleProject());
}

TEST(Compound, MayHoldTheSameCommandSeveralTimes) {
  const auto insert = DocumentCommand::insertItems({microphone(identifier(99))});
  const auto pair = DocumentCommand::compound({insert, insert});
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  DocumentCommand::compound({pair, pair}).apply(project, environment);
  EXPECT_EQ(project.items.size(), sampleProject().items.size() + 1);
  EXPECT_EQ(environment.clockReads(), 4);
}

// Runs `body` in a thread whose stack is far too small for a recursion over the nesting.
void runWithASmallStack(const std::function<void()>& body) {
  constexpr std::size_t stackSize = 256 * 1024;
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, stackSize), 0);
  pthread_t thread;
  const auto start = [](void* argument) -> void* {
    (*static_cast<const std::function<void()>*>(argument))();
    return nullptr;
  };
  std::function<void()> copy = body;
  ASSERT_EQ(pthread_create(&thread, &attributes, start, &copy), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

constexpr int chainLength = 100'000;

DocumentCommand chainAround(DocumentCommand command) {
  for (int i = 0; i < chainLength; ++i) command = DocumentCommand::compound({command});
  return command;
}

TEST(DeepCompound, IsAppliedCopiedAndDisposedOfOnASmallStack) {
  runWithASmallStack([] {
    KorrinProject project = sampleProject();
    TestEnvironment environment;
    const DocumentCommand chain = chainAround(DocumentCommand::deleteItems({vocal}));
    const DocumentCommand copy = chain;
    const CommandResult result = copy.apply(project, environment);
    EXPECT_EQ(project.items.size(), sampleProject().items.size() - 1);

    const CommandResult copiedResult = result;
    const CommandResult undone = copiedResult.inverse.apply(project, environment);
    EXPECT_EQ(project, sampleProject());
    EXPECT_EQ(undone.changes.affectsTechnicalData, result.changes.affectsTechnicalData);
    EXPECT_EQ(copiedResult.changes, result.changes);
    EXPECT_NE(undone.changes, result.changes);
  });
}

TEST(DeepCompound, IsRolledBackOnASmallStack) {
  runWithASmallStack([] {
    const Environment broken = {.now = []() -> Instant { throw std::runtime_error("no clock"); },
                                .makeUUID = [] { return UUID(); }};
    KorrinProject project = sampleProject();
    const auto command = DocumentCommand::compound(
        {chainAround(DocumentCommand::compound({})), DocumentCommand::replaceNotes({})});
    EXPECT_THROW(command.apply(project, broken), std::runtime_error);
    EXPECT_EQ(project, sampleProject());
  });
}

TEST(DeepCompound, IsDisposedOfOnASmallStackThoughEachLevelIsHeldTwice) {
  runWithASmallStack([] {
    DocumentCommand command = DocumentCommand::compound({});
    std::vector<DocumentCommand> kept;
    for (int i = 0; i < chainLength; ++i) {
      command = DocumentCommand::compound({command, command});
      if (i % 10'000 == 0) kept.push_back(command);
    }
    command = DocumentCommand::compound({});
    EXPECT_EQ(kept.back().get<Compound>()->commands.size(), 2u);
  });
}

}  // namespace
}  // namespace korrin
