#include "korrin/review/list_merge.h"

namespace korrin::revision {
namespace {

/// The runs of one side from some place of the base on.
class SideOfBase {
 public:
  explicit SideOfBase(const std::vector<Run>& runs, std::size_t size)
      : next_(runs.begin()), end_(runs.end()), size_(size) {}

  /// Goes on to a place of the base, never back.
  void standAt(std::size_t base) {
    base_ = base;
    while (next_ != end_ && next_->beforeEnd() <= base) ++next_;
  }
  /// Up to where the side goes on as it does here.
  std::size_t until() const {
    if (next_ == end_) return size_;
    return isThere() ? next_->beforeEnd() : next_->before;
  }
  std::optional<std::size_t> place() const {
    if (!isThere()) return std::nullopt;
    return next_->after + (base_ - next_->before);
  }
  bool isShared() const { return isThere() && next_->isShared; }

 private:
  bool isThere() const { return next_ != end_ && next_->before <= base_; }

  std::vector<Run>::const_iterator next_;
  std::vector<Run>::const_iterator end_;
  std::size_t size_;
  std::size_t base_ = 0;
};

}  // namespace

std::vector<Segment> segmentsOf(const std::vector<Run>& ours, const std::vector<Run>& theirs,
                                std::size_t size) {
  std::vector<Segment> segments;
  SideOfBase our(ours, size);
  SideOfBase their(theirs, size);
  for (std::size_t base = 0; base < size;) {
    our.standAt(base);
    their.standAt(base);
    const std::size_t end = std::min(our.until(), their.until());
    if (our.place() || their.place())
      segments.push_back({.base = base,
                          .count = end - base,
                          .ours = our.place(),
                          .theirs = their.place(),
                          .isOursShared = our.isShared(),
                          .isTheirsShared = their.isShared()});
    base = end;
  }
  return segments;
}

std::vector<std::size_t> placesFor(const std::vector<std::size_t>& indices, const Links& links,
                                   std::size_t size) {
  const Links inOrder = sortedBy(&Run::before, links);
  const Links inOther = sortedBy(&Run::after, links);
  std::vector<std::size_t> places;
  places.reserve(indices.size());
  auto next = inOther.begin();  // the first link that lies behind the index
  for (const std::size_t index : indices) {
    while (next != inOther.end() && next->after < index) ++next;
    auto following = inOrder.begin();
    if (next != inOther.begin()) {
      const std::size_t former = std::prev(next)->before;
      following = std::upper_bound(
          inOrder.begin(), inOrder.end(), former,
          [](std::size_t before, const Run& link) { return before < link.before; });
    }
    places.push_back(following == inOrder.end() ? size : following->before);
  }
  return places;
}

}  // namespace korrin::revision
