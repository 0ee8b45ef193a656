#include "assets/known_assets.h"

#include "korrin/drawing/symbol_catalogue.h"

#include "documents/document_file.h"
#include "terminal/similar_file.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

}  // namespace

KnownAssets knownAssets(const AssetOptions& options) {
  KnownAssets known;
  if (options.useBuiltin) known.identifiers = builtInAssetIDs();
  for (const std::string& path : options.files) {
    try {
      addAssetLines(readFile(path), known.identifiers);
    } catch (const FileError& error) {
      throw FileError(inputName(path) + ": " + error.what() + similarFileSuggestion(path));
    }
  }
  if (known.identifiers.empty())
    known.notRunReason =
        options.files.empty() ? "no known assets given" : "the files of known assets name none";
  return known;
}

void addAssetLines(std::string_view lines, std::unordered_set<Text>& assets) {
  if (lines.starts_with(byteOrderMark)) lines.remove_prefix(byteOrderMark.size());
  while (!lines.empty()) {
    const std::size_t end = lines.find('\n');
    const std::string_view asset = trimmed(lines.substr(0, end));
    if (!asset.empty()) assets.emplace(asset);
    if (end == std::string_view::npos) break;
    lines.remove_prefix(end + 1);
  }
}

}  // namespace korrin::host
