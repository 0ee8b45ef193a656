#include "tests/support/small_stack.h"

#include <cerrno>
#include <system_error>

#include <pthread.h>

namespace korrin::test {
namespace {

void require(int result) {
  if (result != 0) throw std::system_error(result, std::generic_category());
}

void* call(void* function) {
  (*static_cast<const std::function<void()>*>(function))();
  return nullptr;
}

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr bool hasSanitizer = true;
#else
constexpr bool hasSanitizer = false;
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool hasSanitizer = true;
#else
constexpr bool hasSanitizer = false;
#endif

}  // namespace

const std::size_t smallStackBytes = hasSanitizer ? 1024 * 1024 : 128 * 1024;

void runOnStack(std::size_t bytes, const std::function<void()>& function) {
  pthread_attr_t attributes;
  require(pthread_attr_init(&attributes));
  pthread_t thread;
  int result = pthread_attr_setstacksize(&attributes, bytes);
  if (result == 0) {
    void* argument = const_cast<std::function<void()>*>(&function);
    result = pthread_create(&thread, &attributes, call, argument);
  }
  pthread_attr_destroy(&attributes);
  require(result);
  require(pthread_join(thread, nullptr));
}

}  // namespace korrin::test
