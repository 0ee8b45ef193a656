#include "commands/render_command.h"

#include <charconv>
#include <memory>
#include <utility>
#include <vector>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/model/document_coding.h"

#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "terminal/failure.h"

namespace korrin::host {
namespace {

/// The pictures that together are the result: several only for PDF, which has pages of its own.
std::vector<std::string> drawPictures(const KorrinProject& project, const RenderOptions& options) {
  if (options.isPlotOnly) return {drawPlot(project)};
  if (!options.page && options.converted != PictureFormat::pdf) return {drawStackedPages(project)};
  std::vector<std::string> pages = drawPages(project);
  const std::size_t count = pages.size();
  if (!options.page) return pages;
  if (*options.page < 1 || *options.page > count)
    throw Failure("has no page " + std::to_string(*options.page) + " but " +
                      (count == 1 ? "one page" : std::to_string(count) + " pages"),
                  ExitCode::usage);
  return {std::move(pages[*options.page - 1])};
}

/// A slip of the hand would otherwise lose the plot itself.
void requireNoPlot(const std::string& path) {
  const std::optional<std::string> bytes = readFileIfPresent(path);
  if (!bytes) return;
  try {
    peekVersions(*bytes);
  } catch (const DecodingError&) {
    return;
  }
  throw FileError("is a plot and is not replaced by a picture");
}

/// Nothing for all pages.
std::optional<std::size_t> pageNumber(const std::string& word) {
  if (word == "all") return std::nullopt;
  std::size_t number = 0;
  const auto end = std::from_chars(word.data(), word.data() + word.size(), number);
  if (end.ec != std::errc() || end.ptr != word.data() + word.size())
    throw UsageError("\"" + word + "\" is neither a page number nor all");
  return number;
}

}  // namespace

ExitCode render(const RenderOptions& options, Console& console) {
  const bool isToConsole = !options.output || *options.output == standardStream;
  std::string current = inputName(options.file);
  return sayingFailures(console, current, [&] {
    const KorrinProject project = decodeDocument(readDocument(options.file), options.dates);
    requireValid(project);
    const std::vector<std::string> pictures = drawPictures(project, options);
    current = isToConsole ? "standard output" : *options.output;
    if (!isToConsole) requireNoPlot(current);
    const std::string destination = current;
    current.clear();  // the converter's failures are sentences of their own
    const std::string bytes =
        options.converted ? convertPictures(pictures, *options.converted) : pictures.front();
    current = destination;
    if (isToConsole) {
      console.out << bytes;
    } else {
      replaceFile(current, bytes);
    }
    return ExitCode::clean;
  });
}

Command renderCommand() {
  const auto options = std::make_shared<RenderOptions>();
  Parameter page{.names = {"--page"},
                 .valueName = "NUMBER",
                 .text = "One page, counted from 1, or all of them one below the other",
                 .choices = {"all"},
                 .take = [options = options.get()](const std::string& word) {
                   options->page = pageNumber(word);
                 }};
  Parameter plotOnly = flag({"--plot-only"}, "The drawing alone, without page, legend and lists",
                            options->isPlotOnly);
  plotOnly.excludes = {"--page"};
  const auto convertTo = [&options](std::string name, std::string text, PictureFormat format) {
    return Parameter{.names = {std::move(name)},
                     .text = std::move(text),
                     .take = [options = options.get(), format](const std::string&) {
                       options->converted = format;
                     }};
  };
  Parameter pdf = convertTo("--pdf", "Write PDF, by rsvg-convert of librsvg", PictureFormat::pdf);
  Parameter png = convertTo("--png", "Write PNG, by rsvg-convert of librsvg", PictureFormat::png);
  png.excludes = {"--pdf"};
  CommandPage described{
      .name = "render",
      .summary = "Draw a plot for print, as SVG, PDF or PNG.",
      .arguments = {inputFile("Plot to draw; - is standard input", options->file)},
      .options = {output(options->output), std::move(page), std::move(plotOnly), std::move(pdf),
                  std::move(png), dates(options->dates)},
      .passages = {
          {.prose = "The plot's export settings say on which paper and with which lists. The plot "
                    "is validated first. A file is replaced all at once or not at all, and never "
                    "when it is a plot. The first of several words is the default."},
          {.heading = "Examples",
           .rows = {{"korrin render --pdf -o plot.pdf plot.json", "for the venue"},
                    {"korrin render --plot-only plot.json >plot.svg", "for a page of one's own"}}},
          exitStatuses()}};
  return {std::move(described), [options](Console& console) { return render(*options, console); }};
}

}  // namespace korrin::host
