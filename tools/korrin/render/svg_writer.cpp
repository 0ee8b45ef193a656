#include "svg_writer.h"

#include <array>
#include <charconv>
#include <cmath>

#include "korrin/foundation/text.h"

namespace korrin::host {
namespace {

// Beyond this renderers lose precision or overflow; no paper is a kilometre wide.
constexpr double farAway = 1e6;

std::string_view word(Anchor anchor) {
  switch (anchor) {
    case Anchor::middle:
      return "middle";
    case Anchor::end:
      return "end";
    case Anchor::start:
      break;
  }
  return "start";
}

bool isXmlControl(unsigned char byte) { return byte < 0x20 || byte == 0x7F; }

}  // namespace

std::string svgNumber(double value) {
  if (std::isnan(value)) value = farAway;
  value = std::clamp(value, -farAway, farAway);
  value = std::round(value * 1000) / 1000;
  if (value == 0) return "0";  // and not -0
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed);
  return std::string(digits.begin(), end.ptr);
}

std::string xmlText(std::string_view text) {
  const Text wellFormed(text);
  const std::string_view bytes = wellFormed;
  std::string escaped;
  escaped.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char byte = bytes[i];
    const std::string_view rest = bytes.substr(i);
    if (byte == '&') {
      escaped += "&amp;";
    } else if (byte == '<') {
      escaped += "&lt;";
    } else if (byte == '>') {
      escaped += "&gt;";
    } else if (byte == '"') {
      escaped += "&quot;";
    } else if (isXmlControl(static_cast<unsigned char>(byte))) {
      escaped += ' ';
    } else if (rest.starts_with("\xEF\xBF\xBE") || rest.starts_with("\xEF\xBF\xBF")) {
      escaped += "\uFFFD";  // U+FFFE and U+FFFF are no characters of XML
      i += 2;
    } else {
      escaped += byte;
    }
  }
  return escaped;
}

void SvgWriter::attribute(std::string_view name, double value) {
  content_.append(" ").append(name).append("=\"").append(svgNumber(value)).append("\"");
}

void SvgWriter::paint(const Paint& paint) {
  content_.append(" fill=\"").append(paint.fill.empty() ? "none" : paint.fill).append("\"");
  if (paint.fillOpacity < 1) attribute("fill-opacity", paint.fillOpacity);
  if (!paint.stroke.empty()) {
    content_.append(" stroke=\"").append(paint.stroke).append("\"");
    attribute("stroke-width", paint.strokeWidth);
    if (!paint.dashes.empty())
      content_.append(" stroke-dasharray=\"").append(paint.dashes).append("\"");
  }
  content_ += "/>\n";
}

void SvgWriter::rectangle(const Box& box, const Paint& how, double cornerRadius) {
  content_ += "<rect";
  attribute("x", box.x);
  attribute("y", box.y);
  attribute("width", box.width);
  attribute("height", box.height);
  if (cornerRadius > 0) attribute("rx", cornerRadius);
  paint(how);
}

void SvgWriter::ellipse(Place centre, double radiusX, double radiusY, const Paint& how) {
  content_ += "<ellipse";
  attribute("cx", centre.x);
  attribute("cy", centre.y);
  attribute("rx", radiusX);
  attribute("ry", radiusY);
  paint(how);
}

void SvgWriter::line(Place from, Place to, const Paint& how) {
  content_ += "<line";
  attribute("x1", from.x);
  attribute("y1", from.y);
  attribute("x2", to.x);
  attribute("y2", to.y);
  paint(how);
}

void SvgWriter::polygon(std::span<const Place> corners, const Paint& how) {
  content_ += "<polygon points=\"";
  for (const Place& corner : corners)
    content_.append(svgNumber(corner.x)).append(",").append(svgNumber(corner.y)).append(" ");
  content_.back() = '"';
  paint(how);
}

void SvgWriter::text(Place place, std::string_view text, const TextStyle& style) {
  content_ += "<text";
  attribute("x", place.x);
  attribute("y", place.y);
  attribute("font-size", style.size);
  if (style.isBold) content_ += " font-weight=\"bold\"";
  if (style.anchor != Anchor::start)
    content_.append(" text-anchor=\"").append(word(style.anchor)).append("\"");
  content_.append(" fill=\"").append(style.colour).append("\"");
  if (style.hasHalo) {
    content_ += " stroke=\"#fff\" stroke-linejoin=\"round\" paint-order=\"stroke\"";
    attribute("stroke-width", style.size / 4);
  }
  content_.append(">").append(xmlText(text)).append("</text>\n");
}

void SvgWriter::beginPlaced(Place place, double degrees, bool flipX, bool flipY) {
  content_.append("<g transform=\"translate(").append(svgNumber(place.x)).append(" ");
  content_.append(svgNumber(place.y)).append(")");
  const double turn = std::fmod(degrees, 360.0);
  if (turn != 0) content_.append(" rotate(").append(svgNumber(turn)).append(")");
  if (flipX || flipY)
    content_.append(" scale(").append(flipX ? "-1" : "1").append(flipY ? " -1)" : " 1)");
  content_ += "\">\n";
}

// A nested picture clips what does not fit it, and needs no name as a clipping path would.
void SvgWriter::beginClipped(const Box& box) {
  content_ += "<svg";
  attribute("x", box.x);
  attribute("y", box.y);
  attribute("width", box.width);
  attribute("height", box.height);
  content_.append(" viewBox=\"").append(svgNumber(box.x)).append(" ").append(svgNumber(box.y));
  content_.append(" ").append(svgNumber(box.width)).append(" ").append(svgNumber(box.height));
  content_ += "\" overflow=\"hidden\">\n";
}

void SvgWriter::endPlaced() { content_ += "</g>\n"; }

void SvgWriter::endClipped() { content_ += "</svg>\n"; }

std::string svgDocument(double width, double height, std::string_view title,
                        std::string_view content) {
  const std::string w = svgNumber(width);
  const std::string h = svgNumber(height);
  std::string document = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  document += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + w + "mm\" height=\"" + h +
              "mm\" viewBox=\"0 0 " + w + " " + h + "\" font-family=\"sans-serif\">\n";
  document += "<title>" + xmlText(title) + "</title>\n";
  document += "<rect width=\"" + w + "\" height=\"" + h + "\" fill=\"#fff\"/>\n";
  document.append(content).append("</svg>\n");
  return document;
}

}  // namespace korrin::host
