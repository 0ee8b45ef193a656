#include "documents/waiver_file.h"

#include "documents/document_file.h"
#include "documents/plot_document.h"

namespace korrin::host {

std::string waiverFileFor(const std::string& plot) {
  constexpr std::string_view ending = ".json";
  std::string stem = plot;
  if (stem.ends_with(ending)) stem.resize(stem.size() - ending.size());
  return stem + ".waivers.json";
}

std::optional<WaiverList> readWaivers(const std::string& path) {
  std::optional<std::string> bytes;
  try {
    bytes = readFileIfPresent(path);
    if (!bytes) return std::nullopt;
    WaiverList list = decodeJSON<WaiverList>(*bytes);
    if (list.schemaVersion > WaiverList::currentSchemaVersion)
      throw Refusal(RefusalReason::needsNewerVersion, path + ": needs a newer version of korrin");
    return list;
  } catch (const FileError& error) {
    throw Refusal(RefusalReason::unreadable, path + ": " + error.what());
  } catch (const DecodingError& error) {
    throw Refusal(RefusalReason::notAPlot, path + ": is no list of waivers: " + error.what());
  }
}

void writeWaivers(const std::string& path, const WaiverList& list) {
  const EncodingOptions pretty = {.prettyPrinted = true,
                                  .sortedKeys = false,
                                  .dates = DateStrategy::iso8601,
                                  .nonFinite = NonFinite::fail};
  replaceFile(path, encodeJSON(list, pretty) + "\n");
}

}  // namespace korrin::host
