#include "commands/render_command.h"

#include <stdexcept>
#include <vector>

#include "korrin/model/document_coding.h"

#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "render/plot_pages.h"

namespace korrin::host {
namespace {

/// A page was asked for that the plot does not have.
class NoSuchPage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The pictures that together are the result: several only for PDF, which has pages of its own.
std::vector<std::string> drawPictures(const KorrinProject& project, const RenderOptions& options) {
  if (options.isPlotOnly) return {drawingAlone(project)};
  const PlotPages pages = layOut(project);
  const std::size_t count = pages.contents.size();
  if (options.page && (*options.page < 1 || *options.page > count))
    throw NoSuchPage("has no page " + std::to_string(*options.page) + " but " +
                     (count == 1 ? "one page" : std::to_string(count) + " pages"));
  if (options.page) return {pages.page(*options.page)};
  if (options.converted != PictureFormat::pdf) return {pages.all()};
  std::vector<std::string> pictures;
  for (std::size_t number = 1; number <= count; ++number) pictures.push_back(pages.page(number));
  return pictures;
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

}  // namespace

ExitCode render(const RenderOptions& options, Console& console) {
  const bool isToConsole = !options.output || *options.output == standardStream;
  std::string current = inputName(options.file);
  try {
    const KorrinProject project = decodeDocument(readDocument(options.file), options.dates);
    requireValid(project);
    const std::vector<std::string> pictures = drawPictures(project, options);
    current = isToConsole ? "standard output" : *options.output;
    if (!isToConsole) requireNoPlot(current);
    const std::string bytes =
        options.converted ? convertPictures(pictures, *options.converted) : pictures.front();
    if (isToConsole) {
      console.out << bytes;
    } else {
      replaceFile(current, bytes);
    }
    return ExitCode::clean;
  } catch (const Refusal& refusal) {
    complain(console, current + ": " + refusal.what());
    return refusal.exitCode();
  } catch (const FileError& error) {
    complain(console, current + ": " + error.what());
  } catch (const ConverterError& error) {
    complain(console, error.what());
  } catch (const NoSuchPage& error) {
    complain(console, current + ": " + error.what());
    return ExitCode::usage;
  }
  return ExitCode::unusable;
}

}  // namespace korrin::host
