#pragma once

// What a List does beside other threads, in tests that need but one.

#include <thread>

namespace korrin {

/// Leaves lend their elements from here on (list_loan.h): the C library does not forget that there
/// was a second thread.
inline void haveHadASecondThread() {
  std::thread([] {}).join();
}

}  // namespace korrin
