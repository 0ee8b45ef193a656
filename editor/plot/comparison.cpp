#include "editor/plot/comparison.h"

#include <utility>

#include "korrin/review/difference.h"
#include "korrin/review/item_changes.h"

#include "editor/plot/open_plot.h"

namespace korrin::editor {
namespace {

// Long enough that a drag does not compare the plots at each step.
constexpr int delay = 150;
// Nobody reads more, and a hostile file may differ in a million places.
constexpr std::size_t mostChanges = 5'000;

}  // namespace

Comparison::Comparison(OpenPlot& plot) : QObject(&plot), plot_(plot) {
  timer_.setSingleShot(true);
  timer_.setInterval(delay);
  // A pause in the middle of a drag is no reason to hold it up.
  connect(&timer_, &QTimer::timeout, this,
          [this] { plot_.isInGesture() ? timer_.start() : refresh(); });
  connect(&plot_, &OpenPlot::replaced, this, &Comparison::end);
  connect(&plot_, &OpenPlot::changed, this, [this] {
    if (!isOn()) return;
    isStale_ = true;
    timer_.start();
  });
}

void Comparison::begin(const QString& name, KorrinProject earlier) {
  name_ = name;
  earlier_ = std::move(earlier);
  isStale_ = true;
  refresh();
}

void Comparison::end() {
  if (!isOn()) return;
  earlier_.reset();
  isStale_ = true;
  refresh();
}

void Comparison::refresh() {
  timer_.stop();
  compare();
  Q_EMIT changed();
}

const std::vector<Comparison::Change>& Comparison::changes() {
  compare();
  return changes_;
}

const RevisionMarks& Comparison::marks() {
  compare();
  return marks_;
}

void Comparison::compare() {
  if (!std::exchange(isStale_, false)) return;
  changes_.clear();
  marks_ = {};
  if (!earlier_) return;
  const std::vector<Difference> all = differences(*earlier_, plot_.project());
  ItemChanges items = itemChanges(all, *earlier_);
  marks_ = {.added = std::move(items.added),
            .changed = std::move(items.changed),
            .moved = std::move(items.moved),
            .gone = std::move(items.gone)};
  const DifferenceSentences sentenceOf(*earlier_, plot_.project());
  for (const Difference& one : all) {
    if (changes_.size() == mostChanges) {
      changes_.push_back({.sentence = tr("and more"), .item = {}});
      marks_.sentences.emplace_back(tr("and more").toStdString());
      break;
    }
    const std::string sentence = sentenceOf(one);
    changes_.push_back({.sentence = QString::fromStdString(sentence),
                        .item = one.list == "items" ? UUID::fromText(one.id) : std::nullopt});
    marks_.sentences.emplace_back(sentence);
  }
}

}  // namespace korrin::editor
