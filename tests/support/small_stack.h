#pragma once

// Runs code on a thread whose stack is as small as a test wants it.

#include <cstddef>
#include <functional>
#include <system_error>

#include <pthread.h>

namespace korrin::test {

/// Calls `work` in a new thread with a stack of `bytes` and waits for it. `work` must not throw.
inline void runOnStack(std::size_t bytes, const std::function<void()>& work) {
  const auto check = [](int error) {
    if (error != 0) throw std::system_error(error, std::generic_category(), "small stack");
  };
  pthread_attr_t attributes;
  check(pthread_attr_init(&attributes));
  check(pthread_attr_setstacksize(&attributes, bytes));
  pthread_t thread;
  check(pthread_create(
      &thread, &attributes,
      [](void* argument) -> void* {
        (*static_cast<const std::function<void()>*>(argument))();
        return nullptr;
      },
      const_cast<std::function<void()>*>(&work)));
  check(pthread_attr_destroy(&attributes));
  check(pthread_join(thread, nullptr));
}

}  // namespace korrin::test
