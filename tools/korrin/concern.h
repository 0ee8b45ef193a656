#pragma once

// What a finding is about, in the words of the plot.

#include <string>
#include <unordered_map>

#include "korrin/model/project.h"
#include "korrin/preflight/preflight_issue.h"

namespace korrin::host {

/// "riser: Drum riser", or where it stands when it has no label: "riser at -3600, 1200 mm".
std::string description(const PlotItem& item);

/// Finds the records that findings name. Refers to the project, which must outlive it unchanged.
class Concerns {
 public:
  explicit Concerns(const KorrinProject& project);

  /// "channel 2: Kick Out", "mix 1: Ángela", "equipment: DI box" or the item's description; empty
  /// when the project holds none of the records that the finding names.
  std::string of(const PreflightIssue& issue) const;

 private:
  template <class Record>
  using Index = std::unordered_map<UUID, const Record*>;

  Index<InputChannel> inputs_;
  Index<MonitorMix> mixes_;
  Index<EquipmentRequirement> equipment_;
  Index<PlotItem> items_;
};

}  // namespace korrin::host
