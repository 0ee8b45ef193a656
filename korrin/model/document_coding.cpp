#include "korrin/model/document_coding.h"

#include "korrin/coding/json_codec.h"

namespace korrin {
namespace json {

template struct Codec<StagePoint>;
template struct Codec<StageSize>;
template struct Codec<AudienceEdge>;
template struct Codec<StageDefinition>;
template struct Codec<PlotItemKind>;
template struct Codec<PlotItemStyle>;
template struct Codec<PlotItem>;
template struct Codec<PlotLayer>;
template struct Codec<PlotGroup>;
template struct Codec<InputChannel>;
template struct Codec<MonitorMix>;
template struct Codec<EquipmentRequirement>;
template struct Codec<ProjectNote>;
template struct Codec<ProjectMetadata>;
template struct Codec<PaperSize>;
template struct Codec<ExportSettings>;
template struct Codec<AssetManifestEntry>;
template struct Codec<KorrinProject>;
template struct Codec<DocumentVersions>;

template struct Codec<List<StagePoint>>;
template struct Codec<List<StageSize>>;
template struct Codec<List<AudienceEdge>>;
template struct Codec<List<StageDefinition>>;
template struct Codec<List<PlotItemKind>>;
template struct Codec<List<PlotItemStyle>>;
template struct Codec<List<PlotItem>>;
template struct Codec<List<PlotLayer>>;
template struct Codec<List<PlotGroup>>;
template struct Codec<List<InputChannel>>;
template struct Codec<List<MonitorMix>>;
template struct Codec<List<EquipmentRequirement>>;
template struct Codec<List<ProjectNote>>;
template struct Codec<List<ProjectMetadata>>;
template struct Codec<List<PaperSize>>;
template struct Codec<List<ExportSettings>>;
template struct Codec<List<AssetManifestEntry>>;
template struct Codec<List<KorrinProject>>;

}  // namespace json

DocumentVersions peekVersions(std::string_view document) {
  return decodeJSON<DocumentVersions>(document);
}

}  // namespace korrin
