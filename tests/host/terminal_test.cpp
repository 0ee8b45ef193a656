#include "terminal/terminal.h"

#include <sstream>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace korrin::host {
namespace {

/// The terminal's end of a pseudo-terminal of 72 columns.
class PseudoTerminal {
 public:
  PseudoTerminal() : controller_(posix_openpt(O_RDWR | O_NOCTTY)) {
    EXPECT_EQ(grantpt(controller_), 0);
    EXPECT_EQ(unlockpt(controller_), 0);
    descriptor_ = open(ptsname(controller_), O_RDWR | O_NOCTTY);
    EXPECT_GE(descriptor_, 0);
    winsize size{};
    size.ws_col = 72;
    EXPECT_EQ(ioctl(descriptor_, TIOCSWINSZ, &size), 0);
  }
  ~PseudoTerminal() {
    close(descriptor_);
    close(controller_);
  }
  int descriptor() const { return descriptor_; }

 private:
  int controller_;
  int descriptor_;
};

class TerminalProperties : public testing::Test {
 protected:
  TerminalProperties() {
    unsetenv("NO_COLOR");
    setenv("TERM", "xterm", 1);
  }
};

TEST_F(TerminalProperties, AreThoseOfATerminal) {
  const PseudoTerminal pseudo;
  const Terminal terminal = Terminal::of(pseudo.descriptor());
  EXPECT_TRUE(terminal.isTerminal);
  EXPECT_TRUE(terminal.hasColour);
  EXPECT_EQ(terminal.width, 72u);
}

TEST_F(TerminalProperties, ExcludeColourWhereItIsNotWanted) {
  const PseudoTerminal pseudo;
  setenv("NO_COLOR", "", 1);
  EXPECT_TRUE(Terminal::of(pseudo.descriptor()).hasColour);
  setenv("NO_COLOR", "1", 1);
  EXPECT_FALSE(Terminal::of(pseudo.descriptor()).hasColour);
  unsetenv("NO_COLOR");
  setenv("TERM", "dumb", 1);
  EXPECT_FALSE(Terminal::of(pseudo.descriptor()).hasColour);
}

TEST_F(TerminalProperties, AreNoneOfAFile) {
  const int file = open("/dev/null", O_WRONLY);
  const Terminal terminal = Terminal::of(file);
  close(file);
  EXPECT_FALSE(terminal.isTerminal);
  EXPECT_FALSE(terminal.hasColour);
  EXPECT_EQ(terminal.width, 0u);
}

struct Printed {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err, {}, {}};
};

TEST(Progress, IsShownOnATerminalAndTakenAway) {
  Printed printed;
  printed.console.errTerminal = {.isTerminal = true, .hasColour = true, .width = 20};
  {
    Progress progress(printed.console, 2);
    progress.step("a\x1b.json");
    progress.step("a-long-name-of-a-plot.json");
  }
  EXPECT_EQ(printed.err.str(), "[1/2] a\\u{1B}.json\r\x1b[K[2/2] a-long-name-…\r\x1b[K");
  EXPECT_EQ(printed.out.str(), "");
}

TEST(Progress, IsShownForOneLargeFile) {
  Printed printed;
  printed.console.errTerminal = {.isTerminal = true, .hasColour = true, .width = 40};
  Progress(printed.console, 1).step("small.json", 3'999'999);
  EXPECT_EQ(printed.err.str(), "");
  Progress(printed.console, 1).step("large.json", 114'700'000);
  EXPECT_EQ(printed.err.str(), "[1/1] 114 MB: large.json\r\x1b[K");
  printed.console.errTerminal.isTerminal = false;
  Progress(printed.console, 1).step("large.json", 114'700'000);
  EXPECT_EQ(printed.err.str(), "[1/1] 114 MB: large.json\r\x1b[K");
}

TEST(Progress, IsNotShownElsewhereOrForASingleStep) {
  Printed printed;
  Progress(printed.console, 9).step("a.json");
  printed.console.errTerminal = {.isTerminal = true, .hasColour = true, .width = 20};
  Progress(printed.console, 1).step("a.json");
  EXPECT_EQ(printed.err.str(), "");
}

TEST(Complain, SendsNothingRawToTheTerminal) {
  Printed printed;
  complain(printed.console, "\x1b[2J.json: cannot be read");
  EXPECT_EQ(printed.err.str(), "korrin: \\u{1B}[2J.json: cannot be read\n");
}

TEST(Colour, IsPaintedOnlyWhereThereIsSome) {
  EXPECT_EQ(coloured({}, Colour::red, "error"), "error");
  EXPECT_EQ(coloured({.isTerminal = true, .hasColour = true, .width = 80}, Colour::red, "error"),
            "\x1b[1;31merror\x1b[0m");
}

}  // namespace
}  // namespace korrin::host
