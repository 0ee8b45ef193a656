#pragma once

// From SVG to formats for printing and for the web, by the program rsvg-convert of librsvg. It is
// asked for only when it is needed, so that plots can be drawn where it is not installed.

#include <optional>
#include <string>
#include <vector>

#include "terminal/failure.h"

namespace korrin::host {

enum class PictureFormat { pdf, png };

/// `what()` is a sentence that says what is missing or failed.
class ConverterError : public Failure {
 public:
  using Failure::Failure;
};

/// What a file of that format says beside its pictures.
struct PictureDetails {
  std::string title = {};                             ///< Of a PDF.
  std::optional<unsigned> pixelWidth = std::nullopt;  ///< Of a PNG; absent for 192 pixels an inch.
};

/// The pictures as one file: a page each for PDF; only one picture for PNG. Throws ConverterError
/// when the program is not installed or fails, and FileError.
std::string convertPictures(const std::vector<std::string>& pictures, PictureFormat format,
                            const PictureDetails& details = {});

}  // namespace korrin::host
