#include "page_flow.h"

#include <algorithm>
#include <numeric>

#include "text_fit.h"

namespace korrin::host {
namespace {

constexpr double textSize = 3;
constexpr double lineStep = 4.1;
constexpr double padding = 0.9;
constexpr double titleHeight = 7;
constexpr double headHeight = 6;
constexpr double betweenTables = 4;

/// The texts of a row's cells in lines.
using CellLines = std::vector<std::vector<std::string>>;

class PageFlow {
 public:
  explicit PageFlow(const Box& box) : box_(box), y_(box.bottom()) {}

  void add(const ListTable& table) {
    measure(table);
    bool isBegun = false;
    if (needsPageOfItsOwn(table)) y_ = box_.bottom();
    for (const std::vector<std::string>& row : table.rows) {
      const CellLines cells = linesOf(table, row);
      const std::size_t count = countOf(cells);
      for (std::size_t first = 0; first < count;) {
        const std::size_t left = count - first;
        if (!isBegun || !fits(std::min(left, keptTogether(left)))) begin(table, isBegun, left);
        isBegun = true;
        const std::size_t taken = std::clamp<std::size_t>(linesThatFit(), 1, left);
        drawRow(cells, first, taken);
        first += taken;
      }
    }
    y_ += betweenTables;
  }

  std::vector<SvgWriter> take() { return std::move(pages_); }

 private:
  static double heightOf(std::size_t lines) {
    return static_cast<double>(lines) * lineStep + 2 * padding;
  }
  bool fits(std::size_t lines) const { return y_ + heightOf(lines) <= box_.bottom(); }

  /// A row is kept whole when a page can hold it.
  std::size_t keptTogether(std::size_t lines) const {
    return titleHeight + headHeight + heightOf(lines) <= box_.height ? lines : 1;
  }

  std::size_t linesThatFit() const {
    const double room = (box_.bottom() - y_ - 2 * padding) / lineStep;
    return room > 0 ? static_cast<std::size_t>(room + 1e-9) : 0;
  }

  void measure(const ListTable& table) {
    const double all =
        std::accumulate(table.columns.begin(), table.columns.end(), 0.0,
                        [](double sum, const ListColumn& column) { return sum + column.share; });
    columns_.clear();
    double x = box_.x;
    for (const ListColumn& column : table.columns) {
      const double width = box_.width * column.share / all;
      columns_.push_back({x, 0, width, 0});
      x += width;
    }
  }

  /// Whether the table would be divided here and is whole on a new page.
  bool needsPageOfItsOwn(const ListTable& table) const {
    double height = titleHeight + headHeight;
    for (const std::vector<std::string>& row : table.rows) {
      height += heightOf(countOf(linesOf(table, row)));
      if (height > box_.height) return false;
    }
    return y_ + height > box_.bottom();
  }

  static std::size_t countOf(const CellLines& cells) {
    std::size_t count = 1;
    for (const auto& cell : cells) count = std::max(count, cell.size());
    return count;
  }

  CellLines linesOf(const ListTable& table, const std::vector<std::string>& row) const {
    CellLines cells;
    for (std::size_t i = 0; i < row.size(); ++i)
      cells.push_back(
          fitted(row[i], textSize, columns_[i].width - 2 * padding, table.columns[i].mostLines));
    return cells;
  }

  /// Title and heads, on this page when there is room for them and the beginning of a row.
  void begin(const ListTable& table, bool goesOn, std::size_t lines) {
    const double needed = titleHeight + headHeight + heightOf(keptTogether(lines));
    if (pages_.empty() || goesOn || y_ + needed > box_.bottom()) {
      pages_.emplace_back();
      y_ = box_.y;
    }
    SvgWriter& page = pages_.back();
    page.text({box_.x, y_ + 4.6}, goesOn ? table.title + " (continued)" : table.title,
              {.size = 4.4, .isBold = true});
    y_ += titleHeight;
    page.rectangle({box_.x, y_, box_.width, headHeight}, {.fill = "#e6eaee"});
    for (std::size_t i = 0; i < columns_.size(); ++i)
      page.text({columns_[i].x + padding, y_ + 4.1},
                fittedLine(table.columns[i].title, textSize, columns_[i].width - padding, true),
                {.size = textSize, .isBold = true});
    y_ += headHeight;
  }

  void drawRow(const CellLines& cells, std::size_t first, std::size_t count) {
    SvgWriter& page = pages_.back();
    const double height = heightOf(count);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const std::size_t end = std::min(cells[i].size(), first + count);
      if (first >= end) continue;
      // A font wider than reckoned with must not write into the next column.
      page.beginClipped({columns_[i].x, y_, columns_[i].width, height});
      for (std::size_t line = first; line < end; ++line)
        page.text({columns_[i].x + padding,
                   y_ + padding + lineStep * (static_cast<double>(line - first) + 0.76)},
                  cells[i][line], {.size = textSize});
      page.endClipped();
    }
    y_ += height;
    page.line({box_.x, y_}, {box_.right(), y_}, {.stroke = "#c9d1d9", .strokeWidth = 0.15});
  }

  Box box_;
  double y_;
  std::vector<Box> columns_;
  std::vector<SvgWriter> pages_;
};

}  // namespace

std::vector<SvgWriter> flowTables(const std::vector<ListTable>& tables, const Box& box) {
  PageFlow flow(box);
  for (const ListTable& table : tables) flow.add(table);
  return flow.take();
}

}  // namespace korrin::host
