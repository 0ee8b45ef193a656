// Any bytes that decode to a project can be drawn, safe to open or not: the pictures are closed,
// hold no script and no reference but to themselves, and are the same twice.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "korrin/coding/json.h"
#include "korrin/drawing/outlines.h"
#include "korrin/drawing/plot_drawing.h"
#include "korrin/foundation/precondition.h"
#include "korrin/model/document_coding.h"

namespace korrin {
namespace {

void check(const std::string& picture) {
  const auto holds = [&picture](std::string_view part) {
    return picture.find(part) != std::string::npos;
  };
  precondition(picture.starts_with("<?xml"), "a picture does not begin");
  precondition(picture.ends_with("</svg>\n"), "a picture does not end");
  for (const std::string_view part : {"<script", "<!", "href=\"h", "=\"nan", "=\"inf", "=\"-nan"})
    precondition(!holds(part), "a picture holds what it must not");
}

void draw(const KorrinProject& project) {
  const DrawingOptions options = {
      .assetBytes = [](const Text& sha256) { return std::optional<std::string>(sha256.str()); }};
  for (const std::string& page : drawPages(project, options)) check(page);
  const std::string plot = drawPlot(project);
  check(plot);
  precondition(plot == drawPlot(project), "a drawing differs from itself");
  for (const PlotItem& item : project.items) {
    check(drawSymbol(item));
    itemsAt(project, outlineOf(item)[0]);
  }
}

}  // namespace
}  // namespace korrin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Longer documents are drawn in the same way, only later.
  constexpr std::size_t longest = 20'000;
  if (size > longest) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  std::optional<korrin::KorrinProject> project;
  try {
    project = korrin::decodeJSON<korrin::KorrinProject>(bytes);
  } catch (const korrin::DecodingError&) {
    return 0;
  }
  korrin::draw(*project);
  return 0;
}
