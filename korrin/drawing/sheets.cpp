#include "korrin/drawing/sheets.h"

#include <array>
#include <deque>
#include <utility>

#include "korrin/drawing/legend.h"
#include "korrin/drawing/list_tables.h"
#include "korrin/drawing/moment_text.h"
#include "korrin/drawing/page_flow.h"
#include "korrin/drawing/text_fit.h"

namespace korrin::drawing {
namespace {

constexpr double margin = 12;
constexpr double headerHeight = 19;
constexpr double footerHeight = 8;
constexpr double legendWidth = 46;
constexpr double legendHeight = 44;
constexpr double besideLegend = 4;
constexpr double betweenPages = 6;

/// Width and height of the paper, upright.
std::array<double, 2> upright(PaperSize size) {
  switch (size) {
    case PaperSize::a4:
      return {210, 297};
    case PaperSize::letter:
      break;
  }
  return {215.9, 279.4};
}

/// The texts that are not blank, with a dot between them.
Text joined(std::initializer_list<Text> parts) {
  std::string line;
  for (const Text& part : parts)
    if (!part.isBlank()) line += (line.empty() ? "" : " · ") + part.str();
  return line;
}

Text prefixed(const std::string& prefix, const Text& text) {
  return text.isBlank() ? Text() : Text(prefix + text.str());
}

class Sheets {
 public:
  Sheets(const KorrinProject& project, const DrawingOptions& options, Binding binding,
         const RevisionMarks* marks)
      : project_(project), options_(options), binding_(binding), marks_(marks) {
    const auto [shorter, longer] = upright(project.exportSettings.paperSize);
    isUpright_ = project.stage.size.height > project.stage.size.width;
    width_ = isUpright_ ? shorter : longer;
    height_ = isUpright_ ? longer : shorter;
    paper_ = Box{0, 0, width_, height_}.inset(margin);
    content_ = {paper_.x, paper_.y + headerHeight, paper_.width,
                paper_.height - headerHeight - footerHeight};
    prepare();
  }

  std::vector<std::string> draw() {
    const DrawnStage drawn = drawStageSheet();
    std::vector<ListTable> tables = includedLists(project_);
    if (marks_ != nullptr && !marks_->sentences.empty()) tables.push_back(changes());
    for (ListTable& table : remarks(drawn, shortened_)) tables.push_back(std::move(table));
    flowTables(tables, content_, [this]() -> SvgWriter& { return newPage(); });
    return finished();
  }

 private:
  /// What stands on every sheet is fitted once, before the list of shortened texts is made.
  void prepare() {
    const ProjectMetadata& metadata = project_.metadata;
    const std::chrono::minutes offset = options_.utcOffset;
    pictureTitle_ = repeatedLine(metadata.title);
    title_ = shortened_.fitLine(metadata.title, 6, paper_.width, true);
    if (metadata.eventDate) date_ = momentText(*metadata.eventDate, offset);
    facts_ = shortened_.fitLine(joined({metadata.artist, metadata.venue}), 3.6,
                                paper_.width - textWidth(date_, 3.6, true) - 4);
    changed_ = "Last change " + momentText(metadata.modifiedAt, offset) + " · Page ";
    const double room = paper_.width - textWidth(changed_ + "0000 of 0000", 2.8) - 4;
    const Text contact = joined({prefixed("Prepared by ", metadata.preparedBy),
                                 metadata.contactEmail, prefixed("Revision ", metadata.revision)});
    // On narrow paper it takes a line of its own above the page's number.
    const bool isBeside = fittedLine(contact, 2.8, room) == paperLine(contact);
    contactLift_ = isBeside ? 0 : 3.7;
    contact_ = shortened_.fitLine(contact, 2.8, isBeside ? room : paper_.width);
  }

  ListTable changes() const {
    const std::vector<Text>& sentences = marks_->sentences;
    return {"Changes", {"What changed"}, sentences.size(), [&sentences](std::size_t row) {
              return Cells{sentences[row]};
            }};
  }

