#pragma once

// One function for each rule of the audit, and one for each of its fixes. A check reports what it
// finds; a fix gets the project and a finding that stands in it, and returns nothing where it has
// no answer. Whether an answer keeps the promises of a fix is for `keepLawful` to judge.

#include <optional>
#include <string_view>
#include <vector>

#include "korrin/review/audit.h"

namespace korrin::auditing {

using Findings = std::vector<AuditFinding>;

/// A finding with the severity and title of its rule. `place` is what follows the colon of its id.
AuditFinding finding(AuditRule rule, Text detail, std::string_view place, List<UUID> itemIDs,
                     std::optional<UUID> recordID);

// Items, in audit_of_items.cpp.
void missingLayers(const KorrinProject& project, Findings& findings);
void hiddenItems(const KorrinProject& project, Findings& findings);
void unencodableNumbers(const KorrinProject& project, Findings& findings);
void rotatedOutsideStage(const KorrinProject& project, Findings& findings);
void unreadableTints(const KorrinProject& project, Findings& findings);

std::optional<Fix> firstLayer(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> shownLayer(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> noHeight(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> turnedInside(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> noTint(const KorrinProject&, const AuditFinding&, const Environment&);

// Groups, in audit_of_groups.cpp.
void missingGroups(const KorrinProject& project, Findings& findings);
void oneSidedMemberships(const KorrinProject& project, Findings& findings);
void unknownMembers(const KorrinProject& project, Findings& findings);
void repeatedMembers(const KorrinProject& project, Findings& findings);
void emptyGroups(const KorrinProject& project, Findings& findings);

std::optional<Fix> noGroup(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> followedGroup(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> knownMembers(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> membersOnce(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> withoutGroup(const KorrinProject&, const AuditFinding&, const Environment&);

// Everything else, in audit_of_documents.cpp.
void sharedIdentifiers(const KorrinProject& project, Findings& findings);
void numbersBelowOne(const KorrinProject& project, Findings& findings);
void unusedAssets(const KorrinProject& project, Findings& findings);
void repeatedAssets(const KorrinProject& project, Findings& findings);
void newerFormat(const KorrinProject& project, Findings& findings);

std::optional<Fix> freshIdentifiers(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> noNumber(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> withoutAsset(const KorrinProject&, const AuditFinding&, const Environment&);
std::optional<Fix> assetOnce(const KorrinProject&, const AuditFinding&, const Environment&);

}  // namespace korrin::auditing
