#include "tests/support/laws.h"

#include <algorithm>
#include <concepts>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "korrin/model/document_coding.h"

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

// The fields that a case may change besides `modifiedAt`.
constexpr auto concernedBy(const InsertItems&) { return std::tuple{&KorrinProject::items}; }
constexpr auto concernedBy(const DeleteItems&) {
  return std::tuple{&KorrinProject::items, &KorrinProject::inputs, &KorrinProject::monitorMixes,
                    &KorrinProject::equipmentRequirements, &KorrinProject::groups};
}
constexpr auto concernedBy(const ReplaceItems&) { return std::tuple{&KorrinProject::items}; }
constexpr auto concernedBy(const ReplaceGroups&) { return std::tuple{&KorrinProject::groups}; }
constexpr auto concernedBy(const ReplaceLayers&) { return std::tuple{&KorrinProject::layers}; }
constexpr auto concernedBy(const ReplaceAssetManifest&) {
  return std::tuple{&KorrinProject::assetManifest};
}
constexpr auto concernedBy(const ReplaceMetadata&) { return std::tuple{&KorrinProject::metadata}; }
constexpr auto concernedBy(const ReplaceStage&) { return std::tuple{&KorrinProject::stage}; }
constexpr auto concernedBy(const ReplaceInputs&) { return std::tuple{&KorrinProject::inputs}; }
constexpr auto concernedBy(const ReplaceMonitorMixes&) {
  return std::tuple{&KorrinProject::monitorMixes};
}
constexpr auto concernedBy(const ReplaceEquipment&) {
  return std::tuple{&KorrinProject::equipmentRequirements};
}
constexpr auto concernedBy(const ReplaceNotes&) { return std::tuple{&KorrinProject::notes}; }
constexpr auto concernedBy(const ReplaceProject&) {
  return std::apply([](const auto&... field) { return std::tuple{field.member...}; },
                    fieldsOf<KorrinProject>());
}
constexpr std::tuple<> concernedBy(const Compound&) { return {}; }

template <class Member>
bool concerns(const DocumentCommand& command, Member member) {
  const auto isTheMember = [member](auto other) {
    if constexpr (std::same_as<decltype(other), Member>) return other == member;
    return false;
  };
  return std::visit(
      [&](const auto& payload) {
        return std::apply([&](auto... members) { return (isTheMember(members) || ...); },
                          concernedBy(payload));
      },
      command.payload());
}

std::vector<UUID> identifiersOf(const List<PlotItem>& items) {
  std::vector<UUID> ids;
  for (const PlotItem& item : items) ids.push_back(item.id);
  return ids;
}

bool everyNewOrDifferentItemIsNamed(const KorrinProject& before, const KorrinProject& after,
                                    const IDSet& named) {
  std::unordered_map<UUID, const PlotItem*> former;
  for (const PlotItem& item : before.items) former.emplace(item.id, &item);
  return std::ranges::all_of(after.items, [&](const PlotItem& item) {
    const auto found = former.find(item.id);
    return named.contains(item.id) || (found != former.end() && *found->second == item);
  });
}

AssertionResult changesAreReported(const KorrinProject& before, const KorrinProject& after,
                                   const ChangeSet& changes) {
  if (!everyNewOrDifferentItemIsNamed(before, after, changes.changedItemIDs))
    return AssertionFailure() << "an item is new or different and not named";

  KorrinProject unreported = after;
  unreported.metadata = before.metadata;
  if (changes.affectsTechnicalData) {
    unreported.inputs = before.inputs;
    unreported.monitorMixes = before.monitorMixes;
    unreported.equipmentRequirements = before.equipmentRequirements;
    unreported.notes = before.notes;
  }
  if (changes.affectsDocumentStructure) {
    unreported.schemaVersion = before.schemaVersion;
    unreported.minimumReaderVersion = before.minimumReaderVersion;
    unreported.stage = before.stage;
    unreported.layers = before.layers;
    unreported.groups = before.groups;
    unreported.exportSettings = before.exportSettings;
    unreported.assetManifest = before.assetManifest;
  } else if (identifiersOf(after.items) != identifiersOf(before.items)) {
    return AssertionFailure() << "items came, went or changed places unreported";
  }
  unreported.items = before.items;
  if (unreported != before) return AssertionFailure() << "a field changed unreported";
  return AssertionSuccess();
}

