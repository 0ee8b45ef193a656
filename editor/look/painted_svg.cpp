#include "editor/look/painted_svg.h"

#include <QList>
#include <QSizeF>
#include <algorithm>
#include <map>
#include <string_view>

namespace korrin::editor {
namespace {

// Texts are escaped, so that none of these can stand in one.
constexpr std::string_view rim =
    " stroke=\"#fff\" stroke-linejoin=\"round\" paint-order=\"stroke\"";
constexpr std::string_view nestedBegin = "<svg x=";
constexpr std::string_view anyEnd = "</svg>";
constexpr std::string_view imageBegin = "<symbol id=\"a";
constexpr std::string_view imageTag = "<image";
constexpr std::string_view imageEnd = "</symbol>";
constexpr std::string_view imageUse = "<use xlink:href=\"#a";

std::string_view attributeIn(std::string_view tag, std::string_view name) {
  const std::string begin = ' ' + std::string(name) + "=\"";
  const std::size_t at = tag.find(begin);
  if (at == std::string_view::npos) return {};
  const std::string_view value = tag.substr(at + begin.size());
  return value.substr(0, value.find('"'));
}

double numberIn(std::string_view tag, std::string_view name) {
  const std::string_view text = attributeIn(tag, name);
  return QByteArray(text.data(), qsizetype(text.size())).toDouble();
}

std::string numberText(double value) { return QByteArray::number(value, 'g', 12).toStdString(); }

// The same pictures, taken over piece by piece.
class PaintedSvg {
 public:
  explicit PaintedSvg(std::string_view svg) : svg_(svg), last_(svg.rfind(anyEnd)) {
    painted_.reserve(svg.size());
  }

  QByteArray painted() {
    while (at_ < svg_.size()) {
      const char c = svg_[at_];
      if ((c == ' ' && skip(rim)) || (c == '<' && takeTag())) continue;
      painted_ += c;
      ++at_;
    }
    return QByteArray::fromStdString(painted_);
  }

 private:
  bool isNext(std::string_view text) const { return svg_.substr(at_).starts_with(text); }
  bool skip(std::string_view text) {
    if (!isNext(text)) return false;
    at_ += text.size();
    return true;
  }
  std::string_view tag() const { return svg_.substr(at_, svg_.find('>', at_) + 1 - at_); }

  bool takeTag() {
    if (isNext(nestedBegin)) {
      painted_ += "<g>";
      at_ += tag().size();
    } else if (at_ != last_ && skip(anyEnd)) {
      painted_ += "</g>";
    } else if (isNext(imageBegin)) {
      keepImage();
    } else if (skip(imageEnd)) {
      painted_ += "</defs>";
    } else if (isNext(imageUse)) {
      placeImage();
    } else {
      return false;
    }
    return true;
  }

  void keepImage() {
    const std::string id(attributeIn(tag(), "id"));
    const std::string_view box = attributeIn(tag(), "viewBox");
    const QList<QByteArray> sides = QByteArray(box.data(), qsizetype(box.size())).split(' ');
    if (sides.size() == 4) sizes_[id] = QSizeF(sides[2].toDouble(), sides[3].toDouble());
    at_ += tag().size();
    if (!isNext(imageTag)) return;
    // The whole image, whose data may be long.
    const std::string_view image = tag();
    painted_.append("<defs><g id=\"").append(id).append("\">").append(image).append("</g>");
    at_ += image.size();
  }

  void placeImage() {
    const std::string_view use = tag();
    const std::string_view name = attributeIn(use, "xlink:href");
    const QSizeF size = sizes_[std::string(name.substr(1))];
    const QSizeF box(numberIn(use, "width"), numberIn(use, "height"));
    const double scale =
        size.isEmpty() ? 0 : std::min(box.width() / size.width(), box.height() / size.height());
    const double x = numberIn(use, "x") + (box.width() - size.width() * scale) / 2;
    const double y = numberIn(use, "y") + (box.height() - size.height() * scale) / 2;
    painted_.append("<use xlink:href=\"").append(name).append("\" transform=\"translate(");
    painted_ += numberText(x) + ' ' + numberText(y) + ") scale(" + numberText(scale) + ")\"/>";
    at_ += use.size();
  }

  std::string_view svg_;
  std::size_t last_;  // the end of the whole picture
  std::size_t at_ = 0;
  std::string painted_;
  std::map<std::string, QSizeF> sizes_;  // of the images kept so far
};

}  // namespace

QByteArray paintedSvg(const std::string& svg) { return PaintedSvg(svg).painted(); }

}  // namespace korrin::editor
