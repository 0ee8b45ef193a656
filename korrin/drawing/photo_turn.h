#pragma once

// How a camera was held. A camera that is turned stores a photo as its sensor sees it, and notes
// how to turn the pixels for an upright picture (the orientation tag of Exif). Some renderers obey
// the note and others do not; drawings turn photos themselves, so that all show the same.

#include <cstddef>
#include <span>

#pragma GCC visibility push(default)

namespace korrin {

/// What makes the upright picture of the stored one.
struct PhotoTurn {
  bool isMirrored;   ///< Left and right are exchanged first.
  int quarterTurns;  ///< Then it is turned clockwise so many times by 90 degrees, 0 to 3.

  /// Whether the upright picture is as wide as the stored one is high.
  bool swapsSides() const noexcept { return quarterTurns % 2 != 0; }

  friend bool operator==(const PhotoTurn&, const PhotoTurn&) = default;
};

/// The turn that a JPEG asks for, by the first note in it that makes sense. None, `{false, 0}`, for
/// one without such a note, for damaged ones, and for all that is no JPEG. Never fails.
PhotoTurn photoTurn(std::span<const std::byte> image) noexcept;

/// Makes a JPEG ask for no turn, so that no renderer turns what the caller turns. Its pixels and
/// its length stay; so does all that is no JPEG. Never fails.
void forgetPhotoTurn(std::span<std::byte> image) noexcept;

}  // namespace korrin

#pragma GCC visibility pop
