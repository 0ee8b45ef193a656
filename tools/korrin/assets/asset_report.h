#pragma once

// What `korrin asset --format json` reports, as records: the report and its schema both follow from
// the field tables. docs/asset-report.md describes every field.

#include <cstdint>
#include <optional>
#include <type_traits>
#include <vector>

#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"
#include "korrin/model/project.h"

#include "assets/judged_asset.h"
#include "terminal/exit_code.h"

namespace korrin::host {

/// Version of the shape of reports; raised when a member changes its meaning or goes away.
using ReportVersion = std::integral_constant<std::int64_t, 1>;

struct ReportedAsset {
  Text name;
  AssetStatus status;
  std::optional<Text> remark;
  std::optional<Text> file;
  std::optional<Text> type;
  std::optional<Text> size;
  std::optional<std::int64_t> pixels;
  std::int64_t totalPixels;
  std::optional<AssetManifestEntry> manifestEntry;
};

struct AssetSection {
  std::int64_t totalPixels;
  std::int64_t maximumTotalPixels;
  std::vector<ReportedAsset> entries;
};

struct AssetReport {
  ReportVersion reportVersion;
  ExitCode exitCode;
  AssetSection assets;
};

}  // namespace korrin::host

namespace korrin {

template <>
constexpr auto fieldsOf<host::ReportedAsset>() {
  return std::tuple{
      Field{"name", &host::ReportedAsset::name},
      Field{"status", &host::ReportedAsset::status},
      Field{"remark", &host::ReportedAsset::remark},
      Field{"file", &host::ReportedAsset::file},
      Field{"type", &host::ReportedAsset::type},
      Field{"size", &host::ReportedAsset::size},
      Field{"pixels", &host::ReportedAsset::pixels},
      Field{"totalPixels", &host::ReportedAsset::totalPixels},
      Field{"manifestEntry", &host::ReportedAsset::manifestEntry},
  };
}
static_assert(tableIsComplete<host::ReportedAsset>);

template <>
constexpr auto fieldsOf<host::AssetSection>() {
  return std::tuple{
      Field{"totalPixels", &host::AssetSection::totalPixels},
      Field{"maximumTotalPixels", &host::AssetSection::maximumTotalPixels},
      Field{"entries", &host::AssetSection::entries},
  };
}
static_assert(tableIsComplete<host::AssetSection>);

template <>
constexpr auto fieldsOf<host::AssetReport>() {
  return std::tuple{
      Field{"reportVersion", &host::AssetReport::reportVersion},
      Field{"exitCode", &host::AssetReport::exitCode},
      Field{"assets", &host::AssetReport::assets},
  };
}
static_assert(tableIsComplete<host::AssetReport>);

}  // namespace korrin
