// Pictures: sheets for a venue, a palette, and what lies under the mouse.

#include <algorithm>
#include <chrono>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <korrin/drawing.h>
#include <korrin/korrin.h>

using namespace korrin;

/// A host reads the file with this digest, if there is one.
std::optional<std::string> bytesOf(const Text&) { return std::nullopt; }

int main() {
  std::cout << std::boolalpha;
  KorrinProject project = KorrinProject::newDocument();
  const UUID layer = project.layers.front().id;

  // [palette]
  const auto symbols = builtInSymbols();
  const auto piano = std::ranges::find(symbols, "Grand piano", &Symbol::name);
  project.items.push_back(makeItem(*piano, {.x = -2000, .y = 0}, layer));
  const std::string icon = drawSymbol(project.items.back());
  // [/palette]
  std::cout << piano->assetID << ", " << piano->size.width << " mm wide\n";
  std::cout << "an icon: " << icon.starts_with("<?xml") << '\n';

  // [sheets]
  const std::vector<std::string> pages =
      drawPages(project, {.utcOffset = std::chrono::hours(2), .assetBytes = bytesOf});
  // [/sheets]
  std::cout << "sheets: " << pages.size() << '\n';

  // [under]
  const std::vector<UUID> under = itemsAt(project, {.x = -2700, .y = 1300});
  const bool isOnPiano = !under.empty() && under.front() == project.items.front().id;
  // [/under]
  std::cout << "the mouse is on the piano: " << isOnPiano << '\n';

  // [outline]
  for (const StagePoint& corner : outlineOf(project.items.front()))
    std::cout << corner.x << ' ' << corner.y << '\n';
  // [/outline]
}
