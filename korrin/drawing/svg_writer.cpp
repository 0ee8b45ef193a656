#include "korrin/drawing/svg_writer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace korrin::drawing {
namespace {

// Beyond this renderers lose precision or overflow; no paper is a kilometre wide.
constexpr double farAway = 1e6;

// Renderers take for each character the first font that has it, whatever is generic last. Fonts of
// coloured emoji are not named: they hold digits, which would be taken from them.
constexpr std::string_view fonts =
    "sans-serif, 'DejaVu Sans', 'Noto Sans', 'Liberation Sans', 'Noto Sans CJK JP', Symbola";

// Room for the height of a picture that is known only when all is written.
constexpr std::size_t gapLength = 64;

// A string that grows is copied, and twice as large for that time. Strings of this size are given
// back to the system one by one when they are joined; smaller ones allocators may keep.
constexpr std::size_t largestPart = std::size_t{32} << 20;

constexpr std::string_view replacement = "\uFFFD";

/// What stands for the byte at the start of `rest`, which XML obeys or does not allow; empty for
/// all others.
std::string_view escapeOf(std::string_view rest) {
  switch (rest.front()) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    default:
      break;
  }
  const auto byte = static_cast<unsigned char>(rest.front());
  if (byte < 0x20 || byte == 0x7F) return replacement;
  // U+FFFE and U+FFFF are no characters of XML.
  if (rest.starts_with("\xEF\xBF\xBE") || rest.starts_with("\xEF\xBF\xBF")) return replacement;
  return {};
}

/// A number in at most this many characters.
using NumberText = std::array<char, 16>;

std::string_view write(double value, NumberText& text) {
  if (std::isnan(value)) value = farAway;
  std::int64_t thousandths = std::llround(std::clamp(value, -farAway, farAway) * 1000);
  char* at = text.data();
  if (thousandths < 0) {
    *at++ = '-';
    thousandths = -thousandths;
  }
  at = std::to_chars(at, text.data() + text.size(), thousandths / 1000).ptr;
  if (auto rest = static_cast<int>(thousandths % 1000); rest > 0) {
    *at++ = '.';
    for (int unit = 100; rest > 0; rest %= unit, unit /= 10)
      *at++ = static_cast<char>('0' + rest / unit);
  }
  return {text.data(), at};
}

void appendBase64(std::string& text, std::string_view bytes) {
  constexpr std::string_view digits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  text.reserve(text.size() + (bytes.size() + 2) / 3 * 4 + 64);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t word = 0;
    for (std::size_t k = 0; k < 3; ++k)
      word = word << 8 | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0u);
    for (std::size_t k = 0; k < 4; ++k)
      text += k <= count ? digits[word >> (18 - 6 * k) & 63] : '=';
  }
}

/// The attributes of a picture that depend on its height.
std::string measures(double width, double height) {
  const std::string h = svgNumber(height);
  return " height=\"" + h + "mm\" viewBox=\"0 0 " + svgNumber(width) + " " + h + "\"";
}

}  // namespace

std::string svgNumber(double value) {
  NumberText text{};
  return std::string(write(value, text));
}

/// Begins another string where this one is large.
void SvgWriter::rollOver() {
  if (content_.size() < largestPart) return;
  constexpr std::size_t slack = 4096;
  std::string fresh;
  fresh.reserve(largestPart + slack);
  written_.push_back(std::move(content_));
  content_ = std::move(fresh);
}

void SvgWriter::add(const SvgWriter& other) {
  for (const std::string& part : other.written_) {
    content_ += part;
    rollOver();
  }
  content_ += other.content_;
  rollOver();
}

std::string SvgWriter::content() const {
  std::string whole;
  for (const std::string& part : written_) whole += part;
  return whole += content_;
}

std::string SvgWriter::take() {
  if (written_.empty()) return std::move(content_);
  std::size_t size = content_.size();
  for (const std::string& part : written_) size += part.size();
  std::string whole;
  whole.reserve(size);
  for (std::string& part : written_) {
    whole += part;
    std::string().swap(part);  // an assignment would keep the memory
  }
  written_.clear();
  whole += content_;
  std::string().swap(content_);
  return whole;
}

