#pragma once

// One function for each rule of the audit, and one for each of its fixes. A check reports what it
// finds; a fix gets the plot and a finding that stands in it, and returns nothing where it has no
// answer. Where no list holds an identifier twice, its answer keeps the promises of a fix.

#include <optional>
#include <string_view>
#include <vector>

#include "korrin/review/audit.h"
#include "korrin/review/plot_lookup.h"

namespace korrin::auditing {

using fixes::PlotLookup;
using Findings = std::vector<AuditFinding>;

/// A finding with the severity and title of its rule. `place` is what follows the colon of its id.
AuditFinding finding(AuditRule rule, Text detail, std::string_view place, List<UUID> itemIDs,
                     std::optional<UUID> recordID);

/// The key of the list whose record the finding is about; nothing for what is about several lists,
/// an asset or the document.
std::optional<std::string_view> listOf(const AuditFinding& finding);

/// The fix of the finding's rule.
std::optional<Fix> fixOf(PlotLookup& plot, const AuditFinding& finding,
                         const Environment& environment);

// Items, in audit_of_items.cpp.
void missingLayers(const KorrinProject& project, Findings& findings);
void hiddenItems(const KorrinProject& project, Findings& findings);
void unencodableNumbers(const KorrinProject& project, Findings& findings);
void rotatedOutsideStage(const KorrinProject& project, Findings& findings);
void unreadableTints(const KorrinProject& project, Findings& findings);

std::optional<Fix> firstLayer(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> shownLayer(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> noHeight(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> turnedInside(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> noTint(PlotLookup&, const AuditFinding&, const Environment&);

// Groups, in audit_of_groups.cpp.
void missingGroups(const KorrinProject& project, Findings& findings);
void oneSidedMemberships(const KorrinProject& project, Findings& findings);
void unknownMembers(const KorrinProject& project, Findings& findings);
void repeatedMembers(const KorrinProject& project, Findings& findings);
void emptyGroups(const KorrinProject& project, Findings& findings);

std::optional<Fix> noGroup(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> followedGroup(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> knownMembers(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> membersOnce(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> withoutGroup(PlotLookup&, const AuditFinding&, const Environment&);

// Everything else, in audit_of_documents.cpp.
void sharedIdentifiers(const KorrinProject& project, Findings& findings);
void numbersBelowOne(const KorrinProject& project, Findings& findings);
void unusedAssets(const KorrinProject& project, Findings& findings);
void repeatedAssets(const KorrinProject& project, Findings& findings);
void newerFormat(const KorrinProject& project, Findings& findings);

std::optional<Fix> freshIdentifiers(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> noNumber(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> withoutAsset(PlotLookup&, const AuditFinding&, const Environment&);
std::optional<Fix> assetOnce(PlotLookup&, const AuditFinding&, const Environment&);

}  // namespace korrin::auditing
