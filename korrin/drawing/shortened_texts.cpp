#include "korrin/drawing/shortened_texts.h"

#include <utility>

namespace korrin::drawing {

std::vector<std::string> ShortenedTexts::fit(const Text& text, double size, double width,
                                             std::size_t mostLines, bool isBold) {
  Fitted result = fitted(text, size, width, mostLines, isBold);
  if (result.isShortened) note(text, result.lines);
  return std::move(result.lines);
}

void ShortenedTexts::note(const Text& text, const std::vector<std::string>& printed) {
  if (!known_.insert(text).second) return;
  std::string joined;
  for (const std::string& line : printed) joined += (joined.empty() ? "" : " ") + line;
  entries_.push_back({std::move(joined), text});
}

std::string ShortenedTexts::fitLine(const Text& text, double size, double width, bool isBold) {
  std::vector<std::string> lines = fit(text, size, width, 1, isBold);
  return lines.empty() ? std::string() : std::move(lines.front());
}

}  // namespace korrin::drawing
