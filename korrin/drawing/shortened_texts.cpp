#include "korrin/drawing/shortened_texts.h"

#include <utility>

namespace korrin::drawing {

std::vector<std::string> ShortenedTexts::fit(const Text& text, double size, double width,
                                             std::size_t mostLines, bool isBold) {
  Fitted result = fitted(text, size, width, mostLines, isBold);
  if (result.isShortened && known_.insert(text).second) {
    std::string printed;
    for (const std::string& line : result.lines) printed += (printed.empty() ? "" : " ") + line;
    entries_.push_back({std::move(printed), text});
  }
  return std::move(result.lines);
}

std::string ShortenedTexts::fitLine(const Text& text, double size, double width, bool isBold) {
  std::vector<std::string> lines = fit(text, size, width, 1, isBold);
  return lines.empty() ? std::string() : std::move(lines.front());
}

}  // namespace korrin::drawing