void SvgWriter::number(double value) {
  NumberText text{};
  content_ += write(value, text);
}

void SvgWriter::attribute(std::string_view name, double value) {
  content_.append(" ").append(name).append("=\"");
  number(value);
  content_ += '"';
}

// A negative extent is an error to renderers.
void SvgWriter::extent(std::string_view name, double value) {
  attribute(name, value < 0 ? 0 : value);
}

void SvgWriter::word(std::string_view name, std::string_view value) {
  content_.append(" ").append(name).append("=\"").append(value).append("\"");
}

void SvgWriter::escaped(std::string_view text) {
  std::size_t written = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool isPlain = (byte >= 0x40 && byte < 0x7F) || (byte > 0x7F && byte != 0xEF);
    if (isPlain) continue;
    const std::string_view escape = escapeOf(text.substr(i));
    if (escape.empty()) continue;
    content_.append(text.substr(written, i - written)).append(escape);
    if (byte == 0xEF) i += 2;
    written = i + 1;
  }
  content_.append(text.substr(written));
}

/// A height of 0 is not known yet.
void SvgWriter::begin(double width, double height, std::string_view title) {
  content_ +=
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
      "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\"";
  word("width", svgNumber(width) + "mm");
  width_ = width;
  if (height > 0) {
    content_ += measures(width, height);
  } else {
    heightGap_ = content_.size();
    content_.append(gapLength, ' ');
  }
  word("font-family", fonts);
  word("fill", inkColour);
  content_ += ">\n<title>";
  escaped(title);
  content_ += "</title>\n";
}

void SvgWriter::beginSymbol(double width, double height, std::string_view title) {
  // Thinner than any line, but not nothing.
  constexpr double least = 0.001;
  begin(std::max(least, width), std::max(least, height), title);
}

void SvgWriter::beginDocument(double width, double height, std::string_view title) {
  begin(width, height, title);
  content_ += "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n";
}

void SvgWriter::beginDocument(double width, std::string_view title) {
  beginDocument(width, 0, title);
}

void SvgWriter::endDocument(double height) {
  if (heightGap_ > 0) {
    const std::string text = measures(width_, height);
    std::string& first = written_.empty() ? content_ : written_.front();
    first.replace(heightGap_, text.size(), text);
    heightGap_ = 0;
  }
  content_ += "</svg>\n";
}

void SvgWriter::paint(const Paint& paint) {
  word("fill", paint.fill.empty() ? "none" : paint.fill);
  if (paint.fillOpacity < 1) attribute("fill-opacity", paint.fillOpacity);
  if (!paint.stroke.empty()) {
    word("stroke", paint.stroke);
    attribute("stroke-width", paint.strokeWidth);
    if (!paint.dashes.empty()) word("stroke-dasharray", paint.dashes);
  }
  content_ += "/>\n";
}

void SvgWriter::rectangle(const Box& box, const Paint& how, double cornerRadius) {
  content_ += "<rect";
  attribute("x", box.x);
  attribute("y", box.y);
  extent("width", box.width);
  extent("height", box.height);
  if (cornerRadius > 0) attribute("rx", cornerRadius);
  paint(how);
}

void SvgWriter::ellipse(Place centre, double radiusX, double radiusY, const Paint& how) {
  content_ += "<ellipse";
  attribute("cx", centre.x);
  attribute("cy", centre.y);
  extent("rx", radiusX);
  extent("ry", radiusY);
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
  for (const Place& corner : corners) {
    number(corner.x);
    content_ += ',';
    number(corner.y);
    content_ += ' ';
  }
  content_.back() = '"';
  paint(how);
}

void SvgWriter::beginText(Place place, const TextStyle& style) {
  content_ += "<text";
  attribute("x", place.x);
  attribute("y", place.y);
  if (style.size > 0) attribute("font-size", style.size);
  if (style.isBold) word("font-weight", "bold");
  if (style.anchor != Anchor::start)
    word("text-anchor", style.anchor == Anchor::middle ? "middle" : "end");
  if (!style.colour.empty()) word("fill", style.colour);
}

void SvgWriter::text(Place place, std::string_view text, const TextStyle& style) {
  beginText(place, style);
  content_ += '>';
  escaped(text);
  content_ += "</text>\n";
  rollOver();
}

