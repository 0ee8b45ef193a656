#include "korrin/drawing/page_flow.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "korrin/drawing/text_fit.h"

namespace korrin::drawing {
namespace {

constexpr double textSize = 2.8;
constexpr double lineStep = 3.7;
constexpr double padding = 0.8;
constexpr double titleHeight = 6.4;
constexpr double headHeight = 5.2;
constexpr double betweenTables = 4;
constexpr double betweenColumns = 6;
// Paper on its long side is read in two columns.
constexpr double widestColumn = 200;
// So many rows tell how wide the columns of a table should be.
constexpr std::size_t measuredRows = 200;

double heightOf(std::size_t lines) { return static_cast<double>(lines) * lineStep + 2 * padding; }

/// A row while it is drawn, maybe over several pages: the lines that are next of each cell.
class RowLines {
 public:
  /// Looks at most `most` lines ahead.
  RowLines(Cells cells, std::span<const double> widths, std::size_t most)
      : cells_(std::move(cells)), most_(most) {
    lines_.resize(cells_.size());
    for (std::size_t i = 0; i < cells_.size(); ++i)
      cutters_.emplace_back(cells_[i], textSize, widths[i] - 2 * padding, true);
    look();
  }
  RowLines(const RowLines&) = delete;  // lines are cut from the very cells that it holds

  /// The lines that are known to be left, at most as many as were asked for; a row of blanks has
  /// one.
  std::size_t count() const {
    std::size_t count = isBegun_ ? 0 : 1;
    for (const std::vector<std::string>& cell : lines_) count = std::max(count, cell.size());
    return count;
  }
  std::span<const std::string> of(std::size_t cell) const { return lines_[cell]; }

  /// Takes the first lines off.
  void drop(std::size_t count) {
    for (std::vector<std::string>& cell : lines_) {
      const auto end = cell.begin() + static_cast<std::ptrdiff_t>(std::min(count, cell.size()));
      cell.erase(cell.begin(), end);
    }
    isBegun_ = true;
    look();
  }

 private:
  void look() {
    for (std::size_t i = 0; i < lines_.size(); ++i)
      while (lines_[i].size() < most_ && !cutters_[i].isAtEnd())
        lines_[i].push_back(cutters_[i].next());
  }

  Cells cells_;
  std::vector<LineCutter> cutters_;
  std::vector<std::vector<std::string>> lines_;
  std::size_t most_;
  bool isBegun_ = false;
};

class PageFlow {
 public:
  PageFlow(const Box& box, const std::function<SvgWriter&()>& newPage)
      : newPage_(newPage), columns_(box.width > widestColumn ? 2 : 1), column_(columns_) {
    const double gaps = betweenColumns * static_cast<double>(columns_ - 1);
    box_ = box;
    box_.width = (box.width - gaps) / static_cast<double>(columns_);
    y_ = box_.bottom();
  }

  void add(const ListTable& table) {
    measure(table);
    if (page_ != nullptr && needsColumnOfItsOwn(table)) y_ = box_.bottom();
    bool isBegun = false;
    for (std::size_t index = 0; index < table.rowCount; ++index) {
      RowLines row(table.row(index), widths_, mostLines());
      for (std::size_t left = row.count(); left > 0; left = row.count()) {
        if (!isBegun || !fits(keptTogether(left))) begin(table, isBegun, left);
        isBegun = true;
        const std::size_t taken = std::clamp<std::size_t>(linesThatFit(), 1, left);
        drawRow(row, taken);
        row.drop(taken);
      }
    }
    endSegment();
    y_ += betweenTables;
  }

 private:
  bool fits(std::size_t lines) const { return y_ + heightOf(lines) <= box_.bottom() + 1e-9; }

  /// The most lines of a row that a page has room for, and one: then there is no need to know more.
  std::size_t mostLines() const {
    const double room = box_.height - titleHeight - headHeight - 2 * padding;
    return static_cast<std::size_t>(std::max(0.0, room / lineStep)) + 1;
  }

  /// A row is kept whole when a page can hold it.
  std::size_t keptTogether(std::size_t lines) const {
    return titleHeight + headHeight + heightOf(lines) <= box_.height ? lines : 1;
  }

  std::size_t linesThatFit() const {
    const double room = (box_.bottom() - y_ - 2 * padding) / lineStep;
    return room > 0 ? static_cast<std::size_t>(room + 1e-9) : 0;
  }

