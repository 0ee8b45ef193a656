// The main function of every test program. Two surroundings can be asked for from outside:
//
//   KORRIN_TEST_STACK=262144   all tests run in a thread with a stack of that many bytes
//   KORRIN_TEST_LOCALE=tr_TR.UTF-8   the process has that locale, as a host may set it

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <locale>
#include <string>

#include <gmock/gmock.h>

#include "tests/support/small_stack.h"

// Of the coverage runtime; null in programs that are built without it.
extern "C" [[gnu::weak]] int __llvm_profile_write_file();

// The undefined-behaviour sanitizer stops a program by an illegal instruction; this has the address
// sanitizer say at which line. Nothing calls it in programs that are built without that sanitizer.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's runtime looks for this name.
extern "C" [[gnu::used]] const char* __asan_default_options() { return "handle_sigill=1"; }

namespace {

// What a death test reaches counts, too: a program that aborts leaves no profile by itself.
void writeProfile(int) { __llvm_profile_write_file(); }

}  // namespace

int main(int argc, char** argv) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";  // unless the command line says otherwise
  testing::InitGoogleMock(&argc, argv);
  if (__llvm_profile_write_file != nullptr) std::signal(SIGABRT, writeProfile);
  if (const char* name = std::getenv("KORRIN_TEST_LOCALE")) std::locale::global(std::locale(name));
  const char* stack = std::getenv("KORRIN_TEST_STACK");
  if (stack == nullptr) return RUN_ALL_TESTS();
  int result = EXIT_FAILURE;
  korrin::test::runOnStack(std::stoul(stack), [&result] { result = RUN_ALL_TESTS(); });
  return result;
}
