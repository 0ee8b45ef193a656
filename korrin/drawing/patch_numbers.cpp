#include "korrin/drawing/patch_numbers.h"

#include <algorithm>

namespace korrin::drawing {

PatchNumbers::PatchNumbers(const KorrinProject& project) {
  for (const InputChannel& input : project.inputs)
    if (input.plotItemID && input.channel)
      links_.push_back({*input.plotItemID, Row::channel, *input.channel});
  for (const MonitorMix& mix : project.monitorMixes)
    if (mix.plotItemID && mix.number) links_.push_back({*mix.plotItemID, Row::mix, *mix.number});
  std::sort(links_.begin(), links_.end());
  links_.erase(std::unique(links_.begin(), links_.end()), links_.end());
}

std::string PatchNumbers::of(const UUID& item) const {
  std::string text;
  const auto begin =
      std::lower_bound(links_.begin(), links_.end(), item,
                       [](const Link& link, const UUID& id) { return link.item < id; });
  const auto end =
      std::find_if(begin, links_.end(), [&item](const Link& link) { return link.item != item; });
  for (auto first = begin; first != end;) {
    auto last = first;
    const auto follows = [](const Link& a, const Link& b) {
      return a.row == b.row && a.number < b.number && b.number - 1 == a.number;
    };
    while (std::next(last) != end && follows(*last, *std::next(last))) ++last;
    // Two numbers are as short as a range.
    if (last - first == 1) last = first;
    if (first == begin || first->row != std::prev(first)->row) {
      if (!text.empty()) text += " · ";
      text += first->row == Row::channel ? "Ch " : "Mix ";
    } else {
      text += ", ";
    }
    text += std::to_string(first->number);
    if (last != first) text += "–" + std::to_string(last->number);
    first = std::next(last);
  }
  return text;
}

}  // namespace korrin::drawing
