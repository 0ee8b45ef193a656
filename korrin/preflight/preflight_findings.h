#pragma once

// The wording and weight of every finding.

#include <string_view>

#include "korrin/preflight/preflight_issue.h"

namespace korrin::findings {

/// What a check says when it finds something. A title or detail that ends in a blank is completed
/// by the check. Rules do not share a title, which the order of issues relies on.
struct Finding {
  PreflightRule rule;
  PreflightSeverity severity;
  std::string_view title;
  std::string_view detail;
};

using enum PreflightRule;
using enum PreflightSeverity;

inline constexpr Finding repeatedChannel = {
    duplicateInputChannel, error, "Duplicate input channel ", "Each input channel must be unique."};
inline constexpr Finding repeatedMix = {duplicateMonitorMix, error, "Duplicate monitor mix ",
                                        "Each monitor mix number must be unique."};

inline constexpr Finding inputWithoutSource = {incompleteInput, warning, "Input source is missing",
                                               "Add a source name to the input list."};
inline constexpr Finding inputWithoutSymbol = {unplacedInput, information, "Input is not placed",
                                               "This input is not linked to a plot symbol."};
inline constexpr Finding inputWithLostSymbol = {
    invalidPlotReference, error, "Input link is invalid", "The linked plot item no longer exists."};

inline constexpr Finding mixWithoutOutput = {
    monitorWithoutOutput, warning, "Monitor output is missing", "Add an output patch for "};
inline constexpr Finding mixWithoutSymbol = {unplacedMonitor, information,
                                             "Monitor mix is not placed",
                                             "This mix is not linked to a monitor symbol."};
inline constexpr Finding mixWithLostSymbol = {invalidPlotReference, error,
                                              "Monitor link is invalid",
                                              "The linked plot item no longer exists."};

inline constexpr Finding equipmentWithoutQuantity = {invalidEquipmentQuantity, error,
                                                     "Invalid equipment quantity",
                                                     "Quantity must be greater than zero."};
inline constexpr Finding equipmentWithLostSymbol = {invalidPlotReference, error,
                                                    "Equipment link is invalid",
                                                    "The linked plot item no longer exists."};

inline constexpr Finding symbolWithoutLabel = {missingItemLabel, information,
                                               "Symbol label is empty",
                                               "A visible label helps venue teams read the plot."};
inline constexpr Finding symbolOffStage = {itemOutsideStage, warning, "Symbol is outside the stage",
                                           "Move the symbol inside the stage boundary."};
inline constexpr Finding symbolWithoutAsset = {missingAsset, error, "Symbol asset is missing",
                                               "The symbol cannot be rendered."};

}  // namespace korrin::findings
