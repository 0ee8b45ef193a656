#pragma once

// From SVG to formats for printing and for the web, by the program rsvg-convert of librsvg. It is
// asked for only when it is needed, so that plots can be drawn where it is not installed.

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

/// The pictures as one file: a page each for PDF; only one picture, with 192 pixels an inch, for
/// PNG. Throws ConverterError when the program is not installed or fails, and FileError.
std::string convertPictures(const std::vector<std::string>& pictures, PictureFormat format);

}  // namespace korrin::host
