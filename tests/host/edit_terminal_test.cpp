// korrin edit at a terminal, as the user who types sees it.

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "edit_fixture.h"
#include "scratch.h"
#include "tests/support/effort.h"

namespace korrin::host {
namespace {

using testing::HasSubstr;
using testing::Not;

/// What the program prints on a terminal of its own while the text is typed, after its first
/// prompt, and its exit status. It may use so much memory.
Outcome typed(const std::string& folder, const std::string& text, rlim_t memory = RLIM_INFINITY) {
  int controller = -1;
  const pid_t child = forkpty(&controller, nullptr, nullptr, nullptr);
  if (child == 0) {
    if (chdir(folder.c_str()) == 0) {
      setenv("TERM", "dumb", 1);
      const rlimit limit = {.rlim_cur = memory, .rlim_max = memory};
      if (memory != RLIM_INFINITY) setrlimit(RLIMIT_AS, &limit);
      execl(KORRIN_TOOL, "korrin", "edit", "plot.json", nullptr);
    }
    _exit(127);
  }
  std::string out;
  char buffer[4096];
  while (out.find("korrin> ") == std::string::npos) {
    const ssize_t count = read(controller, buffer, sizeof buffer);
    if (count <= 0) break;
    out.append(buffer, static_cast<std::size_t>(count));
  }
  EXPECT_EQ(write(controller, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  // The terminal's end reads as an error once the program has gone.
  for (ssize_t count = 0; (count = read(controller, buffer, sizeof buffer)) > 0;)
    out.append(buffer, static_cast<std::size_t>(count));
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  close(controller);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), out, ""};
}

TEST_F(Edit, GoesOnAfterARefusedLineOnATerminal) {
  const Outcome outcome =
      typed(scratch.path("."), "frob\nlabel GTR \"Café\"\nquit\nsave copy.json\nquit\n");
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_THAT(outcome.out, HasSubstr("korrin> "));
  EXPECT_THAT(outcome.out, HasSubstr("korrin: there is no command \"frob\""));
  EXPECT_THAT(outcome.out,
              HasSubstr("korrin: there are unsaved changes; save them, or quit again"));
  EXPECT_THAT(outcome.out, Not(HasSubstr("are lost")));
  EXPECT_EQ(plotIn(scratch, "copy.json").items[5].label, "Café");
}

// A file without content, whose size is more than the limit on memory lets anybody read.
TEST_F(Edit, GoesOnAfterALineThatRunsOutOfMemory) {
  if (test::isSanitized) GTEST_SKIP() << "sanitizers need more memory than any limit leaves";
  scratch.write("huge.fragment", "");
  std::filesystem::resize_file(scratch.path("huge.fragment"), std::size_t{900} << 20);
  const std::string sentence = "there is not enough memory for this line";
  constexpr rlim_t limit = rlim_t{512} << 20;
  const Outcome outcome = typed(scratch.path("."),
                                "label GTR x\npaste from huge.fragment 0 0\nlabel x y\nundo\n"
                                "save copy.json\nquit\n",
                                limit);
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_THAT(outcome.out, HasSubstr("korrin: " + sentence));
  EXPECT_THAT(outcome.out, HasSubstr("undone: label x y"));
  EXPECT_EQ(plotIn(scratch, "copy.json").items[5].label, "x");

  scratch.write("script", "label GTR x\nsave\npaste from huge.fragment 0 0\nlabel x y\nsave\n");
  const Outcome script =
      scratch.shell("ulimit -v 524288; \"$KORRIN\" edit plot.json --script script");
  EXPECT_EQ(script.status, 2);
  EXPECT_EQ(script.err, "korrin: script:3: " + sentence + "\n");
  EXPECT_EQ(plotIn(scratch, "plot.json").items[5].label, "x");
}

TEST_F(Edit, EndsOnATerminalWhenAskedTwice) {
  const Outcome outcome = typed(scratch.path("."), "label GTR x\nquit\nquit\n");
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_THAT(outcome.out, HasSubstr("korrin: plot.json: the unsaved changes are lost"));
}

}  // namespace
}  // namespace korrin::host
