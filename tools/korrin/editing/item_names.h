#pragma once

// How editing commands call plot items: by identifier, by a label that no other item has, or by a
// label and a number.

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::host {

/// The identifiers of the items, each once.
IDSet identifiersOf(const List<PlotItem>& items);

/// Finds the items of one project by name. Refers to the project, which must outlive it unchanged.
class ItemNames {
 public:
  explicit ItemNames(const KorrinProject& project);

  /// The item with this identifier or label. Labels are compared as texts are, letter case counts.
  /// "MIX 1#2" is the second item labelled "MIX 1", unless an item has that very label. Throws
  /// LineError when there is none or when several items have the label.
  const PlotItem& item(std::string_view name) const;

  /// As `item` for each name; also throws when an item is named twice or may not be edited, and
  /// then says which lock or layer is in the way.
  List<PlotItem> editableItems(const std::vector<std::string>& names) const;

  /// What to call the item: its label, or its identifier where the label is blank or not its own.
  std::string nameOf(const PlotItem& item) const;

  /// Why the item may not be edited, such as "is locked"; nothing when it may.
  std::optional<std::string> obstacle(const PlotItem& item) const;

 private:
  const PlotItem* numberedItem(std::string_view name) const;

  const KorrinProject& project_;
  std::unordered_map<UUID, const PlotItem*> byIdentifier_;
  std::unordered_map<Text, std::vector<const PlotItem*>> byLabel_;
};

}  // namespace korrin::host
