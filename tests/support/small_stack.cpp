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

}  // namespace

void runOnStack(std::size_t bytes, const std::function<void()>& function) {
  pthread_attr_t attributes;
  require(pthread_attr_init(&attributes));
  pthread_t thread{};
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
