#pragma once

// The text that a writer appends to.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace korrin::json {

/// Text that grows at its end. A std::string appended to would pay for a length and a terminator
/// each time; this one is cut to length once, at the end.
class TextBuffer {
 public:
  void reserve(std::size_t count) { resize(count); }

  /// At least `count` writable bytes at the end of the text.
  char* room(std::size_t count) {
    if (static_cast<std::size_t>(end_ - at_) < count) [[unlikely]]
      resize(std::max(text_.size() + text_.size() / 2, used() + count));
    return at_;
  }
  /// Says how far what was asked for by `room` has been filled.
  void setEnd(char* at) { at_ = at; }

  void append(char c) {
    *room(1) = c;
    ++at_;
  }
  void append(std::string_view text) {
    std::memcpy(room(text.size()), text.data(), text.size());
    at_ += text.size();
  }
  /// A length known in advance makes this a store or two.
  template <std::size_t length>
  void append(const std::array<char, length>& text) {
    std::memcpy(room(length), text.data(), length);
    at_ += length;
  }

  /// Gives the text away.
  std::string finish() {
    text_.resize(used());
    return std::move(text_);
  }

 private:
  std::size_t used() const { return static_cast<std::size_t>(at_ - text_.data()); }
  void resize(std::size_t count) {
    const std::size_t kept = used();
    text_.resize(count);
    at_ = text_.data() + kept;
    end_ = text_.data() + text_.size();
  }

  std::string text_;
  char* at_ = text_.data();
  char* end_ = at_;
};

}  // namespace korrin::json
