#pragma once

// What a finding is about, in the words of the plot.

#include <map>
#include <string>

#include "korrin/model/project.h"
#include "korrin/preflight/preflight_issue.h"
#include "korrin/review/audit.h"
#include "korrin/review/rules.h"

namespace korrin::host {

/// "channel 2: Kick Out"; "input: Kick Out" without a channel, "channel 2" without a source.
std::string description(const InputChannel& input);
/// "mix 1: Ángela"; "mix: Ángela" without a number, "mix 1" without a name.
std::string description(const MonitorMix& mix);
/// "equipment: DI box", or the category when no item is named.
std::string description(const EquipmentRequirement& requirement);
/// "riser: Drum riser", or where it stands when it has no label: "riser at -3600, 1200 mm".
std::string description(const PlotItem& item);
/// "layer: Rigging".
std::string description(const PlotLayer& layer);
/// "group: Drums".
std::string description(const PlotGroup& group);

/// Finds the records that findings name. Refers to the project, which must outlive it unchanged.
class Concerns {
 public:
  explicit Concerns(const KorrinProject& project);

  /// The description of the record that the finding is about; empty when the project does not hold
  /// it.
  std::string of(const PreflightIssue& issue) const;
  /// The same for one of the audit; an asset's digest or a shared identifier as it stands.
  std::string of(const AuditFinding& finding) const;

 private:
  template <class Record>
  using Index = std::map<UUID, const Record*>;

  const KorrinProject& project_;
  IssueSubjects subjects_;
  Index<InputChannel> inputs_;
  Index<MonitorMix> mixes_;
  Index<PlotItem> items_;
  Index<PlotLayer> layers_;
  Index<PlotGroup> groups_;
};

}  // namespace korrin::host
