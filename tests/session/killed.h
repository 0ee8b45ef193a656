#pragma once

// Work in a process of its own that is killed without warning at some moment.

#include <chrono>
#include <csignal>
#include <functional>
#include <stdexcept>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace korrin::test {

/// Runs `work` in a copy of this process and kills that a while after it has called what it is
/// given, which it must do. Returns when it is dead.
inline void runAndKill(const std::function<void(const std::function<void()>& isReady)>& work,
                       std::chrono::microseconds after) {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error("no pipe for the test");
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process for the test");
  if (child == 0) {
    work([&] {
      if (::write(ends[1], "!", 1) != 1) ::_exit(1);
    });
    ::_exit(0);
  }
  char byte = 0;
  const bool isReady = ::read(ends[0], &byte, 1) == 1;
  ::close(ends[0]);
  ::close(ends[1]);
  if (!isReady) throw std::runtime_error("the process said nothing");
  std::this_thread::sleep_for(after);
  ::kill(child, SIGKILL);
  int status = 0;
  ::waitpid(child, &status, 0);
}

}  // namespace korrin::test
