#include "assets/asset_table.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "korrin/coding/json.h"
#include "korrin/validation/raster_asset_safety.h"

#include "terminal/display_text.h"
#include "terminal/text_table.h"

namespace korrin::host {
namespace {

constexpr std::size_t longestName = 60;
constexpr std::string_view nothing = "-";

std::string pixelText(std::int64_t pixels) { return grouped(static_cast<std::uint64_t>(pixels)); }

std::string_view verdictOf(AssetStatus status) {
  switch (status) {
    case AssetStatus::accepted:
      return "accepted";
    case AssetStatus::missing:
      return "missing";
    case AssetStatus::unreadable:
    case AssetStatus::invalidImage:
    case AssetStatus::imageTooLarge:
    case AssetStatus::wrongByteCount:
      break;
  }
  return "refused";
}

/// What kind of fault the remark explains.
std::string_view faultOf(AssetStatus status) {
  if (status == AssetStatus::invalidImage) return "invalid: ";
  if (status == AssetStatus::imageTooLarge) return "too large: ";
  if (status == AssetStatus::wrongByteCount) return "wrong length: ";
  return "";
}

TableRow rowOf(const JudgedAsset& asset) {
  const bool isAccepted = asset.status == AssetStatus::accepted;
  return {
      .cells = {std::string(verdictOf(asset.status)), shortened(printable(asset.name), longestName),
                std::string(asset.type ? asset.type->name : nothing),
                asset.size.empty() ? std::string(nothing) : asset.size,
                asset.pixels ? pixelText(*asset.pixels) : std::string(nothing),
                pixelText(asset.totalPixels), std::string(faultOf(asset.status)) + asset.remark},
      .colour = isAccepted ? std::nullopt : std::optional(Colour::red)};
}

/// Right-aligns the column, so that digits line up.
void alignRight(std::vector<TableRow>& rows, std::size_t column) {
  std::size_t width = 0;
  for (const TableRow& row : rows) width = std::max(width, row.cells[column].size());
  for (TableRow& row : rows) {
    std::string& cell = row.cells[column];
    cell.insert(0, width - cell.size(), ' ');
  }
}

void addCount(std::string& text, std::size_t count, std::string_view what) {
  if (count == 0) return;
  if (!text.empty()) text += ", ";
  text += grouped(count) + " " + std::string(what);
}

}  // namespace

void printAssets(std::ostream& out, const Terminal& terminal, std::span<const JudgedAsset> assets) {
  std::vector<TableRow> rows = {
      {{"VERDICT", "ASSET", "TYPE", "SIZE", "PIXELS", "TOTAL", "REMARK"}}};
  for (const JudgedAsset& asset : assets)
    if (asset.status != AssetStatus::unreadable) rows.push_back(rowOf(asset));
  if (rows.size() == 1) return;
  for (const std::size_t column : {4u, 5u}) alignRight(rows, column);
  const TableRow head = rows.front();
  rows.erase(rows.begin());
  printTable(out, terminal, head, rows);
}

std::string assetSummary(std::span<const JudgedAsset> assets) {
  const AssetCounts counts = countsOf(assets);
  std::string text;
  addCount(text, counts.accepted, "accepted");
  addCount(text, counts.refused, "refused");
  addCount(text, counts.missing, "missing");
  addCount(text, counts.unreadable, "unreadable");
  const std::int64_t total = assets.empty() ? 0 : assets.back().totalPixels;
  return text + ", " + pixelText(total) + " of " +
         pixelText(RasterAssetSafety::maximumAggregatePixels) + " pixels";
}

void printManifest(std::ostream& out, std::span<const JudgedAsset> assets) {
  std::string_view separator = "\"assetManifest\": [\n  ";
  for (const JudgedAsset& asset : assets) {
    if (asset.status != AssetStatus::accepted || asset.isRepeated) continue;
    out << separator << printableJSON(encodeJSON(asset.entry));
    separator = ",\n  ";
  }
  if (separator.starts_with(',')) out << "\n]\n";
  std::string_view title = "not to embed:\n";
  for (const JudgedAsset& asset : assets) {
    if (asset.status == AssetStatus::accepted || asset.entry.sha256.empty()) continue;
    out << title << "  " << printable(asset.entry.sha256) << "  " << printable(asset.name) << '\n';
    title = "";
  }
}

}  // namespace korrin::host
