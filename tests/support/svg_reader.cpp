#include "tests/support/svg_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>
#include <stdexcept>

#include <gtest/gtest.h>

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

class Fault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

const std::set<std::string, std::less<>> elementNames = {
    "svg", "g", "title", "rect", "ellipse", "line", "polygon", "text", "use", "symbol", "image"};

const std::set<std::string, std::less<>> numberNames = {
    "x",  "y",  "width", "height", "cx",        "cy",           "rx",          "ry",
    "x1", "y1", "x2",    "y2",     "font-size", "stroke-width", "fill-opacity"};

const std::set<std::string, std::less<>> wordNames = {
    "id",          "transform",       "fill",        "stroke",      "stroke-dasharray",
    "points",      "viewBox",         "overflow",    "font-weight", "font-family",
    "text-anchor", "stroke-linejoin", "paint-order", "xlink:href",  "xmlns",
    "xmlns:xlink", "version"};

bool isNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ':' ||
         c == '-';
}

class Reader {
 public:
  Reader(std::string_view svg, SvgPicture& picture) : rest_(svg), picture_(picture) {}

  void read() {
    requireCharacters();
    expect("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    if (!rest_.starts_with("<svg ")) throw Fault("the root is no svg");
    do {
      if (rest_.empty()) throw Fault("an element is not closed");
      if (rest_.starts_with("</")) {
        close();
      } else if (rest_.starts_with('<')) {
        open();
      } else {
        picture_.elements[open_.back()].text += unescaped(rest_.substr(0, rest_.find('<')));
        rest_.remove_prefix(std::min(rest_.find('<'), rest_.size()));
      }
    } while (!open_.empty());
    if (rest_ != "\n") throw Fault("something stands behind the root");
    for (const std::string& reference : references_)
      if (!ids_.contains(reference)) throw Fault("a reference to nothing: " + reference);
  }

 private:
  void expect(std::string_view text) {
    if (!rest_.starts_with(text)) throw Fault("expected " + std::string(text));
    rest_.remove_prefix(text.size());
  }

  std::string name() {
    const auto end = std::ranges::find_if_not(rest_, isNameCharacter);
    std::string name(rest_.begin(), end);
    if (name.empty()) throw Fault("a name is missing");
    rest_.remove_prefix(name.size());
    return name;
  }

  void skipBlanks() {
    while (rest_.starts_with(' ')) rest_.remove_prefix(1);
  }

  void open() {
    expect("<");
    SvgElement element{name(), {}, {}};
    if (!elementNames.contains(element.name)) throw Fault("an element " + element.name);
    while (rest_.starts_with(' ')) {
      skipBlanks();
      if (rest_.starts_with('>') || rest_.starts_with('/')) break;
      std::string attribute = name();
      expect("=\"");
      const std::size_t end = rest_.find('"');
      if (end == std::string_view::npos) throw Fault("a value without an end");
      std::string value = unescaped(rest_.substr(0, end));
      rest_.remove_prefix(end + 1);
      check(element.name, attribute, value);
      if (!element.attributes.emplace(std::move(attribute), std::move(value)).second)
        throw Fault("an attribute twice");
    }
    const bool isClosed = rest_.starts_with('/');
    if (isClosed) rest_.remove_prefix(1);
    expect(">");
    picture_.elements.push_back(std::move(element));
    if (!isClosed) open_.push_back(picture_.elements.size() - 1);
  }

  void close() {
    expect("</");
    if (open_.empty() || name() != picture_.elements[open_.back()].name)
      throw Fault("elements do not nest");
    open_.pop_back();
    expect(">");
  }

  void check(const std::string& element, const std::string& name, const std::string& value) {
    if (numberNames.contains(name)) {
      if (value != "100%") requireNumbers(value, name);
    } else if (!wordNames.contains(name)) {
      throw Fault("an attribute " + name);
    }
    if (name == "points" || name == "viewBox" || name == "stroke-dasharray" || name == "transform")
      requireNumbers(value, name);
    if (name == "fill" || name == "stroke") requireColour(value);
    if (name == "id" && !ids_.insert(value).second) throw Fault("an id twice");
    if (name.starts_with("xmlns") && value != "http://www.w3.org/2000/svg" &&
        value != "http://www.w3.org/1999/xlink")
      throw Fault("a namespace " + value);
    if (name != "xlink:href") return;
    if (element == "image" && value.starts_with("data:image/")) return;
    if (element != "use" || !value.starts_with('#')) throw Fault("a reference to " + value);
    references_.push_back(value.substr(1));
  }

  /// Numbers with blanks, commas, units and names of transformations between them.
  static void requireNumbers(std::string_view text, const std::string& name) {
    const char* at = text.data();
    const char* const end = at + text.size();
    std::size_t count = 0;
    while (at != end) {
      if (const std::string_view between = " ,()m"; between.find(*at) != std::string_view::npos) {
        ++at;
        continue;
      }
      const std::string_view left(at, end);
      const std::string_view words[] = {"translate", "rotate", "scale"};
      const auto word = std::ranges::find_if(
          words, [left](std::string_view each) { return left.starts_with(each); });
      if (name == "transform" && word != std::end(words)) {
        at += word->size();
        continue;
      }
      double value = 0;
      const auto result = std::from_chars(at, end, value, std::chars_format::fixed);
      const bool isNumber = result.ec == std::errc() && result.ptr != at &&
                            (*at == '-' || (*at >= '0' && *at <= '9'));
      if (!isNumber || !(std::fabs(value) <= 1e6))
        throw Fault("no number in " + name + ": " + std::string(text));
      const bool isExtent = name == "width" || name == "height" || name == "rx" || name == "ry";
      if (isExtent && value < 0) throw Fault("a negative extent");
      at = result.ptr;
      ++count;
    }
    if (count == 0) throw Fault("no number in " + name);
  }

  static void requireColour(std::string_view value) {
    if (value == "none") return;
    const bool isColour =
        (value.size() == 4 || value.size() == 7) && value[0] == '#' &&
        value.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
    if (!isColour) throw Fault("no colour: " + std::string(value));
  }

  static std::string unescaped(std::string_view text) {
    static const std::map<std::string, char, std::less<>> escapes = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}};
    std::string result;
    while (!text.empty()) {
      const char c = text.front();
      if (c == '<' || c == '>') throw Fault("an angle bracket in a text");
      if (c != '&') {
        result += c;
        text.remove_prefix(1);
        continue;
      }
      const std::size_t end = std::min(text.find(';'), text.size());
      const auto escape = escapes.find(text.substr(1, std::max<std::size_t>(end, 1) - 1));
      if (escape == escapes.end()) throw Fault("an escape that is none");
      result += escape->second;
      text.remove_prefix(end + 1);
    }
    return result;
  }

  /// Well-formed UTF-8, and of its characters those that XML 1.0 allows and recommends.
  void requireCharacters() const {
    // A text replaces what is ill-formed.
    if (Text(rest_).str() != rest_) throw Fault("no well-formed UTF-8");
    for (const char character : rest_) {
      const auto byte = static_cast<unsigned char>(character);
      if ((byte < 0x20 && byte != '\n') || byte == 0x7F) throw Fault("a control character");
    }
    for (const std::string_view none : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"})
      if (rest_.find(none) != std::string_view::npos) throw Fault("a character that is none");
  }

  std::string_view rest_;
  SvgPicture& picture_;
  std::vector<std::size_t> open_;
  std::set<std::string> ids_;
  std::vector<std::string> references_;
};

}  // namespace

SvgPicture readSvg(std::string_view svg) {
  SvgPicture picture;
  try {
    Reader(svg, picture).read();
  } catch (const Fault& fault) {
    picture.fault = fault.what();
  }
  return picture;
}

std::vector<std::string> textsOf(std::string_view svg) {
  const SvgPicture picture = readSvg(svg);
  EXPECT_EQ(picture.fault, "");
  std::vector<std::string> texts;
  for (const SvgElement& element : picture.elements)
    if (element.name == "text") texts.push_back(element.text);
  return texts;
}

std::size_t countOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

KorrinProject fixedExample() {
  TestEnvironment environment;
  return KorrinProject::example(environment);
}

}  // namespace korrin::test
