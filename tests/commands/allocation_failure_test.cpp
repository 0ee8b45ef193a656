// Fails every allocation of an edit in turn.

#include <cstddef>
#include <new>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/model/document_coding.h"

#include "tests/support/allocations.h"
#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

// Runs `action` with only this many allocations; says whether they sufficed.
template <class Action>
bool succeedsWith(std::size_t allocations, Action action) {
  try {
    const AllocationLimit limit(allocations);
    action();
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

// The project is what it was after every failure, and a shared copy of it too.
void expectNothingHalfDone(const KorrinProject& original, const DocumentCommand& command) {
  TestEnvironment environment;
  const std::string written = encodeJSON(original);
  KorrinProject expected = original;
  command.apply(expected, environment);

  for (const bool shared : {false, true}) {
    std::size_t allocations = 0;
    for (;; ++allocations) {
      KorrinProject project = shared ? original : decodeJSON<KorrinProject>(written);
      if (succeedsWith(allocations, [&] { command.apply(project, environment); })) {
        EXPECT_EQ(withModifiedAt(project, {}), withModifiedAt(expected, {}));
        break;
      }
      ASSERT_EQ(project, original) << "after " << allocations << " allocations";
      ASSERT_EQ(encodeJSON(original), written) << "after " << allocations << " allocations";
    }
    EXPECT_GT(allocations, 0u);
  }
}

DocumentCommand everyCaseAtOnce(const KorrinProject& project) {
  using C = DocumentCommand;
  using namespace sample;
  const UUID fresh = identifier(99);
  return C::compound(
      {C::insertItems({microphone(fresh), microphone(guitar)}),
       C::replaceItems({microphone(vocal), microphone(keys), microphone(identifier(98))}),
       C::compound({C::deleteItems({vocal, kick, wedge, drumRiser}), C::compound({}),
                    C::replaceGroups(project.groups), C::replaceLayers(project.layers)}),
       C::replaceAssetManifest({}), C::replaceMetadata(project.metadata),
       C::replaceStage(project.stage), C::replaceInputs(project.inputs), C::replaceMonitorMixes({}),
       C::replaceEquipment({}), C::replaceNotes({}), C::replaceProject(project),
       C::deleteItems({truss})});
}

TEST(OutOfMemory, LeavesTheProjectAsItWasInEveryCase) {
  const KorrinProject project = sampleProject();
  const DocumentCommand everything = everyCaseAtOnce(project);
  for (const DocumentCommand& command : everything.get<Compound>()->commands)
    expectNothingHalfDone(project, command);
}

TEST(OutOfMemory, LeavesTheProjectAsItWasHalfwayThroughACompound) {
  const KorrinProject project = sampleProject();
  expectNothingHalfDone(project, everyCaseAtOnce(project));
}

TEST(OutOfMemory, LeavesTheProjectAsItWasWhenAGroupingIsMadeAndApplied) {
  const KorrinProject project = sampleProject();
  TestEnvironment environment;
  const IDSet selection = {sample::vocal, sample::kick, sample::guitar};
  std::optional<DocumentCommand> command;
  std::size_t allocations = 0;
  while (!succeedsWith(allocations,
                       [&] { command = project.groupingCommand(selection, environment); })) {
    ASSERT_EQ(project, sampleProject());
    ++allocations;
  }
  EXPECT_GT(allocations, 5u);
  expectNothingHalfDone(project, *command);
}

TEST(OutOfMemory, LeavesTheItemsOfAnAlignmentAsTheyWere) {
  const List<PlotItem> items = sampleProject().items;
  for (const ItemAlignment alignment : allCases<ItemAlignment>()) {
    List<PlotItem> result;
    std::size_t allocations = 0;
    while (
        !succeedsWith(allocations, [&] { result = KorrinGeometry::applying(alignment, items); })) {
      ASSERT_EQ(items, sampleProject().items);
      ++allocations;
    }
    EXPECT_EQ(result, KorrinGeometry::applying(alignment, items));
  }
}

TEST(Copies, OfProjectsAndCommandsAllocateNothing) {
  const KorrinProject project = sampleProject();
  const DocumentCommand command = everyCaseAtOnce(project);
  EXPECT_TRUE(succeedsWith(0, [&] {
    const KorrinProject projectCopy = project;
    const DocumentCommand commandCopy = command;
  }));
}

}  // namespace
}  // namespace korrin::test
