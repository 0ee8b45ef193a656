#include "documents/waiver_file.h"

#include "documents/plot_document.h"

namespace korrin::host {

std::string waiverFileFor(const std::string& plot) {
  constexpr std::string_view ending = ".json";
  std::string stem = plot;
  if (stem.ends_with(ending)) stem.resize(stem.size() - ending.size());
  return stem + ".waivers.json";
}

WaiverFile openWaivers(const std::string& path) {
  WaiverFile opened{.file = DocumentFile(path), .list = std::nullopt};
  try {
    const std::optional<std::string> bytes = openIfPresent(opened.file);
    if (!bytes) return opened;
    opened.list = decodeJSON<WaiverList>(*bytes);
    if (opened.list->schemaVersion > WaiverList::currentSchemaVersion)
      throw Refusal(RefusalReason::needsNewerVersion, path + ": needs a newer version of korrin");
    return opened;
  } catch (const FileError& error) {
    throw Refusal(RefusalReason::unreadable, path + ": " + error.what());
  } catch (const DecodingError& error) {
    throw Refusal(RefusalReason::notAPlot, path + ": is no list of waivers: " + error.what());
  }
}

std::optional<WaiverList> readWaivers(const std::string& path) { return openWaivers(path).list; }

void writeWaivers(WaiverFile& opened, const WaiverList& list, Console& console) {
  save(opened.file, encodeJSON(list, prettyPrinted) + "\n", Replacing::whatWasOpened, console);
}

}  // namespace korrin::host
