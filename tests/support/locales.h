#pragma once

// What tests expect in whatever locale the process is.

#include <locale.h>

namespace korrin::test {

/// The capital of an ASCII letter; other characters stay. std::toupper has no capital for the "i"
/// of a Turkish process.
constexpr char capital(char c) {
  return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// While it lives, the calling thread's C functions read and write numbers with a point.
class PlainNumbers {
 public:
  PlainNumbers() : plain_(newlocale(LC_ALL_MASK, "C", nullptr)), before_(uselocale(plain_)) {}
  ~PlainNumbers() {
    uselocale(before_);
    freelocale(plain_);
  }
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
  locale_t plain_;
  locale_t before_;
};

}  // namespace korrin::test
