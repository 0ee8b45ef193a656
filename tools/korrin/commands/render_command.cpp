#include "commands/render_command.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "korrin/drawing/revision_marks.h"
#include "korrin/foundation/ascii.h"
#include "korrin/model/document_coding.h"

#include "assets/asset_folders.h"
#include "commands/parameters.h"
#include "commands/utc_offset.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "revisions/plot_revisions.h"
#include "terminal/failure.h"

namespace korrin::host {
namespace {

/// What the options and the plot say about the drawing. The folders must outlive it.
DrawingOptions drawingOptions(const KorrinProject& project, const RenderOptions& options,
                              AssetFolders& folders) {
  const ProjectMetadata& metadata = project.metadata;
  DrawingOptions drawing{.utcOffset = options.utcOffset.value_or(
                             localUtcOffset(metadata.eventDate.value_or(metadata.modifiedAt)))};
  if (options.assetFolders.empty()) return drawing;
  std::map<Text, std::int64_t> sizes;
  for (const AssetManifestEntry& entry : project.assetManifest)
    sizes.emplace(entry.sha256, entry.byteCount);
  drawing.assetBytes = [sizes = std::move(sizes),
                        &folders](const Text& digest) -> std::optional<std::string> {
    if (!isDigest(digest)) return std::nullopt;
    const auto size = sizes.find(digest);
    std::optional<FoundAsset> found = folders.find(digest, size != sizes.end() ? size->second : 0);
    if (!found) return std::nullopt;
    return std::move(found->bytes);
  };
  return drawing;
}

/// The pictures that together are the result: several only for PDF, which has pages of its own.
std::vector<std::string> drawPictures(const KorrinProject& project, const RevisionMarks& marks,
                                      const RenderOptions& options, const DrawingOptions& drawing) {
  if (options.isPlotOnly || (!options.page && options.converted != PictureFormat::pdf)) {
    std::vector<std::string> one;  // a braced list would copy the picture
    one.push_back(options.isPlotOnly ? drawMarkedPlot(project, marks, drawing)
                                     : drawMarkedStackedPages(project, marks, drawing));
    return one;
  }
  std::vector<std::string> pages = drawMarkedPages(project, marks, drawing);
  const std::size_t count = pages.size();
  if (!options.page) return pages;
  if (*options.page < 1 || *options.page > count)
    throw Failure("has no page " + std::to_string(*options.page) + " but " +
                      (count == 1 ? "one page" : std::to_string(count) + " pages"),
                  ExitCode::usage);
  return {std::move(pages[*options.page - 1])};
}

struct Ending {
  std::string_view text;
  std::optional<PictureFormat> format;
};

constexpr Ending endings[] = {
    {".svg", std::nullopt}, {".pdf", PictureFormat::pdf}, {".png", PictureFormat::png}};

/// Whoever names a file by its format gets that format, or is told why not.
RenderOptions settled(RenderOptions options) {
  if (options.output) {
    std::string name = *options.output;
    for (char& c : name)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    const auto ending = std::find_if(
        std::begin(endings), std::end(endings),
        [&](const Ending& each) { return std::string_view(name).ends_with(each.text); });
    if (ending != std::end(endings)) {
      if (options.converted && options.converted != ending->format)
        throw UsageError(
            "--" + std::string(*options.converted == PictureFormat::pdf ? "pdf" : "png") +
            " contradicts the ending of \"" + *options.output + "\": leave one of them out");
      options.converted = ending->format;
    }
  }
  if (options.pixelWidth && options.converted != PictureFormat::png)
    throw UsageError("--width is for PNG: add --png or write to a file that ends in .png");
  return options;
}

/// What rsvg-convert can draw.
unsigned pixelWidth(const std::string& word) {
  constexpr unsigned most = 30'000;
  unsigned width = 0;
  const auto end = std::from_chars(word.data(), word.data() + word.size(), width);
  if (end.ec != std::errc() || end.ptr != word.data() + word.size() || width < 1 || width > most)
    throw UsageError("\"" + word + "\" is no width between 1 and " + std::to_string(most) +
                     " pixels");
  return width;
}

/// Whether the bytes are nothing, or begin like what this command writes.
bool isPicture(std::string_view bytes) {
  bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
  return bytes.empty() || bytes.starts_with('<') || bytes.starts_with("%PDF-") ||
         bytes.starts_with("\x89PNG");
}

/// A slip of the hand would otherwise lose the plot itself, whole or damaged.
void requireNoPlot(const std::string& path) {
  const std::optional<std::string> bytes = readFileIfPresent(path);
  if (!bytes) return;
  try {
    peekVersions(*bytes);
  } catch (const DecodingError&) {
    if (isPicture(*bytes)) return;
    throw FileError("is no picture and is not replaced by one; remove it first");
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

ExitCode render(const RenderOptions& given, Console& console) {
  const RenderOptions options = settled(given);
  const bool isToConsole = !options.output || *options.output == standardStream;
  std::string current = inputName(options.file);
  return sayingFailures(console, current, [&] {
    const KorrinProject project = decodeDocument(readDocument(options.file).bytes, options.dates);
    requireValid(project);
    RevisionMarks marks;
    if (options.since) {
      current = inputName(*options.since);
      marks =
          marksSince(decodeDocument(readDocument(*options.since).bytes, options.dates), project);
      current = inputName(options.file);
    }
    AssetFolders folders(options.assetFolders);
    std::vector<std::string> pictures =
        drawPictures(project, marks, options, drawingOptions(project, options, folders));
    current = isToConsole ? "standard output" : *options.output;
    if (!isToConsole) requireNoPlot(current);
    const std::string destination = current;
    current.clear();  // the converter's failures are sentences of their own
    const std::string bytes = options.converted
                                  ? convertPictures(pictures, *options.converted,
                                                    {.title = project.metadata.title.str(),
                                                     .pixelWidth = options.pixelWidth})
                                  : std::move(pictures.front());
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
  Parameter width{.names = {"--width"},
                  .valueName = "PIXELS",
                  .text = "Width of a PNG; 192 pixels an inch of paper when absent",
                  .take = [options = options.get()](const std::string& word) {
                    options->pixelWidth = pixelWidth(word);
                  }};
  Parameter offset{
      .names = {"--utc-offset"},
      .valueName = "OFFSET",
      .text = "Local time of printed dates, such as +02:00; this machine's when absent",
      .take = [options = options.get()](const std::string& word) {
        options->utcOffset = utcOffsetFrom(word);
      }};
  Parameter assets =
      repeatable({"--assets"}, "FOLDER",
                 "Folder with the plot's embedded images, found by their digests; may be repeated",
                 options->assetFolders);
  CommandPage described{
      .name = "render",
      .summary = "Draw a plot for print, as SVG, PDF or PNG.",
      .arguments = {inputFile("Plot to draw; - is standard input", options->file)},
      .options = {output(options->output), std::move(page), std::move(plotOnly), std::move(pdf),
                  std::move(png), std::move(width), std::move(offset), std::move(assets),
                  option({"--since"}, "FILE",
                         "Mark what changed since this former revision of the plot",
                         options->since),
                  dates(options->dates)},
      .passages = {
          {.prose = "The plot's export settings say on which paper and with which lists. The plot "
                    "is validated first. A file is replaced all at once or not at all, and never "
                    "when it is a plot. An ending .svg, .pdf or .png of the "
                    "output decides the format. An embedded image that is not there, or not safe, "
                    "is a frame with its name. The first of several words is the default."},
          {.heading = "Examples",
           .rows = {{"korrin render -o plot.pdf plot.json", "for the venue"},
                    {"korrin render --since monday.json -o plot.svg friday.json",
                     "new, moved and gone symbols are marked, all changes listed"},
                    {"korrin render --plot-only plot.json >plot.svg", "for a page of one's own"}}},
          exitStatuses()}};
  return {std::move(described), [options](Console& console) { return render(*options, console); }};
}

}  // namespace korrin::host
