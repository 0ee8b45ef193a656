#pragma once

// Commands: every edit of a project is one, and so is every undo and redo.

#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "korrin/commands/change_set.h"
#include "korrin/commands/command_cases.h"
#include "korrin/foundation/environment.h"
#include "korrin/foundation/shared.h"

#pragma GCC visibility push(default)

namespace korrin {

struct CommandResult;

/// An edit of a project, as a value. A command never changes once it is made; copies share its
/// payload, cost no allocation and may be used from different threads at the same time. Copying,
/// applying and disposing of nested compounds need no more of the calling thread's stack than a
/// flat command does, however deep the nesting.
class DocumentCommand {
 public:
  using Payload = CommandPayload;  ///< One of the fourteen cases.

  /// A command with this payload. Nothing is checked; the case itself says what it does.
  explicit DocumentCommand(Payload payload);

  /// @{
  /// A command with this payload. Nothing is checked; the case of the same name says what it does.
  static DocumentCommand insertItems(List<PlotItem> items) {
    return DocumentCommand(InsertItems{std::move(items)});
  }
  static DocumentCommand deleteItems(IDSet itemIDs) {
    return DocumentCommand(DeleteItems{std::move(itemIDs)});
  }
  static DocumentCommand replaceItems(List<PlotItem> items) {
    return DocumentCommand(ReplaceItems{std::move(items)});
  }
  static DocumentCommand replaceGroups(List<PlotGroup> groups) {
    return DocumentCommand(ReplaceGroups{std::move(groups)});
  }
  static DocumentCommand replaceLayers(List<PlotLayer> layers) {
    return DocumentCommand(ReplaceLayers{std::move(layers)});
  }
  static DocumentCommand replaceAssetManifest(List<AssetManifestEntry> entries) {
    return DocumentCommand(ReplaceAssetManifest{std::move(entries)});
  }
  static DocumentCommand replaceMetadata(ProjectMetadata metadata) {
    return DocumentCommand(ReplaceMetadata{std::move(metadata)});
  }
  static DocumentCommand replaceStage(StageDefinition stage) {
    return DocumentCommand(ReplaceStage{std::move(stage)});
  }
  static DocumentCommand replaceInputs(List<InputChannel> inputs) {
    return DocumentCommand(ReplaceInputs{std::move(inputs)});
  }
  static DocumentCommand replaceMonitorMixes(List<MonitorMix> monitorMixes) {
    return DocumentCommand(ReplaceMonitorMixes{std::move(monitorMixes)});
  }
  static DocumentCommand replaceEquipment(List<EquipmentRequirement> equipmentRequirements) {
    return DocumentCommand(ReplaceEquipment{std::move(equipmentRequirements)});
  }
  static DocumentCommand replaceNotes(List<ProjectNote> notes) {
    return DocumentCommand(ReplaceNotes{std::move(notes)});
  }
  static DocumentCommand replaceProject(KorrinProject project) {
    return DocumentCommand(ReplaceProject{std::move(project)});
  }
  static DocumentCommand compound(std::vector<DocumentCommand> commands) {
    return DocumentCommand(Compound{std::move(commands)});
  }
  /// @}

  // A move would leave a command without a payload behind; a copy costs hardly more.
  /// Shares the payload.
  DocumentCommand(const DocumentCommand&) noexcept = default;
  /// Shares the payload.
  DocumentCommand& operator=(const DocumentCommand&) noexcept = default;
  ~DocumentCommand() = default;

  /// The case and what it carries. Valid as long as this command or a copy of it lives.
  const Payload& payload() const noexcept;

  /// The payload of this case; null when the command is another one.
  template <class Case>
  const Case* get() const noexcept {
    return std::get_if<Case>(&payload());
  }

  /// The name of the case, such as "deleteItems": that of the function above which makes it.
  std::string_view caseName() const noexcept {
    return std::visit([](const auto& payload) { return payload.name; }, payload());
  }

  /// Changes the project as the case says and returns the inverse and what changed. Applied to the
  /// project as it stands afterwards, the inverse restores every field but `metadata.modifiedAt`;
  /// after a deletion or a replacement of the project, that too. (Undoing an insert deletes; see
  /// `InsertItems`.) The inverse's own inverse is the command for redo.
  ///
  /// Reads the clock once for each case that sets `modifiedAt`. No request is refused. When memory
  /// runs out or the clock throws, the exception is passed on and the project is what it was, under
  /// compounds too. The caller holds the project exclusively during the call.
  CommandResult apply(KorrinProject& project,
                      const Environment& environment = Environment::system()) const;

 private:
  class Storage;

  Shared<Storage> storage_;
};

/// The payload and the owners that share it.
class DocumentCommand::Storage : public Counted {
 public:
  explicit Storage(Payload&& payload) : payload_(std::move(payload)) {}
  const Payload& payload() const noexcept { return payload_; }
  static void destroy(Storage* storage) noexcept;

 private:
  Payload payload_;
  Storage* nextToDestroy_ = nullptr;
};

/// What applying a command gives back: the way back and what changed.
struct CommandResult {
  /// The command that brings the edited project back to what it was; see `DocumentCommand`. A host
  /// keeps it for undo.
  DocumentCommand inverse;
  ChangeSet changes;  ///< What to refresh.
};

inline const DocumentCommand::Payload& DocumentCommand::payload() const noexcept {
  return storage_->payload();
}

}  // namespace korrin

#pragma GCC visibility pop
