#include "fuzz/seed_documents.h"

#include <type_traits>
#include <utility>

#include "tests/support/full_project.h"

namespace korrin::fuzz {
namespace {

// A part of the project by its type, from lists the first one.
template <class Part>
Part partOf(const KorrinProject& project) {
  if constexpr (std::is_same_v<Part, KorrinProject>) {
    return project;
  } else {
    const PlotItem& item = project.items[0];
    const DocumentVersions versions{.schemaVersion = project.schemaVersion,
                                    .minimumReaderVersion = project.minimumReaderVersion};
    return std::get<Part>(std::tuple{versions,
                                     project.metadata,
                                     project.stage,
                                     project.stage.size,
                                     project.stage.audienceEdge,
                                     project.layers[0],
                                     project.items,
                                     item,
                                     item.kind,
                                     item.style,
                                     item.position,
                                     project.groups[0],
                                     project.inputs[0],
                                     project.monitorMixes[0],
                                     project.equipmentRequirements[0],
                                     project.notes[0],
                                     project.exportSettings,
                                     project.exportSettings.paperSize,
                                     project.assetManifest[0],
                                     List<KorrinProject>{project}});
  }
}

constexpr auto everyKind = std::make_index_sequence<std::tuple_size_v<Documents>>();

// Calls `visit` with the type of that kind.
template <class Visit, std::size_t... place>
void visitKind(std::size_t kind, const Visit& visit, std::index_sequence<place...>) {
  const auto visitPlace = [&visit]<std::size_t at>(std::integral_constant<std::size_t, at>) {
    visit(std::type_identity<std::tuple_element_t<at, Documents>>());
  };
  static_cast<void>(
      ((kind == place && (visitPlace(std::integral_constant<std::size_t, place>()), true)) || ...));
}

}  // namespace

std::string seedDocument(std::size_t kind, const EncodingOptions& options) {
  const auto header = documentHeader(kind, options);
  std::string document(header.begin(), header.end());
  visitKind(
      kind,
      [&]<class Kind>(std::type_identity<Kind>) {
        document += encodeJSON(partOf<Kind>(test::fullProject()), options);
      },
      everyKind);
  return document;
}

bool decodes(const DocumentInput& input) {
  bool isRead = false;
  visitKind(
      input.kind,
      [&]<class Kind>(std::type_identity<Kind>) {
        try {
          static_cast<void>(decodeJSON<Kind>(input.text, input.decoding()));
          isRead = true;
        } catch (const DecodingError&) {
          isRead = false;
        }
      },
      everyKind);
  return isRead;
}

}  // namespace korrin::fuzz
