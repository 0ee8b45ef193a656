#include "editor/look/painted_svg.h"

#include <string_view>

namespace korrin::editor {
namespace {

// Texts are escaped, so that none of these can stand in one.
constexpr std::string_view rim =
    " stroke=\"#fff\" stroke-linejoin=\"round\" paint-order=\"stroke\"";
constexpr std::string_view nestedBegin = "<svg x=";
constexpr std::string_view anyEnd = "</svg>";

}  // namespace

QByteArray paintedSvg(std::string svg) {
  std::string painted;
  painted.reserve(svg.size());
  const std::size_t last = svg.rfind(anyEnd);
  for (std::size_t at = 0; at < svg.size();) {
    const std::string_view rest = std::string_view(svg).substr(at);
    if (svg[at] == ' ' && rest.starts_with(rim)) {
      at += rim.size();
    } else if (svg[at] == '<' && rest.starts_with(nestedBegin)) {
      painted += "<g>";
      at = svg.find('>', at) + 1;
    } else if (svg[at] == '<' && at != last && rest.starts_with(anyEnd)) {
      painted += "</g>";
      at += anyEnd.size();
    } else {
      painted += svg[at++];
    }
  }
  return QByteArray::fromStdString(painted);
}

}  // namespace korrin::editor
