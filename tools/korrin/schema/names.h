#pragma once

// The names under which the pages describe records and enumerations and schemas define them.

#include <string_view>
#include <tuple>

#include "korrin/model/project.h"

#include "assets/asset_report.h"
#include "findings/check_report.h"

namespace korrin::host {

template <class T>
struct Named {
  std::string_view name;
};

inline constexpr std::tuple names{
    Named<StagePoint>{"StagePoint"},
    Named<StageSize>{"StageSize"},
    Named<AudienceEdge>{"AudienceEdge"},
    Named<StageDefinition>{"StageDefinition"},
    Named<PlotItemKind>{"PlotItemKind"},
    Named<PlotItemStyle>{"PlotItemStyle"},
    Named<PlotItem>{"PlotItem"},
    Named<PlotLayer>{"PlotLayer"},
    Named<PlotGroup>{"PlotGroup"},
    Named<InputChannel>{"InputChannel"},
    Named<MonitorMix>{"MonitorMix"},
    Named<EquipmentRequirement>{"EquipmentRequirement"},
    Named<ProjectNote>{"ProjectNote"},
    Named<ProjectMetadata>{"ProjectMetadata"},
    Named<PaperSize>{"PaperSize"},
    Named<ExportSettings>{"ExportSettings"},
    Named<AssetManifestEntry>{"AssetManifestEntry"},
    Named<KorrinProject>{"KorrinProject"},

    Named<PreflightRule>{"PreflightRule"},
    Named<PreflightSeverity>{"PreflightSeverity"},
    Named<PreflightIssue>{"PreflightIssue"},
    Named<AuditRule>{"AuditRule"},
    Named<AuditFinding>{"AuditFinding"},
    Named<InspectionStatus>{"InspectionStatus"},
    Named<RefusalReason>{"RefusalReason"},
    Named<FindingCounts>{"FindingCounts"},
    Named<RuleNotRun>{"RuleNotRun"},
    Named<WaiverEntry>{"WaiverEntry"},
    Named<InspectedFile>{"InspectedFile"},
    Named<FileRefusal>{"FileRefusal"},
    Named<RefusedFile>{"RefusedFile"},
    Named<CheckReport>{"CheckReport"},

    Named<AssetStatus>{"AssetStatus"},
    Named<ReportedAsset>{"ReportedAsset"},
    Named<AssetSection>{"AssetSection"},
    Named<AssetReport>{"AssetReport"},
};

/// The name of a record or an enumeration; ill-formed for any other type.
template <class T>
inline constexpr std::string_view nameOf = std::get<Named<T>>(names).name;

}  // namespace korrin::host