AssertionResult onlyConcernedFieldsChange(const KorrinProject& before, const KorrinProject& after,
                                          const std::vector<DocumentCommand>& cases) {
  const KorrinProject touched = withModifiedAt(before, after.metadata.modifiedAt);
  std::string changed;
  forEachField<KorrinProject>([&](const auto& field) {
    const bool mayChange = std::ranges::any_of(
        cases, [&](const DocumentCommand& command) { return concerns(command, field.member); });
    if (!mayChange && touched.*field.member != after.*field.member) changed += field.key;
  });
  if (!changed.empty()) return AssertionFailure() << changed << " changed and was not concerned";
  return AssertionSuccess();
}

bool touches(const DocumentCommand& command) { return command.get<ReplaceProject>() == nullptr; }

AssertionResult touchesAsItShould(const KorrinProject& before, const KorrinProject& after,
                                  const std::vector<DocumentCommand>& cases, int clockReads) {
  int expectedReads = 0;
  Instant expected = before.metadata.modifiedAt;
  for (const DocumentCommand& command : cases)
    expected = touches(command) ? TestEnvironment::instantOfRead(++expectedReads)
                                : command.get<ReplaceProject>()->project.metadata.modifiedAt;
  if (clockReads != expectedReads)
    return AssertionFailure() << clockReads << " clock reads instead of " << expectedReads;
  if (after.metadata.modifiedAt != expected)
    return AssertionFailure() << "modifiedAt is not what was read last";
  return AssertionSuccess();
}

bool restoresModifiedAt(const DocumentCommand& command) {
  return command.get<DeleteItems>() != nullptr || command.get<ReplaceProject>() != nullptr;
}

// A text shares nothing with the project it was written from.
std::string documentOf(const KorrinProject& project) {
  return encodeJSON(project, {.nonFinite = NonFinite::strings});
}

}  // namespace

KorrinProject withModifiedAt(KorrinProject project, Instant modifiedAt) {
  project.metadata.modifiedAt = modifiedAt;
  return project;
}

std::vector<DocumentCommand> unfolded(const DocumentCommand& command) {
  const Compound* const compound = command.get<Compound>();
  if (compound == nullptr) return {command};
  std::vector<DocumentCommand> cases;
  for (const DocumentCommand& part : compound->commands)
    for (const DocumentCommand& leaf : unfolded(part)) cases.push_back(leaf);
  return cases;
}

AssertionResult changesWhatItSays(const KorrinProject& project, const DocumentCommand& command) {
  TestEnvironment environment;
  const std::vector<DocumentCommand> cases = unfolded(command);
  const std::string writtenBefore = documentOf(project);
  KorrinProject after = project;
  const CommandResult result = command.apply(after, environment);

  if (const auto ok = touchesAsItShould(project, after, cases, environment.clockReads()); !ok)
    return ok;
  if (const auto ok = onlyConcernedFieldsChange(project, after, cases); !ok) return ok;
  if (const auto ok = changesAreReported(project, after, result.changes); !ok) return ok;
  if (documentOf(project) != writtenBefore)
    return AssertionFailure() << "a copy of the project changed with it";
  return AssertionSuccess();
}

AssertionResult undoes(const KorrinProject& project, const DocumentCommand& command) {
  TestEnvironment environment;
  KorrinProject edited = project;
  const CommandResult result = command.apply(edited, environment);
  result.inverse.apply(edited, environment);
  if (withModifiedAt(edited, project.metadata.modifiedAt) != project)
    return AssertionFailure() << "the inverse does not restore the project";
  if (restoresModifiedAt(command) && edited != project)
    return AssertionFailure() << "the inverse does not restore modifiedAt";
  return AssertionSuccess();
}

AssertionResult redoes(const KorrinProject& project, const DocumentCommand& command) {
  TestEnvironment environment;
  KorrinProject edited = project;
  const CommandResult first = command.apply(edited, environment);
  const KorrinProject firstResult = edited;
  const CommandResult undone = first.inverse.apply(edited, environment);
  undone.inverse.apply(edited, environment);
  if (withModifiedAt(edited, firstResult.metadata.modifiedAt) != firstResult)
    return AssertionFailure() << "redo gives another project than the first time";
  return AssertionSuccess();
}

void expectUndoAndRedo(const KorrinProject& project, const DocumentCommand& command) {
  EXPECT_TRUE(changesWhatItSays(project, command));
  EXPECT_TRUE(undoes(project, command));
  EXPECT_TRUE(redoes(project, command));
}

}  // namespace korrin::test
