#pragma once

// A second mix of contents. A reader that shines on the short, plain and repeated texts of a
// generated plot may do badly on what people write.

#include "korrin/model/project.h"

namespace korrin::benchmarks {

/// The plot with all that it holds replaced by contents of another kind: hardly two texts are
/// alike, a third has 16 to 48 bytes and a tenth has letters outside ASCII; numbers have 17
/// significant digits or nearly as many. Empty texts stay empty. The same at every call.
KorrinProject withVariedContents(const KorrinProject& plot);

}  // namespace korrin::benchmarks
