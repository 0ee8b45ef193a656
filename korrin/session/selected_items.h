#pragma once

// The items that an edit of a selection is about.

#include <cstddef>
#include <optional>
#include <vector>

#include "korrin/commands/document_command.h"

namespace korrin {

/// Identifiers in ascending order, for look-ups.
class SortedIDs {
 public:
  SortedIDs() = default;
  explicit SortedIDs(std::vector<UUID> ids);

  bool contains(const UUID& id) const;
  bool hasRepeated() const;
  bool empty() const { return ids_.empty(); }

 private:
  std::vector<UUID> ids_;
};

/// Tells as `KorrinProject::canEditItem` does which items may be edited, without walking the layers
/// for each.
class EditableItems {
 public:
  explicit EditableItems(const KorrinProject& project);

  bool contains(const PlotItem& item) const {
    return !item.isLocked && layerIDs_.contains(item.layerID);
  }

 private:
  SortedIDs layerIDs_;  // of the visible and unlocked layers
};

/// The places of the selected items that may be edited, ascending. Of items that share an
/// identifier the first one stands for all, provided that all may be edited.
std::vector<std::size_t> editablePlaces(const KorrinProject& project, const IDSet& selection);

/// Of the places, which ascend, the first for each identifier that an item has there.
std::vector<std::size_t> firstOfEachIdentifier(const List<PlotItem>& items,
                                               std::vector<std::size_t> places);

/// The one command, or the compound of several; nothing where there is none.
std::optional<DocumentCommand> combined(std::vector<DocumentCommand> commands);

}  // namespace korrin
