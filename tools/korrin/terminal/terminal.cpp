#include "terminal/terminal.h"

#include <algorithm>
#include <cstdlib>

#include <sys/ioctl.h>
#include <unistd.h>

#include "terminal/display_text.h"

namespace korrin::host {
namespace {

constexpr std::size_t assumedWidth = 80;
constexpr std::size_t smallestWidth = 40;

std::string_view environmentVariable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? std::string_view(value) : std::string_view();
}

}  // namespace

Terminal Terminal::of(int descriptor) {
  Terminal terminal;
  terminal.isTerminal = isatty(descriptor) == 1;
  if (!terminal.isTerminal) return terminal;
  terminal.hasColour =
      environmentVariable("NO_COLOR").empty() && environmentVariable("TERM") != "dumb";
  winsize size{};
  const bool isKnown = ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  terminal.width = isKnown ? std::max<std::size_t>(size.ws_col, smallestWidth) : assumedWidth;
  return terminal;
}

std::string coloured(const Terminal& terminal, Colour colour, std::string_view text) {
  if (!terminal.hasColour) return std::string(text);
  constexpr std::string_view codes[] = {"\x1b[1;31m", "\x1b[1;33m", "\x1b[1;34m"};
  std::string result(codes[static_cast<std::size_t>(colour)]);
  result += text;
  result += "\x1b[0m";
  return result;
}

void complain(Console& console, std::string_view sentence) {
  console.out.flush();
  console.err << coloured(console.errTerminal, Colour::red, "korrin:") << ' ' << printable(sentence)
              << std::endl;
}

Progress::Progress(Console& console, std::size_t steps)
    : console_(console), steps_(steps), isEnabled_(console.errTerminal.isTerminal) {}

void Progress::step(std::string_view name, std::uintmax_t bytes) {
  // Such a plot takes the tenth of a second in which people begin to wonder.
  constexpr std::uintmax_t many = 4'000'000;
  constexpr std::uintmax_t megabyte = 1'000'000;
  ++begun_;
  if (!isEnabled_ || (steps_ < 2 && bytes < many)) return;
  clear();
  const std::string line = "[" + std::to_string(begun_) + "/" + std::to_string(steps_) + "] " +
                           (bytes < many ? "" : std::to_string(bytes / megabyte) + " MB: ") +
                           printable(name);
  console_.out.flush();
  // One column stays free: a line that fills the terminal would wrap and could not be taken away.
  console_.err << shortened(line, console_.errTerminal.width - 1) << std::flush;
  isShown_ = true;
}

void Progress::clear() {
  if (!isShown_) return;
  console_.err << "\r\x1b[K" << std::flush;
  isShown_ = false;
}

}  // namespace korrin::host
