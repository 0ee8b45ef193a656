#pragma once

// How the bytes of a fuzzed document are read: what is to be decoded, with which options, and the
// text.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>

#include "korrin/model/document_coding.h"

namespace korrin::fuzz {

/// What a document can be asked for. The first byte counts them off.
using Documents =
    std::tuple<KorrinProject, StagePoint, StageSize, AudienceEdge, StageDefinition, PlotItemKind,
               PlotItemStyle, PlotItem, PlotLayer, PlotGroup, InputChannel, MonitorMix,
               EquipmentRequirement, ProjectNote, ProjectMetadata, PaperSize, ExportSettings,
               AssetManifestEntry, DocumentVersions, List<PlotItem>, List<KorrinProject>>;

struct DocumentInput {
  std::size_t kind;
  EncodingOptions options;
  std::string_view text;

  DecodingOptions decoding() const {
    return {.dates = options.dates, .nonFinite = options.nonFinite};
  }
};

/// The bytes before the text: one that stands for the kind and one for the options.
inline constexpr std::size_t headerLength = 2;

inline DocumentInput documentInput(std::string_view bytes) {
  const auto byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  if (bytes.size() < headerLength) return {.kind = 0, .options = {}, .text = {}};
  const unsigned options = byte(1);
  return {.kind = byte(0) % std::tuple_size_v<Documents>,
          .options = {.prettyPrinted = (options & 1) != 0,
                      .sortedKeys = (options & 2) != 0,
                      .dates = static_cast<DateStrategy>(options >> 2 & 3),
                      .nonFinite = (options & 16) != 0 ? NonFinite::strings : NonFinite::fail},
          .text = bytes.substr(headerLength)};
}

/// The header that `documentInput` reads back.
inline std::array<char, headerLength> documentHeader(std::size_t kind,
                                                     const EncodingOptions& options) {
  const unsigned bits = (options.prettyPrinted ? 1u : 0u) | (options.sortedKeys ? 2u : 0u) |
                        static_cast<unsigned>(options.dates) << 2 |
                        (options.nonFinite == NonFinite::strings ? 16u : 0u);
  return {static_cast<char>(kind), static_cast<char>(bits)};
}

}  // namespace korrin::fuzz
