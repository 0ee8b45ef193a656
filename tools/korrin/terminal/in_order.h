#pragma once

// Work on many things at once, whose results are taken in their order.

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace korrin::host {

/// Calls `work(i)` for every i below `count`, on `workers` threads, and `take(i, result)` for each
/// on this thread, in order. No more than two results a worker wait to be taken. With one worker
/// everything runs on this thread. What `work` or `take` throws comes out of here, once all threads
/// have ended.
template <class Work, class Take>
void inOrder(std::size_t count, std::size_t workers, Work work, Take take) {
  using Result = decltype(work(std::size_t{}));
  if (workers <= 1 || count <= 1) {
    for (std::size_t i = 0; i < count; ++i) take(i, work(i));
    return;
  }
  struct Made {
    std::optional<Result> result = {};
    std::exception_ptr error = {};
  };
  std::mutex mutex;
  std::condition_variable changed;
  std::map<std::size_t, Made> done;
  std::size_t next = 0;
  std::size_t taken = 0;
  bool isOver = false;
  const std::size_t room = 2 * workers;
  const auto run = [&] {
    for (;;) {
      std::unique_lock lock(mutex);
      changed.wait(lock, [&] { return isOver || next >= count || next < taken + room; });
      if (isOver || next >= count) return;
      const std::size_t i = next++;
      lock.unlock();
      Made made;
      try {
        made.result.emplace(work(i));
      } catch (const std::exception&) {
        made.error = std::current_exception();
      }
      lock.lock();
      done.insert_or_assign(i, std::move(made));
      changed.notify_all();
    }
  };
  std::vector<std::jthread> threads;
  // Ends the threads however this function is left; they are joined before anything they refer to
  // goes away.
  const auto stop = [&] {
    {
      const std::scoped_lock lock(mutex);
      isOver = true;
    }
    changed.notify_all();
    threads.clear();
  };
  try {
    for (std::size_t i = 0; i < std::min(workers, count); ++i) threads.emplace_back(run);
    for (std::size_t i = 0; i < count; ++i) {
      std::unique_lock lock(mutex);
      changed.wait(lock, [&] { return done.contains(i); });
      Made made = std::move(done.extract(i).mapped());
      taken = i + 1;
      lock.unlock();
      changed.notify_all();
      if (made.error) std::rethrow_exception(made.error);
      take(i, std::move(*made.result));
    }
  } catch (const std::exception&) {
    stop();
    throw;
  }
  stop();
}

}  // namespace korrin::host
