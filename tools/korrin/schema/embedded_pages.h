#pragma once

// The pages of docs/ that describe formats, as they were when the program was built.

#include <string_view>

namespace korrin::host {

/// docs/document-format.md
std::string_view documentFormatPage();
/// docs/check-report.md
std::string_view checkReportPage();
/// docs/asset-report.md
std::string_view assetReportPage();

}  // namespace korrin::host
