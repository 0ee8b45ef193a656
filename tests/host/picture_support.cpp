#include "picture_support.h"

#include <cctype>

#include <gtest/gtest.h>

#include "tests/support/sample_project.h"

namespace korrin::host {
namespace {

std::string unescaped(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    if (text.front() != '&') {
      EXPECT_FALSE(text.front() == '<' || text.front() == '>');
      EXPECT_TRUE(text.front() == '\n' || static_cast<unsigned char>(text.front()) >= 0x20);
      result += text.front();
      text.remove_prefix(1);
      continue;
    }
    const std::size_t end = text.find(';');
    const std::string_view name = text.substr(1, end - 1);
    if (name == "amp") {
      result += '&';
    } else if (name == "lt") {
      result += '<';
    } else if (name == "gt") {
      result += '>';
    } else if (name == "quot") {
      result += '"';
    } else {
      ADD_FAILURE() << "an escape that is none: " << name;
    }
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return result;
}

std::string_view nameOf(std::string_view tag) {
  std::size_t length = 0;
  while (length < tag.size() && std::isalnum(static_cast<unsigned char>(tag[length]))) ++length;
  return tag.substr(0, length);
}

}  // namespace

std::vector<std::string> textsOf(std::string_view svg) {
  std::vector<std::string> texts;
  std::vector<std::string_view> open;
  EXPECT_TRUE(svg.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "));
  svg.remove_prefix(svg.find('\n'));
  while (!svg.empty()) {
    const std::size_t begin = svg.find('<');
    const std::string content = unescaped(svg.substr(0, begin));
    if (!open.empty() && open.back() == "text") texts.push_back(content);
    if (begin == std::string_view::npos) break;
    const std::size_t end = svg.find('>', begin);
    if (end == std::string_view::npos) {
      ADD_FAILURE() << "a tag without an end";
      break;
    }
    std::string_view tag = svg.substr(begin + 1, end - begin - 1);
    EXPECT_EQ(countOf(tag, "\"") % 2, 0u) << tag;
    EXPECT_EQ(countOf(tag, "="), countOf(tag, "=\"")) << tag;
    if (tag.starts_with('/')) {
      EXPECT_FALSE(open.empty() || open.back() != tag.substr(1)) << tag;
      if (!open.empty()) open.pop_back();
    } else if (!tag.ends_with('/')) {
      open.push_back(nameOf(tag));
    }
    svg.remove_prefix(end + 1);
  }
  EXPECT_TRUE(open.empty());
  return texts;
}

std::size_t countOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

KorrinProject fixedExample() {
  test::TestEnvironment environment;
  return KorrinProject::example(environment);
}

}  // namespace korrin::host
