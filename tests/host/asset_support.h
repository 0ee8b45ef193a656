#pragma once

// Images and PDFs for the tests of the host, as the strings that files hold.

#include <cstdint>
#include <string>
#include <string_view>

#include "korrin/model/project.h"

#include "tests/support/byte_writer.h"

namespace korrin::host {

std::string stringOf(const test::Bytes& bytes);

/// The header of a PNG of that size.
std::string pngOf(std::uint32_t width, std::uint32_t height);

/// A PDF of one page with that media box.
std::string pdfOf(std::string_view box);

/// A manifest entry that fits the bytes.
AssetManifestEntry entryFor(std::string_view bytes, std::string_view filename,
                            std::string_view mediaType);

/// The plot of the five-piece band with those entries in its manifest and a symbol for each.
KorrinProject plotWith(const List<AssetManifestEntry>& entries);

}  // namespace korrin::host
