#include "editing/edit_words.h"

#include <cstddef>

namespace korrin::host {
namespace {

constexpr std::string_view blankBytes = " \t\r\n";
constexpr std::string_view escapes = "\"\\nrt";
constexpr std::string_view unescaped = "\"\\\n\r\t";  // what each stands for

bool isBlank(char byte) { return blankBytes.find(byte) != std::string_view::npos; }

/// Appends what stands between the quote at `position` and its partner, and moves behind it.
void takeQuoted(std::string_view line, std::size_t& position, std::string& word) {
  for (++position; position < line.size(); ++position) {
    if (line[position] == '"') {
      ++position;
      return;
    }
    const std::size_t escape = line[position] == '\\' && position + 1 < line.size()
                                   ? escapes.find(line[position + 1])
                                   : std::string_view::npos;
    if (escape != std::string_view::npos) ++position;
    word += escape == std::string_view::npos ? line[position] : unescaped[escape];
  }
  throw LineError("a double quote has no partner");
}

}  // namespace

std::vector<std::string> wordsOf(std::string_view line) {
  std::vector<std::string> words;
  std::size_t position = 0;
  for (;;) {
    while (position < line.size() && isBlank(line[position])) ++position;
    if (position == line.size() || line[position] == '#') return words;
    std::string word;
    while (position < line.size() && !isBlank(line[position])) {
      if (line[position] == '"')
        takeQuoted(line, position, word);
      else
        word += line[position++];
    }
    words.push_back(std::move(word));
  }
}

std::string inQuotes(std::string_view word) {
  std::string result = "\"";
  for (const char byte : word) {
    if (byte == '"' || byte == '\\') result += '\\';
    result += byte;
  }
  return result + "\"";
}

}  // namespace korrin::host
