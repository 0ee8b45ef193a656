#pragma once

// The file in which accepted findings stand, beside the plot.

#include <optional>
#include <string>

#include "korrin/review/waivers.h"

#include "documents/document_file.h"

namespace korrin::host {

/// "night.waivers.json" for "night.json", in the same folder.
std::string waiverFileFor(const std::string& plot);

/// A file of waivers that was read and may be replaced.
struct WaiverFile {
  DocumentFile file;
  std::optional<WaiverList> list;  ///< Absent where there is no such file.
};

/// As `readWaivers`, for a list that is going to be written.
WaiverFile openWaivers(const std::string& path);

/// What the file holds; nothing when there is no such file. Throws Refusal when it cannot be read,
/// is no list of waivers, or only a newer version can read it; its sentence begins with the path.
std::optional<WaiverList> readWaivers(const std::string& path);

/// Makes the list the file's whole content, if it still is what was read. Throws FileError.
void writeWaivers(WaiverFile& opened, const WaiverList& list, Console& console);

}  // namespace korrin::host