  /// Columns as wide as their texts, as far as there is room.
  void measure(const ListTable& table) {
    const double most = box_.width * 0.45;
    std::vector<double> wanted;
    for (const std::string& title : table.columns)
      wanted.push_back(textWidth(title, textSize, true));
    for (std::size_t index = 0; index < std::min(table.rowCount, measuredRows); ++index) {
      const Cells cells = table.row(index);
      for (std::size_t i = 0; i < wanted.size(); ++i)
        wanted[i] = std::max(wanted[i], std::min(most, textWidth(start(cells[i]), textSize)));
    }
    const double margins = 2 * padding + 0.6;
    const double sum = std::accumulate(wanted.begin(), wanted.end(), 0.0);
    const double room = box_.width - margins * static_cast<double>(wanted.size());
    widths_.clear();
    // What is narrow stays whole; the wide ones share what is left.
    double narrow = 0;
    double wide = 0;
    const double even = room / static_cast<double>(wanted.size());
    for (const double width : wanted) (sum > room && width > even ? wide : narrow) += width;
    for (const double width : wanted) {
      const double share = sum <= room     ? width
                           : width <= even ? width
                                           : width * (room - narrow) / wide;
      widths_.push_back(share + margins);
    }
    if (sum <= room) widths_.back() += room - sum;
  }

  /// As much of a cell as may count for its column's width.
  static std::string_view start(std::string_view text) {
    constexpr std::size_t enough = 120;
    if (text.size() <= enough) return text;
    std::size_t length = enough;
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) --length;
    return text.substr(0, length);
  }

  /// Whether the table would be divided here and is whole in a new column.
  bool needsColumnOfItsOwn(const ListTable& table) const {
    double height = titleHeight + headHeight;
    for (std::size_t index = 0; index < table.rowCount; ++index) {
      height += heightOf(RowLines(table.row(index), widths_, mostLines()).count());
      if (height > box_.height) return false;
    }
    return y_ + height > box_.bottom() + 1e-9;
  }

  double left() const {
    return box_.x + static_cast<double>(column_) * (box_.width + betweenColumns);
  }

  void nextColumn() {
    endSegment();
    if (++column_ >= columns_) {
      page_ = &newPage_();
      column_ = 0;
    }
    y_ = box_.y;
  }

  /// Title and heads, in this column when there is room for them and the beginning of a row.
  void begin(const ListTable& table, bool goesOn, std::size_t lines) {
    const double needed = titleHeight + headHeight + heightOf(keptTogether(lines));
    if (page_ == nullptr || goesOn || y_ + needed > box_.bottom() + 1e-9) nextColumn();
    page_->text({left(), y_ + 4.2}, goesOn ? table.title + " (continued)" : table.title,
                {.size = 4.2, .isBold = true});
    y_ += titleHeight;
    page_->rectangle({left(), y_, box_.width, headHeight}, {.fill = "#e6eaee"});
    double x = left();
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      page_->text({x + padding, y_ + 3.6},
                  fittedLine(table.columns[i], textSize, widths_[i] - padding, true),
                  {.size = textSize, .isBold = true});
      x += widths_[i];
    }
    y_ += headHeight;
    segment_ = Segment{y_, std::vector<SvgWriter>(table.columns.size()), {}};
  }

  void drawRow(const RowLines& row, std::size_t count) {
    double x = left();
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      const auto lines = row.of(i);
      for (std::size_t line = 0; line < std::min(count, lines.size()); ++line)
        segment_->cells[i].text(
            {x + padding, y_ + padding + lineStep * (static_cast<double>(line) + 0.76)},
            lines[line], {});
      x += widths_[i];
    }
    y_ += heightOf(count);
    segment_->rules.line({left(), y_}, {left() + box_.width, y_},
                         {.stroke = "#c9d1d9", .strokeWidth = 0.15});
  }

  /// Writes the rows of this column. A font wider than reckoned with must not write into the next
  /// column of the table.
  void endSegment() {
    if (!segment_) return;
    page_->beginTexts(textSize);
    double x = left();
    for (std::size_t i = 0; i < segment_->cells.size(); ++i) {
      page_->beginClipped({x, segment_->top, widths_[i], y_ - segment_->top});
      page_->add(segment_->cells[i]);
      page_->endClipped();
      x += widths_[i];
    }
    page_->endGroup();
    page_->add(segment_->rules);
    segment_.reset();
  }

  /// The rows of one table in one column of a page.
  struct Segment {
    double top;
    std::vector<SvgWriter> cells;  // by the table's columns
    SvgWriter rules;
  };

  const std::function<SvgWriter&()>& newPage_;
  Box box_{};  // of the first column
  std::size_t columns_;
  std::size_t column_;
  double y_;
  SvgWriter* page_ = nullptr;
  std::vector<double> widths_;
  std::optional<Segment> segment_;
};

}  // namespace

void flowTables(std::span<const ListTable> tables, const Box& box,
                const std::function<SvgWriter&()>& newPage) {
  PageFlow flow(box, newPage);
  for (const ListTable& table : tables) flow.add(table);
}

}  // namespace korrin::drawing