  /// The drawing and, beside or below it, the legend.
  DrawnStage drawStageSheet() {
    Box box = content_;
    (isUpright_ ? box.height : box.width) -=
        (isUpright_ ? legendHeight : legendWidth) + besideLegend;
    const Box legend =
        isUpright_ ? Box{content_.x, content_.bottom() - legendHeight, content_.width, legendHeight}
                   : Box{content_.right() - legendWidth, content_.y, legendWidth, content_.height};
    SvgWriter& page = newPage();
    DrawnStage drawn = drawStage(page, project_, options_, box, shortened_, marks_);
    drawLegend(page, drawn, legend, shortened_);
    return drawn;
  }

  double topOf(std::size_t page) const {
    return static_cast<double>(page) * (height_ + betweenPages);
  }

  SvgWriter& newPage() {
    if (binding_ == Binding::separate) {
      pages_.emplace_back().beginDocument(width_, height_, pictureTitle_);
    } else if (pageCount_ == 0) {
      pages_.emplace_back().beginDocument(width_, pictureTitle_);
      pages_.back().beginPlaced({0, 0});
    } else {
      pages_.back().endGroup();
      pages_.back().rectangle({0, topOf(pageCount_) - betweenPages, width_, betweenPages},
                              {.fill = "#d5dae0"});
      pages_.back().beginPlaced({0, topOf(pageCount_)});
    }
    ++pageCount_;
    drawHeader(pages_.back());
    return pages_.back();
  }

  void drawHeader(SvgWriter& svg) const {
    const Box& box = paper_;
    svg.text({box.x, box.y + 6}, title_, {.size = 6, .isBold = true});
    svg.text({box.x, box.y + 12}, facts_, {.size = 3.6});
    if (!date_.empty())
      svg.text({box.right(), box.y + 12}, date_,
               {.size = 3.6, .isBold = true, .anchor = Anchor::end});
    svg.line({box.x, box.y + 15}, {box.right(), box.y + 15}, {.stroke = inkColour});
  }

  /// The number of pages is known only when all are drawn.
  void drawFooter(SvgWriter& svg, std::size_t page) const {
    svg.text({paper_.x, paper_.bottom() - contactLift_}, contact_,
             {.size = 2.8, .colour = mutedColour});
    svg.text({paper_.right(), paper_.bottom()},
             changed_ + std::to_string(page) + " of " + std::to_string(pageCount_),
             {.size = 2.8, .anchor = Anchor::end, .colour = mutedColour});
  }

  std::vector<std::string> finished() {
    std::vector<std::string> pictures;
    if (binding_ == Binding::stacked) {
      SvgWriter& all = pages_.back();
      all.endGroup();
      for (std::size_t page = 0; page < pageCount_; ++page) {
        all.beginPlaced({0, topOf(page)});
        drawFooter(all, page + 1);
        all.endGroup();
      }
      all.endDocument(topOf(pageCount_) - betweenPages);
      pictures.push_back(all.take());
      return pictures;
    }
    pictures.reserve(pageCount_);
    for (SvgWriter& page : pages_) {
      drawFooter(page, pictures.size() + 1);
      page.endDocument();
      pictures.push_back(page.take());
    }
    return pictures;
  }

  const KorrinProject& project_;
  const DrawingOptions& options_;
  Binding binding_;
  const RevisionMarks* marks_;  // null for none
  bool isUpright_ = false;
  double width_ = 0;
  double height_ = 0;
  Box paper_{};
  Box content_{};
  std::string pictureTitle_, title_, facts_, date_, contact_, changed_;
  double contactLift_ = 0;
  ShortenedTexts shortened_;
  std::deque<SvgWriter> pages_;  // stacked: one
  std::size_t pageCount_ = 0;
};

}  // namespace

std::vector<std::string> drawSheets(const KorrinProject& project, const DrawingOptions& options,
                                    Binding binding, const RevisionMarks* marks) {
  return Sheets(project, options, binding, marks).draw();
}

}  // namespace korrin::drawing
