#include "korrin/session/autosave.h"

#include <algorithm>
#include <condition_variable>
#include <csignal>
#include <cstdint>
#include <exception>
#include <mutex>
#include <new>
#include <thread>
#include <utility>
#include <vector>

#include "korrin/foundation/environment.h"
#include "korrin/foundation/steady_time.h"
#include "korrin/session/files/recovery_file.h"

namespace korrin {
namespace {

using Time = std::chrono::nanoseconds;

// Long enough for everybody, and short enough that ten times it is a number.
constexpr Time longestQuiet = std::chrono::hours(24 * 365);

// Before a write that failed is tried again, so that a full disk does not keep a processor busy.
constexpr Time shortestPause = std::chrono::milliseconds(100);

// Signals are the business of the host's threads.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  sigset_t before_;
};

}  // namespace

class Autosave::Worker {
 public:
  Worker(const std::filesystem::path& file, Time quiet)
      : file_(files::absolutePath(file)), quiet_(std::clamp(quiet, Time(0), longestQuiet)) {
    dropped_.reserve(mostDropped);
    destroyed_.reserve(mostDropped);
    const SignalsBlocked guard;
    thread_ = std::thread([this] { run(); });
  }

  ~Worker() {
    {
      const std::lock_guard lock(mutex_);
      isStopping_ = true;
    }
    changed_.notify_all();
    thread_.join();
  }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  void note(KorrinProject&& project) {
    std::optional<KorrinProject> surplus;
    {
      const std::lock_guard lock(mutex_);
      surplus = takePending();
      if (!hasPending_) first_ = steadyTime();
      last_ = steadyTime();
      hasPending_ = true;
      pending_.emplace(std::move(project));
      notedAt_ = Environment::system().now();
    }
    changed_.notify_all();
  }

  void flush() {
    std::unique_lock lock(mutex_);
    const std::uint64_t ticket = ++tickets_;
    changed_.notify_all();
    changed_.wait(lock, [&] { return served_ >= ticket; });
  }

  void settle() {
    std::optional<KorrinProject> surplus;
    std::unique_lock lock(mutex_);
    surplus = takePending();
    hasPending_ = false;
    ++settled_;
    changed_.wait(lock, [&] { return !isFileInUse_; });
    isFileInUse_ = true;
    lock.unlock();
    Outcome outcome = outcomeOf([&] { files::removeRecovery(file_); });
    lock.lock();
    isFileInUse_ = false;
    outcome_ = std::move(outcome);
    lock.unlock();
    changed_.notify_all();
  }

  std::optional<std::string> failure() const {
    const std::lock_guard lock(mutex_);
    if (outcome_.isMemoryOut) return "the recovery was not written: the memory is full";
    return outcome_.failure;
  }

 private:
  /// What became of a write.
  struct Outcome {
    std::optional<std::string> failure = std::nullopt;
    bool isMemoryOut = false;
    bool isFailure() const { return failure || isMemoryOut; }
  };

  static Outcome outcomeOf(const auto& work) {
    try {
      try {
        work();
        return {};
      } catch (const std::bad_alloc&) {
        throw;
      } catch (const std::exception& error) {
        return {.failure = std::string("the recovery was not written: ") + error.what()};
      }
    } catch (const std::bad_alloc&) {  // of the work, or of the words about it
      return {.isMemoryOut = true};
    }
  }

  // The pending state goes where the worker destroys it; it comes back when there is no room. With
  // the lock held.
  std::optional<KorrinProject> takePending() {
    if (!pending_) return std::nullopt;
    std::optional<KorrinProject> surplus;
    if (dropped_.size() < mostDropped)
      dropped_.push_back(std::move(*pending_));
    else
      surplus.emplace(std::move(*pending_));
    pending_.reset();
    return surplus;
  }

  // When the pending state is to be written. The last write tells how long the next will take.
  Time deadline() const {
    const Time latest = first_ + 10 * quiet_ - std::min(lastDuration_, 5 * quiet_);
    return std::min(last_ + quiet_, latest);
  }

