#pragma once

// The advisory inspection of a plot: what it still lacks or gets wrong, before a venue's crew reads
// it.

#include <unordered_set>
#include <vector>

#include "korrin/model/project.h"
#include "korrin/preflight/preflight_issue.h"

#pragma GCC visibility push(default)

namespace korrin::PreflightEngine {

/// Everything that preflight has to say about the project, the most serious first, then by title,
/// detail and id in text order (so that channel 10 stands before channel 2), and last by
/// `relatedID`. Empty when the plot passes. Changes nothing; throws nothing but std::bad_alloc.
///
/// `knownAssetIDs` are the identifiers that the caller can draw, such as those of its built-in
/// symbols; assets of the project's own manifest are known without being named. An empty set
/// switches the rule `missingAsset` off.
std::vector<PreflightIssue> inspect(const KorrinProject& project,
                                    const std::unordered_set<Text>& knownAssetIDs);

}  // namespace korrin::PreflightEngine

#pragma GCC visibility pop
