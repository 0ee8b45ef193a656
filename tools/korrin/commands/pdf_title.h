#pragma once

// The title that readers of a PDF show in place of its file's name.

#include <string>
#include <string_view>

namespace korrin::host {

/// The file with that title, added as PDF adds changes: at its end. A file whose trailer is not of
/// the classic form, as cairo writes it, comes back as it is.
std::string withTitle(std::string pdf, std::string_view title);

}  // namespace korrin::host