  void run() {
    std::unique_lock lock(mutex_);
    for (;;) {
      if (!dropped_.empty()) {
        destroyDropped(lock);
      } else if (!pending_) {
        if (served_ != tickets_) {
          served_ = tickets_;
          changed_.notify_all();
        }
        if (isStopping_) return;
        changed_.wait(lock);
      } else if (isFileInUse_) {
        changed_.wait(lock);
      } else if (isStopping_ || served_ != tickets_ || steadyTime() >= deadline()) {
        writePending(lock);
      } else {
        // In pieces, as the sum of a time and a long wait might be no number.
        changed_.wait_for(lock, std::min<Time>(deadline() - steadyTime(), std::chrono::hours(1)));
      }
    }
  }

  void destroyDropped(std::unique_lock<std::mutex>& lock) {
    dropped_.swap(destroyed_);
    lock.unlock();
    destroyed_.clear();
    lock.lock();
  }

  void writePending(std::unique_lock<std::mutex>& lock) {
    std::optional<KorrinProject> project;
    project.emplace(std::move(*pending_));
    pending_.reset();
    hasPending_ = false;
    const Instant notedAt = notedAt_;
    const std::uint64_t ticket = tickets_;
    const std::uint64_t settled = settled_;
    isFileInUse_ = true;
    lock.unlock();

    const Time begin = steadyTime();
    Outcome outcome = outcomeOf([&] { files::writeRecovery(file_, *project, notedAt); });
    const Time end = steadyTime();
    if (!outcome.isFailure()) project.reset();

    lock.lock();
    isFileInUse_ = false;
    lastDuration_ = end - begin;
    const bool isTriedAgain =
        outcome.isFailure() && !isStopping_ && !pending_ && settled == settled_;
    if (isTriedAgain) {
      pending_.emplace(std::move(*project));
      hasPending_ = true;
      notedAt_ = notedAt;
      const Time pause = std::max(10 * quiet_, shortestPause);
      first_ = end + pause - 10 * quiet_;
      last_ = end + pause - quiet_;
    }
    outcome_ = std::move(outcome);
    served_ = ticket;
    changed_.notify_all();
    lock.unlock();
    project.reset();
    lock.lock();
  }

  // So many notes may come while one state is written before they do a part of this themselves.
  static constexpr std::size_t mostDropped = 256;

  const std::filesystem::path file_;
  const Time quiet_;

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<KorrinProject> pending_;  // the latest state that is not written
  bool hasPending_ = false;               // since a note, until it is written or forgotten
  Instant notedAt_{};                     // of the pending state
  Time first_{};                          // when the first state since the last write was noted
  Time last_{};                           // when the pending one was
  Time lastDuration_{};
  std::vector<KorrinProject> dropped_;    // superseded states, for the worker to destroy
  std::vector<KorrinProject> destroyed_;  // the worker's, beside the lock
  std::uint64_t tickets_ = 0;             // flushes asked for
  std::uint64_t served_ = 0;              // flushes answered
  std::uint64_t settled_ = 0;
  bool isFileInUse_ = false;
  bool isStopping_ = false;
  Outcome outcome_;
  std::thread thread_;
};

Autosave::Autosave(std::filesystem::path recoveryFile, std::chrono::milliseconds quiet)
    : worker_(std::make_unique<Worker>(
          recoveryFile, std::clamp<std::chrono::milliseconds>(
                            quiet, std::chrono::milliseconds(0),
                            std::chrono::duration_cast<std::chrono::milliseconds>(longestQuiet)))) {
}

Autosave::~Autosave() = default;

void Autosave::note(KorrinProject project) { worker_->note(std::move(project)); }

void Autosave::flush() { worker_->flush(); }

void Autosave::settle() { worker_->settle(); }

std::optional<std::string> Autosave::failure() const { return worker_->failure(); }

}  // namespace korrin
