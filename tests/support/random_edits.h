#pragma once

// Projects and commands by chance, for laws that hold for all of them.

#include <cstdint>
#include <functional>

#include "korrin/commands/document_command.h"

namespace korrin::test {

/// Where the choices come from: a number from 0 to `limit` - 1. A property testing library puts its
/// own generator here and can then make a failing example smaller.
using Chance = std::function<int(int limit)>;

/// Draws projects and commands. Identifiers come from a pool of a few, so that commands meet items
/// that exist, links dangle now and then, and groups overlap. No two items of a project have the
/// same identifier, no group is empty and all numbers are finite.
class RandomEdits {
 public:
  explicit RandomEdits(Chance chance) : chance_(std::move(chance)) {}

  KorrinProject project();

  /// A command of any case, compounds nested up to four deep. Inserted items are such as no project
  /// or command drawn from here ever named before, so that undoing removes no more than was added.
  DocumentCommand reversibleCommand(const KorrinProject& project, int depth = 4);

  /// An insert of items from the pool, repeated or existing ones among them.
  DocumentCommand anyInsert();

  /// Identifiers from the pool and of items of the project.
  IDSet identifiers(const KorrinProject& project);

 private:
  template <class Make>
  auto listOf(int limit, Make make);
  bool coin() { return chance_(2) == 0; }
  double number();
  Text text();
  UUID pooled();
  std::optional<UUID> maybePooled();
  UUID known(const KorrinProject& project);
  PlotItem item(UUID id);
  List<PlotItem> distinctItems();
  List<PlotItem> itemsFor(const KorrinProject& project);
  List<PlotItem> freshItems();
  PlotGroup group();
  PlotLayer layer();
  ProjectMetadata metadata();
  StageDefinition stage();
  InputChannel input();
  MonitorMix monitorMix();
  EquipmentRequirement equipment();
  ProjectNote note();
  AssetManifestEntry asset();

  Chance chance_;
  std::uint64_t nextFresh_ = 1'000'000;
};

}  // namespace korrin::test
