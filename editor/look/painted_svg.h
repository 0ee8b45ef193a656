#pragma once

// What the drawing library writes, for Qt's painter.

#include <QByteArray>
#include <string>

namespace korrin::editor {

/// The picture in the part of SVG that Qt draws. Qt paints the light rim of a text above its
/// letters, since it knows no order of painting, loses a picture within a picture, and knows no
/// symbol with a view of its own: the rims go, what is nested for clipping becomes a group, and an
/// image that is used several times is scaled wherever it is used.
QByteArray paintedSvg(const std::string& svg);

}  // namespace korrin::editor
