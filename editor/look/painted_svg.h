#pragma once

// What the drawing library writes, for Qt's painter.

#include <QByteArray>
#include <string>

namespace korrin::editor {

/// The picture in the part of SVG that Qt draws. Qt paints the light rim of a text above its
/// letters, since it knows no order of painting, and loses a picture within a picture: the rims go,
/// and what is nested for clipping becomes a group.
QByteArray paintedSvg(std::string svg);

}  // namespace korrin::editor