void SvgWriter::haloText(Place place, std::string_view text, const TextStyle& style) {
  beginText(place, style);
  attribute("stroke-width", style.size / 4);
  content_ += '>';
  escaped(text);
  content_ += "</text>\n";
  rollOver();
}

void SvgWriter::place(Place place, double degrees, bool flipX, bool flipY) {
  content_ += " transform=\"translate(";
  number(place.x);
  content_ += ' ';
  number(place.y);
  content_ += ')';
  const double turn = std::fmod(degrees, 360.0);
  if (turn != 0) {
    content_ += " rotate(";
    number(turn);
    content_ += ')';
  }
  if (flipX || flipY)
    content_.append(" scale(").append(flipX ? "-1" : "1").append(flipY ? " -1)" : " 1)");
  content_ += '"';
}

void SvgWriter::beginPlaced(Place at, double degrees, bool flipX, bool flipY) {
  content_ += "<g";
  place(at, degrees, flipX, flipY);
  content_ += ">\n";
}

void SvgWriter::beginNamed(std::size_t name) {
  content_.append("<g id=\"s").append(std::to_string(name)).append("\">\n");
}

void SvgWriter::reuse(std::size_t name, Place at, double degrees, bool flipX, bool flipY) {
  content_.append("<use xlink:href=\"#s").append(std::to_string(name)).append("\"");
  place(at, degrees, flipX, flipY);
  content_ += "/>\n";
  rollOver();
}

void SvgWriter::beginTexts(double size) {
  content_ += "<g";
  attribute("font-size", size);
  content_ += ">\n";
}

void SvgWriter::beginHaloTexts() {
  content_ +=
      "<g font-weight=\"bold\" text-anchor=\"middle\" stroke=\"#fff\" stroke-linejoin=\"round\" "
      "paint-order=\"stroke\">\n";
}

void SvgWriter::beginTitled(std::string_view title) {
  content_ += "<g><title>";
  escaped(title);
  content_ += "</title>\n";
}

void SvgWriter::endGroup() {
  content_ += "</g>\n";
  rollOver();
}

// A nested picture clips what does not fit it, and needs no name as a clipping path would.
void SvgWriter::beginClipped(const Box& box) {
  content_ += "<svg";
  attribute("x", box.x);
  attribute("y", box.y);
  extent("width", box.width);
  extent("height", box.height);
  content_ += " viewBox=\"";
  for (const double value : {box.x, box.y, std::max(0.0, box.width), std::max(0.0, box.height)}) {
    number(value);
    content_ += ' ';
  }
  content_.back() = '"';
  content_ += " overflow=\"hidden\">\n";
}

void SvgWriter::endClipped() { content_ += "</svg>\n"; }

void SvgWriter::keepImage(std::size_t name, const StoredImage& stored) {
  const auto [width, height, turn, mediaType, bytes] = stored;
  content_.append("<symbol id=\"a").append(std::to_string(name)).append("\" viewBox=\"0 0 ");
  number(turn.swapsSides() ? height : width);
  content_ += ' ';
  number(turn.swapsSides() ? width : height);
  content_ += "\"><image";
  attribute("width", width);
  attribute("height", height);
  if (turn != PhotoTurn{}) {
    // Mirrored and turned about its corner, the image lies beside the box; this is the way back.
    const double mirrored = turn.isMirrored ? width : 0;
    const Place corners[] = {
        {mirrored, 0}, {height, mirrored}, {width - mirrored, height}, {0, width - mirrored}};
    place(corners[turn.quarterTurns], 90.0 * turn.quarterTurns, turn.isMirrored, false);
  }
  content_.append(" xlink:href=\"data:").append(mediaType).append(";base64,");
  appendBase64(content_, bytes);
  content_ += "\"/></symbol>\n";
}

void SvgWriter::image(std::size_t name, const Box& box) {
  content_.append("<use xlink:href=\"#a").append(std::to_string(name)).append("\"");
  attribute("x", box.x);
  attribute("y", box.y);
  extent("width", box.width);
  extent("height", box.height);
  content_ += "/>\n";
}

}  // namespace korrin::drawing
