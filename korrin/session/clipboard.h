#pragma once

// Copying and pasting parts of a plot.
//
// A fragment is a record of documents: `encodeJSON` gives what a system clipboard carries,
// `decodeJSON` reads it. Whoever filled the clipboard chose every byte of it. Pasting takes time
// and memory nearly linear in the fragment, whatever it holds, and links nothing to what has the
// same identifiers elsewhere; but like every command it validates nothing. A host pastes into a
// copy of the project first and asks `DocumentValidation` before it performs the command.

#include <optional>

#include "korrin/coding/json.h"
#include "korrin/commands/document_command.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A part of a plot, with all that it takes to stand elsewhere.
struct PlotFragment {
  List<PlotItem> items;                    ///< In stacking order within a layer.
  List<PlotGroup> groups;                  ///< Groups of these items.
  List<PlotLayer> layers;                  ///< The layers that the items name.
  List<AssetManifestEntry> assetManifest;  ///< The images and PDFs that the items name.

  friend bool operator==(const PlotFragment&, const PlotFragment&) = default;
};

template <>
constexpr auto fieldsOf<PlotFragment>() {
  return std::tuple{
      Field{"items", &PlotFragment::items},
      Field{"groups", &PlotFragment::groups},
      Field{"layers", &PlotFragment::layers},
      Field{"assetManifest", &PlotFragment::assetManifest},
  };
}
static_assert(tableIsComplete<PlotFragment>);

/// The selected items, locked or not, with their layers and images; everything in the project's
/// order. A group comes along with those of its members that are copied, when these are two or
/// more; every other `groupID` becomes absent. Unknown identifiers are passed over.
///
///     items   A B C D     groups  (A B C)     copy A C   ->   A C   (A C)
///                                             copy A D   ->   A D
PlotFragment fragmentOf(const KorrinProject& project, const IDSet& selection);

/// Where a fragment goes.
struct PasteOptions {
  StagePoint offset = StagePoint::zero;  ///< Added to every position, in millimetres.
  /// The layer for items whose own is not found; see `pastingCommand`.
  std::optional<UUID> layerID = std::nullopt;
};

/// A paste that is ready to be performed.
struct Paste {
  DocumentCommand command;  ///< Made for the project as it stands.
  List<UUID> itemIDs;       ///< The new items, in the fragment's order: what to select afterwards.
};

/// The command that adds the fragment to the project, its items at the end, behind them its groups
/// at the end of the groups. Nothing when the fragment has no items. The project stays as it is,
/// and undo is exact.
///
/// Every item gets a fresh identifier, in order, then every group; what the fragment's groups and
/// items say of each other follows. A member or a `groupID` that the fragment does not hold is
/// dropped, and a group left without members is, too, and takes no identifier. Where identifiers
/// repeat in a fragment, the first one is meant.
///
/// An item goes on the project's layer with the identifier of its own, hidden or locked as it may
/// be; otherwise on the first one with an equal name; otherwise on
/// `resolvedActiveLayerID(options.layerID)`. A project without layers gets those of the fragment.
/// Entries of the asset manifest are appended where the project has none with their digest.
std::optional<Paste> pastingCommand(const KorrinProject& project, const PlotFragment& fragment,
                                    const PasteOptions& options = {},
                                    const Environment& environment = Environment::system());

}  // namespace korrin

#pragma GCC visibility pop
